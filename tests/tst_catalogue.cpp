#include "coretestutil.h"

#include "rates/catalogue.h"

#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

namespace {

QStringList rows(const QList<CatalogueEntry> &entries)
{
    QStringList out;
    for (const CatalogueEntry &e : entries)
        out << e.short_ + u'|' + e.fullname;
    return out;
}

// A line of a rate page's form, the box behind some text as the service sends it.
QByteArray boxLine(const QByteArray &options)
{
    return "<td><form><select name=s>" + options + "</select></form></td>\n";
}

} // namespace

class TestCatalogue : public QObject
{
    Q_OBJECT

    QTemporaryDir dir;

    QString page(const QByteArray &bytes, const char *name = "rate.html")
    {
        const QString path = dir.filePath(QString::fromLatin1(name));
        if (!writeBytes(path, bytes))
            return QString();
        return path;
    }

    int read(const QByteArray &bytes, QList<CatalogueEntry> *entries)
    {
        const QString path = page(bytes);
        if (path.isEmpty())
            return 99;
        return Catalogue::readFile(path, entries);
    }

private slots:
    void initTestCase() { QVERIFY(dir.isValid()); }

    void missingPageGivesMinusOneAndNothing()
    {
        QList<CatalogueEntry> entries;
        QCOMPARE(Catalogue::readFile(dir.filePath("none.html"), &entries), -1);
        QVERIFY(entries.isEmpty());
    }

    void pageWithoutBoxGivesZeroAndNothing()
    {
        QList<CatalogueEntry> entries;
        QCOMPARE(read("<html>\n<body>\n<p>no form here</p>\n</body>\n</html>\n", &entries), 0);
        QVERIFY(entries.isEmpty());
        QCOMPARE(read("", &entries), 0);
        QVERIFY(entries.isEmpty());
    }

    void optionsWithClosingTagsAreAllListedAndEndBrokenOff()
    {
        QList<CatalogueEntry> entries;
        const int result = read("<html>\n"
                                    + boxLine("<option value=AUD>Australian Dollar</option>"
                                              "<option value=CHF>Swiss Franc</option>"
                                              "<option value=USD>US Dollar</option>")
                                    + "</html>\n",
                                &entries);
        QCOMPARE(result, -2);
        QCOMPARE(rows(entries),
                 (QStringList{"AUD|Australian Dollar", "CHF|Swiss Franc", "USD|US Dollar"}));
    }

    void optionsWithoutClosingTagsLoseTheLastAndEndBrokenOff()
    {
        QList<CatalogueEntry> entries;
        const int result = read(boxLine("<option value=AUD>Australian Dollar"
                                        "<option value=CHF>Swiss Franc"
                                        "<option value=USD>US Dollar"),
                                &entries);
        QCOMPARE(result, -2);
        QCOMPARE(rows(entries), (QStringList{"AUD|Australian Dollar", "CHF|Swiss Franc"}));
    }

    void twoBoxesOnDifferentLinesYieldTheFirstOnly()
    {
        QList<CatalogueEntry> entries;
        const int result = read(boxLine("<option value=AUD>Australian Dollar</option>") + "<p>\n"
                                    + boxLine("<option value=NOK>Norwegian Krone</option>"),
                                &entries);
        QCOMPARE(result, -2);
        QCOMPARE(rows(entries), (QStringList{"AUD|Australian Dollar"}));
    }

    void boxAtTheVeryFirstCharacterIsNotTaken()
    {
        QList<CatalogueEntry> entries;
        QCOMPARE(read("<select name=s><option value=AUD>Australian Dollar</option></select>\n",
                      &entries),
                 0);
        QVERIFY(entries.isEmpty());

        // The walk goes on to the next line that holds a box further in.
        QCOMPARE(read("<select name=s><option value=AUD>Australian Dollar</option></select>\n"
                          + boxLine("<option value=NOK>Norwegian Krone</option>"),
                      &entries),
                 -2);
        QCOMPARE(rows(entries), (QStringList{"NOK|Norwegian Krone"}));
    }

    void lineStartingWithTheBoxIsSkippedEvenWithASecondBoxInIt()
    {
        QList<CatalogueEntry> entries;
        QCOMPARE(
            read("<select name=s></select> " + boxLine("<option value=AUD>A</option>"), &entries),
            0);
        QVERIFY(entries.isEmpty());
    }

    void boxSpreadOverTwoLinesBreaksOffWithNothing()
    {
        QList<CatalogueEntry> entries;
        QCOMPARE(read("<form><select name=s>\n<option value=AUD>Australian Dollar</option>\n"
                      "</select></form>\n",
                      &entries),
                 -2);
        QVERIFY(entries.isEmpty());
    }

