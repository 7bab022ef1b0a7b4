// The journey records: defaults, account lines, derived amounts and type letters.

#include "coretestutil.h"
#include "stdoutcapture.h"

#include "data/wayferndata.h"
#include "storage/wayfernio.h"

#include <QTemporaryDir>
#include <QtTest>

class TestRecords : public QObject
{
    Q_OBJECT

private slots:
    void costDefaults();
    void tipAndCurrencyDefaults();
    void userDefaultsAndAccountLines();
    void removeKtoOfNullDoesNothing();
    void userCopyKeepsItsOwnCurrentLine();
    void costWithUnknownCurrencyHasZeroBaseAndAddsNothing();
    void nonNumericForeignValueCountsAsZero();
    void zeroOrNonNumericFactorCountsOneToOne_data();
    void zeroOrNonNumericFactorCountsOneToOne();
    void deletingNeverSharedCostRemovesNoAccountLine();
    void deletingSharedCostRemovesItsLineFromEveryAccount();
    void lowerCaseTypeGivesEmptyLetter();
    void typeLetterIsFirstCapital_data();
    void typeLetterIsFirstCapital();
    void costWithoutIdKeepsDefaultAndNewCostGetsPositiveId();
    void isFloatingComparesWithTranslatedWord();
};

void TestRecords::costDefaults()
{
    CostsData cost;
    QCOMPARE(cost.id, -128);
    QCOMPARE(cost.shared, false);
    QVERIFY(cost.curr == nullptr);
    QVERIFY(cost.item == nullptr);
    QCOMPARE(cost.fvalue, 0.0);
    QCOMPARE(cost.bvalue, 0.0);
    QCOMPARE(cost.bsumvalue, 0.0);
    QCOMPARE(cost.exchangevalue, 0.0);
    // The texts of a cost start empty, not null.
    for (const QString *text : {&cost.date, &cost.type, &cost.typeletter, &cost.ctype, &cost.fval,
                                &cost.bval, &cost.comment, &cost.bsum, &cost.exchange}) {
        QVERIFY(!text->isNull());
        QVERIFY(text->isEmpty());
    }
}

void TestRecords::tipAndCurrencyDefaults()
{
    TipData tip;
    QVERIFY(tip.date.isNull());
    QVERIFY(tip.tiptype.isNull());
    QVERIFY(tip.customs.isEmpty());
    CurrData curr;
    QVERIFY(curr.short_.isNull());
    QVERIFY(curr.factor.isNull());
    QCOMPARE(curr.floating, QStringLiteral("floating"));
    QCOMPARE(curr.fix, QStringLiteral("fix"));
    TTypeData row;
    QVERIFY(row.type.isNull());
    QVERIFY(row.customs.isEmpty());
}

void TestRecords::userDefaultsAndAccountLines()
{
    UserData user;
    QCOMPARE(user.value, 0.0);
    QCOMPARE(user.count, 0);
    QVERIFY(user.actukto == nullptr);
    QCOMPARE(user.temp.magic, -1);

    KtoData *a = user.addKto(5);
    KtoData *b = user.addKto(7);
    KtoData *c = user.addKto(5);
    QCOMPARE(a->magic, 5);
    QCOMPARE(a->percentage, 0.0);
    QCOMPARE(a->change, 0.0);
    QCOMPARE(a->type, QStringLiteral(""));
    // addKto leaves the current line to its caller.
    QVERIFY(user.actukto == nullptr);
    // The walk goes from the last line: the later of two equal magics is found.
    QCOMPARE(user.findKto(5), c);
    QCOMPARE(user.findKto(7), b);
    QVERIFY(user.findKto(9) == nullptr);

    user.removeKto(c);
    QCOMPARE(user.kto.count(), 2);
    QCOMPARE(user.actukto, b);
    QCOMPARE(user.findKto(5), a);
    user.clearKto();
    QCOMPARE(user.kto.count(), 0);
    QVERIFY(user.actukto == nullptr);
}

void TestRecords::removeKtoOfNullDoesNothing()
{
    UserData user;
    KtoData *a = user.addKto(1);
    user.actukto = a;
    user.removeKto(nullptr);
    QCOMPARE(user.kto.count(), 1);
    QCOMPARE(user.actukto, a);
    user.removeKto(a);
    QVERIFY(user.actukto == nullptr);
}

