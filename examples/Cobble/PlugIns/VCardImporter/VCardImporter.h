#pragma once

#include "Interfaces/CobbleImporter.h"

/// Imports vCards of the versions 2.1, 3.0 (RFC 2426) and 4.0 (RFC 6350): names, phone numbers,
/// mail and postal addresses, birthdays, pictures and notes. A card becomes a row; what several
/// cards have gets a column, a second one of a kind gets another.
class VCardImporter : public QObject, public CobbleImporter
{
    Q_OBJECT
    Q_INTERFACES(CobbleImporter)

public:
    static void pluginWillUnload() {}
    static void pluginDidUnload() {}

    QStringList fileTypes() const override;
    bool readTable(const QString &text, CobbleTable *table, QString *error) override;
};
