// The journey data file: every byte written, everything read back, every printed line.

#include "coretestutil.h"
#include "stdoutcapture.h"

#include "data/wayferndata.h"
#include "storage/wayfernio.h"
#include "wayfernversion.h"

#include <QBuffer>
#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <sys/resource.h>

namespace {
// A header with every count, and the given body behind it.
QByteArray journey(const QByteArray &counts, const QByteArray &body)
{
    return "[Header]\n" + counts + "\n" + body + "\n#end\n";
}

const QByteArray zeroCounts = "COSTSCOUNT=0;\nTIPCOUNT=0;\nUSERCOUNT=0;\nCURRCOUNT=0;\n"
                              "CTYPECOUNT=0;\nTTYPECOUNT=0;\nQTYPECOUNT=0;\n";

QByteArray withCount(const QByteArray &key, int n)
{
    QByteArray counts = zeroCounts;
    return counts.replace(key + "=0;", key + "=" + QByteArray::number(n) + ";");
}
} // namespace

class TestJourneyFile : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void smallFileReadsIntoDocument();
    void smallFileWritesSameBytes();
    void writtenFileReadsBackAndWritesSameBytes();
    void negativeAmountRoundingToZeroWritesWithoutSignAndStaysOnRewrite();
    void writtenFileEndsWithMarkerOfItsPath();
    void emptyGroupWritesOnlySeparator();
    void countOfZeroReadsNoSection();
    void missingCostSectionIsReportedAndReadingGoesOn();
    void lowerCaseUserflagReadsFalse();
    void costWithoutIdGetsDefaultId();
    void tipWithZeroCustomCountReadsNoCustomLine();
    void headerAnywhereIsFound();
    void recordOnLastLineIsLost();
    void configurationFileReadsAsJourneyWithUnknownKeys();
    void secondReadWithoutCountUsesCountOfFirstFile();
    void missingFileIsReportedAndLeavesDocument();
    void fileWithoutHeaderIsReportedAndLeavesDocument();
    void headerOnLastLineIsNotFound();
    void unknownHeaderEntryIsReported();
    void unknownSectionEntryNamesReaderAndSection();
    void accountTraceIsPrintedForEveryAccountSection();
    void accountTracePrintsHugeNumbersWhole();
    void emptyForeignValueReadsAsZero();
    void emptyFactorReadsAsOne();
    void nullOrEmptyExchangeStaysAsWritten();
    void nullTextsAreWrittenEmpty();
    void textWithSemicolonSurvivesSaveAndOpen();
    void multiLineCommentLosesTheRestOfItsRecord();
    void equalShortNamesShareAccountSections();
    void customCountAboveLinesAtHandMergesNextSection();
    void sectionOutOfOrderLosesRestOfGroup();
    void countKeyWrittenFromRealAccountLines();
    void amountsRoundedOnWriting();
    void latinOneTextIsWrittenAsLatinOneBytes();
    void textOutsideLatinOneIsKeptAsUtf8();
    void latinOneTextThatLooksLikeUtf8ReadsBackUnchanged();
    void latinOneFileWithHighBytesReadsAsLatinOne();
    void failedSaveKeepsOldFile();
    void unwritablePathFailsWithMessage();
    void writeToDirectoryFailsWithMessage();
    void readProblemTellsMissingFileNoHeaderAndMissingSection();
    void writeProblemGivesTheSystemsReasonAndClearsOnSuccess();
    void journeyInMemoryReadsAsTheFileWithTheSameTrace();
    void journeyInMemoryWritesTheBytesOfTheFile();
    void deviceThatCannotBeReadIsReportedByItsName();
    void deviceThatCannotBeWrittenIsReportedByItsName();

private:
    QTemporaryDir dir;
    QString path(const QString &name) const { return dir.filePath(name); }
    // Reads bytes written to a temporary file; returns ReadFile's result.
    int read(WayFernData &doc, const QByteArray &bytes, QString *printed = nullptr);
};

int TestJourneyFile::read(WayFernData &doc, const QByteArray &bytes, QString *printed)
{
    const QString file = path(QStringLiteral("in.wfn"));
    WayfernIO io(&doc);
    return readPrinted(file, bytes, printed, [&] { return io.ReadFile(file); });
}

void TestJourneyFile::init()
{
    // The header counts survive between reads on purpose; start each test from a file that
    // sets every one of them to 0, in an empty directory.
    WayFernData doc;
    read(doc, journey(zeroCounts, ""));
    QDir d(dir.path());
    for (const QString &name : d.entryList(QDir::Files | QDir::Hidden))
        d.remove(name);
}

