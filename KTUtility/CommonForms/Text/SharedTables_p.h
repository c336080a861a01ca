#pragma once

// Private to the library. For tables that are made of a locale's data once and shared from then on.

#include <QHash>
#include <QMutex>
#include <QMutexLocker>
#include <QString>

#include <memory>

namespace KTPrivate {
/// Tables by name, each made when it is first asked for. For all threads.
template<class Table>
class SharedTables
{
public:
    template<class Make>
    std::shared_ptr<const Table> tableOf(const QString &name, const Make &make)
    {
        const QMutexLocker lock(&_mutex);
        if (const auto found = _tables.constFind(name); found != _tables.cend())
            return *found;
        if (_tables.size() >= MaximumKept)
            _tables.clear();
        return *_tables.insert(name, std::make_shared<const Table>(make()));
    }

private:
    /// More than any process needs; formatters keep what they have.
    static constexpr qsizetype MaximumKept = 1024;

    QMutex _mutex;
    QHash<QString, std::shared_ptr<const Table>> _tables;
};
} // namespace KTPrivate