void TestRecords::userCopyKeepsItsOwnCurrentLine()
{
    UserData user;
    user.short_ = QStringLiteral("AB");
    user.addKto(1);
    user.actukto = user.addKto(2);
    UserData copy = user;
    QCOMPARE(copy.short_, QStringLiteral("AB"));
    QCOMPARE(copy.kto.count(), 2);
    QVERIFY(copy.actukto != user.actukto);
    QCOMPARE(copy.actukto, copy.kto.at(1));
    QCOMPARE(copy.actukto->magic, 2);
}

void TestRecords::costWithUnknownCurrencyHasZeroBaseAndAddsNothing()
{
    WayFernData doc;
    CurrData *eur = doc.currencies.append();
    eur->short_ = QStringLiteral("EUR");
    eur->factor = QStringLiteral("1.0");
    CostsData *known = doc.costs.append();
    known->ctype = QStringLiteral("EUR");
    known->fval = QStringLiteral("10.5");
    CostsData *unknown = doc.costs.append();
    unknown->ctype = QStringLiteral("XYZ");
    unknown->fval = QStringLiteral("99");
    doc.recalcFactors();
    doc.recalcCosts();

    QCOMPARE(unknown->bvalue, 0.0);
    QCOMPARE(unknown->bval, QStringLiteral("0.0"));
    QVERIFY(unknown->curr == nullptr);
    QCOMPARE(unknown->fvalue, 99.0);
    QCOMPARE(unknown->bsum, QStringLiteral("10.50"));
    QCOMPARE(unknown->bsumvalue, 10.5);
    QCOMPARE(known->curr, eur);
    QCOMPARE(known->bval, QStringLiteral("10.50"));
}

void TestRecords::nonNumericForeignValueCountsAsZero()
{
    WayFernData doc;
    CurrData *eur = doc.currencies.append();
    eur->short_ = QStringLiteral("EUR");
    eur->factor = QStringLiteral("2");
    CostsData *cost = doc.costs.append();
    cost->ctype = QStringLiteral("EUR");
    cost->fval = QStringLiteral("twelve");
    doc.recalcFactors();
    doc.recalcCosts();
    QCOMPARE(cost->fvalue, 0.0);
    QCOMPARE(cost->bvalue, 0.0);
    QCOMPARE(cost->bval, QStringLiteral("0.00"));
    QCOMPARE(cost->bsum, QStringLiteral("0.00"));
}

void TestRecords::zeroOrNonNumericFactorCountsOneToOne_data()
{
    QTest::addColumn<QString>("factor");
    QTest::newRow("zero") << QStringLiteral("0");
    QTest::newRow("text") << QStringLiteral("abc");
    QTest::newRow("empty") << QStringLiteral("");
}

void TestRecords::zeroOrNonNumericFactorCountsOneToOne()
{
    QFETCH(QString, factor);
    WayFernData doc;
    CurrData *curr = doc.currencies.append();
    curr->short_ = QStringLiteral("ODD");
    curr->factor = factor;
    CostsData *cost = doc.costs.append();
    cost->ctype = QStringLiteral("ODD");
    cost->fval = QStringLiteral("42.25");
    doc.recalcFactors();
    QCOMPARE(curr->factorvalue, 0.0);
    QCOMPARE(curr->invfactor, 1.0);
    doc.recalcCosts();
    QCOMPARE(cost->bvalue, 42.25);
    QCOMPARE(cost->bval, QStringLiteral("42.25"));
}

void TestRecords::deletingNeverSharedCostRemovesNoAccountLine()
{
    WayFernData doc;
    for (const char *name : {"AB", "CD"}) {
        UserData *user = doc.users.append();
        user->short_ = QString::fromLatin1(name);
        user->addKto(1);
        user->addKto(-2);
    }
    CostsData *cost = doc.costs.append();
    cost->id = doc.nextCostId();
    QCOMPARE(cost->id, 1);
    CostsData *other = doc.costs.append();
    other->id = doc.nextCostId();
    QCOMPARE(other->id, 2);
    doc.removeAllKto(other->id);
    doc.costs.remove(other);
    for (const UserData *user : doc.users) {
        QCOMPARE(user->kto.count(), 2);
        QCOMPARE(user->kto.at(0)->magic, 1);
        QCOMPARE(user->kto.at(1)->magic, -2);
    }
}

