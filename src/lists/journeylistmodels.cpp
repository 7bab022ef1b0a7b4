#include "lists/journeylistmodels.h"

#include "data/journeyrecords.h"
#include "data/wayferndata.h"
#include "editors/numbertext.h"
#include "storage/scqtutil.h"

#include <QCoreApplication>

#include <iterator>

namespace {

// The column heads keep the translations of the forms they stood in.
const char *const costHeads[] = {
    QT_TRANSLATE_NOOP("MainDlg1", "date"),  QT_TRANSLATE_NOOP("MainDlg1", "tp"),
    QT_TRANSLATE_NOOP("MainDlg1", "base"),  QT_TRANSLATE_NOOP("MainDlg1", "foreign"),
    QT_TRANSLATE_NOOP("MainDlg1", "fcurr"),
};
const char *const tipHeads[] = {
    QT_TRANSLATE_NOOP("MainDlg1", "type"),
    QT_TRANSLATE_NOOP("MainDlg1", "tip"),
    QT_TRANSLATE_NOOP("MainDlg1", "quality"),
};
const char *const accountHeads[] = {
    QT_TRANSLATE_NOOP("UserKtoDlg", "date"),
    QT_TRANSLATE_NOOP("UserKtoDlg", "change"),
    QT_TRANSLATE_NOOP("UserKtoDlg", "total"),
};

constexpr int costColumns = int(std::size(costHeads));
constexpr int tipColumns = int(std::size(tipHeads));
constexpr int accountColumns = int(std::size(accountHeads));

// Amounts stand right-aligned, under a right-aligned head.
const QVariant rightAligned = QVariant(int(Qt::AlignRight | Qt::AlignVCenter));

QVariant head(const char *context, const char *text)
{
    return QCoreApplication::translate(context, text);
}

// Record `row` of `list`, or null: a row counts while it was counted at the last reset and
// its record still exists.
template <class Record>
Record *recordAt(const RecordList<Record> *list, int rows, int row)
{
    return list && row >= 0 && row < rows && row < list->count() ? list->at(row) : nullptr;
}

// The row that shows `record`, or -1.
template <class Record>
int rowOfRecord(const RecordList<Record> *list, int rows, const Record *record)
{
    const int row = list && record ? list->indexOf(record) : -1;
    return row < rows ? row : -1;
}

} // namespace

// ---------------------------------------------------------------------------------------

CostListModel::CostListModel(WayFernData *doc, QObject *parent)
    : QAbstractTableModel(parent), doc(doc)
{
}

void CostListModel::setMarks(const QIcon &shared, const QIcon &unshared)
{
    sharedMark = shared;
    unsharedMark = unshared;
}

void CostListModel::reload()
{
    beginResetModel();
    rows = doc ? doc->costs.count() : 0;
    marks = doc && doc->userflag;
    baseHead = doc ? doc->basecurrency : QString();
    reloaded = doc != nullptr;
    endResetModel();
}

CostsData *CostListModel::costAt(int row) const
{
    return recordAt(doc ? &doc->costs : nullptr, rows, row);
}

int CostListModel::rowOf(const CostsData *cost) const
{
    return rowOfRecord(doc ? &doc->costs : nullptr, rows, cost);
}

int CostListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : rows;
}

int CostListModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : costColumns;
}

QVariant CostListModel::data(const QModelIndex &index, int role) const
{
    const CostsData *cost = index.isValid() ? costAt(index.row()) : nullptr;
    if (!cost)
        return {};
    const int column = index.column();
    switch (role) {
    case Qt::DisplayRole:
        switch (column) {
        case 0:
            return ScQtUtil::fileBaseName(cost->date);
        case 1:
            return cost->typeletter;
        case 2:
            return cost->bval;
        case 3:
            return cost->fval;
        case 4:
            return cost->ctype;
        }
        break;
    case Qt::TextAlignmentRole:
        if (column == 2 || column == 3)
            return rightAligned;
        break;
    case Qt::DecorationRole:
        if (column == 0 && marks)
            return cost->shared ? sharedMark : unsharedMark;
        break;
    }
    return {};
}

QVariant CostListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= costColumns)
        return {};
    if (role == Qt::DisplayRole) {
        // The base column is headed by the journey's base currency once it is known.
        if (section == 2 && reloaded)
            return baseHead;
        return head("MainDlg1", costHeads[section]);
    }
    if (role == Qt::TextAlignmentRole && (section == 2 || section == 3))
        return rightAligned;
    return {};
}

// ---------------------------------------------------------------------------------------

TipListModel::TipListModel(WayFernData *doc, QObject *parent)
    : QAbstractTableModel(parent), doc(doc)
{
}

void TipListModel::reload()
{
    beginResetModel();
    rows = doc ? doc->tips.count() : 0;
    endResetModel();
}

TipData *TipListModel::tipAt(int row) const
{
    return recordAt(doc ? &doc->tips : nullptr, rows, row);
}

int TipListModel::rowOf(const TipData *tip) const
{
    return rowOfRecord(doc ? &doc->tips : nullptr, rows, tip);
}

int TipListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : rows;
}

int TipListModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : tipColumns;
}

QVariant TipListModel::data(const QModelIndex &index, int role) const
{
    const TipData *tip = index.isValid() ? tipAt(index.row()) : nullptr;
    if (!tip || role != Qt::DisplayRole)
        return {};
    switch (index.column()) {
    case 0:
        return tip->typeletter;
    case 1:
        return tip->name;
    case 2:
        return tip->qualitytype;
    }
    return {};
}

QVariant TipListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole && section >= 0
        && section < tipColumns)
        return head("MainDlg1", tipHeads[section]);
    return {};
}

// ---------------------------------------------------------------------------------------

AccountListModel::AccountListModel(QObject *parent) : QAbstractTableModel(parent) {}

void AccountListModel::reload(const UserData *shown)
{
    beginResetModel();
    user = shown;
    totals.clear();
    if (user) {
        totals.reserve(size_t(user->kto.count()));
        double total = 0.0;
        for (const KtoData *line : user->kto) {
            total += line->change;
            totals.push_back(total);
        }
    }
    endResetModel();
}

int AccountListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(totals.size());
}

int AccountListModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : accountColumns;
}

QVariant AccountListModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || role != Qt::DisplayRole || !user)
        return {};
    const int line = int(totals.size()) - 1 - index.row();
    if (line < 0 || line >= user->kto.count())
        return {};
    switch (index.column()) {
    case 0:
        return user->kto.at(line)->date;
    case 1:
        return numberText("%.2f", user->kto.at(line)->change);
    case 2:
        return numberText("%.2f", totals[size_t(line)]);
    }
    return {};
}

QVariant AccountListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole && section >= 0
        && section < accountColumns)
        return head("UserKtoDlg", accountHeads[section]);
    return {};
}
