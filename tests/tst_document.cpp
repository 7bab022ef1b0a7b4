// The journey document: configuration path, lookups, recomputations, sorting swaps, clears.

#include "stdoutcapture.h"

#include "data/wayferndata.h"
#include "storage/fixedtext.h"

#include <QtTest>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {
CurrData *addCurrency(WayFernData &doc, const QString &name, const QString &factor)
{
    CurrData *curr = doc.currencies.append();
    curr->short_ = name;
    curr->factor = factor;
    return curr;
}
} // namespace

class TestDocument : public QObject
{
    Q_OBJECT

private slots:
    void noEnvironmentVariablePrintsAndUsesCurrentDirectory();
    void emptyEnvironmentVariableUsesCurrentDirectory();
    void environmentVariableNamesConfigDirectory();
    void getEnvOfUnsetVariablePrintsAndReturnsNull();
    void configDefaults();
    void emptyCostsGiveNextCostIdOne();
    void nextCostIdIgnoresNegativeAndReusesFreedTop();
    void rebaseToFactorFourRescalesAllRates();
    void rebaseWithZeroFactorBaseChangesNothing();
    void rebaseWithUnknownBaseChangesNothing();
    void currencyWithZeroFactorCountsOneToOne();
    void fixedTextsReadAsQtsPrintfMakesThem();
    void printfFixedTextsReadAsCsPrintfMakesThem();
    void findCurrencyWithNullKeyRepeatsLastResult();
    void findCurrencyWithNullKeyAtStartIsNull();
    void findCurrencyWithNullKeyAfterListClearedIsNull();
    void findTipTypeWithNullKeyRepeatsLastResult();
    void equalShortNamesFindTheLaterRecord();
    void findAllKtoStopsAtFirstUserWithoutLine();
    void findAllKtoWithAllLinesAnswersTrue();
    void recalcCostMultipliesByInverse();
    void recalcCostKeepsRememberedCurrencyForSameType();
    void recalcCostAfterJourneyReplacedLooksUpAfresh();
    void recalcCostWithUnknownCurrencyLeavesAmounts();
    void recalcCostsRunningSumAddsUnroundedAmounts();
    void recomputationFollowsAnAmountChangedInPlaceOrReplaced();
    void recalcUsersSumsChanges();
    void swapCostsKeepsSharedWithPosition();
    void swapTipsExchangesCustoms();
    void clearAllEmptiesListsAndKeepsJourneyFields();
    void comboTextsInListOrder();
    void lifeCycleFrame();
};

void TestDocument::noEnvironmentVariablePrintsAndUsesCurrentDirectory()
{
    const QByteArray saved = qgetenv("WAYFERNCFG");
    qunsetenv("WAYFERNCFG");
    StdoutCapture out;
    WayFernConfig config;
    QCOMPARE(out.text(), QStringLiteral("\nWayFernData::getEnv(WAYFERNCFG) : not found"));
    QCOMPARE(config.cfgpath, QStringLiteral("."));
    if (!saved.isNull())
        qputenv("WAYFERNCFG", saved);
}

void TestDocument::emptyEnvironmentVariableUsesCurrentDirectory()
{
    const QByteArray saved = qgetenv("WAYFERNCFG");
    qputenv("WAYFERNCFG", "");
    StdoutCapture out;
    WayFernConfig config;
    QCOMPARE(out.text(), QString());
    QCOMPARE(config.cfgpath, QStringLiteral("."));
    if (saved.isNull())
        qunsetenv("WAYFERNCFG");
    else
        qputenv("WAYFERNCFG", saved);
}

void TestDocument::environmentVariableNamesConfigDirectory()
{
    const QByteArray saved = qgetenv("WAYFERNCFG");
    qputenv("WAYFERNCFG", "/etc/wayfern-test");
    WayFernData doc;
    QCOMPARE(doc.config.cfgpath, QStringLiteral("/etc/wayfern-test"));
    if (saved.isNull())
        qunsetenv("WAYFERNCFG");
    else
        qputenv("WAYFERNCFG", saved);
}

