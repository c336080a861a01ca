#pragma once

#include "FieldScan.h"

#include <QCoreApplication>

/// What a plan for the fields of a library changes, in sentences.
class FieldChanges
{
    Q_DECLARE_TR_FUNCTIONS(FieldChanges)

public:
    FieldChanges() = delete;

    /// A value that a change empties, or how many more there are.
    struct Value
    {
        QString text;
        /// Why it cannot be read.
        QString reason;
    };
    struct Change
    {
        QString text;
        QList<Value> values;
    };

    using Preview = std::optional<FieldPreview>;

    /// \param preview nothing while it is not known what becomes of the values.
    static QList<Change> of(const FieldPlan &plan, const Preview &preview);

private:
    static QList<Change> ofField(const FieldPlan &plan, const FieldPlan::Field &field,
                                 const Preview &preview);
    static Change ofType(const QString &title, const FieldPlan::Field &field,
                         const Preview &preview);
    static QString typeText(const QString &title, const QString &type,
                            const FieldConversion::Preview &preview);
    static QList<Value> unreadIn(const FieldConversion::Preview &preview);
    static QString removalText(const LibraryField &field, qsizetype place, const Preview &preview);
};
