#pragma once

#include "Fields/FieldReader.h"
#include "Library/Library.h"
#include "PastedTable.h"

#include <QCoreApplication>

#include <functional>

/// Where something is pasted: the fields of a library, and what reads their values.
struct PasteTarget
{
    Library library;
    std::function<const FieldReader &(qsizetype field)> reader;
    /// The path of its bundle, in which its media are.
    QString bundle;
};

/// What pasting a table would store, and what of it cannot be read. Nothing is stored by that.
///
/// \code
/// const PastePlan plan = PastePlan::records(target, PastedTable::of(*data));
/// if (plan.problems().isEmpty())
///     insert(plan.records());
/// \endcode
class PastePlan
{
    Q_DECLARE_TR_FUNCTIONS(PastePlan)

public:
    /// A value for a record that is there.
    struct Cell
    {
        /// Rows below the first one.
        qsizetype row = 0;
        qsizetype field = 0;
        QVariant value;
    };
    /// What cannot be stored.
    struct Problem
    {
        /// Of what is pasted, from 1 on.
        qsizetype row = 0;
        /// The title of the field, or of the column if it has none.
        QString field;
        QString text;
        QString reason;
    };

    /// New records. Columns go to the fields that their titles name; a first row of titles is known
    /// by all of its cells being names of fields. Without titles the first column goes to the first
    /// field, and so on.
    static PastePlan records(const PasteTarget &target, const PastedTable &table);
    /// Values over those that are there.
    /// \param fields those from the current one to the right, as the user sees them.
    /// \param rowCount of the records from the current one on.
    static PastePlan cells(const PasteTarget &target, const PastedTable &table,
                           const QList<qsizetype> &fields, qsizetype rowCount);

    /// The values of new records in the order of the fields; what cannot be read is nil.
    const QList<QVariantList> &records() const { return _records; }
    const QList<Cell> &cells() const { return _cells; }
    const QList<Problem> &problems() const { return _problems; }

private:
    /// The place of a column's field; −1 if there is none.
    using Places = QList<qsizetype>;

    PastePlan(const PasteTarget &target, const PastedTable &table);
    qsizetype columnCount() const;
    qsizetype rowCount() const;
    CopiedCell cell(qsizetype row, qsizetype column) const;
    Places placesOfTitles(const QStringList &titles) const;
    qsizetype fieldNamed(const QString &title, const Places &taken = {}) const;
    Places placesByOrder() const;
    bool takeTitles();
    Outcome<QVariant> read(const CopiedCell &cell, qsizetype column, qsizetype field) const;
    Outcome<QVariant> readMedia(const CopiedCell &cell, qsizetype column) const;
    bool isBlank(qsizetype row) const;
    void addRecord(qsizetype row, const Places &places);
    void addCell(qsizetype row, qsizetype column, qsizetype field);
    void addProblem(qsizetype row, const QString &name, const QString &text, const QString &reason);
    QString columnName(qsizetype column) const;

    PasteTarget _target;
    PastedTable _table;
    /// Of the columns; empty if nothing names them.
    QStringList _titles;
    QList<QVariantList> _records;
    QList<Cell> _cells;
    QList<Problem> _problems;
};
