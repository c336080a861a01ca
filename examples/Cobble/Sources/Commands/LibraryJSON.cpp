#include "LibraryJSON.h"

#include "Fields/FieldValue.h"
#include "Library/LibraryNames.h"
#include "Library/StoredValue.h"
#include "Text/PrintableText.h"

#include <KTUtility/NSDecimalNumber>

#include <QJsonDocument>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {
/// Every whole number up to it is a double of its own.
constexpr qlonglong LargestWhole = qlonglong(1) << 53;

bool isText(FieldType type)
{
    return type == FieldType::Text || type == FieldType::Phone || type == FieldType::Media;
}

bool isNumber(FieldType type)
{
    return type == FieldType::Number || type == FieldType::Currency || type == FieldType::Duration;
}

/// A number as JSON has it, of which a double is the nearest.
Outcome<QVariant> decimalOf(double number)
{
    const QString digits = QString::number(number, 'f', QLocale::FloatingPointShortest);
    const NSDecimalNumber decimal = NSDecimalNumber::decimalNumberWithString(digits);
    if (decimal.isNaN())
        return Failure{u"it has too many digits"_s};
    return QVariant::fromValue(decimal);
}

/// Whole numbers are exact as long as the parser keeps them; beyond that they have lost digits.
Outcome<QVariant> numberIn(const QJsonValue &value)
{
    const QVariant number = value.toVariant();
    if (number.typeId() == QMetaType::LongLong)
        return QVariant::fromValue(NSDecimalNumber::decimalNumberWithString(number.toString()));
    if (std::abs(number.toDouble()) >= double(LargestWhole))
        return Failure{u"it is too large to be exact; write it as a text"_s};
    return decimalOf(number.toDouble());
}

Outcome<QVariant> textIn(FieldType type, const QString &text)
{
    const QVariant value = FieldValue::valueOf(type, text);
    if (value.isValid())
        return value;
    return Failure{isNumber(type) ? u"it is no number"_s : u"it is no date of ISO 8601"_s};
}
} // namespace

QStringList LibraryJSON::namesOf(const Library &library)
{
    QStringList names;
    for (const LibraryField &field : library.fields)
        names += names.contains(field.title()) ? LibraryNames::unique(field.columnName, names)
                                               : field.title();
    return names;
}

QJsonValue LibraryJSON::of(const QVariant &value)
{
    const QVariant stored = StoredValue::forDatabase(value);
    if (stored.isNull())
        return QJsonValue::Null;
    const bool isLong = stored.typeId() == QMetaType::LongLong &&
                        (stored.toLongLong() > LargestWhole || stored.toLongLong() < -LargestWhole);
    return isLong ? QJsonValue(stored.toString()) : QJsonValue::fromVariant(stored);
}

Outcome<QVariant> LibraryJSON::valueIn(FieldType type, const QJsonValue &value)
{
    if (value.isNull())
        return QVariant();
    if (value.isString())
        return textIn(type, value.toString());
    if (value.isDouble() && isNumber(type))
        return numberIn(value);
    return Failure{isText(type) ? u"it is no text"_s : u"a number, a text or null is needed"_s};
}

QJsonObject LibraryJSON::describing(const Library &library)
{
    const QStringList names = namesOf(library);
    QJsonArray fields;
    for (qsizetype index = 0; index < names.size(); ++index) {
        const LibraryField &field = library.fields.at(index);
        fields.append(QJsonObject{{u"name"_s, names.at(index)},
                                  {u"type"_s, FieldTypes::nameOf(field.type)},
                                  {u"options"_s, QJsonObject::fromVariantMap(field.options)}});
    }
    return {{u"library"_s, library.name}, {u"table"_s, library.tableName}, {u"fields"_s, fields}};
}

QJsonObject LibraryJSON::recordOf(const QStringList &names, const QueriedRecords &record)
{
    QJsonObject values;
    for (qsizetype field = 0; field < names.size(); ++field)
        values.insert(names.at(field), of(record.value(field)));
    return {{u"id"_s, record.id()}, {u"values"_s, values}};
}

QString LibraryJSON::textOf(const QJsonObject &object)
{
    // Its escapes are those of JSON.
    return printableText(QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact)));
}
