#pragma once

// Opens the benchmark journey in the real main window, the way a user starts the program:
// a configuration names the journey directory, the last-state file names the journey.

#include "journeygen.h"
#include "quietstdout.h"

#include "shell/wayfernapp.h"
#include "storage/wayfernio.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>
#include <memory>

struct BenchWindow
{
    // Must come before the QApplication: the platform is chosen there.
    static void useOffscreenUnlessTold()
    {
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
    }

    static bool writeText(const QString &path, const QByteArray &text)
    {
        QFile file(path);
        return file.open(QIODevice::WriteOnly) && file.write(text) == text.size();
    }

    // Writes the configuration, the last-state file and the journey into `dir`.
    static void prepare(const QTemporaryDir &dir, const JourneyShape &shape)
    {
        qputenv("WAYFERNCFG", dir.path().toLocal8Bit());
        writeText(dir.filePath(QStringLiteral("wayfern.cfg")),
                  "[Header]\nDATA-PATH=" + dir.path().toLocal8Bit()
                      + ";\nLAST=wayfern.last;\nTEMPLATE=template.wfn;\n\n[HTMLSYNC]\n\n#end\n");
        writeText(dir.filePath(QStringLiteral("wayfern.last")),
                  "[Header]\nLASTFILE=bench.wfn;\n\n#end\n");
        QuietStdout quiet;
        WayFernData doc;
        generateJourney(doc, shape);
        WayfernIO io(&doc);
        io.WriteFile(dir.filePath(QStringLiteral("bench.wfn")));
    }

    // The window reads the journey in its constructor; the first events then fill the lists.
    static std::unique_ptr<WayfernApp> open()
    {
        QuietStdout quiet;
        auto window = std::make_unique<WayfernApp>();
        QApplication::processEvents();
        return window;
    }
};
