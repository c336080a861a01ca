// A plug-in of somebody else, built against the installed framework.

#include <KTUtility/KTPlugInClass>

using namespace Qt::StringLiterals;

class Greeter : public QObject
{
public:
    Greeter() { setObjectName(u"greetings"_s); }
    static void pluginWillUnload() {}
    static void pluginDidUnload() {}
};

KT_PRINCIPAL_CLASS(Greeter)
