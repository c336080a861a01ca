#pragma once

#include <QString>
#include <QStringView>

#include <vector>

/// Where a field of separated text stands, with its quotes.
struct CSVField
{
    qsizetype start = 0;
    qsizetype length = 0;
    bool isQuoted = false;

    /// What was typed, without the quotes around it.
    /// \param text that which was scanned.
    QString textIn(QStringView text) const;
};

/// Finds the records of separated text without copying anything; CSVReader says how they are
/// written. The text may be the beginning of a longer one: see mayGoOn().
///
/// \code
/// CSVScanner scanner(u"name,note\nAnn,\"a, b\"\n", u',');
/// while (scanner.next())
///     use(scanner.fields());
/// \endcode
class CSVScanner
{
public:
    /// \param text must outlive it.
    /// \param firstLine the number of the line that \a text begins with.
    CSVScanner(QStringView text, QChar separator, qint64 firstLine = 1);

    /// Finds the next record that is not blank.
    /// \return false at the end of the text.
    bool next();
    /// The fields of the record; there is one at least.
    const std::vector<CSVField> &fields() const { return _fields; }
    /// Whether nothing but the end of the text ends the record, or what is blank at the end: where more
    /// text follows, it may be longer.
    bool mayGoOn() const { return !_isEnded; }
    /// Where what was not scanned yet begins, and in which line.
    qsizetype position() const { return _position; }
    qint64 line() const { return _line; }
    /// The line on which the record begins.
    qint64 recordLine() const { return _recordLine; }
    /// The line of a quote that was never closed, 0 if there was none so far.
    qint64 unclosedQuoteLine() const { return _unclosedQuoteLine; }

private:
    void scanRecord();
    void scanField();
    void scanQuotedPart();
    void scanPlainPart();
    bool isBlank() const;
    bool isAt(QChar character) const;
    bool skip(QChar character);
    bool skipLineBreak();

    QStringView _text;
    QChar _separator;
    std::vector<CSVField> _fields;
    qsizetype _position = 0;
    qint64 _line;
    qint64 _recordLine;
    qint64 _unclosedQuoteLine = 0;
    bool _isEnded = true;
};
