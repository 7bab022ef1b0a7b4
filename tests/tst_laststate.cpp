// The last-state file: the name of the journey to reopen.

#include "coretestutil.h"
#include "stdoutcapture.h"

#include "data/wayferndata.h"
#include "storage/wayferniocfg.h"
#include "storage/wayferniolast.h"
#include "wayfernversion.h"

#include <QBuffer>
#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

class TestLastState : public QObject
{
    Q_OBJECT

private slots:
    void writtenFileHasExactLines();
    void writtenFileReadsBack();
    void emptyLastFileGivesEmptyName();
    void furtherKeysAreReportedAndLastFileKept();
    void lastFileOnLastLineIsNotRead();
    void withoutConfigurationNothingIsTried();
    void emptyDataPathTriesNameInWorkingDirectory();
    void missingFileIsReported();
    void missingHeaderIsReported();
    void writerFailureIsReported();
    void latinOneNameThatLooksLikeUtf8ReadsBackUnchanged();
    void lastStateInMemoryReadsAndWritesAsTheFile();
    void deviceThatCannotBeWrittenIsReportedByItsName();

private:
    QTemporaryDir dir;
    int read(WayFernData &doc, const QByteArray &bytes, QString *printed)
    {
        WayfernIOLast io(&doc);
        return readPrinted(dir.filePath(QStringLiteral("wayfern.last")), bytes, printed,
                           [&] { return io.ReadFile(dir.path(), QStringLiteral("wayfern.last")); });
    }
};

void TestLastState::latinOneNameThatLooksLikeUtf8ReadsBackUnchanged()
{
    WayFernData doc;
    doc.lastfile = QStringLiteral("\u00c3\u00a9t\u00c3\u00a9.wfn");
    WayfernIOLast io(&doc);
    const QString out = dir.filePath(QStringLiteral("wayfern.last"));
    QCOMPARE(io.WriteFile(out), 0);
    WayFernData back;
    QCOMPARE(read(back, readBytes(out), nullptr), 0);
    QCOMPARE(back.lastfile, doc.lastfile);
}

void TestLastState::writtenFileHasExactLines()
{
    WayFernData doc;
    doc.lastfile = QStringLiteral("northern.wfn");
    WayfernIOLast io(&doc);
    const QString out = dir.filePath(QStringLiteral("written.last"));
    QCOMPARE(io.WriteFile(out), 0);
    const QList<QByteArray> expected = {
        "<?wayfern version=\"0.1\" type=\"last\"?>",
        "#-------------------------------------------------------------",
        "# Last-State-File for wayfern",
        "# written from wayfern : " WAYFERN_VERSION,
        "# last modified : date = <date>",
        "#                 time = <time>",
        "#",
        "# File is automatically generated, dont modify manually",
        "#",
        "",
        "[Header]",
        "LASTFILE=northern.wfn;",
        "",
        "##EOF WAYFERN LASTSTATE FILE ",
        "",
    };
    QCOMPARE(undatedLines(readBytes(out)), expected);
}

void TestLastState::writtenFileReadsBack()
{
    WayFernData doc;
    doc.lastfile = QStringLiteral("Tr\u00e4umerei \u20ac.wfn");
    WayfernIOLast io(&doc);
    QCOMPARE(io.WriteFile(dir.filePath(QStringLiteral("wayfern.last"))), 0);
    WayFernData back;
    WayfernIOLast reader(&back);
    StdoutCapture out;
    QCOMPARE(reader.ReadFile(dir.path(), QStringLiteral("wayfern.last")), 0);
    QCOMPARE(out.text(), QString());
    QCOMPARE(back.lastfile, doc.lastfile);
}

void TestLastState::emptyLastFileGivesEmptyName()
{
    WayFernData doc;
    doc.lastfile = QStringLiteral("old.wfn");
    QString printed;
    QCOMPARE(read(doc, "[Header]\nLASTFILE=;\n\n#end\n", &printed), 0);
    QCOMPARE(printed, QString());
    QVERIFY(!doc.lastfile.isNull());
    QVERIFY(doc.lastfile.isEmpty());
}

void TestLastState::furtherKeysAreReportedAndLastFileKept()
{
    WayFernData doc;
    QString printed;
    QCOMPARE(read(doc, "[Header]\nWINDOW=max;\nLASTFILE=trip.wfn;\nTAB=2;\n\n#end\n", &printed), 0);
    QCOMPARE(printed,
             QStringLiteral("\nWayfernIOLast::ReadFile(Header) : unknown header-entry : WINDOW\n"
                            "\nWayfernIOLast::ReadFile(Header) : unknown header-entry : TAB\n"));
    QCOMPARE(doc.lastfile, QStringLiteral("trip.wfn"));
}

