#include "SeparatedText.h"

#include "Text/CSVSeparator.h"
#include "Text/Reasons.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
/// So much of a text tells what separates its fields, in bytes.
constexpr qint64 HeadSize = qint64(1) << 22;
/// No row is longer, in UTF-16 units.
constexpr qsizetype RowLimit = qsizetype(1) << 29;
} // namespace

/// Cuts the text into batches of whole rows.
class SeparatedText::Cursor : public RowCursor
{
public:
    /// \param skipsHeaders whether the first row is none of the values.
    Cursor(const SeparatedText &rows, bool skipsHeaders)
        : _rows(rows)
        , _reader(rows._source.reader())
        , _line(rows._firstLine)
        , _toSkip(rows._start)
        , _isBeforeHeaders(skipsHeaders)
    {
    }

    Outcome<bool> next(RowBatch *batch) override
    {
        while (!_isAtEnd) {
            const Outcome<> read = readText();
            if (!read)
                return read.failure();
            if (takeRows(batch))
                return true;
        }
        return false;
    }

    qint64 unclosedQuoteLine() const { return _unclosedQuoteLine; }

private:
    /// Reads as much again as is left, so that a long row is not looked through too often.
    Outcome<> readText()
    {
        const qsizetype wanted = _text.size() + std::max<qsizetype>(_text.size(), 1);
        while (!_isAtEnd && _text.size() < wanted) {
            const Outcome<bool> isRead = _reader.readMore(&_text);
            if (!isRead)
                return isRead.failure();
            _isAtEnd = !*isRead;
            skipStart();
        }
        return _text.size() <= RowLimit ? Outcome<>()
                                        : Failure{Reasons::tr("line %1 is too long").arg(_line)};
    }

    void skipStart()
    {
        const qsizetype length = std::min(_toSkip, _text.size());
        _text.remove(0, length);
        _toSkip -= length;
    }

    /// Takes the rows that end in the text, and leaves the rest for the next time.
    bool takeRows(RowBatch *batch)
    {
        const QString text = std::exchange(_text, QString());
        *batch = RowBatch(text, _number);
        batch->select(_rows.selected());
        CSVScanner scanner(text, _rows.separator(), _line);
        qsizetype end = 0;
        while (scanner.next() && (_isAtEnd || !scanner.mayGoOn())) {
            if (!std::exchange(_isBeforeHeaders, false))
                batch->addRow(scanner.fields(), scanner.recordLine());
            end = scanner.position();
            _line = scanner.line();
        }
        // What is blank up to the end of a line is done with, too.
        if (scanner.position() == text.size() && !scanner.mayGoOn()) {
            end = scanner.position();
            _line = scanner.line();
        }
        if (_isAtEnd)
            _unclosedQuoteLine = scanner.unclosedQuoteLine();
        _number += batch->rowCount();
        _text = text.sliced(end);
        return !batch->isEmpty();
    }

    const SeparatedText &_rows;
    TextReader _reader;
    QString _text;
    qint64 _line;
    qsizetype _toSkip;
    bool _isBeforeHeaders;
    bool _isAtEnd = false;
    qint64 _number = 1;
    qint64 _unclosedQuoteLine = 0;
};

Outcome<SeparatedText> SeparatedText::read(const QString &text, std::optional<QChar> separator)
{
    return read(TextSource(text), {separator});
}

Outcome<SeparatedText> SeparatedText::read(const TextSource &source, const Form &form,
                                           const std::function<bool()> &goesOn)
{
    SeparatedText rows(source, form);
    const Outcome<> outcome = rows.readForm().andThen([&] { return rows.readRows(goesOn); });
    if (!outcome)
        return outcome.failure();
    return rows;
}

/// Finds out what separates the fields, if that is not known.
Outcome<> SeparatedText::readForm()
{
    TextReader reader = _source.reader();
    QString head;
    Outcome<bool> isRead = true;
    while (isRead && *isRead && head.size() < HeadSize)
        isRead = reader.readMore(&head);
    if (!isRead)
        return isRead.failure();
    if (const auto directive = CSVSeparator::directiveOf(head)) {
        _start = directive->length;
        _firstLine = 2;
        _form.separator = _form.separator.value_or(directive->separator);
    }
    if (!_form.separator)
        _form.separator = CSVSeparator::sniffed(QStringView(head).sliced(_start));
    return {};
}

Outcome<> SeparatedText::readRows(const std::function<bool()> &goesOn)
{
    Cursor cursor(*this, false);
    for (bool isFirst = true;; isFirst = false) {
        RowBatch batch;
        const Outcome<bool> isRead = cursor.next(&batch);
        if (!isRead)
            return isRead.failure();
        if (!*isRead && isFirst)
            return Failure{Reasons::tr("there is nothing but blank lines")};
        if (!*isRead)
            break;
        if (const Outcome<> added = addBatch(batch, isFirst); !added)
            return added;
        if (goesOn && !goesOn())
            return Failure{Reasons::tr("it was cancelled"), true};
    }
    _unclosedQuoteLine = cursor.unclosedQuoteLine();
    endRows();
    return {};
}

/// The headers, or what stands for them.
Outcome<> SeparatedText::addFirst(const RowBatch &batch)
{
    QStringList headers = batch.fields(0);
    for (qsizetype column = 0; !_form.hasHeaders && column < headers.size(); ++column)
        headers[column] = Reasons::tr("Column %1").arg(column + 1);
    return addHeaders(headers, batch.line(0));
}

Outcome<> SeparatedText::addBatch(const RowBatch &batch, bool isFirst)
{
    Outcome<> outcome = isFirst ? addFirst(batch) : Outcome<>();
    const qsizetype first = isFirst && _form.hasHeaders ? 1 : 0;
    for (qsizetype row = first; outcome && row < batch.rowCount(); ++row)
        outcome = addRow(batch.width(row), batch.line(row));
    return outcome;
}

std::unique_ptr<RowCursor> SeparatedText::cursor() const
{
    return std::make_unique<Cursor>(*this, _form.hasHeaders);
}
