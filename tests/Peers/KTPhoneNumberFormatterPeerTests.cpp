// The layouts of phone numbers beside those of libphonenumber: all of its examples and a thousand
// random numbers of every country that has a layout.

#include <KTUtility/KTPhoneNumberFormatter>

#include "support/TestSupport.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QRegularExpression>

#include <phonenumbers/phonenumberutil.h>
#include <random>
#include <set>
#include <string>

using namespace Qt::StringLiterals;
using namespace testing_support;
using i18n::phonenumbers::PhoneNumber;
using i18n::phonenumbers::PhoneNumberUtil;

namespace {
constexpr int RandomNumbers = 1000;
constexpr int MostTries = 200'000;

const PhoneNumberUtil &peer()
{
    return *PhoneNumberUtil::GetInstance();
}

QString shownByPeer(const PhoneNumber &number, PhoneNumberUtil::PhoneNumberFormat format)
{
    std::string text;
    peer().Format(number, format, &text);
    return QString::fromStdString(text);
}

/// The digits of a number without country code and trunk prefix.
std::string significant(const PhoneNumber &number)
{
    std::string digits;
    peer().GetNationalSignificantNumber(number, &digits);
    return digits;
}

PhoneNumber numberOf(const std::string &region, const std::string &digits)
{
    PhoneNumber number;
    number.set_country_code(peer().GetCountryCodeForRegion(region));
    number.set_national_number(std::stoull(digits));
    const size_t zeros = std::min(digits.find_first_not_of('0'), digits.size() - 1);
    if (zeros > 0) {
        number.set_italian_leading_zero(true);
        number.set_number_of_leading_zeros(int(zeros));
    }
    return number;
}

/// An example of each kind: fixed, mobile, free of charge, premium and so on.
QList<PhoneNumber> examplesOf(const std::string &region)
{
    QList<PhoneNumber> examples;
    std::set<PhoneNumberUtil::PhoneNumberType> types;
    peer().GetSupportedTypesForRegion(region, &types);
    for (const PhoneNumberUtil::PhoneNumberType type : types) {
        PhoneNumber example;
        if (peer().GetExampleNumberForType(region, type, &example))
            examples.append(example);
    }
    return examples;
}

/// The countries of the table, with their format indexes.
QList<std::pair<std::string, int>> countries()
{
    QList<std::pair<std::string, int>> found;
    for (const QJsonObject &row : rowsOf(u"formatters/phones.jsonl"_s)) {
        const QStringList codes = row[u"country"].toString().split(u' ');
        for (const QString &code : codes)
            found.append({code.toStdString(), row[u"index"].toInt()});
    }
    return found;
}

/// Numbers that begin as the examples do, for some digits or for many.
class SomeNumbers
{
public:
    explicit SomeNumbers(const std::string &region) : _region(region), _examples(examplesOf(region))
    {
    }

    QList<PhoneNumber> valid(int count)
    {
        QList<PhoneNumber> numbers;
        EXPECT_FALSE(_examples.isEmpty()) << _region;
        for (int tries = _examples.isEmpty() ? MostTries : 0;
             numbers.size() < count && tries < MostTries; ++tries) {
            const PhoneNumber number = any();
            if (peer().IsValidNumberForRegion(number, _region))
                numbers.append(number);
        }
        return numbers;
    }

private:
    int below(size_t limit) { return int(_engine() % limit); }

    PhoneNumber any()
    {
        std::string digits = significant(_examples.at(below(_examples.size())));
        const int length = int(digits.size()) + (below(4) == 0 ? below(5) - 2 : 0);
        digits.resize(below(digits.size()));
        while (int(digits.size()) < length)
            digits += char('0' + below(10));
        return numberOf(_region, digits.empty() ? "0" : digits);
    }

    const std::string _region;
    const QList<PhoneNumber> _examples;
    std::mt19937 _engine; // begins the same every time
};

QStringList groupsOf(const QString &text)
{
    static const QRegularExpression separators(u"[^0-9+]+"_s);
    return text.split(separators, Qt::SkipEmptyParts);
}

QString withoutPunctuation(QString text)
{
    return text.remove(QRegularExpression(u"[-() ./]"_s));
}

/// How the numbers of a country are shown.
struct Outcome
{
    void add(const KTPhoneNumberFormatter &formatter, const QString &expected)
    {
        const QString typed = withoutPunctuation(expected);
        const QString shown = formatter.stringForObjectValue(typed);
        ++count;
        if (groupsOf(shown) == groupsOf(expected))
            ++same;
        else if (shown != typed)
            others.append(expected + u" as "_s + shown);
        else
            untouched.append(expected);
    }

    int count = 0;
    int same = 0;
    QStringList untouched; ///< as they were typed
    QStringList others;    ///< neither as the peer shows them nor as they were typed
};

void expectSame(const Outcome &outcome, const std::string &region, int leastPercent)
{
    EXPECT_GE(outcome.same * 100, outcome.count * leastPercent)
        << region << ": " << outcome.same << " of " << outcome.count << ", not "
        << qPrintable(outcome.untouched.join(u", "_s).left(500));
    EXPECT_EQ(outcome.others, QStringList()) << region << ": " << outcome.others.size()
                                             << ", such as " << qPrintable(outcome.others.value(0));
}

Outcome outcomeOf(const std::string &region, int index, PhoneNumberUtil::PhoneNumberFormat format)
{
    KTPhoneNumberFormatter formatter;
    formatter.setFormatIndex(index);
    const QList<PhoneNumber> numbers =
        examplesOf(region) + SomeNumbers(region).valid(RandomNumbers);
    Outcome outcome;
    for (const PhoneNumber &number : numbers)
        outcome.add(formatter, shownByPeer(number, format));
    return outcome;
}
} // namespace

TEST(KTPhoneNumberFormatterPeer, GroupsNationalNumbersAsItsPeerDoes)
{
    const auto all = countries();
    EXPECT_GE(all.size(), 60);
    for (const auto &[region, index] : all) {
        const Outcome outcome = outcomeOf(region, index, PhoneNumberUtil::NATIONAL);
        EXPECT_GT(outcome.count, RandomNumbers) << region;
        expectSame(outcome, region, 98);
    }
}

TEST(KTPhoneNumberFormatterPeer, GroupsInternationalNumbersAsItsPeerDoes)
{
    for (const auto &[region, index] : countries()) {
        const Outcome outcome = outcomeOf(region, index, PhoneNumberUtil::INTERNATIONAL);
        expectSame(outcome, region, 80); // some are not meant to be dialled from abroad
    }
}
