#include "ChangeChain_p.h"

#include <QStringList>
#include <QtDebug>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

ChangeSource::~ChangeSource() = default;

const ChangeChain *&ChangeChain::innermost()
{
    // Where each thread has it is known when the library is loaded, so that nobody needs to be asked.
    [[gnu::tls_model("initial-exec")]] static constinit thread_local const ChangeChain *chain =
        nullptr;
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
