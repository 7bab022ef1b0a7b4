// The configuration file: where it is looked for, its two sections, and its writer.

#include "coretestutil.h"
#include "stdoutcapture.h"

#include "data/wayferndata.h"
#include "storage/wayferniocfg.h"
#include "wayfernversion.h"

#include <QBuffer>
#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

namespace {
const QByteArray workingConfig = "<?wayfern version=\"0.1\" type=\"config\"?>\n"
                                 "\n"
                                 "[Header]\n"
                                 "DATA-PATH=/home/anna/journeys;\n"
                                 "LAST=wayfern.last;\n"
                                 "TEMPLATE=template.wfn;\n"
                                 "HELPPROG=/opt/help/viewer;\n"
                                 "HELPFILE=/opt/help/wayfern.html;\n"
                                 "\n"
                                 "[HTMLSYNC]\n"
                                 "SYNCFILE=rate.html;\n"
                                 "SERVER=http://rates.example.org;\n"
                                 "FROMPREFIX=/convert?amount=1&from=;\n"
                                 "TOPREFIX=&to=;\n"
                                 "POSTFIX=&format=html;\n"
                                 "\n"
                                 "##EOF WAYFERN CONFIG FILE \n";
} // namespace

class TestConfigFile : public QObject
{
    Q_OBJECT

private slots:
    void workingFileFillsEveryField();
    void unsetVariableReadsCurrentDirectory();
    void valueWithSemicolonRunsToTheLastSemicolon();
    void valueWithEqualsSignIsWhole();
    void emptySyncSectionIsNoFailure();
    void missingSyncSectionKeepsHeaderValues();
    void syncSectionInFrontOfHeaderIsFound();
    void syncFileKeyInHeaderIsUnknown();
    void unknownSyncEntryIsReported();
    void missingFileIsReported();
    void nullPathFailsWithoutWord();
    void emptyPathUsesNameAlone();
    void missingHeaderIsReported();
    void keyThatFileDoesNotSetKeepsField();
    void writtenFileReadsBackOnlyAsFarAsHeader();
    void writerFailureIsReported();
    void catalogueKeyIsReadAndWrittenWhenSet();
    void configurationInMemoryReadsAndWritesAsTheFile();
    void deviceThatCannotBeReadIsReportedByItsName();

private:
    QTemporaryDir dir;
    int read(WayFernData &doc, const QByteArray &bytes, QString *printed)
    {
        WayfernIOCfg io(&doc);
        return readPrinted(dir.filePath(QStringLiteral("wayfern.cfg")), bytes, printed,
                           [&] { return io.ReadFile(dir.path(), QStringLiteral("wayfern.cfg")); });
    }
};

void TestConfigFile::workingFileFillsEveryField()
{
    WayFernData doc;
    QString printed;
    QCOMPARE(read(doc, workingConfig, &printed), 0);
    QCOMPARE(printed, QString());
    const WayFernConfig &c = doc.config;
    QCOMPARE(c.datapath, QStringLiteral("/home/anna/journeys"));
    QCOMPARE(c.last, QStringLiteral("wayfern.last"));
    QCOMPARE(c.template_, QStringLiteral("template.wfn"));
    QCOMPARE(c.helpprog, QStringLiteral("/opt/help/viewer"));
    QCOMPARE(c.helpfile, QStringLiteral("/opt/help/wayfern.html"));
    QCOMPARE(c.syncfile, QStringLiteral("rate.html"));
    QCOMPARE(c.server, QStringLiteral("http://rates.example.org"));
    QCOMPARE(c.fromprefix, QStringLiteral("/convert?amount=1&from="));
    QCOMPARE(c.toprefix, QStringLiteral("&to="));
    QCOMPARE(c.postfix, QStringLiteral("&format=html"));
    QVERIFY(c.catalogue.isNull());
}

