#include "formcheck.h"
#include "modalhelper.h"
#include "shellfixture.h"
#include "stdoutcapture.h"

#include "data/wayferndata.h"
#include "lists/journeylistmodels.h"
#include "shell/wayfernapp.h"
#include "shell/wayfernview.h"

#include <QAction>
#include <QDirIterator>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>

#include <cerrno>
#include <unistd.h>

namespace {

pid_t failingFork()
{
    errno = EAGAIN;
    return -1;
}

// Children of this process that have ended and were never collected.
int zombieChildren()
{
    int zombies = 0;
    const QString me = QString::number(getpid());
    QDirIterator it(QStringLiteral("/proc"), QDir::Dirs | QDir::NoDotAndDotDot);
    while (it.hasNext()) {
        it.next();
        QFile stat(it.filePath() + QStringLiteral("/stat"));
        if (!stat.open(QIODevice::ReadOnly))
            continue;
        const QString text = QString::fromLatin1(stat.readAll());
        const QStringList fields = text.mid(text.lastIndexOf(u')') + 2).split(u' ');
        if (fields.size() > 1 && fields.at(1) == me && fields.at(0) == QLatin1String("Z"))
            ++zombies;
    }
    return zombies;
}

// Runs the application's event loop until the program ends it or `ms` pass; true when the
// program ended it.
bool runUntilQuit(int ms)
{
    // The limit goes with this call: a later test's dialogs must not meet it.
    QTimer limit;
    limit.setSingleShot(true);
    QObject::connect(&limit, &QTimer::timeout, [] { QCoreApplication::exit(42); });
    limit.start(ms);
    return QCoreApplication::exec() == 0;
}

// Changes the journey of a shown window, then closes the window and answers the question
// about saving with `answer`; true when the program ended within `ms`. The last-state file
// is removed first, so that a test sees whether the close wrote it.
bool closeChangedJourney(WayfernApp &app, const ShellFixture &fx,
                         QMessageBox::StandardButton answer, ModalTicket &seen, int ms)
{
    app.show();
    app.doc->journeyname = QStringLiteral("Changed");
    app.doc->setModified(true);
    QFile::remove(fx.lastFile());
    seen = ModalHelper::answerNextMessageBox(answer);
    QTimer::singleShot(0, &app, [&app] { app.close(); });
    return runUntilQuit(ms);
}

// Taps the first column of a row, presses `key` in the list, double-taps the row and
// clears the selection; false when the row can't be reached.
bool tapRowThenReturnThenDoubleTap(QTreeView *list, int row, Qt::Key key)
{
    const QModelIndex index = list->model()->index(row, 0);
    // A tab just shown lays out its list from the event loop.
    if (!QTest::qWaitFor([&] { return list->visualRect(index).isValid(); }))
        return false;
    const QRect rect = list->visualRect(index);
    const QPoint inFirstColumn(rect.left() + 5, rect.center().y());
    if (!list->viewport()->rect().contains(inFirstColumn))
        return false;
    QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, inFirstColumn);
    list->setFocus();
    QTest::keyClick(list, key);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, inFirstColumn);
    list->clearSelection();
    return true;
}

// Records which override a signal of the main form reached.
class SlotRecorder : public MainDlg1
{
public:
    QStringList calls;
    void slotTPaste() override { calls << "slotTPaste"; }
    void slotCCopy() override { calls << "slotCCopy"; }
    void slotCPaste() override { calls << "slotCPaste"; }
    void slotCostsChange() override { calls << "slotCostsChange"; }
    void slotCostsDelete() override { calls << "slotCostsDelete"; }
    void slotCostsNew() override { calls << "slotCostsNew"; }
    void slotCostsSelectionChanged(const QModelIndex &row) override
    {
        calls << "slotCostsSelectionChanged "
                + (row.isValid() ? row.data().toString() : QStringLiteral("null"));
    }
    void slotTCopy() override { calls << "slotTCopy"; }
    void slotTipChange() override { calls << "slotTipChange"; }
    void slotTipDelete() override { calls << "slotTipDelete"; }
    void slotTipNew() override { calls << "slotTipNew"; }
    void slotTipSelectionChanged(const QModelIndex &row) override
    {
        calls << "slotTipSelectionChanged "
                + (row.isValid() ? row.data().toString() : QStringLiteral("null"));
    }
};

