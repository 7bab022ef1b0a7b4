// Reading a rate out of a downloaded page: the table line of the old HTML pages, the JSON
// answers of a rate service, the test of 40 lines, and pages that are no rate page at all.

#include "coretestutil.h"
#include "stdoutcapture.h"

#include "rates/ratepage.h"

#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

namespace {

// The column figure written out step by step, exactly as the rule reads, for comparison.
int literalCount(const QString &line)
{
    const int table = line.indexOf(QLatin1String("<table>"));
    QString work;
    if (table >= 0)
        work = line.right(line.length() - table - 1);
    QString header;
    const int words = work.indexOf(QLatin1String("Exchange Rate"));
    if (words >= 0)
        header = work.left(words);
    int count = 0;
    while (true) {
        const int at = header.indexOf(QLatin1String("<th"));
        if (at < 0)
            break;
        header = header.right(at);
        ++count;
    }
    return count;
}

const QByteArray serviceAnswer =
    R"({"amount":1.0,"base":"EUR","date":"2026-11-20","rates":{"NOK":11.45}})";

// A page of the old layout: the table sits in one line among others.
QByteArray tablePage(const QByteArray &tableLine, int linesBefore = 5)
{
    QByteArray page = "<html>\n<head><title>Rates</title></head>\n<body>\n";
    for (int i = 0; i < linesBefore; ++i)
        page += "<p>line " + QByteArray::number(i) + "</p>\n";
    page += tableLine + "\n</body>\n</html>\n";
    return page;
}

const QByteArray oldLayoutLine =
    "<p>Rates</p><table><tr><th>Amount</th><th>From</th><th>Exchange Rate</th></tr>"
    "<tr><td>1</td><td>EUR</td><td>NOK</td><td>x</td><td>11.45</td><td>99</td></tr></table>";

} // namespace

class TestRatePage : public QObject
{
    Q_OBJECT

private slots:
    void headerTextShrinksToItsLastCharacters();
    void thAtStartOfHeaderLeavesEmptyText();
    void columnFigureMatchesLiteralShrinking();
    void columnFigureIsNotTheNumberOfHeaderCells();
    void rateIsInCellOfNPlusSecondTd();
    void rowShorterThanNPlusTwoCellsUsesItsLastCell();
    void cellWithAttributesConvertsToZero();
    void missingClosingTdGivesNoRate();
    void tableTagWithAttributesGivesCountZeroAndNoRate();
    void lineStartingWithExchangeRateIsSkipped();
    void firstOccurrenceAtStartDisqualifiesLine();
    void pageWithoutTriggerHandsOnEmptyNotNullText();
    void nullTriggerPrintsMessage();
    void tableLineAfterLine40MayNotBeThereYet();
    void fortyLinesAndMoreTextCountAsArrived_data();
    void fortyLinesAndMoreTextCountAsArrived();
    void unreadableFileIsNoPage();
    void serviceAnswerGivesRate();
    void jsonWithoutRequestedCodeGivesNoRate();
    void jsonCodeOutsideTheRatesObjectGivesNoRate();
    void jsonMalformedNumberGivesNoRate_data();
    void jsonMalformedNumberGivesNoRate();
    void jsonRateKeyIsReadWithoutRatesObject();
    void jsonWithBlanksAndSeveralCodes();
    void jsonRatesObjectHoldingObjectsStillGivesTheCode();
    void jsonEscapedNamesAreTheirCharacters();
    void jsonCodeGivenTwiceCountsWithItsLastValue();
    void jsonAnswerInsideAnotherObjectIsFoundNearestToTheTopFirst();
    void jsonAnswerThatIsNoJsonAnywhereGivesNoRate_data();
    void jsonAnswerThatIsNoJsonAnywhereGivesNoRate();
    void jsonAnswerInLatin1OrWithByteOrderMarkIsRead();
    void triggerLineWinsOverJson();
    void hugePageIsReadOnlyUpToLimit();
    void tenMegabyteLineIsReadWhole();
    void binaryBytesAroundTableLine();

private:
    QTemporaryDir dir;
    QString write(const QByteArray &bytes, const QString &name = QStringLiteral("rate.html"))
    {
        const QString path = dir.filePath(name);
        if (!writeBytes(path, bytes))
            qFatal("cannot write %s", qPrintable(path));
        return path;
    }
};

