#include "ColumnEditor.h"

#include "Fields/FieldTypeTitles.h"

#include <KTUtility/KTColumnReading>

#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QTableWidget>

#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {
constexpr std::array Types = {FieldType::Text,     FieldType::Number, FieldType::Currency,
                              FieldType::Date,     FieldType::Time,   FieldType::DateTime,
                              FieldType::Duration, FieldType::Phone,  FieldType::Media};

/// What stands behind an entry.
template<typename Value>
void addEntry(QComboBox *box, const QString &text, const Value &value)
{
    box->addItem(text, QVariant::fromValue(value));
}

void choose(QComboBox *box, const QString &value)
{
    box->setCurrentIndex(std::max(0, box->findData(value)));
}

/// What fits into a cell.
QString shortened(const QString &text)
{
    constexpr qsizetype Longest = 200;
    return text.left(Longest).simplified();
}

QString titleOfType(const ImportValues::Column &column)
{
    return FieldTypeTitles::titleOf(column.type, column.currencyType);
}

/// The kind of conventions that a type has.
std::optional<KTColumnReading::Kind> kindOf(const std::optional<FieldType> &type)
{
    const auto column = type ? FieldReader(*type).newColumn() : std::nullopt;
    return column ? std::optional(column->kind()) : std::nullopt;
}
} // namespace

ColumnEditor::ColumnEditor(const Parts &parts, QObject *parent) : QObject(parent), _parts(parts)
{
    _parts.table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    _parts.table->setSelectionMode(QAbstractItemView::SingleSelection);
    connectParts();
    clear();
}

void ColumnEditor::connectParts()
{
    QObject::connect(_parts.column, &QComboBox::currentIndexChanged, this,
                     [this] { showColumn(); });
    QObject::connect(_parts.table, &QTableWidget::currentCellChanged, this,
                     [this](int, int column) { chooseClicked(column); });
    QObject::connect(_parts.table->horizontalHeader(), &QHeaderView::sectionClicked, this,
                     [this](int column) { chooseClicked(column); });
    QObject::connect(_parts.isStored, &QCheckBox::clicked, this, [this](bool isStored) {
        change([isStored](ColumnChoice &choice) { choice.isSkipped = !isStored; });
    });
    QObject::connect(_parts.header, &QLineEdit::textEdited, this, [this](const QString &typed) {
        const QString text = typed.trimmed();
        change([&text](ColumnChoice &choice) {
            choice.header = text.isEmpty() ? std::nullopt : std::optional(text);
        });
    });
    QObject::connect(_parts.type, &QComboBox::activated, this, [this](int index) {
        const int type = _parts.type->itemData(index).toInt();
        change([type](ColumnChoice &choice) {
            choice.type = type < 0 ? std::nullopt : std::optional(FieldType(type));
        });
    });
    for (QComboBox *const box : {_parts.convention, _parts.currency})
        QObject::connect(box, &QComboBox::activated, this, [this] {
            change([this](ColumnChoice &choice) { tellConvention(choice); });
        });
}

void ColumnEditor::clear()
{
    _choices.clear();
    _columns.reset();
    _known.clear();
    showNoRows();
    const QSignalBlocker blocker(_parts.column);
    _parts.column->clear();
    showColumn();
}

void ColumnEditor::showNoRows()
{
    _shownColumns.clear();
    _parts.table->clear();
    _parts.table->setRowCount(0);
    _parts.table->setColumnCount(0);
}

void ColumnEditor::show(const ImportPreview &preview)
{
    if (preview.file.hasOtherColumns)
        _choices.clear();
    showRows(preview);
    showColumns(preview);
    showColumn();
}

void ColumnEditor::showTitles(const ImportPreview &preview)
{
    const QStringList &headers = preview.file.rows->headers();
    for (int column = 0; column < headers.size(); ++column) {
        const QString type = titleOfType(preview.values.columns.at(column));
        _parts.table->setHorizontalHeaderItem(
            column, new QTableWidgetItem(headers.at(column) + u'\n' + type));
    }
}

void ColumnEditor::showRows(const ImportPreview &preview)
{
    QTableWidget *const table = _parts.table;
    const QSignalBlocker blocker(table);
    table->clear();
    table->setColumnCount(int(preview.file.rows->headers().size()));
    table->setRowCount(int(preview.shown.rows.size()));
    showTitles(preview);
    for (int row = 0; row < table->rowCount(); ++row) {
        for (int column = 0; column < table->columnCount(); ++column)
            table->setItem(
                row, column,
                new QTableWidgetItem(shortened(preview.shown.rows.at(row).value(column))));
    }
}

void ColumnEditor::showColumns(const ImportPreview &preview)
{
    const bool areOthers = headers() != preview.file.columns.headers;
    _columns = preview.file.columns;
    if (areOthers)
        fillColumnBox();
    _shownColumns = preview.file.rows->selected();
    for (qsizetype column = 0; column < _shownColumns.size(); ++column) {
        Known &known = _known[_shownColumns.at(column)];
        known.type = preview.shown.types.value(column, FieldType::Text);
        known.typeTitle = titleOfType(preview.values.columns.at(column));
    }
}

