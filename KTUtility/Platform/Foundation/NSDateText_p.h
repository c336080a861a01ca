#pragma once

#include <QStringView>

/// A text in which a date is sought, looked at once for all attempts to read it.
///
/// Only its first 1,024 units are read: no pattern means more, and a text may be megabytes long.
/// The text has to outlive this.
class NSDateText
{
public:
    static constexpr qsizetype MaximalLength = 1024;

    explicit NSDateText(QStringView text)
        : _length(text.size()), _start(text.first(qMin(text.size(), MaximalLength)))
    {
    }

    /// The length of the whole text.
    qsizetype length() const { return _length; }
    /// The part that is read.
    QStringView start() const { return _start; }
    /// Whether that part is all.
    bool isComplete() const { return _start.size() == _length; }

private:
    qsizetype _length;
    QStringView _start;
};

/// What reading a text gave.
struct NSDateMatch
{
    qint64 time = 0;      ///< milliseconds since 1970
    qsizetype length = 0; ///< what was consumed, or how far the text fitted
};
