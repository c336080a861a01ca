// A module that registers no class.

extern "C" __attribute__((visibility("default"))) int nothing()
{
    return 0;
}