void TestJourneyFile::smallFileReadsIntoDocument()
{
    WayFernData doc;
    QString printed;
    QCOMPARE(read(doc, readBytes(fixture(QStringLiteral("northern.wfn"))), &printed), 0);
    QCOMPARE(printed,
             QStringLiteral("\nWayfernIO::ReadFileUserAccount - hstr : AB_0"
                            "\n                                 ID   : 1"
                            "\n                                 val  : -14.8100"
                            "\n                                 perc : 100.0000"));
    QCOMPARE(doc.journeyname, QStringLiteral("Northern Lakes"));
    QCOMPARE(doc.distancetype, QStringLiteral("km"));
    QCOMPARE(doc.basecurrency, QStringLiteral("EUR"));
    QCOMPARE(doc.userflag, true);

    QCOMPARE(doc.ctypes.count(), 1);
    QCOMPARE(doc.ctypes.at(0)->type, QStringLiteral("Food"));
    QCOMPARE(doc.ttypes.count(), 1);
    QCOMPARE(doc.ttypes.at(0)->type, QStringLiteral("Hotel"));
    QCOMPARE(doc.ttypes.at(0)->customs.count(), 1);
    QCOMPARE(doc.ttypes.at(0)->customs.at(0)->text, QStringLiteral("Rooms"));
    QCOMPARE(doc.qtypes.count(), 1);
    QCOMPARE(doc.qtypes.at(0)->type, QStringLiteral("good"));

    QCOMPARE(doc.costs.count(), 1);
    const CostsData *cost = doc.costs.at(0);
    QCOMPARE(cost->date, QStringLiteral("23.05.2002"));
    QCOMPARE(cost->type, QStringLiteral("Food"));
    QCOMPARE(cost->fval, QStringLiteral("120.00"));
    QCOMPARE(cost->ctype, QStringLiteral("NOK"));
    QCOMPARE(cost->comment, QStringLiteral("Dinner"));
    QCOMPARE(cost->id, 1);
    QCOMPARE(cost->exchange, QStringLiteral("8.10"));
    // The currencies were not there yet when the rate was read.
    QCOMPARE(cost->exchangevalue, 8.1);
    QCOMPARE(cost->shared, true);
    QCOMPARE(cost->fvalue, 120.0);
    QCOMPARE(cost->bval, QStringLiteral("14.81"));
    QCOMPARE(cost->bsum, QStringLiteral("14.81"));
    QCOMPARE(cost->typeletter, QStringLiteral("F"));
    QCOMPARE(cost->curr, doc.currencies.at(1));

    QCOMPARE(doc.tips.count(), 1);
    const TipData *tip = doc.tips.at(0);
    QCOMPARE(tip->date, QStringLiteral("23.05.2002"));
    QCOMPARE(tip->tiptype, QStringLiteral("Hotel"));
    QCOMPARE(tip->qualitytype, QStringLiteral("good"));
    QCOMPARE(tip->name, QStringLiteral("Fjord Inn"));
    QCOMPARE(tip->street, QStringLiteral("Quay 4"));
    QCOMPARE(tip->pcode, QStringLiteral("5000"));
    QCOMPARE(tip->town, QStringLiteral("Bergen"));
    QCOMPARE(tip->tel, QStringLiteral(""));
    QVERIFY(!tip->tel.isNull());
    QCOMPARE(tip->comment, QStringLiteral("Quiet"));
    QCOMPARE(tip->customs.count(), 1);
    QCOMPARE(tip->customs.at(0)->text, QStringLiteral("Rooms"));
    QCOMPARE(tip->customs.at(0)->content, QStringLiteral("12"));

    QCOMPARE(doc.users.count(), 1);
    const UserData *user = doc.users.at(0);
    QCOMPARE(user->date, QStringLiteral("20.05.2002"));
    QCOMPARE(user->short_, QStringLiteral("AB"));
    QCOMPARE(user->name, QStringLiteral("Berg"));
    QCOMPARE(user->firstname, QStringLiteral("Anna"));
    QCOMPARE(user->acount, QStringLiteral(""));
    QCOMPARE(user->value, -14.81);
    QCOMPARE(user->count, 1);
    QCOMPARE(user->kto.count(), 1);
    const KtoData *line = user->kto.at(0);
    QCOMPARE(line->date, QStringLiteral("23.05.2002"));
    QCOMPARE(line->type, QStringLiteral("Food"));
    QCOMPARE(line->magic, 1);
    QCOMPARE(line->percentage, 100.0);
    QCOMPARE(line->change, -14.81);

    QCOMPARE(doc.currencies.count(), 2);
    const CurrData *eur = doc.currencies.at(0);
    const CurrData *nok = doc.currencies.at(1);
    QCOMPARE(eur->short_, QStringLiteral("EUR"));
    QCOMPARE(eur->factor, QStringLiteral("1.0"));
    QCOMPARE(eur->fullname, QStringLiteral("Euro"));
    QCOMPARE(eur->type, QStringLiteral("fix"));
    QVERIFY(!eur->isFloating());
    QCOMPARE(nok->short_, QStringLiteral("NOK"));
    QCOMPARE(nok->factor, QStringLiteral("8.10"));
    QCOMPARE(nok->fullname, QStringLiteral("Norwegian Krone"));
    QVERIFY(nok->isFloating());
    QCOMPARE(nok->factorvalue, 8.1);
    QCOMPARE(nok->invfactor, 1 / 8.1);
}

void TestJourneyFile::smallFileWritesSameBytes()
{
    const QByteArray original = readBytes(fixture(QStringLiteral("northern.wfn")));
    WayFernData doc;
    QCOMPARE(read(doc, original), 0);
    const QString out = path(QStringLiteral("northern.wfn"));
    WayfernIO io(&doc);
    QCOMPARE(io.WriteFile(out), 0);
    const QByteArray written = readBytes(out);

    QList<QByteArray> want = original.split('\n');
    QList<QByteArray> got = written.split('\n');
    QCOMPARE(got.size(), want.size());
    for (int i = 0; i < want.size(); ++i) {
        const int lineNo = i + 1;
        if (lineNo == 5) {
            QVERIFY(QRegularExpression(
                        QStringLiteral("^# last modified : date = \\d\\d\\.\\d\\d\\.\\d{4}$"))
                        .match(QString::fromLatin1(got[i]))
                        .hasMatch());
        } else if (lineNo == 6) {
            QVERIFY(QRegularExpression(
                        QStringLiteral("^#                 time = \\d\\d:\\d\\d:\\d\\d$"))
                        .match(QString::fromLatin1(got[i]))
                        .hasMatch());
        } else if (lineNo == 122) {
            QCOMPARE(got[i], "##EOF WAYFERN DATA FILE " + out.toLatin1());
        } else {
            QCOMPARE(got[i], want[i]);
        }
    }
}

void TestJourneyFile::writtenFileReadsBackAndWritesSameBytes()
{
    // A journey with every kind of record, written, read, and written again.
    WayFernData doc;
    doc.journeyname = QStringLiteral("Round = trip");
    doc.distancetype = QStringLiteral("mi");
    doc.basecurrency = QStringLiteral("EUR");
    doc.userflag = true;
    doc.ctypes.append()->type = QStringLiteral("Food");
    doc.ctypes.append()->type = QStringLiteral("Hotel");
    TTypeData *camping = doc.ttypes.append();
    camping->type = QStringLiteral("Camping");
    camping->customs.append()->text = QStringLiteral("Pitch");
    camping->customs.append()->text = QStringLiteral("Showers");
    doc.ttypes.append()->type = QStringLiteral("Museum");
    doc.qtypes.append()->type = QStringLiteral("good");
    for (int i = 0; i < 3; ++i) {
        CostsData *cost = doc.costs.append();
        cost->date = QStringLiteral("0%1.06.2002").arg(i + 1);
        cost->type = i ? QStringLiteral("Hotel") : QStringLiteral("Food");
        cost->fval = QString::number(10.5 * (i + 1));
        cost->ctype = i == 1 ? QStringLiteral("NOK") : QStringLiteral("EUR");
        cost->comment = QStringLiteral("c #%1 [x] = y").arg(i);
        cost->id = i + 1;
        cost->exchange = QStringLiteral("1.0");
        cost->shared = i == 0;
    }
    TipData *tip = doc.tips.append();
    tip->date = QStringLiteral("02.06.2002");
    tip->name = QStringLiteral("Lake camp");
    tip->tiptype = QStringLiteral("Camping");
    CustomData *pitch = tip->customs.append();
    pitch->text = QStringLiteral("Pitch");
    pitch->content = QStringLiteral("12b");
    for (const char *name : {"AB", "CD"}) {
        UserData *user = doc.users.append();
        user->short_ = QString::fromLatin1(name);
        user->firstname = QStringLiteral("First");
        KtoData *line = user->addKto(1);
        line->type = QStringLiteral("share");
        line->percentage = 50.0;
        line->change = -5.25;
        KtoData *deposit = user->addKto(-2);
        deposit->type = QStringLiteral("deposit");
        deposit->percentage = 100.0;
        deposit->change = 100.0;
    }
    for (const auto &c : {std::pair("EUR", "1.0"), std::pair("NOK", "8.10")}) {
        CurrData *curr = doc.currencies.append();
        curr->short_ = QString::fromLatin1(c.first);
        curr->factor = QString::fromLatin1(c.second);
        curr->fullname = QStringLiteral("Name");
        curr->type = curr->floating;
    }
    doc.recalcUsers();

    WayfernIO io(&doc);
    const QString first = path(QStringLiteral("first.wfn"));
    QCOMPARE(io.WriteFile(first), 0);
    WayFernData again;
    QCOMPARE(read(again, readBytes(first)), 0);
    WayfernIO io2(&again);
    const QString second = path(QStringLiteral("second.wfn"));
    QCOMPARE(io2.WriteFile(second), 0);

    QList<QByteArray> a = undatedLines(readBytes(first));
    QList<QByteArray> b = undatedLines(readBytes(second));
    QCOMPARE(a.size(), b.size());
    QCOMPARE(a.mid(0, a.size() - 2), b.mid(0, b.size() - 2));
    QCOMPARE(b.at(b.size() - 2), "##EOF WAYFERN DATA FILE " + second.toLatin1());
    QCOMPARE(again.users.at(1)->kto.at(1)->type, QStringLiteral("deposit"));
    QCOMPARE(again.tips.at(0)->customs.at(0)->content, QStringLiteral("12b"));
    QCOMPARE(again.ttypes.at(0)->customs.count(), 2);
    QCOMPARE(again.costs.at(1)->bval, QStringLiteral("2.59"));
}

