// Undo and redo through the main window: every kind of change is one step, taken back with
// Ctrl+Z and made again with Ctrl+Shift+Z or Ctrl+Y. The journey's bytes after an undo are
// those before the step, after a redo those after it, and the modified flag follows the
// saved state.

#include "editortestutil.h"
#include "journeybytes.h"
#include "modalhelper.h"
#include "samplewindow.h"
#include "shellfixture.h"
#include "widgetreaders.h"

#include "data/wayferndata.h"
#include "editors/baseedit.h"
#include "editors/costsedit.h"
#include "editors/curredit.h"
#include "editors/currlistedit.h"
#include "editors/settleedit.h"
#include "editors/tipedit.h"
#include "editors/usercashedit.h"
#include "editors/userlistedit.h"
#include "editors/userpayedit.h"
#include "shell/wayfernapp.h"
#include "shell/wayfernview.h"
#include "storage/wayfernio.h"

#include <QApplication>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>

#include <memory>

namespace {

// The sample journey in a shown, active window on tab `tab` (1 costs, 2 tips).
struct Window : SampleWindow
{
    using SampleWindow::SampleWindow;

    // A key of the window, pressed as a user does; the offscreen platform gives the window
    // the keyboard back after a dialog only when asked.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers)
    {
        app->activateWindow();
        QApplication::setActiveWindow(app.get());
        v->CostsListView->setFocus();
        QTest::keyClick(v->CostsListView, key, modifiers);
    }
    void undoKey() { press(Qt::Key_Z, Qt::ControlModifier); }
    void redoKey() { press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier); }
    void redoKeyY() { press(Qt::Key_Y, Qt::ControlModifier); }

    // The rows of the costs list, as the user sees them.
    QStringList costRows() const
    {
        QStringList rows;
        for (int i = 0; i < WidgetReaders::rowCount(v->CostsListView); ++i) {
            const QStringList row = WidgetReaders::rowTexts(v->CostsListView, i);
            rows << row[0] + u'|' + row[2] + u'|' + row[3];
        }
        return rows;
    }

    // After a step from a saved state: both undo keys and both redo keys, to the byte, with
    // the tool tips naming the step and the modified flag following the saved state.
    void checkStep(const QByteArray &before, const QStringList &rowsBefore, const QString &name)
    {
        const QByteArray after = journeyBytes(doc);
        const QStringList rowsAfter = costRows();
        QVERIFY2(after != before, "the step changed nothing");
        QVERIFY(doc->isModified());
        QCOMPARE(app->editUndo->toolTip(), QStringLiteral("Undo: ") + name);
        QVERIFY(app->editUndo->isEnabled());
        QVERIFY(!app->editRedo->isEnabled());

        undoKey();
        QCOMPARE(journeyBytes(doc), before);
        QVERIFY(!doc->isModified());
        QCOMPARE(costRows(), rowsBefore);
        QCOMPARE(app->editRedo->toolTip(), QStringLiteral("Redo: ") + name);
        QVERIFY(app->editRedo->isEnabled());

        redoKey();
        QCOMPARE(journeyBytes(doc), after);
        QVERIFY(doc->isModified());
        QCOMPARE(costRows(), rowsAfter);

        undoKey();
        QCOMPARE(journeyBytes(doc), before);
        redoKeyY();
        QCOMPARE(journeyBytes(doc), after);
        QVERIFY(doc->isModified());
        QCOMPARE(app->editUndo->toolTip(), QStringLiteral("Undo: ") + name);
    }
};

// In an item-and-content editor: types `text` into the row `label`.
bool typeInRow(QTreeWidget *list, QLineEdit *line, const QString &label, const QString &text)
{
    const QList<QTreeWidgetItem *> rows =
        list->findItems(label, Qt::MatchExactly | Qt::MatchRecursive);
    if (rows.isEmpty() || !ModalHelper::tapItem(list, rows.first()))
        return false;
    line->clear();
    QTest::keyClicks(line, text);
    return true;
}

