#include <KTUtility/KTInternational>

#include <KTUtility/KTLogCapture>
#include <KTUtility/NSAssertionHandler>
#include <KTUtility/NSException>
#include <KTUtility/NSLocale>

#include "support/FileTree.h"
#include "support/TestSupport.h"

#include <memory>
#include <stdexcept>
#include <string>

using namespace Qt::StringLiterals;

using testing_support::FileTree;

namespace {
/// An application whose list lies in a temporary folder.
class Application : public KTInternational
{
public:
    explicit Application(const QByteArray &list = {})
    {
        if (!list.isNull())
            setList(list);
    }
    void setList(const QByteArray &entries) const
    {
        _tree.add(u"separators.plist"_s,
                  "<plist version=\"1.0\"><dict>" + entries + "</dict></plist>");
    }

protected:
    QString separatorsPath() const override { return _tree.path(u"separators.plist"_s); }

private:
    FileTree _tree;
};

class KTInternationalTests : public testing::Test
{
protected:
    // In place of the one that other tests may have made.
    KTInternationalTests() { delete KTInternational::instance(); }
    ~KTInternationalTests() override
    {
        NSLocale::resetCurrentLocale();
        // The next test makes its own.
        delete KTInternational::instance();
    }

    void useLocale(const char16_t *identifier)
    {
        NSLocale::setCurrentLocale(NSLocale(QString::fromUtf16(identifier)));
    }
    QString separator(QStringList before = {})
    {
        alternates = before;
        return KTInternational::instance()->localizedCSVSeparatorAndAlternates(&alternates);
    }

    QStringList alternates;
};

const QByteArray Sample = "<key>List</key><array><string>,</string><string>;</string>"
                          "<string>&#9;</string><string>;</string></array>"
                          "<key>de</key><string>;</string>"
                          "<key>de_CH</key><string>,</string>"
                          "<key>xx_YY</key><string>|</string>";
} // namespace

TEST_F(KTInternationalTests, RunsItsExample)
{
    auto *const application = new Application(Sample);
    EXPECT_EQ(KTInternational::instance(), application);
    useLocale(u"de_DE");
    EXPECT_EQ(separator(), u";"_s);
    EXPECT_EQ(alternates, QStringList({u","_s, u"\t"_s}));
    EXPECT_TRUE(KTInternational::illegalCSVCharacterSet().characterIsMember(U'"'));
}

TEST_F(KTInternationalTests, TheCountryWinsOverTheLanguage)
{
    new Application(Sample);
    useLocale(u"de_CH");
    EXPECT_EQ(separator(), u","_s);
    EXPECT_EQ(alternates, QStringList({u";"_s, u"\t"_s, u";"_s}));
    useLocale(u"de_AT");
    EXPECT_EQ(separator(), u";"_s);
    useLocale(u"de");
    EXPECT_EQ(separator(), u";"_s);
}

TEST_F(KTInternationalTests, UnknownLocalesLeaveTheArrayAlone)
{
    new Application(Sample);
    useLocale(u"fr_FR");
    EXPECT_EQ(separator({u"mine"_s}), u","_s);
    EXPECT_EQ(alternates, QStringList(u"mine"_s));
}

TEST_F(KTInternationalTests, TheSeparatorLeavesTheArrayWhereverItIs)
{
    new Application(Sample);
    useLocale(u"de_DE");
    separator({u";"_s, u"mine"_s});
    EXPECT_EQ(alternates, QStringList({u"mine"_s, u","_s, u"\t"_s}));
}

TEST_F(KTInternationalTests, ASeparatorMayBeMissingInTheList)
{
    new Application(Sample);
    useLocale(u"xx_YY");
    EXPECT_EQ(separator(), u"|"_s);
    EXPECT_EQ(alternates.size(), 4);
}

TEST_F(KTInternationalTests, WithoutAListItIsTheComma)
{
    auto *const application = new Application;
    useLocale(u"de_DE");
    EXPECT_FALSE(application->separatorsDict().has_value());
    EXPECT_EQ(separator({u"mine"_s}), u","_s);
    EXPECT_EQ(alternates, QStringList(u"mine"_s));
}

TEST_F(KTInternationalTests, AMissingListIsLookedForAgainAndAFoundOneIsKept)
{
    auto *const application = new Application;
    useLocale(u"de_DE");
    EXPECT_EQ(separator(), u","_s);
    application->setList(Sample);
    EXPECT_EQ(separator(), u";"_s);
    application->setList("<key>de</key><string>|</string>");
    EXPECT_EQ(separator(), u";"_s);
}

TEST_F(KTInternationalTests, ListsOfWrongTypesAreLogged)
{
    useLocale(u"de_DE");
    struct Case
    {
        QByteArray list;
        QString separator;
        QString reason;
    };
    const QList<Case> cases = {
        {"<key>de</key><integer>5</integer>", u","_s, u"5 is no text in the separators under de"_s},
        {"<key>de</key><string>;</string><key>List</key><string>x%@</string>", u";"_s,
         u"x%@ is no list in the separators under List"_s},
        {"<key>de</key><string>;</string><key>List</key><array><true/></array>", u";"_s,
         u"1 is no text in the separators under List"_s},
    };
    for (const Case &each : cases) {
        const std::unique_ptr<Application> application(new Application(each.list));
        const KTLogCapture capture(kLog_invalid, 4);
        EXPECT_EQ(separator(), each.separator);
        EXPECT_EQ(capture.messages(), QStringList(each.reason));
    }
}

