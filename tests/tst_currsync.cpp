// The rate grabber with the real wget against a loopback server: request addresses, the
// watching of the page file, the outcome signals, the status texts, and the children that
// must all be reaped.

#include "loopbackhttp.h"
#include "modalhelper.h"
#include "stdoutcapture.h"

#include "data/wayferndata.h"
#include "rates/currsync.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLabel>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <unistd.h>

#include <memory>

namespace {

const QByteArray nokAnswer =
    R"({"amount":1.0,"base":"EUR","date":"2026-11-20","rates":{"NOK":11.45}})";
const QByteArray czkAnswer =
    R"({"amount":1.0,"base":"EUR","date":"2026-11-20","rates":{"CZK":24.31}})";

// A page of the old layout, more than 40 lines, with the rate table in one line.
QByteArray htmlPage(const QByteArray &rate, bool plainTableTag = true)
{
    QByteArray page = "<html>\n<head><title>Currency converter</title></head>\n<body>\n";
    for (int i = 0; i < 50; ++i)
        page += "<p>menu entry " + QByteArray::number(i) + "</p>\n";
    page += "<p>Result</p><table" + QByteArray(plainTableTag ? "" : " border=\"1\"")
        + "><tr><th>Amount</th><th>From</th><th>Exchange Rate</th></tr><tr><td>1</td>"
          "<td>EUR</td><td>to</td><td>x</td><td>"
        + rate + "</td><td>end</td></tr></table>\n";
    page += "</body>\n</html>\n";
    return page;
}

QByteArray lines(int count)
{
    QByteArray text;
    for (int i = 0; i < count; ++i)
        text += "<p>line " + QByteArray::number(i) + "</p>\n";
    return text;
}

// Children of this process that have ended and are not reaped.
int zombieChildren()
{
    int zombies = 0;
    const QString self = QString::number(getpid());
    const QStringList entries = QDir(QStringLiteral("/proc")).entryList(QDir::Dirs);
    for (const QString &entry : entries) {
        bool number = false;
        entry.toInt(&number);
        if (!number)
            continue;
        QFile stat(QStringLiteral("/proc/%1/stat").arg(entry));
        if (!stat.open(QIODevice::ReadOnly))
            continue;
        const QByteArray text = stat.readAll();
        // "pid (name) state ppid ...": the name may hold blanks and parentheses.
        const QList<QByteArray> fields = text.mid(text.lastIndexOf(')') + 2).split(' ');
        if (fields.size() > 1 && fields.at(0) == "Z" && QString::fromLatin1(fields.at(1)) == self)
            ++zombies;
    }
    return zombies;
}

class FailingFork : public currSync
{
public:
    using currSync::currSync;

protected:
    pid_t forkChild() override { return -1; }
};

} // namespace

class TestCurrSync : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void requestAddressIsPlainConcatenation();
    void argumentVectorHasEmptyNameAndAddressAsItStands();
    void oldHtmlLayoutOneRequestPerCurrency();
    void chainFromInsideSignalReadsEachRate();
    void tableTagWithAttributesGivesNoRate();
    void shortPageCountsWhenWgetEndedWell();
    void shortPageWhileWgetStillRunsTimesOutAndIsRemoved();
    void shortPageWhenWgetFailedEndsAtOnceAndIsRemoved();
    void emptyPageWhenWgetEndedWellEndsAtOnceAsAnEmptyAnswer();
    void missingPageEndsAtOnceAsRefusedWithTheAddress();
    void slowPageThatNeverCompletesTimesOutAndKeepsTheReason();
    void pageCutOffHalfWayTimesOut();
    void tableLineAfterLine40MayNotBeThereYet();
    void secondRequestWhileWaitingDeletesPageAndRestartsTimers();
    void failedPollCountOfAnySizeBehavesLikeOne();
    void successfulPollResetsFailedCount();
    void afterLastRequestOfChainTransferSuccessStaysOneSecond();
    void statusTimerStartedAfterSignalWipesNextRequestText();
    void readRateUsesCurrencyOfLastRequest();
    void requestPageFetchesFullAddress();
    void missingWgetEndsAtOnceAsNotStartedWithoutCrash();
    void forkFailureShowsBoxAndStartsNothing();
    void destructorReapsEndedChildren();
    void childrenOfDestroyedGrabberAreReapedByNextOne();
    void realIntervalsPollTimeOutClearingAndKeptReason();

