#include "TextExporter.h"

#include "JSONText.h"
#include "Text/CSVText.h"

#include <KTUtility/KTPlugInClass>
#include <KTUtility/KTPlugInManager>

using namespace Qt::StringLiterals;

namespace {
/// Writes texts and remembers whether all of them arrived.
class Writer
{
public:
    explicit Writer(QIODevice *device) : _device(device) {}

    void write(const QString &text)
    {
        const QByteArray bytes = text.toUtf8();
        _isDone = _isDone && _device->write(bytes) == bytes.size();
    }
    bool isDone() const { return _isDone; }

private:
    QIODevice *_device;
    bool _isDone = true;
};

/// What the user wants to become of formulas; marked unless he has set otherwise.
CSVText::Formulas formulasInCSV()
{
    const QVariant keepsFormulas = KTPlugInManager().pluginDefaultsObjectForKey(
        u"org.cobble.Cobble.TextExporter.keepsFormulas"_s);
    return keepsFormulas.toBool() ? CSVText::Formulas::AsTyped : CSVText::Formulas::AsText;
}

void writeCSV(CobbleRecordSource &records, Writer &writer)
{
    const QStringList titles = records.fieldTitles();
    const CSVText::Formulas formulas = formulasInCSV();
    writer.write(CSVText::row(titles, formulas));
    while (records.next() && writer.isDone()) {
        QStringList texts;
        texts.reserve(titles.size());
        for (qsizetype field = 0; field < titles.size(); ++field)
            texts += records.text(field);
        writer.write(CSVText::row(texts, formulas));
    }
}

QString jsonObject(const CobbleRecordSource &records, const QStringList &names)
{
    QStringList members;
    for (qsizetype field = 0; field < names.size(); ++field)
        members += JSONText::of(names.at(field)) + u": " + JSONText::of(records.value(field));
    return u"  {" + members.join(u", "_s) + u'}';
}

void writeJSON(CobbleRecordSource &records, Writer &writer)
{
    const QStringList names = records.fieldNames();
    QString before = u"[\n"_s;
    while (records.next() && writer.isDone()) {
        writer.write(before + jsonObject(records, names));
        before = u",\n"_s;
    }
    writer.write(before.startsWith(u'[') ? u"[]\n"_s : u"\n]\n"_s);
}
} // namespace

QStringList TextExporter::fileTypes() const
{
    return {u"csv"_s, u"json"_s};
}

bool TextExporter::exportRecords(CobbleRecordSource &records, const QString &fileType,
                                 QIODevice *to, QString *error)
{
    Writer writer(to);
    if (fileType == u"json")
        writeJSON(records, writer);
    else
        writeCSV(records, writer);
    if (!writer.isDone())
        *error = to->errorString();
    return writer.isDone();
}

KT_PRINCIPAL_CLASS(TextExporter, CobbleExporter)
