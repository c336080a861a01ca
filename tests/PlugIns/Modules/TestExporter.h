#pragma once

#include <QObject>
#include <QStringList>
#include <QVariant>

/// What the plug-ins of the tests promise.
class TestExporter
{
public:
    virtual ~TestExporter() = default;
    virtual QString fileType() const = 0;
};
Q_DECLARE_INTERFACE(TestExporter, "org.cobble.tests.Exporter")

/// Another promise, which none of them makes.
class TestImporter
{
public:
    virtual ~TestImporter() = default;
};
Q_DECLARE_INTERFACE(TestImporter, "org.cobble.tests.Importer")

/// Appends to the events that an object keeps, so that tests see what happened in which order.
inline void addEvent(QObject *keeper, const QString &event)
{
    if (!keeper)
        return;
    QStringList events = keeper->property("events").toStringList();
    keeper->setProperty("events", events << event);
}
