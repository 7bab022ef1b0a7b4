#include "editortestutil.h"
#include "formcheck.h"
#include "modalhelper.h"

#include "data/wayferndata.h"
#include "dialogs/calenderedit.h"
#include "editors/tipedit.h"
#include "forms/tipdlg.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHeaderView>
#include <QRegularExpression>
#include <QTest>

namespace {

// Records which slot of the form ran.
class RecordingTipDlg : public TipDlg
{
public:
    QStringList calls;
    void slotComboChanged(const QString &t) override { calls << "slotComboChanged " + t; }
    void slotCancel() override { calls << "slotCancel"; }
    void slotClearLine() override { calls << "slotClearLine"; }
    void slotOK() override { calls << "slotOK"; }
    void slotSelectButton() override { calls << "slotSelectButton"; }
    void slotSelectionChanged(QTreeWidgetItem *i) override
    {
        calls << QStringLiteral("slotSelectionChanged %1").arg(i ? i->text(0) : "null");
    }
    void slotTextChanged(const QString &t) override { calls << "slotTextChanged " + t; }
};

// Tip types Hotel (stars, price), Restaurant (kitchen), Museum (no fields of its own);
// qualities good, fair, poor.
void fillTipTables(WayFernData &doc)
{
    TTypeData *hotel = doc.ttypes.append();
    hotel->type = QStringLiteral("Hotel");
    hotel->customs.append()->text = QStringLiteral("stars");
    hotel->customs.append()->text = QStringLiteral("price");
    TTypeData *restaurant = doc.ttypes.append();
    restaurant->type = QStringLiteral("Restaurant");
    restaurant->customs.append()->text = QStringLiteral("kitchen");
    doc.ttypes.append()->type = QStringLiteral("Museum");
    for (const char *q : {"good", "fair", "poor"})
        doc.qtypes.append()->type = QString::fromLatin1(q);
}

struct Fixture
{
    explicit Fixture(bool tables = true)
    {
        fillJourney(doc, false);
        if (tables)
            fillTipTables(doc);
        calendar.hide();
        ed.hide();
    }

    // A hotel with its two fields filled.
    TipData *addHotel()
    {
        TipData *tip = doc.tips.append();
        tip->date = QStringLiteral("04.06.2002");
        tip->name = QStringLiteral("Seeblick");
        tip->street = QStringLiteral("Quai 3");
        tip->pcode = QStringLiteral("6000");
        tip->town = QStringLiteral("Luzern");
        tip->tel = QStringLiteral("041 1");
        tip->fax = QStringLiteral("041 2");
        tip->email = QStringLiteral("a@b.ch");
        tip->www = QStringLiteral("www.b.ch");
        tip->tiptype = QStringLiteral("Hotel");
        tip->typeletter = QStringLiteral("H");
        tip->qualitytype = QStringLiteral("good");
        tip->comment = QStringLiteral("quiet");
        CustomData *stars = tip->customs.append();
        stars->text = QStringLiteral("stars");
        stars->content = QStringLiteral("3");
        CustomData *price = tip->customs.append();
        price->text = QStringLiteral("price");
        price->content = QStringLiteral("120");
        return tip;
    }

    QTreeWidgetItem *child(const QString &group, const QString &label)
    {
        return ed.util.findTreeItem(ed.ListView, group, label, 0);
    }
    QString row(const QString &group, const QString &label)
    {
        QTreeWidgetItem *item = child(group, label);
        return item ? item->text(1) : QStringLiteral("<no row>");
    }
    // Opens the group, as the user does with its decoration, and taps the row.
    bool tap(const QString &group, const QString &label)
    {
        QTreeWidgetItem *item = child(group, label);
        if (!item)
            return false;
        item->parent()->setExpanded(true);
        return ModalHelper::tapItem(ed.ListView, item);
    }
    bool tapGroup(const QString &group)
    {
        return ModalHelper::tapItem(ed.ListView, WidgetReaders::topLevelItem(ed.ListView, group));
    }
    // One step of the combo box with the keyboard: one activation.
    void comboStep(Qt::Key key) { QTest::keyClick(ed.ComboBox, key); }
    // On the type row, one step of the box with `key`; the type question that follows is
    // answered with `answer`. False when the row can't be tapped.
    bool stepType(Qt::Key key, QMessageBox::StandardButton answer, ModalTicket &box)
    {
        if (!tap("common", "tiptype"))
            return false;
        box = ModalHelper::answerNextMessageBox(answer);
        comboStep(key);
        return true;
    }

