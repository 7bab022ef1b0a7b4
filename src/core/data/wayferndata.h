#pragma once

#include "data/journeyrecords.h"
#include "data/wayfernconfig.h"

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QStringList>

// The one journey document of the running program. Everybody gets a plain pointer to it;
// the main window owns it.
class JourneyHistory;

class WayFernData : public QObject
{
    Q_OBJECT

public:
    WayFernData();
    ~WayFernData() override;

    WayFernConfig config;

    QString journeyname;
    QString basecurrency;
    QString distancetype;
    QString lastfile;
    bool userflag = false;

    QString totaltext;
    QString perdaytext;
    double total = 0.0;
    double perday = 0.0;

    RecordList<CurrData> currencies;
    RecordList<CostsData> costs;
    RecordList<TipData> tips;
    RecordList<UserData> users;
    RecordList<CTypeData> ctypes;
    RecordList<TTypeData> ttypes;
    RecordList<QTypeData> qtypes;

    bool modified = false;
    quint64 changes = 0;
    // Where the actions record their steps for undo; none outside the window.
    JourneyHistory *history = nullptr;

    // Lookups walk from the last record to the first: among equal keys the last one wins.
    UserData *findUser(const QString &key) const;
    // A null key looks nothing up and answers the previous result, on purpose.
    CurrData *findCurrency(const QString &key);
    TTypeData *findTipType(const QString &key);

    // The texts that the combo boxes offer, first record to last.
    QStringList costTypeNames() const;
    QStringList currencyNames() const;
    QStringList tipTypeNames() const;
    QStringList qualityTypeNames() const;

    void addAllKto(int magic);
    bool findAllKto(int magic);
    void removeAllKto(int magic);

    void recalcFactors();
    void rebaseCurrencies();
    void recalcCost(CostsData *cost, const QString &ctype);
    void recalcCosts();
    void recalcUsers();
    void setCostLetters();
    // Points at the first byte from 'A' to '_' of the Latin-1 text, or at the end mark.
    // The buffer lives until the next call.
    const char *firstCapital(const QString &text);
    int nextCostId() const;
    // Exchange the contents of two records of the list; what belongs to the list position
    // (`shared` of a cost) stays.
    void swapCosts(CostsData *a, CostsData *b);
    void swapTips(TipData *a, TipData *b);

    bool isModified() const { return modified; }
    void setModified(bool m)
    {
        modified = m;
        if (m)
            ++changes;
    }
    // Counts the changes, so that a keeper of copies sees whether there was one since.
    quint64 changeCount() const { return changes; }

    void clearAll();
    void clearUsers();
    void clearCosts();
    void clearTips();
    void clearCurrencies();
    void clearCostTypes();
    void clearTipTypes();
    void clearQualityTypes();

    // Frame of a document life cycle; nothing in the program calls these.
    void newDoc() {}
    bool save() { return true; }
    bool saveAs(const QString &) { return true; }
    bool load(const QString &);

signals:
    void documentChanged();

private:
    // Remembered between calls. They are checked against the lists before use, so a
    // record that has gone is never read: such a call behaves like a fresh lookup.
    CurrData *lastCurrency = nullptr;
    TTypeData *lastTipType = nullptr;
    QString recalcCtype;
    CurrData *recalcCurrency = nullptr;
    unsigned long long recalcGeneration = 0;
    QByteArray capitalBuffer;
};
