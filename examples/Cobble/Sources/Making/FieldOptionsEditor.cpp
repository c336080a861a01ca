#include "FieldOptionsEditor.h"

#include "Appearance/ListNames.h"
#include "Fields/FieldReader.h"

#include <KTUtility/KTOptionsKeys>
#include <KTUtility/NSDateFormatter>
#include <KTUtility/NSKeyValueCoding>

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QSpinBox>

namespace {
constexpr int MostDecimalPlaces = 15;
} // namespace

FieldOptionsEditor::FieldOptionsEditor(const QString &title, QWidget *type)
    : _layout(new QFormLayout(this)), _typeInput(type), _last(type)
{
    _layout->setContentsMargins(0, 0, 0, 0);
    _layout->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
    _layout->addRow(title, type);
}

QString FieldOptionsEditor::titleOf(const QString &key)
{
    const QHash<QString, QString> titles = {
        {kKTFieldOption_currencyType, tr("Currency:")},
        {kKTFieldOption_decimalPlaces, tr("Decimal places:")},
        {kKTFieldOption_displayThousandsSeparator, tr("Thousands separators")},
        {kKTFieldOption_highlightNegative, tr("Highlighted negative values")},
        {kKTFieldOption_formatNegativeUsingParens, tr("Negative values in parentheses")},
        {kKTFieldOption_dateStyle, tr("Date:")},
        {kKTFieldOption_timeStyle, tr("Time:")},
        {kKTFieldOption_displayYear, tr("With the year")},
        {kKTFieldOption_useAbbreviations, tr("Abbreviated units")}};
    return titles.value(key);
}

/// Dates have no time, and times no date.
bool FieldOptionsEditor::isOffered(const QString &key) const
{
    if (key == kKTFieldOption_timeStyle)
        return _type != FieldType::Date;
    const bool isOfDate = key == kKTFieldOption_dateStyle || key == kKTFieldOption_displayYear;
    return !titleOf(key).isEmpty() && !(isOfDate && _type == FieldType::Time);
}

void FieldOptionsEditor::clear()
{
    while (_layout->rowCount() > 1)
        _layout->removeRow(1);
    _type = FieldType::Text;
    _options.clear();
    _last = _typeInput;
}

void FieldOptionsEditor::setField(const LibraryField &field)
{
    if (_type == field.type && _options == field.options)
        return;
    clear();
    _type = field.type;
    _options = field.options;
    addOptions(*field.reader());
}

/// What the formatter lists, as it is now.
void FieldOptionsEditor::addOptions(const FieldReader &reader)
{
    NSFormatter *const formatter = reader.formatter();
    const auto keys = formatter ? formatter->optionsKeys() : std::nullopt;
    for (const QString &key : keys.value_or(QStringList())) {
        if (isOffered(key))
            addOption(key, NSKeyValueCoding::valueForKey(formatter, key));
    }
    ListNames::give(this);
}

void FieldOptionsEditor::addOption(const QString &key, const QVariant &value)
{
    if (key == kKTFieldOption_currencyType)
        addCurrency(key, value.toString());
    else if (key == kKTFieldOption_decimalPlaces)
        addCount(key, value.toUInt());
    else if (key == kKTFieldOption_dateStyle || key == kKTFieldOption_timeStyle)
        addStyle(key, value.toUInt());
    else
        addFlag(key, value.toBool());
}

void FieldOptionsEditor::addFlag(const QString &key, bool isSet)
{
    auto *const box = new QCheckBox(titleOf(key));
    box->setObjectName(key);
    box->setChecked(isSet);
    QObject::connect(box, &QCheckBox::clicked, this,
                     [this, key](bool checked) { set(key, checked); });
    _layout->addRow(box);
    addToTabOrder(box);
}

void FieldOptionsEditor::addCount(const QString &key, uint count)
{
    auto *const box = new QSpinBox;
    const int shown = int(qMin(count, uint(1000)));
    box->setRange(0, qMax(MostDecimalPlaces, shown));
    box->setValue(shown);
    QObject::connect(box, &QSpinBox::valueChanged, this,
                     [this, key](int value) { set(key, uint(value)); });
    addRow(key, box);
}

void FieldOptionsEditor::addCurrency(const QString &key, const QString &code)
{
    auto *const box = new QComboBox;
    box->addItems(NSLocale::commonISOCurrencyCodes());
    if (box->findText(code) < 0)
        box->addItem(code);
    box->setCurrentText(code);
    QObject::connect(box, &QComboBox::textActivated, this,
                     [this, key](const QString &chosen) { set(key, chosen); });
    addRow(key, box);
}

void FieldOptionsEditor::addStyle(const QString &key, uint style)
{
    auto *const box = new QComboBox;
    const std::pair<QString, uint> styles[] = {{tr("Short"), NSDateFormatterShortStyle},
                                               {tr("Medium"), NSDateFormatterMediumStyle},
                                               {tr("Long"), NSDateFormatterLongStyle},
                                               {tr("Full"), NSDateFormatterFullStyle}};
    for (const auto &[title, value] : styles)
        box->addItem(title, value);
    box->setCurrentIndex(box->findData(style));
    QObject::connect(box, &QComboBox::activated, this,
                     [this, key, box] { set(key, box->currentData()); });
    addRow(key, box);
}

void FieldOptionsEditor::addRow(const QString &key, QWidget *input)
{
    input->setObjectName(key);
    input->setAccessibleName(titleOf(key).chopped(1));
    _layout->addRow(titleOf(key), input);
    addToTabOrder(input);
}

/// Behind those that there are, and not at the end of the window.
void FieldOptionsEditor::addToTabOrder(QWidget *input)
{
    setTabOrder(_last, input);
    _last = input;
}

void FieldOptionsEditor::set(const QString &key, const QVariant &value)
{
    _options.insert(key, value);
    Q_EMIT changed(_options);
}
