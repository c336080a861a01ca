#pragma once

#include <QString>

#include <memory>

/// A date pattern in Unicode's notation (UTS #35), taken apart once and shared by all formatters
/// that use it. Immutable.
class NSDatePattern
{
public:
    /// The pattern for \a text, the same object for the same text as long as it is among those that
    /// were used last.
    static std::shared_ptr<const NSDatePattern> patternOf(const QString &text);

    explicit NSDatePattern(const QString &text);

    const QString text;
    /// Different for every object that ever was.
    const quint64 number;
    /// Whether it is "ha", the one pattern that reads an hour without AM or PM.
    bool isBareHour = false;
    /// Whether a month is read as a name.
    bool hasMonthName = false;

    // --- The year, if there is one ("y")

    /// How often the letter stands there; 0 if there is no year.
    int yearLetters = 0;
    /// What stands before it, a pattern again.
    QString beforeYear;
    /// The number of digits that the fields right behind it take from the same run.
    int digitsAfterYear = 0;

    /// Whether a year of \a digits digits fits, where widths are strict.
    bool takesYearOf(int digits) const;
};
