#pragma once

// Private to the library. For whoever notifies of changes by which other values may be changed.

#include <KTUtility/KTUtilityExport.h>

#include <QString>

namespace KTPrivate {
/// What notifies of changes of one value.
class KTUTILITY_EXPORT ChangeSource
{
public:
    virtual ~ChangeSource();
    /// For the log: "<Record 0x5581…>.amount".
    virtual QString changingName() const = 0;
};

/// A source as long as it notifies of one change. Whoever is notified may change other values, and
/// these the first one again. When that has gone on for so long that the values will never settle,
/// the log tells which are on the way, and the source falls silent until all of it has come back.
///
/// \code
/// const ChangeChain chain(this);
/// if (!chain.isEndless())
///     callObservers();
/// \endcode
class KTUTILITY_EXPORT ChangeChain
{
public:
    /// So often a source notifies of changes that it is changed by itself.
    static constexpr int MostRounds = 150;

    /// \param source lives until the end.
    explicit ChangeChain(const ChangeSource *source);
    ~ChangeChain();
    ChangeChain(const ChangeChain &) = delete;
    ChangeChain &operator=(const ChangeChain &) = delete;

    bool isEndless() const { return _isEndless; }

private:
    const ChangeSource *_source;
    bool _isEndless = false;
};
} // namespace KTPrivate
