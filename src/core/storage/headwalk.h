#pragma once

#include <QtGlobal>

#include <algorithm>

// The section searches of the text and the byte readers: the first line start in the sorted
// range [first, last) at or behind `from` whose line begins as asked (every one when
// `anyLine`), or -1. Each start looked at counts in `visited`, what the search cost.
template <class It, class LineBegins>
qsizetype firstHeadFrom(It first, It last, qsizetype from, bool anyLine, LineBegins lineBegins,
                        qsizetype &visited)
{
    for (auto h = std::lower_bound(first, last, from); h != last; ++h) {
        ++visited;
        if (anyLine || lineBegins(*h))
            return *h;
    }
    return -1;
}
