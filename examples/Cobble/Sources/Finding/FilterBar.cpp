#include "FilterBar.h"

#include "Appearance/ListNames.h"
#include "Appearance/ProblemLabel.h"
#include "Filter/FilterCondition.h"
#include "Filter/FilterWriter.h"
#include "FilterRow.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {
/// More conditions than that are shown as text only.
constexpr size_t MostConditions = 8;

/// The comparisons of a filter that rows can show; nothing for others.
std::optional<QList<FilterComparison>> flatComparisons(const FilterNode &root,
                                                       const FilterFields &fields)
{
    QList<FilterComparison> comparisons;
    const bool isOne = root.kind == FilterNode::Kind::Comparison;
    const std::vector<FilterNode> parts = isOne ? std::vector{root} : root.parts;
    for (const FilterNode &part : parts) {
        if (part.kind != FilterNode::Kind::Comparison ||
            !FilterRow::canShow(part.comparison, fields))
            return std::nullopt;
        comparisons += part.comparison;
    }
    const bool isShort = root.kind != FilterNode::Kind::Not && parts.size() <= MostConditions;
    return isShort ? std::optional(comparisons) : std::nullopt;
}
} // namespace

FilterBar::FilterBar(QWidget *parent) : QWidget(parent), _layout(new QVBoxLayout(this))
{
    setObjectName(u"filterBar"_s);
    _layout->setContentsMargins(6, 6, 6, 6);
    makeHead();
    _rowsPlace = new QWidget;
    _rowsLayout = new QVBoxLayout(_rowsPlace);
    _rowsLayout->setContentsMargins(0, 0, 0, 0);
    _layout->addWidget(_rowsPlace);
    makeText();
    ListNames::give(this);
    setFields(nullptr);
}

void FilterBar::makeHead()
{
    auto *const head = new QHBoxLayout;
    _join = new QComboBox;
    _join->setAccessibleName(tr("How Conditions Are Joined"));
    _join->addItems({tr("All conditions are met"), tr("Any condition is met")});
    _save = new QPushButton(tr("&Save…"));
    _save->setToolTip(tr("Keeps the filter in the list of libraries"));
    _close = new QPushButton(tr("&Remove Filter"));
    _onlyText = new QLabel(tr("This filter can only be changed as text."));
    _onlyText->setWordWrap(true);
    head->addWidget(_join);
    head->addWidget(_onlyText, 1);
    head->addStretch();
    head->addWidget(_save);
    head->addWidget(_close);
    _layout->addLayout(head);
    QObject::connect(_join, &QComboBox::activated, this, &FilterBar::takeRows);
    QObject::connect(_save, &QPushButton::clicked, this, &FilterBar::saveRequested);
    QObject::connect(_close, &QPushButton::clicked, this, &FilterBar::closeRequested);
}

void FilterBar::makeText()
{
    auto *const line = new QHBoxLayout;
    auto *const label = new QLabel(tr("As &text:"));
    _text = new QLineEdit;
    _text->setAccessibleName(tr("Filter as Text"));
    _text->setClearButtonEnabled(true);
    label->setBuddy(_text);
    line->addWidget(label);
    line->addWidget(_text);
    _layout->addLayout(line);
    _problem = new ProblemLabel;
    _problem->setTextFormat(Qt::PlainText);
    _problem->setWordWrap(true);
    _layout->addWidget(_problem);
    QObject::connect(_text, &QLineEdit::textChanged, this, &FilterBar::takeText);
}

void FilterBar::setFields(const RecordFilter::Fields &fields)
{
    _fields = fields;
    setEnabled(fields != nullptr);
    setText(QString());
}

void FilterBar::setFilter(const RecordFilter &filter)
{
    {
        const QSignalBlocker blocker(_text);
        _text->setText(filter.text(FilterNotation::Typed));
    }
    take(filter);
    // What rows have shown before is not what is wrong now.
    showRows();
    showProblems();
}

QString FilterBar::text() const
{
    return _text->text();
}

QString FilterBar::problem() const
{
    return _problem->isHidden() ? QString() : _problem->text();
}

void FilterBar::setText(const QString &text)
{
    if (_text->text() == text)
        takeText();
    else
        _text->setText(text);
}

void FilterBar::beginEditing()
{
    if (_rows.isEmpty())
        _text->setFocus(Qt::ShortcutFocusReason);
    else
        _rows.first()->valueInput()->setFocus(Qt::ShortcutFocusReason);
}

