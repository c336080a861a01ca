#pragma once

#include <QStringView>

/// The number of line breaks in \a text: LF, CR, and CRLF as one.
inline qint64 lineBreakCount(QStringView text)
{
    qint64 count = 0;
    for (qsizetype index = 0; index < text.size(); ++index) {
        const QChar character = text[index];
        const bool isPairedReturn =
            character == u'\r' && index + 1 < text.size() && text[index + 1] == u'\n';
        if (character == u'\n' || (character == u'\r' && !isPairedReturn))
            ++count;
    }
    return count;
}
