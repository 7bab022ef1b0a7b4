// One writer per journey: the window locks the journey it holds with a lock file beside it.
// A second window, here in a process of its own, cannot open or overwrite it and says who
// holds it; the lock of a process that was killed is taken over.

#include "modalhelper.h"
#include "shellfixture.h"

#include "data/wayferndata.h"
#include "shell/wayfernapp.h"

#include <QElapsedTimer>
#include <QFile>
#include <QLockFile>
#include <QProcess>
#include <QStatusBar>
#include <QSysInfo>
#include <QtTest>

namespace {

QString lockOf(const ShellFixture &fx, const QString &journey)
{
    return fx.dataFile(QStringLiteral(".") + journey + QStringLiteral(".lock"));
}

// The program itself, started on `journey` in the fixture's directories; true once it holds
// the journey's lock and has noted the journey as its last one, which it does just after
// locking: a test that writes the last-state file itself must not race that write.
bool startHolder(QProcess &program, const ShellFixture &fx, const QString &journey)
{
    program.setWorkingDirectory(fx.dataDir());
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    env.remove(QStringLiteral("WAYFERN_START_DIR"));
    program.setProcessEnvironment(env);
    program.start(QStringLiteral(WAYFERN_PROGRAM), {fx.dataFile(journey)});
    if (!program.waitForStarted())
        return false;
    QElapsedTimer waited;
    waited.start();
    while (waited.elapsed() < 30000 && program.state() == QProcess::Running) {
        qint64 pid = 0;
        QString host;
        QString app;
        QLockFile probe(lockOf(fx, journey));
        if (probe.getLockInfo(&pid, &host, &app) && pid == program.processId()
            && fx.lastNamed() == journey)
            return true;
        QTest::qWait(50);
    }
    return false;
}

QString heldBy(qint64 pid)
{
    return QStringLiteral("The journey is open in another Wayfern window: process %1 on %2.")
        .arg(pid)
        .arg(QSysInfo::machineHostName());
}

void stop(QProcess &program)
{
    program.kill();
    program.waitForFinished();
}

} // namespace