private:
    void makeGrabber();
    void usePath(const QString &path) { qputenv("PATH", path.toLocal8Bit()); }
    QString pagePath() const { return data.filePath(QStringLiteral("rate.html")); }

    QByteArray originalPath;
    QTemporaryDir data;
    QTemporaryDir scratch;
    WayFernData doc;
    QLabel label;
    std::unique_ptr<LoopbackHttp> server;
    std::unique_ptr<currSync> sync;
    std::unique_ptr<QSignalSpy> success;
    std::unique_ptr<QSignalSpy> failure;
};

void TestCurrSync::initTestCase()
{
    originalPath = qgetenv("PATH");
    // The loopback server is reached directly, whatever the machine's proxy settings are.
    for (const char *name : {"http_proxy", "https_proxy", "HTTP_PROXY", "HTTPS_PROXY"})
        qunsetenv(name);
    QVERIFY(data.isValid());
    QVERIFY(scratch.isValid());
    doc.config.datapath = data.path();
    doc.config.syncfile = QStringLiteral("rate.html");
    doc.config.fromprefix = QStringLiteral("/v1/latest?from=");
    doc.config.toprefix = QStringLiteral("&to=");
    doc.config.postfix = QString();
}

void TestCurrSync::init()
{
    qputenv("PATH", originalPath);
    for (const char *name : {"FAKE_WGET_RECORD", "FAKE_WGET_PAGE", "FAKE_WGET_STATUS"})
        qunsetenv(name);
    QFile::remove(pagePath());
    label.clear();
    server = std::make_unique<LoopbackHttp>();
    QVERIFY(server->start());
    doc.config.server = server->address();
    // Short intervals; the time-out leaves wget ample time on a busy machine.
    currSync::setIntervals(50, 10000, 300);
    currSync::setReapInterval(100);
    makeGrabber();
}

void TestCurrSync::makeGrabber()
{
    success.reset();
    failure.reset();
    sync = std::make_unique<currSync>(&doc, &label);
    success = std::make_unique<QSignalSpy>(sync.get(), &currSync::grabSuccess);
    failure = std::make_unique<QSignalSpy>(sync.get(), &currSync::noSuccess);
}

void TestCurrSync::cleanup()
{
    ModalHelper::cancelPending();
    // Ends the connections that never complete; wget then gives up and is reaped.
    server->stop();
    QTRY_COMPARE_WITH_TIMEOUT(sync->unreapedChildren(), 0, 60000);
    success.reset();
    failure.reset();
    sync.reset();
    server.reset();
    QCOMPARE(zombieChildren(), 0);
    qputenv("PATH", originalPath);
}

void TestCurrSync::requestAddressIsPlainConcatenation()
{
    server->setRoute(QStringLiteral("/v1/latest?from=EUR&to=NOK"), nokAnswer, "application/json");
    QVERIFY(sync->requestRate(QStringLiteral("EUR"), QStringLiteral("NOK")));
    QCOMPARE(label.text(), QStringLiteral("request for EUR -> NOK please wait"));
    QTRY_COMPARE_WITH_TIMEOUT(success->count(), 1, 20000);
    QCOMPARE(failure->count(), 0);
    QCOMPARE(server->targets(), QStringList{QStringLiteral("/v1/latest?from=EUR&to=NOK")});
    QCOMPARE(sync->readRate(), 11.45);
    QCOMPARE(sync->pageFile(), data.path() + QStringLiteral("/rate.html"));
}

