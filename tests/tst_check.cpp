// The command-line check: run as a program on a journey, it prints what the journey holds
// and the overview's figures computed as the window computes them.

#include "coretestutil.h"
#include "wayfernversion.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <cerrno>
#include <cstring>

namespace {
struct Run
{
    int exitCode = -1;
    QString out;
    QString err;
    QByteArray outBytes;
};

// How a check is run: with the configuration directory named (so that the document finds
// its variable) unless `withConfig` is false, in `workingDir` when one is given.
struct How
{
    bool withConfig = true;
    QString workingDir;
};

Run runCheck(const QStringList &args, const How &how = How())
{
    QProcess process;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    if (how.withConfig)
        env.insert(QStringLiteral("WAYFERNCFG"), QStringLiteral("."));
    else
        env.remove(QStringLiteral("WAYFERNCFG"));
    process.setProcessEnvironment(env);
    if (!how.workingDir.isEmpty())
        process.setWorkingDirectory(how.workingDir);
    process.start(QStringLiteral(WAYFERN_CHECK), args);
    Run run;
    if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit)
        return run;
    run.exitCode = process.exitCode();
    run.outBytes = process.readAllStandardOutput();
    run.out = QString::fromUtf8(run.outBytes);
    run.err = QString::fromUtf8(process.readAllStandardError());
    return run;
}

// The rows of a CSV as Python's csv module reads them; a single row holding "<failed>" when
// the module could not read them.
QList<QStringList> pythonCsvRows(const QByteArray &csv)
{
    QProcess python;
    python.start(QStringLiteral("python3"),
                 {QStringLiteral("-c"),
                  QStringLiteral("import csv, io, json, sys\n"
                                 "text = sys.stdin.buffer.read().decode('utf-8')\n"
                                 "rows = list(csv.reader(io.StringIO(text, newline=''), "
                                 "strict=True))\n"
                                 "sys.stdout.write(json.dumps(rows))\n")});
    QList<QStringList> rows;
    if (!python.waitForStarted(30000))
        return {{QStringLiteral("<failed>")}};
    python.write(csv);
    python.closeWriteChannel();
    if (!python.waitForFinished(60000) || python.exitCode() != 0)
        return {{QStringLiteral("<failed>")}};
    const QJsonArray array = QJsonDocument::fromJson(python.readAllStandardOutput()).array();
    for (const QJsonValue &row : array) {
        QStringList cells;
        for (const QJsonValue &cell : row.toArray())
            cells += cell.toString();
        rows += cells;
    }
    return rows;
}

QString fixtureJourney()
{
    return fixture(QStringLiteral("check-journey.wfn"));
}

// The line that the reader prints for each account line it reads.
QString accountTrace(const char *section, int magic, const char *change, const char *percentage)
{
    const QString indent(33, QLatin1Char(' '));
    return QStringLiteral("\nWayfernIO::ReadFileUserAccount - hstr : %1")
               .arg(QLatin1String(section))
        + QStringLiteral("\n%1ID   : %2").arg(indent).arg(magic)
        + QStringLiteral("\n%1val  : %2").arg(indent, QLatin1String(change))
        + QStringLiteral("\n%1perc : %2").arg(indent, QLatin1String(percentage));
}

// What the check prints of check-journey.wfn up to its balances. Four costs in the order
// 05.06., 01.06., 03.06. and 04.06.2002: 80 NOK at a rate of 8 (10.00 EUR), 45.50 EUR,
// 12.25 CHF at a rate of 0.5 (24.50 EUR) and 7 in a currency that the journey does not
// know (nothing). Sorted, they span 01.06. to 05.06.2002: five days.
QString figuresOfCheckJourney()
{
    return QStringLiteral("\njourney   : Alpine Loop\n"
                          "base      : EUR\n"
                          "costs     : 4\n"
                          "tips      : 1\n"
                          "travellers: 3\n"
                          "currencies: 3\n"
                          "categories: 3 cost, 0 tip, 0 quality\n"
                          "total     : 80.00 EUR\n"
                          "overview  : total 80.00 EUR, per day 16.00 EUR\n");
}
// The help that --help prints and that a usage error prints after its reason.
QString usage()
{
    const Run run = runCheck({QStringLiteral("--help")});
    return run.exitCode == 0 ? run.out : QStringLiteral("<--help failed>");
}
} // namespace

