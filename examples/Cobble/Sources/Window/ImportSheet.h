#pragma once

#include "Importing/ColumnEditor.h"
#include "Importing/ImportPreviewer.h"
#include "TransferSheet.h"

#include <QMetaType>
#include <QTimer>

#include <memory>

/// What an import was and gave, as the sheets behind it get it under ImportSheet::ResultKey.
struct ImportResult
{
    ImportSchema schema;
    StoredImport stored;
};
Q_DECLARE_METATYPE(ImportResult)

/// Imports a file as a library of the bundle that the window shows. It shows what the file would
/// become before anything is stored, and lets the user choose how it is read.
class ImportSheet : public TransferSheet
{
    Q_OBJECT

public:
    inline static const QString ResultKey = QStringLiteral("importResult");

    explicit ImportSheet(OpenBundle *bundle);

    /// The file that the sheet shall begin with when it comes next.
    void propose(const QString &path) { _proposed = path; }
    /// Begins with nothing chosen, or with what was proposed.
    void configDialog() override;
    /// Shows the preview of what is chosen, as it does by itself a moment after something is.
    void showPreview();
    /// What was chosen.
    ImportRequest request();

Q_SIGNALS:
    /// A library was stored; the host lends the ImportResult to the next dialogs.
    void imported(const QString &libraryName);
    /// The preview of what is chosen is shown, or that there is none.
    void previewed();

protected:
    void windowDidLoad() override;
    Outcome<> work() override;
    void choose() override;

private:
    void fillBoxes();
    void connectInputs();
    void resetInputs();
    void inputChanged();
    void fileChanged();
    void show(const ImportPreview &preview);
    void showNothing(const QString &reason);
    void showForm(const ImportPreview &preview);
    void showRejected(const ImportPreview &preview);
    Outcome<ImportResult> import(const ImportRequest &request);

    std::unique_ptr<ColumnEditor> _columns;
    ImportPreviewer _previewer;
    QTimer _delay;
    QString _proposed;
};
