#include "KTTranslations.h"

#include <KTUtility/Platform/Files/NSBundle.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QPointer>
#include <QTranslator>

#include <algorithm>
#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace {
const QString English = u"en"_s;
const QString Prefix = u"ktutility_"_s;
const QString Suffix = u".qm"_s;

QList<QPointer<QTranslator>> &installed()
{
    static QList<QPointer<QTranslator>> translators;
    return translators;
}

QString frameworkTexts()
{
    return NSBundle::frameworkBundle().bundlePath() + u"/Resources/ktutility"_s;
}

QString qtTexts()
{
    return QLibraryInfo::path(QLibraryInfo::TranslationsPath) + u"/qtbase"_s;
}

QString bareLanguage(const QString &name)
{
    return name.section(u'_', 0, 0);
}

/// "zh_Hant" of "zh_TW" and "zh_Hant_TW".
QString withScript(const QString &name)
{
    return bareLanguage(name) + u'_' + QLocale::scriptToCode(QLocale(name).script());
}

/// The names of what a user wants to read, the first one first, as they are in the names of files.
QStringList namesOfLocales(const QLocale &locale)
{
    QStringList names = locale.uiLanguages();
    names.replaceInStrings(u"-"_s, u"_"_s);
    const auto isNeutral = [](const QString &name) { return bareLanguage(name) == u"C"; };
    const auto end = std::ranges::find_if(names, isNeutral);
    return names.first(end - names.begin());
}

/// The names of one language: those of a region before that of a script, the bare one last.
QStringList namesOfLanguage(const QString &language, const QStringList &names)
{
    QStringList ordered;
    QStringList scripts;
    for (const QString &name : names) {
        if (bareLanguage(name) != language)
            continue;
        // The bare name says nothing of the script if there are others.
        if (name != language || scripts.isEmpty())
            scripts += withScript(name);
        if (name != language && name != scripts.constLast())
            ordered += name;
    }
    ordered += scripts + QStringList{language};
    ordered.removeDuplicates();
    return ordered;
}

/// The names of the files that a user wants, the first one first. English, which is known by all,
/// comes last: a file of it may have the forms of plurals.
QStringList wantedLanguages(const QLocale &locale)
{
    const QStringList names = namesOfLocales(locale);
    QStringList wanted;
    for (const QString &name : names) {
        if (bareLanguage(name) == English)
            break;
        wanted += namesOfLanguage(bareLanguage(name), names);
    }
    wanted += namesOfLanguage(English, names);
    wanted.removeDuplicates();
    return wanted;
}

bool load(const QString &file)
{
    auto translator = std::make_unique<QTranslator>(QCoreApplication::instance());
    if (!QFileInfo(file).isFile() || !translator->load(file))
        return false;
    // There may be no application yet.
    if (!QCoreApplication::installTranslator(translator.get()))
        return false;
    installed().append(translator.release());
    return true;
}

QString loadFirst(const QString &texts, const QStringList &languages)
{
    for (const QString &language : languages)
        if (load(texts + u'_' + language + Suffix))
            return language;
    return English;
}
} // namespace

QString KTTranslations::install(const QString &program, const QLocale &locale)
{
    remove();
    const QStringList languages = wantedLanguages(locale);
    // What comes last is asked first.
    loadFirst(qtTexts(), languages);
    const QString language = loadFirst(frameworkTexts(), languages);
    return program.isNull() ? language : loadFirst(program, languages);
}

void KTTranslations::remove()
{
    for (const QPointer<QTranslator> &translator : std::exchange(installed(), {}))
        delete translator;
}

QStringList KTTranslations::languages()
{
    const QFileInfo texts(frameworkTexts());
    QStringList found =
        QDir(texts.path()).entryList({Prefix + u'*' + Suffix}, QDir::Files, QDir::Name);
    for (QString &file : found)
        file = file.mid(Prefix.size()).chopped(Suffix.size());
    return found;
}