class TestJourneyLock : public QObject
{
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression("Not implemented yet!")); }
    void cleanup() { ModalHelper::cancelPending(); }

    void theOpenJourneyIsLockedAndNewReleasesIt()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        const QString lock = lockOf(fx, QStringLiteral("sample.wfn"));
        {
            WayfernApp app;
            QVERIFY(QFile::exists(lock));
            qint64 pid = 0;
            QString host;
            QString application;
            QVERIFY(QLockFile(lock).getLockInfo(&pid, &host, &application));
            QCOMPARE(pid, QCoreApplication::applicationPid());
            app.fileNew->trigger();
            QVERIFY(!QFile::exists(lock));
        }
        {
            WayfernApp app;
            QVERIFY(QFile::exists(lock));
        }
        // Gone with the window.
        QVERIFY(!QFile::exists(lock));
    }

    void aSecondProgramCannotOpenTheJourneyAndSaysWhoHoldsIt()
    {
        ShellFixture fx({QStringLiteral("sample.wfn"), QStringLiteral("sample-nousers.wfn")});
        fx.writeLast(QStringLiteral("sample-nousers.wfn"));
        QProcess holder;
        QVERIFY(startHolder(holder, fx, QStringLiteral("sample.wfn")));
        // The holder remembered its journey; this window starts on the other one.
        fx.writeLast(QStringLiteral("sample-nousers.wfn"));

        WayfernApp app;
        QCOMPARE(app.fileName, fx.dataFile(QStringLiteral("sample-nousers.wfn")));
        const int costs = app.doc->costs.count();
        const QString sample = fx.dataFile(QStringLiteral("sample.wfn"));
        auto chosen = ModalHelper::chooseFileInNextFileDialog(QStringLiteral("sample.wfn"));
        auto box = ModalHelper::answerNextMessageBox(QMessageBox::Ok);
        app.fileOpen->trigger();
        QVERIFY2(chosen->handled, qPrintable(chosen->error));
        QVERIFY2(box->handled, qPrintable(box->error));
        QCOMPARE(box->title, QStringLiteral("Wayfern"));
        QCOMPARE(box->icon, QMessageBox::Warning);
        QCOMPARE(box->text,
                 QStringLiteral("Could not open %1\n\n%2").arg(sample, heldBy(holder.processId())));
        // The window stays with its own journey.
        QCOMPARE(app.fileName, fx.dataFile(QStringLiteral("sample-nousers.wfn")));
        QCOMPARE(app.doc->costs.count(), costs);
        QCOMPARE(fx.lastNamed(), QStringLiteral("sample-nousers.wfn"));
        stop(holder);
    }

    void saveAsOverAJourneyThatAnotherProgramHoldsIsRefused()
    {
        ShellFixture fx({QStringLiteral("sample.wfn"), QStringLiteral("sample-nousers.wfn")});
        fx.writeLast(QStringLiteral("sample-nousers.wfn"));
        const QString sample = fx.dataFile(QStringLiteral("sample.wfn"));
        QFile file(sample);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray before = file.readAll();
        file.close();
        QProcess holder;
        QVERIFY(startHolder(holder, fx, QStringLiteral("sample.wfn")));
        // The holder remembered its journey; this window starts on the other one.
        fx.writeLast(QStringLiteral("sample-nousers.wfn"));

        WayfernApp app;
        auto named = ModalHelper::typeNameInNextFileDialog(QStringLiteral("sample"));
        auto box = ModalHelper::answerNextMessageBox(QMessageBox::Ok);
        app.fileSaveAs->trigger();
        QVERIFY2(named->handled, qPrintable(named->error));
        QVERIFY2(box->handled, qPrintable(box->error));
        QCOMPARE(box->text,
                 QStringLiteral("Could not save %1\n\n%2").arg(sample, heldBy(holder.processId())));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), before);
        QCOMPARE(app.fileName, fx.dataFile(QStringLiteral("sample-nousers.wfn")));
        stop(holder);
    }

    void theLockOfAKilledProgramIsTakenOver()
    {
        ShellFixture fx({QStringLiteral("sample.wfn"), QStringLiteral("sample-nousers.wfn")});
        fx.writeLast(QStringLiteral("sample-nousers.wfn"));
        QProcess holder;
        QVERIFY(startHolder(holder, fx, QStringLiteral("sample.wfn")));
        stop(holder); // SIGKILL: the lock file stays behind
        QVERIFY(QFile::exists(lockOf(fx, QStringLiteral("sample.wfn"))));

        WayfernApp app;
        auto chosen = ModalHelper::chooseFileInNextFileDialog(QStringLiteral("sample.wfn"));
        app.fileOpen->trigger();
        QVERIFY2(chosen->handled, qPrintable(chosen->error));
        QCOMPARE(app.fileName, fx.dataFile(QStringLiteral("sample.wfn")));
        qint64 pid = 0;
        QString host;
        QString application;
        QVERIFY(QLockFile(lockOf(fx, QStringLiteral("sample.wfn")))
                    .getLockInfo(&pid, &host, &application));
        QCOMPARE(pid, QCoreApplication::applicationPid());
    }

    void aSecondProgramStartingOnTheLastJourneyStartsANewOneAndSaysWhy()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        QProcess holder;
        QVERIFY(startHolder(holder, fx, QStringLiteral("sample.wfn")));
        WayfernApp app;
        QCOMPARE(app.fileName, QString());
        QCOMPARE(app.statusBar()->currentMessage(),
                 QStringLiteral("Could not read the last journey %1: %2")
                     .arg(fx.dataFile(QStringLiteral("sample.wfn")), heldBy(holder.processId())));
        // The last-state file still names it, for the next start.
        QCOMPARE(fx.lastNamed(), QStringLiteral("sample.wfn"));
        stop(holder);
    }
};

QTEST_MAIN(TestJourneyLock)
#include "tst_journeylock.moc"