void TestConfigFile::unsetVariableReadsCurrentDirectory()
{
    const QByteArray saved = qgetenv("WAYFERNCFG");
    qunsetenv("WAYFERNCFG");
    const QString cwd = QDir::currentPath();
    QVERIFY(writeBytes(dir.filePath(QStringLiteral("wayfern.cfg")), workingConfig));
    QVERIFY(QDir::setCurrent(dir.path()));
    WayFernData doc;
    WayfernIOCfg io(&doc);
    StdoutCapture out;
    const int result = io.ReadFile(doc.config.cfgpath, QStringLiteral("wayfern.cfg"));
    const QString printed = out.text();
    QDir::setCurrent(cwd);
    if (!saved.isNull())
        qputenv("WAYFERNCFG", saved);
    QCOMPARE(doc.config.cfgpath, QStringLiteral("."));
    QCOMPARE(result, 0);
    QCOMPARE(printed, QString());
    QCOMPARE(doc.config.last, QStringLiteral("wayfern.last"));

    // When nothing is there, the name that was tried is "./wayfern.cfg".
    QTemporaryDir empty;
    QVERIFY(QDir::setCurrent(empty.path()));
    WayfernIOCfg io2(&doc);
    StdoutCapture out2;
    QCOMPARE(io2.ReadFile(QStringLiteral("."), QStringLiteral("wayfern.cfg")), -1);
    const QString printed2 = out2.text();
    QDir::setCurrent(cwd);
    QCOMPARE(printed2,
             QStringLiteral("\nWayfernIOCfg::ReadFile - file not found (./wayfern.cfg)\n"));
}

void TestConfigFile::valueWithSemicolonRunsToTheLastSemicolon()
{
    WayFernData doc;
    QString printed;
    QByteArray cfg = workingConfig;
    cfg.replace("POSTFIX=&format=html;", "POSTFIX=&a=1;b=2;");
    QCOMPARE(read(doc, cfg, &printed), 0);
    QCOMPARE(doc.config.postfix, QStringLiteral("&a=1;b=2"));
}

void TestConfigFile::valueWithEqualsSignIsWhole()
{
    WayFernData doc;
    QString printed;
    QCOMPARE(read(doc, workingConfig, &printed), 0);
    QCOMPARE(doc.config.fromprefix, QStringLiteral("/convert?amount=1&from="));
}

void TestConfigFile::emptySyncSectionIsNoFailure()
{
    WayFernData doc;
    QString printed;
    QCOMPARE(read(doc, "[Header]\nLAST=l;\n\n[HTMLSYNC]\n\n#end\n", &printed), 0);
    QCOMPARE(printed, QString());
    QCOMPARE(doc.config.last, QStringLiteral("l"));
    QVERIFY(doc.config.server.isNull());
}

void TestConfigFile::missingSyncSectionKeepsHeaderValues()
{
    WayFernData doc;
    QString printed;
    QCOMPARE(read(doc, "[Header]\nDATA-PATH=/data;\nLAST=l;\n\n#end\n", &printed), -1);
    QCOMPARE(printed, QStringLiteral("\nWayfernIOCfg::ReadFile - section not found : HTMLSYNC\n"));
    QCOMPARE(doc.config.datapath, QStringLiteral("/data"));
    QCOMPARE(doc.config.last, QStringLiteral("l"));
}

void TestConfigFile::syncSectionInFrontOfHeaderIsFound()
{
    WayFernData doc;
    QString printed;
    QCOMPARE(read(doc, "[HTMLSYNC]\nSERVER=s;\n\n[Header]\nLAST=l;\n\n#end\n", &printed), 0);
    QCOMPARE(printed, QString());
    QCOMPARE(doc.config.server, QStringLiteral("s"));
    QCOMPARE(doc.config.last, QStringLiteral("l"));
}

void TestConfigFile::syncFileKeyInHeaderIsUnknown()
{
    WayFernData doc;
    QString printed;
    QCOMPARE(read(doc, "[Header]\nSYNCFILE=rate.html;\n\n[HTMLSYNC]\n\n#end\n", &printed), 0);
    QCOMPARE(
        printed,
        QStringLiteral("\nWayfernIOCfg::ReadFile(Header) : unknown header-entry : SYNCFILE\n"));
    QVERIFY(doc.config.syncfile.isNull());
}