// In the costs editor when it opens: types `amount` as the foreign value and confirms,
// and confirms the share dialog that then comes with the even shares.
ModalTicket typeAmountAndShare(const QString &amount)
{
    return ModalHelper::onNextModal(
        [](QWidget *x) { return qobject_cast<costsEdit *>(x) != nullptr; },
        [amount](QWidget *x, ModalOutcome &out) {
            auto *ed = static_cast<costsEdit *>(x);
            if (!typeInRow(ed->ListView, ed->LineEdit, QStringLiteral("foreign value"), amount))
                out.error += QStringLiteral("no foreign value row; ");
            ModalTicket share =
                ModalHelper::clickInNextDialog(QStringLiteral("OkButton"), {}, "userPayEdit");
            ed->OkButton->click();
            if (!share->handled)
                out.error += share->error;
        });
}

QString costName(const CostsData *cost)
{
    return cost->date + u' ' + cost->type + u' ' + cost->fval + u' ' + cost->ctype;
}

// Runs `inside` on the user list when it opens and closes it.
ModalTicket inUserList(std::function<void(userListEdit *, ModalOutcome &)> inside)
{
    return ModalHelper::onNextModal(
        [](QWidget *w) { return qobject_cast<userListEdit *>(w) != nullptr; },
        [inside](QWidget *w, ModalOutcome &out) {
            auto *list = static_cast<userListEdit *>(w);
            inside(list, out);
            list->CloseButton->click();
        });
}

} // namespace

