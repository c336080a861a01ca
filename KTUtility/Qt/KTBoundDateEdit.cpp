#include "KTBoundDateEdit.h"

#include "TextReading_p.h"

#include <KTUtility/Platform/Keys/NSSelectionMarker.h>
#include <KTUtility/Platform/Values/NSObject.h>

#include <QCalendarWidget>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QScopedValueRollback>

#include <utility>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

KTBoundDateEdit::KTBoundDateEdit(QWidget *parent)
    : QDateEdit(parent), KTBoundEditor(static_cast<QWidget *>(this))
{
    setCalendarPopup(true);
    setKeyboardTracking(false);
    // By itself it shows no day before the calendar of 1752.
    const QDate firstOfQt(100, 1, 1);
    setMinimumDate(firstOfQt);
    showValue();
    QObject::connect(this, &QDateTimeEdit::dateChanged, this, &KTBoundDateEdit::takeDate);
    QObject::connect(lineEdit(), &QLineEdit::textEdited, this, &KTBoundDateEdit::beginTyping);
    QObject::connect(this, &QDateEdit::editingFinished, this, &KTBoundDateEdit::endTyping);
}

void KTBoundDateEdit::setValue(const QVariant &value)
{
    const QPointer<KTBoundDateEdit> self = this;
    if (_isTyping && hasSelectionMoved())
        leaveForOthers();
    if (!self)
        return;
    const bool isOther = !NSObject::isEqual(value, _value);
    _value = value;
    showValue();
    showReason({});
    showEnabledFor(value);
    if (isOther)
        Q_EMIT valueChanged();
}

bool KTBoundDateEdit::showsNothing() const
{
    return !_value.toDate().isValid() || NSIsControllerMarker(_value);
}

/// An edit of Qt has no empty state: its least date stands for it, and shows a text of its own.
void KTBoundDateEdit::showValue()
{
    const QScopedValueRollback<bool> showing(_isShowing, true);
    const QString placeholder = bindingOptions().placeholderFor(_value);
    setSpecialValueText(!showsNothing() ? QString() : placeholder.isEmpty() ? u" "_s : placeholder);
    setDate(showsNothing() ? minimumDate() : _value.toDate());
}

QVariant KTBoundDateEdit::valueOn(QDate day) const
{
    if (_value.typeId() != QMetaType::QDateTime)
        return day;
    QDateTime moment = _value.toDateTime();
    moment.setDate(day);
    return moment;
}

void KTBoundDateEdit::takeDate(QDate day)
{
    if (_isShowing)
        return;
    // Whoever begins with nothing begins today.
    take(valueOn(showsNothing() && day.toJulianDay() - minimumDate().toJulianDay() < 2
                     ? QDate::currentDate()
                     : day));
}

void KTBoundDateEdit::take(const QVariant &value)
{
    if (NSObject::isEqual(value, _value))
        return;
    const QPointer<KTBoundDateEdit> self = this;
    const QVariant before = std::exchange(_value, value);
    const QString reason = commitValue();
    if (!self)
        return;
    _isRejected = !reason.isNull();
    if (_isRejected)
        _value = before;
    endTyping();
    showValue();
    showReason(reason);
    if (reason.isNull())
        Q_EMIT valueChanged();
    else
        Q_EMIT rejected(reason);
}

// --- Typing -------------------------------------------------------------------------------------

void KTBoundDateEdit::beginTyping()
{
    _isTyping = true;
    beginEditing();
}

void KTBoundDateEdit::endTyping()
{
    _isTyping = false;
    endEditing();
}

/// Others are selected while something is typed: it is stored where it belongs.
void KTBoundDateEdit::leaveForOthers()
{
    _isTyping = false;
    const QPointer<KTBoundDateEdit> self = this;
    const QDate day = dateTimeFromText(text()).date();
    const QString reason = day.isValid() ? commitToEdited(valueOn(day)) : QString();
    if (!self)
        return;
    endEditing();
    if (!reason.isEmpty())
        Q_EMIT rejected(reason);
}

bool KTBoundDateEdit::commitEditing()
{
    const QPointer<KTBoundDateEdit> self = this;
    // Qt would put back what it shows.
    if (_isTyping && !hasAcceptableInput()) {
        const QString reason = rejectionForPeople(text(), {});
        showReason(reason);
        Q_EMIT rejected(reason);
        return false;
    }
    _isRejected = false;
    interpretText();
    if (!self)
        return true;
    endTyping();
    return !_isRejected;
}

void KTBoundDateEdit::discardEditing()
{
    endTyping();
    showValue();
    showReason({});
}

void KTBoundDateEdit::stepBy(int steps)
{
    if (showsNothing())
        take(QDate::currentDate());
    else
        QDateEdit::stepBy(steps);
}

void KTBoundDateEdit::keyPressEvent(QKeyEvent *event)
{
    if (_isNullable && !isReadOnly() && event->key() == Qt::Key_Delete)
        take({});
    else
        QDateEdit::keyPressEvent(event);
}

/// The calendar opens at today if there is no date.
void KTBoundDateEdit::mousePressEvent(QMouseEvent *event)
{
    if (showsNothing() && calendarWidget())
        calendarWidget()->setCurrentPage(QDate::currentDate().year(), QDate::currentDate().month());
    QDateEdit::mousePressEvent(event);
}
