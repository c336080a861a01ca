#include "CSVExporter.h"

#include <KTUtility/KTInternational>
#include <KTUtility/KTPlugInClass>
#include <KTUtility/NSCharacterSet>

#include <algorithm>

using namespace Qt::StringLiterals;

KT_PRINCIPAL_CLASS(CSVExporter, ExpenseExporter)

namespace {
QString quoted(const QString &text)
{
    const NSCharacterSet &special = KTInternational::illegalCSVCharacterSet();
    const bool needsQuotes = std::any_of(text.begin(), text.end(), [&](QChar letter) {
        return special.characterIsMember(letter.unicode());
    });
    return needsQuotes ? u'"' + QString(text).replace(u'"', u"\"\""_s) + u'"' : text;
}
} // namespace

QString CSVExporter::fileType() const
{
    return u"csv"_s;
}

QByteArray CSVExporter::exported(const QAbstractItemModel &table) const
{
    QStringList alternates;
    const QString separator =
        KTInternational::instance()->localizedCSVSeparatorAndAlternates(&alternates);
    QString text;
    for (int row = -1; row < table.rowCount(); ++row) {
        QStringList texts;
        for (int column = 0; column < table.columnCount(); ++column)
            texts += quoted(row < 0 ? table.headerData(column, Qt::Horizontal).toString()
                                    : table.index(row, column).data().toString());
        text += texts.join(separator) + u"\r\n"_s;
    }
    return text.toUtf8();
}