void TestDocument::getEnvOfUnsetVariablePrintsAndReturnsNull()
{
    WayFernConfig config;
    StdoutCapture out;
    const QString value = config.getEnv(QStringLiteral("WAYFERN_SURELY_UNSET_VARIABLE"));
    QCOMPARE(out.text(),
             QStringLiteral("\nWayFernData::getEnv(WAYFERN_SURELY_UNSET_VARIABLE) : not found"));
    QVERIFY(value.isNull());
}

void TestDocument::configDefaults()
{
    WayFernConfig config;
    QCOMPARE(config.width1, 240);
    QCOMPARE(config.height1, 320);
    QCOMPARE(config.width2, 240);
    QCOMPARE(config.height2, 210);
    QVERIFY(config.datapath.isNull());
    QVERIFY(config.last.isNull());
    QVERIFY(config.template_.isNull());
    QVERIFY(config.postfix.isNull());
    WayFernData doc;
    QCOMPARE(doc.userflag, false);
    QCOMPARE(doc.isModified(), false);
    QVERIFY(doc.journeyname.isNull());
}

void TestDocument::emptyCostsGiveNextCostIdOne()
{
    WayFernData doc;
    QCOMPARE(doc.nextCostId(), 1);
}

void TestDocument::nextCostIdIgnoresNegativeAndReusesFreedTop()
{
    WayFernData doc;
    doc.costs.append()->id = -128;
    doc.costs.append()->id = 3;
    CostsData *top = doc.costs.append();
    top->id = 7;
    QCOMPARE(doc.nextCostId(), 8);
    doc.costs.remove(top);
    QCOMPARE(doc.nextCostId(), 4);
}

void TestDocument::rebaseToFactorFourRescalesAllRates()
{
    WayFernData doc;
    CurrData *eur = addCurrency(doc, QStringLiteral("EUR"), QStringLiteral("1.0"));
    CurrData *pln = addCurrency(doc, QStringLiteral("PLN"), QStringLiteral("4.0"));
    CurrData *czk = addCurrency(doc, QStringLiteral("CZK"), QStringLiteral("3.0"));
    doc.recalcFactors();
    doc.basecurrency = QStringLiteral("PLN");
    doc.rebaseCurrencies();
    QCOMPARE(pln->factor, QStringLiteral("1.0000"));
    QCOMPARE(eur->factor, QStringLiteral("0.2500"));
    QCOMPARE(czk->factor, QStringLiteral("0.7500"));
    // The rounded texts are the new truth.
    QCOMPARE(eur->factorvalue, 0.25);
    QCOMPARE(eur->invfactor, 4.0);
    QCOMPARE(pln->invfactor, 1.0);
}

void TestDocument::rebaseWithZeroFactorBaseChangesNothing()
{
    WayFernData doc;
    CurrData *eur = addCurrency(doc, QStringLiteral("EUR"), QStringLiteral("1.0"));
    CurrData *odd = addCurrency(doc, QStringLiteral("ODD"), QStringLiteral("0"));
    CurrData *czk = addCurrency(doc, QStringLiteral("CZK"), QStringLiteral("3.0"));
    doc.recalcFactors();
    doc.basecurrency = QStringLiteral("ODD");
    doc.rebaseCurrencies();
    QCOMPARE(eur->factor, QStringLiteral("1.0"));
    QCOMPARE(odd->factor, QStringLiteral("0"));
    QCOMPARE(czk->factor, QStringLiteral("3.0"));
    QCOMPARE(czk->factorvalue, 3.0);
}

void TestDocument::rebaseWithUnknownBaseChangesNothing()
{
    WayFernData doc;
    CurrData *eur = addCurrency(doc, QStringLiteral("EUR"), QStringLiteral("2.5"));
    doc.recalcFactors();
    doc.basecurrency = QStringLiteral("USD");
    doc.rebaseCurrencies();
    QCOMPARE(eur->factor, QStringLiteral("2.5"));
}

