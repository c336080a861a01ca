#include "NSSelector.h"

NSSelector::NSSelector(const QByteArray &text)
    : _text(text)
    , _name(text.left(text.indexOf(':')))
    , _colons(int(text.count(':')))
{
}
