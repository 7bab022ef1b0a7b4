// Runs on the VNC platform (see tests/CMakeLists.txt): the window served over VNC shows the
// help itself, with no viewer process.
#include "shellfixture.h"

#include "helpviewer/helpwindow.h"
#include "shell/wayfernapp.h"

#include <QAction>
#include <QGuiApplication>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QTextBrowser>

#include <cerrno>
#include <unistd.h>

namespace {

int forks = 0;

pid_t countedFork()
{
    ++forks;
    errno = EAGAIN;
    return -1;
}

} // namespace

class TestHelpVnc : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QCOMPARE(QGuiApplication::platformName(), QStringLiteral("vnc")); }

    void cleanup() { WayfernApp::forkProcess = &::fork; }

    void helpIsShownInsideTheWindowWithoutAViewerProcess()
    {
        ShellFixture probe;
        const QString page = probe.dataFile(QStringLiteral("help.html"));
        QFile f(page);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write("<html><body><h1>Costs and tips</h1><p>How to book a deposit.</p></body></html>");
        f.close();
        ShellFixture fx({}, QStringLiteral("/bin/true"), page);
        WayfernApp app;
        app.show();
        forks = 0;
        WayfernApp::forkProcess = &countedFork;

        app.openHelp->trigger();
        QVERIFY(app.helpWindow);
        QTRY_VERIFY(app.helpWindow->isVisible());
        QCOMPARE(forks, 0);
        QVERIFY(app.helpWindow->browser->toPlainText().contains(
            QStringLiteral("How to book a deposit.")));
        // No frame to resize it: it takes the screen as the main window does.
        QCOMPARE(app.helpWindow->geometry(), app.screen()->availableGeometry());

        QTest::mouseClick(app.helpWindow->closeButton, Qt::LeftButton);
        QTRY_VERIFY(!app.helpWindow->isVisible());
        QVERIFY(app.isVisible());

        // Again: the same window comes back, and Escape closes it too.
        HelpWindow *first = app.helpWindow.get();
        app.openHelp->trigger();
        QTRY_VERIFY(app.helpWindow->isVisible());
        QCOMPARE(app.helpWindow.get(), first);
        QTest::keyClick(app.helpWindow->browser, Qt::Key_Escape);
        QTRY_VERIFY(!app.helpWindow->isVisible());
        QCOMPARE(forks, 0);
    }

    void missingHelpPageIsSaidInTheHelpWindow()
    {
        ShellFixture fx({}, QStringLiteral("/bin/true"), QStringLiteral("/nonexistent/help.html"));
        WayfernApp app;
        app.openHelp->trigger();
        QTRY_VERIFY(app.helpWindow && app.helpWindow->isVisible());
        QCOMPARE(app.helpWindow->browser->toPlainText(),
                 QStringLiteral("The help page /nonexistent/help.html was not found."));
    }
};

QTEST_MAIN(TestHelpVnc)
#include "tst_helpvnc.moc"