// "-0.0000" would read back as the negated zero, which writes "0.0000": such an amount is
// written without its sign at once, so a file written twice stays the same. Other negative
// amounts keep theirs.
void TestJourneyFile::negativeAmountRoundingToZeroWritesWithoutSignAndStaysOnRewrite()
{
    const QByteArray bytes =
        journey(withCount("USERCOUNT", 1).replace("USERCOUNT=1;", "USERCOUNT=1;\nUSERFLAG=TRUE;"),
                "[USER_0]\nSHORT=AB;\nCOUNT=3;\n\n"
                "[AB_0]\nMAGIC=1;\nCHANGE=-.000010;\n\n"
                "[AB_1]\nMAGIC=2;\nCHANGE=-0.00005;\n\n"
                "[AB_2]\nMAGIC=3;\nCHANGE=-0.0000;\n\n");
    WayFernData doc;
    QCOMPARE(read(doc, bytes), 0);
    QCOMPARE(doc.users.at(0)->kto.count(), 3);
    WayfernIO io(&doc);
    const QString first = path(QStringLiteral("first.wfn"));
    QCOMPARE(io.WriteFile(first), 0);
    const QByteArray written = readBytes(first);
    QVERIFY(written.contains("MAGIC=1;\nPERCENTAGE=0.00;\nCHANGE=0.0000;\n"));
    // A half in the last place rounds away from zero and keeps its sign.
    QVERIFY(written.contains("MAGIC=2;\nPERCENTAGE=0.00;\nCHANGE=-0.0001;\n"));
    QVERIFY(written.contains("MAGIC=3;\nPERCENTAGE=0.00;\nCHANGE=0.0000;\n"));

    WayFernData again;
    QCOMPARE(read(again, written), 0);
    WayfernIO io2(&again);
    const QString second = path(QStringLiteral("second.wfn"));
    QCOMPARE(io2.WriteFile(second), 0);
    const QList<QByteArray> a = undatedLines(written);
    const QList<QByteArray> b = undatedLines(readBytes(second));
    QCOMPARE(a.mid(0, a.size() - 2), b.mid(0, b.size() - 2));
}

void TestJourneyFile::writtenFileEndsWithMarkerOfItsPath()
{
    WayFernData doc;
    WayfernIO io(&doc);
    const QString out = path(QStringLiteral("empty.wfn"));
    QCOMPARE(io.WriteFile(out), 0);
    QVERIFY(readBytes(out).endsWith("\n\n##EOF WAYFERN DATA FILE " + out.toLatin1() + "\n"));
}

void TestJourneyFile::emptyGroupWritesOnlySeparator()
{
    WayFernData doc;
    doc.userflag = false;
    WayfernIO io(&doc);
    const QString out = path(QStringLiteral("empty.wfn"));
    QCOMPARE(io.WriteFile(out), 0);
    const QList<QByteArray> lines = undatedLines(readBytes(out));
    const QByteArray sep = "#========================================================";
    QList<QByteArray> expected = {
        "<?wayfern version=\"0.1\" type=\"data\"?>",
        "#-------------------------------------------------------------",
        "# Data-File for wayfern",
        "# written from wayfern : " WAYFERN_VERSION,
        "# last modified : date = <date>",
        "#                 time = <time>",
        "#",
        "# File is automatically generated, dont modify manually",
        "#",
        "",
        "[Header]",
        "JOURNEY-NAME=;",
        "DISTANCE-TYPE=;",
        "BASE-CURRENCY=;",
        "USERFLAG=FALSE;",
        "COSTSCOUNT=0;",
        "TIPCOUNT=0;",
        "USERCOUNT=0;",
        "CURRCOUNT=0;",
        "CTYPECOUNT=0;",
        "TTYPECOUNT=0;",
        "QTYPECOUNT=0;",
        "",
    };
    for (int group = 0; group < 7; ++group)
        expected << "" << sep << "";
    expected << ""
             << "##EOF WAYFERN DATA FILE " + out.toLatin1() << "";
    QCOMPARE(lines, expected);
}

void TestJourneyFile::countOfZeroReadsNoSection()
{
    WayFernData doc;
    QString printed;
    QCOMPARE(read(doc, journey(zeroCounts, "[COSTS_0]\nDATE=01.01.2002;\n\n[CTYPE_0]\nTYPE=x;\n"),
                  &printed),
             0);
    QCOMPARE(printed, QString());
    QCOMPARE(doc.costs.count(), 0);
    QCOMPARE(doc.ctypes.count(), 0);
}

void TestJourneyFile::missingCostSectionIsReportedAndReadingGoesOn()
{
    QByteArray counts = withCount("COSTSCOUNT", 3);
    counts.replace("CURRCOUNT=0;", "CURRCOUNT=1;");
    const QByteArray body = "[COSTS_0]\nFVAL=1;\nCTYPE=EUR;\n\n[COSTS_1]\nFVAL=2;\nCTYPE=EUR;\n\n"
                            "[CURRENCY_0]\nSHORT-TERM=EUR;\nFACTOR=2;\n\n";
    WayFernData doc;
    QString printed;
    QCOMPARE(read(doc, journey(counts, body), &printed), 0);
    QCOMPARE(printed, QStringLiteral("\nWayfernIO::ReadFileCosts - section not found : COSTS_2\n"));
    QCOMPARE(doc.costs.count(), 2);
    QCOMPARE(doc.currencies.count(), 1);
    QCOMPARE(doc.costs.at(1)->bval, QStringLiteral("1.00"));
    QCOMPARE(doc.costs.at(1)->bsum, QStringLiteral("1.50"));
}

