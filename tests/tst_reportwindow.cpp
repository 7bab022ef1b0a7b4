// The journey report from the window: the action after Settle up, the file dialog for the
// PDF's name, the two files written, and the warning when they cannot be.

#include "modalhelper.h"
#include "shellfixture.h"

#include "data/wayferndata.h"
#include "shell/wayfernapp.h"

#include <QAction>
#include <QApplication>
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
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

// Clicks the action's button on the toolbar, as a finger would.
bool clickToolButton(WayfernApp &app, QAction *action)
{
    auto *button = qobject_cast<QToolButton *>(app.toolBar->widgetForAction(action));
    if (!button || !button->isVisible() || !button->isEnabled())
        return false;
    QTest::mouseClick(button, Qt::LeftButton);
    return true;
}

} // namespace

class TestReportWindow : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { ModalHelper::cancelPending(); }

    void theActionComesAfterSettleUpWithItsTexts()
    {
        ShellFixture fx;
        WayfernApp app;
        QVERIFY(app.report);
        QCOMPARE(app.report->objectName(), QStringLiteral("report"));
        QCOMPARE(app.report->text(), QStringLiteral("Report..."));
        QCOMPARE(app.report->toolTip(), QStringLiteral("Journey report"));
        QCOMPARE(app.report->statusTip(),
                 QStringLiteral("Writes the journey report as PDF and HTML"));
        QVERIFY(app.report->whatsThis().startsWith(QStringLiteral("Journey report\n\n")));
        QVERIFY(!app.report->icon().isNull());
        const QList<QAction *> actions = app.toolBar->actions();
        QCOMPARE(actions.indexOf(app.report), actions.indexOf(app.settleUp) + 1);
        QCOMPARE(actions.indexOf(app.exportCsv), actions.indexOf(app.report) + 1);
    }

    void theToolbarButtonWritesThePdfAndTheHtmlPage()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        QCOMPARE(app.doc->journeyname, QStringLiteral("Lakes and Passes"));
        auto chosen = ModalHelper::typeNameInNextFileDialog(QStringLiteral("lakes"));
        QVERIFY(clickToolButton(app, app.report));
        QVERIFY2(chosen->handled, qPrintable(chosen->error));
        const QString pdf = fx.dataFile(QStringLiteral("lakes.pdf"));
        const QString html = fx.dataFile(QStringLiteral("lakes.html"));
        QVERIFY(readAll(pdf).startsWith("%PDF"));
        const QByteArray page = readAll(html);
        QVERIFY(page.contains("<h1>Lakes and Passes</h1>"));
        QVERIFY(page.contains("Total: 206.00 EUR in 5 costs"));
        QVERIFY(page.contains("<li>CD pays kitty 64.67 EUR</li>"));
        QCOMPARE(app.statusBar()->currentMessage(),
                 QStringLiteral("Report written: %1 and %2").arg(pdf, html));
        // Writing a report changes nothing of the journey, and the wait cursor is gone.
        QVERIFY(!app.doc->isModified());
        QVERIFY(!QApplication::overrideCursor());
    }

    void cancellingTheFileDialogWritesNothing()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        const QStringList before = QDir(fx.dataDir()).entryList(QDir::Files);
        auto cancelled = ModalHelper::cancelNextFileDialog();
        QVERIFY(clickToolButton(app, app.report));
        QVERIFY2(cancelled->handled, qPrintable(cancelled->error));
        QCOMPARE(QDir(fx.dataDir()).entryList(QDir::Files), before);
        QCOMPARE(app.statusBar()->currentMessage(), QStringLiteral("Report aborted"));
    }

    void aPlaceThatCannotBeWrittenBringsTheWarningBox()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        // The tests may run as root, who writes into any directory whatever its mode: a
        // directory under a plain file cannot be written by anybody.
        auto chosen = ModalHelper::typeNameInNextFileDialog(
            QStringLiteral("lakes"), fx.dataFile(QStringLiteral("sample.wfn")));
        auto box = ModalHelper::answerNextMessageBox(QMessageBox::Ok);
        QVERIFY(clickToolButton(app, app.report));
        QVERIFY2(chosen->handled, qPrintable(chosen->error));
        QVERIFY2(box->handled, qPrintable(box->error));
        const QString pdf = fx.dataFile(QStringLiteral("sample.wfn/lakes.pdf"));
        QCOMPARE(box->title, QStringLiteral("Wayfern"));
        QCOMPARE(box->icon, QMessageBox::Warning);
        QCOMPARE(box->text,
                 QStringLiteral("Could not save %1\n\n%2")
                     .arg(pdf, QString::fromLocal8Bit(std::strerror(ENOTDIR))));
        QCOMPARE(app.statusBar()->currentMessage(), QStringLiteral("Writing the report failed"));
        QVERIFY(!QFile::exists(fx.dataFile(QStringLiteral("lakes.html"))));
        QVERIFY(!QApplication::overrideCursor());
    }
};

QTEST_MAIN(TestReportWindow)
#include "tst_reportwindow.moc"
