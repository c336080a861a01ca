#include "Cobble.h"
#include "StandardStreams.h"

#include <QCoreApplication>

#include <unistd.h>

int main(int argc, char **argv)
{
    reserveStandardDescriptors();
    const QCoreApplication application(argc, argv);
    return runCobbleProcess(QCoreApplication::arguments().sliced(1), STDOUT_FILENO, STDERR_FILENO);
}
