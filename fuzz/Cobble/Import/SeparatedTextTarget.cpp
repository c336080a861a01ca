#include "FuzzTarget.h"
#include "Import/ImportSchema.h"
#include "Import/ImportValues.h"
#include "Import/SeparatedText.h"
#include "Targets.h"

#include <QSet>

using namespace Qt::StringLiterals;

void fuzzCSV(FuzzInput &input)
{
    std::optional<QChar> separator;
    if (input.flag())
        separator = QChar(ushort(input.byte()));
    const QString text = input.text();
    const Outcome<SeparatedText> source = SeparatedText::read(text, separator);
    if (!source)
        return;
    qint64 rows = 0;
    (void)source->whileRows([&rows](qint64 row, const QStringList &) {
        ++rows;
        FUZZ_REQUIRE(row == rows);
        return true;
    });
    FUZZ_REQUIRE(rows == source->rowCount());
    const ImportSchema schema = ImportSchema::fromHeaders(u"fuzz"_s, source->headers());
    QSet<QString> names;
    for (const ImportColumn &column : schema.columns)
        names += column.columnName.toCaseFolded();
    FUZZ_REQUIRE(names.size() == source->headers().size());
    const Outcome<ImportValues> values = ImportValues::of(*source);
    FUZZ_REQUIRE(values);
    for (const ImportValues::Column &column : values->columns)
        FUZZ_REQUIRE(column.read + column.unread + column.empty == rows);
}
