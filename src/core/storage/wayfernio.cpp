#include "storage/wayfernio.h"

#include "storage/fixedtext.h"
#include "storage/printline.h"
#include "storage/recordsink.h"

#include <QFile>
#include <QtMath>

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <string>

int WayfernIO::costsCount = 0;
int WayfernIO::userCount = 0;
int WayfernIO::tipCount = 0;
int WayfernIO::currCount = 0;
int WayfernIO::ctypeCount = 0;
int WayfernIO::ttypeCount = 0;
int WayfernIO::qtypeCount = 0;

namespace {
const QString groupSeparator =
    QStringLiteral("\n#========================================================\n\n");

// The text of "%.4f", appended: the account trace prints two for every account line.
void appendFixed4(std::string &out, double value)
{
    char number[64];
    const int length = printfFixedText(value, 4, number);
    if (length >= 0)
        out.append(number, size_t(length));
    else
        out += QString::asprintf("%.4f", value).toLatin1().toStdString();
}

// Numbered sections "[<prefix><n>]", n from 0, one for each record of `list`: `keys`
// writes the lines of a record, and an empty line ends its section.
template <typename Record, typename Keys>
void writeSections(ChunkWriter *stream, const QString &prefix, const RecordList<Record> &list,
                   Keys keys)
{
    int index = 0;
    for (Record *record : list) {
        // Number and ends as views: a stream makes a text of its own of an int or a C string.
        char number[16];
        *stream << '[' << prefix
                << QLatin1StringView(number,
                                     std::to_chars(number, number + sizeof number, index++).ptr)
                << QLatin1StringView("]\n");
        keys(record);
        *stream << '\n';
    }
}

// A group of the journey file: its separator, then its sections.
template <typename Record, typename Keys>
void writeGroup(ChunkWriter *stream, const QString &prefix, const RecordList<Record> &list,
                Keys keys)
{
    *stream << groupSeparator;
    writeSections(stream, prefix, list, keys);
}
} // namespace

WayfernIO::WayfernIO(WayFernData *document) : document(document) {}

QString WayfernIO::shared(QStringView value)
{
    if (value.isEmpty())
        return QStringLiteral("");
    if (value.size() > 32)
        return value.toString();
    if (sharedTexts.empty())
        sharedTexts.resize(sharedSize);
    const size_t index = RecordStream::hashText(value) & (sharedTexts.size() - 1);
    QString &slot = sharedTexts[index];
    if (slot != value) {
        slot = value.toString();
        if (index < sharedBytes.size())
            sharedBytes[index].clear();
    }
    return slot;
}

QString WayfernIO::shared(QByteArrayView value)
{
    if (value.isEmpty())
        return QStringLiteral("");
    // Multi-byte characters are rare in these fields: such a text is decoded first.
    if (value.size() > 32 || (file->isUtf8() && !RecordBytes::isAscii(value)))
        return shared(QStringView(file->toText(value)));
    if (sharedTexts.empty())
        sharedTexts.resize(sharedSize);
    // Each byte is one character here: the hash is the one of the text.
    size_t h = 2166136261u;
    for (char c : value)
        h = (h ^ static_cast<unsigned char>(c)) * 16777619u;
    // The slot keeps the bytes it was made from: comparing them is cheaper than comparing
    // the text with the bytes.
    const size_t slot = h & (sharedTexts.size() - 1); // a power of two
    if (sharedBytes.size() != sharedTexts.size())
        sharedBytes.assign(sharedTexts.size(), QByteArray());
    if (sharedBytes[slot] != value) {
        sharedTexts[slot] = QString::fromLatin1(value);
        sharedBytes[slot] = value.toByteArray();
    }
    return sharedTexts[slot];
}

QString WayfernIO::textOf(QByteArrayView value) const
{
    return value.isEmpty() ? QStringLiteral("") : file->toText(value);
}