void TestRecords::deletingSharedCostRemovesItsLineFromEveryAccount()
{
    WayFernData doc;
    for (int i = 0; i < 3; ++i)
        doc.users.append()->short_ = QString::number(i);
    doc.addAllKto(4);
    doc.addAllKto(5);
    for (const UserData *user : doc.users)
        QCOMPARE(user->actukto->magic, 5);
    doc.removeAllKto(4);
    for (const UserData *user : doc.users) {
        QCOMPARE(user->kto.count(), 1);
        QCOMPARE(user->kto.at(0)->magic, 5);
    }
}

void TestRecords::lowerCaseTypeGivesEmptyLetter()
{
    WayFernData doc;
    CostsData *cost = doc.costs.append();
    cost->type = QStringLiteral("hotel");
    cost->typeletter = QStringLiteral("x");
    doc.setCostLetters();
    QCOMPARE(cost->typeletter, QStringLiteral(""));
}

void TestRecords::typeLetterIsFirstCapital_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("letter");
    QTest::newRow("Hotel") << QStringLiteral("Hotel") << QStringLiteral("H");
    QTest::newRow("Hotel & Bar") << QStringLiteral("Hotel & Bar") << QStringLiteral("H");
    QTest::newRow("bus Fare") << QStringLiteral("bus Fare") << QStringLiteral("F");
    QTest::newRow("taxi") << QStringLiteral("taxi") << QStringLiteral("");
    QTest::newRow("empty") << QStringLiteral("") << QStringLiteral("");
    QTest::newRow("signs after Z") << QStringLiteral("a_b") << QStringLiteral("_");
    QTest::newRow("Latin-1 capital skipped") << QStringLiteral("\u00c4rger Zoll")
                                             << QStringLiteral("Z");
    QTest::newRow("outside Latin-1 skipped") << QStringLiteral("\u20ac fee Tax")
                                             << QStringLiteral("T");
    QTest::newRow("longer than any buffer")
        << (QString(5000, QLatin1Char('x')) + QStringLiteral("Q")) << QStringLiteral("Q");
}

void TestRecords::typeLetterIsFirstCapital()
{
    QFETCH(QString, type);
    QFETCH(QString, letter);
    WayFernData doc;
    CostsData *cost = doc.costs.append();
    cost->type = type;
    doc.setCostLetters();
    QCOMPARE(cost->typeletter, letter);
    // The pointer is never null and points at the end mark when there is no capital.
    const char *p = doc.firstCapital(type);
    QVERIFY(p != nullptr);
    QCOMPARE(QString::fromLatin1(p, *p ? 1 : 0), letter);
}

void TestRecords::costWithoutIdKeepsDefaultAndNewCostGetsPositiveId()
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("noid.wfn"));
    QVERIFY(writeBytes(path, "[Header]\nCOSTSCOUNT=1;\nCURRCOUNT=0;\nUSERCOUNT=0;\nTIPCOUNT=0;\n"
                             "CTYPECOUNT=0;\nTTYPECOUNT=0;\nQTYPECOUNT=0;\n\n"
                             "[COSTS_0]\nDATE=01.02.2003;\nFVAL=3;\n\n#end\n"));
    WayFernData doc;
    WayfernIO io(&doc);
    StdoutCapture out;
    QCOMPARE(io.ReadFile(path), 0);
    QCOMPARE(out.text(), QString());
    QCOMPARE(doc.costs.count(), 1);
    QCOMPARE(doc.costs.at(0)->id, -128);
    QCOMPARE(doc.nextCostId(), 1);
    CostsData *created = doc.costs.append();
    created->id = doc.nextCostId();
    QCOMPARE(created->id, 1);
    QCOMPARE(doc.nextCostId(), 2);
}

void TestRecords::isFloatingComparesWithTranslatedWord()
{
    CurrData curr;
    curr.type = QStringLiteral("floating");
    QVERIFY(curr.isFloating());
    curr.type = QStringLiteral("fix");
    QVERIFY(!curr.isFloating());
    // A file written under another language holds a word that equals neither.
    curr.type = QStringLiteral("flottant");
    QVERIFY(!curr.isFloating());
}

QTEST_GUILESS_MAIN(TestRecords)
#include "tst_records.moc"
