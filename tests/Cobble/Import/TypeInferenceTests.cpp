// Which columns are what. The samples' columns are in ImportValuesTests.cpp.

#include "Import/TypeInference.h"

#include "Formatters/FormatterSupport.h"
#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

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
    inference.add(u"€5"_s);
    inference.add(u"€7.50"_s);
    EXPECT_EQ(inference.reader()->type(), FieldType::Currency);
}

TEST(TypeInference, CodesAreNoNumbers)
{
    EXPECT_EQ(typeOf({u"10115"_s, u"80331"_s}), u"number"_s);
    EXPECT_NE(typeOf({u"10115"_s, u"01067"_s}), u"number"_s);
    EXPECT_EQ(typeOf({u"+49 170 1234567"_s, u"030 654321"_s}), u"phone"_s);
    EXPECT_EQ(typeOf({u"0"_s, u"0.5"_s, u"-3"_s}), u"number"_s);
}

TEST(TypeInference, DatesAreNoNumbersWithOddGroups)
{
    // Where the point separates thousands, a formatter of numbers would read them.
    for (const char *const locale : {"de_DE", "tr_TR", "es_ES", "da_DK"}) {
        const UserLocale user(locale);
        EXPECT_EQ(typeOf({u"26.05.2014"_s, u"14.04.2012"_s}), u"date"_s);
        EXPECT_EQ(typeOf({u"6.06.1984"_s, u"31.12.1951"_s}), u"date"_s);
        EXPECT_EQ(typeOf({u"1.234.567"_s, u"12.345"_s}), u"number"_s);
        EXPECT_EQ(typeOf(times(9, u"12"_s) + times(1, u"1.1.2008"_s)), u"number"_s);
    }
}

TEST(TypeInference, NineInTenDecide)
{
    EXPECT_EQ(typeOf(times(9, u"12"_s) + times(1, u"cow"_s)), u"number"_s);
    EXPECT_EQ(typeOf(times(8, u"12"_s) + times(2, u"cow"_s)), u"text"_s);
    EXPECT_EQ(typeOf({}), u"text"_s);
}

TEST(TypeInference, Media)
{
    const auto isMedia = [](const QString &text) { return text.endsWith(u".png"); };
    EXPECT_EQ(typeOf(times(9, u"a.png"_s) + times(1, u"lost"_s), isMedia), u"media"_s);
    EXPECT_EQ(typeOf(times(9, u"a.png"_s)), u"text"_s);
    EXPECT_EQ(typeOf(times(2, u"a.png"_s) + times(8, u"b"_s), isMedia), u"text"_s);
}