    WayFernData doc;
    calenderEdit calendar{nullptr, "Calendar", true, &doc};
    tipEdit ed{nullptr, "Tip", true, &doc};
};

const FormCheck::WidgetRow tipFormWidgets[] = {
    {"TipDlg", "TipDlg", "Tip"},
    {"ComboBox", "QComboBox", "", "select the box, if enabled",
     "ComboBox used for different purposes.\nIf e.g. the currency type has to be\n"
     "entered, this combobox will show\nthe possibilities."},
    {"OkButton", "QToolButton", "", "OKButton",
     "confirms the changes.\nIf pressed, all changed will be stored.", ":/pixmaps/ok.xpm"},
    {"CancelButton", "QToolButton", "", "CancelButton",
     "all changes will be lost,\nif this button is pressed.\n\nThe user is asked to confirm\n"
     "the cancellation.",
     ":/pixmaps/cancel.xpm"},
    {"ClearButton", "QToolButton", "", "ClearButton", "This button clears the EditLine.",
     ":/pixmaps/clear.xpm"},
    {"LineEdit", "QLineEdit", "", "EditLine",
     "Enter the data for the\nselected listviewitem here."},
    {"ToolButton", "QToolButton", "...", "SelectButton",
     "This button is used for different\npurposes.\nE.g. in case of date input, the button\n"
     "opens a calendar for date input."},
    {"ListView", "QTreeWidget", "item|content", "select an item to edit", "ListView with TipData"},
};

const FormCheck::StubRow tipFormStubs[] = {
    {"slotComboChanged(QString)",
     "TipDlg::slotComboChanged( const QString & ): Not implemented yet!"},
    {"slotCancel()", "TipDlg::slotCancel(): Not implemented yet!"},
    {"slotClearLine()", "TipDlg::slotClearLine(): Not implemented yet!"},
    {"slotOK()", "TipDlg::slotOK(): Not implemented yet!"},
    {"slotSelectButton()", "TipDlg::slotSelectButton(): Not implemented yet!"},
    {"slotSelectionChanged(QTreeWidgetItem*)",
     "TipDlg::slotSelectionChanged( QTreeWidgetItem * ): Not implemented yet!"},
    {"slotTextChanged(QString)",
     "TipDlg::slotTextChanged( const QString & ): Not implemented yet!"},
};

const QStringList hotelRows{
    "common|",         "  date|04.06.2002", "  tiptype|Hotel", "  short tiptype|H",
    "  name|Seeblick", "  street|Quai 3",   "  pcode|6000",    "  town|Luzern",
    "  comment|quiet", "  quality|good",    "phone|",          "  phone|041 1",
    "  fax|041 2",     "  email|a@b.ch",    "  www|www.b.ch",  "custom|",
    "  price|120",     "  stars|3"};

} // namespace

