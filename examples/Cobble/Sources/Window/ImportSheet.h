#pragma once

#include "Import/ImportFile.h"
#include "TransferSheet.h"

#include <QMetaType>

/// What an import was and gave, as the sheets behind it get it under ImportSheet::ResultKey.
struct ImportResult
{
    ImportSchema schema;
    StoredImport stored;
};
Q_DECLARE_METATYPE(ImportResult)

/// Imports a file as a library of the bundle that the window shows.
class ImportSheet : public TransferSheet
{
    Q_OBJECT

public:
    inline static const QString ResultKey = QStringLiteral("importResult");

    explicit ImportSheet(OpenBundle *bundle);

    /// Begins with nothing chosen.
    void configDialog() override;

Q_SIGNALS:
    /// A library was stored; the host lends the ImportResult to the next dialogs.
    void imported(const QString &libraryName);

protected:
    Outcome<> work() override;
    void choose() override;

private:
    ImportRequest request();
    Outcome<ImportResult> import(const ImportRequest &request);
};
