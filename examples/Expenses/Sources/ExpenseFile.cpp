#include "ExpenseFile.h"

#include "Expense.h"

#include <KTUtility/NSKeyValueCoding>
#include <KTUtility/NSObject>
#include <KTUtility/NSPropertyListSerialization>

using namespace Qt::StringLiterals;

namespace {
const QString ExpensesKey = u"expenses"_s;
const QStringList Keys{u"title"_s, u"amount"_s, u"date"_s, u"seconds"_s, u"phone"_s, u"isPaid"_s};

/// A decimal goes into the file as a text, since a property list has none; it comes back as one.
QVariantMap storedValues(const QVariant &expense)
{
    QVariantMap values;
    for (const QString &key : Keys) {
        const QVariant value = NSKeyValueCoding::valueForKey(expense, key);
        const bool isDecimal = value.metaType() == QMetaType::fromType<NSDecimalNumber>();
        if (!NSObject::isNil(value))
            values.insert(key, isDecimal ? QVariant(value.toString()) : value);
    }
    return values;
}

QVariant restored(const QVariantMap &values, QObject *parent)
{
    auto *const expense = new Expense(parent);
    for (auto value = values.begin(); value != values.end(); ++value)
        NSKeyValueCoding::setValue(expense, *value, value.key());
    return QVariant::fromValue(expense);
}
} // namespace

QVariantList ExpenseFile::read(const QString &path, QObject *parent)
{
    QVariantList expenses;
    const auto stored = NSDictionary::dictionaryWithContentsOfFile(path).value_or(QVariantMap());
    for (const QVariant &values : stored.value(ExpensesKey).toList())
        expenses += restored(values.toMap(), parent);
    return expenses;
}

bool ExpenseFile::write(const QVariantList &expenses, const QString &path)
{
    QVariantList stored;
    for (const QVariant &expense : expenses)
        stored += storedValues(expense);
    return NSDictionary::writeToFile({{ExpensesKey, stored}}, path, true);
}