// --- Rows ---------------------------------------------------------------------------------------

FilterRow *FilterBar::insertRow(qsizetype place)
{
    auto *const row = new FilterRow(_fields);
    _rows.insert(place, row);
    _rowsLayout->insertWidget(int(place), row);
    QObject::connect(row, &FilterRow::changed, this, &FilterBar::takeRows);
    QObject::connect(row, &FilterRow::addRequested, this, [this, row] {
        insertRow(_rows.indexOf(row) + 1)->valueInput()->setFocus(Qt::OtherFocusReason);
    });
    QObject::connect(row, &FilterRow::removeRequested, this, [this, row] { removeRow(row); });
    return row;
}

void FilterBar::removeRow(FilterRow *row)
{
    _rows.removeOne(row);
    row->hide();
    row->deleteLater();
    if (_rows.isEmpty())
        insertRow(0);
    takeRows();
    beginEditing();
}

void FilterBar::removeRows()
{
    for (FilterRow *const row : std::exchange(_rows, {})) {
        row->hide();
        row->deleteLater();
    }
}

std::optional<FilterNode> FilterBar::treeOfRows() const
{
    FilterNode tree{
        _join->currentIndex() == 0 ? FilterNode::Kind::All : FilterNode::Kind::Any, {}, {}};
    for (const FilterRow *const row : _rows) {
        if (const std::optional<FilterComparison> comparison = row->comparison())
            tree.parts.push_back({FilterNode::Kind::Comparison, *comparison, {}});
    }
    if (tree.parts.size() == 1)
        return tree.parts.front();
    return tree.parts.empty() ? std::nullopt : std::optional(tree);
}

/// Has the text say what the rows say.
void FilterBar::takeRows()
{
    const std::optional<FilterNode> tree = treeOfRows();
    {
        const QSignalBlocker blocker(_text);
        _text->setText(tree ? FilterWriter::textOf(*tree, *_fields) : QString());
    }
    read();
}

// --- Text ---------------------------------------------------------------------------------------

/// Has the rows show what the text says.
void FilterBar::takeText()
{
    read();
    if (!_filter.problem())
        showRows();
    showProblems();
}

void FilterBar::showRows()
{
    removeRows();
    _onlyText->hide();
    _rowsPlace->show();
    _join->show();
    if (!_fields)
        return;
    if (const auto root = _filter.root(FilterNotation::Typed))
        showTree(*root);
    else
        insertRow(0);
}

void FilterBar::showTree(const FilterNode &root)
{
    const auto comparisons = flatComparisons(root, *_fields);
    _onlyText->setVisible(!comparisons);
    _rowsPlace->setVisible(comparisons.has_value());
    _join->setVisible(comparisons.has_value());
    if (!comparisons)
        return;
    _join->setCurrentIndex(root.kind == FilterNode::Kind::Any ? 1 : 0);
    for (const FilterComparison &comparison : *comparisons)
        insertRow(_rows.size())->setComparison(comparison);
}

void FilterBar::read()
{
    take(_fields ? RecordFilter::read(_text->text(), _fields) : RecordFilter());
}

void FilterBar::take(const RecordFilter &filter)
{
    _filter = filter;
    _save->setEnabled(_filter.root().has_value());
    showProblems();
    Q_EMIT filterChanged();
}

/// In the rows what concerns their values, else below the text.
void FilterBar::showProblems()
{
    bool isInRow = false;
    for (FilterRow *const row : std::as_const(_rows)) {
        FilterProblem problem;
        const std::optional<FilterComparison> comparison =
            _filter.problem() ? row->comparison() : std::nullopt;
        const bool isWrong =
            comparison &&
            FilterCondition::of(*comparison, _fields, FilterNotation::Typed, &problem).isNil();
        row->setProblem(isWrong ? problem.reason : QString());
        isInRow = isInRow || isWrong;
    }
    const bool isShown = _filter.problem() && !(isInRow && !_text->hasFocus());
    _problem->setText(isShown ? _filter.outcome().reason() : QString());
    _problem->setVisible(isShown);
    _text->setAccessibleDescription(_problem->text());
}

void FilterBar::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        Q_EMIT closeRequested();
    else
        QWidget::keyPressEvent(event);
}
