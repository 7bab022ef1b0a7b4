#pragma once

// Builds a large journey for the benchmarks: costs in several currencies with dates in
// random order, each shared among all travellers, and tips. Deterministic for a seed.

#include "data/wayferndata.h"

#include <QRandomGenerator>

struct JourneyShape
{
    int costs = 100000;
    int currencies = 8;
    int travellers = 4;
    int tips = 1000;
    quint32 seed = 20020526;
};

inline void generateJourney(WayFernData &doc, const JourneyShape &shape)
{
    QRandomGenerator random(shape.seed);
    doc.clearAll();
    doc.journeyname = QStringLiteral("Benchmark journey");
    doc.distancetype = QStringLiteral("km");
    doc.basecurrency = QStringLiteral("EUR");
    doc.userflag = true;

    static const char *const names[] = {"EUR", "USD", "GBP", "CHF", "NOK", "SEK",
                                        "DKK", "PLN", "CZK", "HUF", "JPY", "AUD"};
    for (int i = 0; i < shape.currencies; ++i) {
        CurrData *curr = doc.currencies.append();
        curr->short_ = i < 12 ? QString::fromLatin1(names[i]) : QStringLiteral("C%1").arg(i);
        curr->factor = i == 0 ? QStringLiteral("1.0") : QString::number(0.5 + i * 1.37, 'f', 4);
        curr->fullname = QStringLiteral("Currency %1").arg(i);
        curr->type = i == 0 ? curr->fix : curr->floating;
    }
    const QStringList types = {QStringLiteral("Food"),    QStringLiteral("Hotel"),
                               QStringLiteral("Travel"),  QStringLiteral("Fuel"),
                               QStringLiteral("Tickets"), QStringLiteral("Other")};
    for (const QString &type : types)
        doc.ctypes.append()->type = type;
    TTypeData *hotel = doc.ttypes.append();
    hotel->type = QStringLiteral("Hotel");
    hotel->customs.append()->text = QStringLiteral("Rooms");
    doc.ttypes.append()->type = QStringLiteral("Restaurant");
    doc.qtypes.append()->type = QStringLiteral("Good");
    doc.qtypes.append()->type = QStringLiteral("Poor");

    for (int u = 0; u < shape.travellers; ++u) {
        UserData *user = doc.users.append();
        user->short_ = QStringLiteral("T%1").arg(u);
        user->name = QStringLiteral("Traveller %1").arg(u);
        user->date = QStringLiteral("01.01.2002");
    }
    const auto randomDate = [&] {
        return QString::asprintf("%02d.%02d.%04d", int(random.bounded(1, 29)),
                                 int(random.bounded(1, 13)), int(random.bounded(2000, 2004)));
    };
    for (int i = 0; i < shape.costs; ++i) {
        CostsData *cost = doc.costs.append();
        cost->date = randomDate();
        cost->type = types.at(int(random.bounded(types.size())));
        cost->fval = QString::number(random.bounded(1, 100000) / 100.0, 'f', 2);
        cost->ctype = doc.currencies.at(int(random.bounded(shape.currencies)))->short_;
        cost->comment = QStringLiteral("cost number %1").arg(i);
        cost->id = i + 1;
        cost->exchange = QStringLiteral("1.0");
        cost->shared = shape.travellers > 0;
        const double part = cost->fval.toDouble() / qMax(1, shape.travellers);
        for (UserData *user : doc.users) {
            KtoData *line = user->addKto(cost->id);
            line->date = cost->date;
            line->type = QStringLiteral("share");
            line->percentage = 100.0 / shape.travellers;
            line->change = -part;
        }
    }
    for (int i = 0; i < shape.tips; ++i) {
        TipData *tip = doc.tips.append();
        tip->date = randomDate();
        tip->name = QStringLiteral("Place %1").arg(i);
        tip->town = QStringLiteral("Town %1").arg(i % 50);
        tip->tiptype = i % 2 ? QStringLiteral("Hotel") : QStringLiteral("Restaurant");
        tip->qualitytype = QStringLiteral("Good");
        if (i % 2) {
            CustomData *rooms = tip->customs.append();
            rooms->text = QStringLiteral("Rooms");
            rooms->content = QString::number(i % 7 + 1);
        }
    }
    doc.recalcFactors();
    doc.recalcCosts();
    doc.recalcUsers();
}
