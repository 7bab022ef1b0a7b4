#include "shell/wayfernapp.h"

#include "data/wayferndata.h"
#include "dialogs/savechangesquestion.h"
#include "dialogs/scqtfileedit.h"
#include "export/journeycsv.h"
#include "forms/formsupport.h"
#include "helpviewer/helppage.h"
#include "helpviewer/helpwindow.h"
#include "report/journeyreport.h"
#include "report/reportwriter.h"
#include "shell/journeyrecovery.h"
#include "shell/journeyundo.h"
#include "shell/wayfernview.h"
#include "wayfernversion.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QIcon>
#include <QKeySequence>
#include <QLocale>
#include <QLockFile>
#include <QMenuBar>
#include <QMessageBox>
#include <QStatusBar>
#include <QToolBar>
#include <QWhatsThis>

#include <sys/wait.h>
#include <unistd.h>

pid_t (*WayfernApp::forkProcess)() = &::fork;

WayfernApp::WayfernApp(QWidget *parent, const char *name, Qt::WindowFlags flags,
                       const QString &journey)
    : QMainWindow(parent, flags)
{
    // The actions' pictures come from the same resource file as the main form's.
    initShellResources();
    if (name)
        setObjectName(QString::fromLatin1(name));
    setWindowTitle(QStringLiteral("Wayfern " WAYFERN_VERSION));
    initActions();
    initToolBar();
    initStatusBar();
    initDoc();
    initView();
    initUndoActions();
    recovery = std::make_unique<JourneyRecovery>(doc);

    // A journey named on the command line comes first; one that cannot be read is named in
    // the warning box, and the window then starts as if no file had been named.
    QString openProblem;
    const bool opened = !journey.isEmpty() && openJourney(journey, &openProblem);
    if (!journey.isEmpty() && !opened)
        QMessageBox::warning(this, tr("Wayfern"),
                             tr("Could not open %1\n\n%2").arg(journey, openProblem));
    QString startProblem;
    if (!opened)
        startProblem = openLastJourney();
    const QString recovered = offerRecovery();

    viewToolBar->setChecked(true);
    viewStatusBar->setChecked(true);
    // The toggles above end in "Ready.": what went wrong at the start must come after them.
    QStringList problems;
    if (!startProblem.isEmpty())
        problems << startProblem;
    if (!templateProblem.isEmpty())
        problems << templateProblem;
    if (!recovered.isEmpty())
        problems << recovered;
    if (!problems.isEmpty())
        statusBar()->showMessage(problems.join(QStringLiteral(" ")));

    // No menu bar is built; should one exist, its height counts here.
    const int menuHeight = menuWidget() ? menuWidget()->height() : 0;
    view->setGeometry(0, menuHeight + toolBar->height(), view->width(), view->height());
    setMinimumSize(view->minimumWidth() + 10,
                   view->minimumHeight() + toolBar->height() + statusBar()->height() + 10);
    showMaximized();
}

WayfernApp::~WayfernApp()
{
    // The view is a child widget and would go with the window's base, after the document:
    // it and its dialogs hold the document, so it goes first.
    delete view;
    view = nullptr;
}

