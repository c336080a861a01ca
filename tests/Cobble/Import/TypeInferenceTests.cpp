// Which columns are what. The samples' columns are in ImportValuesTests.cpp.

#include "Import/TypeInference.h"

#include "Formatters/FormatterSupport.h"
#include "support/TestSupport.h"

namespace {
QString typeOf(const QStringList &values, const std::function<bool(const QString &)> &isMedia = {})
{
    TypeInference inference(isMedia);
    for (const QString &value : values)
        inference.add(value);
    return FieldTypes::nameOf(inference.reader()->type());
}

QStringList times(int count, const QString &text)
{
    return QStringList(count, text);
}
} // namespace

TEST(TypeInference, HeaderExample)
{
    TypeInference inference;
    inference.add(QStringLiteral("€5"));
    inference.add(QStringLiteral("€7.50"));
    EXPECT_EQ(inference.reader()->type(), FieldType::Currency);
}

TEST(TypeInference, CodesAreNoNumbers)
{
    EXPECT_EQ(typeOf({QStringLiteral("10115"), QStringLiteral("80331")}), QStringLiteral("number"));
    EXPECT_NE(typeOf({QStringLiteral("10115"), QStringLiteral("01067")}), QStringLiteral("number"));
    EXPECT_EQ(typeOf({QStringLiteral("+49 170 1234567"), QStringLiteral("030 654321")}),
              QStringLiteral("phone"));
    EXPECT_EQ(typeOf({QStringLiteral("0"), QStringLiteral("0.5"), QStringLiteral("-3")}),
              QStringLiteral("number"));
}

TEST(TypeInference, DatesAreNoNumbersWithOddGroups)
{
    // Where the point separates thousands, a formatter of numbers would read them.
    for (const char *const locale : {"de_DE", "tr_TR", "es_ES", "da_DK"}) {
        const UserLocale user(locale);
        EXPECT_EQ(typeOf({QStringLiteral("26.05.2014"), QStringLiteral("14.04.2012")}),
                  QStringLiteral("date"));
        EXPECT_EQ(typeOf({QStringLiteral("6.06.1984"), QStringLiteral("31.12.1951")}),
                  QStringLiteral("date"));
        EXPECT_EQ(typeOf({QStringLiteral("1.234.567"), QStringLiteral("12.345")}),
                  QStringLiteral("number"));
        EXPECT_EQ(typeOf(times(9, QStringLiteral("12")) + times(1, QStringLiteral("1.1.2008"))),
                  QStringLiteral("number"));
    }
}

TEST(TypeInference, NineInTenDecide)
{
    EXPECT_EQ(typeOf(times(9, QStringLiteral("12")) + times(1, QStringLiteral("cow"))),
              QStringLiteral("number"));
    EXPECT_EQ(typeOf(times(8, QStringLiteral("12")) + times(2, QStringLiteral("cow"))),
              QStringLiteral("text"));
    EXPECT_EQ(typeOf({}), QStringLiteral("text"));
}

TEST(TypeInference, Media)
{
    const auto isMedia = [](const QString &text) { return text.endsWith(u".png"); };
    EXPECT_EQ(typeOf(times(9, QStringLiteral("a.png")) + times(1, QStringLiteral("lost")), isMedia),
              QStringLiteral("media"));
    EXPECT_EQ(typeOf(times(9, QStringLiteral("a.png"))), QStringLiteral("text"));
    EXPECT_EQ(typeOf(times(2, QStringLiteral("a.png")) + times(8, QStringLiteral("b")), isMedia),
              QStringLiteral("text"));
}
