#include "checks.h"

#include "data/wayferndata.h"
#include "storage/recordbytes.h"
#include "storage/recordstream.h"
#include "storage/scqtutil.h"
#include "storage/wayfernio.h"
#include "storage/wayferniocfg.h"
#include "storage/wayferniolast.h"

#include <QBuffer>
#include <QByteArray>
#include <QRegularExpression>
#include <QStringList>

#include <cstring>
#include <memory>

#define EXPECT(condition, what)                                                                    \
    do {                                                                                           \
        if (!(condition))                                                                          \
            return what;                                                                           \
    } while (0)

#define PASS_ON(check)                                                                             \
    do {                                                                                           \
        if (const char *failure = (check))                                                         \
            return failure;                                                                        \
    } while (0)

namespace {

// A journey with something in every group, read before each input: it sets the section
// counts that a header without count keys falls back on, so that an input reads the same
// whatever ran before it, and it is the document that a failed read must leave alone.
const char baseJourney[] = "<?wayfern version=\"0.1\" type=\"data\"?>\n"
                           "#\n"
                           "\n"
                           "[Header]\n"
                           "JOURNEY-NAME=Base;\n"
                           "DISTANCE-TYPE=km;\n"
                           "BASE-CURRENCY=EUR;\n"
                           "USERFLAG=TRUE;\n"
                           "COSTSCOUNT=2;\n"
                           "TIPCOUNT=1;\n"
                           "USERCOUNT=2;\n"
                           "CURRCOUNT=2;\n"
                           "CTYPECOUNT=1;\n"
                           "TTYPECOUNT=1;\n"
                           "QTYPECOUNT=1;\n"
                           "\n"
                           "[CTYPE_0]\nTYPE=Food;\n\n"
                           "[TTYPE_0]\nTYPE=Hotel;\nCUSTOMCNT=1;\nCUSTOM_0=Rooms;\n\n"
                           "[QTYPE_0]\nTYPE=good;\n\n"
                           "[COSTS_0]\nDATE=23.05.2002;\nTYPE=Food;\nFVAL=120.00;\nCTYPE=NOK;\n"
                           "COMMENT=Dinner;\nID=1;\nEXCHANGE=8.10;\nSHARED=TRUE;\n\n"
                           "[COSTS_1]\nDATE=24.05.2002;\nTYPE=Food;\nFVAL=;\nCTYPE=EUR;\n"
                           "ID=2;\nSHARED=FALSE;\n\n"
                           "[TIP_0]\nDATE=23.05.2002;\nTIPTYPE=Hotel;\nNAME=Inn;\nCUSTOMCNT=1;\n"
                           "CUSTOMTEXT_0=Rooms;\nCUSTOMCONT_0=12;\n\n"
                           "[USER_0]\nSHORT=AB;\nNAME=Berg;\nVALUE=-14.8100;\nCOUNT=1;\n\n"
                           "[USER_1]\nSHORT=CD;\nFIRST NAME=Carl;\nVALUE=14.8100;\nCOUNT=2;\n\n"
                           "[AB_0]\nDATE=23.05.2002;\nTYPE=Food;\nMAGIC=1;\nPERCENTAGE=100.00;\n"
                           "CHANGE=-14.8100;\n\n"
                           "[CD_0]\nMAGIC=1;\nCHANGE=14.8100;\n\n"
                           "[CD_1]\nMAGIC=2;\nCHANGE=0.0;\n\n"
                           "[CURRENCY_0]\nSHORT-TERM=EUR;\nFACTOR=1.0;\nTYPE=fix;\n\n"
                           "[CURRENCY_1]\nSHORT-TERM=NOK;\nFACTOR=8.10;\nTYPE=floating;\n\n"
                           "##EOF\n";

// Every file of the checks lives in memory: a file system would set the pace.
QByteArray inMemory(const uint8_t *data, size_t size)
{
    return QByteArray::fromRawData(reinterpret_cast<const char *>(data), qsizetype(size));
}

// What a reader (WayfernIO, WayfernIOCfg, WayfernIOLast) answers on `bytes` as file `name`.
template <typename IO>
int readFrom(IO &&io, const QByteArray &bytes, const QString &name)
{
    QBuffer buffer;
    buffer.setData(bytes);
    return io.ReadFile(&buffer, name);
}

// The bytes that a writer gives as file `name`; empty when it fails.
template <typename IO>
QByteArray writtenBy(IO &&io, const QString &name)
{
    QBuffer buffer;
    if (!buffer.open(QIODevice::WriteOnly) || io.WriteFile(&buffer, name) != 0)
        return QByteArray();
    return buffer.data();
}

// Drops the line of the date and the line of the time of writing, which are the only bytes
// that depend on the moment of writing.
QByteArray undated(QByteArray bytes)
{
    for (const char *start : {"\n# last modified : date = ", "\n#                 time = "}) {
        const qsizetype at = bytes.indexOf(start);
        if (at < 0)
            continue;
        const qsizetype end = bytes.indexOf('\n', at + 1);
        bytes.remove(at, (end < 0 ? bytes.size() : end) - at);
    }
    return bytes;
}

// Whether a reader's search finds a line that begins with `head`: it must not be the
// file's last line, as the search tests for the end of the stream after reading the head.
bool hasHeadLine(const QString &text, QStringView head)
{
    qsizetype start = 0;
    while (start < text.size()) {
        const qsizetype end = text.indexOf(u'\n', start);
        if (end < 0)
            return false;
        if (QStringView(text).mid(start, end - start).startsWith(head) && end + 1 < text.size())
            return true;
        start = end + 1;
    }
    return false;
}

QString decoded(const uint8_t *data, size_t size)
{
    return RecordStream::decode(QByteArray(reinterpret_cast<const char *>(data), qsizetype(size)));
}

// ---- journey ----------------------------------------------------------------------------

const QString journeyName = QStringLiteral("journey.wfn");

// What a journey document writes; empty when it cannot be written. Always under the same
// name, as the name goes into the end marker.
QByteArray journeyFile(WayFernData &doc)
{
    return writtenBy(WayfernIO(&doc), journeyName);
}

// The same without the moment of writing.
QByteArray journeyBytes(WayFernData &doc)
{
    return undated(journeyFile(doc));
}

int readJourney(WayFernData &doc, const QByteArray &bytes)
{
    return readFrom(WayfernIO(&doc), bytes, journeyName);
}

bool readBase(WayFernData &doc)
{
    static const QByteArray base = QByteArray::fromRawData(baseJourney, sizeof baseJourney - 1);
    return readJourney(doc, base) == 0;
}

// The base journey's header alone: reading it sets the section counts that the base sets
// and leaves a document that holds nothing, as the first section of every group is missing.
// Far cheaper than the base itself.
bool readBaseCounts(WayFernData &doc)
{
    static const QByteArray header = [] {
        const QByteArray base = QByteArray::fromRawData(baseJourney, sizeof baseJourney - 1);
        return base.left(base.indexOf("[CTYPE_0]")) + "##EOF\n";
    }();
    return readJourney(doc, header) == 0;
}

struct JourneyCounts
{
    QList<int> groups;   // costs, tips, users, currencies, cost, tip and quality types
    QList<int> customs;  // of every tip type, then of every tip
    QList<int> accounts; // of every traveller