class TestCheck : public QObject
{
    Q_OBJECT

private slots:
    void printsTotalPerDayAndBalancesOfTheWindow();
    void traceSendsTheReadersLinesToStandardError();
    void journeyWithoutAccountsPrintsNoBalance();
    void missingJourneySaysWhyOnStandardErrorAndFails();
    void withoutJourneyPrintsUsage();
    void helpPrintsTheUsageOnStandardOutput();
    void versionPrintsTheVersion();
    void everyOptionWorksInBothOrders_data();
    void everyOptionWorksInBothOrders();
    void unknownOptionIsAUsageError();
    void twoJourneysAreAUsageError();
    void reportFollowedByAnOptionIsAUsageErrorAndWritesNothing();
    void outputWithoutCsvIsAUsageError();
    void csvOnStandardOutputReadsBackAsCsv_data();
    void csvOnStandardOutputReadsBackAsCsv();
    void csvToAFileHoldsTheBytesOfStandardOutput();
    void csvToAPlaceThatCannotBeWrittenFails();
    void csvRateIsTheAppliedRateOfEachOfThreeCurrencies();
    void settlePrintsBalancesKittyTransfersAndWhetherTheyAreFewest();
    void settleNamesTheCostsWhoseSharesDoNotAddUp();
    void csvWritesTheCostsAndTheAccountsOnly();
    void csvOfAnUnknownKindPrintsUsage();
    void settleOfAMissingJourneySaysSoOnStandardError();
    void reportWritesThePdfAndTheHtmlPage();
    void reportWithoutAFileNamePrintsUsage();
    void reportToAPlaceThatCannotBeWrittenFails();
};

void TestCheck::printsTotalPerDayAndBalancesOfTheWindow()
{
    const Run run = runCheck({fixtureJourney()});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.err, QString());
    // The stored VALUE of each traveller is stale (0, 0 and 99): the balances are the sums
    // of the account lines, as the overview shows them.
    const QString expected = figuresOfCheckJourney()
        + QStringLiteral("balance   : AB 32.75 EUR\n"
                         "balance   : CD -27.25 EUR\n"
                         "balance   : EF 20.00 EUR\n");
    // Line by line, so that a failure names the line.
    QCOMPARE(run.out.split(QLatin1Char('\n')), expected.split(QLatin1Char('\n')));
}

void TestCheck::traceSendsTheReadersLinesToStandardError()
{
    const Run quiet = runCheck({fixtureJourney()});
    for (const QStringList &args : {QStringList{QStringLiteral("--trace"), fixtureJourney()},
                                    QStringList{fixtureJourney(), QStringLiteral("--trace")}}) {
        const Run run = runCheck(args);
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(run.out, quiet.out);
        const QString expected = accountTrace("AB_0", 1, "-5.0000", "50.0000")
            + accountTrace("AB_1", 3, "-12.2500", "50.0000")
            + accountTrace("AB_2", -2, "50.0000", "100.0000")
            + accountTrace("CD_0", 1, "-5.0000", "50.0000")
            + accountTrace("CD_1", 3, "-12.2500", "50.0000")
            + accountTrace("CD_2", -3, "-10.0000", "100.0000")
            + accountTrace("EF_0", -2, "20.0000", "100.0000");
        QCOMPARE(run.err.split(QLatin1Char('\n')), expected.split(QLatin1Char('\n')));
    }
    // Without the configuration's variable, its line joins the trace, on standard error too.
    const Run run =
        runCheck({QStringLiteral("--trace"), QStringLiteral("--settle"), fixtureJourney()},
                 How{false, QString()});
    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.err.startsWith(QStringLiteral("\nWayFernData::getEnv(WAYFERNCFG) : not found")));
    QVERIFY(run.out.startsWith(QStringLiteral("balance   : AB 32.75 EUR\n")));
}

void TestCheck::journeyWithoutAccountsPrintsNoBalance()
{
    QByteArray bytes = readBytes(fixture(QStringLiteral("check-journey.wfn")));
    QVERIFY(bytes.contains("USERFLAG=TRUE;"));
    bytes.replace("USERFLAG=TRUE;", "USERFLAG=FALSE;");
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("noaccounts.wfn"));
    QVERIFY(writeBytes(path, bytes));

    const Run run = runCheck({path});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.err, QString());
    QCOMPARE(run.out, figuresOfCheckJourney());
}

