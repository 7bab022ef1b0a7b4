// Dates, types and currency names are shared through a small cache while a journey is read.
// Texts that meet in one slot of that cache must still read back as themselves, in every
// field that goes through it and on a journey large enough to fill it many times over.

#include "stdoutcapture.h"

#include "data/wayferndata.h"
#include "storage/recordstream.h"
#include "storage/wayfernio.h"

#include <QRandomGenerator>
#include <QSet>
#include <QTemporaryDir>
#include <QtTest>

#include <functional>

namespace {

size_t slotOf(QStringView text)
{
    return RecordStream::hashText(text) % WayfernIO::sharedSlots;
}

// `count` texts made by `make` from 0, 1, 2, ... that land in the slot of `like`, `like`
// first. The cache skips texts longer than 32 characters, so none is.
QStringList collidingWith(const QString &like, int count, const std::function<QString(int)> &make)
{
    QStringList texts{like};
    const size_t slot = slotOf(like);
    for (int i = 0; texts.size() < count && i < 50 * int(WayfernIO::sharedSlots) * count; ++i) {
        const QString text = make(i);
        if (text.size() <= 32 && slotOf(text) == slot && !texts.contains(text))
            texts.append(text);
    }
    return texts;
}

QString dateText(int i)
{
    return QString::asprintf("%02d.%02d.%04d", i % 28 + 1, i / 28 % 12 + 1, 1900 + i / 336);
}

// Every field that the reader takes through the cache, as a place in a document: record i
// of its group (account lines are those of the first traveller).
struct CachedField
{
    const char *name;
    std::function<QString &(WayFernData &, qsizetype)> at;
};

const QList<CachedField> &cachedFields()
{
    static const QList<CachedField> fields = {
        {"cost type",
         [](WayFernData &d, qsizetype i) -> QString & { return d.ctypes.at(i)->type; }},
        {"tip type", [](WayFernData &d, qsizetype i) -> QString & { return d.ttypes.at(i)->type; }},
        {"quality type",
         [](WayFernData &d, qsizetype i) -> QString & { return d.qtypes.at(i)->type; }},
        {"cost date", [](WayFernData &d, qsizetype i) -> QString & { return d.costs.at(i)->date; }},
        {"cost's type",
         [](WayFernData &d, qsizetype i) -> QString & { return d.costs.at(i)->type; }},
        {"cost currency",
         [](WayFernData &d, qsizetype i) -> QString & { return d.costs.at(i)->ctype; }},
        {"cost exchange",
         [](WayFernData &d, qsizetype i) -> QString & { return d.costs.at(i)->exchange; }},
        {"currency type",
         [](WayFernData &d, qsizetype i) -> QString & { return d.currencies.at(i)->type; }},
        {"tip date", [](WayFernData &d, qsizetype i) -> QString & { return d.tips.at(i)->date; }},
        {"tip's type",
         [](WayFernData &d, qsizetype i) -> QString & { return d.tips.at(i)->tiptype; }},
        {"tip quality",
         [](WayFernData &d, qsizetype i) -> QString & { return d.tips.at(i)->qualitytype; }},
        {"tip town", [](WayFernData &d, qsizetype i) -> QString & { return d.tips.at(i)->town; }},
        {"traveller date",
         [](WayFernData &d, qsizetype i) -> QString & { return d.users.at(i)->date; }},
        {"account date",
         [](WayFernData &d, qsizetype i) -> QString & { return d.users.at(0)->kto.at(i)->date; }},
        {"account type",
         [](WayFernData &d, qsizetype i) -> QString & { return d.users.at(0)->kto.at(i)->type; }},
    };
    return fields;
}

// A journey of `n` records in every group, each cached field holding its own plain text.
void buildJourney(WayFernData &doc, int n)
{
    doc.clearAll();
    doc.journeyname = QStringLiteral("Slots");
    doc.basecurrency = QStringLiteral("EUR");
    for (int i = 0; i < n; ++i) {
        doc.ctypes.append();
        doc.ttypes.append();
        doc.qtypes.append();
        CostsData *cost = doc.costs.append();
        cost->id = i + 1;
        cost->fval = QStringLiteral("1.00");
        CurrData *curr = doc.currencies.append();
        curr->short_ = QStringLiteral("C%1").arg(i);
        curr->factor = QStringLiteral("1.0");
        doc.tips.append()->name = QStringLiteral("Place %1").arg(i);
        doc.users.append()->short_ = QStringLiteral("U%1").arg(i);
    }
    for (int i = 0; i < n; ++i)
        doc.users.at(0)->addKto(i + 1);
    int k = 0;
    for (const CachedField &field : cachedFields()) {
        for (int i = 0; i < n; ++i)
            field.at(doc, i) = QStringLiteral("plain %1").arg(k++);
    }
}

// Writes `doc` and reads the file into `back`; the account trace is not wanted here.
bool writeAndReadBack(WayFernData &doc, WayFernData &back, const QString &file)
{
    StdoutCapture quiet;
    return WayfernIO(&doc).WriteFile(file) == 0 && WayfernIO(&back).ReadFile(file) == 0;
}

// Compares every cached field of every record; the first difference fails the test.
void compareCachedFields(WayFernData &written, WayFernData &read, int n)
{
    for (const CachedField &field : cachedFields()) {
        for (int i = 0; i < n; ++i)
            QVERIFY2(field.at(read, i) == field.at(written, i),
                     qPrintable(QStringLiteral("%1 %2: \"%3\" read as \"%4\"")
                                    .arg(QLatin1String(field.name))
                                    .arg(i)
                                    .arg(field.at(written, i), field.at(read, i))));
    }
}

} // namespace

