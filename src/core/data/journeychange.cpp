#include "data/journeychange.h"

#include "data/wayferndata.h"

#include <algorithm>
#include <limits>
#include <type_traits>

namespace {

bool sameCustoms(const RecordList<CustomData> &a, const RecordList<CustomData> &b)
{
    if (a.count() != b.count())
        return false;
    for (int i = 0; i < a.count(); ++i)
        if (a.at(i)->text != b.at(i)->text || a.at(i)->content != b.at(i)->content)
            return false;
    return true;
}

// Equal in everything that a step must bring back; what the refresh recomputes and what
// points at widgets do not count.
bool same(const CostsData &a, const CostsData &b)
{
    return a.date == b.date && a.type == b.type && a.typeletter == b.typeletter
        && a.ctype == b.ctype && a.fval == b.fval && a.comment == b.comment && a.id == b.id
        && a.exchange == b.exchange && a.exchangevalue == b.exchangevalue && a.shared == b.shared;
}

bool same(const TipData &a, const TipData &b)
{
    return a.date == b.date && a.name == b.name && a.street == b.street && a.pcode == b.pcode
        && a.town == b.town && a.tel == b.tel && a.fax == b.fax && a.email == b.email
        && a.www == b.www && a.tiptype == b.tiptype && a.typeletter == b.typeletter
        && a.qualitytype == b.qualitytype && a.comment == b.comment
        && sameCustoms(a.customs, b.customs);
}

bool same(const KtoData &a, const KtoData &b)
{
    return a.magic == b.magic && a.percentage == b.percentage && a.change == b.change
        && a.date == b.date && a.type == b.type;
}

bool same(const CurrData &a, const CurrData &b)
{
    return a.short_ == b.short_ && a.factor == b.factor && a.fullname == b.fullname
        && a.type == b.type && a.floating == b.floating && a.fix == b.fix;
}

bool same(const CTypeData &a, const CTypeData &b)
{
    return a.type == b.type;
}

bool same(const QTypeData &a, const QTypeData &b)
{
    return a.type == b.type;
}

bool same(const TTypeData &a, const TTypeData &b)
{
    return a.type == b.type && sameCustoms(a.customs, b.customs);
}

// A traveller's own fields: everything but the account and the editors' scratch line.
template <class F>
void forEachOwnField(UserData &a, const UserData &b, F f)
{
    UserData::forEachField(a, b, [&f](auto &x, const auto &y) {
        using Field = std::decay_t<decltype(x)>;
        if constexpr (!std::is_same_v<Field, RecordList<KtoData>>
                      && !std::is_same_v<Field, KtoData>)
            f(x, y);
    });
}

bool sameOwnFields(const UserData &a, const UserData &b)
{
    bool equal = true;
    forEachOwnField(const_cast<UserData &>(a), b, [&equal](auto &x, const auto &y) {
        if (!(x == y))
            equal = false;
    });
    return equal;
}

bool same(const UserData &a, const UserData &b)
{
    if (!sameOwnFields(a, b) || a.kto.count() != b.kto.count())
        return false;
    for (int i = 0; i < a.kto.count(); ++i)
        if (!same(*a.kto.at(i), *b.kto.at(i)))
            return false;
    return true;
}

UserData ownFieldsOf(const UserData &user)
{
    UserData fields;
    forEachOwnField(fields, user, [](auto &x, const auto &y) { x = y; });
    return fields;
}

// A kept copy points at no record of the journey.
template <class T>
T kept(const T &record)
{
    T copy = record;
    if constexpr (std::is_same_v<T, CostsData>)
        copy.curr = nullptr;
    return copy;
}

template <class T>
std::vector<T> copyList(const RecordList<T> &list)
{
    std::vector<T> copies;
    copies.reserve(size_t(list.count()));
    for (const T *record : list)
        copies.push_back(kept(*record));
    return copies;
}

template <class T>
const T &recordAt(const std::vector<T> &list, int i)
{
    return list[size_t(i)];
}

template <class T>
const T &recordAt(const RecordList<T> &list, int i)
{
    return *list.at(i);
}

template <class T>
int sizeOf(const std::vector<T> &list)
{
    return int(list.size());
}

template <class T>
int sizeOf(const RecordList<T> &list)
{
    return list.count();
}

// The stretch between the equal beginning and the equal end of two states of a list.
template <class T, class Before>
Placed<T> stretch(const Before &before, const RecordList<T> &after)
{
    const int nb = sizeOf(before);
    const int na = after.count();
    int head = 0;
    while (head < nb && head < na && same(recordAt(before, head), *after.at(head)))
        ++head;
    int tail = 0;
    while (tail < nb - head && tail < na - head
           && same(recordAt(before, nb - 1 - tail), *after.at(na - 1 - tail)))
        ++tail;
    Placed<T> placed;
    for (int i = head; i < nb - tail; ++i)
        placed.before.emplace_back(i, kept(recordAt(before, i)));
    for (int i = head; i < na - tail; ++i)
        placed.after.emplace_back(i, kept(*after.at(i)));
    return placed;
}

bool touches(const std::vector<int> &ids, int id)
{
    return std::find(ids.begin(), ids.end(), id) != ids.end();
}

// The account lines of the scope's costs, where they stand.
std::vector<std::pair<int, KtoData>> linesOf(const WayFernData &doc, int at,
                                             const std::vector<int> &ids, AccountIndex *index)
{
    std::vector<std::pair<int, KtoData>> lines;
    if (ids.empty())
        return lines;
    const UserData &user = *doc.users.at(at);
    if (index) {
        for (int i : index->positions(doc, at, ids))
            lines.emplace_back(i, *user.kto.at(i));
        return lines;
    }
    for (int i = 0; i < user.kto.count(); ++i)
        if (touches(ids, user.kto.at(i)->magic))
            lines.emplace_back(i, *user.kto.at(i));
    return lines;
}

template <class T>
bool samePlaced(const std::vector<std::pair<int, T>> &a, const std::vector<std::pair<int, T>> &b)
{
    if (a.size() != b.size())
        return false;
    for (size_t i = 0; i < a.size(); ++i)
        if (a[i].first != b[i].first || !same(a[i].second, b[i].second))
            return false;
    return true;
}

// Takes the records of `out` from the list and puts those of `in` in, each at its position;
// both stand in ascending order. Runs of neighbours move at once, so that a long stretch in
// a long list costs one shift.
template <class T>
void place(RecordList<T> &list, const std::vector<std::pair<int, T>> &out,
           const std::vector<std::pair<int, T>> &in)
{
    for (size_t end = out.size(); end > 0;) {
        size_t begin = end - 1;
        while (begin > 0 && out[begin - 1].first + 1 == out[begin].first)
            --begin;
        list.removeRange(out[begin].first, int(end - begin));
        end = begin;
    }
    for (size_t begin = 0; begin < in.size();) {
        size_t end = begin + 1;
        while (end < in.size() && in[end - 1].first + 1 == in[end].first)
            ++end;
        std::vector<std::unique_ptr<T>> run;
        run.reserve(end - begin);
        for (size_t i = begin; i < end; ++i)
            run.push_back(std::make_unique<T>(in[i].second));
        list.insertRange(in[begin].first, std::move(run));
        begin = end;
    }
}

template <class T>
void place(RecordList<T> &list, const Placed<T> &placed, bool forward)
{
    if (forward)
        place(list, placed.before, placed.after);
    else
        place(list, placed.after, placed.before);
}

template <class T>
size_t bytesOf(const Placed<T> &placed)
{
    return (placed.before.size() + placed.after.size()) * (sizeof(std::pair<int, T>) + 16);
}

} // namespace

