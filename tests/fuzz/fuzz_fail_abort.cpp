// fuzzFail for the libFuzzer programs: a broken invariant is a crash.

#include "fuzz_entry.h"

#include <cstdio>
#include <cstdlib>

void fuzzFail(const char *what)
{
    std::fprintf(stderr, "broken invariant: %s\n", what);
    std::abort();
}
