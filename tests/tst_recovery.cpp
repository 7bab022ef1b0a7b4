// Recovery after a crash: while the journey is modified its state is kept in a recovery file
// in the journey directory; saving or giving the changes up removes it; at the next start it
// is offered back, and declining keeps it aside under its date. One test kills a real
// process of the program's window with SIGKILL after a change.

#include "modalhelper.h"
#include "shellfixture.h"

#include "data/wayferndata.h"
#include "shell/journeyrecovery.h"
#include "shell/wayfernapp.h"
#include "shell/wayfernview.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTimer>
#include <QTreeWidget>
#include <QtTest>

#include <cstring>

namespace {

// Deletes the third cost (the boat) through the window, answering the question with Yes.
bool deleteTheBoat(WayfernApp &app)
{
    app.show();
    app.view->TabWidget2->setCurrentIndex(1);
    if (!QTest::qWaitForWindowExposed(&app))
        return false;
    QTreeView *list = app.view->CostsListView;
    if (!ModalHelper::tapRow(list, 2)
        || app.view->actucost->comment != QLatin1String("Boat"))
        return false;
    ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
    QTest::mouseClick(app.view->DeleteButton, Qt::LeftButton);
    return box->handled && app.doc->costs.count() == 4;
}

bool waitFor(const std::function<bool()> &done, int ms = 20000)
{
    QElapsedTimer waited;
    waited.start();
    while (!done() && waited.elapsed() < ms)
        QTest::qWait(20);
    return done();
}

QString recoveryOf(const ShellFixture &fx)
{
    return fx.dataFile(QStringLiteral("sample.wfn.recovery"));
}

bool hasBoat(const QString &path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) && f.readAll().contains("COMMENT=Boat;");
}

// The child process: the window on the sample journey with the boat deleted, left running
// until it is killed.
int runChild()
{
    JourneyRecovery::interval = 50;
    WayfernApp app;
    if (!deleteTheBoat(app))
        return 3;
    return QApplication::exec();
}

} // namespace

