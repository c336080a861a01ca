#include "Sentence.h"

#include <algorithm>

namespace {
constexpr QStringView Ends = u".!?…:。！？";
constexpr QStringView QuotesBehind = u"\"'“”’»」)";

bool isIdeograph(QChar unit)
{
    const QChar::Script script = unit.script();
    return script == QChar::Script_Han || script == QChar::Script_Hiragana ||
           script == QChar::Script_Katakana;
}

/// The place behind which a sentence ends, before the quotation marks at its end.
qsizetype endOf(const QString &text)
{
    qsizetype end = text.size();
    while (end > 0 && QuotesBehind.contains(text.at(end - 1)))
        --end;
    return end;
}

/// Names of files and the like begin as they do.
bool beginsWithWord(const QString &text)
{
    const qsizetype end = text.indexOf(u' ');
    const auto word = QStringView(text).first(end < 0 ? text.size() : end);
    return std::all_of(word.begin(), word.end(), [](QChar unit) { return unit.isLetter(); });
}
} // namespace

QString Sentence::of(const QString &reason)
{
    if (reason.isEmpty())
        return reason;
    QString sentence = reason;
    if (beginsWithWord(reason))
        sentence[0] = reason.at(0).toUpper();
    const qsizetype end = endOf(sentence);
    if (end > 0 && Ends.contains(sentence.at(end - 1)))
        return sentence;
    return sentence + (end > 0 && isIdeograph(sentence.at(end - 1)) ? u'。' : u'.');
}
