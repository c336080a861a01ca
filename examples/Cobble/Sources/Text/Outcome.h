#pragma once

#include <QString>

#include <optional>
#include <utility>

/// Why something was not done, for a person to read.
struct Failure
{
    QString reason;
    /// Whether the user has ended it.
    bool isCancelled = false;
    /// Whether it will fail again however often it is tried: what is there is another thing than is
    /// needed. A database that somebody else is using, or a disk that is full, is not final.
    bool isFinal = false;
};

/// What something that can fail gives: a value, or the reason why there is none.
///
/// \code
/// const Outcome<QString> text = TextFile::textOfFile(path);
/// if (!text)
///     return text.failure();    // or complain(text.reason())
/// use(*text);
/// \endcode
template<typename Value = void>
class [[nodiscard]] Outcome
{
public:
    Outcome(const Value &value) : _value(value) {}
    Outcome(Value &&value) : _value(std::move(value)) {}
    Outcome(const Failure &failure) : _failure(failure) {}

    /// Whether there is a value.
    explicit operator bool() const { return _value.has_value(); }

    const Value &operator*() const & { return _value.value(); }
    Value &operator*() & { return _value.value(); }
    Value &&operator*() && { return std::move(_value).value(); }
    const Value *operator->() const { return &_value.value(); }
    Value *operator->() { return &_value.value(); }
    /// The value, or another one where there is none.
    Value valueOr(Value other) const & { return _value.value_or(std::move(other)); }
    Value valueOr(Value other) && { return std::move(_value).value_or(std::move(other)); }

    /// The failure, for whoever asked for more.
    const Failure &failure() const { return _failure; }
    /// Why there is no value; nil if there is one.
    const QString &reason() const { return _failure.reason; }
    bool isCancelled() const { return _failure.isCancelled; }

private:
    std::optional<Value> _value;
    Failure _failure;
};

/// The outcome of something that is done or not.
///
/// \code
/// Outcome<> save()
/// {
///     return open().andThen([&] { return write(); });    // done if both are
/// }
/// \endcode
template<>
class [[nodiscard]] Outcome<void>
{
public:
    /// It is done.
    Outcome() = default;
    Outcome(const Failure &failure) : _failure(failure) {}

    /// Whether it is done.
    explicit operator bool() const { return !_failure; }

    /// What \a next gives if this is done, else this failure.
    template<typename Next>
    auto andThen(const Next &next) const -> decltype(next())
    {
        if (_failure)
            return *_failure;
        return next();
    }

    /// The failure, of which there must be one, for whoever asked for more.
    const Failure &failure() const { return _failure.value(); }
    /// Why it is not done; nil if it is.
    QString reason() const { return _failure ? _failure->reason : QString(); }
    bool isCancelled() const { return _failure && _failure->isCancelled; }

private:
    std::optional<Failure> _failure;
};
