#include <KTUtility/NSPropertyListSerialization>

#include "support/TestSupport.h"

#include <random>

using namespace Qt::StringLiterals;
using namespace testing_support;

// Dictionaries of plain texts are read without the XML parser. A comment at the end sends the same
// document through the parser, and the answers must agree.

namespace {
using NSPropertyListSerialization::propertyListFromData;

QVariant readByParser(const QByteArray &document)
{
    return propertyListFromData(document + "<!-- -->");
}

QByteArray manifest()
{
    return NSPropertyListSerialization::dataWithPropertyList(
        QVariantMap{{u"CFBundleIdentifier"_s, u"org.example.good"_s},
                    {u"NSPrincipalClass"_s, u"Acme::Exporter"_s},
                    {u"empty"_s, u""_s},
                    {u""_s, u" blanks ~ around "_s}});
}

QByteArray withBody(const QByteArray &body)
{
    QByteArray document = manifest();
    const qsizetype start = document.indexOf("<dict>");
    return document.left(start) + body + "</plist>\n";
}

void expectAgreement(const QByteArray &document)
{
    const QVariant quick = propertyListFromData(document);
    const QVariant parsed = readByParser(document);
    ASSERT_EQ(quick.typeId(), parsed.typeId()) << document.constData();
    ASSERT_EQ(quick, parsed) << document.constData();
}
} // namespace

TEST(PropertyListQuickReader, ReadsManifests)
{
    const QVariantMap dictionary = propertyListFromData(manifest()).toMap();
    EXPECT_EQ(dictionary.size(), 4);
    EXPECT_EQ(dictionary.value(u"NSPrincipalClass"_s), QVariant(u"Acme::Exporter"_s));
    EXPECT_EQ(dictionary.value(u""_s), QVariant(u" blanks ~ around "_s));
    EXPECT_FALSE(dictionary.value(u"empty"_s).toString().isNull());
    expectAgreement(manifest());
}

TEST(PropertyListQuickReader, AgreesWithTheParserOnEveryForm)
{
    const QByteArray entry = "<key>a</key><string>b</string>";
    const QList<QByteArray> bodies = {
        "<dict></dict>",
        "<dict/>",
        "<dict>" + entry + "</dict>",
        " \n\t<dict>\n" + entry + "\n</dict>\n\n",
        "<dict>" + entry + entry + "</dict>",
        "<dict>" + entry + "<key>a</key><string>later</string></dict>",
        "<dict><key>a</key></dict>",
        "<dict><string>b</string></dict>",
        "<dict><key>a</key><key>b</key></dict>",
        "<dict><key>a</key><true/></dict>",
        "<dict><key>a</key><integer>5</integer></dict>",
        "<dict><key>a</key><dict>" + entry + "</dict></dict>",
        "<dict><key>a</key><string/></dict>",
        "<dict><key>a</key><string>&amp;</string></dict>",
        "<dict><key>a</key><string>&#65;</string></dict>",
        "<dict><key>a</key><string><![CDATA[x]]></string></dict>",
        "<dict><key>a</key><string>x]]></string></dict>",
        "<dict><key>a</key><string>\xC3\xA4</string></dict>",
        "<dict><key>a</key><string>\xFF</string></dict>",
        "<dict><key>a</key><string>x\ny</string></dict>",
        "<dict><key>a</key><string>x\r\ny</string></dict>",
        "<dict><key>a</key><string>\x01</string></dict>",
        QByteArray("<dict><key>a</key><string>\0</string></dict>", 43),
        "<dict><key>a</key><string >b</string ></dict>",
        "<dict><key>a</key>text<string>b</string></dict>",
        "<dict>" + entry + "<!-- c --></dict>",
        "<dict>" + entry + "</dict><dict></dict>",
        "<dict>" + entry + "</dict>text",
        "<dict>" + entry,
        "<array></array>",
        "",
    };
    for (const QByteArray &body : bodies)
        expectAgreement(withBody(body));
}

TEST(PropertyListQuickReader, AgreesWithTheParserOnEveryBeginning)
{
    const QByteArray whole = manifest();
    for (qsizetype size = 0; size <= whole.size(); ++size)
        expectAgreement(whole.left(size));
    expectAgreement("\n" + whole);
    expectAgreement(" " + whole);
    expectAgreement("\xEF\xBB\xBF" + whole);
    expectAgreement(whole + whole);
    expectAgreement(QByteArray(whole).replace("UTF-8", "UTF-16"));
    expectAgreement(QByteArray(whole).replace("1.0//EN", "1.1//EN"));
}

TEST(PropertyListQuickReader, AgreesWithTheParserOnDamage)
{
    std::mt19937 random(7);
    const QByteArray whole = manifest();
    const QByteArray units("<>/&!?\"=k \n\t]\0\xFF"
                           "a",
                           16);
    for (int round = 0; round < 20'000; ++round) {
        QByteArray damaged = whole;
        for (auto changes = 1 + random() % 3; changes > 0; --changes) {
            const auto place = qsizetype(random() % unsigned(damaged.size()));
            const char unit = units[qsizetype(random() % unsigned(units.size()))];
            if (random() % 3 == 0)
                damaged.remove(place, 1);
            else if (random() % 2 == 0)
                damaged.insert(place, unit);
            else
                damaged[place] = unit;
        }
        ASSERT_NO_FATAL_FAILURE(expectAgreement(damaged));
    }
}
