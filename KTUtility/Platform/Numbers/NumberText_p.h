#pragma once

// Private to the library. What is whitespace in a number, and what nobody sees in it, the formatters
// ask as well.

#include <QString>
#include <QStringView>
#include <QVarLengthArray>

namespace KTPrivate {
/// A typed number as ICU gets it: without the whitespace that means nothing.
///
/// Whitespace (tab, every Unicode space) is dropped unless it stands between two letters or two
/// digits, where it becomes one space. Remembers where each unit came from, so that lengths can be
/// given in units of the typed text.
class NumberText
{
public:
    /// The platform looks at no more than this many units.
    static constexpr qsizetype MaximumLength = 1024;

    /// \param text at most MaximumLength units.
    explicit NumberText(QStringView text);

    /// What to read.
    QStringView squeezed() const { return _squeezed; }
    /// The first unit of the typed text that is no whitespace; its length if there is none.
    qsizetype begin() const { return _begin; }
    /// Whether nothing was dropped but leading whitespace.
    bool isUnchanged(QStringView text) const { return text.mid(_begin) == _squeezed; }
    /// The end, in the typed text, of the first \a length squeezed units.
    qsizetype endOf(qsizetype length) const;

    static bool isWhitespace(QChar unit);
    /// A mark that only says in which direction a text runs. Nobody sees it.
    static bool isDirectionMark(QChar unit);

private:
    bool keepsSpaceBefore(QStringView text, qsizetype index) const;
    void append(QChar unit, qsizetype index);

    QString _squeezed;
    QVarLengthArray<qsizetype, 64> _ends;
    qsizetype _begin = 0;
};
} // namespace KTPrivate
