#include "rates/currsync.h"

#include "data/wayferndata.h"
#include "rates/ratepage.h"

#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QMessageBox>
#include <QUrl>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <climits>

namespace {

int pollInterval = 2000;
int timeoutInterval = 30000;
int statusInterval = 1000;
// Ended children are looked for this often while any is left.
int reapInterval = 500;

// Children still running when their currSync went away; whichever currSync lives on reaps
// them, so that none stays a zombie.
std::vector<pid_t> &orphans()
{
    static std::vector<pid_t> list;
    return list;
}

} // namespace

currSync::currSync(WayFernData *document, QLabel *statusLabel)
    : QObject(nullptr), document(document), statusLabel(statusLabel)
{
    if (document)
        syncFile = document->config.datapath + QStringLiteral("/") + document->config.syncfile;
    connect(&testTimer, &QTimer::timeout, this, &currSync::slotTestResult);
    connect(&resultTimer, &QTimer::timeout, this, &currSync::slotGetResult);
    connect(&statusTimer, &QTimer::timeout, this, &currSync::slotDelStatus);
    connect(&reapTimer, &QTimer::timeout, this, [this] { reapChildren(); });
    if (!orphans().empty())
        reapTimer.start(reapInterval);
}

currSync::~currSync()
{
    resultTimer.stop();
    testTimer.stop();
    statusTimer.stop();
    reapTimer.stop();
    reapChildren();
    closeExecPipe();
    orphans().insert(orphans().end(), children.begin(), children.end());
}

void currSync::setIntervals(int pollMs, int timeoutMs, int statusMs)
{
    pollInterval = pollMs;
    timeoutInterval = timeoutMs;
    statusInterval = statusMs;
}

void currSync::setReapInterval(int ms)
{
    reapInterval = ms;
}

pid_t currSync::forkChild()
{
    return fork();
}

void currSync::setStatus(const QString &text)
{
    if (statusLabel)
        statusLabel->setText(text);
}

void currSync::keepStatus(const QString &text)
{
    statusTimer.stop();
    statusKept = true;
    setStatus(text);
}

void currSync::noteFailure(SyncFailure failure)
{
    if (failure.address.isEmpty())
        failure.address = currentAddress;
    lastFailure = failure;
    // A failed request leaves no page behind for anyone to take for an answer.
    deleteFile(syncFile);
    keepStatus(describe(lastFailure));
}

QString currSync::describe(const SyncFailure &failure)
{
    using Kind = SyncFailure::Kind;
    // A request that brought no page begins with the words such a request always had.
    const QString noData = tr("did not get data ...") + QLatin1Char(' ');
    switch (failure.kind) {
    case Kind::None:
        return QString();
    case Kind::NoConnection: {
        const QUrl url(failure.address);
        const QString server = url.isValid() && !url.host().isEmpty()
            ? url.adjusted(QUrl::RemovePath | QUrl::RemoveQuery | QUrl::RemoveFragment
                           | QUrl::RemoveUserInfo)
                  .toString()
            : failure.address;
        return noData + tr("no connection to the server %1").arg(server);
    }
    case Kind::Refused:
        return noData + tr("the server refused the request %1").arg(failure.address);
    case Kind::EmptyAnswer:
        return noData + tr("the server sent an empty answer to %1").arg(failure.address);
    case Kind::DownloadFailed:
        if (failure.status < 0)
            return noData + tr("wget did not end normally");
        return noData + tr("wget ended with status %1").arg(failure.status);
    case Kind::NotStarted:
        return noData + tr("wget could not be started");
    case Kind::TimedOut:
        return noData
            + tr("no answer within %1 seconds").arg(QString::number(failure.timeoutMs / 1000.0));
    case Kind::NoRate:
        return tr("no rate for %1 in the answer").arg(failure.currency);
    case Kind::NoCatalogue:
        return tr("no list of currencies in the answer from %1").arg(failure.address);
    }
    return QString();
}

void currSync::beginRequest()
{
    failCount = 1;
    waiting = false;
    lastFailure = SyncFailure();
    statusKept = false;
    // A request that still runs is no longer watched from here on; its child is only reaped.
    resultTimer.stop();
    testTimer.stop();
    statusTimer.stop();
}

bool currSync::requestRate(const QString &from, const QString &to)
{
    beginRequest();
    lastTo = to;
    rateRequest = true;
    setStatus(tr("request for") + QStringLiteral(" ") + from + QStringLiteral(" -> ") + to
              + QStringLiteral(" ") + tr("please wait"));
    const WayFernConfig &config = document->config;
    // Plain concatenation: the configuration pieces carry their own separators.
    const QString address =
        config.server + config.fromprefix + from + config.toprefix + to + config.postfix;
    return startRequest(address);
}

bool currSync::requestPage(const QString &address)
{
    beginRequest();
    rateRequest = false;
    setStatus(tr("request for") + QStringLiteral(" ") + address + QStringLiteral(" ")
              + tr("please wait"));
    return startRequest(address);
}

