#pragma once

#include "KTBoundEditor.h"
#include <KTUtility/KTUtilityExport.h>

#include <QComboBox>
#include <QVariant>

/// A combo box for a value that is one of a few; see KTBoundEditor.
///
/// Each choice has a value and a text that people read; items that have no data of their own, such as
/// those of Qt Designer, are their texts. A value that is none of the choices, nil and markers show a
/// placeholder. What the object does not take is put back.
///
/// \code
/// auto *const kind = new KTBoundComboBox;
/// kind->addChoice(tr("Travel"), u"travel"_s);
/// kind->addChoice(tr("Meals"), u"meals"_s);
/// kind->bindTo(&controller, u"selection.kind");
/// \endcode
class KTUTILITY_EXPORT KTBoundComboBox : public QComboBox, public KTBoundEditor
{
    Q_OBJECT
    Q_INTERFACES(NSKeyValueBinding)
    Q_PROPERTY(QVariant value READ value WRITE setValue NOTIFY valueChanged
                   USER true DESIGNABLE false STORED false)

public:
    /// A combo box without choices.
    explicit KTBoundComboBox(QWidget *parent = nullptr);

    /// Adds a choice.
    void addChoice(const QString &text, const QVariant &value);
    /// The value of a choice.
    QVariant valueAt(int index) const;
    /// The choice of a value; −1 if there is none.
    int indexOf(const QVariant &value) const;

    /// What was set or chosen last.
    const QVariant &value() const { return _value; }
    void setValue(const QVariant &value);

Q_SIGNALS:
    void valueChanged();
    /// The object did not take the value.
    /// \param reason for a person.
    void rejected(const QString &reason);

private:
    void take(int index);
    void showValue();

    QVariant _value;
};
