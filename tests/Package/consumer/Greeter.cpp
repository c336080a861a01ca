// A plug-in of somebody else, built against the installed framework.

#include <KTUtility/KTPlugInClass>

class Greeter : public QObject
{
public:
    Greeter() { setObjectName(QStringLiteral("greetings")); }
    static void pluginWillUnload() {}
    static void pluginDidUnload() {}
};

KT_PRINCIPAL_CLASS(Greeter)
