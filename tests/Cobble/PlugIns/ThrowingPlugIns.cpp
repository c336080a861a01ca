#include "Interfaces/CobbleExporter.h"
#include "Interfaces/CobbleImporter.h"

#include <KTUtility/KTPlugInClass>

#include <cstdlib>
#include <stdexcept>

using namespace Qt::StringLiterals;

// Plug-ins that load, and then fail in every way that C++ has.

/// Throws what is no std::exception; for files named ".fails", one; ".quiet" fails without a word.
class ThrowingExporter : public QObject, public CobbleExporter
{
    Q_OBJECT
    Q_INTERFACES(CobbleExporter)

public:
    static void pluginWillUnload() {}
    static void pluginDidUnload() {}

    QStringList fileTypes() const override { return {u"throws"_s, u"fails"_s, u"quiet"_s}; }
    bool exportRecords(CobbleRecordSource &, const QString &fileType, QIODevice *to,
                       QString *) override
    {
        to->write("half");
        if (fileType == u"quiet")
            return false;
        if (fileType == u"fails")
            throw std::runtime_error("no paper");
        throw 42;
    }
};

/// The same for what stands in a file; "quiet" fails without a word.
class ThrowingImporter : public QObject, public CobbleImporter
{
    Q_OBJECT
    Q_INTERFACES(CobbleImporter)

public:
    static void pluginWillUnload() {}
    static void pluginDidUnload() {}

    QStringList fileTypes() const override { return {u"throws"_s, u"fails"_s, u"quiet"_s}; }
    bool readTable(const QString &text, CobbleTable *, QString *) override
    {
        if (text == u"quiet")
            return false;
        if (text == u"fails")
            throw std::runtime_error("no paper");
        throw 42;
    }
};

/// Cannot even say what it is for.
class SpeechlessExporter : public ThrowingExporter
{
    Q_OBJECT

public:
    QStringList fileTypes() const override { throw 42; }
};

/// Takes the program along.
class EndingExporter : public ThrowingExporter
{
    Q_OBJECT

public:
    QStringList fileTypes() const override { return {u"ends"_s}; }
    bool exportRecords(CobbleRecordSource &, const QString &, QIODevice *, QString *) override
    {
        std::abort();
    }
};

/// The same for an importer.
class EndingImporter : public ThrowingImporter
{
    Q_OBJECT

public:
    QStringList fileTypes() const override { return {u"ends"_s}; }
    bool readTable(const QString &, CobbleTable *, QString *) override { std::abort(); }
};

KT_PRINCIPAL_CLASS(ThrowingExporter, CobbleExporter)
KT_PRINCIPAL_CLASS(ThrowingImporter, CobbleImporter)
KT_PRINCIPAL_CLASS(SpeechlessExporter, CobbleExporter)
KT_PRINCIPAL_CLASS(EndingExporter, CobbleExporter)
KT_PRINCIPAL_CLASS(EndingImporter, CobbleImporter)

#include "ThrowingPlugIns.moc"
