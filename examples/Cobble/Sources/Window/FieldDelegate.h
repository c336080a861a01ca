#pragma once

#include "Editing/RejectedInput.h"
#include "Text/Outcome.h"

#include <QStyledItemDelegate>

class ProblemLabel;
class QKeyEvent;

/// Lets people type into the cells of a RecordTableModel. Return stores what was typed and goes
/// down, Tab goes to the next field, Escape takes back; in texts, Shift+Return begins a new line. An
/// editor does not close over a text that its field cannot read; the reason stands below it.
class FieldDelegate : public QStyledItemDelegate, public InputSource
{
    Q_OBJECT

public:
    /// Where people go from a cell when they are done with it.
    enum class Way { Down, Next, Previous };

    using QStyledItemDelegate::QStyledItemDelegate;

    /// With a frame around the cell that the keyboard edits.
    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    /// In windows that are written from the right, telephone numbers still begin at the left.
    QString displayText(const QVariant &value, const QLocale &locale) const override;
    std::optional<RejectedInput> settle() override;
    /// What is typed in the cell that is being edited; nothing if nobody has typed anything.
    std::optional<QString> typed() const;
    /// Replaces it.
    void typeAnew(const QString &text);

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override;
    void updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const override;

Q_SIGNALS:
    /// A cell was typed into and is stored.
    void left(const QModelIndex &cell, FieldDelegate::Way way);

protected:
    /// The red of negative numbers is one that can be read on the colours of the desktop.
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    bool handleKey(QWidget *editor, const QKeyEvent &press);
    void leave(QWidget *editor, Way way);
    bool storeAndClose(QWidget *editor);
    Outcome<> store(QWidget *editor);
    void showProblem(QWidget *editor, const QString &reason);
    void placeProblem(const QWidget *editor) const;

    /// The one that is open.
    mutable QPointer<QWidget> _editor;
    QPointer<ProblemLabel> _problem;
};
