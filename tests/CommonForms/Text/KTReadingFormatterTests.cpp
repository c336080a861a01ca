// The switch for common forms, and what was understood.

#include <KTUtility/KTReadingFormatter>

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

namespace {
/// Takes every text as it is.
class TextFormatter : public KTReadingFormatter
{
public:
    bool getObjectValue(QVariant *value, const QString &forString,
                        QString * = nullptr) const override
    {
        *value = forString;
        if (readsCommonForms())
            setReading({u"text"_s, {{{0, forString.size()}, u"text"_s, forString}}, {}, {}, {}});
        return true;
    }
};
} // namespace

TEST(KTReadingFormatter, IsOffAtFirst)
{
    TextFormatter formatter;
    EXPECT_FALSE(formatter.readsCommonForms());
    QVariant value;
    formatter.getObjectValue(&value, u"a"_s);
    EXPECT_FALSE(formatter.reading().isRead());
    EXPECT_FALSE(formatter.optionsKeys().has_value());
}

TEST(KTReadingFormatter, TellsHowTheLastTextWasUnderstood)
{
    TextFormatter formatter;
    formatter.setReadsCommonForms(true);
    QVariant value;
    formatter.getObjectValue(&value, u"abc"_s);
    EXPECT_EQ(formatter.reading().form, u"text"_s);
    EXPECT_EQ(formatter.reading().parts, (QList<KTReadingPart>{{{0, 3}, u"text"_s, u"abc"_s}}));
    EXPECT_FALSE(formatter.reading().isAmbiguous());
    formatter.setReadsCommonForms(false);
    EXPECT_FALSE(formatter.reading().isRead());
}

TEST(KTReadingFormatter, AnnouncesTheSwitchOnce)
{
    TextFormatter formatter;
    int count = 0;
    QObject::connect(&formatter, &KTReadingFormatter::readsCommonFormsChanged,
                     [&count] { ++count; });
    formatter.setReadsCommonForms(true);
    formatter.setReadsCommonForms(true);
    EXPECT_EQ(count, 1);
}
