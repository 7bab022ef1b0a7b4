// The command-line check: run as a program on a journey, it prints what the journey holds
// and the overview's figures computed as the window computes them.

#include "coretestutil.h"

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
};

// Runs the built check on `args` with the configuration directory named, so that the
// document finds its variable and prints nothing about it.
Run runCheck(const QStringList &args)
{
    QProcess process;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("WAYFERNCFG"), QStringLiteral("."));
    process.setProcessEnvironment(env);
    process.start(QStringLiteral(WAYFERN_CHECK), args);
    Run run;
    if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit)
        return run;
    run.exitCode = process.exitCode();
    run.out = QString::fromUtf8(process.readAllStandardOutput());
    run.err = QString::fromUtf8(process.readAllStandardError());
    return run;
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
QString usage()
{
    return QStringLiteral("usage: %1 [--settle | --csv costs|accounts] JOURNEY.wfn\n"
                          "       %1 JOURNEY.wfn --report FILE.pdf\n")
        .arg(QStringLiteral(WAYFERN_CHECK));
}
} // namespace

class TestCheck : public QObject
{
    Q_OBJECT

private slots:
    void printsTotalPerDayAndBalancesOfTheWindow();
    void journeyWithoutAccountsPrintsNoBalance();
    void missingJourneyPrintsReadersLineAndFails();
    void withoutJourneyPrintsUsage();
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
    const Run run = runCheck({fixture(QStringLiteral("check-journey.wfn"))});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.err, QString());
    // The stored VALUE of each traveller is stale (0, 0 and 99): the balances are the sums
    // of the account lines, as the overview shows them.
    const QString expected = accountTrace("AB_0", 1, "-5.0000", "50.0000")
        + accountTrace("AB_1", 3, "-12.2500", "50.0000")
        + accountTrace("AB_2", -2, "50.0000", "100.0000")
        + accountTrace("CD_0", 1, "-5.0000", "50.0000")
        + accountTrace("CD_1", 3, "-12.2500", "50.0000")
        + accountTrace("CD_2", -3, "-10.0000", "100.0000")
        + accountTrace("EF_0", -2, "20.0000", "100.0000") + figuresOfCheckJourney()
        + QStringLiteral("balance   : AB 32.75 EUR\n"
                         "balance   : CD -27.25 EUR\n"
                         "balance   : EF 20.00 EUR\n");
    // Line by line, so that a failure names the line.
    QCOMPARE(run.out.split(QLatin1Char('\n')), expected.split(QLatin1Char('\n')));
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
    // The account lines are still read, and so traced; only the balances are left out.
    QVERIFY(run.out.endsWith(QStringLiteral("perc : 100.0000") + figuresOfCheckJourney()));
    QVERIFY(!run.out.contains(QStringLiteral("balance")));
}

void TestCheck::missingJourneyPrintsReadersLineAndFails()
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("none.wfn"));
    const Run run = runCheck({path});
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.out, QStringLiteral("\nWayfernIO::ReadFile - file not found (%1)\n").arg(path));
    QCOMPARE(run.err, QString());
}

void TestCheck::withoutJourneyPrintsUsage()
{
    const Run run = runCheck({});
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(run.out, QString());
    QCOMPARE(run.err, usage());
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
    QCOMPARE(run.err, usage());
}

void TestCheck::settleOfAMissingJourneySaysSoOnStandardError()
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("none.wfn"));
    const Run run = runCheck({QStringLiteral("--settle"), path});
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.out, QString());
    QCOMPARE(run.err, QStringLiteral("wayfern-check: cannot read %1\n").arg(path));
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
