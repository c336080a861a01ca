#pragma once

#include "StepPlayer.h"
#include "StepTitle.h"
#include "Text/Outcome.h"

#include <QUndoStack>

#include <functional>

/// The steps that were made in one window, for it to undo and redo. The journal has what they
/// consist of. A step that never can be played again is taken off the stack (Failure::isFinal); one
/// that only failed, or is not ready, stays and can be tried again.
///
/// \code
/// StepStack stack([&](qint64 step, StepPlayer::Direction direction) {
///     return bundle.play(step, direction);
/// });
/// stack.add(12, {StepKinds::Delete, {{StepParameters::Count, 3}}});
/// stack.undoText();    // "Delete 3 Records"
/// stack.undo();
/// \endcode
class StepStack : public QObject
{
    Q_OBJECT

public:
    using Player = std::function<Outcome<>(qint64 step, StepPlayer::Direction direction)>;

    /// \param player what undoes and redoes a step.
    explicit StepStack(const Player &player);

    /// Adds a step that was made.
    void add(qint64 step, const StepTitle &title);
    /// Whether the step can be played at all now.
    void setReadiness(const std::function<Outcome<>()> &readiness) { _readiness = readiness; }

    bool canUndo() const { return _stack.canUndo(); }
    bool canRedo() const { return _stack.canRedo(); }
    /// What the next step is called; nil if there is none.
    QString undoText() const { return _stack.undoText(); }
    QString redoText() const { return _stack.redoText(); }

    Outcome<> undo();
    Outcome<> redo();

private:
    void move(int index, bool wasPlayed, void (QUndoStack::*over)());
    Outcome<> play(int index, StepPlayer::Direction direction);

    Player _player;
    std::function<Outcome<>()> _readiness;
    QUndoStack _stack;
};
