#include "ChangeChain_p.h"

#include <QStringList>
#include <QtDebug>

#include <algorithm>
#include <vector>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
/// The sources that are just notifying, each called by the one before it.
struct Running
{
    std::vector<const ChangeSource *> sources;
    std::vector<const ChangeSource *> silenced;
};

Running &running()
{
    thread_local Running sources;
    return sources;
}

bool contains(const std::vector<const ChangeSource *> &list, const ChangeSource *source)
{
    return std::find(list.begin(), list.end(), source) != list.end();
}

/// The way from a source to itself.
QString roundOf(const ChangeSource *source)
{
    QStringList names{source->changingName()};
    const auto &sources = running().sources;
    for (auto each = sources.rbegin(); each != sources.rend(); ++each) {
        names.prepend((*each)->changingName());
        if (*each == source)
            break;
    }
    return names.join(u" → "_s);
}
} // namespace

ChangeSource::~ChangeSource() = default;

ChangeChain::ChangeChain(const ChangeSource *source) : _source(source)
{
    auto &[sources, silenced] = running();
    _isEndless = contains(silenced, source);
    if (!_isEndless && std::count(sources.begin(), sources.end(), source) >= MostRounds) {
        _isEndless = true;
        silenced.push_back(source);
        qCritical("*** values change each other without end: %s", qUtf8Printable(roundOf(source)));
    }
    sources.push_back(source);
}

ChangeChain::~ChangeChain()
{
    auto &[sources, silenced] = running();
    sources.pop_back();
    if (!silenced.empty() && !contains(sources, _source))
        std::erase(silenced, _source);
}