void TestCurrSync::argumentVectorHasEmptyNameAndAddressAsItStands()
{
    const QString record = scratch.filePath(QStringLiteral("argv.txt"));
    QFile::remove(record);
    const QString page = scratch.filePath(QStringLiteral("page.json"));
    QFile pageFile(page);
    QVERIFY(pageFile.open(QIODevice::WriteOnly));
    pageFile.write(nokAnswer);
    pageFile.close();
    qputenv("FAKE_WGET_RECORD", record.toLocal8Bit());
    qputenv("FAKE_WGET_PAGE", page.toLocal8Bit());
    usePath(QStringLiteral(FAKE_WGET_DIR ":") + QString::fromLocal8Bit(originalPath));
    // A percent sign goes through unchanged: no value is used as a format.
    doc.config.postfix = QStringLiteral("&x=%s%d");
    makeGrabber();
    const bool started = sync->requestRate(QStringLiteral("EUR"), QStringLiteral("NOK"));
    doc.config.postfix = QString();
    QVERIFY(started);
    QTRY_COMPARE_WITH_TIMEOUT(success->count(), 1, 20000);
    QFile recorded(record);
    QVERIFY(recorded.open(QIODevice::ReadOnly));
    const QString expected =
        QStringLiteral("argc=5\n[]\n[-q]\n[-O]\n[%1]\n[%2]\n")
            .arg(pagePath(),
                 server->address() + QStringLiteral("/v1/latest?from=EUR&to=NOK&x=%s%d"));
    QCOMPARE(QString::fromLocal8Bit(recorded.readAll()), expected);
    QCOMPARE(sync->readRate(), 11.45);
}

void TestCurrSync::oldHtmlLayoutOneRequestPerCurrency()
{
    server->setRoute(QStringLiteral("/v1/latest?from=EUR&to=NOK"), htmlPage("11.45"));
    server->setRoute(QStringLiteral("/v1/latest?from=EUR&to=CZK"), htmlPage("24.31"));
    server->setRoute(QStringLiteral("/v1/latest?from=EUR&to=PLN"), htmlPage("4.26"));
    const QList<QPair<QString, double>> wanted = {{QStringLiteral("NOK"), 11.45},
                                                  {QStringLiteral("CZK"), 24.31},
                                                  {QStringLiteral("PLN"), 4.26}};
    int done = 0;
    for (const auto &[code, rate] : wanted) {
        QVERIFY(sync->requestRate(QStringLiteral("EUR"), code));
        ++done;
        QTRY_COMPARE_WITH_TIMEOUT(success->count(), done, 20000);
        QCOMPARE(sync->readRate(), rate);
    }
    QCOMPARE(failure->count(), 0);
    QCOMPARE(server->targets(),
             QStringList({QStringLiteral("/v1/latest?from=EUR&to=NOK"),
                          QStringLiteral("/v1/latest?from=EUR&to=CZK"),
                          QStringLiteral("/v1/latest?from=EUR&to=PLN")}));
}

void TestCurrSync::chainFromInsideSignalReadsEachRate()
{
    // As the currency list walks: the next request starts from inside grabSuccess().
    server->setRoute(QStringLiteral("/v1/latest?from=EUR&to=NOK"), nokAnswer);
    server->setRoute(QStringLiteral("/v1/latest?from=EUR&to=CZK"), czkAnswer);
    QStringList left = {QStringLiteral("CZK")};
    QList<double> rates;
    connect(sync.get(), &currSync::grabSuccess, this, [&] {
        rates.append(sync->readRate());
        if (!left.isEmpty())
            sync->requestRate(QStringLiteral("EUR"), left.takeFirst());
    });
    QVERIFY(sync->requestRate(QStringLiteral("EUR"), QStringLiteral("NOK")));
    QTRY_COMPARE_WITH_TIMEOUT(rates.size(), 2, 20000);
    QCOMPARE(rates, QList<double>({11.45, 24.31}));
    QCOMPARE(server->targets(),
             QStringList({QStringLiteral("/v1/latest?from=EUR&to=NOK"),
                          QStringLiteral("/v1/latest?from=EUR&to=CZK")}));
    QCOMPARE(failure->count(), 0);
}

void TestCurrSync::tableTagWithAttributesGivesNoRate()
{
    server->setRoute(QStringLiteral("/v1/latest?from=EUR&to=NOK"), htmlPage("11.45", false));
    QVERIFY(sync->requestRate(QStringLiteral("EUR"), QStringLiteral("NOK")));
    QTRY_COMPARE_WITH_TIMEOUT(success->count(), 1, 20000);
    StdoutCapture out;
    QCOMPARE(sync->readRate(), -1.0);
    QCOMPARE(out.text(), QString());
}

