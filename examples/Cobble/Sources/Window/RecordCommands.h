#pragma once

#include "Editing/EditResponder.h"
#include "Editing/PastePlan.h"
#include "Library/RecordIds.h"
#include "Records/RowRuns.h"
#include "Text/Outcome.h"

#include <QObject>
#include <QVariantList>

class MainWindowController;

/// What the Edit menu does to the records of a window: copying and pasting them, making new ones,
/// filling a field. Everything that changes records is one step that can be undone, and asks first
/// if something rejected would be left.
///
/// \code
/// RecordCommands records(window);
/// const EditCommands commands(&records);
/// commands.perform(EditCommand::Duplicate);
/// \endcode
class RecordCommands : public QObject, public EditResponder
{
    Q_OBJECT

public:
    /// \param window whose records are meant; must outlive this.
    explicit RecordCommands(MainWindowController *window) : _window(window) {}

    QWidget *view() const override;
    bool canDo(EditCommand command) const override;
    void perform(EditCommand command) override;

private:
    QModelIndex currentCell() const;
    const RowRuns &selected() const;
    bool canFill() const;
    void performAtOnce(EditCommand command);
    bool copy();
    void copyCell();
    void cut();
    void paste();
    void pasteIntoCells();
    PasteTarget pasteTarget() const;
    QList<qsizetype> fieldsFromCurrent() const;
    void store(const PastePlan &plan, const std::function<void()> &storing);
    RecordIds insert(const QString &kind, const QList<QVariantList> &values);
    RecordIds add(const std::function<Outcome<>(RecordIds *)> &adding);
    void overwrite(const PastePlan &plan, const RecordIds &ids);
    void addRecord();
    void editNew(qint64 id);
    void duplicate();
    void fillDown();
    void fill(const RecordIds &records, qsizetype field, const QVariant &value);

    MainWindowController *_window;
};