class TestRepeatedTexts : public QObject
{
    Q_OBJECT

private slots:
    void collidingTextsAreFound();
    void textsSharingASlotReadBackExactly_data();
    void textsSharingASlotReadBackExactly();
    void textsSharingASlotAcrossFieldsReadBackExactly();
    void largeJourneyWithManyTextsReadsBackExactly();

private:
    QTemporaryDir dir;
};

void TestRepeatedTexts::collidingTextsAreFound()
{
    // Texts that meet in the largest cache meet in every smaller one, whose sizes divide it.
    QVERIFY(WayfernIO::sharedSlots > 1
            && (WayfernIO::sharedSlots & (WayfernIO::sharedSlots - 1)) == 0);
    // The pair that once read back alike.
    QCOMPARE(slotOf(u"T426"), slotOf(u"Food"));
    const QStringList types = collidingWith(QStringLiteral("Food"), 4,
                                            [](int i) { return QStringLiteral("T%1").arg(i); });
    QCOMPARE(types.size(), 4);
    QVERIFY(types.contains(QStringLiteral("T426")));
    const QStringList dates = collidingWith(QStringLiteral("23.05.2002"), 4, dateText);
    QCOMPARE(dates.size(), 4);
    for (const QString &date : dates)
        QCOMPARE(slotOf(date), slotOf(u"23.05.2002"));
}

void TestRepeatedTexts::textsSharingASlotReadBackExactly_data()
{
    QTest::addColumn<int>("field");
    for (int i = 0; i < cachedFields().size(); ++i)
        QTest::newRow(cachedFields().at(i).name) << i;
}

void TestRepeatedTexts::textsSharingASlotReadBackExactly()
{
    QFETCH(int, field);
    // Dates for the date fields, short words for the others; the texts alternate, so that
    // each one finds the slot held by another.
    const bool date = QByteArray(cachedFields().at(field).name).contains("date");
    const QStringList family = date ? collidingWith(QStringLiteral("23.05.2002"), 3, dateText)
                                    : collidingWith(QStringLiteral("Food"), 3, [](int i) {
                                          return QStringLiteral("T%1").arg(i);
                                      });
    QCOMPARE(family.size(), 3);
    const int n = 6;
    WayFernData doc;
    buildJourney(doc, n);
    for (int i = 0; i < n; ++i)
        cachedFields().at(field).at(doc, i) = family.at(i % 3);

    WayFernData back;
    QVERIFY(writeAndReadBack(doc, back, dir.filePath(QStringLiteral("slots.wfn"))));
    compareCachedFields(doc, back, n);
}

void TestRepeatedTexts::textsSharingASlotAcrossFieldsReadBackExactly()
{
    // One slot for all: each field finds it held by the text another field left there.
    const QStringList family = collidingWith(QStringLiteral("Food"), 7, [](int i) {
        return i % 2 ? QStringLiteral("T%1").arg(i) : dateText(i);
    });
    QCOMPARE(family.size(), 7);
    const int n = 4;
    WayFernData doc;
    buildJourney(doc, n);
    int k = 0;
    for (const CachedField &field : cachedFields()) {
        for (int i = 0; i < n; ++i)
            field.at(doc, i) = family.at(k++ % family.size());
    }

    WayFernData back;
    QVERIFY(writeAndReadBack(doc, back, dir.filePath(QStringLiteral("across.wfn"))));
    compareCachedFields(doc, back, n);
}

