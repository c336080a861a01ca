#include <KTUtility/KTText>

#include "support/TestSupport.h"

#include <QStringBuilder>

using namespace Qt::StringLiterals;

namespace {
QString given(const KTText &text = {})
{
    return text;
}

const QString *addressOf(const KTText &text)
{
    return &text.string();
}

bool isNil(const KTText &text)
{
    return text.isNull();
}
} // namespace

TEST(KTText, TakesTextsOfEveryType)
{
    const QString text = u"é.name"_s;
    const QStringList texts{given(text),
                            given(u"é.name"),
                            given("é.name"),
                            given(QStringView(text)),
                            given(QLatin1String("\xE9.name")),
                            given(std::string_view("é.name")),
                            given(std::u16string(u"é.name")),
                            given(u"é"_s % u".name"_s)};
    for (const QString &each : texts)
        EXPECT_EQ(each, text);
}

TEST(KTText, KnowsNilFromEmpty)
{
    EXPECT_TRUE(isNil({}));
    EXPECT_TRUE(isNil(QString()));
    EXPECT_TRUE(isNil(QStringView()));
    EXPECT_FALSE(isNil(u""));
    EXPECT_FALSE(isNil(""));
    EXPECT_FALSE(isNil(u""_s));
    EXPECT_TRUE(given().isNull());
}

TEST(KTText, DoesNotCopyTexts)
{
    const QString text = u"text"_s;
    EXPECT_EQ(addressOf(text), &text);
}