void TestRatePage::headerTextShrinksToItsLastCharacters()
{
    // The header text "table>" + 24 + "<th" + 7 is 40 characters with "<th" at 30: it
    // becomes its last 30, 20, 10 characters and then the empty text: four steps.
    const QString line = QStringLiteral("x<table>") + QString(24, u'a') + QStringLiteral("<th")
        + QString(7, u'b') + QStringLiteral("Exchange Rate");
    QCOMPARE(RatePage::countColumns(line), 4);
}

void TestRatePage::thAtStartOfHeaderLeavesEmptyText()
{
    // "table><th": "<th" at 6 leaves "le><th", at 3 leaves "<th", at 0 leaves nothing.
    QCOMPARE(RatePage::countColumns(QStringLiteral("x<table><thExchange Rate")), 3);
    QCOMPARE(RatePage::countColumns(QStringLiteral("<table>Exchange Rate")), 0);
}

void TestRatePage::columnFigureMatchesLiteralShrinking()
{
    QRandomGenerator random(20261123);
    const QStringList pieces = {QStringLiteral("<th"),     QStringLiteral("<th>"),
                                QStringLiteral("a"),       QStringLiteral("bcd"),
                                QStringLiteral("</th>"),   QStringLiteral("<"),
                                QStringLiteral("th"),      QStringLiteral("Exchange Rate"),
                                QStringLiteral("<table>"), QStringLiteral("xxxxxxxxxxx")};
    for (int round = 0; round < 3000; ++round) {
        QString line;
        const int length = random.bounded(1, 40);
        for (int i = 0; i < length; ++i)
            line += pieces.at(random.bounded(int(pieces.size())));
        QCOMPARE(RatePage::countColumns(line), literalCount(line));
    }
}

void TestRatePage::columnFigureIsNotTheNumberOfHeaderCells()
{
    // Two header cells in front of the words, yet the figure is 3.
    const QString line = QStringLiteral(
        "<b>x</b><table><tr><th>A</th><th>Exchange Rate</th></tr><tr><td>1</td></tr></table>");
    QCOMPARE(RatePage::countColumns(line), 3);
}

void TestRatePage::rateIsInCellOfNPlusSecondTd()
{
    const QString line = QString::fromLatin1(oldLayoutLine);
    QCOMPARE(RatePage::countColumns(line), 3);
    QCOMPARE(RatePage::readCell(line, 3), 11.45);
    QCOMPARE(RatePage::readCell(line, 2), 0.0); // the cell "x"
    QCOMPARE(RatePage::readCell(line, 0), 0.0); // "EUR"
    QCOMPARE(RatePage::readRateFile(write(tablePage(oldLayoutLine)), QStringLiteral("NOK")), 11.45);
}

void TestRatePage::rowShorterThanNPlusTwoCellsUsesItsLastCell()
{
    const QString line = QStringLiteral("<p>Rates</p><table><tr><th>Amount</th><th>From</th>"
                                        "<th>Exchange Rate</th></tr><tr><td>1</td><td>EUR</td>"
                                        "<td>NOK</td><td>9.87</td></tr></table>");
    QCOMPARE(RatePage::countColumns(line), 3);
    QCOMPARE(RatePage::rateFromTrigger(line), 9.87);
}

void TestRatePage::cellWithAttributesConvertsToZero()
{
    const QString line = QStringLiteral("<table><tr><th>Exchange Rate</th></tr><tr><td>a</td>"
                                        "<td>b</td><td>c</td><td>d</td>"
                                        "<td align=right>11.45</td></tr></table>");
    QCOMPARE(RatePage::countColumns(line), 3);
    QCOMPARE(RatePage::rateFromTrigger(line), 0.0);
}

