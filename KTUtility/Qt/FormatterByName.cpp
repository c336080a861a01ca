#include "FormatterByName_p.h"

#include <KTUtility/Platform/Classes/NSClassRegistry.h>
#include <KTUtility/Platform/Diagnostics/ExceptionGuard_p.h>
#include <KTUtility/Platform/Diagnostics/NSLog.h>

#include <QMetaProperty>

using namespace KTPrivate;

namespace {
/// Texts become what the property is.
bool setOption(NSFormatter *formatter, const QString &key, const QString &text)
{
    const QMetaObject *const offered = formatter->metaObject();
    const QMetaProperty property =
        offered->property(offered->indexOfProperty(key.toUtf8().constData()));
    QVariant value = text;
    return property.isWritable() && value.convert(property.metaType()) &&
           property.write(formatter, value);
}

void setOptions(NSFormatter *formatter, const QStringList &options)
{
    for (const QString &option : options) {
        const QString key = option.section(u'=', 0, 0).trimmed();
        if (!option.isEmpty() && !setOption(formatter, key, option.section(u'=', 1).trimmed()))
            NSLog(u"\"%@\" is no option of %s", option, formatter->metaObject()->className());
    }
}

std::unique_ptr<QObject> objectOfClass(const QString &className)
{
    const NSClass *const known = NSClassRegistry::classNamed(className);
    return known ? known->newInstance() : nullptr;
}
} // namespace

std::shared_ptr<NSFormatter> KTPrivate::formatterByName(const QString &className,
                                                        const QStringList &options)
{
    if (className.isEmpty())
        return nullptr;
    try {
        const std::shared_ptr<QObject> object = objectOfClass(className);
        if (auto *const formatter = qobject_cast<NSFormatter *>(object.get())) {
            setOptions(formatter, options);
            return {object, formatter};
        }
        NSLog(u"There is no formatter of the class \"%@\"", className);
    } catch (...) {
        NSLog(u"A formatter cannot be made: %@", reasonOfException());
    }
    return nullptr;
}
