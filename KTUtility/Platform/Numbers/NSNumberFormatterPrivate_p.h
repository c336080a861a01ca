#pragma once

#include "NSNumberFormatter.h"
#include "NumberEngine_p.h"
#include "NumberSettings_p.h"
#include <KTUtility/Platform/Values/NSAttributedString.h>

#include <QTextCharFormat>

#include <memory>
#include <optional>
#include <type_traits>
#include <vector>

/// The settings of a formatter and the engines for them.
///
/// Reading typed texts switches signs and groups to and fro, so that the engine of each such
/// variant is kept until something else changes.
struct Q_DECL_HIDDEN NSNumberFormatter::Private
{
    using Settings = KTPrivate::NumberSettings;
    using Engine = KTPrivate::NumberEngine;
    using Symbol = icu::DecimalFormatSymbols::ENumberFormatSymbol;
    using GetAffix = icu::UnicodeString &(icu::DecimalFormat::*)(icu::UnicodeString &) const;
    using DigitCount = std::optional<int> Settings::*;

    // --- Settings that the engine is made of

    Settings settings;
    /// The currency when its sign was set.
    QString codeOfSymbol;

    /// A setting; what is not set is the engine's, 0 for numbers in words.
    template<typename Value, typename Result, typename Class>
    Value value(std::optional<Value> Settings::*setting, Result (Class::*ofEngine)() const) const
    {
        if (const std::optional<Value> &given = settings.*setting)
            return *given;
        const icu::DecimalFormat *const format = engine().decimalFormat();
        return format ? Value((format->*ofEngine)()) : Value();
    }

    /// A setting that the engine does not show: -1 if it is not set, 0 for numbers in words.
    int valueOrUnset(std::optional<int> Settings::*setting) const
    {
        return (settings.*setting).value_or(engine().decimalFormat() ? -1 : 0);
    }

    /// A text; what is not set is the engine's symbol.
    QString text(QString Settings::*setting, Symbol ofEngine) const
    {
        const QString &given = settings.*setting;
        return given.isNull() ? engine().symbol(ofEngine) : given;
    }

    /// Sets anything but the negative affixes and groups; what is the same already changes nothing.
    template<typename Setting, typename Value>
    void set(Setting Settings::*setting, const Value &value)
    {
        bool isSame = settings.*setting == value;
        if constexpr (std::is_same_v<Setting, QString>)
            isSame = isSame && (settings.*setting).isNull() == value.isNull();
        if (isSame)
            return;
        settings.*setting = value;
        changed();
    }

    /// Sets the least number of digits, and the greatest to no less.
    void setLeast(DigitCount least, DigitCount greatest, int count);
    /// Sets the greatest number of digits, and the least to no more.
    void setGreatest(DigitCount greatest, DigitCount least, int count);

    QString affix(GetAffix ofEngine) const;
    /// Sets one of the affixes. With a currency, its sign becomes a placeholder, so that a later
    /// currency reaches it, and what is the pattern's own anyway is not set.
    void setAffix(QString Settings::*affix, const QString &text, GetAffix ofEngine);

    /// The first or last part of the engine's pattern, unless one is set.
    QString format(QString Settings::*setting, bool isFirst) const;
    /// Sets a pattern; those that are too long are ignored.
    void setFormat(QString Settings::*setting, const QString &format);

    /// Something other than the negative affixes and groups has changed.
    void changed()
    {
        _variants.clear();
        _currencyVariants.clear();
        _current = nullptr;
    }
    /// The negative affixes or groups have changed.
    void variantChanged() { _current = nullptr; }

    // --- Settings beside the engine

    int behavior = NSNumberFormatterBehavior10_4;
    bool generatesDecimalNumbers = false;
    bool allowsFloats = true;
    QString zeroSymbol;
    /// Whether the text of zero is what a format of one part shows for it, whatever else is set.
    bool isZeroShownByFormat = false;
    QString nilSymbol = QStringLiteral("");
    QString positiveInfinitySymbol;
    QString negativeInfinitySymbol;
    std::optional<QTextCharFormat> attributesForNegativeValues;

    // --- Formatters that share their settings

    /// Whether all settings are those of another one: a nil text is not an empty one.
    bool isSameAs(const Private &other) const;
    /// Of the settings in which formatters differ mostly.
    size_t hash() const;
    /// Makes all that reading and writing needs, so that several threads may do both afterwards.
    void prepare() const;
    /// Takes the settings of another one over.
    void takeOver(const Private &other) { *this = other; }

    // --- Texts and numbers

    QString stringOf(const QVariant &value) const;
    NSAttributedString attributedStringOf(const QVariant &value, const QString &text,
                                          const QTextCharFormat &attributes) const;
    /// The text of zero by the pattern, without a text of its own.
    QString textOfZero() const { return engine().stringFromNumber(0); }
    /// Reads a number at the start of a part of a text; see NSNumberFormatter::getObjectValue().
    bool read(QVariant *value, QStringView string, NSRange *range) const;

    /// The engine for the settings.
    const Engine &engine() const
    {
        if (!_current)
            _current = &engineIn(_variants, false);
        return *_current;
    }

private:
    struct Variant
    {
        QString negativePrefix;
        QString negativeSuffix;
        std::optional<bool> usesGroupingSeparator;
        std::shared_ptr<const Engine> engine;
    };
    /// Mostly one; room for more would take most of a formatter's memory.
    using Variants = std::vector<Variant>;

    bool isCurrent(const Variant &variant) const
    {
        return variant.usesGroupingSeparator == settings.usesGroupingSeparator &&
               variant.negativePrefix == settings.negativePrefix &&
               variant.negativeSuffix == settings.negativeSuffix &&
               variant.negativePrefix.isNull() == settings.negativePrefix.isNull() &&
               variant.negativeSuffix.isNull() == settings.negativeSuffix.isNull();
    }

    const Engine &engineIn(Variants &variants, bool withOwnSymbol) const;
    template<typename Attempt>
    auto attempt(const Attempt &attempt) const;
    QString specialString(const QVariant &value) const;

    mutable const Engine *_current = nullptr;
    mutable Variants _variants;
    mutable Variants _currencyVariants;
};