void TestDocument::currencyWithZeroFactorCountsOneToOne()
{
    WayFernData doc;
    addCurrency(doc, QStringLiteral("ODD"), QStringLiteral("0"));
    CostsData *cost = doc.costs.append();
    cost->ctype = QStringLiteral("ODD");
    cost->fval = QStringLiteral("17.125");
    doc.recalcFactors();
    doc.recalcCosts();
    QCOMPARE(cost->bvalue, 17.125);
    QCOMPARE(cost->bval, QStringLiteral("17.13"));
}

void TestDocument::fixedTextsReadAsQtsPrintfMakesThem()
{
    // Amounts, sums, shares and percentages: ties, zeros of both signs, the edges of the
    // fast path and what is not finite, then numbers of every size, in cents, eighths,
    // thousandths and unrounded, with the two precisions the journey uses.
    QList<double> values{0.0,    -0.0,   0.005,   -0.005,  0.004999, 0.125, -0.125, 17.125,
                         2.675,  1.005,  1e15,    -1e15,   1e300,    -1e300, 0.375,  -0.875,
                         0.03125, -1e-9, qInf(),  -qInf(), qQNaN()};
    QRandomGenerator rng(20021124);
    for (int i = 0; i < 50000; ++i) {
        const double v = (rng.generateDouble() - 0.5) * std::pow(10.0, rng.bounded(-4, 17));
        values << v << std::round(v * 100) / 100 << std::round(v * 8) / 8
               << std::round(v * 32) / 32 << std::round(v * 1000) / 1000;
    }
    for (const double value : values) {
        for (const int precision : {0, 1, 2, 3, 4, 6}) {
            const QString expected = QString::asprintf("%.*f", precision, value);
            QString text = QStringLiteral("old");
            setFixedText(text, value, precision);
            if (fixedText(value, precision) != expected || text != expected)
                QFAIL(qPrintable(QString::asprintf("%.17g, %d: ", value, precision) + text));
        }
    }
}

// The account trace formats its figures as C's printf does, which rounds halves to even and
// keeps the sign of a negated zero: values on and beside halves, in every size.
void TestDocument::printfFixedTextsReadAsCsPrintfMakesThem()
{
    QList<double> values{0.0,     -0.0,   0.00005, -0.00005, 0.00015, 0.00025, -0.00001,
                         2.675,   1.005,  0.5,     1.5,      2.5,     -2.5,    1e15,
                         -1e15,   1e300,  5e-324,  -5e-324,  0.03125, 1e-9,    123456789.00005,
                         qInf(),  -qInf(), qQNaN()};
    QRandomGenerator rng(20261125);
    for (int i = 0; i < 50000; ++i) {
        const double v = (rng.generateDouble() - 0.5) * std::pow(10.0, rng.bounded(-6, 17));
        values << v << std::round(v * 100) / 100 << std::ldexp(std::round(std::ldexp(v, 5)), -5)
               << std::round(v * 10000) / 10000 << std::nextafter(std::round(v * 2e4) / 2e4, 0.0)
               << std::round(v * 2e4) / 2e4;
    }
    for (const double value : values) {
        for (const int precision : {0, 1, 2, 3, 4, 6}) {
            char expected[400];
            snprintf(expected, sizeof expected, "%.*f", precision, value);
            char text[64];
            const int length = printfFixedText(value, precision, text);
            // A text too long for the buffer is the caller's to format otherwise.
            if (length < 0 && strlen(expected) < sizeof text)
                QFAIL(qPrintable(QString::asprintf("%.17g, %d: no text", value, precision)));
            if (length >= 0 && QByteArray(text, length) != QByteArray(expected))
                QFAIL(qPrintable(QString::asprintf("%.17g, %d: ", value, precision)
                                 + QString::fromLatin1(text, length) + QStringLiteral(" for ")
                                 + QString::fromLatin1(expected)));
        }
    }
}