void TestRatePage::missingClosingTdGivesNoRate()
{
    const QString line = QStringLiteral("<table><tr><th>Exchange Rate</th></tr><tr><td>a</td>"
                                        "<td>b</td><td>c</td><td>d</td><td>11.45</tr></table>");
    QCOMPARE(RatePage::countColumns(line), 3);
    QCOMPARE(RatePage::rateFromTrigger(line), -1.0);
}

void TestRatePage::tableTagWithAttributesGivesCountZeroAndNoRate()
{
    QByteArray line = oldLayoutLine;
    line.replace("<table>", "<table border=\"1\">");
    QCOMPARE(RatePage::countColumns(QString::fromLatin1(line)), 0);
    StdoutCapture out;
    QCOMPARE(RatePage::readRateFile(write(tablePage(line)), QStringLiteral("NOK")), -1.0);
    QCOMPARE(out.text(), QString());
}

void TestRatePage::lineStartingWithExchangeRateIsSkipped()
{
    const QByteArray page = tablePage("Exchange Rate <table><tr><th>Exchange Rate</th></tr>"
                                      "<tr><td>1</td><td>2</td><td>3</td><td>4</td><td>5.5</td>"
                                      "</tr></table>\n"
                                      + oldLayoutLine);
    QCOMPARE(RatePage::findTrigger(page), QString::fromLatin1(oldLayoutLine));
    QCOMPARE(RatePage::readRateFile(write(page), QStringLiteral("NOK")), 11.45);
}

void TestRatePage::firstOccurrenceAtStartDisqualifiesLine()
{
    // A second "Exchange Rate" further on does not make the line qualify.
    const QByteArray page = "Exchange Rate<table><tr><th>Exchange Rate</th></tr></table>\n";
    const QString trigger = RatePage::findTrigger(page);
    QVERIFY(!trigger.isNull());
    QVERIFY(trigger.isEmpty());
    // With "\r\n" line ends the "\r" is no part of the trigger line.
    QCOMPARE(RatePage::findTrigger("a\r\nb Exchange Rate c\r\nd\r\n"),
             QStringLiteral("b Exchange Rate c"));
}

void TestRatePage::pageWithoutTriggerHandsOnEmptyNotNullText()
{
    const QByteArray page = tablePage("<table><tr><th>Rate</th></tr></table>");
    const QString trigger = RatePage::findTrigger(page);
    QVERIFY(!trigger.isNull());
    QVERIFY(trigger.isEmpty());
    QVERIFY(!RatePage::findTrigger(QByteArray()).isNull());
    StdoutCapture out;
    QCOMPARE(RatePage::readRateFile(write(page), QStringLiteral("NOK")), -1.0);
    QCOMPARE(RatePage::readRateFile(write(QByteArray()), QStringLiteral("NOK")), -1.0);
    QCOMPARE(out.text(), QString());
}

void TestRatePage::nullTriggerPrintsMessage()
{
    StdoutCapture out;
    QCOMPARE(RatePage::rateFromTrigger(QString()), -1.0);
    QCOMPARE(out.text(), QStringLiteral("\nTrigger not found ... "));
    StdoutCapture silent;
    QCOMPARE(RatePage::rateFromTrigger(QString(QLatin1String(""))), -1.0);
    QCOMPARE(silent.text(), QString());
}

void TestRatePage::tableLineAfterLine40MayNotBeThereYet()
{
    // wget has written 45 lines so far; the table line is still to come.
    QByteArray start = "<html>\n";
    for (int i = 0; i < 44; ++i)
        start += "<p>filler " + QByteArray::number(i) + "</p>\n";
    const QString path = write(start);
    QVERIFY(RatePage::hasFortyLines(path));
    QCOMPARE(RatePage::readRateFile(path, QStringLiteral("NOK")), -1.0);
    write(start + oldLayoutLine + "\n</html>\n");
    QCOMPARE(RatePage::readRateFile(path, QStringLiteral("NOK")), 11.45);
}

