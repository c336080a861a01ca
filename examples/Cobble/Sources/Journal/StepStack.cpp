#include "StepStack.h"

#include "StepText.h"

namespace {
/// As many as the journal keeps.
constexpr int MostSteps = 500;

/// A step on the stack. It was played when the stack goes to another place.
class StepCommand : public QUndoCommand
{
public:
    StepCommand(qint64 step, const StepTitle &title)
        : QUndoCommand(StepText::of(title)), _step(step)
    {
    }
    qint64 step() const { return _step; }

private:
    qint64 _step;
};
} // namespace

StepStack::StepStack(const Player &player) : _player(player)
{
    _stack.setUndoLimit(MostSteps);
}

void StepStack::add(qint64 step, const StepTitle &title)
{
    _stack.push(new StepCommand(step, title));
}

Outcome<> StepStack::undo()
{
    const Outcome<> undone = play(_stack.index() - 1, StepPlayer::Direction::Undo);
    move(_stack.index() - 1, bool(undone), &QUndoStack::undo);
    return undone;
}

Outcome<> StepStack::redo()
{
    const Outcome<> redone = play(_stack.index(), StepPlayer::Direction::Redo);
    move(_stack.index(), bool(redone), &QUndoStack::redo);
    return redone;
}

/// Moves the stack over a step that was played, or over one that is obsolete, which goes then.
void StepStack::move(int index, bool wasPlayed, void (QUndoStack::*over)())
{
    const QUndoCommand *const command = _stack.command(index);
    if (command && (wasPlayed || command->isObsolete()))
        (_stack.*over)();
}

Outcome<> StepStack::play(int index, StepPlayer::Direction direction)
{
    if (index < 0 || index >= _stack.count())
        return {};
    if (const Outcome<> ready = _readiness ? _readiness() : Outcome<>(); !ready)
        return ready;
    auto *const command =
        static_cast<StepCommand *>(const_cast<QUndoCommand *>(_stack.command(index)));
    const Outcome<> played = _player(command->step(), direction);
    command->setObsolete(!played && played.failure().isFinal);
    return played;
}
