#pragma once

#include "RowSource.h"

#include <optional>

/// The rows of a separated text: a "sep=" line if there is one, a row of headers, rows of values.
/// Marks that keep spreadsheets from running a value (see FormulaText) are no part of it.
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
    /// Reads \a text once, to know what the whole of it is like.
    /// \param separator what to use instead of the one that the text names or seems to use.
    static Outcome<SeparatedText> read(const QString &text,
                                       std::optional<QChar> separator = std::nullopt);

    void
    whileRows(const std::function<bool(qint64 row, const QStringList &fields)> &use) const override;
    QChar separator() const override { return _separator; }
    qint64 unclosedQuoteLine() const override { return _unclosedQuoteLine; }

private:
    SeparatedText(const QString &text, std::optional<QChar> separator);
    QStringView rowsText() const { return QStringView(_text).sliced(_start); }
    Outcome<> readRows();

    QString _text;
    /// Where the headers begin, and in which line.
    qsizetype _start = 0;
    qint64 _firstLine = 1;
    QChar _separator;
    qint64 _unclosedQuoteLine = 0;
};
