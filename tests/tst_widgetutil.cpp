// The widget tools that the editors reach through their `util`, and the combo fillers.

#include "data/wayferndata.h"
#include "dialogs/scqtwidgetutil.h"
#include "widgetreaders.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QTest>
#include <QTreeWidget>
#include <QTreeWidgetItem>

#include <memory>

namespace {

// Rows as a two-column editor shows them; the first row is the top one.
void addRows(QTreeWidget *view, const QList<QStringList> &rows)
{
    for (const QStringList &row : rows)
        view->addTopLevelItem(new QTreeWidgetItem(row));
}

} // namespace

class TestWidgetUtil : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void utilHasTheRecordToolsToo();
    void setAllWidgetsFontGivesEveryWidgetTheFont();
    void selectComboItemMakesTheMatchingEntryCurrent();
    void selectComboItemWithATextThatNoEntryHoldsLeavesTheLastEntryCurrent();
    void selectComboItemWithAnEmptyOrNullTextDoesNothing();
    void selectComboItemTakesTheFirstOfEqualEntries();
    void getContentReadsTheRowByItsLabel();
    void getContentOfAMissingRowIsNotFound();
    void getChildContentReadsAChildOfAGroup();
    void getChildContentOfAMissingRowIsNotFound();
    void findItemComparesTheGivenColumn();
    void findTreeItemFindsAChildByColumn();
    void fillersPutTheDocumentsNamesInOrder();
    void fillersClearTheBoxFirst();
};

void TestWidgetUtil::init()
{
    QTest::failOnWarning(QRegularExpression("Not implemented yet!"));
}

void TestWidgetUtil::utilHasTheRecordToolsToo()
{
    ScQtWidgetUtil util;
    QCOMPARE(util.splitRecord("TOWN=Bad Ems;"), 0);
    QCOMPARE(util.key, QString("TOWN"));
    QCOMPARE(util.value, QString("Bad Ems"));
    QCOMPARE(util.toInt("0x1f"), 31);
    QCOMPARE(ScQtWidgetUtil::fileBaseName("trip.wfn"), QString("trip"));
}

void TestWidgetUtil::setAllWidgetsFontGivesEveryWidgetTheFont()
{
    QWidget top;
    auto *label = new QLabel("label", &top);
    auto *edit = new QLineEdit(&top);
    QWidget other;
    ScQtWidgetUtil::setAllWidgetsFont("helvetica", 8);
    for (QWidget *w : {&top, static_cast<QWidget *>(label), static_cast<QWidget *>(edit), &other}) {
        QCOMPARE(w->font().family(), QString("helvetica"));
        QCOMPARE(w->font().pointSize(), 8);
        QCOMPARE(w->font().weight(), QFont::Normal);
        QVERIFY(!w->font().italic());
    }
    // Widgets made afterwards are not touched.
    QLineEdit later;
    QVERIFY(later.font().pointSize() != 8 || later.font().family() != QString("helvetica"));
}

void TestWidgetUtil::selectComboItemMakesTheMatchingEntryCurrent()
{
    QComboBox box;
    box.addItems({"EUR", "USD", "CHF", "GBP"});
    ScQtWidgetUtil::selectComboItem(&box, "CHF");
    QCOMPARE(box.currentIndex(), 2);
    ScQtWidgetUtil::selectComboItem(&box, "EUR");
    QCOMPARE(box.currentIndex(), 0);
}

void TestWidgetUtil::selectComboItemWithATextThatNoEntryHoldsLeavesTheLastEntryCurrent()
{
    QComboBox box;
    box.addItems({"EUR", "USD", "CHF", "GBP"});
    box.setCurrentIndex(1);
    ScQtWidgetUtil::selectComboItem(&box, "NOK");
    QCOMPARE(box.currentIndex(), 3);
    QCOMPARE(box.currentText(), QString("GBP"));
    // Case counts.
    ScQtWidgetUtil::selectComboItem(&box, "eur");
    QCOMPARE(box.currentIndex(), 3);
}

