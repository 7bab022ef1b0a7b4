// The journey reader on hostile input: it never crashes or hangs, and answers as it should.

#include "coretestutil.h"
#include "stdoutcapture.h"

#include "data/wayferndata.h"
#include "storage/wayfernio.h"

#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

class TestJourneyRobust : public QObject
{
    Q_OBJECT

private slots:
    void emptyFileHasNoHeader();
    void randomBytesNeverCrash();
    void randomBytesBehindHeaderNeverCrash();
    void fileCutAtEveryByteReadsWhatItHolds();
    void millionLinesAreRead();
    void megabyteLinesAreRead();
    void megabyteLineWithoutLineBreak();
    void hugeCountsStopAtFirstMissingSection();
    void hugeCustomCountStopsAtEmptyLine();
    void negativeCountsReadNoSection();
    void travellersSharingAShortNameStopAtABound();

private:
    QTemporaryDir dir;
    int read(WayFernData &doc, const QByteArray &bytes, QString *printed = nullptr)
    {
        const QString file = dir.filePath(QStringLiteral("in.wfn"));
        WayfernIO io(&doc);
        return readPrinted(file, bytes, printed, [&] { return io.ReadFile(file); });
    }
};

void TestJourneyRobust::emptyFileHasNoHeader()
{
    WayFernData doc;
    QString printed;
    QCOMPARE(read(doc, QByteArray(), &printed), -1);
    QCOMPARE(printed,
             QStringLiteral("\nWayfernIO::ReadFile - section not found : Header\n"
                            "\nreading aborted\n"));
}

void TestJourneyRobust::randomBytesNeverCrash()
{
    QRandomGenerator random(20021105);
    for (int round = 0; round < 200; ++round) {
        QByteArray bytes(int(random.bounded(1, 20000)), Qt::Uninitialized);
        for (char &c : bytes)
            c = char(random.bounded(256));
        WayFernData doc;
        QString printed;
        const int result = read(doc, bytes, &printed);
        // Random bytes hold no "[Header]" line, so they are rejected and leave nothing.
        QCOMPARE(result, -1);
        QVERIFY(printed.endsWith(QStringLiteral("\nreading aborted\n")));
        QCOMPARE(doc.costs.count(), 0);
    }
}

void TestJourneyRobust::randomBytesBehindHeaderNeverCrash()
{
    // Random lines built from the file's own words, so that sections, keys and counts of
    // every kind meet in random order.
    const QList<QByteArray> words = {"[Header]",
                                     "[COSTS_0]",
                                     "[COSTS_1]",
                                     "[TIP_0]",
                                     "[USER_0]",
                                     "[USER_1]",
                                     "[AB_0]",
                                     "[AB_1]",
                                     "[CURRENCY_0]",
                                     "[CTYPE_0]",
                                     "[TTYPE_0]",
                                     "[QTYPE_0]",
                                     "",
                                     "",
                                     "",
                                     "#",
                                     "COSTSCOUNT=2;",
                                     "TIPCOUNT=1;",
                                     "USERCOUNT=2;",
                                     "CURRCOUNT=1;",
                                     "CTYPECOUNT=1;",
                                     "TTYPECOUNT=1;",
                                     "QTYPECOUNT=1;",
                                     "CUSTOMCNT=3;",
                                     "CUSTOMCNT=2147483647;",
                                     "CUSTOM_0=x;",
                                     "CUSTOMTEXT_0=a;",
                                     "CUSTOMCONT_0=b;",
                                     "SHORT=AB;",
                                     "COUNT=2;",
                                     "COUNT=-5;",
                                     "SHORT-TERM=AB;",
                                     "FACTOR=0;",
                                     "FVAL=1e308;",
                                     "CTYPE=AB;",
                                     "ID=x1f;",
                                     "MAGIC=0x7fffffff;",
                                     "CHANGE=nan;",
                                     "EXCHANGE=(null);",
                                     "DATE=99.99.9999;",
                                     "TYPE=\xff\xfe;",
                                     "USERFLAG=TRUE;",
                                     "=;",
                                     "==;;",
                                     ";",
                                     "\xc3\x28",
                                     "\r"};
    QRandomGenerator random(4711);
    for (int round = 0; round < 300; ++round) {
        QByteArray bytes = "[Header]\n";
        const int lines = int(random.bounded(1, 400));
        for (int i = 0; i < lines; ++i) {
            bytes += words.at(int(random.bounded(words.size())));
            if (random.bounded(20) == 0)
                bytes += char(random.bounded(256));
            bytes += '\n';
        }
        WayFernData doc;
        const int result = read(doc, bytes);
        QVERIFY(result == 0 || result == -1);
        // Whatever was read is consistent enough to be written and read again.
        WayfernIO io(&doc);
        const QString out = dir.filePath(QStringLiteral("out.wfn"));
        StdoutCapture quiet;
        QCOMPARE(io.WriteFile(out), 0);
        WayFernData again;
        WayfernIO io2(&again);
        QCOMPARE(io2.ReadFile(out), 0);
        QCOMPARE(again.costs.count(), doc.costs.count());
        QCOMPARE(again.currencies.count(), doc.currencies.count());
    }
}