void TestCheck::missingJourneySaysWhyOnStandardErrorAndFails()
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("none.wfn"));
    const QString why =
        QStringLiteral("wayfern-check: cannot read %1: No such file or directory\n").arg(path);
    Run run = runCheck({path});
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.out, QString());
    QCOMPARE(run.err, why);
    // With the trace, the reader's own line comes first.
    run = runCheck({path, QStringLiteral("--trace")});
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.out, QString());
    QCOMPARE(run.err,
             QStringLiteral("\nWayfernIO::ReadFile - file not found (%1)\n").arg(path) + why);
    // A file that is no journey.
    const QString plain = dir.filePath(QStringLiteral("plain.wfn"));
    QVERIFY(writeBytes(plain, "hello\n"));
    run = runCheck({QStringLiteral("--csv"), QStringLiteral("costs"), plain});
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.out, QString());
    QCOMPARE(run.err,
             QStringLiteral("wayfern-check: cannot read %1: not a journey (no Header "
                            "section)\n")
                 .arg(plain));
}

void TestCheck::withoutJourneyPrintsUsage()
{
    const Run run = runCheck({});
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(run.out, QString());
    QCOMPARE(run.err, QStringLiteral("wayfern-check: no journey given\n") + usage());
}

void TestCheck::helpPrintsTheUsageOnStandardOutput()
{
    for (const char *option : {"--help", "-h"}) {
        const Run run = runCheck({QString::fromLatin1(option)});
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(run.err, QString());
        QVERIFY(run.out.startsWith(QStringLiteral("Usage: %1 [options] JOURNEY.wfn\n")
                                       .arg(QStringLiteral(WAYFERN_CHECK))));
        for (const char *named :
             {"--settle", "--csv <costs|accounts>", "-o, --output <FILE>", "--report <FILE.pdf>",
              "--trace", "-v, --version", "-h, --help", "JOURNEY.wfn"})
            QVERIFY2(run.out.contains(QLatin1String(named)), named);
        QVERIFY(run.out.endsWith(QLatin1Char('\n')));
    }
    // Help wins over the rest of the line, even a journey that does not exist.
    const Run run = runCheck({QStringLiteral("/nowhere.wfn"), QStringLiteral("--help")});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.out, usage());
}

void TestCheck::versionPrintsTheVersion()
{
    for (const char *option : {"--version", "-v"}) {
        const Run run = runCheck({QString::fromLatin1(option)});
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(run.err, QString());
        QCOMPARE(run.out, QStringLiteral("wayfern-check " WAYFERN_VERSION "\n"));
    }
}

void TestCheck::everyOptionWorksInBothOrders_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::newRow("settle") << QStringList{QStringLiteral("--settle")};
    QTest::newRow("csv costs") << QStringList{QStringLiteral("--csv"), QStringLiteral("costs")};
    QTest::newRow("csv accounts") << QStringList{QStringLiteral("--csv"),
                                                 QStringLiteral("accounts")};
    QTest::newRow("csv=costs") << QStringList{QStringLiteral("--csv=costs")};
    QTest::newRow("trace") << QStringList{QStringLiteral("--trace")};
    QTest::newRow("report") << QStringList{QStringLiteral("--report"), QStringLiteral("r.pdf")};
    QTest::newRow("csv -o") << QStringList{QStringLiteral("--csv"), QStringLiteral("costs"),
                                           QStringLiteral("-o"), QStringLiteral("c.csv")};
    QTest::newRow("-o csv") << QStringList{QStringLiteral("-o"), QStringLiteral("c.csv"),
                                           QStringLiteral("--csv"), QStringLiteral("costs")};
}

void TestCheck::everyOptionWorksInBothOrders()
{
    QFETCH(QStringList, options);
    QTemporaryDir before;
    QTemporaryDir after;
    qunsetenv("QT_QPA_PLATFORM");
    const Run first = runCheck(options + QStringList{fixtureJourney()}, How{true, before.path()});
    const Run last = runCheck(QStringList{fixtureJourney()} + options, How{true, after.path()});
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QCOMPARE(first.exitCode, 0);
    QCOMPARE(last.exitCode, 0);
    // The overview would start with an empty line: a mode's answer does not.
    if (!options.contains(QStringLiteral("--trace")))
        QVERIFY(!first.out.startsWith(QLatin1Char('\n')));
    QCOMPARE(last.outBytes, first.outBytes);
    QCOMPARE(last.err, first.err);
    const QStringList files = QDir(before.path()).entryList(QDir::Files, QDir::Name);
    QCOMPARE(QDir(after.path()).entryList(QDir::Files, QDir::Name), files);
    for (const QString &name : files) {
        if (!name.endsWith(QLatin1String(".pdf")))
            QCOMPARE(readBytes(after.filePath(name)), readBytes(before.filePath(name)));
    }
}