void TestCurrSync::shortPageCountsWhenWgetEndedWell()
{
    // One line, far from 40: it counts because wget has ended with status 0.
    server->setRoute(QStringLiteral("/v1/latest?from=EUR&to=NOK"), nokAnswer);
    QVERIFY(sync->requestRate(QStringLiteral("EUR"), QStringLiteral("NOK")));
    QTRY_COMPARE_WITH_TIMEOUT(success->count(), 1, 20000);
    QVERIFY(!sync->testFile(pagePath()));
    QCOMPARE(failure->count(), 0);
    QCOMPARE(label.text(), QStringLiteral("transfer success ..."));
    QCOMPARE(sync->readRate(), 11.45);
}

void TestCurrSync::shortPageWhileWgetStillRunsTimesOutAndIsRemoved()
{
    currSync::setIntervals(50, 1500, 300);
    makeGrabber();
    const QByteArray part = lines(10);
    server->setSlowRoute(QStringLiteral("/v1/latest?from=EUR&to=NOK"), part, 100000);
    QVERIFY(sync->requestRate(QStringLiteral("EUR"), QStringLiteral("NOK")));
    // wget writes what it gets; it is not enough and wget does not end.
    QTRY_COMPARE_WITH_TIMEOUT(QFileInfo(pagePath()).size(), qint64(part.size()), 20000);
    QTRY_COMPARE_WITH_TIMEOUT(failure->count(), 1, 20000);
    QCOMPARE(success->count(), 0);
    QCOMPARE(label.text(), QStringLiteral("did not get data ... no answer within 1.5 seconds"));
    QVERIFY(!QFile::exists(pagePath()));
    QCOMPARE(sync->unreapedChildren(), 1);
}

void TestCurrSync::shortPageWhenWgetFailedEndsAtOnceAndIsRemoved()
{
    // The time limit lies far beyond the wait: the request ends because wget did.
    currSync::setIntervals(50, 600000, 300);
    const QString page = scratch.filePath(QStringLiteral("short.html"));
    QFile pageFile(page);
    QVERIFY(pageFile.open(QIODevice::WriteOnly));
    pageFile.write(lines(5));
    pageFile.close();
    qputenv("FAKE_WGET_PAGE", page.toLocal8Bit());
    qputenv("FAKE_WGET_STATUS", "1");
    usePath(QStringLiteral(FAKE_WGET_DIR));
    makeGrabber();
    QVERIFY(sync->requestRate(QStringLiteral("EUR"), QStringLiteral("NOK")));
    QTRY_COMPARE_WITH_TIMEOUT(failure->count(), 1, 20000);
    QCOMPARE(success->count(), 0);
    QCOMPARE(label.text(), QStringLiteral("did not get data ... wget ended with status 1"));
    QVERIFY(!QFile::exists(pagePath()));
}

void TestCurrSync::emptyPageWhenWgetEndedWellEndsAtOnceAsAnEmptyAnswer()
{
    currSync::setIntervals(50, 600000, 300);
    makeGrabber();
    server->setRoute(QStringLiteral("/v1/latest?from=EUR&to=NOK"), QByteArray());
    QVERIFY(sync->requestRate(QStringLiteral("EUR"), QStringLiteral("NOK")));
    QTRY_COMPARE_WITH_TIMEOUT(failure->count(), 1, 20000);
    QCOMPARE(success->count(), 0);
    QCOMPARE(server->targets().size(), 1);
    QCOMPARE(label.text(),
             QStringLiteral("did not get data ... the server sent an empty answer to ")
                 + server->address() + QStringLiteral("/v1/latest?from=EUR&to=NOK"));
    QVERIFY(!QFile::exists(pagePath()));
}

void TestCurrSync::missingPageEndsAtOnceAsRefusedWithTheAddress()
{
    currSync::setIntervals(50, 600000, 300);
    makeGrabber();
    // No route: the server answers 404 and wget ends with a failure status.
    QVERIFY(sync->requestRate(QStringLiteral("EUR"), QStringLiteral("XXX")));
    QTRY_COMPARE_WITH_TIMEOUT(failure->count(), 1, 20000);
    QCOMPARE(success->count(), 0);
    QCOMPARE(server->targets(), QStringList{QStringLiteral("/v1/latest?from=EUR&to=XXX")});
    QCOMPARE(label.text(),
             QStringLiteral("did not get data ... the server refused the request ")
                 + server->address() + QStringLiteral("/v1/latest?from=EUR&to=XXX"));
    QVERIFY(!QFile::exists(pagePath()));
}

