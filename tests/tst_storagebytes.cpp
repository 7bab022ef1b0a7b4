// The journey reader works on a file's bytes and the writer writes in pieces. Both must give
// exactly what the decoded text and the whole-text encoding give: the reader the same lines
// and section searches as RecordStream on RecordStream::decode(), the writer the bytes of
// RecordSink::encode(), for any input.

#include "storage/chunkwriter.h"
#include "storage/recordbytes.h"
#include "storage/recordsink.h"
#include "storage/recordstream.h"
#include "storage/scqtutil.h"

#include <QBuffer>
#include <QRandomGenerator>
#include <QtTest>

namespace {
// Random bytes rich in what the reader looks at: line ends, heads, "=", ";", byte order marks,
// UTF-8 sequences valid and broken, and Latin-1 letters.
QByteArray randomBytes(QRandomGenerator &random, int parts, bool utf8Only)
{
    static const char *const pieces[] = {"\n",
                                         "\r\n",
                                         "\r",
                                         "[",
                                         "]",
                                         "[A_0]\n",
                                         "[A_1]",
                                         "[A]B_0]\n",
                                         "[\xC3\x9C_0]\n",
                                         "[\xDC_0]\n",
                                         "=",
                                         ";",
                                         "KEY=value;\n",
                                         "\xEF\xBB\xBF",
                                         "\xC3\xA9",
                                         "\xE2\x82\xAC",
                                         "\xF0\x9F\x8C\x8D",
                                         "\xC3",
                                         "\xE9",
                                         "\xFC\xDF",
                                         "\xED\xA0\x80",
                                         "x",
                                         "A",
                                         "_",
                                         "0",
                                         "1"};
    const int count = int(sizeof pieces / sizeof *pieces);
    QByteArray bytes;
    for (int i = 0; i < parts; ++i) {
        const int pick = int(random.bounded(count));
        if (utf8Only && (pick == 9 || (pick >= 17 && pick <= 20)))
            continue;
        bytes += pieces[pick];
    }
    return bytes;
}

QString text(QStringView view)
{
    return view.toString();
}

// Patterns that a search is asked for, in the text and in the file's bytes.
const QStringList &patterns()
{
    static const QStringList list = {QStringLiteral("[A_0]"),
                                     QStringLiteral("[A_1]"),
                                     QStringLiteral("[A]B_0]"),
                                     QStringLiteral("[\u00dc_0]"),
                                     QStringLiteral("[A"),
                                     QStringLiteral("KEY"),
                                     QStringLiteral("[A_0]\r"),
                                     QStringLiteral("["),
                                     QStringLiteral("[\u20ac"),
                                     QStringLiteral("\u00e9"),
                                     QStringLiteral("[") + QChar(0xd800),
                                     QStringLiteral("[\ufeff")};
    return list;
}

// Compares reading `bytes` both ways: every line, then searches from several places.
void compareReaders(const QByteArray &bytes)
{
    RecordStream stream;
    stream.setText(RecordStream::decode(bytes));
    RecordBytes file;
    file.setBytes(bytes);
    while (!stream.atEnd() || !file.atEnd()) {
        QCOMPARE(file.atEnd(), stream.atEnd());
        QCOMPARE(file.toText(file.readLine()), text(stream.readLine()));
    }
    QVERIFY(file.readLine().isEmpty());

    for (const QString &pattern : patterns()) {
        stream.rewind();
        file.rewind();
        QByteArray head;
        const bool encodable = file.encode(pattern, head);
        for (int search = 0; search < 4 && !stream.atEnd(); ++search) {
            stream.skipTo(pattern);
            if (encodable)
                file.skipTo(head);
            else
                file.skipToEnd();
            QCOMPARE(file.atEnd(), stream.atEnd());
            QCOMPARE(file.toText(file.readLine()), text(stream.readLine()));
        }
    }
}
} // namespace

class TestStorageBytes : public QObject
{
    Q_OBJECT

private slots:
    void bytesReadAsDecodedText_data();
    void bytesReadAsDecodedText();
    void randomBytesReadAsDecodedText();
    void recordsSplitAsText();
    void valuesConvertAsText();
    void piecesWriteAsWholeText_data();
    void piecesWriteAsWholeText();
    void randomTextsWriteAsWholeText();
};