void TestJourneyFile::lowerCaseUserflagReadsFalse()
{
    WayFernData doc;
    doc.userflag = true;
    QCOMPARE(read(doc, journey(zeroCounts + "USERFLAG=true;\n", "")), 0);
    QCOMPARE(doc.userflag, false);
    QCOMPARE(read(doc, journey(zeroCounts + "USERFLAG=TRUE;\n", "")), 0);
    QCOMPARE(doc.userflag, true);
}

void TestJourneyFile::costWithoutIdGetsDefaultId()
{
    WayFernData doc;
    QCOMPARE(read(doc, journey(withCount("COSTSCOUNT", 1), "[COSTS_0]\nDATE=01.01.2002;\n\n")), 0);
    QCOMPARE(doc.costs.count(), 1);
    QCOMPARE(doc.costs.at(0)->id, -128);
}

void TestJourneyFile::tipWithZeroCustomCountReadsNoCustomLine()
{
    WayFernData doc;
    QString printed;
    QCOMPARE(read(doc,
                  journey(withCount("TIPCOUNT", 1),
                          "[TIP_0]\nNAME=Inn;\nCUSTOMCNT=0;\nCUSTOMTEXT_0=Rooms;\nTOWN=Oslo;\n\n"),
                  &printed),
             0);
    QCOMPARE(doc.tips.at(0)->customs.count(), 0);
    QCOMPARE(doc.tips.at(0)->town, QStringLiteral("Oslo"));
    // The line that was not taken as a custom field is an unknown entry of the tip.
    QCOMPARE(
        printed,
        QStringLiteral("\nWayfernIO::ReadFileTips(TIP_0) : unknown header-entry : CUSTOMTEXT_0\n"));
}

void TestJourneyFile::headerAnywhereIsFound()
{
    WayFernData doc;
    QCOMPARE(read(doc,
                  "garbage line\nJOURNEY-NAME=Wrong;\n[Other]\nX=1;\n\n"
                      + journey(zeroCounts + "JOURNEY-NAME=Right;\n", "")),
             0);
    QCOMPARE(doc.journeyname, QStringLiteral("Right"));
}

void TestJourneyFile::recordOnLastLineIsLost()
{
    WayFernData doc;
    QCOMPARE(read(doc, "[Header]\n" + zeroCounts + "JOURNEY-NAME=Lost;"), 0);
    QVERIFY(doc.journeyname.isNull());
    QCOMPARE(read(doc, "[Header]\n" + zeroCounts + "JOURNEY-NAME=Lost;\n"), 0);
    QVERIFY(doc.journeyname.isNull());
}

void TestJourneyFile::configurationFileReadsAsJourneyWithUnknownKeys()
{
    const QByteArray cfg = "<?wayfern version=\"0.1\" type=\"config\"?>\n\n[Header]\n"
                           "DATA-PATH=/home/anna/journeys;\nLAST=wayfern.last;\n\n"
                           "[HTMLSYNC]\nSYNCFILE=rate.html;\n\n##EOF WAYFERN CONFIG FILE \n";
    WayFernData doc;
    QString printed;
    QCOMPARE(read(doc, cfg, &printed), 0);
    QCOMPARE(printed,
             QStringLiteral("\nWayfernIO::ReadFile(Header) : unknown header-entry : DATA-PATH\n"
                            "\nWayfernIO::ReadFile(Header) : unknown header-entry : LAST\n"));
    QCOMPARE(doc.costs.count(), 0);
}

void TestJourneyFile::secondReadWithoutCountUsesCountOfFirstFile()
{
    WayFernData doc;
    QCOMPARE(
        read(doc,
             journey(withCount("COSTSCOUNT", 2), "[COSTS_0]\nFVAL=1;\n\n[COSTS_1]\nFVAL=2;\n\n")),
        0);
    QCOMPARE(doc.costs.count(), 2);
    QByteArray noCostCount = zeroCounts;
    noCostCount.replace("COSTSCOUNT=0;\n", "");
    QString printed;
    QCOMPARE(read(doc, journey(noCostCount, "[COSTS_0]\nFVAL=7;\n\n"), &printed), 0);
    QCOMPARE(printed, QStringLiteral("\nWayfernIO::ReadFileCosts - section not found : COSTS_1\n"));
    QCOMPARE(doc.costs.count(), 1);
    QCOMPARE(doc.costs.at(0)->fval, QStringLiteral("7"));
}

void TestJourneyFile::missingFileIsReportedAndLeavesDocument()
{
    WayFernData doc;
    doc.costs.append()->comment = QStringLiteral("kept");
    WayfernIO io(&doc);
    const QString missing = path(QStringLiteral("missing.wfn"));
    StdoutCapture out;
    QCOMPARE(io.ReadFile(missing), -1);
    QCOMPARE(out.text(),
             QStringLiteral("\nWayfernIO::ReadFile - file not found (%1)\n").arg(missing));
    QCOMPARE(doc.costs.count(), 1);
}

void TestJourneyFile::fileWithoutHeaderIsReportedAndLeavesDocument()
{
    WayFernData doc;
    doc.costs.append()->comment = QStringLiteral("kept");
    doc.journeyname = QStringLiteral("old");
    QString printed;
    QCOMPARE(read(doc, "[Head]\nJOURNEY-NAME=x;\n\n[COSTS_0]\n\n", &printed), -1);
    QCOMPARE(printed,
             QStringLiteral("\nWayfernIO::ReadFile - section not found : Header\n"
                            "\nreading aborted\n"));
    QCOMPARE(doc.costs.count(), 1);
    QCOMPARE(doc.journeyname, QStringLiteral("old"));
}

void TestJourneyFile::headerOnLastLineIsNotFound()
{
    WayFernData doc;
    QString printed;
    QCOMPARE(read(doc, "# a journey\n[Header]\n", &printed), -1);
    QVERIFY(printed.contains(QStringLiteral("section not found : Header")));
}

void TestJourneyFile::unknownHeaderEntryIsReported()
{
    WayFernData doc;
    QString printed;
    QCOMPARE(read(doc, journey(zeroCounts + "COLOUR=blue;\njust text\n", ""), &printed), 0);
    QCOMPARE(printed,
             QStringLiteral("\nWayfernIO::ReadFile(Header) : unknown header-entry : COLOUR\n"
                            "\nWayfernIO::ReadFile(Header) : unknown header-entry : \n"));
}