namespace {

JourneyChange::Head headOf(const WayFernData &doc)
{
    return {doc.journeyname, doc.basecurrency, doc.distancetype, doc.userflag};
}

bool operator==(const JourneyChange::Head &a, const JourneyChange::Head &b)
{
    return a.journeyname == b.journeyname && a.basecurrency == b.basecurrency
        && a.distancetype == b.distancetype && a.userflag == b.userflag;
}

// The scope's costs where they stand, and the flags of every cost, in one pass over the
// costs: on a long journey the pass costs more than all that it collects.
std::vector<std::pair<int, CostsData>> costsOf(const WayFernData &doc, const std::vector<int> &ids,
                                               std::vector<bool> &flags)
{
    std::vector<std::pair<int, CostsData>> costs;
    flags.clear();
    if (ids.empty())
        return costs;
    const int n = doc.costs.count();
    flags.resize(size_t(n));
    // Mostly one cost: the plain comparison keeps the loop tight.
    const int only = ids.size() == 1 ? ids.front() : 0;
    for (int i = 0; i < n; ++i) {
        const CostsData *cost = doc.costs.at(i);
        flags[size_t(i)] = cost->shared;
        if (ids.size() == 1 ? cost->id == only : touches(ids, cost->id))
            costs.emplace_back(i, kept(*cost));
    }
    return costs;
}

} // namespace

