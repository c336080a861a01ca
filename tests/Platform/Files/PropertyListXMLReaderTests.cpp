#include <KTUtility/NSPropertyListSerialization>

#include <KTUtility/NSObject>
#include <KTUtility/Platform/Values/UTC_p.h>

#include "support/TestSupport.h"

#include <QDateTime>
#include <QStringEncoder>

#include <cmath>

using namespace NSPropertyListSerialization;
using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
QByteArray document(const QByteArray &element)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
           "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n<plist version=\"1.0\">\n" +
           element + "\n</plist>\n";
}

QVariant valueOf(const QByteArray &element)
{
    QString error;
    const QVariant value = propertyListFromData(document(element), &error);
    EXPECT_TRUE(error.isEmpty()) << element.toStdString() << ": " << error.toStdString();
    return value;
}

bool isRejected(const QByteArray &data)
{
    QString error;
    const QVariant value = propertyListFromData(data, &error);
    return !value.isValid() && !error.isEmpty() && !propertyListFromData(data).isValid();
}

/// What a row expects of an element, said in the words of the row.
void checkElement(const QByteArray &input, const QJsonValue &expected)
{
    const QString words = expected.toString();
    if (words.startsWith(u"error")) {
        EXPECT_TRUE(isRejected(document(input)));
    } else if (words == u"NaN") {
        EXPECT_TRUE(std::isnan(valueOf(input).toDouble()));
    } else if (words == u"-Infinity") {
        EXPECT_EQ(valueOf(input).toDouble(), -HUGE_VAL);
    } else if (words == u"year -100") {
        // Years of files count a year 0, those of Qt do not.
        EXPECT_EQ(valueOf(input).toDateTime().date().year(), -101);
    } else if (valueOf(input).typeId() == QMetaType::QDateTime) {
        EXPECT_EQ(valueOf(input).toDateTime().toString(Qt::ISODate), words);
    } else {
        EXPECT_TRUE(NSObject::isEqual(valueOf(input), expected.toVariant()));
    }
}
} // namespace

TEST(PropertyListXMLReader, ReadsWhatTheTableSays)
{
    int checked = 0;
    for (const QJsonObject &row : rowsOf(u"platform/property_list.jsonl"_s)) {
        if (row.value(u"op").toString() != u"read XML element")
            continue;
        const QByteArray input = row.value(u"input").toString().toUtf8();
        SCOPED_TRACE(input.toStdString());
        checkElement(input, row.value(u"expected"));
        ++checked;
    }
    EXPECT_EQ(checked, 18);
}

TEST(PropertyListXMLReader, OlderVersionsAndMissingHeadersAreRead)
{
    for (const QByteArray &head :
         {QByteArray("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"0.9\">"),
          QByteArray("<plist version=\"0.9\">"), QByteArray("<plist>"),
          QByteArray("\xEF\xBB\xBF<plist>"), QByteArray("<!-- made by hand --><plist>")}) {
        for (const char *text : {"\u20AC", "\u20A2"}) {
            const QVariant value =
                propertyListFromData(head + "<array><string>" + text + "</string></array></plist>");
            EXPECT_EQ(value.toList(), QVariantList{QString::fromUtf8(text)});
        }
    }
    EXPECT_EQ(propertyListFromData("<integer>1</integer>"), QVariant(1LL));
}

TEST(PropertyListXMLReader, Utf16WithAByteOrderMarkIsRead)
{
    const QString text = u"<plist><string>é😀</string></plist>"_s;
    for (const auto encoding : {QStringConverter::Utf16LE, QStringConverter::Utf16BE}) {
        QStringEncoder encoder(encoding, QStringConverter::Flag::WriteBom);
        EXPECT_EQ(propertyListFromData(encoder(text)), QVariant(u"é😀"_s));
    }
}

