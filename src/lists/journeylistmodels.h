#pragma once

#include <QAbstractTableModel>
#include <QIcon>
#include <QString>

#include <vector>

struct CostsData;
struct TipData;
struct UserData;
class WayFernData;

// The long lists of a journey as flat models over the document's records: row i is record i
// of its list. The models read the records when a view asks, so a refresh is a reset and
// builds nothing per row. The row count is taken at each reset: between a change of the
// journey and the refresh that follows it, the rows shown stay the ones counted.

// The cost list: date, category letter, base amount, foreign amount, foreign currency; the
// shared or unshared mark before the date when the journey has travellers.
class CostListModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    // Without a journey the list has its columns and no rows.
    explicit CostListModel(WayFernData *doc = nullptr, QObject *parent = nullptr);

    void setJourney(WayFernData *journey) { doc = journey; }

    // The shared and unshared marks of the first column.
    void setMarks(const QIcon &shared, const QIcon &unshared);
    // Takes the journey as it stands: its costs, its base currency (the head of the base
    // column) and whether it has travellers.
    void reload();
    // The cost shown in `row`, or null.
    CostsData *costAt(int row) const;
    // The row that shows `cost`, or -1.
    int rowOf(const CostsData *cost) const;

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

private:
    WayFernData *doc; // not owned
    int rows = 0;
    bool marks = false;
    bool reloaded = false;
    QString baseHead;
    QIcon sharedMark;
    QIcon unsharedMark;
};

// The tip list: type letter, name, quality.
class TipListModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    explicit TipListModel(WayFernData *doc = nullptr, QObject *parent = nullptr);

    void setJourney(WayFernData *journey) { doc = journey; }

    void reload();
    TipData *tipAt(int row) const;
    int rowOf(const TipData *tip) const;

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

private:
    WayFernData *doc; // not owned
    int rows = 0;
};

// One traveller's account: date, change and the total up to the line, the newest line on
// top. The totals are summed once per reload, oldest first, as the account adds them up.
class AccountListModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    explicit AccountListModel(QObject *parent = nullptr);

    // The account of `user`; null empties the list.
    void reload(const UserData *user);

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

private:
    const UserData *user = nullptr; // not owned
    std::vector<double> totals;     // oldest line first
};
