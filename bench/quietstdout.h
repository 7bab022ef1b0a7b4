#pragma once

// Sends standard output to /dev/null while it lives: the program prints a trace line per
// account section while reading, which would drown the report.

#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

struct QuietStdout
{
    QuietStdout()
    {
        fflush(stdout);
        saved = dup(STDOUT_FILENO);
        const int null = open("/dev/null", O_WRONLY);
        dup2(null, STDOUT_FILENO);
        close(null);
    }
    ~QuietStdout()
    {
        fflush(stdout);
        dup2(saved, STDOUT_FILENO);
        close(saved);
    }
    QuietStdout(const QuietStdout &) = delete;
    QuietStdout &operator=(const QuietStdout &) = delete;
    int saved;
};