    explicit JourneyCounts(const WayFernData &doc)
    {
        groups = {doc.costs.count(),  doc.tips.count(),   doc.users.count(), doc.currencies.count(),
                  doc.ctypes.count(), doc.ttypes.count(), doc.qtypes.count()};
        for (const TTypeData *row : doc.ttypes)
            customs.append(row->customs.count());
        for (const TipData *tip : doc.tips)
            customs.append(tip->customs.count());
        for (const UserData *user : doc.users)
            accounts.append(user->kto.count());
    }
};

// Account sections are found by the traveller's short name. Two travellers with one name,
// a name that makes a group's head ("COSTS" gives "[COSTS_0]") or a name with "]" (whose
// heads begin with another name's head) let one search find another's section, and then
// the travellers and the groups written behind them do not read back as they were.
bool accountHeadsUnique(const WayFernData &doc)
{
    static const QStringList groupNames = {QStringLiteral("CTYPE"),   QStringLiteral("TTYPE"),
                                           QStringLiteral("QTYPE"),   QStringLiteral("COSTS"),
                                           QStringLiteral("TIP"),     QStringLiteral("USER"),
                                           QStringLiteral("CURRENCY")};
    QStringList seen;
    for (const UserData *user : doc.users) {
        if (user->short_.contains(u']') || groupNames.contains(user->short_)
            || seen.contains(user->short_))
            return false;
        seen.append(user->short_);
    }
    return true;
}

} // namespace