class TestUndo : public QObject
{
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression("Not implemented yet!")); }
    void cleanup() { ModalHelper::cancelPending(); }

    void undoAndRedoStandLastOnTheToolbarAndHaveTheirKeys()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        Window w(fx);
        const QList<QAction *> actions = w.app->toolBar->actions();
        QCOMPARE(actions.at(actions.size() - 2), w.app->editUndo);
        QCOMPARE(actions.last(), w.app->editRedo);
        QCOMPARE(w.app->editUndo->objectName(), QStringLiteral("editUndo"));
        QCOMPARE(w.app->editRedo->objectName(), QStringLiteral("editRedo"));
        QVERIFY(!w.app->editUndo->icon().isNull());
        QVERIFY(!w.app->editRedo->icon().isNull());
        QCOMPARE(w.app->editUndo->shortcut(), QKeySequence(QStringLiteral("Ctrl+Z")));
        QCOMPARE(w.app->editRedo->shortcuts(),
                 (QList<QKeySequence>{QKeySequence(QStringLiteral("Ctrl+Shift+Z")),
                                      QKeySequence(QStringLiteral("Ctrl+Y"))}));
        // A journey just opened has nothing to undo.
        QVERIFY(!w.app->editUndo->isEnabled());
        QVERIFY(!w.app->editRedo->isEnabled());
        QCOMPARE(w.app->editUndo->toolTip(), QStringLiteral("Undo"));
        QCOMPARE(w.app->editRedo->toolTip(), QStringLiteral("Redo"));
    }

    void deletedCostIsUndoneAndRedoneToTheByte()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        Window w(fx);
        const QByteArray before = journeyBytes(w.doc);
        const QStringList rows = w.costRows();
        QVERIFY(ModalHelper::tapRow(w.v->CostsListView, 2));
        const QString name = costName(w.v->actucost);
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
        QTest::mouseClick(w.v->DeleteButton, Qt::LeftButton);
        QVERIFY2(box->handled, qPrintable(box->error));
        w.checkStep(before, rows, QStringLiteral("delete cost ") + name);
    }

    void pastedCostIsUndoneAndRedone()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        Window w(fx);
        const QByteArray before = journeyBytes(w.doc);
        const QStringList rows = w.costRows();
        QVERIFY(ModalHelper::tapRow(w.v->CostsListView, 1));
        const QString name = costName(w.v->actucost);
        QTest::mouseClick(w.v->CopyButton, Qt::LeftButton);
        QTest::mouseClick(w.v->PasteButton, Qt::LeftButton);
        w.checkStep(before, rows, QStringLiteral("paste cost ") + name);
    }

    void newCostWithItsSharesIsUndoneAndRedone()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        Window w(fx);
        const QByteArray before = journeyBytes(w.doc);
        const QStringList rows = w.costRows();
        // On the day of the first cost, so that the sort moves it past the others.
        QVERIFY(ModalHelper::tapRow(w.v->CostsListView, 0));
        // The share dialog comes; OK books the even shares.
        ModalTicket costs = typeAmountAndShare(QStringLiteral("92.63"));
        QTest::mouseClick(w.v->InsertButton, Qt::LeftButton);
        QVERIFY2(costs->handled && costs->error.isEmpty(), qPrintable(costs->error));
        // Every traveller has his share of it.
        for (const UserData *user : w.doc->users)
            QVERIFY(user->findKto(w.v->actucost->id));
        w.checkStep(before, rows, QStringLiteral("new cost ") + costName(w.v->actucost));
    }

    void changedAmountAndItsNewSharesAreUndoneAndRedone()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        Window w(fx);
        const QByteArray before = journeyBytes(w.doc);
        const QStringList rows = w.costRows();
        QVERIFY(ModalHelper::tapRow(w.v->CostsListView, 0));
        QVERIFY(w.v->actucost->shared);
        ModalTicket costs = typeAmountAndShare(QStringLiteral("75.40"));
        QTest::mouseClick(w.v->ChangeButton, Qt::LeftButton);
        QVERIFY2(costs->handled && costs->error.isEmpty(), qPrintable(costs->error));
        QCOMPARE(w.v->actucost->fval, QStringLiteral("75.40"));
        w.checkStep(before, rows, QStringLiteral("change cost ") + costName(w.v->actucost));
    }

    void newAndDeletedAndPastedTipsAreUndoneAndRedone()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        Window w(fx, 2);
        QByteArray before = journeyBytes(w.doc);
        const QStringList rows = w.costRows();
        ModalTicket tip = ModalHelper::onNextModal(
            [](QWidget *x) { return qobject_cast<tipEdit *>(x) != nullptr; },
            [](QWidget *x, ModalOutcome &out) {
                auto *ed = static_cast<tipEdit *>(x);
                if (!typeInRow(ed->ListView, ed->LineEdit, QStringLiteral("name"),
                               QStringLiteral("Harbour; fish")))
                    out.error += QStringLiteral("no name row; ");
                ed->OkButton->click();
            });
        QTest::mouseClick(w.v->TInsertButton, Qt::LeftButton);
        QVERIFY2(tip->handled && tip->error.isEmpty(), qPrintable(tip->error));
        w.checkStep(before, rows, QStringLiteral("new tip Harbour; fish"));
        if (QTest::currentTestFailed())
            return;

        // Saved, the next step starts from a clean journey again.
        w.app->fileSave->trigger();
        QVERIFY(!w.doc->isModified());
        before = journeyBytes(w.doc);
        QVERIFY(ModalHelper::tapRow(w.v->TipListView, 0));
        const QString name = w.v->actutip->name;
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
        QTest::mouseClick(w.v->TDeleteButton, Qt::LeftButton);
        QVERIFY2(box->handled, qPrintable(box->error));
        w.checkStep(before, rows, QStringLiteral("delete tip ") + name);
        if (QTest::currentTestFailed())
            return;

        w.app->fileSave->trigger();
        before = journeyBytes(w.doc);
        QVERIFY(ModalHelper::tapRow(w.v->TipListView, 1));
        const QString pasted = w.v->actutip->name;
        QTest::mouseClick(w.v->TCopyButton, Qt::LeftButton);
        QTest::mouseClick(w.v->TPasteButton, Qt::LeftButton);
        w.checkStep(before, rows, QStringLiteral("paste tip ") + pasted);
    }

    void depositIsUndoneAndRedone()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        Window w(fx);
        const QByteArray before = journeyBytes(w.doc);
        const QStringList rows = w.costRows();
        ModalTicket list = inUserList([](userListEdit *l, ModalOutcome &out) {
            if (!ModalHelper::tapItem(l->ListView, WidgetReaders::topLevelItem(l->ListView, "AB")))
                out.error += QStringLiteral("AB not tapped; ");
            ModalTicket cal = ModalHelper::pickDateInNextCalendar(QDate(2002, 6, 4));
            ModalTicket cash = ModalHelper::clickInNextDialog(
                QStringLiteral("OkButton"),
                [](QDialog *d) {
                    QTest::keyClicks(static_cast<userCashEdit *>(d)->LineEdit,
                                     QStringLiteral("12,50"));
                },
                "userCashEdit");
            l->EinzahlButton->click();
            if (!cal->handled || !cash->handled)
                out.error += cal->error + cash->error;
        });
        w.app->openUser->trigger();
        QVERIFY2(list->handled && list->error.isEmpty(), qPrintable(list->error));
        QVERIFY(journeyBytes(w.doc).contains("CHANGE=12.5000"));
        w.checkStep(before, rows, QStringLiteral("deposit of AB"));
    }

    void deletedTravellerWithHisSharesIsUndoneAndRedone()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        Window w(fx);
        const QByteArray before = journeyBytes(w.doc);
        const QStringList rows = w.costRows();
        const int travellers = w.doc->users.count();
        ModalTicket list = inUserList([](userListEdit *l, ModalOutcome &out) {
            if (!ModalHelper::tapItem(l->ListView, WidgetReaders::topLevelItem(l->ListView, "EF")))
                out.error += QStringLiteral("EF not tapped; ");
            ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
            l->DeleteButton->click();
            if (!box->handled)
                out.error += box->error;
        });
        w.app->openUser->trigger();
        QVERIFY2(list->handled && list->error.isEmpty(), qPrintable(list->error));
        QCOMPARE(w.doc->users.count(), travellers - 1);
        w.checkStep(before, rows, QStringLiteral("delete traveller EF"));
        QCOMPARE(w.doc->users.count(), travellers - 1);
        w.undoKey();
        QCOMPARE(w.doc->users.count(), travellers);
        // The overview shows every traveller's balance again.
        QCOMPARE(journeyBytes(w.doc), before);
    }

    void changedRateIsUndoneAndRedone()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        Window w(fx);
        const QByteArray before = journeyBytes(w.doc);
        const QStringList rows = w.costRows();
        ModalTicket list = ModalHelper::onNextModal(
            [](QWidget *x) { return qobject_cast<currListEdit *>(x) != nullptr; },
            [](QWidget *x, ModalOutcome &out) {
                auto *l = static_cast<currListEdit *>(x);
                if (!ModalHelper::tapItem(l->CurrListView,
                                          WidgetReaders::topLevelItem(l->CurrListView, "CHF")))
                    out.error += QStringLiteral("CHF not tapped; ");
                ModalTicket curr = ModalHelper::clickInNextDialog(
                    QStringLiteral("OkButton"),
                    [](QDialog *d) {
                        auto *ed = static_cast<currEdit *>(d);
                        typeInRow(ed->ListView, ed->LineEdit, QStringLiteral("factor"),
                                  QStringLiteral("2.0000"));
                    },
                    "currEdit");
                l->ChangeButton->click();
                if (!curr->handled)
                    out.error += curr->error;
                ModalTicket keep = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
                l->CloseButton->click();
                if (!keep->handled)
                    out.error += keep->error;
            });
        w.app->openCurr->trigger();
        QVERIFY2(list->handled && list->error.isEmpty(), qPrintable(list->error));
        // The lists show the new base values with the next refresh, as always.
        w.v->refreshView();
        w.checkStep(before, rows, QStringLiteral("currencies and rates"));
    }

    void baseSettingsAreUndoneAndRedone()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        Window w(fx);
        const QByteArray before = journeyBytes(w.doc);
        const QStringList rows = w.costRows();
        ModalTicket base = ModalHelper::clickInNextDialog(
            QStringLiteral("OkButton"),
            [](QDialog *d) {
                auto *ed = static_cast<baseEdit *>(d);
                typeInRow(ed->ListView, ed->LineEdit, QStringLiteral("journey title"),
                          QStringLiteral("Lakes; Passes and more"));
            },
            "baseEdit");
        w.app->openBase->trigger();
        QVERIFY2(base->handled && base->error.isEmpty(), qPrintable(base->error));
        QCOMPARE(w.doc->journeyname, QStringLiteral("Lakes; Passes and more"));
        w.checkStep(before, rows, QStringLiteral("base settings"));
        w.undoKey();
        QCOMPARE(w.doc->journeyname, QStringLiteral("Lakes and Passes"));
    }

    void bookedPlanIsUndoneAndRedone()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        Window w(fx);
        const QByteArray before = journeyBytes(w.doc);
        const QStringList rows = w.costRows();
        ModalTicket settle = ModalHelper::onNextModal(
            [](QWidget *x) { return qobject_cast<settleEdit *>(x) != nullptr; },
            [](QWidget *x, ModalOutcome &out) {
                auto *d = static_cast<settleEdit *>(x);
                ModalTicket yes = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
                d->BookButton->click();
                if (!yes->handled)
                    out.error += yes->error;
                d->CloseButton->click();
            });
        w.app->settleUp->trigger();
        QVERIFY2(settle->handled && settle->error.isEmpty(), qPrintable(settle->error));
        for (const UserData *user : w.doc->users)
            QCOMPARE(QString::asprintf("%.2f", user->value), QStringLiteral("0.00"));
        w.checkStep(before, rows, QStringLiteral("book the settle-up plan"));
    }

    void undoingBackToTheSavedStateLeavesNothingForQuitToAsk()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        Window w(fx);
        const QString sample = fx.dataFile(QStringLiteral("sample.wfn"));
        QVERIFY(ModalHelper::tapRow(w.v->CostsListView, 2));
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
        QTest::mouseClick(w.v->DeleteButton, Qt::LeftButton);
        QVERIFY(box->handled);
        // Saved after the deletion: that is the clean state now.
        w.app->fileSave->trigger();
        QVERIFY(!w.doc->isModified());
        w.undoKey();
        QVERIFY(w.doc->isModified());
        w.redoKey();
        QVERIFY(!w.doc->isModified());

        // Quit asks nothing and ends the program.
        QTimer limit;
        limit.setSingleShot(true);
        QObject::connect(&limit, &QTimer::timeout, [] { QCoreApplication::exit(42); });
        limit.start(5000);
        ModalTicket question = ModalHelper::answerNextMessageBox(QMessageBox::Cancel, 1000);
        QTimer::singleShot(0, w.app.get(), [&w] { w.app->fileQuit->trigger(); });
        QCOMPARE(QCoreApplication::exec(), 0);
        QVERIFY(!question->handled);
    }

    void openingOrStartingAJourneyLeavesNothingToUndo()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        Window w(fx);
        QVERIFY(ModalHelper::tapRow(w.v->CostsListView, 2));
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
        QTest::mouseClick(w.v->DeleteButton, Qt::LeftButton);
        QVERIFY(box->handled);
        QVERIFY(w.app->editUndo->isEnabled());
        ModalTicket question = ModalHelper::answerNextMessageBox(QMessageBox::No);
        w.app->fileNew->trigger();
        QVERIFY(question->handled);
        QVERIFY(!w.app->editUndo->isEnabled());
        QVERIFY(!w.app->editRedo->isEnabled());
        QCOMPARE(w.app->editUndo->toolTip(), QStringLiteral("Undo"));
        const QByteArray fresh = journeyBytes(w.doc);
        w.undoKey();
        QCOMPARE(journeyBytes(w.doc), fresh);

        // Open clears it too. (No to New keeps the journey marked, so Open asks again.)
        ModalTicket again = ModalHelper::answerNextMessageBox(QMessageBox::No);
        ModalTicket file = ModalHelper::typeNameInNextFileDialog(QStringLiteral("sample.wfn"));
        w.app->fileOpen->trigger();
        QVERIFY2(file->handled, qPrintable(file->error));
        QCOMPARE(w.doc->journeyname, QStringLiteral("Lakes and Passes"));
        w.v->TabWidget2->setCurrentIndex(1);
        QVERIFY(ModalHelper::tapRow(w.v->CostsListView, 0));
        QTest::mouseClick(w.v->CopyButton, Qt::LeftButton);
        QTest::mouseClick(w.v->PasteButton, Qt::LeftButton);
        QVERIFY(w.app->editUndo->isEnabled());
        ModalTicket open = ModalHelper::answerNextMessageBox(QMessageBox::No);
        file = ModalHelper::typeNameInNextFileDialog(QStringLiteral("sample.wfn"));
        w.app->fileOpen->trigger();
        QVERIFY2(file->handled, qPrintable(file->error));
        QVERIFY(open->handled);
        QVERIFY(!w.app->editUndo->isEnabled());
    }

    void aCancelledEditIsNoStep()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        Window w(fx);
        QVERIFY(ModalHelper::tapRow(w.v->CostsListView, 2));
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Cancel);
        QTest::mouseClick(w.v->DeleteButton, Qt::LeftButton);
        QVERIFY(box->handled);
        ModalTicket costs = ModalHelper::rejectNextDialog({}, "costsEdit");
        QTest::mouseClick(w.v->InsertButton, Qt::LeftButton);
        QVERIFY2(costs->handled, qPrintable(costs->error));
        QVERIFY(!w.app->editUndo->isEnabled());
        QVERIFY(!w.doc->isModified());
    }
};

QTEST_MAIN(TestUndo)
#include "tst_undo.moc"