void TestDocument::findCurrencyWithNullKeyRepeatsLastResult()
{
    WayFernData doc;
    addCurrency(doc, QStringLiteral("EUR"), QStringLiteral("1"));
    CurrData *nok = addCurrency(doc, QStringLiteral("NOK"), QStringLiteral("8"));
    QCOMPARE(doc.findCurrency(QStringLiteral("NOK")), nok);
    QCOMPARE(doc.findCurrency(QString()), nok);
    // An empty key is no null key: it is looked up and found nowhere.
    QVERIFY(doc.findCurrency(QStringLiteral("")) == nullptr);
    QVERIFY(doc.findCurrency(QString()) == nullptr);
}

void TestDocument::findCurrencyWithNullKeyAtStartIsNull()
{
    WayFernData doc;
    addCurrency(doc, QStringLiteral("EUR"), QStringLiteral("1"));
    QVERIFY(doc.findCurrency(QString()) == nullptr);
}

void TestDocument::findCurrencyWithNullKeyAfterListClearedIsNull()
{
    WayFernData doc;
    addCurrency(doc, QStringLiteral("EUR"), QStringLiteral("1"));
    QVERIFY(doc.findCurrency(QStringLiteral("EUR")) != nullptr);
    doc.clearAll();
    QVERIFY(doc.findCurrency(QString()) == nullptr);
}

void TestDocument::findTipTypeWithNullKeyRepeatsLastResult()
{
    WayFernData doc;
    TTypeData *hotel = doc.ttypes.append();
    hotel->type = QStringLiteral("Hotel");
    doc.ttypes.append()->type = QStringLiteral("Camping");
    QVERIFY(doc.findTipType(QString()) == nullptr);
    QCOMPARE(doc.findTipType(QStringLiteral("Hotel")), hotel);
    QCOMPARE(doc.findTipType(QString()), hotel);
    doc.ttypes.remove(hotel);
    QVERIFY(doc.findTipType(QString()) == nullptr);
}

void TestDocument::equalShortNamesFindTheLaterRecord()
{
    WayFernData doc;
    addCurrency(doc, QStringLiteral("EUR"), QStringLiteral("1"));
    CurrData *later = addCurrency(doc, QStringLiteral("EUR"), QStringLiteral("2"));
    QCOMPARE(doc.findCurrency(QStringLiteral("EUR")), later);
    doc.users.append()->short_ = QStringLiteral("AB");
    UserData *laterUser = doc.users.append();
    laterUser->short_ = QStringLiteral("AB");
    QCOMPARE(doc.findUser(QStringLiteral("AB")), laterUser);
    QVERIFY(doc.findUser(QString()) == nullptr);
    doc.ttypes.append()->type = QStringLiteral("Hotel");
    TTypeData *laterType = doc.ttypes.append();
    laterType->type = QStringLiteral("Hotel");
    QCOMPARE(doc.findTipType(QStringLiteral("Hotel")), laterType);
    // The costs of that currency use the later rate.
    CostsData *cost = doc.costs.append();
    cost->ctype = QStringLiteral("EUR");
    cost->fval = QStringLiteral("10");
    doc.recalcFactors();
    doc.recalcCosts();
    QCOMPARE(cost->bval, QStringLiteral("5.00"));
}

void TestDocument::findAllKtoStopsAtFirstUserWithoutLine()
{
    WayFernData doc;
    UserData *first = doc.users.append();
    UserData *middle = doc.users.append();
    UserData *last = doc.users.append();
    for (UserData *user : doc.users)
        user->actukto = user->addKto(99);
    KtoData *firstOld = first->actukto;
    first->addKto(5);
    last->addKto(5);
    // The walk goes from the last user: `middle` has no line for 5.
    QCOMPARE(doc.findAllKto(5), false);
    QCOMPARE(last->actukto->magic, 5);
    QVERIFY(middle->actukto == nullptr);
    QCOMPARE(first->actukto, firstOld);
}

