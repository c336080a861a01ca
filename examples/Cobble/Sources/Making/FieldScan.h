#pragma once

#include "FieldPlan.h"
#include "Journal/FieldConversion.h"

#include <vector>

/// What a plan for the fields of a library would do to the values that there are.
struct FieldPreview
{
    /// Those of the fields of another type, by the places of the fields in the library.
    QHash<qsizetype, FieldConversion::Preview> converted;
    /// How many records have a value in a field that goes, by its place in the library.
    QHash<qsizetype, qint64> removed;
};

/// Finds that out by looking at all records.
///
/// \code
/// const Outcome<FieldPreview> preview = FieldScan(plan).run(store, [] { return true; });
/// \endcode
class FieldScan
{
public:
    /// What is looked at: plans with the same parts have the same previews.
    struct Part
    {
        qsizetype field = 0;
        bool isRemoved = false;
        FieldType type = FieldType::Text;
        QVariantMap options;

        bool operator==(const Part &) const = default;
    };
    static QList<Part> partsOf(const FieldPlan &plan);

    explicit FieldScan(const FieldPlan &plan);

    /// \param goesOn is asked now and then whether to go on.
    Outcome<FieldPreview> run(LibraryStore &store, const std::function<bool()> &goesOn) const;

private:
    void add(const RecordCursor &record, FieldPreview *preview) const;
    FieldPreview begun() const;

    Library _library;
    QList<Part> _parts;
    /// Of the parts; null for those that are removed.
    std::vector<std::unique_ptr<FieldConversion>> _conversions;
};
