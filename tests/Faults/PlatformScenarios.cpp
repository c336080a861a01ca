// What the ground floor writes.

#include "FaultScenario.h"

#include "support/TestSupport.h"

#include <KTUtility/NSPropertyListSerialization>
#include <KTUtility/NSUserDefaults>

using namespace Qt::StringLiterals;

using testing_support::writeFile;

namespace {
const QString Domain = u"org.example.Faults"_s;
const QString OtherDomain = u"org.example.Others"_s;

QVariantMap oldValues()
{
    return {{u"kept"_s, 1}, {u"name"_s, u"Ada"_s}};
}

class PropertyListFile : public FaultScenario
{
public:
    explicit PropertyListFile(const QString &home)
        : _path(QString(home + u"/Lists/values.plist")), _new(oldValues())
    {
        NSDictionary::writeToFile(oldValues(), _path, true);
        _new.insert(u"long"_s, QString(100'000, u'x'));
    }
    Answer act() override { return {NSDictionary::writeToFile(_new, _path, true), {}}; }

private:
    QString _path;
    QVariantMap _new;
};

class NewPropertyListFile : public FaultScenario
{
public:
    explicit NewPropertyListFile(const QString &home) : _path(QString(home + u"/values.plist")) {}
    Answer act() override { return {NSDictionary::writeToFile(oldValues(), _path, true), {}}; }

private:
    QString _path;
};

/// User defaults with values in their file.
class Defaults : public FaultScenario
{
public:
    explicit Defaults(const QString & /*home*/)
    {
        for (const QString &domain : {Domain, OtherDomain})
            NSUserDefaults(domain).setPersistentDomain(oldValues(), domain);
        _defaults = std::make_unique<NSUserDefaults>(Domain);
    }

protected:
    NSUserDefaults &defaults() { return *_defaults; }

private:
    std::unique_ptr<NSUserDefaults> _defaults;
};

class DefaultsKey : public Defaults
{
public:
    using Defaults::Defaults;
    Answer act() override
    {
        defaults().setInteger(7, u"number"_s);
        return {defaults().synchronize(), {}};
    }
    /// What the program has set stays set, whatever becomes of the file.
    Answer seenAfter(const Answer &told) override
    {
        EXPECT_EQ(defaults().integerForKey(u"number"_s), 7);
        EXPECT_EQ(defaults().integerForKey(u"kept"_s), 1);
        return told;
    }
};

class DefaultsDomain : public Defaults
{
public:
    using Defaults::Defaults;
    Answer act() override
    {
        defaults().setPersistentDomain({{u"number"_s, 7}}, OtherDomain);
        return {defaults().synchronize(), {}};
    }
    Answer seenAfter(const Answer &told) override
    {
        const QVariantMap domain = {{u"number"_s, 7}};
        EXPECT_EQ(defaults().persistentDomainForName(OtherDomain), domain);
        EXPECT_EQ(defaults().integerForKey(u"kept"_s), 1);
        return told;
    }
};

class DefaultsGlobalDomain : public Defaults
{
public:
    using Defaults::Defaults;
    Answer act() override
    {
        defaults().setPersistentDomain({{u"number"_s, 7}}, NSGlobalDomain);
        EXPECT_EQ(defaults().integerForKey(u"number"_s), 7);
        return {defaults().synchronize(), {}};
    }
};

class DefaultsDomainRemoved : public Defaults
{
public:
    using Defaults::Defaults;
    Answer act() override
    {
        defaults().removePersistentDomainForName(OtherDomain);
        return {defaults().synchronize(), {}};
    }
};
} // namespace

QList<FaultRow> platformScenarios()
{
    return {
        faultRow<PropertyListFile>("PropertyListFile"),
        faultRow<NewPropertyListFile>("NewPropertyListFile"),
        faultRow<DefaultsKey>("DefaultsKey"),
        faultRow<DefaultsDomain>("DefaultsDomain"),
        faultRow<DefaultsGlobalDomain>("DefaultsGlobalDomain"),
        faultRow<DefaultsDomainRemoved>("DefaultsDomainRemoved"),
    };
}
