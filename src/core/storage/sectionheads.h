#pragma once

#include <QByteArrayView>
#include <QHash>
#include <QStringView>

#include <algorithm>
#include <type_traits>
#include <vector>

// The section heads of a file, for its text (QStringView) or its bytes (QByteArrayView):
// the starts of the lines that begin with "[", listed on first use, so that a search for a
// head walks the heads instead of every line. Once such walks have added up to a few times
// the number of heads, the heads are hashed by their text up to the first "]", so that no
// file can make the searches quadratic.
template <class View>
class SectionHeads
{
public:
    void clear()
    {
        listed = false;
        heads.clear();
        walked = 0;
        hashed = false;
        ids.clear();
        sameHeads.clear();
        groupBegin.clear();
    }
    // Lets go of the memory as well.
    void release()
    {
        clear();
        heads.shrink_to_fit();
        sameHeads.shrink_to_fit();
        groupBegin.shrink_to_fit();
        ids.squeeze();
    }

    // How many lines of `all` from `begin` on begin a section.
    qsizetype count(View all, qsizetype begin)
    {
        list(all, begin);
        return qsizetype(heads.size());
    }
    // How many heads the searches have looked at so far: what they cost.
    qsizetype visited() const { return walked; }

    // The start of the first line at or behind `from` that begins with `pattern`, which
    // begins with "[", or -1. A line matches as it would read: the CR that ends a line is
    // no part of it, so a pattern ending in CR does not match there.
    qsizetype find(View all, qsizetype begin, qsizetype from, View pattern)
    {
        list(all, begin);
        // The key of the hash is the text up to the first "]". A pattern with a further "]"
        // inside (a traveller's short name may hold one) shares its key with other heads:
        // those of its key are compared with it one by one.
        const qsizetype close = pattern.indexOf(closing());
        if (close >= 0 && !hashed && walked > 4 * qsizetype(heads.size()) + 4096)
            buildHash(all);
        const bool endsInCr = pattern.endsWith(cr());
        const auto lineBegins = [&](qsizetype h) {
            if (!all.sliced(h).startsWith(pattern))
                return false;
            const qsizetype after = h + pattern.size();
            return !endsInCr || (after < all.size() && all.at(after) != lf());
        };
        if (close >= 0 && hashed) {
            const auto id = ids.constFind(Key{pattern.first(close + 1)});
            if (id == ids.constEnd())
                return -1;
            // A pattern that is the whole head text matches every line of its group.
            const bool wholeKey = close == pattern.size() - 1;
            return firstFrom(sameHeads.begin() + groupBegin[size_t(*id)],
                             sameHeads.begin() + groupBegin[size_t(*id) + 1], from, wholeKey,
                             lineBegins);
        }
        return firstFrom(heads.begin(), heads.end(), from, false, lineBegins);
    }

private:
    using Unit = std::remove_cv_t<std::remove_reference_t<decltype(View().at(0))>>;
    static constexpr Unit lf() { return Unit(u'\n'); }
    static constexpr Unit cr() { return Unit(u'\r'); }
    static constexpr Unit opening() { return Unit(u'['); }
    static constexpr Unit closing() { return Unit(u']'); }

    struct Key
    {
        View text;
        bool operator==(const Key &other) const { return text == other.text; }
        static unsigned unitValue(QChar c) { return c.unicode(); }
        static unsigned unitValue(char c) { return static_cast<unsigned char>(c); }
        // A cheap hash: the keys are short.
        friend size_t qHash(const Key &key, size_t seed)
        {
            size_t h = 2166136261u;
            for (qsizetype i = 0; i < key.text.size(); ++i)
                h = (h ^ unitValue(key.text.at(i))) * 16777619u;
            return h ^ seed;
        }
    };

    void list(View all, qsizetype begin)
    {
        if (listed)
            return;
        listed = true;
        // A head is a "[" that begins a line: searching for those characters passes over
        // the lines between heads at the speed of the library's search.
        for (qsizetype at = all.indexOf(opening(), begin); at >= 0;
             at = all.indexOf(opening(), at + 1))
            if (at == begin || all.at(at - 1) == lf())
                heads.push_back(at);
    }

    void buildHash(View all)
    {
        hashed = true;
        std::vector<int> idOf;
        idOf.reserve(heads.size());
        ids.reserve(qsizetype(heads.size()));
        for (const qsizetype start : heads) {
            qsizetype end = all.indexOf(lf(), start);
            if (end < 0)
                end = all.size();
            const qsizetype close = all.sliced(start, end - start).indexOf(closing());
            if (close < 0) {
                idOf.push_back(-1);
                continue;
            }
            const Key key{all.sliced(start, close + 1)};
            auto it = ids.constFind(key);
            if (it == ids.constEnd())
                it = ids.insert(key, int(ids.size()));
            idOf.push_back(*it);
        }
        // Group the line starts by key, keeping each group in file order.
        groupBegin.assign(size_t(ids.size()) + 1, 0);
        for (const int id : idOf)
            if (id >= 0)
                ++groupBegin[size_t(id) + 1];
        for (size_t i = 1; i < groupBegin.size(); ++i)
            groupBegin[i] += groupBegin[i - 1];
        std::vector<int> fill(groupBegin.begin(), groupBegin.end() - 1);
        sameHeads.resize(size_t(groupBegin.back()));
        for (size_t i = 0; i < heads.size(); ++i)
            if (idOf[i] >= 0)
                sameHeads[size_t(fill[size_t(idOf[i])]++)] = heads[i];
    }

    // The first line start in the sorted range [first, last) at or behind `from` whose line
    // begins as asked (every one when `anyLine`), or -1.
    template <class It, class LineBegins>
    qsizetype firstFrom(It first, It last, qsizetype from, bool anyLine, LineBegins lineBegins)
    {
        for (auto h = std::lower_bound(first, last, from); h != last; ++h) {
            ++walked;
            if (anyLine || lineBegins(*h))
                return *h;
        }
        return -1;
    }

    bool listed = false;
    std::vector<qsizetype> heads; // ascending
    qsizetype walked = 0;
    bool hashed = false;
    QHash<Key, int> ids;
    std::vector<qsizetype> sameHeads; // grouped by key, each group ascending
    std::vector<int> groupBegin;      // per key id: first entry in sameHeads, plus one end
};
