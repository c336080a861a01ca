#pragma once

#include "NumberReader_p.h"
#include "NumberSettings_p.h"
#include "NumberWriter_p.h"
#include "ScientificWriter_p.h"
#include <KTUtility/Platform/Values/NSDecimalNumber.h>

#include <unicode/decimfmt.h>

#include <QVariant>

#include <memory>
#include <mutex>

namespace KTPrivate {
/// What ICU read at the start of a text.
struct NumberReading
{
    bool isNumber = false;
    qsizetype length = 0; ///< units read, or up to the error
    QByteArray digits;    ///< the number as decimal text, maybe with an exponent
};

/// ICU's formatter for one set of settings, and what follows from it for the quick paths.
///
/// Costly to make (some 15 µs), so that formatters with equal settings share one. Never changed
/// once made; ICU allows several threads to use it then.
class NumberEngine
{
public:
    /// The engine for \a settings, made on first use and kept for the process (the latest few
    /// hundred).
    static std::shared_ptr<const NumberEngine> engineFor(const NumberSettings &settings);

    explicit NumberEngine(const NumberSettings &settings);

    /// Null for numbers in words.
    const icu::DecimalFormat *decimalFormat() const { return _decimalFormat; }
    /// Whether it is for money with a sign such as "$ US".
    bool hasSpaceInCurrencySign() const { return _hasSpaceInCurrencySign; }
    const icu::DecimalFormatSymbols *symbols() const;
    QString symbol(icu::DecimalFormatSymbols::ENumberFormatSymbol symbol) const;
    /// The pattern as ICU writes it.
    QString pattern() const;

    /// The text of any number, by ICU.
    QString stringFromNumber(const QVariant &number) const;
    /// Reads a number at the start of \a text, by ICU.
    NumberReading read(QStringView text) const;
    /// Whether \a text, which can be read, has something that ICU takes for a decimal point. Slow.
    bool hasPoint(QStringView text) const;

    /// How the quick paths do the same; not set where they cannot.
    const std::optional<NumberReader> &reader() const { return _reader; }
    const std::optional<NumberWriter> &writer() const { return _writer; }
    const std::optional<ScientificWriter> &scientificWriter() const { return _scientificWriter; }

private:
    void create(const NumberSettings &settings);
    void applySymbols(const NumberSettings &settings);
    void applyPatterns(const NumberSettings &settings);
    void applyCurrency(const NumberSettings &settings);
    void applyAffixes(const NumberSettings &settings);
    void applyCurrencyAffixes(const NumberSettings &settings);
    void applyDigits(const NumberSettings &settings);
    void applyWidth(const NumberSettings &settings);
    void applyGrouping(const NumberSettings &settings);
    QString stringFromDecimal(const NSDecimalNumber &number) const;
    bool hasUnpairedParenthesis(QStringView read) const;
    void preparePaths(const NumberSettings &settings);

    void prepareWords() const;

    std::unique_ptr<icu::NumberFormat> _format;
    icu::DecimalFormat *_decimalFormat = nullptr;
    // What only some texts need, made when the first of them comes, in whatever thread.
    mutable std::once_flag _areWordsPrepared;
    mutable std::once_flag _areIntegersPrepared;
    mutable std::unique_ptr<icu::DecimalFormat> _integers;
    bool _hasSpaceInCurrencySign = false;
    bool _needsPairedParentheses = false;
    std::optional<NumberReader> _reader;
    std::optional<NumberWriter> _writer;
    std::optional<ScientificWriter> _scientificWriter;
};
} // namespace KTPrivate
