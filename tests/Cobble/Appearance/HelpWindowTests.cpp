#include "Appearance/HelpWindow.h"

#include "support/TestSupport.h"

#include "Appearance/WindowLanguage.h"

#include <KTUtility/NSLocale>

#include <QMenuBar>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextDocument>

using namespace Qt::StringLiterals;

class HelpWindowTests : public testing_support::WindowedTest
{
protected:
    ~HelpWindowTests() override { NSLocale::resetCurrentLocale(); }

    static int headings(const HelpWindow &window)
    {
        const QTextDocument *const page = window.findChild<QTextBrowser *>()->document();
        int count = 0;
        for (QTextBlock block = page->begin(); block.isValid(); block = block.next())
            count += block.blockFormat().headingLevel() > 0;
        return count;
    }
};

TEST_F(HelpWindowTests, SpeaksTheLanguageOfTheWindows)
{
    const struct
    {
        const char16_t *locale;
        QString title;
        QString phrase;
    } rows[] = {
        {u"en_GB", u"Cobble Help"_s, u"Cobble keeps tables"_s},
        {u"de_DE", u"Hilfe zu Cobble"_s, u"Cobble bewahrt Tabellen auf"_s},
        {u"fr_FR", u"Aide de Cobble"_s, u"Cobble conserve des tableaux"_s},
        {u"ja_JP", u"Cobble ヘルプ"_s, u"表として保存します"_s},
        {u"sv_SE", u"Cobble Help"_s, u"Cobble keeps tables"_s},
    };
    for (const auto &row : rows) {
        NSLocale::setCurrentLocale(NSLocale(QString::fromUtf16(row.locale)));
        const WindowLanguage language;
        HelpWindow window;
        window.showHelp();
        EXPECT_EQ(window.windowTitle(), row.title);
        EXPECT_TRUE(window.text().startsWith(row.title)) << row.title.toStdString();
        EXPECT_TRUE(window.text().contains(row.phrase)) << row.phrase.toStdString();
        EXPECT_EQ(headings(window), 11);
    }
}

TEST_F(HelpWindowTests, ListsTheKeysOfTheMenus)
{
    QMenuBar menus;
    QMenu *const file = menus.addMenu(u"&File"_s);
    file->addAction(u"&New && Old…"_s)->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_N));
    file->addAction(u"&Without"_s);
    menus.addMenu(u"&Empty"_s)->addAction(u"None"_s);
    menus.addMenu(u"編集(&E)"_s)->addAction(u"<検索>(&F)"_s)->setShortcut(Qt::Key_F3);
    HelpWindow window;
    window.showShortcuts(&menus);
    EXPECT_EQ(window.windowTitle(), u"Keyboard Shortcuts"_s);
    for (const char16_t *const shown :
         {u"File", u"New & Old…", u"Ctrl+N", u"編集", u"<検索>", u"F3"})
        EXPECT_TRUE(window.text().contains(QStringView(shown))) << window.text().toStdString();
    for (const char16_t *const hidden : {u"Without", u"Empty", u"(F)", u"(&F)"})
        EXPECT_FALSE(window.text().contains(QStringView(hidden))) << window.text().toStdString();
}

TEST_F(HelpWindowTests, EscapeClosesIt)
{
    HelpWindow window;
    window.showHelp();
    turn();
    ASSERT_TRUE(window.isVisible());
    QTest::keyClick(window.findChild<QTextBrowser *>(), Qt::Key_Escape);
    turn();
    EXPECT_FALSE(window.isVisible());
}
