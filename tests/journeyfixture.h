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
