#include "data/journeyrecords.h"

UserData::UserData(const UserData &other)
{
    *this = other;
}

UserData &UserData::operator=(const UserData &other)
{
    if (this == &other)
        return *this;
    forEachField(*this, other, [](auto &mine, const auto &theirs) { mine = theirs; });
    const int current = other.kto.indexOf(other.actukto);
    actukto = current >= 0 ? kto.at(current) : nullptr;
    return *this;
}

KtoData *UserData::addKto(int magic)
{
    KtoData *line = kto.append();
    line->magic = magic;
    return line;
}

KtoData *UserData::findKto(int magic) const
{
    for (int i = kto.count() - 1; i >= 0; --i)
        if (kto.at(i)->magic == magic)
            return kto.at(i);
    return nullptr;
}

void UserData::removeKto(KtoData *line)
{
    if (!line)
        return;
    kto.remove(line);
    actukto = kto.last();
}

void UserData::clearKto()
{
    kto.clear();
    actukto = nullptr;
}

// The two types are stored words: the journey file holds them as they are, in every
// language, and a currency is floating when its stored type is this word.
CurrData::CurrData() : floating(QStringLiteral("floating")), fix(QStringLiteral("fix")) {}
