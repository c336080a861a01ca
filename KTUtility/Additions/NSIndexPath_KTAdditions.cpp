#include "NSIndexPath_KTAdditions.h"

NSIndexPath KTAdditions::indexPathByPrependingIndex(const NSIndexPath &receiver, unsigned index)
{
    return NSIndexPath(QList<unsigned>{index} + receiver.indexes());
}