void TestJourneyFile::unknownSectionEntryNamesReaderAndSection()
{
    QByteArray counts = withCount("CURRCOUNT", 1);
    counts.replace("CTYPECOUNT=0;", "CTYPECOUNT=1;");
    counts.replace("QTYPECOUNT=0;", "QTYPECOUNT=1;");
    WayFernData doc;
    QString printed;
    QCOMPARE(read(doc,
                  journey(counts,
                          "[CTYPE_0]\nTYPE=Food;\nNAME=x;\n\n"
                          "[QTYPE_0]\nQUALITY=x;\n\n"
                          "[CURRENCY_0]\nSHORT=EUR;\n\n"),
                  &printed),
             0);
    QCOMPARE(
        printed,
        QStringLiteral("\nWayfernIO::ReadFileCType(CTYPE_0) : unknown header-entry : NAME\n"
                       "\nWayfernIO::ReadFileQType(QTYPE_0) : unknown header-entry : QUALITY\n"
                       "\nWayfernIO::ReadFileCurr(CURRENCY_0) : unknown header-entry : SHORT\n"));
    // The section gave a record all the same.
    QCOMPARE(doc.qtypes.count(), 1);
    QVERIFY(doc.qtypes.at(0)->type.isNull());
}

void TestJourneyFile::accountTraceIsPrintedForEveryAccountSection()
{
    QByteArray counts = withCount("USERCOUNT", 2);
    const QByteArray body = "[USER_0]\nSHORT=AB;\nCOUNT=2;\n\n"
                            "[AB_0]\nMAGIC=3;\nCHANGE=-1.5;\nPERCENTAGE=50;\n\n"
                            "[AB_1]\nMAGIC=-2;\nCHANGE=20;\nPERCENTAGE=100;\nTYPE=deposit;\n\n"
                            "[USER_1]\nSHORT=CD;\nCOUNT=2;\n\n"
                            "[CD_0]\nMAGIC=3;\nCHANGE=-1.5;\nPERCENTAGE=50;\n\n";
    WayFernData doc;
    QString printed;
    QCOMPARE(read(doc, journey(counts, body), &printed), 0);
    const QString trace = QStringLiteral("\nWayfernIO::ReadFileUserAccount - hstr : %1"
                                         "\n                                 ID   : %2"
                                         "\n                                 val  : %3"
                                         "\n                                 perc : %4");
    QCOMPARE(printed,
             trace.arg("AB_0", "3", "-1.5000", "50.0000")
                 + trace.arg("AB_1", "-2", "20.0000", "100.0000")
                 + trace.arg("CD_0", "3", "-1.5000", "50.0000")
                 + QStringLiteral("\nWayfernIO::ReadFileUserAccount - section not found : CD_1\n"));
    QCOMPARE(doc.users.at(0)->kto.count(), 2);
    QCOMPARE(doc.users.at(1)->kto.count(), 1);
    QCOMPARE(doc.users.at(0)->kto.at(1)->type, QStringLiteral("deposit"));
}

void TestJourneyFile::accountTracePrintsHugeNumbersWhole()
{
    // Longer than any buffer a number is usually formatted in: the trace must still give
    // the whole "%.4f" text of the value and nothing else.
    const QByteArray body = "[USER_0]\nSHORT=AB;\nCOUNT=1;\n\n"
                            "[AB_0]\nMAGIC=1;\nCHANGE=1e100;\nPERCENTAGE=-1e80;\n\n";
    WayFernData doc;
    QString printed;
    QCOMPARE(read(doc, journey(withCount("USERCOUNT", 1), body), &printed), 0);
    QCOMPARE(printed,
             QStringLiteral("\nWayfernIO::ReadFileUserAccount - hstr : AB_0"
                            "\n                                 ID   : 1"
                            "\n                                 val  : "
                            "100000000000000001590289110975991804683608085639452813897813"
                            "27557747838772170381060813469985856815104.0000"
                            "\n                                 perc : "
                            "-10000000000000000002660986470836727653740240118120080909813"
                            "1977453489758916313088.0000"));
    QCOMPARE(doc.users.at(0)->kto.at(0)->change, 1e100);
}

void TestJourneyFile::emptyForeignValueReadsAsZero()
{
    WayFernData doc;
    QCOMPARE(read(doc, journey(withCount("COSTSCOUNT", 1), "[COSTS_0]\nFVAL=;\n\n")), 0);
    QCOMPARE(doc.costs.at(0)->fval, QStringLiteral("0.0"));
}

void TestJourneyFile::emptyFactorReadsAsOne()
{
    WayFernData doc;
    QCOMPARE(
        read(doc, journey(withCount("CURRCOUNT", 1), "[CURRENCY_0]\nSHORT-TERM=X;\nFACTOR=;\n\n")),
        0);
    QCOMPARE(doc.currencies.at(0)->factor, QStringLiteral("1.0"));
    QCOMPARE(doc.currencies.at(0)->invfactor, 1.0);
}

void TestJourneyFile::nullOrEmptyExchangeStaysAsWritten()
{
    QByteArray counts = withCount("COSTSCOUNT", 2);
    counts.replace("CURRCOUNT=0;", "CURRCOUNT=1;");
    WayFernData doc;
    QCOMPARE(read(doc,
                  journey(counts,
                          "[COSTS_0]\nCTYPE=EUR;\nEXCHANGE=(null);\n\n"
                          "[COSTS_1]\nCTYPE=EUR;\nEXCHANGE=;\n\n"
                          "[CURRENCY_0]\nSHORT-TERM=EUR;\nFACTOR=2.5;\n\n")),
             0);
    QCOMPARE(doc.costs.at(0)->exchange, QStringLiteral("(null)"));
    QCOMPARE(doc.costs.at(0)->exchangevalue, 0.0);
    QCOMPARE(doc.costs.at(1)->exchange, QStringLiteral(""));
    QCOMPARE(doc.costs.at(1)->exchangevalue, 0.0);
}

void TestJourneyFile::nullTextsAreWrittenEmpty()
{
    WayFernData doc;
    doc.tips.append();
    doc.currencies.append();
    doc.ttypes.append()->customs.append();
    WayfernIO io(&doc);
    const QString out = path(QStringLiteral("nulls.wfn"));
    QCOMPARE(io.WriteFile(out), 0);
    const QByteArray bytes = readBytes(out);
    QVERIFY(bytes.contains("[TIP_0]\nDATE=;\nTIPTYPE=;\nQUALITYTYPE=;\nNAME=;\n"));
    QVERIFY(bytes.contains("[CURRENCY_0]\nSHORT-TERM=;\nFACTOR=;\nFULL-NAME=;\nTYPE=;\n\n"));
    QVERIFY(bytes.contains("[TTYPE_0]\nTYPE=;\nCUSTOMCNT=1;\nCUSTOM_0=;\n\n"));
    QVERIFY(!bytes.contains("(null)"));
}

