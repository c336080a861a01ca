#include "KTBoundTextEdit.h"

#include "TextReading_p.h"

#include <KTUtility/Platform/Values/NSObject.h>

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPointer>

#include <utility>

using namespace KTPrivate;

KTBoundTextEdit::KTBoundTextEdit(QWidget *parent)
    : QPlainTextEdit(parent), KTBoundEditor(static_cast<QWidget *>(this))
{
    setTabChangesFocus(true);
    QObject::connect(this, &QPlainTextEdit::textChanged, this, [this] {
        if (isModified())
            beginEditing();
        else if (!_isCommitting)
            endEditing();
    });
}

void KTBoundTextEdit::setValue(const QVariant &value)
{
    const QPointer<KTBoundTextEdit> self = this;
    if (isModified() && !_isCommitting && hasSelectionMoved())
        leaveForOthers();
    if (!self)
        return;
    const bool isOther = !NSObject::isEqual(value, _value);
    _value = value;
    setPlaceholderText(bindingOptions().placeholderFor(value));
    if (!isModified())
        showValue();
    showEnabledFor(value);
    if (isOther)
        Q_EMIT valueChanged();
}

QString KTBoundTextEdit::text() const
{
    // toPlainText() makes spaces of those that do not break.
    return document()->toRawText().replace(QChar::ParagraphSeparator, QChar::LineFeed);
}

/// Others are selected while something is typed: it is stored where it belongs.
void KTBoundTextEdit::leaveForOthers()
{
    const QPointer<KTBoundTextEdit> self = this;
    const QString reason = commitToEdited(text());
    if (!self)
        return;
    _base = text();
    if (!reason.isEmpty())
        Q_EMIT rejected(reason);
}

void KTBoundTextEdit::showValue()
{
    const QString shown = shownText(nullptr, _value);
    _base = shown;
    if (text() != shown)
        setPlainText(shown);
    // A text edit knows fewer kinds of line breaks than texts do.
    _base = text();
    endEditing();
    showReason({});
}

bool KTBoundTextEdit::commit()
{
    if (_isCommitting)
        return false;
    if (!isModified()) {
        endEditing();
        return true;
    }
    const QPointer<KTBoundTextEdit> self = this;
    const QVariant before = std::exchange(_value, text());
    _isCommitting = true;
    const QString reason = hasSelectionMoved() ? commitToEdited(_value) : commitValue();
    if (!self)
        return reason.isNull();
    _isCommitting = false;
    showReason(reason);
    if (!reason.isNull()) {
        _value = before;
        Q_EMIT rejected(reason);
        return false;
    }
    _base = text();
    showValue();
    Q_EMIT valueChanged();
    return true;
}

void KTBoundTextEdit::restore()
{
    showValue();
}

void KTBoundTextEdit::keyPressEvent(QKeyEvent *event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn && event->modifiers().testFlag(Qt::ControlModifier))
        commit();
    else if (event->key() == Qt::Key_Escape && isModified())
        restore();
    else
        QPlainTextEdit::keyPressEvent(event);
}

void KTBoundTextEdit::focusOutEvent(QFocusEvent *event)
{
    const QPointer<KTBoundTextEdit> self = this;
    if (event->reason() != Qt::PopupFocusReason)
        commit();
    if (self)
        QPlainTextEdit::focusOutEvent(event);
}
