#pragma once

#include "ColumnConventions.h"
#include "Fields/FieldReader.h"

#include <QStringList>

#include <functional>
#include <memory>

/// Finds the type of a column from some of its values.
///
/// A column has the first of these types that nine in ten of its values have (half of them, where
/// the user says how they are typed): number, currency,
/// duration, date, time, date+time, phone, media; otherwise it is text. Digits with a zero or
/// a plus before them ("01067", "+49 170") are never numbers, which would lose it, nor are digits
/// that are grouped as in a date ("26.05.2014"). A number may
/// have a currency's sign; then the column is money, in the currency that most of its values name.
/// Of dates and times mixed, a column of dates with some times is date+time.
///
/// Each type is tried with the conventions that the values themselves decide (KTColumnReading), first
/// without common forms: "3/4" is a date before it is a fraction, and "1:30" a time before it is a
/// duration.
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
    /// \param told what is known of the column beforehand.
    /// \param locale that in which the values were typed; the user's if there is none.
    explicit TypeInference(std::function<bool(const QString &)> isMedia = {},
                           ColumnConventions told = {},
                           const std::optional<NSLocale> &locale = std::nullopt);
    ~TypeInference();
    TypeInference(TypeInference &&other) noexcept;

    /// Whether more values would change anything.
    bool isComplete() const { return _values.size() >= SampleSize; }
    /// Takes a value into account; empty ones say nothing.
    void add(const QString &value);

    /// A reader for the type found, which reads common forms.
    std::unique_ptr<FieldReader> reader() const;
    /// A reader for a type that is known beforehand; its currency is the one found.
    std::unique_ptr<FieldReader> readerOf(FieldType type) const;

private:
    using Reader = std::unique_ptr<FieldReader>;

    Reader newReader(FieldType type, bool readsCommonForms) const;
    Reader toldReader(bool readsCommonForms) const;
    Reader readerWith(bool readsCommonForms) const;
    Reader durationReader(bool readsCommonForms) const;
    bool fits(qsizetype count) const;
    qsizetype countRead(const FieldReader &reader) const;
    Reader numberReader(bool readsCommonForms) const;
    Reader currencyReader(bool readsCommonForms) const;
    Reader dateReader(bool readsCommonForms) const;
    QStringList currenciesFor(const FieldReader &reader) const;

    FieldType textType() const;

    std::function<bool(const QString &)> _isMedia;
    ColumnConventions _told;
    std::optional<NSLocale> _locale;
    QStringList _values;
};
