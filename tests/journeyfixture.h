#pragma once

// A journey of tests/data as the window has it after opening it: read, figures refreshed.
// Header only: the core's tests link the core, the test support does not.

#include "coretestutil.h"

#include "data/journeycalc.h"
#include "data/wayferndata.h"
#include "storage/scqtutil.h"
#include "storage/wayfernio.h"

inline bool readJourneyFixture(WayFernData &doc, const QString &name)
{
    StdoutCapture quiet;
    WayfernIO io(&doc);
    if (io.ReadFile(fixture(name)) != 0)
        return false;
    JourneyCalc::refreshFigures(doc, ScQtUtil::lastDate);
    return true;
}

// The journey of check-journey.wfn with figures that round to nothing from below: the hotel
// night is 0.004 below nothing and the other costs are nothing, so the total, the day, the
// hotel's category and EF's deposit and balance are all -0.004 or a little more.
inline bool readJourneyJustBelowNothing(WayFernData &doc)
{
    if (!readJourneyFixture(doc, QStringLiteral("check-journey.wfn")))
        return false;
    for (CostsData *cost : doc.costs)
        cost->fval = cost->type == QLatin1String("Hotel") ? QStringLiteral("-0.004")
                                                          : QStringLiteral("0");
    if (doc.users.count() < 3)
        return false;
    for (KtoData *line : doc.users.at(2)->kto)
        line->change = -0.004;
    JourneyCalc::refreshFigures(doc, ScQtUtil::lastDate);
    return doc.total < 0.0 && doc.total > -0.005;
}