void TestCheck::unknownOptionIsAUsageError()
{
    const Run run = runCheck({QStringLiteral("--sttle"), fixtureJourney()});
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(run.out, QString());
    QCOMPARE(run.err, QStringLiteral("wayfern-check: Unknown option 'sttle'.\n") + usage());
}

void TestCheck::twoJourneysAreAUsageError()
{
    const Run run = runCheck({QStringLiteral("--settle"), fixtureJourney(), fixtureJourney()});
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(run.out, QString());
    QCOMPARE(run.err, QStringLiteral("wayfern-check: one journey at a time\n") + usage());
}

void TestCheck::reportFollowedByAnOptionIsAUsageErrorAndWritesNothing()
{
    QTemporaryDir dir;
    const Run run =
        runCheck({QStringLiteral("--report"), QStringLiteral("--settle"), fixtureJourney()},
                 How{true, dir.path()});
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(run.out, QString());
    QVERIFY(run.err.contains(
        QStringLiteral("wayfern-check: option --report needs a value, not '--settle'\n")));
    QVERIFY(run.err.endsWith(usage()));
    QCOMPARE(QDir(dir.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList());
}

void TestCheck::outputWithoutCsvIsAUsageError()
{
    QTemporaryDir dir;
    const Run run = runCheck({QStringLiteral("--settle"), QStringLiteral("-o"),
                              QStringLiteral("out.txt"), fixtureJourney()},
                             How{true, dir.path()});
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(run.out, QString());
    QCOMPARE(run.err, QStringLiteral("wayfern-check: -o goes with --csv only\n") + usage());
    QCOMPARE(QDir(dir.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList());
}

void TestCheck::csvOnStandardOutputReadsBackAsCsv_data()
{
    QTest::addColumn<bool>("withConfig");
    QTest::newRow("configuration named") << true;
    QTest::newRow("no configuration variable") << false;
}

void TestCheck::csvOnStandardOutputReadsBackAsCsv()
{
    QFETCH(bool, withConfig);
    Run run = runCheck({fixtureJourney(), QStringLiteral("--csv"), QStringLiteral("costs")},
                       How{withConfig, QString()});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.err, QString());
    QList<QStringList> rows = pythonCsvRows(run.outBytes);
    QCOMPARE(rows.size(), 5);
    QCOMPARE(
        rows.at(0),
        QStringList({"date", "type", "comment", "foreign value", "currency", "rate", "base value",
                     "base currency", "shared", "AB", "CD", "EF", "booked rate"}));
    for (const QStringList &row : rows)
        QCOMPARE(row.size(), 13);
    QCOMPARE(rows.at(2),
             QStringList({"03.06.2002", "Train", "Pass", "12.25", "CHF", "0.5000", "24.50", "EUR",
                          "yes", "12.25", "12.25", "", "0.5000"}));
    QCOMPARE(rows.at(3).at(4), QStringLiteral("XYZ"));
    QCOMPARE(rows.at(3).at(5), QString());

    run = runCheck({QStringLiteral("--csv"), QStringLiteral("accounts"), fixtureJourney()},
                   How{withConfig, QString()});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.err, QString());
    rows = pythonCsvRows(run.outBytes);
    // Three account lines of AB, three of CD, one of EF.
    QCOMPARE(rows.size(), 8);
    QCOMPARE(rows.at(0), QStringList({"traveller", "date", "type", "change", "running total"}));
    for (const QStringList &row : rows)
        QCOMPARE(row.size(), 5);
    QCOMPARE(rows.at(7).at(0), QStringLiteral("EF"));
    QCOMPARE(rows.at(7).at(4), QStringLiteral("20.00"));
}

void TestCheck::csvToAFileHoldsTheBytesOfStandardOutput()
{
    QTemporaryDir dir;
    for (const char *kind : {"costs", "accounts"}) {
        const QString what = QString::fromLatin1(kind);
        const QString path = dir.filePath(what + QStringLiteral(".csv"));
        const Run toFile =
            runCheck({QStringLiteral("--csv"), what, fixtureJourney(), QStringLiteral("-o"), path},
                     How{false, QString()});
        QCOMPARE(toFile.exitCode, 0);
        QCOMPARE(toFile.out, QString());
        QCOMPARE(toFile.err, QString());
        const Run toOutput = runCheck({QStringLiteral("--csv"), what, fixtureJourney()});
        QCOMPARE(toOutput.exitCode, 0);
        QVERIFY(!toOutput.outBytes.isEmpty());
        QCOMPARE(readBytes(path), toOutput.outBytes);
        QCOMPARE(readBytes(path), readBytes(fixture(QStringLiteral("check-%1.csv").arg(what))));
    }
}

