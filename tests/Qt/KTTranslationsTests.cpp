#include <KTUtility/KTTranslations>

#include "support/TestSupport.h"

#include <KTUtility/KTBindingOptions>
#include <KTUtility/KTColumnReading>
#include <KTUtility/KTLogger>
#include <KTUtility/KTNumberFormatter>
#include <KTUtility/NSAlert>
#include <KTUtility/NSBundle>
#include <KTUtility/NSSelectionMarker>

#include <QCheckBox>
#include <QFile>
#include <QMenu>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {
class KTTranslationsTests : public testing_support::WindowedTest
{
protected:
    ~KTTranslationsTests() override { KTTranslations::remove(); }
};

QString refusal()
{
    KTNumberFormatter formatter;
    formatter.setReadsCommonForms(true);
    return formatter.read(u"abc"_s).error();
}

QString checkBoxOfAlert()
{
    NSAlert alert(u"Delete?"_s, {}, {}, {}, {});
    alert.setShowsSuppressionButton(true);
    return alert.suppressionButton()->text();
}

QString firstLevel()
{
    const std::unique_ptr<QMenu> menu = KTLogger::sharedLogger()->createLogLevelSubmenuWithBase(0);
    return menu->actions().constFirst()->text();
}

QString placeholder()
{
    return KTBindingOptions().placeholderFor(NSMultipleValuesMarker());
}

QStringList spokenTexts()
{
    return {refusal(), checkBoxOfAlert(), firstLevel(), placeholder(),
            KTColumnReading::contradictionDescription()};
}

struct Spoken
{
    const char *locale;
    QString language;
    QStringList texts;
};

const QStringList English{
    u"The text is no number, or has something else in it."_s, u"Do not show this message again"_s,
    u"7 (most detail)"_s, u"Multiple values"_s,
    u"The text contradicts what the other texts of its column are read by."_s};
const QStringList German{
    u"Der Text ist keine Zahl oder enthält noch etwas anderes."_s,
    u"Diese Meldung nicht mehr anzeigen"_s, u"7 (ausführlichste Stufe)"_s, u"Mehrere Werte"_s,
    u"Der Text widerspricht der Schreibweise, in der die übrigen Texte der Spalte gelesen werden."_s};
const QStringList French{
    u"Le texte n’est pas un nombre ou contient autre chose."_s, u"Ne plus afficher ce message"_s,
    u"7 (le plus détaillé)"_s, u"Valeurs multiples"_s,
    u"Le texte contredit la convention selon laquelle les autres textes de la colonne sont lus."_s};
const QStringList Japanese{u"テキストが数値でないか、ほかの文字を含んでいます。"_s,
                           u"このメッセージを今後表示しない"_s, u"7（最も詳細）"_s, u"複数の値"_s,
                           u"この列のほかのテキストの読み取り方と矛盾しています。"_s};
} // namespace

TEST_F(KTTranslationsTests, TheFrameworkSpeaksTheLanguageOfTheLocale)
{
    EXPECT_EQ(spokenTexts(), English);
    const Spoken table[] = {
        {"de_DE", u"de"_s, German},   {"de_AT", u"de"_s, German},  {"fr_CA", u"fr"_s, French},
        {"ja_JP", u"ja"_s, Japanese}, {"en_GB", u"en"_s, English}, {"nl_NL", u"en"_s, English},
        {"C", u"en"_s, English},
    };
    for (const Spoken &row : table) {
        SCOPED_TRACE(row.locale);
        EXPECT_EQ(KTTranslations::install({}, QLocale(QString::fromLatin1(row.locale))),
                  row.language);
        EXPECT_EQ(spokenTexts(), row.texts);
    }
}

TEST_F(KTTranslationsTests, EnglishComesBack)
{
    KTTranslations::install({}, QLocale(QLocale::German));
    KTTranslations::remove();
    EXPECT_EQ(spokenTexts(), English);
}

TEST_F(KTTranslationsTests, TheProgramsOwnWordsAreHeardFirst)
{
    const QTemporaryDir folder;
    const QString german = folder.filePath(u"program_de.qm"_s);
    // Whatever stands in it counts as the program's German.
    ASSERT_TRUE(QFile::copy(NSBundle::frameworkBundle().pathForResource(u"ktutility_fr"_s, u"qm"_s),
                            german));
    const QString program = folder.filePath(u"program"_s);
    EXPECT_EQ(KTTranslations::install(program, QLocale(QLocale::German)), u"de");
    EXPECT_EQ(spokenTexts(), French);
}

