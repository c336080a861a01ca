#include "FoldedText.h"

#include <algorithm>
#include <array>

namespace {
/// The letters of most of Europe's languages are looked up.
constexpr char16_t EndOfTable = 0x250;

QString foldedInFull(const QString &text)
{
    const QString parts = text.normalized(QString::NormalizationForm_KD);
    QString letters;
    letters.reserve(parts.size());
    for (const QChar unit : parts) {
        if (unit.category() != QChar::Mark_NonSpacing)
            letters += unit;
    }
    return letters.toCaseFolded();
}

std::array<QString, EndOfTable> foldedLetters()
{
    std::array<QString, EndOfTable> letters;
    for (char16_t unit = 0; unit < EndOfTable; ++unit)
        letters[unit] = foldedInFull(QString(QChar(unit)));
    return letters;
}
} // namespace

QString foldedText(const QString &text)
{
    static const std::array<QString, EndOfTable> letters = foldedLetters();
    const bool isInTable = std::all_of(text.begin(), text.end(),
                                       [](QChar unit) { return unit.unicode() < EndOfTable; });
    if (!isInTable)
        return foldedInFull(text);
    QString folded;
    folded.reserve(text.size() + 8);
    for (const QChar unit : text)
        folded += letters[unit.unicode()];
    return folded;
}
