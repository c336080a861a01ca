#include "NameSearch_p.h"

#include <algorithm>

using namespace KTPrivate;

void NameSearch::add(const QString &name, qsizetype owner)
{
    _names.push_back({name, owner});
    _firstUnits.set(name.front().unicode() % 256);
}

void NameSearch::prepare()
{
    std::sort(_names.begin(), _names.end(),
              [](const Name &left, const Name &right) { return left.text < right.text; });
}

std::vector<qsizetype> NameSearch::foundIn(QStringView text) const
{
    Owners found;
    for (qsizetype index = 0; index < text.size(); ++index) {
        if (mayBegin(text[index]))
            findFrom(text.mid(index), found);
    }
    std::sort(found.begin(), found.end());
    found.erase(std::unique(found.begin(), found.end()), found.end());
    return found;
}

/// Adds the owners of the names with which a text begins. Among names that begin alike, the shortest
/// ones come first.
void NameSearch::findFrom(QStringView text, Owners &found) const
{
    auto first = _names.begin();
    auto last = _names.end();
    for (qsizetype depth = 0; depth < text.size() && first != last; ++depth) {
        const QChar unit = text[depth];
        const auto isBefore = [depth](const Name &name, QChar wanted) {
            return name.text.at(depth) < wanted;
        };
        const auto isBehind = [depth](QChar wanted, const Name &name) {
            return wanted < name.text.at(depth);
        };
        first = std::lower_bound(first, last, unit, isBefore);
        last = std::upper_bound(first, last, unit, isBehind);
        for (; first != last && first->text.size() == depth + 1; ++first)
            found.push_back(first->owner);
    }
}
