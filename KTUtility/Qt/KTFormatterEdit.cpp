#include "KTFormatterEdit.h"

#include "FormatterByName_p.h"
#include "TextReading_p.h"

#include <KTUtility/Platform/Keys/NotifySignals_p.h>
#include <KTUtility/Platform/Values/NSObject.h>

#include <QAccessible>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QScopedValueRollback>
#include <QVBoxLayout>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
/// Puts another text in place of what a line holds, so that it can be undone.
void replaceText(QLineEdit *line, const QString &text)
{
    const int cursor = line->cursorPosition();
    line->selectAll();
    line->insert(text);
    line->setCursorPosition(qMin(cursor, int(text.size())));
}

QLabel *madeReasonLine(QWidget *parent)
{
    auto *const line = new QLabel(parent);
    line->setObjectName(u"reason"_s);
    line->setTextFormat(Qt::PlainText);
    line->setWordWrap(true);
    line->setForegroundRole(QPalette::WindowText);
    line->hide();
    return line;
}
} // namespace

KTFormatterEdit::KTFormatterEdit(QWidget *parent) : KTFormatterEdit(nullptr, parent) {}

KTFormatterEdit::KTFormatterEdit(std::shared_ptr<const NSFormatter> formatter, QWidget *parent)
    : QWidget(parent)
    , KTBoundEditor(static_cast<QWidget *>(this))
    , _line(new QLineEdit(this))
    , _reasonLine(madeReasonLine(this))
{
    auto *const rows = new QVBoxLayout(this);
    rows->setContentsMargins({});
    rows->setSpacing(2);
    rows->addWidget(_line);
    rows->addWidget(_reasonLine);
    setFocusProxy(_line);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    _line->installEventFilter(this);
    QObject::connect(_line, &QLineEdit::textEdited, this, &KTFormatterEdit::lookAt);
    setFormatter(std::move(formatter));
}

KTFormatterEdit::~KTFormatterEdit() = default;

// --- Settings -----------------------------------------------------------------------------------

void KTFormatterEdit::setFormatter(std::shared_ptr<const NSFormatter> formatter)
{
    if (_formatter)
        QObject::disconnect(_formatter.get(), nullptr, this, nullptr);
    _formatter = std::move(formatter);
    if (_formatter)
        connectNotifySignals(_formatter.get(), this, "formatterChanged()");
    formatterChanged();
}

void KTFormatterEdit::formatterChanged()
{
    if (!isModified())
        showValue(_value);
}

void KTFormatterEdit::setFormatterClass(const QString &name)
{
    _formatterClass = name;
    setFormatter(formatterByName(name, _formatterOptions));
}

void KTFormatterEdit::setFormatterOptions(const QStringList &options)
{
    _formatterOptions = options;
    if (!_formatterClass.isEmpty())
        setFormatterClass(_formatterClass);
}

void KTFormatterEdit::setPlaceholderText(const QString &text)
{
    _placeholderText = text;
    showPlaceholder();
}

Qt::Alignment KTFormatterEdit::alignment() const
{
    return _line->alignment();
}

void KTFormatterEdit::setAlignment(Qt::Alignment alignment)
{
    _line->setAlignment(alignment);
}

bool KTFormatterEdit::isReadOnly() const
{
    return _line->isReadOnly();
}

void KTFormatterEdit::setReadOnly(bool readOnly)
{
    _line->setReadOnly(readOnly);
}

// --- Showing ------------------------------------------------------------------------------------

void KTFormatterEdit::setValue(const QVariant &value)
{
    const QPointer<KTFormatterEdit> self = this;
    if (isModified() && !_isCommitting && hasSelectionMoved())
        leaveForOthers();
    if (!self)
        return;
    const bool isOther = !NSObject::isEqual(value, _value);
    _value = value;
    showPlaceholder();
    if (!isModified())
        showValue(value);
    showEnabledFor(value);
    if (isOther)
        Q_EMIT valueChanged();
}

/// Others are selected while something is typed: it is stored where it belongs.
void KTFormatterEdit::leaveForOthers()
{
    const QString typed = text();
    const TextReading reading = TextReading::of(_formatter.get(), typed);
    const QPointer<KTFormatterEdit> self = this;
    const QString reason = reading.isRead ? commitToEdited(reading.value) : reading.reason;
    if (!self)
        return;
    endEditing();
    put(_base);
    setReason({});
    if (!reason.isEmpty())
        Q_EMIT rejected(typed, reason);
}

void KTFormatterEdit::showValue(const QVariant &value)
{
    const bool isForEditing = _isEditing && !isReadOnly();
    put(isForEditing ? editingText(_formatter.get(), value) : shownText(_formatter.get(), value));
    showColour();
    setReason({});
}

/// What is typed can be undone only as long as it is edited.
void KTFormatterEdit::put(const QString &text)
{
    _base = text;
    if (_line->text() == text)
        return;
    if (_isEditing)
        replaceText(_line, text);
    else
        _line->setText(text);
    // A line has no breaks, and may be too short.
    _base = _line->text();
    if (!_isEditing)
        _line->setCursorPosition(0);
}