template <typename Record, typename Dispatch, typename After>
int WayfernIO::readGroup(RecordBytes *stream, const char *reader, const QString &prefix, int count,
                         RecordList<Record> &list, Dispatch dispatch, After after)
{
    file = stream;
    QString section = prefix;
    // The head "[<prefix><n>]" in the file's bytes, built in place: a large journey has
    // hundreds of thousands of sections. A prefix that the file cannot hold begins no line.
    QByteArray head("[");
    const bool encodable = file->encode(prefix, head);
    const qsizetype headPrefix = head.size();
    for (int index = 0; index < count; ++index) {
        char number[16];
        const char *numberEnd = std::to_chars(number, number + sizeof number, index).ptr;
        section.truncate(prefix.size());
        section.append(QLatin1StringView(number, numberEnd));
        head.truncate(headPrefix);
        head.append(number, numberEnd - number).append(']');
        const int found = encodable ? findHead(stream, head, index == 0) : -1;
        if (found != 0) {
            if (!encodable)
                stream->skipToEnd();
            printLine("\nWayfernIO::%s - section not found : %s\n", reader,
                      cstr(section).constData());
            if (readProblem == ReadProblem::None) {
                readProblem = ReadProblem::SectionMissing;
                readProblemDetail = section;
            }
            return -1;
        }
        // The record exists before any key is read: an empty section still gives one.
        Record *record = list.append();
        walkSection(stream, [&](QByteArrayView key, QByteArrayView value) {
            if (!dispatch(record, key, value))
                printLine("\nWayfernIO::%s(%s) : unknown header-entry : %s\n", reader,
                          cstr(section).constData(), file->toUtf8(key).constData());
        });
        after(record, section);
    }
    return 0;
}

template <typename Record, typename Dispatch>
int WayfernIO::readGroup(RecordBytes *stream, const char *reader, const QString &prefix, int count,
                         RecordList<Record> &list, Dispatch dispatch)
{
    return readGroup(stream, reader, prefix, count, list, dispatch,
                     [](Record *, const QString &) {});
}

template <typename Record>
void WayfernIO::writeAddress(ChunkWriter *stream, const Record *record)
{
    writeRecord(stream, QStringLiteral("STREET"), record->street);
    writeRecord(stream, QStringLiteral("PCODE"), record->pcode);
    writeRecord(stream, QStringLiteral("TOWN"), record->town);
    writeRecord(stream, QStringLiteral("TEL"), record->tel);
    writeRecord(stream, QStringLiteral("FAX"), record->fax);
    writeRecord(stream, QStringLiteral("EMAIL"), record->email);
    writeRecord(stream, QStringLiteral("WWW"), record->www);
}

int WayfernIO::ReadFile(const QString &path)
{
    QFile file(path);
    return ReadFile(&file, path);
}

