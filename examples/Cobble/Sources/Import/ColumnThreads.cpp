#include "ColumnThreads.h"

#include <QThread>

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <exception>
#include <mutex>
#include <thread>

namespace {
/// Columns are shared out in so many groups at most.
constexpr qsizetype MostGroups = 16;
/// So many batches are in memory for each thread.
constexpr size_t BatchesPerThread = 3;

/// A batch of rows on its way.
struct Passage
{
    RowBatch batch;
    std::vector<ColumnPart> parts;
    /// Groups of columns that are not done.
    qsizetype left = 0;
};

/// Every so manieth column.
struct Group
{
    /// The passage that is next, by its number.
    size_t next = 0;
    bool isBusy = false;
};

/// What the threads share.
class Crew
{
public:
    Crew(const RowSource &rows, qsizetype columnCount, const ColumnThreads::OnColumn &onColumn,
         size_t mostPassages)
        : _cursor(rows.cursor())
        , _columnCount(columnCount)
        , _onColumn(onColumn)
        , _mostPassages(mostPassages)
        , _groups(size_t(std::clamp<qsizetype>(columnCount, 1, MostGroups)))
    {
    }

    /// What each thread does until all is done.
    void work();
    /// What the thread that waits does.
    void handOver(const ColumnThreads::OnBatch &onBatch);
    void stop();
    /// Of reading; throws what a thread has thrown.
    Outcome<> outcome() const;

private:
    using Lock = std::unique_lock<std::mutex>;

    bool isDone() const { return _isStopped || (_isAtEnd && _passages.empty()); }
    bool workOnColumns(Lock &lock);
    bool readBatch(Lock &lock);
    Group *freeGroup();
    void workOn(Passage &passage, size_t group);
    std::unique_ptr<Passage> nextPassage();

    std::unique_ptr<RowCursor> _cursor;
    qsizetype _columnCount;
    const ColumnThreads::OnColumn &_onColumn;
    size_t _mostPassages;

    mutable std::mutex _mutex;
    std::condition_variable _changed;
    std::deque<std::unique_ptr<Passage>> _passages;
    /// The number of the first of them.
    size_t _first = 0;
    std::vector<Group> _groups;
    bool _isReading = false;
    bool _isAtEnd = false;
    bool _isStopped = false;
    Outcome<> _outcome;
    std::exception_ptr _thrown;
};

void Crew::work()
{
    Lock lock(_mutex);
    try {
        while (!isDone()) {
            if (!workOnColumns(lock) && !readBatch(lock))
                _changed.wait(lock);
        }
    } catch (...) {
        if (!lock)
            lock.lock();
        _thrown = std::current_exception();
        _isStopped = true;
        _changed.notify_all();
    }
}

/// The one that is farthest behind.
Group *Crew::freeGroup()
{
    Group *found = nullptr;
    for (Group &group : _groups) {
        const bool isFree = !group.isBusy && group.next < _first + _passages.size();
        if (isFree && (!found || group.next < found->next))
            found = &group;
    }
    return found;
}

void Crew::workOn(Passage &passage, size_t group)
{
    for (auto column = qsizetype(group); column < _columnCount; column += qsizetype(_groups.size()))
        passage.parts[size_t(column)] = _onColumn(passage.batch, column);
}

/// \return false if there is nothing to do.
bool Crew::workOnColumns(Lock &lock)
{
    Group *const group = freeGroup();
    if (!group)
        return false;
    Passage &passage = *_passages[group->next - _first];
    group->isBusy = true;
    lock.unlock();
    workOn(passage, size_t(group - _groups.data()));
    lock.lock();
    group->isBusy = false;
    ++group->next;
    --passage.left;
    _changed.notify_all();
    return true;
}

/// \return false if somebody reads, or enough is read.
bool Crew::readBatch(Lock &lock)
{
    if (_isReading || _isAtEnd || _passages.size() >= _mostPassages)
        return false;
    _isReading = true;
    lock.unlock();
    auto passage = std::make_unique<Passage>();
    const Outcome<bool> isRead = _cursor->next(&passage->batch);
    passage->parts.resize(size_t(_columnCount));
    passage->left = qsizetype(_groups.size());
    lock.lock();
    _isReading = false;
    if (!isRead)
        _outcome = isRead.failure();
    _isStopped = _isStopped || !isRead;
    _isAtEnd = !isRead || !*isRead;
    if (!_isAtEnd)
        _passages.push_back(std::move(passage));
    _changed.notify_all();
    return true;
}

/// The first that is done; nothing at the end.
std::unique_ptr<Passage> Crew::nextPassage()
{
    Lock lock(_mutex);
    _changed.wait(
        lock, [this] { return isDone() || (!_passages.empty() && _passages.front()->left == 0); });
    if (isDone())
        return nullptr;
    auto passage = std::move(_passages.front());
    _passages.pop_front();
    ++_first;
    _changed.notify_all();
    return passage;
}

void Crew::handOver(const ColumnThreads::OnBatch &onBatch)
{
    while (const auto passage = nextPassage()) {
        if (!onBatch(passage->batch, passage->parts))
            return;
    }
}

void Crew::stop()
{
    const Lock lock(_mutex);
    _isStopped = true;
    _changed.notify_all();
}

Outcome<> Crew::outcome() const
{
    if (_thrown)
        std::rethrow_exception(_thrown);
    return _outcome;
}

/// Threads that end with this, whatever happens; as many as can be started, maybe none.
class Threads
{
public:
    Threads(Crew &crew, int count) : _crew(crew)
    {
        _threads.reserve(size_t(count));
        try {
            for (int thread = 0; thread < count; ++thread)
                _threads.emplace_back([&crew] { crew.work(); });
        } catch (const std::exception &) {
            // Those that there are do the work, too.
        }
    }
    bool isEmpty() const { return _threads.empty(); }
    ~Threads()
    {
        _crew.stop();
        for (std::thread &thread : _threads)
            thread.join();
    }
    Threads(const Threads &) = delete;
    Threads &operator=(const Threads &) = delete;

private:
    Crew &_crew;
    std::vector<std::thread> _threads;
};

Outcome<> runAlone(const RowSource &rows, qsizetype columnCount,
                   const ColumnThreads::OnColumn &onColumn, const ColumnThreads::OnBatch &onBatch)
{
    return rows.whileBatches([&](const RowBatch &batch) {
        std::vector<ColumnPart> parts;
        for (qsizetype column = 0; column < columnCount; ++column)
            parts.push_back(onColumn(batch, column));
        return onBatch(batch, parts);
    });
}
} // namespace

ColumnThreads::ColumnThreads(int count)
    : _count(count > 0 ? count : std::max(1, QThread::idealThreadCount()))
{
}

Outcome<> ColumnThreads::run(const RowSource &rows, qsizetype columnCount, const OnColumn &onColumn,
                             const OnBatch &onBatch) const
{
    if (_count == 1)
        return runAlone(rows, columnCount, onColumn, onBatch);
    Crew crew(rows, columnCount, onColumn, BatchesPerThread * size_t(_count));
    {
        const Threads threads(crew, _count);
        if (threads.isEmpty())
            return runAlone(rows, columnCount, onColumn, onBatch);
        crew.handOver(onBatch);
    }
    return crew.outcome();
}
