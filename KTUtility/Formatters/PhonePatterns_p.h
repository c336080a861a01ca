#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QHash>
#include <QStringList>
#include <QStringView>

#include <optional>
#include <set>
#include <utility>

namespace KTPrivate {
/// The patterns of a country, of which there may be thousands, ordered by what a number begins with
/// and by how many digits follow. What finds the pattern of a number takes no longer with more of
/// them.
///
/// \code
/// const PhonePatterns patterns({u"0161 ### ####"_s, u"0#### ######"_s});
/// patterns.firstFitting(u"0161-496 0000"_s);                   // "0161 ### ####"
/// \endcode
class KTUTILITY_EXPORT PhonePatterns
{
public:
    explicit PhonePatterns(const QStringList &patterns);
    Q_DISABLE_COPY_MOVE(PhonePatterns)

    /// The first of the patterns that a number fits; nothing if it fits none.
    std::optional<QString> firstFitting(const QString &number) const;

private:
    /// What a number begins with, and how many digits follow.
    using Shape = std::pair<QStringView, qsizetype>;

    void add(qsizetype index);

    const QStringList _patterns;
    QStringList _literals; // of each of the patterns; what the shapes look into
    QHash<Shape, qsizetype> _first;
    std::set<qsizetype> _literalLengths;
    qsizetype _mostUnits = 0; ///< of a number that fits; digits may be of two units
};
} // namespace KTPrivate
