// Many formatters at once, in one thread and in several.

#include "Formatters/FormatterSupport.h"

#include <KTUtility/KTCurrencyFormatter>
#include <KTUtility/KTDateTimeFormatter>
#include <KTUtility/KTDurationFormatter>
#include <KTUtility/KTPhoneNumberFormatter>
#include <KTUtility/KTTimeFormatter>
#include <KTUtility/NSObject>

#include <gtest/gtest.h>

#include <QMutex>
#include <QTimeZone>

#include <array>
#include <atomic>
#include <functional>
#include <memory>
#include <thread>
#include <vector>

using namespace Qt::StringLiterals;

namespace {
constexpr int InstanceCount = 64;
constexpr int ThreadCount = 4;

using Formatter = std::unique_ptr<NSFormatter>;
using Make = std::function<Formatter(int index)>;

NSLocale localeOf(int index)
{
    static const QStringList Identifiers = {u"en_US"_s, u"de_DE"_s, u"fr_FR"_s, u"ja_JP"_s};
    return NSLocale(Identifiers.at(index % Identifiers.size()));
}

// Each with settings that only a few others have, by the bits of its index.

Formatter numberFormatter(int index)
{
    auto formatter = std::make_unique<KTNumberFormatter>();
    formatter->setLocale(localeOf(index));
    formatter->setDecimalPlaces(uint(index / 4 % 4));
    formatter->setDisplayThousandsSeparator(index / 16 % 2 == 0);
    formatter->setFormatNegativeUsingParens(index / 32 == 0);
    return formatter;
}

Formatter currencyFormatter(int index)
{
    static const QStringList Currencies = {u"EUR"_s, u"USD"_s, u"JPY"_s, u"CHF"_s};
    auto formatter = std::make_unique<KTCurrencyFormatter>();
    formatter->setCurrencyLocale(localeOf(index));
    formatter->setCurrencyType(Currencies.at(index / 4 % 4));
    formatter->setDisplayThousandsSeparator(index / 16 % 2 == 0);
    formatter->setFormatNegativeUsingParens(index / 32 == 0);
    return formatter;
}

Formatter dateTimeFormatter(int index)
{
    auto formatter = std::make_unique<KTDateTimeFormatter>();
    formatter->setLocale(localeOf(index));
    formatter->setDateStyle(uint(1 + index / 4 % 4));
    formatter->setDisplayTime(index / 16 % 2 == 0);
    formatter->setDisplayYear(index / 32 == 0);
    return formatter;
}

Formatter timeFormatter(int index)
{
    auto formatter = std::make_unique<KTTimeFormatter>();
    formatter->setLocale(localeOf(index));
    formatter->setTimeStyle(uint(1 + index / 4 % 2));
    return formatter;
}

Formatter durationFormatter(int index)
{
    auto formatter = std::make_unique<KTDurationFormatter>();
    formatter->setUseAbbreviations(index % 2 == 0);
    return formatter;
}

Formatter phoneFormatter(int index)
{
    auto formatter = std::make_unique<KTPhoneNumberFormatter>();
    formatter->setFormatIndex(index % int(KTPhoneNumberFormatter::patternSets().size()));
    return formatter;
}

struct Kind
{
    const char *name;
    Make make;
};

void PrintTo(const Kind &kind, std::ostream *stream)
{
    *stream << kind.name;
}

const std::array<Kind, 6> &kinds()
{
    static const std::array<Kind, 6> all = {{{"Number", numberFormatter},
                                             {"Currency", currencyFormatter},
                                             {"DateTime", dateTimeFormatter},
                                             {"Time", timeFormatter},
                                             {"Duration", durationFormatter},
                                             {"Phone", phoneFormatter}}};
    return all;
}

/// All kinds, one after the other.
Formatter mixed(int index)
{
    return kinds().at(size_t(index) % kinds().size()).make(index);
}

QList<QVariant> values()
{
    return {QVariant(1234567.891),
            QVariant(-42.5),
            QVariant(93784),
            QVariant(QDateTime(QDate(2008, 3, 4), QTime(17, 30), QTimeZone("America/New_York"))),
            QVariant(u"415.555.1234"_s),
            QVariant()};
}

QStringList texts()
{
    return {u"1,234.5"_s, u"(1.234,56)"_s, u"$12.50"_s,    u"3/4/2008"_s, u"4.3.2008"_s,
            u"5:30 PM"_s, u"2h 30m"_s,     u"5 minutes"_s, u"nonsense"_s};
}

/// What a formatter shows and reads.
QStringList answersOf(const NSFormatter &formatter)
{
    QStringList answers;
    for (const QVariant &value : values())
        answers += formatter.stringForObjectValue(value);
    for (const QString &text : texts()) {
        QVariant value;
        QString error;
        const bool isRead = formatter.getObjectValue(&value, text, &error);
        answers += isRead ? NSObject::description(value) : QString(u"no: " + error);
    }
    return answers;
}

QList<QStringList> answersOneByOne(const Make &make)
{
    QList<QStringList> answers;
    for (int index = 0; index < InstanceCount; ++index)
        answers += answersOf(*make(index));
    return answers;
}

/// A formatter that one thread at a time has.
struct Shared
{
    Formatter formatter;
    QMutex mutex;
};

class FormatterThreadsTests : public testing::TestWithParam<Kind>
{
};
} // namespace

