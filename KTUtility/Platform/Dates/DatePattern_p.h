#pragma once

// Private to the library. For whatever takes patterns apart.

#include <KTUtility/KTUtilityExport.h>

#include <QString>
#include <QStringView>

#include <memory>
#include <vector>

namespace KTPrivate {
/// A field of a pattern, or the characters between two fields.
struct DateElement
{
    enum class Kind : quint8 {
        Literal,
        Number,    ///< y yy yyyy M MM L LL d h H k K m s, and more letters of the time
        MonthName, ///< MMM and more, LLL and more
        Weekday,   ///< E
        HalfOfDay, ///< a
        Other      ///< what is left to ICU
    };

    Kind kind = Kind::Other;
    char16_t letter = 0;
    int count = 0;
    /// How many characters a number needs at least: all of "dd", "mm" and "ss", and of some rarer
    /// fields, one of the others. Numbers that share their digits with a neighbour have 1 here.
    int minimalDigits = 1;
    /// Where it starts in the pattern.
    qsizetype start = 0;
    /// A literal's characters, and the same as they are looked for: a space is any run of
    /// whitespace.
    QString characters;
    QString sought;

    /// Whether it is the name that a zone has at a time ("PST", "Pacific Standard Time").
    bool isZoneName() const { return letter == u'z' && count <= 4; }
};

/// How many digits "yy" takes in a text.
enum class DateYears : quint8 {
    AsWide, ///< two
    OfStyle ///< two or four: who shows a style's dates may widen its year
};

/// What stands before the time in a pattern of a date and a time behind a space, with the space.
struct DatePrefix
{
    /// The same for all patterns in which it is read alike; 0 if there is no such part.
    quint64 number = 0;
    /// How many elements it has.
    size_t count = 0;
};

/// A date pattern in Unicode's notation (UTS #35), taken apart once and shared by all formatters
/// that use it. Immutable.
class KTUTILITY_EXPORT DatePattern
{
public:
    /// The pattern for \a text, the same object for the same text as long as it is among those that
    /// were used last.
    static std::shared_ptr<const DatePattern> patternOf(const QString &text,
                                                        DateYears years = DateYears::AsWide);

    explicit DatePattern(const QString &text, DateYears years = DateYears::AsWide);

    const QString text;
    /// Different for every object that ever was.
    const quint64 number;
    /// Whether it is "ha", the one pattern that reads an hour without AM or PM.
    const bool isBareHour;
    /// Whether a month is read as a name.
    bool hasMonthName = false;
    /// Whether a part of the day is read ("in the morning").
    bool hasDayPeriod = false;
    /// Whether a time zone is read.
    bool hasZone = false;
    /// Whether some number needs more than one character.
    bool hasMinimalDigits = false;

    // --- The year, if there is one ("y")

    /// How often the letter stands there; 0 if there is no year.
    int yearLetters = 0;
    /// What stands before it, a pattern again.
    QString beforeYear;
    /// The number of digits that the fields right behind it take from the same run.
    int digitsAfterYear = 0;

    /// Whether a year of \a digits digits fits, where widths are strict.
    bool takesYearOf(int digits) const;

    const std::vector<DateElement> &elements() const { return _elements; }
    /// The date before the time. Whatever follows, it fits the same part of a text.
    const DatePrefix &datePrefix() const { return _datePrefix; }
    /// The kind of the first element.
    DateElement::Kind leadingKind() const { return _leadingKind; }
    /// The character behind a leading number or month; a space is any whitespace, 0 is no particular
    /// one.
    char16_t unitAfterLead() const { return _unitAfterLead; }
    /// The letter of the first element; 0 if that is no field.
    char16_t leadingLetter() const { return _leadingLetter; }
    /// Whether the leading element reads a month.
    bool isLedByMonth() const { return _isLedByMonth; }
    /// Whether some element is left to ICU.
    bool needsICU() const { return _needsICU; }
    /// Whether some element but zones' names is left to ICU.
    bool needsICUForMoreThanZones() const { return _needsICUForMoreThanZones; }

private:
    void appendField(qsizetype at, qsizetype end);
    void appendLiteral(QStringView source);
    void setYear(qsizetype at, qsizetype end);
    void leaveAdjacentNumbersToICU();

    void noteLead();
    void noteDatePrefix();

    std::vector<DateElement> _elements;
    DatePrefix _datePrefix;
    DateElement::Kind _leadingKind = DateElement::Kind::Other;
    char16_t _leadingLetter = 0;
    char16_t _unitAfterLead = 0;
    bool _isLedByMonth = false;
    bool _needsICU = false;
    bool _needsICUForMoreThanZones = false;
    const DateYears _years;
};
} // namespace KTPrivate
