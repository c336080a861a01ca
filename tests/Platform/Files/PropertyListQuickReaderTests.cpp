#include <KTUtility/NSPropertyListSerialization>

#include <KTUtility/Platform/Values/UTC_p.h>

#include "support/TestSupport.h"

#include <QDateTime>

#include <random>

using namespace KTPrivate;
using namespace Qt::StringLiterals;
using namespace testing_support;

// Plain texts, numbers and what holds them are read without the XML parser. A comment at the end sends the same
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

/// Of all that is read without the parser.
QByteArray settings()
{
    const QVariantMap record{{u"name"_s, u"Field 1"_s},
                             {u"order"_s, qlonglong(-12)},
                             {u"width"_s, 12.375},
                             {u"at"_s, QDateTime(QDate(2026, 3, 5), QTime(12, 30), UTC)},
                             {u"picture"_s, QByteArray("\xFF\x00picture", 9)},
                             {u"isShown"_s, true}};
    return NSPropertyListSerialization::dataWithPropertyList(
        QVariantMap{{u"records"_s, QVariantList{record, record, QVariantList{false, 1e300}}}});
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

TEST(PropertyListQuickReader, AgreesWithTheParserOnEveryNumber)
{
    const QByteArray integers[] = {
        "0", "-0", "007", "+5",  "-12", "999999999999999999",  "-1-", "1 2", " 1", "1 ",
        "",  "-",  "0x1", "1.0", "1e3", "99999999999999999999"};
    for (const QByteArray &text : integers)
        expectAgreement(withBody("<integer>" + text + "</integer>"));
    const QByteArray reals[] = {"0",
                                "-0",
                                "0.0",
                                "-0.0",
                                "1.5",
                                "1.",
                                ".5",
                                "1e5",
                                "1E5",
                                "1e+5",
                                "1e-5",
                                "1e",
                                "1e999",
                                "1e-999",
                                "5e-324",
                                "+1",
                                "1,5",

                                "inf",
                                "1.5 ",
                                " 1.5",
                                "0x1p3",
                                "1_0",
                                "",
                                "-",
                                "1.5e5.5",
                                "00.5",
                                "9007199254740993",
                                "0.10000000000000001",
                                "179769313486231580793e289"};
    for (const QByteArray &text : reals)
        expectAgreement(withBody("<real>" + text + "</real>"));
}

TEST(PropertyListQuickReader, AgreesWithTheParserOnEveryDateAndData)
{
    const QByteArray dates[] = {"2026-03-05T12:00:00Z",  "2026-02-29T12:00:00Z",
                                "2024-02-29T23:59:59Z",  "2026-13-05T12:00:00Z",
                                "2026-03-05T24:00:00Z",  "2026-03-05T12:60:00Z",
                                "0000-03-05T12:00:00Z",  "0001-01-01T00:00:00Z",
                                "9999-12-31T23:59:59Z",  "-001-03-05T12:00:00Z",
                                "12026-03-05T12:00:00Z", "2026-03-05T12:00:00",
                                " 2026-03-05T12:00:00Z", "2026-03-05t12:00:00z",
                                "2026-03-05 12:00:00Z",  ""};
    for (const QByteArray &text : dates)
        expectAgreement(withBody("<date>" + text + "</date>"));
    const QByteArray data[] = {"AAAA", "AAA=",   "AA==",     "A",         "AAAA\n\tBBBB\n",
                               "AA=A", "AA==BB", "AAAA\r\n", "AA-_",      "",
                               "\n",   "====",   "!",        "AAAA&#65;", "AAAA<!---->"};
    for (const QByteArray &text : data)
        expectAgreement(withBody("<data>" + text + "</data>"));
}

TEST(PropertyListQuickReader, AgreesWithTheParserOnWhatIsNested)
{
    const QByteArray bodies[] = {
        "<array><integer>1</integer><real>2.5</real><true/><false/></array>",
        "<array><array/><dict/></array>",
        "<array><dict><key>a</key><array><string>b</string></array></dict></array>",
        "<array><true></true></array>",
        "<array><true /></array>",
        "<array><key>a</key></array>",
        "<array>text</array>",
        "<array><string>a</string></dict>",
        "<string>a</string>",
        "<string>a</string><string>b</string>",
        "<true/>",
        "<array><date>2026-03-05T12:00:00Z</date><data>AAAA</data></array>",
    };
    for (const QByteArray &body : bodies)
        expectAgreement(withBody(body));
    for (const int depth : {63, 64, 65, 66, 511, 512, 513, 514})
        expectAgreement(withBody(QByteArray("<array>").repeated(depth) +
                                 QByteArray("</array>").repeated(depth)));
}

TEST(PropertyListQuickReader, RecordsShareTheirKeys)
{
    const QVariantMap read = propertyListFromData(settings()).toMap();
    const QVariantList records = read.value(u"records"_s).toList();
    const QVariantMap first = records.at(0).toMap();
    const QVariantMap second = records.at(1).toMap();
    EXPECT_EQ(first, second);
    EXPECT_EQ(first.firstKey().constData(), second.firstKey().constData());
}

TEST(PropertyListQuickReader, AgreesWithTheParserOnEveryBeginning)
{
    const QByteArray whole = manifest();
    for (const QByteArray &document : {whole, settings()}) {
        for (qsizetype size = 0; size <= document.size(); ++size)
            expectAgreement(document.left(size));
    }
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
    const QByteArray documents[] = {manifest(), settings()};
    const QByteArray units("<>/&!?\"=k \n\t]\0\xFF"
                           "a",
                           16);
    for (int round = 0; round < 20'000; ++round) {
        QByteArray damaged = documents[round % 2];
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

TEST(PropertyListQuickReader, CommentsStandWhereTheyStandForTheParser)
{
    for (const char *const comment :
         {"<!-- one -->", "<!---->", "<!-->", "<!--->", "<!-- a -- b -->", "<!-- a --->",
          "<!-- <string>no</string> -->", "<!-- num\xC3\xA9rotation -->", "<!-- \xC3 -->",
          "<!-- \xEF\xBF\xBF -->", "<!-- \x01 -->", "<!-- not closed"}) {
        for (const char *const body :
             {"<array>@<string>a</string>@</array>@", "@<dict>@<key>k</key>@<true/>@</dict>",
              "<string>@</string>", "<array/>@", "<array>@</array>"})
            expectAgreement(withBody(QByteArray(body).replace("@", comment)));
        expectAgreement(comment + manifest());
        expectAgreement(manifest().replace("<plist", QByteArray(comment + QByteArray("<plist"))));
    }
}