const char *checkJourney(const uint8_t *data, size_t size)
{
    const QByteArray in = inMemory(data, size);

    WayFernData doc;
    EXPECT(readBase(doc), "journey: the base journey does not read");
    static const QByteArray before = journeyBytes(doc);
    EXPECT(!before.isEmpty(), "journey: the base journey does not write");

    const int result = readJourney(doc, in);
    const bool header = hasHeadLine(decoded(data, size), u"[Header]");
    EXPECT(result == (header ? 0 : -1), "journey: result differs from the heads present");

    const QByteArray writtenFile = journeyFile(doc);
    const QByteArray written = undated(writtenFile);
    EXPECT(!written.isEmpty(), "journey: document does not write");
    if (result != 0) {
        EXPECT(written == before, "journey: failed read changed the document");
        return nullptr;
    }

    // No file makes a document larger than a small multiple of its size: every record
    // stands for a head or a line of the file, account lines are bounded as a whole.
    const JourneyCounts counts(doc);
    qsizetype records = 0;
    for (const qsizetype n : counts.groups + counts.customs + counts.accounts)
        records += n;
    const qsizetype lines =
        QByteArray::fromRawData(reinterpret_cast<const char *>(data), qsizetype(size)).count('\n')
        + 1;
    EXPECT(records <= 20 * lines + 10000, "journey: more records than the file can hold");

    // The same bytes read a second time, into a document that holds nothing, with the
    // base's section counts: neither the first read nor what the document held leaks.
    {
        WayFernData again;
        EXPECT(readBaseCounts(again), "journey: the base journey's header does not read");
        EXPECT(readJourney(again, in) == 0, "journey: second read fails");
        EXPECT(journeyBytes(again) == written, "journey: second read gives another document");
    }

    // Reading stores an empty amount as "0.0" and an empty factor as "1.0"; with those
    // applied, the document is what its written file reads back to. That file holds every
    // count, so no base is needed to read it.
    // A document that needs neither writes what it wrote above: that file is taken again.
    bool settles = false;
    for (CostsData *cost : doc.costs)
        if (cost->fval.isEmpty()) {
            cost->fval = QStringLiteral("0.0");
            settles = true;
        }
    for (CurrData *curr : doc.currencies)
        if (curr->factor.isEmpty()) {
            curr->factor = QStringLiteral("1.0");
            settles = true;
        }
    const QByteArray settledFile = settles ? journeyFile(doc) : writtenFile;
    const QByteArray settled = undated(settledFile);
    const bool exact = accountHeadsUnique(doc);
    WayFernData back;
    EXPECT(readJourney(back, settledFile) == 0, "journey: written file does not read");
    const JourneyCounts backCounts(back);
    if (exact) {
        EXPECT(backCounts.groups == counts.groups, "journey: record counts change on reading back");
        EXPECT(backCounts.customs == counts.customs,
               "journey: custom counts change on reading back");
        EXPECT(backCounts.accounts == counts.accounts,
               "journey: account counts change on reading back");
        EXPECT(journeyBytes(back) == settled, "journey: read-back document writes other bytes");
    } else {
        // The groups written in front of the travellers still read back whole.
        EXPECT(backCounts.groups.mid(4) == counts.groups.mid(4)
                   && backCounts.groups.mid(0, 2) == counts.groups.mid(0, 2),
               "journey: group counts change on reading back");
        EXPECT(backCounts.customs == counts.customs,
               "journey: custom counts change on reading back");
    }
    return nullptr;
}

