// Shares through the main window: a changed cost divided again when its share dialog opens,
// shares in whole cents that add up to their cost, a share edited by hand that keeps its
// proportion, a traveller deleted without losing money, and a journey from elsewhere whose
// shares do not add up.

#include "editortestutil.h"
#include "modalhelper.h"
#include "shellfixture.h"
#include "widgetreaders.h"

#include "data/wayferndata.h"
#include "editors/costsedit.h"
#include "editors/settleedit.h"
#include "editors/userlistedit.h"
#include "editors/userpayedit.h"
#include "report/journeyreport.h"
#include "shell/wayfernapp.h"
#include "shell/wayfernview.h"

#include <QAction>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QTreeWidget>

namespace {

const char *const saveQuestion = "You have modified the data!\nDo you want to save the changes ?";

struct Traveller
{
    const char *shortName;
    const char *name;
    const char *first;
    QList<QByteArray> lines; // account line sections' bodies, without the section head
};

// An account line's body as the journey file holds it.
QByteArray line(const char *date, const char *type, int magic, const char *percentage,
                const char *change)
{
    return QByteArray("DATE=") + date + ";\nTYPE=" + type + ";\nMAGIC=" + QByteArray::number(magic)
        + ";\nPERCENTAGE=" + percentage + ";\nCHANGE=" + change + ";\n";
}

QByteArray share(const char *date, int magic, const char *percentage, const char *change)
{
    return line(date, "share", magic, percentage, change);
}

// A cost section's body: date, type, foreign value in EUR, comment and id; shared.
QByteArray cost(const char *date, const char *type, const char *fval, const char *comment, int id)
{
    return QByteArray("DATE=") + date + ";\nTYPE=" + type + ";\nFVAL=" + fval
        + ";\nCTYPE=EUR;\nCOMMENT=" + comment + ";\nID=" + QByteArray::number(id)
        + ";\nEXCHANGE=1.0;\nSHARED=TRUE;\n";
}

// A journey with sharing on, base currency EUR, the cost types Food, Hotel and Transport.
QByteArray journey(const QList<QByteArray> &costs, const QList<Traveller> &travellers)
{
    const QByteArray separator = "\n#========================================================\n\n";
    QByteArray text = "<?wayfern version=\"0.1\" type=\"data\"?>\n"
                      "#-------------------------------------------------------------\n"
                      "# Data-File for wayfern\n#\n\n"
                      "[Header]\nJOURNEY-NAME=Shares;\nDISTANCE-TYPE=km;\n"
                      "BASE-CURRENCY=EUR;\nUSERFLAG=TRUE;\nCOSTSCOUNT="
        + QByteArray::number(costs.size())
        + ";\nTIPCOUNT=0;\nUSERCOUNT=" + QByteArray::number(travellers.size())
        + ";\nCURRCOUNT=1;\nCTYPECOUNT=3;\nTTYPECOUNT=0;\nQTYPECOUNT=0;\n\n";
    text += separator
        + "[CTYPE_0]\nTYPE=Food;\n\n[CTYPE_1]\nTYPE=Hotel;\n\n"
          "[CTYPE_2]\nTYPE=Transport;\n\n";
    text += separator + separator + separator;
    for (int i = 0; i < costs.size(); ++i)
        text += "[COSTS_" + QByteArray::number(i) + "]\n" + costs.at(i) + "\n";
    text += separator + separator;
    for (int i = 0; i < travellers.size(); ++i) {
        const Traveller &t = travellers.at(i);
        text += "[USER_" + QByteArray::number(i) + "]\nDATE=20.05.2002;\nSHORT=" + t.shortName
            + ";\nNAME=" + t.name + ";\nFIRST NAME=" + t.first
            + ";\nSTREET=;\nPCODE=;\nTOWN=;\nTEL=;\nFAX=;\nEMAIL=;\nWWW=;\nBANK=;\nBLZ=;\n"
              "ACOUNT=;\nVALUE=0.0000;\nCOUNT="
            + QByteArray::number(t.lines.size()) + ";\n\n";
        for (int k = 0; k < t.lines.size(); ++k)
            text += "[" + QByteArray(t.shortName) + "_" + QByteArray::number(k) + "]\n"
                + t.lines.at(k) + "\n";
        text += "\n";
    }
    text +=
        separator + "[CURRENCY_0]\nSHORT-TERM=EUR;\nFACTOR=1.0;\nFULL-NAME=Euro;\nTYPE=fix;\n\n";
    text += "\n##EOF WAYFERN DATA FILE shares.wfn\n";
    return text;
}

// The lines of a saved file.
QStringList savedLines(const QString &path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return {};
    return QString::fromLatin1(f.readAll()).split(u'\n');
}

// The lines of `file` from the line `head` on, `count` of them; empty when `head` is missing.
QStringList linesFrom(const QStringList &file, const QString &head, int count)
{
    const int at = file.indexOf(head);
    return at < 0 ? QStringList() : file.mid(at, count);
}

// An account line section of a saved file.
QStringList savedLine(const QString &head, const char *date, int magic, const char *percentage,
                      const char *change)
{
    return {head,
            QStringLiteral("DATE=%1;").arg(QLatin1String(date)),
            QStringLiteral("TYPE=share;"),
            QStringLiteral("MAGIC=%1;").arg(magic),
            QStringLiteral("PERCENTAGE=%1;").arg(QLatin1String(percentage)),
            QStringLiteral("CHANGE=%1;").arg(QLatin1String(change))};
}

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

// The window on a journey written into the user's journey directory as "shares.wfn".
struct Window
{
    explicit Window(const QByteArray &file)
    {
        QFile f(fx.dataFile(QStringLiteral("shares.wfn")));
        if (f.open(QIODevice::WriteOnly))
            f.write(file);
        f.close();
        fx.writeLast(QStringLiteral("shares.wfn"));
        app = std::make_unique<WayfernApp>();
        app->show();
        app->view->TabWidget2->setCurrentIndex(1);
    }
    WayFernData *doc() const { return app->doc; }
    WayfernView *view() const { return app->view; }
    QString path() const { return fx.dataFile(QStringLiteral("shares.wfn")); }
    // The share of the traveller at `user` for cost `id`.
    double shareOf(int user, int id) const
    {
        const KtoData *l = doc()->users.at(user)->findKto(id);
        return l ? l->change : 999.0;
    }

