#include "CurrencyCandidates_p.h"

#include <KTUtility/Platform/Text/NSStringNormalization.h>

#include <unicode/ucurr.h>

#include <QHash>
#include <QMutex>
#include <QMutexLocker>

#include <algorithm>
#include <array>
#include <bitset>
#include <memory>
#include <utility>
#include <vector>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
/// No more of a text is read as an amount.
constexpr qsizetype MaximumLength = 1024;

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

/// A currency with everything that ICU reads as its name in one locale.
struct CurrencyNames
{
    QString code;
    std::vector<Name> names;
};

using AllNames = std::vector<CurrencyNames>;

/// One form for what ICU's lenient parser takes for the same: case, compatibility characters and
/// the look-alikes of signs (CLDR's lenient sets for currencies).
QString folded(const QString &text)
{
    return NSString::foldedStringWithCompatibilityMapping(text)
        .replace(QChar(u'₤'), QChar(u'£'))
        .replace(QChar(u'₨'), u"rs"_s)
        .replace(QChar(u'₹'), u"rs"_s);
}

QString pluralName(const QByteArray &locale, const QString &code, const char *count)
{
    UErrorCode status = U_ZERO_ERROR;
    int32_t length = 0;
    const UChar *const name =
        ucurr_getPluralName(reinterpret_cast<const UChar *>(QStringView(code).utf16()),
                            locale.constData(), nullptr, count, &length, &status);
    return U_SUCCESS(status) ? QString(reinterpret_cast<const QChar *>(name), length) : QString();
}

CurrencyNames namesOf(const NSLocale &locale, const QByteArray &identifier, const QString &code)
{
    static constexpr std::array counts{"zero", "one", "two", "few", "many", "other"};
    QStringList names{code, locale.displayNameForKey(NSLocaleCurrencySymbol, code),
                      locale.displayNameForKey(NSLocaleCurrencyCode, code)};
    if (locale.currencyCode() == code)
        names.append(locale.currencySymbol());
    for (const char *count : counts)
        names.append(pluralName(identifier, code, count));
    for (QString &name : names)
        name = folded(name).trimmed();
    names.removeDuplicates();
    names.removeAll(QString());
    CurrencyNames currency{code, {}};
    for (const QString &name : std::as_const(names))
        currency.names.push_back({name, UnitSet(name)});
    return currency;
}

std::shared_ptr<const AllNames> readNames(const NSLocale &locale)
{
    const QByteArray identifier = locale.localeIdentifier().toLatin1();
    auto currencies = std::make_shared<AllNames>();
    for (const QString &code : NSLocale::commonISOCurrencyCodes()) {
        if (!CurrencyCandidates::isRejected(code))
            currencies->push_back(namesOf(locale, identifier, code));
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
    const QString typed = folded(text.left(MaximumLength));
    const UnitSet units(typed);
    const std::shared_ptr<const AllNames> currencies = namesIn(locale);
    const auto occurs = [&](const Name &name) {
        return name.units.isWithin(units) && typed.contains(name.text);
    };
    QStringList codes;
    for (const CurrencyNames &currency : *currencies) {
        if (std::any_of(currency.names.begin(), currency.names.end(), occurs))
            codes.append(currency.code);
    }
    return codes;
}
