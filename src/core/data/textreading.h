#pragma once

#include <QString>

// What was made of a text once (a date read, an amount converted), kept beside the record
// that holds the text: on a long journey, reading every date and amount again on every
// refresh costs more than the rest of it. It answers for the text while the record still
// holds that very string. It keeps a reference to it, so the text cannot change in place,
// and an edited text, always another string, never passes for the old one.
template <class Value>
struct TextReading
{
    QString text;
    Value value{};

    template <class Read>
    const Value &of(const QString &now, Read read)
    {
        if (now.constData() != text.constData() || now.size() != text.size()) {
            value = read(now);
            text = now;
        }
        return value;
    }
};
