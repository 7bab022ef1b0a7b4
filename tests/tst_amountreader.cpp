// The reader of typed amounts and the check of typed dates: what a person types, with a
// point or a comma, in any language, and what is refused.

#include "data/amountreader.h"
#include "data/datetext.h"

#include <QDir>
#include <QFile>
#include <QLocale>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <clocale>
#include <cmath>
#include <cstring>

class TestAmountReader : public QObject
{
    Q_OBJECT

private slots:
    void numbersWithEitherDecimalMarkAndThousandsGroups_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("stored");
        QTest::newRow("comma") << "12,50" << 12.5 << "12.50";
        QTest::newRow("point") << "12.50" << 12.5 << "12.50";
        QTest::newRow("point groups, comma decimal") << "1.234,50" << 1234.5 << "1234.50";
        QTest::newRow("comma groups, point decimal") << "1,234.50" << 1234.5 << "1234.50";
        QTest::newRow("negative comma") << "-3,5" << -3.5 << "-3.5";
        QTest::newRow("blanks around") << " 7 " << 7.0 << "7";
        QTest::newRow("tab and blanks") << "\t 7,25  " << 7.25 << "7.25";
        QTest::newRow("plus sign") << "+4" << 4.0 << "4";
        QTest::newRow("integer") << "150" << 150.0 << "150";
        QTest::newRow("one comma is decimal") << "1,234" << 1.234 << "1.234";
        QTest::newRow("repeated points group") << "1.234.567" << 1234567.0 << "1234567";
        QTest::newRow("repeated commas group") << "1,234,567" << 1234567.0 << "1234567";
        QTest::newRow("groups and decimal") << "1.234.567,89" << 1234567.89 << "1234567.89";
        QTest::newRow("no whole digits") << ",5" << 0.5 << "0.5";
        QTest::newRow("no fraction digits") << "12," << 12.0 << "12";
        QTest::newRow("minus zero") << "-0,00" << -0.0 << "-0.00";
    }
    void numbersWithEitherDecimalMarkAndThousandsGroups()
    {
        QFETCH(QString, typed);
        QFETCH(double, value);
        QFETCH(QString, stored);
        const TypedAmount read = AmountReader::read(typed);
        QVERIFY(read.ok);
        QCOMPARE(read.value, value);
        QCOMPARE(read.text, stored);
        QCOMPARE(std::signbit(read.value), std::signbit(value));
        QCOMPARE(AmountReader::stored(typed), stored);
    }

    void textThatIsNoNumberIsRefused_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::newRow("empty") << "";
        QTest::newRow("null") << QString();
        QTest::newRow("blanks") << "   ";
        QTest::newRow("letters") << "abc";
        QTest::newRow("number then letters") << "12abc";
        QTest::newRow("overflowing exponent") << "1e400";
        QTest::newRow("exponent") << "1e3";
        QTest::newRow("too large") << QString(QStringLiteral("1") + QString(400, u'0'));
        QTest::newRow("blank inside") << "1 234,50";
        QTest::newRow("sign only") << "-";
        QTest::newRow("mark only") << ",";
        QTest::newRow("two signs") << "--5";
        QTest::newRow("sign behind") << "5-";
        QTest::newRow("two decimal commas") << "1,2.3,4";
        QTest::newRow("short group") << "12.34,5";
        QTest::newRow("long group") << "1.2345,5";
        QTest::newRow("group behind the decimal") << "1,5.000";
        QTest::newRow("currency sign") << "12 EUR";
        QTest::newRow("infinity") << "inf";
        QTest::newRow("not a number") << "nan";
    }
    void textThatIsNoNumberIsRefused()
    {
        QFETCH(QString, typed);
        const TypedAmount read = AmountReader::read(typed);
        QVERIFY(!read.ok);
        QCOMPARE(read.value, 0.0);
        QVERIFY(read.text.isEmpty());
        // What is no number is kept as typed where a text field takes it.
        QCOMPARE(AmountReader::stored(typed), typed);
    }

    void longAmountsReadWhole()
    {
        const QString typed = QStringLiteral("0,") + QString(9998, QLatin1Char('5'));
        const TypedAmount read = AmountReader::read(typed);
        QVERIFY(read.ok);
        QCOMPARE(read.value, 0.5555555555555556);
    }

    void commaIsTheDecimalMarkUnderAnEnglishAndAGermanLocale()
    {
        const QLocale before;
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
        QCOMPARE(AmountReader::read(u"12,50").value, 12.5);
        QCOMPARE(AmountReader::read(u"1,234.50").value, 1234.5);
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        QCOMPARE(AmountReader::read(u"12,50").value, 12.5);
        QCOMPARE(AmountReader::read(u"1.234,50").value, 1234.5);
        QCOMPARE(AmountReader::read(u"12.50").value, 12.5);
        QLocale::setDefault(before);
    }

    // The C library's locale too: a German process locale has "," as its decimal point.
    void commaIsTheDecimalMarkUnderAGermanProcessLocale()
    {
        QTemporaryDir locales;
        QVERIFY(locales.isValid());
        const char *names[] = {"de_DE.UTF-8", "de_DE.utf8", "de_DE"};
        const char *set = nullptr;
        for (const char *name : names) {
            if ((set = std::setlocale(LC_ALL, name)))
                break;
        }
        if (!set) {
            // No German locale installed: build one for this test alone.
            const int built = QProcess::execute(QStringLiteral("localedef"),
                                                {QStringLiteral("-i"), QStringLiteral("de_DE"),
                                                 QStringLiteral("-f"), QStringLiteral("UTF-8"),
                                                 locales.path() + QStringLiteral("/de_DE.UTF-8")});
            if (built != 0)
                QSKIP("no German locale and no localedef to build one");
            qputenv("LOCPATH", QFile::encodeName(locales.path()));
            set = std::setlocale(LC_ALL, "de_DE.UTF-8");
        }
        QVERIFY2(set, "the German locale could not be set");
        QCOMPARE(QByteArray(std::localeconv()->decimal_point), QByteArray(","));
        QCOMPARE(AmountReader::read(u"12,50").value, 12.5);
        QCOMPARE(AmountReader::read(u"12.50").value, 12.5);
        QCOMPARE(AmountReader::read(u"1,234.50").value, 1234.5);
        QCOMPARE(AmountReader::read(u"12,50").text, QStringLiteral("12.50"));
        std::setlocale(LC_ALL, "C");
        qunsetenv("LOCPATH");
    }

    void aDateIsARealDayWrittenAsTheProgramWritesIt_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("date");
        QTest::newRow("a day") << "03.06.2002" << true;
        QTest::newRow("leap day") << "29.02.2024" << true;
        QTest::newRow("one-digit day") << "3.06.2002" << true;
        QTest::newRow("empty") << "" << false;
        QTest::newRow("null") << QString() << false;
        QTest::newRow("31 February") << "31.02.2026" << false;
        QTest::newRow("29 February of a common year") << "29.02.2026" << false;
        QTest::newRow("month 13") << "01.13.2026" << false;
        QTest::newRow("day 0") << "00.05.2026" << false;
        QTest::newRow("year 0") << "01.05.0000" << false;
        QTest::newRow("one-digit month") << "3.2.2002" << false;
        QTest::newRow("two-digit year") << "03.06.02" << false;
        QTest::newRow("letters") << "ab.cd.efgh" << false;
        QTest::newRow("blank inside") << "03.06. 2002" << false;
        QTest::newRow("more behind") << "03.06.2002x" << false;
        QTest::newRow("other marks") << "03/06/2002" << false;
    }
    void aDateIsARealDayWrittenAsTheProgramWritesIt()
    {
        QFETCH(QString, text);
        QFETCH(bool, date);
        QCOMPARE(DateText::isDate(text), date);
    }
};

QTEST_GUILESS_MAIN(TestAmountReader)
#include "tst_amountreader.moc"
