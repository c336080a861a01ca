#pragma once

#include "KTBoundEditor.h"
#include <KTUtility/KTUtilityExport.h>

#include <QCheckBox>
#include <QVariant>

/// A check box for a value that is true or not; see KTBoundEditor.
///
/// It is half checked while several values are selected, and not checked for nil. A click sets all
/// selected objects. What the object does not take is put back.
///
/// \code
/// auto *const paid = new KTBoundCheckBox(tr("Paid"));
/// paid->bindTo(&controller, u"selection.isPaid");
/// \endcode
class KTUTILITY_EXPORT KTBoundCheckBox : public QCheckBox, public KTBoundEditor
{
    Q_OBJECT
    Q_INTERFACES(NSKeyValueBinding)
    Q_PROPERTY(QVariant value READ value WRITE setValue NOTIFY valueChanged
                   USER true DESIGNABLE false STORED false)

public:
    /// A check box without text.
    explicit KTBoundCheckBox(QWidget *parent = nullptr);
    /// A check box with a text beside it.
    explicit KTBoundCheckBox(const QString &text, QWidget *parent = nullptr);

    /// What was set or checked last.
    const QVariant &value() const { return _value; }
    void setValue(const QVariant &value);

Q_SIGNALS:
    void valueChanged();
    /// The object did not take the value.
    /// \param reason for a person.
    void rejected(const QString &reason);

protected:
    /// What a click does: it checks or unchecks, and sets the value.
    void nextCheckState() override;

private:
    void showValue();

    QVariant _value;
};