int WayfernIO::ReadFile(QIODevice *device, const QString &name)
{
    readProblem = ReadProblem::None;
    readProblemDetail.clear();
    // Every line the read prints is written out in pieces and at its end.
    PrintedTogether together;
    RecordBytes stream;
    file = &stream;
    if (!stream.open(device)) {
        printLine("\nWayfernIO::ReadFile - file not found (%s)\n", cstr(name).constData());
        readProblem = ReadProblem::NotOpened;
        readProblemDetail = stream.errorString();
        return -1;
    }
    if (findHead(&stream, "[Header]", true) != 0) {
        printLine("\nWayfernIO::ReadFile - section not found : %s\n", "Header");
        printLine("\nreading aborted\n");
        readProblem = ReadProblem::NoHeader;
        return -1;
    }
    document->clearAll();
    // A small file holds few texts to share: a small cache serves it and is quicker to set
    // up and tear down than the full one.
    sharedTexts.clear();
    sharedBytes.clear();
    sharedSize = std::min<size_t>(
        sharedSlots, std::max<quint64>(64, qNextPowerOfTwo(quint64(stream.size()) / 64)));

    walkSection(&stream, [&](QByteArrayView key, QByteArrayView value) {
        if (keyIs(key, "JOURNEY-NAME"))
            document->journeyname = textOf(value);
        else if (keyIs(key, "DISTANCE-TYPE"))
            document->distancetype = textOf(value);
        else if (keyIs(key, "BASE-CURRENCY"))
            document->basecurrency = textOf(value);
        else if (keyIs(key, "COSTSCOUNT"))
            costsCount = toInt(value, *file);
        else if (keyIs(key, "USERCOUNT"))
            userCount = toInt(value, *file);
        else if (keyIs(key, "TIPCOUNT"))
            tipCount = toInt(value, *file);
        else if (keyIs(key, "CURRCOUNT"))
            currCount = toInt(value, *file);
        else if (keyIs(key, "CTYPECOUNT"))
            ctypeCount = toInt(value, *file);
        else if (keyIs(key, "TTYPECOUNT"))
            ttypeCount = toInt(value, *file);
        else if (keyIs(key, "QTYPECOUNT"))
            qtypeCount = toInt(value, *file);
        else if (keyIs(key, "USERFLAG"))
            document->userflag = toBool(textOf(value));
        else
            printLine("\nWayfernIO::ReadFile(%s) : unknown header-entry : %s\n", "Header",
                      file->toUtf8(key).constData());
    });

    // A group that fails stops by itself; the next one still runs.
    ReadFileCType(&stream, ctypeCount);
    ReadFileTType(&stream, ttypeCount);
    ReadFileQType(&stream, qtypeCount);
    ReadFileCosts(&stream, costsCount);
    ReadFileCurr(&stream, currCount);
    ReadFileTips(&stream, tipCount);
    ReadFileUsers(&stream, userCount);
    // Each account line has a section of its own, but travellers that share a short name
    // read the same sections again: a bound far above any real journey keeps such a file
    // from costing more than a small multiple of its size.
    qsizetype accountLines = 2 * stream.headCount() + 64;
    for (qsizetype index = 0; index < document->users.count(); ++index) {
        UserData *user = document->users.at(index);
        const bool bounded = user->count > accountLines;
        ReadFileUserAccount(&stream, user, bounded ? int(accountLines) : user->count);
        accountLines -= user->kto.count();
        if (bounded && accountLines == 0) {
            printLine("\nWayfernIO::ReadFile : more account lines than the file holds, "
                      "reading stops in USER_%lld\n",
                      static_cast<long long>(index));
            break;
        }
    }

    stream.release();
    sharedTexts.clear();
    sharedBytes.clear();
    document->recalcFactors();
    document->recalcCosts();
    document->setCostLetters();
    return 0;
}

int WayfernIO::ReadFileCType(RecordBytes *stream, int count)
{
    return readGroup(stream, "ReadFileCType", QStringLiteral("CTYPE_"), count, document->ctypes,
                     [&](CTypeData *row, QByteArrayView key, QByteArrayView value) {
                         if (!keyIs(key, "TYPE"))
                             return false;
                         row->type = shared(value);
                         return true;
                     });
}

int WayfernIO::ReadFileTType(RecordBytes *stream, int count)
{
    return readGroup(stream, "ReadFileTType", QStringLiteral("TTYPE_"), count, document->ttypes,
                     [&](TTypeData *row, QByteArrayView key, QByteArrayView value) {
                         if (keyIs(key, "TYPE"))
                             row->type = shared(value);
                         else if (keyIs(key, "CUSTOMCNT"))
                             ReadFileCTType(stream, toInt(value, *file), row->customs);
                         else
                             return false;
                         return true;
                     });
}

int WayfernIO::ReadFileQType(RecordBytes *stream, int count)
{
    return readGroup(stream, "ReadFileQType", QStringLiteral("QTYPE_"), count, document->qtypes,
                     [&](QTypeData *row, QByteArrayView key, QByteArrayView value) {
                         if (!keyIs(key, "TYPE"))
                             return false;
                         row->type = shared(value);
                         return true;
                     });
}

