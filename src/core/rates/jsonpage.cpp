#include "rates/jsonpage.h"

#include "storage/recordstream.h"

#include <QJsonDocument>
#include <QJsonParseError>

#include <algorithm>

namespace {

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

// The forms that QJsonDocument reads although they are no JSON. Only those are looked for
// here, in one pass; everything else is the library's to refuse.
bool hasLooseForms(const QByteArray &text)
{
    const char *const begin = text.constData();
    const char *const end = begin + text.size();
    bool inText = false;
    for (const char *at = begin; at < end; ++at) {
        const char c = *at;
        if (inText) {
            if (static_cast<unsigned char>(c) < 0x20)
                return true;
            if (c == '"') {
                inText = false;
            } else if (c == '\\') {
                if (++at == end)
                    return true;
                switch (*at) {
                case '"':
                case '\\':
                case '/':
                case 'b':
                case 'f':
                case 'n':
                case 'r':
                case 't':
                case 'u': // its four hexadecimal digits are checked by the library
                    break;
                default:
                    return true;
                }
            }
        } else if (c == '"') {
            inText = true;
        } else if (c == '.') {
            // Outside texts a point stands only in a number, between digits.
            if (at == begin || !isDigit(at[-1]) || at + 1 == end || !isDigit(at[1]))
                return true;
        }
    }
    return false;
}

} // namespace

namespace JsonPage {

bool readObject(const QByteArray &page, QJsonObject *object)
{
    qsizetype first = page.startsWith("\xEF\xBB\xBF") ? 3 : 0;
    while (first < page.size() && isBlank(page.at(first)))
        ++first;
    // Any other page, an HTML one say, is left alone at once, whatever its size.
    if (first >= page.size() || page.at(first) != '{')
        return false;

    QByteArray text = page.mid(first);
    // The library reads UTF-8 only: a page of other bytes is decoded as a journey file is.
    const bool ascii = std::all_of(text.cbegin(), text.cend(),
                                   [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    if (!ascii)
        text = RecordStream::decode(text).toUtf8();
    if (hasLooseForms(text))
        return false;
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    if (error.error != QJsonParseError::NoError || !document.isObject())
        return false;
    *object = document.object();
    return true;
}

} // namespace JsonPage
