// Rate and catalogue requests that fail, fetched with the real wget from a server on the
// loopback address: the status line says why and keeps it, the rates stay as they were, the
// catalogue says the same instead of opening empty, and no page file is left behind.

#include "editortestutil.h"
#include "loopbackhttp.h"
#include "modalhelper.h"
#include "shellfixture.h"
#include "widgetreaders.h"

#include "data/wayferndata.h"
#include "editors/currlistedit.h"
#include "rates/currsync.h"
#include "rates/syncfailure.h"
#include "rates/synclistedit.h"
#include "shell/wayfernapp.h"
#include "shell/wayfernview.h"

#include <QEvent>
#include <QFile>
#include <QLabel>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

namespace {

// Long enough for wget on a loopback address however busy the machine.
constexpr int waitLimit = 30000;
// A time limit far beyond waitLimit: a request that ends within waitLimit ended because wget
// did, not because the limit ran out.
constexpr int longLimit = 600000;
// The program's own clearing interval of the status line.
constexpr int clearing = 1000;

QString target(const QString &from, const QString &to)
{
    return QStringLiteral("/v1/latest?from=%1&to=%2").arg(from, to);
}

QByteArray answer(const QString &from, const QString &to, const QString &number)
{
    return QStringLiteral(R"({"amount":1.0,"base":"%1","date":"2026-11-20","rates":{"%2":%3}})")
        .arg(from, to, number)
        .toUtf8();
}

// An address where nothing listens: a server that was started and stopped again.
QString closedAddress()
{
    LoopbackHttp gone;
    if (!gone.start())
        return QString();
    const QString address = gone.address();
    gone.stop();
    return address;
}

// Counts how often a widget is shown.
class ShowCounter : public QObject
{
public:
    int shown = 0;
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Show)
            ++shown;
        return QObject::eventFilter(watched, event);
    }
};

// The small journey (EUR base, CHF 1.50, USD 0.90) in the currency list, its rate pages on
// a loopback server.
struct Fixture
{
    Fixture()
    {
        server.start();
        doc.config.datapath = dir.path();
        doc.config.syncfile = QStringLiteral("sync.html");
        doc.config.server = server.address();
        doc.config.fromprefix = QStringLiteral("/v1/latest?from=");
        doc.config.toprefix = QStringLiteral("&to=");
        doc.config.postfix = QString();
        fillJourney(doc, false);
        list = std::make_unique<currListEdit>(nullptr, "Currency List", true, &doc);
        list->hide();
        list->setData();
        list->syncListDlg->installEventFilter(&catalogueShown);
    }
    ~Fixture()
    {
        ModalHelper::cancelPending();
        server.stop();
        // The children that still hang on a connection end with it and are reaped.
        QTRY_COMPARE_WITH_TIMEOUT(list->grabber->unreapedChildren(), 0, waitLimit);
    }

    QString pageFile() const { return dir.filePath(QStringLiteral("sync.html")); }
    QString status() const { return list->StatusTextLabel->text(); }
    bool walkEnded() const { return list->SyncButton->isEnabled(); }
    CurrData *curr(const char *shortName)
    {
        return doc.findCurrency(QString::fromLatin1(shortName));
    }
    QString address(const QString &from, const QString &to) const
    {
        return server.address() + target(from, to);
    }
    void rate(const QString &to, const QString &number)
    {
        server.setRoute(target(QStringLiteral("EUR"), to), answer("EUR", to, number),
                        "application/json");
    }
    void useCatalogue()
    {
        doc.config.catalogue = server.address() + QStringLiteral("/v1/currencies");
    }

    QTemporaryDir dir;
    LoopbackHttp server;
    WayFernData doc;
    ShowCounter catalogueShown;
    std::unique_ptr<currListEdit> list;
};

} // namespace