TEST_F(KTTranslationsTests, TheNearestOfTheProgramsTextsAreTaken)
{
    struct Row
    {
        const char *locale;
        QStringList files;
        QString language;
    };
    const Row table[] = {
        {"pt_PT", {u"pt"_s, u"pt_PT"_s}, u"pt_PT"_s},
        {"pt_BR", {u"pt"_s, u"pt_PT"_s}, u"pt"_s},
        {"de_AT", {u"de"_s, u"de_AT"_s, u"de_DE"_s}, u"de_AT"_s},
        {"de_CH", {u"de"_s, u"de_AT"_s}, u"de"_s},
        {"zh_TW", {u"zh"_s, u"zh_TW"_s, u"zh_Hant"_s}, u"zh_TW"_s},
        {"zh_TW", {u"zh"_s, u"zh_Hans"_s, u"zh_Hant"_s}, u"zh_Hant"_s},
        {"zh_TW", {u"zh"_s, u"en"_s}, u"zh"_s},
        {"zh_TW", {u"zh"_s, u"zh_Hans"_s}, u"zh"_s},
        {"de_DE", {u"de"_s, u"de_DE"_s}, u"de_DE"_s},
        {"zh_CN", {u"zh_Hans"_s, u"zh_Hant"_s, u"zh_TW"_s}, u"zh_Hans"_s},
        {"en_GB", {u"en"_s, u"de"_s}, u"en"_s},
        {"en_GB", {u"en"_s, u"en_GB"_s}, u"en_GB"_s},
    };
    const QString source = NSBundle::frameworkBundle().pathForResource(u"ktutility_fr"_s, u"qm"_s);
    for (const Row &row : table) {
        SCOPED_TRACE(row.locale);
        const QTemporaryDir folder;
        for (const QString &file : row.files)
            ASSERT_TRUE(QFile::copy(source, folder.filePath(u"program_" + file + u".qm")));
        EXPECT_EQ(KTTranslations::install(folder.filePath(u"program"_s),
                                          QLocale(QString::fromLatin1(row.locale))),
                  row.language);
        EXPECT_EQ(spokenTexts(), French);
    }
}

TEST_F(KTTranslationsTests, TheProgramsEnglishIsHeardWhereItSpeaksNothingElse)
{
    const QTemporaryDir folder;
    // Whatever stands in it counts as the program's English.
    ASSERT_TRUE(QFile::copy(NSBundle::frameworkBundle().pathForResource(u"ktutility_fr"_s, u"qm"_s),
                            folder.filePath(u"program_en.qm"_s)));
    for (const char *const locale : {"en_GB", "nl_NL", "C"}) {
        EXPECT_EQ(KTTranslations::install(folder.filePath(u"program"_s),
                                          QLocale(QString::fromLatin1(locale))),
                  u"en");
        EXPECT_EQ(spokenTexts(), French) << locale;
    }
}

TEST_F(KTTranslationsTests, TheFrameworkSpeaksWhatTheProgramDoesNot)
{
    const QTemporaryDir folder;
    const QString program = folder.filePath(u"program"_s);
    EXPECT_EQ(KTTranslations::install(program, QLocale(QLocale::Japanese)), u"en");
    EXPECT_EQ(spokenTexts(), Japanese);
}

TEST_F(KTTranslationsTests, DamagedTextsAreNone)
{
    const QTemporaryDir folder;
    testing_support::writeFile(folder.filePath(u"program_de.qm"_s), "no texts");
    const QString program = folder.filePath(u"program"_s);
    EXPECT_EQ(KTTranslations::install(program, QLocale(QLocale::German)), u"en");
    EXPECT_EQ(spokenTexts(), German);
}

TEST_F(KTTranslationsTests, TellsItsLanguages)
{
    EXPECT_EQ(KTTranslations::languages(), QStringList({u"de"_s, u"fr"_s, u"ja"_s}));
}

TEST_F(KTTranslationsTests, RunsItsExample)
{
    EXPECT_EQ(KTTranslations::install(u":/i18n/expenses"_s, QLocale::c()), u"en");
    EXPECT_EQ(spokenTexts(), English);
}
