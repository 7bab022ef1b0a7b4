#pragma once

#include <QString>

// What the refresh made of a record's text, or wrote into it, kept beside the record: on a
// long journey, reading every date and amount and writing every figure again on every
// refresh costs more than the rest of it. Each answers for the text while the record still
// holds that very string. It keeps a reference to it, so the text cannot change in place,
// and a text edited or replaced since, always another string, never passes for the old one.
inline bool isSameString(const QString &a, const QString &b)
{
    return a.constData() == b.constData() && a.size() == b.size();
}

// A value read from a text (a date's parts, an amount).
template <class Value>
struct TextReading
{
    QString text;
    Value value{};
    bool done = false;

    template <class Read>
    const Value &of(const QString &now, Read read)
    {
        if (!done || !isSameString(now, text)) {
            value = read(now);
            text = now;
            done = true;
        }
        return value;
    }
};

// A figure and the text written for it (a converted amount, a running sum): the text is
// written again only when the figure changed or the text is another string.
struct ShownFigure
{
    QString text;
    double value = 0.0;
    bool done = false;

    template <class Write>
    void show(QString &now, double figure, Write write)
    {
        if (done && figure == value && isSameString(now, text))
            return;
        write(now, figure);
        text = now;
        value = figure;
        done = true;
    }
};
