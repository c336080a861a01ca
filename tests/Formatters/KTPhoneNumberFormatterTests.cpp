#include <KTUtility/Formatters/PhoneDigits_p.h>
#include <KTUtility/KTLogCapture>
#include <KTUtility/KTLoggerComponents>
#include <KTUtility/KTPhoneNumberFormatter>
#include <KTUtility/NSException>
#include <KTUtility/NSObject>

#include "support/TestSupport.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

using namespace Qt::StringLiterals;
using namespace testing_support;
using namespace KTPrivate;

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

/// A number with other punctuation, and without.
QStringList waysToType(const QString &number)
{
    const QString digits = PhoneDigits::withoutSeparators(number);
    const qsizetype half = digits.size() / 2;
    return {number, digits, digits.left(half) + u" / "_s + digits.mid(half),
            QString(number).replace(u' ', u'.')};
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
    const QString listInLine = QString(list).replace(u'\n', u"\\n"_s);
    const KTLogCapture log(kLog_FormattersPhoneNumbers, 4);
    formatter->setFormatIndex(5);
    formatter->setFormatIndex(0);
    formatter->stringForObjectValue(u"12"_s);
    EXPECT_EQ(log.messages(),
              QStringList({u"setFormatIndex: 5"_s, u"setFormatIndex: 0"_s,
                           u"format strings: " + listInLine, u"stringForObjectValue: 12"_s,
                           u"applyFormat: ## toString: 12"_s}));
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
    EXPECT_GE(sets.size(), 60);
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

TEST(KTPhoneNumberFormatter, ResourcesHidePatternsOfNoKind)
{
    for (const QStringList &set : KTPhoneNumberFormatter::patternSets()) {
        QSet<std::pair<QString, qsizetype>> shapes;
        for (const QString &pattern : set) {
            const QString literals = PhoneDigits::literalsOf(pattern);
            const qsizetype before = shapes.size();
            shapes.insert({literals, pattern.count(u'#')});
            EXPECT_GT(shapes.size(), before) << qPrintable(pattern);
        }
    }
}

TEST(KTPhoneNumberFormatter, ResourcesShowNumbersOfTheirCountries)
{
    QSet<QString> countries;
    for (const QJsonObject &row : rowsOf(u"formatters/phones.jsonl"_s)) {
        KTPhoneNumberFormatter formatter;
        formatter.setFormatIndex(row[u"index"].toInt());
        const QStringList numbers = row[u"numbers"].toVariant().toStringList();
        EXPECT_GE(numbers.size(), 3) << qPrintable(row[u"country"].toString());
        for (const QString &number : numbers) {
            for (const QString &typed : waysToType(number))
                EXPECT_EQ(formatter.stringForObjectValue(typed), number) << qPrintable(typed);
        }
        countries.insert(row[u"country"].toString().left(2));
    }
    EXPECT_GE(countries.size(), 60);
    EXPECT_EQ(countries.size(), KTPhoneNumberFormatter::patternSets().size());
}

TEST(KTPhoneNumberFormatter, ResourcesLeaveAloneWhatNoPlanKnows)
{
    int checked = 0;
    for (const QJsonObject &row : rowsOf(u"formatters/phones.jsonl"_s)) {
        KTPhoneNumberFormatter formatter;
        formatter.setFormatIndex(row[u"index"].toInt());
        for (const QString &number : row[u"unknown"].toVariant().toStringList()) {
            EXPECT_EQ(formatter.stringForObjectValue(number), number);
            ++checked;
        }
    }
    EXPECT_GE(checked, 25);
}

TEST(KTPhoneNumberFormatter, ShowsTheSameWhileItLogs)
{
    useFreshHome();
    const QStringList patterns{u"0161 ### ####"_s, u"0#### ######"_s, u"(#) #"_s, u"##"_s, u""_s};
    const std::unique_ptr<SetsFormatter> formatter(formatterWith(patterns));
    for (const QString &typed : {u"01614960000"_s, u"01223456789"_s, u"12"_s, u" "_s, u"1"_s}) {
        const QString quiet = formatter->stringForObjectValue(typed);
        const KTLogCapture log(kLog_FormattersPhoneNumbers, 4);
        const QString logged = formatter->stringForObjectValue(typed);
        EXPECT_EQ(logged, quiet);
        EXPECT_EQ(logged.isNull(), quiet.isNull());
        EXPECT_GE(log.messages().size(), 2);
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
