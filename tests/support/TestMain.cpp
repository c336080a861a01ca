#include "TestSupport.h"

int main(int argc, char **argv)
{
    testing_support::pinEnvironment("offscreen");
    return testing_support::runTests(argc, argv);
}
