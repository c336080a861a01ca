#pragma once

#include "CSVScanner.h"

#include <QStringList>
#include <QStringView>

/// Reads the rows of separated text as people and spreadsheets write it (RFC 4180 and what strays
/// from it), in time linear in the text.
///
/// - Rows end with LF, CRLF or CR; the last one may end with the text. Blank lines are skipped.
/// - A field that begins with a quote runs to the closing quote and may hold separators and line
///   breaks; two quotes in it are one. Text between the closing quote and the separator is kept.
/// - A quote anywhere else is an ordinary character.
/// - A quote that is never closed runs to the end of the text; see unclosedQuoteLine().
///
/// It knows nothing of headers; see SeparatedText for those.
///
/// \code
/// CSVReader reader(u"name,note\nAnn,\"a, b\"\n", u',');
/// QStringList fields;
/// while (reader.readRow(&fields))
///     use(fields);    // {"name", "note"}, then {"Ann", "a, b"}
/// \endcode
class CSVReader
{
public:
    /// A reader of \a text, which must outlive it.
    /// \param separator stands between fields; neither a quote nor a line break.
    /// \param firstLine the number of the line that \a text begins with.
    explicit CSVReader(QStringView text, QChar separator = u',', qint64 firstLine = 1);

    /// Reads the next row that is not blank; a blank one holds only whitespace and no quotes or
    /// separators. Every row has at least one field, and no field is nil.
    /// \return false at the end of the text; \a fields is empty then.
    bool readRow(QStringList *fields);

    /// The number of the line on which the row read last begins.
    qint64 lineNumber() const { return _scanner.recordLine(); }
    /// The line of a quote that was never closed, 0 if there was none so far.
    qint64 unclosedQuoteLine() const { return _scanner.unclosedQuoteLine(); }

private:
    QStringView _text;
    CSVScanner _scanner;
};
