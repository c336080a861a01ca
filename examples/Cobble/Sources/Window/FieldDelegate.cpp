#include "FieldDelegate.h"

#include "RecordTableModel.h"
#include "TextInput.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QToolTip>

namespace {
constexpr const char *FieldProperty = "_field";

QString textIn(const QWidget *editor)
{
    const auto *const line = qobject_cast<const QLineEdit *>(editor);
    return line ? line->text() : static_cast<const TextInput *>(editor)->text();
}

RecordTableModel *modelOf(const QModelIndex &index)
{
    return const_cast<RecordTableModel *>(qobject_cast<const RecordTableModel *>(index.model()));
}

bool isReturn(const QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return false;
    const auto *const press = static_cast<const QKeyEvent *>(event);
    return (press->key() == Qt::Key_Return || press->key() == Qt::Key_Enter) &&
           !press->modifiers().testFlag(Qt::ShiftModifier);
}

void showProblem(QWidget *editor, const QString &reason)
{
    editor->setAccessibleDescription(reason);
    QToolTip::showText(editor->mapToGlobal(QPoint(0, editor->height())), reason, editor);
}
} // namespace

QWidget *FieldDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &,
                                     const QModelIndex &index) const
{
    // A line edit would lose the line breaks of a text.
    const QString text = index.data(Qt::EditRole).toString();
    QWidget *editor = nullptr;
    if (text.contains(u'\n'))
        editor = new TextInput(parent);
    else
        editor = new QLineEdit(parent);
    editor->setProperty(FieldProperty, QPersistentModelIndex(index));
    editor->setAccessibleName(index.model()->headerData(index.column(), Qt::Horizontal).toString());
    return editor;
}

void FieldDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    // Another field's change must not take away what is being typed.
    if (editor->property("_isFilled").toBool())
        return;
    editor->setProperty("_isFilled", true);
    const QString text = index.data(Qt::EditRole).toString();
    if (auto *const line = qobject_cast<QLineEdit *>(editor))
        line->setText(text);
    else
        static_cast<TextInput *>(editor)->setText(text);
}

void FieldDelegate::setModelData(QWidget *editor, QAbstractItemModel *model,
                                 const QModelIndex &index) const
{
    model->setData(index, textIn(editor), Qt::EditRole);
}

void FieldDelegate::updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                                         const QModelIndex &) const
{
    QRect place = option.rect;
    if (qobject_cast<TextInput *>(editor))
        place.setHeight(qMax(place.height(), editor->fontMetrics().lineSpacing() * 4));
    editor->setGeometry(place);
}

bool FieldDelegate::eventFilter(QObject *object, QEvent *event)
{
    auto *const editor = qobject_cast<QWidget *>(object);
    if (!editor || !isReturn(event))
        return QStyledItemDelegate::eventFilter(object, event);
    const QModelIndex index = editor->property(FieldProperty).value<QPersistentModelIndex>();
    RecordTableModel *const model = modelOf(index);
    const Outcome<> taken = model ? model->take(textIn(editor), index) : Outcome<>();
    if (taken)
        Q_EMIT closeEditor(editor, QAbstractItemDelegate::NoHint);
    else
        showProblem(editor, taken.reason());
    return true;
}
