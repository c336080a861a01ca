#pragma once

#include <QByteArray>

#include <utility>

namespace testing_support {
/// Sets a variable of the environment, or takes it away with a null value, and gives it back what
/// it had when the guard is destroyed.
class EnvironmentGuard
{
public:
    EnvironmentGuard(const char *name, const QByteArray &value)
        : _name(name), _wasSet(qEnvironmentVariableIsSet(name)), _before(qgetenv(name))
    {
        set(!value.isNull(), value);
    }
    ~EnvironmentGuard()
    {
        if (!_name.isNull())
            set(_wasSet, _before);
    }
    EnvironmentGuard(EnvironmentGuard &&other) noexcept
        : _name(std::exchange(other._name, QByteArray()))
        , _wasSet(other._wasSet)
        , _before(other._before)
    {
    }
    EnvironmentGuard &operator=(EnvironmentGuard &&) = delete;

private:
    void set(bool isSet, const QByteArray &value) const
    {
        if (isSet)
            qputenv(_name.constData(), value);
        else
            qunsetenv(_name.constData());
    }

    QByteArray _name;
    bool _wasSet;
    QByteArray _before;
};
} // namespace testing_support
