#pragma once

#include "Library/RecordIds.h"
#include "TransferSheet.h"

/// Exports the library that the window shows, which the host lends under LibraryKey; or some of its
/// records, whose numbers it lends as SharedRecordIds: those that are shown where not all are, or in
/// another order than they are stored, and those that are selected.
class ExportSheet : public TransferSheet
{
    Q_OBJECT

public:
    inline static const QString LibraryKey = QStringLiteral("library");
    inline static const QString ShownKey = QStringLiteral("shown records");
    inline static const QString SelectedKey = QStringLiteral("selected records");

    explicit ExportSheet(OpenBundle *bundle);

    void configDialog() override;

Q_SIGNALS:
    void exported(qint64 recordCount, const QString &path);

protected:
    Outcome<> work() override;
    void choose() override;

private:
    void offerRecords(const QString &key, const QString &title);
    SharedRecordIds chosenRecords();
    bool mayWrite(const QString &path);
    Outcome<qint64> exportTo(const QString &path);

    QString _libraryName;
    /// The file that the user agrees to replace.
    QString _confirmed;
};
