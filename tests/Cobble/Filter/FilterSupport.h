#pragma once

#include "Commands/UserSettings.h"
#include "Fields/FieldValue.h"
#include "Filter/RecordFilter.h"

#include <QVariantMap>

// A library of people, and records of it, for tests of filters.

namespace filter_support {
inline LibraryField fieldOf(const QString &title, FieldType type)
{
    LibraryField field;
    field.columnName = QStringLiteral("kt_") + title.toLower().replace(u' ', u'_');
    field.header = title;
    field.propertyName = title.toLower().remove(u' ');
    field.type = type;
    return field;
}

inline Library people()
{
    Library library;
    library.name = QStringLiteral("People");
    library.tableName = QStringLiteral("kt_people");
    library.fields = {fieldOf(QStringLiteral("Name"), FieldType::Text),
                      fieldOf(QStringLiteral("First name"), FieldType::Text),
                      fieldOf(QStringLiteral("Balance"), FieldType::Currency),
                      fieldOf(QStringLiteral("Visits"), FieldType::Number),
                      fieldOf(QStringLiteral("Talked"), FieldType::Duration),
                      fieldOf(QStringLiteral("Born"), FieldType::Date),
                      fieldOf(QStringLiteral("Seen"), FieldType::DateTime),
                      fieldOf(QStringLiteral("Wakes"), FieldType::Time),
                      fieldOf(QStringLiteral("Phone"), FieldType::Phone),
                      fieldOf(QStringLiteral("Checked in"), FieldType::Text)};
    return library;
}

/// A record of the texts that FieldValue reads; "-" for nil.
inline QVariantMap record(const QStringList &texts)
{
    const Library library = people();
    QVariantMap values;
    for (qsizetype field = 0; field < texts.size(); ++field) {
        const LibraryField &each = library.fields.at(field);
        const QString &text = texts.at(field);
        values.insert(each.columnName,
                      text == u"-" ? QVariant() : FieldValue::valueOf(each.type, text));
    }
    return values;
}

inline QList<QVariantMap> records()
{
    const auto row = [](const char *text) { return record(QString::fromUtf8(text).split(u'|')); };
    return {
        row("Ada|Ada Maria|1234.5|7|5400|1990-03-15|2020-02-29T17:30|06:00|2125550101|yes"),
        row("Bjørn|-|-20|12|60|1985-12-31|2020-03-01T00:00|07:15|-|no"),
        row("céline|Céline|1234.51|1000|3600|1990-03-31|2019-12-31T23:59|12:00|-|-"),
        row("Dora|-|-|-|-|-|-|-|-|-"),
        row("élan and co|Zoë|0.1|-3.25|0|2000-01-01|2020-03-01T09:05|23:59|-|x (y)"),
    };
}

/// The names of the records that a filter accepts, by their first letters.
inline QString found(const RecordFilter &filter)
{
    QString letters;
    for (const QVariantMap &each : records()) {
        if (filter.predicate().isNil() || filter.predicate().evaluateWithObject(QVariant(each)))
            letters += each.value(QStringLiteral("kt_name")).toString().front();
    }
    return letters;
}

inline RecordFilter read(const QString &text)
{
    return RecordFilter::read(text, std::make_shared<FilterFields>(people()));
}
} // namespace filter_support