JourneyChange::JourneyChange() = default;
JourneyChange::~JourneyChange() = default;
JourneyChange::JourneyChange(JourneyChange &&) noexcept = default;
JourneyChange &JourneyChange::operator=(JourneyChange &&) noexcept = default;

std::vector<int> AccountIndex::positions(const WayFernData &doc, int user,
                                         const std::vector<int> &ids)
{
    if (journey != &doc || usersGeneration != doc.users.generation()
        || int(entries.size()) != doc.users.count()) {
        journey = &doc;
        usersGeneration = doc.users.generation();
        entries.assign(size_t(doc.users.count()), Entry());
    }
    const UserData *traveller = doc.users.at(user);
    Entry &entry = entries[size_t(user)];
    if (entry.user != traveller || entry.generation != traveller->kto.generation()
        || int(entry.magics.size()) != traveller->kto.count()) {
        entry.user = traveller;
        entry.generation = traveller->kto.generation();
        entry.magics.clear();
        entry.magics.reserve(size_t(traveller->kto.count()));
        for (const KtoData *line : traveller->kto)
            entry.magics.push_back(line->magic);
    }
    std::vector<int> found;
    const int only = ids.size() == 1 ? ids.front() : 0;
    const size_t n = entry.magics.size();
    const int *magic = entry.magics.data();
    for (size_t i = 0; i < n; ++i)
        if (ids.size() == 1 ? magic[i] == only : touches(ids, magic[i]))
            found.push_back(int(i));
    return found;
}

std::unique_ptr<JourneySnapshot>
JourneyChange::capture(const WayFernData &doc, const ChangeScope &scope, AccountIndex *index)
{
    auto snapshot = std::make_unique<JourneySnapshot>();
    snapshot->scope = scope;
    snapshot->index = index;
    snapshot->head = headOf(doc);
    snapshot->currencies = copyList(doc.currencies);
    snapshot->ctypes = copyList(doc.ctypes);
    snapshot->ttypes = copyList(doc.ttypes);
    snapshot->qtypes = copyList(doc.qtypes);
    snapshot->tips = copyList(doc.tips);
    snapshot->costs = costsOf(doc, scope.costIds, snapshot->shared);
    if (scope.accounts) {
        snapshot->users = copyList(doc.users);
    } else {
        for (int i = 0; i < doc.users.count(); ++i) {
            snapshot->users.push_back(ownFieldsOf(*doc.users.at(i)));
            snapshot->lines.push_back(linesOf(doc, i, scope.costIds, index));
        }
    }
    return snapshot;
}

JourneyChange JourneyChange::since(const JourneySnapshot &before, const WayFernData &doc)
{
    JourneyChange change;
    const Head now = headOf(doc);
    if (!(before.head == now)) {
        change.headChanged = true;
        change.head = {before.head, now};
    }
    change.currencies = stretch(before.currencies, doc.currencies);
    change.ctypes = stretch(before.ctypes, doc.ctypes);
    change.ttypes = stretch(before.ttypes, doc.ttypes);
    change.qtypes = stretch(before.qtypes, doc.qtypes);
    change.tips = stretch(before.tips, doc.tips);

    const std::vector<int> &ids = before.scope.costIds;
    std::vector<bool> flagsNow;
    std::vector<std::pair<int, CostsData>> costsNow = costsOf(doc, ids, flagsNow);
    if (!samePlaced(before.costs, costsNow)) {
        change.costs.before = before.costs;
        change.costs.after = std::move(costsNow);
        // The flags from the first position that the step touched to the end; the equal end
        // stays out, as long as it lies behind every touched position.
        int from = std::numeric_limits<int>::max();
        int lastBefore = -1;
        int lastAfter = -1;
        for (const auto &[at, cost] : change.costs.before) {
            from = std::min(from, at);
            lastBefore = std::max(lastBefore, at);
        }
        for (const auto &[at, cost] : change.costs.after) {
            from = std::min(from, at);
            lastAfter = std::max(lastAfter, at);
        }
        const int nb = int(before.shared.size());
        const int na = int(flagsNow.size());
        int endBefore = nb;
        int endAfter = na;
        while (endBefore > from && endAfter > from && endBefore - 1 > lastBefore
               && endAfter - 1 > lastAfter
               && before.shared[size_t(endBefore - 1)] == flagsNow[size_t(endAfter - 1)]) {
            --endBefore;
            --endAfter;
        }
        change.shared.first.from = from;
        change.shared.first.flags.assign(before.shared.begin() + std::min(from, nb),
                                         before.shared.begin() + endBefore);
        change.shared.second.from = from;
        change.shared.second.flags.assign(flagsNow.begin() + std::min(from, na),
                                          flagsNow.begin() + endAfter);
    }

    if (before.scope.accounts && int(before.users.size()) != doc.users.count()) {
        change.users = stretch(before.users, doc.users);
        return change;
    }
    for (int i = 0; i < doc.users.count() && i < int(before.users.size()); ++i) {
        const UserData &then = before.users[size_t(i)];
        const UserData *user = doc.users.at(i);
        if (!sameOwnFields(then, *user)) {
            change.userFields.before.emplace_back(i, ownFieldsOf(then));
            change.userFields.after.emplace_back(i, ownFieldsOf(*user));
        }
        Account account;
        account.user = i;
        if (before.scope.accounts) {
            account.lines = stretch(then.kto, user->kto);
        } else {
            std::vector<std::pair<int, KtoData>> linesNow = linesOf(doc, i, ids, before.index);
            if (!samePlaced(before.lines[size_t(i)], linesNow)) {
                account.lines.before = before.lines[size_t(i)];
                account.lines.after = std::move(linesNow);
            }
        }
        if (!account.lines.isEmpty())
            change.accounts.push_back(std::move(account));
    }
    return change;
}