    void searchesAreCaseSensitive()
    {
        QList<CatalogueEntry> entries;
        QCOMPARE(read("<form><SELECT NAME=s><option value=AUD>A</option></SELECT>\n", &entries), 0);
        QVERIFY(entries.isEmpty());
        QCOMPARE(read(boxLine("<OPTION VALUE=AUD>A</OPTION><option value=CHF>Swiss Franc</option>"),
                      &entries),
                 -2);
        QCOMPARE(rows(entries), (QStringList{"CHF|Swiss Franc"}));
    }

    void quotesAndAttributesStayInTheShortName()
    {
        QList<CatalogueEntry> entries;
        QCOMPARE(read(boxLine("<option value=\"EUR\" selected>Euro</option>"
                              "<option value='GBP'>British Pound</option>"),
                      &entries),
                 -2);
        QCOMPARE(rows(entries), (QStringList{"\"EUR\" selected|Euro", "'GBP'|British Pound"}));
    }

    void boxEndingRightBehindANameEndsWithZeroWithoutThatEntry()
    {
        QList<CatalogueEntry> entries;
        QCOMPARE(read(boxLine("<option value=AUD>Australian Dollar<option value=CHF>Swiss Franc<"),
                      &entries),
                 0);
        QCOMPARE(rows(entries), (QStringList{"AUD|Australian Dollar"}));
    }

    void textBetweenOptionsIsSkippedAndEmptyFieldsKept()
    {
        QList<CatalogueEntry> entries;
        QCOMPARE(read(boxLine(" <b>x</b> <option value=>nameless</option><i>"
                              "<option value=XYZ></option>"),
                      &entries),
                 -2);
        QCOMPARE(rows(entries), (QStringList{"|nameless", "XYZ|"}));
    }

    void crLfLinesReadAlike()
    {
        QList<CatalogueEntry> entries;
        QCOMPARE(read("<html>\r\n<td><select name=s><option value=AUD>Australian Dollar</option>"
                      "</select>\r\n</html>\r\n",
                      &entries),
                 -2);
        QCOMPARE(rows(entries), (QStringList{"AUD|Australian Dollar"}));
    }

    void namesInLatin1OrUtf8AreBothRead()
    {
        QList<CatalogueEntry> entries;
        QCOMPARE(read(boxLine("<option value=PLN>Polski z\xb3oty</option>"
                              "<option value=DKK>Dansk krone \xf8</option>"),
                      &entries),
                 -2);
        QCOMPARE(rows(entries),
                 (QStringList{QString::fromUtf8("PLN|Polski z\u00b3oty"),
                              QString::fromUtf8("DKK|Dansk krone \u00f8")}));
        entries.clear();
        QCOMPARE(read(boxLine("<option value=PLN>Polski z\xc5\x82oty</option>"), &entries), -2);
        QCOMPARE(rows(entries), (QStringList{QString::fromUtf8("PLN|Polski z\u0142oty")}));
    }

    void jsonCatalogueAsTheServiceSendsItIsListedInOrder()
    {
        QList<CatalogueEntry> entries;
        QCOMPARE(read("{\"AUD\":\"Australian Dollar\",\"BGN\":\"Bulgarian Lev\",\"BRL\":"
                      "\"Brazilian Real\",\"CHF\":\"Swiss Franc\"}",
                      &entries),
                 0);
        QCOMPARE(rows(entries),
                 (QStringList{"AUD|Australian Dollar", "BGN|Bulgarian Lev", "BRL|Brazilian Real",
                              "CHF|Swiss Franc"}));
    }

    void jsonWithBlanksEscapesAndUtf8IsRead()
    {
        QList<CatalogueEntry> entries;
        QCOMPARE(read("\xef\xbb\xbf {\n  \"CZK\" : \"Czech Koruna \\u010d\",\n"
                      "  \"PLN\":\"Polish Z\xc5\x82oty\", \"Q\\\"T\":\"a\\\\b\\/c\\n\"\n}\n",
                      &entries),
                 0);
        QCOMPARE(rows(entries),
                 (QStringList{QString::fromUtf8("CZK|Czech Koruna \u010d"),
                              QString::fromUtf8("PLN|Polish Z\u0142oty"), "Q\"T|a\\b/c\n"}));
    }

    void emptyJsonObjectListsNothing()
    {
        QList<CatalogueEntry> entries;
        QCOMPARE(read("{}\n", &entries), 0);
        QVERIFY(entries.isEmpty());
    }

