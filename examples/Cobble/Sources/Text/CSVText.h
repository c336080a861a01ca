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
    QStringList texts;
    for (const QString &field : fields)
        texts += quoted(formulas == Formulas::AsText ? FormulaText::marked(field) : field);
    const QString row = texts.join(u',');
    return QString((row.isEmpty() ? QStringLiteral("\"\"") : row) + u"\r\n");
}
} // namespace CSVText