void TestJourneyRobust::fileCutAtEveryByteReadsWhatItHolds()
{
    const QByteArray whole = readBytes(fixture(QStringLiteral("northern.wfn")));
    const int headerEnd = int(whole.indexOf("[Header]\n")) + 9;
    for (int size = 0; size <= whole.size(); ++size) {
        WayFernData doc;
        const int result = read(doc, whole.left(size));
        // The head must not be the last line: at least one byte must follow it.
        QCOMPARE(result, size > headerEnd ? 0 : -1);
        QVERIFY(doc.costs.count() <= 1);
        QVERIFY(doc.users.count() <= 1);
        QVERIFY(doc.currencies.count() <= 2);
        if (size == whole.size()) {
            QCOMPARE(doc.currencies.count(), 2);
            QCOMPARE(doc.users.at(0)->kto.count(), 1);
        }
    }
}

void TestJourneyRobust::millionLinesAreRead()
{
    const int costs = 125000; // ten lines each, with the head and the empty line
    QByteArray bytes;
    bytes.reserve(costs * 110);
    bytes += "[Header]\nCOSTSCOUNT=" + QByteArray::number(costs)
        + ";\nCURRCOUNT=1;\nTIPCOUNT=0;\nUSERCOUNT=0;\nCTYPECOUNT=0;\nTTYPECOUNT=0;\n"
          "QTYPECOUNT=0;\n\n";
    for (int i = 0; i < costs; ++i) {
        bytes += "[COSTS_" + QByteArray::number(i) + "]\nDATE=01.01.2002;\nTYPE=Food;\nFVAL="
            + QByteArray::number(i % 100) + ";\nCTYPE=EUR;\nCOMMENT=;\nID="
            + QByteArray::number(i + 1) + ";\nEXCHANGE=1.0;\nSHARED=FALSE;\n\n";
    }
    bytes += "[CURRENCY_0]\nSHORT-TERM=EUR;\nFACTOR=1.0;\n\n#end\n";
    QVERIFY(bytes.count('\n') > 1000000);
    WayFernData doc;
    QString printed;
    QCOMPARE(read(doc, bytes, &printed), 0);
    QCOMPARE(printed, QString());
    QCOMPARE(doc.costs.count(), costs);
    QCOMPARE(doc.costs.at(costs - 1)->id, costs);
    QCOMPARE(doc.nextCostId(), costs + 1);
    // 0 + 1 + ... + 99, 1250 times.
    QCOMPARE(doc.costs.at(costs - 1)->bsum, QStringLiteral("6187500.00"));
}

void TestJourneyRobust::megabyteLinesAreRead()
{
    const QByteArray big(1 << 20, 'x');
    const QByteArray bytes = "[Header]\nJOURNEY-NAME=" + big + ";\nCOSTSCOUNT=1;\n" + big
        + "\n\n[COSTS_0]\nCOMMENT=" + big + ";\nTYPE=" + big + "Z;\n\n#end\n";
    WayFernData doc;
    QString printed;
    QCOMPARE(read(doc, bytes, &printed), 0);
    QCOMPARE(doc.journeyname.size(), 1 << 20);
    QCOMPARE(doc.costs.count(), 1);
    QCOMPARE(doc.costs.at(0)->comment.size(), 1 << 20);
    QCOMPARE(doc.costs.at(0)->typeletter, QStringLiteral("Z"));
    // The line without "=" is one unknown entry with an empty key.
    QVERIFY(printed.startsWith(
        QStringLiteral("\nWayfernIO::ReadFile(Header) : unknown header-entry : \n")));
}

void TestJourneyRobust::megabyteLineWithoutLineBreak()
{
    WayFernData doc;
    QCOMPARE(read(doc, "[Header]\n" + QByteArray(1 << 20, '[')), 0);
    QCOMPARE(read(doc, QByteArray(1 << 20, '[')), -1);
    QCOMPARE(read(doc, QByteArray(1 << 20, '\n')), -1);
}

