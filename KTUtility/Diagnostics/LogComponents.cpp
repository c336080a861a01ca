#include "LogComponents_p.h"

#include "KTLogComponent.h"
#include "KTLoggerComponents.h"
#include <KTUtility/Platform/Files/ProgramIdentity_p.h>

#include <QMutex>
#include <QMutexLocker>

using namespace KTPrivate;

namespace {
/// Made when the first component is, which may be before main(), and never destroyed.
struct Declared
{
    QMutex mutex;
    QStringList names;
};

Declared &declaredComponents()
{
    static auto *const declared = new Declared;
    return *declared;
}

QStringList builtIn()
{
#define KT_NAME_OF_COMPONENT(constant, name) kLog_##constant,
    return {KT_LOGGER_COMPONENTS(KT_NAME_OF_COMPONENT)};
#undef KT_NAME_OF_COMPONENT
}
} // namespace

void LogComponents::declare(const QString &name)
{
    // One that settings cannot hold would keep all others from being stored with it.
    if (!KTLogComponent::isName(
            std::u16string_view(QStringView(name).utf16(), std::size_t(name.size()))))
        return;
    const QMutexLocker lock(&declaredComponents().mutex);
    // A copy, since the text may lie in code that is taken away.
    if (!declaredComponents().names.contains(name))
        declaredComponents().names.append(QString(name.constData(), name.size()));
}

QStringList LogComponents::declared()
{
    const QMutexLocker lock(&declaredComponents().mutex);
    return declaredComponents().names;
}

QStringList LogComponents::inMenu()
{
    const ProgramIdentity *const program = ProgramIdentity::current();
    QStringList names = !program || program->showsBuiltInComponents ? builtIn() : QStringList();
    const bool isChosen = program && !program->logComponents.isEmpty();
    for (const QString &name : isChosen ? program->logComponents : declared()) {
        if (!names.contains(name))
            names += name;
    }
    return names;
}
