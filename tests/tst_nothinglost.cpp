// Through the main window: a change of any kind reaches the file. Deleting or pasting a
// cost or a tip makes Quit ask, and Yes saves it; a text with ";" comes back whole after a
// restart.

#include "editortestutil.h"
#include "journeybytes.h"
#include "modalhelper.h"
#include "samplewindow.h"
#include "shellfixture.h"
#include "widgetreaders.h"

#include "data/wayferndata.h"
#include "editors/tipedit.h"
#include "shell/wayfernapp.h"
#include "shell/wayfernview.h"

#include <QFile>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

#include <memory>

namespace {

QByteArray fileBytes(const QString &path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("<unreadable>");
}

using Window = SampleWindow;

// Quit with Yes to the save question, inside the application's event loop as a user quits;
// false with a message when no question came or the program did not end.
bool quitAndSave(WayfernApp &app, QString *error)
{
    ModalTicket question = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
    QTimer limit;
    limit.setSingleShot(true);
    QObject::connect(&limit, &QTimer::timeout, [] { QCoreApplication::exit(42); });
    limit.start(5000);
    QTimer::singleShot(0, &app, [&app] { app.fileQuit->trigger(); });
    const int ended = QCoreApplication::exec();
    if (!question->handled) {
        *error = QStringLiteral("Quit asked nothing: ") + question->error;
        return false;
    }
    if (question->title != QLatin1String("Quit ... ")
        || question->text
            != QLatin1String("You have modified the data!\nDo you want to save the changes ?")) {
        *error = QStringLiteral("another question: ") + question->title + u'|' + question->text;
        return false;
    }
    if (ended != 0) {
        *error = QStringLiteral("the program did not end");
        return false;
    }
    return true;
}

QStringList costComments(const WayFernData &doc)
{
    QStringList comments;
    for (const CostsData *cost : doc.costs)
        comments << cost->comment;
    return comments;
}

QStringList tipNames(WayfernView *v)
{
    return WidgetReaders::columnTexts(v->TipListView, 1);
}

} // namespace

