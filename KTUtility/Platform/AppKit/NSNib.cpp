#include "NSNib.h"

#include <KTUtility/Platform/Classes/NSClassRegistry.h>

#include <QApplication>
#include <QFile>
#include <QMetaMethod>
#include <QMetaProperty>
#include <QUiLoader>

using namespace Qt::StringLiterals;

namespace {
constexpr const char *DelegateOutlet = "delegateOutlet";

/// Knows the registered classes beside those of Qt.
class NibLoader : public QUiLoader
{
public:
    QWidget *createWidget(const QString &className, QWidget *parent, const QString &name) override
    {
        QWidget *const made = createRegistered(className);
        if (!made)
            return QUiLoader::createWidget(className, parent, name);
        if (parent)
            made->setParent(parent);
        made->setObjectName(name);
        return made;
    }

private:
    static QWidget *createRegistered(const QString &className)
    {
        const NSClass *const found = NSClassRegistry::classNamed(className);
        std::unique_ptr<QObject> object = found ? found->newInstance() : nullptr;
        if (!object || !object->isWidgetType())
            return nullptr;
        return static_cast<QWidget *>(object.release());
    }
};

/// The outermost widget and all in it, in the order in which the form lists them.
QList<QWidget *> widgetsOf(QWidget *root)
{
    return QList<QWidget *>{root} + root->findChildren<QWidget *>();
}

QObject *objectNamed(const QString &name, QWidget *root)
{
    return root->objectName() == name ? root : root->findChild<QObject *>(name);
}

void connectOutlets(QObject *owner, QWidget *root)
{
    const QMetaObject *const metaObject = owner->metaObject();
    for (int index = 0; index < metaObject->propertyCount(); ++index) {
        const QMetaProperty property = metaObject->property(index);
        const bool isOutlet = property.metaType().flags().testFlag(QMetaType::PointerToQObject) &&
                              property.isWritable();
        QObject *const object =
            isOutlet ? objectNamed(QString::fromLatin1(property.name()), root) : nullptr;
        if (object && object->metaObject()->inherits(property.metaType().metaObject()))
            property.write(owner, QVariant::fromValue(object));
    }
}

void connectDelegate(QWidget *widget, QObject *owner)
{
    if (widget->property(DelegateOutlet).toString() == u"owner")
        QMetaObject::invokeMethod(widget, "setDelegate", Qt::DirectConnection,
                                  Q_ARG(QObject *, owner));
}

void awake(QObject *object)
{
    const int index = object->metaObject()->indexOfMethod("awakeFromNib()");
    if (index >= 0)
        object->metaObject()->method(index).invoke(object, Qt::DirectConnection);
}

void connectAndAwake(QWidget *root, QObject *owner)
{
    const QList<QWidget *> widgets = widgetsOf(root);
    if (owner) {
        connectOutlets(owner, root);
        for (QWidget *const widget : widgets)
            connectDelegate(widget, owner);
    }
    for (auto widget = widgets.rbegin(); widget != widgets.rend(); ++widget)
        awake(*widget);
    if (owner)
        awake(owner);
}

QString failureOfFile(const QFile &file)
{
    return file.fileName().isEmpty() ? u"there is no such file"_s : file.errorString();
}

/// The form's widgets; null with the reason.
std::unique_ptr<QWidget> load(const QString &path, QString *error)
{
    if (!qobject_cast<QApplication *>(QCoreApplication::instance())) {
        *error = u"there is no application for windows"_s;
        return nullptr;
    }
    QFile file(path);
    if (path.isEmpty() || !file.open(QIODevice::ReadOnly)) {
        *error = failureOfFile(file);
        return nullptr;
    }
    NibLoader loader;
    std::unique_ptr<QWidget> root(loader.load(&file));
    *error = root ? QString() : loader.errorString();
    return root;
}
} // namespace

std::unique_ptr<QWidget> NSNib::instantiate(const QString &path, QObject *owner, QString *error)
{
    QString failure;
    std::unique_ptr<QWidget> root = load(path, &failure);
    if (error)
        *error = failure;
    if (root)
        connectAndAwake(root.get(), owner);
    return root;
}