// ---- configuration ----------------------------------------------------------------------

namespace {

QList<QString *> headerFields(WayFernConfig &c)
{
    return {&c.datapath, &c.last, &c.template_, &c.helpprog, &c.helpfile};
}

QList<QString *> syncFields(WayFernConfig &c)
{
    return {&c.syncfile, &c.server, &c.fromprefix, &c.toprefix, &c.postfix, &c.catalogue};
}

// Values that no file gives, so that a field the reader touched shows: the header fields
// take the first five, the sync fields the six after them.
QString sentinel(qsizetype index)
{
    return QStringLiteral("untouched-%1").arg(index);
}

void setSentinels(WayFernConfig &c)
{
    const QList<QString *> fields = headerFields(c) + syncFields(c);
    for (qsizetype i = 0; i < fields.size(); ++i)
        *fields.at(i) = sentinel(i);
}

bool untouched(const QList<QString *> &fields, qsizetype first)
{
    for (qsizetype i = 0; i < fields.size(); ++i)
        if (*fields.at(i) != sentinel(first + i) || fields.at(i)->isNull())
            return false;
    return true;
}

bool sameFields(const QList<QString *> &a, const QList<QString *> &b)
{
    for (qsizetype i = 0; i < a.size(); ++i)
        if (*a.at(i) != *b.at(i))
            return false;
    return true;
}

const QString configName = QStringLiteral("wayfern.cfg");

QByteArray configFile(WayFernData &doc)
{
    return writtenBy(WayfernIOCfg(&doc), configName);
}

int readConfig(WayFernData &doc, const QByteArray &bytes)
{
    return readFrom(WayfernIOCfg(&doc), bytes, configName);
}

} // namespace

const char *checkConfig(const uint8_t *data, size_t size)
{
    const QByteArray in = inMemory(data, size);

    WayFernData doc;
    WayFernConfig &config = doc.config;
    setSentinels(config);
    const int result = readConfig(doc, in);
    const QString text = decoded(data, size);
    const bool header = hasHeadLine(text, u"[Header]");
    const bool sync = hasHeadLine(text, u"[HTMLSYNC]");
    EXPECT(result == (header && sync ? 0 : -1), "config: result differs from the heads present");
    if (!header)
        EXPECT(untouched(headerFields(config) + syncFields(config), 0),
               "config: read without a header changed a field");
    else if (!sync)
        EXPECT(untouched(syncFields(config), 5),
               "config: read without a sync section changed a sync field");

    {
        WayFernData again;
        setSentinels(again.config);
        EXPECT(readConfig(again, in) == result, "config: second read answers otherwise");
        EXPECT(sameFields(headerFields(again.config) + syncFields(again.config),
                          headerFields(config) + syncFields(config)),
               "config: second read gives other values");
    }

    // The writer puts no "[HTMLSYNC]" head: a written file reads as far as "Header".
    const QByteArray writtenFile = configFile(doc);
    EXPECT(!writtenFile.isEmpty(), "config: does not write");
    const QByteArray written = undated(writtenFile);
    WayFernData back;
    setSentinels(back.config);
    EXPECT(readConfig(back, writtenFile) == -1, "config: written file reads to its end");
    EXPECT(sameFields(headerFields(back.config), headerFields(config)),
           "config: header values change on reading back");
    EXPECT(untouched(syncFields(back.config), 5), "config: reading back sets a sync value");
    const QList<QString *> readSync = syncFields(config);
    const QList<QString *> backSync = syncFields(back.config);
    for (qsizetype i = 0; i < readSync.size(); ++i)
        *backSync.at(i) = *readSync.at(i);
    EXPECT(undated(configFile(back)) == written, "config: read-back values write other bytes");
    return nullptr;
}

// ---- last state -------------------------------------------------------------------------

