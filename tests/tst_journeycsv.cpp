// The costs and accounts of a journey as CSV files for spreadsheets.

#include "journeyfixture.h"

#include "data/journeycalc.h"
#include "data/wayferndata.h"
#include "export/journeycsv.h"
#include "storage/scqtutil.h"
#include "storage/wayfernio.h"

#include <QtTest>

#include <tuple>
#include <utility>

class TestJourneyCsv : public QObject
{
    Q_OBJECT

    bool readFixture(WayFernData &doc)
    {
        return readJourneyFixture(doc, QStringLiteral("check-journey.wfn"));
    }

private slots:
    void initTestCase() { qputenv("WAYFERNCFG", "."); }

    void theCostsOfAFixtureJourneyAreWrittenByteForByte()
    {
        WayFernData doc;
        QVERIFY(readFixture(doc));
        QCOMPARE(JourneyCsv::costs(doc), readBytes(fixture(QStringLiteral("check-costs.csv"))));
    }

    void theAccountsOfAFixtureJourneyAreWrittenByteForByte()
    {
        WayFernData doc;
        QVERIFY(readFixture(doc));
        QCOMPARE(JourneyCsv::accounts(doc),
                 readBytes(fixture(QStringLiteral("check-accounts.csv"))));
    }

    void aCommentWithACommaAQuoteAndALineBreakIsQuoted()
    {
        QCOMPARE(JourneyCsv::textField(QStringLiteral("Taxi, \"late\"\nride")),
                 QStringLiteral("\"Taxi, \"\"late\"\"\nride\""));
        QCOMPARE(JourneyCsv::textField(QStringLiteral("plain")), QStringLiteral("plain"));
        QCOMPARE(JourneyCsv::textField(QStringLiteral("a\rb")), QStringLiteral("\"a\rb\""));
    }

    void textThatASpreadsheetWouldRunGetsAnApostrophe()
    {
        QCOMPARE(JourneyCsv::textField(QStringLiteral("=SUM(A1:A9)")),
                 QStringLiteral("'=SUM(A1:A9)"));
        QCOMPARE(JourneyCsv::textField(QStringLiteral("+49 30 1234")),
                 QStringLiteral("'+49 30 1234"));
        QCOMPARE(JourneyCsv::textField(QStringLiteral("-bus")), QStringLiteral("'-bus"));
        QCOMPARE(JourneyCsv::textField(QStringLiteral("@home")), QStringLiteral("'@home"));
        // Guarded first, then quoted.
        QCOMPARE(JourneyCsv::textField(QStringLiteral("=A1,B1")), QStringLiteral("\"'=A1,B1\""));
        // Numbers are left alone, and so is a sign inside a text.
        QCOMPARE(JourneyCsv::textField(QStringLiteral("-12.30")), QStringLiteral("-12.30"));
        QCOMPARE(JourneyCsv::textField(QStringLiteral("+5")), QStringLiteral("+5"));
        QCOMPARE(JourneyCsv::textField(QStringLiteral("a=b")), QStringLiteral("a=b"));
    }

    void guardedAndQuotedTextsReachTheCostsFile()
    {
        WayFernData doc;
        UserData *user = doc.users.append();
        user->short_ = QStringLiteral("@me");
        CostsData *cost = doc.costs.append();
        cost->date = QStringLiteral("01.02.2003");
        cost->type = QStringLiteral("=cmd|'/c calc'!A0");
        cost->comment = QStringLiteral("Taxi, \"late\"\nride");
        cost->ctype = QStringLiteral("EUR");
        cost->fvalue = 12.5;
        cost->exchangevalue = 1.0;
        cost->bvalue = 12.5;
        cost->id = 4;
        cost->shared = true;
        KtoData *share = user->addKto(4);
        share->change = -12.5;
        doc.basecurrency = QStringLiteral("EUR");
        CurrData *euro = doc.currencies.append();
        euro->short_ = QStringLiteral("EUR");
        euro->factor = QStringLiteral("1.0");
        doc.recalcFactors();

        const QByteArray csv = JourneyCsv::costs(doc);
        QCOMPARE(csv,
                 QByteArray("date,type,comment,foreign value,currency,rate,base value,base "
                            "currency,shared,'@me,booked rate\r\n"
                            "01.02.2003,'=cmd|'/c calc'!A0,\"Taxi, \"\"late\"\"\nride\",12.50,"
                            "EUR,1.0000,12.50,EUR,yes,12.50,1.0000\r\n"));
    }

