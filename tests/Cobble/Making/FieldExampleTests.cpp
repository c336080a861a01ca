#include "Making/FieldExample.h"

#include "support/TestSupport.h"

#include <KTUtility/KTOptionsKeys>
#include <KTUtility/NSLocale>

using namespace Qt::StringLiterals;

TEST(FieldExampleTests, ShowsWhatTheSettingsDo)
{
    NSLocale::setCurrentLocale(NSLocale(u"en_US"_s));
    const struct
    {
        FieldType type;
        QVariantMap options;
        QString example;
    } rows[] = {
        {FieldType::Text, {}, {}},
        {FieldType::Media, {}, {}},
        {FieldType::Phone, {}, {}},
        {FieldType::Number, {{kKTFieldOption_decimalPlaces, 3u}}, u"-1,234.500"_s},
        {FieldType::Currency, {{kKTFieldOption_currencyType, u"EUR"_s}}, u"-€1,234.50"_s},
        {FieldType::Date, {}, u"3/4/2008"_s},
    };
    for (const auto &row : rows) {
        LibraryField field;
        field.type = row.type;
        field.options = row.options;
        EXPECT_EQ(FieldExample::of(field), row.example);
    }
    NSLocale::resetCurrentLocale();
}