void TestRatePage::fortyLinesAndMoreTextCountAsArrived_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("arrived");
    const QByteArray forty = QByteArray("line\n").repeated(40);
    QTest::newRow("empty") << QByteArray() << false;
    QTest::newRow("39 lines") << QByteArray("line\n").repeated(39) << false;
    QTest::newRow("39 lines and an unended one")
        << QByteArray("line\n").repeated(39) + "abc" << false;
    QTest::newRow("exactly 40 lines") << forty << false;
    QTest::newRow("40 lines and one byte") << forty + "x" << true;
    QTest::newRow("41 lines") << forty + "x\n" << true;
    QTest::newRow("40 empty lines and a blank") << QByteArray(40, '\n') + " " << true;
    QTest::newRow("crlf lines") << QByteArray("l\r\n").repeated(40) + "z" << true;
    QTest::newRow("one long line") << QByteArray(300000, 'a') << false;
    QTest::newRow("40 lines across pieces")
        << QByteArray(65535, 'a') + QByteArray(40, '\n') + "q" << true;
}

void TestRatePage::fortyLinesAndMoreTextCountAsArrived()
{
    QFETCH(QByteArray, bytes);
    QFETCH(bool, arrived);
    QCOMPARE(RatePage::hasFortyLines(write(bytes, QStringLiteral("forty.html"))), arrived);
}

void TestRatePage::unreadableFileIsNoPage()
{
    const QString missing = dir.filePath(QStringLiteral("no-such-page.html"));
    QVERIFY(!RatePage::hasFortyLines(missing));
    StdoutCapture out;
    QCOMPARE(RatePage::readRateFile(missing, QStringLiteral("NOK")), -1.0);
    QCOMPARE(out.text(), QString());
    QVERIFY(RatePage::readPage(missing).isNull());
}

void TestRatePage::serviceAnswerGivesRate()
{
    StdoutCapture out;
    QCOMPARE(RatePage::readRateFile(write(serviceAnswer), QStringLiteral("NOK")), 11.45);
    QCOMPARE(out.text(), QString());
}

void TestRatePage::jsonWithoutRequestedCodeGivesNoRate()
{
    QCOMPARE(RatePage::readJsonRate(serviceAnswer, QStringLiteral("SEK")), -1.0);
    QCOMPARE(RatePage::readJsonRate(serviceAnswer, QStringLiteral("nok")), -1.0);
    QCOMPARE(RatePage::readJsonRate(serviceAnswer, QString()), -1.0);
    // The code as a value, not as a key, is no rate either.
    QCOMPARE(RatePage::readJsonRate(R"({"rates":{"x":"NOK"}})", QStringLiteral("NOK")), -1.0);
    QCOMPARE(RatePage::readJsonRate(R"({"message":"not found"})", QStringLiteral("NOK")), -1.0);
}

void TestRatePage::jsonCodeOutsideTheRatesObjectGivesNoRate()
{
    // The code behind the rates object, or in an object beside it, is no rate of that code.
    const QByteArray behind = R"({"rates":{"CZK":1},"NOK":5})";
    QCOMPARE(RatePage::readJsonRate(behind, QStringLiteral("NOK")), -1.0);
    QCOMPARE(RatePage::readRateFile(write(behind), QStringLiteral("NOK")), -1.0);
    QCOMPARE(RatePage::readJsonRate(behind, QStringLiteral("CZK")), 1.0);
    const QByteArray beside = R"({"rates":{"CZK":1},"other":{"NOK":5}})";
    QCOMPARE(RatePage::readJsonRate(beside, QStringLiteral("NOK")), -1.0);
    const QByteArray before = R"({"NOK":5,"rates":{"CZK":1}})";
    QCOMPARE(RatePage::readJsonRate(before, QStringLiteral("NOK")), -1.0);
}