void TestDocument::findAllKtoWithAllLinesAnswersTrue()
{
    WayFernData doc;
    doc.users.append();
    doc.users.append();
    doc.addAllKto(3);
    for (UserData *user : doc.users)
        user->actukto = nullptr;
    QCOMPARE(doc.findAllKto(3), true);
    for (UserData *user : doc.users)
        QCOMPARE(user->actukto->magic, 3);
}

void TestDocument::recalcCostMultipliesByInverse()
{
    WayFernData doc;
    addCurrency(doc, QStringLiteral("NOK"), QStringLiteral("8.10"));
    CostsData cost;
    cost.fval = QStringLiteral("120.00");
    doc.recalcCost(&cost, QStringLiteral("NOK"));
    QCOMPARE(cost.fvalue, 120.0);
    // 120 * (1 / 8.1), not 120 / 8.1: the last digits differ.
    const double inverse = 1 / 8.1;
    QCOMPARE(cost.bvalue, 120.0 * inverse);
    QCOMPARE(cost.bval, QStringLiteral("14.81"));
}

void TestDocument::recalcCostKeepsRememberedCurrencyForSameType()
{
    WayFernData doc;
    CurrData *nok = addCurrency(doc, QStringLiteral("NOK"), QStringLiteral("8"));
    CostsData cost;
    cost.fval = QStringLiteral("16");
    doc.recalcCost(&cost, QStringLiteral("NOK"));
    QCOMPARE(cost.bval, QStringLiteral("2.00"));
    // The same type neither parses the rates again nor looks up again.
    nok->factor = QStringLiteral("4");
    doc.recalcCost(&cost, QStringLiteral("NOK"));
    QCOMPARE(cost.bval, QStringLiteral("2.00"));
    doc.recalcCost(&cost, QStringLiteral("EUR"));
    QCOMPARE(cost.bval, QStringLiteral("2.00"));
    doc.recalcCost(&cost, QStringLiteral("NOK"));
    QCOMPARE(cost.bval, QStringLiteral("4.00"));
}

void TestDocument::recalcCostAfterJourneyReplacedLooksUpAfresh()
{
    WayFernData doc;
    addCurrency(doc, QStringLiteral("NOK"), QStringLiteral("8"));
    CostsData cost;
    cost.fval = QStringLiteral("16");
    doc.recalcCost(&cost, QStringLiteral("NOK"));
    QCOMPARE(cost.bval, QStringLiteral("2.00"));
    // A new journey: the remembered currency is gone.
    doc.clearAll();
    addCurrency(doc, QStringLiteral("NOK"), QStringLiteral("2"));
    doc.recalcCost(&cost, QStringLiteral("NOK"));
    QCOMPARE(cost.bval, QStringLiteral("8.00"));
    // And when the new journey has no such currency, the amounts stay.
    doc.clearAll();
    cost.fval = QStringLiteral("1000");
    doc.recalcCost(&cost, QStringLiteral("NOK"));
    QCOMPARE(cost.bval, QStringLiteral("8.00"));
}

void TestDocument::recalcCostWithUnknownCurrencyLeavesAmounts()
{
    WayFernData doc;
    CostsData cost;
    cost.fval = QStringLiteral("5");
    cost.fvalue = 1.5;
    cost.bvalue = 2.5;
    cost.bval = QStringLiteral("2.50");
    doc.recalcCost(&cost, QStringLiteral("XYZ"));
    QCOMPARE(cost.fvalue, 1.5);
    QCOMPARE(cost.bvalue, 2.5);
    QCOMPARE(cost.bval, QStringLiteral("2.50"));
}

void TestDocument::recalcCostsRunningSumAddsUnroundedAmounts()
{
    WayFernData doc;
    addCurrency(doc, QStringLiteral("EUR"), QStringLiteral("1"));
    for (int i = 0; i < 3; ++i) {
        CostsData *cost = doc.costs.append();
        cost->ctype = QStringLiteral("EUR");
        cost->fval = QStringLiteral("0.004");
    }
    doc.recalcFactors();
    doc.recalcCosts();
    QCOMPARE(doc.costs.at(0)->bval, QStringLiteral("0.00"));
    QCOMPARE(doc.costs.at(2)->bval, QStringLiteral("0.00"));
    // 0.012 rounds to 0.01, though each shown amount is 0.00.
    QCOMPARE(doc.costs.at(2)->bsum, QStringLiteral("0.01"));
}

