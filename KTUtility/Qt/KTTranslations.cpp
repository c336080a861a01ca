#include "KTTranslations.h"

#include <KTUtility/Platform/Files/NSBundle.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QPointer>
#include <QTranslator>

#include <memory>

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

/// The languages that a user wants, the first one first, up to English, which needs no file.
QStringList wantedLanguages(const QLocale &locale)
{
    QStringList languages;
    for (QString language : locale.uiLanguages()) {
        language.replace(u'-', u'_');
        const QString shorter = language.section(u'_', 0, 0);
        if (shorter == English || shorter == u"C")
            break;
        languages << language << shorter;
    }
    return languages;
}

bool load(const QString &file)
{
    auto translator = std::make_unique<QTranslator>(QCoreApplication::instance());
    if (!QFileInfo(file).isFile() || !translator->load(file))
        return false;
    installed().append(translator.get());
    return QCoreApplication::installTranslator(translator.release());
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