void TestStorageBytes::bytesReadAsDecodedText_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("ascii") << QByteArray("[Header]\nA=1;\n\n[A_0]\nB=2;\n\n#end\n");
    QTest::newRow("utf-8 with mark") << QByteArray("\xEF\xBB\xBF[Header]\nA=\xC3\xA9;\n\n#\n");
    QTest::newRow("mark alone") << QByteArray("\xEF\xBB\xBF[Header]\nA=1;\n\n#\n");
    QTest::newRow("two marks") << QByteArray("\xEF\xBB\xBF\xEF\xBB\xBF[Header]\nA=1;\n\n#\n");
    QTest::newRow("mark in a value") << QByteArray("[H]\nA=\xEF\xBB\xBF\xC3\xA9;\n\n#\n");
    QTest::newRow("latin-1 with mark bytes") << QByteArray("\xEF\xBB\xBF[Header]\nA=\xE9;\n\n#\n");
    QTest::newRow("broken sequence at the end") << QByteArray("[H]\nA=\xC3\xA9;\n\n\xC3");
    QTest::newRow("surrogate bytes") << QByteArray("[H]\nA=\xED\xA0\x80;\n\n#\n");
    QTest::newRow("utf-8 short name") << QByteArray("[\xC3\x9C_0]\nA=1;\n\n[\xC3\x9C_1]\n\n#\n");
    QTest::newRow("latin-1 short name") << QByteArray("[\xDC_0]\nA=1;\n\n[\xDC_1]\n\n#\n");
    QTest::newRow("carriage returns") << QByteArray("[A_0]\r\r\nA=1;\r\n\r\n[A_1]\r\nx\r");
}

void TestStorageBytes::bytesReadAsDecodedText()
{
    QFETCH(QByteArray, bytes);
    compareReaders(bytes);
}

void TestStorageBytes::randomBytesReadAsDecodedText()
{
    QRandomGenerator random(20021126);
    for (int round = 0; round < 3000; ++round) {
        const QByteArray bytes = randomBytes(random, int(random.bounded(1, 60)), round % 2 == 0);
        compareReaders(bytes);
        if (QTest::currentTestFailed()) {
            qWarning("input: %s", bytes.toHex().constData());
            return;
        }
    }
}

void TestStorageBytes::recordsSplitAsText()
{
    const QByteArray lines[] = {"",      "KEY",      "KEY=",  "KEY=value",    "KEY=value;",
                                "=;",    "A=B;C=D;", "A=b;c", "K=\xC3\xA9;x", ";=;",
                                "A==B;;"};
    for (const QByteArray &line : lines) {
        ScQtUtil::RecordView text;
        ScQtUtil::ByteRecordView bytes;
        const QString decoded = QString::fromUtf8(line);
        QCOMPARE(ScQtUtil::splitRecord(line, bytes), ScQtUtil::splitRecord(decoded, text));
        QCOMPARE(QString::fromUtf8(bytes.key), text.key.toString());
        QCOMPARE(QString::fromUtf8(bytes.sep), text.sep.toString());
        QCOMPARE(QString::fromUtf8(bytes.value), text.value.toString());
        QCOMPARE(QString::fromUtf8(bytes.rest), text.rest.toString());
    }
}

void TestStorageBytes::valuesConvertAsText()
{
    const QByteArray values[] = {"",    "0",     "12",  "-7",  "0x1f", "h10", "x",
                                 "1.5", "-0.25", "1e3", " 4",  "4 ",   "+3",  "99999999999",
                                 "--1", ".",     "3.",  "nan", "1,5"};
    RecordBytes file;
    file.setBytes("ascii");
    for (const QByteArray &value : values) {
        ScQtUtil util;
        const QString text = QString::fromLatin1(value);
        QCOMPARE(util.toInt(value, file), util.toInt(QStringView(text)));
        const double fromBytes = ScQtUtil::toDouble(value, file);
        const double fromText = ScQtUtil::toDouble(QStringView(text));
        QVERIFY2(fromBytes == fromText || (qIsNaN(fromBytes) && qIsNaN(fromText)),
                 value.constData());
    }
}