int WayfernIO::ReadFileCosts(RecordBytes *stream, int count)
{
    return readGroup(stream, "ReadFileCosts", QStringLiteral("COSTS_"), count, document->costs,
                     [&](CostsData *cost, QByteArrayView key, QByteArrayView value) {
                         if (keyIs(key, "DATE")) {
                             cost->date = shared(value);
                         } else if (keyIs(key, "TYPE")) {
                             cost->type = shared(value);
                         } else if (keyIs(key, "FVAL")) {
                             cost->fval = value.isEmpty() ? QStringLiteral("0.0") : textOf(value);
                         } else if (keyIs(key, "CTYPE")) {
                             cost->ctype = shared(value);
                         } else if (keyIs(key, "COMMENT")) {
                             cost->comment = textOf(value);
                         } else if (keyIs(key, "ID")) {
                             cost->id = toInt(value, *file);
                         } else if (keyIs(key, "EXCHANGE")) {
                             cost->exchange = shared(value);
                             // Costs come before the currencies, so in a normal read nothing is found
                             // here and the text stays as it stood.
                             const CurrData *curr = document->findCurrency(cost->ctype);
                             if (curr && (cost->exchange == u"(null)" || cost->exchange.isEmpty()))
                                 cost->exchange = curr->factor;
                             cost->exchangevalue = toDouble(QStringView(cost->exchange));
                         } else if (keyIs(key, "SHARED")) {
                             cost->shared = toBool(textOf(value));
                         } else {
                             return false;
                         }
                         return true;
                     });
}

int WayfernIO::ReadFileCurr(RecordBytes *stream, int count)
{
    return readGroup(stream, "ReadFileCurr", QStringLiteral("CURRENCY_"), count,
                     document->currencies,
                     [&](CurrData *curr, QByteArrayView key, QByteArrayView value) {
                         if (keyIs(key, "SHORT-TERM"))
                             curr->short_ = textOf(value);
                         else if (keyIs(key, "FACTOR"))
                             curr->factor = value.isEmpty() ? QStringLiteral("1.0") : textOf(value);
                         else if (keyIs(key, "FULL-NAME"))
                             curr->fullname = textOf(value);
                         else if (keyIs(key, "TYPE"))
                             curr->type = shared(value);
                         else
                             return false;
                         return true;
                     });
}

int WayfernIO::ReadFileTips(RecordBytes *stream, int count)
{
    return readGroup(stream, "ReadFileTips", QStringLiteral("TIP_"), count, document->tips,
                     [&](TipData *tip, QByteArrayView key, QByteArrayView value) {
                         if (keyIs(key, "DATE"))
                             tip->date = shared(value);
                         else if (keyIs(key, "TIPTYPE"))
                             tip->tiptype = shared(value);
                         else if (keyIs(key, "QUALITYTYPE"))
                             tip->qualitytype = shared(value);
                         else if (keyIs(key, "NAME"))
                             tip->name = textOf(value);
                         else if (keyIs(key, "STREET"))
                             tip->street = textOf(value);
                         else if (keyIs(key, "PCODE"))
                             tip->pcode = textOf(value);
                         else if (keyIs(key, "TOWN"))
                             tip->town = shared(value);
                         else if (keyIs(key, "TEL"))
                             tip->tel = textOf(value);
                         else if (keyIs(key, "FAX"))
                             tip->fax = textOf(value);
                         else if (keyIs(key, "EMAIL"))
                             tip->email = textOf(value);
                         else if (keyIs(key, "WWW"))
                             tip->www = textOf(value);
                         else if (keyIs(key, "COMMENT"))
                             tip->comment = textOf(value);
                         else if (keyIs(key, "CUSTOMCNT"))
                             ReadFileCTip(stream, toInt(value, *file), tip->customs);
                         else
                             return false;
                         return true;
                     });
}

