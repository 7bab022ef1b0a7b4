#pragma once

#include <algorithm>
#include <iterator>
#include <memory>
#include <utility>
#include <vector>

// An owning list of records. Removing a record destroys it; every pointer handed out is a
// non-owning view that stays valid until its record leaves the list. Copies are deep.
template <typename T>
class RecordList
{
public:
    RecordList() = default;
    RecordList(RecordList &&other) noexcept : items(std::move(other.items)) { ++other.changes; }
    RecordList &operator=(RecordList &&other) noexcept
    {
        items = std::move(other.items);
        ++changes;
        ++other.changes;
        return *this;
    }
    RecordList(const RecordList &other) { copyFrom(other); }
    RecordList &operator=(const RecordList &other)
    {
        if (this != &other) {
            clear();
            copyFrom(other);
        }
        return *this;
    }

    // Appends a record with its default values and returns it.
    T *append() { return append(std::make_unique<T>()); }
    T *append(std::unique_ptr<T> record)
    {
        ++changes;
        items.push_back(std::move(record));
        return items.back().get();
    }

    // Inserts a record with its default values in front of position `i` (at the end when
    // `i` is past it) and returns it.
    T *insert(int i)
    {
        ++changes;
        const size_t at = i < 0 ? 0 : std::min(size_t(i), items.size());
        return items.insert(items.begin() + long(at), std::make_unique<T>())->get();
    }

    // Takes `n` records from position `at` on, or puts a run of records in there: a long run
    // costs one shift of the rest of the list.
    void removeRange(int at, int n)
    {
        items.erase(items.begin() + at, items.begin() + at + n);
        ++changes;
    }
    void insertRange(int at, std::vector<std::unique_ptr<T>> run)
    {
        items.insert(items.begin() + at, std::make_move_iterator(run.begin()),
                     std::make_move_iterator(run.end()));
        ++changes;
    }

    int count() const { return int(items.size()); }
    bool isEmpty() const { return items.empty(); }
    T *at(int i) const { return items[size_t(i)].get(); }
    T *first() const { return items.empty() ? nullptr : items.front().get(); }
    T *last() const { return items.empty() ? nullptr : items.back().get(); }

    int indexOf(const T *record) const
    {
        for (size_t i = 0; i < items.size(); ++i)
            if (items[i].get() == record)
                return int(i);
        return -1;
    }
    bool contains(const T *record) const { return record && indexOf(record) >= 0; }

    // Destroys the record; false when it is not in the list.
    bool remove(const T *record)
    {
        const int i = indexOf(record);
        if (i < 0)
            return false;
        items.erase(items.begin() + i);
        ++changes;
        return true;
    }
    void clear()
    {
        items.clear();
        ++changes;
    }

    // Counts every change of membership: a remembered pointer taken at an older count may
    // point at a record that has gone, or at a new one in its place.
    unsigned long long generation() const { return changes; }

    // Iteration yields the records as plain pointers, first to last.
    class const_iterator
    {
    public:
        using Base = typename std::vector<std::unique_ptr<T>>::const_iterator;
        explicit const_iterator(Base b) : it(b) {}
        T *operator*() const { return it->get(); }
        const_iterator &operator++()
        {
            ++it;
            return *this;
        }
        bool operator!=(const const_iterator &o) const { return it != o.it; }

    private:
        Base it;
    };
    const_iterator begin() const { return const_iterator(items.begin()); }
    const_iterator end() const { return const_iterator(items.end()); }

private:
    void copyFrom(const RecordList &other)
    {
        items.reserve(other.items.size());
        for (const auto &r : other.items)
            items.push_back(std::make_unique<T>(*r));
    }

    std::vector<std::unique_ptr<T>> items;
    unsigned long long changes = 0;
};
