#include "data/journeyhistory.h"

#include "data/wayferndata.h"

JourneyStep::JourneyStep(WayFernData *doc, const ChangeScope &scope)
    : history(doc ? doc->history : nullptr)
{
    if (history)
        history->begin(scope);
}

JourneyStep::~JourneyStep()
{
    if (history)
        history->end(stepText);
}
