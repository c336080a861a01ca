#pragma once

#include "FieldType.h"

#include <KTUtility/NSFormatter>
#include <KTUtility/NSLocale>

#include <functional>
#include <memory>
#include <optional>

/// The formatter of a field, with what reading asks of some kinds of formatters only. A function
/// that a kind has no use for is empty.
///
/// \code
/// const FieldFormat format = FieldFormat::of(FieldType::Date);
/// format.formatter->getObjectValue(&value, u"March 5, 2008"_s, nullptr);
/// format.formatter->stringForObjectValue(value);    // "3/5/2008"
/// \endcode
struct FieldFormat
{
    /// One for fields of a type.
    /// \param locale the user's if there is none, which may be several: of numbers, money and dates.
    static FieldFormat of(FieldType type, const std::optional<NSLocale> &locale = std::nullopt);

    /// Null for media and texts.
    std::unique_ptr<NSFormatter> formatter;
    /// Stand around each value of an import.
    std::function<void(const QString &text)> willImport;
    std::function<void(const QString &text)> didImport;
    /// The date pattern that took all of the text read last; nil if there is none, as when the text
    /// was read in another form.
    std::function<QString()> recentPattern;
};