TEST_P(FormatterThreadsTests, ManyAtOnceAnswerAsOneAlone)
{
    const UserLocale locale("en_US");
    const Make &make = GetParam().make;
    const QList<QStringList> alone = answersOneByOne(make);
    std::vector<Formatter> all;
    QList<QVariantMap> options;
    for (int index = 0; index < InstanceCount; ++index) {
        all.push_back(make(index));
        options += all.back()->options();
    }
    // Twice: what one has read or shown changes nothing for the others.
    for (int round = 0; round < 2; ++round) {
        for (int index = 0; index < InstanceCount; ++index)
            EXPECT_EQ(answersOf(*all[size_t(index)]), alone.at(index)) << index;
    }
    for (int index = 0; index < InstanceCount; ++index)
        EXPECT_TRUE(NSObject::isEqual(all[size_t(index)]->options(), options.at(index))) << index;
}

INSTANTIATE_TEST_SUITE_P(Kinds, FormatterThreadsTests, testing::ValuesIn(kinds()),
                         [](const auto &kind) { return std::string(kind.param.name); });

TEST(FormatterThreads, SeveralThreadsGetTheAnswersOfOne)
{
    const UserLocale locale("en_US");
    const QList<QStringList> alone = answersOneByOne(mixed);
    std::array<Shared, InstanceCount> all;
    for (int index = 0; index < InstanceCount; ++index)
        all[size_t(index)].formatter = mixed(index);
    std::atomic<int> correct = 0;
    const auto work = [&](int thread) {
        for (int step = 0; step < InstanceCount; ++step) {
            const int index = (step + thread * InstanceCount / ThreadCount) % InstanceCount;
            Shared &shared = all[size_t(index)];
            const QMutexLocker lock(&shared.mutex);
            correct += answersOf(*shared.formatter) == alone.at(index);
        }
    };
    std::vector<std::thread> threads;
    for (int thread = 0; thread < ThreadCount; ++thread)
        threads.emplace_back(work, thread);
    for (std::thread &thread : threads)
        thread.join();
    EXPECT_EQ(correct, ThreadCount * InstanceCount);
}

TEST(FormatterThreads, FormattersAreMadeInSeveralThreads)
{
    const UserLocale locale("en_US");
    const QList<QStringList> alone = answersOneByOne(mixed);
    std::array<QList<QStringList>, ThreadCount> answers;
    std::vector<std::thread> threads;
    for (QList<QStringList> &own : answers)
        threads.emplace_back([&own] { own = answersOneByOne(mixed); });
    for (std::thread &thread : threads)
        thread.join();
    for (const QList<QStringList> &own : answers)
        EXPECT_EQ(own, alone);
}
