// A program that is not linked with the framework opens it, as one does that loads somebody's plug-in.

#include <cstdio>
#include <dlfcn.h>

int main(int count, char **arguments)
{
    if (count == 2 && dlopen(arguments[1], RTLD_NOW))
        return 0;
    std::fprintf(stderr, "%s\n", count == 2 ? dlerror() : "usage: OpenLibrary FILE");
    return 1;
}