void WayfernApp::initActions()
{
    struct ActionRow
    {
        QAction **action;
        const char *text;
        const char *menuText;
        const char *accel;
        const char *statusTip;
        const char *whatsThis;
        const char *icon;
    };
    // Only the toolbar and the accelerators reach these: there is no menu.
    const ActionRow actionRows[] = {
        {&fileNew, QT_TR_NOOP("New File"), QT_TR_NOOP("&New"), QT_TR_NOOP("Ctrl+N"),
         QT_TR_NOOP("Creates a new document"), QT_TR_NOOP("New File\n\nCreates a new document"),
         ":/shell/filenew.xpm"},
        {&fileOpen, QT_TR_NOOP("Open File"), QT_TR_NOOP("&Open..."), QT_TR_NOOP("Ctrl+O"),
         QT_TR_NOOP("Opens an existing document"),
         QT_TR_NOOP("Open File\n\nOpens an existing document"), ":/shell/fileopen.xpm"},
        {&fileSave, QT_TR_NOOP("Save File"), QT_TR_NOOP("&Save"), QT_TR_NOOP("Ctrl+S"),
         QT_TR_NOOP("Saves the actual document"),
         QT_TR_NOOP("Save File.\n\nSaves the actual document"), ":/shell/filesave.xpm"},
        {&fileSaveAs, QT_TR_NOOP("Save File as"), QT_TR_NOOP("save &As"), QT_TR_NOOP("Ctrl+A"),
         QT_TR_NOOP("Saves with new filename"),
         QT_TR_NOOP("Save File As.\n\nSaves with new filename"), ":/shell/filesaveas.xpm"},
        {&openBase, QT_TR_NOOP("Open Base Dialog"), QT_TR_NOOP("&Base"), QT_TR_NOOP("Ctrl+B"),
         QT_TR_NOOP("Opens the base dialog"),
         QT_TR_NOOP("Opens the base dialog\n\nused for basic settings"), ":/shell/openbase.xpm"},
        {&openCurr, QT_TR_NOOP("Open Currency Dialog"), QT_TR_NOOP("&Currency"),
         QT_TR_NOOP("Ctrl+C"), QT_TR_NOOP("Opens the currency dialog"),
         QT_TR_NOOP("Opens the currency dialog\n\nused currency settings"), ":/shell/opencurr.xpm"},
        {&openUser, QT_TR_NOOP("Open User Dialog"), QT_TR_NOOP("&User"), QT_TR_NOOP("Ctrl+U"),
         QT_TR_NOOP("Opens the user dialog"),
         QT_TR_NOOP("Opens the user dialog\n\nuser input / data manipulation"),
         ":/shell/openuser.xpm"},
        {&openHelp, QT_TR_NOOP("Open online help"), QT_TR_NOOP("&Help"), QT_TR_NOOP("Ctrl+H"),
         QT_TR_NOOP("Opens the online help"), QT_TR_NOOP("Opens the online help browser\n"),
         ":/shell/openhelp.xpm"},
        {&viewToolBar, QT_TR_NOOP("Toolbar"), QT_TR_NOOP("Tool&bar"), nullptr,
         QT_TR_NOOP("Enables/disables the toolbar"),
         QT_TR_NOOP("Toolbar\n\nEnables/disables the toolbar"), nullptr},
        {&viewStatusBar, QT_TR_NOOP("Statusbar"), QT_TR_NOOP("&Statusbar"), nullptr,
         QT_TR_NOOP("Enables/disables the statusbar"),
         QT_TR_NOOP("Statusbar\n\nEnables/disables the statusbar"), nullptr},
    };
    for (const ActionRow &s : actionRows) {
        QAction *action = new QAction(this);
        // The menu text is the action's text in a menu; the plain text names it on the
        // toolbar and in its tool tip.
        action->setText(tr(s.menuText));
        action->setIconText(tr(s.text));
        action->setToolTip(tr(s.text));
        if (s.accel)
            action->setShortcut(QKeySequence(tr(s.accel)));
        action->setStatusTip(tr(s.statusTip));
        action->setWhatsThis(tr(s.whatsThis));
        if (s.icon)
            action->setIcon(QIcon(QString::fromLatin1(s.icon)));
        *s.action = action;
    }
    fileNew->setObjectName(QStringLiteral("fileNew"));
    fileOpen->setObjectName(QStringLiteral("fileOpen"));
    fileSave->setObjectName(QStringLiteral("fileSave"));
    fileSaveAs->setObjectName(QStringLiteral("fileSaveAs"));
    openBase->setObjectName(QStringLiteral("openBase"));
    openCurr->setObjectName(QStringLiteral("openCurr"));
    openUser->setObjectName(QStringLiteral("openUser"));
    openHelp->setObjectName(QStringLiteral("openHelp"));
    viewToolBar->setObjectName(QStringLiteral("viewToolBar"));
    viewStatusBar->setObjectName(QStringLiteral("viewStatusBar"));

    connect(fileNew, &QAction::triggered, this, &WayfernApp::slotFileNew);
    connect(fileOpen, &QAction::triggered, this, &WayfernApp::slotFileOpen);
    connect(fileSave, &QAction::triggered, this, &WayfernApp::slotFileSave);
    connect(fileSaveAs, &QAction::triggered, this, &WayfernApp::slotFileSaveAs);
    connect(openBase, &QAction::triggered, this, &WayfernApp::slotOpenBase);
    connect(openCurr, &QAction::triggered, this, &WayfernApp::slotOpenCurr);
    connect(openUser, &QAction::triggered, this, &WayfernApp::slotOpenUser);
    connect(openHelp, &QAction::triggered, this, &WayfernApp::slotOpenHelp);
    viewToolBar->setCheckable(true);
    connect(viewToolBar, &QAction::toggled, this, &WayfernApp::slotViewToolBar);
    viewStatusBar->setCheckable(true);
    connect(viewStatusBar, &QAction::toggled, this, &WayfernApp::slotViewStatusBar);

    fileQuit = new QAction(tr("&Quit"), this);
    fileQuit->setObjectName(QStringLiteral("fileQuit"));
    fileQuit->setShortcut(QKeySequence(tr("Ctrl+Q")));
    fileQuit->setStatusTip(tr("Quits the application"));
    connect(fileQuit, &QAction::triggered, this, &WayfernApp::slotFileQuit);

    settleUp = new QAction(QIcon(QStringLiteral(":/shell/settleup.xpm")), tr("Settle up"), this);
    settleUp->setObjectName(QStringLiteral("settleUp"));
    settleUp->setToolTip(tr("Settle up"));
    settleUp->setStatusTip(tr("Shows who pays whom to settle the journey"));
    settleUp->setWhatsThis(tr("Settle up\n\nShows every traveller's balance and the kitty's,\n"
                              "and who pays whom, how much, with the fewest\n"
                              "transfers or all with one traveller. The plan\n"
                              "can be booked as deposits and pay-offs."));
    connect(settleUp, &QAction::triggered, this, &WayfernApp::slotSettleUp);

    report = new QAction(QIcon(QStringLiteral(":/shell/report.xpm")), tr("Report..."), this);
    report->setObjectName(QStringLiteral("report"));
    report->setToolTip(tr("Journey report"));
    report->setStatusTip(tr("Writes the journey report as PDF and HTML"));
    report->setWhatsThis(tr("Journey report\n\nWrites the journey's dates, totals, spending by\n"
                            "category and by traveller, the balances, who pays\n"
                            "whom and every cost into a PDF file, and the same\n"
                            "as an HTML page beside it."));
    connect(report, &QAction::triggered, this, &WayfernApp::slotReport);

    exportCsv =
        new QAction(QIcon(QStringLiteral(":/shell/exportcsv.xpm")), tr("Export CSV..."), this);
    exportCsv->setObjectName(QStringLiteral("exportCsv"));
    exportCsv->setToolTip(tr("Export CSV"));
    exportCsv->setStatusTip(tr("Writes the costs and the accounts as CSV files"));
    exportCsv->setWhatsThis(tr("Export CSV\n\nWrites every cost into a CSV file for a\n"
                               "spreadsheet, and every account line into a\n"
                               "second file beside it, NAME-accounts.csv."));
    connect(exportCsv, &QAction::triggered, this, &WayfernApp::slotExportCsv);

    // The accelerators belong to the window, so they work with the toolbar hidden too.
    addActions({fileNew, fileOpen, fileSave, fileSaveAs, openBase, openCurr, openUser, openHelp,
                fileQuit});
}

