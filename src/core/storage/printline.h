#pragma once

#include <QByteArray>
#include <QString>

#include <cstdarg>
#include <cstdio>

// Every message of the program goes to standard output, flushed at once so that it keeps its
// place among the other lines.
#if defined(__GNUC__)
__attribute__((format(printf, 1, 2)))
#endif
inline void
printLine(const char *format, ...)
{
    va_list args;
    va_start(args, format);
    vprintf(format, args);
    va_end(args);
    fflush(stdout);
}

// A text as printf's "%s" argument.
inline QByteArray cstr(const QString &text)
{
    return text.toUtf8();
}
