#pragma once

#include "RejectedInput.h"

#include <QList>
#include <QObject>

class QAbstractScrollArea;

/// Sees to it that nobody leaves a record with something typed that was rejected: it asks whether
/// to go on editing, which Return does, or to discard what was typed.
///
/// \code
/// PendingInput pending(window, {form, delegate});
/// pending.guard(table);
/// pending.leave([this] { close(); });    // now, or once the user has discarded it, or never
/// \endcode
class PendingInput : public QObject
{
    Q_OBJECT

public:
    /// \param sources must outlive this.
    PendingInput(QWidget *window, const QList<InputSource *> &sources);

    /// Does what leaves the record, if everything typed is stored or discarded.
    /// \return whether it was done at once.
    bool leave(const std::function<void()> &go);
    /// Whether everything typed is stored; else the user is asked, or is being asked already.
    /// \param then is called once it is stored or discarded.
    bool isSettled(const std::function<void()> &then);
    /// Keys and clicks in a view leave the record.
    void guard(QAbstractScrollArea *view);

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    std::optional<RejectedInput> settle();
    bool isSourceAsking(const std::function<void()> &then) const;
    void ask(const RejectedInput &rejected, const std::function<void()> &go);
    void discard(const RejectedInput &rejected, const std::function<void()> &go);

    QWidget *_window;
    QList<InputSource *> _sources;
    bool _isAsking = false;
    bool _isRepeating = false;
};
