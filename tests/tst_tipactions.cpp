#include "editortestutil.h"
#include "modalhelper.h"
#include "shellfixture.h"
#include "usertestutil.h"
#include "widgetreaders.h"

#include "data/wayferndata.h"
#include "dialogs/calenderedit.h"
#include "editors/tipedit.h"
#include "shell/wayfernapp.h"
#include "shell/wayfernview.h"

#include <QDate>
#include <QFile>
#include <QRegularExpression>
#include <QTest>
#include <QTreeWidget>

namespace {

using WidgetReaders::itemTexts;

// The main window on the tips tab, shown, so that rows can be tapped.
void showTips(WayfernApp &app)
{
    app.show();
    app.view->TabWidget2->setCurrentIndex(2);
    QVERIFY(QTest::qWaitForWindowExposed(&app));
}

bool tapTip(WayfernView *v, int row)
{
    return ModalHelper::tapRow(v->TipListView, row);
}

// The names of the tip list, top to bottom.
QStringList tipNames(WayfernView *v)
{
    return WidgetReaders::columnTexts(v->TipListView, 1);
}

// Acts in the next tip dialog; `act` ends it (OK, Cancel, close).
ModalTicket inNextTipDialog(std::function<void(tipEdit *, ModalOutcome &)> act)
{
    return ModalHelper::onNextModal(
        [](QWidget *w) { return qobject_cast<tipEdit *>(w) != nullptr; },
        [act](QWidget *w, ModalOutcome &out) { act(static_cast<tipEdit *>(w), out); });
}

// Opens the row's group and taps the row of a tip dialog, noting a failure in `out`.
void tapRow(tipEdit *ed, const char *group, const char *label, ModalOutcome &out)
{
    QTreeWidgetItem *row = ed->util.findTreeItem(ed->ListView, QString::fromLatin1(group),
                                                 QString::fromLatin1(label), 0);
    if (row)
        row->parent()->setExpanded(true);
    if (!row || !ModalHelper::tapItem(ed->ListView, row))
        out.error += QStringLiteral("can't tap %1; ").arg(QLatin1String(label));
}

// A new tip dated 01.05.2002, named "Early bird", confirmed with OK.
ModalTicket enterEarlyTipInNextDialog()
{
    return inNextTipDialog([](tipEdit *ed, ModalOutcome &out) {
        tapRow(ed, "common", "date", out);
        ModalTicket calendar = ModalHelper::pickDateInNextCalendar(QDate(2002, 5, 1));
        ed->ToolButton->click();
        if (!calendar->handled)
            out.error += QStringLiteral("no calendar; ");
        tapRow(ed, "common", "name", out);
        QTest::keyClicks(ed->LineEdit, QStringLiteral("Early bird"));
        ed->OkButton->click();
    });
}

struct Journey
{
    Journey()
    {
        fx.writeLast(QStringLiteral("sample.wfn"));
        app = std::make_unique<WayfernApp>();
        v = app->view;
        doc = app->doc;
    }
    ShellFixture fx{{QStringLiteral("sample.wfn")}};
    std::unique_ptr<WayfernApp> app;
    WayfernView *v = nullptr;
    WayFernData *doc = nullptr;
};

// In a tip dialog: selects the type row and takes one step in the type box with `key`,
// answering the question with Yes.
void changeType(tipEdit *ed, Qt::Key key, ModalOutcome &out)
{
    tapRow(ed, "common", "tiptype", out);
    ModalTicket question = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
    QTest::keyClick(ed->ComboBox, key);
    if (!question->handled)
        out.error += QStringLiteral("no type question; ");
}

// In a tip dialog: picks `date` in the calendar.
void pickDate(tipEdit *ed, const QDate &date, ModalOutcome &out)
{
    tapRow(ed, "common", "date", out);
    ModalTicket calendar = ModalHelper::pickDateInNextCalendar(date);
    ed->ToolButton->click();
    if (!calendar->handled)
        out.error += QStringLiteral("no calendar; ");
}

// One section of a journey file, "[NAME]" up to the blank line after it, as lines.
QStringList fileSection(const QString &path, const QString &name)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return {QStringLiteral("<can't read %1>").arg(path)};
    const QString text = QString::fromLatin1(f.readAll());
    const int at = text.indexOf(u'[' + name + u']');
    if (at < 0)
        return {QStringLiteral("<no section %1>").arg(name)};
    return text.mid(at, text.indexOf(QStringLiteral("\n\n"), at) - at).split(u'\n');
}

