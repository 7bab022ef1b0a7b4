#pragma once

#include "data/journeychange.h"

#include <QString>

class WayFernData;

// Keeps the steps of a journey's history; the window's undo stack is one. An action that
// may change the journey begins a step before and ends it after, and a step that changed
// nothing is no step.
class JourneyHistory
{
public:
    virtual ~JourneyHistory() = default;
    virtual void begin(const ChangeScope &scope) = 0;
    // `text` names the step for the user ("delete cost 13.11.2026 Fuel 75.40 EUR").
    virtual void end(const QString &text) = 0;
};

// One action as one step, from here to the end of the block; the text can be given once
// the action knows what it did. A journey without a history records nothing. A step begun
// inside another belongs to the outer one.
class JourneyStep
{
public:
    JourneyStep(WayFernData *doc, const ChangeScope &scope);
    ~JourneyStep();
    JourneyStep(const JourneyStep &) = delete;
    JourneyStep &operator=(const JourneyStep &) = delete;

    void setText(const QString &text) { stepText = text; }

private:
    JourneyHistory *history = nullptr;
    QString stepText;
};