void TestCheck::csvToAPlaceThatCannotBeWrittenFails()
{
    QTemporaryDir dir;
    const QString plain = dir.filePath(QStringLiteral("plain"));
    QVERIFY(writeBytes(plain, "x"));
    const QString path = plain + QStringLiteral("/c.csv");
    const Run run = runCheck({QStringLiteral("--csv"), QStringLiteral("costs"),
                              QStringLiteral("--output"), path, fixtureJourney()});
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.out, QString());
    QVERIFY(run.err.startsWith(QStringLiteral("wayfern-check: could not write %1: ").arg(path)));
    QCOMPARE(readBytes(plain), QByteArray("x"));
}

void TestCheck::csvRateIsTheAppliedRateOfEachOfThreeCurrencies()
{
    // The francs' factor moved on after the train was booked at 0.5: 36.00 CHF are now
    // 24.00 EUR at 1.5, and the booked rate stays what it was.
    QByteArray bytes = readBytes(fixtureJourney());
    const QByteArray train = "FVAL=12.25;";
    const QByteArray franc = "SHORT-TERM=CHF;\nFACTOR=0.5;";
    QVERIFY(bytes.contains(train));
    QVERIFY(bytes.contains(franc));
    bytes.replace(train, "FVAL=36.00;");
    bytes.replace(franc, "SHORT-TERM=CHF;\nFACTOR=1.5;");
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("moved.wfn"));
    QVERIFY(writeBytes(path, bytes));

    const Run run = runCheck({QStringLiteral("--csv"), QStringLiteral("costs"), path});
    QCOMPARE(run.exitCode, 0);
    const QList<QStringList> rows = pythonCsvRows(run.outBytes);
    QCOMPARE(rows.size(), 5);
    const int rate = rows.at(0).indexOf(QStringLiteral("rate"));
    const int booked = rows.at(0).indexOf(QStringLiteral("booked rate"));
    QCOMPARE(rate, 5);
    QCOMPARE(booked, 12);
    struct Expected
    {
        const char *currency, *foreign, *rate, *base, *booked;
    };
    const Expected expected[] = {{"EUR", "45.50", "1.0000", "45.50", "1.0000"},
                                 {"CHF", "36.00", "1.5000", "24.00", "0.5000"},
                                 {"XYZ", "7.00", "", "0.00", "0.0000"},
                                 {"NOK", "80.00", "8.0000", "10.00", "8.0000"}};
    for (int i = 0; i < 4; ++i) {
        const QStringList &row = rows.at(i + 1);
        QCOMPARE(row.at(4), QLatin1String(expected[i].currency));
        QCOMPARE(row.at(3), QLatin1String(expected[i].foreign));
        QCOMPARE(row.at(rate), QLatin1String(expected[i].rate));
        QCOMPARE(row.at(6), QLatin1String(expected[i].base));
        QCOMPARE(row.at(booked), QLatin1String(expected[i].booked));
        // The foreign value divided by the rate is the base value.
        if (!row.at(rate).isEmpty())
            QCOMPARE(QString::asprintf("%.2f", row.at(3).toDouble() / row.at(rate).toDouble()),
                     row.at(6));
    }
}

void TestCheck::settlePrintsBalancesKittyTransfersAndWhetherTheyAreFewest()
{
    const Run run =
        runCheck({QStringLiteral("--settle"), fixture(QStringLiteral("check-journey.wfn"))});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.err, QString());
    QCOMPARE(run.out,
             QStringLiteral("balance   : AB 32.75 EUR\n"
                            "balance   : CD -27.25 EUR\n"
                            "balance   : EF 20.00 EUR\n"
                            "balance   : kitty -25.50 EUR\n"
                            "unbooked  : 0.00 EUR\n"
                            "transfer  : CD pays AB 27.25 EUR\n"
                            "transfer  : kitty pays EF 20.00 EUR\n"
                            "transfer  : kitty pays AB 5.50 EUR\n"
                            "plan      : the fewest transfers possible\n"));
}

