#include <KTUtility/Formatters/KTDurationTables_p.h>
#include <KTUtility/KTDurationFormatter>
#include <KTUtility/NSKeyValueCoding>

#include "support/TestSupport.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>
#include <QTranslator>

using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
/// The translations of a row: context to source text to text.
class RowTranslator : public QTranslator
{
public:
    explicit RowTranslator(const QJsonObject &tables) : _tables(tables)
    {
        QCoreApplication::installTranslator(this);
    }
    ~RowTranslator() override { QCoreApplication::removeTranslator(this); }

    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *sourceText, const char *, int) const override
    {
        const QString table = QString::fromUtf8(context);
        const QString name = table == u"Localizable" ? QString() : table;
        const QJsonValue text = _tables[name][QString::fromUtf8(sourceText)];
        return text.isString() ? text.toString() : QString();
    }

private:
    QJsonObject _tables;
};

/// A formatter with the words of the translations that are installed now.
class TranslatedFormatter : public KTDurationFormatter
{
public:
    TranslatedFormatter() : KTDurationFormatter(words) {}
    TranslatedFormatter(const TranslatedFormatter &) = delete;

    KTDurationTables words;
};

QString reading(const KTDurationFormatter &formatter, const QString &text)
{
    QVariant value = u"untouched"_s;
    QString error;
    const bool isRead = formatter.getObjectValue(&value, text, &error);
    EXPECT_EQ(isRead, error.isNull());
    if (!isRead) {
        EXPECT_EQ(value.toString(), u"untouched");
        return error;
    }
    return value.metaType() == QMetaType::fromType<NSDecimalNumber>()
               ? value.value<NSDecimalNumber>().description()
               : value.toString();
}

QString reading(const KTDurationFormatter &formatter, const char16_t *text)
{
    return reading(formatter, QString::fromUtf16(text));
}

NSDecimalNumber decimalOf(const QJsonValue &value)
{
    return NSDecimalNumber::decimalNumberWithString(
        value.isString() ? value.toString() : QString::number(value.toInteger()));
}

QVariant numberOf(const QJsonValue &value)
{
    if (value.isString())
        return value.toString();
    if (value.isNull())
        return {};
    const double number = value.toDouble();
    return number == double(value.toInteger(1)) ? QVariant(value.toInteger()) : QVariant(number);
}

void checkTables(const KTDurationTables &words, const QJsonArray &expected)
{
    EXPECT_EQ(words.abbreviations, expected[0].toVariant().toStringList());
    EXPECT_EQ(words.singularNames, expected[1].toVariant().toStringList());
    EXPECT_EQ(words.pluralNames, expected[2].toVariant().toStringList());
}

void checkReading(TranslatedFormatter &formatter, const QJsonObject &arguments,
                  const QJsonObject &expected)
{
    if (arguments[u"import"].toBool())
        formatter.willFormatString(QString(), QVariant());
    const QString found = reading(formatter, arguments[u"s"].toString());
    formatter.didFormatString(QString(), QVariant());
    const bool isRead = expected[u"ok"].toBool();
    EXPECT_EQ(found, isRead ? expected[u"value"].toString() : expected[u"error"].toString());
}

void checkRow(const QJsonObject &row)
{
    TranslatedFormatter formatter;
    const QString operation = row[u"op"].toString();
    const QJsonObject arguments = row[u"args"].toObject();
    formatter.setUseAbbreviations(arguments[u"useAbbreviations"].toBool(true));
    if (operation == u"tables") {
        checkTables(formatter.words, row[u"out"].toArray());
    } else if (operation == u"stringForObjectValue:") {
        EXPECT_EQ(formatter.stringForObjectValue(numberOf(arguments[u"value"])),
                  row[u"out"].isNull() ? QString() : row[u"out"].toString());
    } else if (operation == u"secondsFrom:ofKind:") {
        EXPECT_EQ(
            formatter.secondsFrom(decimalOf(arguments[u"value"]), arguments[u"word"].toString())
                .description(),
            row[u"out"].toString());
    } else if (operation == u"appendToString:number:atIndex:") {
        QString text = arguments[u"s"].toString();
        formatter.appendToString(&text, decimalOf(arguments[u"value"]),
                                 arguments[u"index"].toInt());
        EXPECT_EQ(text, row[u"out"].toString());
    } else {
        checkReading(formatter, arguments, row[u"out"].toObject());
    }
}
} // namespace

