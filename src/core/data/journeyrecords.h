#pragma once

#include "data/recordlist.h"

#include <QString>

class QTreeWidgetItem;
struct CurrData;

// The plain records of one journey. Public fields, defaults set by the constructors.
// Amounts live twice: the text is what the file carries and the lists show, the double is
// what the arithmetic uses. Pointers named `curr`, `actukto` and `item` never own.

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
    QTreeWidgetItem *item = nullptr;
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
    QTreeWidgetItem *item = nullptr;
    RecordList<CustomData> customs;
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
    // Copies keep `actukto` pointing at the same line of their own account.
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
    QTreeWidgetItem *item = nullptr;

    // Appends a default line with this magic; `actukto` is left to the caller.
    KtoData *addKto(int magic);
    // The last line with this magic, or null.
    KtoData *findKto(int magic) const;
    // Removes the line (null does nothing); `actukto` becomes the line now last, or null.
    void removeKto(KtoData *line);
    void clearKto();
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
    QTreeWidgetItem *item = nullptr;

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
