#pragma once

class NSLocale;

/// The words that values have ("3 Stunden"), in the language of a locale.
///
/// What commands say around values is English in every locale, since scripts read it; see
/// WindowLanguage for windows. Words that were looked up before stay.
namespace ValueWords {
/// In place of those that were installed before; English where the framework has no others.
void install(const NSLocale &locale);
} // namespace ValueWords
