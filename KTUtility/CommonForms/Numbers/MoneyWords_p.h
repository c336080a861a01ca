#pragma once

// Private to the library. For what reads and imports amounts of money.

#include <KTUtility/CommonForms/Text/PhraseTable_p.h>

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Text/NSLocale.h>

#include <QStringList>

#include <memory>

namespace KTPrivate {
/// What stands beside an amount.
enum class MoneyWord {
    Code,      ///< "USD"
    Sign,      ///< "$", "kr.", "руб"
    Name,      ///< "US dollars", "dollars"
    FullName,  ///< "US dollars"
    Qualifier, ///< what says no more than which: "US", "Canada"
};

/// What people in a locale write for one currency: its code, its signs in all widths, its names in
/// all plurals and their words, in the locale's language and in English.
class KTUTILITY_EXPORT MoneyWords
{
public:
    static std::shared_ptr<const MoneyWords> of(const NSLocale &locale, const QString &code);

    MoneyWords(const NSLocale &locale, const QString &code);

    /// The longest that stands at a place of a folded text.
    PhraseTable<MoneyWord>::Match longestAt(QStringView folded, qsizetype position) const
    {
        return _phrases.longestAt(folded, position);
    }
    /// Whether a word is one of the names in a case that the locale's data does not list.
    bool isInflectedName(QStringView word) const;

private:
    void addSigns(const QString &code, const QByteArray &locale);
    void addName(const QString &name, const QString &code);
    void addStems(const QStringList &names, const QString &code);
    void addUnitsWithin(const QString &name);

    PhraseTable<MoneyWord> _phrases;
    QStringList _names; ///< folded single words that name the unit
};

/// The common currency whose code, sign or name in a locale stands first in a folded text; nil if
/// there is none. Signs that several currencies have are nobody's.
KTUTILITY_EXPORT QString currencyNamedIn(const NSLocale &locale, QStringView folded);

/// How long the longest full name of common currencies is that stands at a place of a folded text; 0
/// if there is none, or if it is that of the given currency as well.
KTUTILITY_EXPORT qsizetype otherCurrencyAt(const NSLocale &locale, const QString &code,
                                           QStringView folded, qsizetype position);
} // namespace KTPrivate
