#include "NSURL.h"

#include <KTUtility/Platform/Text/ASCII_p.h>
#include <KTUtility/Platform/Text/NSPercentEscapes.h>

#include <algorithm>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
bool isHexDigit(char16_t unit)
{
    return (unit >= u'0' && unit <= u'9') || (unit >= u'a' && unit <= u'f') ||
           (unit >= u'A' && unit <= u'F');
}

bool isAllowed(char16_t unit)
{
    return unit > u' ' && unit < 0x7F && !QStringView(u"\"<>\\^`{|}").contains(QChar(unit));
}

bool isSchemeUnit(char16_t unit)
{
    return ASCII::isLetter(unit) || (unit >= u'0' && unit <= u'9') || unit == u'+' ||
           unit == u'-' || unit == u'.';
}

bool areEscapesComplete(QStringView text)
{
    for (qsizetype index = text.indexOf(u'%'); index >= 0; index = text.indexOf(u'%', index + 1)) {
        if (index + 2 >= text.size() || !isHexDigit(text[index + 1].unicode()) ||
            !isHexDigit(text[index + 2].unicode()))
            return false;
    }
    return true;
}
} // namespace

std::optional<NSURL> NSURL::URLWithString(const QString &text)
{
    const bool areUnitsAllowed =
        std::all_of(text.begin(), text.end(), [](QChar unit) { return isAllowed(unit.unicode()); });
    if (text.isEmpty() || !areUnitsAllowed || text.count(u'#') > 1 || !areEscapesComplete(text))
        return std::nullopt;
    return NSURL(text);
}

QString NSURL::scheme() const
{
    const qsizetype colon = _text.indexOf(u':');
    const QStringView name = QStringView(_text).first(std::max<qsizetype>(colon, 0));
    const bool isScheme = !name.isEmpty() && ASCII::isLetter(name[0].unicode()) &&
                          std::all_of(name.begin(), name.end(),
                                      [](QChar unit) { return isSchemeUnit(unit.unicode()); });
    return isScheme ? name.toString() : QString();
}

std::optional<NSURL> NSURL::fileURLWithPath(const QString &path)
{
    if (!path.startsWith(u'/') || path.contains(QChar(u'\0')))
        return std::nullopt;
    QString escaped = NSString::stringByAddingPercentEscapes(path);
    // These may stand in a URL, but would end its path.
    escaped.replace(u'?', u"%3F"_s).replace(u';', u"%3B"_s);
    return escaped.isNull() ? std::nullopt : URLWithString(u"file://" + escaped);
}

bool NSURL::isFileURL() const
{
    return scheme().compare(u"file", Qt::CaseInsensitive) == 0;
}

QString NSURL::path() const
{
    const QString scheme = this->scheme();
    QStringView rest = QStringView(_text).sliced(scheme.isNull() ? 0 : scheme.size() + 1);
    const auto end = std::find_if(rest.begin(), rest.end(),
                                  [](QChar unit) { return unit == u'?' || unit == u'#'; });
    rest.truncate(end - rest.begin());
    if (rest.startsWith(u"//")) {
        const qsizetype slash = rest.indexOf(u'/', 2);
        rest = slash < 0 ? QStringView(u"") : rest.sliced(slash);
    } else if (!scheme.isNull() && !rest.startsWith(u'/')) {
        return {};
    }
    if (rest.size() > 1 && rest.endsWith(u'/'))
        rest.chop(1);
    return NSString::stringByReplacingPercentEscapes(rest.isEmpty() ? u""_s : rest.toString());
}
