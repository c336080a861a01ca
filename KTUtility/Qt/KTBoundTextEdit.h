#pragma once

#include "KTBoundEditor.h"
#include <KTUtility/KTUtilityExport.h>

#include <QPlainTextEdit>
#include <QVariant>

/// A text edit for texts of several lines; see KTBoundEditor.
///
/// Leaving it and Ctrl+Return set the text, Escape puts it back. What the object does not take stays,
/// with the reason as tool tip and description. A text that is set while somebody types does not
/// disturb the cursor or what can be undone; if another object is selected meanwhile, what was typed
/// is stored in the one that it was typed for.
///
/// \code
/// auto *const note = new KTBoundTextEdit;
/// note->bindTo(&controller, u"selection.note", {.nullPlaceholder = tr("Note")});
/// \endcode
class KTUTILITY_EXPORT KTBoundTextEdit : public QPlainTextEdit, public KTBoundEditor
{
    Q_OBJECT
    Q_INTERFACES(NSKeyValueBinding)
    Q_PROPERTY(QVariant value READ value WRITE setValue NOTIFY valueChanged
                   USER true DESIGNABLE false STORED false)

public:
    /// An edit without text.
    explicit KTBoundTextEdit(QWidget *parent = nullptr);

    /// The text that was set or committed last; nil is shown as an empty one.
    const QVariant &value() const { return _value; }
    void setValue(const QVariant &value);
    /// What stands in it, with all its characters: toPlainText() knows no spaces that do not break.
    QString text() const;
    /// Whether the text is another than that of the value.
    bool isModified() const { return text() != _base; }

    /// commit(), for the controller that is bound.
    bool commitEditing() override { return commit(); }
    /// restore(), for the controller that is bound.
    void discardEditing() override { restore(); }

public Q_SLOTS:
    /// Sets the value to the text.
    /// \return whether the bound object has taken it; nothing is done for a text that was not
    /// changed.
    bool commit();
    /// Puts the text of the value back.
    void restore();

Q_SIGNALS:
    void valueChanged();
    /// The object did not take the value.
    /// \param reason for a person.
    void rejected(const QString &reason);

protected:
    /// Ctrl+Return commits, Escape restores.
    void keyPressEvent(QKeyEvent *event) override;
    /// Commits.
    void focusOutEvent(QFocusEvent *event) override;

private:
    void showValue();
    void leaveForOthers();

    QVariant _value;
    QString _base; ///< the text of the value
    bool _isCommitting = false;
};
