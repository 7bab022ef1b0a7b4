// The text record syntax, the section walk, record writing and the value converters.

#include "data/wayferndata.h"
#include "storage/recordstream.h"
#include "storage/scqtutil.h"

#include <QTextStream>
#include <QtTest>

namespace {
// Lines dispatched by a section walk, as "key|value".
QStringList walk(RecordStream &stream)
{
    QStringList seen;
    ScQtUtil::walkSection(&stream, [&](QStringView key, QStringView value) {
        seen << key.toString() + u'|' + value.toString();
    });
    return seen;
}

RecordStream streamOf(const QString &text)
{
    RecordStream stream;
    stream.setText(text);
    return stream;
}
} // namespace

class TestScQtUtil : public QObject
{
    Q_OBJECT

private slots:
    void splitRecordTable_data();
    void splitRecordTable();
    void emptyValueKeepsKey();
    void valueRunsToLastSemicolon();
    void nullOrEmptyLineKeepsFields();
    void stringValueNeverNull();
    void readLineDropsLineEndings();
    void blankLineDoesNotEndSection();
    void sectionHeadBehindLastRecordDoesNotEndSection();
    void lastLineOfStreamIsNeverDispatched();
    void lineWithOnlyCarriageReturnEndsSection();
    void findSectionWithoutRewindMissesEarlierSection();
    void findSectionWithRewindFindsEarlierSection();
    void findSectionHeadOnLastLineIsNotFound();
    void findSectionBadCalls();
    void findSectionMatchesWholeHeadOnly();
    void findSectionIgnoresTextBehindHead();
    void findSectionWithBracketInName();
    void findSectionInRepeatedHeadsGoesOnFromPosition();
    void writeRecordForms();
    void percentInValueIsHarmless();
    void hexPrefixesGiveThirtyOne_data();
    void hexPrefixesGiveThirtyOne();
    void otherIntegerConverters();
    void floatingConverters();
    void toBoolOnlyUpperCaseTrue();
    void toBoolWithNullRepeatsPreviousResult();
    void fileBaseNameCutsLastExtension_data();
    void fileBaseNameCutsLastExtension();
    void dateParts();
    void datePartsOfNullRepeatPreviousResult();
    void missingHeadsWithABracketInTheNameCostLittleToSearch();
    void headWithABracketInTheNameIsFoundAmongManyOfItsKey();
    void nthWordCountsFromOne();
    void nthWordOfLongTextDoesNotOverflow();
};

void TestScQtUtil::splitRecordTable_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("rest");
    QTest::addColumn<int>("result");
    QTest::newRow("plain") << "TOWN=Bad Ems;"
                           << "TOWN"
                           << "Bad Ems"
                           << "" << 0;
    QTest::newRow("equals in value") << "A=B=C;"
                                     << "A"
                                     << "B=C"
                                     << "" << 0;
    QTest::newRow("semicolons in value") << "A=B;C=D;"
                                         << "A"
                                         << "B;C=D"
                                         << "" << 0;
    QTest::newRow("text behind last semicolon") << "A=B;C"
                                                << "A"
                                                << "B"
                                                << "C" << 0;
    QTest::newRow("empty value") << "A=;"
                                 << "A"
                                 << ""
                                 << "" << 0;
    QTest::newRow("empty key") << "=x;"
                               << ""
                               << "x"
                               << "" << 0;
    QTest::newRow("no semicolon") << "A=x"
                                  << "A"
                                  << ""
                                  << "" << -1;
    QTest::newRow("no equals sign") << "a comment without the sign"
                                    << ""
                                    << ""
                                    << "" << -1;
    QTest::newRow("blanks kept") << "FIRST NAME= Anna ;"
                                 << "FIRST NAME"
                                 << " Anna "
                                 << "" << 0;
    QTest::newRow("quotes are text") << "A=\"x\";"
                                     << "A"
                                     << "\"x\""
                                     << "" << 0;
}

