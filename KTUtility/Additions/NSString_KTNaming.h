#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Text/NSCharacterSet.h>

#include <QString>

/// Naming transforms: the names that people give to libraries and fields, turned into identifiers
/// and back into labels.
///
/// Everything works by Unicode code point. Alphanumeric is every letter, mark and number of every
/// script; case mapping is Unicode's, the same in every locale. The results for identifiers are
/// remembered in KTStringTransformCache, so that asking again costs a look-up; like that cache, they
/// are for the main thread only, though they look as if they changed nothing. nil gives nil.
///
/// \code
/// KTAdditions::propertyString(u"Date of birth"_s);     // "dateOfBirth"
/// KTAdditions::entityString(u"My Library"_s);          // "MyLibrary"
/// KTAdditions::libraryEntityName(u"Bücher"_s);         // "lib_library"
/// KTAdditions::tableNameString(u"My Library"_s);       // "kt_my_library"
/// KTAdditions::tableColumnString(u"First Name"_s);     // "kt_firstName"
/// KTAdditions::labelString(u"firstName"_s);            // "First Name"
/// \endcode
namespace KTAdditions {
/// The name of a property: whitespace trimmed, camel case beginning with a small letter,
/// alphanumerics only. Remembered in the domain "properties" under the trimmed text.
KTUTILITY_EXPORT QString propertyStringFromString(const QString &string);
/// The same for a text as the receiver.
KTUTILITY_EXPORT QString propertyString(const QString &receiver);

/// The name of an entity: the part after the last ".", in camel case beginning with a capital.
/// Other characters than whitespace are kept. Remembered in the domain "entities".
///
/// Deliberate: this and libraryEntityNameFromString() share that domain, so whichever is asked
/// first about a text fixes what both return for it for the rest of the process.
KTUTILITY_EXPORT QString entityStringFromString(const QString &string);
/// The same for a text as the receiver.
KTUTILITY_EXPORT QString entityString(const QString &receiver);

/// The name of a library's entity: the part after the last ".", in snake case, with "lib_" before
/// it unless it begins so; "library" stands for what is empty or not ASCII. Remembered in the
/// domain "entities"; see entityStringFromString().
KTUTILITY_EXPORT QString libraryEntityNameFromString(const QString &string);
/// The same for a text as the receiver.
KTUTILITY_EXPORT QString libraryEntityName(const QString &receiver);

/// Snake case: the runs of alphanumerics in lower case, joined with "_"; empty if there are none.
/// Not remembered.
KTUTILITY_EXPORT QString lowerCaseNameFromString(const QString &string);

/// Camel case to label: each upper-case letter begins a word; the first word is capitalised, and
/// the words are joined with a space. "URLField" gives "U R L Field". Not remembered.
KTUTILITY_EXPORT QString stringFromBumpyCaseString(const QString &string);
/// The label of the receiver: stringFromBumpyCaseString().
KTUTILITY_EXPORT QString labelString(const QString &receiver);

/// Words to camel case. Words are split at each single space (U+0020) only; other characters stay.
/// Each word is lower-cased and begins with a capital, except the first one if
/// \a uppercaseFirst is false: among several it is lower-cased, and a single word only loses the
/// capital it may begin with ("URL" gives "uRL"). Not remembered.
KTUTILITY_EXPORT QString bumpyCaseStringFromString(const QString &string, bool uppercaseFirst);

/// Only the characters of \a string that are in \a andFilter, in order. Whitespace and newlines
/// never pass, even if the set holds them.
KTUTILITY_EXPORT QString stringWithString(const QString &string, const NSCharacterSet &andFilter);

/// The name of a table's column: "kt_" and the property string. Remembered in the domain
/// "tableColumns".
KTUTILITY_EXPORT QString tableColumnString(const QString &receiver);
/// The name of a table: "kt_" and the part after the last "." in snake case. Remembered in the
/// domain "tableNames".
KTUTILITY_EXPORT QString tableNameString(const QString &receiver);

/// The receiver with its first character in upper case.
KTUTILITY_EXPORT QString properNounString(const QString &receiver);
} // namespace KTAdditions