class TestNothingLost : public QObject
{
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression("Not implemented yet!")); }

    void deletedCostMakesQuitAskAndYesSavesTheDeletion()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        const QString sample = fx.dataFile(QStringLiteral("sample.wfn"));
        {
            Window w(fx, 1);
            QVERIFY(ModalHelper::tapRow(w.v->CostsListView, 2));
            QCOMPARE(w.v->actucost->comment, QStringLiteral("Boat"));
            ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
            QTest::mouseClick(w.v->DeleteButton, Qt::LeftButton);
            QVERIFY2(box->handled, qPrintable(box->error));
            QCOMPARE(WidgetReaders::rowCount(w.v->CostsListView), 4);
            QString error;
            QVERIFY2(quitAndSave(*w.app, &error), qPrintable(error));
        }
        QVERIFY(!fileBytes(sample).contains("COMMENT=Boat;"));
        Window again(fx, 1);
        QCOMPARE(again.doc->costs.count(), 4);
        QVERIFY(!costComments(*again.doc).contains(QStringLiteral("Boat")));
        QCOMPARE(WidgetReaders::rowCount(again.v->CostsListView), 4);
        QVERIFY(!again.doc->isModified());
    }

    void pastedCostMakesQuitAskAndYesSavesIt()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        const QString sample = fx.dataFile(QStringLiteral("sample.wfn"));
        {
            Window w(fx, 1);
            QVERIFY(ModalHelper::tapRow(w.v->CostsListView, 2));
            QTest::mouseClick(w.v->CopyButton, Qt::LeftButton);
            QTest::mouseClick(w.v->PasteButton, Qt::LeftButton);
            QCOMPARE(WidgetReaders::rowCount(w.v->CostsListView), 6);
            QString error;
            QVERIFY2(quitAndSave(*w.app, &error), qPrintable(error));
        }
        QCOMPARE(fileBytes(sample).count("COMMENT=Boat;"), 2);
        Window again(fx, 1);
        QCOMPARE(again.doc->costs.count(), 6);
        QCOMPARE(costComments(*again.doc).count(QStringLiteral("Boat")), 2);
        QCOMPARE(WidgetReaders::rowCount(again.v->CostsListView), 6);
    }

    void deletedTipMakesQuitAskAndYesSavesTheDeletion()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        const QString sample = fx.dataFile(QStringLiteral("sample.wfn"));
        {
            Window w(fx, 2);
            QVERIFY(ModalHelper::tapRow(w.v->TipListView, 2));
            ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
            QTest::mouseClick(w.v->TDeleteButton, Qt::LeftButton);
            QVERIFY2(box->handled, qPrintable(box->error));
            QCOMPARE(tipNames(w.v), (QStringList{"Lakeside hostel", "Zum Anker"}));
            QString error;
            QVERIFY2(quitAndSave(*w.app, &error), qPrintable(error));
        }
        QVERIFY(!fileBytes(sample).contains("NAME=Glacier garden;"));
        Window again(fx, 2);
        QCOMPARE(tipNames(again.v), (QStringList{"Lakeside hostel", "Zum Anker"}));
    }

    void pastedTipMakesQuitAskAndYesSavesIt()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        const QString sample = fx.dataFile(QStringLiteral("sample.wfn"));
        {
            Window w(fx, 2);
            QVERIFY(ModalHelper::tapRow(w.v->TipListView, 2));
            QTest::mouseClick(w.v->TCopyButton, Qt::LeftButton);
            QTest::mouseClick(w.v->TPasteButton, Qt::LeftButton);
            QCOMPARE(tipNames(w.v).count(QStringLiteral("Glacier garden")), 2);
            QString error;
            QVERIFY2(quitAndSave(*w.app, &error), qPrintable(error));
        }
        QCOMPARE(fileBytes(sample).count("NAME=Glacier garden;"), 2);
        Window again(fx, 2);
        QCOMPARE(tipNames(again.v).count(QStringLiteral("Glacier garden")), 2);
    }

    void cancelledDeletionLeavesTheJourneyUnmodified()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        Window w(fx, 1);
        QVERIFY(ModalHelper::tapRow(w.v->CostsListView, 2));
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Cancel);
        QTest::mouseClick(w.v->DeleteButton, Qt::LeftButton);
        QVERIFY2(box->handled, qPrintable(box->error));
        QCOMPARE(w.doc->costs.count(), 5);
        QVERIFY(!w.doc->isModified());
    }

    void tipCommentWithSemicolonComesBackWholeAfterARestart()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        const QString sample = fx.dataFile(QStringLiteral("sample.wfn"));
        const QString comment = QStringLiteral("Ask for the lake room; and the early breakfast");
        QByteArray savedOnce;
        {
            Window w(fx, 2);
            QVERIFY(ModalHelper::tapRow(w.v->TipListView, 0));
            ModalTicket dialog = ModalHelper::onNextModal(
                [](QWidget *widget) { return qobject_cast<tipEdit *>(widget) != nullptr; },
                [comment](QWidget *widget, ModalOutcome &out) {
                    auto *ed = static_cast<tipEdit *>(widget);
                    QTreeWidgetItem *row = ed->util.findTreeItem(
                        ed->ListView, QStringLiteral("common"), QStringLiteral("comment"), 0);
                    if (!row) {
                        out.error = QStringLiteral("no comment row");
                        ed->reject();
                        return;
                    }
                    row->parent()->setExpanded(true);
                    if (!ModalHelper::tapItem(ed->ListView, row))
                        out.error = QStringLiteral("can't tap the comment row");
                    ed->LineEdit->clear();
                    QTest::keyClicks(ed->LineEdit, comment);
                    ed->OkButton->click();
                });
            QTest::mouseClick(w.v->TChangeButton, Qt::LeftButton);
            QVERIFY2(dialog->handled && dialog->error.isEmpty(), qPrintable(dialog->error));
            QCOMPARE(w.doc->tips.at(0)->comment, comment);
            QVERIFY(w.app->fileSave->isEnabled());
            w.app->fileSave->trigger();
            QVERIFY(!w.doc->isModified());
            savedOnce = fileBytes(sample);
            QVERIFY(savedOnce.contains("COMMENT=" + comment.toLatin1() + ';'));
        }
        // A new start reads the whole comment, and saving it again writes the same records.
        Window again(fx, 2);
        QCOMPARE(again.doc->tips.at(0)->comment, comment);
        again.doc->setModified(true);
        again.app->fileSave->trigger();
        QCOMPARE(undatedJourney(fileBytes(sample)), undatedJourney(savedOnce));
    }
};

QTEST_MAIN(TestNothingLost)
#include "tst_nothinglost.moc"