void TestJourneyFile::textWithSemicolonSurvivesSaveAndOpen()
{
    WayFernData doc;
    doc.journeyname = QStringLiteral("Lakes; and hills");
    CostsData *cost = doc.costs.append();
    cost->comment = QStringLiteral("a=b; c;");
    cost->fval = QStringLiteral("12.50");
    cost->exchange = QStringLiteral("1.0");
    cost->id = 1;
    TipData *tip = doc.tips.append();
    tip->name = QStringLiteral("Inn; the old one");
    tip->tiptype = QStringLiteral("Camping");
    CustomData *custom = tip->customs.append();
    custom->text = QStringLiteral("Pitch");
    custom->content = QStringLiteral("12; by the lake");
    UserData *user = doc.users.append();
    user->short_ = QStringLiteral("AB");
    user->street = QStringLiteral("Main St. 3; back door");
    WayfernIO io(&doc);
    const QString out = path(QStringLiteral("semi.wfn"));
    QCOMPARE(io.WriteFile(out), 0);
    WayFernData back;
    QCOMPARE(read(back, readBytes(out)), 0);
    QCOMPARE(back.journeyname, QStringLiteral("Lakes; and hills"));
    QCOMPARE(back.costs.at(0)->comment, QStringLiteral("a=b; c;"));
    QCOMPARE(back.tips.at(0)->name, QStringLiteral("Inn; the old one"));
    QCOMPARE(back.tips.at(0)->customs.at(0)->content, QStringLiteral("12; by the lake"));
    QCOMPARE(back.users.at(0)->street, QStringLiteral("Main St. 3; back door"));

    // And a second save writes the same records again.
    WayfernIO io2(&back);
    const QString again = path(QStringLiteral("semi2.wfn"));
    QCOMPARE(io2.WriteFile(again), 0);
    const QList<QByteArray> a = undatedLines(readBytes(out));
    const QList<QByteArray> b = undatedLines(readBytes(again));
    QCOMPARE(a.mid(0, a.size() - 2), b.mid(0, b.size() - 2));
    QVERIFY(a.contains("COMMENT=a=b; c;;"));
}

void TestJourneyFile::multiLineCommentLosesTheRestOfItsRecord()
{
    WayFernData doc;
    CostsData *cost = doc.costs.append();
    cost->comment = QStringLiteral("line one\nTOWN=x\n\nlast");
    cost->id = 5;
    CostsData *next = doc.costs.append();
    next->id = 6;
    WayfernIO io(&doc);
    const QString out = path(QStringLiteral("multi.wfn"));
    QCOMPARE(io.WriteFile(out), 0);
    WayFernData back;
    QString printed;
    QCOMPARE(read(back, readBytes(out), &printed), 0);
    QCOMPARE(back.costs.count(), 2);
    // "COMMENT=line one" has no ";": the field comes back empty; "TOWN=x" is unknown; the
    // empty line ends the section, so ID and the rest are lost.
    QCOMPARE(back.costs.at(0)->comment, QStringLiteral(""));
    QCOMPARE(back.costs.at(0)->id, -128);
    QCOMPARE(back.costs.at(1)->id, 6);
    QVERIFY(printed.contains(
        QStringLiteral("\nWayfernIO::ReadFileCosts(COSTS_0) : unknown header-entry : TOWN\n")));
}

void TestJourneyFile::equalShortNamesShareAccountSections()
{
    WayFernData doc;
    for (int u = 0; u < 2; ++u) {
        UserData *user = doc.users.append();
        user->short_ = QStringLiteral("AB");
        for (int k = 0; k <= u; ++k)
            user->addKto(10 * (u + 1) + k);
    }
    WayfernIO io(&doc);
    const QString out = path(QStringLiteral("equal.wfn"));
    QCOMPARE(io.WriteFile(out), 0);
    WayFernData back;
    QCOMPARE(read(back, readBytes(out)), 0);
    // The second user reads the first user's lines from the top, as many as its count.
    QCOMPARE(back.users.at(0)->kto.count(), 1);
    QCOMPARE(back.users.at(0)->kto.at(0)->magic, 10);
    QCOMPARE(back.users.at(1)->kto.count(), 2);
    QCOMPARE(back.users.at(1)->kto.at(0)->magic, 10);
    QCOMPARE(back.users.at(1)->kto.at(1)->magic, 21);
}

void TestJourneyFile::customCountAboveLinesAtHandMergesNextSection()
{
    QByteArray counts = withCount("TIPCOUNT", 2);
    const QByteArray body =
        "[TIP_0]\nNAME=First;\nCUSTOMCNT=2;\nCUSTOMTEXT_0=Rooms;\nCUSTOMCONT_0=3;\n\n"
        "[TIP_1]\nNAME=Second;\nTOWN=Oslo;\n\n";
    WayFernData doc;
    QString printed;
    QCOMPARE(read(doc, journey(counts, body), &printed), 0);
    // The custom reader consumed the empty line, so the walk of TIP_0 runs into TIP_1.
    const TipData *first = doc.tips.at(0);
    QCOMPARE(first->customs.count(), 2);
    QCOMPARE(first->customs.at(0)->text, QStringLiteral("Rooms"));
    QCOMPARE(first->name, QStringLiteral("Second"));
    QCOMPARE(first->town, QStringLiteral("Oslo"));
    QCOMPARE(doc.tips.count(), 1);
    QCOMPARE(printed,
             QStringLiteral("\nWayfernIO::ReadFileTips(TIP_0) : unknown header-entry : \n"
                            "\nWayfernIO::ReadFileTips - section not found : TIP_1\n"));
}

void TestJourneyFile::sectionOutOfOrderLosesRestOfGroup()
{
    QByteArray counts = withCount("CTYPECOUNT", 3);
    counts.replace("QTYPECOUNT=0;", "QTYPECOUNT=1;");
    const QByteArray body = "[CTYPE_1]\nTYPE=B;\n\n[CTYPE_0]\nTYPE=A;\n\n[CTYPE_2]\nTYPE=C;\n\n"
                            "[QTYPE_0]\nTYPE=good;\n\n";
    WayFernData doc;
    QString printed;
    QCOMPARE(read(doc, journey(counts, body), &printed), 0);
    QCOMPARE(doc.ctypes.count(), 1);
    QCOMPARE(doc.ctypes.at(0)->type, QStringLiteral("A"));
    QCOMPARE(printed, QStringLiteral("\nWayfernIO::ReadFileCType - section not found : CTYPE_1\n"));
    // Other groups may stand anywhere.
    QCOMPARE(doc.qtypes.count(), 1);
}

void TestJourneyFile::countKeyWrittenFromRealAccountLines()
{
    WayFernData doc;
    UserData *user = doc.users.append();
    user->short_ = QStringLiteral("AB");
    user->count = 17;
    user->addKto(1);
    WayfernIO io(&doc);
    const QString out = path(QStringLiteral("count.wfn"));
    QCOMPARE(io.WriteFile(out), 0);
    QVERIFY(readBytes(out).contains("VALUE=0.0000;\nCOUNT=1;\n\n[AB_0]\nDATE=;\nTYPE=;\nMAGIC=1;\n"
                                    "PERCENTAGE=0.00;\nCHANGE=0.0000;\n\n\n\n#===="));
}