int WayfernIO::ReadFileUsers(RecordBytes *stream, int count)
{
    return readGroup(stream, "ReadFileUsers", QStringLiteral("USER_"), count, document->users,
                     [&](UserData *user, QByteArrayView key, QByteArrayView value) {
                         if (keyIs(key, "DATE"))
                             user->date = shared(value);
                         else if (keyIs(key, "SHORT"))
                             user->short_ = textOf(value);
                         else if (keyIs(key, "NAME"))
                             user->name = textOf(value);
                         else if (keyIs(key, "FIRST NAME"))
                             user->firstname = textOf(value);
                         else if (keyIs(key, "STREET"))
                             user->street = textOf(value);
                         else if (keyIs(key, "PCODE"))
                             user->pcode = textOf(value);
                         else if (keyIs(key, "TOWN"))
                             user->town = textOf(value);
                         else if (keyIs(key, "TEL"))
                             user->tel = textOf(value);
                         else if (keyIs(key, "FAX"))
                             user->fax = textOf(value);
                         else if (keyIs(key, "EMAIL"))
                             user->email = textOf(value);
                         else if (keyIs(key, "WWW"))
                             user->www = textOf(value);
                         else if (keyIs(key, "BANK"))
                             user->bank = textOf(value);
                         else if (keyIs(key, "BLZ"))
                             user->blz = textOf(value);
                         else if (keyIs(key, "ACOUNT"))
                             user->acount = textOf(value);
                         else if (keyIs(key, "VALUE"))
                             user->value = toDouble(value, *file);
                         else if (keyIs(key, "COUNT"))
                             user->count = toInt(value, *file);
                         else
                             return false;
                         return true;
                     });
}

int WayfernIO::ReadFileUserAccount(RecordBytes *stream, UserData *user, int count)
{
    const QString prefix = user->short_ + u'_';
    // The trace of every account line is built in one buffer that keeps its memory: a large
    // journey has hundreds of thousands of them. The head up to the section's number is the
    // same for all of them.
    const QByteArray head = "\nWayfernIO::ReadFileUserAccount - hstr : " + cstr(prefix);
    std::string trace;
    return readGroup(
        stream, "ReadFileUserAccount", prefix, count, user->kto,
        [&](KtoData *line, QByteArrayView key, QByteArrayView value) {
            if (keyIs(key, "DATE"))
                line->date = shared(value);
            else if (keyIs(key, "TYPE"))
                line->type = shared(value);
            else if (keyIs(key, "MAGIC"))
                line->magic = toInt(value, *file);
            else if (keyIs(key, "PERCENTAGE"))
                line->percentage = toDouble(value, *file);
            else if (keyIs(key, "CHANGE"))
                line->change = toDouble(value, *file);
            else
                return false;
            return true;
        },
        [&](KtoData *line, const QString &section) {
            // The same text as "%s", "%d" and "%.4f", without printf. The section is the
            // prefix and its number in ASCII digits.
            trace.assign(head.constData(), size_t(head.size()));
            for (qsizetype i = prefix.size(); i < section.size(); ++i)
                trace += char(section.at(i).unicode());
            trace += "\n                                 ID   : ";
            char number[16];
            trace.append(
                number,
                size_t(std::to_chars(number, number + sizeof number, line->magic).ptr - number));
            trace += "\n                                 val  : ";
            appendFixed4(trace, line->change);
            trace += "\n                                 perc : ";
            appendFixed4(trace, line->percentage);
            PrintedTogether::append(trace.data(), qsizetype(trace.size()));
        });
}

int WayfernIO::ReadFileCTType(RecordBytes *stream, int count, RecordList<CustomData> &customs)
{
    file = stream;
    for (int index = 0; index < count; ++index) {
        CustomData *custom = customs.append();
        const QByteArrayView line = stream->readLine();
        if (stream->atEnd() || line.isEmpty())
            break;
        ByteRecordView parts;
        splitRecord(line, parts);
        const QString expected = QStringLiteral("CUSTOM_") + QString::number(index);
        if (parts.key == QByteArrayView(expected.toLatin1()))
            custom->text = textOf(parts.value);
        else
            printLine("\nWayfernIO::ReadFileCTType(%s) : unknown header-entry : %s\n",
                      cstr(expected).constData(), file->toUtf8(parts.key).constData());
    }
    return 0;
}