void TestScQtUtil::splitRecordTable()
{
    QFETCH(QString, line);
    QFETCH(QString, key);
    QFETCH(QString, value);
    QFETCH(QString, rest);
    QFETCH(int, result);
    ScQtUtil util;
    QCOMPARE(util.splitRecord(line), result);
    QCOMPARE(util.key, key);
    QCOMPARE(util.value, value);
    QCOMPARE(util.rest, rest);
    QCOMPARE(util.sep, line.contains(u'=') ? QStringLiteral("=") : QStringLiteral(""));
}

void TestScQtUtil::emptyValueKeepsKey()
{
    ScQtUtil util;
    QCOMPARE(util.splitRecord(QStringLiteral("KEY=;")), 0);
    QCOMPARE(util.key, QStringLiteral("KEY"));
    QVERIFY(!util.value.isNull());
    QCOMPARE(util.value, QStringLiteral(""));
}

void TestScQtUtil::valueRunsToLastSemicolon()
{
    ScQtUtil util;
    util.splitRecord(QStringLiteral("A=B;C=D;"));
    QCOMPARE(util.value, QStringLiteral("B;C=D"));
    QCOMPARE(util.rest, QStringLiteral(""));
    // The reader sees the whole value, ";" and all.
    RecordStream stream = streamOf(QStringLiteral("A=B;C=D;\n\n"));
    QCOMPARE(walk(stream), QStringList{QStringLiteral("A|B;C=D")});
}

void TestScQtUtil::nullOrEmptyLineKeepsFields()
{
    ScQtUtil util;
    util.splitRecord(QStringLiteral("A=B;C"));
    QCOMPARE(util.splitRecord(QString()), -2);
    QCOMPARE(util.splitRecord(QStringLiteral("")), -2);
    QCOMPARE(util.key, QStringLiteral("A"));
    QCOMPARE(util.value, QStringLiteral("B"));
    QCOMPARE(util.rest, QStringLiteral("C"));
}

void TestScQtUtil::stringValueNeverNull()
{
    QVERIFY(!ScQtUtil::stringValue(QString()).isNull());
    QCOMPARE(ScQtUtil::stringValue(QString()), QStringLiteral(""));
    QCOMPARE(ScQtUtil::stringValue(QStringLiteral("x")), QStringLiteral("x"));
    QVERIFY(!ScQtUtil::stringValue(QStringView()).isNull());
}

void TestScQtUtil::readLineDropsLineEndings()
{
    RecordStream stream = streamOf(QStringLiteral("a\r\nb\rc\n\nd\r"));
    QCOMPARE(stream.readLine().toString(), QStringLiteral("a"));
    QCOMPARE(stream.readLine().toString(), QStringLiteral("b\rc"));
    QVERIFY(!stream.atEnd());
    QCOMPARE(stream.readLine().toString(), QStringLiteral(""));
    QVERIFY(!stream.atEnd());
    QCOMPARE(stream.readLine().toString(), QStringLiteral("d"));
    QVERIFY(stream.atEnd());
}

void TestScQtUtil::blankLineDoesNotEndSection()
{
    RecordStream stream = streamOf(QStringLiteral("A=1;\n \nB=2;\n\nC=3;\nend\n"));
    QCOMPARE(walk(stream), QStringList({"A|1", "|", "B|2"}));
}

void TestScQtUtil::sectionHeadBehindLastRecordDoesNotEndSection()
{
    RecordStream stream = streamOf(QStringLiteral("[S_0]\nA=1;\n[S_1]\nA=2;\n\n#end\n"));
    ScQtUtil util;
    QCOMPARE(util.findSection(&stream, QStringLiteral("S_0"), true), 0);
    QCOMPARE(walk(stream), QStringList({"A|1", "|", "A|2"}));
}

