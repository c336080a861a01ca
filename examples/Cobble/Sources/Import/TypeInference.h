#pragma once

#include "Fields/FieldReader.h"

#include <QStringList>

#include <functional>
#include <memory>

/// Finds the type of a column from some of its values.
///
/// A column has the first of these types that nine in ten of its values have: number, currency,
/// duration, date, time, date+time, phone, media; otherwise it is text. Digits with a zero or
/// a plus before them ("01067", "+49 170") are never numbers, which would lose it, nor are digits
/// that are grouped as in a date ("26.05.2014"). A number may
/// have a currency's sign; then the column is money, in the currency that most of its values name.
/// Of dates and times mixed, a column of dates with some times is date+time.
///
/// \code
/// TypeInference inference;
/// inference.add(u"€5"_s);
/// inference.add(u"€7.50"_s);
/// inference.reader()->type();    // FieldType::Currency, reading euros
/// \endcode
class TypeInference
{
public:
    /// How many values are looked at.
    static constexpr qsizetype SampleSize = 1000;

    /// \param isMedia says whether a text names a media file; without it, none does.
    explicit TypeInference(std::function<bool(const QString &)> isMedia = {});
    ~TypeInference();
    TypeInference(TypeInference &&other) noexcept;

    /// Whether more values would change anything.
    bool isComplete() const { return _values.size() >= SampleSize; }
    /// Takes a value into account; empty ones say nothing.
    void add(const QString &value);

    /// A reader for the type found.
    std::unique_ptr<FieldReader> reader() const;

private:
    bool fits(qsizetype count) const;
    qsizetype countRead(const FieldReader &reader) const;
    std::unique_ptr<FieldReader> numberReader() const;
    std::unique_ptr<FieldReader> currencyReader() const;
    std::unique_ptr<FieldReader> dateReader() const;

    FieldType textType() const;

    std::function<bool(const QString &)> _isMedia;
    QStringList _values;
};
