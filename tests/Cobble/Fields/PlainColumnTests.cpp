#include "Fields/PlainColumn.h"

#include "Fields/FieldReader.h"
#include "Library/StoredValue.h"

#include "support/InZone.h"
#include "support/TestSupport.h"

#include <QRandomGenerator>

using namespace Qt::StringLiterals;

namespace {
/// A column that is read as imports do.
class ReadColumn
{
public:
    ReadColumn(FieldType type, const QString &locale, const QStringList &texts)
        : _reader(type, NSLocale(locale))
    {
        std::optional<KTColumnReading> column = _reader.newColumn();
        for (const QString &text : texts) {
            if (column)
                column->add(text);
        }
        if (column)
            _reader.setColumn(*column);
    }

    /// Invalid for what is refused.
    QVariant stored(const QString &text) const
    {
        const Outcome<QVariant> value = _reader.read(text, true);
        return value ? StoredValue::forDatabase(*value) : QVariant();
    }
    const FieldReader &reader() const { return _reader; }

private:
    FieldReader _reader;
};

std::string described(const QVariant &value)
{
    return std::string(value.typeName() ? value.typeName() : "none") + ' ' +
           value.toString().toStdString();
}

/// Reads the texts of a column with and without what was learnt.
/// \return how many texts needed no reader.
qsizetype knownAmong(const QStringList &texts, FieldType type, const QString &locale)
{
    const ReadColumn slow(type, locale, texts);
    const ReadColumn asked(type, locale, texts);
    PlainColumn plain(asked.reader());
    qsizetype knownCount = 0;
    for (const QString &text : texts) {
        const QVariant expected = slow.stored(text);
        QVariant value = plain.valueOf(text);
        knownCount += value.isValid();
        if (!value.isValid()) {
            value = asked.stored(text);
            plain.learn(value);
        }
        EXPECT_EQ(described(value), described(expected))
            << text.toStdString() << " in " << locale.toStdString();
    }
    return knownCount;
}

/// Texts that are made by chance, always the same.
class Texts
{
public:
    explicit Texts(quint32 seed) : _random(seed) {}

    QStringList many(const QStringList &forms, int count)
    {
        QStringList texts;
        for (int index = 0; index < count; ++index)
            texts += one(forms.at(_random.bounded(int(forms.size()))));
        return texts;
    }

private:
    /// "9" stands for a digit, "d" for a day and so on, "#" for no, one or two digits.
    QString one(const QString &form)
    {
        QString text;
        for (const QChar unit : form)
            text += part(unit.unicode());
        return text;
    }
    QString part(char16_t unit)
    {
        switch (unit) {
        case u'9':
            return number(10);
        case u'#':
            return QStringList{QString(), number(10), number(100)}.at(_random.bounded(3));
        case u'd':
            return QString::number(1 + _random.bounded(_random.bounded(8) ? 12 : 31));
        case u'D':
            return QString::number(1 + _random.bounded(31)).rightJustified(2, u'0');
        case u'm':
            return QString::number(1 + _random.bounded(_random.bounded(20) ? 12 : 14));
        case u'M':
            return QString::number(1 + _random.bounded(12)).rightJustified(2, u'0');
        case u'y':
            return QString::number(1890 + _random.bounded(180));
        case u'h':
            return QString::number(_random.bounded(13));
        case u'H':
            return QString::number(_random.bounded(24)).rightJustified(2, u'0');
        case u's':
            return QString::number(_random.bounded(_random.bounded(20) ? 60 : 70))
                .rightJustified(2, u'0');
        case u'x':
            return _random.bounded(2) ? u"AM"_s : u"PM"_s;
        default:
            return QString(QChar(unit));
        }
    }
    /// Zeros are where readers differ.
    QString number(int end)
    {
        return QString::number(_random.bounded(3) ? _random.bounded(end) : 0);
    }

