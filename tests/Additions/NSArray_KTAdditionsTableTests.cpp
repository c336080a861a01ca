// Every row of the collection tables, over dynamic lists and, where they hold objects, typed ones.

#include <KTUtility/NSArray_KTAdditions>
#include <KTUtility/NSException>
#include <KTUtility/NSObject_KTAdditions>
#include <KTUtility/NSSet_KTAdditions>

#include "CollectionRows.h"
#include "support/TestSupport.h"

#include <QJsonDocument>

#include <functional>
#include <map>

using namespace Qt::StringLiterals;

namespace {
using namespace KTAdditions;
using Row = CollectionRow;
using Handler = std::function<QJsonValue(const Row &)>;

QString text(const QJsonValue &value)
{
    return QString::fromUtf8(QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact));
}

/// Checks that a typed list gives what the dynamic one gives, and returns that.
template<typename Typed>
QJsonValue both(const Row &row, const QJsonValue &dynamic, const Typed &typed)
{
    if (row.fields().size() == row.elements().size() && !row.fields().isEmpty()) {
        EXPECT_EQ(text(Row::jsonOf(typed)), text(dynamic)) << "typed list";
    }
    return dynamic;
}

QJsonValue textOrNull(const QString &value)
{
    return value.isNull() ? QJsonValue(QJsonValue::Null) : QJsonValue(value);
}

QJsonArray indexes(const NSIndexSet &set)
{
    QJsonArray array;
    for (const qsizetype index : set)
        array += index;
    return array;
}

QJsonArray allOf(const NSSet &set)
{
    return Row::sorted(Row::jsonOf(QVariantList(set.begin(), set.end())));
}

QJsonValue single(const QVariant &value)
{
    return value.isValid() ? Row::jsonOf(value) : QJsonValue(QJsonValue::Null);
}

QJsonValue filtered(const Row &row)
{
    const NSSelector selector(row.text("selector"));
    const QVariant object = row.valueOf(row.argument("object"));
    return both(row, Row::jsonOf(objectsSatisfyingCondition(row.elements(), selector, object)),
                objectsSatisfyingCondition(row.fields(), selector, object));
}

QJsonValue filteredOnTarget(const Row &row)
{
    TestJudge judge;
    const NSSelector selector(row.text("selector"));
    const QVariant object = row.valueOf(row.argument("object"));
    return both(row,
                Row::jsonOf(objectsSatisfyingCondition(row.elements(), selector, &judge, object)),
                objectsSatisfyingCondition(row.fields(), selector, &judge, object));
}

QJsonValue adjusted(const Row &row)
{
    QVariantList elements = row.elements();
    adjustOrder(elements);
    QJsonArray orders;
    QJsonArray touched;
    for (const TestField *field : row.fields()) {
        orders += field->_order.toInt();
        touched += field->timesOrdered();
    }
    EXPECT_EQ(text(touched), text(row.value("touched")));
    return orders;
}

QJsonValue moved(const Row &row)
{
    QVariantList list = row.elements();
    KTMutableArrayAdditions::moveObject(list, row.valueOf(row.argument("object")),
                                        row.argument("index").toInt());
    return Row::jsonOf(list);
}

QJsonValue inserted(const Row &row)
{
    QVariantList list = row.elements();
    KTMutableArrayAdditions::insertObjects(list, row.values("other"),
                                           row.argument("index").toInt());
    return Row::jsonOf(list);
}

QJsonValue stacked(const Row &row)
{
    QVariantList stack = row.elements();
    QJsonArray results;
    const QJsonArray calls = row.argument("calls").toArray();
    for (const QJsonValue call : calls) {
        const QString name = call[0].toString();
        QJsonValue result = QJsonValue::Null;
        if (name == u"push:")
            KTStackAdditions::push(stack, call[1].toVariant());
        else if (name == u"pop")
            result = single(KTStackAdditions::pop(stack));
        else if (name == u"clearStack")
            KTStackAdditions::clearStack(stack);
        else
            result = KTStackAdditions::stackSize(stack);
        results += result;
    }
    return results;
}

QJsonValue indexedByKey(const Row &row)
{
    QJsonObject result;
    for (const auto &[key, element] : dictionaryIndexWithKey(row.elements(), row.text("key")))
        result.insert(NSObject::description(key), Row::jsonOf(element));
    return result;
}