void ColumnEditor::fillColumnBox()
{
    const QSignalBlocker blocker(_parts.column);
    _known = QList<Known>(headers().size());
    _parts.column->clear();
    for (const QString &header : headers())
        _parts.column->addItem(header.isEmpty() ? tr("(without a name)") : header);
}

QStringList ColumnEditor::headers() const
{
    return _columns ? _columns->headers : QStringList();
}

qsizetype ColumnEditor::current() const
{
    return _parts.column->currentIndex();
}

void ColumnEditor::setEnabled(bool isEnabled)
{
    _parts.column->setEnabled(isEnabled);
    _parts.isStored->setEnabled(isEnabled);
    const bool isStored = isEnabled && !_choices.value(current()).isSkipped;
    _parts.header->setEnabled(isStored);
    _parts.type->setEnabled(isStored);
    _parts.convention->setEnabled(isStored && _parts.convention->count() > 1);
    _parts.currency->setEnabled(isStored && _parts.currency->count() > 1);
}

void ColumnEditor::showColumn()
{
    const ColumnChoice choice = _choices.value(current());
    const Known known = _known.value(current());
    _parts.isStored->setChecked(!choice.isSkipped);
    // What is being typed stays as it is.
    if (std::exchange(_column, current()) != current() || !_parts.header->hasFocus())
        _parts.header->setText(choice.header.value_or(headers().value(current())));
    showType(choice, known);
    showConvention(choice, known);
    showCurrency(choice, known);
    setEnabled(current() >= 0);
    const auto column = int(_shownColumns.indexOf(current()));
    const QSignalBlocker blocker(_parts.table);
    if (column >= 0 && _parts.table->currentColumn() != column)
        _parts.table->setCurrentCell(std::max(0, _parts.table->currentRow()), column);
}

void ColumnEditor::showType(const ColumnChoice &choice, const Known &known)
{
    const bool isFound = !choice.type && !known.typeTitle.isEmpty();
    _parts.type->clear();
    addEntry(_parts.type, isFound ? tr("Automatic (%1)").arg(known.typeTitle) : tr("Automatic"),
             -1);
    for (const FieldType type : Types)
        addEntry(_parts.type, FieldTypeTitles::titleOf(type), int(type));
    if (choice.type)
        _parts.type->setCurrentIndex(_parts.type->findData(int(*choice.type)));
}

void ColumnEditor::showConvention(const ColumnChoice &choice, const Known &known)
{
    QComboBox *const box = _parts.convention;
    box->clear();
    addEntry(box, tr("As found"), QString());
    const auto kind = kindOf(known.type);
    if (kind == KTColumnReading::Dates) {
        addEntry(box, tr("Day, month, year"), u"dmy"_s);
        addEntry(box, tr("Month, day, year"), u"mdy"_s);
        addEntry(box, tr("Year, month, day"), u"ymd"_s);
    } else if (kind == KTColumnReading::Durations) {
        addEntry(box, tr("1:30 is hours and minutes"), u"h:m"_s);
        addEntry(box, tr("1:30 is minutes and seconds"), u"m:s"_s);
    } else if (kind) {
        addEntry(box, u"1,234.5"_s, u"."_s);
        addEntry(box, u"1.234,5"_s, u","_s);
    }
    choose(box, kind ? choice.conventions.conventionOf(*kind) : QString());
}

void ColumnEditor::showCurrency(const ColumnChoice &choice, const Known &known)
{
    QComboBox *const box = _parts.currency;
    box->clear();
    addEntry(box, tr("As found"), QString());
    if (known.type != FieldType::Currency)
        return;
    for (const QString &code : NSLocale::commonISOCurrencyCodes())
        addEntry(box, code, code);
    choose(box, choice.conventions.currency());
}

void ColumnEditor::tellConvention(ColumnChoice &choice) const
{
    const QString convention = _parts.convention->currentData().toString();
    const QString currency = _parts.currency->currentData().toString();
    const auto kind = kindOf(_known.value(current()).type);
    choice.conventions = {};
    if (kind == KTColumnReading::Dates)
        choice.conventions.order = convention;
    else if (kind == KTColumnReading::Durations)
        choice.conventions.unit = convention;
    else if (kind)
        choice.conventions.point = convention;
    if (currency.isEmpty())
        return;
    choice.conventions.unit = currency;
    choice.type = FieldType::Currency;
}

void ColumnEditor::chooseClicked(int tableColumn)
{
    if (tableColumn >= 0 && tableColumn < _shownColumns.size())
        _parts.column->setCurrentIndex(int(_shownColumns.at(tableColumn)));
}

void ColumnEditor::change(const std::function<void(ColumnChoice &)> &change)
{
    if (current() < 0)
        return;
    change(_choices[current()]);
    setEnabled(true);
    Q_EMIT changed();
}
