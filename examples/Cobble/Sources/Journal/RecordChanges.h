#pragma once

#include "Text/Outcome.h"

#include <QByteArray>
#include <QList>
#include <QStringList>
#include <QVariantList>

#include <optional>

/// What a step of the journal has done to one record: values of some columns, exactly as the
/// database has them. A record that was not there before has no values before, one that is gone has
/// none after.
struct RecordChange
{
    qint64 id = 0;
    QStringList columns;
    std::optional<QVariantList> before;
    std::optional<QVariantList> after;
};

/// Changes to records of one table as bytes, in the order in which they were made.
///
/// \code
/// RecordChanges changes;
/// changes.add({12, {u"kt_name"_s}, QVariantList{u"Ann"_s}, QVariantList{u"Eve"_s}});
/// store(changes.bytes());
/// \endcode
class RecordChanges
{
public:
    void add(const RecordChange &change);
    const QByteArray &bytes() const { return _bytes; }

    /// Reads what bytes() has given. Bytes of anybody else are an error.
    static Outcome<QList<RecordChange>> read(const QByteArray &bytes);

private:
    /// Those of the last change, which need not be written again.
    QStringList _columns;
    QByteArray _bytes;
};
