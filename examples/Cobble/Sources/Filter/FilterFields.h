#pragma once

#include "Fields/FieldReader.h"
#include "FilterNode.h"
#include "Library/Library.h"

#include <QHash>

#include <memory>

/// The fields of a library for whoever reads or writes a filter: by their names, and with what reads
/// their values in the user's locale.
class FilterFields
{
public:
    explicit FilterFields(const Library &library);

    qsizetype count() const { return _library.fields.size(); }
    const LibraryField &field(qsizetype index) const { return _library.fields.at(index); }
    const FieldReader &reader(qsizetype index) const { return *_readers.at(size_t(index)); }
    /// What a field shows of a value.
    QString textOf(qsizetype index, const QVariant &value) const;

    /// The number of the field with a name: its title, header, label, property or column, in any
    /// letter case. Fails if there is none, or if there are several.
    Outcome<qsizetype> named(const QString &name,
                             FilterNotation notation = FilterNotation::Typed) const;
    /// No name is longer.
    qsizetype longestName() const { return _longestName; }
    /// A name by which named() finds the field.
    QString nameOf(qsizetype index, FilterNotation notation) const;

private:
    using Index = QMultiHash<QString, qsizetype>;
    void add(qsizetype index);

    Library _library;
    std::vector<std::unique_ptr<FieldReader>> _readers;
    /// By what kind of name, as they are and folded.
    std::vector<Index> _exact;
    std::vector<Index> _folded;
    qsizetype _longestName = 0;
};