class TestRecovery : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        QTest::failOnWarning(QRegularExpression("Not implemented yet!"));
        JourneyRecovery::interval = 50;
    }
    void cleanup() { ModalHelper::cancelPending(); }

    void aChangeReachesTheRecoveryFileAndSavingRemovesIt()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        QTest::qWait(200);
        QVERIFY(!QFile::exists(recoveryOf(fx))); // nothing changed yet
        QVERIFY(deleteTheBoat(app));
        QVERIFY(waitFor([&] { return QFile::exists(recoveryOf(fx)); }));
        QVERIFY(!hasBoat(recoveryOf(fx)));
        QVERIFY(hasBoat(fx.dataFile(QStringLiteral("sample.wfn"))));
        app.fileSave->trigger();
        QVERIFY(!app.doc->isModified());
        QVERIFY(!QFile::exists(recoveryOf(fx)));
        QVERIFY(!hasBoat(fx.dataFile(QStringLiteral("sample.wfn"))));
        // Unmodified, nothing is written again.
        QTest::qWait(200);
        QVERIFY(!QFile::exists(recoveryOf(fx)));
    }

    void undoingBackToTheSavedJourneyRemovesTheRecoveryFile()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        QVERIFY(deleteTheBoat(app));
        QVERIFY(waitFor([&] { return QFile::exists(recoveryOf(fx)); }));
        app.editUndo->trigger();
        QVERIFY(!app.doc->isModified());
        QVERIFY(!QFile::exists(recoveryOf(fx)));
        // Redone, the change is kept again.
        app.editRedo->trigger();
        QVERIFY(waitFor([&] { return QFile::exists(recoveryOf(fx)); }));
        QVERIFY(!hasBoat(recoveryOf(fx)));
    }

    void quittingWithNoRemovesTheRecoveryFile()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        QVERIFY(deleteTheBoat(app));
        QVERIFY(waitFor([&] { return QFile::exists(recoveryOf(fx)); }));
        ModalTicket question = ModalHelper::answerNextMessageBox(QMessageBox::No);
        QTimer limit;
        QObject::connect(&limit, &QTimer::timeout, [] { QCoreApplication::exit(42); });
        limit.start(5000);
        QTimer::singleShot(0, &app, [&app] { app.fileQuit->trigger(); });
        QCOMPARE(QCoreApplication::exec(), 0);
        QVERIFY2(question->handled, qPrintable(question->error));
        QVERIFY(!QFile::exists(recoveryOf(fx)));
        QVERIFY(hasBoat(fx.dataFile(QStringLiteral("sample.wfn"))));
    }

    void aKilledProgramsChangeIsRecoveredAtTheNextStart()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        QProcess child;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        child.setProcessEnvironment(env);
        child.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--crash-child")});
        QVERIFY(child.waitForStarted());
        QVERIFY(waitFor(
            [&] { return QFile::exists(recoveryOf(fx)) || child.state() != QProcess::Running; }));
        QCOMPARE(child.state(), QProcess::Running);
        QVERIFY(waitFor([&] { return !hasBoat(recoveryOf(fx)); }));
        child.kill(); // SIGKILL: no chance to clean up
        QVERIFY(child.waitForFinished());
        QCOMPARE(child.exitStatus(), QProcess::CrashExit);
        QVERIFY(hasBoat(fx.dataFile(QStringLiteral("sample.wfn"))));

        ModalTicket question = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
        WayfernApp app;
        QVERIFY2(question->handled, qPrintable(question->error));
        QCOMPARE(question->title, QStringLiteral("Recovery"));
        QVERIFY2(question->text.startsWith(
                     QStringLiteral("Wayfern was not ended properly.\n"
                                    "Restore the unsaved changes of sample.wfn from ")),
                 qPrintable(question->text));
        QCOMPARE(question->buttons, QMessageBox::Yes | QMessageBox::No);
        // The change is back, unsaved, in the journey's own file.
        QCOMPARE(app.doc->costs.count(), 4);
        QVERIFY(app.doc->isModified());
        QCOMPARE(app.fileName, fx.dataFile(QStringLiteral("sample.wfn")));
        QCOMPARE(app.statusBar()->currentMessage(),
                 QStringLiteral("Restored the unsaved changes of sample.wfn."));
        app.fileSave->trigger();
        QVERIFY(!hasBoat(fx.dataFile(QStringLiteral("sample.wfn"))));
        QVERIFY(!QFile::exists(recoveryOf(fx)));
    }

    void journeysOfOneNameInTwoFoldersHaveTwoRecoveryFiles()
    {
        QTemporaryDir root;
        QVERIFY(root.isValid());
        const QString data = root.filePath(QStringLiteral("journeys"));
        for (const QString &folder : {data, root.filePath(QStringLiteral("a")),
                                      root.filePath(QStringLiteral("b"))})
            QVERIFY(QDir().mkpath(folder));
        const QString trip = QStringLiteral("/trip.wfn");
        // In the journey directory the name stays as it always was, however the folder is
        // written.
        const QString inData = JourneyRecovery::pathFor(data, data + trip);
        QCOMPARE(inData, QDir(data).filePath(QStringLiteral("trip.wfn.recovery")));
        QCOMPARE(JourneyRecovery::pathFor(data, root.filePath(QStringLiteral("a/../journeys")) + trip),
                 inData);
        const QString a = JourneyRecovery::pathFor(data, root.filePath(QStringLiteral("a")) + trip);
        const QString b = JourneyRecovery::pathFor(data, root.filePath(QStringLiteral("b")) + trip);
        QVERIFY(a != b);
        QVERIFY(a != inData && b != inData);
        for (const QString &path : {a, b}) {
            QCOMPARE(QFileInfo(path).path(), data);
            QVERIFY2(QRegularExpression(QStringLiteral("^trip\\.wfn-[0-9a-f]{8}\\.recovery$"))
                         .match(QFileInfo(path).fileName())
                         .hasMatch(),
                     qPrintable(path));
        }
        // The same name at every start, so that the next start finds it.
        QCOMPARE(JourneyRecovery::pathFor(data, root.filePath(QStringLiteral("a")) + trip), a);
    }

    void declinedRecoveryIsKeptAsideUnderItsDate()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        QVERIFY(QFile::copy(ShellFixture::fixture(QStringLiteral("sample-nousers.wfn")),
                            recoveryOf(fx)));
        ModalTicket question = ModalHelper::answerNextMessageBox(QMessageBox::No);
        WayfernApp app;
        QVERIFY2(question->handled, qPrintable(question->error));
        QVERIFY(!app.doc->isModified());
        QVERIFY(!QFile::exists(recoveryOf(fx)));
        const QStringList aside =
            QDir(fx.dataDir()).entryList({QStringLiteral("sample.wfn.recovery-*")}, QDir::Files);
        QCOMPARE(aside.size(), 1);
        QVERIFY2(QRegularExpression(
                     QStringLiteral("^sample\\.wfn\\.recovery-\\d{4}-\\d\\d-\\d\\d-\\d{6}$"))
                     .match(aside.first())
                     .hasMatch(),
                 qPrintable(aside.first()));
        QCOMPARE(
            app.statusBar()->currentMessage(),
            QStringLiteral("The unsaved changes were kept in %1.").arg(fx.dataFile(aside.first())));
    }
};

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    if (argc > 1 && std::strcmp(argv[1], "--crash-child") == 0)
        return runChild();
    TestRecovery test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_recovery.moc"
