#pragma once

#include "data/wayferndata.h"
#include "storage/scqtutil.h"

#include <vector>

class QIODevice;

// Reads and writes one journey as a ".wfn" text file.
class WayfernIO : public ScQtUtil
{
public:
    explicit WayfernIO(WayFernData *document);

    // 0 read; -1 when the file is missing or has no "Header" section.
    int ReadFile(const QString &path);
    // The same from a device, read from where it stands to its end and opened for reading
    // when it is closed; `name` stands for it in the printed lines.
    int ReadFile(QIODevice *device, const QString &name);
    // 0 written; -1 when the file cannot be written.
    int WriteFile(const QString &path);
    // The same into a device, opened for writing when it is closed; `name` stands for it in
    // the end marker and the printed lines, where the path stands otherwise.
    int WriteFile(QIODevice *device, const QString &name);

    // One reader per group, each with the number of sections to read: 0, or -1 when a
    // section is missing.
    int ReadFileCType(RecordBytes *stream, int count);
    int ReadFileTType(RecordBytes *stream, int count);
    int ReadFileQType(RecordBytes *stream, int count);
    int ReadFileCosts(RecordBytes *stream, int count);
    int ReadFileCurr(RecordBytes *stream, int count);
    int ReadFileTips(RecordBytes *stream, int count);
    int ReadFileUsers(RecordBytes *stream, int count);
    int ReadFileUserAccount(RecordBytes *stream, UserData *user, int count);
    // The custom fields behind "CUSTOMCNT", read on the stream of the tip type or tip.
    int ReadFileCTType(RecordBytes *stream, int count, RecordList<CustomData> &customs);
    int ReadFileCTip(RecordBytes *stream, int count, RecordList<CustomData> &customs);

    void WriteFileCType(ChunkWriter *stream);
    void WriteFileTType(ChunkWriter *stream);
    void WriteFileQType(ChunkWriter *stream);
    void WriteFileCosts(ChunkWriter *stream);
    void WriteFileTips(ChunkWriter *stream);
    void WriteFileUsers(ChunkWriter *stream);
    void WriteFileUserAccount(ChunkWriter *stream, UserData *user);
    void WriteFileCurr(ChunkWriter *stream);
    void WriteFileCTType(ChunkWriter *stream, const RecordList<CustomData> &customs);
    void WriteFileCTip(ChunkWriter *stream, const RecordList<CustomData> &customs);

    WayFernData *document;

    // What kept the last ReadFile from giving the whole journey. A header that counts more
    // sections than the file holds still reads, with what was found, and answers 0: a
    // caller that must not take a cut-off journey for a whole one looks here.
    enum class ReadProblem { None, NotOpened, NoHeader, SectionMissing };
    ReadProblem readProblem = ReadProblem::None;
    // The system's reason when the file could not be opened, or the first missing section.
    QString readProblemDetail;
    // Why the last WriteFile failed, as the system words it; empty after a success.
    QString writeProblem;

    // How many slots the cache of repeated texts has at most (see shared()): texts whose
    // hashes meet in a slot must still read back as themselves. Every size of the cache is
    // a power of two up to this one, so texts that meet in the largest meet in every one.
    static constexpr size_t sharedSlots = 4096;

private:
    template <typename Record, typename Dispatch, typename After>
    int readGroup(RecordBytes *stream, const char *reader, const QString &prefix, int count,
                  RecordList<Record> &list, Dispatch dispatch, After after);
    template <typename Record, typename Dispatch>
    int readGroup(RecordBytes *stream, const char *reader, const QString &prefix, int count,
                  RecordList<Record> &list, Dispatch dispatch);
    // The address keys that tips and travellers share, in the order of both.
    template <typename Record>
    void writeAddress(ChunkWriter *stream, const Record *record);

    // Dates, types and currency names repeat throughout a journey: their texts are shared
    // through a small cache in which a new text takes the slot of an old one.
    QString shared(QStringView value);
    QString shared(QByteArrayView value);
    // A value of the file being read as the text a reader stores: never null.
    QString textOf(QByteArrayView value) const;
    // The file being read.
    const RecordBytes *file = nullptr;
    std::vector<QString> sharedTexts;
    std::vector<QByteArray> sharedBytes; // of the slots filled from a file's bytes

    size_t sharedSize = sharedSlots; // the number of slots when the cache is set up

    // The section counts of the header. They survive from one read to the next: a header
    // without a count key reads as many sections as the file before had.
    static int costsCount;
    static int userCount;
    static int tipCount;
    static int currCount;
    static int ctypeCount;
    static int ttypeCount;
    static int qtypeCount;
};
