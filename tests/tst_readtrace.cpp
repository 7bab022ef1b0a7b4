// The lines that reading a journey prints are behaviour: for every fixture journey, the shipped
// template, the fuzz regressions and the fuzz corpus they must stay byte for byte as recorded in
// tests/data/traces. What is printed after a read comes after the read's lines.
//
// WAYFERN_WRITE_TRACES=1 writes the recorded traces anew instead of comparing; only for a
// deliberate change of the printed lines.

#include "stdoutcapture.h"

#include "data/wayferndata.h"
#include "storage/printline.h"
#include "storage/wayfernio.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <cstdio>

namespace {
// The journeys of one group, in a fixed order: the section counts of a header carry over from
// one read to the next, so the order is part of what is compared.
QStringList journeysIn(const QString &dir, const QStringList &filters = {})
{
    QStringList paths;
    const QDir d(dir);
    for (const QString &name : d.entryList(filters, QDir::Files, QDir::Name))
        paths << d.filePath(name);
    return paths;
}

// What reading each journey prints, one block per journey behind a line naming it. A long
// trace (the fuzz corpus holds journeys with thousands of account lines) is recorded as its
// length and SHA-256 digest, which tell apart any two traces as surely as their bytes.
QByteArray traceOf(const QStringList &paths)
{
    const qsizetype longTrace = 4096;
    QByteArray all;
    for (const QString &path : paths) {
        WayFernData doc;
        WayfernIO io(&doc);
        StdoutCapture out;
        const int result = io.ReadFile(path);
        const QByteArray printed = out.bytes();
        all += "==== " + QFileInfo(path).fileName().toUtf8() + " (" + QByteArray::number(result)
            + ", " + QByteArray::number(doc.costs.count()) + " costs)\n";
        if (printed.size() <= longTrace)
            all += printed;
        else
            all += QByteArray::number(printed.size()) + " bytes, SHA-256 "
                + QCryptographicHash::hash(printed, QCryptographicHash::Sha256).toHex();
        all += "\n";
    }
    return all;
}

QString tracePath(const char *group)
{
    return QStringLiteral(WAYFERN_TEST_DATA "/traces/%1.trace").arg(QLatin1String(group));
}
} // namespace

class TestReadTrace : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void traceStaysByteForByte_data();
    void traceStaysByteForByte();
    void linesPrintedAfterReadFollowItsTrace();
    void linesOfLaterReadFollowEarlierTrace();

private:
    QTemporaryDir config;
};

void TestReadTrace::initTestCase()
{
    // A document asks for its configuration folder when it is made, and says so when it is
    // not named: name one, so that only the reads print.
    QVERIFY(config.isValid());
    qputenv("WAYFERNCFG", config.path().toLocal8Bit());
}

void TestReadTrace::traceStaysByteForByte_data()
{
    QTest::addColumn<QString>("group");
    QTest::addColumn<QStringList>("paths");
    const QStringList wfn{QStringLiteral("*.wfn")};
    QTest::newRow("fixtures") << QStringLiteral("fixtures")
                              << journeysIn(QStringLiteral(WAYFERN_TEST_DATA), wfn)
            + journeysIn(QStringLiteral(WAYFERN_TEST_DATA "/shell"), wfn)
            + journeysIn(QStringLiteral(WAYFERN_SHARE_DIR), wfn);
    QTest::newRow("regressions") << QStringLiteral(
        "regressions") << journeysIn(QStringLiteral(WAYFERN_FUZZ_DIR "/regressions/journey"));
    QTest::newRow("corpus") << QStringLiteral("corpus")
                            << journeysIn(QStringLiteral(WAYFERN_FUZZ_DIR "/corpus/journey"));
}

void TestReadTrace::traceStaysByteForByte()
{
    QFETCH(QString, group);
    QFETCH(QStringList, paths);
    QVERIFY(!paths.isEmpty());
    const QByteArray trace = traceOf(paths);
    QFile file(tracePath(group.toLatin1().constData()));
    if (qEnvironmentVariableIntValue("WAYFERN_WRITE_TRACES") == 1) {
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(trace);
        QSKIP("traces written anew");
    }
    QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(file.fileName()));
    const QByteArray expected = file.readAll();
    if (trace != expected) {
        // Name the first journey whose lines differ, then compare them for a readable diff.
        const QList<QByteArray> got = trace.split('\n');
        const QList<QByteArray> want = expected.split('\n');
        QByteArray journey;
        for (qsizetype i = 0; i < qMin(got.size(), want.size()); ++i) {
            if (got.at(i).startsWith("==== "))
                journey = got.at(i);
            if (got.at(i) != want.at(i))
                QFAIL(qPrintable(
                    QStringLiteral("%1, line %2: \"%3\" instead of \"%4\"")
                        .arg(QString::fromUtf8(journey))
                        .arg(i + 1)
                        .arg(QString::fromUtf8(got.at(i)), QString::fromUtf8(want.at(i)))));
        }
        QCOMPARE(got.size(), want.size());
    }
    QCOMPARE(trace.size(), expected.size());
}

void TestReadTrace::linesPrintedAfterReadFollowItsTrace()
{
    const QString path = QStringLiteral(WAYFERN_TEST_DATA "/northern.wfn");
    QByteArray alone;
    {
        WayFernData doc;
        WayfernIO io(&doc);
        StdoutCapture out;
        QCOMPARE(io.ReadFile(path), 0);
        alone = out.bytes();
    }
    QVERIFY(alone.contains("ReadFileUserAccount - hstr : "));

    WayFernData doc;
    WayfernIO io(&doc);
    StdoutCapture out;
    QCOMPARE(io.ReadFile(path), 0);
    // Through the program's own line printer and straight through the C library.
    printLine("\nafter the read\n");
    fputs("and by hand\n", stdout);
    fflush(stdout);
    QCOMPARE(out.bytes(), alone + "\nafter the read\nand by hand\n");
}

void TestReadTrace::linesOfLaterReadFollowEarlierTrace()
{
    const QString first = QStringLiteral(WAYFERN_TEST_DATA "/northern.wfn");
    const QString second = QStringLiteral(WAYFERN_TEST_DATA "/check-journey.wfn");
    const QStringList both{first, second};
    QByteArray separately;
    for (const QString &path : both) {
        WayFernData doc;
        WayfernIO io(&doc);
        StdoutCapture out;
        io.ReadFile(path);
        separately += out.bytes();
    }
    StdoutCapture out;
    for (const QString &path : both) {
        WayFernData doc;
        WayfernIO io(&doc);
        io.ReadFile(path);
    }
    // A read that fails prints too, and after everything before it.
    WayFernData doc;
    WayfernIO io(&doc);
    QCOMPARE(io.ReadFile(QStringLiteral(WAYFERN_TEST_DATA "/no-such-journey.wfn")), -1);
    QCOMPARE(out.bytes(),
             separately
                 + "\nWayfernIO::ReadFile - file not found (" WAYFERN_TEST_DATA
                   "/no-such-journey.wfn)\n");
}

QTEST_GUILESS_MAIN(TestReadTrace)
#include "tst_readtrace.moc"
