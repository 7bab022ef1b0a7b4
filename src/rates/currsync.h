#pragma once

#include "rates/syncfailure.h"

#include <QObject>
#include <QString>
#include <QTimer>

#include <sys/types.h>

#include <vector>

class QLabel;
class WayFernData;

// Fetches one page at a time with wget into the page file, watches the file with timers and
// reports the outcome through grabSuccess() or noSuccess(). It knows nothing of currency
// lists: the walk over all currencies belongs to the currency list dialog.
//
// A request that fails says why: the reason (failure()) comes from how wget ended, from the
// time limit, or from readRate() finding no rate; the status label shows it in words until
// the next request, and the page file of the failed request is removed.
class currSync : public QObject
{
    Q_OBJECT

public:
    currSync(WayFernData *document, QLabel *statusLabel);
    ~currSync() override;

    // Starts one rate request (base currency first, foreign currency second); false only
    // when no child process could be made.
    bool requestRate(const QString &from, const QString &to);
    // Starts a request for a page at a full address (the catalogue's own page), watched and
    // reported like a rate request.
    bool requestPage(const QString &address);
    // The rate in the page file for the currency last asked for; -1.0 means no rate. After
    // a rate request that succeeded, no rate is a failure of that request (NoRate).
    double readRate();
    // True when the file holds at least 40 lines and more text behind them.
    bool testFile(const QString &path);
    void deleteFile(const QString &path);

    // Full path of the page file, fixed at construction.
    QString pageFile() const { return syncFile; }

    // Why the present (or last) request failed; kind None while it has not, or not yet.
    const SyncFailure &failure() const { return lastFailure; }
    // Records `failure` as the present request's (its address filled in when empty),
    // removes the page file and keeps the failure's words in the status label.
    void noteFailure(SyncFailure failure);
    // Shows `text` in the status label and keeps it there until the next request.
    void keepStatus(const QString &text);
    // The words for a failure, as the status label and the catalogue show them.
    static QString describe(const SyncFailure &failure);

signals:
    void grabSuccess();
    void noSuccess();

public slots:
    virtual void slotTestResult();
    virtual void slotGetResult();
    virtual void slotDelStatus();

public:
    // Test seams. The intervals of the next requests: poll, time-out, status clearing
    // (2000, 30000 and 1000 ms unless a test shortens them).
    static void setIntervals(int pollMs, int timeoutMs, int statusMs);
    // How often ended children are looked for while any is left (500 ms).
    static void setReapInterval(int ms);
    // The failed poll count of the present request (0: it has succeeded).
    int failures() const { return failCount; }
    // Children started and not yet reaped.
    int unreapedChildren() const { return int(children.size()); }

protected:
    // Makes the child process, as fork() does: 0 in the child, its id or -1 in the parent.
    // A test overrides it to see the program live through a failing fork.
    virtual pid_t forkChild();

private:
    void beginRequest();
    bool startRequest(const QString &address);
    // waitpid without waiting on every child not yet reaped (also those of earlier,
    // abandoned requests); notes how the present one ended.
    void reapChildren();
    void setStatus(const QString &text);
    // The failure of a request that ends without its page: how its wget ended, when it
    // has, else the time limit.
    SyncFailure requestFailure() const;
    // Whether the present child wrote that it could not run wget; closes the pipe.
    bool takeExecFailure();
    void closeExecPipe();

    // The page file is opened and read inside the page reader of the core (RatePage), so
    // no file or stream lives here between calls.
    WayFernData *document;
    QLabel *statusLabel;
    QTimer testTimer;
    QTimer resultTimer;
    QTimer statusTimer;
    QString syncFile;
    int failCount = 0;

    QString lastTo;              // the currency of the last requestRate, for readRate
    std::vector<pid_t> children; // started, not yet reaped
    pid_t currentChild = 0;      // the child of the present request
    bool currentEnded = false;
    int currentStatus = -1;         // its exit status once reaped, -1 when it did not exit normally
    bool currentExecFailed = false; // it could not run wget
    int execPipe = -1;              // read end: the child writes a byte when exec fails
    QTimer reapTimer;

    QString currentAddress; // the address of the present request
    bool rateRequest = false;
    int requestTimeout = 0; // the time limit of the present request
    SyncFailure lastFailure;
    bool waiting = false;    // a request is watched by the timers
    bool statusKept = false; // the label holds words that the clearing must not wipe
};