    QRandomGenerator _random;
};

const QStringList &locales()
{
    static const QStringList all{u"en_US"_s, u"en_GB"_s, u"de_DE"_s, u"de_CH"_s, u"de_AT"_s,
                                 u"fr_FR"_s, u"es_ES"_s, u"pl_PL"_s, u"sv_SE"_s, u"pt_BR"_s,
                                 u"en_IN"_s, u"ja_JP"_s, u"ar_EG"_s, u"fa_IR"_s, u"th_TH"_s,
                                 u"ko_KR"_s, u"en_ZA"_s, u"hu_HU"_s, u"zh_CN"_s, u"ru_RU"_s};
    return all;
}

/// Columns of one form each, and of all forms.
void compare(const QStringList &forms, FieldType type, int count)
{
    Texts texts(7);
    for (const QString &locale : locales()) {
        for (const QString &form : forms)
            knownAmong(texts.many({form}, count), type, locale);
        knownAmong(texts.many(forms, count * 10), type, locale);
    }
}

const QStringList NumberForms{
    u"9#"_s,        u"9#9.99"_s, u"9.9#"_s,  u"9,999.99"_s, u"9.999,9#"_s, u"9,999"_s,
    u"9.999"_s,     u"-9#.9"_s,  u"(9#9)"_s, u"9 999,99"_s, u"9'999.9#"_s, u"9,99,999.9"_s,
    u"9 999 999"_s, u"9/9"_s,    u"9e9"_s,   u"9 9/9"_s,    u"9%"_s,       u"99.9.2016"_s,
    u"9,9"_s,       u"+9.#"_s,   u".99"_s,   u"9\u00BD"_s,  u"9-"_s,       u"99 cows"_s};
} // namespace

TEST(PlainColumn, TheExampleOfTheHeader)
{
    const testing_support::InZone inZone("America/New_York");
    const FieldReader reader(FieldType::Date);
    PlainColumn column(reader);
    EXPECT_FALSE(column.valueOf(u"3/5/2008"_s).isValid());
    column.learn(StoredValue::forDatabase(*reader.read(u"3/5/2008"_s, true)));
    EXPECT_EQ(column.valueOf(u"4/6/2009"_s).toString(), u"2009-04-06T12:00:00-04:00");
}

TEST(PlainColumn, AsksTheReaderAboutWhatIsNothingInItsWay)
{
    const QStringList texts{u"3/5/2008"_s, u"13/5/2008"_s, u"4/6/2009"_s, u"4/31/2009"_s};
    EXPECT_EQ(knownAmong(texts, FieldType::Date, u"en_US"_s), 1);
}

TEST(PlainColumn, DoesNotTakeOneOfTwoWaysAsLongAsBothAreLeft)
{
    // A day that can be no month does not say what becomes of one that can; nor does the same number
    // twice.
    const QStringList texts{u"7/17/2008"_s, u"5/17/2008"_s, u"7/7/2008"_s, u"5/6/2008"_s,
                            u"8/8/2008"_s,  u"6/7/2008"_s,  u"17/7/2008"_s};
    EXPECT_EQ(knownAmong(texts, FieldType::Date, u"en_US"_s), 3);
}

TEST(PlainColumn, AsksAboutDaysThatCanBeNoMonthsByThemselves)
{
    // The column has years first, which 11/09 does not contradict, and 23/07 does.
    const QStringList texts{u"1963/07/23"_s, u"1964/08/24"_s, u"1965/09/25"_s, u"1966/01/26"_s,
                            u"11/09/2007"_s, u"12/08/2007"_s, u"23/07/1963"_s, u"24/07/1963"_s};
    for (const QString &locale : {u"sv_SE"_s, u"ja_JP"_s, u"hu_HU"_s, u"de_DE"_s})
        knownAmong(texts, FieldType::Date, locale);
}

