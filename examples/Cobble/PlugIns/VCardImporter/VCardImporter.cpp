#include "VCardImporter.h"

#include "VCardTable.h"

#include <KTUtility/KTPlugInClass>

QStringList VCardImporter::fileTypes() const
{
    return {QStringLiteral("vcf"), QStringLiteral("vcard")};
}

bool VCardImporter::readTable(const QString &text, CobbleTable *table, QString *error)
{
    VCardTable cards;
    const QList<VCardLine> lines = VCardLine::linesOf(text);
    for (const VCardLine &line : lines)
        cards.add(line);
    if (cards.isEmpty()) {
        *error = QStringLiteral("there is no vCard in it");
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