void WayfernApp::initUndoActions()
{
    QUndoStack *stack = view->undo->stack();
    editUndo = new QAction(QIcon(QStringLiteral(":/shell/undo.xpm")), tr("Undo"), this);
    editUndo->setObjectName(QStringLiteral("editUndo"));
    editUndo->setShortcut(QKeySequence(tr("Ctrl+Z")));
    editUndo->setStatusTip(tr("Takes the last change back"));
    editRedo = new QAction(QIcon(QStringLiteral(":/shell/redo.xpm")), tr("Redo"), this);
    editRedo->setObjectName(QStringLiteral("editRedo"));
    editRedo->setShortcuts({QKeySequence(tr("Ctrl+Shift+Z")), QKeySequence(tr("Ctrl+Y"))});
    editRedo->setStatusTip(tr("Makes the change taken back again"));
    connect(editUndo, &QAction::triggered, stack, &QUndoStack::undo);
    connect(editRedo, &QAction::triggered, stack, &QUndoStack::redo);
    // The tool tip names the step that the action takes back or makes again.
    const auto follow = [this, stack] {
        editUndo->setEnabled(stack->canUndo());
        editRedo->setEnabled(stack->canRedo());
        editUndo->setToolTip(stack->canUndo() ? tr("Undo: %1").arg(stack->undoText()) : tr("Undo"));
        editRedo->setToolTip(stack->canRedo() ? tr("Redo: %1").arg(stack->redoText()) : tr("Redo"));
    };
    connect(stack, &QUndoStack::indexChanged, this, follow);
    connect(stack, &QUndoStack::cleanChanged, this, follow);
    // Undone back to what is saved: there is nothing left to recover after a crash.
    connect(stack, &QUndoStack::cleanChanged, this, [this](bool clean) {
        if (clean && recovery && !doc->isModified())
            recovery->discard();
    });
    follow();
    addActions({editUndo, editRedo});
    toolBar->addAction(editUndo);
    toolBar->addAction(editRedo);
}

