#pragma once

// A stand-in for the rate grabber, linked only into the currency list's test: it starts no
// process and fetches nothing. It notes every request, and hands out the rates that a test
// queued; the test then emits grabSuccess() or noSuccess() itself, as the timers would.

#include <QList>
#include <QStringList>

namespace FakeGrab {

// "rate FROM TO" for requestRate, "page ADDRESS" for requestPage, in the order asked.
extern QStringList requests;
// What the next calls of readRate give back, first first; -1.0 when none is left.
extern QList<double> rates;
// Makes requestRate and requestPage fail as when no child process could be made.
extern bool failStart;

inline void reset()
{
    requests.clear();
    rates.clear();
    failStart = false;
}

} // namespace FakeGrab
