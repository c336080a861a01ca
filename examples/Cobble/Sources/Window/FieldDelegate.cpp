#include "FieldDelegate.h"

#include "Appearance/IsolatedText.h"
#include "Appearance/ProblemLabel.h"
#include "Appearance/Sentence.h"
#include "Editing/TextInput.h"
#include "RecordTableModel.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>

namespace {
constexpr const char *FieldProperty = "_field";
constexpr const char *HeightProperty = "_cellHeight";
constexpr int MostCellLines = 5;
constexpr int LeastNoteWidth = 240;
constexpr int FrameWidth = 2;
/// What an editor was filled with.
constexpr auto FilledProperty = "_filled";

QString textIn(const QWidget *editor)
{
    const auto *const line = qobject_cast<const QLineEdit *>(editor);
    return line ? line->text() : static_cast<const TextInput *>(editor)->text();
}

void fill(QWidget *editor, const QString &text)
{
    if (auto *const line = qobject_cast<QLineEdit *>(editor))
        line->setText(text);
    else
        static_cast<TextInput *>(editor)->setText(text);
}

RecordTableModel *modelOf(const QModelIndex &index)
{
    return const_cast<RecordTableModel *>(qobject_cast<const RecordTableModel *>(index.model()));
}

/// At least the height of the cell.
void fitHeight(TextInput *lines)
{
    const int shown = qMin(lines->blockCount(), MostCellLines);
    const int around = 2 * int(lines->document()->documentMargin()) + 2 * lines->frameWidth();
    const int needed = shown * lines->fontMetrics().lineSpacing() + around;
    lines->resize(lines->width(), qMax(lines->property(HeightProperty).toInt(), needed));
}

/// A text may have several lines.
TextInput *makeLines(QWidget *parent)
{
    auto *const lines = new TextInput(parent);
    lines->setTabChangesFocus(true);
    QObject::connect(lines, &TextInput::textChanged, lines, [lines] { fitHeight(lines); });
    return lines;
}

QModelIndex cellOf(const QWidget *editor)
{
    return editor->property(FieldProperty).value<QPersistentModelIndex>();
}

/// The keyboard comes back from menus and other windows.
bool isForAWhile(const QFocusEvent &focus)
{
    return focus.reason() == Qt::PopupFocusReason || focus.reason() == Qt::ActiveWindowFocusReason;
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
    return IsolatedText::of(QStyledItemDelegate::displayText(value, locale));
}

QWidget *FieldDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &,
                                     const QModelIndex &index) const
{
    QWidget *editor = nullptr;
    if (modelOf(index)->typeAt(index.column()) == FieldType::Text)
        editor = makeLines(parent);
    else
        editor = new QLineEdit(parent);
    _editor = editor;
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
    fill(editor, index.data(Qt::EditRole).toString());
    editor->setProperty(FilledProperty, textIn(editor));
}

void FieldDelegate::setModelData(QWidget *editor, QAbstractItemModel *model,
                                 const QModelIndex &index) const
{
    model->setData(index, textIn(editor), Qt::EditRole);
}

void FieldDelegate::updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                                         const QModelIndex &) const
{
    editor->setGeometry(option.rect);
    editor->setProperty(HeightProperty, option.rect.height());
    if (auto *const lines = qobject_cast<TextInput *>(editor))
        fitHeight(lines);
    placeProblem(editor);
}

// --- Leaving ------------------------------------------------------------------------------------

Outcome<> FieldDelegate::store(QWidget *editor)
{
    const QModelIndex cell = cellOf(editor);
    RecordTableModel *const model = modelOf(cell);
    const Outcome<> taken = model ? model->take(textIn(editor), cell) : Outcome<>();
    showProblem(editor, taken.reason());
    return taken;
}

bool FieldDelegate::storeAndClose(QWidget *editor)
{
    if (!store(editor))
        return false;
    Q_EMIT closeEditor(editor, QAbstractItemDelegate::NoHint);
    return true;
}