void WayfernApp::initMenuBar()
{
    // Not called: the window keeps no menu. The edit actions of this layout are never
    // created, and quitting is the window's Ctrl+Q, so the routine builds only the rest.
    QMenu *fileMenu = new QMenu(tr("&File"), this);
    fileMenu->addAction(fileNew);
    fileMenu->addAction(fileOpen);
    fileMenu->addSeparator();
    fileMenu->addAction(fileSave);
    fileMenu->addAction(fileSaveAs);
    fileMenu->addSeparator();
    fileMenu->addSeparator();
    QMenu *editMenu = new QMenu(tr("&Edit"), this);
    QMenu *viewMenu = new QMenu(tr("&View"), this);
    viewMenu->addAction(viewToolBar);
    viewMenu->addAction(viewStatusBar);
    QMenu *helpMenu = new QMenu(tr("&Help"), this);
    menuBar()->addMenu(fileMenu);
    menuBar()->addMenu(editMenu);
    menuBar()->addMenu(viewMenu);
    menuBar()->addSeparator();
    menuBar()->addMenu(helpMenu);
}

void WayfernApp::initToolBar()
{
    toolBar = new QToolBar(QStringLiteral("file operations"), this);
    toolBar->setObjectName(QStringLiteral("file operations"));
    addToolBar(toolBar);
    toolBar->addAction(fileNew);
    toolBar->addAction(fileOpen);
    toolBar->addAction(fileSave);
    toolBar->addAction(fileSaveAs);
    toolBar->addSeparator();
    toolBar->addAction(openCurr);
    toolBar->addAction(openUser);
    toolBar->addAction(openBase);
    toolBar->addAction(openHelp);
    toolBar->addAction(QWhatsThis::createAction(toolBar));
    toolBar->addAction(settleUp);
    toolBar->addAction(report);
    toolBar->addAction(exportCsv);
}

void WayfernApp::initStatusBar()
{
    statusBar()->showMessage(tr("Ready."), 2000);
}

void WayfernApp::initDoc()
{
    document = std::make_unique<WayFernData>();
    doc = document.get();
}

void WayfernApp::initView()
{
    view = new WayfernView(this, doc);
    view->show();
}

