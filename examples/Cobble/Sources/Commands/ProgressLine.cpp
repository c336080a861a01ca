#include "ProgressLine.h"

#include <QTextStream>

ProgressLine::ProgressLine(QTextStream *stream, const QString &title, qint64 total)
    : _stream(stream), _title(title), _total(total)
{
    _timer.start();
}

ProgressLine::~ProgressLine()
{
    if (!_stream || _percent < 0)
        return;
    *_stream << "\r\x1b[K"; // to the start of the line, and clear it
    _stream->flush();
}

void ProgressLine::show(qint64 done)
{
    if (!_stream || _total <= 0)
        return;
    const int percent = int(done * 100 / _total);
    if (percent == _percent || _timer.elapsed() < _delay)
        return;
    _percent = percent;
    *_stream << '\r' << _title << ": " << percent << " %";
    _stream->flush();
}
