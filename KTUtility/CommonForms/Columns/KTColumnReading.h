#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Text/NSLocale.h>

#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <array>

class NSFormatter;

/// What all texts of a column say together about how each of them is meant.
///
/// "3/2/2016" alone may be in February or in March. In a column with "13/2/2016" it is in February,
/// because the two were typed by the same hand. So it is with "1.234" in a column with "1,5", and
/// with "1:30" in one with "2:04.5". Whoever reads a column hands all of its texts over first, and
/// then has each of them read:
///
/// \code
/// KTColumnReading column(KTColumnReading::Dates, NSLocale(u"en_US"_s));
/// for (const QString &text : {u"3/2/2016"_s, u"13/2/2016"_s})
///     column.add(text);
/// column.convention();                                      // "dmy"
/// column.basis();                                           // KTColumnReading::Values
/// column.getObjectValue(formatter, &value, u"3/2/2016"_s);  // 3 February
/// \endcode
///
/// **What decides.** A text is in favour of all conventions that it is possible in. If there is one
/// that all texts are possible in, it is theirs; the locale's own goes before others. If there is
/// none, that which nine in ten of the texts that decide anything are possible in; the others
/// contradict it. Where that is not so, two hands have typed the column and nothing is decided: the
/// locale's own convention holds, as it does where no text decides.
///
/// Takes time in proportion to the texts, and memory that does not grow with their number.
class KTUTILITY_EXPORT KTColumnReading
{
public:
    /// What is in the column.
    enum Kind {
        Dates,    ///< dates, also with times; "mdy", "dmy" and "ymd": what comes first
        Numbers,  ///< "." and ",": what stands before the fraction
        Amounts,  ///< the same for money
        Durations ///< "h:m" and "m:s": what "1:30" is
    };

    /// Why the texts are read as they are.
    enum Basis {
        Locale, ///< no text decides
        Values, ///< the texts decide
        Mixed,  ///< they contradict each other too often: as if none decided
        Told    ///< setConvention()
    };

    /// No more contradictions than these are listed; all are counted.
    static constexpr qsizetype MostListed = 1000;

    /// For a column that is read in a locale.
    explicit KTColumnReading(Kind kind, const NSLocale &locale = NSLocale::currentLocale());

    /// The conventions that there are for a kind.
    static const QStringList &conventionsOf(Kind kind);

    /// What the column holds.
    Kind kind() const { return _kind; }
    /// Takes the next text of the column into account, whatever it is.
    void add(const QString &text);
    /// Says what holds, whatever the texts say; nil leaves it to them.
    /// \return false if the kind has no such convention; then nothing changes.
    bool setConvention(const QString &convention);

    /// What holds.
    QString convention() const;
    /// What decided it.
    Basis basis() const;
    /// What holds in the locale.
    QString localeConvention() const;

    /// How many texts were added.
    qsizetype textCount() const { return _textCount; }
    /// How many texts are possible in several conventions.
    qsizetype ambiguousCount() const;
    /// How many texts are possible in this convention and not in all.
    qsizetype decidingCount(const QString &convention) const;
    /// How many texts are not possible in convention() but in another.
    qsizetype contradictionCount() const;
    /// The first of them, by the order in which they were added, from 0.
    QList<qsizetype> contradictions() const;
    /// Whether a text is not possible in convention() but in another.
    bool contradicts(const QString &text) const;

    /// A text of the column as it is typed in the locale: "3/2/2016" for "2/3/2016". The text itself
    /// if nothing has to be changed, or if it contradicts.
    QString textForLocale(const QString &text) const;
    /// Has a text of the column read by a formatter in the locale.
    ///
    /// What contradicts is not read, unless the column is Mixed: then it is read in the only way in
    /// which it is possible, if the formatter does.
    /// \param errorDescription receives contradictionDescription(), or what the formatter says.
    bool getObjectValue(const NSFormatter &formatter, QVariant *value, const QString &text,
                        QString *errorDescription = nullptr) const;
    /// Why a text that contradicts is not read, in the language of the program, which can tell it by
    /// this from other reasons.
    static QString contradictionDescription();

private:
    /// A bit for each convention that a text is possible in.
    static constexpr unsigned MostSets = 8;

    unsigned allConventions() const;
    size_t conventionIndex() const;
    size_t decidedIndex(Basis *basis) const;
    qsizetype countAgainst(size_t index) const;
    qsizetype decidingTexts() const;

    /// What holds, and whether the texts have to be in it.
    struct Decision
    {
        size_t index;
        bool holds;
    };
    Decision decision() const;
    QString typedInLocale(const QString &text, unsigned possible, const Decision &decision) const;
    QString reorderedDate(const QString &text, size_t index) const;

    Kind _kind;
    NSLocale _locale;
    QString _localeForm;
    size_t _localeIndex = 0;
    int _toldIndex = -1;
    qsizetype _textCount = 0;
    std::array<qsizetype, MostSets> _counts{};
    std::array<QList<qsizetype>, MostSets> _firstTexts;
};
