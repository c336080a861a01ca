#pragma once

#include <QStringView>

#include <array>

/// A short text as its digits, and what stands around them: its form.
///
/// Texts of one form have the same length and the same signs in the same places; their digits differ,
/// but for zeros at the beginning of a number and the one at the end of the text, which some readers
/// look at.
///
/// \code
/// PlainText(u"$1,187.70").form();              // "$0,000.02"
/// PlainText(u"$1,187.70").run(1).value;        // 187
/// PlainText(u"$1,187.70").between(1);          // "."
/// \endcode
class PlainText
{
public:
    /// Digits that follow each other.
    struct Run
    {
        qsizetype begin = 0;
        qsizetype length = 0;
        qint64 value = 0;

        qsizetype end() const { return begin + length; }
    };

    static constexpr qsizetype LongestText = 40;
    static constexpr qsizetype MostRuns = 8;
    /// As many as a double takes.
    static constexpr qsizetype MostDigits = 15;

    PlainText() = default;
    /// \param text must outlive it.
    explicit PlainText(QStringView text);

    /// Whether it is short and has digits, all of them ASCII's, and not too many.
    bool isPlain() const { return _isPlain; }
    /// The text with a sign for each digit that says no more of it than what belongs to the form.
    QStringView form() const { return {_form.data(), _text.size()}; }

    qsizetype runCount() const { return _runCount; }
    const Run &run(qsizetype index) const { return _runs[size_t(index)]; }
    qsizetype digitCount() const { return _digitCount; }

    QStringView before() const { return _text.first(run(0).begin); }
    /// What stands between a run and the next one.
    QStringView between(qsizetype index) const;
    QStringView behind() const { return _text.sliced(run(_runCount - 1).end()); }

private:
    bool scan();
    bool addDigit(qsizetype at, bool goesOn);
    void markZeros();
    bool isZero() const;

    QStringView _text;
    std::array<char16_t, LongestText> _form;
    std::array<Run, MostRuns> _runs;
    qsizetype _runCount = 0;
    qsizetype _digitCount = 0;
    bool _isPlain = false;
};
