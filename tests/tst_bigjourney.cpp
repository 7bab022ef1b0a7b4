// The benchmark's journey of 100,000 costs (four travellers, 400,000 account lines) written,
// read and written again gives the same bytes, and reads back as the journey that was written.

#include "journeybytes.h"
#include "journeygen.h"
#include "stdoutcapture.h"

#include "data/wayferndata.h"
#include "storage/wayfernio.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

class TestBigJourney : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void writtenReadWrittenGivesSameBytes();

private:
    QTemporaryDir dir;
};

void TestBigJourney::initTestCase()
{
    QVERIFY(dir.isValid());
    qputenv("WAYFERNCFG", dir.path().toLocal8Bit());
}

void TestBigJourney::writtenReadWrittenGivesSameBytes()
{
    QElapsedTimer timer;
    timer.start();
    const JourneyShape shape;
    // Both writes go to the same path: the end marker names it.
    const QString path = dir.filePath(QStringLiteral("big.wfn"));
    const auto undatedBytes = [&] {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? undatedJourney(file.readAll()) : QByteArray();
    };
    {
        WayFernData doc;
        generateJourney(doc, shape);
        WayfernIO io(&doc);
        QCOMPARE(io.WriteFile(path), 0);
    }
    const QByteArray firstBytes = undatedBytes();
    WayFernData doc;
    WayfernIO io(&doc);
    QByteArray trace;
    {
        StdoutCapture out;
        QCOMPARE(io.ReadFile(path), 0);
        trace = out.bytes();
    }
    QCOMPARE(io.readProblem, WayfernIO::ReadProblem::None);
    QCOMPARE(doc.costs.count(), qsizetype(shape.costs));
    QCOMPARE(doc.users.count(), qsizetype(shape.travellers));
    for (const UserData *user : doc.users)
        QCOMPARE(user->kto.count(), qsizetype(shape.costs));
    QCOMPARE(doc.tips.count(), qsizetype(shape.tips));
    // Four lines for every account line.
    QCOMPARE(trace.count("ReadFileUserAccount - hstr : "),
             qsizetype(shape.costs) * shape.travellers);
    QCOMPARE(io.WriteFile(path), 0);
    const QByteArray secondBytes = undatedBytes();
    QVERIFY(firstBytes.size() > 40'000'000);
    // Two journeys that differ somewhere should say where, not print 40 MB.
    if (firstBytes != secondBytes) {
        qsizetype at = 0;
        while (at < qMin(firstBytes.size(), secondBytes.size())
               && firstBytes[at] == secondBytes[at])
            ++at;
        QFAIL(qPrintable(QStringLiteral("the bytes differ from byte %1: \"%2\" against \"%3\"")
                             .arg(at)
                             .arg(QString::fromUtf8(firstBytes.mid(at, 80)),
                                  QString::fromUtf8(secondBytes.mid(at, 80)))));
    }
    qInfo("written, read and written again in %lld ms", static_cast<long long>(timer.elapsed()));
}

QTEST_GUILESS_MAIN(TestBigJourney)
#include "tst_bigjourney.moc"
