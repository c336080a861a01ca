#include "ComponentNames.h"

#include <QList>

#include <algorithm>
#include <numeric>
#include <utility>

using namespace Qt::StringLiterals;

namespace {
/// Longer texts are like no component, and not worth the time.
constexpr qsizetype LongestCompared = 100;
/// Shorter ones are part of too many names, or a letter away from them.
constexpr qsizetype ShortestPart = 3;

/// How many letters must be put in, left out or replaced to make one text the other.
qsizetype editDistance(const QString &from, const QString &to)
{
    QList<qsizetype> distances(to.size() + 1);
    std::iota(distances.begin(), distances.end(), 0);
    for (qsizetype row = 0; row < from.size(); ++row) {
        qsizetype diagonal = std::exchange(distances[0], row + 1);
        for (qsizetype column = 0; column < to.size(); ++column) {
            const qsizetype replaced = diagonal + (from[row] == to[column] ? 0 : 1);
            diagonal = distances[column + 1];
            distances[column + 1] = std::min({replaced, diagonal + 1, distances[column] + 1});
        }
    }
    return distances.last();
}

bool isNear(const QString &text, const QString &component)
{
    const QString typed = text.trimmed().toCaseFolded();
    const QString name = component.toCaseFolded();
    if (typed.size() < ShortestPart || typed.size() > LongestCompared)
        return false;
    if (name.contains(typed) || typed.contains(name))
        return true;
    const QStringList words = name.split(u' ', Qt::SkipEmptyParts);
    const auto isAlmostTyped = [&](const QString &word) {
        return word.size() >= ShortestPart &&
               editDistance(typed, word) <= std::max<qsizetype>(1, typed.size() / 4);
    };
    return isAlmostTyped(name) || std::any_of(words.begin(), words.end(), isAlmostTyped);
}
} // namespace

QString componentNamed(const QString &text, const QStringList &components)
{
    if (components.contains(text))
        return text;
    const auto found = std::find_if(components.begin(), components.end(), [&](const QString &name) {
        return name.compare(text, Qt::CaseInsensitive) == 0;
    });
    return found == components.end() ? QString() : *found;
}

QStringList componentsNear(const QString &text, const QStringList &components)
{
    QStringList near;
    std::copy_if(components.begin(), components.end(), std::back_inserter(near),
                 [&](const QString &component) { return isNear(text, component); });
    return near;
}

QString unknownComponentText(const QString &text, const QStringList &components)
{
    const QString message = u"unknown component '%1'"_s.arg(text);
    const QStringList near = componentsNear(text, components);
    if (near.isEmpty())
        return QString(message + u"; 'cobble log' lists them");
    return QString(message + u"; near it: " + near.join(u", "_s));
}
