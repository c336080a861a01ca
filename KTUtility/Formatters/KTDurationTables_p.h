#pragma once

#include <KTUtility/CommonForms/Numbers/DurationWords_p.h>
#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Values/NSDecimalNumber.h>

#include <QHash>
#include <QStringList>

/// The words of durations in the program's language, from weeks to seconds.
class KTUTILITY_EXPORT KTDurationTables
{
public:
    /// Those of the program, looked up once.
    static const KTDurationTables &shared();

    /// Looks the words up in the translations that are installed now.
    KTDurationTables();

    QStringList abbreviations;
    QStringList singularNames;
    QStringList pluralNames;
    /// Each word's seconds.
    QHash<QString, NSDecimalNumber> convertToSeconds;
    /// The same words for common forms.
    KTPrivate::PhraseTable<KTPrivate::DurationWord> phrases;
};