TEST(PlainColumn, NeedsTheReaderForFewTextsOfAColumn)
{
    Texts texts(1);
    const auto known = [&](const QString &form, FieldType type) {
        return knownAmong(texts.many({form}, 1000), type, u"en_US"_s);
    };
    EXPECT_GT(known(u"9#9.99"_s, FieldType::Number), 900);
    EXPECT_GT(known(u"9,999"_s, FieldType::Number), 950);
    EXPECT_GT(known(u"$9#.99"_s, FieldType::Currency), 900);
    EXPECT_GT(known(u"m/d/y"_s, FieldType::Date), 800);
    EXPECT_GT(known(u"M/D/y"_s, FieldType::Date), 800);
    EXPECT_GT(known(u"y-M-D"_s, FieldType::Date), 800);
    EXPECT_GT(known(u"m/d/y h:s x"_s, FieldType::DateTime), 700);
    EXPECT_GT(known(u"y-M-DTH:s:s"_s, FieldType::DateTime), 700);
    EXPECT_GT(known(u"h:s x"_s, FieldType::Time), 700);
    EXPECT_GT(known(u"H:s:s"_s, FieldType::Duration), 800);
    EXPECT_EQ(known(u"(999) 999-9999"_s, FieldType::Phone), 1000);
}

TEST(PlainColumn, SaysOfNumbersWhatTheirReaderSays)
{
    compare(NumberForms, FieldType::Number, 60);
}

TEST(PlainColumn, SaysOfAmountsWhatTheirReaderSays)
{
    const QStringList forms =
        NumberForms + QStringList{u"$9,999.99"_s, u"9.999,99 \u20AC"_s, u"EUR 9.9#"_s, u"9 euros"_s,
                                  u"-$9.99"_s,    u"$-9.9"_s,           u"($9.99)"_s,  u"Rs.99"_s,
                                  u"9.-"_s,       u"CHF 9'999.9#"_s,    u"9 c"_s,      u"99 kr"_s};
    compare(forms, FieldType::Currency, 40);
}

TEST(PlainColumn, SaysOfDatesWhatTheirReaderSays)
{
    const QStringList forms{u"m/d/y"_s, u"d/m/y"_s,   u"M/D/y"_s, u"D/M/y"_s,  u"y-M-D"_s,
                            u"y/m/d"_s, u"D.M.y"_s,   u"d.m.y"_s, u"d-m-y"_s,  u"9/9/99"_s,
                            u"y.M.D"_s, u"d. m. y"_s, u"9-9"_s,   u"d/m/99"_s, u"y-M-D Z"_s};
    for (const char *const zone : {"UTC", "America/New_York", "Pacific/Apia"}) {
        const testing_support::InZone inZone(zone);
        compare(forms, FieldType::Date, 40);
    }
}

TEST(PlainColumn, SaysOfDatesWithTimesWhatTheirReaderSays)
{
    const QStringList forms{u"m/d/y h:s x"_s,    u"d/m/y H:s"_s,     u"y-M-D H:s:s"_s,
                            u"y-M-DTH:s:s"_s,    u"D.M.y, H:s"_s,    u"m/d/y, h:sx"_s,
                            u"y-M-DTH:s:sZ"_s,   u"y-M-D H:s PST"_s, u"M/D/y H:s"_s,
                            u"y-M-DTH:s+02:00"_s};
    for (const char *const zone : {"UTC", "Europe/Berlin", "America/Los_Angeles"}) {
        const testing_support::InZone inZone(zone);
        compare(forms, FieldType::DateTime, 40);
    }
}

TEST(PlainColumn, SaysOfTimesAndDurationsWhatTheirReadersSay)
{
    const QStringList forms{u"h:s x"_s, u"H:s"_s,    u"H:s:s"_s,  u"h:s"_s,     u"h:s:s x"_s,
                            u"9h 9m"_s, u"99:s:s"_s, u"999:s"_s,  u"s.9"_s,     u"h:s.9"_s,
                            u"-h:s"_s,  u"9:9"_s,    u"99 min"_s, u"99:99:99"_s};
    const testing_support::InZone inZone("Europe/Berlin");
    compare(forms, FieldType::Time, 40);
    compare(forms, FieldType::Duration, 40);
}
