#pragma once

#include "data/datetext.h"
#include "data/recordlist.h"
#include "data/textreading.h"

#include <QString>

#include <utility>

struct CurrData;

// The plain records of one journey. Public fields, defaults set by the constructors.
// Amounts live twice: the text is what the file carries and the lists show, the double is
// what the arithmetic uses. Pointers named `curr` and `actukto` never own. What a list
// on screen keeps of a record lives in the widget layer, not here.

struct CostsData
{
    QString date = QStringLiteral("");
    QString type = QStringLiteral("");
    QString typeletter = QStringLiteral("");
    QString ctype = QStringLiteral("");
    QString fval = QStringLiteral("");
    QString bval = QStringLiteral("");
    QString comment = QStringLiteral("");
    QString bsum = QStringLiteral("");
    QString exchange = QStringLiteral("");
    double fvalue = 0.0;
    double bvalue = 0.0;
    double bsumvalue = 0.0;
    double exchangevalue = 0.0;
    int id = -128;
    bool shared = false;
    CurrData *curr = nullptr;
    // What the refresh made of `date` and `fval` when it last read them, and the figures it
    // last wrote into `bval` and `bsum`.
    TextReading<DateKey> dateRead;
    TextReading<double> fvalRead;
    ShownFigure bvalShown;
    ShownFigure bsumShown;

    // What belongs to the list position rather than to the cost: the date sort moves every
    // other field and leaves this, so the shared icon stays on its row.
    template <class A, class B, class F>
    static void forEachPositionField(A &a, B &b, F f)
    {
        f(a.shared, b.shared);
    }
};

struct CustomData
{
    QString text;
    QString content;
};

struct TipData
{
    QString date;
    QString name;
    QString street;
    QString pcode;
    QString town;
    QString tel;
    QString fax;
    QString email;
    QString www;
    QString tiptype;
    QString typeletter;
    QString qualitytype;
    QString comment;
    RecordList<CustomData> customs;
    // What the date sort made of `date` when it last read it.
    TextReading<DateKey> dateRead;

    // Nothing of a tip belongs to its list position: the date sort moves it whole.
    template <class A, class B, class F>
    static void forEachPositionField(A &, B &, F)
    {
    }
};

struct KtoData
{
    int magic = -1;
    double percentage = 0.0;
    double change = 0.0;
    QString date = QStringLiteral("");
    QString type = QStringLiteral("");
};

struct UserData
{
    UserData() = default;
    // Copies take every field of forEachField and keep `actukto` pointing at the same line
    // of their own account.
    UserData(const UserData &other);
    UserData &operator=(const UserData &other);

    QString date = QStringLiteral("");
    QString short_ = QStringLiteral("");
    QString name = QStringLiteral("");
    QString firstname = QStringLiteral("");
    QString street = QStringLiteral("");
    QString pcode = QStringLiteral("");
    QString town = QStringLiteral("");
    QString tel = QStringLiteral("");
    QString fax = QStringLiteral("");
    QString email = QStringLiteral("");
    QString www = QStringLiteral("");
    QString bank = QStringLiteral("");
    QString blz = QStringLiteral("");
    QString acount = QStringLiteral("");
    double value = 0.0;
    int count = 0;
    RecordList<KtoData> kto;
    KtoData *actukto = nullptr;
    KtoData temp;

    // Appends a default line with this magic; `actukto` is left to the caller.
    KtoData *addKto(int magic);
    // The last line with this magic, or null.
    KtoData *findKto(int magic) const;
    // Removes the line (null does nothing); `actukto` becomes the line now last, or null.
    void removeKto(KtoData *line);
    void clearKto();

    // Every field, in declared order, but `actukto`: that one points into `kto` and is set
    // from it. A field added to the record goes here too, or copies lose it.
    template <class A, class B, class F>
    static void forEachField(A &a, B &b, F f)
    {
        f(a.date, b.date);
        f(a.short_, b.short_);
        f(a.name, b.name);
        f(a.firstname, b.firstname);
        f(a.street, b.street);
        f(a.pcode, b.pcode);
        f(a.town, b.town);
        f(a.tel, b.tel);
        f(a.fax, b.fax);
        f(a.email, b.email);
        f(a.www, b.www);
        f(a.bank, b.bank);
        f(a.blz, b.blz);
        f(a.acount, b.acount);
        f(a.value, b.value);
        f(a.count, b.count);
        f(a.kto, b.kto);
        f(a.temp, b.temp);
    }
};

struct CurrData
{
    CurrData();

    QString short_;
    QString factor;
    QString fullname;
    QString type;
    QString floating;
    QString fix;
    double factorvalue = 0.0;
    double invfactor = 1.0;

    bool isFloating() const { return type == floating; }
};

// Rows of the three category tables.
struct CTypeData
{
    QString type;
};

struct TTypeData
{
    QString type;
    RecordList<CustomData> customs;
};

struct QTypeData
{
    QString type;
};

// Exchanges the contents of two records that stand in a list. Everything moves but the
// fields of the record's forEachPositionField, so no field can be left out of the exchange.
template <class Record>
void exchangeContents(Record &a, Record &b)
{
    if (&a == &b)
        return;
    std::swap(a, b);
    Record::forEachPositionField(a, b, [](auto &x, auto &y) { std::swap(x, y); });
}
