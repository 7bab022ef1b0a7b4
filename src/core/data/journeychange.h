#pragma once

#include "data/journeyrecords.h"

#include <QString>

#include <memory>
#include <utility>
#include <vector>

class WayFernData;

// What one action may change beyond the parts that every step compares whole: the journey's
// head, the currency and category tables, the tips and the travellers' own fields.
struct ChangeScope
{
    // The costs that the action may add, change or remove, by id, with their account
    // lines (the lines whose magic is the id). Every other cost keeps its contents and its
    // order among the others.
    std::vector<int> costIds;
    // Every account line of every traveller, and the travellers themselves, may change:
    // travellers come and go, deposits are booked, a plan is booked.
    bool accounts = false;

    static ChangeScope costs(std::vector<int> ids)
    {
        ChangeScope scope;
        scope.costIds = std::move(ids);
        return scope;
    }
    // The account lines of this magic, which no cost has: deposits, pay-offs.
    static ChangeScope lines(int magic) { return costs({magic}); }
    static ChangeScope everyAccount()
    {
        ChangeScope scope;
        scope.accounts = true;
        return scope;
    }
};

// Records that stood at positions of a list before and after a step: undoing takes the
// after records out and puts the before records back, each at its position.
template <class T>
struct Placed
{
    std::vector<std::pair<int, T>> before;
    std::vector<std::pair<int, T>> after;
    bool isEmpty() const { return before.empty() && after.empty(); }
};

class JourneySnapshot;

// Where the account lines of a cost stand, without a walk over every line: the magic of
// each line of each traveller, kept beside the accounts. A traveller's copy counts while his
// account has neither gained nor lost a line since, and all of them while no traveller came
// or went; else it is taken again. On a long journey the walk over the lines, one object
// each, costs more than everything else that a step does.
class AccountIndex
{
public:
    // The positions in the account of the traveller at `user` of the lines whose magic is
    // one of `ids`, first to last.
    std::vector<int> positions(const WayFernData &doc, int user, const std::vector<int> &ids);

private:
    struct Entry
    {
        const UserData *user = nullptr;
        unsigned long long generation = 0;
        std::vector<int> magics;
    };
    unsigned long long usersGeneration = 0;
    const WayFernData *journey = nullptr;
    std::vector<Entry> entries;
};

// One step of the journey's history: exactly what an action changed, and nothing of what
// it left alone, so that it can be taken back and done again to the byte. What the
// refresh recomputes (base values, sums, letters) is not kept.
class JourneyChange
{
public:
    JourneyChange();
    ~JourneyChange();
    JourneyChange(JourneyChange &&) noexcept;
    JourneyChange &operator=(JourneyChange &&) noexcept;

    // `index`, when given, finds the account lines and must outlive the snapshot.
    static std::unique_ptr<JourneySnapshot>
    capture(const WayFernData &doc, const ChangeScope &scope, AccountIndex *index = nullptr);
    // What changed from `before` to the journey as it is now.
    static JourneyChange since(const JourneySnapshot &before, const WayFernData &doc);

    bool isEmpty() const;
    // Returns the journey to its state before the step, or again after it. Both answer the
    // first cost that they put back, or null.
    CostsData *undo(WayFernData &doc) const;
    CostsData *redo(WayFernData &doc) const;
    // Roughly what the step holds, in bytes, for the history's budget.
    size_t bytes() const;

    struct Head
    {
        QString journeyname;
        QString basecurrency;
        QString distancetype;
        bool userflag = false;
    };
    // The flags of the costs from position `from` to the end of the list: `shared` stays
    // with the list position when the costs are sorted, so a move reorders the flags of the
    // costs it passes.
    struct SharedFlags
    {
        int from = 0;
        std::vector<bool> flags;
    };
    struct Account
    {
        int user = 0; // position of the traveller, the same before and after
        Placed<KtoData> lines;
    };

private:
    CostsData *apply(WayFernData &doc, bool forward) const;

    bool headChanged = false;
    std::pair<Head, Head> head;
    Placed<CurrData> currencies;
    Placed<CTypeData> ctypes;
    Placed<TTypeData> ttypes;
    Placed<QTypeData> qtypes;
    Placed<TipData> tips;
    Placed<CostsData> costs;
    std::pair<SharedFlags, SharedFlags> shared;
    // Travellers who came or went: the list changes whole, with the accounts.
    Placed<UserData> users;
    // Travellers who stayed: their own fields (the account left empty) and their lines.
    Placed<UserData> userFields;
    std::vector<Account> accounts;
};

// The journey as far as a scope reaches, taken before an action so that afterwards only
// what changed is kept. It lives for one action.
class JourneySnapshot
{
public:
    ChangeScope scope;
    JourneyChange::Head head;
    std::vector<CurrData> currencies;
    std::vector<CTypeData> ctypes;
    std::vector<TTypeData> ttypes;
    std::vector<QTypeData> qtypes;
    std::vector<TipData> tips;
    std::vector<std::pair<int, CostsData>> costs;
    std::vector<bool> shared;
    // With every account: the travellers whole. Else their own fields, and the lines of
    // the scope's costs.
    std::vector<UserData> users;
    std::vector<std::vector<std::pair<int, KtoData>>> lines;
    AccountIndex *index = nullptr;
};
