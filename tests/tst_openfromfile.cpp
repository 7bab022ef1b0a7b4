// A journey named on the command line, as a file manager starts the program: it opens
// instead of the last one; one that cannot be read is named in a warning box and the window
// starts as if no file had been named.

#include "modalhelper.h"
#include "shellfixture.h"

#include "data/wayferndata.h"
#include "shell/wayfernapp.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QtTest>

#include <cerrno>
#include <cstring>

namespace {

// A copy of the sample journey outside the journey directory, named `trip.wfn`.
QString tripElsewhere(const ShellFixture &fx)
{
    const QString dir = QFileInfo(fx.dataDir()).path() + QStringLiteral("/elsewhere");
    QDir().mkpath(dir);
    const QString path = dir + QStringLiteral("/trip.wfn");
    QFile::remove(path);
    QFile::copy(ShellFixture::fixture(QStringLiteral("sample.wfn")), path);
    return path;
}

// Runs the program in `workDir` with `args` (WAYFERN_START_DIR set to `startDir`, or unset
// when empty) until the last-state file names `expected` or 30 seconds pass; what it names.
QString lastNamedByProgram(const ShellFixture &fx, const QString &workDir, const QString &startDir,
                           const QStringList &args, const QString &expected)
{
    QProcess program;
    program.setWorkingDirectory(workDir);
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    env.remove(QStringLiteral("WAYFERN_START_DIR"));
    if (!startDir.isEmpty())
        env.insert(QStringLiteral("WAYFERN_START_DIR"), startDir);
    program.setProcessEnvironment(env);
    program.start(QStringLiteral(WAYFERN_PROGRAM), args);
    if (!program.waitForStarted())
        return QStringLiteral("<not started>");
    QElapsedTimer waited;
    waited.start();
    while (fx.lastNamed() != expected && waited.elapsed() < 30000
           && program.state() == QProcess::Running)
        QTest::qWait(50);
    program.kill();
    program.waitForFinished();
    return fx.lastNamed();
}

} // namespace

class TestOpenFromFile : public QObject
{
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression("Not implemented yet!")); }
    void cleanup() { ModalHelper::cancelPending(); }

    void aNamedJourneyOpensInsteadOfTheLastAndIsRememberedByItsPath()
    {
        ShellFixture fx({QStringLiteral("sample-nousers.wfn")});
        fx.writeLast(QStringLiteral("sample-nousers.wfn"));
        const QString trip = tripElsewhere(fx);
        WayfernApp app(nullptr, nullptr, {}, trip);
        QCOMPARE(app.fileName, trip);
        QCOMPARE(app.windowTitle(), QStringLiteral("trip.wfn"));
        QCOMPARE(app.doc->journeyname, QStringLiteral("Lakes and Passes"));
        QCOMPARE(app.doc->costs.count(), 5);
        QVERIFY(!app.doc->isModified());
        QCOMPARE(fx.lastNamed(), trip);
    }

    void aNamedJourneyThatCannotBeReadIsNamedInABoxAndTheLastOneOpens()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        const QString missing = fx.dataFile(QStringLiteral("gone.wfn"));
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Ok);
        WayfernApp app(nullptr, nullptr, {}, missing);
        QVERIFY2(box->handled, qPrintable(box->error));
        QCOMPARE(box->title, QStringLiteral("Wayfern"));
        QCOMPARE(box->icon, QMessageBox::Warning);
        QCOMPARE(box->text,
                 QStringLiteral("Could not open %1\n\n%2")
                     .arg(missing, QString::fromLocal8Bit(std::strerror(ENOENT))));
        // As if no file had been named: the last journey, and the last-state file unchanged.
        QCOMPARE(app.fileName, fx.dataFile(QStringLiteral("sample.wfn")));
        QCOMPARE(app.doc->journeyname, QStringLiteral("Lakes and Passes"));
        QCOMPARE(fx.lastNamed(), QStringLiteral("sample.wfn"));
    }

    void theProgramOpensARelativeNameFromTheDirectoryItWasStartedIn()
    {
        ShellFixture fx({QStringLiteral("sample-nousers.wfn")});
        fx.writeLast(QStringLiteral("sample-nousers.wfn"));
        const QString trip = tripElsewhere(fx);
        QCOMPARE(lastNamedByProgram(fx, QFileInfo(trip).path(), QString(),
                                    {QStringLiteral("trip.wfn")}, trip),
                 trip);
    }

    void theLaunchersStartFolderCountsForARelativeName()
    {
        ShellFixture fx({QStringLiteral("sample-nousers.wfn")});
        fx.writeLast(QStringLiteral("sample-nousers.wfn"));
        const QString trip = tripElsewhere(fx);
        // The launchers run the program in the journey directory and say where they were.
        QCOMPARE(lastNamedByProgram(fx, fx.dataDir(), QFileInfo(trip).path(),
                                    {QStringLiteral("trip.wfn")}, trip),
                 trip);
    }
};

QTEST_MAIN(TestOpenFromFile)
#include "tst_openfromfile.moc"
