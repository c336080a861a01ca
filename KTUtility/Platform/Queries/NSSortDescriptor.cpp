#include "NSSortDescriptor.h"

#include "SortKeys_p.h"

using namespace KTPrivate;

NSSortDescriptor NSSortDescriptor::inLocalizedOrder(bool isLocalized) const
{
    NSSortDescriptor descriptor = *this;
    descriptor.localized = isLocalized;
    return descriptor;
}

/// The elements' positions in their order.
std::vector<qsizetype> NSSortDescriptor::orderOf(const std::vector<KeyValueTarget> &elements,
                                                 const QList<NSSortDescriptor> &descriptors)
{
    return SortKeys(elements, descriptors).order();
}