void TestJourneyFile::amountsRoundedOnWriting()
{
    WayFernData doc;
    UserData *user = doc.users.append();
    user->short_ = QStringLiteral("AB");
    user->value = -1.234567;
    KtoData *line = user->addKto(1);
    line->percentage = 33.33333;
    line->change = -0.123456;
    WayfernIO io(&doc);
    const QString out = path(QStringLiteral("round.wfn"));
    QCOMPARE(io.WriteFile(out), 0);
    WayFernData back;
    QCOMPARE(read(back, readBytes(out)), 0);
    QCOMPARE(back.users.at(0)->value, -1.2346);
    QCOMPARE(back.users.at(0)->kto.at(0)->percentage, 33.33);
    QCOMPARE(back.users.at(0)->kto.at(0)->change, -0.1235);
}

void TestJourneyFile::latinOneTextIsWrittenAsLatinOneBytes()
{
    WayFernData doc;
    doc.journeyname = QStringLiteral("M\u00fcnchen \u00e0 P\u00e9rigueux");
    WayfernIO io(&doc);
    const QString out = path(QStringLiteral("latin1.wfn"));
    QCOMPARE(io.WriteFile(out), 0);
    QVERIFY(readBytes(out).contains("JOURNEY-NAME=M\xfcnchen \xe0 P\xe9rigueux;\n"));
    WayFernData back;
    QCOMPARE(read(back, readBytes(out)), 0);
    QCOMPARE(back.journeyname, doc.journeyname);
}

void TestJourneyFile::textOutsideLatinOneIsKeptAsUtf8()
{
    WayFernData doc;
    doc.journeyname = QStringLiteral("Krak\u00f3w \u0141\u00f3d\u017a \u010cesk\u00fd \U0001F30D");
    doc.basecurrency = QStringLiteral("\u20ac");
    CostsData *cost = doc.costs.append();
    cost->comment = QStringLiteral("caf\u00e9 \u20ac5");
    WayfernIO io(&doc);
    const QString out = path(QStringLiteral("utf8.wfn"));
    QCOMPARE(io.WriteFile(out), 0);
    const QByteArray bytes = readBytes(out);
    QVERIFY(bytes.contains("JOURNEY-NAME=" + doc.journeyname.toUtf8() + ";\n"));
    QVERIFY(bytes.contains("COMMENT=caf\xc3\xa9 \xe2\x82\xac"
                           "5;\n"));
    WayFernData back;
    QCOMPARE(read(back, bytes), 0);
    QCOMPARE(back.journeyname, doc.journeyname);
    QCOMPARE(back.basecurrency, doc.basecurrency);
    QCOMPARE(back.costs.at(0)->comment, cost->comment);
}

void TestJourneyFile::latinOneTextThatLooksLikeUtf8ReadsBackUnchanged()
{
    // In Latin-1, "\u00c3\u00a9" is the bytes C3 A9: valid UTF-8 for one other letter.
    WayFernData doc;
    doc.journeyname = QStringLiteral("\u00c3\u00a9t\u00c3\u00a9");
    WayfernIO io(&doc);
    const QString out = path(QStringLiteral("lookalike.wfn"));
    QCOMPARE(io.WriteFile(out), 0);
    WayFernData back;
    QCOMPARE(read(back, readBytes(out)), 0);
    QCOMPARE(back.journeyname, doc.journeyname);
}

void TestJourneyFile::latinOneFileWithHighBytesReadsAsLatinOne()
{
    WayFernData doc;
    // "\xc3\x28" is no valid UTF-8: the whole file is Latin-1.
    QCOMPARE(read(doc, journey(zeroCounts + "JOURNEY-NAME=\xc3\x28 \xe9t\xe9;\n", "")), 0);
    QCOMPARE(doc.journeyname, QStringLiteral("\u00c3( \u00e9t\u00e9"));
}

void TestJourneyFile::failedSaveKeepsOldFile()
{
    const QString target = path(QStringLiteral("trip.wfn"));
    const QByteArray old = readBytes(fixture(QStringLiteral("northern.wfn")));
    QVERIFY(writeBytes(target, old));
    WayFernData doc;
    for (int i = 0; i < 2000; ++i)
        doc.costs.append()->comment = QStringLiteral("a cost that makes the file large");
    WayfernIO io(&doc);

    // The disk "fills up" in the middle of the save: files may not grow beyond 4 KiB.
    struct rlimit saved;
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &saved), 0);
    struct rlimit small = saved;
    small.rlim_cur = 4096;
    auto oldHandler = signal(SIGXFSZ, SIG_IGN);
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &small), 0);
    StdoutCapture out;
    const int result = io.WriteFile(target);
    const QString printed = out.text();
    setrlimit(RLIMIT_FSIZE, &saved);
    signal(SIGXFSZ, oldHandler);

    QCOMPARE(result, -1);
    QCOMPARE(printed, QStringLiteral("\nWayfernIO::WriteFile(%1) : file not open\n").arg(target));
    QCOMPARE(readBytes(target), old);
    QCOMPARE(QDir(dir.path()).entryList(QDir::Files), QStringList{QStringLiteral("trip.wfn")});

    // Without the limit the save replaces the file whole, and leaves nothing else behind.
    QCOMPARE(io.WriteFile(target), 0);
    QVERIFY(readBytes(target).contains("COSTSCOUNT=2000;"));
    QCOMPARE(QDir(dir.path()).entryList(QDir::Files), QStringList{QStringLiteral("trip.wfn")});
}

void TestJourneyFile::unwritablePathFailsWithMessage()
{
    // The parent of this path is a file: nothing can be created there.
    const QString parent = path(QStringLiteral("plain"));
    QVERIFY(writeBytes(parent, "x"));
    const QString impossible = parent + QStringLiteral("/trip.wfn");
    WayFernData doc;
    WayfernIO io(&doc);
    StdoutCapture out;
    QCOMPARE(io.WriteFile(impossible), -1);
    QCOMPARE(out.text(),
             QStringLiteral("\nWayfernIO::WriteFile(%1) : file not open\n").arg(impossible));
    QCOMPARE(readBytes(parent), QByteArray("x"));
}

void TestJourneyFile::writeToDirectoryFailsWithMessage()
{
    WayFernData doc;
    WayfernIO io(&doc);
    StdoutCapture out;
    QCOMPARE(io.WriteFile(dir.path()), -1);
    QCOMPARE(out.text(),
             QStringLiteral("\nWayfernIO::WriteFile(%1) : file not open\n").arg(dir.path()));
    QVERIFY(QFileInfo(dir.path()).isDir());
}

