#pragma once

#include "EditCommand.h"

class QWidget;

/// Takes the commands of the Edit menu, for the records of a window.
class EditResponder
{
public:
    virtual ~EditResponder() = default;

    /// The widget that has the keyboard when commands about a selection are meant for this.
    virtual QWidget *view() const = 0;
    virtual bool canDo(EditCommand command) const = 0;
    virtual void perform(EditCommand command) = 0;
};