    void theRateIsTheAppliedOneAndTheBookedRateComesLast()
    {
        WayFernData doc;
        doc.basecurrency = QStringLiteral("EUR");
        const std::pair<const char *, const char *> factors[] = {
            {"EUR", "1.0"}, {"CHF", "1.5"}, {"NOK", "8.0"}};
        for (const auto &[name, factor] : factors) {
            CurrData *currency = doc.currencies.append();
            currency->short_ = QString::fromLatin1(name);
            currency->factor = QString::fromLatin1(factor);
        }
        doc.recalcFactors();
        // Booked at other rates than the currencies' present ones: the base values follow
        // the currencies, and so does the rate column.
        const std::tuple<const char *, const char *, double> booked[] = {
            {"CHF", "36.00", 1.0}, {"NOK", "80", 10.0}, {"EUR", "12.5", 2.0}, {"XYZ", "7", 3.0}};
        for (const auto &[ctype, fval, exchange] : booked) {
            CostsData *cost = doc.costs.append();
            cost->ctype = QString::fromLatin1(ctype);
            cost->fval = QString::fromLatin1(fval);
            cost->exchangevalue = exchange;
        }
        doc.recalcCosts();

        const QList<QByteArray> lines = JourneyCsv::costs(doc).split('\n');
        QCOMPARE(lines.size(), 6);
        QCOMPARE(lines.at(0),
                 QByteArray("date,type,comment,foreign value,currency,rate,base value,base "
                            "currency,shared,booked rate\r"));
        QCOMPARE(lines.at(1), QByteArray(",,,36.00,CHF,1.5000,24.00,EUR,no,1.0000\r"));
        QCOMPARE(lines.at(2), QByteArray(",,,80.00,NOK,8.0000,10.00,EUR,no,10.0000\r"));
        QCOMPARE(lines.at(3), QByteArray(",,,12.50,EUR,1.0000,12.50,EUR,no,2.0000\r"));
        // A currency that the journey does not know applies no rate.
        QCOMPARE(lines.at(4), QByteArray(",,,7.00,XYZ,,0.00,EUR,no,3.0000\r"));
        QCOMPARE(lines.at(5), QByteArray());
    }

    void aShareOfNothingIsWrittenWithoutASign()
    {
        WayFernData doc;
        UserData *user = doc.users.append();
        user->short_ = QStringLiteral("AN");
        CostsData *cost = doc.costs.append();
        cost->id = 1;
        user->addKto(1)->change = 0.0; // a traveller who takes no part
        user->addKto(-3)->change = -0.001;
        QCOMPARE(JourneyCsv::costs(doc).split('\n').at(1),
                 QByteArray(",,,0.00,,,0.00,,yes,0.00,0.0000\r"));
        QVERIFY(JourneyCsv::accounts(doc).endsWith(",0.00,0.00\r\n"));
        QVERIFY(!JourneyCsv::accounts(doc).contains("-0.00"));
    }

    void textOutsideLatin1IsWrittenAsUtf8()
    {
        WayFernData doc;
        UserData *user = doc.users.append();
        user->short_ = QStringLiteral("Zoë");
        KtoData *line = user->addKto(-2);
        line->type = QStringLiteral("deposit");
        line->date = QStringLiteral("01.02.2003");
        line->change = 10.0;
        QCOMPARE(JourneyCsv::accounts(doc),
                 QByteArray("traveller,date,type,change,running total\r\n"
                            "Zo\xc3\xab,01.02.2003,deposit,10.00,10.00\r\n"));
    }

    void theAccountsFileStandsBesideTheCostsFile()
    {
        QCOMPARE(JourneyCsv::accountsPathFor(QStringLiteral("/x/trip.csv")),
                 QStringLiteral("/x/trip-accounts.csv"));
        QCOMPARE(JourneyCsv::accountsPathFor(QStringLiteral("/x/trip.CSV")),
                 QStringLiteral("/x/trip-accounts.csv"));
        QCOMPARE(JourneyCsv::accountsPathFor(QStringLiteral("trip")),
                 QStringLiteral("trip-accounts.csv"));
    }
};

QTEST_GUILESS_MAIN(TestJourneyCsv)
#include "tst_journeycsv.moc"
