#include "OtherProcess.h"

#include <sys/wait.h>
#include <unistd.h>

namespace testing_support {
OtherProcess::OtherProcess(const std::function<int()> &action) : _process(::fork())
{
    if (_process == 0)
        ::_exit(action());
}

int OtherProcess::exitCode() const
{
    int status = -1;
    const bool hasEnded = ::waitpid(_process, &status, 0) == _process && WIFEXITED(status);
    return hasEnded ? WEXITSTATUS(status) : -1;
}
} // namespace testing_support