class TestTipEditor : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { qputenv("WAYFERNCFG", "."); }
    void init() { QTest::failOnWarning(QRegularExpression("Not implemented yet!")); }
    void cleanup() { ModalHelper::cancelPending(); }

    // The form as designed.
    void formWidgetsCarryTheirNamesTextsAndTips()
    {
        TipDlg dlg(nullptr, "Tip", true);
        QCOMPARE(dlg.objectName(), QStringLiteral("Tip"));
        QVERIFY(dlg.isModal());
        QCOMPARE(
            FormCheck::childWidgets(&dlg),
            (QStringList{"ComboBox:QComboBox", "OkButton:QToolButton", "CancelButton:QToolButton",
                         "ClearButton:QToolButton", "LineEdit:QLineEdit", "ToolButton:QToolButton",
                         "ListView:QTreeWidget"}));
        QVERIFY(!dlg.ComboBox->isEditable());
        QCOMPARE(dlg.OkButton->iconSize(), QSize(24, 16));
        QCOMPARE(dlg.CancelButton->iconSize(), QSize(24, 16));
        QCOMPARE(dlg.ClearButton->iconSize(), QSize(24, 16));
        checkItemContentList(dlg.ListView);
        TipDlg form;
        FormCheck::checkWidgets(&form, tipFormWidgets);
    }

    void formLayoutStacksTheRowsWithTheirMarginsAndSpacings()
    {
        TipDlg dlg;
        QCOMPARE(FormCheck::layoutOutline(dlg.layout()), itemContentOutline());
    }

    void formStubSlotsWarnNotImplemented()
    {
        TipDlg dlg;
        FormCheck::checkStubs(&dlg, TipDlg::staticMetaObject, tipFormStubs);
    }

    void formConnectsItsSignalsToTheSlots()
    {
        RecordingTipDlg dlg;
        dlg.ClearButton->click();
        dlg.OkButton->click();
        dlg.CancelButton->click();
        dlg.ToolButton->click();
        auto *item = new QTreeWidgetItem(dlg.ListView, QStringList{"date", "x"});
        item->setSelected(true);
        item->setSelected(false);
        dlg.LineEdit->setText(QStringLiteral("abc"));
        dlg.ComboBox->addItem(QStringLiteral("Hotel"));
        emit dlg.ComboBox->textActivated(QStringLiteral("Hotel"));
        QCOMPARE(dlg.calls,
                 (QStringList{"slotClearLine", "slotOK", "slotCancel", "slotSelectButton",
                              "slotSelectionChanged date", "slotSelectionChanged null",
                              "slotTextChanged abc", "slotComboChanged Hotel"}));
    }

    void editorKeepsTheCaptionOfTheFormAndTakesTheName()
    {
        WayFernData doc;
        tipEdit named(nullptr, "Tip", true, &doc);
        QCOMPARE(named.windowTitle(), QStringLiteral("Tip"));
        QCOMPARE(named.objectName(), QStringLiteral("Tip"));
        tipEdit unnamed(nullptr, nullptr, true, &doc);
        QCOMPARE(unnamed.windowTitle(), QString());
        QVERIFY(!named.ListView->isSortingEnabled());
        QCOMPARE(named.ListView->focusProxy(), named.LineEdit);
        QCOMPARE(named.calendar, nullptr);
        QCOMPARE(named.currenttype, nullptr);
    }

    // Rows.
    void rowsShowTheGroupsAndTheTipsOwnFieldsLastFirst()
    {
        Fixture f;
        TipData *tip = f.addHotel();
        f.ed.prepare(tip, &f.calendar);
        QCOMPARE(WidgetReaders::treeRows(f.ed.ListView), hotelRows);
        QVERIFY(WidgetReaders::topLevelItem(f.ed.ListView, "common")->isExpanded());
        QVERIFY(!WidgetReaders::topLevelItem(f.ed.ListView, "phone")->isExpanded());
        QVERIFY(!WidgetReaders::topLevelItem(f.ed.ListView, "custom")->isExpanded());
        QCOMPARE(f.ed.selected, nullptr);
        QCOMPARE(f.ed.actu, tip);
        QCOMPARE(f.ed.calendar, &f.calendar);
    }

    void aNewTipStartsWithTheFirstTypeButWithoutItsFields()
    {
        Fixture f;
        TipData *tip = f.doc.tips.append();
        f.ed.prepare(tip, &f.calendar);
        QCOMPARE(f.row("common", "tiptype"), QStringLiteral("Hotel"));
        QCOMPARE(f.row("common", "short tiptype"), QStringLiteral("H"));
        QCOMPARE(f.ed.currenttype, f.doc.ttypes.first());
        QCOMPARE(WidgetReaders::columnTexts(f.ed.ListView), (QStringList{"common", "phone"}));
        QVERIFY(tip->tiptype.isEmpty());
    }

    void afterLoadingAllEditWidgetsAreOffUntilARowIsSelected()
    {
        Fixture f;
        f.ed.LineEdit->setText(QStringLiteral("left over"));
        f.ed.prepare(f.addHotel(), &f.calendar);
        for (QWidget *w : std::initializer_list<QWidget *>{f.ed.ComboBox, f.ed.ToolButton,
                                                           f.ed.LineEdit, f.ed.ClearButton})
            QVERIFY2(!w->isEnabled(), qPrintable(w->objectName()));
        QCOMPARE(f.ed.LineEdit->text(), QString());
        QVERIFY(f.tap("common", "name"));
        QVERIFY(f.ed.LineEdit->isEnabled());
        QCOMPARE(f.ed.LineEdit->text(), QStringLiteral("Seeblick"));
    }

    void eachRowSwitchesOnTheWidgetsOfItsKind()
    {
        Fixture f;
        f.ed.prepare(f.addHotel(), &f.calendar);
        struct Kind
        {
            const char *group, *label;
            bool line, clear, combo, tool;
            const char *shown;
        };
        const Kind kinds[] = {
            {"common", "date", false, false, false, true, "04.06.2002"},
            {"common", "tiptype", false, false, true, false, "Hotel"},
            {"common", "name", true, true, false, false, "Seeblick"},
            {"common", "street", true, true, false, false, "Quai 3"},
            {"common", "pcode", true, true, false, false, "6000"},
            {"common", "town", true, true, false, false, "Luzern"},
            {"common", "comment", true, true, false, false, "quiet"},
            {"common", "quality", false, false, true, false, "good"},
            {"phone", "phone", true, true, false, false, "041 1"},
            {"phone", "fax", true, true, false, false, "041 2"},
            {"phone", "email", true, true, false, false, "a@b.ch"},
            {"phone", "www", true, true, false, false, "www.b.ch"},
            {"custom", "stars", true, true, false, false, "3"},
            {"custom", "price", true, true, false, false, "120"},
        };
        for (const Kind &k : kinds) {
            const QString group = QString::fromLatin1(k.group);
            const QString label = QString::fromLatin1(k.label);
            QVERIFY2(f.tap(group, label), k.label);
            QCOMPARE(f.ed.selected, f.child(group, label));
            QVERIFY2(f.ed.LineEdit->isEnabled() == k.line, k.label);
            QVERIFY2(f.ed.ClearButton->isEnabled() == k.clear, k.label);
            QVERIFY2(f.ed.ComboBox->isEnabled() == k.combo, k.label);
            QVERIFY2(f.ed.ToolButton->isEnabled() == k.tool, k.label);
            QCOMPARE(f.ed.LineEdit->text(), QString::fromLatin1(k.shown));
        }
        QVERIFY(f.tap("common", "tiptype"));
        QCOMPARE(WidgetReaders::comboTexts(f.ed.ComboBox),
                 (QStringList{"Hotel", "Restaurant", "Museum"}));
        QCOMPARE(f.ed.ComboBox->currentText(), QStringLiteral("Hotel"));
        QVERIFY(f.tap("common", "quality"));
        QCOMPARE(WidgetReaders::comboTexts(f.ed.ComboBox), (QStringList{"good", "fair", "poor"}));
        QCOMPARE(f.ed.ComboBox->currentText(), QStringLiteral("good"));
    }

    void typingGoesIntoTheSelectedRowAndClearEmptiesIt()
    {
        Fixture f;
        f.ed.prepare(f.addHotel(), &f.calendar);
        QVERIFY(f.tap("phone", "fax"));
        QTest::keyClicks(f.ed.LineEdit, QStringLiteral("9"));
        QCOMPARE(f.row("phone", "fax"), QStringLiteral("041 29"));
        QCOMPARE(f.row("phone", "phone"), QStringLiteral("041 1"));
        f.ed.ClearButton->click();
        QCOMPARE(f.row("phone", "fax"), QString());
    }

    void theShortTiptypeRowChangesNothingButTypingThenWritesIntoIt()
    {
        Fixture f;
        f.ed.prepare(f.addHotel(), &f.calendar);
        QVERIFY(f.tap("common", "name"));
        QVERIFY(f.tap("common", "short tiptype"));
        QCOMPARE(f.ed.selected, f.child("common", "short tiptype"));
        // The widgets and the line stay as the name row left them.
        QVERIFY(f.ed.LineEdit->isEnabled());
        QVERIFY(f.ed.ClearButton->isEnabled());
        QVERIFY(!f.ed.ComboBox->isEnabled());
        QCOMPARE(f.ed.LineEdit->text(), QStringLiteral("Seeblick"));
        QCOMPARE(f.row("common", "short tiptype"), QStringLiteral("H"));
        QTest::keyClicks(f.ed.LineEdit, QStringLiteral("!"));
        QCOMPARE(f.row("common", "short tiptype"), QStringLiteral("Seeblick!"));
        QCOMPARE(f.row("common", "name"), QStringLiteral("Seeblick"));
    }

    void firstSelectionOfAGroupRowDisablesTheWidgetsAndDeselectsIt()
    {
        Fixture f;
        f.ed.prepare(f.addHotel(), &f.calendar);
        QVERIFY(f.tapGroup("common"));
        for (QWidget *w : std::initializer_list<QWidget *>{f.ed.ComboBox, f.ed.ToolButton,
                                                           f.ed.LineEdit, f.ed.ClearButton})
            QVERIFY2(!w->isEnabled(), qPrintable(w->objectName()));
        QVERIFY(f.ed.ListView->selectedItems().isEmpty());
        QCOMPARE(f.ed.selected, nullptr);

        QVERIFY(f.tap("common", "town"));
        QTreeWidgetItem *town = f.child("common", "town");
        QVERIFY(f.tapGroup("phone"));
        QVERIFY(!f.ed.LineEdit->isEnabled());
        QVERIFY(f.ed.ListView->selectedItems().isEmpty());
        QCOMPARE(f.ed.selected, town);
    }

    // The tip's own fields.
    void aTipThatKeepsItsTypeKeepsTheFieldNamesStoredInIt()
    {
        Fixture f;
        TipData *tip = f.addHotel();
        // The table's hotel has other fields by now; the tip's own names stand.
        f.doc.ttypes.first()->customs.at(0)->text = QStringLiteral("rooms");
        f.ed.prepare(tip, &f.calendar);
        QCOMPARE(f.row("custom", "stars"), QStringLiteral("3"));
        QCOMPARE(f.row("custom", "price"), QStringLiteral("120"));
        QCOMPARE(f.child("custom", "rooms"), nullptr);
        f.ed.OkButton->click();
        QCOMPARE(tip->customs.at(0)->text, QStringLiteral("stars"));
        QVERIFY(!f.doc.isModified());
    }

    void editingOnlyACustomRowSetsModifiedAndNothingEditedDoesNot()
    {
        Fixture f;
        TipData *tip = f.addHotel();
        f.ed.prepare(tip, &f.calendar);
        QVERIFY(f.tap("custom", "stars"));
        QVERIFY(f.tap("custom", "price"));
        f.ed.OkButton->click();
        QCOMPARE(f.ed.result(), int(QDialog::Accepted));
        QVERIFY(!f.doc.isModified());

        f.ed.prepare(tip, &f.calendar);
        QVERIFY(f.tap("custom", "stars"));
        QTest::keyClicks(f.ed.LineEdit, QStringLiteral("+"));
        f.ed.OkButton->click();
        QVERIFY(f.doc.isModified());
        QCOMPARE(tip->customs.at(0)->content, QStringLiteral("3+"));
        QCOMPARE(tip->customs.at(1)->content, QStringLiteral("120"));
    }

    void aCustomChangeIsKeptByYesInTheCancelQuestion()
    {
        Fixture f;
        TipData *tip = f.addHotel();
        f.ed.prepare(tip, &f.calendar);
        QVERIFY(f.tap("custom", "price"));
        f.ed.ClearButton->click();
        QTest::keyClicks(f.ed.LineEdit, QStringLiteral("99"));
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
        f.ed.CancelButton->click();
        QVERIFY2(box->handled, qPrintable(box->error));
        QCOMPARE(box->title, QStringLiteral("Cancel"));
        QCOMPARE(box->text,
                 QStringLiteral("You have modified the data!\nDo you want to save the changes ?"));
        QCOMPARE(box->buttons, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
        QCOMPARE(f.ed.result(), int(QDialog::Accepted));
        QCOMPARE(tip->customs.at(1)->content, QStringLiteral("99"));
        QVERIFY(f.doc.isModified());
    }

    void closingWithChangesAsksAndCancelInTheBoxKeepsTheDialog()
    {
        Fixture f;
        TipData *tip = f.addHotel();
        f.ed.prepare(tip, &f.calendar);
        f.ed.show();
        QVERIFY(f.tap("common", "comment"));
        QTest::keyClicks(f.ed.LineEdit, QStringLiteral("!"));
        ModalTicket box = ModalHelper::answerNextMessageBox(QMessageBox::Cancel);
        QVERIFY(!f.ed.close());
        QVERIFY2(box->handled, qPrintable(box->error));
        QCOMPARE(box->title, QStringLiteral("Cancel"));
        QVERIFY(f.ed.isVisible());
        QCOMPARE(f.row("common", "comment"), QStringLiteral("quiet!"));

        ModalTicket no = ModalHelper::answerNextMessageBox(QMessageBox::No);
        QVERIFY(f.ed.close());
        QVERIFY2(no->handled, qPrintable(no->error));
        QCOMPARE(f.ed.result(), int(QDialog::Rejected));
        QCOMPARE(tip->comment, QStringLiteral("quiet"));
        QVERIFY(!f.doc.isModified());
    }

    // The change of type.
    void cancelInTheTypeQuestionLeavesEverythingWithTheOldTypeInTheBox()
    {
        Fixture f;
        TipData *tip = f.addHotel();
        f.ed.prepare(tip, &f.calendar);
        ModalTicket box;
        QVERIFY(f.stepType(Qt::Key_Down, QMessageBox::Cancel, box));
        QVERIFY2(box->handled, qPrintable(box->error));
        QCOMPARE(box->title, QStringLiteral("change tiptype"));
        QCOMPARE(box->text,
                 QStringLiteral("You want to change the tiptype!\nyou may loose custom data !"));
        QCOMPARE(box->buttons, QMessageBox::Yes | QMessageBox::Cancel);
        QCOMPARE(box->icon, QMessageBox::Information);
        QCOMPARE(f.ed.ComboBox->currentText(), QStringLiteral("Hotel"));
        QCOMPARE(WidgetReaders::treeRows(f.ed.ListView), hotelRows);
        QCOMPARE(f.ed.selected, f.child("common", "tiptype"));
        QCOMPARE(f.ed.tmp.tiptype, QStringLiteral("Hotel"));
        QCOMPARE(f.ed.tmp.customs.count(), 2);
        f.ed.OkButton->click();
        QVERIFY(!f.doc.isModified());
    }

    void yesLoadsTheNewTypesFieldsEmptyAndKeepsTheTypeRowSelected()
    {
        Fixture f;
        TipData *tip = f.addHotel();
        f.ed.prepare(tip, &f.calendar);
        ModalTicket box;
        QVERIFY(f.stepType(Qt::Key_Down, QMessageBox::Yes, box));
        QVERIFY2(box->handled, qPrintable(box->error));
        QCOMPARE(f.row("common", "tiptype"), QStringLiteral("Restaurant"));
        QCOMPARE(f.row("common", "short tiptype"), QStringLiteral("R"));
        QCOMPARE(f.ed.currenttype, f.doc.ttypes.at(1));
        QCOMPARE(WidgetReaders::columnTexts(f.ed.ListView),
                 (QStringList{"common", "phone", "custom"}));
        QCOMPARE(f.row("custom", "kitchen"), QString());
        QCOMPARE(f.child("custom", "stars"), nullptr);
        // The list was rebuilt, and `selected` points into the new rows.
        QTreeWidgetItem *typeRow = f.child("common", "tiptype");
        QCOMPARE(f.ed.selected, typeRow);
        QVERIFY(typeRow->isSelected());
        QVERIFY(f.ed.ComboBox->isEnabled());
        QTest::keyClicks(f.ed.LineEdit, QStringLiteral("x")); // off: nothing arrives
        QCOMPARE(f.row("common", "tiptype"), QStringLiteral("Restaurant"));

        QVERIFY(f.tap("custom", "kitchen"));
        QTest::keyClicks(f.ed.LineEdit, QStringLiteral("thai"));
        f.ed.OkButton->click();
        QCOMPARE(tip->tiptype, QStringLiteral("Restaurant"));
        QCOMPARE(tip->typeletter, QStringLiteral("R"));
        QCOMPARE(tip->customs.count(), 1);
        QCOMPARE(tip->customs.at(0)->text, QStringLiteral("kitchen"));
        QCOMPARE(tip->customs.at(0)->content, QStringLiteral("thai"));
        QVERIFY(f.doc.isModified());
    }

    void aChangeToTheSameFieldNamesStillLosesTheOldContents()
    {
        Fixture f;
        TipData *tip = f.addHotel();
        f.doc.ttypes.at(1)->customs.first()->text = QStringLiteral("stars");
        f.ed.prepare(tip, &f.calendar);
        ModalTicket box;
        QVERIFY(f.stepType(Qt::Key_Down, QMessageBox::Yes, box));
        QVERIFY2(box->handled, qPrintable(box->error));
        QCOMPARE(f.row("custom", "stars"), QString());
    }

    void changingToATypeWithoutFieldsRemovesTheCustomGroup()
    {
        Fixture f;
        TipData *tip = f.addHotel();
        f.ed.prepare(tip, &f.calendar);
        ModalTicket box;
        QVERIFY(f.stepType(Qt::Key_End, QMessageBox::Yes, box));
        QVERIFY2(box->handled, qPrintable(box->error));
        QCOMPARE(WidgetReaders::columnTexts(f.ed.ListView), (QStringList{"common", "phone"}));
        QCOMPARE(f.row("common", "tiptype"), QStringLiteral("Museum"));
        QCOMPARE(f.row("common", "short tiptype"), QStringLiteral("M"));
        QCOMPARE(f.ed.selected, f.child("common", "tiptype"));
        f.ed.OkButton->click();
        QCOMPARE(tip->customs.count(), 0);
        QCOMPARE(tip->tiptype, QStringLiteral("Museum"));
    }

    void theRebuildTakesTheRowsFromTheWorkingCopy()
    {
        Fixture f;
        TipData *tip = f.addHotel();
        f.ed.prepare(tip, &f.calendar);
        QVERIFY(f.tap("common", "name"));
        QTest::keyClicks(f.ed.LineEdit, QStringLiteral(" II"));
        ModalTicket box;
        QVERIFY(f.stepType(Qt::Key_Down, QMessageBox::Yes, box));
        QVERIFY2(box->handled, qPrintable(box->error));
        // What was typed but not yet read back is rebuilt from the working copy.
        QCOMPARE(f.row("common", "name"), QStringLiteral("Seeblick"));
    }

    void theQualityRowKeepsTheChoiceWhileTheBoxFallsBackToTheWorkingCopy()
    {
        Fixture f;
        TipData *tip = f.addHotel();
        f.ed.prepare(tip, &f.calendar);
        QVERIFY(f.tap("common", "quality"));
        f.comboStep(Qt::Key_Down);
        QCOMPARE(f.row("common", "quality"), QStringLiteral("fair"));
        QVERIFY(f.tap("common", "name"));
        QVERIFY(f.tap("common", "quality"));
        QCOMPARE(f.ed.ComboBox->currentText(), QStringLiteral("good"));
        QCOMPARE(f.row("common", "quality"), QStringLiteral("fair"));
        f.ed.OkButton->click();
        QCOMPARE(tip->qualitytype, QStringLiteral("fair"));
    }

    void aDateFromTheCalendarReachesTheRowThoughTheLineIsOff()
    {
        Fixture f;
        TipData *tip = f.addHotel();
        f.ed.prepare(tip, &f.calendar);
        QVERIFY(f.tap("common", "date"));
        QVERIFY(!f.ed.LineEdit->isEnabled());
        ModalTicket cal = ModalHelper::pickDateInNextCalendar(QDate(2002, 5, 28));
        f.ed.ToolButton->click();
        QVERIFY2(cal->handled && cal->error.isEmpty(), qPrintable(cal->error));
        QCOMPARE(f.row("common", "date"), QStringLiteral("28.05.2002"));
        QCOMPARE(tip->date, QStringLiteral("04.06.2002"));
        f.ed.OkButton->click();
        QCOMPARE(tip->date, QStringLiteral("28.05.2002"));
    }

    void theSelectButtonWithoutASelectedRowDoesNothing()
    {
        Fixture f;
        f.ed.prepare(f.addHotel(), &f.calendar);
        ModalTicket cal = ModalHelper::cancelNextCalendar(300);
        f.ed.slotSelectButton();
        QTRY_VERIFY(!cal->error.isEmpty());
        QVERIFY(!cal->handled);
    }

    void prepareKeepsTheTypeChosenLast()
    {
        Fixture f;
        TipData *tip = f.addHotel();
        f.ed.prepare(tip, &f.calendar);
        ModalTicket box;
        QVERIFY(f.stepType(Qt::Key_Down, QMessageBox::Yes, box));
        QVERIFY2(box->handled, qPrintable(box->error));
        f.ed.OkButton->click();
        f.ed.prepare(f.addHotel(), &f.calendar);
        QCOMPARE(f.ed.currenttype, f.doc.ttypes.at(1));
    }

    // Bad input.
    void aTipTypeWithTwoHundredFieldsShowsThemAll()
    {
        Fixture f;
        TTypeData *big = f.doc.ttypes.append();
        big->type = QStringLiteral("Big");
        for (int i = 0; i < 200; ++i)
            big->customs.append()->text = QStringLiteral("f%1").arg(i);
        TipData *tip = f.doc.tips.append();
        tip->tiptype = QStringLiteral("Museum");
        f.ed.prepare(tip, &f.calendar);
        ModalTicket box;
        QVERIFY(f.stepType(Qt::Key_End, QMessageBox::Yes, box));
        QVERIFY2(box->handled, qPrintable(box->error));
        QTreeWidgetItem *custom = WidgetReaders::topLevelItem(f.ed.ListView, "custom");
        QVERIFY(custom);
        QCOMPARE(custom->childCount(), 200);
        QCOMPARE(custom->child(0)->text(0), QStringLiteral("f199"));
        QCOMPARE(custom->child(199)->text(0), QStringLiteral("f0"));
        QVERIFY(f.tap("custom", "f0"));
        QTest::keyClicks(f.ed.LineEdit, QStringLiteral("zero"));
        f.ed.OkButton->click();
        QCOMPARE(tip->customs.count(), 200);
        QCOMPARE(tip->customs.at(0)->content, QStringLiteral("zero"));
        QCOMPARE(tip->customs.at(199)->text, QStringLiteral("f199"));
    }

    void anEmptyTipTypeTableLeavesTheTypeEmptyAndAsksNothing()
    {
        Fixture f(false);
        TipData *tip = f.doc.tips.append();
        f.ed.prepare(tip, &f.calendar);
        QCOMPARE(f.row("common", "tiptype"), QString());
        QCOMPARE(f.row("common", "short tiptype"), QString());
        QVERIFY(f.tap("common", "tiptype"));
        QCOMPARE(f.ed.ComboBox->count(), 0);
        ModalTicket none = ModalHelper::answerNextMessageBox(QMessageBox::Yes, 300);
        f.comboStep(Qt::Key_Down);
        QTRY_VERIFY(!none->error.isEmpty());
        QVERIFY(!none->handled);
        QVERIFY(f.tap("common", "quality"));
        QCOMPARE(f.ed.ComboBox->count(), 0);
        f.ed.OkButton->click();
        QCOMPARE(f.ed.result(), int(QDialog::Accepted));
        QVERIFY(!f.doc.isModified());
    }

    void aTypeMissingFromTheTableShowsInTheRowWithTheBoxOnTheLastEntry()
    {
        Fixture f;
        TipData *tip = f.addHotel();
        tip->tiptype = QStringLiteral("Camping");
        tip->typeletter = QStringLiteral("C");
        f.ed.prepare(tip, &f.calendar);
        QCOMPARE(f.row("common", "tiptype"), QStringLiteral("Camping"));
        QVERIFY(f.tap("common", "tiptype"));
        QCOMPARE(f.ed.ComboBox->currentText(), QStringLiteral("Museum"));
        QCOMPARE(f.ed.LineEdit->text(), QStringLiteral("Camping"));
        QCOMPARE(f.row("custom", "stars"), QStringLiteral("3"));
        f.ed.OkButton->click();
        QCOMPARE(tip->tiptype, QStringLiteral("Camping"));
        QVERIFY(!f.doc.isModified());
    }

    void aTypeTableReplacedSinceTheLastChoiceIsNotFollowed()
    {
        Fixture f;
        TipData *tip = f.addHotel();
        f.ed.prepare(tip, &f.calendar);
        ModalTicket box;
        QVERIFY(f.stepType(Qt::Key_Down, QMessageBox::Yes, box));
        QVERIFY2(box->handled, qPrintable(box->error));
        f.ed.OkButton->click();
        // The tables go with the journey; the type chosen last must not be read again.
        f.doc.ttypes.clear();
        f.ed.prepare(tip, &f.calendar);
        f.ed.loadTypeCustoms();
        QCOMPARE(f.ed.tmp.customs.count(), 0);
        QCOMPARE(f.ed.currenttype, nullptr);
    }
};

QTEST_MAIN(TestTipEditor)
#include "tst_tipeditor.moc"