bool JourneyChange::isEmpty() const
{
    return !headChanged && currencies.isEmpty() && ctypes.isEmpty() && ttypes.isEmpty()
        && qtypes.isEmpty() && tips.isEmpty() && costs.isEmpty() && users.isEmpty()
        && userFields.isEmpty() && accounts.empty();
}

CostsData *JourneyChange::undo(WayFernData &doc) const
{
    return apply(doc, false);
}

CostsData *JourneyChange::redo(WayFernData &doc) const
{
    return apply(doc, true);
}

CostsData *JourneyChange::apply(WayFernData &doc, bool forward) const
{
    if (headChanged) {
        const Head &to = forward ? head.second : head.first;
        doc.journeyname = to.journeyname;
        doc.basecurrency = to.basecurrency;
        doc.distancetype = to.distancetype;
        doc.userflag = to.userflag;
    }
    place(doc.currencies, currencies, forward);
    place(doc.ctypes, ctypes, forward);
    place(doc.ttypes, ttypes, forward);
    place(doc.qtypes, qtypes, forward);
    place(doc.tips, tips, forward);

    CostsData *first = nullptr;
    if (!costs.isEmpty()) {
        place(doc.costs, costs, forward);
        const SharedFlags &flags = forward ? shared.second : shared.first;
        for (size_t i = 0; i < flags.flags.size(); ++i)
            doc.costs.at(flags.from + int(i))->shared = flags.flags[i];
        const auto &placed = forward ? costs.after : costs.before;
        if (!placed.empty())
            first = doc.costs.at(placed.front().first);
    }

    place(doc.users, users, forward);
    for (const auto &[at, fields] : forward ? userFields.after : userFields.before)
        forEachOwnField(*doc.users.at(at), fields, [](auto &x, const auto &y) { x = y; });
    for (const Account &account : accounts) {
        UserData *user = doc.users.at(account.user);
        place(user->kto, account.lines, forward);
        // The line an editor works on may have gone; the last line is where it rests.
        user->actukto = user->kto.last();
    }
    return first;
}

size_t JourneyChange::bytes() const
{
    size_t total = sizeof(*this);
    total += bytesOf(currencies) + bytesOf(ctypes) + bytesOf(ttypes) + bytesOf(qtypes)
        + bytesOf(tips) + bytesOf(costs) + bytesOf(userFields);
    total += (shared.first.flags.size() + shared.second.flags.size()) / 8;
    for (const auto &[at, user] : users.before)
        total += size_t(user.kto.count()) * (sizeof(KtoData) + 16);
    for (const auto &[at, user] : users.after)
        total += size_t(user.kto.count()) * (sizeof(KtoData) + 16);
    total += bytesOf(users);
    for (const Account &account : accounts)
        total += sizeof(Account) + bytesOf(account.lines);
    return total;
}