// Travellers whose short name is "]": their account heads "[]_0]" share the key "[]" of the
// hashed heads with nothing, and each search for one must not walk the rest of the file.
void TestScQtUtil::missingHeadsWithABracketInTheNameCostLittleToSearch()
{
    const int travellers = 3000;
    QString text;
    for (int i = 0; i < travellers; ++i)
        text += QStringLiteral("[USER_%1]\nSHORT=];\nCOUNT=1;\n\n").arg(i);
    RecordStream stream = streamOf(text);
    for (int i = 0; i < travellers; ++i) {
        stream.rewind();
        stream.skipTo(QStringLiteral("[USER_%1]").arg(i));
        QCOMPARE(stream.readLine(), QStringLiteral("SHORT=];"));
        stream.skipTo(QStringLiteral("[]_0]"));
        QVERIFY(stream.atEnd());
    }
    // Walking on from each traveller to the end would visit about travellers^2 / 2 heads.
    QVERIFY2(stream.headsVisited() < 10 * travellers + 4096,
             qPrintable(QString::number(stream.headsVisited())));
}

void TestScQtUtil::headWithABracketInTheNameIsFoundAmongManyOfItsKey()
{
    QString text;
    for (int i = 0; i < 3000; ++i)
        text += QStringLiteral("[S_%1]\nA=%1;\n\n").arg(i);
    text += QStringLiteral("[]_0]\nA=first;\n\n[]_1]\nA=second;\n\n[]_1]\nA=third;\n\n");
    RecordStream stream = streamOf(text);
    // Enough searches for the heads to be hashed.
    for (int i = 0; i < 3000; ++i) {
        stream.rewind();
        stream.skipTo(QStringLiteral("[S_2999]"));
    }
    stream.rewind();
    stream.skipTo(QStringLiteral("[]_1]"));
    QCOMPARE(stream.readLine(), QStringLiteral("A=second;"));
    stream.skipTo(QStringLiteral("[]_1]"));
    QCOMPARE(stream.readLine(), QStringLiteral("A=third;"));
    stream.skipTo(QStringLiteral("[]_0]"));
    QVERIFY(stream.atEnd());
    stream.rewind();
    stream.skipTo(QStringLiteral("[]_0]"));
    QCOMPARE(stream.readLine(), QStringLiteral("A=first;"));
}

void TestScQtUtil::lastLineOfStreamIsNeverDispatched()
{
    RecordStream stream = streamOf(QStringLiteral("A=1;\nB=2;"));
    QCOMPARE(walk(stream), QStringList({"A|1"}));
    RecordStream withNewline = streamOf(QStringLiteral("A=1;\nB=2;\n"));
    QCOMPARE(walk(withNewline), QStringList({"A|1"}));
    RecordStream single = streamOf(QStringLiteral("A=1;\n"));
    QCOMPARE(walk(single), QStringList());
}

void TestScQtUtil::lineWithOnlyCarriageReturnEndsSection()
{
    RecordStream stream = streamOf(QStringLiteral("A=1;\r\n\r\nB=2;\r\nend\r\n"));
    QCOMPARE(walk(stream), QStringList({"A|1"}));
}

void TestScQtUtil::findSectionWithoutRewindMissesEarlierSection()
{
    RecordStream stream = streamOf(QStringLiteral("[A]\nx=1;\n\n[B]\ny=2;\n\n#end\n"));
    ScQtUtil util;
    QCOMPARE(util.findSection(&stream, QStringLiteral("B"), true), 0);
    QCOMPARE(util.findSection(&stream, QStringLiteral("A"), false), -1);
    QVERIFY(stream.atEnd());
}

void TestScQtUtil::findSectionWithRewindFindsEarlierSection()
{
    RecordStream stream = streamOf(QStringLiteral("[A]\nx=1;\n\n[B]\ny=2;\n\n#end\n"));
    ScQtUtil util;
    QCOMPARE(util.findSection(&stream, QStringLiteral("B"), true), 0);
    QCOMPARE(util.findSection(&stream, QStringLiteral("A"), true), 0);
    QCOMPARE(walk(stream), QStringList({"x|1"}));
}

void TestScQtUtil::findSectionHeadOnLastLineIsNotFound()
{
    ScQtUtil util;
    RecordStream stream = streamOf(QStringLiteral("x\n[Header]"));
    QCOMPARE(util.findSection(&stream, QStringLiteral("Header"), true), -1);
    RecordStream withNewline = streamOf(QStringLiteral("x\n[Header]\n"));
    QCOMPARE(util.findSection(&withNewline, QStringLiteral("Header"), true), -1);
    RecordStream withMore = streamOf(QStringLiteral("x\n[Header]\n\n"));
    QCOMPARE(util.findSection(&withMore, QStringLiteral("Header"), true), 0);
}

