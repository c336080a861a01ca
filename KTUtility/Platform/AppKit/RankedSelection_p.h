#pragma once

#include <QHash>
#include <QList>
#include <QVariantList>

#include <vector>

namespace KTPrivate {
/// Finds what is selected in a list again when the list is arranged anew. Of equal values, it is
/// known which of them are selected: the first, the second, ….
///
/// \code
/// const RankedSelection selection(shown, indexes);
/// indexes = selection.indexesIn(shownThen);
/// \endcode
class RankedSelection
{
public:
    /// \param indexes which of the values are selected, ascending.
    RankedSelection(const QVariantList &values, const QList<qsizetype> &indexes);
    /// The last one of the values that equal this one.
    static RankedSelection last(const QVariant &value);

    /// Where the selected values are in a list. If it has fewer equal ones, it is the last of them,
    /// and as many as were selected, if there are.
    /// \return the positions, ascending.
    QList<qsizetype> indexesIn(const QVariantList &values) const;

private:
    /// Equal values, and which of them are selected, ascending.
    struct Group
    {
        QVariant value;
        QList<qsizetype> ranks;
    };
    static constexpr size_t None = size_t(-1);

    RankedSelection() = default;
    void addGroup(const QVariant &value);
    size_t groupOf(const QVariant &value) const;
    std::vector<QList<qsizetype>> placesIn(const QVariantList &values) const;

    std::vector<Group> _groups;
    QHash<size_t, QList<size_t>> _byHash; // which groups have values of a hash
};
} // namespace KTPrivate
