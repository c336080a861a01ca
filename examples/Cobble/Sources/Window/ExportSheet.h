#pragma once

#include "TransferSheet.h"

/// Exports the library that the window shows, which the host lends under LibraryKey.
class ExportSheet : public TransferSheet
{
    Q_OBJECT

public:
    inline static const QString LibraryKey = QStringLiteral("library");

    explicit ExportSheet(OpenBundle *bundle);

    void configDialog() override;

Q_SIGNALS:
    void exported(qint64 recordCount, const QString &path);

protected:
    Outcome<> work() override;
    void choose() override;

private:
    bool mayWrite(const QString &path);
    Outcome<qint64> exportTo(const QString &path);

    QString _libraryName;
    /// The file that the user agrees to replace.
    QString _confirmed;
};
