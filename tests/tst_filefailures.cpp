// What the main window does when a journey file cannot be read or written: a warning box or
// a status text says so, and the journey in hand, the caption, the file name, the modified
// flag and the last-state file stay as they were.

#include "shellfixture.h"
#include "stdoutcapture.h"
#include "widgetreaders.h"

#include "data/wayferndata.h"
#include "shell/wayfernapp.h"
#include "shell/wayfernview.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCoreApplication>
#include <QRegularExpression>
#include <QStatusBar>
#include <QTest>
#include <QTreeWidget>

#include <cerrno>
#include <cstring>
#include <memory>

namespace {

QByteArray readAll(const QString &path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

bool writeAll(const QString &path, const QByteArray &bytes)
{
    QFile f(path);
    return f.open(QIODevice::WriteOnly) && f.write(bytes) == bytes.size();
}

QString systemText(int error)
{
    return QString::fromLocal8Bit(std::strerror(error));
}

const QString notAJourney = QStringLiteral("It is not a journey: it has no [Header] section.");

// The sample journey up to the fourth cost: its header still counts five.
QByteArray cutOffJourney()
{
    const QByteArray whole = readAll(ShellFixture::fixture(QStringLiteral("sample.wfn")));
    const qsizetype at = whole.indexOf("[COSTS_3]");
    return at > 0 ? whole.left(at) : QByteArray();
}

// Answers the next message box with `first` and the message box after it with `second`; the
// second ticket is there once the first box has shown.
struct TwoBoxes
{
    ModalTicket first;
    std::shared_ptr<ModalTicket> second = std::make_shared<ModalTicket>();
};

TwoBoxes answerTwoMessageBoxes(QMessageBox::StandardButton first,
                               QMessageBox::StandardButton second)
{
    TwoBoxes boxes;
    auto next = boxes.second;
    boxes.first = ModalHelper::onNextModal(
        [](QWidget *w) { return qobject_cast<QMessageBox *>(w) != nullptr; },
        [first, second, next](QWidget *w, ModalOutcome &out) {
            auto *box = static_cast<QMessageBox *>(w);
            // Armed while this box is up, so it waits for the one after it.
            *next = ModalHelper::answerNextMessageBox(second);
            if (QAbstractButton *button = box->button(first)) {
                button->click();
            } else {
                out.error = QStringLiteral("the message box has no such button");
                box->reject();
            }
        });
    return boxes;
}

void checkWarning(const ModalTicket &box, const QString &text)
{
    QVERIFY2(box, "no second message box was waited for");
    QVERIFY2(box->handled, qPrintable(box->error));
    QCOMPARE(box->className, QStringLiteral("QMessageBox"));
    QCOMPARE(box->title, QStringLiteral("Wayfern"));
    QCOMPARE(box->icon, QMessageBox::Warning);
    QCOMPARE(box->buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QCOMPARE(box->text, text);
}

} // namespace

class TestFileFailures : public QObject
{
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression("Not implemented yet!")); }
    void cleanup() { ModalHelper::cancelPending(); }

