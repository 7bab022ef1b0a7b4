// One new cost from the first tap to the bytes on disk: the costs tab's insert button, the
// calendar, the type and currency boxes, the foreign value typed key by key, the share
// dialog among three travellers, the lists and the overview, and the saved file.

#include "editortestutil.h"
#include "formcheck.h"
#include "modalhelper.h"
#include "shellfixture.h"
#include "widgetreaders.h"

#include "data/wayferndata.h"
#include "editors/costsedit.h"
#include "editors/userpayedit.h"
#include "shell/wayfernapp.h"
#include "shell/wayfernview.h"

#include <QFile>
#include <QLabel>
#include <QPixmap>
#include <QRegularExpression>
#include <QTest>
#include <QTreeWidget>

namespace {

// A traveller's section as the journey file holds it, with no account lines yet.
QByteArray userSection(int index, const char *shortName, const char *name, const char *first)
{
    return QByteArray("[USER_") + QByteArray::number(index)
        + "]\nDATE=20.05.2002;\nSHORT=" + shortName + ";\nNAME=" + name + ";\nFIRST NAME=" + first
        + ";\nSTREET=;\nPCODE=;\nTOWN=;\nTEL=;\nFAX=;\nEMAIL=;\nWWW=;\nBANK=;\nBLZ=;\nACOUNT=;\n"
          "VALUE=0.0000;\nCOUNT=0;\n\n\n";
}

// Three travellers with sharing on, three currencies and three cost types, no cost yet.
QByteArray threeTravellersJourney()
{
    const QByteArray separator = "\n#========================================================\n\n";
    QByteArray text = "<?wayfern version=\"0.1\" type=\"data\"?>\n"
                      "#-------------------------------------------------------------\n"
                      "# Data-File for wayfern\n#\n\n"
                      "[Header]\nJOURNEY-NAME=Three on a lake;\nDISTANCE-TYPE=km;\n"
                      "BASE-CURRENCY=EUR;\nUSERFLAG=TRUE;\nCOSTSCOUNT=0;\nTIPCOUNT=0;\n"
                      "USERCOUNT=3;\nCURRCOUNT=3;\nCTYPECOUNT=3;\nTTYPECOUNT=0;\nQTYPECOUNT=0;\n\n";
    text += separator + "[CTYPE_0]\nTYPE=Food;\n\n";
    text += separator + "[CTYPE_1]\nTYPE=Hotel;\n\n";
    text += separator + "[CTYPE_2]\nTYPE=Transport;\n\n";
    text += separator + separator + separator + separator;
    text += separator + userSection(0, "AB", "Berg", "Anna");
    text += separator + userSection(1, "CD", "Dahl", "Carl");
    text += separator + userSection(2, "EF", "Falk", "Eva");
    text += separator
        + "[CURRENCY_0]\nSHORT-TERM=EUR;\nFACTOR=1.0;\nFULL-NAME=Euro;\nTYPE=fix;\n\n"
          "[CURRENCY_1]\nSHORT-TERM=CHF;\nFACTOR=1.50;\nFULL-NAME=Swiss Franc;\nTYPE=floating;\n\n"
          "[CURRENCY_2]\nSHORT-TERM=USD;\nFACTOR=0.90;\nFULL-NAME=US Dollar;\nTYPE=floating;\n\n";
    text += "\n##EOF WAYFERN DATA FILE road.wfn\n";
    return text;
}

// The lines of `file` from the line `head` on, `count` of them; empty when `head` is missing.
QStringList linesFrom(const QStringList &file, const QString &head, int count)
{
    const int at = file.indexOf(head);
    return at < 0 ? QStringList() : file.mid(at, count);
}

// Whether a share dialog row shows the tick.
bool ticked(QTreeWidgetItem *row)
{
    const QPixmap shown = row->data(0, Qt::DecorationRole).value<QPixmap>();
    return !shown.isNull()
        && shown.toImage() == QPixmap(QStringLiteral(":/pixmaps/sel.xpm")).toImage();
}

// What the share dialog shows: per row the tick (x or -) and the texts of the columns.
QStringList shareRows(QTreeWidget *list)
{
    QStringList rows;
    for (int i = 0; i < list->topLevelItemCount(); ++i) {
        QTreeWidgetItem *row = list->topLevelItem(i);
        rows << (ticked(row) ? QStringLiteral("x") : QStringLiteral("-")) + u'|'
                + WidgetReaders::itemTexts(row).mid(1).join(u'|');
    }
    return rows;
}

} // namespace

