#pragma once

#include <QString>

/// Which of the framework's phone number formats belongs to a country.
namespace PhoneLayouts {
/// The format index for an ISO 3166 country code; -1 if there is none.
int indexForCountry(const QString &countryCode);
} // namespace PhoneLayouts
