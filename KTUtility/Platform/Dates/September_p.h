#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QString>
#include <QStringView>

#include <vector>

namespace KTPrivate {
/// A text in which the words "Sep" and "Sept" are "September".
///
/// American locale data know the one, British the other, and people write both everywhere.
class KTUTILITY_EXPORT September
{
public:
    explicit September(QStringView source);

    QStringView text() const { return _hasChanges ? QStringView(_text) : _source; }
    /// The place in the source of a place in the text.
    qsizetype lengthInSource(qsizetype length) const;

private:
    struct Change
    {
        qsizetype end;   ///< behind the word in the text
        qsizetype added; ///< how much longer it is there
    };

    QStringView _source;
    QString _text;
    std::vector<Change> _changes;
    bool _hasChanges = false;
};
} // namespace KTPrivate
