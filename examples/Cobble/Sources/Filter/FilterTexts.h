#pragma once

#include <QCoreApplication>

/// What filters say, in the language of the window.
///
/// \code
/// return Failure{FilterTexts::tr("there is no field “%1”").arg(name)};
/// \endcode
class FilterTexts
{
    Q_DECLARE_TR_FUNCTIONS(FilterTexts)

public:
    FilterTexts() = delete;
};
