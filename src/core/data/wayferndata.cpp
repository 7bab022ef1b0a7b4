#include "data/wayferndata.h"

#include "storage/fixedtext.h"
#include "storage/scqtutil.h"

#include <cstdio>
#include <cstdlib>

WayFernData::WayFernData() = default;

WayFernData::~WayFernData()
{
    clearAll();
}

UserData *WayFernData::findUser(const QString &key) const
{
    for (int i = users.count() - 1; i >= 0; --i)
        if (users.at(i)->short_ == key)
            return users.at(i);
    return nullptr;
}

CurrData *WayFernData::findCurrency(const QString &key)
{
    if (key.isNull()) {
        if (!currencies.contains(lastCurrency))
            lastCurrency = nullptr;
        return lastCurrency;
    }
    lastCurrency = nullptr;
    for (int i = currencies.count() - 1; i >= 0; --i) {
        if (currencies.at(i)->short_ == key) {
            lastCurrency = currencies.at(i);
            break;
        }
    }
    return lastCurrency;
}

TTypeData *WayFernData::findTipType(const QString &key)
{
    if (key.isNull()) {
        if (!ttypes.contains(lastTipType))
            lastTipType = nullptr;
        return lastTipType;
    }
    lastTipType = nullptr;
    for (int i = ttypes.count() - 1; i >= 0; --i) {
        if (ttypes.at(i)->type == key) {
            lastTipType = ttypes.at(i);
            break;
        }
    }
    return lastTipType;
}

QStringList WayFernData::costTypeNames() const
{
    QStringList names;
    for (const CTypeData *row : ctypes)
        names << row->type;
    return names;
}

QStringList WayFernData::currencyNames() const
{
    QStringList names;
    for (const CurrData *curr : currencies)
        names << curr->short_;
    return names;
}

QStringList WayFernData::tipTypeNames() const
{
    QStringList names;
    for (const TTypeData *row : ttypes)
        names << row->type;
    return names;
}

QStringList WayFernData::qualityTypeNames() const
{
    QStringList names;
    for (const QTypeData *row : qtypes)
        names << row->type;
    return names;
}

void WayFernData::addAllKto(int magic)
{
    for (int i = users.count() - 1; i >= 0; --i) {
        UserData *user = users.at(i);
        user->actukto = user->addKto(magic);
    }
}

bool WayFernData::findAllKto(int magic)
{
    for (int i = users.count() - 1; i >= 0; --i) {
        UserData *user = users.at(i);
        user->actukto = user->findKto(magic);
        if (!user->actukto)
            return false;
    }
    return true;
}

void WayFernData::removeAllKto(int magic)
{
    for (int i = users.count() - 1; i >= 0; --i) {
        UserData *user = users.at(i);
        user->removeKto(user->findKto(magic));
    }
}

void WayFernData::recalcFactors()
{
    for (int i = currencies.count() - 1; i >= 0; --i) {
        CurrData *curr = currencies.at(i);
        curr->factorvalue = curr->factor.toDouble();
        curr->invfactor = curr->factorvalue != 0.0 ? 1 / curr->factorvalue : 1.0;
    }
}

void WayFernData::rebaseCurrencies()
{
    CurrData *base = findCurrency(basecurrency);
    if (!base)
        return;
    const double old = base->factorvalue;
    for (int i = currencies.count() - 1; i >= 0; --i) {
        CurrData *curr = currencies.at(i);
        if (old != 0.0) {
            curr->factorvalue = curr->factorvalue / old;
            curr->factor = QString::asprintf("%.4f", curr->factorvalue);
        }
    }
    recalcFactors();
}

void WayFernData::recalcCost(CostsData *cost, const QString &ctype)
{
    // Once the currency list has changed (a currency deleted, a journey replaced), the
    // remembered currency may be gone: look up afresh.
    if (ctype != recalcCtype || currencies.generation() != recalcGeneration) {
        recalcCtype = ctype;
        recalcFactors();
        recalcCurrency = findCurrency(ctype);
        recalcGeneration = currencies.generation();
    }
    if (!recalcCurrency)
        return;
    cost->fvalue = cost->fval.toDouble();
    cost->bvalue = cost->fvalue * recalcCurrency->invfactor;
    cost->bval = QString::asprintf("%.2f", cost->bvalue);
}

void WayFernData::recalcCosts()
{
    const auto writeAmount = [](QString &text, double value) { setFixedText(text, value, 2); };
    double sum = 0.0;
    // Costs come in runs of one currency: the one found last is asked first.
    CurrData *found = nullptr;
    for (CostsData *cost : costs) {
        cost->fvalue = cost->fvalRead.of(
            cost->fval, [](const QString &fval) { return ScQtUtil::toDouble(QStringView(fval)); });
        // The reader gives the costs of one currency one shared text: mostly the same string.
        const bool sameCurrency = found && !cost->ctype.isNull()
            && (isSameString(found->short_, cost->ctype) || found->short_ == cost->ctype);
        CurrData *currency = sameCurrency ? found : findCurrency(cost->ctype);
        found = currency;
        if (currency) {
            cost->bvalue = cost->fvalue * currency->invfactor;
            cost->bvalShown.show(cost->bval, cost->bvalue, writeAmount);
        } else {
            cost->bvalue = 0.0;
            cost->bval = QStringLiteral("0.0");
        }
        cost->curr = currency;
        sum = sum + cost->bvalue;
        cost->bsumvalue = sum;
        cost->bsumShown.show(cost->bsum, sum, writeAmount);
    }
}

void WayFernData::recalcUsers()
{
    for (UserData *user : users) {
        double value = 0.0;
        for (const KtoData *line : user->kto)
            value += line->change;
        user->value = value;
    }
}

void WayFernData::setCostLetters()
{
    for (CostsData *cost : costs) {
        const char c = *firstCapital(cost->type);
        cost->typeletter = c ? QString(QLatin1Char(c)) : QStringLiteral("");
    }
}

const char *WayFernData::firstCapital(const QString &text)
{
    capitalBuffer = text.toLatin1();
    const char *p = capitalBuffer.constData();
    while (*p) {
        const unsigned char c = static_cast<unsigned char>(*p);
        if (c >= 65 && c <= 95)
            return p;
        ++p;
    }
    return p;
}

int WayFernData::nextCostId() const
{
    int max = 0;
    for (const CostsData *cost : costs)
        if (cost->id > max)
            max = cost->id;
    return max + 1;
}

void WayFernData::swapCosts(CostsData *a, CostsData *b)
{
    exchangeContents(*a, *b);
}

void WayFernData::swapTips(TipData *a, TipData *b)
{
    exchangeContents(*a, *b);
}

void WayFernData::clearAll()
{
    for (UserData *user : users)
        user->clearKto();
    clearUsers();
    clearCosts();
    clearTips();
    clearCurrencies();
    clearCostTypes();
    clearTipTypes();
    clearQualityTypes();
}

void WayFernData::clearUsers()
{
    users.clear();
}

void WayFernData::clearCosts()
{
    costs.clear();
}

void WayFernData::clearTips()
{
    for (TipData *tip : tips)
        tip->customs.clear();
    tips.clear();
}

void WayFernData::clearCurrencies()
{
    currencies.clear();
}

void WayFernData::clearCostTypes()
{
    ctypes.clear();
}

void WayFernData::clearTipTypes()
{
    for (TTypeData *row : ttypes)
        row->customs.clear();
    ttypes.clear();
}

void WayFernData::clearQualityTypes()
{
    qtypes.clear();
}

bool WayFernData::load(const QString &)
{
    emit documentChanged();
    return true;
}
