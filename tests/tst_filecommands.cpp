#include "shellfixture.h"
#include "stdoutcapture.h"
#include "widgetreaders.h"

#include "data/wayferndata.h"
#include "shell/wayfernapp.h"
#include "shell/wayfernview.h"

#include <QRegularExpression>
#include <QStatusBar>
#include <QTest>
#include <QTreeWidget>

namespace {

QByteArray readAll(const QString &path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

} // namespace

class TestFileCommands : public QObject
{
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression("Not implemented yet!")); }
    void cleanup() { ModalHelper::cancelPending(); }

    void firstStartWithoutLastStateLoadsTheTemplate()
    {
        ShellFixture fx;
        StdoutCapture out;
        WayfernApp app;
        const QString printed = out.text();
        QVERIFY(printed.contains(
            QStringLiteral("\nWayfernView::loadLast - not able to read %1/wayfern.last")
                .arg(fx.dataDir())));
        QCOMPARE(app.windowTitle(), QStringLiteral("new file"));
        QCOMPARE(app.fileName, QStringLiteral(""));
        QCOMPARE(app.doc->lastfile, QStringLiteral(""));
        QCOMPARE(app.doc->journeyname, QStringLiteral("Template"));
        QCOMPARE(app.doc->currencies.count(), 3);
        QCOMPARE(app.doc->ctypes.count(), 4);
        QVERIFY(!QFile::exists(fx.lastFile()));

        // Save goes to the save dialog, which names the file.
        auto shown = ModalHelper::typeNameInNextFileDialog(QStringLiteral("trip"));
        app.fileSave->trigger();
        QVERIFY2(shown->handled, qPrintable(shown->error));
        const QString path = fx.dataFile(QStringLiteral("trip.wfn"));
        QVERIFY(readAll(path).contains("JOURNEY-NAME=Template;"));
        QCOMPARE(app.windowTitle(), QStringLiteral("trip.wfn"));
        QCOMPARE(app.fileName, path);
        QCOMPARE(fx.lastNamed(), QStringLiteral("trip.wfn"));
    }

    void startReopensTheLastJourney()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        QCOMPARE(app.windowTitle(), QStringLiteral("sample.wfn"));
        QCOMPARE(app.fileName, fx.dataFile(QStringLiteral("sample.wfn")));
        QCOMPARE(app.doc->journeyname, QStringLiteral("Lakes and Passes"));
        QCOMPARE(WidgetReaders::rowCount(app.view->CostsListView), 5);
        QCOMPARE(WidgetReaders::rowCount(app.view->TipListView), 3);
    }

    void newLoadsTheTemplateAndWritesNoLastState()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        QFile::remove(fx.lastFile());
        app.fileNew->trigger();
        QCOMPARE(app.windowTitle(), QStringLiteral("new file"));
        QCOMPARE(app.fileName, QStringLiteral(""));
        QCOMPARE(app.doc->lastfile, QStringLiteral(""));
        QCOMPARE(app.doc->journeyname, QStringLiteral("Template"));
        QCOMPARE(WidgetReaders::rowCount(app.view->CostsListView), 0);
        QCOMPARE(app.statusBar()->currentMessage(), QStringLiteral("Ready."));
        QVERIFY(!QFile::exists(fx.lastFile()));
    }

    void cancelOnNewOrOpenLeavesEverythingAsItWas()
    {
        ShellFixture fx({QStringLiteral("sample.wfn"), QStringLiteral("sample-nousers.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        app.doc->setModified(true);
        auto seen = ModalHelper::answerNextMessageBox(QMessageBox::Cancel);
        app.slotFileNew();
        QVERIFY(seen->handled);
        QCOMPARE(seen->title, QStringLiteral("New file ... "));
        QCOMPARE(app.windowTitle(), QStringLiteral("sample.wfn"));
        QCOMPARE(app.doc->costs.count(), 5);
        QVERIFY(app.doc->isModified());

        seen = ModalHelper::answerNextMessageBox(QMessageBox::Cancel);
        app.slotFileOpen();
        QVERIFY(seen->handled);
        QCOMPARE(seen->title, QStringLiteral("Open file ... "));
        QCOMPARE(app.windowTitle(), QStringLiteral("sample.wfn"));
        QVERIFY(app.doc->isModified());
    }

    void answeringNoLoadsAndKeepsTheModifiedFlag()
    {
        ShellFixture fx({QStringLiteral("sample.wfn"), QStringLiteral("sample-nousers.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        app.doc->setModified(true);
        auto seen = ModalHelper::answerNextMessageBox(QMessageBox::No);
        app.slotFileNew();
        QVERIFY(seen->handled);
        QCOMPARE(app.windowTitle(), QStringLiteral("new file"));
        QVERIFY(app.doc->isModified());

        // The question comes again at the next Open.
        // The file dialog follows the question; both helpers wait for their own kind.
        ModalHelper::typeNameInNextFileDialog(QStringLiteral("sample-nousers.wfn"));
        seen = ModalHelper::answerNextMessageBox(QMessageBox::No);
        app.slotFileOpen();
        QVERIFY(seen->handled);
        QCOMPARE(app.windowTitle(), QStringLiteral("sample-nousers.wfn"));
        QCOMPARE(app.doc->journeyname, QStringLiteral("Lakes and Passes"));
        QVERIFY(!app.doc->userflag);
        QVERIFY(app.doc->isModified());
    }

    void openThroughTheFileDialogWritesTheLastState()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        WayfernApp app;
        QCOMPARE(app.windowTitle(), QStringLiteral("new file"));
        auto shown = ModalHelper::typeNameInNextFileDialog(QStringLiteral("sample.wfn"));
        app.fileOpen->trigger();
        QVERIFY2(shown->handled, qPrintable(shown->error));
        const QString path = fx.dataFile(QStringLiteral("sample.wfn"));
        QCOMPARE(app.windowTitle(), QStringLiteral("sample.wfn"));
        QCOMPARE(app.fileName, path);
        QCOMPARE(app.doc->lastfile, QStringLiteral("sample.wfn"));
        QCOMPARE(fx.lastNamed(), QStringLiteral("sample.wfn"));
        QCOMPARE(app.statusBar()->currentMessage(), QStringLiteral("Loaded document: ") + path);
        QCOMPARE(WidgetReaders::rowCount(app.view->CostsListView), 5);
    }

    void abortedOpenOnlyTellsSo()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        WayfernApp app;
        auto shown = ModalHelper::cancelNextFileDialog();
        app.slotFileOpen();
        QVERIFY2(shown->handled, qPrintable(shown->error));
        QCOMPARE(app.statusBar()->currentMessage(), QStringLiteral("Opening aborted"));
        QCOMPARE(app.windowTitle(), QStringLiteral("new file"));
        QVERIFY(!QFile::exists(fx.lastFile()));
    }

    void saveWritesInPlaceWithoutTheLastState()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        QFile::remove(fx.lastFile());
        app.doc->journeyname = QStringLiteral("Saved");
        app.doc->setModified(true);
        app.fileSave->trigger();
        QVERIFY(readAll(fx.dataFile(QStringLiteral("sample.wfn"))).contains("JOURNEY-NAME=Saved;"));
        QVERIFY(!app.doc->isModified());
        QVERIFY(!QFile::exists(fx.lastFile()));
        QCOMPARE(app.statusBar()->currentMessage(), QStringLiteral("Ready."));
    }

    void saveAsNamesTheJourneyAndWritesTheLastState()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        app.doc->setModified(true);
        auto shown = ModalHelper::typeNameInNextFileDialog(QStringLiteral("copy.wfn"));
        app.fileSaveAs->trigger();
        QVERIFY2(shown->handled, qPrintable(shown->error));
        const QString path = fx.dataFile(QStringLiteral("copy.wfn"));
        QVERIFY(readAll(path).contains("JOURNEY-NAME=Lakes and Passes;"));
        QCOMPARE(app.windowTitle(), QStringLiteral("copy.wfn"));
        QCOMPARE(app.fileName, path);
        QCOMPARE(fx.lastNamed(), QStringLiteral("copy.wfn"));
        QVERIFY(!app.doc->isModified());
        // The first status text stays after a successful save.
        QCOMPARE(app.statusBar()->currentMessage(),
                 QStringLiteral("Saving file under new filename..."));
    }

    void abortedSaveAsOnlyTellsSo()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        QFile::remove(fx.lastFile());
        auto shown = ModalHelper::cancelNextFileDialog();
        app.slotFileSaveAs();
        QVERIFY2(shown->handled, qPrintable(shown->error));
        QCOMPARE(app.statusBar()->currentMessage(), QStringLiteral("Saving aborted"));
        QCOMPARE(app.windowTitle(), QStringLiteral("sample.wfn"));
        QVERIFY(!QFile::exists(fx.lastFile()));
    }

    void yesForAnUnsavedJourneyThenAbortStillGoesOn()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        WayfernApp app;
        app.doc->journeyname = QStringLiteral("Unsaved");
        app.doc->setModified(true);
        ModalHelper::cancelNextFileDialog();
        auto seen = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
        app.slotFileNew();
        QVERIFY(seen->handled);
        // The save was aborted, and New went on: the changes are gone.
        QCOMPARE(app.doc->journeyname, QStringLiteral("Template"));
        QCOMPARE(app.windowTitle(), QStringLiteral("new file"));
    }

    void unsetTemplateGivesAnEmptyJourneyAndAPrintedLine()
    {
        ShellFixture fx({}, QStringLiteral("/bin/true"), QStringLiteral("help.html"), false);
        StdoutCapture out;
        WayfernApp app;
        const QString printed = out.text();
        const QString path = fx.dataDir() + u'/';
        QVERIFY(printed.contains(
            QStringLiteral("\nWayfernView::loadView - not able to read %1").arg(path)));
        QCOMPARE(app.doc->currencies.count(), 0);
        QCOMPARE(app.doc->costs.count(), 0);
        QCOMPARE(app.windowTitle(), QStringLiteral("new file"));
        QVERIFY(app.statusBar()->currentMessage().startsWith(
            QStringLiteral("Could not read the template %1: ").arg(path)));
    }
};

QTEST_MAIN(TestFileCommands)
#include "tst_filecommands.moc"