void TestCurrSync::slowPageThatNeverCompletesTimesOutAndKeepsTheReason()
{
    currSync::setIntervals(50, 2000, 300);
    makeGrabber();
    server->setSlowRoute(QStringLiteral("/v1/latest?from=EUR&to=NOK"), "<html>\n<body>\n", 1000000);
    QVERIFY(sync->requestRate(QStringLiteral("EUR"), QStringLiteral("NOK")));
    QTRY_COMPARE_WITH_TIMEOUT(failure->count(), 1, 20000);
    const QString reason = QStringLiteral("did not get data ... no answer within 2 seconds");
    QCOMPARE(label.text(), reason);
    // Well past the clearing interval, the reason is still there.
    QTest::qWait(1000);
    QCOMPARE(label.text(), reason);
    QCOMPARE(success->count(), 0);
    QCOMPARE(sync->readRate(), -1.0);
    // The child is neither waited for nor killed: it still hangs on the open connection.
    QCOMPARE(server->openConnections(), 1);
    QCOMPARE(sync->unreapedChildren(), 1);
}

void TestCurrSync::pageCutOffHalfWayTimesOut()
{
    currSync::setIntervals(50, 1500, 300);
    makeGrabber();
    server->setBrokenRoute(QStringLiteral("/v1/latest?from=EUR&to=NOK"), lines(3), 100000);
    QVERIFY(sync->requestRate(QStringLiteral("EUR"), QStringLiteral("NOK")));
    QTRY_COMPARE_WITH_TIMEOUT(failure->count(), 1, 20000);
    QCOMPARE(success->count(), 0);
    QVERIFY(!server->targets().isEmpty());
}

void TestCurrSync::tableLineAfterLine40MayNotBeThereYet()
{
    // 45 lines have come and the rest never does: the page passes the test of 40 lines
    // while the table line is still missing.
    server->setSlowRoute(QStringLiteral("/v1/latest?from=EUR&to=NOK"), lines(45), 1000000);
    QVERIFY(sync->requestRate(QStringLiteral("EUR"), QStringLiteral("NOK")));
    QTRY_COMPARE_WITH_TIMEOUT(success->count(), 1, 20000);
    QCOMPARE(sync->readRate(), -1.0);
    QCOMPARE(failure->count(), 0);
    QCOMPARE(sync->unreapedChildren(), 1);
}

void TestCurrSync::secondRequestWhileWaitingDeletesPageAndRestartsTimers()
{
    const int timeout = 3000;
    currSync::setIntervals(50, timeout, 300);
    makeGrabber();
    server->setSlowRoute(QStringLiteral("/v1/latest?from=EUR&to=NOK"), lines(5), 1000000);
    QVERIFY(sync->requestRate(QStringLiteral("EUR"), QStringLiteral("NOK")));
    QTRY_COMPARE_WITH_TIMEOUT(QFileInfo(pagePath()).size(), qint64(lines(5).size()), 20000);
    QCOMPARE(failure->count(), 0);
    QTRY_VERIFY(sync->failures() > 1);

    // The second child hangs on as well, before anything of its page has come.
    server->setSlowRoute(QStringLiteral("/v1/latest?from=EUR&to=CZK"), QByteArray(), 1000000);
    QElapsedTimer clock;
    clock.start();
    QVERIFY(sync->requestRate(QStringLiteral("EUR"), QStringLiteral("CZK")));
    QVERIFY(!QFile::exists(pagePath()));
    QCOMPARE(sync->failures(), 1);
    QCOMPARE(label.text(), QStringLiteral("request for EUR -> CZK please wait"));
    QTRY_COMPARE_WITH_TIMEOUT(failure->count(), 1, 20000);
    // The time-out counted from the second request (a coarse timer may be 5 % early).
    QVERIFY2(clock.elapsed() >= timeout * 9 / 10, qPrintable(QString::number(clock.elapsed())));
    QCOMPARE(success->count(), 0);
    // The first child was left alone: its connection is still open, beside the second's.
    QCOMPARE(server->openConnections(), 2);
    QCOMPARE(sync->unreapedChildren(), 2);
    QVERIFY(!QFile::exists(pagePath()));
    // cleanup() closes the connections and waits until both children are reaped.
}