namespace {

const QString lastName = QStringLiteral("wayfern.last");

QByteArray lastFile(WayFernData &doc)
{
    return writtenBy(WayfernIOLast(&doc), lastName);
}

int readLast(WayFernData &doc, const QByteArray &bytes)
{
    return readFrom(WayfernIOLast(&doc), bytes, lastName);
}

const QString lastSentinel = QStringLiteral("untouched.wfn");

} // namespace

const char *checkLastState(const uint8_t *data, size_t size)
{
    const QByteArray in = inMemory(data, size);

    WayFernData doc;
    doc.lastfile = lastSentinel;
    const int result = readLast(doc, in);
    const bool header = hasHeadLine(decoded(data, size), u"[Header]");
    EXPECT(result == (header ? 0 : -1), "laststate: result differs from the heads present");
    if (result != 0) {
        EXPECT(doc.lastfile == lastSentinel && !doc.lastfile.isNull(),
               "laststate: failed read changed the name");
        return nullptr;
    }
    EXPECT(!doc.lastfile.isNull(), "laststate: read gives a null name");

    const QByteArray writtenFile = lastFile(doc);
    EXPECT(!writtenFile.isEmpty(), "laststate: does not write");
    const QByteArray written = undated(writtenFile);
    WayFernData back;
    back.lastfile = lastSentinel;
    EXPECT(readLast(back, writtenFile) == 0, "laststate: written file does not read");
    EXPECT(back.lastfile == doc.lastfile, "laststate: name changes on reading back");
    EXPECT(undated(lastFile(back)) == written, "laststate: read-back name writes other bytes");
    return nullptr;
}

// ---- record tools -----------------------------------------------------------------------

