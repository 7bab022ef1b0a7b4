#include "export/journeycsv.h"

#include "data/wayferndata.h"

#include <QHash>
#include <QRegularExpression>
#include <QStringList>

namespace {

QString amount(double value)
{
    // A share of nothing is stored as -0.0 and a rest of a cent may round to nothing:
    // neither is written with a sign.
    QString text = QString::asprintf("%.2f", value);
    if (text == QLatin1String("-0.00"))
        text.remove(0, 1);
    return text;
}

bool looksLikeNumber(const QString &text)
{
    static const QRegularExpression number(QStringLiteral("^[+-]?[0-9]+([.,][0-9]+)?$"));
    return number.match(text).hasMatch();
}

void appendRow(QString &out, const QStringList &fields)
{
    out += fields.join(QLatin1Char(','));
    out += QLatin1String("\r\n");
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
    QString out;
    QStringList head = {
        QStringLiteral("date"),          QStringLiteral("type"),          QStringLiteral("comment"),
        QStringLiteral("foreign value"), QStringLiteral("currency"),      QStringLiteral("rate"),
        QStringLiteral("base value"),    QStringLiteral("base currency"), QStringLiteral("shared")};
    // Each traveller's share by cost id: the last line with the id, as lookups find it.
    QList<QHash<int, double>> shares;
    for (const UserData *user : doc.users) {
        head.append(textField(user->short_));
        QHash<int, double> byId;
        for (const KtoData *line : user->kto)
            if (line->magic >= 0)
                byId.insert(line->magic, line->change);
        shares.append(byId);
    }
    appendRow(out, head);

    const QString base = textField(doc.basecurrency);
    for (const CostsData *cost : doc.costs) {
        QStringList row = {textField(cost->date),
                           textField(cost->type),
                           textField(cost->comment),
                           amount(cost->fvalue),
                           textField(cost->ctype),
                           QString::asprintf("%.4f", cost->exchangevalue),
                           amount(cost->bvalue),
                           base,
                           QString()};
        // Shared means that an account holds a line for the cost: the record's own flag
        // stays with the list position when the costs are sorted by date.
        bool shared = false;
        for (const QHash<int, double> &byId : shares) {
            const auto it = byId.constFind(cost->id);
            shared = shared || it != byId.constEnd();
            row.append(it != byId.constEnd() ? amount(-it.value()) : QString());
        }
        row[8] = shared ? QStringLiteral("yes") : QStringLiteral("no");
        appendRow(out, row);
    }
    return out.toUtf8();
}

QByteArray JourneyCsv::accounts(const WayFernData &doc)
{
    QString out;
    appendRow(out,
              {QStringLiteral("traveller"), QStringLiteral("date"), QStringLiteral("type"),
               QStringLiteral("change"), QStringLiteral("running total")});
    for (const UserData *user : doc.users) {
        const QString name = textField(user->short_);
        double total = 0.0;
        for (const KtoData *line : user->kto) {
            total += line->change;
            appendRow(out,
                      {name, textField(line->date), textField(line->type), amount(line->change),
                       amount(total)});
        }
    }
    return out.toUtf8();
}
