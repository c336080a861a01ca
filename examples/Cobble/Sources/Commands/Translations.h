#pragma once

class NSLocale;

/// Makes the program speak the language of a locale, if the bundle has its texts
/// ("Contents/Resources/cobble_de.qm"); otherwise it speaks English. Texts that were looked up for
/// good before, such as the words of durations, stay.
void installTranslations(const NSLocale &locale);
