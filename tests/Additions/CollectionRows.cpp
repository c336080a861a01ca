#include "CollectionRows.h"

#include <algorithm>

using namespace Qt::StringLiterals;

CollectionRow::CollectionRow(const QJsonObject &row) : _row(row)
{
    const QJsonArray elements = argument("elements").toArray();
    for (const QJsonValue element : elements) {
        if (element.isObject()) {
            _fields += fieldFrom(element.toObject());
            _elements += QVariant::fromValue(_fields.last());
        } else {
            // A text of its own: the tables distinguish the same object from an equal one.
            _elements +=
                QVariant(QString(element.toString().constData(), element.toString().size()));
        }
    }
}

TestField *CollectionRow::fieldFrom(const QJsonObject &json)
{
    _objects.push_back(std::make_unique<TestField>());
    TestField *const field = _objects.back().get();
    field->_identifier = json.value(u"id"_s).toInt();
    field->_name = json.value(u"name"_s).toString(QString());
    field->_label = json.value(u"label"_s).toString(QString());
    field->_size = json.value(u"size"_s).toInt();
    field->_flag = json.value(u"flag"_s).toBool();
    if (json.value(u"order"_s).isDouble())
        field->_order = json.value(u"order"_s).toInt();
    if (json.value(u"parent"_s).isObject())
        field->_parent = fieldFrom(json.value(u"parent"_s).toObject());
    return field;
}

QJsonValue CollectionRow::argument(const char *name) const
{
    return _row.value(u"args"_s).toObject().value(QLatin1String(name));
}

QString CollectionRow::text(const char *name) const
{
    const QJsonValue value = argument(name);
    return value.isString() ? value.toString() : QString();
}

QVariant CollectionRow::valueOf(const QJsonValue &json) const
{
    if (json.isObject())
        return _elements.value(json.toObject().value(u"at"_s).toInt());
    if (json.isString())
        return QString(json.toString().constData(), json.toString().size());
    return json.isNull() || json.isUndefined() ? QVariant() : json.toVariant();
}

QVariantList CollectionRow::values(const char *name) const
{
    QVariantList values;
    const QJsonArray array = argument(name).toArray();
    for (const QJsonValue value : array)
        values += valueOf(value);
    return values;
}

QJsonValue CollectionRow::jsonOf(const QVariant &value)
{
    if (auto *field = value.value<TestField *>())
        return field->_identifier;
    return QJsonValue::fromVariant(value);
}

QJsonArray CollectionRow::jsonOf(const QVariantList &values)
{
    QJsonArray array;
    for (const QVariant &value : values)
        array += jsonOf(value);
    return array;
}

QJsonArray CollectionRow::jsonOf(const QList<TestField *> &fields)
{
    QJsonArray array;
    for (const TestField *field : fields)
        array += field->_identifier;
    return array;
}

QJsonArray CollectionRow::sorted(const QJsonArray &array)
{
    QVariantList values = array.toVariantList();
    std::sort(values.begin(), values.end(), [](const QVariant &a, const QVariant &b) {
        return a.typeId() == QMetaType::QString ? a.toString() < b.toString()
                                                : a.toDouble() < b.toDouble();
    });
    return QJsonArray::fromVariantList(values);
}