void TestRepeatedTexts::largeJourneyWithManyTextsReadsBackExactly()
{
    // 20,000 costs with an account line each and 2,000 tips, their texts drawn from pools
    // far larger than the cache: many texts meet in a slot, in every order.
    const int costs = 20000;
    const int tips = 2000;
    QRandomGenerator random(20021126);
    WayFernData doc;
    doc.journeyname = QStringLiteral("Large");
    doc.basecurrency = QStringLiteral("EUR");
    for (int i = 0; i < 300; ++i)
        doc.ctypes.append()->type = QStringLiteral("Kind %1").arg(i);
    for (int i = 0; i < 300; ++i)
        doc.ttypes.append()->type = QStringLiteral("Place kind %1").arg(i);
    for (int i = 0; i < 60; ++i)
        doc.qtypes.append()->type = QStringLiteral("Grade %1").arg(i);
    for (int i = 0; i < 200; ++i) {
        CurrData *curr = doc.currencies.append();
        curr->short_ = QStringLiteral("X%1").arg(i);
        curr->factor = QStringLiteral("1.0");
        curr->type = QStringLiteral("rate kind %1").arg(i % 40);
    }
    for (int i = 0; i < 50; ++i) {
        UserData *user = doc.users.append();
        user->short_ = QStringLiteral("U%1").arg(i);
        user->date = dateText(int(random.bounded(40000)));
    }
    const auto pick = [&](const char *stem, int pool) {
        return QString::fromLatin1(stem) + QString::number(random.bounded(pool));
    };
    UserData *payer = doc.users.at(0);
    for (int i = 0; i < costs; ++i) {
        CostsData *cost = doc.costs.append();
        cost->id = i + 1;
        cost->date = dateText(int(random.bounded(40000)));
        cost->type = pick("T", 9000);
        cost->ctype = pick("X", 200);
        cost->exchange = QString::number(1 + random.bounded(90000) / 10000.0, 'f', 4);
        cost->fval = QStringLiteral("2.00");
        KtoData *line = payer->addKto(cost->id);
        line->date = i % 3 ? cost->date : dateText(int(random.bounded(40000)));
        line->type = pick("share ", 5000);
        line->change = -2.0;
    }
    for (int i = 0; i < tips; ++i) {
        TipData *tip = doc.tips.append();
        tip->date = dateText(int(random.bounded(40000)));
        tip->tiptype = pick("Place kind ", 300);
        tip->qualitytype = pick("Grade ", 60);
        tip->town = pick("Town ", 3000);
    }

    // More distinct texts than slots: some slots hold several of them.
    QSet<QString> distinct;
    const auto collect = [&](const auto &list, auto... members) {
        for (const auto *record : list)
            (distinct.insert(record->*members), ...);
    };
    collect(doc.costs, &CostsData::date, &CostsData::type, &CostsData::ctype, &CostsData::exchange);
    collect(doc.tips, &TipData::date, &TipData::tiptype, &TipData::qualitytype, &TipData::town);
    collect(payer->kto, &KtoData::date, &KtoData::type);
    QVERIFY(size_t(distinct.size()) > 4 * WayfernIO::sharedSlots);

    WayFernData back;
    QVERIFY(writeAndReadBack(doc, back, dir.filePath(QStringLiteral("large.wfn"))));
    QCOMPARE(back.costs.count(), costs);
    QCOMPARE(back.tips.count(), tips);
    QCOMPARE(back.users.at(0)->kto.count(), costs);
    for (int i = 0; i < 300; ++i) {
        QCOMPARE(back.ctypes.at(i)->type, doc.ctypes.at(i)->type);
        QCOMPARE(back.ttypes.at(i)->type, doc.ttypes.at(i)->type);
    }
    for (int i = 0; i < 60; ++i)
        QCOMPARE(back.qtypes.at(i)->type, doc.qtypes.at(i)->type);
    for (int i = 0; i < 200; ++i)
        QCOMPARE(back.currencies.at(i)->type, doc.currencies.at(i)->type);
    for (int i = 0; i < 50; ++i)
        QCOMPARE(back.users.at(i)->date, doc.users.at(i)->date);
    for (int i = 0; i < costs; ++i) {
        const CostsData *want = doc.costs.at(i);
        const CostsData *got = back.costs.at(i);
        QCOMPARE(got->date, want->date);
        QCOMPARE(got->type, want->type);
        QCOMPARE(got->ctype, want->ctype);
        QCOMPARE(got->exchange, want->exchange);
        QCOMPARE(back.users.at(0)->kto.at(i)->date, payer->kto.at(i)->date);
        QCOMPARE(back.users.at(0)->kto.at(i)->type, payer->kto.at(i)->type);
    }
    for (int i = 0; i < tips; ++i) {
        const TipData *want = doc.tips.at(i);
        const TipData *got = back.tips.at(i);
        QCOMPARE(got->date, want->date);
        QCOMPARE(got->tiptype, want->tiptype);
        QCOMPARE(got->qualitytype, want->qualitytype);
        QCOMPARE(got->town, want->town);
    }
}

QTEST_GUILESS_MAIN(TestRepeatedTexts)
#include "tst_repeatedtexts.moc"
