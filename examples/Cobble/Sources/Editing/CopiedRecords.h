#pragma once

#include "Fields/FieldType.h"
#include "Text/Outcome.h"

#include <QByteArray>
#include <QList>
#include <QVariant>

/// A field whose values were copied.
struct CopiedField
{
    QString title;
    FieldType type = FieldType::Text;
    /// The code of the currency of amounts; nil for other fields.
    QString currency;
};

/// A value that was copied, exactly and as its field has shown it.
struct CopiedCell
{
    QVariant value;
    QString text;
};

/// Records as they are copied from one library to another, so that nothing of them is lost.
///
/// \code
/// clipboard->setMimeData(records.mimeData());
/// const Outcome<CopiedRecords> copied =
///     CopiedRecords::read(clipboard->mimeData()->data(CopiedRecords::MimeType));
/// \endcode
struct CopiedRecords
{
    inline static const QString MimeType = QStringLiteral("application/x-cobble-records");

    /// The path of the bundle that media URLs belong to.
    QString bundle;
    QList<CopiedField> fields;
    /// As many cells in each row as there are fields.
    QList<QList<CopiedCell>> rows;

    /// The exact form, as CBOR.
    QByteArray bytes() const;
    /// Reads what bytes() has written. Bytes of anybody else are an error.
    static Outcome<CopiedRecords> read(const QByteArray &bytes);

    QStringList titles() const;
    /// The texts of a row.
    QStringList texts(qsizetype row) const;
};