void TestJourneyRobust::hugeCountsStopAtFirstMissingSection()
{
    const QByteArray max = "2147483647";
    QByteArray bytes = "[Header]\n";
    for (const char *key : {"COSTSCOUNT", "TIPCOUNT", "USERCOUNT", "CURRCOUNT", "CTYPECOUNT",
                            "TTYPECOUNT", "QTYPECOUNT"})
        bytes += QByteArray(key) + "=" + max + ";\n";
    bytes += "\n[COSTS_0]\nFVAL=1;\n\n[USER_0]\nSHORT=AB;\nCOUNT=" + max
        + ";\n\n[AB_0]\nCHANGE=2;\n\n#end\n";
    WayFernData doc;
    QString printed;
    QCOMPARE(read(doc, bytes, &printed), 0);
    QCOMPARE(doc.costs.count(), 1);
    QCOMPARE(doc.users.count(), 1);
    QCOMPARE(doc.users.at(0)->kto.count(), 1);
    QCOMPARE(doc.users.at(0)->count, 2147483647);
    for (const char *missing :
         {"ReadFileCType - section not found : CTYPE_0",
          "ReadFileTType - section not found : TTYPE_0",
          "ReadFileQType - section not found : QTYPE_0",
          "ReadFileCosts - section not found : COSTS_1",
          "ReadFileCurr - section not found : CURRENCY_0",
          "ReadFileTips - section not found : TIP_0", "ReadFileUsers - section not found : USER_1",
          "ReadFileUserAccount - section not found : AB_1"})
        QVERIFY2(printed.contains(QString::fromLatin1(missing)), missing);
}

void TestJourneyRobust::hugeCustomCountStopsAtEmptyLine()
{
    // The custom reader consumes the empty line that ends its block, so a second one ends
    // the section.
    const QByteArray bytes =
        "[Header]\nCOSTSCOUNT=0;\nUSERCOUNT=0;\nCURRCOUNT=0;\nCTYPECOUNT=0;\n"
        "QTYPECOUNT=0;\nTIPCOUNT=1;\nTTYPECOUNT=1;\n\n"
        "[TTYPE_0]\nTYPE=Hotel;\nCUSTOMCNT=2147483647;\nCUSTOM_0=Rooms;\n\n\n"
        "[TIP_0]\nCUSTOMCNT=2147483647;\nCUSTOMTEXT_0=a;\nCUSTOMCONT_0=b;\n\n\n#end\n";
    WayFernData doc;
    QCOMPARE(read(doc, bytes), 0);
    // One record per line read, plus the one that met the empty line.
    QCOMPARE(doc.ttypes.at(0)->customs.count(), 2);
    QCOMPARE(doc.ttypes.at(0)->customs.at(0)->text, QStringLiteral("Rooms"));
    QCOMPARE(doc.tips.at(0)->customs.count(), 2);
    QCOMPARE(doc.tips.at(0)->customs.at(0)->content, QStringLiteral("b"));
}

void TestJourneyRobust::negativeCountsReadNoSection()
{
    const QByteArray bytes = "[Header]\nCOSTSCOUNT=-1;\nUSERCOUNT=-2147483648;\nTIPCOUNT=0;\n"
                             "CURRCOUNT=0;\nCTYPECOUNT=0;\nTTYPECOUNT=0;\nQTYPECOUNT=0;\n\n"
                             "[COSTS_0]\nFVAL=1;\n\n[USER_0]\nSHORT=A;\n\n#end\n";
    WayFernData doc;
    QString printed;
    QCOMPARE(read(doc, bytes, &printed), 0);
    QCOMPARE(printed, QString());
    QCOMPARE(doc.costs.count(), 0);
    QCOMPARE(doc.users.count(), 0);
}

// Travellers that share a short name each read the first one's account lines: 300 of them
// with 300 lines would make 90,000 lines of a file that holds 300.
void TestJourneyRobust::travellersSharingAShortNameStopAtABound()
{
    const int travellers = 300;
    QByteArray bytes = "[Header]\nCOSTSCOUNT=0;\nUSERCOUNT=" + QByteArray::number(travellers)
        + ";\nTIPCOUNT=0;\nCURRCOUNT=0;\nCTYPECOUNT=0;\nTTYPECOUNT=0;\n"
          "QTYPECOUNT=0;\n\n";
    for (int i = 0; i < travellers; ++i)
        bytes += "[USER_" + QByteArray::number(i)
            + "]\nSHORT=A;\nCOUNT=" + QByteArray::number(travellers) + ";\n\n";
    for (int i = 0; i < travellers; ++i)
        bytes += "[A_" + QByteArray::number(i) + "]\nMAGIC=1;\nCHANGE=-1;\n\n";
    const int heads = 1 + 2 * travellers;
    WayFernData doc;
    QString printed;
    QCOMPARE(read(doc, bytes, &printed), 0);
    QCOMPARE(doc.users.count(), travellers);
    int lines = 0;
    for (const UserData *user : doc.users)
        lines += user->kto.count();
    const int bound = 2 * heads + 64;
    QVERIFY2(lines <= bound, qPrintable(QString::number(lines)));
    // Below the bound every traveller reads the first one's lines, as always.
    QCOMPARE(doc.users.at(0)->kto.count(), travellers);
    QCOMPARE(doc.users.at(1)->kto.count(), travellers);
    QVERIFY(printed.endsWith(
        QStringLiteral("\nWayfernIO::ReadFile : more account lines than the file holds, "
                       "reading stops in USER_%1\n")
            .arg(bound / travellers)));
}

QTEST_GUILESS_MAIN(TestJourneyRobust)
#include "tst_journeyrobust.moc"
