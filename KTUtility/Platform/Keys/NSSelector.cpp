#include "NSSelector.h"

NSSelector::NSSelector(const QByteArray &text)
    : _text(text)
    , _name(text.contains(':') ? text.first(text.indexOf(':')) : text)
    , _colons(int(text.count(':')))
{
}
