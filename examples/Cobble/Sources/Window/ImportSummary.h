#pragma once

#include "ImportSheet.h"

/// Says what an import has stored: the columns with their types, and the values that their columns
/// could not read.
class ImportSummary : public KTDialogController
{
    Q_OBJECT

public:
    /// More values than these are only counted.
    static constexpr qsizetype MostShown = 1000;

    ImportSummary();

    void configDialog() override;

protected:
    void windowDidLoad() override;

private:
    void showColumns(const ImportResult &result);
    void showUnread(const ImportResult &result);
};
