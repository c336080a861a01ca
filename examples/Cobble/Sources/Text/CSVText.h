#pragma once

#include "FormulaText.h"

#include <QString>
#include <QStringList>

#include <algorithm>

// Writing separated values (RFC 4180).

namespace CSVText {
/// What becomes of fields that a spreadsheet would run as formulas.
enum class Formulas {
    AsTyped,
    AsText, ///< Marked as text; imports take the mark away.
};

/// A field as it stands between commas: in quotes if it holds a comma, a quote, a line break, or
/// whitespace at its ends, with its quotes doubled.
inline QString quoted(const QString &field)
{
    const auto isSpecial = [](QChar unit) {
        return unit == u',' || unit == u';' || unit == u'\t' || unit == u'"' || unit == u'\n' ||
               unit == u'\r';
    };
    const bool isPlain = std::none_of(field.begin(), field.end(), isSpecial) &&
                         (field.isEmpty() || (!field.front().isSpace() && !field.back().isSpace()));
    if (isPlain)
        return field;
    return u'"' + QString(field).replace(u'"', QStringLiteral("\"\"")) + u'"';
}

/// A row of fields, with the end of its line. A row without anything is a row, too, and no blank
/// line, which readers pass over.
inline QString row(const QStringList &fields, Formulas formulas = Formulas::AsTyped)
{
    QString row;
    for (qsizetype index = 0; index < fields.size(); ++index) {
        const QString &field = fields.at(index);
        if (index > 0)
            row += u',';
        row += quoted(formulas == Formulas::AsText ? FormulaText::marked(field) : field);
    }
    if (row.isEmpty())
        row = QStringLiteral("\"\"");
    return row += QStringLiteral("\r\n");
}

/// A field as it stands between tabs where a text is dropped or pasted: on one line, without tabs,
/// and marked if a spreadsheet would run it. It is in quotes only if it begins with one, which
/// spreadsheets take for the beginning of such a field.
inline QString pasted(const QString &field)
{
    const auto breaks = [](QChar unit) {
        return unit == u'\t' || (unit >= u'\n' && unit <= u'\r') || unit == QChar(0x85) ||
               unit == QChar::LineSeparator || unit == QChar::ParagraphSeparator;
    };
    QString text = QString(field).replace(QStringLiteral("\r\n"), QStringLiteral(" "));
    std::replace_if(text.begin(), text.end(), breaks, QChar(u' '));
    text = FormulaText::marked(text);
    return text.trimmed().startsWith(u'"') ? quoted(text) : text;
}

/// A row of fields as a text that can be dropped or pasted, with the end of its line.
inline QString pastedRow(const QStringList &fields)
{
    QStringList texts;
    for (const QString &field : fields)
        texts += pasted(field);
    return QString(texts.join(u'\t') + u'\n');
}
} // namespace CSVText
