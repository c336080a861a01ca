// A value or a reason.

#include <KTUtility/KTCurrencyFormatter>
#include <KTUtility/KTDateTimeFormatter>
#include <KTUtility/KTDurationFormatter>
#include <KTUtility/KTNumberFormatter>
#include <KTUtility/KTReadResult>
#include <KTUtility/KTTimeFormatter>
#include <KTUtility/NSDateFormatter>
#include <KTUtility/NSDecimalNumber>
#include <KTUtility/NSNumberFormatter>

#include "support/TestSupport.h"

#include <QCoreApplication>
#include <QTranslator>

using namespace Qt::StringLiterals;

namespace {
/// Reads "yes" as true, and says no without a reason.
class YesFormatter : public NSFormatter
{
public:
    bool getObjectValue(QVariant *value, const QString &forString,
                        QString * = nullptr) const override
    {
        *value = true;
        return forString == u"yes";
    }
};

/// Every text of the framework in capitals.
class LoudTranslator : public QTranslator
{
public:
    LoudTranslator() { QCoreApplication::installTranslator(this); }
    ~LoudTranslator() override { QCoreApplication::removeTranslator(this); }

    bool isEmpty() const override { return false; }
    QString translate(const char *, const char *sourceText, const char *, int) const override
    {
        return QString::fromUtf8(sourceText).toUpper();
    }
};
} // namespace

TEST(KTReadResult, IsAValueOrAReason)
{
    const KTReadResult read = YesFormatter().read(u"yes"_s);
    EXPECT_TRUE(read);
    EXPECT_TRUE(read.hasValue());
    EXPECT_EQ(*read, QVariant(true));
    EXPECT_EQ(read.valueOr(false), QVariant(true));
    EXPECT_TRUE(read.error().isNull());
    const KTReadResult rejected = YesFormatter().read(u"no"_s);
    EXPECT_FALSE(rejected);
    EXPECT_FALSE(rejected.value().isValid());
    EXPECT_EQ(rejected.valueOr(7), QVariant(7));
    EXPECT_EQ(rejected.error(), u"The text cannot be read."_s);
}

TEST(KTReadResult, HasTheValueAsAnotherType)
{
    NSNumberFormatter formatter;
    formatter.setLocale(NSLocale(u"en_US"_s));
    formatter.setGeneratesDecimalNumbers(true);
    const KTReadResult read = formatter.read(u"12.5"_s);
    EXPECT_EQ(read.valueAs<NSDecimalNumber>(), NSDecimalNumber::decimalNumberWithString(u"12.5"));
    EXPECT_EQ(read.valueAs<double>(), 12.5);
}

TEST(KTReadResult, AlwaysHasAReason)
{
    const NSNumberFormatter numbers;
    const NSDateFormatter dates;
    for (const QString &text : {u""_s, u"abc"_s, u"12 abc"_s, u"99.99.2026"_s}) {
        EXPECT_EQ(numbers.read(text).error(), u"The text is not a number."_s);
        EXPECT_FALSE(dates.read(text).error().isEmpty());
    }
}

TEST(KTReadResult, ReasonsAreInTheLanguageOfTheProgram)
{
    testing_support::needApplication();
    const LoudTranslator translator;
    EXPECT_EQ(YesFormatter().read(u"no"_s).error(), u"THE TEXT CANNOT BE READ."_s);
    EXPECT_EQ(NSNumberFormatter().read(u"abc"_s).error(), u"THE TEXT IS NOT A NUMBER."_s);
    const QString date = NSDateFormatter().read(u"abc"_s).error();
    EXPECT_EQ(date, date.toUpper());
}

TEST(KTReadResult, ReasonsOfFormattersAreSentences)
{
    const KTNumberFormatter numbers;
    const KTCurrencyFormatter money;
    const KTDateTimeFormatter dates;
    const KTTimeFormatter times;
    const KTDurationFormatter durations;
    for (const NSFormatter *const formatter :
         {static_cast<const NSFormatter *>(&numbers), static_cast<const NSFormatter *>(&money),
          static_cast<const NSFormatter *>(&dates), static_cast<const NSFormatter *>(&times),
          static_cast<const NSFormatter *>(&durations)}) {
        for (const QString &text : {u"abc"_s, u"12 abc"_s, u"99.99.2026 €€"_s}) {
            const KTReadResult result = formatter->read(text);
            ASSERT_FALSE(result) << qPrintable(text);
            EXPECT_GT(result.error().size(), 10);
            EXPECT_FALSE(result.error().contains(u"Error Domain"_s)) << qPrintable(result.error());
        }
    }
    EXPECT_EQ(dates.read(u"foo"_s).error(), u"The text cannot be read as a date."_s);
    EXPECT_EQ(numbers.read(u"12 abc"_s).error(),
              u"The text is no number, or has something else in it."_s);
}