// The main form as designed, in creation order. The copy button repeats the paste button's
// what's-this text: the form wants it so.
const FormCheck::WidgetRow mainFormWidgets[] = {
    {"MainDlg1", "MainDlg1", "WayFern"},
    {"TabWidget2", "QTabWidget", nullptr, "OverView", ""},
    {"tab", "QWidget", "&Over"},
    {"OverListView", "QTreeWidget", "item|content", "OverView",
     "This ListView shows the \noverview information"},
    {"tab_2", "QWidget", "&Costs"},
    {"Layout10", "QWidget"},
    {"InsertButton", "QToolButton", "", "AppendButton",
     "appends a new costs entry to\nthe costs list.\nThis will open an empty costs dialog\nto "
     "fill in the data.",
     ":/shell/insert.xpm"},
    {"ChangeButton", "QToolButton", "", "ChangeButton",
     "changes the data of an existing costs entry.\nThe entry to be changed has to be selected.",
     ":/shell/change.xpm"},
    {"DeleteButton", "QToolButton", "", "DeleteButton",
     "deletes the selected costs entry from the list.\nThe user is asked to confirm the\naction.",
     ":/shell/delete.xpm"},
    {"CopyButton", "QToolButton", "", "CopyButton",
     "pastes the temp buffer into the costs\nlist (on top of the selected entry).",
     ":/shell/copy.xpm"},
    {"PasteButton", "QToolButton", "", "PasteButton",
     "pastes the temp buffer into the costs \nlist (on top of the selected entry).",
     ":/shell/paste.xpm"},
    {"CostsListView", "QTreeView", "date|tp|base|foreign|fcurr", "CostsListView",
     "This listview shows the\ncosts list."},
    {"tab_3", "QWidget", "&Tip"},
    {"TInsertButton", "QToolButton", "", "AppendButton",
     "appends a new tip entry to\nthe tip list.\nThis will open an empty tip dialog\nto fill "
     "in the data.",
     ":/shell/insert.xpm"},
    {"TChangeButton", "QToolButton", "", "ChangeButton",
     "changes the data of an existing tip entry.\nThe entry to be changed has to be selected.",
     ":/shell/change.xpm"},
    {"TDeleteButton", "QToolButton", "", "DeleteButton",
     "deletes the selected tip entry from the list.\nThe user is asked to confirm the\naction.",
     ":/shell/delete.xpm"},
    {"TCopyButton", "QToolButton", "", "CopyButton",
     "this button copies the selected tip entry\ninto a temp buffer (for paste).",
     ":/shell/copy.xpm"},
    {"TPasteButton", "QToolButton", "", "PasteButton",
     "pastes the temp buffer into the tip \nlist (on top of the selected entry).",
     ":/shell/paste.xpm"},
    {"TipListView", "QTreeView", "type|tip|quality", "", ""},
};

const FormCheck::StubRow mainFormStubs[] = {
    {"slotTPaste()", "MainDlg1::slotTPaste(): Not implemented yet!"},
    {"slotCCopy()", "MainDlg1::slotCCopy(): Not implemented yet!"},
    {"slotCPaste()", "MainDlg1::slotCPaste(): Not implemented yet!"},
    {"slotCostsChange()", "MainDlg1::slotCostsChange(): Not implemented yet!"},
    {"slotCostsDelete()", "MainDlg1::slotCostsDelete(): Not implemented yet!"},
    {"slotCostsNew()", "MainDlg1::slotCostsNew(): Not implemented yet!"},
    {"slotCostsSelectionChanged(QModelIndex)",
     "MainDlg1::slotCostsSelectionChanged( const QModelIndex & ): Not implemented yet!"},
    {"slotTCopy()", "MainDlg1::slotTCopy(): Not implemented yet!"},
    {"slotTipChange()", "MainDlg1::slotTipChange(): Not implemented yet!"},
    {"slotTipDelete()", "MainDlg1::slotTipDelete(): Not implemented yet!"},
    {"slotTipNew()", "MainDlg1::slotTipNew(): Not implemented yet!"},
    {"slotTipSelectionChanged(QModelIndex)",
     "MainDlg1::slotTipSelectionChanged( const QModelIndex & ): Not implemented yet!"},
};

} // namespace