void TestConfigFile::unknownSyncEntryIsReported()
{
    WayFernData doc;
    QString printed;
    QCOMPARE(read(doc, "[Header]\n\n[HTMLSYNC]\nLAST=x;\n\n#end\n", &printed), 0);
    QCOMPARE(
        printed,
        QStringLiteral("\nWayfernIOCfg::ReadFile(HTMLSYNC) : unknown syncheader-entry : LAST\n"));
}

void TestConfigFile::missingFileIsReported()
{
    WayFernData doc;
    WayfernIOCfg io(&doc);
    StdoutCapture out;
    QCOMPARE(io.ReadFile(dir.path(), QStringLiteral("none.cfg")), -1);
    QCOMPARE(out.text(),
             QStringLiteral("\nWayfernIOCfg::ReadFile - file not found (%1/none.cfg)\n")
                 .arg(dir.path()));
}

void TestConfigFile::nullPathFailsWithoutWord()
{
    WayFernData doc;
    WayfernIOCfg io(&doc);
    StdoutCapture out;
    QCOMPARE(io.ReadFile(QString(), QStringLiteral("wayfern.cfg")), -1);
    QCOMPARE(out.text(), QString());
}

void TestConfigFile::emptyPathUsesNameAlone()
{
    WayFernData doc;
    WayfernIOCfg io(&doc);
    StdoutCapture out;
    QCOMPARE(io.ReadFile(QStringLiteral(""), QStringLiteral("surely-not-here.cfg")), -1);
    QCOMPARE(out.text(),
             QStringLiteral("\nWayfernIOCfg::ReadFile - file not found (surely-not-here.cfg)\n"));
}

void TestConfigFile::missingHeaderIsReported()
{
    WayFernData doc;
    QString printed;
    QCOMPARE(read(doc, "[HTMLSYNC]\nSERVER=s;\n\n#end\n", &printed), -1);
    QCOMPARE(printed, QStringLiteral("\nWayfernIOCfg::ReadFile - section not found : Header\n"));
    QVERIFY(doc.config.server.isNull());
}

void TestConfigFile::keyThatFileDoesNotSetKeepsField()
{
    WayFernData doc;
    doc.config.helpprog = QStringLiteral("kept");
    QString printed;
    QCOMPARE(read(doc, "[Header]\nLAST=l;\n\n[HTMLSYNC]\n\n#end\n", &printed), 0);
    QCOMPARE(doc.config.helpprog, QStringLiteral("kept"));
}

void TestConfigFile::writtenFileReadsBackOnlyAsFarAsHeader()
{
    WayFernData doc;
    QString printed;
    QCOMPARE(read(doc, workingConfig, &printed), 0);
    const QString out = dir.filePath(QStringLiteral("written.cfg"));
    WayfernIOCfg writer(&doc);
    QCOMPARE(writer.WriteFile(out), 0);
    const QList<QByteArray> lines = undatedLines(readBytes(out));
    const QList<QByteArray> expected = {
        "<?wayfern version=\"0.1\" type=\"config\"?>",
        "#-------------------------------------------------------------",
        "# Config-File for wayfern",
        "# written from wayfern : " WAYFERN_VERSION,
        "# last modified : date = <date>",
        "#                 time = <time>",
        "#",
        "# File is automatically generated, dont modify manually",
        "#",
        "",
        "[Header]",
        "DATA-PATH=/home/anna/journeys;",
        "LAST=wayfern.last;",
        "TEMPLATE=template.wfn;",
        "HELPPROG=/opt/help/viewer;",
        "HELPFILE=/opt/help/wayfern.html;",
        "",
        "HTMLSYNC=rate.html;",
        "SERVER=http://rates.example.org;",
        "FROMPREFIX=/convert?amount=1&from=;",
        "TOPREFIX=&to=;",
        "POSTFIX=&format=html;",
        "",
        "",
        "##EOF WAYFERN CONFIG FILE ",
        "",
    };
    QCOMPARE(lines, expected);

    WayFernData back;
    WayfernIOCfg reader(&back);
    StdoutCapture capture;
    QCOMPARE(reader.ReadFile(dir.path(), QStringLiteral("written.cfg")), -1);
    QCOMPARE(capture.text(),
             QStringLiteral("\nWayfernIOCfg::ReadFile - section not found : HTMLSYNC\n"));
    QCOMPARE(back.config.helpfile, QStringLiteral("/opt/help/wayfern.html"));
    QVERIFY(back.config.syncfile.isNull());
    QVERIFY(back.config.server.isNull());
}