bool WayfernApp::queryModified(const QString &caption)
{
    if (!doc->isModified())
        return true;
    const auto answer = askSaveChanges(this, caption);
    if (answer == QMessageBox::Yes)
        // A save that could not write keeps the window and the journey in hand: going on
        // would drop the changes that the warning just said are on no disk.
        return saveJourney();
    return answer == QMessageBox::No;
}

bool WayfernApp::queryExit()
{
    // Nothing asks this; closing goes through slotFileQuit.
    const int answer =
        QMessageBox::information(this, tr("Quit..."), tr("Do your really want to quit?"),
                                 QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Ok);
    return answer == QMessageBox::Ok;
}

void WayfernApp::resizeEvent(QResizeEvent *event)
{
    QMainWindow::resizeEvent(event);
    if (!view)
        return;
    const int top = toolBar->height();
    view->setGeometry(0, top, width(), height() - top - 10);
}

void WayfernApp::closeEvent(QCloseEvent *event)
{
    // The window never closes by itself: the run ends through the application.
    event->ignore();
    slotFileQuit();
}

void WayfernApp::slotFileNew()
{
    if (!queryModified(tr("New file ... ")))
        return;
    // What was not saved was given up with the answer.
    recovery->discard();
    statusBar()->showMessage(tr("Creating new file..."));
    doc->clearAll();
    const QString templatePath = doc->config.datapath + QStringLiteral("/") + doc->config.template_;
    templateProblem.clear();
    if (!view->loadView(templatePath)) {
        templateProblem =
            tr("Could not read the template %1: %2").arg(templatePath, view->fileProblem);
        // Show the empty journey that is left, not the rows of the one before.
        view->refreshView();
    }
    // Nothing of the journey before can be undone into the new one.
    view->undo->clear();
    fileName = QStringLiteral("");
    doc->lastfile = QStringLiteral("");
    adoptLock(nullptr, QString());
    recovery->follow(doc->config.datapath, fileName);
    setWindowTitle(tr("new file"));
    statusBar()->showMessage(tr("Loaded document: new file"), 2000);
    // The journey is empty then: the bar says why rather than "Ready.".
    statusBar()->showMessage(templateProblem.isEmpty() ? tr("Ready.") : templateProblem);
}

void WayfernApp::slotFileOpen()
{
    if (!queryModified(tr("Open file ... ")))
        return;
    statusBar()->showMessage(tr("Opening file..."));
    const QString path =
        ScQtFileEdit::getOpenFileName(this, "", doc->config.datapath, QStringLiteral("*.wfn"));
    if (path.isEmpty()) {
        statusBar()->showMessage(tr("Opening aborted"), 2000);
        return;
    }
    QString problem;
    if (!openJourney(path, &problem)) {
        statusBar()->showMessage(tr("Opening failed"));
        QMessageBox::warning(this, tr("Wayfern"), tr("Could not open %1\n\n%2").arg(path, problem));
        return;
    }
    statusBar()->showMessage(tr("Loaded document: ") + path, 2000);
}

QString WayfernApp::offerRecovery()
{
    const QString path = recovery->path();
    if (!QFileInfo(path).isFile())
        return QString();
    const QString journey = fileName.isEmpty() ? tr("new file") : QFileInfo(fileName).fileName();
    const QString when = QLocale().toString(QFileInfo(path).lastModified(), QLocale::ShortFormat);
    const auto answer = QMessageBox::question(
        this, tr("Recovery"),
        tr("Wayfern was not ended properly.\nRestore the unsaved changes of %1 from %2?")
            .arg(journey, when),
        QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes);
    if (answer == QMessageBox::Yes && view->loadView(path)) {
        // The journey keeps its own file: the changes are back, but not saved yet.
        doc->setModified(true);
        view->undo->markUnsaved();
        return tr("Restored the unsaved changes of %1.").arg(journey);
    }
    // Nothing is deleted without asking: the file goes aside under its date.
    const QString aside = JourneyRecovery::keepAside(path);
    return aside.isEmpty() ? QString() : tr("The unsaved changes were kept in %1.").arg(aside);
}

