#pragma once

// Private to the library. For whoever notifies of changes by which other values may be changed.

#include <KTUtility/KTUtilityExport.h>

#include <QString>

#include <utility>

namespace KTPrivate {
class ChangeChain;

/// What notifies of changes of one value.
class KTUTILITY_EXPORT ChangeSource
{
public:
    virtual ~ChangeSource();
    /// For the log: "<Record 0x5581…>.amount".
    virtual QString changingName() const = 0;

private:
    friend class ChangeChain;

    // How often it is notifying just now, each time within the one before.
    mutable int _rounds = 0;
    mutable bool _isSilenced = false;
};

/// A source as long as it notifies of one change. Whoever is notified may change other values, and
/// these the first one again. When that has gone on for so long that the values will never settle,
/// the log tells which are on the way, and the source falls silent until all of it has come back.
///
/// One is made for each notification of each value: the sources count by themselves, and the chain
/// lies on the stack, so that there is nothing to look for.
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
    explicit ChangeChain(const ChangeSource *source)
        : _source(source)
        , _innermost(innermost())
        , _outer(std::exchange(_innermost, this))
        , _isEndless(source->_isSilenced || (source->_rounds >= MostRounds && silenced()))
    {
        ++source->_rounds;
    }
    ~ChangeChain()
    {
        _innermost = _outer;
        if (--_source->_rounds == 0)
            _source->_isSilenced = false;
    }
    ChangeChain(const ChangeChain &) = delete;
    ChangeChain &operator=(const ChangeChain &) = delete;

    bool isEndless() const { return _isEndless; }

private:
    static const ChangeChain *&innermost();
    QString round() const;
    bool silenced() const;

    const ChangeSource *_source;
    // The chain that just notifies in this thread, and the one whose observers began this one.
    const ChangeChain *&_innermost;
    const ChangeChain *_outer;
    bool _isEndless;
};
} // namespace KTPrivate
