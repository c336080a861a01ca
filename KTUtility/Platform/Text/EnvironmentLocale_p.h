#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QByteArray>
#include <QString>

// The locale that the environment names (locale(7)), which may be another one for numbers, money,
// dates and texts.
namespace KTPrivate::EnvironmentLocale {
/// The name that the environment has for one category, as it stands there ("de_CH.UTF-8"): the
/// first variable that is set and not empty of LC_ALL, \a category (such as "LC_NUMERIC") and LANG;
/// "C" if none is.
KTUTILITY_EXPORT QByteArray nameFor(const char *category);

/// The same for texts, as gettext(3) has it: the first language of LANGUAGE, unless texts are in
/// the "C" locale; else what LC_MESSAGES says.
KTUTILITY_EXPORT QByteArray nameForTexts();

/// A name of the system as an identifier of Unicode's: "sr_RS.UTF-8@latin" is "sr_Latn_RS". The
/// codeset is dropped. A modifier that names a script or a variety of the language becomes that
/// ("ca_ES@valencia" is "ca_ES_VALENCIA"), keywords stay ("ja_JP@calendar=japanese"), other
/// modifiers ("@euro") say nothing to Unicode's data and are dropped. "C" and "POSIX" are "en_US".
KTUTILITY_EXPORT QString identifierOf(const QByteArray &name);
} // namespace KTPrivate::EnvironmentLocale
