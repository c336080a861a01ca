#include "FilterRow.h"

#include "Appearance/ListNames.h"
#include "Appearance/ProblemLabel.h"
#include "FilterWords.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLineEdit>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {
/// Whether the choice stands for the negated operator.
constexpr int NegatedRole = Qt::UserRole + 1;

QStringList listedIn(const QString &text)
{
    QStringList parts = text.split(text.contains(u';') ? u';' : u',');
    for (QString &part : parts)
        part = part.trimmed();
    parts.removeAll(QString());
    return parts;
}

QString listText(const QList<FilterValue> &values)
{
    QStringList texts;
    for (const FilterValue &value : values)
        texts += value.text;
    return texts.join(u"; "_s) + (texts.size() == 1 && texts.first().contains(u',') ? u";" : u"");
}

qsizetype choiceFor(const FilterComparison &comparison, const QList<FilterWords::Choice> &choices)
{
    const auto found = std::find_if(choices.begin(), choices.end(), [&](const auto &choice) {
        return choice.operation == comparison.operation && choice.isNegated == comparison.isNegated;
    });
    return found == choices.end() ? -1 : found - choices.begin();
}

/// A list whose elements hold what stands between elements cannot be typed into one input.
bool isInOneInput(const FilterComparison &comparison)
{
    return comparison.operation != FilterOperator::In ||
           std::none_of(comparison.values.begin(), comparison.values.end(),
                        [](const FilterValue &value) {
                            return value.text.isEmpty() || value.text.contains(u';') ||
                                   value.text != value.text.trimmed();
                        });
}
} // namespace

FilterRow::FilterRow(const std::shared_ptr<const FilterFields> &fields, QWidget *parent)
    : QWidget(parent), _fields(fields)
{
    makeInputs();
    makeButtons();
    for (qsizetype field = 0; field < _fields->count(); ++field)
        _field->addItem(_fields->field(field).title().simplified());
    listOperators();
    QObject::connect(_field, &QComboBox::currentIndexChanged, this, [this] {
        listOperators();
        Q_EMIT changed();
    });
    QObject::connect(_operator, &QComboBox::activated, this, [this] {
        showInputs();
        Q_EMIT changed();
    });
    for (const QLineEdit *const input : {_value, _end})
        QObject::connect(input, &QLineEdit::textEdited, this, &FilterRow::changed);
    ListNames::give(this);
}

void FilterRow::makeInputs()
{
    _field = new QComboBox;
    _field->setAccessibleName(tr("Field"));
    _operator = new QComboBox;
    _operator->setAccessibleName(tr("Comparison"));
    _value = new QLineEdit;
    _value->setAccessibleName(tr("Value"));
    _value->setPlaceholderText(tr("Value"));
    _and = new QLabel(tr("and"));
    _end = new QLineEdit;
    _end->setAccessibleName(tr("Last Value"));
    _end->setPlaceholderText(tr("Value"));
    _problem = new ProblemLabel;
    _problem->setTextFormat(Qt::PlainText);
    _problem->setWordWrap(true);
    _problem->hide();
}

void FilterRow::makeButtons()
{
    auto *const layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setColumnStretch(2, 2);
    layout->addWidget(_field, 0, 0);
    layout->addWidget(_operator, 0, 1);
    layout->addWidget(_value, 0, 2);
    layout->addWidget(_and, 0, 3);
    layout->addWidget(_end, 0, 4);
    layout->addWidget(_problem, 1, 2, 1, 3);
    const auto addButton = [this, layout](int column, const QString &text, const QString &name,
                                          void (FilterRow::*signal)()) {
        auto *const button = new QToolButton;
        button->setText(text);
        button->setAccessibleName(name);
        button->setToolTip(name);
        button->setFocusPolicy(Qt::StrongFocus);
        layout->addWidget(button, 0, column);
        QObject::connect(button, &QToolButton::clicked, this, signal);
    };
    addButton(5, u"−"_s, tr("Remove Condition"), &FilterRow::removeRequested);
    addButton(6, u"+"_s, tr("Add Condition"), &FilterRow::addRequested);
}

/// Fills the operators that the field's type has, and keeps the chosen one if it is there.
void FilterRow::listOperators()
{
    const QString chosen = _operator->currentText();
    const QSignalBlocker blocker(_operator);
    _operator->clear();
    if (_field->currentIndex() < 0)
        return;
    const auto choices = FilterWords::choicesFor(_fields->field(_field->currentIndex()).type);
    for (const FilterWords::Choice &choice : choices) {
        _operator->addItem(choice.words, int(choice.operation));
        _operator->setItemData(_operator->count() - 1, choice.isNegated, NegatedRole);
    }
    _operator->setCurrentIndex(qMax(0, _operator->findText(chosen)));
    showInputs();
}

FilterOperator FilterRow::operation() const
{
    return FilterOperator(_operator->currentData().toInt());
}

void FilterRow::showInputs()
{
    const bool isRange = operation() == FilterOperator::Between;
    _value->setVisible(operation() != FilterOperator::Empty);
    _and->setVisible(isRange);
    _end->setVisible(isRange);
    static_cast<QGridLayout *>(layout())->setColumnStretch(4, isRange ? 2 : 0);
}

std::optional<FilterComparison> FilterRow::comparison() const
{
    FilterComparison comparison;
    comparison.field = _field->currentIndex();
    comparison.operation = operation();
    comparison.isNegated = _operator->currentData(NegatedRole).toBool();
    comparison.passesOver = _passesOver;
    QStringList texts{_value->text().trimmed()};
    if (comparison.operation == FilterOperator::In)
        texts = listedIn(_value->text());
    else if (comparison.operation == FilterOperator::Between)
        texts += _end->text().trimmed();
    else if (comparison.operation == FilterOperator::Empty)
        texts.clear();
    for (const QString &text : texts)
        comparison.values += FilterValue{text};
    const bool isMissing = texts.contains(QString()) ||
                           (texts.isEmpty() && comparison.operation == FilterOperator::In);
    return isMissing || comparison.field < 0 ? std::nullopt : std::optional(comparison);
}

bool FilterRow::canShow(const FilterComparison &comparison, const FilterFields &fields)
{
    const auto choices = FilterWords::choicesFor(fields.field(comparison.field).type);
    return choiceFor(comparison, choices) >= 0 && isInOneInput(comparison) &&
           std::none_of(comparison.values.begin(), comparison.values.end(),
                        [](const FilterValue &value) {
                            return value.text.isEmpty() || value.text != value.text.trimmed();
                        });
}

void FilterRow::setComparison(const FilterComparison &comparison)
{
    const QSignalBlocker blocker(this);
    _field->setCurrentIndex(int(comparison.field));
    const auto choices = FilterWords::choicesFor(_fields->field(comparison.field).type);
    _operator->setCurrentIndex(int(qMax<qsizetype>(0, choiceFor(comparison, choices))));
    showInputs();
    _passesOver = comparison.passesOver;
    const bool isList = comparison.operation == FilterOperator::In;
    _value->setText(isList ? listText(comparison.values) : comparison.values.value(0).text);
    _end->setText(isList ? QString() : comparison.values.value(1).text);
    setProblem(QString());
}

void FilterRow::setProblem(const QString &reason)
{
    _problem->setText(reason);
    _problem->setVisible(!reason.isEmpty());
    _value->setAccessibleDescription(reason);
}

QString FilterRow::problem() const
{
    return _problem->text();
}