namespace {

const char *checkSplit(const QString &line)
{
    ScQtUtil util;
    util.key = QStringLiteral("k0");
    util.sep = QStringLiteral("s0");
    util.value = QStringLiteral("v0");
    util.rest = QStringLiteral("r0");
    const int result = util.splitRecord(line);

    ScQtUtil::RecordView view;
    EXPECT(ScQtUtil::splitRecord(QStringView(line), view) == result,
           "split: the two forms answer differently");

    if (line.isEmpty()) {
        EXPECT(result == -2, "split: empty line not -2");
        EXPECT(util.key == u"k0" && util.sep == u"s0" && util.value == u"v0" && util.rest == u"r0",
               "split: empty line changed the fields");
        return nullptr;
    }
    EXPECT(!util.key.isNull() && !util.sep.isNull() && !util.value.isNull() && !util.rest.isNull(),
           "split: a field is null");
    EXPECT(util.key == view.key && util.sep == view.sep && util.value == view.value
               && util.rest == view.rest,
           "split: the two forms give different parts");
    const qsizetype eq = line.indexOf(u'=');
    if (eq < 0) {
        EXPECT(result == -1, "split: no sign but not -1");
        EXPECT(util.key.isEmpty() && util.sep.isEmpty() && util.value.isEmpty()
                   && util.rest.isEmpty(),
               "split: no sign but fields set");
        return nullptr;
    }
    EXPECT(util.key == line.left(eq) && util.sep == u"=", "split: key is not the text before '='");
    EXPECT(!util.key.contains(u'='), "split: key holds '='");
    if (!line.mid(eq + 1).contains(u';')) {
        EXPECT(result == -1, "split: no ';' but not -1");
        EXPECT(util.value.isEmpty() && util.rest.isEmpty(), "split: no ';' but value set");
        return nullptr;
    }
    EXPECT(result == 0, "split: whole record not 0");
    EXPECT(!util.rest.contains(u';'), "split: the value stops before the last ';'");
    EXPECT(util.key + util.sep + util.value + u';' + util.rest == line,
           "split: the parts do not make the line");
    return nullptr;
}

bool sameDouble(double a, double b)
{
    return std::memcmp(&a, &b, sizeof a) == 0 || (a != a && b != b);
}

const char *checkConversions(const QString &text)
{
    ScQtUtil util;
    const int asInt = util.toInt(text);
    EXPECT(util.toInt(QStringView(text)) == asInt, "toInt: view and text differ");
    EXPECT(sameDouble(ScQtUtil::toDouble(QStringView(text)), util.toDouble(text)),
           "toDouble: view and text differ");

    // The four hexadecimal prefixes are one; upper case is no prefix and fails in base 10.
    const int hex = util.toInt(QStringLiteral("0x") + text);
    EXPECT(util.toInt(QStringLiteral("0h") + text) == hex
               && util.toInt(QStringLiteral("x") + text) == hex
               && util.toInt(QStringLiteral("h") + text) == hex,
           "toInt: hexadecimal prefixes differ");
    EXPECT(util.toInt(QStringLiteral("0X") + text) == 0, "toInt: upper-case prefix converts");
    EXPECT(util.toUInt(QStringLiteral("0h") + text) == util.toUInt(QStringLiteral("x") + text),
           "toUInt: hexadecimal prefixes differ");

    // A conversion that gives a number other than 0 succeeded, so every wider type of the
    // same sign gives that number too.
    const short asShort = util.toShort(text);
    const long asLong = util.toLong(text);
    if (asShort != 0)
        EXPECT(asInt == asShort && asLong == asShort, "toShort: wider types differ");
    if (asInt != 0)
        EXPECT(asLong == asInt, "toInt: toLong differs");
    const unsigned short asUShort = util.toUShort(text);
    const unsigned int asUInt = util.toUInt(text);
    if (asUShort != 0)
        EXPECT(asUInt == asUShort && util.toULong(text) == asUShort,
               "toUShort: wider types differ");
    if (asUInt != 0)
        EXPECT(util.toULong(text) == asUInt, "toUInt: toULong differs");
    if (asInt > 0)
        EXPECT(asUInt == unsigned(asInt), "toInt: toUInt differs on a positive number");

    EXPECT(util.toBool(text) == (text == u"TRUE"), "toBool: not exactly \"TRUE\"");
    const bool previous = util.toBool(text);
    EXPECT(util.toBool(QString()) == previous, "toBool: null text does not repeat");
    return nullptr;
}

const char *checkTextTools(const QString &text, int n)
{
    // The first byte from 'A' to '_' of the Latin-1 text, or the end (its first NUL).
    WayFernData doc;
    const char *capital = doc.firstCapital(text);
    const QByteArray latin1 = text.toLatin1();
    qsizetype i = 0;
    while (i < latin1.size() && latin1.at(i) != 0
           && !(uchar(latin1.at(i)) >= 'A' && uchar(latin1.at(i)) <= '_'))
        ++i;
    EXPECT(*capital == (i < latin1.size() ? latin1.at(i) : 0), "firstCapital: wrong character");

    const QStringList words =
        text.split(QRegularExpression(QStringLiteral("[ \t]+")), Qt::SkipEmptyParts);
    const qsizetype wanted = n < 1 ? 0 : n - 1;
    const QString word = ScQtUtil::nthWord(text, n);
    EXPECT(word == (wanted < words.size() ? words.at(wanted) : QString()), "nthWord: wrong word");
    EXPECT(!word.isNull(), "nthWord: null word");

    const QString base = ScQtUtil::fileBaseName(text);
    const qsizetype dot = text.lastIndexOf(u'.');
    if (dot < 1)
        EXPECT(base.isEmpty() && !base.isNull(), "fileBaseName: a name without a cut");
    else
        EXPECT(base == text.left(dot) && !text.mid(dot + 1).contains(u'.'),
               "fileBaseName: not the text before the last dot");

    // Date parts: an empty text answers the parts read before; a text without a dot at
    // position 1 or later has neither day nor month.
    ScQtUtil util;
    const int day = util.dateDay(QStringLiteral("07.11.2031"));
    EXPECT(day == 7 && util.dateMonth(QStringLiteral("07.11.2031")) == 11
               && util.dateYear(QStringLiteral("07.11.2031")) == 2031,
           "date parts: a plain date reads wrong");
    const int d = util.dateDay(text);
    const int m = util.dateMonth(text);
    const int y = util.dateYear(text);
    if (text.isEmpty())
        EXPECT(d == 7 && m == 11 && y == 2031, "date parts: an empty text is not the last date");
    else if (text.indexOf(u'.') < 1)
        EXPECT(d == 0 && m == 0, "date parts: day or month without a dot");
    if (!text.isEmpty() && text.indexOf(u'.') >= 1)
        EXPECT(m >= -9 && m <= 99, "date parts: month longer than two characters");
    return nullptr;
}

// The lines of a text as a plain reader sees them.
struct PlainLines
{
    const QString &text;
    qsizetype pos = 0;

