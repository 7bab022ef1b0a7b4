#pragma once

#include <QByteArray>
#include <QJsonObject>

// Reading a downloaded page as a JSON object, for the rate answers and the catalogue of a rate
// service.
namespace JsonPage {

// The page as a JSON object. False, with `object` left alone, when the page is no JSON
// object: anything but blanks in front of its "{" or behind its "}", a syntax error, or one
// of the loose forms that the library's reader lets through although they are no JSON: a
// number with a point that has no digit on either side ("11.", ".5"), an unknown escape
// ("\x") or a control character inside a text. A byte order mark in front is skipped. The
// page is UTF-8 where it is valid UTF-8 and Latin-1 otherwise, like a journey file. Names
// that occur twice in one object count once, with the last value.
bool readObject(const QByteArray &page, QJsonObject *object);

} // namespace JsonPage
