#pragma once

#include <QString>
#include <QStringView>
#include <QVarLengthArray>

namespace KTPrivate {
/// A typed number as ICU gets it: without the blanks that mean nothing.
///
/// Blanks (tab, every Unicode space) are dropped unless they stand between two letters or two
/// digits, where they become one space. Remembers where each unit came from, so that lengths can
/// be told in units of the typed text.
class NumberText
{
public:
    /// The platform looks at no more than this many units.
    static constexpr qsizetype MaximumLength = 1024;

    /// \param text at most MaximumLength units.
    explicit NumberText(QStringView text);

    /// What to read.
    QStringView squeezed() const { return _squeezed; }
    /// The first unit of the typed text that is no blank; its length if there is none.
    qsizetype begin() const { return _begin; }
    /// Whether nothing was dropped but leading blanks.
    bool isUnchanged(QStringView text) const { return text.mid(_begin) == _squeezed; }
    /// The end, in the typed text, of the first \a length squeezed units.
    qsizetype endOf(qsizetype length) const;

    static bool isWhitespace(QChar unit);

private:
    bool keepsSpaceBefore(QStringView text, qsizetype index) const;
    void append(QChar unit, qsizetype index);

    QString _squeezed;
    QVarLengthArray<qsizetype, 64> _ends;
    qsizetype _begin = 0;
};
} // namespace KTPrivate
