#include "data/journeycalc.h"

#include "data/wayferndata.h"

#include <QHash>

#include <algorithm>
#include <numeric>
#include <vector>

namespace {

// Orders the records of a list by date, keeping the order of records of one day. Contents
// move between the positions as exchanging them pairwise (exchangeContents) would leave them.
template <typename Record>
void sortByDate(RecordList<Record> &list, DateParts &last)
{
    const int n = list.count();
    std::vector<qint64> keys(size_t(n), 0);
    bool sorted = true;
    for (int i = 0; i < n; ++i) {
        Record *record = list.at(i);
        // An empty date takes the parts read before it, so only a written one is kept.
        if (record->date.isEmpty()) {
            keys[size_t(i)] = DateText::dayNumber(last);
        } else {
            const DateKey &read = record->dateRead.of(record->date, [](const QString &date) {
                DateKey read;
                DateText::read(date, DateText::Record, read.parts);
                read.key = DateText::dayNumber(read.parts);
                return read;
            });
            last = read.parts;
            keys[size_t(i)] = read.key;
        }
        if (i > 0 && keys[size_t(i)] < keys[size_t(i) - 1])
            sorted = false;
    }
    if (sorted)
        return;

    std::vector<int> order(static_cast<size_t>(n));
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(),
                     [&keys](int a, int b) { return keys[size_t(a)] < keys[size_t(b)]; });

    // Position i takes the contents that stood at order[i]: follow each cycle of the
    // permutation, moving each record's contents once (an exchange would move them three
    // times). The fields that belong to a position stay: `held`, the contents of the cycle's
    // first position, carries the fields of the position whose contents just left.
    const auto swapPositionFields = [](Record &a, Record &b) {
        Record::forEachPositionField(a, b, [](auto &x, auto &y) { std::swap(x, y); });
    };
    std::vector<bool> placed(size_t(n), false);
    for (int start = 0; start < n; ++start) {
        if (placed[size_t(start)] || order[size_t(start)] == start)
            continue;
        Record held(std::move(*list.at(start)));
        swapPositionFields(*list.at(start), held);
        int at = start;
        for (;;) {
            placed[size_t(at)] = true;
            Record &to = *list.at(at);
            const int from = order[size_t(at)];
            if (from == start) {
                swapPositionFields(to, held);
                to = std::move(held);
                break;
            }
            Record &source = *list.at(from);
            swapPositionFields(to, source);
            swapPositionFields(to, held);
            to = std::move(source);
            swapPositionFields(source, held);
            at = from;
        }
    }
}

} // namespace

qint64 JourneyCalc::dateKey(const QString &date, DateParts &last)
{
    DateText::read(date, DateText::Record, last);
    return DateText::dayNumber(last);
}

void JourneyCalc::sortCosts(WayFernData &doc, DateParts &last)
{
    sortByDate(doc.costs, last);
}

void JourneyCalc::sortTips(WayFernData &doc, DateParts &last)
{
    sortByDate(doc.tips, last);
}

void JourneyCalc::calcSums(WayFernData &doc, const DaysBetween &daysBetween)
{
    doc.total = 0.0;
    doc.recalcFactors();
    doc.recalcCosts();
    // Backwards, as the overview always added: the last digits may differ from the
    // running sum of the costs, which goes forwards.
    for (int i = doc.costs.count() - 1; i >= 0; --i)
        doc.total = doc.total + doc.costs.at(i)->bvalue;
    doc.totaltext = QString::asprintf("%.2f", doc.total);

    int days = 0;
    const CostsData *first = doc.costs.first();
    const CostsData *last = doc.costs.last();
    if (first && last && first->date != QLatin1String("(null)")
        && last->date != QLatin1String("(null)"))
        days = daysBetween(first->date, last->date);
    // Both ends of the span count as days of the journey.
    if (days != 0)
        doc.perday = doc.total / (days + 1);
    else
        doc.perday = doc.total;
    doc.perdaytext = QString::asprintf("%.2f", doc.perday);
}

double JourneyCalc::categorySum(const WayFernData &doc, const QString &type)
{
    double sum = 0.0;
    for (int i = doc.costs.count() - 1; i >= 0; --i) {
        const CostsData *cost = doc.costs.at(i);
        if (cost->type == type)
            sum = sum + cost->bvalue;
    }
    return sum;
}

QList<double> JourneyCalc::categorySums(const WayFernData &doc)
{
    QHash<QString, double> sums;
    for (const CTypeData *row : doc.ctypes)
        sums.insert(row->type, 0.0);
    // The costs of one type mostly share one string: its characters' address finds the sum
    // without hashing the text each time.
    struct Known
    {
        qsizetype size;
        double *sum; // null for a type without a row
    };
    QHash<const QChar *, Known> byString;
    for (int i = doc.costs.count() - 1; i >= 0; --i) {
        const CostsData *cost = doc.costs.at(i);
        const auto known = byString.constFind(cost->type.constData());
        double *sum = nullptr;
        if (known != byString.cend() && known->size == cost->type.size()) {
            sum = known->sum;
        } else {
            const auto row = sums.find(cost->type);
            sum = row == sums.end() ? nullptr : &*row;
            byString.insert(cost->type.constData(), {cost->type.size(), sum});
        }
        if (sum)
            *sum = *sum + cost->bvalue;
    }
    QList<double> result;
    result.reserve(doc.ctypes.count());
    for (const CTypeData *row : doc.ctypes)
        result.append(sums.value(row->type));
    return result;
}

void JourneyCalc::refreshFigures(WayFernData &doc, DateParts &last)
{
    sortCosts(doc, last);
    DateParts span;
    calcSums(doc, [&span](const QString &from, const QString &to) {
        return DateText::daysBetween(from, to, span);
    });
    sortTips(doc, last);
    if (doc.userflag)
        doc.recalcUsers();
}