void TestScQtUtil::findSectionBadCalls()
{
    ScQtUtil util;
    RecordStream stream = streamOf(QStringLiteral("[A]\n\n"));
    QCOMPARE(util.findSection(&stream, QString(), true), -3);
    QCOMPARE(util.findSection(&stream, QStringLiteral(""), true), -3);
    RecordStream closed;
    QCOMPARE(util.findSection(&closed, QStringLiteral("A"), true), -3);
    QCOMPARE(util.findSection(nullptr, QStringLiteral("A"), true), -3);
}

void TestScQtUtil::findSectionMatchesWholeHeadOnly()
{
    ScQtUtil util;
    RecordStream stream = streamOf(QStringLiteral("[COSTS_10]\nA=1;\n\n[COSTS_1]\nA=2;\n\n#\n"));
    QCOMPARE(util.findSection(&stream, QStringLiteral("COSTS_1"), true), 0);
    QCOMPARE(walk(stream), QStringList({"A|2"}));
    // Case-sensitive, and only at the start of a line.
    RecordStream other = streamOf(QStringLiteral("[header]\n [Header]\nA=1;\n\n"));
    QCOMPARE(util.findSection(&other, QStringLiteral("Header"), true), -1);
}

void TestScQtUtil::findSectionIgnoresTextBehindHead()
{
    ScQtUtil util;
    RecordStream stream = streamOf(QStringLiteral("[Header] trailing ] text\nA=1;\n\n"));
    QCOMPARE(util.findSection(&stream, QStringLiteral("Header"), true), 0);
    QCOMPARE(walk(stream), QStringList({"A|1"}));
}

void TestScQtUtil::findSectionWithBracketInName()
{
    ScQtUtil util;
    RecordStream stream = streamOf(QStringLiteral("[A]B_0]\nX=1;\n\n[A]B_1]x\nX=2;\n\n#\n"));
    QCOMPARE(util.findSection(&stream, QStringLiteral("A]B_1"), true), 0);
    QCOMPARE(walk(stream), QStringList({"X|2"}));
    QCOMPARE(util.findSection(&stream, QStringLiteral("A]B_0"), false), -1);
}

void TestScQtUtil::findSectionInRepeatedHeadsGoesOnFromPosition()
{
    ScQtUtil util;
    RecordStream stream =
        streamOf(QStringLiteral("[U_0]\nA=1;\n\n[U_0]\nA=2;\n\n[U_0]\nA=3;\n\n#\n"));
    QCOMPARE(util.findSection(&stream, QStringLiteral("U_0"), true), 0);
    QCOMPARE(walk(stream), QStringList({"A|1"}));
    QCOMPARE(util.findSection(&stream, QStringLiteral("U_0"), false), 0);
    QCOMPARE(walk(stream), QStringList({"A|2"}));
    QCOMPARE(util.findSection(&stream, QStringLiteral("U_0"), false), 0);
    QCOMPARE(walk(stream), QStringList({"A|3"}));
    QCOMPARE(util.findSection(&stream, QStringLiteral("U_0"), false), -1);
}

