#include "CurrencyCandidates_p.h"

#include "CurrencyNames_p.h"
#include "NameSearch_p.h"

#include <QHash>
#include <QMutex>
#include <QMutexLocker>

#include <memory>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
/// The names of all currencies in one locale.
struct AllNames
{
    QStringList codes;
    NameSearch names; ///< each with the index of its code
};

std::shared_ptr<const AllNames> readNames(const NSLocale &locale)
{
    auto all = std::make_shared<AllNames>();
    for (const QString &code : NSLocale::commonISOCurrencyCodes()) {
        if (CurrencyCandidates::isRejected(code))
            continue;
        for (const QString &name : CurrencyNames::of(locale, code))
            all->names.add(name, all->codes.size());
        all->codes.append(code);
    }
    all->names.prepare();
    return all;
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
    const std::shared_ptr<const AllNames> all = namesIn(locale);
    QStringList codes;
    for (const qsizetype index : all->names.foundIn(typed))
        codes.append(all->codes[index]);
    return codes;
}
