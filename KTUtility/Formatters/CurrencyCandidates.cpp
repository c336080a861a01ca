#include "CurrencyCandidates_p.h"

#include "CurrencyNames_p.h"

#include <QHash>
#include <QMutex>
#include <QMutexLocker>

#include <algorithm>
#include <bitset>
#include <memory>
#include <vector>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
/// Which units a text has, by their low bits: a text cannot be part of one that lacks some of them.
class UnitSet
{
public:
    UnitSet() = default;
    explicit UnitSet(const QString &text)
    {
        for (const QChar unit : text)
            _bits.set(unit.unicode() % _bits.size());
    }

    bool isWithin(const UnitSet &other) const { return (_bits & ~other._bits).none(); }

private:
    std::bitset<256> _bits;
};

struct Name
{
    QString text;
    UnitSet units;
};

/// A currency with everything that is read as its name in one locale.
struct CurrencyWords
{
    QString code;
    std::vector<Name> names;
};

using AllNames = std::vector<CurrencyWords>;

CurrencyWords namedCurrency(const NSLocale &locale, const QString &code)
{
    CurrencyWords currency{code, {}};
    const QStringList names = CurrencyNames::of(locale, code);
    for (const QString &name : names)
        currency.names.push_back({name, UnitSet(name)});
    return currency;
}

std::shared_ptr<const AllNames> readNames(const NSLocale &locale)
{
    auto currencies = std::make_shared<AllNames>();
    for (const QString &code : NSLocale::commonISOCurrencyCodes()) {
        if (!CurrencyCandidates::isRejected(code))
            currencies->push_back(namedCurrency(locale, code));
    }
    return currencies;
}

/// The names of all currencies, read once for each locale.
std::shared_ptr<const AllNames> namesIn(const NSLocale &locale)
{
    static QMutex mutex;
    static QHash<QString, std::shared_ptr<const AllNames>> known;
    const QMutexLocker lock(&mutex);
    std::shared_ptr<const AllNames> &names = known[locale.localeIdentifier()];
    if (!names)
        names = readNames(locale);
    return names;
}
} // namespace

bool CurrencyCandidates::isRejected(const QString &code)
{
    return code.isNull() || code == u"INR" || code == u"RON";
}

QStringList CurrencyCandidates::of(const NSLocale &locale, const QString &text)
{
    const QString typed = CurrencyNames::folded(text.left(CurrencyNames::MaximumLength));
    const UnitSet units(typed);
    const std::shared_ptr<const AllNames> currencies = namesIn(locale);
    const auto occurs = [&](const Name &name) {
        return name.units.isWithin(units) && typed.contains(name.text);
    };
    QStringList codes;
    for (const CurrencyWords &currency : *currencies) {
        if (std::any_of(currency.names.begin(), currency.names.end(), occurs))
            codes.append(currency.code);
    }
    return codes;
}
