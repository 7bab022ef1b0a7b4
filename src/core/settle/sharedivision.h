#pragma once

#include <QList>
#include <QtGlobal>

// Dividing an amount among the sharers of a cost in whole cents. The parts always add up to
// the amount exactly: each sharer gets the whole cents of his proportion, and the cents
// left over go one each to the largest remainders, the first sharers in list order among
// equal remainders. A negative amount (a refund) is divided as its size and negated, so
// -100.00 among three is -33.34, -33.33, -33.33.
namespace ShareDivision {

// `cents` among `n` sharers alike: 100.00 among three is 33.34, 33.33, 33.33. Empty for
// n <= 0.
QList<qint64> evenly(qint64 cents, int n);

// `cents` in proportion to `weights` (each >= 0; a negative weight counts as its size).
// A sharer of weight 0 gets nothing. When every weight is 0 the result is all zeros: there
// is nobody to give it to.
QList<qint64> byWeights(qint64 cents, const QList<qint64> &weights);

// The proportions in which existing shares (in cents, any sign) are divided again: equal
// for the shares that an even division gave (so that 30.88, 30.88, 30.87 stays even for a
// new amount), otherwise the size of each share. All zeros when no share holds a cent.
QList<qint64> proportionsOf(const QList<qint64> &shares);

// The same for the shares as the account lines book them: `change` is minus the share.
// When no share holds a cent, the lines with a negated zero (the ticked sharers of an
// amount of 0.00) share alike, so that a cost of nothing that later gets an amount goes to
// the same travellers.
QList<qint64> proportionsOfChanges(const QList<double> &changes);

// The share in cents that an account change books, and back: a share is a debt, so the
// change is its negative; a share of nothing is the negated zero.
qint64 shareOfChange(double change);
double changeOfShare(qint64 cents);

// The part of each share in the amount, in percent: part / amount, or the proportion of its
// weight when the amount is 0.00. 0.0 for a sharer of weight 0.
QList<double> percentages(const QList<qint64> &parts, qint64 cents, const QList<qint64> &weights);

// Sum of the parts.
qint64 sum(const QList<qint64> &parts);

// Shares booked as `changes` (with their `percentages`) divided anew for an amount of
// `cents` in the same proportions, when they do not add up to it: the sharers of a share
// get their new change and percentage, the others keep theirs. False, and nothing changed,
// when they already add up or nobody holds a share.
bool divideAnew(qint64 cents, QList<double> &changes, QList<double> &percentages);

} // namespace ShareDivision
