#include "ChangeChain_p.h"

#include <QStringList>
#include <QtDebug>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

ChangeSource::~ChangeSource() = default;

const ChangeChain *&ChangeChain::innermost()
{
    // No other model of access: programs that open the library later have little room for what each
    // thread has.
    static constinit thread_local const ChangeChain *chain = nullptr;
    return chain;
}

/// The way from the source to itself.
QString ChangeChain::round() const
{
    QStringList names{_source->changingName()};
    for (const ChangeChain *each = _outer; each; each = each->_outer) {
        names.prepend(each->_source->changingName());
        if (each->_source == _source)
            break;
    }
    return names.join(u" → "_s);
}

/// The source has gone round too often: it falls silent.
bool ChangeChain::silenced() const
{
    _source->_isSilenced = true;
    qCritical("*** values change each other without end: %s", qUtf8Printable(round()));
    return true;
}