void TestDocument::recalcUsersSumsChanges()
{
    WayFernData doc;
    UserData *a = doc.users.append();
    UserData *b = doc.users.append();
    b->value = 77.0;
    a->value = 5.0;
    a->addKto(1)->change = -14.81;
    a->addKto(-2)->change = 100.0;
    a->addKto(-3)->change = -20.5;
    doc.recalcUsers();
    QCOMPARE(a->value, -14.81 + 100.0 - 20.5);
    QCOMPARE(b->value, 0.0);
}

void TestDocument::swapCostsKeepsSharedWithPosition()
{
    WayFernData doc;
    CurrData *eur = addCurrency(doc, QStringLiteral("EUR"), QStringLiteral("1"));
    CostsData *a = doc.costs.append();
    CostsData *b = doc.costs.append();
    a->date = QStringLiteral("02.01.2002");
    a->comment = QStringLiteral("first");
    a->id = 1;
    a->shared = true;
    a->fvalue = 1.0;
    a->curr = eur;
    b->date = QStringLiteral("01.01.2002");
    b->comment = QStringLiteral("second");
    b->id = 2;
    b->shared = false;
    b->fvalue = 2.0;
    doc.swapCosts(a, b);
    QCOMPARE(a->date, QStringLiteral("01.01.2002"));
    QCOMPARE(a->comment, QStringLiteral("second"));
    QCOMPARE(a->id, 2);
    QCOMPARE(a->fvalue, 2.0);
    QVERIFY(a->curr == nullptr);
    QCOMPARE(b->curr, eur);
    QCOMPARE(b->id, 1);
    QCOMPARE(a->shared, true);
    QCOMPARE(b->shared, false);
}

void TestDocument::swapTipsExchangesCustoms()
{
    WayFernData doc;
    TipData *a = doc.tips.append();
    TipData *b = doc.tips.append();
    a->name = QStringLiteral("Inn");
    a->customs.append()->text = QStringLiteral("Rooms");
    b->name = QStringLiteral("Camp");
    b->customs.append()->text = QStringLiteral("Pitch");
    b->customs.append()->text = QStringLiteral("Shower");
    doc.swapTips(a, b);
    QCOMPARE(a->name, QStringLiteral("Camp"));
    QCOMPARE(a->customs.count(), 2);
    QCOMPARE(a->customs.at(1)->text, QStringLiteral("Shower"));
    QCOMPARE(b->name, QStringLiteral("Inn"));
    QCOMPARE(b->customs.count(), 1);
    QCOMPARE(b->customs.at(0)->text, QStringLiteral("Rooms"));
}

void TestDocument::clearAllEmptiesListsAndKeepsJourneyFields()
{
    WayFernData doc;
    doc.journeyname = QStringLiteral("Trip");
    doc.basecurrency = QStringLiteral("EUR");
    doc.totaltext = QStringLiteral("1.00");
    doc.modified = true;
    doc.userflag = true;
    doc.users.append()->addKto(1);
    doc.costs.append();
    doc.tips.append()->customs.append();
    doc.currencies.append();
    doc.ctypes.append();
    doc.ttypes.append()->customs.append();
    doc.qtypes.append();
    doc.clearAll();
    QCOMPARE(doc.users.count(), 0);
    QCOMPARE(doc.costs.count(), 0);
    QCOMPARE(doc.tips.count(), 0);
    QCOMPARE(doc.currencies.count(), 0);
    QCOMPARE(doc.ctypes.count(), 0);
    QCOMPARE(doc.ttypes.count(), 0);
    QCOMPARE(doc.qtypes.count(), 0);
    QCOMPARE(doc.journeyname, QStringLiteral("Trip"));
    QCOMPARE(doc.basecurrency, QStringLiteral("EUR"));
    QCOMPARE(doc.totaltext, QStringLiteral("1.00"));
    QCOMPARE(doc.modified, true);
    QCOMPARE(doc.userflag, true);
}

