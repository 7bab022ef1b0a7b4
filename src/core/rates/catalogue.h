#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

class QIODevice;

// One currency that the rate service offers: its code as the page gives it and its name.
struct CatalogueEntry
{
    QString short_;
    QString fullname;
};

// Reads the list of currencies that the rate service offers out of a downloaded page.
//
// An HTML page carries it in the first line that holds "<select name=s" behind its first
// character; the whole box must stand on that line. Each "<option value=" gives the text up
// to the next ">" as the code, taken as it stands (quotes and further attributes included),
// and the text up to the next "<" as the name. The walk ends with -2 when the text breaks
// off (which is how a well-formed box ends, too) and with 0 at the very end of the box,
// where the entry in hand is not listed. What was read before the end stays in `entries`.
//
// A page without such a line may be the JSON answer of today's services, an object of codes
// and names ({"AUD":"Australian Dollar",...}); it is listed in the order of the codes, a code
// given twice once with its last name, and gives 0. Anything else, such as an object with a
// value that is not a text (a rate answer, say), lists nothing and gives 0 as well: the page
// holds no catalogue.
//
// Results: 0 normal end, -1 the page cannot be opened, -2 the box breaks off.
namespace Catalogue {

inline constexpr int Read = 0;
inline constexpr int NotOpened = -1;
inline constexpr int BrokenOff = -2;

int readFile(const QString &path, QList<CatalogueEntry> *entries);
// The same on a page held in memory (tests, fuzzing).
int readBytes(const QByteArray &page, QList<CatalogueEntry> *entries);
// The same on an open device, from where it stands.
int readDevice(QIODevice *device, QList<CatalogueEntry> *entries);

// The walk over one select box: `box` starts at "<select name=s" and ends in front of
// "</select".
int readBox(const QByteArray &box, QList<CatalogueEntry> *entries);
// The JSON object of codes and names; false when `page` is no such object.
bool readJson(const QByteArray &page, QList<CatalogueEntry> *entries);

} // namespace Catalogue