    ShellFixture fx;
    std::unique_ptr<WayfernApp> app;
};

// What the settle-up dialog shows as unbooked, and its plan.
struct Settled
{
    ModalTicket ticket;
    QString unbooked;
    QStringList plan;
};

void settleUp(WayfernApp &app, Settled &out)
{
    out.ticket = ModalHelper::onNextModal(
        [](QWidget *w) { return qobject_cast<settleEdit *>(w) != nullptr; },
        [&out](QWidget *w, ModalOutcome &) {
            auto *d = static_cast<settleEdit *>(w);
            out.unbooked = d->UnbookedLabel->text();
            out.plan = WidgetReaders::columnTexts(d->PlanListView);
            d->CloseButton->click();
        });
    app.settleUp->trigger();
}

// Taps the row of the costs editor labelled `label`.
void tapRow(costsEdit *ed, const char *label, ModalOutcome &out)
{
    QTreeWidgetItem *row = WidgetReaders::topLevelItem(ed->ListView, label);
    if (!ModalHelper::tapItem(ed->ListView, row))
        out.error += QStringLiteral("can't tap %1; ").arg(QLatin1String(label));
}

// Types `value` over the foreign value in the costs editor.
void typeForeignValue(costsEdit *ed, const QString &value, ModalOutcome &out)
{
    tapRow(ed, "foreign value", out);
    ed->LineEdit->selectAll();
    QTest::keyClicks(ed->LineEdit, value);
}

// Selects row `i` of the share dialog by its value and types `text` over it.
void typeShare(userPayEdit *pay, int i, const QString &text, ModalOutcome &out)
{
    if (!ModalHelper::tapItem(pay->ListView, pay->ListView->topLevelItem(i), 3))
        out.error += QStringLiteral("can't select share row %1; ").arg(i);
    pay->LineEdit->selectAll();
    QTest::keyClicks(pay->LineEdit, text);
}

// Arms a handler for the next share dialog: it records the header and the rows, runs `act`
// and presses OK.
ModalTicket inNextShareDialog(QString &header, QStringList &rows,
                              std::function<void(userPayEdit *, ModalOutcome &)> act = {})
{
    return ModalHelper::onNextModal(
        [](QWidget *s) { return qobject_cast<userPayEdit *>(s) != nullptr; },
        [&header, &rows, act](QWidget *s, ModalOutcome &out) {
            auto *pay = static_cast<userPayEdit *>(s);
            header = pay->ValTextLabel->text();
            rows = shareRows(pay->ListView);
            if (act)
                act(pay, out);
            pay->OkButton->click();
        });
}

// Selects the cost at `row` of the cost list and opens the costs editor on it, running
// `inside` there.
ModalTicket changeCost(Window &w, int row, std::function<void(costsEdit *, ModalOutcome &)> inside)
{
    ModalHelper::tapRow(w.view()->CostsListView, row);
    ModalTicket t = ModalHelper::onNextModal(
        [](QWidget *x) { return qobject_cast<costsEdit *>(x) != nullptr; },
        [inside](QWidget *x, ModalOutcome &out) { inside(static_cast<costsEdit *>(x), out); });
    QTest::mouseClick(w.view()->ChangeButton, Qt::LeftButton);
    return t;
}

QList<QByteArray> threeShares(const char *date, int id, const char *change)
{
    return {share(date, id, "33.30", change)};
}

} // namespace

