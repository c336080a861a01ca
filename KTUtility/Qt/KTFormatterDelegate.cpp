#include "KTFormatterDelegate.h"

#include "KTArrayModel.h"
#include "KTFormatterEdit.h"
#include "TextReading_p.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>

#include <optional>

using namespace KTPrivate;

namespace {
constexpr const char *IndexProperty = "_index";

using CellFormatter = std::shared_ptr<const NSFormatter>;

/// What a key does to an editor; nothing for other keys and events.
std::optional<QAbstractItemDelegate::EndEditHint> endingBy(const QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return std::nullopt;
    switch (static_cast<const QKeyEvent *>(event)->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return QAbstractItemDelegate::NoHint;
    case Qt::Key_Tab:
        return QAbstractItemDelegate::EditNextItem;
    case Qt::Key_Backtab:
        return QAbstractItemDelegate::EditPreviousItem;
    case Qt::Key_Escape:
        return QAbstractItemDelegate::RevertModelCache;
    default:
        return std::nullopt;
    }
}

/// The model's own value where it has one, not the text for editing.
QVariant cellValue(const QModelIndex &index)
{
    const QVariant formatter = index.data(KTArrayModel::FormatterRole);
    return index.data(formatter.canConvert<CellFormatter>() ? int(KTArrayModel::ValueRole)
                                                            : int(Qt::EditRole));
}

bool givesFormatters(const QModelIndex &index)
{
    return index.data(KTArrayModel::FormatterRole).canConvert<CellFormatter>();
}

/// The reason lies over the cells below like a tool tip.
void showReasonAbove(KTFormatterEdit *editor)
{
    auto *const reason = editor->findChild<QLabel *>(QStringLiteral("reason"));
    reason->setAutoFillBackground(true);
    reason->setBackgroundRole(QPalette::ToolTipBase);
    reason->setForegroundRole(QPalette::ToolTipText);
    reason->setMargin(2);
}

/// The editor is about to go, and nobody would know why.
void tellRejected(QAbstractItemModel *model, const QModelIndex &index, const QString &reason)
{
    if (auto *const array = qobject_cast<KTArrayModel *>(model))
        Q_EMIT array->rejected(index, reason);
}

/// With the reason it is higher, and moves up at the end of the table.
void fitHeight(KTFormatterEdit *editor)
{
    const int height = editor->reason().isEmpty() ? editor->lineEdit()->height()
                                                  : qMax(editor->heightForWidth(editor->width()),
                                                         editor->sizeHint().height());
    QRect place(editor->pos(), QSize(editor->width(), height));
    if (const QWidget *const parent = editor->parentWidget())
        place.moveBottom(qMin(place.bottom(), parent->rect().bottom()));
    editor->setGeometry(place);
}
} // namespace

void KTFormatterDelegate::setFormatter(int column,
                                       const std::shared_ptr<const NSFormatter> &formatter)
{
    _formatters.insert(column, formatter);
}

std::shared_ptr<const NSFormatter> KTFormatterDelegate::formatterFor(const QModelIndex &index) const
{
    return givesFormatters(index) ? index.data(KTArrayModel::FormatterRole).value<CellFormatter>()
                                  : _formatters.value(index.column());
}

QWidget *KTFormatterDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                                           const QModelIndex &index) const
{
    const CellFormatter formatter = formatterFor(index);
    if (!formatter && !givesFormatters(index))
        return QStyledItemDelegate::createEditor(parent, option, index);
    auto *const editor = new KTFormatterEdit(formatter, parent);
    editor->setAutoFillBackground(true);
    editor->setProperty(IndexProperty, QPersistentModelIndex(index));
    const QVariant alignment = index.data(Qt::TextAlignmentRole);
    if (alignment.isValid())
        editor->setAlignment(Qt::Alignment(alignment.toInt()));
    editor->setAccessibleName(index.model()->headerData(index.column(), Qt::Horizontal).toString());
    showReasonAbove(editor);
    editor->lineEdit()->installEventFilter(const_cast<KTFormatterDelegate *>(this));
    QObject::connect(editor, &KTFormatterEdit::reasonChanged, editor,
                     [editor] { fitHeight(editor); });
    return editor;
}

void KTFormatterDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    if (auto *const edit = qobject_cast<KTFormatterEdit *>(editor))
        edit->setValue(cellValue(index));
    else
        QStyledItemDelegate::setEditorData(editor, index);
}

void KTFormatterDelegate::setModelData(QWidget *editor, QAbstractItemModel *model,
                                       const QModelIndex &index) const
{
    auto *const edit = qobject_cast<KTFormatterEdit *>(editor);
    if (!edit) {
        QStyledItemDelegate::setModelData(editor, model, index);
        return;
    }
    const QVariant before = cellValue(index);
    if (!edit->isModified())
        return;
    if (!edit->commit())
        tellRejected(model, index, edit->reason());
    else if (!NSObject::isEqual(before, edit->value()))
        model->setData(index, edit->value(),
                       givesFormatters(index) ? int(KTArrayModel::ValueRole) : int(Qt::EditRole));
}

void KTFormatterDelegate::updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                                               const QModelIndex &index) const
{
    auto *const edit = qobject_cast<KTFormatterEdit *>(editor);
    if (!edit) {
        QStyledItemDelegate::updateEditorGeometry(editor, option, index);
        return;
    }
    edit->lineEdit()->setFixedHeight(
        qMax(option.rect.height(), edit->lineEdit()->minimumSizeHint().height()));
    edit->setGeometry(option.rect);
    fitHeight(edit);
}

void KTFormatterDelegate::initStyleOption(QStyleOptionViewItem *option,
                                          const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    const CellFormatter formatter = givesFormatters(index) ? nullptr : formatterFor(index);
    if (!formatter)
        return;
    const QVariant value = index.data(Qt::EditRole);
    const QVariant colour = shownColour(formatter.get(), value);
    option->text = shownText(formatter.get(), value);
    if (!colour.isNull())
        option->palette.setBrush(QPalette::Text, colour.value<QBrush>());
}

/// Has the model take what was typed.
/// \return whether the editor may be closed.
bool KTFormatterDelegate::finish(KTFormatterEdit *editor)
{
    const QPersistentModelIndex index =
        editor->property(IndexProperty).value<QPersistentModelIndex>();
    auto *const model = const_cast<QAbstractItemModel *>(index.model());
    const QVariant before = editor->value();
    if (!editor->isModified() || !index.isValid())
        return true;
    if (!editor->commit())
        return false;
    QString reason = tr("This value cannot be stored here.");
    const auto *const array = qobject_cast<KTArrayModel *>(model);
    const QObject listener;
    if (array)
        QObject::connect(array, &KTArrayModel::rejected, &listener,
                         [&](const QModelIndex &, const QString &why) { reason = why; });
    const QPointer<KTFormatterEdit> still = editor;
    if (model->setData(index, editor->value(),
                       givesFormatters(index) ? int(KTArrayModel::ValueRole) : int(Qt::EditRole)))
        return true;
    if (still) {
        const QString typed = editor->text();
        editor->setValue(before);
        editor->lineEdit()->setText(typed);
        editor->reject(reason);
    }
    return false;
}

bool KTFormatterDelegate::eventFilter(QObject *object, QEvent *event)
{
    auto *editor = qobject_cast<KTFormatterEdit *>(object);
    if (!editor)
        editor = qobject_cast<KTFormatterEdit *>(object->parent());
    if (!editor)
        return QStyledItemDelegate::eventFilter(object, event);
    const auto end = endingBy(event);
    if (!end)
        return QStyledItemDelegate::eventFilter(editor, event);
    const QPointer<KTFormatterEdit> still = editor;
    if (*end != RevertModelCache && !finish(editor))
        return true;
    // It loses the focus by being closed, which is nothing to be told of.
    if (still) {
        editor->lineEdit()->removeEventFilter(this);
        Q_EMIT closeEditor(editor, *end);
    }
    return true;
}