    void jsonRateAnswerIsNoCatalogue()
    {
        QList<CatalogueEntry> entries;
        QCOMPARE(read("{\"amount\":1.0,\"base\":\"EUR\",\"date\":\"2026-11-20\","
                      "\"rates\":{\"NOK\":11.45}}",
                      &entries),
                 0);
        QVERIFY(entries.isEmpty());
    }

    void malformedJsonListsNothing()
    {
        const QByteArray pages[] = {
            "{\"AUD\":\"Australian Dollar\"",           // breaks off
            "{\"AUD\":\"Australian Dollar\",}",         // trailing comma
            "{\"AUD\":\"Australian Dollar\"} trailing", // text behind the object
            "{\"AUD\" \"Australian Dollar\"}",          // no colon
            "{\"AUD\":\"bad \\x escape\"}",
            "{\"AUD\":\"short \\u12\"}",
            "{\"AUD\":\"line\nbreak\"}",
            "[\"AUD\",\"Australian Dollar\"]",
            "{AUD:\"Australian Dollar\"}",
        };
        for (const QByteArray &bytes : pages) {
            QList<CatalogueEntry> entries;
            QCOMPARE(read(bytes, &entries), 0);
            QVERIFY2(entries.isEmpty(), bytes.constData());
        }
    }

    void jsonCatalogueIsListedInTheOrderOfItsCodes()
    {
        QList<CatalogueEntry> entries;
        QCOMPARE(read("{\"NOK\":\"Norwegian Krone\",\"AUD\":\"Australian Dollar\","
                      "\"CHF\":\"Swiss Franc\"}",
                      &entries),
                 0);
        QCOMPARE(rows(entries),
                 (QStringList{"AUD|Australian Dollar", "CHF|Swiss Franc", "NOK|Norwegian Krone"}));
    }

    void jsonCodeGivenTwiceIsListedOnceWithItsLastName()
    {
        // One row per code, as the list shows the codes; the later name replaces the earlier.
        QList<CatalogueEntry> entries;
        QCOMPARE(read("{\"NOK\":\"Krone\",\"AUD\":\"Australian Dollar\","
                      "\"NOK\":\"Norwegian Krone\"}",
                      &entries),
                 0);
        QCOMPARE(rows(entries), (QStringList{"AUD|Australian Dollar", "NOK|Norwegian Krone"}));
    }

    void jsonEscapedCodesAreTheirCharacters()
    {
        QList<CatalogueEntry> entries;
        QCOMPARE(
            read("{\"\\u0041UD\":\"Australian Dollar\",\"a\\/b\":\"\\ud83d\\udcb6\"}", &entries),
            0);
        QCOMPARE(rows(entries),
                 (QStringList{"AUD|Australian Dollar", QString::fromUtf8("a/b|\U0001F4B6")}));
    }

    void jsonWithANestedValueOrALooseFormIsNoCatalogue()
    {
        const QByteArray pages[] = {
            "{\"AUD\":\"Australian Dollar\",\"X\":{\"name\":\"x\"}}",
            "{\"AUD\":\"Australian Dollar\",\"X\":[\"x\"]}",
            "{\"AUD\":\"Australian Dollar\",\"X\":null}",
            "{\"AUD\":\"Australian Dollar\",\"X\":.5}",
            "{\"A\tUD\":\"Australian Dollar\"}",
            "{\"AUD\":\"Australian Dollar\\a\"}",
        };
        for (const QByteArray &bytes : pages) {
            QList<CatalogueEntry> entries;
            QCOMPARE(read(bytes, &entries), 0);
            QVERIFY2(entries.isEmpty(), bytes.constData());
        }
    }

    void jsonCatalogueInLatin1IsRead()
    {
        QList<CatalogueEntry> entries;
        QCOMPARE(read("{\"ISK\":\"Isl\xe4ndische Krone\"}", &entries), 0);
        QCOMPARE(rows(entries), (QStringList{QString::fromUtf8("ISK|Isl\u00e4ndische Krone")}));
    }

    void aBoxLineWinsOverJson()
    {
        QList<CatalogueEntry> entries;
        QCOMPARE(read("{\"AUD\":\"Australian Dollar\"}\n" + boxLine("<option value=X>Y</option>"),
                      &entries),
                 -2);
        QCOMPARE(rows(entries), (QStringList{"X|Y"}));
    }