QString WayfernApp::openLastJourney()
{
    fileName = QStringLiteral("");
    if (doc->lastfile.isEmpty()) {
        slotFileNew();
        return QString();
    }
    const QString path = journeyPath(doc->lastfile);
    std::unique_ptr<QLockFile> lock;
    QString problem = tryLock(path, lock);
    if (problem.isEmpty()) {
        if (view->loadView(path)) {
            adoptLock(std::move(lock), path);
            setWindowTitle(QFileInfo(path).fileName());
            fileName = path;
            recovery->follow(doc->config.datapath, fileName);
            return QString();
        }
        problem = view->fileProblem;
    }
    // Start as on a first start. The last-state file is not written here, so the journey
    // opens again once it can be read (a disk that was missing, say).
    slotFileNew();
    return tr("Could not read the last journey %1: %2").arg(path, problem);
}

bool WayfernApp::openJourney(const QString &path, QString *problem)
{
    std::unique_ptr<QLockFile> lock;
    *problem = tryLock(path, lock);
    if (!problem->isEmpty())
        return false;
    if (!view->loadView(path)) {
        *problem = view->fileProblem;
        return false;
    }
    adoptLock(std::move(lock), path);
    recovery->discard();
    doc->lastfile = lastStateName(path);
    setWindowTitle(QFileInfo(path).fileName());
    fileName = path;
    recovery->follow(doc->config.datapath, fileName);
    view->saveLast();
    return true;
}

void WayfernApp::slotFileSave()
{
    saveJourney();
}

bool WayfernApp::saveJourney()
{
    if (fileName.isEmpty())
        return saveJourneyAs();
    statusBar()->showMessage(tr("Saving file..."));
    if (!view->saveView(fileName)) {
        // The changes are on no disk: the journey stays modified, so Quit still asks.
        statusBar()->showMessage(tr("Saving failed"));
        showFileFailure(tr("Could not save %1\n\n%2"), fileName);
        return false;
    }
    doc->setModified(false);
    recovery->discard();
    statusBar()->showMessage(tr("Ready."));
    return true;
}

void WayfernApp::slotFileSaveAs()
{
    saveJourneyAs();
}

bool WayfernApp::saveJourneyAs()
{
    statusBar()->showMessage(tr("Saving file under new filename..."));
    const QString path =
        ScQtFileEdit::getSaveFileName(this, "", doc->config.datapath, QStringLiteral("*.wfn"));
    if (path.isEmpty()) {
        // Declining to name a file is no failure: the question that asked goes on as before.
        statusBar()->showMessage(tr("Saving aborted"), 2000);
        return true;
    }
    std::unique_ptr<QLockFile> lock;
    const QString held = tryLock(path, lock);
    if (!held.isEmpty()) {
        // Another window works on that file: writing over it would lose its work.
        statusBar()->showMessage(tr("Saving failed"));
        QMessageBox::warning(this, tr("Wayfern"), tr("Could not save %1\n\n%2").arg(path, held));
        return false;
    }
    if (!view->saveView(path)) {
        // Nothing took the new name: the journey keeps its own and stays as modified as it
        // was.
        statusBar()->showMessage(tr("Saving failed"));
        showFileFailure(tr("Could not save %1\n\n%2"), path);
        return false;
    }
    adoptLock(std::move(lock), path);
    doc->lastfile = lastStateName(path);
    doc->setModified(false);
    recovery->discard();
    view->saveLast();
    setWindowTitle(QFileInfo(path).fileName());
    fileName = path;
    recovery->follow(doc->config.datapath, fileName);
    return true;
}

namespace {

// Beside the journey and hidden, so that it stays out of the way in a file manager.
QString lockPathFor(const QString &journey)
{
    const QFileInfo file(journey);
    return QDir::cleanPath(file.absolutePath()) + QStringLiteral("/.") + file.fileName()
        + QStringLiteral(".lock");
}

} // namespace