TEST_F(KTInternationalTests, AListThatIsPartlyWrongAddsNothing)
{
    new Application("<key>de</key><string>;</string>"
                    "<key>List</key><array><string>;</string><integer>5</integer></array>");
    useLocale(u"de_DE");
    EXPECT_EQ(separator({u"mine"_s}), u";"_s);
    EXPECT_EQ(alternates, QStringList(u"mine"_s));
}

TEST_F(KTInternationalTests, AListMayHaveNoAlternatives)
{
    new Application("<key>de</key><string>;</string>");
    useLocale(u"de_DE");
    EXPECT_EQ(separator({u"mine"_s}), u";"_s);
    EXPECT_EQ(alternates, QStringList(u"mine"_s));
}

TEST_F(KTInternationalTests, DamagedListsAreNone)
{
    auto *const application = new Application("<key>de</key>");
    EXPECT_FALSE(application->separatorsDict().has_value());
    EXPECT_EQ(separator(), u","_s);
}

TEST_F(KTInternationalTests, MakesOneObjectOnly)
{
    KTInternational *const first = KTInternational::instance();
    EXPECT_EQ(KTInternational::instance(), first);
    const QString output = testing_support::standardErrorOf([] {
        EXPECT_RAISES(KTInternational(), NSInternalInconsistencyException,
                      u"Should not be creating multiple KTInternational objects."_s);
    });
    EXPECT_TRUE(output.contains(u"KTInternational:29"));
    EXPECT_EQ(KTInternational::instance(), first);
}

TEST_F(KTInternationalTests, TheArrayMustBeThere)
{
    const QString output = testing_support::standardErrorOf([] {
        EXPECT_RAISES(KTInternational::instance()->localizedCSVSeparatorAndAlternates(nullptr),
                      NSInternalInconsistencyException,
                      u"KTInternational: localizedCSVSeparatorAndAlternates: alternates param "
                      "can't be nil"_s);
    });
    EXPECT_TRUE(output.contains(u"KTInternational:75"));
}

TEST_F(KTInternationalTests, IllegalCharactersAreThoseOfTheFirstCall)
{
    const NSCharacterSet &set = KTInternational::illegalCSVCharacterSet();
    for (const char32_t character : std::u32string(U",;\"\r\n\t "))
        EXPECT_TRUE(set.characterIsMember(character)) << unsigned(character);
    // Without a list, there are no letters of a "(null)" either.
    for (const char32_t character : std::u32string(U"a(nul)"))
        EXPECT_FALSE(set.characterIsMember(character)) << unsigned(character);
    EXPECT_EQ(&KTInternational::illegalCSVCharacterSet(), &set);
}

TEST_F(KTInternationalTests, TheEncodingIsMacRomanInPractice)
{
    for (const char16_t *locale : {u"en_US", u"ja_JP", u"de_DE", u"jp_JP"}) {
        useLocale(locale);
        EXPECT_EQ(KTInternational::stringEncodingForCurrentLanguage(), NSMacOSRomanStringEncoding);
    }
    EXPECT_EQ(int(NSMacOSRomanStringEncoding), 30);
    EXPECT_EQ(int(NSShiftJISStringEncoding), 8);
}

TEST_F(KTInternationalTests, ConstantsAreThoseOfThePlatform)
{
    EXPECT_EQ(KTInternationalCSVIllegalCharacters, u",;\"\r\n\t "_s);
    EXPECT_EQ(KTInternationalSecondDefaultCSVSeparator, u";"_s);
    EXPECT_EQ(KTInternationalJapaneseLanguageCode, u"jp"_s);
    EXPECT_EQ(kJapaneseContryCode, u"JP"_s);
    EXPECT_FALSE(KTInternationalEmptyString.isNull());
}

TEST_F(KTInternationalTests, AnyExceptionIsLogged)
{
    class Failing : public KTInternational
    {
    public:
        bool isStandard = true;

    protected:
        QString separatorsPath() const override
        {
            if (isStandard)
                throw std::runtime_error("no %@ path");
            throw 5;
        }
    };
    const std::unique_ptr<Failing> application = std::make_unique<Failing>();
    useLocale(u"de_DE");
    const KTLogCapture capture(kLog_invalid, 4);
    EXPECT_EQ(separator({u"kept"_s}), u","_s);
    application->isStandard = false;
    EXPECT_EQ(separator({u"kept"_s}), u","_s);
    EXPECT_EQ(alternates, QStringList{u"kept"_s});
    EXPECT_EQ(capture.messages(), QStringList({u"no %@ path"_s, u"unknown exception"_s}));
}

TEST_F(KTInternationalTests, WithALenientHandlerTheFirstObjectStays)
{
    class Lenient : public NSAssertionHandler
    {
    public:
        void handleFailureInMethod(const QString &, const NSAssertionSubject &, const QString &,
                                   int, const QString &, std::span<const NSFormatArgument>) override
        {
        }
    } lenient;
    KTInternational *const first = KTInternational::instance();
    NSAssertionHandler::setCurrentHandler(&lenient);
    {
        const Application second;
        EXPECT_EQ(KTInternational::instance(), first);
    }
    NSAssertionHandler::setCurrentHandler(nullptr);
    EXPECT_EQ(KTInternational::instance(), first);
}
