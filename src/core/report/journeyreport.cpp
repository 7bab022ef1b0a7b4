#include "report/journeyreport.h"

#include "data/datetext.h"
#include "data/wayferndata.h"
#include "settle/settlement.h"
#include "settle/sharelines.h"

#include <QFileInfo>
#include <QHash>

#include <algorithm>

namespace {

// Account lines that are no share of a cost carry these in place of a cost id.
constexpr int DepositLine = -2;
constexpr int PayOffLine = -3;

// A rest that rounds to nothing is written without a sign: "-0.00" is "0.00".
QString unsignedNothing(QString text)
{
    if (!text.startsWith(QLatin1Char('-')) || text.size() < 2)
        return text;
    for (qsizetype i = 1; i < text.size(); ++i)
        if (text.at(i) != QLatin1Char('0') && text.at(i) != QLatin1Char('.'))
            return text;
    text.remove(0, 1);
    return text;
}

QString money(double value)
{
    return unsignedNothing(QString::asprintf("%.2f", value));
}

QString esc(const QString &text)
{
    return text.toHtmlEscaped();
}

} // namespace

QString JourneyReport::centsText(qint64 cents)
{
    return Settlement::centsText(cents);
}

double JourneyReport::largest(const QList<Bar> &bars)
{
    double most = 0.0;
    for (const Bar &bar : bars)
        most = std::max(most, bar.value);
    return most;
}

JourneyReport JourneyReport::fromJourney(const WayFernData &doc, const QString &fileName)
{
    JourneyReport r;
    r.fileName = fileName;
    r.title = doc.journeyname.trimmed().isEmpty() ? QFileInfo(fileName).completeBaseName()
                                                  : doc.journeyname;
    if (r.title.isEmpty())
        r.title = tr("Journey");
    r.currency = doc.basecurrency;
    // The journey's own texts, as the overview shows them, but never "-0.00".
    r.totalText = doc.totaltext.isEmpty() ? money(doc.total) : unsignedNothing(doc.totaltext);
    r.perDayText = doc.perdaytext.isEmpty() ? money(doc.perday) : unsignedNothing(doc.perdaytext);

    const CostsData *first = doc.costs.first();
    const CostsData *last = doc.costs.last();
    if (first && last) {
        r.firstDate = first->date;
        r.lastDate = last->date;
        DateParts work;
        // The same span as the per-day figure divides by.
        const int between = DateText::daysBetween(first->date, last->date, work);
        r.days = between != 0 ? between + 1 : 1;
    }

    // Category sums go backwards over the costs, as the overview adds them, so the two
    // show the same last digit.
    QHash<QString, int> categoryAt;
    for (const CTypeData *type : doc.ctypes) {
        if (categoryAt.contains(type->type))
            continue;
        categoryAt.insert(type->type, int(r.categories.size()));
        r.categories.append(Bar{type->type, 0.0, QString()});
    }
    for (const CostsData *cost : doc.costs) {
        if (!categoryAt.contains(cost->type)) {
            categoryAt.insert(cost->type, int(r.categories.size()));
            r.categories.append(Bar{cost->type, 0.0, QString()});
        }
    }
    for (int i = doc.costs.count() - 1; i >= 0; --i) {
        const CostsData *cost = doc.costs.at(i);
        Bar &bar = r.categories[categoryAt.value(cost->type)];
        bar.value = bar.value + cost->bvalue;
    }
    for (Bar &bar : r.categories) {
        bar.valueText = money(bar.value);
        if (bar.name.isEmpty())
            bar.name = tr("(no type)");
    }

    const ShareLines shares(doc);
    const int travellerCount = doc.users.count();
    for (int i = 0; i < travellerCount; ++i) {
        const UserData *user = doc.users.at(i);
        Traveller t;
        t.shortName = user->short_;
        t.fullName = QStringList({user->firstname, user->name}).join(QLatin1Char(' ')).trimmed();
        for (const KtoData *line : user->kto) {
            if (line->magic == DepositLine)
                t.paidIn += Settlement::toCents(line->change);
            else if (line->magic == PayOffLine)
                t.payOffs += Settlement::toCents(line->change);
        }
        r.travellers.append(t);
    }
    r.costs.reserve(doc.costs.count());
    for (const CostsData *cost : doc.costs) {
        Cost row;
        row.date = cost->date;
        row.type = cost->type;
        row.comment = cost->comment;
        row.foreign = money(cost->fvalue) + QLatin1Char(' ') + cost->ctype;
        row.baseValue = money(cost->bvalue);
        // Shared means an account holds a line for the cost (the record's flag stays with
        // the list position when the costs are sorted).
        for (int user = 0; user < travellerCount; ++user) {
            double change = 0.0;
            if (shares.find(user, cost->id, &change)) {
                row.shared = true;
                r.travellers[user].shares += Settlement::toCents(-change);
            }
        }
        r.costs.append(row);
    }
    for (const Traveller &t : r.travellers) {
        const double value = double(t.shares) / 100.0;
        r.travellerShares.append(Bar{t.shortName, value, centsText(t.shares)});
    }

    const Settlement settlement = Settlement::fromJourney(doc, kittyName());
    for (const Settlement::Party &party : settlement.parties()) {
        r.balances.append(Balance{party.name, party.cents});
        if (party.user != Settlement::Kitty)
            r.travellers[party.user].balance = party.cents;
    }
    r.unbooked = settlement.unbookedCents();
    const QString openPattern = tr("%1 %2 %3, shares %4");
    for (const Settlement::OpenCost &cost : settlement.openCosts())
        r.openCosts.append(Settlement::openCostText(cost, openPattern));
    const QString pattern = tr("%1 pays %2 %3 %4");
    const Settlement::Plan plan = settlement.fewestTransfers();
    for (const Settlement::Transfer &transfer : plan.transfers)
        r.plan.append(Settlement::transferText(transfer, r.currency, pattern));
    r.planProvenFewest = plan.provenFewest;
    return r;
}