class TestCostRoad : public QObject
{
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression("Not implemented yet!")); }
    void cleanup() { ModalHelper::cancelPending(); }

    void oneNewCostStartingTodaySharedByThreeInWholeCentsFromTheInsertButtonToTheSavedFile()
    {
        ShellFixture fx;
        {
            QFile f(fx.dataFile(QStringLiteral("road.wfn")));
            QVERIFY(f.open(QIODevice::WriteOnly));
            f.write(threeTravellersJourney());
        }
        fx.writeLast(QStringLiteral("road.wfn"));
        WayfernApp app;
        WayfernView *v = app.view;
        QCOMPARE(app.doc->users.count(), 3);
        QCOMPARE(app.doc->costs.count(), 0);
        QVERIFY(app.doc->userflag);
        app.show();
        v->TabWidget2->setCurrentIndex(1);
        QVERIFY(QTest::qWaitForWindowExposed(&app));

        // What the costs dialog shows and does, step by step, read inside it.
        QStringList opened;     // the rows as the dialog opens
        QStringList keystrokes; // foreign value | base value after each key
        QStringList beforeOk;   // the rows just before OK
        QString shareValue, shareDate;
        QStringList shareSteps; // the share dialog's rows after each tick
        ModalTicket calendar, share;
        ModalTicket costs = ModalHelper::onNextModal(
            [](QWidget *w) { return qobject_cast<costsEdit *>(w) != nullptr; },
            [&](QWidget *w, ModalOutcome &out) {
                auto *ed = static_cast<costsEdit *>(w);
                auto tap = [ed, &out](const char *label) {
                    QTreeWidgetItem *row = WidgetReaders::topLevelItem(ed->ListView, label);
                    if (!ModalHelper::tapItem(ed->ListView, row))
                        out.error += QStringLiteral("can't tap %1; ").arg(label);
                };
                opened = WidgetReaders::treeRows(ed->ListView);

                tap("date");
                calendar = ModalHelper::pickDateInNextCalendar(QDate(2002, 6, 12));
                ed->ToolButton->click();

                tap("type");
                if (!chooseInCombo(ed->ComboBox, QStringLiteral("Hotel")))
                    out.error += QStringLiteral("can't choose Hotel; ");
                tap("currency type");
                if (!chooseInCombo(ed->ComboBox, QStringLiteral("CHF")))
                    out.error += QStringLiteral("can't choose CHF; ");

                tap("foreign value");
                for (const char key : {'1', '5', '0'}) {
                    QTest::keyClick(ed->LineEdit, key);
                    keystrokes << contentOf(ed->ListView, "foreign value") + u'|'
                            + contentOf(ed->ListView, "base value");
                }
                tap("comment");
                QTest::keyClicks(ed->LineEdit, QStringLiteral("Boat trip"));
                beforeOk = WidgetReaders::treeRows(ed->ListView);

                // OK on a changed cost with sharing on opens the share dialog.
                share = ModalHelper::onNextModal(
                    [](QWidget *s) { return qobject_cast<userPayEdit *>(s) != nullptr; },
                    [&](QWidget *s, ModalOutcome &shareOut) {
                        auto *pay = static_cast<userPayEdit *>(s);
                        shareValue = pay->ValTextLabel->text();
                        shareDate = pay->TextLabel->text();
                        shareSteps << shareRows(pay->ListView).join(u' ');
                        for (int i = 0; i < pay->ListView->topLevelItemCount(); ++i) {
                            if (!ModalHelper::tapItem(pay->ListView, pay->ListView->topLevelItem(i),
                                                      0))
                                shareOut.error += QStringLiteral("can't tick row %1; ").arg(i);
                            shareSteps << shareRows(pay->ListView).join(u' ');
                        }
                        pay->OkButton->click();
                    });
                ed->OkButton->click();
            });

        const QDate dayBefore = QDate::currentDate();
        QTest::mouseClick(v->InsertButton, Qt::LeftButton);
        const QDate dayAfter = QDate::currentDate();

        QVERIFY2(costs->handled && costs->error.isEmpty(), qPrintable(costs->error));
        QCOMPARE(costs->objectName, QStringLiteral("Input costs"));
        QCOMPARE(costs->title, QStringLiteral("Costs"));
        QVERIFY2(calendar && calendar->handled && calendar->error.isEmpty(),
                 calendar ? qPrintable(calendar->error) : "no calendar");
        QVERIFY2(share && share->handled && share->error.isEmpty(),
                 share ? qPrintable(share->error) : "no share dialog");

        // The new cost of a journey without costs opens on today, with the first type and
        // the first currency.
        QVERIFY(!opened.isEmpty());
        const QString openedDate = opened.first().mid(5);
        QVERIFY2(openedDate == dayBefore.toString(QStringLiteral("dd.MM.yyyy"))
                     || openedDate == dayAfter.toString(QStringLiteral("dd.MM.yyyy")),
                 qPrintable(openedDate));
        opened.first() = QStringLiteral("date|today");
        QCOMPARE(opened,
                 (QStringList{"date|today", "type|Food", "short|F", "currency type|EUR",
                              "foreign value|", "base value|", "exch. rate|", "comment|"}));
        // 1, 15, 150 francs at 1.50 francs to the euro.
        QCOMPARE(keystrokes, (QStringList{"1|0.67", "15|10.00", "150|100.00"}));
        QCOMPARE(beforeOk,
                 (QStringList{"date|12.06.2002", "type|Hotel", "short|H", "currency type|CHF",
                              "foreign value|150", "base value|100.00", "exch. rate|1.50",
                              "comment|Boat trip"}));

        // The share dialog: the amount in the base currency, the cost's date, the rows
        // unticked at first; each tick shares evenly among the ticked rows, in whole cents
        // that add up to the amount: the odd cent goes to the first row.
        QCOMPARE(shareValue, QStringLiteral("100.00 EUR"));
        QCOMPARE(shareDate, QStringLiteral("12.06.2002"));
        QCOMPARE(shareSteps,
                 (QStringList{"-|AB|0.0|0.00| -|CD|0.0|0.00| -|EF|0.0|0.00|",
                              "x|AB|100.0|-100.00| -|CD|0.0|0.00| -|EF|0.0|0.00|",
                              "x|AB|50.0|-50.00| x|CD|50.0|-50.00| -|EF|0.0|0.00|",
                              "x|AB|33.3|-33.34| x|CD|33.3|-33.33| x|EF|33.3|-33.33|"}));

        // The document: the cost, shared, with one line per traveller.
        QCOMPARE(app.doc->costs.count(), 1);
        CostsData *cost = app.doc->costs.first();
        QCOMPARE(cost->id, 1);
        QVERIFY(cost->shared);
        QVERIFY(app.doc->isModified());
        double booked = 0.0;
        for (UserData *user : app.doc->users) {
            QCOMPARE(user->kto.count(), 1);
            booked += user->kto.first()->change;
        }
        QCOMPARE(QString::asprintf("%.2f", booked), QStringLiteral("-100.00"));

        // The cost list: one row, selected and current, with the shared picture.
        QTreeView *list = v->CostsListView;
        QCOMPARE(WidgetReaders::treeRows(list), (QStringList{"12.06|H|100.00|150|CHF"}));
        QCOMPARE(WidgetReaders::currentRow(list), 0);
        QVERIFY(WidgetReaders::selectedRows(list).contains(0));
        QCOMPARE(v->actucost, cost);
        QVERIFY(FormCheck::showsPicture(WidgetReaders::rowIcon(list, 0), *v->sharedPixmap));

        // The overview: the total, the costs per day and each traveller's balance.
        QCOMPARE(WidgetReaders::treeRows(v->OverListView),
                 (QStringList{"common|", "  base currency|EUR", "  journey|Three on a lake",
                              "costs|", "  total|100.00", "  perday|100.00", "costs by category|",
                              "  Food|0.00", "  Hotel|100.00", "  Transport|0.00", "user account|",
                              "  AB|-33.34", "  CD|-33.33", "  EF|-33.33"}));

        // Save writes the cost and the three accounts.
        app.fileSave->trigger();
        QVERIFY(!app.doc->isModified());
        QFile saved(fx.dataFile(QStringLiteral("road.wfn")));
        QVERIFY(saved.open(QIODevice::ReadOnly));
        const QStringList lines = QString::fromLatin1(saved.readAll()).split(u'\n');
        QCOMPARE(linesFrom(lines, QStringLiteral("COSTSCOUNT=1;"), 1).size(), 1);
        QCOMPARE(
            linesFrom(lines, QStringLiteral("[COSTS_0]"), 11),
            (QStringList{"[COSTS_0]", "DATE=12.06.2002;", "TYPE=Hotel;", "FVAL=150;", "CTYPE=CHF;",
                         "COMMENT=Boat trip;", "ID=1;", "EXCHANGE=1.50;", "SHARED=TRUE;", "", ""}));
        const char *const travellers[][4] = {
            {"0", "AB", "Berg", "Anna"}, {"1", "CD", "Dahl", "Carl"}, {"2", "EF", "Falk", "Eva"}};
        for (const auto &t : travellers) {
            const QString s = QString::fromLatin1(t[1]);
            const QString share = s == QLatin1String("AB") ? QStringLiteral("-33.3400")
                                                           : QStringLiteral("-33.3300");
            QCOMPARE(linesFrom(lines, QStringLiteral("[USER_%1]").arg(QLatin1String(t[0])), 26),
                     (QStringList{QStringLiteral("[USER_%1]").arg(QLatin1String(t[0])),
                                  "DATE=20.05.2002;",
                                  "SHORT=" + s + ";",
                                  QStringLiteral("NAME=%1;").arg(QLatin1String(t[2])),
                                  QStringLiteral("FIRST NAME=%1;").arg(QLatin1String(t[3])),
                                  "STREET=;",
                                  "PCODE=;",
                                  "TOWN=;",
                                  "TEL=;",
                                  "FAX=;",
                                  "EMAIL=;",
                                  "WWW=;",
                                  "BANK=;",
                                  "BLZ=;",
                                  "ACOUNT=;",
                                  "VALUE=" + share + ";",
                                  "COUNT=1;",
                                  "",
                                  "[" + s + "_0]",
                                  "DATE=12.06.2002;",
                                  "TYPE=share;",
                                  "MAGIC=1;",
                                  "PERCENTAGE=33.30;",
                                  "CHANGE=" + share + ";",
                                  "",
                                  ""}));
        }
    }
};

QTEST_MAIN(TestCostRoad)
#include "tst_costroad.moc"
