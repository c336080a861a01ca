#include "VCardImporter.h"

#include "VCardTable.h"

#include <KTUtility/KTPlugInClass>

using namespace Qt::StringLiterals;

QStringList VCardImporter::fileTypes() const
{
    return {u"vcf"_s, u"vcard"_s};
}

bool VCardImporter::readTable(const QString &text, CobbleTable *table, QString *error)
{
    VCardTable cards;
    const QList<VCardLine> lines = VCardLine::linesOf(text);
    for (const VCardLine &line : lines)
        cards.add(line);
    if (cards.isEmpty()) {
        *error = u"there is no vCard in it"_s;
        return false;
    }
    // Cards without their pictures would look like all that there is.
    if (!cards.errorText().isNull()) {
        *error = cards.errorText();
        return false;
    }
    *table = cards.table();
    return true;
}

KT_PRINCIPAL_CLASS(VCardImporter, CobbleImporter)