class TestSyncFailure : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        originalPath = qgetenv("PATH");
        // The loopback server is reached directly, whatever the machine's proxy settings are.
        for (const char *name : {"http_proxy", "https_proxy", "HTTP_PROXY", "HTTPS_PROXY"})
            qunsetenv(name);
        qputenv("WAYFERNCFG", ".");
        currSync::setReapInterval(50);
    }
    void init()
    {
        QTest::failOnWarning(QRegularExpression("Not implemented yet!"));
        qputenv("PATH", originalPath);
        for (const char *name : {"FAKE_WGET_PAGE", "FAKE_WGET_STATUS", "FAKE_WGET_RECORD"})
            qunsetenv(name);
        currSync::setIntervals(50, longLimit, clearing);
    }
    void cleanup()
    {
        ModalHelper::cancelPending();
        qputenv("PATH", originalPath);
    }

    // How wget's end is told.

    void wgetStatusesAreToldApart_data()
    {
        QTest::addColumn<int>("status");
        QTest::addColumn<int>("kind");
        QTest::newRow("0 nothing written") << 0 << int(SyncFailure::Kind::EmptyAnswer);
        QTest::newRow("1 generic") << 1 << int(SyncFailure::Kind::DownloadFailed);
        QTest::newRow("4 network") << 4 << int(SyncFailure::Kind::NoConnection);
        QTest::newRow("5 certificate") << 5 << int(SyncFailure::Kind::DownloadFailed);
        QTest::newRow("8 server error") << 8 << int(SyncFailure::Kind::Refused);
        QTest::newRow("-1 killed") << -1 << int(SyncFailure::Kind::DownloadFailed);
    }
    void wgetStatusesAreToldApart()
    {
        QFETCH(int, status);
        QFETCH(int, kind);
        const SyncFailure failure =
            SyncFailure::fromWgetStatus(status, QStringLiteral("http://x/y"));
        QCOMPARE(int(failure.kind), kind);
        QCOMPARE(failure.status, status);
        QCOMPARE(failure.address, QStringLiteral("http://x/y"));
        QVERIFY(failure.failed());
        QVERIFY(!SyncFailure().failed());
    }

    void theWordsOfEachFailure()
    {
        SyncFailure f =
            SyncFailure::fromWgetStatus(4, QStringLiteral("https://rates.test:8080/a?b=c"));
        QCOMPARE(currSync::describe(f),
                 QStringLiteral("did not get data ... no connection to the server "
                                "https://rates.test:8080"));
        f = SyncFailure::fromWgetStatus(8, QStringLiteral("https://rates.test/a?b=c"));
        QCOMPARE(currSync::describe(f),
                 QStringLiteral("did not get data ... the server refused the request "
                                "https://rates.test/a?b=c"));
        f = SyncFailure::fromWgetStatus(3, QStringLiteral("https://rates.test/a"));
        QCOMPARE(currSync::describe(f),
                 QStringLiteral("did not get data ... wget ended with status 3"));
        f = SyncFailure::fromWgetStatus(-1, QStringLiteral("https://rates.test/a"));
        QCOMPARE(currSync::describe(f),
                 QStringLiteral("did not get data ... wget did not end normally"));
        f.kind = SyncFailure::Kind::TimedOut;
        f.timeoutMs = 30000;
        QCOMPARE(currSync::describe(f),
                 QStringLiteral("did not get data ... no answer within 30 seconds"));
        f.kind = SyncFailure::Kind::NoRate;
        f.currency = QStringLiteral("NOK");
        QCOMPARE(currSync::describe(f), QStringLiteral("no rate for NOK in the answer"));
        QCOMPARE(currSync::describe(SyncFailure()), QString());
    }

    // The grabber alone.

    void grabberRefusedRequestNamesTheRefusalAndTheAddress()
    {
        Fixture f;
        QLabel label;
        currSync sync(&f.doc, &label);
        QSignalSpy failed(&sync, &currSync::noSuccess);
        QSignalSpy succeeded(&sync, &currSync::grabSuccess);
        // No route: the server answers 404, wget ends with status 8.
        QVERIFY(sync.requestRate(QStringLiteral("EUR"), QStringLiteral("XXX")));
        QTRY_COMPARE_WITH_TIMEOUT(failed.count(), 1, waitLimit);
        QCOMPARE(succeeded.count(), 0);
        QCOMPARE(int(sync.failure().kind), int(SyncFailure::Kind::Refused));
        const QString words = QStringLiteral("did not get data ... the server refused the request ")
            + f.address("EUR", "XXX");
        QCOMPARE(label.text(), words);
        QVERIFY(!QFile::exists(sync.pageFile()));
        QTest::qWait(clearing * 3 / 2);
        QCOMPARE(label.text(), words);
    }

    void grabberWithoutConnectionSaysNoConnection()
    {
        Fixture f;
        const QString closed = closedAddress();
        QVERIFY(!closed.isEmpty());
        f.doc.config.server = closed;
        QLabel label;
        currSync sync(&f.doc, &label);
        QSignalSpy failed(&sync, &currSync::noSuccess);
        QVERIFY(sync.requestRate(QStringLiteral("EUR"), QStringLiteral("CHF")));
        QTRY_COMPARE_WITH_TIMEOUT(failed.count(), 1, waitLimit);
        QCOMPARE(int(sync.failure().kind), int(SyncFailure::Kind::NoConnection));
        const QString words =
            QStringLiteral("did not get data ... no connection to the server ") + closed;
        QCOMPARE(label.text(), words);
        QVERIFY(!QFile::exists(sync.pageFile()));
        QTest::qWait(clearing * 3 / 2);
        QCOMPARE(label.text(), words);
    }

    void grabberAnswerWithoutTheRateSaysNoRate()
    {
        Fixture f;
        f.server.setRoute(target("EUR", "XXX"), answer("EUR", "NOK", "11.45"), "application/json");
        QLabel label;
        currSync sync(&f.doc, &label);
        QSignalSpy succeeded(&sync, &currSync::grabSuccess);
        QVERIFY(sync.requestRate(QStringLiteral("EUR"), QStringLiteral("XXX")));
        QTRY_COMPARE_WITH_TIMEOUT(succeeded.count(), 1, waitLimit);
        QVERIFY(QFile::exists(sync.pageFile()));
        QCOMPARE(sync.readRate(), -1.0);
        QCOMPARE(int(sync.failure().kind), int(SyncFailure::Kind::NoRate));
        QCOMPARE(label.text(), QStringLiteral("no rate for XXX in the answer"));
        QVERIFY(!QFile::exists(sync.pageFile()));
        QTest::qWait(clearing * 3 / 2);
        QCOMPARE(label.text(), QStringLiteral("no rate for XXX in the answer"));
    }

    void grabberStalledAnswerSaysNoAnswerWithinTheTimeLimit()
    {
        currSync::setIntervals(50, 2000, clearing);
        Fixture f;
        // The head comes without a length, then a little, then nothing while the connection
        // stays open.
        f.server.setStalledRoute(target("EUR", "CHF"), "{\"amount\":1.0,");
        QLabel label;
        currSync sync(&f.doc, &label);
        QSignalSpy failed(&sync, &currSync::noSuccess);
        QVERIFY(sync.requestRate(QStringLiteral("EUR"), QStringLiteral("CHF")));
        QTRY_COMPARE_WITH_TIMEOUT(failed.count(), 1, waitLimit);
        QCOMPARE(int(sync.failure().kind), int(SyncFailure::Kind::TimedOut));
        const QString words = QStringLiteral("did not get data ... no answer within 2 seconds");
        QCOMPARE(label.text(), words);
        // wget still hangs on the connection; the page it writes has no name any more.
        QCOMPARE(f.server.openConnections(), 1);
        QVERIFY(!QFile::exists(sync.pageFile()));
        QTest::qWait(clearing * 3 / 2);
        QCOMPARE(label.text(), words);
        QVERIFY(!QFile::exists(sync.pageFile()));
    }

    void grabberEmptyAnswerSaysSo()
    {
        Fixture f;
        f.server.setRoute(target("EUR", "CHF"), QByteArray(), "application/json");
        QLabel label;
        currSync sync(&f.doc, &label);
        QSignalSpy failed(&sync, &currSync::noSuccess);
        QVERIFY(sync.requestRate(QStringLiteral("EUR"), QStringLiteral("CHF")));
        QTRY_COMPARE_WITH_TIMEOUT(failed.count(), 1, waitLimit);
        QCOMPARE(label.text(),
                 QStringLiteral("did not get data ... the server sent an empty answer to ")
                     + f.address("EUR", "CHF"));
        QVERIFY(!QFile::exists(sync.pageFile()));
    }

    void grabberOtherWgetFailureNamesItsStatus()
    {
        Fixture f;
        // A page that wget wrote in part before it failed.
        const QString part = f.dir.filePath(QStringLiteral("part.html"));
        QFile partFile(part);
        QVERIFY(partFile.open(QIODevice::WriteOnly));
        partFile.write("<html>\n<body>\n");
        partFile.close();
        qputenv("FAKE_WGET_PAGE", part.toLocal8Bit());
        qputenv("FAKE_WGET_STATUS", "5");
        qputenv("PATH", QByteArray(FAKE_WGET_DIR));
        QLabel label;
        currSync sync(&f.doc, &label);
        QSignalSpy failed(&sync, &currSync::noSuccess);
        QVERIFY(sync.requestRate(QStringLiteral("EUR"), QStringLiteral("CHF")));
        QTRY_COMPARE_WITH_TIMEOUT(failed.count(), 1, waitLimit);
        QCOMPARE(int(sync.failure().kind), int(SyncFailure::Kind::DownloadFailed));
        QCOMPARE(label.text(), QStringLiteral("did not get data ... wget ended with status 5"));
        QVERIFY(!QFile::exists(sync.pageFile()));
    }

    void grabberWithoutWgetSaysItCouldNotBeStarted()
    {
        Fixture f;
        qputenv("PATH", f.dir.path().toLocal8Bit()); // holds no wget
        QLabel label;
        currSync sync(&f.doc, &label);
        QSignalSpy failed(&sync, &currSync::noSuccess);
        QVERIFY(sync.requestRate(QStringLiteral("EUR"), QStringLiteral("CHF")));
        QTRY_COMPARE_WITH_TIMEOUT(failed.count(), 1, waitLimit);
        QCOMPARE(int(sync.failure().kind), int(SyncFailure::Kind::NotStarted));
        QCOMPARE(label.text(), QStringLiteral("did not get data ... wget could not be started"));
        QVERIFY(f.server.targets().isEmpty());
    }

    void grabberKeepsTheReasonUntilTheNextRequest()
    {
        Fixture f;
        QLabel label;
        currSync sync(&f.doc, &label);
        QSignalSpy failed(&sync, &currSync::noSuccess);
        QSignalSpy succeeded(&sync, &currSync::grabSuccess);
        QVERIFY(sync.requestRate(QStringLiteral("EUR"), QStringLiteral("CHF")));
        QTRY_COMPARE_WITH_TIMEOUT(failed.count(), 1, waitLimit);
        QVERIFY(label.text().startsWith(QStringLiteral("did not get data ... the server refused")));
        f.rate(QStringLiteral("CHF"), QStringLiteral("1.6"));
        QVERIFY(sync.requestRate(QStringLiteral("EUR"), QStringLiteral("CHF")));
        QCOMPARE(label.text(), QStringLiteral("request for EUR -> CHF please wait"));
        QVERIFY(!sync.failure().failed());
        QTRY_COMPARE_WITH_TIMEOUT(succeeded.count(), 1, waitLimit);
        QCOMPARE(sync.readRate(), 1.6);
        QVERIFY(!sync.failure().failed());
        QCOMPARE(label.text(), QStringLiteral("transfer success ..."));
        // A success is only a flash, as before.
        QTRY_COMPARE_WITH_TIMEOUT(label.text(), QString(), waitLimit);
        QVERIFY(QFile::exists(sync.pageFile()));
    }

    // The walk over the currency list.

    void walkRefusedRequestKeepsTheReasonAndTheRates()
    {
        Fixture f;
        f.server.setStatusRoute(target("EUR", "CHF"), 404, "no such pair");
        f.rate(QStringLiteral("USD"), QStringLiteral("0.95"));
        f.list->SyncButton->click();
        QTRY_VERIFY_WITH_TIMEOUT(f.walkEnded(), waitLimit);
        // The failure ends the walk: USD is not asked for.
        QCOMPARE(f.server.targets(), QStringList{target("EUR", "CHF")});
        const QString words = QStringLiteral("did not get data ... the server refused the request ")
            + f.address("EUR", "CHF");
        QCOMPARE(f.status(), words);
        QCOMPARE(f.curr("CHF")->factor, QStringLiteral("1.50"));
        QCOMPARE(f.curr("CHF")->factorvalue, 1.5);
        QCOMPARE(f.curr("USD")->factor, QStringLiteral("0.90"));
        QVERIFY(!f.list->changed);
        QVERIFY(!QFile::exists(f.pageFile()));
        QTest::qWait(clearing * 3 / 2);
        QCOMPARE(f.status(), words);
    }

    void walkWithoutConnectionSaysNoConnection()
    {
        Fixture f;
        const QString closed = closedAddress();
        QVERIFY(!closed.isEmpty());
        f.doc.config.server = closed;
        f.list->SyncButton->click();
        QTRY_VERIFY_WITH_TIMEOUT(f.walkEnded(), waitLimit);
        const QString words =
            QStringLiteral("did not get data ... no connection to the server ") + closed;
        QCOMPARE(f.status(), words);
        QCOMPARE(f.curr("CHF")->factor, QStringLiteral("1.50"));
        QCOMPARE(f.curr("USD")->factor, QStringLiteral("0.90"));
        QVERIFY(!QFile::exists(f.pageFile()));
        QTest::qWait(clearing * 3 / 2);
        QCOMPARE(f.status(), words);
    }

    void walkAnswerWithoutTheRateNamesTheCurrencyAndGoesOn()
    {
        Fixture f;
        // CHF's answer holds another currency's rate only.
        f.server.setRoute(target("EUR", "CHF"), answer("EUR", "GBP", "0.8"), "application/json");
        f.rate(QStringLiteral("USD"), QStringLiteral("0.95"));
        f.list->SyncButton->click();
        QTRY_VERIFY_WITH_TIMEOUT(f.walkEnded(), waitLimit);
        QCOMPARE(f.server.targets(), (QStringList{target("EUR", "CHF"), target("EUR", "USD")}));
        QCOMPARE(f.curr("CHF")->factor, QStringLiteral("1.50"));
        QCOMPARE(f.curr("USD")->factor, QStringLiteral("0.9500"));
        QCOMPARE(f.status(), QStringLiteral("no rate for CHF in the answer"));
        // USD's page was good and stays, as a good page always did.
        QVERIFY(QFile::exists(f.pageFile()));
        QTest::qWait(clearing * 3 / 2);
        QCOMPARE(f.status(), QStringLiteral("no rate for CHF in the answer"));
    }

    void walkLastAnswerWithoutTheRateLeavesNoPage()
    {
        Fixture f;
        f.rate(QStringLiteral("CHF"), QStringLiteral("1.6"));
        f.server.setRoute(target("EUR", "USD"), answer("EUR", "GBP", "0.8"), "application/json");
        f.list->SyncButton->click();
        QTRY_VERIFY_WITH_TIMEOUT(f.walkEnded(), waitLimit);
        QCOMPARE(f.curr("CHF")->factor, QStringLiteral("1.6000"));
        QCOMPARE(f.curr("USD")->factor, QStringLiteral("0.90"));
        QCOMPARE(f.status(), QStringLiteral("no rate for USD in the answer"));
        QVERIFY(!QFile::exists(f.pageFile()));
        QTest::qWait(clearing * 3 / 2);
        QCOMPARE(f.status(), QStringLiteral("no rate for USD in the answer"));
    }

    void walkWithoutAnyRateNamesEveryCurrency()
    {
        Fixture f;
        f.server.setRoute(target("EUR", "CHF"), "{}", "application/json");
        f.server.setRoute(target("EUR", "USD"), "{}", "application/json");
        f.list->SyncButton->click();
        QTRY_VERIFY_WITH_TIMEOUT(f.walkEnded(), waitLimit);
        QCOMPARE(f.status(), QStringLiteral("no rate for CHF, USD in the answer"));
        QTest::qWait(clearing * 3 / 2);
        QCOMPARE(f.status(), QStringLiteral("no rate for CHF, USD in the answer"));
    }

    void walkFailureAfterAMissingRateSaysBoth()
    {
        Fixture f;
        CurrData *nok = f.doc.currencies.append();
        nok->short_ = QStringLiteral("NOK");
        nok->factor = QStringLiteral("11.0");
        f.list->setData();
        f.server.setRoute(target("EUR", "CHF"), "{}", "application/json");
        f.server.setStatusRoute(target("EUR", "USD"), 404, "no such pair");
        f.rate(QStringLiteral("NOK"), QStringLiteral("11.45"));
        f.list->SyncButton->click();
        QTRY_VERIFY_WITH_TIMEOUT(f.walkEnded(), waitLimit);
        QCOMPARE(f.server.targets(), (QStringList{target("EUR", "CHF"), target("EUR", "USD")}));
        const QString words = QStringLiteral("did not get data ... the server refused the request ")
            + f.address("EUR", "USD") + QStringLiteral("; no rate for CHF in the answer");
        QCOMPARE(f.status(), words);
        QCOMPARE(f.curr("NOK")->factor, QStringLiteral("11.0"));
        QVERIFY(!QFile::exists(f.pageFile()));
        QTest::qWait(clearing * 3 / 2);
        QCOMPARE(f.status(), words);
    }

    void walkStalledAnswerTimesOutWithTheTimeLimitInWords()
    {
        currSync::setIntervals(50, 2000, clearing);
        Fixture f;
        f.server.setStalledRoute(target("EUR", "CHF"), "{");
        f.rate(QStringLiteral("USD"), QStringLiteral("0.95"));
        f.list->SyncButton->click();
        QTRY_COMPARE_WITH_TIMEOUT(f.server.targets().size(), 1, waitLimit);
        QTRY_VERIFY_WITH_TIMEOUT(f.walkEnded(), waitLimit);
        const QString words = QStringLiteral("did not get data ... no answer within 2 seconds");
        QCOMPARE(f.status(), words);
        QCOMPARE(f.curr("CHF")->factor, QStringLiteral("1.50"));
        QCOMPARE(f.curr("USD")->factor, QStringLiteral("0.90"));
        QCOMPARE(f.server.targets().size(), 1);
        QVERIFY(!QFile::exists(f.pageFile()));
        QTest::qWait(clearing * 3 / 2);
        QCOMPARE(f.status(), words);
    }

    void theNextSynchronisationReplacesTheReason()
    {
        Fixture f;
        f.list->SyncButton->click();
        QTRY_VERIFY_WITH_TIMEOUT(f.walkEnded(), waitLimit);
        QVERIFY(f.status().startsWith(QStringLiteral("did not get data ...")));
        f.rate(QStringLiteral("CHF"), QStringLiteral("1.6"));
        f.rate(QStringLiteral("USD"), QStringLiteral("0.95"));
        f.list->SyncButton->click();
        QCOMPARE(f.status(), QStringLiteral("request for EUR -> CHF please wait"));
        QTRY_VERIFY_WITH_TIMEOUT(f.walkEnded(), waitLimit);
        QCOMPARE(f.curr("USD")->factor, QStringLiteral("0.9500"));
        // A walk without failures leaves the line empty after its flash, as always.
        QTRY_COMPARE_WITH_TIMEOUT(f.status(), QString(), waitLimit);
    }

    // The catalogue's own page.

    void catalogueSaysWhyInsteadOfOpeningEmpty_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("words");
        // %1 stands for the catalogue's address, %2 for the server's.
        QTest::newRow("refused") << "refused"
                                 << "did not get data ... the server refused the request %1";
        QTest::newRow("no connection") << "closed"
                                       << "did not get data ... no connection to the server %2";
        QTest::newRow("a rate answer, no list") << "rates"
                                                << "no list of currencies in the answer from %1";
        QTest::newRow("stalled") << "stalled"
                                 << "did not get data ... no answer within 2 seconds";
    }
    void catalogueSaysWhyInsteadOfOpeningEmpty()
    {
        QFETCH(QString, kind);
        QFETCH(QString, words);
        currSync::setIntervals(50, 2000, clearing);
        Fixture f;
        const QString closed = closedAddress();
        const QString server = kind == QLatin1String("closed") ? closed : f.server.address();
        f.doc.config.catalogue = server + QStringLiteral("/v1/currencies");
        if (kind == QLatin1String("rates"))
            f.server.setRoute(QStringLiteral("/v1/currencies"), answer("EUR", "NOK", "11.45"),
                              "application/json");
        else if (kind == QLatin1String("stalled"))
            f.server.setStalledRoute(QStringLiteral("/v1/currencies"), "{\"AUD\":");
        // Not arg(): a row may hold %2 without %1.
        words.replace(QStringLiteral("%1"), f.doc.config.catalogue)
            .replace(QStringLiteral("%2"), server);

        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Ok, waitLimit);
        f.list->SyncListButton->click();
        QVERIFY(!f.list->SyncListButton->isEnabled());
        QTRY_VERIFY_WITH_TIMEOUT(box->handled, waitLimit);
        QVERIFY2(box->error.isEmpty(), qPrintable(box->error));
        QCOMPARE(box->title, QStringLiteral("exchange rate list"));
        QCOMPARE(box->text, words);
        QCOMPARE(box->icon, QMessageBox::Warning);
        QCOMPARE(f.catalogueShown.shown, 0);
        QVERIFY(f.list->SyncListButton->isEnabled());
        QVERIFY(!QFile::exists(f.pageFile()));
        QCOMPARE(f.status(), words);
        QTest::qWait(clearing * 3 / 2);
        QCOMPARE(f.status(), words);
        // Nothing was added, and the walk's button was left alone.
        QCOMPARE(f.doc.currencies.count(), 3);
        QVERIFY(f.list->SyncButton->isEnabled());
    }

    void catalogueWithoutItsOwnAddressAfterAFailedWalkSaysTheSame()
    {
        Fixture f;
        f.server.setStatusRoute(target("EUR", "CHF"), 404, "no such pair");
        f.list->SyncButton->click();
        QTRY_VERIFY_WITH_TIMEOUT(f.walkEnded(), waitLimit);
        const QString words = QStringLiteral("did not get data ... the server refused the request ")
            + f.address("EUR", "CHF");
        QCOMPARE(f.status(), words);
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Ok, waitLimit);
        f.list->SyncListButton->click();
        QVERIFY2(box->handled && box->error.isEmpty(), qPrintable(box->error));
        QCOMPARE(box->title, QStringLiteral("exchange rate list"));
        QCOMPARE(box->text, words);
        QCOMPARE(f.catalogueShown.shown, 0);
        QVERIFY(f.list->SyncListButton->isEnabled());
        // Nothing was fetched for it: the catalogue has no address of its own.
        QCOMPARE(f.server.targets(), QStringList{target("EUR", "CHF")});
    }

    void catalogueWithoutItsOwnAddressAfterAGoodWalkReadsItsPage()
    {
        Fixture f;
        f.rate(QStringLiteral("CHF"), QStringLiteral("1.6"));
        // USD's answer is the page the catalogue reads: it lists nothing, and opens so.
        f.server.setRoute(target("EUR", "USD"), answer("EUR", "USD", "0.95"), "application/json");
        f.list->SyncButton->click();
        QTRY_VERIFY_WITH_TIMEOUT(f.walkEnded(), waitLimit);
        ModalTicket cat = ModalHelper::rejectNextDialog({}, "syncListEdit", waitLimit);
        f.list->SyncListButton->click();
        QVERIFY2(cat->handled && cat->error.isEmpty(), qPrintable(cat->error));
        QCOMPARE(f.catalogueShown.shown, 1);
    }

    void catalogueThatArrivesStillOpens()
    {
        Fixture f;
        f.useCatalogue();
        f.server.setRoute(QStringLiteral("/v1/currencies"),
                          R"({"AUD":"Australian Dollar","NOK":"Norwegian Krone"})",
                          "application/json");
        QStringList listed;
        ModalTicket cat = ModalHelper::rejectNextDialog(
            [&listed](QDialog *d) {
                listed = WidgetReaders::treeRows(qobject_cast<syncListEdit *>(d)->ListView);
            },
            "syncListEdit", waitLimit);
        f.list->SyncListButton->click();
        QTRY_VERIFY_WITH_TIMEOUT(cat->handled, waitLimit);
        QVERIFY2(cat->error.isEmpty(), qPrintable(cat->error));
        QCOMPARE(listed, (QStringList{"AUD|Australian Dollar", "NOK|Norwegian Krone"}));
        QCOMPARE(f.catalogueShown.shown, 1);
        QVERIFY(!f.list->grabber->failure().failed());
    }

    // Through the main window.

    void theWindowsCurrencyListShowsTheReasonAUserSees()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        LoopbackHttp server;
        QVERIFY(server.start());
        WayfernApp app;
        app.doc->config.server = server.address();
        app.doc->config.fromprefix = QStringLiteral("/v1/latest?from=");
        app.doc->config.toprefix = QStringLiteral("&to=");
        app.doc->config.postfix = QString();
        QVERIFY(app.doc->findCurrency(QStringLiteral("CHF")));
        const QString chfBefore = app.doc->findCurrency(QStringLiteral("CHF"))->factor;
        // No route at all: the server refuses the first rate asked for.
        QString shown;
        QString later;
        bool ended = false;
        ModalTicket list = ModalHelper::onNextModal(
            [](QWidget *w) { return qobject_cast<currListEdit *>(w) != nullptr; },
            [&](QWidget *w, ModalOutcome &out) {
                auto *l = qobject_cast<currListEdit *>(w);
                out.title = l->windowTitle();
                l->SyncButton->click();
                ended = QTest::qWaitFor([l] { return l->SyncButton->isEnabled(); }, waitLimit);
                shown = l->StatusTextLabel->text();
                QTest::qWait(clearing * 3 / 2);
                later = l->StatusTextLabel->text();
                l->CloseButton->click();
            },
            waitLimit);
        app.openCurr->trigger();
        QVERIFY2(list->handled && list->error.isEmpty(), qPrintable(list->error));
        QCOMPARE(list->title, QStringLiteral("Curreny List"));
        QVERIFY(ended);
        QCOMPARE(server.targets().size(), 1);
        const QString words = QStringLiteral("did not get data ... the server refused the request ")
            + server.address() + server.targets().first();
        QCOMPARE(shown, words);
        QCOMPARE(later, words);
        QCOMPARE(app.doc->findCurrency(QStringLiteral("CHF"))->factor, chfBefore);
        QVERIFY(!QFile::exists(fx.dataFile(QStringLiteral("sync.html"))));
        QVERIFY(!app.view->currListInput->isVisible());
    }

private:
    QByteArray originalPath;
};

QTEST_MAIN(TestSyncFailure)
#include "tst_syncfailure.moc"
