#pragma once

// Private to the library. For the words that typed texts are made of.

#include "FoldedText_p.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QStringView>

#include <algorithm>
#include <functional>
#include <optional>
#include <span>
#include <vector>

namespace KTPrivate {
/// Whether a word may end between two units of a text: not between two letters or marks, but that
/// some scripts have no blanks between words.
KTUTILITY_EXPORT bool isWordEnd(QStringView folded, qsizetype position);

/// Words and phrases with what they mean, of which one may mean several things ("m": minutes,
/// months). Finds the longest that stands at a position of a folded text, in a time that does not
/// depend on how many it holds.
///
/// \code
/// PhraseTable<int> days;
/// days.add(u"today", 0);
/// days.add(u"day after tomorrow", 2);
/// const FoldedText text(u"Day  after tomorrow, 5 pm");
/// days.longestAt(text.text(), 0).length;              // 18
/// days.longestAt(text.text(), 0).meanings.front();    // 2
/// \endcode
template<class Meaning>
class PhraseTable
{
public:
    struct Match
    {
        qsizetype length = 0; ///< in the folded text; 0 if nothing stands there
        std::span<const Meaning> meanings;
    };

    /// Adds a phrase, as it is written, beside what it means already; once is enough.
    void add(QStringView phrase, const Meaning &meaning)
    {
        const QString key = FoldedText::folded(phrase);
        if (key.isEmpty())
            return;
        std::vector<Meaning> &meanings = _meanings[key];
        if (std::find(meanings.begin(), meanings.end(), meaning) == meanings.end())
            meanings.push_back(meaning);
        QList<qsizetype> &lengths = _lengths[key.front().unicode()];
        if (!lengths.contains(key.size())) {
            const auto place = std::lower_bound(lengths.begin(), lengths.end(), key.size(),
                                                std::greater<qsizetype>());
            lengths.insert(place, key.size());
        }
    }

    /// The longest phrase that stands at \a position and ends where a word may end.
    Match longestAt(QStringView folded, qsizetype position) const
    {
        return position < folded.size() ? longestUpTo(folded.size(), folded, position) : Match();
    }

    /// The longest one that is not longer than \a maximum.
    Match longestUpTo(qsizetype maximum, QStringView folded, qsizetype position) const
    {
        const auto lengths = _lengths.constFind(folded[position].unicode());
        if (lengths == _lengths.cend())
            return {};
        for (const qsizetype length : *lengths) {
            if (length > maximum || position + length > folded.size() ||
                !isWordEnd(folded, position + length))
                continue;
            if (const auto found = find(folded.sliced(position, length)))
                return {length, *found};
        }
        return {};
    }

    bool isEmpty() const { return _meanings.isEmpty(); }
    qsizetype size() const { return _meanings.size(); }

private:
    std::optional<std::span<const Meaning>> find(QStringView key) const
    {
        // The key only looks at the text: nothing is copied.
        const auto found = _meanings.constFind(QString::fromRawData(key.data(), key.size()));
        if (found == _meanings.cend())
            return std::nullopt;
        return std::span<const Meaning>(*found);
    }

    QHash<QString, std::vector<Meaning>> _meanings;
    /// Of the phrases that begin with a unit, their lengths, the longest first.
    QHash<char16_t, QList<qsizetype>> _lengths;
};
} // namespace KTPrivate