bool currSync::startRequest(const QString &address)
{
    // Everything the child needs is made here, before fork: the child of a program with
    // threads may only make async-signal-safe calls. The values go to wget as they stand.
    QByteArray program("wget");
    QByteArray name(""); // deliberately not the program's name
    QByteArray quiet("-q");
    QByteArray output("-O");
    QByteArray page = QFile::encodeName(syncFile);
    QByteArray url = address.toUtf8();
    char *argv[] = {name.data(), quiet.data(), output.data(), page.data(), url.data(), nullptr};

    // An old page must not pass for the new one.
    deleteFile(syncFile);
    reapChildren();

    currentAddress = address;
    requestTimeout = timeoutInterval;
    currentChild = 0;
    currentEnded = false;
    currentStatus = -1;
    currentExecFailed = false;
    closeExecPipe();
    // A child that cannot run wget says so through this pipe; one that can closes it by
    // running wget. Without a pipe a missing wget only shows as a failure status.
    int fds[2] = {-1, -1};
    if (::pipe2(fds, O_CLOEXEC | O_NONBLOCK) != 0)
        fds[0] = fds[1] = -1;
    const pid_t pid = forkChild();
    if (pid == 0) {
        execvp(program.constData(), argv);
        if (fds[1] >= 0) {
            const char failed = 1;
            const ssize_t written = ::write(fds[1], &failed, 1);
            (void)written;
        }
        _exit(1); // not exit(): no atexit handlers or stdio flushing of the parent's state
    }
    if (fds[1] >= 0)
        ::close(fds[1]);
    execPipe = fds[0];
    if (pid < 0) {
        closeExecPipe();
        QMessageBox::information(nullptr, QStringLiteral("wget failure"),
                                 QStringLiteral("PID < 0"));
        return false;
    }
    children.push_back(pid);
    currentChild = pid;
    waiting = true;
    resultTimer.setSingleShot(true);
    resultTimer.start(timeoutInterval);
    testTimer.setSingleShot(false);
    testTimer.start(pollInterval);
    if (!reapTimer.isActive())
        reapTimer.start(reapInterval);
    return true;
}

void currSync::reapChildren()
{
    auto reap = [this](std::vector<pid_t> &list) {
        for (auto it = list.begin(); it != list.end();) {
            int status = 0;
            const pid_t result = waitpid(*it, &status, WNOHANG);
            const bool gone = result == *it || (result < 0 && errno == ECHILD);
            if (!gone) {
                ++it;
                continue;
            }
            if (*it == currentChild) {
                currentEnded = true;
                currentStatus = result == *it && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
                currentExecFailed = takeExecFailure();
            }
            it = list.erase(it);
        }
    };
    reap(children);
    reap(orphans());
    if (children.empty() && orphans().empty())
        reapTimer.stop();
}

bool currSync::takeExecFailure()
{
    if (execPipe < 0)
        return false;
    char byte = 0;
    const bool failed = ::read(execPipe, &byte, 1) == 1;
    closeExecPipe();
    return failed;
}

void currSync::closeExecPipe()
{
    if (execPipe >= 0)
        ::close(execPipe);
    execPipe = -1;
}

SyncFailure currSync::requestFailure() const
{
    // A wget that ended well with a page in the file was outrun by the time limit; the
    // page came too late all the same.
    const bool pageLate = currentStatus == 0 && QFileInfo(syncFile).size() > 0;
    if (currentEnded && !pageLate) {
        if (currentExecFailed) {
            SyncFailure failure;
            failure.kind = SyncFailure::Kind::NotStarted;
            failure.address = currentAddress;
            return failure;
        }
        return SyncFailure::fromWgetStatus(currentStatus, currentAddress);
    }
    SyncFailure failure;
    failure.kind = SyncFailure::Kind::TimedOut;
    failure.address = currentAddress;
    failure.timeoutMs = requestTimeout;
    return failure;
}

double currSync::readRate()
{
    const double rate = RatePage::readRateFile(syncFile, lastTo);
    // Only the reading that follows a page that arrived says anything about the answer.
    if (rate == -1.0 && rateRequest && failCount == 0 && !lastFailure.failed()) {
        SyncFailure failure;
        failure.kind = SyncFailure::Kind::NoRate;
        failure.currency = lastTo;
        noteFailure(failure);
    }
    return rate;
}

bool currSync::testFile(const QString &path)
{
    return RatePage::hasFortyLines(path);
}

void currSync::deleteFile(const QString &path)
{
    ::unlink(QFile::encodeName(path).constData());
}

void currSync::slotTestResult()
{
    reapChildren();
    // A short answer (a rate service's JSON) has arrived when its wget ended well and left
    // something in the file.
    const bool arrived = testFile(syncFile)
        || (currentEnded && currentStatus == 0 && QFileInfo(syncFile).size() > 0);
    if (arrived) {
        failCount = 0;
        slotGetResult();
        return;
    }
    if (failCount < INT_MAX)
        ++failCount;
    // wget has ended without the page: nothing more will come, so the request ends now
    // with how wget ended rather than at the time limit.
    if (waiting && currentEnded)
        slotGetResult();
}

void currSync::slotGetResult()
{
    resultTimer.stop();
    testTimer.stop();
    waiting = false;
    statusKept = false;
    if (failCount == 0) {
        setStatus(tr("transfer success ..."));
        emit grabSuccess();
    } else {
        // The reason stays in the label until the next request.
        noteFailure(requestFailure());
        emit noSuccess();
    }
    // Started only after the signal: a next request started from inside the signal has its
    // "please wait" wiped after a second, a mere flash, as intended. Words about a failure
    // that are still shown stay.
    if (statusKept)
        return;
    statusTimer.setSingleShot(true);
    statusTimer.start(statusInterval);
}

void currSync::slotDelStatus()
{
    setStatus(QString());
}
