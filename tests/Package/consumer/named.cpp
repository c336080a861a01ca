// A program of one file, built without CMake: prints the column that each of its arguments names.

#include <KTUtility/NSString_KTNaming>

#include <cstdio>

int main(int argc, char **argv)
{
    for (int index = 1; index < argc; ++index)
        std::puts(qPrintable(KTAdditions::tableColumnString(QString::fromLocal8Bit(argv[index]))));
    return 0;
}
