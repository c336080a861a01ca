#include "FieldDelegate.h"

#include "Appearance/ProblemLabel.h"
#include "Appearance/Sentence.h"
#include "RecordTableModel.h"
#include "TextInput.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QToolTip>

namespace {
constexpr const char *FieldProperty = "_field";
constexpr int FrameWidth = 2;
constexpr QChar FirstStrongIsolate(0x2068);
constexpr QChar PopIsolate(0x2069);

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
    const QString sentence = Sentence::of(reason);
    editor->setAccessibleDescription(sentence);
    QToolTip::showText(editor->mapToGlobal(QPoint(0, editor->height())), sentence, editor);
}
} // namespace

void FieldDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    const QColor base = option->palette.color(QPalette::Base);
    QStyledItemDelegate::initStyleOption(option, index);
    const QColor text = option->palette.color(QPalette::Text);
    if (index.data(Qt::ForegroundRole).isValid() &&
        ProblemLabel::contrast(text, base) < ProblemLabel::LeastContrast)
        option->palette.setColor(QPalette::Text, ProblemLabel::colorOn(base));
}

void FieldDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const
{
    QStyledItemDelegate::paint(painter, option, index);
    if (!option.state.testFlag(QStyle::State_HasFocus))
        return;
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    painter->save();
    painter->setPen(
        QPen(option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Highlight),
             FrameWidth));
    painter->drawRect(option.rect.adjusted(1, 1, -1, -1));
    painter->restore();
}

QString FieldDelegate::displayText(const QVariant &value, const QLocale &locale) const
{
    const QString text = QStyledItemDelegate::displayText(value, locale);
    return QGuiApplication::isRightToLeft() && !text.isEmpty()
               ? FirstStrongIsolate + text + PopIsolate
               : text;
}

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