const QStringList sampleNames{"Lakeside hostel", "Zum Anker", "Glacier garden"};

} // namespace

class TestTipActions : public QObject
{
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression("Not implemented yet!")); }
    void cleanup() { ModalHelper::cancelPending(); }

    void theTipDialogIsBuiltOnceHiddenRightAfterTheCostsDialog()
    {
        ShellFixture fx;
        WayfernApp app;
        WayfernView *v = app.view;
        QStringList dialogs;
        for (QDialog *d : v->findChildren<QDialog *>(Qt::FindDirectChildrenOnly))
            dialogs << d->objectName() + u':' + QString::fromLatin1(d->metaObject()->className());
        QCOMPARE(dialogs.mid(0, 3),
                 (QStringList{"Input costs:costsEdit", "Tip:tipEdit", "base settings:baseEdit"}));
        QVERIFY(v->tipInput);
        QCOMPARE(v->tipInput->windowTitle(), QStringLiteral("Tip"));
        QVERIFY(v->tipInput->isHidden());
        QVERIFY(v->tipInput->isModal());
        QCOMPARE(v->tipInput->document, app.doc);
    }

    void aNewTipRejectedInTheDialogDisappears()
    {
        Journey j;
        showTips(*j.app);
        ModalTicket question;
        ModalTicket dialog = inNextTipDialog([&](tipEdit *ed, ModalOutcome &out) {
            if (ed->tmp.tiptype != QLatin1String("Hotel"))
                out.error += QStringLiteral("not the first type: ") + ed->tmp.tiptype;
            // The first type makes a new tip differ from its empty record: Cancel asks.
            question = ModalHelper::answerNextMessageBox(QMessageBox::No);
            ed->CancelButton->click();
        });
        QTest::mouseClick(j.v->TInsertButton, Qt::LeftButton);
        QVERIFY2(dialog->handled && dialog->error.isEmpty(), qPrintable(dialog->error));
        QVERIFY2(question && question->handled, question ? qPrintable(question->error) : "");
        QCOMPARE(j.doc->tips.count(), 3);
        QCOMPARE(tipNames(j.v), sampleNames);
        QCOMPARE(j.v->actutip, j.doc->tips.first());
        QCOMPARE(WidgetReaders::currentRow(j.v->TipListView), 0);
        QVERIFY(!j.doc->isModified());
    }

    void aNewTipDatedEarlierStandsLastUntilAFullRefreshSortsIt()
    {
        Journey j;
        showTips(*j.app);
        ModalTicket dialog = enterEarlyTipInNextDialog();
        QTest::mouseClick(j.v->TInsertButton, Qt::LeftButton);
        QVERIFY2(dialog->handled && dialog->error.isEmpty(), qPrintable(dialog->error));
        QCOMPARE(j.doc->tips.count(), 4);
        QCOMPARE(tipNames(j.v), sampleNames + QStringList{"Early bird"});
        QCOMPARE(WidgetReaders::rowTexts(j.v->TipListView, 3),
                 (QStringList{"H", "Early bird", ""}));
        QCOMPARE(j.v->actutip, j.doc->tips.at(3));
        QCOMPARE(WidgetReaders::selectedRows(j.v->TipListView), QList<int>{3});
        QCOMPARE(WidgetReaders::currentRow(j.v->TipListView), 3);
        QCOMPARE(j.doc->tips.at(3)->date, QStringLiteral("01.05.2002"));
        QVERIFY(j.doc->isModified());

        j.v->refreshView();
        QCOMPARE(tipNames(j.v), (QStringList{"Early bird"} + sampleNames));
    }

    void aChangedTipKeepsItsPlaceAndItsSelection()
    {
        Journey j;
        showTips(*j.app);
        QVERIFY(tapTip(j.v, 1));
        TipData *anker = j.doc->tips.at(1);
        QCOMPARE(anker->name, QStringLiteral("Zum Anker"));
        ModalTicket dialog = inNextTipDialog([&](tipEdit *ed, ModalOutcome &out) {
            if (ed->actu != anker)
                out.error += QStringLiteral("not the selected tip; ");
            tapRow(ed, "common", "date", out);
            ModalTicket calendar = ModalHelper::pickDateInNextCalendar(QDate(2002, 6, 9));
            ed->ToolButton->click();
            if (!calendar->handled)
                out.error += QStringLiteral("no calendar; ");
            tapRow(ed, "common", "name", out);
            QTest::keyClicks(ed->LineEdit, QStringLiteral(" II"));
            ed->OkButton->click();
        });
        QTest::mouseClick(j.v->TChangeButton, Qt::LeftButton);
        QVERIFY2(dialog->handled && dialog->error.isEmpty(), qPrintable(dialog->error));
        QCOMPARE(tipNames(j.v), (QStringList{"Lakeside hostel", "Zum Anker II", "Glacier garden"}));
        QCOMPARE(j.v->actutip, anker);
        QCOMPARE(WidgetReaders::currentRow(j.v->TipListView), 1);
        QCOMPARE(anker->date, QStringLiteral("09.06.2002"));
        j.v->refreshView();
        QCOMPARE(tipNames(j.v), (QStringList{"Lakeside hostel", "Glacier garden", "Zum Anker II"}));
    }

    void aDoubleClickOnATipChangesIt()
    {
        Journey j;
        showTips(*j.app);
        QTreeView *list = j.v->TipListView;
        ModalTicket dialog = inNextTipDialog([&](tipEdit *ed, ModalOutcome &out) {
            if (ed->actu != j.doc->tips.at(2))
                out.error += QStringLiteral("not the double-clicked tip; ");
            ed->reject();
        });
        const QRect rect = list->visualRect(list->model()->index(2, 0));
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, rect.center());
        QTest::mousePress(list->viewport(), Qt::LeftButton, {}, rect.center());
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, rect.center());
        QVERIFY2(dialog->handled && dialog->error.isEmpty(), qPrintable(dialog->error));
        QCOMPARE(tipNames(j.v), sampleNames);
    }

    void changeAndDeleteWithoutACurrentRowDoNothing()
    {
        Journey j;
        QCOMPARE(WidgetReaders::currentRow(j.v->TipListView), -1);
        ModalTicket dialog = inNextTipDialog([](tipEdit *ed, ModalOutcome &) { ed->reject(); });
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Yes, 300);
        j.v->slotTipChange();
        j.v->slotTipDelete();
        QTRY_VERIFY(!box->error.isEmpty());
        QVERIFY(!box->handled);
        QVERIFY(!dialog->handled);
        QCOMPARE(j.doc->tips.count(), 3);
        QCOMPARE(tipNames(j.v), sampleNames);
    }

    void cancelInTheDeleteQuestionMovesTheSelectionToTheFirstTip()
    {
        Journey j;
        showTips(*j.app);
        QVERIFY(tapTip(j.v, 2));
        QCOMPARE(j.v->actutip, j.doc->tips.at(2));
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Cancel);
        QTest::mouseClick(j.v->TDeleteButton, Qt::LeftButton);
        QVERIFY2(box->handled, qPrintable(box->error));
        QCOMPARE(box->title, QStringLiteral("Delete item"));
        QCOMPARE(box->text,
                 QStringLiteral("Delete entry\nSight\nGlacier garden\n\nconfirm with yes !"));
        QCOMPARE(box->buttons, QMessageBox::Yes | QMessageBox::Cancel);
        QCOMPARE(box->icon, QMessageBox::Information);
        QCOMPARE(j.doc->tips.count(), 3);
        QCOMPARE(tipNames(j.v), sampleNames);
        QCOMPARE(j.v->actutip, j.doc->tips.first());
        QCOMPARE(WidgetReaders::selectedRows(j.v->TipListView), QList<int>{0});
        QCOMPARE(WidgetReaders::currentRow(j.v->TipListView), 0);
        QVERIFY(!j.doc->isModified());
    }

    void yesInTheDeleteQuestionRemovesTheTipAndSelectsTheFirst()
    {
        Journey j;
        showTips(*j.app);
        QVERIFY(tapTip(j.v, 1));
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
        QTest::mouseClick(j.v->TDeleteButton, Qt::LeftButton);
        QVERIFY2(box->handled, qPrintable(box->error));
        QCOMPARE(box->text,
                 QStringLiteral("Delete entry\nRestaurant\nZum Anker\n\nconfirm with yes !"));
        QCOMPARE(j.doc->tips.count(), 2);
        QCOMPARE(tipNames(j.v), (QStringList{"Lakeside hostel", "Glacier garden"}));
        QCOMPARE(j.v->actutip, j.doc->tips.first());
        QCOMPARE(WidgetReaders::currentRow(j.v->TipListView), 0);

        // The row made current by the refresh is what the next delete takes.
        ModalTicket again = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
        QTest::mouseClick(j.v->TDeleteButton, Qt::LeftButton);
        QVERIFY2(again->handled, qPrintable(again->error));
        QCOMPARE(again->text,
                 QStringLiteral("Delete entry\nHotel\nLakeside hostel\n\nconfirm with yes !"));
        QCOMPARE(tipNames(j.v), (QStringList{"Glacier garden"}));
    }

    void deletingTheLastTipLeavesNoCurrentTip()
    {
        Journey j;
        showTips(*j.app);
        for (int n = 3; n > 0; --n) {
            QVERIFY(tapTip(j.v, 0));
            ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
            QTest::mouseClick(j.v->TDeleteButton, Qt::LeftButton);
            QVERIFY2(box->handled, qPrintable(box->error));
        }
        QCOMPARE(j.doc->tips.count(), 0);
        QCOMPARE(j.v->actutip, nullptr);
        QCOMPARE(WidgetReaders::rowCount(j.v->TipListView), 0);
        // Nothing to copy from or change.
        j.v->slotTCopy();
        QVERIFY(!j.v->tipCopied);
        ModalTicket dialog = inNextTipDialog([](tipEdit *ed, ModalOutcome &) { ed->reject(); });
        j.v->slotTipChange();
        QVERIFY(!dialog->handled);
    }

    void pastingATipRunsTheFullRefreshSoAllTipsStandInDateOrder()
    {
        Journey j;
        showTips(*j.app);
        // First a tip that stands out of order, last though it is the earliest.
        ModalTicket dialog = enterEarlyTipInNextDialog();
        QTest::mouseClick(j.v->TInsertButton, Qt::LeftButton);
        QVERIFY2(dialog->handled && dialog->error.isEmpty(), qPrintable(dialog->error));
        QCOMPARE(tipNames(j.v), sampleNames + QStringList{"Early bird"});

        QVERIFY(!j.v->TPasteButton->isEnabled());
        j.v->slotTPaste(); // nothing copied yet
        QCOMPARE(j.doc->tips.count(), 4);

        QVERIFY(tapTip(j.v, 1));
        QTest::mouseClick(j.v->TCopyButton, Qt::LeftButton);
        QVERIFY(j.v->tipCopied);
        QVERIFY(j.v->TPasteButton->isEnabled());
        QCOMPARE(j.v->tipBuffer.name, QStringLiteral("Zum Anker"));
        QVERIFY(tapTip(j.v, 0));
        QTest::mouseClick(j.v->TPasteButton, Qt::LeftButton);
        QCOMPARE(j.doc->tips.count(), 5);
        QCOMPARE(tipNames(j.v),
                 (QStringList{"Early bird", "Lakeside hostel", "Zum Anker", "Zum Anker",
                              "Glacier garden"}));
        QStringList dates;
        for (TipData *tip : j.doc->tips)
            dates << tip->date;
        QCOMPARE(
            dates,
            (QStringList{"01.05.2002", "30.05.2002", "31.05.2002", "31.05.2002", "01.06.2002"}));
    }

    void aCopiedTipKeepsItsOwnFieldsAndTheBufferIsAnIndependentCopy()
    {
        Journey j;
        showTips(*j.app);
        TipData *hostel = j.doc->tips.at(0);
        CustomData *beds = hostel->customs.append();
        beds->text = QStringLiteral("beds");
        beds->content = QStringLiteral("12");
        QVERIFY(tapTip(j.v, 0));
        QTest::mouseClick(j.v->TCopyButton, Qt::LeftButton);
        beds->content = QStringLiteral("changed after the copy");
        QTest::mouseClick(j.v->TPasteButton, Qt::LeftButton);
        QCOMPARE(j.doc->tips.count(), 4);
        int copies = 0;
        for (TipData *tip : j.doc->tips) {
            if (tip->name == QLatin1String("Lakeside hostel") && tip != hostel
                && tip->customs.count() == 1 && tip->customs.at(0)->content == QLatin1String("12"))
                ++copies;
        }
        QCOMPARE(copies, 1);
    }

    // A journey built from nothing through the window only: three travellers with a deposit
    // each, two tips with fields of the template's tip types, one tip's type changed.
    void aJourneyBuiltThroughTheWindowOnlyIsSavedAsEntered()
    {
        ShellFixture fx;
        // The shipped template: its tip types bring fields of their own.
        QFile::remove(fx.dataFile(QStringLiteral("template.wfn")));
        QVERIFY(QFile::copy(QStringLiteral(WAYFERN_TEST_DATA "/../../share/template.wfn"),
                            fx.dataFile(QStringLiteral("template.wfn"))));
        WayfernApp app;
        WayfernView *v = app.view;
        showTips(app);
        QCOMPARE(app.doc->tips.count(), 0);
        QCOMPARE(app.doc->ttypes.first()->type, QStringLiteral("Hotel"));

        ModalTicket list = enterCrewInNextUserList();
        app.openUser->trigger();
        QVERIFY2(list->handled && list->error.isEmpty(), qPrintable(list->error));

        ModalTicket first = inNextTipDialog([](tipEdit *ed, ModalOutcome &out) {
            // The type first: its change rebuilds the rows from what was read back.
            changeType(ed, Qt::Key_Down, out); // Hotel to Restaurant
            pickDate(ed, QDate(2002, 6, 2), out);
            tapRow(ed, "common", "name", out);
            QTest::keyClicks(ed->LineEdit, QStringLiteral("Zum Anker"));
            tapRow(ed, "custom", "Cuisine", out);
            QTest::keyClicks(ed->LineEdit, QStringLiteral("Swiss"));
            ed->OkButton->click();
        });
        QTest::mouseClick(v->TInsertButton, Qt::LeftButton);
        QVERIFY2(first->handled && first->error.isEmpty(), qPrintable(first->error));

        ModalTicket second = inNextTipDialog([](tipEdit *ed, ModalOutcome &out) {
            changeType(ed, Qt::Key_Down, out); // Hotel to Restaurant
            tapRow(ed, "custom", "Price range", out);
            QTest::keyClicks(ed->LineEdit, QStringLiteral("lost with the type"));
            changeType(ed, Qt::Key_Up, out); // back to Hotel, fields empty again
            pickDate(ed, QDate(2002, 6, 1), out);
            tapRow(ed, "common", "name", out);
            QTest::keyClicks(ed->LineEdit, QStringLiteral("Seeblick"));
            tapRow(ed, "custom", "Rooms", out);
            QTest::keyClicks(ed->LineEdit, QStringLiteral("12"));
            ed->OkButton->click();
        });
        QTest::mouseClick(v->TInsertButton, Qt::LeftButton);
        QVERIFY2(second->handled && second->error.isEmpty(), qPrintable(second->error));
        // Entered later with an earlier date: last until a full refresh.
        QCOMPARE(tipNames(v), (QStringList{"Zum Anker", "Seeblick"}));

        const QString path = fx.dataFile(QStringLiteral("tips.wfn"));
        QVERIFY(v->saveView(path));
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QStringList lines = QString::fromLatin1(file.readAll()).split(u'\n');
        QVERIFY(lines.contains(QStringLiteral("USERCOUNT=3;")));
        QVERIFY(lines.contains(QStringLiteral("TIPCOUNT=2;")));
        const QStringList travellers = crewSections();
        QCOMPARE(lines.mid(lines.indexOf(QStringLiteral("[USER_0]")), travellers.count()),
                 travellers);
        const QStringList common{"STREET=;", "PCODE=;", "TOWN=;", "TEL=;",
                                 "FAX=;",    "EMAIL=;", "WWW=;",  "COMMENT=;"};
        QCOMPARE(fileSection(path, QStringLiteral("TIP_0")),
                 QStringList({"[TIP_0]", "DATE=02.06.2002;", "TIPTYPE=Restaurant;", "QUALITYTYPE=;",
                              "NAME=Zum Anker;"})
                     + common
                     + QStringList({"CUSTOMCNT=2;", "CUSTOMTEXT_0=Cuisine;", "CUSTOMCONT_0=Swiss;",
                                    "CUSTOMTEXT_1=Price range;", "CUSTOMCONT_1=;"}));
        QCOMPARE(fileSection(path, QStringLiteral("TIP_1")),
                 QStringList({"[TIP_1]", "DATE=01.06.2002;", "TIPTYPE=Hotel;", "QUALITYTYPE=;",
                              "NAME=Seeblick;"})
                     + common
                     + QStringList({"CUSTOMCNT=2;", "CUSTOMTEXT_0=Rooms;", "CUSTOMCONT_0=12;",
                                    "CUSTOMTEXT_1=Price per night;", "CUSTOMCONT_1=;"}));
    }
};

QTEST_MAIN(TestTipActions)
#include "tst_tipactions.moc"
