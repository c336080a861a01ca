#include "FoldedText.h"

#include <KTUtility/NSStringNormalization>

#include <algorithm>
#include <array>

namespace {
/// The letters of most of Europe's languages are looked up.
constexpr char16_t EndOfTable = 0x250;

bool isMark(char32_t point)
{
    return QChar::category(point) == QChar::Mark_NonSpacing || QChar::combiningClass(point) != 0;
}

QString withoutMarks(const QString &text)
{
    QString letters;
    letters.reserve(text.size());
    for (qsizetype at = 0; at < text.size(); ++at) {
        const bool isPair =
            text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate();
        if (!isMark(isPair ? QChar::surrogateToUcs4(text[at], text[at + 1]) : text[at].unicode()))
            letters += QStringView(text).sliced(at, isPair ? 2 : 1);
        at += isPair ? 1 : 0;
    }
    return letters;
}

QString foldedInFull(const QString &text)
{
    return textWithoutAccents(text).toCaseFolded();
}

std::array<QString, EndOfTable> foldedLetters()
{
    std::array<QString, EndOfTable> letters;
    for (char16_t unit = 0; unit < EndOfTable; ++unit)
        letters[unit] = foldedInFull(QString(QChar(unit)));
    return letters;
}
} // namespace

QString textWithoutAccents(const QString &text)
{
    // To put a long run of marks in order takes square time: those of the text go first.
    return withoutMarks(NSString::decomposedStringWithCompatibilityMapping(withoutMarks(text)));
}

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
