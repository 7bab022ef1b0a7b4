#pragma once

#include <QMainWindow>
#include <QString>

#include <memory>
#include <sys/types.h>

class HelpWindow;
class JourneyRecovery;
class QAction;
class QLockFile;
class QToolBar;
class WayFernData;
class WayfernView;

// The main window: creates the document and the view, owns the toolbar and the status bar
// and hosts the file commands. Everything about the journey itself lives in the view.
class WayfernApp : public QMainWindow
{
    Q_OBJECT

public:
    // `journey`, when given, is opened instead of the last one: a file named on the command
    // line, as a file manager does.
    explicit WayfernApp(QWidget *parent = nullptr, const char *name = nullptr,
                        Qt::WindowFlags flags = {}, const QString &journey = QString());
    ~WayfernApp() override;

    bool queryModified(const QString &caption);
    bool queryExit();

    WayfernView *view = nullptr; // a child widget, deleted before the document
    WayFernData *doc = nullptr;  // the document that `document` owns
    QToolBar *toolBar = nullptr; // the toolbar and the actions are children too
    QAction *fileNew = nullptr;
    QAction *fileOpen = nullptr;
    QAction *fileSave = nullptr;
    QAction *fileSaveAs = nullptr;
    QAction *openBase = nullptr;
    QAction *openUser = nullptr;
    QAction *openCurr = nullptr;
    QAction *openHelp = nullptr;
    QAction *viewToolBar = nullptr;
    QAction *viewStatusBar = nullptr;
    // Ctrl+Q: the window has no menu, so this key is the way out from the keyboard.
    QAction *fileQuit = nullptr;
    // Beyond the journey's records: the end of a journey.
    QAction *settleUp = nullptr;
    // The journey report as PDF and HTML.
    QAction *report = nullptr;
    // The costs and the accounts as CSV files for spreadsheets.
    QAction *exportCsv = nullptr;
    // Undo and redo of the journey's steps; their tool tips name the step.
    QAction *editUndo = nullptr;
    QAction *editRedo = nullptr;
    QString fileName;

    // How the help viewer's process is made; replaceable so that a failing fork can be
    // exercised.
    static pid_t (*forkProcess)();
    // The unsaved state of the journey, kept on disk against a crash.
    std::unique_ptr<JourneyRecovery> recovery;
    // Where the window is served over VNC the help is shown here instead of by the viewer.
    std::unique_ptr<HelpWindow> helpWindow;

public slots:
    void slotFileNew();
    void slotFileOpen();
    void slotFileSave();
    void slotOpenBase();
    void slotOpenCurr();
    void slotOpenUser();
    void slotOpenHelp();
    void slotFileSaveAs();
    void slotFileQuit();
    void slotSettleUp();
    void slotReport();
    void slotExportCsv();
    void slotEditCut();
    void slotEditCopy();
    void slotEditPaste();
    void slotViewToolBar(bool on);
    void slotViewStatusBar(bool on);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    // The name the last-state file keeps for the journey at `path`: the bare file name
    // inside the journey directory, the full path anywhere else.
    QString lastStateName(const QString &path) const;
    // The journey that a last-state name stands for; a full path stands as it is.
    QString journeyPath(const QString &lastName) const;
    // A warning box that names the file that could not be read or written and why.
    void showFileFailure(const QString &text, const QString &path);
    // Says in the status line that a dialog's new rates divided the shares of `costs` costs
    // anew; nothing for none.
    void showSharesDividedAnew(int costs);
    // Loads `path` as the journey of the window, locks it and remembers it for the next
    // start; false (and nothing changed) when it cannot be read or another window holds it.
    // `problem` then says why.
    bool openJourney(const QString &path, QString *problem);
    // Takes the lock of the journey at `path` for this window, so that no second window
    // writes over its work; a stale lock of a crashed process is taken over. Empty when the
    // journey is this window's now (or its folder takes no lock file, as on a read-only
    // disk), else which process on which host holds it. The lock is kept in `lock` until
    // adoptLock() makes it the window's.
    QString tryLock(const QString &path, std::unique_ptr<QLockFile> &lock) const;
    void adoptLock(std::unique_ptr<QLockFile> lock, const QString &path);

    // At the start: a recovery file of the journey in the window is offered back. What
    // became of it, for the status bar.
    QString offerRecovery();
    // The start without a named journey: the last one, or a new one from the template. What
    // went wrong, for the status bar; empty when nothing did.
    QString openLastJourney();

    // Why New could not read the template; empty when it could.
    QString templateProblem;

    void initActions();
    // Made once the view and its history exist.
    void initUndoActions();
    void initMenuBar();
    void initToolBar();
    void initStatusBar();
    void initDoc();
    void initView();
    // The file commands' work; false only when a file could not be written.
    bool saveJourney();
    bool saveJourneyAs();

    std::unique_ptr<WayFernData> document;
    // The lock of the journey in the window, and the path of its file; none for a journey
    // that has no file yet.
    std::unique_ptr<QLockFile> journeyLock;
    QString lockedJourney;
};
