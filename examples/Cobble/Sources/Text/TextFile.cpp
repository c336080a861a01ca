#include "TextFile.h"

#include "Reasons.h"
#include "TextSource.h"

using namespace Qt::StringLiterals;

Outcome<QString> TextFile::textOfFile(const QString &path, const QString &encoding)
{
    const Outcome<TextSource> source = TextSource::ofFile(path, encoding);
    if (!source)
        return source.failure();
    TextReader reader = source->reader();
    QString text;
    Outcome<bool> isRead = true;
    while (isRead && *isRead && text.size() <= TextSource::SizeLimit)
        isRead = reader.readMore(&text);
    if (!isRead)
        return isRead.failure();
    if (text.size() > TextSource::SizeLimit)
        return Failure{Reasons::tr("larger than 1 GB")};
    return text;
}
