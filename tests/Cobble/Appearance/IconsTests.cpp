#include "Appearance/Icons.h"

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

class IconsTests : public testing_support::WindowedTest
{
protected:
    IconsTests() : _theme(QIcon::themeName()), _fallback(QIcon::fallbackThemeName())
    {
        QIcon::setThemeName(u"none"_s);
        QIcon::setFallbackThemeName(u"none"_s);
    }
    ~IconsTests() override
    {
        QIcon::setThemeName(_theme);
        QIcon::setFallbackThemeName(_fallback);
    }

    /// Whether something is seen of it.
    static bool isDrawn(const QIcon &icon)
    {
        const QImage image = icon.pixmap(QSize(32, 32), 1).toImage();
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixelColor(x, y).alpha() > 128)
                    return true;
            }
        }
        return false;
    }

private:
    QString _theme;
    QString _fallback;
};

TEST_F(IconsTests, AreDrawnWhereThereIsNoTheme)
{
    for (const char16_t *const action :
         {u"newWindow:", u"closeWindow:", u"importFile:", u"exportFile:", u"terminate:",
          u"findRecords:", u"deleteRecords:", u"showSilencedAlerts:", u"showRecordCount:",
          u"showHelp:", u"showShortcuts:", u"showAbout:"})
        EXPECT_TRUE(isDrawn(Icons::ofAction(QString::fromUtf16(action))))
            << QString::fromUtf16(action).toStdString();
    EXPECT_TRUE(isDrawn(Icons::named(u"x-office-spreadsheet"_s)));
}

TEST_F(IconsTests, OthersAreNull)
{
    EXPECT_TRUE(Icons::named(u"no-such-icon"_s).isNull());
    EXPECT_TRUE(Icons::ofAction(u"none:"_s).isNull());
}

TEST_F(IconsTests, TheProgramHasItsOwnInAllSizes)
{
    EXPECT_TRUE(isDrawn(Icons::application()));
    EXPECT_EQ(Icons::application().availableSizes().size(), 5);
}
