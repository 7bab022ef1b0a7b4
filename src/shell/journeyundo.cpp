#include "shell/journeyundo.h"

#include "data/wayferndata.h"

#include <QUndoCommand>

#include <vector>

namespace {

// A step of the stack. A change that a refresh makes outside any action (the tips sorted
// by date when the lists are shown again) joins the step before it, so that undoing that
// step takes the sort back too.
class StepCommand : public QUndoCommand
{
public:
    StepCommand(JourneyUndo *owner, JourneyChange change, const QString &text, bool followUp)
        : owner(owner), followUp(followUp)
    {
        setText(text);
        changes.push_back(std::move(change));
    }

    int id() const override { return 1; }

    bool mergeWith(const QUndoCommand *other) override
    {
        auto *next = static_cast<const StepCommand *>(other);
        if (!next->followUp)
            return false;
        for (JourneyChange &change : const_cast<StepCommand *>(next)->changes)
            changes.push_back(std::move(change));
        return true;
    }

    void undo() override
    {
        for (auto change = changes.rbegin(); change != changes.rend(); ++change)
            owner->apply(*change, false);
    }

    void redo() override
    {
        // Pushed after the action: the journey already is in the state after it.
        if (fresh) {
            fresh = false;
            return;
        }
        for (const JourneyChange &change : changes)
            owner->apply(change, true);
    }

private:
    JourneyUndo *owner;
    std::vector<JourneyChange> changes;
    bool followUp;
    bool fresh = true;
};

} // namespace

JourneyUndo::JourneyUndo(WayFernData *doc, QObject *parent) : QObject(parent), doc(doc)
{
    connect(&steps, &QUndoStack::indexChanged, this, &JourneyUndo::followStack);
    doc->history = this;
}

JourneyUndo::~JourneyUndo()
{
    if (doc->history == this)
        doc->history = nullptr;
}

void JourneyUndo::begin(const ChangeScope &scope)
{
    if (depth++ > 0)
        return;
    before = JourneyChange::capture(*doc, scope, &lines);
}

void JourneyUndo::end(const QString &text)
{
    if (depth == 0 || --depth > 0)
        return;
    const std::unique_ptr<JourneySnapshot> snapshot = std::move(before);
    JourneyChange change = JourneyChange::since(*snapshot, *doc);
    if (change.isEmpty())
        return;
    // A change without a name of its own follows the step before it; with nothing to
    // follow, or when that step is what was saved, it is a step of its own.
    const bool followUp = text.isEmpty() && steps.index() > 0 && steps.index() == steps.count()
        && !steps.isClean();
    const QString name = text.isEmpty() ? tr("sort by date") : text;
    steps.push(new StepCommand(this, std::move(change), name, followUp));
}

void JourneyUndo::clear()
{
    depth = 0;
    before.reset();
    // The journey's modified flag stays as the file commands leave it.
    following = false;
    steps.clear();
    following = true;
}

void JourneyUndo::markSaved()
{
    steps.setClean();
}

void JourneyUndo::markUnsaved()
{
    steps.resetClean();
}

void JourneyUndo::apply(const JourneyChange &change, bool forward)
{
    CostsData *cost = forward ? change.redo(*doc) : change.undo(*doc);
    emit stepApplied(cost);
}

void JourneyUndo::followStack()
{
    if (!following)
        return;
    const bool modified = !steps.isClean();
    if (modified != doc->isModified())
        doc->setModified(modified);
}