void TestCurrSync::failedPollCountOfAnySizeBehavesLikeOne()
{
    currSync::setIntervals(3600000, 3600000, 3600000);
    // wget hangs on the connection: the polls only count, none ends the request.
    server->setSlowRoute(QStringLiteral("/v1/latest?from=EUR&to=NOK"), QByteArray(), 100000);
    makeGrabber();
    QVERIFY(sync->requestRate(QStringLiteral("EUR"), QStringLiteral("NOK")));
    QCOMPARE(sync->failures(), 1);
    for (int i = 0; i < 7; ++i)
        sync->slotTestResult();
    QCOMPARE(sync->failures(), 8);
    sync->slotGetResult();
    QCOMPARE(failure->count(), 1);
    QCOMPARE(success->count(), 0);
    QCOMPARE(label.text(), QStringLiteral("did not get data ... no answer within 3600 seconds"));

    // A request that is ended at once, with the count at 1, ends the same way.
    QVERIFY(sync->requestRate(QStringLiteral("EUR"), QStringLiteral("NOK")));
    sync->slotGetResult();
    QCOMPARE(failure->count(), 2);
    QCOMPARE(success->count(), 0);
}

void TestCurrSync::successfulPollResetsFailedCount()
{
    currSync::setIntervals(3600000, 3600000, 3600000);
    // wget hangs on the connection without writing: the page below is the test's.
    server->setSlowRoute(QStringLiteral("/v1/latest?from=EUR&to=NOK"), QByteArray(), 100000);
    makeGrabber();
    QVERIFY(sync->requestRate(QStringLiteral("EUR"), QStringLiteral("NOK")));
    for (int i = 0; i < 3; ++i)
        sync->slotTestResult();
    QCOMPARE(sync->failures(), 4);
    // Once wget talks to the server it has made its (empty) page file: the page written
    // here is not truncated by it afterwards.
    QTRY_COMPARE_WITH_TIMEOUT(server->openConnections(), 1, 20000);
    QFile page(pagePath());
    QVERIFY(page.open(QIODevice::WriteOnly));
    page.write(htmlPage("11.45"));
    page.close();
    sync->slotTestResult();
    QCOMPARE(sync->failures(), 0);
    QCOMPARE(success->count(), 1);
    QCOMPARE(failure->count(), 0);
    QCOMPARE(sync->readRate(), 11.45);
}

void TestCurrSync::afterLastRequestOfChainTransferSuccessStaysOneSecond()
{
    currSync::setIntervals(50, 10000, 1000);
    makeGrabber();
    server->setRoute(QStringLiteral("/v1/latest?from=EUR&to=NOK"), nokAnswer);
    server->setRoute(QStringLiteral("/v1/latest?from=EUR&to=CZK"), czkAnswer);
    QStringList left = {QStringLiteral("CZK")};
    connect(sync.get(), &currSync::grabSuccess, this, [&] {
        if (!left.isEmpty())
            sync->requestRate(QStringLiteral("EUR"), left.takeFirst());
    });
    QVERIFY(sync->requestRate(QStringLiteral("EUR"), QStringLiteral("NOK")));
    QTRY_COMPARE_WITH_TIMEOUT(success->count(), 2, 20000);
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(label.text(), QStringLiteral("transfer success ..."));
    QCOMPARE(sync->readRate(), 24.31);
    QTRY_COMPARE_WITH_TIMEOUT(label.text(), QString(), 5000);
    // Cleared by the timer of the last request, not by the one of the first.
    QVERIFY2(clock.elapsed() >= 900, qPrintable(QString::number(clock.elapsed())));
}