    bool atEnd() const { return pos >= text.size(); }
    QStringView readLine()
    {
        if (atEnd())
            return {};
        qsizetype end = text.indexOf(u'\n', pos);
        const qsizetype next = end < 0 ? text.size() : end + 1;
        if (end < 0)
            end = text.size();
        if (end > pos && text.at(end - 1) == u'\r')
            --end;
        const QStringView line = QStringView(text).mid(pos, end - pos);
        pos = next;
        return line;
    }
    void skipTo(QStringView pattern)
    {
        while (!atEnd())
            if (readLine().startsWith(pattern))
                return;
    }
};

// The record stream against a plain line reader: the same lines, and every section search
// stops behind the same line, also once the stream has hashed its heads.
const char *checkRecordStream(const QString &text, bool longSearch)
{
    RecordStream stream;
    stream.setText(text);
    PlainLines plain{text};
    while (!plain.atEnd()) {
        EXPECT(!stream.atEnd(), "stream: ends early");
        EXPECT(stream.readLine() == plain.readLine(), "stream: other line");
    }
    EXPECT(stream.atEnd(), "stream: does not end");
    EXPECT(stream.readLine().isEmpty(), "stream: a line behind the end");

    QStringList patterns;
    plain.pos = 0;
    while (!plain.atEnd() && patterns.size() < 48) {
        const QStringView line = plain.readLine();
        if (line.isEmpty())
            continue;
        if (line.startsWith(u'[')) {
            const qsizetype close = line.indexOf(u']');
            if (close >= 0)
                patterns.append(line.left(close + 1).toString());
            patterns.append(line.toString());
        } else {
            patterns.append(line.left(3).toString());
        }
    }
    patterns.append(QStringLiteral("[Header]"));
    patterns.append(QStringLiteral("[]"));

    const auto compareSearches = [&](int round) -> const char * {
        for (qsizetype i = 0; i < patterns.size(); ++i) {
            if ((i + round) % 3 == 0) {
                stream.rewind();
                plain.pos = 0;
            }
            stream.skipTo(patterns.at(i));
            plain.skipTo(patterns.at(i));
            EXPECT(stream.atEnd() == plain.atEnd(), "stream: search ends elsewhere");
            EXPECT(stream.readLine() == plain.readLine(), "stream: search stops at another line");
        }
        return nullptr;
    };
    PASS_ON(compareSearches(0));
    const qsizetype heads = stream.headCount();
    if (!longSearch || heads == 0)
        return nullptr;

    // Enough searches make the stream hash its heads. Searches for a head that no line
    // holds walk all heads cheaply; the rounds behind them compare the hashed searches.
    // (Such a head may stand among the first lines, where it is found without a walk: the
    // number of searches is bounded too.)
    const qsizetype hashAfter = 4 * heads + 4096;
    const QString absent = QStringLiteral("[") + QChar(0x01);
    for (qsizetype i = 0; i <= hashAfter && stream.headsVisited() <= hashAfter; ++i) {
        stream.rewind();
        stream.skipTo(absent);
    }
    stream.rewind();
    plain.pos = 0;
    PASS_ON(compareSearches(1));
    PASS_ON(compareSearches(2));
    return nullptr;
}

// The journey reader's byte stream against the record stream on the decoded text: the same
// lines, records and section searches, also once the byte stream has hashed its heads.
const char *checkRecordBytes(const QByteArray &bytes, bool longSearch)
{
    const QString text = RecordStream::decode(bytes);
    RecordStream stream;
    stream.setText(text);
    RecordBytes file;
    file.setBytes(bytes);
    while (!stream.atEnd()) {
        EXPECT(!file.atEnd(), "bytes: end early");
        const QStringView line = stream.readLine();
        const QByteArrayView lineBytes = file.readLine();
        EXPECT(file.toText(lineBytes) == line, "bytes: other line");
        ScQtUtil::RecordView parts;
        ScQtUtil::ByteRecordView byteParts;
        EXPECT(ScQtUtil::splitRecord(line, parts) == ScQtUtil::splitRecord(lineBytes, byteParts),
               "bytes: record splits otherwise");
        EXPECT(file.toText(byteParts.key) == parts.key
                   && file.toText(byteParts.value) == parts.value
                   && file.toText(byteParts.rest) == parts.rest,
               "bytes: other parts of a record");
    }
    EXPECT(file.atEnd(), "bytes: do not end");

    QStringList patterns;
    stream.rewind();
    while (!stream.atEnd() && patterns.size() < 48) {
        const QStringView line = stream.readLine();
        if (line.startsWith(u'[')) {
            const qsizetype close = line.indexOf(u']');
            if (close >= 0)
                patterns.append(line.left(close + 1).toString());
            patterns.append(line.toString());
        }
    }
    patterns.append(QStringLiteral("[Header]"));
    const auto compareSearches = [&](int round) -> const char * {
        for (qsizetype i = 0; i < patterns.size(); ++i) {
            if ((i + round) % 3 == 0) {
                stream.rewind();
                file.rewind();
            }
            QByteArray head;
            stream.skipTo(patterns.at(i));
            if (file.encode(patterns.at(i), head))
                file.skipTo(head);
            else
                file.skipToEnd();
            EXPECT(stream.atEnd() == file.atEnd(), "bytes: search ends elsewhere");
            EXPECT(file.toText(file.readLine()) == stream.readLine(),
                   "bytes: search stops at another line");
        }
        return nullptr;
    };
    stream.rewind();
    file.rewind();
    PASS_ON(compareSearches(0));
    const qsizetype heads = file.headCount();
    EXPECT(heads == stream.headCount(), "bytes: other number of heads");
    if (!longSearch || heads == 0)
        return nullptr;
    const qsizetype hashAfter = 4 * heads + 4096;
    const QByteArray absent("[\x01");
    for (qsizetype i = 0; i <= hashAfter && file.headsVisited() <= hashAfter; ++i) {
        file.rewind();
        file.skipTo(absent);
    }
    // The record stream's searches give the same lines hashed or not (checkRecordStream):
    // only the byte stream needs to hash its heads here.
    stream.rewind();
    file.rewind();
    PASS_ON(compareSearches(1));
    PASS_ON(compareSearches(2));
    return nullptr;
}

} // namespace