void TestRatePage::jsonMalformedNumberGivesNoRate_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::newRow("two points") << QByteArray(R"({"rates":{"NOK":11.4.5}})");
    QTest::newRow("quoted") << QByteArray(R"({"rates":{"NOK":"11.45"}})");
    QTest::newRow("empty") << QByteArray(R"({"rates":{"NOK":}})");
    QTest::newRow("cut off") << QByteArray(R"({"rates":{"NOK":)");
    QTest::newRow("exponent without digits") << QByteArray(R"({"rates":{"NOK":1e}})");
    QTest::newRow("letters behind") << QByteArray(R"({"rates":{"NOK":11.45abc}})");
    QTest::newRow("null") << QByteArray(R"({"rates":{"NOK":null}})");
    QTest::newRow("too large") << QByteArray(R"({"rates":{"NOK":1e999}})");
    QTest::newRow("point without digits") << QByteArray(R"({"rates":{"NOK":11.}})");
    QTest::newRow("leading zero") << QByteArray(R"({"rates":{"NOK":011.45}})");
    QTest::newRow("leading zeros") << QByteArray(R"({"rates":{"NOK":00}})");
    QTest::newRow("point without digits in front") << QByteArray(R"({"rates":{"NOK":.5}})");
    QTest::newRow("minus and point") << QByteArray(R"({"rates":{"NOK":-.5}})");
    QTest::newRow("point before exponent") << QByteArray(R"({"rates":{"NOK":1.e1}})");
    QTest::newRow("negative leading zero") << QByteArray(R"({"rates":{"NOK":-02.5}})");
    QTest::newRow("rate key malformed") << QByteArray(R"({"rate":"zero"})");
}

void TestRatePage::jsonMalformedNumberGivesNoRate()
{
    QFETCH(QByteArray, answer);
    QCOMPARE(RatePage::readJsonRate(answer, QStringLiteral("NOK")), -1.0);
    QCOMPARE(RatePage::readRateFile(write(answer), QStringLiteral("NOK")), -1.0);
}

void TestRatePage::jsonRateKeyIsReadWithoutRatesObject()
{
    QCOMPARE(
        RatePage::readJsonRate(R"({"from":"EUR","to":"NOK","rate":11.5})", QStringLiteral("NOK")),
        11.5);
    QCOMPARE(RatePage::readJsonRate(R"({"rate": 0})", QStringLiteral("NOK")), 0.0);
    // The requested code wins over a "rate" key.
    QCOMPARE(RatePage::readJsonRate(R"({"rate":2,"rates":{"NOK":3}})", QStringLiteral("NOK")), 3.0);
}

void TestRatePage::jsonWithBlanksAndSeveralCodes()
{
    const QByteArray answer = "{\n  \"amount\": 1.0,\n  \"base\": \"EUR\",\n"
                              "  \"rates\" : {\n    \"CZK\": 24.312,\n    \"NOK\" : 1.1445e1,\n"
                              "    \"PLN\": 4.2551\n  }\n}\n";
    QCOMPARE(RatePage::readJsonRate(answer, QStringLiteral("CZK")), 24.312);
    QCOMPARE(RatePage::readJsonRate(answer, QStringLiteral("NOK")), 11.445);
    QCOMPARE(RatePage::readJsonRate(answer, QStringLiteral("PLN")), 4.2551);
    QCOMPARE(RatePage::readJsonRate(answer, QStringLiteral("EUR")), -1.0);
}

void TestRatePage::jsonRatesObjectHoldingObjectsStillGivesTheCode()
{
    const QByteArray answer = R"({"rates":{"CZK":{"buy":24.1,"sell":24.5},"NOK":11.45}})";
    QCOMPARE(RatePage::readJsonRate(answer, QStringLiteral("NOK")), 11.45);
    // The code's value is an object, not a number.
    QCOMPARE(RatePage::readJsonRate(answer, QStringLiteral("CZK")), -1.0);
}

void TestRatePage::jsonEscapedNamesAreTheirCharacters()
{
    QCOMPARE(RatePage::readJsonRate(R"({"rates":{"N\u004fK":11.45}})", QStringLiteral("NOK")),
             11.45);
    QCOMPARE(RatePage::readJsonRate(R"({"r\u0061tes":{"NOK":7}})", QStringLiteral("NOK")), 7.0);
    QCOMPARE(RatePage::readJsonRate(R"({"rat\u0065":2.5})", QStringLiteral("NOK")), 2.5);
    // A name with a quote in it is that name, and no other.
    const QByteArray quoted = "{\"rates\":{\"NOK\\\"\":3,\"NOK\":4}}";
    QCOMPARE(RatePage::readJsonRate(quoted, QStringLiteral("NOK")), 4.0);
}

