#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <span>

class NSFormatter;

/// The bytes of one run, taken apart piece by piece; at their end come zeros and empty texts.
class FuzzInput
{
public:
    explicit FuzzInput(std::span<const uint8_t> bytes) : _bytes(bytes) {}

    /// The next byte.
    uint8_t byte();
    /// The next number below \a bound.
    int below(int bound) { return byte() % bound; }
    bool flag() { return (byte() & 1) != 0; }
    /// A number of any size.
    qint64 number();
    /// The rest, as it is.
    QByteArray rest();
    /// The rest as a text: read as UTF-8, or unit by unit, so that there are lone surrogates, too.
    QString text();
    /// One of many locales, of all scripts and calendars that formatters treat differently.
    QString locale();
    /// Sets the options of a formatter that are numbers or flags.
    void setOptions(NSFormatter *formatter);

private:
    std::span<const uint8_t> _bytes;
};
