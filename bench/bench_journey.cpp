// Reading and writing a large journey, against a plain line-by-line pass over the same file.
//
//   wayfern_bench [FILE]      FILE defaults to a temporary file; it is generated when missing
//
// Each measurement runs in a child process of its own, so that its peak memory is its own.
// The figures are reported, never judged: this program always exits 0.

#include "journeygen.h"
#include "quietstdout.h"

#include "storage/wayfernio.h"

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTextStream>

#include <algorithm>
#include <cstdio>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {
long peakKiB()
{
    struct rusage usage;
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

// CPU time of this process so far, in ms: steadier than wall time on a busy machine.
double cpuMs()
{
    struct rusage usage;
    getrusage(RUSAGE_SELF, &usage);
    return (usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) * 1e3
        + (usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e3;
}

// Runs `measure` in a child process; the child prints its line itself.
template <typename Measure>
void inChild(Measure measure)
{
    fflush(stdout);
    fflush(stderr);
    const pid_t pid = fork();
    if (pid == 0) {
        measure();
        fflush(stderr);
        _exit(0);
    }
    int status = 0;
    waitpid(pid, &status, 0);
}

} // namespace

int main(int argc, char **argv)
{
    // The document asks for its configuration directory; name one, to keep the report clean.
    setenv("WAYFERNCFG", ".", 0);
    QTemporaryDir tmp;
    const QString path = argc > 1 ? QString::fromLocal8Bit(argv[1])
                                  : tmp.filePath(QStringLiteral("bench.wfn"));
    const JourneyShape shape;

    if (!QFileInfo::exists(path)) {
        inChild([&] {
            WayFernData doc;
            generateJourney(doc, shape);
            WayfernIO io(&doc);
            io.WriteFile(path);
        });
    }
    fprintf(stderr,
            "journey: %d costs in %d currencies, %d travellers (%d account lines), "
            "%d tips; %.1f MB\n",
            shape.costs, shape.currencies, shape.travellers, shape.costs * shape.travellers,
            shape.tips, QFileInfo(path).size() / 1e6);

    // Each figure is the best of three runs: other work on the machine only ever adds time.
    const int runs = 3;
    double plainMs = 1e300;
    double plainCpu = 1e300;
    qint64 lines = 0;
    for (int run = 0; run < runs; ++run) {
        QElapsedTimer timer;
        timer.start();
        const double cpu0 = cpuMs();
        QFile file(path);
        file.open(QIODevice::ReadOnly);
        QTextStream stream(&file);
        lines = 0;
        while (!stream.atEnd()) {
            stream.readLine();
            ++lines;
        }
        plainMs = std::min(plainMs, timer.nsecsElapsed() / 1e6);
        plainCpu = std::min(plainCpu, cpuMs() - cpu0);
    }
    fprintf(stderr, "plain readLine pass: %8.1f ms, %8.1f ms CPU (%lld lines)\n", plainMs, plainCpu,
            lines);

    // The children report through a pipe: wall ms, CPU ms, peak KiB, result, costs.
    int channel[2];
    if (pipe(channel) != 0)
        return 0;
    double readMs = 1e300, readCpu = 1e300, peak = 0;
    int result = 0, costs = 0;
    for (int run = 0; run < runs; ++run) {
        inChild([&] {
            WayFernData doc;
            WayfernIO io(&doc);
            QElapsedTimer timer;
            timer.start();
            const double cpu0 = cpuMs();
            int r;
            {
                QuietStdout quiet;
                r = io.ReadFile(path);
            }
            const double figures[5] = {timer.nsecsElapsed() / 1e6, cpuMs() - cpu0,
                                       double(peakKiB()), double(r), double(doc.costs.count())};
            if (write(channel[1], figures, sizeof figures) != sizeof figures)
                _exit(1);
        });
        double figures[5];
        if (read(channel[0], figures, sizeof figures) != sizeof figures)
            break;
        readMs = std::min(readMs, figures[0]);
        readCpu = std::min(readCpu, figures[1]);
        peak = std::max(peak, figures[2]);
        result = int(figures[3]);
        costs = int(figures[4]);
    }
    fprintf(stderr,
            "read:                %8.1f ms, %8.1f ms CPU (%.2f x the plain pass by "
            "wall time, %.2f x by CPU time; result %d, %d costs)\n",
            readMs, readCpu, readMs / plainMs, readCpu / plainCpu, result, costs);
    fprintf(stderr, "peak memory reading: %8.1f MB\n", peak / 1024.0);

    // Writing, best of three as well: each child reads the journey, then writes it once.
    double writeMs = 1e300, writeCpu = 1e300, writePeak = 0;
    int writeResult = 0;
    for (int run = 0; run < runs; ++run) {
        inChild([&] {
            WayFernData doc;
            WayfernIO io(&doc);
            {
                QuietStdout quiet;
                io.ReadFile(path);
            }
            const QString out = path + QStringLiteral(".written");
            QElapsedTimer timer;
            timer.start();
            const double cpu0 = cpuMs();
            const int r = io.WriteFile(out);
            const double figures[5] = {timer.nsecsElapsed() / 1e6, cpuMs() - cpu0,
                                       double(peakKiB()), double(r), 0};
            QFile::remove(out);
            if (write(channel[1], figures, sizeof figures) != sizeof figures)
                _exit(1);
        });
        double figures[5];
        if (read(channel[0], figures, sizeof figures) != sizeof figures)
            break;
        writeMs = std::min(writeMs, figures[0]);
        writeCpu = std::min(writeCpu, figures[1]);
        writePeak = std::max(writePeak, figures[2]);
        writeResult = int(figures[3]);
    }
    fprintf(stderr,
            "write:               %8.1f ms, %8.1f ms CPU (%.2f x the plain pass by "
            "wall time, %.2f x by CPU time; result %d)\n",
            writeMs, writeCpu, writeMs / plainMs, writeCpu / plainCpu, writeResult);
    // The peak of a writing child includes the journey it read first.
    fprintf(stderr, "peak memory writing: %8.1f MB\n", writePeak / 1024.0);
    return 0;
}
