#pragma once

#include "Text/Outcome.h"

#include <KTUtility/NSFormatter>

#include <QCommandLineParser>
#include <QString>
#include <QStringList>

// The options that commands about values share: --locale and --option.

/// The user's locale for the length of a command.
///
/// \code
/// const LocaleScope scope(u"de_DE"_s);
/// KTNumberFormatter formatter;    // German
/// \endcode
class LocaleScope
{
public:
    /// \param identifier nil leaves the locale as it is.
    explicit LocaleScope(const QString &identifier);
    ~LocaleScope();
    LocaleScope(const LocaleScope &) = delete;
    LocaleScope &operator=(const LocaleScope &) = delete;

private:
    bool _isSet;
};

namespace UserSettings {
/// Adds --locale ID.
void addLocaleOption(QCommandLineParser *parser);
/// The identifier given; nil if none is.
QString localeIn(const QCommandLineParser &parser);
/// Fails if something is wrong with it. Every language that there is data for will do.
Outcome<> checkLocale(const QCommandLineParser &parser);

/// Sets options of a formatter, each typed as "key=value": flags as yes or no, counts, texts. It
/// fails at the first one that cannot be set.
Outcome<> apply(const QStringList &options, NSFormatter *formatter);
} // namespace UserSettings
