// The costs and accounts as CSV from the window: the action after the report, the file
// dialog for the name, the same bytes as the command line's, and the warning when a file
// cannot be written.

#include "modalhelper.h"
#include "shellfixture.h"

#include "data/wayferndata.h"
#include "shell/wayfernapp.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QProcess>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>
#include <QtTest>

#include <cerrno>
#include <cstring>

namespace {

QByteArray readAll(const QString &path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("<unreadable>");
}

bool clickToolButton(WayfernApp &app, QAction *action)
{
    auto *button = qobject_cast<QToolButton *>(app.toolBar->widgetForAction(action));
    if (!button || !button->isVisible() || !button->isEnabled())
        return false;
    QTest::mouseClick(button, Qt::LeftButton);
    return true;
}

// What the command line prints for `--csv what journey`, with the fixture's configuration.
QByteArray commandLineCsv(const ShellFixture &fx, const char *what, const QString &journey)
{
    QProcess process;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("WAYFERNCFG"), fx.cfgDir());
    process.setProcessEnvironment(env);
    process.start(QStringLiteral(WAYFERN_CHECK),
                  {QStringLiteral("--csv"), QString::fromLatin1(what), journey});
    if (!process.waitForFinished(60000) || process.exitCode() != 0)
        return QByteArray("<check failed>");
    return process.readAllStandardOutput();
}

} // namespace

class TestCsvWindow : public QObject
{
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression("Not implemented yet!")); }
    void cleanup() { ModalHelper::cancelPending(); }

    void theActionComesAfterTheReportWithItsTexts()
    {
        ShellFixture fx;
        WayfernApp app;
        QVERIFY(app.exportCsv);
        QCOMPARE(app.exportCsv->objectName(), QStringLiteral("exportCsv"));
        QCOMPARE(app.exportCsv->text(), QStringLiteral("Export CSV..."));
        QCOMPARE(app.exportCsv->toolTip(), QStringLiteral("Export CSV"));
        QVERIFY(app.exportCsv->whatsThis().startsWith(QStringLiteral("Export CSV\n\n")));
        QVERIFY(!app.exportCsv->icon().isNull());
        const QList<QAction *> actions = app.toolBar->actions();
        QCOMPARE(actions.indexOf(app.exportCsv), actions.indexOf(app.report) + 1);
        // Only undo and redo come after it.
        QCOMPARE(actions.indexOf(app.editUndo), actions.indexOf(app.exportCsv) + 1);
        QCOMPARE(actions.last(), app.editRedo);
    }

    void theToolbarButtonWritesTheCommandLinesBytes()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        app.show();
        QVERIFY(QTest::qWaitForWindowExposed(&app));
        auto chosen = ModalHelper::typeNameInNextFileDialog(QStringLiteral("lakes"));
        QVERIFY(clickToolButton(app, app.exportCsv));
        QVERIFY2(chosen->handled, qPrintable(chosen->error));
        const QString costs = fx.dataFile(QStringLiteral("lakes.csv"));
        const QString accounts = fx.dataFile(QStringLiteral("lakes-accounts.csv"));
        const QString journey = fx.dataFile(QStringLiteral("sample.wfn"));
        const QByteArray costBytes = readAll(costs);
        QVERIFY(costBytes.startsWith("date,type,comment,"));
        QVERIFY(costBytes.contains("Boat"));
        QCOMPARE(costBytes, commandLineCsv(fx, "costs", journey));
        QCOMPARE(readAll(accounts), commandLineCsv(fx, "accounts", journey));
        QCOMPARE(app.statusBar()->currentMessage(),
                 QStringLiteral("CSV written: %1 and %2").arg(costs, accounts));
        QVERIFY(!app.doc->isModified());
    }

    void cancellingTheFileDialogWritesNothing()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        app.show();
        QVERIFY(QTest::qWaitForWindowExposed(&app));
        const QStringList before = QDir(fx.dataDir()).entryList(QDir::Files);
        auto cancelled = ModalHelper::cancelNextFileDialog();
        QVERIFY(clickToolButton(app, app.exportCsv));
        QVERIFY2(cancelled->handled, qPrintable(cancelled->error));
        QCOMPARE(QDir(fx.dataDir()).entryList(QDir::Files), before);
        QCOMPARE(app.statusBar()->currentMessage(), QStringLiteral("Export aborted"));
    }

    void aPlaceThatCannotBeWrittenBringsTheWarningBox()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        app.show();
        QVERIFY(QTest::qWaitForWindowExposed(&app));
        // Root writes into any directory whatever its mode: a directory under a plain file
        // cannot be written by anybody.
        auto chosen = ModalHelper::typeNameInNextFileDialog(
            QStringLiteral("lakes"), fx.dataFile(QStringLiteral("sample.wfn")));
        auto box = ModalHelper::answerNextMessageBox(QMessageBox::Ok);
        QVERIFY(clickToolButton(app, app.exportCsv));
        QVERIFY2(chosen->handled, qPrintable(chosen->error));
        QVERIFY2(box->handled, qPrintable(box->error));
        const QString costs = fx.dataFile(QStringLiteral("sample.wfn/lakes.csv"));
        QCOMPARE(box->title, QStringLiteral("Wayfern"));
        QCOMPARE(box->icon, QMessageBox::Warning);
        QCOMPARE(box->text,
                 QStringLiteral("Could not save %1\n\n%2")
                     .arg(costs, QString::fromLocal8Bit(std::strerror(ENOTDIR))));
        QCOMPARE(app.statusBar()->currentMessage(), QStringLiteral("Writing the CSV files failed"));
        QVERIFY(!app.doc->isModified());
    }
};

QTEST_MAIN(TestCsvWindow)
#include "tst_csvwindow.moc"
