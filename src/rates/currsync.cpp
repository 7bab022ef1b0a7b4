#include "rates/currsync.h"

#include "data/wayferndata.h"
#include "rates/ratepage.h"

#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QMessageBox>

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

void currSync::beginRequest()
{
    failCount = 1;
    // A request that still runs is no longer watched from here on; its child is only reaped.
    resultTimer.stop();
    testTimer.stop();
    statusTimer.stop();
}

bool currSync::requestRate(const QString &from, const QString &to)
{
    beginRequest();
    lastTo = to;
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

    currentChild = 0;
    currentEnded = false;
    currentStatus = -1;
    const pid_t pid = forkChild();
    if (pid == 0) {
        execvp(program.constData(), argv);
        _exit(1); // not exit(): no atexit handlers or stdio flushing of the parent's state
    }
    if (pid < 0) {
        QMessageBox::information(nullptr, QStringLiteral("wget failure"),
                                 QStringLiteral("PID < 0"));
        return false;
    }
    children.push_back(pid);
    currentChild = pid;
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
            }
            it = list.erase(it);
        }
    };
    reap(children);
    reap(orphans());
    if (children.empty() && orphans().empty())
        reapTimer.stop();
}

double currSync::readRate()
{
    return RatePage::readRateFile(syncFile, lastTo);
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
    } else if (failCount < INT_MAX) {
        ++failCount;
    }
}

void currSync::slotGetResult()
{
    resultTimer.stop();
    testTimer.stop();
    if (failCount == 0) {
        setStatus(tr("transfer success ..."));
        emit grabSuccess();
    } else {
        setStatus(tr("did not get data ..."));
        emit noSuccess();
    }
    // Started only after the signal: a next request started from inside the signal has its
    // "please wait" wiped after a second, a mere flash, as intended.
    statusTimer.setSingleShot(true);
    statusTimer.start(statusInterval);
}

void currSync::slotDelStatus()
{
    setStatus(QString());
}
