// A plug-in that does all that it should, built as two versions with the same class name.

#include "TestExporter.h"

#include <KTUtility/KTPlugInClass>
#include <KTUtility/NSBundle>

#include <QPointer>

class GoodExporter : public QObject, public TestExporter
{
    Q_OBJECT
    Q_INTERFACES(TestExporter)

public:
    GoodExporter()
    {
        ++_made;
        report(QStringLiteral("made"));
    }
    ~GoodExporter() override { report(QStringLiteral("gone")); }

    static void pluginDidLoadBundle(const NSBundle &bundle, QObject *updateHandler)
    {
        _handler = updateHandler;
        report(QStringLiteral("pluginDidLoadBundle ") + bundle.bundleIdentifier());
    }
    static void pluginWillUnload() { report(QStringLiteral("pluginWillUnload")); }
    static void pluginDidUnload() { report(QStringLiteral("pluginDidUnload")); }

    /// The version, and how many instances it has made: versions share nothing.
    QString fileType() const override
    {
        return QStringLiteral(KT_TEST_VERSION) + u'/' + QString::number(_made);
    }

private:
    static void report(const QString &event)
    {
        addEvent(_handler, QStringLiteral(KT_TEST_VERSION) + u' ' + event);
    }

    static inline QPointer<QObject> _handler;
    static inline int _made = 0;
};

KT_PRINCIPAL_CLASS(GoodExporter, TestExporter)

#include "GoodPlugIn.moc"
