#include <KTUtility/Platform/Numbers/NumberPattern_p.h>

#include "support/TestSupport.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;
using namespace testing_support;

TEST(NumberPattern, HasAPartForEachSign)
{
    struct Row
    {
        QString pattern;
        QStringList parts;
    };
    const Row rows[] = {
        {u"#,##0.00"_s, {u"#,##0.00"_s}},
        {u"#,##0.00;(#,##0.00)"_s, {u"#,##0.00"_s, u"(#,##0.00)"_s}},
        {u"0;0;-0"_s, {u"0"_s, u"0"_s, u"-0"_s}},
        {u";"_s, {u""_s, u""_s}},
        {u"0;"_s, {u"0"_s, u""_s}},
        {u";0"_s, {u""_s, u"0"_s}},
        // Not within quotes; two quotes are a quote.
        {u"0 ';'"_s, {u"0 ';'"_s}},
        {u"0 ';';-0"_s, {u"0 ';'"_s, u"-0"_s}},
        {u"0'';-0"_s, {u"0''"_s, u"-0"_s}},
        {u"0 'o''clock;';-0"_s, {u"0 'o''clock;'"_s, u"-0"_s}},
        {u"0 ';-0"_s, {u"0 ';-0"_s}},
        // Others that look like it separate nothing.
        {u"0；-0"_s, {u"0；-0"_s}},
        {u"0؛-0"_s, {u"0؛-0"_s}},
    };
    for (const Row &row : rows)
        EXPECT_EQ(NumberPattern::partsOf(row.pattern), row.parts) << row.pattern.toStdString();
}

TEST(NumberPattern, HasOnePartIfItIsEmpty)
{
    for (const QString &pattern : {QString(), u""_s}) {
        const QStringList parts = NumberPattern::partsOf(pattern);
        ASSERT_EQ(parts.size(), 1);
        EXPECT_TRUE(parts.first().isEmpty());
    }
}

TEST(NumberPattern, PartsLoseNothing)
{
    QStringList texts = hostileTexts();
    for (const QString &text : hostileTexts())
        texts += u"0;" + text + u";';'";
    for (const QString &text : std::as_const(texts))
        EXPECT_TRUE(NumberPattern::partsOf(text).join(u';') == text);
    EXPECT_EQ(NumberPattern::partsOf(QString(100'000, u';')).size(), 100'001);
}

TEST(NumberPattern, IsShortEnoughForAPerson)
{
    EXPECT_TRUE(NumberPattern::isAcceptable(QString()));
    EXPECT_TRUE(NumberPattern::isAcceptable(u"#,##0.00;(#,##0.00)"_s));
    EXPECT_TRUE(NumberPattern::isAcceptable(QString(1024, u'#')));
    EXPECT_FALSE(NumberPattern::isAcceptable(QString(1025, u'#')));
    EXPECT_FALSE(NumberPattern::isAcceptable(megabyteOf(u"0"_s)));
}
