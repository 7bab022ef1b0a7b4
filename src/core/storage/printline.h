#pragma once

#include <QByteArray>
#include <QString>

#include <cstdarg>
#include <cstdio>
#include <string>

// Every message of the program goes to standard output, flushed at once so that it keeps its
// place among the other lines. While a PrintedTogether lives (a file being read), the lines
// are gathered instead and written in large pieces: a large journey prints a few lines for
// each of its hundreds of thousands of account lines, and a system call for each would cost
// more than the read. They are written out when the gathering ends, and before any line
// printed outside of it.
class PrintedTogether
{
public:
    PrintedTogether() { ++depth(); }
    ~PrintedTogether()
    {
        if (--depth() == 0)
            flush();
    }
    PrintedTogether(const PrintedTogether &) = delete;
    PrintedTogether &operator=(const PrintedTogether &) = delete;

    static bool active() { return depth() > 0; }
    // The lines gathered so far; append() writes them out when they fill a piece.
    // A standard string: appending to it copies and nothing more.
    static std::string &pending()
    {
        thread_local std::string lines;
        return lines;
    }
    static void append(const char *bytes, qsizetype size)
    {
        std::string &lines = pending();
        lines.append(bytes, size_t(size));
        if (lines.size() >= size_t(piece))
            flush();
    }
    // Writes out what was gathered.
    static void flush()
    {
        std::string &lines = pending();
        if (lines.empty())
            return;
        fwrite(lines.data(), 1, lines.size(), stdout);
        fflush(stdout);
        lines.clear();
    }

private:
    static constexpr qsizetype piece = 64 * 1024;
    static int &depth()
    {
        thread_local int count = 0;
        return count;
    }
};

#if defined(__GNUC__)
__attribute__((format(printf, 1, 2)))
#endif
inline void
printLine(const char *format, ...)
{
    va_list args;
    va_start(args, format);
    if (PrintedTogether::active()) {
        char line[512];
        va_list again;
        va_copy(again, args);
        const int length = vsnprintf(line, sizeof line, format, args);
        if (length >= 0 && length < int(sizeof line)) {
            PrintedTogether::append(line, length);
        } else if (length > 0) {
            QByteArray longLine(length, '\0');
            vsnprintf(longLine.data(), size_t(length) + 1, format, again);
            PrintedTogether::append(longLine.constData(), length);
        }
        va_end(again);
    } else {
        PrintedTogether::flush();
        vprintf(format, args);
        fflush(stdout);
    }
    va_end(args);
}

// A text as printf's "%s" argument.
inline QByteArray cstr(const QString &text)
{
    return text.toUtf8();
}
