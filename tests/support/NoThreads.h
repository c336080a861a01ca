#pragma once

#include <pthread.h>

namespace testing_support {
/// While it lives, no thread can be started, as if memory were used up: each would need a stack
/// larger than any memory.
class NoThreads
{
public:
    NoThreads()
    {
        pthread_attr_init(&_attributes);
        pthread_getattr_default_np(&_attributes);
        pthread_attr_getstacksize(&_attributes, &_size);
        setSize(size_t(1) << 50);
    }
    ~NoThreads()
    {
        setSize(_size);
        pthread_attr_destroy(&_attributes);
    }
    NoThreads(const NoThreads &) = delete;
    NoThreads &operator=(const NoThreads &) = delete;

private:
    void setSize(size_t size)
    {
        pthread_attr_setstacksize(&_attributes, size);
        pthread_setattr_default_np(&_attributes);
    }

    pthread_attr_t _attributes;
    size_t _size = 0;
};
} // namespace testing_support
