#pragma once

#include "support/TestSupport.h"

#include <QJsonObject>
#include <QList>
#include <QString>

/// A row of the table of texts.
struct TextRow
{
    QString operation;
    QString text;
    QJsonObject arguments;
    QJsonObject row;

    QJsonValue expected() const { return row.value(QStringLiteral("out")); }
};

/// The rows of one operation.
inline QList<TextRow> textRows(const QString &operation)
{
    QList<TextRow> rows;
    for (const QJsonObject &row : testing_support::rowsOf(QStringLiteral("system/text.jsonl"))) {
        const QJsonObject arguments = row.value(QStringLiteral("args")).toObject();
        if (row.value(QStringLiteral("op")).toString() == operation)
            rows += {operation, arguments.value(QStringLiteral("s")).toString(), arguments, row};
    }
    EXPECT_FALSE(rows.isEmpty()) << operation.toStdString();
    return rows;
}
