#include "NSPathUtilities.h"

#include "NSSearchPath.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
/// The path with runs of "/" made one. Nil stays nil, and "" stays "".
QString withSingleSlashes(const QString &path)
{
    if (path.isEmpty())
        return path;
    QString result;
    result.reserve(path.size());
    for (const QChar unit : path) {
        if (unit != u'/' || !result.endsWith(u'/'))
            result += unit;
    }
    return result;
}

/// The same, and without one at the end.
QString compressed(const QString &path)
{
    QString result = withSingleSlashes(path);
    if (result.size() > 1 && result.endsWith(u'/'))
        result.chop(1);
    return result;
}

/// Where the last component begins.
qsizetype startOfLastComponent(const QString &path)
{
    return path.size() == 1 ? 0 : path.lastIndexOf(u'/') + 1;
}

/// Where the dot of the extension is in a compressed path, counting a dot at the end; -1 if the
/// last component has none that is not its first character.
qsizetype dotOf(const QString &path)
{
    const QString name = path.mid(startOfLastComponent(path));
    const qsizetype dot = name == u".." ? -1 : name.lastIndexOf(u'.');
    return dot > 0 ? startOfLastComponent(path) + dot : -1;
}

QStringList standardizedComponents(const QStringList &components)
{
    QStringList result;
    const bool isAbsolute = components.value(0) == u"/";
    for (const QString &component : components) {
        const bool isAtRoot = result.size() == 1 && result.first() == u"/";
        if (component == u"." && !result.isEmpty())
            continue;
        if (component == u".." && isAbsolute && !isAtRoot)
            result.removeLast();
        else if (component != u".." || !isAbsolute)
            result += component;
    }
    return result;
}
} // namespace

QStringList NSString::pathComponents(const QString &path)
{
    QStringList components = path.split(u'/', Qt::SkipEmptyParts);
    // The root alone does not end with itself.
    if (!components.isEmpty() && path.endsWith(u'/'))
        components.append(u"/"_s);
    if (path.startsWith(u'/'))
        components.prepend(u"/"_s);
    return components;
}

QString NSString::pathWithComponents(const QStringList &components)
{
    return compressed(components.join(u'/'));
}

QString NSString::lastPathComponent(const QString &path)
{
    const QString whole = compressed(path);
    return whole.isEmpty() ? whole : whole.mid(startOfLastComponent(whole));
}

QString NSString::stringByDeletingLastPathComponent(const QString &path)
{
    const QString whole = compressed(path);
    if (whole.isEmpty())
        return whole;
    const qsizetype slash = whole.lastIndexOf(u'/');
    return slash == 0 ? u"/"_s : whole.left(std::max<qsizetype>(slash, 0));
}

QString NSString::stringByAppendingPathComponent(const QString &path, const QString &component)
{
    if (component.isEmpty())
        return compressed(path);
    return withSingleSlashes(path.isEmpty() ? component : QString(path + u'/' + component));
}

QString NSString::pathExtension(const QString &path)
{
    const QString whole = compressed(path);
    const qsizetype dot = dotOf(whole);
    if (dot < 0)
        return path.isNull() ? QString() : u""_s;
    return whole.mid(dot + 1);
}

QString NSString::stringByDeletingPathExtension(const QString &path)
{
    const QString whole = compressed(path);
    const qsizetype dot = dotOf(whole);
    return dot < 0 ? whole : whole.left(dot);
}

QString NSString::stringByAppendingPathExtension(const QString &path, const QString &extension)
{
    const QString whole = compressed(path);
    if (whole.isEmpty() || whole == u"/" || extension.startsWith(u'/'))
        return {};
    return extension.isEmpty() ? whole : QString(whole + u'.' + extension);
}

QString NSString::stringByExpandingTildeInPath(const QString &path)
{
    const QString whole = compressed(path);
    const QString home = NSHomeDirectory();
    if (home.isNull() || (whole != u"~" && !whole.startsWith(u"~/")))
        return whole;
    return compressed(home + whole.mid(1));
}

QString NSString::stringByStandardizingPath(const QString &path)
{
    const QString whole = stringByExpandingTildeInPath(path);
    if (whole.isEmpty())
        return whole;
    // A lone "." at the root is kept as the platform keeps it.
    if (whole == u"/.")
        return whole;
    return pathWithComponents(standardizedComponents(pathComponents(whole)));
}