void TestScQtUtil::writeRecordForms()
{
    QString text;
    QTextStream out(&text);
    ScQtUtil util;
    const QString d = QStringLiteral("%d");
    QCOMPARE(util.writeRecord(&out, QStringLiteral("S"), QStringLiteral("a b")), 0);
    QCOMPARE(util.writeRecord(&out, QStringLiteral("T"), true), 0);
    QCOMPARE(util.writeRecord(&out, QStringLiteral("F"), false), 0);
    QCOMPARE(util.writeRecord(&out, QStringLiteral("I"), -42, d), 0);
    QCOMPARE(util.writeRecord(&out, QStringLiteral("U"), 42u, QStringLiteral("%u")), 0);
    QCOMPARE(util.writeRecord(&out, QStringLiteral("SH"), short(-7), d), 0);
    QCOMPARE(util.writeRecord(&out, QStringLiteral("USH"), (unsigned short)65535, d), 0);
    QCOMPARE(util.writeRecord(&out, QStringLiteral("L"), -5000000000L, QStringLiteral("%ld")), 0);
    QCOMPARE(util.writeRecord(&out, QStringLiteral("UL"), 5000000000UL, QStringLiteral("%lu")), 0);
    QCOMPARE(util.writeRecord(&out, QStringLiteral("FL"), 0.5f, QStringLiteral("%.2f")), 0);
    QCOMPARE(util.writeRecord(&out, QStringLiteral("D"), -14.81, QStringLiteral("%.4f")), 0);
    QCOMPARE(util.writeRecord(&out, QStringLiteral("N"), QString()), 0);
    out.flush();
    QCOMPARE(text,
             QStringLiteral("S=a b;\nT=TRUE;\nF=FALSE;\nI=-42;\nU=42;\nSH=-7;\nUSH=65535;\n"
                            "L=-5000000000;\nUL=5000000000;\nFL=0.50;\nD=-14.8100;\nN=;\n"));
}

void TestScQtUtil::percentInValueIsHarmless()
{
    QString text;
    QTextStream out(&text);
    ScQtUtil util;
    util.writeRecord(&out, QStringLiteral("COMMENT%s"), QStringLiteral("100% %s %n %d"));
    out.flush();
    QCOMPARE(text, QStringLiteral("COMMENT%s=100% %s %n %d;\n"));
}

void TestScQtUtil::hexPrefixesGiveThirtyOne_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("value");
    QTest::newRow("0x1f") << "0x1f" << 31;
    QTest::newRow("0h1f") << "0h1f" << 31;
    QTest::newRow("x1f") << "x1f" << 31;
    QTest::newRow("h1f") << "h1f" << 31;
    QTest::newRow("1f") << "1f" << 0;
    QTest::newRow("0X1F is base 10") << "0X1F" << 0;
    QTest::newRow("decimal") << "-17" << -17;
    QTest::newRow("empty") << "" << 0;
    QTest::newRow("max") << "2147483647" << 2147483647;
    QTest::newRow("overflow") << "2147483648" << 0;
}

void TestScQtUtil::hexPrefixesGiveThirtyOne()
{
    QFETCH(QString, text);
    QFETCH(int, value);
    ScQtUtil util;
    QCOMPARE(util.toInt(text), value);
}

void TestScQtUtil::otherIntegerConverters()
{
    ScQtUtil util;
    QCOMPARE(util.toInt(QString()), 0);
    QCOMPARE(util.toUInt(QStringLiteral("0xff")), 255u);
    QCOMPARE(util.toUInt(QString()), 0u);
    QCOMPARE(util.toShort(QStringLiteral("-12")), short(-12));
    QCOMPARE(util.toShort(QStringLiteral("70000")), short(0));
    QCOMPARE(util.toUShort(QStringLiteral("h10")), (unsigned short)16);
    QCOMPARE(util.toLong(QStringLiteral("5000000000")), 5000000000L);
    QCOMPARE(util.toULong(QStringLiteral("x10")), 16UL);
    QCOMPARE(util.toLong(QString()), 0L);
}

void TestScQtUtil::floatingConverters()
{
    ScQtUtil util;
    QCOMPARE(util.toDouble(QStringLiteral("8.10")), 8.1);
    QCOMPARE(util.toDouble(QStringLiteral("eight")), 0.0);
    QCOMPARE(util.toDouble(QString()), 0.0);
    QCOMPARE(util.toFloat(QStringLiteral("0.5")), 0.5f);
    QCOMPARE(util.toFloat(QString()), 0.0f);
}

void TestScQtUtil::toBoolOnlyUpperCaseTrue()
{
    ScQtUtil util;
    QCOMPARE(util.toBool(QStringLiteral("TRUE")), true);
    QCOMPARE(util.toBool(QStringLiteral("True")), false);
    QCOMPARE(util.toBool(QStringLiteral("true")), false);
    QCOMPARE(util.toBool(QStringLiteral("1")), false);
    QCOMPARE(util.toBool(QStringLiteral("")), false);
}