void TestCurrSync::statusTimerStartedAfterSignalWipesNextRequestText()
{
    currSync::setIntervals(50, 60000, 300);
    makeGrabber();
    server->setRoute(QStringLiteral("/v1/latest?from=EUR&to=NOK"), nokAnswer);
    server->setSlowRoute(QStringLiteral("/v1/latest?from=EUR&to=CZK"), lines(3), 100000);
    QString textInsideSignal;
    connect(sync.get(), &currSync::grabSuccess, this, [&] {
        sync->requestRate(QStringLiteral("EUR"), QStringLiteral("CZK"));
        textInsideSignal = label.text();
    });
    QVERIFY(sync->requestRate(QStringLiteral("EUR"), QStringLiteral("NOK")));
    QTRY_COMPARE_WITH_TIMEOUT(success->count(), 1, 20000);
    QCOMPARE(textInsideSignal, QStringLiteral("request for EUR -> CZK please wait"));
    // The next request still waits, yet its text is wiped by the clearing started behind it.
    QTRY_COMPARE(label.text(), QString());
    QCOMPARE(failure->count(), 0);
    QVERIFY(sync->failures() != 0);
    QCOMPARE(server->targets().size(), 2);
}

void TestCurrSync::readRateUsesCurrencyOfLastRequest()
{
    const QByteArray both = R"({"amount":1.0,"base":"EUR","rates":{"NOK":11.45,"CZK":24.31}})";
    server->setRoute(QStringLiteral("/v1/latest?from=EUR&to=NOK"), both);
    server->setRoute(QStringLiteral("/v1/latest?from=EUR&to=CZK"), both);
    QVERIFY(sync->requestRate(QStringLiteral("EUR"), QStringLiteral("CZK")));
    QTRY_COMPARE_WITH_TIMEOUT(success->count(), 1, 20000);
    QCOMPARE(sync->readRate(), 24.31);
    QVERIFY(sync->requestRate(QStringLiteral("EUR"), QStringLiteral("NOK")));
    QTRY_COMPARE_WITH_TIMEOUT(success->count(), 2, 20000);
    QCOMPARE(sync->readRate(), 11.45);
}

void TestCurrSync::requestPageFetchesFullAddress()
{
    const QByteArray catalogue = R"({"AUD":"Australian Dollar","BGN":"Bulgarian Lev"})";
    server->setRoute(QStringLiteral("/v1/currencies"), catalogue);
    const QString address = server->address() + QStringLiteral("/v1/currencies");
    QVERIFY(sync->requestPage(address));
    QCOMPARE(label.text(),
             QStringLiteral("request for ") + address + QStringLiteral(" please wait"));
    QTRY_COMPARE_WITH_TIMEOUT(success->count(), 1, 20000);
    QCOMPARE(server->targets(), QStringList{QStringLiteral("/v1/currencies")});
    QFile page(pagePath());
    QVERIFY(page.open(QIODevice::ReadOnly));
    QCOMPARE(page.readAll(), catalogue);
}

void TestCurrSync::missingWgetEndsAtOnceAsNotStartedWithoutCrash()
{
    currSync::setIntervals(50, 600000, 300);
    usePath(scratch.path()); // holds no wget
    makeGrabber();
    QVERIFY(sync->requestRate(QStringLiteral("EUR"), QStringLiteral("NOK")));
    QTRY_COMPARE_WITH_TIMEOUT(failure->count(), 1, 20000);
    QCOMPARE(success->count(), 0);
    QCOMPARE(label.text(), QStringLiteral("did not get data ... wget could not be started"));
    QTRY_COMPARE(sync->unreapedChildren(), 0);
    QVERIFY(server->targets().isEmpty());
    QVERIFY(!QFile::exists(pagePath()));
}

