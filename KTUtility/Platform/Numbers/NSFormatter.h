#pragma once

#include "KTReadResult.h"
#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Values/NSAttributedString.h>

#include <QObject>
#include <QString>
#include <QStringList>
#include <QTextCharFormat>
#include <QVariant>

#include <optional>

/// Turns values into texts that people read, and what they type back into values.
///
/// The base of all formatters. A field of a form holds one and knows nothing else about the type
/// of its values. Settings that the user may choose are the formatter's *options*: properties that
/// are listed by optionsKeys(), so that they can be stored, copied to another formatter and applied
/// again through options() and setOptions() without knowing the class.
///
/// Derive from it for values of your own: override stringForObjectValue() and getObjectValue(),
/// make each option a Q_PROPERTY with a NOTIFY signal, and list their names.
///
/// Displaying and reading are const: what they keep between calls are caches. One formatter must
/// not be used by two threads at once.
///
/// \code
/// KTNumberFormatter prices;
/// prices.setDecimalPlaces(2);
/// field.setStoredOptions(prices.options());       // {"decimalPlaces": 2, …}
///
/// KTNumberFormatter others;
/// others.setOptions(field.storedOptions());       // formats as prices does
/// \endcode
class KTUTILITY_EXPORT NSFormatter : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// The text that shows \a value; nil if the formatter is not made for its class.
    virtual QString stringForObjectValue(const QVariant &value) const;
    /// The same with attributes; nil (the default) if the plain text is all there is.
    virtual std::optional<NSAttributedString>
    attributedStringForObjectValue(const QVariant &value,
                                   const QTextCharFormat &withDefaultAttributes = {}) const;
    /// The text to start with when a person edits \a value; by default the shown one.
    virtual QString editingStringForObjectValue(const QVariant &value) const;
    /// Reads a typed text.
    /// \param value receives the value; may be null.
    /// \param errorDescription receives why the text cannot be read, where the formatter says; may
    /// be null.
    /// \return whether the whole text was read. The default reads nothing.
    virtual bool getObjectValue(QVariant *value, const QString &forString,
                                QString *errorDescription = nullptr) const;

    /// The same as a value or a reason: what getObjectValue() reads, else reasonForRejecting().
    [[nodiscard]] KTReadResult read(const QString &text) const;

    // --- Options

    /// The names of the options, in the order in which setOptions() applies them; nil (the
    /// default) if there are none.
    virtual std::optional<QStringList> optionsKeys() const;
    /// The options and their values; empty if there are none. Properties are read with key-value
    /// coding.
    /// \throws NSException NSUndefinedKeyException if a listed key is no property;
    /// NSInvalidArgumentException if the value of a listed key is nil.
    QVariantMap options() const;
    /// Writes every listed option that \a options holds, in the order of optionsKeys(), with
    /// key-value coding and so through the property's setter. Other keys are ignored, missing ones
    /// (or nil) leave the option as it is.
    /// \throws NSException as NSKeyValueCoding::setValue() for a value of the wrong type.
    void setOptions(const QVariantMap &options);

protected:
    /// Why a text was not read, in a sentence for people. The default is what getObjectValue() said;
    /// override it to name what your formatter reads. Nil is "The text cannot be read."
    virtual QString reasonForRejecting(const QString &text, const QString &errorDescription) const;
};