void TestRatePage::jsonCodeGivenTwiceCountsWithItsLastValue()
{
    // As JSON readers commonly take it: the later value replaces the earlier one.
    QCOMPARE(RatePage::readJsonRate(R"({"rates":{"NOK":1,"NOK":2}})", QStringLiteral("NOK")), 2.0);
    QCOMPARE(RatePage::readJsonRate(R"({"rates":{"NOK":"x","NOK":2}})", QStringLiteral("NOK")),
             2.0);
    QCOMPARE(RatePage::readJsonRate(R"({"rates":{"NOK":2,"NOK":null}})", QStringLiteral("NOK")),
             -1.0);
    QCOMPARE(
        RatePage::readJsonRate(R"({"rates":{"CZK":1},"rates":{"NOK":2}})", QStringLiteral("NOK")),
        2.0);
}

void TestRatePage::jsonAnswerInsideAnotherObjectIsFoundNearestToTheTopFirst()
{
    const QString nok = QStringLiteral("NOK");
    QCOMPARE(RatePage::readJsonRate(R"({"data":{"rates":{"NOK":4}}})", nok), 4.0);
    QCOMPARE(RatePage::readJsonRate(R"({"query":{"to":"NOK"},"info":{"rate":1.2}})", nok), 1.2);
    QCOMPARE(RatePage::readJsonRate(R"({"data":[{"base":"EUR"},{"rate":3}]})", nok), 3.0);
    QCOMPARE(RatePage::readJsonRate(R"({"a":{"rate":2},"rate":1})", nok), 1.0);
    QCOMPARE(RatePage::readJsonRate(R"({"a":{"rates":{"NOK":2}},"rates":{"NOK":1}})", nok), 1.0);
    // A code in a rates object wins over a rate nearer to the top.
    QCOMPARE(RatePage::readJsonRate(R"({"rate":1,"a":{"rates":{"NOK":2}}})", nok), 2.0);
    // The first rates object decides: without the code there, a rate key or nothing.
    QCOMPARE(RatePage::readJsonRate(R"({"rates":{"CZK":1},"a":{"rates":{"NOK":2}}})", nok), -1.0);
    QCOMPARE(RatePage::readJsonRate(R"({"rates":{"CZK":1},"a":{"rate":5}})", nok), 5.0);
}

void TestRatePage::jsonAnswerThatIsNoJsonAnywhereGivesNoRate_data()
{
    // The rate itself stands well in each; the page around it is no JSON answer.
    QTest::addColumn<QByteArray>("answer");
    QTest::newRow("cut off") << QByteArray(R"({"rates":{"NOK":11.45})");
    QTest::newRow("text behind") << QByteArray(R"({"rates":{"NOK":11.45}} and more)");
    QTest::newRow("second object") << QByteArray(R"({"rates":{"NOK":11.45}}{})");
    QTest::newRow("text in front") << QByteArray(R"(rates: {"rates":{"NOK":11.45}})");
    QTest::newRow("unknown escape") << QByteArray(R"({"note":"\x","rates":{"NOK":11.45}})");
    QTest::newRow("line break in a text")
        << QByteArray("{\"note\":\"a\nb\",\"rates\":{\"NOK\":11.45}}");
    QTest::newRow("loose number elsewhere") << QByteArray(R"({"amount":1.,"rates":{"NOK":11.45}})");
    QTest::newRow("trailing comma") << QByteArray(R"({"rates":{"NOK":11.45,}})");
    QTest::newRow("array") << QByteArray(R"([{"rates":{"NOK":11.45}}])");
    QTest::newRow("html") << QByteArray(R"(<p>{"rates":{"NOK":11.45}}</p>)");
}