const char *checkRecordTools(const uint8_t *data, size_t size)
{
    // The first byte steers: the word number, and whether the section search runs long.
    const uint8_t steer = size > 0 ? data[0] : 0;
    const int n = int(steer & 0x0f) - 2;
    const bool longSearch = steer & 0x40;
    const QByteArray bytes = size > 0
        ? QByteArray(reinterpret_cast<const char *>(data + 1), qsizetype(size - 1))
        : QByteArray();
    for (const QString &text : {QString::fromLatin1(bytes), QString::fromUtf8(bytes)}) {
        PASS_ON(checkSplit(text));
        PASS_ON(checkConversions(text));
        PASS_ON(checkTextTools(text, n));
    }
    PASS_ON(checkRecordStream(RecordStream::decode(bytes), longSearch));
    PASS_ON(checkRecordBytes(bytes, longSearch));
    return nullptr;
}

FuzzCheck fuzzCheckByName(const char *name)
{
    static const struct
    {
        const char *name;
        FuzzCheck check;
    } checks[] = {{"journey", checkJourney},
                  {"config", checkConfig},
                  {"laststate", checkLastState},
                  {"recordtools", checkRecordTools}};
    for (const auto &entry : checks)
        if (std::strcmp(entry.name, name) == 0)
            return entry.check;
    return nullptr;
}
