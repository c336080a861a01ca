#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Dates/DatePattern_p.h>
#include <KTUtility/Platform/Dates/NSDateFormatter.h>

#include <unicode/unistr.h>

#include <QString>
#include <QStringView>

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace KTPrivate {
/// What a shown text says, as far as digits and names say it.
struct ShownFields
{
    std::optional<int> year;
    std::optional<int> commonYear; ///< of the Gregorian calendar, in which the year begins
    std::optional<int> month;      ///< from 1
    std::optional<int> day;
    std::optional<int> hour; ///< of the day, or of its half
    std::optional<int> half; ///< 1 is after noon
    int minute = 0;
    int second = 0;
};

/// A pattern with the names of a locale, ready to take apart what was shown with it.
class KTUTILITY_EXPORT ShownDatePattern
{
public:
    /// The pattern of a formatter. Shared by all fields with the same pattern in the same locale.
    static std::shared_ptr<const ShownDatePattern> patternOf(const NSDateFormatter &formatter);

    explicit ShownDatePattern(const NSDateFormatter &formatter);

    /// Takes a text apart in each way in which it can be done, until one is accepted.
    /// \return whether one was.
    bool takeApart(QStringView text, const std::function<bool(const ShownFields &)> &accepts) const;

    bool hasDay() const { return _hasDay; }
    bool hasTime() const { return _hasTime; }
    bool hasZone() const { return _pattern->hasZone; }
    /// Whether hours are counted to 12.
    bool hasHalves() const { return _hasHalves; }

private:
    struct Name
    {
        QString text;
        int number;
    };
    enum class ElementKind : quint8 { Literal, Number, Name, Wildcard };
    struct Element
    {
        const DateElement *element;
        std::vector<Name> names; ///< the longest first
        ElementKind kind;
    };
    class Match;

    static Element elementOf(const DateElement &element, std::span<const icu::UnicodeString> names);
    void note(const DateElement &element);

    std::shared_ptr<const DatePattern> _pattern;
    std::vector<Element> _elements;
    bool _hasDay = false;
    bool _hasTime = false;
    bool _hasHalves = false;
};
} // namespace KTPrivate
