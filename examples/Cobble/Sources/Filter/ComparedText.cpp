#include "ComparedText.h"

#include "Records/FoldedText.h"

#include <algorithm>

namespace {
bool isASCII(const QString &text)
{
    return std::all_of(text.begin(), text.end(), [](QChar unit) { return unit.unicode() < 0x80; });
}
} // namespace

QString ComparedText::of(const QString &text, const QString &passesOver)
{
    const bool passesOverCase = passesOver.contains(u'c');
    const bool passesOverAccents = passesOver.contains(u'd');
    if (passesOverCase && passesOverAccents)
        return foldedText(text);
    if (isASCII(text))
        return passesOverCase ? text.toLower() : text;
    const QString letters = passesOverAccents ? textWithoutAccents(text)
                                              : text.normalized(QString::NormalizationForm_C);
    return passesOverCase ? letters.toCaseFolded() : letters;
}

bool ComparedText::isOfWord(QChar unit)
{
    return unit.isLetterOrNumber() || unit == u'_' || unit.isMark() || unit.isSurrogate();
}