void TestCheck::settleNamesTheCostsWhoseSharesDoNotAddUp()
{
    // The journey as another program might write it: CD's share of the 10.00 dinner is 4.00.
    QByteArray text = readBytes(fixture(QStringLiteral("check-journey.wfn")));
    const QByteArray cdShare = "[CD_0]\nDATE=05.06.2002;\nTYPE=share;\nMAGIC=1;\n"
                               "PERCENTAGE=50.00;\nCHANGE=-5.0000;";
    QVERIFY(text.contains(cdShare));
    text.replace(cdShare, QByteArray(cdShare).replace("CHANGE=-5.0000", "CHANGE=-4.0000"));
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("open.wfn"));
    QVERIFY(writeBytes(path, text));
    const Run run = runCheck({QStringLiteral("--settle"), path});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.err, QString());
    QCOMPARE(run.out,
             QStringLiteral("balance   : AB 32.75 EUR\n"
                            "balance   : CD -26.25 EUR\n"
                            "balance   : EF 20.00 EUR\n"
                            "balance   : kitty -26.50 EUR\n"
                            "unbooked  : 1.00 EUR\n"
                            "open cost : 05.06.2002 F 10.00, shares 9.00\n"
                            "transfer  : kitty pays AB 26.50 EUR\n"
                            "transfer  : CD pays EF 20.00 EUR\n"
                            "transfer  : CD pays AB 6.25 EUR\n"
                            "plan      : the fewest transfers possible\n"));
}

void TestCheck::csvWritesTheCostsAndTheAccountsOnly()
{
    for (const char *kind : {"costs", "accounts"}) {
        const Run run = runCheck({QStringLiteral("--csv"), QString::fromLatin1(kind),
                                  fixture(QStringLiteral("check-journey.wfn"))});
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(run.err, QString());
        QCOMPARE(run.out.toUtf8(),
                 readBytes(fixture(QStringLiteral("check-%1.csv").arg(QLatin1String(kind)))));
    }
}

void TestCheck::csvOfAnUnknownKindPrintsUsage()
{
    const Run run = runCheck({QStringLiteral("--csv"), QStringLiteral("tips"),
                              fixture(QStringLiteral("check-journey.wfn"))});
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(run.out, QString());
    QCOMPARE(run.err,
             QStringLiteral("wayfern-check: --csv takes costs or accounts, not 'tips'\n")
                 + usage());
}

void TestCheck::settleOfAMissingJourneySaysSoOnStandardError()
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("none.wfn"));
    const Run run = runCheck({QStringLiteral("--settle"), path});
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.out, QString());
    QCOMPARE(
        run.err,
        QStringLiteral("wayfern-check: cannot read %1: No such file or directory\n").arg(path));
}

void TestCheck::reportWritesThePdfAndTheHtmlPage()
{
    QTemporaryDir dir;
    const QString pdf = dir.filePath(QStringLiteral("alpine.pdf"));
    const QString html = dir.filePath(QStringLiteral("alpine.html"));
    // No display is needed: the tool takes the offscreen platform itself.
    qunsetenv("QT_QPA_PLATFORM");
    const Run run =
        runCheck({fixture(QStringLiteral("check-journey.wfn")), QStringLiteral("--report"), pdf});
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.out, QStringLiteral("report    : %1\nreport    : %2\n").arg(pdf, html));
    QVERIFY(readBytes(pdf).startsWith("%PDF-"));
    const QByteArray page = readBytes(html);
    QVERIFY(page.contains("<h1>Alpine Loop</h1>"));
    QVERIFY(page.contains("Total: 80.00 EUR in 4 costs"));
    QVERIFY(page.contains("<li>CD pays AB 27.25 EUR</li>"));
}

void TestCheck::reportWithoutAFileNamePrintsUsage()
{
    const Run run =
        runCheck({fixture(QStringLiteral("check-journey.wfn")), QStringLiteral("--report")});
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(run.out, QString());
    QVERIFY(run.err.endsWith(usage()));
}

void TestCheck::reportToAPlaceThatCannotBeWrittenFails()
{
    QTemporaryDir dir;
    // A folder under a plain file: nobody, root neither, can write there.
    const QString plain = dir.filePath(QStringLiteral("plain"));
    QVERIFY(writeBytes(plain, "x"));
    const QString pdf = plain + QStringLiteral("/r.pdf");
    const Run run =
        runCheck({fixture(QStringLiteral("check-journey.wfn")), QStringLiteral("--report"), pdf});
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.out, QString());
    QVERIFY(run.err.contains(QStringLiteral("wayfern-check: could not write the report %1: %2\n")
                                 .arg(pdf, QString::fromLocal8Bit(strerror(ENOTDIR)))));
}

QTEST_GUILESS_MAIN(TestCheck)
#include "tst_check.moc"
