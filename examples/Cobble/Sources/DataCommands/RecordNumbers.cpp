#include "RecordNumbers.h"

#include "Library/LibraryTable.h"

#include <QRegularExpression>
#include <QSet>

using namespace Qt::StringLiterals;

Outcome<QList<qint64>> RecordNumbers::taken(QStringList *arguments)
{
    static const QRegularExpression digits(uR"(\A[0-9]+\z)"_s);
    QList<qint64> numbers;
    QSet<qint64> known;
    while (!arguments->isEmpty() && digits.match(arguments->first()).hasMatch()) {
        const QString text = arguments->takeFirst();
        bool isNumber = false;
        const qint64 number = text.toLongLong(&isNumber);
        if (!isNumber)
            return Failure{u"bad number '%1'"_s.arg(text)};
        if (!known.contains(number))
            numbers += number;
        known.insert(number);
    }
    return numbers;
}

Outcome<> RecordNumbers::need(DataChange &change, const Library &library,
                              const QList<qint64> &numbers)
{
    Outcome<LibraryTable> table = LibraryTable::open(change.store().database(), library.tableName);
    if (!table)
        return table.failure();
    for (const qint64 number : numbers) {
        const auto values = table->valuesOf(number, {u"id"_s});
        if (!values)
            return values.failure();
        if (!*values)
            return change.failure(ExitCode::NotFound, u"no record %1 in '%2'"_s.arg(
                                                          QString::number(number), library.name));
    }
    return {};
}

QJsonArray RecordNumbers::arrayOf(const QList<qint64> &numbers)
{
    QJsonArray array;
    for (const qint64 number : numbers)
        array.append(number);
    return array;
}