class TestApp : public QObject
{
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression("Not implemented yet!")); }

    void cleanup()
    {
        ModalHelper::cancelPending();
        WayfernApp::forkProcess = &::fork;
    }

    void toolbarHoldsTheFileOperationsInOrderWithUndoAndRedoLast()
    {
        ShellFixture fx;
        WayfernApp app;
        QCOMPARE(app.toolBar->objectName(), QStringLiteral("file operations"));
        QCOMPARE(app.toolBar->windowTitle(), QStringLiteral("file operations"));
        const QList<QAction *> actions = app.toolBar->actions();
        // The end of a journey comes after the record actions, undo and redo last.
        QCOMPARE(actions.size(), 15);
        QCOMPARE(actions.at(0), app.fileNew);
        QCOMPARE(actions.at(1), app.fileOpen);
        QCOMPARE(actions.at(2), app.fileSave);
        QCOMPARE(actions.at(3), app.fileSaveAs);
        QVERIFY(actions.at(4)->isSeparator());
        QCOMPARE(actions.at(5), app.openCurr);
        QCOMPARE(actions.at(6), app.openUser);
        QCOMPARE(actions.at(7), app.openBase);
        QCOMPARE(actions.at(8), app.openHelp);
        // The what's-this button enters the what's-this mode.
        QVERIFY(actions.at(9)->isCheckable());
        QVERIFY(actions.at(9)->text().contains(QStringLiteral("What")));
        QCOMPARE(actions.at(10), app.settleUp);
        QCOMPARE(actions.at(11), app.report);
        QCOMPARE(actions.at(12), app.exportCsv);
        QCOMPARE(actions.at(13), app.editUndo);
        QCOMPARE(actions.at(14), app.editRedo);
        QVERIFY(!app.menuWidget());
    }

    void actionsCarryTheirTextsAndAccelerators_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("menuText");
        QTest::addColumn<QString>("accel");
        QTest::addColumn<QString>("statusTip");
        QTest::addColumn<QString>("whatsThis");
        QTest::addColumn<bool>("icon");
        QTest::newRow("fileNew") << "fileNew"
                                 << "New File"
                                 << "&New"
                                 << "Ctrl+N"
                                 << "Creates a new document"
                                 << "New File\n\nCreates a new document" << true;
        QTest::newRow("fileOpen") << "fileOpen"
                                  << "Open File"
                                  << "&Open..."
                                  << "Ctrl+O"
                                  << "Opens an existing document"
                                  << "Open File\n\nOpens an existing document" << true;
        QTest::newRow("fileSave") << "fileSave"
                                  << "Save File"
                                  << "&Save"
                                  << "Ctrl+S"
                                  << "Saves the actual document"
                                  << "Save File.\n\nSaves the actual document" << true;
        QTest::newRow("fileSaveAs") << "fileSaveAs"
                                    << "Save File as"
                                    << "save &As"
                                    << "Ctrl+A"
                                    << "Saves with new filename"
                                    << "Save File As.\n\nSaves with new filename" << true;
        QTest::newRow("openBase") << "openBase"
                                  << "Open Base Dialog"
                                  << "&Base"
                                  << "Ctrl+B"
                                  << "Opens the base dialog"
                                  << "Opens the base dialog\n\nused for basic settings" << true;
        QTest::newRow("openCurr") << "openCurr"
                                  << "Open Currency Dialog"
                                  << "&Currency"
                                  << "Ctrl+C"
                                  << "Opens the currency dialog"
                                  << "Opens the currency dialog\n\nused currency settings" << true;
        QTest::newRow("openUser") << "openUser"
                                  << "Open User Dialog"
                                  << "&User"
                                  << "Ctrl+U"
                                  << "Opens the user dialog"
                                  << "Opens the user dialog\n\nuser input / data manipulation"
                                  << true;
        QTest::newRow("openHelp") << "openHelp"
                                  << "Open online help"
                                  << "&Help"
                                  << "Ctrl+H"
                                  << "Opens the online help"
                                  << "Opens the online help browser\n"
                                  << true;
        QTest::newRow("viewToolBar") << "viewToolBar"
                                     << "Toolbar"
                                     << "Tool&bar"
                                     << ""
                                     << "Enables/disables the toolbar"
                                     << "Toolbar\n\nEnables/disables the toolbar" << false;
        QTest::newRow("viewStatusBar") << "viewStatusBar"
                                       << "Statusbar"
                                       << "&Statusbar"
                                       << ""
                                       << "Enables/disables the statusbar"
                                       << "Statusbar\n\nEnables/disables the statusbar" << false;
    }

    void actionsCarryTheirTextsAndAccelerators()
    {
        QFETCH(QString, name);
        QFETCH(QString, text);
        QFETCH(QString, menuText);
        QFETCH(QString, accel);
        QFETCH(QString, statusTip);
        QFETCH(QString, whatsThis);
        QFETCH(bool, icon);
        ShellFixture fx;
        WayfernApp app;
        auto *action = app.findChild<QAction *>(name);
        QVERIFY(action);
        QCOMPARE(action->iconText(), text);
        QCOMPARE(action->toolTip(), text);
        QCOMPARE(action->text(), menuText);
        QCOMPARE(action->shortcut(), QKeySequence(accel));
        QCOMPARE(action->statusTip(), statusTip);
        QCOMPARE(action->whatsThis(), whatsThis);
        QCOMPARE(!action->icon().isNull(), icon);
        // Only the two view actions toggle; they start switched on.
        QCOMPARE(action->isCheckable(), !icon);
        if (!icon)
            QVERIFY(action->isChecked());
    }

    void ctrlOOpensTheFileDialogOfOpen()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        app.show();
        QVERIFY(QTest::qWaitForWindowActive(&app));
        app.view->CostsListView->setFocus();
        ModalTicket dialog = ModalHelper::cancelNextFileDialog();
        QTest::keyClick(app.view->CostsListView, Qt::Key_O, Qt::ControlModifier);
        QVERIFY2(dialog->handled, qPrintable(dialog->error));
        QCOMPARE(app.statusBar()->currentMessage(), QStringLiteral("Opening aborted"));
        QCOMPARE(app.doc->journeyname, QStringLiteral("Lakes and Passes"));
    }

    void ctrlCOpensTheCurrencyDialogNotACopy()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        app.show();
        QVERIFY(QTest::qWaitForWindowActive(&app));
        app.view->TabWidget2->setCurrentIndex(1);
        app.view->CostsListView->setFocus();
        QVERIFY(ModalHelper::selectRow(app.view->CostsListView, 0));
        QSignalSpy curr(app.openCurr, &QAction::triggered);
        QSignalSpy save(app.fileSave, &QAction::triggered);
        // The currency list opens and is closed again at once.
        ModalTicket list = ModalHelper::clickInNextDialog("CloseButton", {}, "currListEdit");
        QTest::keyClick(app.view->CostsListView, Qt::Key_C, Qt::ControlModifier);
        QVERIFY2(list->handled && list->error.isEmpty(), qPrintable(list->error));
        QCOMPARE(curr.count(), 1);
        QCOMPARE(save.count(), 0);
        // The accelerators belong to the window and work with the toolbar hidden.
        app.viewToolBar->setChecked(false);
        // The hidden list stays the active window on this platform: give the window the
        // keyboard back.
        app.activateWindow();
        QTRY_COMPARE(QApplication::activeWindow(), static_cast<QWidget *>(&app));
        app.view->CostsListView->setFocus();
        list = ModalHelper::clickInNextDialog("CloseButton", {}, "currListEdit");
        QTest::keyClick(app.view->CostsListView, Qt::Key_C, Qt::ControlModifier);
        QVERIFY2(list->handled && list->error.isEmpty(), qPrintable(list->error));
        QCOMPARE(curr.count(), 2);
    }

    void startCaptionGivesWayToTheJourney()
    {
        ShellFixture fx;
        WayfernApp app;
        QCOMPARE(app.windowTitle(), QStringLiteral("new file"));
        // The status bar ends the start with "Ready." and both bars shown.
        QCOMPARE(app.statusBar()->currentMessage(), QStringLiteral("Ready."));
        QVERIFY(!app.toolBar->isHidden());
        QVERIFY(!app.statusBar()->isHidden());
        QVERIFY(app.isMaximized() || app.windowState().testFlag(Qt::WindowMaximized));
    }

    void toggleActionsShowAndHideTheBars()
    {
        ShellFixture fx;
        WayfernApp app;
        app.viewToolBar->setChecked(false);
        QVERIFY(app.toolBar->isHidden());
        app.viewStatusBar->setChecked(false);
        QVERIFY(app.statusBar()->isHidden());
        app.viewStatusBar->setChecked(true);
        QVERIFY(!app.statusBar()->isHidden());
        QCOMPARE(app.statusBar()->currentMessage(), QStringLiteral("Ready."));
        app.viewToolBar->setChecked(true);
        QVERIFY(!app.toolBar->isHidden());
    }

    void viewFillsTheWindowBelowTheToolbarLeavingTenPoints()
    {
        ShellFixture fx;
        WayfernApp app;
        app.showNormal();
        app.resize(400, 500);
        const int top = app.toolBar->height();
        QTRY_COMPARE(app.view->geometry(), QRect(0, top, app.width(), app.height() - top - 10));
        QCOMPARE(app.minimumWidth(), app.view->minimumWidth() + 10);
        QVERIFY(app.minimumHeight() >= app.view->minimumHeight() + 10);
    }

    void editSlotsOnlyTalkOnTheStatusBar()
    {
        ShellFixture fx;
        WayfernApp app;
        QSignalSpy messages(app.statusBar(), &QStatusBar::messageChanged);
        app.slotEditCut();
        app.slotEditCopy();
        app.slotEditPaste();
        QStringList shown;
        for (const QList<QVariant> &signal : messages)
            shown << signal.at(0).toString();
        QCOMPARE(shown,
                 (QStringList{"Cutting selection...", "Ready.", "Copying selection to clipboard...",
                              "Ready.", "Inserting clipboard contents...", "Ready."}));
        QCOMPARE(app.statusBar()->currentMessage(), QStringLiteral("Ready."));
    }

    void queryExitAsksToQuit()
    {
        ShellFixture fx;
        WayfernApp app;
        auto seen = ModalHelper::answerNextMessageBox(QMessageBox::Cancel);
        QVERIFY(!app.queryExit());
        QCOMPARE(seen->title, QStringLiteral("Quit..."));
        QCOMPARE(seen->text, QStringLiteral("Do your really want to quit?"));
        ModalHelper::answerNextMessageBox(QMessageBox::Ok);
        QVERIFY(app.queryExit());
    }

    void quitUnmodifiedEndsWithoutWritingTheLastState()
    {
        ShellFixture fx;
        WayfernApp app;
        app.show();
        QVERIFY(!app.doc->isModified());
        QTimer::singleShot(0, &app, [&app] { app.close(); });
        QVERIFY(runUntilQuit(3000));
        QVERIFY(!QFile::exists(fx.lastFile()));
        // The window stays: the run ends through the application.
        QVERIFY(app.isVisible());
    }

    void quitModifiedAndYesSavesAndWritesTheLastState()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        ModalTicket seen;
        QVERIFY(closeChangedJourney(app, fx, QMessageBox::Yes, seen, 5000));
        QVERIFY(seen->handled);
        QCOMPARE(seen->title, QStringLiteral("Quit ... "));
        QCOMPARE(seen->text,
                 QStringLiteral("You have modified the data!\nDo you want to save the changes ?"));
        QCOMPARE(fx.lastNamed(), QStringLiteral("sample.wfn"));
        QFile saved(fx.dataFile(QStringLiteral("sample.wfn")));
        QVERIFY(saved.open(QIODevice::ReadOnly));
        QVERIFY(saved.readAll().contains("JOURNEY-NAME=Changed;"));
        QVERIFY(!app.doc->isModified());
    }

    void quitModifiedAndNoWritesTheLastStateAndLosesTheChanges()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        ModalTicket seen;
        QVERIFY(closeChangedJourney(app, fx, QMessageBox::No, seen, 5000));
        QVERIFY(seen->handled);
        QCOMPARE(fx.lastNamed(), QStringLiteral("sample.wfn"));
        QFile saved(fx.dataFile(QStringLiteral("sample.wfn")));
        QVERIFY(saved.open(QIODevice::ReadOnly));
        QVERIFY(saved.readAll().contains("JOURNEY-NAME=Lakes and Passes;"));
    }

    void ctrlQWithChangesAsksTheQuitQuestionAndCancelKeepsRunning()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        app.show();
        QVERIFY(QTest::qWaitForWindowActive(&app));
        app.doc->setModified(true);
        ModalTicket seen = ModalHelper::answerNextMessageBox(QMessageBox::Cancel);
        app.view->CostsListView->setFocus();
        QTimer::singleShot(0, &app, [&app] {
            QTest::keyClick(app.view->CostsListView, Qt::Key_Q, Qt::ControlModifier);
        });
        QVERIFY(!runUntilQuit(1500));
        QVERIFY2(seen->handled, qPrintable(seen->error));
        QCOMPARE(seen->title, QStringLiteral("Quit ... "));
        QVERIFY(app.doc->isModified());
    }

    void ctrlQWithoutChangesEndsTheProgram()
    {
        ShellFixture fx;
        WayfernApp app;
        app.show();
        QVERIFY(QTest::qWaitForWindowActive(&app));
        app.view->CostsListView->setFocus();
        QTimer::singleShot(0, &app, [&app] {
            QTest::keyClick(app.view->CostsListView, Qt::Key_Q, Qt::ControlModifier);
        });
        QVERIFY(runUntilQuit(3000));
    }

    void closeWithCancelKeepsTheProgramRunning()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        ModalTicket seen;
        QVERIFY(!closeChangedJourney(app, fx, QMessageBox::Cancel, seen, 1500));
        QVERIFY(seen->handled);
        QVERIFY(app.isVisible());
        QVERIFY(app.doc->isModified());
        QVERIFY(!QFile::exists(fx.lastFile()));
        QCOMPARE(app.statusBar()->currentMessage(), QStringLiteral("Ready."));
    }

    void helpViewerGetsTheHelpFileLiterallyAndLeavesNoZombie()
    {
        ShellFixture probe;
        // The shell runs the "help file" as its script: it records its own argument vector.
        const QString out = probe.dataFile(QStringLiteral("argv.txt"));
        const QString script = probe.dataFile(QStringLiteral("help%s%d%n.sh"));
        QFile f(script);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(("tr '\\000' '\\n' < /proc/$$/cmdline > '" + out + ".tmp'; mv '" + out + ".tmp' '"
                 + out + "'\n")
                    .toLocal8Bit());
        f.close();
        ShellFixture fx({}, QStringLiteral("sh"), script);
        WayfernApp app;
        app.openHelp->trigger();
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(out), 5000);
        QFile result(out);
        QVERIFY(result.open(QIODevice::ReadOnly));
        // Its own name is empty; the one argument is the file, "%" and all.
        QCOMPARE(QString::fromLocal8Bit(result.readAll()), QStringLiteral("\n") + script + u'\n');
        QTRY_COMPARE_WITH_TIMEOUT(zombieChildren(), 0, 2000);
    }

    void missingHelpViewerPassesWithoutAWord()
    {
        ShellFixture fx({}, QStringLiteral("/nonexistent/viewer"));
        WayfernApp app;
        auto box = ModalHelper::onNextModal([](QWidget *) { return true; },
                                            [](QWidget *w, ModalOutcome &) { w->close(); }, 300);
        app.slotOpenHelp();
        // The helper gives up when no box shows within its time-out.
        QTRY_VERIFY_WITH_TIMEOUT(!box->error.isEmpty(), 2000);
        QVERIFY(!box->handled);
        QTRY_COMPARE_WITH_TIMEOUT(zombieChildren(), 0, 2000);
    }

    void forkFailureIsShownInAMessageBox()
    {
        ShellFixture fx;
        WayfernApp app;
        WayfernApp::forkProcess = &failingFork;
        auto seen = ModalHelper::answerNextMessageBox(QMessageBox::Ok);
        app.slotOpenHelp();
        QVERIFY(seen->handled);
        QCOMPARE(seen->title, QStringLiteral("onlinehelp failure"));
        QCOMPARE(seen->text, QStringLiteral("PID < 0"));
    }

    void formHasItsTabsWidgetsAndTexts()
    {
        MainDlg1 form;
        FormCheck::checkWidgets(&form, mainFormWidgets);
        if (QTest::currentTestFailed())
            return;
        QCOMPARE(form.size(), QSize(248, 298));
        QCOMPARE(form.minimumSize(), QSize(200, 180));
        QCOMPARE(form.sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
        QCOMPARE(form.sizePolicy().verticalPolicy(), QSizePolicy::Expanding);
        QCOMPARE(form.TabWidget2->minimumSize(), QSize(200, 170));
        QCOMPARE(form.TabWidget2->count(), 3);
        QCOMPARE(form.TabWidget2->widget(0), form.tab);
        QCOMPARE(form.TabWidget2->widget(1), form.tab_2);
        QCOMPARE(form.TabWidget2->widget(2), form.tab_3);
        QCOMPARE(form.OverListView->frameShape(), QFrame::StyledPanel);
        QCOMPARE(form.OverListView->selectionMode(), QAbstractItemView::SingleSelection);
        QVERIFY(form.OverListView->allColumnsShowFocus());
        QVERIFY(form.OverListView->header()->isSortIndicatorShown());
        QVERIFY(form.OverListView->rootIsDecorated());
        QVERIFY(form.CostsListView->allColumnsShowFocus());
        QVERIFY(form.TipListView->allColumnsShowFocus());
        QVERIFY(form.Layout10->isAncestorOf(form.CostsListView));
    }

    void formSlotsAreStubsThatWarn()
    {
        MainDlg1 form;
        FormCheck::checkStubs(&form, MainDlg1::staticMetaObject, mainFormStubs);
    }

    void formButtonsAndListsReachTheirSlots()
    {
        SlotRecorder form;
        form.show();
        QVERIFY(QTest::qWaitForWindowExposed(&form));
        for (QToolButton *button :
             {form.ChangeButton, form.DeleteButton, form.TChangeButton, form.TDeleteButton,
              form.InsertButton, form.TInsertButton, form.CopyButton, form.PasteButton,
              form.TCopyButton, form.TPasteButton})
            button->click();
        QCOMPARE(form.calls,
                 (QStringList{"slotCostsChange", "slotCostsDelete", "slotTipChange",
                              "slotTipDelete", "slotCostsNew", "slotTipNew", "slotCCopy",
                              "slotCPaste", "slotTCopy", "slotTPaste"}));

        // The lists show a journey of one cost and one tip.
        WayFernData doc;
        doc.costs.append()->date = QStringLiteral("01.06.2002");
        doc.tips.append()->typeletter = QStringLiteral("H");
        form.costModel->setJourney(&doc);
        form.costModel->reload();
        form.tipModel->setJourney(&doc);
        form.tipModel->reload();

        form.calls.clear();
        form.TabWidget2->setCurrentWidget(form.tab_2);
        QVERIFY(tapRowThenReturnThenDoubleTap(form.CostsListView, 0, Qt::Key_Return));
        // Return and a double click each change the entry once.
        QCOMPARE(form.calls,
                 (QStringList{"slotCostsSelectionChanged 01.06", "slotCostsChange",
                              "slotCostsChange", "slotCostsSelectionChanged null"}));

        form.calls.clear();
        form.TabWidget2->setCurrentWidget(form.tab_3);
        QVERIFY(tapRowThenReturnThenDoubleTap(form.TipListView, 0, Qt::Key_Enter));
        QCOMPARE(form.calls,
                 (QStringList{"slotTipSelectionChanged H", "slotTipChange", "slotTipChange",
                              "slotTipSelectionChanged null"}));
    }

    void applicationFontChangeSetsTheTabFontAgain()
    {
        MainDlg1 form;
        QVERIFY(!form.TabWidget2->testAttribute(Qt::WA_SetFont));
        QEvent change(QEvent::ApplicationFontChange);
        QApplication::sendEvent(&form, &change);
        QVERIFY(form.TabWidget2->testAttribute(Qt::WA_SetFont));
        QEvent other(QEvent::FontChange);
        MainDlg1 second;
        QApplication::sendEvent(&second, &other);
        QVERIFY(!second.TabWidget2->testAttribute(Qt::WA_SetFont));
    }
};

QTEST_MAIN(TestApp)
#include "tst_app.moc"
