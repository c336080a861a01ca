#pragma once

#include "DetailForm.h"

#include <QPointer>
#include <QWidget>

#include <functional>

class FieldEditor;
class QFormLayout;

/// The form below a table of records: an editor for each field of what is selected.
///
/// Several selected records are edited at once; where they differ, the editor is empty and says so.
class DetailPane : public QWidget
{
    Q_OBJECT

public:
    /// \param records whose selection is edited; must outlive the pane.
    explicit DetailPane(NSArrayController *records, QWidget *parent = nullptr);
    ~DetailPane() override;

    void setFields(const QList<FormField *> &fields);

    /// Makes what it is given one change.
    /// \return why nothing was changed; nil if all was.
    using Changer = std::function<QString(const std::function<void()> &changes)>;
    /// What editors change records by, so that several records change all or not at all.
    void setChanger(const Changer &changer) { _changer = changer; }
    /// The editor of a field by its position; null if there is none.
    FieldEditor *editor(qsizetype field) const;

private:
    void rebuild();
    void addRow(FormRow *row);
    void showSelection();
    void show(FormRow *row, FieldEditor *editor) const;
    void take(FormRow *row, FieldEditor *editor, const QString &text);

    NSArrayController *_records;
    DetailForm _form;
    QFormLayout *_layout;
    QList<QPointer<FieldEditor>> _editors;
    /// What the editors show.
    QVariantList _shown;
    Changer _changer;
};