void TestDocument::comboTextsInListOrder()
{
    WayFernData doc;
    doc.ctypes.append()->type = QStringLiteral("Food");
    doc.ctypes.append()->type = QStringLiteral("Hotel");
    addCurrency(doc, QStringLiteral("EUR"), QStringLiteral("1"));
    addCurrency(doc, QStringLiteral("NOK"), QStringLiteral("8"));
    doc.ttypes.append()->type = QStringLiteral("Camping");
    doc.qtypes.append()->type = QStringLiteral("good");
    doc.qtypes.append()->type = QStringLiteral("bad");
    QCOMPARE(doc.costTypeNames(), QStringList({QStringLiteral("Food"), QStringLiteral("Hotel")}));
    QCOMPARE(doc.currencyNames(), QStringList({QStringLiteral("EUR"), QStringLiteral("NOK")}));
    QCOMPARE(doc.tipTypeNames(), QStringList({QStringLiteral("Camping")}));
    QCOMPARE(doc.qualityTypeNames(), QStringList({QStringLiteral("good"), QStringLiteral("bad")}));
}

void TestDocument::lifeCycleFrame()
{
    WayFernData doc;
    QSignalSpy changed(&doc, &WayFernData::documentChanged);
    doc.newDoc();
    QVERIFY(doc.save());
    QVERIFY(doc.saveAs(QStringLiteral("x")));
    QCOMPARE(changed.count(), 0);
    QVERIFY(doc.load(QStringLiteral("x")));
    QCOMPARE(changed.count(), 1);
    doc.setModified(true);
    QVERIFY(doc.isModified());
}

// The recomputation keeps what it read of each amount beside the cost.
void TestDocument::recomputationFollowsAnAmountChangedInPlaceOrReplaced()
{
    WayFernData doc;
    addCurrency(doc, QStringLiteral("EUR"), QStringLiteral("2.0"));
    CostsData *cost = doc.costs.append();
    cost->ctype = QStringLiteral("EUR");
    cost->fval = QStringLiteral("10.00");
    doc.recalcFactors();
    doc.recalcCosts();
    QCOMPARE(cost->bval, QStringLiteral("5.00"));
    cost->fval[0] = u'3';
    doc.recalcCosts();
    QCOMPARE(cost->fvalue, 30.0);
    QCOMPARE(cost->bval, QStringLiteral("15.00"));
    cost->fval = QStringLiteral("7");
    doc.recalcCosts();
    QCOMPARE(cost->bval, QStringLiteral("3.50"));
    QCOMPARE(cost->bsum, QStringLiteral("3.50"));
    // A figure whose text something else replaced is written again, though it did not change.
    cost->bval = QStringLiteral("x");
    cost->bsum = QString();
    doc.recalcCosts();
    QCOMPARE(cost->bval, QStringLiteral("3.50"));
    QCOMPARE(cost->bsum, QStringLiteral("3.50"));
    // A figure of 0 is written into a text that was never written.
    CostsData *free = doc.costs.append();
    free->ctype = QStringLiteral("EUR");
    free->bval = QString();
    free->bsum = QString();
    doc.recalcCosts();
    QCOMPARE(free->bval, QStringLiteral("0.00"));
    QCOMPARE(free->bsum, QStringLiteral("3.50"));
    doc.costs.removeRange(1, 1);
    // A copy of the cost reads as the original until either changes.
    CostsData copy = *cost;
    copy.fval = QStringLiteral("1");
    *cost = copy;
    doc.recalcCosts();
    QCOMPARE(cost->bval, QStringLiteral("0.50"));
}

QTEST_GUILESS_MAIN(TestDocument)
#include "tst_document.moc"
