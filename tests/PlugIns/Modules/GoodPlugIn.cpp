// A plug-in that does all that it should, built as two versions with the same class name.

#include "TestExporter.h"

#include <KTUtility/KTPlugInClass>
#include <KTUtility/NSBundle>

#include <QPointer>

using namespace Qt::StringLiterals;

class GoodExporter : public QObject, public TestExporter
{
    Q_OBJECT
    Q_INTERFACES(TestExporter)

public:
    GoodExporter()
    {
        ++_made;
        report(u"made"_s);
    }
    ~GoodExporter() override { report(u"gone"_s); }

    static void pluginDidLoadBundle(const NSBundle &bundle, QObject *updateHandler)
    {
        _handler = updateHandler;
        report(u"pluginDidLoadBundle "_s + bundle.bundleIdentifier());
    }
    static void pluginWillUnload() { report(u"pluginWillUnload"_s); }
    static void pluginDidUnload() { report(u"pluginDidUnload"_s); }

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
