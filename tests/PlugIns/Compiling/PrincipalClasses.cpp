// Principal classes, one of which is registered: the compiler takes it or says what is missing.

#include <KTUtility/KTPlugInClass>

class WithoutDidLoad : public QObject
{
public:
    static void pluginWillUnload();
    static void pluginDidUnload();
};

class Complete : public WithoutDidLoad
{
public:
    static void pluginDidLoadBundle(const NSBundle &bundle, QObject *updateHandler);
};

class FinalWithoutDidLoad final : public WithoutDidLoad
{
};

class WithoutWillUnload : public QObject
{
public:
    static void pluginDidUnload();
};

class PrivateDidUnload : public WithoutDidLoad
{
    static void pluginDidUnload();
};

class OtherDidLoad : public WithoutDidLoad
{
public:
    static void pluginDidLoadBundle(QObject *updateHandler);
};

class PrivateDidLoad : public WithoutDidLoad
{
    static void pluginDidLoadBundle(const NSBundle &bundle, QObject *updateHandler);
};

class MemberDidLoad : public WithoutDidLoad
{
public:
    void pluginDidLoadBundle(const NSBundle &bundle, QObject *updateHandler);
};

class FinalOtherDidLoad final : public WithoutDidLoad
{
public:
    static void pluginDidLoadBundle(int);
};

KT_PRINCIPAL_CLASS(PRINCIPAL_CLASS)
