#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QString>

#include <bitset>
#include <vector>

namespace KTPrivate {
/// Finds which of many names are in a text, in one pass over the text.
///
/// The names are sorted, so that those that begin alike stand together: from each unit of the text
/// on, the run of names that go on as the text does becomes shorter with each unit.
///
/// \code
/// NameSearch search;
/// search.add(u"euro"_s, 0);
/// search.add(u"dollar"_s, 1);
/// search.prepare();
/// search.foundIn(u"5 dollars"_s); // 1
/// \endcode
class KTUTILITY_EXPORT NameSearch
{
public:
    /// \param name not empty.
    /// \param owner whose name it is; not negative.
    void add(const QString &name, qsizetype owner);
    /// To be called once all names are there.
    void prepare();
    /// The owners of the names in a text, in ascending order, each once.
    std::vector<qsizetype> foundIn(QStringView text) const;

private:
    struct Name
    {
        QString text;
        qsizetype owner;
    };
    using Names = std::vector<Name>;
    using Owners = std::vector<qsizetype>;

    void findFrom(QStringView text, Owners &found) const;
    bool mayBegin(QChar unit) const { return _firstUnits.test(unit.unicode() % 256); }

    Names _names;
    // The low bits of the units with which names begin.
    std::bitset<256> _firstUnits;
};
} // namespace KTPrivate
