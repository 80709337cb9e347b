#pragma once

// Each fuzz target is a function of the bytes, declared here. Built for
// libFuzzer (QUVA_LIBFUZZER defined), a target's file also gets the entry
// point that libFuzzer calls; the replay test in the normal suite calls the
// functions itself, on the seeds and on every input that once failed.

#include <cstddef>
#include <cstdint>

int fuzzXml(const uint8_t *data, size_t size);
int fuzzFastest(const uint8_t *data, size_t size);
int fuzzFast(const uint8_t *data, size_t size);
int fuzzEnginesAgree(const uint8_t *data, size_t size);
int fuzzBatchOptions(const uint8_t *data, size_t size);
int fuzzCfgLoad(const uint8_t *data, size_t size);

#ifdef QUVA_LIBFUZZER
#define QUVA_FUZZ_ENTRY(function)                                                \
    extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)     \
    {                                                                            \
        return function(data, size);                                             \
    }
#else
#define QUVA_FUZZ_ENTRY(function)
#endif

// A broken invariant. Under libFuzzer it prints `what` and aborts, so that
// the input is kept as a crash; the replay test records it as a failure.
void fuzzFail(const char *what);

inline void fuzzCheck(bool ok, const char *what)
{
    if (!ok)
        fuzzFail(what);
}
