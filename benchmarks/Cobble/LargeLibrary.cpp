#include "LargeLibrary.h"

#include "Library/LibraryStore.h"

#include <QDateTime>

using namespace Qt::StringLiterals;

namespace {
LibraryField fieldOf(const QString &title, FieldType type)
{
    LibraryField field;
    field.columnName = u"kt_"_s + title.toLower();
    field.header = title;
    field.type = type;
    return field;
}

Library people()
{
    Library library;
    library.name = u"People"_s;
    library.tableName = u"kt_people"_s;
    library.entityName = u"Person"_s;
    library.libraryEntityName = u"PersonLibrary"_s;
    library.fields = {
        fieldOf(u"Name"_s, FieldType::Text),     fieldOf(u"City"_s, FieldType::Text),
        fieldOf(u"Email"_s, FieldType::Text),    fieldOf(u"Notes"_s, FieldType::Text),
        fieldOf(u"Visits"_s, FieldType::Number), fieldOf(u"Score"_s, FieldType::Number),
        fieldOf(u"Paid"_s, FieldType::Currency), fieldOf(u"Born"_s, FieldType::Date),
        fieldOf(u"Since"_s, FieldType::Date),    fieldOf(u"Phone"_s, FieldType::Phone)};
    return library;
}

QVariant dayAfter(int year, qint64 days)
{
    return QDateTime(QDate(year, 1, 1).addDays(days), QTime(0, 0), Qt::UTC);
}

QVariantList record(qint64 number)
{
    static const QStringList names{u"Ada"_s, u"Bjørn"_s, u"Céline"_s, u"Dmitri"_s, u"Ela"_s};
    static const QStringList cities{u"Bergen"_s, u"Zürich"_s, u"Lyon"_s, u"Kraków"_s, u"Graz"_s};
    // So that neighbours are no neighbours in any other order.
    const qint64 mixed = number * 7919 % 1000003;
    const QString name = names.at(mixed % 5) + u" "_s + QString::number(mixed);
    const QString city = cities.at(mixed % 5) + u" "_s + QString::number(mixed % 997);
    const QString email =
        name.section(u' ', 0, 0).toLower() + QString::number(number) + u"@example.org"_s;
    return {name,
            city,
            email,
            number % 10 ? QVariant() : QVariant(u"met at meeting %1"_s.arg(mixed % 311)),
            mixed % 1000,
            double(mixed) / 8,
            double(mixed % 100000) / 100,
            dayAfter(1940, mixed % 20000),
            dayAfter(2000, number % 9000),
            u"+49 30 %1"_s.arg(mixed, 7, 10, QChar(u'0'))};
}
} // namespace

Outcome<> makeLargeLibrary(const KTDatabaseBundle &bundle, qint64 recordCount)
{
    if (!bundle.buildDatabaseBundleOnDisk())
        return Failure{u"there can be no bundle"_s};
    const auto store = LibraryStore::open(bundle, LibraryStore::Mode::Create);
    if (!store)
        return store.failure();
    Outcome<> made = (*store)->begin().andThen([&] { return (*store)->create(people()); });
    for (qint64 number = 0; made && number < recordCount; ++number)
        made = (*store)->insert(record(number));
    return made.andThen([&] { return (*store)->commit(); });
}
