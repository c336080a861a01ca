#include "EditCommands.h"

#include "EditResponder.h"
#include "TextInputs.h"

#include <QApplication>
#include <QWidget>

namespace {
/// Those that mean the records wherever the keyboard is.
bool isOfWindow(EditCommand command)
{
    return command == EditCommand::Duplicate || command == EditCommand::FillDown ||
           command == EditCommand::NewRecord;
}
} // namespace

bool EditCommands::isForRecords(EditCommand command) const
{
    const QWidget *const focus = QApplication::focusWidget();
    return isOfWindow(command) ||
           (focus && (focus == _records->view() || _records->view()->isAncestorOf(focus)));
}

bool EditCommands::canDo(EditCommand command) const
{
    const QWidget *const input = TextInputs::focused();
    if (input && !isOfWindow(command))
        return TextInputs::has(command) && TextInputs::canDo(input, command);
    return isForRecords(command) && _records->canDo(command);
}

void EditCommands::perform(EditCommand command) const
{
    if (!canDo(command))
        return;
    QWidget *const input = TextInputs::focused();
    if (input && !isOfWindow(command))
        TextInputs::perform(input, command);
    else
        _records->perform(command);
}
