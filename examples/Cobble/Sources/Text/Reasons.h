#pragma once

#include <QCoreApplication>

/// Why something was not done, in the language of the window. Commands, which have none, say it in
/// English.
///
/// \code
/// return Failure{Reasons::tr("there is no column '%1'").arg(name)};
/// \endcode
class Reasons
{
    Q_DECLARE_TR_FUNCTIONS(Reasons)

public:
    Reasons() = delete;
};
