// The journey records: defaults, account lines, derived amounts, type letters, and that
// every field survives each copy, exchange and date sort of a record.

#include "coretestutil.h"
#include "stdoutcapture.h"

#include "data/journeycalc.h"
#include "data/wayferndata.h"
#include "storage/wayfernio.h"

#include <QMap>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>

namespace {

// Every field of a record as "name=value" lines, in declared order, so that two records
// compare field by field and a failure names the field. Pointers that never own are
// compared by address, owned lists and embedded records by their contents.
using Fields = QStringList;

// Each record's fields are listed once, below, and both filled and read through that list.
#define RECORD_FIELDS(Type, ...)                                                                   \
    template <typename F>                                                                          \
    auto withFields(Type &r, F f)                                                                  \
    {                                                                                              \
        return f(#__VA_ARGS__, __VA_ARGS__);                                                       \
    }                                                                                              \
    template <typename F>                                                                          \
    auto withFields(const Type &r, F f)                                                            \
    {                                                                                              \
        return f(#__VA_ARGS__, __VA_ARGS__);                                                       \
    }

RECORD_FIELDS(KtoData, r.magic, r.percentage, r.change, r.date, r.type)
RECORD_FIELDS(CustomData, r.text, r.content)
RECORD_FIELDS(CostsData, r.date, r.type, r.typeletter, r.ctype, r.fval, r.bval, r.comment, r.bsum,
              r.exchange, r.fvalue, r.bvalue, r.bsumvalue, r.exchangevalue, r.id, r.shared, r.curr)
RECORD_FIELDS(TipData, r.date, r.name, r.street, r.pcode, r.town, r.tel, r.fax, r.email, r.www,
              r.tiptype, r.typeletter, r.qualitytype, r.comment, r.customs)
// `actukto` points into `kto`; it is compared and set on its own (fieldsOf, fill).
RECORD_FIELDS(UserData, r.date, r.short_, r.name, r.firstname, r.street, r.pcode, r.town, r.tel,
              r.fax, r.email, r.www, r.bank, r.blz, r.acount, r.value, r.count, r.kto, r.temp)
RECORD_FIELDS(CurrData, r.short_, r.factor, r.fullname, r.type, r.floating, r.fix, r.factorvalue,
              r.invfactor)
RECORD_FIELDS(TTypeData, r.type, r.customs)

QString asText(const QString &value)
{
    return value;
}

QString asText(double value)
{
    return QString::number(value, 'g', 17);
}

QString asText(int value)
{
    return QString::number(value);
}

QString asText(bool value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

template <typename T>
QString asText(T *pointer)
{
    return QStringLiteral("0x") + QString::number(quintptr(pointer), 16);
}

template <typename Record>
Fields fieldsOf(const Record &record);

// Embedded records and owned lists read as their fields in braces.
template <typename Record>
QString asText(const Record &record)
{
    return QLatin1Char('{') + fieldsOf(record).join(QStringLiteral(", ")) + QLatin1Char('}');
}

template <typename Record>
QString asText(const RecordList<Record> &list)
{
    QStringList records;
    for (const Record *record : list)
        records << asText(*record);
    return QLatin1Char('[') + records.join(QStringLiteral(", ")) + QLatin1Char(']');
}

// Names the values of a record's field list: "r.date, r.type" gives date= and type=.
struct NameFields
{
    template <typename... Values>
    Fields operator()(const char *names, const Values &...values) const
    {
        Fields fields = QString::fromLatin1(names).split(QStringLiteral(", "));
        const QStringList texts{asText(values)...};
        for (qsizetype i = 0; i < fields.size(); ++i)
            fields[i] = fields.at(i).mid(2) + QLatin1Char('=') + texts.at(i);
        return fields;
    }
};

template <typename Record>
Fields fieldsOf(const Record &record)
{
    return withFields(record, NameFields());
}

Fields fieldsOf(const UserData &user)
{
    const int current = user.kto.indexOf(user.actukto);
    return withFields(user, NameFields()) << QStringLiteral("actukto=")
        + (user.actukto == nullptr ? QStringLiteral("null")
               : current < 0       ? QStringLiteral("a line of another account")
                                   : QStringLiteral("line %1").arg(current));
}

// Fillers: field number `index` of a record filled with `seed` differs from its default
// and from the same field under another seed (see everyFillerSetsEveryFieldApart), and
// texts differ from field to field. `shared` is true for odd seeds only.
void fillField(QString &text, int seed, int index)
{
    text = QStringLiteral("text %1 of %2").arg(index).arg(seed);
}

void fillField(double &value, int seed, int index)
{
    value = 1.5 * seed + index;
}

void fillField(int &value, int seed, int index)
{
    value = 100 * seed + index;
}

void fillField(bool &value, int seed, int)
{
    value = seed % 2 == 1;
}

template <typename T>
void fillField(T *&pointer, int seed, int index)
{
    // Never followed: copies and exchanges only carry these.
    pointer = reinterpret_cast<T *>(quintptr(0x10000 * (index + 1) + 0x10 * seed));
}

template <typename Record>
void fill(Record &record, int seed);

template <typename Record>
void fillField(Record &record, int seed, int index)
{
    fill(record, 10 * seed + index);
}

// A different number of records for each seed, each with its own values.
template <typename Record>
void fillField(RecordList<Record> &list, int seed, int index)
{
    list.clear();
    for (int i = 0; i < seed + 2; ++i)
        fill(*list.append(), 100 * seed + 10 * index + i);
}

// Fills the fields of a record's field list, each by its number in the list.
struct FillFields
{
    int seed;
    template <typename... Members>
    void operator()(const char *, Members &...fields) const
    {
        int index = 0;
        (fillField(fields, seed, index++), ...);
    }
};

template <typename Record>
void fill(Record &record, int seed)
{
    withFields(record, FillFields{seed});
}

template <>
void fill(UserData &user, int seed)
{
    withFields(user, FillFields{seed});
    // A line in the middle, another for each seed: the first and the last would also be
    // found by other means.
    user.actukto = user.kto.at(seed);
}

template <typename Record>
Fields filledFields(int seed)
{
    Record record;
    fill(record, seed);
    return fieldsOf(record);
}

// The lines of `actual` that are not those of `expected`, for the failure message.
QString differences(const Fields &actual, const Fields &expected)
{
    QStringList lines;
    for (qsizetype i = 0; i < std::max(actual.size(), expected.size()); ++i) {
        const QString a = actual.value(i, QStringLiteral("(none)"));
        const QString e = expected.value(i, QStringLiteral("(none)"));
        if (a != e)
            lines << QStringLiteral("%1, expected %2").arg(a, e);
    }
    return lines.join(QStringLiteral("; "));
}

// The fields that `a` and `b` hold alike, by name; fields only one of them has differ.
QStringList sameFields(const Fields &a, const Fields &b)
{
    QMap<QString, QString> byName;
    for (const QString &field : b)
        byName.insert(field.section(QLatin1Char('='), 0, 0), field);
    QStringList same;
    for (const QString &field : a)
        if (byName.value(field.section(QLatin1Char('='), 0, 0)) == field)
            same << field;
    return same;
}

} // namespace

#define COMPARE_FIELDS(actual, expected)                                                           \
    do {                                                                                           \
        const Fields actualFields = (actual);                                                      \
        const Fields expectedFields = (expected);                                                  \
        QVERIFY2(actualFields == expectedFields,                                                   \
                 qPrintable(differences(actualFields, expectedFields)));                           \
    } while (false)

namespace {

template <typename Record>
void checkFillerSetsEveryFieldApart()
{
    const Fields one = filledFields<Record>(1);
    const QStringList likeDefault = sameFields(one, fieldsOf(Record()));
    QVERIFY2(likeDefault.isEmpty(), qPrintable(likeDefault.join(QStringLiteral("; "))));
    const QStringList likeOtherSeed = sameFields(one, filledFields<Record>(2));
    QVERIFY2(likeOtherSeed.isEmpty(), qPrintable(likeOtherSeed.join(QStringLiteral("; "))));
}

// The copy constructor and the assignment onto a record of other values take every field;
// the original stays as it was, also when the copy changes or drops what it owns.
template <typename Record>
void checkCopiesTakeEveryField()
{
    Record record;
    fill(record, 1);
    Record copy(record);
    COMPARE_FIELDS(fieldsOf(copy), filledFields<Record>(1));
    Record target;
    fill(target, 2);
    target = record;
    COMPARE_FIELDS(fieldsOf(target), filledFields<Record>(1));
    fill(target, 3);
    copy = Record();
    COMPARE_FIELDS(fieldsOf(record), filledFields<Record>(1));
}

// What stays with the list position when the contents of records move: the shared flag of
// a cost; a tip moves whole.
void keepPosition(CostsData &expected, const CostsData &original)
{
    expected.shared = original.shared;
}

void keepPosition(TipData &, const TipData &) {}

// What position `at` (0 on) of a list filled with seeds 1, 2, ... holds after its contents
// took those that stood at position `from`: `dates` replace the fillers' dates when given.
template <typename Record>
Fields movedFields(int from, int at, const QStringList &dates = {})
{
    Record original;
    fill(original, at + 1);
    Record expected;
    fill(expected, from + 1);
    if (!dates.isEmpty())
        expected.date = dates.at(from);
    keepPosition(expected, original);
    return fieldsOf(expected);
}

template <typename Record, typename Exchange>
void checkExchangeMovesEveryFieldButPosition(RecordList<Record> &list, Exchange exchange)
{
    Record *a = list.append();
    Record *b = list.append();
    fill(*a, 1);
    fill(*b, 2);
    exchange(a, b);
    COMPARE_FIELDS(fieldsOf(*a), movedFields<Record>(1, 0));
    COMPARE_FIELDS(fieldsOf(*b), movedFields<Record>(0, 1));
    // The records themselves keep their places in the list.
    QCOMPARE(list.at(0), a);
    QCOMPARE(list.at(1), b);
}

// Four records in falling date order: the sort turns the list around, and every record
// lands where the shared flag differs from its own.
template <typename Record, typename Sort>
void checkDateSortMovesEveryFieldButPosition(RecordList<Record> &list, Sort sort)
{
    const QStringList dates{QStringLiteral("04.01.2002"), QStringLiteral("03.01.2002"),
                            QStringLiteral("02.01.2002"), QStringLiteral("01.01.2002")};
    const int n = int(dates.size());
    for (int i = 0; i < n; ++i) {
        Record *record = list.append();
        fill(*record, i + 1);
        record->date = dates.at(i);
    }
    sort();
    for (int at = 0; at < n; ++at)
        COMPARE_FIELDS(fieldsOf(*list.at(at)), movedFields<Record>(n - 1 - at, at, dates));
}

} // namespace

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

    void everyFillerSetsEveryFieldApart();
    void userCopyConstructorTakesEveryField();
    void userAssignmentReplacesEveryField();
    void userSelfAssignmentChangesNothing();
    void costCopyTakesEveryField();
    void tipCopyTakesEveryFieldAndOwnsItsCustomFields();
    void accountLineCopyTakesEveryField();
    void currencyCopyTakesEveryField();
    void tipTypeCopyTakesEveryFieldAndOwnsItsCustomFields();
    void swapCostsExchangesEveryFieldButSharedAndItem();
    void swapTipsExchangesEveryFieldButItem();
    void dateSortOfCostsMovesEveryFieldButSharedAndItem();
    void dateSortOfTipsMovesEveryFieldButItem();
    void dateSortOfLongCyclesLeavesWhatPairwiseExchangesLeave();
    void dateSortFollowsADateChangedInPlace();
    void dateSortGivesAnEmptyDateThePartsReadBeforeOnEverySort();
    void categorySumsGoByTheTextWhetherTheStringIsSharedCopiedOrEdited();
};

void TestRecords::costDefaults()
{
    CostsData cost;
    QCOMPARE(cost.id, -128);
    QCOMPARE(cost.shared, false);
    QVERIFY(cost.curr == nullptr);
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
    QTest::newRow("Latin-1 capital skipped")
        << QStringLiteral("\u00c4rger Zoll") << QStringLiteral("Z");
    QTest::newRow("outside Latin-1 skipped")
        << QStringLiteral("\u20ac fee Tax") << QStringLiteral("T");
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
    QVERIFY(writeBytes(path,
                       "[Header]\nCOSTSCOUNT=1;\nCURRCOUNT=0;\nUSERCOUNT=0;\nTIPCOUNT=0;\n"
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

// The tests below rest on the fillers: a field that a filler leaves at its default, or sets
// alike for two seeds, could not show that a copy or an exchange lost it.
void TestRecords::everyFillerSetsEveryFieldApart()
{
    checkFillerSetsEveryFieldApart<CostsData>();
    checkFillerSetsEveryFieldApart<TipData>();
    checkFillerSetsEveryFieldApart<UserData>();
    checkFillerSetsEveryFieldApart<KtoData>();
    checkFillerSetsEveryFieldApart<CurrData>();
    checkFillerSetsEveryFieldApart<TTypeData>();
    // The account lines of one user differ from each other too.
    UserData user;
    fill(user, 1);
    QVERIFY(sameFields(fieldsOf(*user.kto.at(0)), fieldsOf(*user.kto.at(1))).isEmpty());
}

void TestRecords::userCopyConstructorTakesEveryField()
{
    UserData user;
    fill(user, 1);
    const UserData copy(user);
    COMPARE_FIELDS(fieldsOf(copy), filledFields<UserData>(1));
    // The copy's account is its own, and so is its current line.
    QVERIFY(copy.kto.at(0) != user.kto.at(0));
    QCOMPARE(copy.actukto, copy.kto.at(1));
    COMPARE_FIELDS(fieldsOf(user), filledFields<UserData>(1));
}

void TestRecords::userAssignmentReplacesEveryField()
{
    UserData user;
    fill(user, 1);
    UserData target;
    fill(target, 2);
    target = user;
    COMPARE_FIELDS(fieldsOf(target), filledFields<UserData>(1));
    QVERIFY(target.kto.at(0) != user.kto.at(0));
    QCOMPARE(target.actukto, target.kto.at(1));

    // No current line in the source gives none in the target.
    user.actukto = nullptr;
    target = user;
    QVERIFY(target.actukto == nullptr);
}

void TestRecords::userSelfAssignmentChangesNothing()
{
    UserData user;
    fill(user, 1);
    KtoData *current = user.actukto;
    const UserData &same = user;
    user = same;
    COMPARE_FIELDS(fieldsOf(user), filledFields<UserData>(1));
    QCOMPARE(user.actukto, current);
}

void TestRecords::costCopyTakesEveryField()
{
    checkCopiesTakeEveryField<CostsData>();
}

void TestRecords::tipCopyTakesEveryFieldAndOwnsItsCustomFields()
{
    checkCopiesTakeEveryField<TipData>();
}

void TestRecords::accountLineCopyTakesEveryField()
{
    checkCopiesTakeEveryField<KtoData>();
}

void TestRecords::currencyCopyTakesEveryField()
{
    checkCopiesTakeEveryField<CurrData>();
}

void TestRecords::tipTypeCopyTakesEveryFieldAndOwnsItsCustomFields()
{
    checkCopiesTakeEveryField<TTypeData>();
}

void TestRecords::swapCostsExchangesEveryFieldButSharedAndItem()
{
    WayFernData doc;
    checkExchangeMovesEveryFieldButPosition(
        doc.costs, [&doc](CostsData *a, CostsData *b) { doc.swapCosts(a, b); });
}

void TestRecords::swapTipsExchangesEveryFieldButItem()
{
    WayFernData doc;
    checkExchangeMovesEveryFieldButPosition(doc.tips,
                                            [&doc](TipData *a, TipData *b) { doc.swapTips(a, b); });
}

void TestRecords::dateSortOfCostsMovesEveryFieldButSharedAndItem()
{
    WayFernData doc;
    checkDateSortMovesEveryFieldButPosition(doc.costs, [&doc] {
        DateParts last;
        JourneyCalc::sortCosts(doc, last);
    });
}

void TestRecords::dateSortOfTipsMovesEveryFieldButItem()
{
    WayFernData doc;
    checkDateSortMovesEveryFieldButPosition(doc.tips, [&doc] {
        DateParts last;
        JourneyCalc::sortTips(doc, last);
    });
}

namespace {
QStringList costDates(const WayFernData &doc)
{
    QStringList dates;
    for (const CostsData *cost : doc.costs)
        dates << cost->date + u'/' + cost->comment;
    return dates;
}
} // namespace

// The sort moves contents along the cycles of its order; the result must be what stable
// pairwise exchanges give, every field moved but the position's own, on orders with long
// cycles and days shared by several records.
void TestRecords::dateSortOfLongCyclesLeavesWhatPairwiseExchangesLeave()
{
    QRandomGenerator random(2026);
    for (int round = 0; round < 20; ++round) {
        WayFernData sorted;
        WayFernData exchanged;
        const int n = 1 + int(random.bounded(60));
        for (int i = 0; i < n; ++i) {
            const QString date = QString::asprintf("%02d.01.2002", 1 + int(random.bounded(9)));
            for (WayFernData *doc : {&sorted, &exchanged}) {
                CostsData *cost = doc->costs.append();
                fill(*cost, i + 1);
                cost->date = date;
                cost->shared = random.bounded(2) == 1;
            }
            exchanged.costs.at(i)->shared = sorted.costs.at(i)->shared;
        }
        DateParts last;
        JourneyCalc::sortCosts(sorted, last);
        // Stable: a record passes only a later day.
        for (int end = n - 1; end > 0; --end)
            for (int i = 0; i < end; ++i) {
                CostsData *a = exchanged.costs.at(i);
                CostsData *b = exchanged.costs.at(i + 1);
                if (JourneyCalc::dateKey(b->date, last) < JourneyCalc::dateKey(a->date, last))
                    exchanged.swapCosts(a, b);
            }
        for (int i = 0; i < n; ++i)
            COMPARE_FIELDS(fieldsOf(*sorted.costs.at(i)), fieldsOf(*exchanged.costs.at(i)));
    }
}

// The sort keeps what it read of each date beside the cost; a date edited in place, or
// replaced, must be read again.
void TestRecords::dateSortFollowsADateChangedInPlace()
{
    WayFernData doc;
    for (const char *date : {"01.05.2026", "02.05.2026", "03.05.2026"}) {
        CostsData *cost = doc.costs.append();
        cost->date = QString::fromLatin1(date);
        cost->comment = QString::fromLatin1(date).left(2);
    }
    DateParts last;
    JourneyCalc::sortCosts(doc, last);
    QCOMPARE(costDates(doc),
             QStringList({QStringLiteral("01.05.2026/01"), QStringLiteral("02.05.2026/02"),
                          QStringLiteral("03.05.2026/03")}));
    doc.costs.at(0)->date[1] = u'9'; // 09.05.2026
    JourneyCalc::sortCosts(doc, last);
    QCOMPARE(costDates(doc),
             QStringList({QStringLiteral("02.05.2026/02"), QStringLiteral("03.05.2026/03"),
                          QStringLiteral("09.05.2026/01")}));
    doc.costs.at(2)->date = QStringLiteral("01.01.2026");
    JourneyCalc::sortCosts(doc, last);
    QCOMPARE(costDates(doc).first(), QStringLiteral("01.01.2026/01"));
    // The keys are read before the records move: the last one read stood last.
    QCOMPARE(last.day, 1);
    QCOMPARE(last.month, 1);
}

// An empty date orders as the date read before it; a second sort, which reads no written
// date again, must order and leave `last` exactly as the first.
void TestRecords::dateSortGivesAnEmptyDateThePartsReadBeforeOnEverySort()
{
    WayFernData doc;
    const QStringList dates = {QStringLiteral("05.05.2026"), QString(),
                               QStringLiteral("04.05.2026"), QString(),
                               QStringLiteral("06.05.2026")};
    for (qsizetype i = 0; i < dates.size(); ++i) {
        CostsData *cost = doc.costs.append();
        cost->date = dates.at(i);
        cost->comment = QString::number(i);
    }
    QStringList orders;
    for (int round = 0; round < 3; ++round) {
        // Back to the first order each round, the readings going with their costs.
        for (int i = 0; i < doc.costs.count(); ++i)
            for (int j = i + 1; j < doc.costs.count(); ++j)
                if (doc.costs.at(j)->comment.toInt() == i)
                    exchangeContents(*doc.costs.at(i), *doc.costs.at(j));
        DateParts last;
        JourneyCalc::sortCosts(doc, last);
        orders << costDates(doc).join(u' ');
        QCOMPARE(last.day, 6);
        QCOMPARE(last.year, 2026);
    }
    QCOMPARE(orders.at(0), QStringLiteral("04.05.2026/2 /3 05.05.2026/0 /1 06.05.2026/4"));
    QCOMPARE(orders.at(1), orders.at(0));
    QCOMPARE(orders.at(2), orders.at(0));
}

// The category sums find a cost's row through its type string's characters first: a
// shared string, a copy of the same text, one edited in place after sharing, a type without
// a row and an empty type must all count as their text says.
void TestRecords::categorySumsGoByTheTextWhetherTheStringIsSharedCopiedOrEdited()
{
    WayFernData doc;
    for (const char *type : {"Food", "Hotel", ""}) {
        CTypeData *row = doc.ctypes.append();
        row->type = QString::fromLatin1(type);
    }
    const QString food = QStringLiteral("Food");
    const auto add = [&](const QString &type, double value) {
        CostsData *cost = doc.costs.append();
        cost->type = type;
        cost->bvalue = value;
        return cost;
    };
    add(food, 1);
    add(food, 2);
    add(QString::fromLatin1("Food"), 4);  // the same text, a string of its own
    add(food, 8)->type.detach();          // a copy made from the shared one
    add(food, 16)->type[0] = u'H';        // "Hood": no row
    add(QStringLiteral("Hotel"), 32);
    add(QString(), 64);                   // null reads as the empty type
    add(QStringLiteral(""), 128);
    add(food.left(2), 256);               // "Fo": no row
    QCOMPARE(JourneyCalc::categorySums(doc), QList<double>({15.0, 32.0, 192.0}));
    // The string whose characters the first look-up remembered now reads otherwise.
    doc.costs.at(0)->type[0] = u'G';
    doc.costs.at(1)->type = QStringLiteral("Hotel");
    QCOMPARE(JourneyCalc::categorySums(doc), QList<double>({12.0, 34.0, 192.0}));
}

QTEST_GUILESS_MAIN(TestRecords)
#include "tst_records.moc"