    void openOfAFileThatCannotBeReadWarnsAndChangesNothing_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("reason");
        QTest::newRow("empty file") << QByteArray() << notAJourney;
        QTest::newRow("binary program") << readAll(QStringLiteral("/bin/true")) << notAJourney;
        QTest::newRow("journey cut off in the middle")
            << cutOffJourney()
            << QStringLiteral("It is cut off or damaged: the section [COSTS_3] is missing.");
    }
    void openOfAFileThatCannotBeReadWarnsAndChangesNothing()
    {
        QFETCH(QByteArray, content);
        QFETCH(QString, reason);
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        const QString bad = fx.dataFile(QStringLiteral("bad.wfn"));
        QVERIFY(writeAll(bad, content));
        const QString sample = fx.dataFile(QStringLiteral("sample.wfn"));
        const QByteArray lastBefore = readAll(fx.lastFile());

        WayfernApp app;
        app.doc->journeyname = QStringLiteral("Changed");
        app.doc->setModified(true);
        // No to the question about the changes, then the file dialog, then the warning.
        auto chosen = ModalHelper::typeNameInNextFileDialog(QStringLiteral("bad.wfn"));
        TwoBoxes boxes = answerTwoMessageBoxes(QMessageBox::No, QMessageBox::Ok);
        app.fileOpen->trigger();
        QVERIFY2(boxes.first->handled, qPrintable(boxes.first->error));
        QCOMPARE(boxes.first->title, QStringLiteral("Open file ... "));
        QVERIFY2(chosen->handled, qPrintable(chosen->error));
        checkWarning(*boxes.second, QStringLiteral("Could not open %1\n\n%2").arg(bad, reason));
        if (QTest::currentTestFailed())
            return;

        QCOMPARE(app.windowTitle(), QStringLiteral("sample.wfn"));
        QCOMPARE(app.fileName, sample);
        QCOMPARE(app.doc->lastfile, QStringLiteral("sample.wfn"));
        QVERIFY(app.doc->isModified());
        QCOMPARE(app.doc->journeyname, QStringLiteral("Changed"));
        QCOMPARE(app.doc->costs.count(), 5);
        QCOMPARE(app.doc->currencies.count(), 3);
        QCOMPARE(WidgetReaders::rowCount(app.view->CostsListView), 5);
        QCOMPARE(app.statusBar()->currentMessage(), QStringLiteral("Opening failed"));
        QCOMPARE(readAll(fx.lastFile()), lastBefore);

        // Save writes the journey in hand to its own file, not over the unreadable one.
        app.fileSave->trigger();
        QVERIFY(!app.doc->isModified());
        QCOMPARE(readAll(bad), content);
        QVERIFY(readAll(sample).contains("JOURNEY-NAME=Changed;"));
    }

    void saveAsToAPlaceThatCannotBeWrittenWarnsAndChangesNothing_data()
    {
        // The tests may run as root, who writes into any directory whatever its mode: these
        // places fail for everybody.
        QTest::addColumn<QString>("dir");  // relative to the journey directory, or absolute
        QTest::addColumn<QString>("name"); // typed into the file dialog
        QTest::addColumn<QString>("target");
        QTest::addColumn<QString>("reason");
        QTest::newRow("name of an existing directory")
            << QString() << QStringLiteral("trips.wfn") << QStringLiteral("trips.wfn")
            << systemText(EISDIR);
        QTest::newRow("directory under a plain file")
            << QStringLiteral("sample.wfn") << QStringLiteral("copy")
            << QStringLiteral("sample.wfn/copy.wfn") << systemText(ENOTDIR);
        QTest::newRow("kernel file system")
            << QStringLiteral("/proc") << QStringLiteral("copy") << QStringLiteral("/proc/copy.wfn")
            << systemText(ENOENT);
    }
    void saveAsToAPlaceThatCannotBeWrittenWarnsAndChangesNothing()
    {
        QFETCH(QString, dir);
        QFETCH(QString, name);
        QFETCH(QString, target);
        QFETCH(QString, reason);
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        QVERIFY(QDir().mkpath(fx.dataFile(QStringLiteral("trips.wfn"))));
        const QString sample = fx.dataFile(QStringLiteral("sample.wfn"));
        const QByteArray sampleBefore = readAll(sample);
        const QByteArray lastBefore = readAll(fx.lastFile());
        const QString typedDir = dir.isEmpty() || dir.startsWith(u'/') ? dir : fx.dataFile(dir);
        const QString path = target.startsWith(u'/') ? target : fx.dataFile(target);

        WayfernApp app;
        app.doc->journeyname = QStringLiteral("Changed");
        app.doc->setModified(true);
        auto chosen = ModalHelper::typeNameInNextFileDialog(name, typedDir);
        auto box = ModalHelper::answerNextMessageBox(QMessageBox::Ok);
        app.fileSaveAs->trigger();
        QVERIFY2(chosen->handled, qPrintable(chosen->error));
        QVERIFY2(box->handled, qPrintable(box->error));
        checkWarning(box, QStringLiteral("Could not save %1\n\n%2").arg(path, reason));
        if (QTest::currentTestFailed())
            return;

        QCOMPARE(app.windowTitle(), QStringLiteral("sample.wfn"));
        QCOMPARE(app.fileName, sample);
        QCOMPARE(app.doc->lastfile, QStringLiteral("sample.wfn"));
        QVERIFY(app.doc->isModified());
        QCOMPARE(app.statusBar()->currentMessage(), QStringLiteral("Saving failed"));
        QCOMPARE(readAll(fx.lastFile()), lastBefore);
        QCOMPARE(readAll(sample), sampleBefore);
        QVERIFY(!QFileInfo(path).isFile());
    }

    void saveThatCannotWriteWarnsAndQuitStillAsks()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        const QString sample = fx.dataFile(QStringLiteral("sample.wfn"));
        // The journey's file has become a directory behind the window's back.
        QVERIFY(QFile::remove(sample));
        QVERIFY(QDir().mkdir(sample));
        app.doc->journeyname = QStringLiteral("Changed");
        app.doc->setModified(true);

        auto box = ModalHelper::answerNextMessageBox(QMessageBox::Ok);
        app.fileSave->trigger();
        checkWarning(box,
                     QStringLiteral("Could not save %1\n\n%2").arg(sample, systemText(EISDIR)));
        if (QTest::currentTestFailed())
            return;
        QVERIFY(app.doc->isModified());
        QCOMPARE(app.fileName, sample);
        QCOMPARE(app.windowTitle(), QStringLiteral("sample.wfn"));
        QCOMPARE(app.statusBar()->currentMessage(), QStringLiteral("Saving failed"));
        QVERIFY(QFileInfo(sample).isDir());

        // The changes are still unsaved, so Quit asks; Cancel keeps the program running.
        auto question = ModalHelper::answerNextMessageBox(QMessageBox::Cancel);
        app.fileQuit->trigger();
        QVERIFY2(question->handled, qPrintable(question->error));
        QCOMPARE(question->title, QStringLiteral("Quit ... "));
        QVERIFY(app.doc->isModified());
        QCOMPARE(app.doc->journeyname, QStringLiteral("Changed"));
    }

    void yesToSavingBeforeNewKeepsTheJourneyWhenTheSaveCannotWrite()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        const QString sample = fx.dataFile(QStringLiteral("sample.wfn"));
        QVERIFY(QFile::remove(sample));
        QVERIFY(QDir().mkdir(sample));
        app.doc->journeyname = QStringLiteral("Changed");
        app.doc->setModified(true);

        TwoBoxes boxes = answerTwoMessageBoxes(QMessageBox::Yes, QMessageBox::Ok);
        app.fileNew->trigger();
        QVERIFY2(boxes.first->handled, qPrintable(boxes.first->error));
        QCOMPARE(boxes.first->title, QStringLiteral("New file ... "));
        checkWarning(*boxes.second,
                     QStringLiteral("Could not save %1\n\n%2").arg(sample, systemText(EISDIR)));
        if (QTest::currentTestFailed())
            return;
        // No new journey replaced the changes that are on no disk.
        QCOMPARE(app.doc->journeyname, QStringLiteral("Changed"));
        QVERIFY(app.doc->isModified());
        QCOMPARE(app.fileName, sample);
    }

    void startWithALastJourneyThatCannotBeReadOpensTheTemplate_data()
    {
        QTest::addColumn<bool>("exists");
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("reason");
        QTest::newRow("missing") << false << QByteArray() << systemText(ENOENT);
        QTest::newRow("empty") << true << QByteArray() << notAJourney;
        QTest::newRow("cut off")
            << true << cutOffJourney()
            << QStringLiteral("It is cut off or damaged: the section [COSTS_3] is missing.");
    }
    void startWithALastJourneyThatCannotBeReadOpensTheTemplate()
    {
        QFETCH(bool, exists);
        QFETCH(QByteArray, content);
        QFETCH(QString, reason);
        ShellFixture fx;
        const QString bad = fx.dataFile(QStringLiteral("away.wfn"));
        if (exists)
            QVERIFY(writeAll(bad, content));
        fx.writeLast(QStringLiteral("away.wfn"));
        const QByteArray lastBefore = readAll(fx.lastFile());

        StdoutCapture out;
        WayfernApp app;
        const QString printed = out.text();
        if (!exists) {
            QVERIFY(printed.contains(
                QStringLiteral("\nWayfernView::loadView - not able to read %1").arg(bad)));
        }
        QCOMPARE(app.statusBar()->currentMessage(),
                 QStringLiteral("Could not read the last journey %1: %2").arg(bad, reason));
        // A new journey from the template, as on a first start.
        QCOMPARE(app.windowTitle(), QStringLiteral("new file"));
        QCOMPARE(app.fileName, QStringLiteral(""));
        QCOMPARE(app.doc->lastfile, QStringLiteral(""));
        QCOMPARE(app.doc->journeyname, QStringLiteral("Template"));
        QCOMPARE(app.doc->currencies.count(), 3);
        QCOMPARE(app.doc->costs.count(), 0);
        QVERIFY(!app.doc->isModified());
        // The last-state file still names the journey for the next start.
        QCOMPARE(readAll(fx.lastFile()), lastBefore);
        if (exists)
            QCOMPARE(readAll(bad), content);
    }

    void newWithATemplateThatCannotBeReadSaysSoOnTheStatusBar()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        const QString templ = fx.dataFile(QStringLiteral("template.wfn"));
        QVERIFY(writeAll(templ, QByteArray()));
        app.fileNew->trigger();
        // No box: the trigger came back without anybody answering one.
        QVERIFY(!QApplication::activeModalWidget());
        QCOMPARE(app.statusBar()->currentMessage(),
                 QStringLiteral("Could not read the template %1: %2").arg(templ, notAJourney));
        QCOMPARE(app.windowTitle(), QStringLiteral("new file"));
        QCOMPARE(app.fileName, QStringLiteral(""));
        QCOMPARE(app.doc->costs.count(), 0);
        QCOMPARE(app.doc->currencies.count(), 0);
        QCOMPARE(WidgetReaders::rowCount(app.view->CostsListView), 0);
    }

    void firstStartWithATemplateThatCannotBeReadSaysSo()
    {
        ShellFixture fx;
        const QString templ = fx.dataFile(QStringLiteral("template.wfn"));
        QVERIFY(writeAll(templ, "no journey here\n"));
        WayfernApp app;
        QCOMPARE(app.statusBar()->currentMessage(),
                 QStringLiteral("Could not read the template %1: %2").arg(templ, notAJourney));
        QCOMPARE(app.windowTitle(), QStringLiteral("new file"));
        QCOMPARE(app.doc->currencies.count(), 0);
    }

    void saveAsOutsideTheJourneyDirectoryReopensAtTheNextStart()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        const QString elsewhere = fx.dir.path() + QStringLiteral("/elsewhere");
        QVERIFY(QDir().mkpath(elsewhere));
        const QString path = elsewhere + QStringLiteral("/away.wfn");
        {
            WayfernApp app;
            auto chosen = ModalHelper::typeNameInNextFileDialog(QStringLiteral("away"), elsewhere);
            app.fileSaveAs->trigger();
            QVERIFY2(chosen->handled, qPrintable(chosen->error));
            QVERIFY(readAll(path).contains("JOURNEY-NAME=Lakes and Passes;"));
            QCOMPARE(app.windowTitle(), QStringLiteral("away.wfn"));
            QCOMPARE(app.fileName, path);
            QCOMPARE(fx.lastNamed(), path);
        }
        WayfernApp next;
        QCOMPARE(next.windowTitle(), QStringLiteral("away.wfn"));
        QCOMPARE(next.fileName, path);
        QCOMPARE(next.doc->journeyname, QStringLiteral("Lakes and Passes"));
        QCOMPARE(next.doc->costs.count(), 5);
    }

    void openOutsideTheJourneyDirectoryReopensAtTheNextStart()
    {
        ShellFixture fx;
        const QString elsewhere = fx.dir.path() + QStringLiteral("/elsewhere");
        QVERIFY(QDir().mkpath(elsewhere));
        const QString path = elsewhere + QStringLiteral("/sample.wfn");
        QVERIFY(QFile::copy(ShellFixture::fixture(QStringLiteral("sample.wfn")), path));
        {
            WayfernApp app;
            auto chosen =
                ModalHelper::typeNameInNextFileDialog(QStringLiteral("sample.wfn"), elsewhere);
            app.fileOpen->trigger();
            QVERIFY2(chosen->handled, qPrintable(chosen->error));
            QCOMPARE(app.windowTitle(), QStringLiteral("sample.wfn"));
            QCOMPARE(app.fileName, path);
            QCOMPARE(fx.lastNamed(), path);
        }
        WayfernApp next;
        QCOMPARE(next.windowTitle(), QStringLiteral("sample.wfn"));
        QCOMPARE(next.fileName, path);
        QCOMPARE(next.doc->costs.count(), 5);
    }
};

QTEST_MAIN(TestFileFailures)
#include "tst_filefailures.moc"
