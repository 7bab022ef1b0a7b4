#include "export/journeycsv.h"

#include "data/wayferndata.h"
#include "settle/sharelines.h"

#include <QRegularExpression>
#include <QSaveFile>

#include <cstdio>
#include <cstring>
#include <utility>

namespace {

// Appends an amount with two decimals. A share of nothing is stored as -0.0 and a rest of
// a cent may round to nothing: neither is written with a sign.
void appendNumber(QByteArray &out, double value, int decimals)
{
    // Room for the largest double written whole.
    char text[400];
    const int n = snprintf(text, sizeof text, "%.*f", decimals, value);
    if (n < 0 || n >= int(sizeof text))
        return;
    const bool negativeZero = text[0] == '-' && strspn(text + 1, "0.") == size_t(n - 1);
    out.append(negativeZero ? text + 1 : text, negativeZero ? n - 1 : n);
}

bool looksLikeNumber(const QString &text)
{
    static const QRegularExpression number(QStringLiteral("^[+-]?[0-9]+([.,][0-9]+)?$"));
    return number.match(text).hasMatch();
}

void appendText(QByteArray &out, const QString &text)
{
    out += JourneyCsv::textField(text).toUtf8();
}

// The currency whose factor turns the cost into base money: the last of that name, as the
// journey's own computation finds it.
const CurrData *appliedCurrency(const WayFernData &doc, const QString &ctype)
{
    for (int i = doc.currencies.count() - 1; i >= 0; --i) {
        if (doc.currencies.at(i)->short_ == ctype)
            return doc.currencies.at(i);
    }
    return nullptr;
}

} // namespace

QString JourneyCsv::textField(const QString &text)
{
    QString field = text;
    if (!field.isEmpty()) {
        const QChar first = field.at(0);
        const bool formula = first == QLatin1Char('=') || first == QLatin1Char('+')
            || first == QLatin1Char('-') || first == QLatin1Char('@');
        if (formula && !looksLikeNumber(field))
            field.prepend(QLatin1Char('\''));
    }
    if (field.contains(QLatin1Char(',')) || field.contains(QLatin1Char('"'))
        || field.contains(QLatin1Char('\n')) || field.contains(QLatin1Char('\r'))) {
        field.replace(QLatin1String("\""), QLatin1String("\"\""));
        field = QLatin1Char('"') + field + QLatin1Char('"');
    }
    return field;
}

QByteArray JourneyCsv::costs(const WayFernData &doc)
{
    QByteArray out;
    out.reserve(qsizetype(doc.costs.count()) * (80 + 8 * doc.users.count()));
    out += "date,type,comment,foreign value,currency,rate,base value,base currency,shared";
    for (const UserData *user : doc.users) {
        out += ',';
        appendText(out, user->short_);
    }
    out += ",booked rate\r\n";

    const QByteArray base = textField(doc.basecurrency).toUtf8();
    const ShareLines shares(doc);
    const int travellers = doc.users.count();
    QByteArray shareCells;
    for (const CostsData *cost : doc.costs) {
        appendText(out, cost->date);
        out += ',';
        appendText(out, cost->type);
        out += ',';
        appendText(out, cost->comment);
        out += ',';
        appendNumber(out, cost->fvalue, 2);
        out += ',';
        appendText(out, cost->ctype);
        out += ',';
        // The rate that made the base value, from the currency as it stands now; a cost in
        // a currency the journey does not know has none.
        const CurrData *currency = appliedCurrency(doc, cost->ctype);
        if (currency && currency->invfactor != 0.0)
            appendNumber(out, 1.0 / currency->invfactor, 4);
        out += ',';
        appendNumber(out, cost->bvalue, 2);
        out += ',';
        out += base;
        // Shared means that an account holds a line for the cost: the record's own flag
        // stays with the list position when the costs are sorted by date.
        bool shared = false;
        shareCells.clear();
        for (int user = 0; user < travellers; ++user) {
            shareCells += ',';
            double change = 0.0;
            if (shares.find(user, cost->id, &change)) {
                shared = true;
                appendNumber(shareCells, -change, 2);
            }
        }
        out += shared ? ",yes" : ",no";
        out += shareCells;
        // The rate stored with the cost when it was booked; no figure is computed from it.
        out += ',';
        appendNumber(out, cost->exchangevalue, 4);
        out += "\r\n";
    }
    return out;
}

QByteArray JourneyCsv::accounts(const WayFernData &doc)
{
    QByteArray out;
    out += "traveller,date,type,change,running total\r\n";
    for (const UserData *user : doc.users) {
        const QByteArray name = textField(user->short_).toUtf8();
        double total = 0.0;
        for (const KtoData *line : user->kto) {
            total += line->change;
            out += name;
            out += ',';
            appendText(out, line->date);
            out += ',';
            appendText(out, line->type);
            out += ',';
            appendNumber(out, line->change, 2);
            out += ',';
            appendNumber(out, total, 2);
            out += "\r\n";
        }
    }
    return out;
}

QString JourneyCsv::accountsPathFor(const QString &costsPath)
{
    QString base = costsPath;
    if (base.endsWith(QLatin1String(".csv"), Qt::CaseInsensitive))
        base.chop(4);
    return base + QStringLiteral("-accounts.csv");
}

bool JourneyCsv::writeFiles(const WayFernData &doc, const QString &costsPath, QString *problem,
                            QString *failedPath)
{
    const std::pair<QString, QByteArray> files[] = {{costsPath, costs(doc)},
                                                    {accountsPathFor(costsPath), accounts(doc)}};
    for (const auto &[path, bytes] : files) {
        QSaveFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()
            || !file.commit()) {
            *problem = file.errorString();
            *failedPath = path;
            return false;
        }
    }
    return true;
}
