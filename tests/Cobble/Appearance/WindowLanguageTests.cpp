#include "Appearance/WindowLanguage.h"

#include "Cobble/Window/SheetSupport.h"

#include <KTUtility/NSLocale>

#include <QMenuBar>

using namespace Qt::StringLiterals;

namespace {
struct Spoken
{
    const char16_t *locale;
    QString fileMenu;
    QString count;
    QString search;
    /// Of an interface file.
    QString goButton;
    QString problem;
};

const Spoken Languages[] = {
    {u"en_US", u"&File"_s, u"4 records"_s, u"Search"_s, u"Import"_s, u"Please choose a file."_s},
    {u"de_AT", u"&Datei"_s, u"4 Datensätze"_s, u"Suchen"_s, u"Importieren"_s,
     u"Bitte wählen Sie eine Datei aus."_s},
    {u"fr_FR", u"&Fichier"_s, u"4 enregistrements"_s, u"Rechercher"_s, u"Importer"_s,
     u"Veuillez choisir un fichier."_s},
    {u"ja_JP", u"ファイル(&F)"_s, u"4 件のレコード"_s, u"検索"_s, u"読み込み"_s,
     u"ファイルを選択してください。"_s},
    {u"sv_SE", u"&File"_s, u"4 records"_s, u"Search"_s, u"Import"_s, u"Please choose a file."_s},
};
} // namespace

class WindowLanguageTests : public HostSheetTest
{
protected:
    ~WindowLanguageTests() override
    {
        application.reset();
        NSLocale::resetCurrentLocale();
    }

    MainWindowController *openIn(const char16_t *locale)
    {
        application.reset();
        NSLocale::setCurrentLocale(NSLocale(QString::fromUtf16(locale)));
        return open();
    }
};

TEST_F(WindowLanguageTests, IsThatOfTheLocale)
{
    import(u"Things.csv"_s, Things);
    for (const Spoken &row : Languages) {
        MainWindowController *const window = openIn(row.locale);
        EXPECT_EQ(window->mainWindow()->menuBar()->actions().first()->text(), row.fileMenu);
        EXPECT_EQ(countIn(window), row.count);
        EXPECT_EQ(window->mainWindow()->search()->placeholderText(), row.search);
        QWidget *const sheet = openImport(window);
        ASSERT_NE(button(sheet, row.goButton), nullptr) << row.goButton.toStdString();
        window->importSheet()->go();
        EXPECT_EQ(window->importSheet()->problem(), row.problem);
        window->importSheet()->cancel();
    }
}

TEST_F(WindowLanguageTests, ReasonsOfWhatIsSharedAreTold)
{
    import(u"Things.csv"_s, Things);
    MainWindowController *const window = openIn(u"de_DE");
    EXPECT_EQ(window->openLibrary(u"None"_s).reason(), u"Es gibt keine Bibliothek „None“"_s);
}

TEST_F(WindowLanguageTests, WhatIsWrittenFromTheRightLiesAtTheRight)
{
    import(u"Things.csv"_s, Things);
    const auto listIsAtTheRight = [](MainWindowController *window) {
        MainWindow *const shown = window->mainWindow();
        return shown->libraries()->mapTo(shown, QPoint()).x() >
               shown->table()->mapTo(shown, QPoint()).x();
    };
    EXPECT_TRUE(listIsAtTheRight(openIn(u"ar_EG")));
    EXPECT_TRUE(listIsAtTheRight(openIn(u"he_IL")));
    EXPECT_FALSE(listIsAtTheRight(openIn(u"en_US")));
}

TEST_F(WindowLanguageTests, EndsWithTheApplication)
{
    openIn(u"ar_EG");
    application.reset();
    EXPECT_EQ(QGuiApplication::layoutDirection(), Qt::LeftToRight);
    openIn(u"de_DE");
    application.reset();
    EXPECT_EQ(MainWindow::tr("Libraries"), u"Libraries"_s);
}
