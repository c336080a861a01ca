#pragma once

#include "NSNumberReader_p.h"
#include "NSNumberSettings_p.h"
#include "NSNumberWriter_p.h"
#include <KTUtility/Platform/Values/NSDecimalNumber.h>

#include <unicode/decimfmt.h>

#include <QVariant>

#include <memory>

/// What ICU read at the start of a text.
struct NSNumberReading
{
    bool isNumber = false;
    qsizetype length = 0;   ///< units read, or up to the error
    QByteArray digits;      ///< the number as decimal text, maybe with an exponent
    bool isInteger = false; ///< fits 64 bits and is written without a fraction
};

/// ICU's formatter for one set of settings, and what follows from it for the quick paths.
///
/// Costly to make (some 15 µs), so that formatters with equal settings share one. Never changed
/// once made; ICU allows several threads to use it then.
class NSNumberEngine
{
public:
    /// The engine for \a settings, made on first use and kept for the process (the latest few
    /// hundred).
    static std::shared_ptr<const NSNumberEngine> engineFor(const NSNumberSettings &settings);

    explicit NSNumberEngine(const NSNumberSettings &settings);

    /// Null for numbers in words.
    const icu::DecimalFormat *decimalFormat() const { return _decimalFormat; }
    /// Whether it is for money with a sign such as "$ US".
    bool hasBlankInCurrencySign() const { return _hasBlankInCurrencySign; }
    const icu::DecimalFormatSymbols *symbols() const;
    QString symbol(icu::DecimalFormatSymbols::ENumberFormatSymbol symbol) const;
    /// The pattern as ICU writes it.
    QString pattern() const;

    /// The text of any number, by ICU.
    QString stringFromNumber(const QVariant &number) const;
    /// Reads a number at the start of \a text, by ICU.
    NSNumberReading read(QStringView text) const;

    /// How the quick paths do the same; not set where they cannot.
    const std::optional<NSNumberReader> &reader() const { return _reader; }
    const std::optional<NSNumberWriter> &writer() const { return _writer; }

private:
    void create(const NSNumberSettings &settings);
    void applySymbols(const NSNumberSettings &settings);
    void applyPatterns(const NSNumberSettings &settings);
    void applyCurrency(const NSNumberSettings &settings);
    void applyAffixes(const NSNumberSettings &settings);
    void applyCurrencyAffixes(const NSNumberSettings &settings);
    void applyDigits(const NSNumberSettings &settings);
    void applyWidth(const NSNumberSettings &settings);
    void applyGrouping(const NSNumberSettings &settings);
    QString stringFromDecimal(const NSDecimalNumber &number) const;
    bool hasUnpairedParenthesis(QStringView read) const;
    void preparePaths(const NSNumberSettings &settings);

    std::unique_ptr<icu::NumberFormat> _format;
    icu::DecimalFormat *_decimalFormat = nullptr;
    bool _hasBlankInCurrencySign = false;
    bool _needsPairedParentheses = false;
    char16_t _decimalSeparator = u'.';
    std::optional<NSNumberReader> _reader;
    std::optional<NSNumberWriter> _writer;
};