int WayfernIO::ReadFileCTip(RecordBytes *stream, int count, RecordList<CustomData> &customs)
{
    file = stream;
    // Reads one line of a pair; false when the custom block is over.
    const auto readPart = [&](const QString &expected, QString &field) {
        const QByteArrayView line = stream->readLine();
        if (stream->atEnd() || line.isEmpty())
            return false;
        ByteRecordView parts;
        splitRecord(line, parts);
        if (parts.key == QByteArrayView(expected.toLatin1()))
            field = textOf(parts.value);
        else
            printLine("\nWayfernIO::ReadFileCTip(%s) : unknown header-entry : %s\n",
                      cstr(expected).constData(), file->toUtf8(parts.key).constData());
        return true;
    };
    for (int index = 0; index < count; ++index) {
        CustomData *custom = customs.append();
        const QString number = QString::number(index);
        if (!readPart(QStringLiteral("CUSTOMTEXT_") + number, custom->text))
            break;
        if (!readPart(QStringLiteral("CUSTOMCONT_") + number, custom->content))
            break;
    }
    return 0;
}

int WayfernIO::WriteFile(const QString &path)
{
    return RecordSink::saveFile(
        path, "WayfernIO", [&](QIODevice *file) { return WriteFile(file, path); }, &writeProblem);
}

int WayfernIO::WriteFile(QIODevice *device, const QString &name)
{
    return RecordSink::streamDevice(
        device, name, "WayfernIO",
        [&](ChunkWriter *stream) {
            writeFileHead(stream, "data", "Data-File");
            *stream << "[Header]\n";
            writeRecord(stream, QStringLiteral("JOURNEY-NAME"), document->journeyname);
            writeRecord(stream, QStringLiteral("DISTANCE-TYPE"), document->distancetype);
            writeRecord(stream, QStringLiteral("BASE-CURRENCY"), document->basecurrency);
            writeRecord(stream, QStringLiteral("USERFLAG"), document->userflag);
            const QString d = QStringLiteral("%d");
            writeRecord(stream, QStringLiteral("COSTSCOUNT"), document->costs.count(), d);
            writeRecord(stream, QStringLiteral("TIPCOUNT"), document->tips.count(), d);
            writeRecord(stream, QStringLiteral("USERCOUNT"), document->users.count(), d);
            writeRecord(stream, QStringLiteral("CURRCOUNT"), document->currencies.count(), d);
            writeRecord(stream, QStringLiteral("CTYPECOUNT"), document->ctypes.count(), d);
            writeRecord(stream, QStringLiteral("TTYPECOUNT"), document->ttypes.count(), d);
            writeRecord(stream, QStringLiteral("QTYPECOUNT"), document->qtypes.count(), d);
            *stream << "\n";
            WriteFileCType(stream);
            WriteFileTType(stream);
            WriteFileQType(stream);
            WriteFileCosts(stream);
            WriteFileTips(stream);
            WriteFileUsers(stream);
            WriteFileCurr(stream);
            *stream << "\n##EOF WAYFERN DATA FILE " << name << "\n";
        },
        &writeProblem);
}

void WayfernIO::WriteFileCType(ChunkWriter *stream)
{
    writeGroup(stream, QStringLiteral("CTYPE_"), document->ctypes, [&](const CTypeData *row) {
        writeRecord(stream, QStringLiteral("TYPE"), row->type);
    });
}

void WayfernIO::WriteFileTType(ChunkWriter *stream)
{
    writeGroup(stream, QStringLiteral("TTYPE_"), document->ttypes, [&](const TTypeData *row) {
        writeRecord(stream, QStringLiteral("TYPE"), row->type);
        WriteFileCTType(stream, row->customs);
    });
}

void WayfernIO::WriteFileQType(ChunkWriter *stream)
{
    writeGroup(stream, QStringLiteral("QTYPE_"), document->qtypes, [&](const QTypeData *row) {
        writeRecord(stream, QStringLiteral("TYPE"), row->type);
    });
}

void WayfernIO::WriteFileCosts(ChunkWriter *stream)
{
    writeGroup(stream, QStringLiteral("COSTS_"), document->costs, [&](const CostsData *cost) {
        writeRecord(stream, QStringLiteral("DATE"), cost->date);
        writeRecord(stream, QStringLiteral("TYPE"), cost->type);
        writeRecord(stream, QStringLiteral("FVAL"), cost->fval);
        writeRecord(stream, QStringLiteral("CTYPE"), cost->ctype);
        writeRecord(stream, QStringLiteral("COMMENT"), cost->comment);
        writeRecord(stream, QStringLiteral("ID"), cost->id, QStringLiteral("%d"));
        writeRecord(stream, QStringLiteral("EXCHANGE"), cost->exchange);
        writeRecord(stream, QStringLiteral("SHARED"), cost->shared);
    });
}