void KTFormatterEdit::showPlaceholder()
{
    const QString text = bindingOptions().placeholderFor(_value);
    _line->setPlaceholderText(
        text.isEmpty() && KTBindingOptions::isEditable(_value) ? _placeholderText : text);
}

void KTFormatterEdit::showColour()
{
    const QVariant colour = _isEditing ? QVariant() : shownColour(_formatter.get(), _value);
    QPalette palette;
    if (!colour.isNull())
        palette.setBrush(QPalette::Text, colour.value<QBrush>());
    _line->setPalette(palette);
}

void KTFormatterEdit::setReason(const QString &reason)
{
    if (reason == _reason || (reason.isEmpty() && _reason.isEmpty()))
        return;
    _reason = reason;
    _reasonLine->setText(reason);
    _reasonLine->setVisible(!reason.isEmpty());
    _line->setAccessibleDescription(reason);
    QAccessibleEvent described(_line, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&described);
    updateGeometry();
    Q_EMIT reasonChanged(reason);
}

// --- Typing -------------------------------------------------------------------------------------

QString KTFormatterEdit::text() const
{
    return _line->text();
}

bool KTFormatterEdit::isModified() const
{
    return _line->text() != _base;
}

QValidator::State KTFormatterEdit::inputState() const
{
    return isModified() ? TextReading::judge(_formatter.get(), text()) : QValidator::Acceptable;
}

/// Judges what is being typed. A text that is put back is told of as if somebody had typed it.
void KTFormatterEdit::lookAt(const QString &typed)
{
    if (isModified())
        beginEditing();
    else
        endEditing();
    const bool isHopeless = inputState() == QValidator::Invalid;
    setReason(isHopeless ? TextReading::of(_formatter.get(), typed).reason : QString());
}

bool KTFormatterEdit::commit()
{
    if (_isCommitting)
        return false;
    if (!isModified()) {
        endEditing();
        setReason({});
        return true;
    }
    const TextReading reading = TextReading::of(_formatter.get(), text());
    if (reading.isRead)
        return take(reading.value);
    reject(reading.reason);
    return false;
}

/// Whoever is told of the value may destroy the edit.
bool KTFormatterEdit::take(const QVariant &value)
{
    const QPointer<KTFormatterEdit> self = this;
    const QVariant before = std::exchange(_value, value);
    _isCommitting = true;
    const QString reason = hasSelectionMoved() ? commitToEdited(value) : commitValue();
    if (!self)
        return reason.isNull();
    _isCommitting = false;
    if (!reason.isNull()) {
        _value = before;
        reject(reason);
        return false;
    }
    endEditing();
    _base = text();
    showValue(_value);
    if (!NSObject::isEqual(before, _value))
        Q_EMIT valueChanged();
    if (self)
        Q_EMIT committed(value);
    return true;
}

void KTFormatterEdit::reject(const QString &reason)
{
    setReason(reason);
    Q_EMIT rejected(text(), reason);
}

void KTFormatterEdit::restore()
{
    endEditing();
    showValue(_value);
    setReason({});
}

void KTFormatterEdit::beginToEdit()
{
    nameForScreenReaders();
    if (_isEditing || isReadOnly())
        return;
    // The text for editing is where undoing ends.
    if (!isModified())
        _line->setText(_base = editingText(_formatter.get(), _value));
    _isEditing = true;
    showColour();
}

/// \return whether the key is not for others: Escape closes a dialog if there is nothing to restore.
bool KTFormatterEdit::handleKey(int key)
{
    if (key == Qt::Key_Escape && (isModified() || !_reason.isEmpty())) {
        restore();
        return true;
    }
    // Return on what cannot be read does not press the default button.
    return (key == Qt::Key_Return || key == Qt::Key_Enter) && !commit();
}

bool KTFormatterEdit::eventFilter(QObject *object, QEvent *event)
{
    const QPointer<KTFormatterEdit> self = this;
    switch (event->type()) {
    case QEvent::FocusIn:
        beginToEdit();
        break;
    case QEvent::FocusOut:
        if (static_cast<QFocusEvent *>(event)->reason() == Qt::PopupFocusReason)
            break;
        // What cannot be read stays; what takes its place later is not for editing.
        if (const bool isStored = commit(); self) {
            _isEditing = false;
            if (isStored)
                showValue(_value);
        }
        break;
    case QEvent::KeyPress:
        if (handleKey(static_cast<QKeyEvent *>(event)->key()) || !self)
            return true;
        break;
    default:
        break;
    }
    return self && QWidget::eventFilter(object, event);
}

void KTFormatterEdit::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LocaleChange && !isModified())
        showValue(_value);
}

void KTFormatterEdit::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    nameForScreenReaders();
}

/// The focus is in the line, which is what screen readers name; the label belongs to the whole.
void KTFormatterEdit::nameForScreenReaders()
{
    QString name = accessibleName();
    const QList<QLabel *> labels = window()->findChildren<QLabel *>();
    for (const QLabel *const label : labels) {
        if (name.isEmpty() && label->buddy() == this)
            name = label->text().remove(u'&');
    }
    _line->setAccessibleName(name);
}