void TestCurrSync::forkFailureShowsBoxAndStartsNothing()
{
    currSync::setIntervals(20, 100, 50);
    success.reset();
    failure.reset();
    sync = std::make_unique<FailingFork>(&doc, &label);
    QSignalSpy succeeded(sync.get(), &currSync::grabSuccess);
    QSignalSpy failed(sync.get(), &currSync::noSuccess);
    auto box = ModalHelper::answerNextMessageBox(QMessageBox::Ok);
    QVERIFY(!sync->requestRate(QStringLiteral("EUR"), QStringLiteral("NOK")));
    QVERIFY2(box->handled, qPrintable(box->error));
    QCOMPARE(box->title, QStringLiteral("wget failure"));
    QCOMPARE(box->text, QStringLiteral("PID < 0"));
    QCOMPARE(box->buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    // No timer runs, so there is no condition to wait for: a while passes in which a
    // running timer would have fired many times over.
    QTest::qWait(500);
    QCOMPARE(succeeded.count(), 0);
    QCOMPARE(failed.count(), 0);
    QCOMPARE(label.text(), QStringLiteral("request for EUR -> NOK please wait"));
    QCOMPARE(sync->unreapedChildren(), 0);
    QVERIFY(server->targets().isEmpty());
    success = std::make_unique<QSignalSpy>(sync.get(), &currSync::grabSuccess);
    failure = std::make_unique<QSignalSpy>(sync.get(), &currSync::noSuccess);
}

void TestCurrSync::destructorReapsEndedChildren()
{
    // Neither the reaper nor the page poll may look at the child before the destructor:
    // either would reap it first.
    currSync::setReapInterval(3600000);
    currSync::setIntervals(3600000, 3600000, 3600000);
    qputenv("FAKE_WGET_STATUS", "1");
    usePath(QStringLiteral(FAKE_WGET_DIR));
    makeGrabber();
    QVERIFY(sync->requestRate(QStringLiteral("EUR"), QStringLiteral("NOK")));
    // The child has ended and nobody has looked yet.
    QTRY_COMPARE_WITH_TIMEOUT(zombieChildren(), 1, 20000);
    QCOMPARE(sync->unreapedChildren(), 1);
    makeGrabber();
    QCOMPARE(zombieChildren(), 0);
}

void TestCurrSync::childrenOfDestroyedGrabberAreReapedByNextOne()
{
    server->setSlowRoute(QStringLiteral("/v1/latest?from=EUR&to=NOK"), lines(3), 100000);
    QVERIFY(sync->requestRate(QStringLiteral("EUR"), QStringLiteral("NOK")));
    QTRY_COMPARE_WITH_TIMEOUT(server->openConnections(), 1, 20000);
    success.reset();
    failure.reset();
    sync.reset(); // wget still runs
    server->stop();
    QTRY_COMPARE_WITH_TIMEOUT(zombieChildren(), 1, 30000);
    makeGrabber();
    QTRY_COMPARE(zombieChildren(), 0);
}

void TestCurrSync::realIntervalsPollTimeOutClearingAndKeptReason()
{
    currSync::setIntervals(2000, 30000, 1000);
    currSync::setReapInterval(500);
    makeGrabber();
    server->setRoute(QStringLiteral("/v1/latest?from=EUR&to=NOK"), nokAnswer);
    server->setSlowRoute(QStringLiteral("/v1/latest?from=EUR&to=CZK"), lines(3), 100000);

    // The answer is seen by the first poll after two seconds.
    QElapsedTimer clock;
    clock.start();
    QVERIFY(sync->requestRate(QStringLiteral("EUR"), QStringLiteral("NOK")));
    QTRY_COMPARE_WITH_TIMEOUT(success->count(), 1, 20000);
    QVERIFY2(clock.elapsed() >= 1900, qPrintable(QString::number(clock.elapsed())));
    QCOMPARE(sync->readRate(), 11.45);
    QTRY_COMPARE_WITH_TIMEOUT(label.text(), QString(), 5000);

    // A page that never completes ends after thirty seconds.
    clock.restart();
    QVERIFY(sync->requestRate(QStringLiteral("EUR"), QStringLiteral("CZK")));
    QTRY_COMPARE_WITH_TIMEOUT(failure->count(), 1, 60000);
    QVERIFY2(clock.elapsed() >= 28500, qPrintable(QString::number(clock.elapsed())));
    QCOMPARE(success->count(), 1);
    const QString reason = QStringLiteral("did not get data ... no answer within 30 seconds");
    QCOMPARE(label.text(), reason);
    // The reason outlives the clearing interval of a second.
    QTest::qWait(2000);
    QCOMPARE(label.text(), reason);
    QVERIFY(!QFile::exists(pagePath()));
}

QTEST_MAIN(TestCurrSync)
#include "tst_currsync.moc"
