#pragma once

#include "NSNumberFormatter.h"
#include "NumberEngine_p.h"
#include "NumberSettings_p.h"

#include <QVarLengthArray>

#include <memory>
#include <utility>

/// The settings of a formatter and the engines for them.
///
/// Reading typed texts switches signs and groups to and fro, so that the engine of each such
/// variant is kept until something else changes.
struct NSNumberFormatter::Private
{
    /// Something other than the negative affixes and groups has changed.
    void changed()
    {
        _variants.clear();
        _currencyVariants.clear();
        _current = nullptr;
    }
    /// The negative affixes or groups have changed.
    void variantChanged() { _current = nullptr; }

    /// Sets anything else; what is the same already changes nothing.
    template<typename Setting, typename Value>
    void set(Setting &setting, const Value &value)
    {
        bool isSame = setting == value;
        if constexpr (std::is_same_v<Setting, QString>)
            isSame = isSame && setting.isNull() == value.isNull();
        if (isSame)
            return;
        setting = value;
        changed();
    }

    /// Sets one of the affixes. With a currency, its sign becomes a placeholder, so that a later
    /// currency reaches it, and what is the pattern's own anyway is not set.
    void setAffix(QString KTPrivate::NumberSettings::*affix, const QString &text,
                  icu::UnicodeString &(icu::DecimalFormat::*get)(icu::UnicodeString &) const);

    /// The engine for the settings.
    const KTPrivate::NumberEngine &engine() const
    {
        if (!_current)
            _current = &engineIn(_variants, false);
        return *_current;
    }

    /// Reads with \a attempt, a function of an engine that answers how much it read (-1: nothing)
    /// and a result. Money is read with the sign that was set, as long as its currency is the same,
    /// else with the currency's own.
    template<typename Attempt>
    auto read(const Attempt &attempt) const
    {
        if (settings.currencySymbol.isNull())
            return attempt(engine()).second;
        const KTPrivate::NumberEngine &own = engineIn(_currencyVariants, true);
        const bool isStale = settings.currencyCode != codeOfSymbol;
        if (isStale ||
            own.symbol(icu::DecimalFormatSymbols::kCurrencySymbol) == settings.currencySymbol)
            return attempt(own).second;
        const auto withGivenSymbol = attempt(engine());
        const auto withOwnSymbol = attempt(own);
        return withOwnSymbol.first > withGivenSymbol.first ? withOwnSymbol.second
                                                           : withGivenSymbol.second;
    }

    KTPrivate::NumberSettings settings;
    /// The currency when its sign was set.
    QString codeOfSymbol;

private:
    struct Variant
    {
        QString negativePrefix;
        QString negativeSuffix;
        std::optional<bool> usesGroupingSeparator;
        std::shared_ptr<const KTPrivate::NumberEngine> engine;
    };
    using Variants = QVarLengthArray<Variant, 4>;

    bool isCurrent(const Variant &variant) const
    {
        return variant.usesGroupingSeparator == settings.usesGroupingSeparator &&
               variant.negativePrefix == settings.negativePrefix &&
               variant.negativeSuffix == settings.negativeSuffix &&
               variant.negativePrefix.isNull() == settings.negativePrefix.isNull() &&
               variant.negativeSuffix.isNull() == settings.negativeSuffix.isNull();
    }

    const KTPrivate::NumberEngine &engineIn(Variants &variants, bool withOwnSymbol) const
    {
        for (const Variant &variant : variants) {
            if (isCurrent(variant))
                return *variant.engine;
        }
        constexpr int MaximumVariants = 16;
        if (variants.size() >= MaximumVariants)
            variants.clear();
        KTPrivate::NumberSettings wanted = settings;
        if (withOwnSymbol)
            wanted.currencySymbol = QString();
        variants.append({settings.negativePrefix, settings.negativeSuffix,
                         settings.usesGroupingSeparator,
                         KTPrivate::NumberEngine::engineFor(wanted)});
        return *variants.last().engine;
    }

    mutable const KTPrivate::NumberEngine *_current = nullptr;
    mutable Variants _variants;
    mutable Variants _currencyVariants;
};
