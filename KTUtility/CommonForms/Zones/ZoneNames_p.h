#pragma once

// Private to the library. What people call zones, in each language.

#include "TypedZone_p.h"
#include <KTUtility/CommonForms/Text/PhraseTable_p.h>
#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Text/NSLocale.h>

#include <QByteArray>
#include <QString>

#include <memory>

namespace KTPrivate {
/// What a zone's name means: the time of some place, all the year or in one half of it.
struct ZoneMeaning
{
    QByteArray zone; ///< empty if the name means several zones
    TypedZone::Season season = TypedZone::Season::AsThen;

    friend bool operator==(const ZoneMeaning &, const ZoneMeaning &) = default;
};

/// The names and abbreviations of zones in a locale, as CLDR has them. Made once for each locale,
/// shared by all threads.
class KTUTILITY_EXPORT ZoneNames
{
public:
    static std::shared_ptr<const ZoneNames> namesOf(const NSLocale &locale);
    /// English abbreviations that CLDR has in some part of the world, and that mean the same
    /// everywhere: "CET", "AEST".
    static const PhraseTable<ZoneMeaning> &abbreviations();
    /// The identifier of a zone in its own spelling: "Europe/Berlin" for "europe/berlin"; empty if
    /// there is none.
    static QByteArray identifierOf(QStringView folded);

    explicit ZoneNames(const NSLocale &locale);

    const PhraseTable<ZoneMeaning> &names() const { return _names; }
    /// What stands before an offset in the locale, folded: "gmt".
    const QString &wordBeforeOffset() const { return _before; }
    /// What stands behind it.
    const QString &wordBehindOffset() const { return _behind; }
    /// What stands for an offset of zero.
    const QString &wordForUTC() const { return _zero; }

private:
    PhraseTable<ZoneMeaning> _names;
    QString _before;
    QString _behind;
    QString _zero;
};
} // namespace KTPrivate
