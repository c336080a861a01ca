#pragma once

#include <QElapsedTimer>
#include <QString>

class QTextStream;

/// A line on a terminal that says how far long work is, and disappears when it is done.
///
/// Work that is done within half a second shows nothing.
///
/// \code
/// ProgressLine line(context.progress(), u"Reading values"_s, rowCount);
/// for (qint64 row = 1; row <= rowCount; ++row)
///     line.show(row);    // "Reading values: 45 %"
/// \endcode
class ProgressLine
{
public:
    /// \param stream null shows nothing.
    ProgressLine(QTextStream *stream, const QString &title, qint64 total);
    ~ProgressLine();
    ProgressLine(const ProgressLine &) = delete;
    ProgressLine &operator=(const ProgressLine &) = delete;

    /// The part that is done, of the total.
    void show(qint64 done);

    /// How many milliseconds pass before anything is shown.
    void setDelay(qint64 milliseconds) { _delay = milliseconds; }

private:
    QTextStream *_stream;
    QString _title;
    qint64 _total;
    qint64 _delay = 500;
    int _percent = -1;
    QElapsedTimer _timer;
};
