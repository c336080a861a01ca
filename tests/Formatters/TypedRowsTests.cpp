#include "TypedRows.h"

#include "support/InZone.h"
#include "support/TestSupport.h"
#include "support/WallClockAt.h"

#include <unicode/uvernum.h>

#include <QByteArrayView>
#include <QJsonDocument>

#include <array>
#include <chrono>

using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
TypedRow row(const QString &type, const QString &locale, const QString &text, const QString &value)
{
    return {type, locale, text, value, {}, QDateTime({2013, 2, 12}, {4, 30}, Qt::UTC)};
}

TypedResult::Outcome outcomeOf(const TypedRow &typed)
{
    return TypedRows::resultOf(typed, false).outcome;
}

/// Names of months and halves of the day that ICU 72 did not have yet may let a text be read; its
/// value has to be the right one.
bool isReadByLaterNames(const TypedResult &result, const QJsonObject &before)
{
    return QByteArrayView(U_ICU_VERSION) != "72.1" && result.outcome == TypedResult::Read &&
           !before.contains(u"read"_s);
}

/// Rows are typed in UTC.
class TypedRowsTests : public testing::Test
{
    const InZone _zone{"UTC"};
};
} // namespace

TEST_F(TypedRowsTests, AreRightWrongOrRejected)
{
    EXPECT_EQ(outcomeOf(row(u"number"_s, u"en_US"_s, u"1,234.50"_s, u"1234.5"_s)),
              TypedResult::Read);
    EXPECT_EQ(outcomeOf(row(u"number"_s, u"en_US"_s, u"1,234"_s, u"1.234"_s)), TypedResult::Wrong);
    EXPECT_EQ(outcomeOf(row(u"number"_s, u"en_US"_s, u"many"_s, u"1000"_s)), TypedResult::Rejected);
    EXPECT_EQ(outcomeOf(row(u"money"_s, u"en_US"_s, u"$5"_s, u"5 USD"_s)), TypedResult::Read);
    EXPECT_EQ(outcomeOf(row(u"duration"_s, u"en_US"_s, u"2h"_s, u"7200"_s)), TypedResult::Read);
    EXPECT_EQ(outcomeOf(row(u"time"_s, u"de_DE"_s, u"17:30"_s, u"17:30:00"_s)), TypedResult::Read);
    EXPECT_EQ(
        outcomeOf(row(u"datetime"_s, u"en_US"_s, u"3/5/2008 5:30 PM"_s, u"2008-03-05T17:30:00"_s)),
        TypedResult::Read);
}

TEST_F(TypedRowsTests, AreTypedAtTheirTime)
{
    TypedRow typed = row(u"date"_s, u"en_US"_s, u"March 5"_s, u"2013-03-05"_s);
    EXPECT_EQ(outcomeOf(typed), TypedResult::Read);
    typed.reference = typed.reference.addYears(1);
    EXPECT_EQ(outcomeOf(typed), TypedResult::Wrong);
}

TEST_F(TypedRowsTests, AreTypedInTheirLocale)
{
    EXPECT_EQ(outcomeOf(row(u"date"_s, u"de_DE"_s, u"5.3.2008"_s, u"2008-03-05"_s)),
              TypedResult::Read);
    EXPECT_EQ(outcomeOf(row(u"date"_s, u"en_US"_s, u"3/5/2008"_s, u"2008-03-05"_s)),
              TypedResult::Read);
}

TEST_F(TypedRowsTests, PhoneNumbersAreStoredAsTyped)
{
    TypedRow typed = row(u"phone"_s, u"de_AT"_s, u"01 234567890"_s, u"+431234567890"_s);
    typed.shown = QStringList{u"01 234567890"_s, u"+43 1 234567890"_s};
    EXPECT_EQ(outcomeOf(typed), TypedResult::Read);
}

TEST_F(TypedRowsTests, HaveAllTypesInFiftyLocales)
{
    QStringList locales;
    qsizetype count = 0;
    for (const QString &type : TypedRows::types()) {
        for (const TypedRow &typed : TypedRows::ofType(type)) {
            EXPECT_EQ(typed.type, type);
            EXPECT_TRUE(typed.reference.isValid()) << typed.text.toStdString();
            locales += typed.locale;
            ++count;
        }
    }
    locales.removeDuplicates();
    EXPECT_EQ(count, 962);
    EXPECT_EQ(locales.size(), 50);
}

TEST_F(TypedRowsTests, WithoutCommonFormsNothingHasChanged)
{
    const QList<QJsonObject> known = rowsOf(u"typed/plain.jsonl"_s);
    qsizetype index = 0;
    for (const QString &type : TypedRows::types()) {
        for (const TypedRow &typed : TypedRows::ofType(type)) {
            const TypedResult result = TypedRows::resultOf(typed, false);
            const QString written = TypedRows::written(typed, result);
            const QJsonObject before = known.value(index++);
            if (!isReadByLaterNames(result, before)) {
                EXPECT_EQ(QJsonDocument::fromJson(written.toUtf8()).object(), before)
                    << written.toStdString();
            }
            EXPECT_FALSE(result.reading.isRead());
        }
    }
    EXPECT_EQ(index, known.size());
}

TEST_F(TypedRowsTests, WithCommonFormsWhatPeopleTypeIsRead)
{
    const std::pair<QString, double> leastRead[] = {{u"date"_s, 0.92},  {u"datetime"_s, 0.88},
                                                    {u"time"_s, 0.92},  {u"number"_s, 0.98},
                                                    {u"money"_s, 0.92}, {u"duration"_s, 0.90}};
    int wrong = 0;
    qsizetype all = 0;
    for (const auto &[type, least] : leastRead) {
        std::array<int, 3> counts{};
        const QList<TypedRow> rows = TypedRows::ofType(type);
        for (const TypedRow &typed : rows)
            ++counts[TypedRows::resultOf(typed, true).outcome];
        EXPECT_GE(counts[TypedResult::Read], least * double(rows.size())) << type.toStdString();
        const bool mayBeWrong = type != u"number" && type != u"money";
        EXPECT_TRUE(mayBeWrong || counts[TypedResult::Wrong] == 0) << type.toStdString();
        wrong += counts[TypedResult::Wrong];
        all += rows.size();
    }
    EXPECT_LE(wrong, 0.003 * double(all));
}

TEST_F(TypedRowsTests, TheClockStandsMeanwhile)
{
    const QDateTime moment({1999, 12, 31}, {23, 59, 59, 250}, Qt::UTC);
    {
        const WallClockAt standing(moment);
        EXPECT_EQ(QDateTime::currentDateTimeUtc(), moment);
        using namespace std::chrono;
        EXPECT_EQ(floor<milliseconds>(system_clock::now().time_since_epoch()).count(),
                  moment.toMSecsSinceEpoch());
        EXPECT_NE(steady_clock::now().time_since_epoch().count(), 0);
    }
    EXPECT_GT(QDateTime::currentDateTimeUtc(), moment.addYears(1));
}
