#include "NSClassRegistry.h"

#include <dlfcn.h>
#include <link.h>

#include <algorithm>
#include <vector>

namespace {
struct Entry
{
    const void *module;
    const NSClass *classObject;
};

/// Never destroyed: registrations of other modules end after this one's.
std::vector<Entry> &entries()
{
    static auto *const made = new std::vector<Entry>;
    return *made;
}
} // namespace

const void *NSClassRegistry::moduleOfAddress(const void *address)
{
    Dl_info information{};
    void *module = nullptr;
    return dladdr1(address, &information, &module, RTLD_DL_LINKMAP) == 0 ? nullptr : module;
}

void NSClassRegistry::addClass(const NSClass &classObject, const void *addressInModule)
{
    entries().push_back({moduleOfAddress(addressInModule), &classObject});
}

void NSClassRegistry::removeClass(const NSClass &classObject)
{
    std::erase_if(entries(), [&](const Entry &entry) { return entry.classObject == &classObject; });
}

const NSClass *NSClassRegistry::classNamed(const QString &name, const void *inModule)
{
    const auto found = std::ranges::find_if(entries(), [&](const Entry &entry) {
        return entry.module == inModule && entry.classObject->name() == name;
    });
    return found == entries().end() || name.isNull() ? nullptr : found->classObject;
}

const NSClass *NSClassRegistry::classNamed(const QString &name)
{
    const auto found = std::ranges::find_if(
        entries(), [&](const Entry &entry) { return entry.classObject->name() == name; });
    return found == entries().end() || name.isNull() ? nullptr : found->classObject;
}