void TestWidgetUtil::selectComboItemWithAnEmptyOrNullTextDoesNothing()
{
    QComboBox box;
    box.addItems({"EUR", "USD", "CHF"});
    box.setCurrentIndex(1);
    ScQtWidgetUtil::selectComboItem(&box, QString(""));
    QCOMPARE(box.currentIndex(), 1);
    ScQtWidgetUtil::selectComboItem(&box, QString());
    QCOMPARE(box.currentIndex(), 1);
    ScQtWidgetUtil::selectComboItem(nullptr, "EUR"); // no box: nothing happens
}

void TestWidgetUtil::selectComboItemTakesTheFirstOfEqualEntries()
{
    QComboBox box;
    box.addItems({"Jan", "Feb", "Mar", "Jan", "Feb"});
    box.setCurrentIndex(4);
    ScQtWidgetUtil::selectComboItem(&box, "Feb");
    QCOMPARE(box.currentIndex(), 1);
}

void TestWidgetUtil::getContentReadsTheRowByItsLabel()
{
    QTreeWidget view;
    view.setColumnCount(2);
    addRows(&view,
            {{"Date", "01.05.2002"}, {"Type", "Food"}, {"Value", "12.50"}, {"Type", "Hotel"}});
    QCOMPARE(ScQtWidgetUtil::getContent(&view, "Type", 1), QString("Food"));
    QCOMPARE(ScQtWidgetUtil::getContent(&view, "Value", 1), QString("12.50"));
    QCOMPARE(ScQtWidgetUtil::getContent(&view, "Value", 0), QString("Value"));
    // A column that the row doesn't have reads empty.
    QCOMPARE(ScQtWidgetUtil::getContent(&view, "Date", 5), QString());
}

void TestWidgetUtil::getContentOfAMissingRowIsNotFound()
{
    QTreeWidget view;
    addRows(&view, {{"Date", "01.05.2002"}});
    QCOMPARE(ScQtWidgetUtil::getContent(&view, "Town", 1), QString("not found"));
    QCOMPARE(ScQtWidgetUtil::getContent(nullptr, "Date", 1), QString("not found"));
    // Only top-level rows count.
    view.topLevelItem(0)->addChild(new QTreeWidgetItem(QStringList{"Town", "Ems"}));
    QCOMPARE(ScQtWidgetUtil::getContent(&view, "Town", 1), QString("not found"));
}

void TestWidgetUtil::getChildContentReadsAChildOfAGroup()
{
    QTreeWidget view;
    view.setColumnCount(2);
    auto *address = new QTreeWidgetItem(QStringList{"Address"});
    address->addChild(new QTreeWidgetItem(QStringList{"Town", "Bad Ems"}));
    address->addChild(new QTreeWidgetItem(QStringList{"Street", "Lahnstr. 1"}));
    auto *other = new QTreeWidgetItem(QStringList{"Contact"});
    other->addChild(new QTreeWidgetItem(QStringList{"Town", "Koblenz"}));
    view.addTopLevelItems({address, other});
    QCOMPARE(ScQtWidgetUtil::getChildContent(&view, "Address", "Town", 1), QString("Bad Ems"));
    QCOMPARE(ScQtWidgetUtil::getChildContent(&view, "Contact", "Town", 1), QString("Koblenz"));
    QCOMPARE(ScQtWidgetUtil::getChildContent(&view, "Address", "Street", 1), QString("Lahnstr. 1"));
}

void TestWidgetUtil::getChildContentOfAMissingRowIsNotFound()
{
    QTreeWidget view;
    auto *address = new QTreeWidgetItem(QStringList{"Address"});
    address->addChild(new QTreeWidgetItem(QStringList{"Town", "Bad Ems"}));
    view.addTopLevelItem(address);
    QCOMPARE(ScQtWidgetUtil::getChildContent(&view, "Address", "Phone", 1), QString("not found"));
    QCOMPARE(ScQtWidgetUtil::getChildContent(&view, "Contact", "Town", 1), QString("not found"));
    QCOMPARE(ScQtWidgetUtil::getChildContent(nullptr, "Address", "Town", 1), QString("not found"));
}

