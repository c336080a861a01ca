#include "SharedNumberFormatter.h"

#include "NSNumberFormatter.h"
#include "NSNumberFormatterPrivate_p.h"

#include <QMultiHash>
#include <QMutex>
#include <QMutexLocker>

#include <atomic>
#include <utility>
#include <vector>

using namespace KTPrivate;

/// A formatter that a few or many have.
struct SharedNumberFormatter::Record
{
    explicit Record(std::unique_ptr<NSNumberFormatter> made) : formatter(std::move(made)) {}

    /// What a change made of it.
    struct Derived
    {
        Change change;
        QString text;
        std::shared_ptr<Record> record;
    };

    std::unique_ptr<NSNumberFormatter> formatter;
    // Whether it is that of others, too, and never changed again.
    bool isShared = false;
    std::atomic<bool> isPrepared = false;
    // To be looked at by the table only.
    std::vector<Derived> derived;
};

/// The formatters that are shared, of all threads.
class SharedNumberFormatter::Table
{
public:
    static Table &instance()
    {
        static auto *const table = new Table;
        return *table;
    }

    /// The one with the settings of a formatter, which becomes it if there is none.
    std::shared_ptr<Record> shared(const std::shared_ptr<Record> &own)
    {
        const NSNumberFormatter::Private &wanted = *own->formatter->_private;
        const size_t hash = wanted.hash();
        const QMutexLocker lock(&_mutex);
        for (auto known = _records.constFind(hash);
             known != _records.constEnd() && known.key() == hash; ++known) {
            if (known.value()->formatter->_private->isSameAs(wanted))
                return known.value();
        }
        makeRoom();
        own->isShared = true;
        return *_records.insert(hash, own);
    }

    /// Has a formatter make what reading and writing needs, which several threads that use it would
    /// make at once otherwise.
    void prepare(Record *record)
    {
        const QMutexLocker lock(&_mutex);
        if (record->isPrepared.load(std::memory_order_relaxed))
            return;
        record->formatter->_private->prepare();
        record->isPrepared.store(true, std::memory_order_release);
    }

    /// What a change made of a shared formatter; null if it was not made yet.
    std::shared_ptr<Record> derived(const Record &from, Change change, const QString &text)
    {
        const QMutexLocker lock(&_mutex);
        for (const Record::Derived &each : from.derived) {
            if (each.change == change && each.text == text && each.text.isNull() == text.isNull())
                return each.record;
        }
        return nullptr;
    }

    void addDerived(Record *from, Change change, const QString &text,
                    const std::shared_ptr<Record> &record)
    {
        constexpr size_t MostDerived = 16;
        const QMutexLocker lock(&_mutex);
        if (from->derived.size() >= MostDerived)
            from->derived.clear();
        from->derived.push_back({change, text, record});
    }

private:
    /// Who has a formatter keeps it; what changes made of it is made anew.
    void makeRoom()
    {
        constexpr qsizetype MostRecords = 256;
        if (_records.size() < MostRecords)
            return;
        for (const std::shared_ptr<Record> &record : std::as_const(_records))
            record->derived.clear();
        _records.clear();
    }

    QMutex _mutex;
    QMultiHash<size_t, std::shared_ptr<Record>> _records;
};

SharedNumberFormatter::SharedNumberFormatter(std::unique_ptr<NSNumberFormatter> formatter)
    : _record(std::make_shared<Record>(std::move(formatter)))
{
}

SharedNumberFormatter::SharedNumberFormatter(std::shared_ptr<Record> record)
    : _record(std::move(record))
{
}

void SharedNumberFormatter::share() const
{
    if (!_record->isShared)
        _record = Table::instance().shared(_record);
}

const NSNumberFormatter &SharedNumberFormatter::operator*() const
{
    share();
    if (!_record->isPrepared.load(std::memory_order_acquire))
        Table::instance().prepare(_record.get());
    return *_record->formatter;
}

NSNumberFormatter &SharedNumberFormatter::edit()
{
    if (_record->isShared) {
        auto own = std::make_unique<NSNumberFormatter>();
        // Prepared by now, so that no other thread changes what is copied.
        own->_private->takeOver(*(**this)._private);
        _record = std::make_shared<Record>(std::move(own));
    }
    return *_record->formatter;
}

SharedNumberFormatter SharedNumberFormatter::changed(Change change, const QString &text) const
{
    share();
    if (std::shared_ptr<Record> known = Table::instance().derived(*_record, change, text))
        return SharedNumberFormatter(std::move(known));
    SharedNumberFormatter made(_record);
    change(made.edit(), text);
    made.share();
    Table::instance().addDerived(_record.get(), change, text, made._record);
    return made;
}
