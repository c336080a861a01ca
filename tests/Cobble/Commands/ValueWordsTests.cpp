#include "Commands/ValueWords.h"

#include "support/TestSupport.h"

#include "Text/Reasons.h"

#include <KTUtility/NSLocale>

using namespace Qt::StringLiterals;

namespace {
QString wordForDays()
{
    return QCoreApplication::translate("Durations", "days");
}

QString sentence()
{
    return QCoreApplication::translate("Localizable", "There is no such day.");
}
} // namespace

TEST(ValueWords, AreThoseOfTheLocaleWhileSentencesStayEnglish)
{
    testing_support::needApplication();
    const struct
    {
        const char16_t *locale;
        QString days;
    } rows[] = {{u"de_DE", u"Tage"_s},
                {u"fr_CA", u"jours"_s},
                {u"sv_SE", u"days"_s},
                {u"ja_JP", u"日間"_s},
                {u"en_US", u"days"_s}};
    for (const auto &row : rows) {
        ValueWords::install(NSLocale(QString::fromUtf16(row.locale)));
        EXPECT_EQ(wordForDays(), row.days);
        EXPECT_EQ(sentence(), u"There is no such day."_s);
        EXPECT_EQ(Reasons::tr("the file is empty"), u"the file is empty"_s);
    }
}