TEST(PropertyListXMLReader, IntegersAreReadInAllBases)
{
    EXPECT_EQ(valueOf("<integer>-9223372036854775808</integer>"), QVariant(qlonglong(INT64_MIN)));
    EXPECT_EQ(valueOf("<integer>18446744073709551615</integer>"), QVariant(qulonglong(UINT64_MAX)));
    EXPECT_EQ(valueOf("<integer>-0X1f</integer>"), QVariant(-31LL));
    EXPECT_EQ(valueOf("<integer>\n\t0012\n</integer>"), QVariant(12LL));
    EXPECT_EQ(valueOf("<integer>-0</integer>"), QVariant(0LL));
    for (const QByteArray &text :
         {QByteArray("18446744073709551616"), QByteArray("-9223372036854775809"), QByteArray("0x"),
          QByteArray("0x0x1"), QByteArray("0x-1"), QByteArray("--1"), QByteArray("- -1"),
          QByteArray("1 2"), QByteArray("12a"), QByteArray("1,000"), QByteArray("\u0661"),
          QByteArray("1e3"), QByteArray(" "), QByteArray("0xG")})
        EXPECT_TRUE(isRejected(document("<integer>" + text + "</integer>"))) << text.toStdString();
}

TEST(PropertyListXMLReader, RealsAreRead)
{
    for (const char *text : {"inf", "+INF", "Infinity", "+infinity"})
        EXPECT_EQ(valueOf(QByteArray("<real>") + text + "</real>").toDouble(), HUGE_VAL);
    for (const char *text : {"-inf", "-INFINITY"})
        EXPECT_EQ(valueOf(QByteArray("<real>") + text + "</real>").toDouble(), -HUGE_VAL);
    EXPECT_TRUE(std::isnan(valueOf("<real>NaN</real>").toDouble()));
    EXPECT_EQ(valueOf("<real> +1.5E-3 </real>"), QVariant(0.0015));
    EXPECT_TRUE(std::signbit(valueOf("<real>-0.0</real>").toDouble()));
    for (const char *text : {"", "1,5", "1.5x", "infinite", "0x1p3", "1e999", "--1", "1 2"})
        EXPECT_TRUE(isRejected(document(QByteArray("<real>") + text + "</real>"))) << text;
}

TEST(PropertyListXMLReader, DatesAreRead)
{
    EXPECT_EQ(valueOf("<date>0000-12-30T00:00:00Z</date>").toDateTime().date(), QDate(-1, 12, 30));
    EXPECT_EQ(valueOf("<date>1985-06-01T01:02:03Z</date>").toDateTime(),
              QDateTime(QDate(1985, 6, 1), QTime(1, 2, 3), KTPrivate::UTC));
    for (const char *text :
         {"", "2008-02-30T00:00:00Z", "2008-13-01T00:00:00Z", "2008-01-01T24:00:00Z",
          "2008-01-01T00:00:00", "2008-01-01T00:00:00.5Z", "2008-01-01T00:00:00+0100",
          "2008-1-1T00:00:00Z", "2008-01-01T00:00:00Z\n", " 2008-01-01T00:00:00Z",
          "999999999-01-01T00:00:00Z", "99999999999-01-01T00:00:00Z"})
        EXPECT_TRUE(isRejected(document(QByteArray("<date>") + text + "</date>"))) << text;
}

TEST(PropertyListXMLReader, DataSkipsWhatIsNotBase64)
{
    EXPECT_EQ(valueOf("<data>\n\tQU JD\n\tRA==\n</data>"), QVariant(QByteArray("ABCD")));
    EXPECT_EQ(valueOf("<data>*Q-U:J\u00E9D</data>"), QVariant(QByteArray("ABC")));
    EXPECT_EQ(valueOf("<data></data>"), QVariant(QByteArray("")));
    EXPECT_FALSE(NSObject::isNil(valueOf("<data> </data>")));
}

