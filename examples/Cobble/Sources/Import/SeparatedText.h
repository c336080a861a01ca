#pragma once

#include "RowSource.h"
#include "Text/TextSource.h"

#include <optional>

/// The rows of a separated text: a "sep=" line if there is one, a row of headers, rows of values.
/// Marks that keep spreadsheets from running a value (see FormulaText) are no part of it.
///
/// The text is read anew each time, a piece at a time, so that it may be of any size.
///
/// \code
/// const Outcome<SeparatedText> rows = SeparatedText::read(u"a;b\n1;2;3\n4\n"_s);
/// rows->headers();           // {"a", "b", ""}
/// rows->rowCount();          // 2
/// rows->raggedRowCount();    // 2
/// \endcode
class SeparatedText : public RowSource
{
public:
    /// How the text is written, as far as that is known.
    struct Form
    {
        /// What to use instead of the separator that the text names or seems to use.
        std::optional<QChar> separator = std::nullopt;
        /// Whether the first row holds the headers; else the columns are called "Column 1", "Column 2".
        bool hasHeaders = true;
    };

    /// Reads a text once, to know what the whole of it is like.
    /// \param goesOn is asked now and then; may be empty.
    static Outcome<SeparatedText> read(const TextSource &source, const Form &form,
                                       const std::function<bool()> &goesOn = {});
    static Outcome<SeparatedText> read(const QString &text,
                                       std::optional<QChar> separator = std::nullopt);

    std::unique_ptr<RowCursor> cursor() const override;
    QChar separator() const override { return _form.separator.value_or(u','); }
    QString encoding() const override { return _source.encoding(); }
    qint64 unclosedQuoteLine() const override { return _unclosedQuoteLine; }

private:
    class Cursor;

    SeparatedText(const TextSource &source, const Form &form) : _source(source), _form(form) {}
    Outcome<> readForm();
    Outcome<> readRows(const std::function<bool()> &goesOn);
    Outcome<> addBatch(const RowBatch &batch, bool isFirst);
    Outcome<> addFirst(const RowBatch &batch);

    TextSource _source;
    Form _form;
    /// Where the headers begin, and in which line.
    qsizetype _start = 0;
    qint64 _firstLine = 1;
    qint64 _unclosedQuoteLine = 0;
};