QString WayfernApp::tryLock(const QString &path, std::unique_ptr<QLockFile> &lock) const
{
    const QString lockPath = lockPathFor(path);
    if (journeyLock && lockedJourney == lockPath)
        return QString(); // this window's own journey again
    lock = std::make_unique<QLockFile>(lockPath);
    // A journey stays open for hours: only a lock whose process is gone is stale.
    lock->setStaleLockTime(0);
    if (lock->tryLock(0))
        return QString();
    qint64 pid = 0;
    QString host;
    QString application;
    if (lock->error() == QLockFile::LockFailedError
        && lock->getLockInfo(&pid, &host, &application)) {
        lock.reset();
        return tr("The journey is open in another Wayfern window: process %1 on %2.")
            .arg(pid)
            .arg(host);
    }
    // A folder that takes no lock file (a read-only disk, say) is no reason not to read.
    lock.reset();
    return QString();
}

void WayfernApp::adoptLock(std::unique_ptr<QLockFile> lock, const QString &path)
{
    if (!lock && !path.isEmpty() && lockedJourney == lockPathFor(path))
        return; // the window's own journey again: its lock stays
    journeyLock = std::move(lock);
    lockedJourney = journeyLock ? lockPathFor(path) : QString();
}

QString WayfernApp::lastStateName(const QString &path) const
{
    const QFileInfo file(path);
    const QString datapath = doc->config.datapath;
    if (!datapath.isEmpty()
        && QDir::cleanPath(file.absolutePath()) == QDir::cleanPath(QDir(datapath).absolutePath()))
        return file.fileName();
    return QDir::cleanPath(file.absoluteFilePath());
}

QString WayfernApp::journeyPath(const QString &lastName) const
{
    if (lastName.startsWith(QLatin1Char('/')))
        return lastName;
    return doc->config.datapath + QStringLiteral("/") + lastName;
}

void WayfernApp::showFileFailure(const QString &text, const QString &path)
{
    QMessageBox::warning(this, tr("Wayfern"), text.arg(path, view->fileProblem));
}

void WayfernApp::slotOpenBase()
{
    showSharesDividedAnew(view->openBase());
}

void WayfernApp::slotOpenCurr()
{
    showSharesDividedAnew(view->openCurr());
}

void WayfernApp::showSharesDividedAnew(int costs)
{
    // New shares change what each traveller owes: never without a word.
    if (costs > 0)
        statusBar()->showMessage(
            tr("The shares of %1 costs were divided anew at their new base values.").arg(costs));
}

void WayfernApp::slotOpenUser()
{
    view->openUser();
}

void WayfernApp::slotOpenHelp()
{
    // A window served over VNC has the screen to itself: a viewer program would need a
    // screen and a port of its own and stay behind unseen. The page is shown here instead.
    if (QGuiApplication::platformName() == QLatin1String("vnc")) {
        if (!helpWindow)
            helpWindow = std::make_unique<HelpWindow>();
        helpWindow->showPage(HelpPage::forLocale(doc->config.helpfile, QLocale::system()));
        helpWindow->setGeometry(screen()->availableGeometry());
        helpWindow->show();
        helpWindow->raise();
        helpWindow->activateWindow();
        return;
    }
    // Everything the child needs is made before the fork: after it only exec and exit run.
    const QByteArray program = doc->config.helpprog.toLocal8Bit();
    // The viewer sees an empty name of its own and the help file, literally, as its only
    // argument.
    QByteArray name("");
    QByteArray file = doc->config.helpfile.toLocal8Bit();
    char *argv[] = {name.data(), file.data(), nullptr};

    const pid_t pid = forkProcess();
    if (pid == 0) {
        // A second fork hands the viewer to init, which reaps it; this middle child ends
        // at once and is collected below, so no zombie is left behind.
        const pid_t viewer = ::fork();
        if (viewer == 0) {
            execvp(program.constData(), argv);
            _exit(1);
        }
        _exit(0);
    }
    if (pid < 0) {
        QMessageBox::information(nullptr, QStringLiteral("onlinehelp failure"),
                                 QStringLiteral("PID < 0"));
        return;
    }
    int status = 0;
    while (waitpid(pid, &status, 0) < 0 && errno == EINTR) {
    }
}