void TestJourneyFile::readProblemTellsMissingFileNoHeaderAndMissingSection()
{
    WayFernData doc;
    WayfernIO io(&doc);
    const QString file = path(QStringLiteral("in.wfn"));
    StdoutCapture out;

    QCOMPARE(io.ReadFile(path(QStringLiteral("missing.wfn"))), -1);
    QCOMPARE(io.readProblem, WayfernIO::ReadProblem::NotOpened);
    QCOMPARE(io.readProblemDetail, QString::fromLocal8Bit(strerror(ENOENT)));

    QVERIFY(writeBytes(file, "no journey\n"));
    QCOMPARE(io.ReadFile(file), -1);
    QCOMPARE(io.readProblem, WayfernIO::ReadProblem::NoHeader);

    // Read with what was found, but not whole: the first missing section is named.
    QByteArray counts = withCount("COSTSCOUNT", 3);
    counts.replace("CURRCOUNT=0;", "CURRCOUNT=2;");
    QVERIFY(writeBytes(file, journey(counts, "[COSTS_0]\nFVAL=1;\n\n[CURRENCY_0]\n\n")));
    QCOMPARE(io.ReadFile(file), 0);
    QCOMPARE(io.readProblem, WayfernIO::ReadProblem::SectionMissing);
    QCOMPARE(io.readProblemDetail, QStringLiteral("COSTS_1"));
    QCOMPARE(doc.costs.count(), 1);

    QVERIFY(writeBytes(file, journey(zeroCounts, "")));
    QCOMPARE(io.ReadFile(file), 0);
    QCOMPARE(io.readProblem, WayfernIO::ReadProblem::None);
    QCOMPARE(io.readProblemDetail, QString());
}

void TestJourneyFile::writeProblemGivesTheSystemsReasonAndClearsOnSuccess()
{
    const QString parent = path(QStringLiteral("plain"));
    QVERIFY(writeBytes(parent, "x"));
    WayFernData doc;
    WayfernIO io(&doc);
    StdoutCapture out;
    QCOMPARE(io.WriteFile(parent + QStringLiteral("/trip.wfn")), -1);
    QCOMPARE(io.writeProblem, QString::fromLocal8Bit(strerror(ENOTDIR)));
    QCOMPARE(io.WriteFile(dir.path()), -1);
    QCOMPARE(io.writeProblem, QString::fromLocal8Bit(strerror(EISDIR)));
    QCOMPARE(io.WriteFile(path(QStringLiteral("trip.wfn"))), 0);
    QCOMPARE(io.writeProblem, QString());
}

void TestJourneyFile::journeyInMemoryReadsAsTheFileWithTheSameTrace()
{
    // Account lines, an unknown key and a missing section: every kind of printed line.
    const QByteArray bytes = readBytes(fixture(QStringLiteral("northern.wfn")))
                                 .replace("[CURRENCY_1]", "[CURRENCY_9]")
                                 .replace("[USER_0]\n", "[USER_0]\nPET=cat;\n");
    const QString file = path(QStringLiteral("northern.wfn"));
    QVERIFY(writeBytes(file, bytes));

    WayFernData fromFile;
    WayfernIO fileReader(&fromFile);
    StdoutCapture fileOut;
    QCOMPARE(fileReader.ReadFile(file), 0);
    const QString filePrinted = fileOut.text();

    WayFernData fromMemory;
    WayfernIO memoryReader(&fromMemory);
    QBuffer buffer;
    buffer.setData(bytes);
    StdoutCapture memoryOut;
    QCOMPARE(memoryReader.ReadFile(&buffer, file), 0);
    const QString memoryPrinted = memoryOut.text();

    QVERIFY(filePrinted.contains(QStringLiteral("unknown header-entry : PET")));
    QVERIFY(filePrinted.contains(QStringLiteral("section not found : CURRENCY_1")));
    QVERIFY(filePrinted.contains(QStringLiteral("ReadFileUserAccount - hstr : ")));
    QCOMPARE(memoryPrinted, filePrinted);
    QCOMPARE(memoryReader.readProblem, WayfernIO::ReadProblem::SectionMissing);
    QCOMPARE(memoryReader.readProblemDetail, fileReader.readProblemDetail);
    QCOMPARE(fromMemory.costs.count(), fromFile.costs.count());
    QCOMPARE(fromMemory.users.count(), fromFile.users.count());
    QVERIFY(fromFile.users.count() > 0);
    QCOMPARE(fromMemory.users.at(0)->kto.count(), fromFile.users.at(0)->kto.count());
    QCOMPARE(fromMemory.currencies.count(), 1);
}

void TestJourneyFile::journeyInMemoryWritesTheBytesOfTheFile()
{
    WayFernData doc;
    {
        StdoutCapture quiet;
        QCOMPARE(WayfernIO(&doc).ReadFile(fixture(QStringLiteral("northern.wfn"))), 0);
    }
    const QString file = path(QStringLiteral("out.wfn"));
    WayfernIO io(&doc);
    QCOMPARE(io.WriteFile(file), 0);
    QBuffer buffer;
    StdoutCapture out;
    QCOMPARE(io.WriteFile(&buffer, file), 0);
    QCOMPARE(out.text(), QString());
    QVERIFY(buffer.isOpen());
    QCOMPARE(undatedLines(buffer.data()), undatedLines(readBytes(file)));
    QVERIFY(buffer.data().endsWith("\n##EOF WAYFERN DATA FILE " + file.toUtf8() + "\n"));

    // The name given stands in the end marker.
    QBuffer named;
    QCOMPARE(io.WriteFile(&named, QStringLiteral("trip in memory")), 0);
    QVERIFY(named.data().endsWith("\n##EOF WAYFERN DATA FILE trip in memory\n"));
}

void TestJourneyFile::deviceThatCannotBeReadIsReportedByItsName()
{
    WayFernData doc;
    doc.journeyname = QStringLiteral("kept");
    WayfernIO io(&doc);
    QBuffer writeOnly;
    QVERIFY(writeOnly.open(QIODevice::WriteOnly));
    StdoutCapture out;
    QCOMPARE(io.ReadFile(&writeOnly, QStringLiteral("memo")), -1);
    QCOMPARE(out.text(), QStringLiteral("\nWayfernIO::ReadFile - file not found (memo)\n"));
    QCOMPARE(io.readProblem, WayfernIO::ReadProblem::NotOpened);
    QCOMPARE(doc.journeyname, QStringLiteral("kept"));
}

void TestJourneyFile::deviceThatCannotBeWrittenIsReportedByItsName()
{
    WayFernData doc;
    WayfernIO io(&doc);
    QBuffer readOnly;
    QVERIFY(readOnly.open(QIODevice::ReadOnly));
    StdoutCapture out;
    QCOMPARE(io.WriteFile(&readOnly, QStringLiteral("memo")), -1);
    QCOMPARE(out.text(), QStringLiteral("\nWayfernIO::WriteFile(memo) : file not open\n"));
    QVERIFY(!io.writeProblem.isEmpty());
    QCOMPARE(readOnly.data(), QByteArray());
}

QTEST_GUILESS_MAIN(TestJourneyFile)
#include "tst_journeyfile.moc"
