#pragma once

#include "KTBoundEditor.h"
#include <KTUtility/KTUtilityExport.h>

#include <QDateEdit>
#include <QVariant>

/// A date edit for days, with a calendar that pops up; see KTBoundEditor. For dates that are typed
/// in whatever way people write them, use a KTFormatterEdit with a KTDateTimeFormatter.
///
/// The value is a QDate, or a QDateTime if one was set: then its time of day and zone stay. Nil and
/// markers show a placeholder, from which the first step or choice goes to today; Delete sets nil if
/// the edit is nullable. A day is set once it is complete: by leaving, Return, the arrow keys or the
/// calendar. What the object does not take is put back.
///
/// \code
/// auto *const due = new KTBoundDateEdit;
/// due->setNullable(true);
/// due->bindTo(&controller, u"selection.due", {.nullPlaceholder = tr("never")});
/// \endcode
class KTUTILITY_EXPORT KTBoundDateEdit : public QDateEdit, public KTBoundEditor
{
    Q_OBJECT
    Q_INTERFACES(NSKeyValueBinding)
    Q_PROPERTY(QVariant value READ value WRITE setValue NOTIFY valueChanged
                   USER true DESIGNABLE false STORED false)
    Q_PROPERTY(bool nullable READ isNullable WRITE setNullable)

public:
    /// An edit without a date.
    explicit KTBoundDateEdit(QWidget *parent = nullptr);

    /// What was set or entered last.
    const QVariant &value() const { return _value; }
    void setValue(const QVariant &value);

    /// Whether Delete sets nil; not at first.
    bool isNullable() const { return _isNullable; }
    void setNullable(bool nullable) { _isNullable = nullable; }

    /// Goes on by days, months or years; to today if there is no date.
    void stepBy(int steps) override;

    /// Reads what is typed, for the controller that is bound.
    /// \return whether the object has taken it.
    bool commitEditing() override;
    /// Shows the value again, for the controller that is bound.
    void discardEditing() override;

Q_SIGNALS:
    void valueChanged();
    /// The object did not take the value, or what is typed is no day.
    /// \param reason for a person.
    void rejected(const QString &reason);

protected:
    /// Delete sets nil, see isNullable().
    void keyPressEvent(QKeyEvent *event) override;
    /// Opens the calendar at today if there is no date.
    void mousePressEvent(QMouseEvent *event) override;

private:
    bool showsNothing() const;
    QVariant valueOn(QDate day) const;
    void take(const QVariant &value);
    void takeDate(QDate day);
    void showValue();
    void beginTyping();
    void endTyping();
    void leaveForOthers();

    QVariant _value;
    bool _isTyping = false;
    bool _isRejected = false; ///< what was entered last
    bool _isNullable = false;
    bool _isShowing = false;
};