class TestShareWindow : public QObject
{
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression("Not implemented yet!")); }
    void cleanup() { ModalHelper::cancelPending(); }

    void aCostChangedFrom70To75_40IsDividedAgainWhenItsShareDialogOpens()
    {
        // Shared by three as the old even division booked it: 3 x 23.33.
        Window w(journey({cost("12.06.2002", "Food", "70.00", "Boat", 1)},
                         {{"AB", "Berg", "Anna", threeShares("12.06.2002", 1, "-23.3300")},
                          {"CD", "Dahl", "Carl", threeShares("12.06.2002", 1, "-23.3300")},
                          {"EF", "Falk", "Eva", threeShares("12.06.2002", 1, "-23.3300")}}));
        QVERIFY(QTest::qWaitForWindowExposed(w.app.get()));
        QCOMPARE(w.doc()->costs.count(), 1);

        QString header;
        QStringList rows;
        ModalTicket pay;
        ModalTicket costs = changeCost(w, 0, [&](costsEdit *ed, ModalOutcome &out) {
            typeForeignValue(ed, QStringLiteral("75.40"), out);
            if (contentOf(ed->ListView, "base value") != QLatin1String("75.40"))
                out.error += QStringLiteral("base value not 75.40; ");
            pay = inNextShareDialog(header, rows);
            ed->OkButton->click();
        });
        QVERIFY2(costs->handled && costs->error.isEmpty(), qPrintable(costs->error));
        QVERIFY2(pay && pay->handled && pay->error.isEmpty(), pay ? qPrintable(pay->error) : "");
        // The dialog shows the new amount divided among the same three, and OK stores that.
        QCOMPARE(header, QStringLiteral("75.40 EUR"));
        QCOMPARE(rows,
                 (QStringList{"x|AB|33.3|-25.14|", "x|CD|33.3|-25.13|", "x|EF|33.3|-25.13|"}));
        QCOMPARE(w.shareOf(0, 1), -25.14);
        QCOMPARE(w.shareOf(1, 1), -25.13);
        QCOMPARE(w.shareOf(2, 1), -25.13);
        QVERIFY(w.doc()->isModified());

        Settled settled;
        settleUp(*w.app, settled);
        QVERIFY2(settled.ticket->handled, qPrintable(settled.ticket->error));
        QCOMPARE(settled.unbooked,
                 QStringLiteral("Left unbooked by the division of shared costs: 0.00 EUR"));

        w.app->fileSave->trigger();
        QVERIFY(!w.doc()->isModified());
        const QStringList saved = savedLines(w.path());
        QVERIFY(saved.contains(QStringLiteral("FVAL=75.40;")));
        QCOMPARE(linesFrom(saved, QStringLiteral("[AB_0]"), 6),
                 savedLine("[AB_0]", "12.06.2002", 1, "33.30", "-25.1400"));
        QCOMPARE(linesFrom(saved, QStringLiteral("[CD_0]"), 6),
                 savedLine("[CD_0]", "12.06.2002", 1, "33.30", "-25.1300"));
        QCOMPARE(linesFrom(saved, QStringLiteral("[EF_0]"), 6),
                 savedLine("[EF_0]", "12.06.2002", 1, "33.30", "-25.1300"));

        // Opened again, the journey's shares add up: the share dialog shows them as stored,
        // and leaving it asks nothing.
        w.app.reset();
        w.app = std::make_unique<WayfernApp>();
        w.app->show();
        w.view()->TabWidget2->setCurrentIndex(1);
        QVERIFY(QTest::qWaitForWindowExposed(w.app.get()));
        QCOMPARE(w.shareOf(0, 1), -25.14);
        QStringList again;
        ModalTicket reopened = changeCost(w, 0, [&](costsEdit *ed, ModalOutcome &out) {
            tapRow(ed, "comment", out);
            ModalTicket share = ModalHelper::onNextModal(
                [](QWidget *s) { return qobject_cast<userPayEdit *>(s) != nullptr; },
                [&again](QWidget *s, ModalOutcome &) {
                    auto *p = static_cast<userPayEdit *>(s);
                    again = shareRows(p->ListView);
                    p->CancelButton->click();
                });
            ed->UserButton->click();
            if (!share->handled)
                out.error += QStringLiteral("share dialog not answered; ");
            ed->CancelButton->click();
        });
        QVERIFY2(reopened->handled && reopened->error.isEmpty(), qPrintable(reopened->error));
        QCOMPARE(again,
                 (QStringList{"x|AB|33.3|-25.14|", "x|CD|33.3|-25.13|", "x|EF|33.3|-25.13|"}));
        QVERIFY(!w.doc()->isModified());
    }

    void anAmountChangedAfterTheSharesWereConfirmedBringsTheShareDialogAgain()
    {
        Window w(journey({cost("12.06.2002", "Food", "70.00", "Boat", 1)},
                         {{"AB", "Berg", "Anna", threeShares("12.06.2002", 1, "-23.3400")},
                          {"CD", "Dahl", "Carl", threeShares("12.06.2002", 1, "-23.3300")},
                          {"EF", "Falk", "Eva", threeShares("12.06.2002", 1, "-23.3300")}}));
        QVERIFY(QTest::qWaitForWindowExposed(w.app.get()));
        QString firstHeader;
        QStringList firstRows;
        QString header;
        QStringList rows;
        ModalTicket second;
        ModalTicket costs = changeCost(w, 0, [&](costsEdit *ed, ModalOutcome &out) {
            // The shares confirmed first, for 70.00 ...
            tapRow(ed, "comment", out);
            ModalTicket first = inNextShareDialog(firstHeader, firstRows);
            ed->UserButton->click();
            if (!first->handled)
                out.error += QStringLiteral("first share dialog not answered; ");
            // ... then the amount changed: OK shows the shares of the new amount.
            typeForeignValue(ed, QStringLiteral("75.40"), out);
            second = inNextShareDialog(header, rows);
            ed->OkButton->click();
        });
        QVERIFY2(costs->handled && costs->error.isEmpty(), qPrintable(costs->error));
        QCOMPARE(firstHeader, QStringLiteral("70.00 EUR"));
        QCOMPARE(firstRows,
                 (QStringList{"x|AB|33.3|-23.34|", "x|CD|33.3|-23.33|", "x|EF|33.3|-23.33|"}));
        QVERIFY2(second && second->handled, second ? qPrintable(second->error) : "no dialog");
        QCOMPARE(header, QStringLiteral("75.40 EUR"));
        QCOMPARE(rows,
                 (QStringList{"x|AB|33.3|-25.14|", "x|CD|33.3|-25.13|", "x|EF|33.3|-25.13|"}));
        QCOMPARE(w.shareOf(0, 1) + w.shareOf(1, 1) + w.shareOf(2, 1), -75.40);
    }

    void ninetyTwo63SharedByThreeAddsUpToTheCost()
    {
        Window w(journey(
            {},
            {{"AB", "Berg", "Anna", {}}, {"CD", "Dahl", "Carl", {}}, {"EF", "Falk", "Eva", {}}}));
        QVERIFY(QTest::qWaitForWindowExposed(w.app.get()));
        QString header;
        QStringList before, after;
        ModalTicket calendar, pay;
        ModalTicket costs = ModalHelper::onNextModal(
            [](QWidget *x) { return qobject_cast<costsEdit *>(x) != nullptr; },
            [&](QWidget *x, ModalOutcome &out) {
                auto *ed = static_cast<costsEdit *>(x);
                tapRow(ed, "date", out);
                calendar = ModalHelper::pickDateInNextCalendar(QDate(2002, 6, 12));
                ed->ToolButton->click();
                typeForeignValue(ed, QStringLiteral("92.63"), out);
                pay = inNextShareDialog(header, before, [&after](userPayEdit *p, ModalOutcome &o) {
                    for (int i = 0; i < p->ListView->topLevelItemCount(); ++i)
                        if (!ModalHelper::tapItem(p->ListView, p->ListView->topLevelItem(i), 0))
                            o.error += QStringLiteral("can't tick row %1; ").arg(i);
                    after = shareRows(p->ListView);
                });
                ed->OkButton->click();
            });
        QTest::mouseClick(w.view()->InsertButton, Qt::LeftButton);
        QVERIFY2(costs->handled && costs->error.isEmpty(), qPrintable(costs->error));
        QVERIFY2(calendar && calendar->handled, calendar ? qPrintable(calendar->error) : "");
        QVERIFY2(pay && pay->handled && pay->error.isEmpty(), pay ? qPrintable(pay->error) : "");
        QCOMPARE(header, QStringLiteral("92.63 EUR"));
        // The shares shown add up to the cost: the odd cent goes to the first in the list.
        QCOMPARE(after,
                 (QStringList{"x|AB|33.3|-30.88|", "x|CD|33.3|-30.88|", "x|EF|33.3|-30.87|"}));
        QCOMPARE(WidgetReaders::treeRows(w.view()->OverListView).mid(11),
                 (QStringList{"  AB|-30.88", "  CD|-30.88", "  EF|-30.87"}));
        Settled settled;
        settleUp(*w.app, settled);
        QCOMPARE(settled.unbooked,
                 QStringLiteral("Left unbooked by the division of shared costs: 0.00 EUR"));
        QCOMPARE(settled.plan,
                 (QStringList{"AB pays kitty 30.88 EUR", "CD pays kitty 30.88 EUR",
                              "EF pays kitty 30.87 EUR"}));
    }

    void aShareEditedByHandKeepsItsProportionWhenTheCostChanges()
    {
        Window w(journey(
            {"DATE=12.06.2002;\nTYPE=Hotel;\nFVAL=100.00;\nCTYPE=EUR;\n"
             "COMMENT=Room;\nID=1;\nEXCHANGE=1.0;\nSHARED=FALSE;\n"},
            {{"AB", "Berg", "Anna", {}}, {"CD", "Dahl", "Carl", {}}, {"EF", "Falk", "Eva", {}}}));
        QVERIFY(QTest::qWaitForWindowExposed(w.app.get()));

        // AB takes three quarters, CD one, EF nothing: typed by hand.
        QString header;
        QStringList rows;
        ModalTicket pay;
        ModalTicket first = changeCost(w, 0, [&](costsEdit *ed, ModalOutcome &out) {
            tapRow(ed, "comment", out);
            pay = inNextShareDialog(header, rows, [](userPayEdit *p, ModalOutcome &o) {
                for (int i : {0, 1})
                    if (!ModalHelper::tapItem(p->ListView, p->ListView->topLevelItem(i), 0))
                        o.error += QStringLiteral("can't tick row %1; ").arg(i);
                typeShare(p, 0, QStringLiteral("-75.00"), o);
                typeShare(p, 1, QStringLiteral("-25.00"), o);
            });
            ed->UserButton->click();
            ed->OkButton->click();
        });
        QVERIFY2(first->handled && first->error.isEmpty(), qPrintable(first->error));
        QVERIFY2(pay && pay->handled && pay->error.isEmpty(), pay ? qPrintable(pay->error) : "");
        QCOMPARE(w.shareOf(0, 1), -75.0);
        QCOMPARE(w.shareOf(1, 1), -25.0);
        QCOMPARE(w.shareOf(2, 1), 0.0);

        // The room cost 120.00 after all.
        ModalTicket second = changeCost(w, 0, [&](costsEdit *ed, ModalOutcome &out) {
            typeForeignValue(ed, QStringLiteral("120.00"), out);
            pay = inNextShareDialog(header, rows);
            ed->OkButton->click();
        });
        QVERIFY2(second->handled && second->error.isEmpty(), qPrintable(second->error));
        QVERIFY2(pay->handled && pay->error.isEmpty(), qPrintable(pay->error));
        QCOMPARE(header, QStringLiteral("120.00 EUR"));
        QCOMPARE(rows, (QStringList{"x|AB|75.0|-90.00|", "x|CD|25.0|-30.00|", "-|EF|0.0|0.00|"}));
        QCOMPARE(w.shareOf(0, 1), -90.0);
        QCOMPARE(w.shareOf(1, 1), -30.0);
        QCOMPARE(w.shareOf(2, 1), 0.0);

        w.app->fileSave->trigger();
        const QStringList saved = savedLines(w.path());
        QCOMPARE(linesFrom(saved, QStringLiteral("[AB_0]"), 6),
                 savedLine("[AB_0]", "12.06.2002", 1, "75.00", "-90.0000"));
        QCOMPARE(linesFrom(saved, QStringLiteral("[CD_0]"), 6),
                 savedLine("[CD_0]", "12.06.2002", 1, "25.00", "-30.0000"));
    }

    void aSharedCostWhoseDateAloneChangesTakesItsAccountLinesToTheNewDate()
    {
        // 90.00 shared by three, 30.00 each; CD has a deposit of another date as well.
        Window w(journey({cost("12.06.2002", "Food", "90.00", "Boat", 1)},
                         {{"AB", "Berg", "Anna", {share("12.06.2002", 1, "33.30", "-30.0000")}},
                          {"CD",
                           "Dahl",
                           "Carl",
                           {line("01.06.2002", "deposit", -2, "100.00", "50.0000"),
                            share("12.06.2002", 1, "33.30", "-30.0000")}},
                          {"EF", "Falk", "Eva", {share("12.06.2002", 1, "33.30", "-30.0000")}}}));
        QVERIFY(QTest::qWaitForWindowExposed(w.app.get()));
        QVERIFY(!w.doc()->isModified());

        QString header;
        QStringList rows;
        ModalTicket calendar, pay;
        ModalTicket costs = changeCost(w, 0, [&](costsEdit *ed, ModalOutcome &out) {
            tapRow(ed, "date", out);
            calendar = ModalHelper::pickDateInNextCalendar(QDate(2002, 6, 14));
            ed->ToolButton->click();
            if (contentOf(ed->ListView, "date") != QLatin1String("14.06.2002"))
                out.error += QStringLiteral("date row not 14.06.2002; ");
            pay = inNextShareDialog(header, rows, [](userPayEdit *p, ModalOutcome &o) {
                if (p->TextLabel->text() != QLatin1String("14.06.2002"))
                    o.error += QStringLiteral("share dialog dated %1; ").arg(p->TextLabel->text());
            });
            ed->OkButton->click();
        });
        QVERIFY2(costs->handled && costs->error.isEmpty(), qPrintable(costs->error));
        QVERIFY2(calendar && calendar->handled, calendar ? qPrintable(calendar->error) : "");
        QVERIFY2(pay && pay->handled && pay->error.isEmpty(), pay ? qPrintable(pay->error) : "");
        // The amount is untouched, so are the shares.
        QCOMPARE(rows,
                 (QStringList{"x|AB|33.3|-30.00|", "x|CD|33.3|-30.00|", "x|EF|33.3|-30.00|"}));

        QCOMPARE(w.doc()->costs.at(0)->date, QStringLiteral("14.06.2002"));
        for (int user = 0; user < 3; ++user) {
            const KtoData *l = w.doc()->users.at(user)->findKto(1);
            QVERIFY(l);
            QCOMPARE(l->date, QStringLiteral("14.06.2002"));
            QCOMPARE(l->change, -30.0);
        }
        // A line of another kind keeps its date.
        QCOMPARE(w.doc()->users.at(1)->findKto(-2)->date, QStringLiteral("01.06.2002"));
        QVERIFY(w.doc()->isModified());

        w.app->fileSave->trigger();
        const QStringList saved = savedLines(w.path());
        QVERIFY(saved.contains(QStringLiteral("DATE=14.06.2002;")));
        QVERIFY(!saved.contains(QStringLiteral("DATE=12.06.2002;")));
        QCOMPARE(linesFrom(saved, QStringLiteral("[AB_0]"), 6),
                 savedLine("[AB_0]", "14.06.2002", 1, "33.30", "-30.0000"));
        QCOMPARE(linesFrom(saved, QStringLiteral("[EF_0]"), 6),
                 savedLine("[EF_0]", "14.06.2002", 1, "33.30", "-30.0000"));
    }

    void deletingATravellerNamesWhatLeavesDividesHisSharesAndQuitAsksToSave()
    {
        Window w(journey({cost("12.06.2002", "Hotel", "90.00", "Inn", 1),
                          cost("13.06.2002", "Food", "100.00", "Feast", 2),
                          cost("14.06.2002", "Transport", "40.00", "Taxi", 3)},
                         {{"AB",
                           "Berg",
                           "Anna",
                           {share("12.06.2002", 1, "33.30", "-30.0000"),
                            share("13.06.2002", 2, "33.30", "-33.3400"),
                            share("14.06.2002", 3, "0.00", "0.0000")}},
                          {"CD",
                           "Dahl",
                           "Carl",
                           {share("12.06.2002", 1, "33.30", "-30.0000"),
                            share("13.06.2002", 2, "33.30", "-33.3300"),
                            share("14.06.2002", 3, "50.00", "-20.0000")}},
                          {"EF",
                           "Falk",
                           "Eva",
                           {share("12.06.2002", 1, "33.30", "-30.0000"),
                            share("13.06.2002", 2, "33.30", "-33.3300"),
                            share("14.06.2002", 3, "50.00", "-20.0000"),
                            line("11.06.2002", "deposit", -2, "100.00", "200.0000"),
                            line("15.06.2002", "pay off", -3, "100.00", "-45.0000")}}}));
        QVERIFY(QTest::qWaitForWindowExposed(w.app.get()));
        QVERIFY(!w.doc()->isModified());

        ModalTicket box;
        ModalTicket list = ModalHelper::onNextModal(
            [](QWidget *x) { return qobject_cast<userListEdit *>(x) != nullptr; },
            [&box](QWidget *x, ModalOutcome &out) {
                auto *l = static_cast<userListEdit *>(x);
                if (!ModalHelper::tapItem(l->ListView, l->ListView->topLevelItem(2)))
                    out.error += QStringLiteral("can't tap EF; ");
                box = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
                l->DeleteButton->click();
                l->CloseButton->click();
            });
        w.app->openUser->trigger();
        QVERIFY2(list->handled && list->error.isEmpty(), qPrintable(list->error));
        QVERIFY2(box && box->handled && box->error.isEmpty(), box ? qPrintable(box->error) : "");
        QCOMPARE(box->title, QStringLiteral("Delete item"));
        QCOMPARE(box->buttons, QMessageBox::Yes | QMessageBox::Cancel);
        QCOMPARE(box->text,
                 QStringLiteral("Delete user entry\nEva\nFalk\n\n"
                                "Balance: 71.67 EUR\n"
                                "Deposits leaving with the traveller: 200.00 EUR (1)\n"
                                "Pay-offs leaving with the traveller: 45.00 EUR (1)\n"
                                "Shared costs divided again among the others: 3\n"
                                "  12.06.2002 H 90.00\n"
                                "  13.06.2002 F 100.00\n"
                                "  14.06.2002 T 40.00\n\n"
                                "confirm with yes !"));

        // Every shared cost stays fully booked among those left.
        QCOMPARE(w.doc()->users.count(), 2);
        QCOMPARE(w.shareOf(0, 1), -45.0);
        QCOMPARE(w.shareOf(1, 1), -45.0);
        QCOMPARE(w.shareOf(0, 2), -50.0);
        QCOMPARE(w.shareOf(1, 2), -50.0);
        QCOMPARE(w.shareOf(0, 3), 0.0);
        QCOMPARE(w.shareOf(1, 3), -40.0);
        QVERIFY(w.doc()->isModified());
        QCOMPARE(WidgetReaders::treeRows(w.view()->OverListView).mid(11),
                 (QStringList{"  AB|-95.00", "  CD|-135.00"}));

        Settled settled;
        settleUp(*w.app, settled);
        QCOMPARE(settled.unbooked,
                 QStringLiteral("Left unbooked by the division of shared costs: 0.00 EUR"));
        QCOMPARE(settled.plan,
                 (QStringList{"CD pays kitty 135.00 EUR", "AB pays kitty 95.00 EUR"}));

        // The deletion is a change: Quit asks, and Yes saves it.
        ModalTicket quit = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
        w.app->fileQuit->trigger();
        QVERIFY2(quit->handled && quit->error.isEmpty(), qPrintable(quit->error));
        // Quit asked the event loop to end, and none ran: one run and ended here takes the
        // request, so the dialogs of later tests run again.
        QTimer::singleShot(0, [] { QCoreApplication::exit(0); });
        QCoreApplication::exec();
        QCOMPARE(quit->title, QStringLiteral("Quit ... "));
        QCOMPARE(quit->text, QString::fromLatin1(saveQuestion));
        QVERIFY(!w.doc()->isModified());
        const QStringList saved = savedLines(w.path());
        QVERIFY(saved.contains(QStringLiteral("USERCOUNT=2;")));
        QVERIFY(!saved.contains(QStringLiteral("SHORT=EF;")));
        QCOMPARE(linesFrom(saved, QStringLiteral("[AB_0]"), 6),
                 savedLine("[AB_0]", "12.06.2002", 1, "50.00", "-45.0000"));
        QCOMPARE(linesFrom(saved, QStringLiteral("[AB_1]"), 6),
                 savedLine("[AB_1]", "13.06.2002", 2, "50.00", "-50.0000"));
        QCOMPARE(linesFrom(saved, QStringLiteral("[AB_2]"), 6),
                 savedLine("[AB_2]", "14.06.2002", 3, "0.00", "0.0000"));
        QCOMPARE(linesFrom(saved, QStringLiteral("[CD_1]"), 6),
                 savedLine("[CD_1]", "13.06.2002", 2, "50.00", "-50.0000"));
        QCOMPARE(linesFrom(saved, QStringLiteral("[CD_2]"), 6),
                 savedLine("[CD_2]", "14.06.2002", 3, "100.00", "-40.0000"));
    }

    void aJourneyWhoseSharesDoNotAddUpNamesTheCostsInSettleUpAndTheReport()
    {
        Window w(journey({cost("12.06.2002", "Food", "75.40", "Boat", 1),
                          cost("13.06.2002", "Hotel", "30.00", "Inn", 2)},
                         {{"AB",
                           "Berg",
                           "Anna",
                           {share("12.06.2002", 1, "33.30", "-23.3300"),
                            share("13.06.2002", 2, "50.00", "-15.0000")}},
                          {"CD",
                           "Dahl",
                           "Carl",
                           {share("12.06.2002", 1, "33.30", "-23.3300"),
                            share("13.06.2002", 2, "50.00", "-15.0000")}},
                          {"EF", "Falk", "Eva", {share("12.06.2002", 1, "33.30", "-23.3300")}}}));
        QVERIFY(QTest::qWaitForWindowExposed(w.app.get()));
        Settled settled;
        settleUp(*w.app, settled);
        QVERIFY2(settled.ticket->handled, qPrintable(settled.ticket->error));
        QCOMPARE(settled.unbooked,
                 QStringLiteral("Left unbooked because the shares of these costs do not add up "
                                "to them: 5.41 EUR\n12.06.2002 F 75.40, shares 69.99"));

        const JourneyReport report = JourneyReport::fromJourney(*w.doc(), w.path());
        QCOMPARE(report.unbookedLine(),
                 QStringLiteral("Left unbooked because the shares of these costs do not add up "
                                "to them: 5.41 EUR"));
        QCOMPARE(report.openCosts, (QStringList{"12.06.2002 F 75.40, shares 69.99"}));
        QVERIFY(report.html().contains(QStringLiteral(
            "<p>Left unbooked because the shares of these costs do not add up to them: 5.41 "
            "EUR</p>\n<ul>\n<li>12.06.2002 F 75.40, shares 69.99</li>\n</ul>\n")));
    }
};

QTEST_MAIN(TestShareWindow)
#include "tst_sharewindow.moc"