void FieldDelegate::leave(QWidget *editor, Way way)
{
    const QPersistentModelIndex cell = cellOf(editor);
    if (storeAndClose(editor) && cell.isValid())
        Q_EMIT left(cell, way);
}

std::optional<RejectedInput> FieldDelegate::settle()
{
    if (!_editor || !_editor->isVisible())
        return {};
    const QModelIndex cell = cellOf(_editor);
    const QString text = textIn(_editor);
    const Outcome<> taken = store(_editor);
    if (taken) {
        Q_EMIT closeEditor(_editor, QAbstractItemDelegate::NoHint);
        return {};
    }
    return RejectedInput{cell.model()->headerData(cell.column(), Qt::Horizontal).toString(), text,
                         taken.reason(), _editor, [this] {
                             if (_problem)
                                 _problem->hide();
                             Q_EMIT closeEditor(_editor, QAbstractItemDelegate::RevertModelCache);
                         }};
}

std::optional<QString> FieldDelegate::typed() const
{
    const bool isTyped = _editor && _editor->isVisible() &&
                         textIn(_editor) != _editor->property(FilledProperty).toString();
    return isTyped ? std::optional(textIn(_editor)) : std::nullopt;
}

void FieldDelegate::typeAnew(const QString &text)
{
    if (_editor)
        fill(_editor, text);
}

void FieldDelegate::showProblem(QWidget *editor, const QString &reason)
{
    const QString sentence = Sentence::of(reason);
    editor->setAccessibleDescription(sentence);
    ProblemLabel::mark(editor, !reason.isEmpty());
    if (!_problem && !reason.isEmpty()) {
        _problem = new ProblemLabel(editor->parentWidget());
        // A note on the table, not a part of it.
        _problem->setAutoFillBackground(true);
        _problem->setBackgroundRole(QPalette::Window);
        _problem->setForegroundRole(QPalette::WindowText);
        _problem->setFramed(true);
        _problem->setAttribute(Qt::WA_NoMousePropagation);
        QObject::connect(editor, &QObject::destroyed, _problem, &QObject::deleteLater);
    }
    if (!_problem)
        return;
    _problem->setText(sentence);
    _problem->setVisible(!reason.isEmpty());
    placeProblem(editor);
}

/// Below the editor, or above it where there is no room below.
void FieldDelegate::placeProblem(const QWidget *editor) const
{
    if (!_problem || _problem->isHidden())
        return;
    const QWidget *const around = editor->parentWidget();
    const int width = qMin(qMax(editor->width(), LeastNoteWidth), around->width());
    const int height = _problem->heightForWidth(width);
    const bool fits = editor->geometry().bottom() + height < around->height();
    _problem->setGeometry(qBound(0, editor->x(), qMax(0, around->width() - width)),
                          fits ? editor->geometry().bottom() + 1 : editor->y() - height, width,
                          height);
    _problem->raise();
}

/// \return whether the key is not for the text.
bool FieldDelegate::handleKey(QWidget *editor, const QKeyEvent &press)
{
    switch (press.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (press.modifiers().testFlag(Qt::ShiftModifier))
            return false;
        leave(editor, Way::Down);
        return true;
    case Qt::Key_Tab:
        leave(editor, Way::Next);
        return true;
    case Qt::Key_Backtab:
        leave(editor, Way::Previous);
        return true;
    default:
        return false;
    }
}

bool FieldDelegate::eventFilter(QObject *object, QEvent *event)
{
    auto *const editor = qobject_cast<QWidget *>(object);
    if (editor && event->type() == QEvent::KeyPress &&
        handleKey(editor, *static_cast<const QKeyEvent *>(event)))
        return true;
    if (!editor || event->type() != QEvent::FocusOut)
        return QStyledItemDelegate::eventFilter(object, event);
    if (editor->isVisible() && !isForAWhile(*static_cast<const QFocusEvent *>(event)))
        storeAndClose(editor);
    return false;
}
