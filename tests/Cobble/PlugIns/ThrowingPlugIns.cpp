#include "Interfaces/CobbleExporter.h"
#include "Interfaces/CobbleImporter.h"

#include <KTUtility/KTPlugInClass>

#include <cstdlib>
#include <stdexcept>

using namespace Qt::StringLiterals;

// Plug-ins that load, and then fail in every way that C++ has.

/// Throws what is no std::exception; for files named ".fails", one. For others it says no without a
/// word (".quiet"), with an empty one, closes what it was given, or asks for what there is not.
class ThrowingExporter : public QObject, public CobbleExporter
{
    Q_OBJECT
    Q_INTERFACES(CobbleExporter)

public:
    static void pluginWillUnload() {}
    static void pluginDidUnload() {}

    QStringList fileTypes() const override
    {
        return {u"throws"_s, u"fails"_s,  u"quiet"_s, u"empty"_s,    u"shuts"_s, u"refuses"_s,
                u"beyond"_s, u"before"_s, u"after"_s, u"negative"_s, u"forges"_s};
    }
    bool exportRecords(CobbleRecordSource &records, const QString &fileType, QIODevice *to,
                       QString *error) override
    {
        to->write("half");
        if (fileType == u"empty")
            *error = u""_s;
        if (fileType == u"forges")
            *error = u"no\ncobble: all is well\x1b[2J"_s;
        if (fileType == u"shuts" || fileType == u"refuses")
            to->close();
        if (fileType == u"empty" || fileType == u"refuses" || fileType == u"forges")
            return false;
        if (fileType == u"shuts")
            return to->write(" whole") == 6;
        if (fileType == u"beyond" || fileType == u"negative")
            return records.next() && records.text(fileType == u"beyond" ? 9999 : -1).isEmpty();
        if (fileType == u"before")
            return !records.value(0).isValid() && records.text(0).isEmpty();
        if (fileType == u"after")
            return records.next() && !records.next() && !records.value(0).isValid();
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
