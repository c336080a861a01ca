#include "CopiedForms.h"

#include "Text/CSVText.h"
#include "Text/HTMLTable.h"

using namespace Qt::StringLiterals;

namespace {
const QString Plain = u"text/plain"_s;
const QString Separated = u"text/csv"_s;
const QString HTML = u"text/html"_s;
} // namespace

QStringList CopiedForms::names()
{
    return {CopiedRecords::MimeType, Separated, HTML, Plain};
}

QVariant CopiedForms::retrieveData(const QString &mimeType, QMetaType) const
{
    if (mimeType == CopiedRecords::MimeType)
        return _records.bytes();
    if (mimeType == Separated)
        return separated().toUtf8();
    if (mimeType == HTML)
        return table();
    return mimeType == Plain ? QVariant(tabbed()) : QVariant();
}

QString CopiedForms::tabbed() const
{
    QString text;
    for (qsizetype row = 0; row < _records.rows.size(); ++row)
        text += CSVText::pastedRow(_records.texts(row));
    return text;
}

QString CopiedForms::separated() const
{
    QString text = CSVText::row(_records.titles(), CSVText::Formulas::AsText);
    for (qsizetype row = 0; row < _records.rows.size(); ++row)
        text += CSVText::row(_records.texts(row), CSVText::Formulas::AsText);
    return text;
}

/// Spreadsheets run formulas in HTML, too.
QString CopiedForms::table() const
{
    QList<QStringList> rows;
    for (qsizetype row = 0; row < _records.rows.size(); ++row) {
        rows += _records.texts(row);
        std::transform(rows.last().begin(), rows.last().end(), rows.last().begin(),
                       &FormulaText::marked);
    }
    return HTMLTable::text(_records.titles(), rows);
}
