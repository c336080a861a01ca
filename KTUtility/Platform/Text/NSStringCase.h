#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QString>

/// Case mapping by the full rules of Unicode (chapter 3.13), the same in every locale: "ß" becomes
/// "SS", "İ" becomes "i" with U+0307, a Σ that ends a word becomes "ς". nil stays nil.
namespace NSString {
/// The text in small letters.
KTUTILITY_EXPORT QString lowercaseString(const QString &text);
/// The text in capital letters.
KTUTILITY_EXPORT QString uppercaseString(const QString &text);

/// The text with the first cased letter of each word in title case and the others in lower case.
/// A word ends at a character that is neither cased nor ignored by case mapping: "don't" is one
/// word ("Don't"), "a1b" and "a-b" are two each ("A1B", "A-B").
KTUTILITY_EXPORT QString capitalizedString(const QString &text);

/// The text with its first code point in upper case and the others as they are.
KTUTILITY_EXPORT QString stringByUppercasingFirstCharacter(const QString &text);
/// The text with its first code point in lower case and the others as they are.
KTUTILITY_EXPORT QString stringByLowercasingFirstCharacter(const QString &text);
} // namespace NSString