void TestStorageBytes::piecesWriteAsWholeText_data()
{
    QTest::addColumn<QStringList>("pieces");
    QTest::newRow("ascii") << QStringList{QStringLiteral("A=1;\n"), QStringLiteral("B=2;\n")};
    QTest::newRow("latin-1") << QStringList{QStringLiteral("A="), QStringLiteral("M\u00fcnchen"),
                                            QStringLiteral(";\n")};
    QTest::newRow("latin-1 that reads as utf-8")
        << QStringList{QStringLiteral("A="), QStringLiteral("\u00c3\u00a9"), QStringLiteral(";")};
    QTest::newRow("beyond latin-1 late")
        << QStringList{QStringLiteral("\u00e9"), QString(100000, u'x'), QStringLiteral("\u20ac")};
    QTest::newRow("lone surrogate")
        << QStringList{QStringLiteral("a="), QString(QChar(0xd800)), QStringLiteral(";\n")};
    QTest::newRow("long ascii run first")
        << QStringList{QString(200000, u'a'), QStringLiteral("\u00c3"), QString(3000000, u'b'),
                       QStringLiteral("\u00a9")};
    QTest::newRow("mark") << QStringList{QStringLiteral("\u00ef\u00bb\u00bf"), QStringLiteral("x")};
}

void TestStorageBytes::piecesWriteAsWholeText()
{
    QFETCH(QStringList, pieces);
    QByteArray written;
    QBuffer buffer(&written);
    QVERIFY(buffer.open(QIODevice::WriteOnly));
    int runs = 0;
    QVERIFY(ChunkWriter::write(&buffer, [&](ChunkWriter *out) {
        ++runs;
        for (const QString &piece : pieces)
            *out << piece;
    }));
    QCOMPARE(written, RecordSink::encode(pieces.join(QString())));
    const bool ascii = std::all_of(pieces.begin(), pieces.end(), [](const QString &p) {
        return std::all_of(p.begin(), p.end(), [](QChar c) { return c.unicode() < 0x80; });
    });
    QCOMPARE(runs, ascii ? 1 : 2);
}

void TestStorageBytes::randomTextsWriteAsWholeText()
{
    QRandomGenerator random(26052002);
    const char16_t letters[] = {u'a',      u'\n',     u';',      u'\u00e9', u'\u00c3',
                                u'\u00a9', u'\u00ef', u'\u00bb', u'\u00bf', u'\u0141',
                                u'\u20ac', 0xd83c,    0xdf0d,    u'1'};
    for (int round = 0; round < 2000; ++round) {
        QStringList pieces;
        const int parts = int(random.bounded(1, 12));
        for (int p = 0; p < parts; ++p) {
            QString piece;
            const int length = int(random.bounded(0, 8));
            // Mostly ASCII, like a journey.
            const int range = random.bounded(4) == 0 ? int(std::size(letters)) : 3;
            for (int i = 0; i < length; ++i)
                piece += QChar(letters[random.bounded(range)]);
            pieces << piece;
        }
        QByteArray written;
        QBuffer buffer(&written);
        QVERIFY(buffer.open(QIODevice::WriteOnly));
        // ASCII pieces go in as Latin-1 views too, as keys and numbers do.
        const bool asLatin1 = round % 2 == 1;
        QVERIFY(ChunkWriter::write(&buffer, [&](ChunkWriter *out) {
            for (const QString &piece : pieces) {
                const QByteArray latin1 = piece.toLatin1();
                const bool ascii = std::all_of(piece.begin(), piece.end(),
                                               [](QChar c) { return c.unicode() < 0x80; });
                if (asLatin1 && ascii)
                    *out << QLatin1StringView(latin1);
                else
                    *out << piece;
            }
        }));
        const QString whole = pieces.join(QString());
        QVERIFY2(written == RecordSink::encode(whole), qPrintable(whole));
    }
}

QTEST_GUILESS_MAIN(TestStorageBytes)
#include "tst_storagebytes.moc"