QString JourneyReport::datesText() const
{
    if (costs.isEmpty())
        return tr("No costs yet.");
    if (days == 1)
        return tr("%1 to %2, 1 day").arg(firstDate, lastDate);
    return tr("%1 to %2, %3 days").arg(firstDate, lastDate).arg(days);
}

QString JourneyReport::totalLine() const
{
    return tr("Total: %1 %2 in %3 costs").arg(totalText, currency).arg(costs.size());
}

QString JourneyReport::perDayLine() const
{
    return tr("Per day: %1 %2").arg(perDayText, currency);
}

QString JourneyReport::unbookedLine() const
{
    if (!openCosts.isEmpty())
        return tr("Left unbooked because the shares of these costs do not add up to them: %1 %2")
            .arg(centsText(unbooked), currency);
    return tr("Left unbooked by the division of shared costs: %1 %2")
        .arg(centsText(unbooked), currency);
}

QString JourneyReport::planNoteLine() const
{
    if (plan.isEmpty())
        return QString();
    if (planProvenFewest)
        return tr("These are the fewest transfers possible.");
    return tr("The plan may not be the fewest transfers possible: too many travellers owe or "
              "are owed to prove it.");
}

QString JourneyReport::html() const
{
    QString out;
    out.reserve(4096 + costs.size() * 200);
    const QString cur = esc(currency);
    out += QStringLiteral("<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">\n<title>");
    out += esc(title);
    out += QStringLiteral(
        "</title>\n<style>\n"
        "body { font-family: sans-serif; margin: 2em; color: #222; }\n"
        "h1 { margin-bottom: 0.2em; }\n"
        "h2 { border-bottom: 1px solid #999; padding-bottom: 0.1em; margin-top: 1.5em; }\n"
        "table { border-collapse: collapse; }\n"
        "th, td { padding: 0.15em 0.6em; text-align: left; vertical-align: top; }\n"
        "th { border-bottom: 1px solid #999; }\n"
        "td.num, th.num { text-align: right; white-space: nowrap; }\n"
        "tr:nth-child(even) td { background: #f2f2f2; }\n"
        ".chart td { background: none; }\n"
        ".bar { background: #2f6fb2; height: 1em; min-width: 1px; }\n"
        ".bars { width: 20em; }\n"
        ".file { color: #666; }\n"
        "</style>\n</head>\n<body>\n");

    out += QStringLiteral("<h1>%1</h1>\n").arg(esc(title));
    if (!fileName.isEmpty())
        out += QStringLiteral("<p class=\"file\">%1</p>\n").arg(esc(fileName));
    out += QStringLiteral("<p>%1</p>\n").arg(esc(datesText()));
    out += QStringLiteral("<p><strong>%1</strong><br>\n%2</p>\n")
               .arg(esc(totalLine()), esc(perDayLine()));

    const auto chart = [&out](const QString &heading, const QString &nameHeading,
                              const QList<Bar> &bars, const QString &cur) {
        out += QStringLiteral("<h2>%1</h2>\n").arg(esc(heading));
        out += QStringLiteral("<table class=\"chart\">\n<tr><th>%1</th><th class=\"bars\"></th>"
                              "<th class=\"num\">%2</th></tr>\n")
                   .arg(esc(nameHeading), cur);
        const double most = largest(bars);
        for (const Bar &bar : bars) {
            const double share = most > 0.0 && bar.value > 0.0 ? bar.value / most : 0.0;
            out +=
                QStringLiteral("<tr><td>%1</td><td class=\"bars\"><div class=\"bar\" "
                               "style=\"width: %2%\"></div></td><td class=\"num\">%3</td>"
                               "</tr>\n")
                    .arg(esc(bar.name), QString::number(share * 100.0, 'f', 1), esc(bar.valueText));
        }
        out += QStringLiteral("</table>\n");
    };
    chart(tr("Spending by category"), tr("category"), categories, cur);

    if (!travellers.isEmpty()) {
        chart(tr("Spending by traveller"), tr("traveller"), travellerShares, cur);
        out += QStringLiteral("<table>\n<tr><th>%1</th><th>%2</th><th class=\"num\">%3</th>"
                              "<th class=\"num\">%4</th><th class=\"num\">%5</th>"
                              "<th class=\"num\">%6</th></tr>\n")
                   .arg(esc(tr("traveller")), esc(tr("name")), esc(tr("deposits")),
                        esc(tr("shares of costs")), esc(tr("pay-offs")), esc(tr("balance")));
        for (const Traveller &t : travellers)
            out += QStringLiteral("<tr><td>%1</td><td>%2</td><td class=\"num\">%3</td>"
                                  "<td class=\"num\">%4</td><td class=\"num\">%5</td>"
                                  "<td class=\"num\">%6</td></tr>\n")
                       .arg(esc(t.shortName), esc(t.fullName), centsText(t.paidIn),
                            centsText(t.shares), centsText(t.payOffs), centsText(t.balance));
        out += QStringLiteral("</table>\n");
    }

    out += QStringLiteral("<h2>%1</h2>\n<table>\n").arg(esc(tr("Balances")));
    for (const Balance &b : balances)
        out += QStringLiteral("<tr><td>%1</td><td class=\"num\">%2 %3</td></tr>\n")
                   .arg(esc(b.name), centsText(b.cents), cur);
    out += QStringLiteral("</table>\n<p>%1</p>\n").arg(esc(unbookedLine()));
    if (!openCosts.isEmpty()) {
        out += QStringLiteral("<ul>\n");
        for (const QString &line : openCosts)
            out += QStringLiteral("<li>%1</li>\n").arg(esc(line));
        out += QStringLiteral("</ul>\n");
    }

    out += QStringLiteral("<h2>%1</h2>\n").arg(esc(tr("Settlement plan")));
    if (plan.isEmpty()) {
        out += QStringLiteral("<p>%1</p>\n").arg(esc(nobodyOwesText()));
    } else {
        out += QStringLiteral("<ul>\n");
        for (const QString &line : plan)
            out += QStringLiteral("<li>%1</li>\n").arg(esc(line));
        out += QStringLiteral("</ul>\n");
        out += QStringLiteral("<p>%1</p>\n").arg(esc(planNoteLine()));
    }

    out += QStringLiteral("<h2>%1</h2>\n").arg(esc(tr("Costs")));
    out += QStringLiteral("<table>\n<tr><th>%1</th><th>%2</th><th>%3</th><th class=\"num\">%4"
                          "</th><th class=\"num\">%5</th><th>%6</th></tr>\n")
               .arg(esc(tr("date")), esc(tr("type")), esc(tr("comment")), esc(tr("value")), cur,
                    esc(tr("shared")));
    const QString yes = esc(tr("yes"));
    for (const Cost &c : costs) {
        out += QStringLiteral("<tr><td>");
        out += esc(c.date);
        out += QStringLiteral("</td><td>");
        out += esc(c.type);
        out += QStringLiteral("</td><td>");
        out += esc(c.comment);
        out += QStringLiteral("</td><td class=\"num\">");
        out += esc(c.foreign);
        out += QStringLiteral("</td><td class=\"num\">");
        out += esc(c.baseValue);
        out += QStringLiteral("</td><td>");
        if (c.shared)
            out += yes;
        out += QStringLiteral("</td></tr>\n");
    }
    out += QStringLiteral("</table>\n</body>\n</html>\n");
    return out;
}