void TestWidgetUtil::findItemComparesTheGivenColumn()
{
    QTreeWidget view;
    view.setColumnCount(3);
    addRows(&view,
            {{"EUR", "1.0000", "Euro"}, {"USD", "0.9000", "Dollar"}, {"CHF", "0.9000", "Franken"}});
    QCOMPARE(ScQtWidgetUtil::findItem(&view, "USD", 0), view.topLevelItem(1));
    QCOMPARE(ScQtWidgetUtil::findItem(&view, "Franken", 2), view.topLevelItem(2));
    // The first of equal texts.
    QCOMPARE(ScQtWidgetUtil::findItem(&view, "0.9000", 1), view.topLevelItem(1));
    QCOMPARE(ScQtWidgetUtil::findItem(&view, "Euro", 0), nullptr);
    QCOMPARE(ScQtWidgetUtil::findItem(nullptr, "EUR", 0), nullptr);
}

void TestWidgetUtil::findTreeItemFindsAChildByColumn()
{
    QTreeWidget view;
    view.setColumnCount(2);
    auto *group = new QTreeWidgetItem(QStringList{"Custom"});
    auto *a = new QTreeWidgetItem(QStringList{"Opening", "9-18"});
    auto *b = new QTreeWidgetItem(QStringList{"Rooms", "12"});
    group->addChildren({a, b});
    view.addTopLevelItem(group);
    QCOMPARE(ScQtWidgetUtil::findTreeItem(&view, "Custom", "Rooms", 0), b);
    QCOMPARE(ScQtWidgetUtil::findTreeItem(&view, "Custom", "9-18", 1), a);
    QCOMPARE(ScQtWidgetUtil::findTreeItem(&view, "Custom", "9-18", 0), nullptr);
    QCOMPARE(ScQtWidgetUtil::findTreeItem(&view, "Other", "Rooms", 0), nullptr);
    QCOMPARE(ScQtWidgetUtil::findTreeItem(nullptr, "Custom", "Rooms", 0), nullptr);
}

void TestWidgetUtil::fillersPutTheDocumentsNamesInOrder()
{
    WayFernData doc;
    for (const char *t : {"Food", "Hotel", "Travel"})
        doc.ctypes.append()->type = t;
    for (const char *t : {"EUR", "USD"})
        doc.currencies.append()->short_ = t;
    for (const char *t : {"Restaurant", "Camping", "Museum"})
        doc.ttypes.append()->type = t;
    for (const char *t : {"good", "bad"})
        doc.qtypes.append()->type = t;

    QComboBox box;
    ScQtWidgetUtil::fillCostTypes(&doc, &box);
    QCOMPARE(WidgetReaders::comboTexts(&box), QStringList({"Food", "Hotel", "Travel"}));
    ScQtWidgetUtil::fillCurrencies(&doc, &box);
    QCOMPARE(WidgetReaders::comboTexts(&box), QStringList({"EUR", "USD"}));
    ScQtWidgetUtil::fillTipTypes(&doc, &box);
    QCOMPARE(WidgetReaders::comboTexts(&box), QStringList({"Restaurant", "Camping", "Museum"}));
    ScQtWidgetUtil::fillQualityTypes(&doc, &box);
    QCOMPARE(WidgetReaders::comboTexts(&box), QStringList({"good", "bad"}));
    QCOMPARE(box.currentIndex(), 0);
}

void TestWidgetUtil::fillersClearTheBoxFirst()
{
    WayFernData doc;
    QComboBox box;
    box.addItems({"old", "entries"});
    ScQtWidgetUtil::fillCostTypes(&doc, &box);
    QCOMPARE(box.count(), 0);
    box.addItems({"old"});
    ScQtWidgetUtil::fillCurrencies(nullptr, &box);
    QCOMPARE(box.count(), 0);
    ScQtWidgetUtil::fillTipTypes(&doc, nullptr); // no box: nothing happens
}

QTEST_MAIN(TestWidgetUtil)
#include "tst_widgetutil.moc"