void TestScQtUtil::toBoolWithNullRepeatsPreviousResult()
{
    ScQtUtil util;
    util.toBool(QStringLiteral("TRUE"));
    QCOMPARE(util.toBool(QString()), true);
    util.toBool(QStringLiteral("FALSE"));
    QCOMPARE(util.toBool(QString()), false);
}

void TestScQtUtil::fileBaseNameCutsLastExtension_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("base");
    QTest::newRow("trip.wfn") << "trip.wfn"
                              << "trip";
    QTest::newRow("a.b.c") << "a.b.c"
                           << "a.b";
    QTest::newRow("journey") << "journey"
                             << "";
    QTest::newRow("leading dot") << ".hidden"
                                 << "";
    QTest::newRow("empty") << ""
                           << "";
    QTest::newRow("null") << QString() << "";
    QTest::newRow("dot at 1") << "a.wfn"
                              << "a";
}

void TestScQtUtil::fileBaseNameCutsLastExtension()
{
    QFETCH(QString, name);
    QFETCH(QString, base);
    const QString result = ScQtUtil::fileBaseName(name);
    QCOMPARE(result, base);
    QVERIFY(!result.isNull());
}

void TestScQtUtil::dateParts()
{
    ScQtUtil util;
    QCOMPARE(util.dateDay(QStringLiteral("03.05.2002")), 3);
    QCOMPARE(util.dateMonth(QStringLiteral("03.05.2002")), 5);
    QCOMPARE(util.dateYear(QStringLiteral("03.05.2002")), 2002);
    // Months are expected with two digits.
    QCOMPARE(util.dateMonth(QStringLiteral("3.2.2002")), 0);
    QCOMPARE(util.dateDay(QStringLiteral("3.2.2002")), 3);
    QCOMPARE(util.dateDay(QStringLiteral("nodate")), 0);
    QCOMPARE(util.dateMonth(QStringLiteral(".05.2002")), 0);
    QCOMPARE(util.dateYear(QStringLiteral(".2002")), 0);
    QCOMPARE(util.dateYear(QStringLiteral("01.02.x")), 0);
}

void TestScQtUtil::datePartsOfNullRepeatPreviousResult()
{
    ScQtUtil util;
    util.dateDay(QStringLiteral("17.11.1999"));
    util.dateMonth(QStringLiteral("17.11.1999"));
    util.dateYear(QStringLiteral("17.11.1999"));
    QCOMPARE(util.dateDay(QString()), 17);
    QCOMPARE(util.dateMonth(QStringLiteral("")), 11);
    QCOMPARE(util.dateYear(QString()), 1999);
}

void TestScQtUtil::nthWordCountsFromOne()
{
    const QString text = QStringLiteral("  one\ttwo   three ");
    QCOMPARE(ScQtUtil::nthWord(text, 0), QStringLiteral("one"));
    QCOMPARE(ScQtUtil::nthWord(text, -3), QStringLiteral("one"));
    QCOMPARE(ScQtUtil::nthWord(text, 1), QStringLiteral("one"));
    QCOMPARE(ScQtUtil::nthWord(text, 2), QStringLiteral("two"));
    QCOMPARE(ScQtUtil::nthWord(text, 3), QStringLiteral("three"));
    QCOMPARE(ScQtUtil::nthWord(text, 4), QStringLiteral(""));
    QCOMPARE(ScQtUtil::nthWord(QString(), 1), QStringLiteral(""));
}

void TestScQtUtil::nthWordOfLongTextDoesNotOverflow()
{
    const QString longWord(5000, QLatin1Char('w'));
    const QString text = longWord + QStringLiteral(" second ") + longWord;
    QCOMPARE(ScQtUtil::nthWord(text, 2), QStringLiteral("second"));
    QCOMPARE(ScQtUtil::nthWord(text, 3), longWord);
}

QTEST_GUILESS_MAIN(TestScQtUtil)
#include "tst_scqtutil.moc"