void TestConfigFile::writerFailureIsReported()
{
    WayFernData doc;
    WayfernIOCfg writer(&doc);
    const QString impossible = dir.filePath(QStringLiteral("no/such/dir/x.cfg"));
    StdoutCapture out;
    QCOMPARE(writer.WriteFile(impossible), -1);
    QCOMPARE(out.text(),
             QStringLiteral("\nWayfernIOCfg::WriteFile(%1) : file not open\n").arg(impossible));
}

void TestConfigFile::catalogueKeyIsReadAndWrittenWhenSet()
{
    QByteArray withCatalogue = workingConfig;
    withCatalogue.replace("POSTFIX=&format=html;\n",
                          "POSTFIX=&format=html;\nCATALOGUE=http://rates.example.org/list;\n");
    WayFernData doc;
    QString printed;
    QCOMPARE(read(doc, withCatalogue, &printed), 0);
    QCOMPARE(printed, QString());
    QCOMPARE(doc.config.catalogue, QStringLiteral("http://rates.example.org/list"));
    QCOMPARE(doc.config.postfix, QStringLiteral("&format=html"));

    const QString out = dir.filePath(QStringLiteral("catalogue.cfg"));
    WayfernIOCfg writer(&doc);
    QCOMPARE(writer.WriteFile(out), 0);
    const QList<QByteArray> lines = undatedLines(readBytes(out));
    const int postfix = lines.indexOf("POSTFIX=&format=html;");
    QVERIFY(postfix > 0);
    QCOMPARE(lines.mid(postfix + 1),
             QList<QByteArray>({"CATALOGUE=http://rates.example.org/list;", "", "",
                                "##EOF WAYFERN CONFIG FILE ", ""}));

    // Set to the empty text, the key is left out as if the file never had it.
    doc.config.catalogue = QString();
    QCOMPARE(writer.WriteFile(out), 0);
    QVERIFY(!readBytes(out).contains("CATALOGUE"));
}

void TestConfigFile::configurationInMemoryReadsAndWritesAsTheFile()
{
    const QByteArray bytes =
        QByteArray(workingConfig).replace("[HTMLSYNC]\n", "[HTMLSYNC]\nX=1;\n");
    WayFernData fromFile;
    QString filePrinted;
    QCOMPARE(read(fromFile, bytes, &filePrinted), 0);

    WayFernData fromMemory;
    WayfernIOCfg io(&fromMemory);
    QBuffer in;
    in.setData(bytes);
    StdoutCapture out;
    QCOMPARE(io.ReadFile(&in, QStringLiteral("wayfern.cfg")), 0);
    QCOMPARE(out.text(), filePrinted);
    QVERIFY(filePrinted.contains(QStringLiteral("unknown syncheader-entry : X")));
    QCOMPARE(fromMemory.config.datapath, fromFile.config.datapath);
    QCOMPARE(fromMemory.config.postfix, fromFile.config.postfix);

    const QString file = dir.filePath(QStringLiteral("written.cfg"));
    QCOMPARE(WayfernIOCfg(&fromFile).WriteFile(file), 0);
    QBuffer written;
    QCOMPARE(io.WriteFile(&written, QStringLiteral("written.cfg")), 0);
    QCOMPARE(undatedLines(written.data()), undatedLines(readBytes(file)));
}

void TestConfigFile::deviceThatCannotBeReadIsReportedByItsName()
{
    WayFernData doc;
    WayfernIOCfg io(&doc);
    QBuffer writeOnly;
    QVERIFY(writeOnly.open(QIODevice::WriteOnly));
    StdoutCapture out;
    QCOMPARE(io.ReadFile(&writeOnly, QStringLiteral("memo.cfg")), -1);
    QCOMPARE(out.text(), QStringLiteral("\nWayfernIOCfg::ReadFile - file not found (memo.cfg)\n"));
}

QTEST_GUILESS_MAIN(TestConfigFile)
#include "tst_configfile.moc"
