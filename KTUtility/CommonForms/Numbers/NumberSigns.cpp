#include "NumberSigns_p.h"

#include <KTUtility/CommonForms/Text/FoldedText_p.h>
#include <KTUtility/CommonForms/Text/SharedTables_p.h>

#include <KTUtility/Platform/Numbers/NSNumberFormatter.h>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
constexpr int CommonGroupSize = 3;

SharedTables<NumberSigns> &knownSigns()
{
    static SharedTables<NumberSigns> tables;
    return tables;
}

/// Signs that are more than one unit cannot be told from words.
void add(QString &signs, const QString &sign)
{
    // The blanks of a text are kept inside it only.
    const bool isBlank = sign.size() == 1 && sign.front().isSpace();
    const QString folded = isBlank ? QString(u' ') : FoldedText::folded(sign);
    if (folded.size() == 1 && !signs.contains(folded))
        signs += folded;
}

void setGroupSizes(NumberSigns &signs, const NSNumberFormatter &formatter)
{
    signs.groupSize = formatter.groupingSize() > 0 ? formatter.groupingSize() : signs.groupSize;
    signs.otherGroupSize =
        formatter.secondaryGroupingSize() > 0 ? formatter.secondaryGroupingSize() : signs.groupSize;
}

NumberSigns signsOf(const NSNumberFormatter &formatter)
{
    NumberSigns signs;
    add(signs.points, formatter.decimalSeparator());
    add(signs.groups, formatter.groupingSeparator());
    setGroupSizes(signs, formatter);
    signs.exponent = FoldedText::folded(formatter.exponentSymbol());
    static const QStringList languages{u"fa"_s, u"ckb"_s, u"ps"_s};
    const QString language = formatter.locale().localeIdentifier().section(u'_', 0, 0);
    signs.hasSlashAsPoint = languages.contains(language);
    return signs;
}

NumberSigns signsOfNumbers(const NSLocale &locale)
{
    NSNumberFormatter formatter;
    formatter.setLocale(locale);
    formatter.setNumberStyle(NSNumberFormatterDecimalStyle);
    NumberSigns signs = signsOf(formatter);
    // Groups of three are read in any case; percentages alone have others in a few locales.
    if (signs.groupSize == CommonGroupSize && signs.otherGroupSize == CommonGroupSize) {
        formatter.setNumberStyle(NSNumberFormatterPercentStyle);
        setGroupSizes(signs, formatter);
    }
    return signs;
}

NumberSigns signsOfMoney(const NSLocale &locale, const QString &code)
{
    NSNumberFormatter formatter;
    formatter.setLocale(locale);
    formatter.setNumberStyle(NSNumberFormatterCurrencyStyle);
    formatter.setCurrencyCode(code);
    NumberSigns signs = signsOf(formatter);
    signs.points.clear();
    signs.groups.clear();
    add(signs.points, formatter.currencyDecimalSeparator());
    add(signs.groups, formatter.currencyGroupingSeparator());
    return signs;
}
} // namespace

std::shared_ptr<const NumberSigns> NumberSigns::of(const NSLocale &locale)
{
    return knownSigns().tableOf(locale.localeIdentifier(),
                                [&locale] { return signsOfNumbers(locale); });
}

std::shared_ptr<const NumberSigns> NumberSigns::ofMoney(const NSLocale &locale, const QString &code)
{
    return knownSigns().tableOf(locale.localeIdentifier() + u' ' + code,
                                [&] { return signsOfMoney(locale, code); });
}