TEST(KTDurationFormatter, DoesAsTheTableSays)
{
    needApplication();
    const QList<QJsonObject> rows = rowsOf(u"system/duration.jsonl"_s);
    EXPECT_EQ(rows.size(), 117);
    for (const QJsonObject &row : rows) {
        const RowTranslator translator(row[u"tables"].toObject());
        SCOPED_TRACE(
            qPrintable(QString::fromUtf8(QJsonDocument(row).toJson(QJsonDocument::Compact))));
        checkRow(row);
    }
}

TEST(KTDurationFormatter, RunsItsExample)
{
    KTDurationFormatter formatter;
    EXPECT_EQ(formatter.stringForObjectValue(93784), u"1d 2h 3m 4s");
    EXPECT_EQ(reading(formatter, u"2 hours, 30 minutes"), u"9000");
}

TEST(KTDurationFormatter, ShowsUnitsThatAreThere)
{
    KTDurationFormatter formatter;
    EXPECT_EQ(formatter.stringForObjectValue(0), u"");
    EXPECT_FALSE(formatter.stringForObjectValue(-5).isNull());
    EXPECT_EQ(formatter.stringForObjectValue(-5), u"");
    EXPECT_EQ(formatter.stringForObjectValue(0.4), u"");
    EXPECT_EQ(formatter.stringForObjectValue(59.9), u"59s");
    EXPECT_EQ(formatter.stringForObjectValue(604'800), u"1w");
    EXPECT_EQ(formatter.stringForObjectValue(1'209'600), u"2w");
    EXPECT_EQ(formatter.stringForObjectValue(86'401), u"1d 1s");
    formatter.setUseAbbreviations(false);
    EXPECT_EQ(formatter.stringForObjectValue(1'209'600), u"2 weeks");
    EXPECT_EQ(formatter.stringForObjectValue(60), u"1 minute");
    EXPECT_EQ(formatter.stringForObjectValue(93784), u"1 day 2 hours 3 minutes 4 seconds");
    EXPECT_EQ(formatter.stringForObjectValue(u"60"_s), QString());
    EXPECT_EQ(formatter.stringForObjectValue(QVariant()), QString());
    EXPECT_FALSE(formatter.attributedStringForObjectValue(60).has_value());
    EXPECT_EQ(formatter.stringForObjectValue(QVariant::fromValue(NSDecimalNumber::notANumber())),
              u"");
}

TEST(KTDurationFormatter, ReadsUnitsInAnyOrder)
{
    const KTDurationFormatter formatter;
    for (const char16_t *text :
         {u"2h 30m", u"2 hours, 30 minutes", u"2H30M", u"30m2h", u"- 2h30m", u"1h 1h 30 MINUTES"})
        EXPECT_EQ(reading(formatter, text), u"9000") << qPrintable(QString::fromUtf16(text));
    const QString rejection = u"Could not convert to a time"_s;
    for (const char16_t *text : {u"90", u"h", u"1.5h", u"0m", u"3 fortnights", u"٣h", u"2h 5"})
        EXPECT_EQ(reading(formatter, text), rejection) << qPrintable(QString::fromUtf16(text));
    EXPECT_EQ(reading(formatter, u""), u"untouched");
    EXPECT_EQ(reading(formatter, u"  "), u"0");
    EXPECT_EQ(reading(formatter, u"1d 2h 3m 4s"), u"93784");
    EXPECT_FALSE(formatter.getObjectValue(nullptr, u"1h"_s));
}

TEST(KTDurationFormatter, HelpsImportsInOtherLanguages)
{
    needApplication();
    const QJsonObject words{{u"Durations"_s, QJsonObject{{u"s"_s, u"Sek"_s}, {u"h"_s, u"Std"_s}}}};
    const RowTranslator translator(words);
    TranslatedFormatter formatter;
    const QString rejection = u"Could not convert to a time"_s;
    EXPECT_EQ(reading(formatter, u"45s"), rejection);
    formatter.willFormatString(u"45s"_s, QVariant());
    EXPECT_EQ(reading(formatter, u"45s"), u"45");
    EXPECT_EQ(reading(formatter, u"3Std 45s"), u"10845");
    EXPECT_EQ(reading(formatter, u"45s 3Std"), rejection);
    EXPECT_EQ(reading(formatter, u"45S"), rejection);
    formatter.didFormatString(u"45s"_s, QVariant());
    EXPECT_EQ(reading(formatter, u"45s"), rejection);
}

TEST(KTDurationFormatter, ComputesInWholeSeconds)
{
    const KTDurationFormatter formatter;
    EXPECT_EQ(formatter.roundingMode(), NSRoundDown);
    EXPECT_EQ(formatter.scale(), 0);
    EXPECT_FALSE(formatter
                     .exceptionDuringOperation(u"decimalNumberByDividingBy:"_s,
                                               NSCalculationDivideByZero, NSDecimalNumber(1),
                                               NSDecimalNumber())
                     .has_value());
    const NSDecimalNumber seven(7);
    EXPECT_EQ(seven.decimalNumberByDividingBy(NSDecimalNumber(2), &formatter).description(), u"3");
    EXPECT_EQ(
        NSDecimalNumber(-7).decimalNumberByDividingBy(NSDecimalNumber(2), &formatter).description(),
        u"-4");
    EXPECT_TRUE(seven.decimalNumberByDividingBy(NSDecimalNumber(), &formatter).isNaN());
}

TEST(KTDurationFormatter, HasOneOption)
{
    KTDurationFormatter formatter;
    EXPECT_EQ(formatter.options(), QVariantMap({{kKTFieldOption_useAbbreviations, true}}));
    QSignalSpy changes(&formatter, &KTDurationFormatter::useAbbreviationsChanged);
    formatter.setOptions({{kKTFieldOption_useAbbreviations, false}});
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(formatter.stringForObjectValue(3600), u"1 hour");
    EXPECT_EQ(NSKeyValueCoding::valueForKey(&formatter, kKTFieldOption_useAbbreviations), false);
    EXPECT_EQ(KTDurationFormatter::abbreviations().join(u' '), u"w d h m s");
    EXPECT_EQ(KTDurationFormatter::pluralNames().value(2), u"hours");
    EXPECT_EQ(KTDurationFormatter::singularNames().value(4), u"second");
}

TEST(KTDurationFormatter, SurvivesAnyText)
{
    const KTDurationFormatter formatter;
    QList<QString> texts = hostileTexts();
    texts << megabyteOf(u"9"_s) << megabyteOf(u"1h "_s) << megabyteOf(u"h"_s)
          << megabyteOf(u", "_s);
    for (const QString &text : texts)
        reading(formatter, text);
    EXPECT_EQ(reading(formatter, megabyteOf(u"1s "_s)),
              QString::number(megabyteOf(u"1s "_s).size() / 3));
}

TEST(KTDurationFormatter, ReadsWordsInAnyLetterCase)
{
    struct Language
    {
        QJsonObject words;
        std::vector<std::pair<const char16_t *, const char16_t *>> texts;
    };
    const Language languages[] = {
        {{{u"hours"_s, u"ώρες"_s}, {u"hour"_s, u"ώρα"_s}, {u"week"_s, u"εβδομάδα"_s}},
         {{u"2 ώρες", u"7200"}, {u"2 ΏΡΕΣ", u"7200"}, {u"1 ΕΒΔΟΜΆΔΑ 2 Ώρες", u"612000"}}},
        {{{u"hours"_s, u"Straßen"_s}}, {{u"2 STRASSEN", u"7200"}, {u"2 straßen", u"7200"}}},
        {{{u"minutes"_s, u"dakika"_s}, {u"seconds"_s, u"ışık"_s}},
         {{u"2 DAKİKA", u"120"}, {u"2 DAKIKA", u"120"}, {u"2 IŞIK", u"2"}}}};
    needApplication();
    for (const Language &language : languages) {
        const QJsonObject tables{{u"Durations"_s, language.words}};
        const RowTranslator translator(tables);
        const TranslatedFormatter formatter;
        for (const auto &[text, seconds] : language.texts)
            EXPECT_EQ(reading(formatter, text), QString::fromUtf16(seconds))
                << qPrintable(QString::fromUtf16(text));
    }
}
