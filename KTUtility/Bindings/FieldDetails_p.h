#pragma once

#include <QHash>
#include <QList>
#include <QObject>
#include <QPointer>

#include <utility>

namespace KTPrivate {
/// The detail objects of fields, both held weakly. A field that stands twice in a collection has
/// two.
class FieldDetails
{
public:
    using Details = QList<QPointer<QObject>>;

    void add(const QObject *field, QObject *detail) { _details[field].append(detail); }
    /// Each detail object with its field, in the order of some fields.
    QList<std::pair<QPointer<QObject>, QPointer<QObject>>> inOrderOf(const auto &fields) const
    {
        QList<std::pair<QPointer<QObject>, QPointer<QObject>>> pairs;
        FieldDetails left = *this;
        for (const auto &field : fields) {
            for (const QPointer<QObject> &detail : left.take(field.address))
                pairs.emplace_back(field.object, detail);
        }
        return pairs;
    }
    /// Those of a field, which are forgotten. It may be destroyed: its address is looked at only.
    Details take(const QObject *field) { return _details.take(field); }
    /// All that are left, which are forgotten.
    Details takeAll()
    {
        Details all;
        for (const Details &each : std::exchange(_details, {}))
            all += each;
        return all;
    }

private:
    QHash<const QObject *, Details> _details;
};
} // namespace KTPrivate
