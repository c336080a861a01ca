#pragma once

#include "StepTitle.h"

#include <QCoreApplication>

/// What a step is called in menus and lists, in the language of the window.
///
/// \code
/// StepText::of({StepKinds::Delete, {{StepParameters::Count, 3}}}); // "Delete 3 Records"
/// \endcode
class StepText
{
    Q_DECLARE_TR_FUNCTIONS(StepText)

public:
    StepText() = delete;

    /// Steps of a kind that this version does not know are changes.
    static QString of(const StepTitle &title);
};
