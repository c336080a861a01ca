#pragma once

#include "DateEnvironment_p.h"
#include "NaturalLanguageTable_p.h"

#include <QString>
#include <QStringView>

#include <memory>
#include <vector>

namespace KTPrivate {
/// A meaning found in a text.
struct NaturalLanguageWord
{
    NaturalLanguageMeaning meaning;
    qsizetype length = 0; ///< in the text; 0 if nothing was found
};

/// The words for dates of one language: those in ICU's locale data (relative days and amounts,
/// weekdays, months, AM and PM), and for English, German, French and Japanese more.
class KTUTILITY_EXPORT NaturalLanguageWords
{
public:
    using Kind = NaturalLanguageMeaning::Kind;

    /// The words of the environment's language; made on first use and kept.
    static std::shared_ptr<const NaturalLanguageWords> wordsOf(const DateEnvironment &environment);

    explicit NaturalLanguageWords(const DateEnvironment &environment);

    /// The longest words at the start of \a text, which has to be folded (see folded()).
    NaturalLanguageWord find(QStringView text) const;
    /// The same for one kind only.
    NaturalLanguageWord find(QStringView text, Kind kind) const;

    /// A text as the words are kept: no upper case.
    static QString folded(QStringView text);

private:
    struct Entry
    {
        QString start;
        QString end; ///< what stands behind the number of an Amount
        NaturalLanguageMeaning meaning;

        qsizetype lengthIn(QStringView text) const;
    };

    void add(const QString &words, const NaturalLanguageMeaning &meaning);
    void addNames(const DateEnvironment &environment);
    void addRelativeWords(const DateEnvironment &environment);
    void addAmount(const QString &words, const NaturalLanguageMeaning &meaning);
    void addTable(const QString &language);

    std::vector<Entry> _entries;
};
} // namespace KTPrivate
