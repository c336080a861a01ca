#include "Commands/HostApplication.h"
#include "Commands/StandardStreams.h"
#include "Program/Cobble.h"

#include <unistd.h>

int main(int argc, char **argv)
{
    reserveStandardDescriptors();
    const auto application = makeHostApplication(argc, argv);
    return runCobbleProcess(QCoreApplication::arguments().sliced(1), STDOUT_FILENO, STDERR_FILENO);
}
