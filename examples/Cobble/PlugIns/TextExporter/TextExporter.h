#pragma once

#include "Interfaces/CobbleExporter.h"

/// Exports to CSV (RFC 4180: the texts that people see) and JSON (RFC 8259: an array of objects
/// with the values; dates are texts of ISO 8601).
///
/// Texts that a spreadsheet would run as formulas are marked in CSV (see FormulaText) unless
/// "org.cobble.Cobble.TextExporter.keepsFormulas" is true in the settings of plug-ins.
class TextExporter : public QObject, public CobbleExporter
{
    Q_OBJECT
    Q_INTERFACES(CobbleExporter)

public:
    static void pluginWillUnload() {}
    static void pluginDidUnload() {}

    QStringList fileTypes() const override;
    bool exportRecords(CobbleRecordSource &records, const QString &fileType, QIODevice *to,
                       QString *error) override;
};
