// The libFuzzer entry of one target; WAYFERN_FUZZ_TARGET names its check (checks.h).
#include "checks.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

namespace {
FuzzCheck check = nullptr;
}

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    check = fuzzCheckByName(WAYFERN_FUZZ_TARGET);
    if (!check) {
        fprintf(stderr, "no check named %s\n", WAYFERN_FUZZ_TARGET);
        abort();
    }
    // The readers print a line for every unknown key and every account line; written to a
    // terminal they would set the pace. libFuzzer reports on standard error.
    fflush(stdout);
    const int null = open("/dev/null", O_WRONLY);
    if (null >= 0) {
        dup2(null, STDOUT_FILENO);
        close(null);
    }
    // Even to /dev/null every flushed line is a system call: the stream of standard output
    // drops its lines itself.
    cookie_io_functions_t drop = {};
    drop.write = [](void *, const char *, size_t size) { return ssize_t(size); };
    if (FILE *nowhere = fopencookie(nullptr, "w", drop))
        stdout = nowhere;
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (const char *failure = check(data, size)) {
        fprintf(stderr, "\nbroken promise: %s\n", failure);
        abort();
    }
    return 0;
}