void WayfernApp::slotSettleUp()
{
    view->openSettle();
}

void WayfernApp::slotReport()
{
    statusBar()->showMessage(tr("Writing the journey report..."));
    QString path =
        ScQtFileEdit::getSaveFileName(this, "", doc->config.datapath, QStringLiteral("*.pdf"));
    if (path.isEmpty()) {
        statusBar()->showMessage(tr("Report aborted"), 2000);
        return;
    }
    if (!path.endsWith(QLatin1String(".pdf"), Qt::CaseInsensitive))
        path += QStringLiteral(".pdf");
    // A long journey's report takes seconds.
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const JourneyReport figures = JourneyReport::fromJourney(*doc, fileName);
    QString problem;
    const bool written = ReportWriter::write(figures, path, &problem);
    QApplication::restoreOverrideCursor();
    if (!written) {
        statusBar()->showMessage(tr("Writing the report failed"));
        QMessageBox::warning(this, tr("Wayfern"), tr("Could not save %1\n\n%2").arg(path, problem));
        return;
    }
    statusBar()->showMessage(
        tr("Report written: %1 and %2").arg(path, ReportWriter::htmlPathFor(path)));
}

void WayfernApp::slotExportCsv()
{
    statusBar()->showMessage(tr("Writing the CSV files..."));
    QString path =
        ScQtFileEdit::getSaveFileName(this, "", doc->config.datapath, QStringLiteral("*.csv"));
    if (path.isEmpty()) {
        statusBar()->showMessage(tr("Export aborted"), 2000);
        return;
    }
    if (!path.endsWith(QLatin1String(".csv"), Qt::CaseInsensitive))
        path += QStringLiteral(".csv");
    QString problem;
    QString failed;
    if (!JourneyCsv::writeFiles(*doc, path, &problem, &failed)) {
        statusBar()->showMessage(tr("Writing the CSV files failed"));
        QMessageBox::warning(this, tr("Wayfern"),
                             tr("Could not save %1\n\n%2").arg(failed, problem));
        return;
    }
    statusBar()->showMessage(
        tr("CSV written: %1 and %2").arg(path, JourneyCsv::accountsPathFor(path)));
}

void WayfernApp::slotFileQuit()
{
    statusBar()->showMessage(tr("Exiting application..."));
    if (doc->isModified()) {
        if (queryModified(tr("Quit ... "))) {
            // Saved, or given up with No: nothing is left to recover.
            recovery->discard();
            view->saveLast();
            // exit() ends the event loop without asking the windows to close again, which
            // would come back here.
            QApplication::exit(0);
        }
    } else {
        QApplication::exit(0);
    }
    statusBar()->showMessage(tr("Ready."));
}

void WayfernApp::slotEditCut()
{
    statusBar()->showMessage(tr("Cutting selection..."));
    statusBar()->showMessage(tr("Ready."));
}

void WayfernApp::slotEditCopy()
{
    statusBar()->showMessage(tr("Copying selection to clipboard..."));
    statusBar()->showMessage(tr("Ready."));
}

void WayfernApp::slotEditPaste()
{
    statusBar()->showMessage(tr("Inserting clipboard contents..."));
    statusBar()->showMessage(tr("Ready."));
}

void WayfernApp::slotViewToolBar(bool on)
{
    statusBar()->showMessage(tr("Toggle toolbar..."));
    if (on)
        toolBar->show();
    else
        toolBar->hide();
    statusBar()->showMessage(tr("Ready."));
}

void WayfernApp::slotViewStatusBar(bool on)
{
    statusBar()->showMessage(tr("Toggle statusbar..."));
    if (on)
        statusBar()->show();
    else
        statusBar()->hide();
    statusBar()->showMessage(tr("Ready."));
}
