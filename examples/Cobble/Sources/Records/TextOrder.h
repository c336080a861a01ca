#pragma once

#include <QByteArray>
#include <QString>

#include <compare>
#include <memory>

struct UCollator;

/// The order of texts in a language, with numbers in them by their value ("a2" before "a10").
///
/// It may be used in any thread, by one at a time. Who compares many texts asks for the key of each
/// one, which takes some time, and compares these.
///
/// \code
/// const TextOrder order(u"de_DE"_s);
/// order.compare(u"a2", u"a10") < 0;
/// QByteArray keys;
/// order.appendKey(u"a2", &keys);
/// \endcode
class TextOrder
{
public:
    /// \param locale its identifier.
    explicit TextOrder(const QString &locale);

    std::weak_ordering compare(QStringView left, QStringView right) const;
    /// Appends the bytes by which a text is compared, and a 0 behind them: strcmp() of two keys
    /// tells the order of the texts.
    void appendKey(QStringView text, QByteArray *keys) const;

private:
    struct Close
    {
        void operator()(UCollator *collator) const;
    };
    std::unique_ptr<UCollator, Close> _collator;
};
