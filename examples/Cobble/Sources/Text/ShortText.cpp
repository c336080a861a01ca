#include "ShortText.h"

QString ShortText::firstLine(const QString &text)
{
    qsizetype end = 0;
    while (end < text.size() && end < Longest && text.at(end) != u'\n' && text.at(end) != u'\r')
        ++end;
    return end == text.size() ? text : QString(QStringView(text).first(end) + QChar(0x2026));
}
