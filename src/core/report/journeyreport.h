#pragma once

#include <QCoreApplication>
#include <QList>
#include <QString>
#include <QStringList>

class WayFernData;

// What the journey report shows, worked out once: the figures, the chart data and the rows.
// The PDF painter and the HTML page both draw from here, so they cannot disagree. Built from
// a journey whose figures are fresh (sorted by date, sums computed), as the window keeps them
// and JourneyCalc::refreshFigures leaves them.
class JourneyReport
{
    Q_DECLARE_TR_FUNCTIONS(JourneyReport)

public:
    // One bar of a chart: a category's or a traveller's spending.
    struct Bar
    {
        QString name;
        double value = 0.0;
        QString valueText; // two decimals
    };

    struct Traveller
    {
        QString shortName;
        QString fullName; // first name and name
        // In cents, each as its account lines changed the balance: deposits, pay-offs
        // (as booked, so of either sign) and the shares of costs (positive: what he spent).
        qint64 paidIn = 0;
        qint64 payOffs = 0;
        qint64 shares = 0;
        qint64 balance = 0;
    };

    struct Balance
    {
        QString name; // a traveller's short name or the kitty's
        qint64 cents = 0;
    };

    struct Cost
    {
        QString date;
        QString type;
        QString comment;
        QString foreign;   // the value in its own currency, two decimals, and that currency
        QString baseValue; // two decimals, in the base currency
        bool shared = false;
    };

    // `fileName` names the journey when it has no name of its own.
    static JourneyReport fromJourney(const WayFernData &doc, const QString &fileName);

    QString title;
    QString fileName;
    QString currency;
    QString firstDate;
    QString lastDate;
    int days = 0; // both ends counted; 0 without costs
    QString totalText;
    QString perDayText;
    QList<Bar> categories; // the journey's cost types in list order, then types not listed
    QList<Bar> travellerShares;
    QList<Traveller> travellers;
    QList<Balance> balances; // travellers, then the kitty
    qint64 unbooked = 0;
    // The shared costs whose shares do not add up to them: "12.06.2002 H 75.40, shares 70.00".
    QStringList openCosts;
    QStringList plan;             // "XY pays AB 12.30 EUR"
    bool planProvenFewest = true; // false beyond Settlement::MaxProvenParties
    QList<Cost> costs;

    // Shown texts, shared by both outputs so they read alike.
    static QString kittyName() { return tr("kitty"); }
    QString datesText() const;
    QString totalLine() const;
    QString perDayLine() const;
    // What is unbooked, and why when it is not nothing: the costs follow in openCosts.
    QString unbookedLine() const;
    // Under the plan: whether it is proven to be the fewest transfers; empty without a plan.
    QString planNoteLine() const;
    static QString nobodyOwesText() { return tr("Nobody owes anybody anything."); }
    static QString centsText(qint64 cents);
    // The largest value of the bars, for scaling a chart; 0 when there is none above 0.
    static double largest(const QList<Bar> &bars);

    // The report as one self-contained HTML page (UTF-8, no outside resources).
    QString html() const;
};
