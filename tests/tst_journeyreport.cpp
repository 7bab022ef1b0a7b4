// The figures of the journey report and its HTML page.

#include "journeyfixture.h"

#include "data/journeycalc.h"
#include "data/wayferndata.h"
#include "report/journeyreport.h"
#include "storage/scqtutil.h"
#include "storage/wayfernio.h"

#include <QtTest>

namespace {

QStringList barTexts(const QList<JourneyReport::Bar> &bars)
{
    QStringList texts;
    for (const JourneyReport::Bar &bar : bars)
        texts << bar.name + QLatin1Char('=') + bar.valueText;
    return texts;
}

} // namespace

class TestJourneyReport : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { qputenv("WAYFERNCFG", "."); }

    void titleDatesDaysAndTotals()
    {
        WayFernData doc;
        QVERIFY(readJourneyFixture(doc, QStringLiteral("check-journey.wfn")));
        const JourneyReport r = JourneyReport::fromJourney(doc, QStringLiteral("/x/alpine.wfn"));
        QCOMPARE(r.title, QStringLiteral("Alpine Loop"));
        QCOMPARE(r.fileName, QStringLiteral("/x/alpine.wfn"));
        QCOMPARE(r.currency, QStringLiteral("EUR"));
        // The costs sorted: 01.06. to 05.06.2002, both ends counted.
        QCOMPARE(r.firstDate, QStringLiteral("01.06.2002"));
        QCOMPARE(r.lastDate, QStringLiteral("05.06.2002"));
        QCOMPARE(r.days, 5);
        QCOMPARE(r.totalText, QStringLiteral("80.00"));
        QCOMPARE(r.perDayText, QStringLiteral("16.00"));
        QCOMPARE(r.datesText(), QStringLiteral("01.06.2002 to 05.06.2002, 5 days"));
        QCOMPARE(r.totalLine(), QStringLiteral("Total: 80.00 EUR in 4 costs"));
        QCOMPARE(r.perDayLine(), QStringLiteral("Per day: 16.00 EUR"));
    }

    void categorySumsInTheOrderOfTheCostTypes()
    {
        WayFernData doc;
        QVERIFY(readJourneyFixture(doc, QStringLiteral("check-journey.wfn")));
        const JourneyReport r = JourneyReport::fromJourney(doc, QString());
        // Food: 10.00 of the dinner and nothing of the unknown money.
        QCOMPARE(barTexts(r.categories), QStringList({"Food=10.00", "Hotel=45.50", "Train=24.50"}));
        QCOMPARE(JourneyReport::largest(r.categories), 45.5);
    }

    void aTypeThatIsNoCategoryStillGetsABar()
    {
        WayFernData doc;
        QVERIFY(readJourneyFixture(doc, QStringLiteral("check-journey.wfn")));
        doc.costs.at(0)->type = QStringLiteral("Ferry");
        doc.costs.at(1)->type = QString();
        const JourneyReport r = JourneyReport::fromJourney(doc, QString());
        // The hotel night became a ferry, the train pass has no type.
        QCOMPARE(barTexts(r.categories),
                 QStringList(
                     {"Food=10.00", "Hotel=0.00", "Train=0.00", "Ferry=45.50", "(no type)=24.50"}));
    }

    void travellersDepositsSharesPayOffsAndBalances()
    {
        WayFernData doc;
        QVERIFY(readJourneyFixture(doc, QStringLiteral("check-journey.wfn")));
        const JourneyReport r = JourneyReport::fromJourney(doc, QString());
        QCOMPARE(r.travellers.size(), 3);
        const JourneyReport::Traveller &ab = r.travellers.at(0);
        QCOMPARE(ab.shortName, QStringLiteral("AB"));
        QCOMPARE(ab.fullName, QStringLiteral("Anna Berg"));
        QCOMPARE(ab.paidIn, 5000);
        QCOMPARE(ab.shares, 1725);
        QCOMPARE(ab.payOffs, 0);
        QCOMPARE(ab.balance, 3275);
        const JourneyReport::Traveller &cd = r.travellers.at(1);
        QCOMPARE(cd.paidIn, 0);
        QCOMPARE(cd.shares, 1725);
        QCOMPARE(cd.payOffs, -1000);
        QCOMPARE(cd.balance, -2725);
        const JourneyReport::Traveller &ef = r.travellers.at(2);
        QCOMPARE(ef.paidIn, 2000);
        QCOMPARE(ef.shares, 0);
        QCOMPARE(ef.balance, 2000);
        QCOMPARE(barTexts(r.travellerShares), QStringList({"AB=17.25", "CD=17.25", "EF=0.00"}));
    }

    void balancesWithTheKittyAndThePlanProvenFewest()
    {
        WayFernData doc;
        QVERIFY(readJourneyFixture(doc, QStringLiteral("check-journey.wfn")));
        const JourneyReport r = JourneyReport::fromJourney(doc, QString());
        QStringList balances;
        for (const JourneyReport::Balance &b : r.balances)
            balances << b.name + QLatin1Char(' ') + JourneyReport::centsText(b.cents);
        QCOMPARE(balances, QStringList({"AB 32.75", "CD -27.25", "EF 20.00", "kitty -25.50"}));
        QCOMPARE(r.unbooked, 0);
        QVERIFY(r.openCosts.isEmpty());
        QCOMPARE(r.unbookedLine(),
                 QStringLiteral("Left unbooked by the division of shared costs: 0.00 EUR"));
        QCOMPARE(r.plan,
                 QStringList({"CD pays AB 27.25 EUR", "kitty pays EF 20.00 EUR",
                              "kitty pays AB 5.50 EUR"}));
        QVERIFY(r.planProvenFewest);
        QCOMPARE(r.planNoteLine(), QStringLiteral("These are the fewest transfers possible."));
        QVERIFY(r.html().contains(QStringLiteral(
            "<li>kitty pays AB 5.50 EUR</li>\n</ul>\n<p>These are the fewest transfers "
            "possible.</p>\n")));
    }

    void aPlanForMoreThanTwentyPartiesMayNotBeTheFewest()
    {
        for (const int travellers : {19, 20, 21}) {
            WayFernData doc;
            doc.basecurrency = QStringLiteral("EUR");
            // Deposits of 1.00, 2.00, ... and the kitty holding them: every traveller and the
            // kitty owe or are owed.
            for (int i = 0; i < travellers; ++i) {
                UserData *user = doc.users.append();
                user->short_ = QStringLiteral("T%1").arg(i, 2, 10, QLatin1Char('0'));
                KtoData *line = user->addKto(-2);
                line->type = QStringLiteral("deposit");
                line->change = double(i + 1);
            }
            doc.recalcUsers();
            const JourneyReport r = JourneyReport::fromJourney(doc, QString());
            QCOMPARE(r.plan.size(), travellers);
            QCOMPARE(r.planProvenFewest, travellers + 1 <= 20);
            const QString note = r.planNoteLine();
            if (r.planProvenFewest) {
                QCOMPARE(note, QStringLiteral("These are the fewest transfers possible."));
            } else {
                QCOMPARE(note,
                         QStringLiteral("The plan may not be the fewest transfers possible: "
                                        "too many travellers owe or are owed to prove it."));
            }
            QVERIFY(r.html().contains(QStringLiteral("<p>%1</p>").arg(note)));
        }
    }

    void costsWhoseSharesDoNotAddUpAreNamed()
    {
        WayFernData doc;
        QVERIFY(readJourneyFixture(doc, QStringLiteral("check-journey.wfn")));
        // The dinner (10.00) booked as 5.00 and 4.00 in a file from elsewhere.
        QCOMPARE(doc.users.at(1)->short_, QStringLiteral("CD"));
        doc.users.at(1)->findKto(1)->change = -4.0;
        const JourneyReport r = JourneyReport::fromJourney(doc, QString());
        QCOMPARE(r.unbooked, 100);
        QCOMPARE(r.openCosts, QStringList({"05.06.2002 F 10.00, shares 9.00"}));
        QCOMPARE(r.unbookedLine(),
                 QStringLiteral("Left unbooked because the shares of these costs do not add up "
                                "to them: 1.00 EUR"));
        QVERIFY(
            r.html().contains(QStringLiteral("<li>05.06.2002 F 10.00, shares 9.00</li>\n</ul>\n")));
    }

    void costRowsInDateOrder()
    {
        WayFernData doc;
        QVERIFY(readJourneyFixture(doc, QStringLiteral("check-journey.wfn")));
        const JourneyReport r = JourneyReport::fromJourney(doc, QString());
        QCOMPARE(r.costs.size(), 4);
        QStringList rows;
        for (const JourneyReport::Cost &c : r.costs)
            rows << QStringList({c.date, c.type, c.comment, c.foreign, c.baseValue,
                                 c.shared ? QStringLiteral("shared") : QStringLiteral("-")})
                        .join(QLatin1Char('|'));
        QCOMPARE(rows,
                 QStringList({"01.06.2002|Hotel|First night|45.50 EUR|45.50|-",
                              "03.06.2002|Train|Pass|12.25 CHF|24.50|shared",
                              "04.06.2002|Food|Unknown money|7.00 XYZ|0.00|-",
                              "05.06.2002|Food|Dinner|80.00 NOK|10.00|shared"}));
    }

    void aJourneyWithoutNameIsTitledByItsFile()
    {
        WayFernData doc;
        QVERIFY(readJourneyFixture(doc, QStringLiteral("check-journey.wfn")));
        doc.journeyname.clear();
        QCOMPARE(JourneyReport::fromJourney(doc, QStringLiteral("/trips/north.wfn")).title,
                 QStringLiteral("north"));
    }

    void aJourneyWithoutCostsHasNoDaysAndNobodyOwes()
    {
        WayFernData doc;
        doc.journeyname = QStringLiteral("Empty");
        doc.basecurrency = QStringLiteral("EUR");
        DateParts last;
        JourneyCalc::refreshFigures(doc, last);
        const JourneyReport r = JourneyReport::fromJourney(doc, QString());
        QCOMPARE(r.days, 0);
        QCOMPARE(r.totalText, QStringLiteral("0.00"));
        QVERIFY(r.costs.isEmpty());
        QVERIFY(r.plan.isEmpty());
        QCOMPARE(r.planNoteLine(), QString());
        QCOMPARE(r.datesText(), QStringLiteral("No costs yet."));
        const QString html = r.html();
        QVERIFY(html.contains(QStringLiteral("Nobody owes anybody anything.")));
        QVERIFY(html.contains(QStringLiteral("No costs yet.")));
        QVERIFY(!html.contains(QStringLiteral("fewest")));
    }

    void theHtmlPageHoldsTheFigures()
    {
        WayFernData doc;
        QVERIFY(readJourneyFixture(doc, QStringLiteral("check-journey.wfn")));
        const QString html = JourneyReport::fromJourney(doc, QString()).html();
        QVERIFY(html.startsWith(QStringLiteral("<!DOCTYPE html>")));
        QVERIFY(html.contains(QStringLiteral("<meta charset=\"utf-8\">")));
        QVERIFY(html.contains(QStringLiteral("<h1>Alpine Loop</h1>")));
        QVERIFY(html.contains(QStringLiteral("01.06.2002 to 05.06.2002, 5 days")));
        QVERIFY(html.contains(QStringLiteral("Total: 80.00 EUR in 4 costs")));
        QVERIFY(html.contains(QStringLiteral("Per day: 16.00 EUR")));
        // The category chart: the largest bar is full length, the others in proportion.
        QVERIFY(html.contains(QStringLiteral("<tr><td>Hotel</td><td class=\"bars\"><div "
                                             "class=\"bar\" style=\"width: 100.0%\"></div></td>"
                                             "<td class=\"num\">45.50</td></tr>")));
        QVERIFY(html.contains(QStringLiteral("<tr><td>Food</td><td class=\"bars\"><div "
                                             "class=\"bar\" style=\"width: 22.0%\"></div></td>"
                                             "<td class=\"num\">10.00</td></tr>")));
        QVERIFY(html.contains(QStringLiteral("<td>AB</td><td>Anna Berg</td><td class=\"num\">"
                                             "50.00</td><td class=\"num\">17.25</td>")));
        QVERIFY(html.contains(QStringLiteral("<tr><td>kitty</td><td class=\"num\">-25.50 EUR"
                                             "</td></tr>")));
        QVERIFY(html.contains(QStringLiteral("<li>CD pays AB 27.25 EUR</li>")));
        QVERIFY(html.contains(QStringLiteral("<tr><td>03.06.2002</td><td>Train</td><td>Pass</td>"
                                             "<td class=\"num\">12.25 CHF</td><td class=\"num\">"
                                             "24.50</td><td>yes</td></tr>")));
        QVERIFY(html.endsWith(QStringLiteral("</html>\n")));
    }

    void aFigureThatRoundsToNothingShowsNoMinusSign()
    {
        WayFernData doc;
        QVERIFY(readJourneyJustBelowNothing(doc));
        const JourneyReport r = JourneyReport::fromJourney(doc, QString());
        QCOMPARE(r.totalText, QStringLiteral("0.00"));
        QCOMPARE(r.perDayText, QStringLiteral("0.00"));
        QCOMPARE(r.totalLine(), QStringLiteral("Total: 0.00 EUR in 4 costs"));
        QCOMPARE(r.perDayLine(), QStringLiteral("Per day: 0.00 EUR"));
        QCOMPARE(barTexts(r.categories), QStringList({"Food=0.00", "Hotel=0.00", "Train=0.00"}));
        QCOMPARE(r.costs.at(0).comment, QStringLiteral("First night"));
        QCOMPARE(r.costs.at(0).foreign, QStringLiteral("0.00 EUR"));
        QCOMPARE(r.costs.at(0).baseValue, QStringLiteral("0.00"));
        QCOMPARE(r.travellers.at(2).balance, 0);
        QCOMPARE(JourneyReport::centsText(r.travellers.at(2).balance), QStringLiteral("0.00"));
        QCOMPARE(JourneyReport::centsText(r.travellers.at(2).paidIn), QStringLiteral("0.00"));
        const QString html = r.html();
        QVERIFY(html.contains(QStringLiteral("Total: 0.00 EUR in 4 costs")));
        QVERIFY(html.contains(QStringLiteral("<tr><td>Hotel</td><td class=\"bars\"><div "
                                             "class=\"bar\" style=\"width: 0.0%\"></div></td>"
                                             "<td class=\"num\">0.00</td></tr>")));
        QVERIFY(html.contains(QStringLiteral("<td>First night</td><td class=\"num\">0.00 EUR"
                                             "</td><td class=\"num\">0.00</td>")));
        QVERIFY2(!html.contains(QStringLiteral("-0.00")), qPrintable(html));
    }

    void markupInACommentIsEscaped()
    {
        WayFernData doc;
        QVERIFY(readJourneyFixture(doc, QStringLiteral("check-journey.wfn")));
        doc.costs.at(0)->comment = QStringLiteral("<b>&\"");
        doc.journeyname = QStringLiteral("Tom & <Jerry>");
        const QString html = JourneyReport::fromJourney(doc, QString()).html();
        QVERIFY(html.contains(QStringLiteral("<td>&lt;b&gt;&amp;&quot;</td>")));
        QVERIFY(!html.contains(QStringLiteral("<b>&\"")));
        QVERIFY(html.contains(QStringLiteral("<h1>Tom &amp; &lt;Jerry&gt;</h1>")));
        QVERIFY(!html.contains(QStringLiteral("<Jerry>")));
    }
};

QTEST_GUILESS_MAIN(TestJourneyReport)
#include "tst_journeyreport.moc"