void TestLastState::lastFileOnLastLineIsNotRead()
{
    WayFernData doc;
    QString printed;
    QCOMPARE(read(doc, "[Header]\nLASTFILE=trip.wfn;", &printed), 0);
    QVERIFY(doc.lastfile.isNull());
    QCOMPARE(read(doc, "[Header]\nLASTFILE=trip.wfn;\n", &printed), 0);
    QVERIFY(doc.lastfile.isNull());
}

void TestLastState::withoutConfigurationNothingIsTried()
{
    // No configuration was read: DATA-PATH is null.
    WayFernData doc;
    QVERIFY(doc.config.datapath.isNull());
    WayfernIOLast io(&doc);
    StdoutCapture out;
    QCOMPARE(io.ReadFile(doc.config.datapath, doc.config.last), -1);
    QCOMPARE(out.text(), QString());
}

void TestLastState::emptyDataPathTriesNameInWorkingDirectory()
{
    WayFernData doc;
    WayfernIOCfg cfg(&doc);
    QVERIFY(writeBytes(dir.filePath(QStringLiteral("wayfern.cfg")),
                       "[Header]\nDATA-PATH=;\nLAST=wayfern.last;\n\n[HTMLSYNC]\n\n#end\n"));
    QCOMPARE(cfg.ReadFile(dir.path(), QStringLiteral("wayfern.cfg")), 0);
    QVERIFY(doc.config.datapath.isEmpty());
    QVERIFY(!doc.config.datapath.isNull());

    QVERIFY(writeBytes(dir.filePath(QStringLiteral("wayfern.last")),
                       "[Header]\nLASTFILE=here.wfn;\n\n#\n"));
    const QString cwd = QDir::currentPath();
    QVERIFY(QDir::setCurrent(dir.path()));
    WayfernIOLast io(&doc);
    StdoutCapture out;
    const int result = io.ReadFile(doc.config.datapath, doc.config.last);
    const QString printed = out.text();
    QDir::setCurrent(cwd);
    QCOMPARE(result, 0);
    QCOMPARE(printed, QString());
    QCOMPARE(doc.lastfile, QStringLiteral("here.wfn"));
}

void TestLastState::missingFileIsReported()
{
    WayFernData doc;
    WayfernIOLast io(&doc);
    StdoutCapture out;
    QCOMPARE(io.ReadFile(dir.path(), QStringLiteral("gone.last")), -1);
    QCOMPARE(out.text(),
             QStringLiteral("\nWayfernIOLast::ReadFile - file not found (%1/gone.last)\n")
                 .arg(dir.path()));
}

void TestLastState::missingHeaderIsReported()
{
    WayFernData doc;
    QString printed;
    QCOMPARE(read(doc, "LASTFILE=x;\n\n", &printed), -1);
    QCOMPARE(printed, QStringLiteral("\nWayfernIOLast::ReadFile - section not found : Header\n"));
}

void TestLastState::writerFailureIsReported()
{
    WayFernData doc;
    WayfernIOLast io(&doc);
    const QString impossible = dir.filePath(QStringLiteral("no/such/dir/wayfern.last"));
    StdoutCapture out;
    QCOMPARE(io.WriteFile(impossible), -1);
    QCOMPARE(out.text(),
             QStringLiteral("\nWayfernIOLast::WriteFile(%1) : file not open\n").arg(impossible));
}

void TestLastState::lastStateInMemoryReadsAndWritesAsTheFile()
{
    WayFernData doc;
    doc.lastfile = QStringLiteral("tour.wfn");
    const QString file = dir.filePath(QStringLiteral("wayfern.last"));
    WayfernIOLast io(&doc);
    QCOMPARE(io.WriteFile(file), 0);
    QBuffer buffer;
    QCOMPARE(io.WriteFile(&buffer, QStringLiteral("wayfern.last")), 0);
    QCOMPARE(undatedLines(buffer.data()), undatedLines(readBytes(file)));

    WayFernData back;
    WayfernIOLast reader(&back);
    buffer.close();
    QCOMPARE(reader.ReadFile(&buffer, QStringLiteral("wayfern.last")), 0);
    QCOMPARE(back.lastfile, QStringLiteral("tour.wfn"));
}

void TestLastState::deviceThatCannotBeWrittenIsReportedByItsName()
{
    WayFernData doc;
    WayfernIOLast io(&doc);
    QBuffer readOnly;
    QVERIFY(readOnly.open(QIODevice::ReadOnly));
    StdoutCapture out;
    QCOMPARE(io.WriteFile(&readOnly, QStringLiteral("memo.last")), -1);
    QCOMPARE(out.text(), QStringLiteral("\nWayfernIOLast::WriteFile(memo.last) : file not open\n"));
}

QTEST_GUILESS_MAIN(TestLastState)
#include "tst_laststate.moc"