void WayfernIO::WriteFileTips(ChunkWriter *stream)
{
    writeGroup(stream, QStringLiteral("TIP_"), document->tips, [&](const TipData *tip) {
        writeRecord(stream, QStringLiteral("DATE"), tip->date);
        writeRecord(stream, QStringLiteral("TIPTYPE"), tip->tiptype);
        writeRecord(stream, QStringLiteral("QUALITYTYPE"), tip->qualitytype);
        writeRecord(stream, QStringLiteral("NAME"), tip->name);
        writeAddress(stream, tip);
        writeRecord(stream, QStringLiteral("COMMENT"), tip->comment);
        WriteFileCTip(stream, tip->customs);
    });
}

void WayfernIO::WriteFileUsers(ChunkWriter *stream)
{
    writeGroup(stream, QStringLiteral("USER_"), document->users, [&](UserData *user) {
        writeRecord(stream, QStringLiteral("DATE"), user->date);
        writeRecord(stream, QStringLiteral("SHORT"), user->short_);
        writeRecord(stream, QStringLiteral("NAME"), user->name);
        writeRecord(stream, QStringLiteral("FIRST NAME"), user->firstname);
        writeAddress(stream, user);
        writeRecord(stream, QStringLiteral("BANK"), user->bank);
        writeRecord(stream, QStringLiteral("BLZ"), user->blz);
        writeRecord(stream, QStringLiteral("ACOUNT"), user->acount);
        writeRecord(stream, QStringLiteral("VALUE"), user->value, QStringLiteral("%.4f"));
        writeRecord(stream, QStringLiteral("COUNT"), unsigned(user->kto.count()),
                    QStringLiteral("%d"));
        WriteFileUserAccount(stream, user);
    });
}

void WayfernIO::WriteFileUserAccount(ChunkWriter *stream, UserData *user)
{
    // Behind the traveller's keys, without a group separator.
    *stream << "\n";
    writeSections(stream, user->short_ + u'_', user->kto, [&](const KtoData *line) {
        writeRecord(stream, QStringLiteral("DATE"), line->date);
        writeRecord(stream, QStringLiteral("TYPE"), line->type);
        writeRecord(stream, QStringLiteral("MAGIC"), line->magic, QStringLiteral("%d"));
        writeRecord(stream, QStringLiteral("PERCENTAGE"), line->percentage, QStringLiteral("%.2f"));
        writeRecord(stream, QStringLiteral("CHANGE"), line->change, QStringLiteral("%.4f"));
    });
}

void WayfernIO::WriteFileCurr(ChunkWriter *stream)
{
    writeGroup(stream, QStringLiteral("CURRENCY_"), document->currencies,
               [&](const CurrData *curr) {
                   writeRecord(stream, QStringLiteral("SHORT-TERM"), curr->short_);
                   writeRecord(stream, QStringLiteral("FACTOR"), curr->factor);
                   writeRecord(stream, QStringLiteral("FULL-NAME"), curr->fullname);
                   writeRecord(stream, QStringLiteral("TYPE"), curr->type);
               });
}

void WayfernIO::WriteFileCTType(ChunkWriter *stream, const RecordList<CustomData> &customs)
{
    *stream << "CUSTOMCNT=" << customs.count() << ";\n";
    int index = 0;
    for (const CustomData *custom : customs)
        *stream << "CUSTOM_" << index++ << '=' << custom->text << ";\n";
}

void WayfernIO::WriteFileCTip(ChunkWriter *stream, const RecordList<CustomData> &customs)
{
    *stream << "CUSTOMCNT=" << customs.count() << ";\n";
    int index = 0;
    for (const CustomData *custom : customs) {
        *stream << "CUSTOMTEXT_" << index << '=' << custom->text << ";\n";
        *stream << "CUSTOMCONT_" << index << '=' << custom->content << ";\n";
        ++index;
    }
}