TEST(PropertyListXMLReader, EmptyScalarsAreErrorsButTextsAreNot)
{
    for (const char *element : {"<data/>", "<date/>", "<integer/>", "<real/>", "<data />"})
        EXPECT_TRUE(isRejected(document(element))) << element;
    const QVariant text = valueOf("<string/>");
    EXPECT_EQ(text, QVariant(u""_s));
    EXPECT_FALSE(NSObject::isNil(text));
    EXPECT_EQ(valueOf("<dict><key/><string></string></dict>").toMap().keys(), QStringList{u""_s});
}

TEST(PropertyListXMLReader, TextsAreReadWithReferencesSectionsAndComments)
{
    EXPECT_EQ(valueOf("<string>a&lt;&#233;&#x1F600;<!-- no --><![CDATA[&amp;]]>\n</string>"),
              QVariant(u"a<é😀&amp;\n"_s));
    EXPECT_EQ(valueOf("<string>a&#13;&#10;</string>"), QVariant(u"a\r\n"_s));
}

TEST(PropertyListXMLReader, TheLaterOfTwoKeysWins)
{
    const QVariantMap expected = {{u"a"_s, 2LL}};
    EXPECT_EQ(valueOf("<dict><key>a</key><true/><key>a</key><integer>2</integer></dict>").toMap(),
              expected);
}

TEST(PropertyListXMLReader, ReferencesOfArchivesStayDictionaries)
{
    const QVariantMap expected = {{u"CF$UID"_s, 7LL}};
    EXPECT_EQ(valueOf("<dict><key>CF$UID</key><integer>7</integer></dict>").toMap(), expected);
}

TEST(PropertyListXMLReader, MalformedDocumentsAreRejected)
{
    const QList<QByteArray> documents = {
        "",
        " ",
        QByteArray("\0", 1),
        "text",
        "<plist/>",
        "<plist></plist>",
        "<plist>a</plist>",
        "<plist><string>a</string><string>b</string></plist>",
        "<plist><true/>a</plist>",
        "<plist><string>a</plist>",
        "<plist><string>a</string>",
        "<html/>",
        "<plist><plist/></plist>",
        "<plist><true/></plist><plist/>",
        document("<dict><true/></dict>"),
        document("<dict><key>a</key><key>b</key></dict>"),
        document("<dict>a</dict>"),
        document("<array>a</array>"),
        document("<array><string>a</string>,</array>"),
        document("<string><b/></string>"),
        document("<key>a</key>"),
        document("<true>a</true>"),
        document("<true><dict/></true>"),
        document("<unknown/>"),
        document("<Dict/>"),
        document("<string>&#0;</string>"),
        document("<string>\x01</string>"),
        document("<string>\xFF\xFE</string>"),
        document("<string>\xED\xA0\x80</string>"),
        document("<string>a</string>") + "\xE2\x82",
        "<?xml version=\"1.0\" encoding=\"no-such\"?><plist><true/></plist>",
    };
    for (const QByteArray &data : documents)
        EXPECT_TRUE(isRejected(data)) << data.toStdString();
}

TEST(PropertyListXMLReader, EntitiesAreRejected)
{
    const QByteArray laughs = "<!DOCTYPE plist [<!ENTITY a \"ha\"><!ENTITY b \"&a;&a;&a;\">]>"
                              "<plist><string>&b;</string></plist>";
    const QByteArray file = "<!DOCTYPE plist [<!ENTITY f SYSTEM \"file:///etc/hostname\">]>"
                            "<plist><string>&f;</string></plist>";
    for (const QByteArray &data :
         {laughs, file, document("<string>a&unknown;b</string>"), document("<array>&x;</array>"),
          document("<dict><key>&x;</key><true/></dict>"),
          QByteArray("<plist><string>&unknown;</string></plist>")})
        EXPECT_TRUE(isRejected(data)) << data.toStdString();
}

