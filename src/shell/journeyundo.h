#pragma once

#include "data/journeyhistory.h"

#include <QObject>
#include <QUndoStack>

#include <memory>

struct CostsData;
class WayFernData;

// The journey's history as an undo stack: every action that changed the journey is one
// step, and the journey counts as modified exactly when the stack stands elsewhere than at
// the saved state.
class JourneyUndo : public QObject, public JourneyHistory
{
    Q_OBJECT

public:
    explicit JourneyUndo(WayFernData *doc, QObject *parent = nullptr);
    ~JourneyUndo() override;

    QUndoStack *stack() { return &steps; }

    void begin(const ChangeScope &scope) override;
    void end(const QString &text) override;

    // Another journey is in hand: nothing before it can be undone.
    void clear();
    // The journey in hand is the one on disk now.
    void markSaved();
    // The journey in hand is on no disk at all, in no state of the stack (changes brought
    // back from a recovery file).
    void markUnsaved();

    // Called by the steps.
    void apply(const JourneyChange &change, bool forward);

signals:
    // A step was taken back or done again; `cost` is the first cost that it put back, or
    // null. The lists must show the journey anew, without sorting it.
    void stepApplied(CostsData *cost);

private:
    void followStack();

    WayFernData *doc;
    QUndoStack steps;
    int depth = 0;
    bool following = true;
    std::unique_ptr<JourneySnapshot> before;
    AccountIndex lines;
};