    void hundredThousandOptionsAreAllListed()
    {
        QByteArray options;
        options.reserve(100000 * 40);
        for (int i = 0; i < 100000; ++i)
            options += "<option value=C" + QByteArray::number(i) + ">Currency "
                + QByteArray::number(i) + "</option>";
        QList<CatalogueEntry> entries;
        QCOMPARE(read(boxLine(options), &entries), -2);
        QCOMPARE(entries.size(), 100000);
        QCOMPARE(entries.first().short_, QStringLiteral("C0"));
        QCOMPARE(entries.at(54321).short_, QStringLiteral("C54321"));
        QCOMPARE(entries.at(54321).fullname, QStringLiteral("Currency 54321"));
        QCOMPARE(entries.last().fullname, QStringLiteral("Currency 99999"));
    }

    void hundredThousandJsonEntriesAreAllListed()
    {
        QByteArray json = "{";
        for (int i = 0; i < 100000; ++i)
            json += (i ? ",\"C" : "\"C") + QByteArray::number(i) + "\":\"Currency "
                + QByteArray::number(i) + "\"";
        json += "}";
        QList<CatalogueEntry> entries;
        QCOMPARE(read(json, &entries), 0);
        QCOMPARE(entries.size(), 100000);
        QCOMPARE(entries.at(99999).short_, QStringLiteral("C99999"));
        QCOMPARE(entries.at(99999).fullname, QStringLiteral("Currency 99999"));
    }

    void fiftyMegabytePageIsReadToItsBoxAtTheEnd()
    {
        const QByteArray filler = QByteArray(99, 'x') + '\n';
        QByteArray bytes;
        bytes.reserve(50 * 1024 * 1024 + 200);
        while (bytes.size() < 50 * 1024 * 1024)
            bytes += filler;
        QList<CatalogueEntry> entries;
        // Without a box: nothing, normal end.
        QCOMPARE(read(bytes, &entries), 0);
        QVERIFY(entries.isEmpty());
        bytes += boxLine("<option value=NOK>Norwegian Krone</option>");
        QCOMPARE(read(bytes, &entries), -2);
        QCOMPARE(rows(entries), (QStringList{"NOK|Norwegian Krone"}));
    }

    void tenMegabyteLineIsOneLine()
    {
        QByteArray line(10 * 1024 * 1024, 'y');
        QList<CatalogueEntry> entries;
        QCOMPARE(read(line, &entries), 0);
        QVERIFY(entries.isEmpty());
        // The box far behind the first character of that line still counts.
        line += boxLine("<option value=SEK>Swedish Krona</option>");
        QCOMPARE(read(line + line, &entries), -2);
        QCOMPARE(rows(entries), (QStringList{"SEK|Swedish Krona"}));
    }

    void binaryBytesNeitherCrashNorList()
    {
        QRandomGenerator random(20261123);
        QByteArray bytes(2 * 1024 * 1024, '\0');
        for (char &c : bytes)
            c = char(random.bounded(256));
        // No "<select name=s" can stand in it by chance with this seed: checked, not assumed.
        QVERIFY(!bytes.contains("<select name=s"));
        QList<CatalogueEntry> entries;
        QCOMPARE(read(bytes, &entries), 0);
        QVERIFY(entries.isEmpty());
    }

    void binaryBytesInsideTheBoxAreTakenAsLatin1()
    {
        QByteArray name;
        for (int c = 1; c < 256; ++c)
            if (c != '<' && c != '\n')
                name += char(c);
        QList<CatalogueEntry> entries;
        QCOMPARE(
            read(boxLine(QByteArray("<option value=B\0N>", 18) + name + "</option>"), &entries),
            -2);
        QCOMPARE(entries.size(), 1);
        QCOMPARE(entries.first().short_, QString::fromLatin1("B\0N", 3));
        QCOMPARE(entries.first().fullname, QString::fromLatin1(name));
    }

    void bytesInMemoryReadLikeTheFile()
    {
        const QByteArray bytes = boxLine("<option value=AUD>Australian Dollar</option>"
                                         "<option value=CHF>Swiss Franc");
        QList<CatalogueEntry> fromFile;
        QList<CatalogueEntry> fromBytes;
        QCOMPARE(read(bytes, &fromFile), -2);
        QCOMPARE(Catalogue::readBytes(bytes, &fromBytes), -2);
        QCOMPARE(rows(fromBytes), rows(fromFile));
        QCOMPARE(rows(fromBytes), (QStringList{"AUD|Australian Dollar"}));
    }
};

QTEST_GUILESS_MAIN(TestCatalogue)
#include "tst_catalogue.moc"