TEST(PropertyListXMLReader, DepthAndSizeAreBounded)
{
    const auto nested = [](int depth) {
        return document(QByteArray("<array>").repeated(depth) + "<true/>" +
                        QByteArray("</array>").repeated(depth));
    };
    EXPECT_TRUE(propertyListFromData(nested(MaximumDepth)).isValid());
    EXPECT_TRUE(isRejected(nested(MaximumDepth + 1)));
    EXPECT_TRUE(isRejected(nested(200'000)));
    EXPECT_TRUE(isRejected(document("<string>" + QByteArray(MaximumSize, 'a') + "</string>")));
    EXPECT_EQ(valueOf("<string>" + QByteArray(1 << 20, 'a') + "</string>").toString().size(),
              1 << 20);
}

TEST(PropertyListXMLReader, AttributesAreBounded)
{
    QByteArray attributes;
    for (int number = 0; number < 200'000; ++number)
        attributes += " a" + QByteArray::number(number) + "='>'";
    const QByteArray rest = "<dict/></plist>";
    const testing_support::ProcessorTime time;
    EXPECT_TRUE(isRejected("<plist" + attributes + ">" + rest));
    EXPECT_TRUE(isRejected("<plist><string" + attributes + "/></plist>"));
    EXPECT_TRUE(isRejected("<!DOCTYPE plist [<!ATTLIST dict" + attributes + ">]><plist>" + rest));
    QStringEncoder encoder(QStringConverter::Utf16LE, QStringConverter::Flag::WriteBom);
    EXPECT_TRUE(isRejected(encoder(QString::fromLatin1("<plist" + attributes + ">" + rest))));
    EXPECT_LT(time.elapsed(), 10'000);
    const QByteArray few = attributes.first(400);
    EXPECT_TRUE(
        propertyListFromData("<plist" + few.first(few.lastIndexOf(' ')) + ">" + rest).isValid());
    QString error;
    propertyListFromData("<plist" + attributes + ">" + rest, &error);
    EXPECT_EQ(error, u"a tag that is longer than 512"_s);
}

TEST(PropertyListXMLReader, LongTextsAndCommentsAreNoTags)
{
    const QByteArray piece = QByteArray("it's > 1 ").repeated(1000);
    EXPECT_EQ(
        valueOf("<!--" + piece + "--><?p " + piece + "?><string><![CDATA[" + piece + "]]></string>")
            .toString(),
        QString::fromLatin1(piece));
}

TEST(PropertyListXMLReader, DeclaredPrefixesCostNothing)
{
    QByteArray nested;
    for (int depth = 0; depth < 500; ++depth) {
        nested += "<array";
        for (int number = 0; number < 20; ++number)
            nested += " xmlns:p" + QByteArray::number(number) + "='u'";
        nested += ">";
    }
    const QByteArray values = QByteArray("<true/>").repeated(1 << 20);
    const testing_support::ProcessorTime time;
    EXPECT_TRUE(
        propertyListFromData(document(nested + values + QByteArray("</array>").repeated(500)))
            .isValid());
    EXPECT_LT(time.elapsed(), 10'000);
    EXPECT_TRUE(isRejected("<x:plist xmlns:x='u'><x:true/></x:plist>"));
}

TEST(PropertyListXMLReader, EveryTruncationIsRejected)
{
    const QByteArray whole = document("<dict><key>a</key><array><real>1</real><data>QQ==</data>"
                                      "<date>2008-03-04T12:00:00Z</date></array></dict>")
                                 .trimmed();
    ASSERT_TRUE(propertyListFromData(whole).isValid());
    for (qsizetype size = 0; size < whole.size(); ++size)
        EXPECT_TRUE(isRejected(whole.first(size))) << size;
}

TEST(PropertyListXMLReader, ErrorsNameTheLine)
{
    QString error;
    propertyListFromData(document("<integer>x</integer>"), &error);
    EXPECT_EQ(error, u"line 4: not an integer"_s);
}