QJsonValue indexedByElement(const Row &row)
{
    QJsonObject result;
    for (const auto &[element, position] : positionalDictionaryIndex(row.elements()))
        result.insert(NSObject::description(Row::jsonOf(element).toVariant()), qint64(position));
    return result;
}

QJsonValue valuesForPaths(const Row &row)
{
    QStringList paths;
    for (const QVariant &path : row.values("paths"))
        paths += path.toString();
    return QJsonObject::fromVariantMap(
        dictionaryWithValuesForKeyPaths(row.fields().value(0), paths));
}

QJsonValue changedSet(const Row &row, void (*change)(NSSet &, const QVariantList &))
{
    NSSet set(row.elements());
    change(set, row.values("other"));
    return allOf(set);
}

const std::map<QString, Handler> &handlers()
{
    static const std::map<QString, Handler> table = {
        {u"adjustOrder"_s, adjusted},
        {u"arrayByPerformingSelector:withObject:"_s,
         [](const Row &r) {
             return Row::jsonOf(arrayByPerformingSelector(
                 r.elements(), NSSelector(r.text("selector")), r.valueOf(r.argument("object"))));
         }},
        {u"arrayByRemovingObjectsInArray:"_s,
         [](const Row &r) {
             return Row::jsonOf(arrayByRemovingObjectsInArray(r.elements(), r.values("other")));
         }},
        {u"containsObjectWithValue:forKey:"_s,
         [](const Row &r) {
             return containsObjectWithValue(r.elements(), r.valueOf(r.argument("value")),
                                            r.text("key"));
         }},
        {u"dictionaryIndexWithKey:"_s, indexedByKey},
        {u"dictionaryWithValuesForKeyPaths:"_s, valuesForPaths},
        {u"indexOfObjects:"_s,
         [](const Row &r) { return indexes(indexOfObjects(r.elements(), r.values("other"))); }},
        {u"indexesOfExactObjects:"_s,
         [](const Row &r) {
             return indexes(indexesOfExactObjects(r.elements(), r.values("other")));
         }},
        {u"insertObjects:atIndex:"_s, inserted},
        {u"internalCaseInsensitiveUniqueStringWithBase:forKey:"_s,
         [](const Row &r) {
             return textOrNull(internalCaseInsensitiveUniqueStringWithBase(
                 r.elements(), r.text("base"), r.text("key")));
         }},
        {u"internalUniqueStringWithBase:forKey:"_s,
         [](const Row &r) {
             return textOrNull(
                 internalUniqueStringWithBase(r.elements(), r.text("base"), r.text("key")));
         }},
        {u"listWithKey:prefix:postfix:condition:"_s,
         [](const Row &r) {
             return listWithKey(r.elements(), r.text("key"), r.text("prefix"), r.text("postfix"),
                                r.text("condition"));
         }},
        {u"moveObject:toIndex:"_s, moved},
        {u"objectWithValue:forKey:"_s,
         [](const Row &r) {
             return single(
                 objectWithValue(r.elements(), r.valueOf(r.argument("value")), r.text("key")));
         }},
        {u"objectWithValue:forKey:usingKeyPath:"_s,
         [](const Row &r) {
             return single(objectWithValue(r.elements(), r.valueOf(r.argument("value")),
                                           r.text("key"), r.text("path")));
         }},
        {u"objectsNotInArray:"_s,
         [](const Row &r) {
             return Row::jsonOf(objectsNotInArray(r.elements(), r.values("other")));
         }},
        {u"objectsSatisfyingCondition:"_s, filtered},
        {u"objectsSatisfyingCondition:withObject:"_s, filtered},
        {u"objectsSatisfyingCondition:onTarget:withContext:"_s, filteredOnTarget},
        {u"objectsWithValue:forKeyPath:"_s,
         [](const Row &r) {
             const QVariant value = r.valueOf(r.argument("value"));
             return both(r, Row::jsonOf(objectsWithValue(r.elements(), value, r.text("path"))),
                         objectsWithValue(r.fields(), value, r.text("path")));
         }},
        {u"positionalDictionaryIndex"_s, indexedByElement},
        {u"set.addObjectsFromArrayOptimized:"_s,
         [](const Row &r) { return changedSet(r, addObjectsFromArrayOptimized<NSSet>); }},
        {u"set.removeObjectsInArray:"_s,
         [](const Row &r) { return changedSet(r, removeObjectsInArray<NSSet>); }},
        {u"set.containsObjectWithValue:forKey:"_s,
         [](const Row &r) {
             return containsObjectWithValue(NSSet(r.elements()), r.valueOf(r.argument("value")),
                                            r.text("key"));
         }},
        {u"set.objectWithValue:forKey:"_s,
         [](const Row &r) {
             return single(objectWithValue(NSSet(r.elements()), r.valueOf(r.argument("value")),
                                           r.text("key")));
         }},
        {u"set.objectsSatisfyingCondition:onTarget:withContext:"_s,
         [](const Row &r) {
             TestJudge judge;
             return allOf(objectsSatisfyingCondition(NSSet(r.elements()),
                                                     NSSelector(r.text("selector")), &judge,
                                                     r.valueOf(r.argument("object"))));
         }},
        {u"set.objectsSatisfyingCondition:withObject:"_s,
         [](const Row &r) {
             return allOf(objectsSatisfyingCondition(NSSet(r.elements()),
                                                     NSSelector(r.text("selector")),
                                                     r.valueOf(r.argument("object"))));
         }},
        {u"set.setByPerformingSelector:withObject:"_s,
         [](const Row &r) {
             return allOf(setByPerformingSelector(NSSet(r.elements()),
                                                  NSSelector(r.text("selector")),
                                                  r.valueOf(r.argument("object"))));
         }},
        {u"set.setByRemovingObjectsInArray:"_s,
         [](const Row &r) {
             return allOf(setByRemovingObjectsInArray(NSSet(r.elements()), r.values("other")));
         }},
        {u"set.setByRemovingObjectsInSet:"_s,
         [](const Row &r) {
             return allOf(setByRemovingObjectsInSet(NSSet(r.elements()), NSSet(r.values("other"))));
         }},
        {u"set.singularObject"_s,
         [](const Row &r) { return single(singularObject(NSSet(r.elements()))); }},
        {u"set.sortedArrayUsingKey:"_s,
         [](const Row &r) {
             return Row::jsonOf(sortedArrayUsingKey(NSSet(r.elements()), r.text("key")));
         }},
        {u"sortByKey:"_s,
         [](const Row &r) {
             return both(r, Row::jsonOf(sortByKey(r.elements(), r.text("key"))),
                         sortByKey(r.fields(), r.text("key")));
         }},
        {u"sortByOrder"_s, [](const Row &r) { return Row::jsonOf(sortByOrder(r.elements())); }},
        {u"sortInUserFieldOrder"_s,
         [](const Row &r) { return Row::jsonOf(sortInUserFieldOrder(r.elements())); }},
        {u"stack"_s, stacked},
        {u"uniqueStringWithBase:"_s,
         [](const Row &r) {
             return textOrNull(uniqueStringWithBase(r.elements(), r.text("base")));
         }},
        {u"uniqueStringWithBase:forKey:"_s,
         [](const Row &r) {
             return textOrNull(uniqueStringWithBase(r.elements(), r.text("base"), r.text("key")));
         }},
    };
    return table;
}

bool isSetRow(const Row &row)
{
    return row.operation().startsWith(u"set.") && row.expected().isArray() &&
           row.operation() != u"set.sortedArrayUsingKey:";
}
} // namespace

TEST(NSArray_KTAdditionsTable, EveryRowGivesItsResult)
{
    int rows = 0;
    for (const QJsonObject &json : testing_support::rowsOf(u"system/collections.jsonl"_s)) {
        const Row row(json);
        SCOPED_TRACE(text(json).toStdString().substr(0, 2000));
        const auto handler = handlers().find(row.operation());
        ASSERT_NE(handler, handlers().end()) << "no handler";
        const QJsonValue raised = row.expected()[u"raises"_s];
        if (raised.isObject()) {
            EXPECT_RAISES(handler->second(row), raised[u"name"_s].toString(),
                          raised[u"reason"_s].toString());
        } else {
            const QJsonValue expected =
                isSetRow(row) ? Row::sorted(row.expected().toArray()) : row.expected();
            EXPECT_EQ(text(handler->second(row)), text(expected));
        }
        ++rows;
    }
    EXPECT_EQ(rows, 157);
}