void TestRatePage::jsonAnswerThatIsNoJsonAnywhereGivesNoRate()
{
    QFETCH(QByteArray, answer);
    QCOMPARE(RatePage::readJsonRate(answer, QStringLiteral("NOK")), -1.0);
    QCOMPARE(RatePage::readRateFile(write(answer), QStringLiteral("NOK")), -1.0);
}

void TestRatePage::jsonAnswerInLatin1OrWithByteOrderMarkIsRead()
{
    const QByteArray latin1 = "{\"note\":\"Kr\xf3na\",\"rates\":{\"ISK\":146.2}}";
    QCOMPARE(RatePage::readRateFile(write(latin1), QStringLiteral("ISK")), 146.2);
    const QByteArray marked = "\xef\xbb\xbf\r\n" + serviceAnswer + "\r\n";
    QCOMPARE(RatePage::readRateFile(write(marked), QStringLiteral("NOK")), 11.45);
    const QByteArray utf8 = "{\"note\":\"Kr\xc3\xb3na\",\"rates\":{\"ISK\":146.2}}";
    QCOMPARE(RatePage::readJsonRate(utf8, QStringLiteral("ISK")), 146.2);
}

void TestRatePage::triggerLineWinsOverJson()
{
    // A page with a trigger line is read by the table rule alone, even where that gives -1.0.
    QByteArray line = oldLayoutLine;
    line.replace("<table>", "<table class=\"r\">");
    QCOMPARE(RatePage::readRateFile(write(tablePage(line) + serviceAnswer), QStringLiteral("NOK")),
             -1.0);
}

void TestRatePage::hugePageIsReadOnlyUpToLimit()
{
    // 50 MB of lines: the table line at the start is found, one at the end lies beyond what
    // is read.
    const QByteArray filler = QByteArray("<p>nothing of interest here</p>\n").repeated(1600000);
    QVERIFY(filler.size() >= 50 * 1000 * 1000);
    QCOMPARE(RatePage::readRateFile(write(oldLayoutLine + "\n" + filler), QStringLiteral("NOK")),
             11.45);
    QCOMPARE(RatePage::readRateFile(write(filler + oldLayoutLine + "\n"), QStringLiteral("NOK")),
             -1.0);
    QVERIFY(RatePage::hasFortyLines(write(filler)));
}

void TestRatePage::tenMegabyteLineIsReadWhole()
{
    // The header text of 10 million characters with one "<th" at its end shrinks by three
    // characters a step: (n + 6) / 3 + 1 steps for filler length n divisible by 3.
    const int n = 10000002;
    const QByteArray line = "x<table>" + QByteArray(n, 'a') + "<thExchange Rate<td>7.5</td>";
    QCOMPARE(RatePage::countColumns(QString::fromLatin1(line)), (n + 6) / 3 + 1);
    QCOMPARE(RatePage::readRateFile(write(line), QStringLiteral("NOK")), 7.5);
    // One line of ten million "<td" cells, none closed.
    const QByteArray cells = "y<table><th>Exchange Rate" + QByteArray("<td").repeated(3400000);
    QCOMPARE(RatePage::readRateFile(write(cells), QStringLiteral("NOK")), -1.0);
    QVERIFY(!RatePage::hasFortyLines(write(cells)));
}

void TestRatePage::binaryBytesAroundTableLine()
{
    QRandomGenerator random(7);
    QByteArray noise(1 << 20, Qt::Uninitialized);
    for (char &c : noise)
        c = char(random.bounded(256));
    // Whatever the noise holds, it must not hold the words that the reader looks for.
    noise.replace("Exchange Rate", "xxxxxxxxxxxxx");
    noise.replace("\"rate", "xxxxx");
    QCOMPARE(RatePage::readRateFile(write(noise), QStringLiteral("NOK")), -1.0);
    const QByteArray page = noise + "\n" + oldLayoutLine + "\n" + noise;
    QCOMPARE(RatePage::readRateFile(write(page), QStringLiteral("NOK")), 11.45);
    QCOMPARE(RatePage::readRateFile(write(QByteArray(4096, '\0')), QStringLiteral("NOK")), -1.0);
}

QTEST_GUILESS_MAIN(TestRatePage)
#include "tst_ratepage.moc"
