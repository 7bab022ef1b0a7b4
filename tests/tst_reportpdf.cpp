// The journey report on paper: the PDF's text read back with pdftotext, and the HTML page
// written beside it.

#include "journeyfixture.h"

#include "data/journeycalc.h"
#include "data/wayferndata.h"
#include "report/journeyreport.h"
#include "report/reportwriter.h"
#include "storage/scqtutil.h"
#include "storage/wayfernio.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

namespace {

// The text of a PDF as `pdftotext -layout` lays it out; empty with `error` set when the
// tool fails or is missing (poppler-utils).
QString pdfText(const QString &path, QString *error)
{
    QProcess process;
    process.start(QStringLiteral("pdftotext"),
                  {QStringLiteral("-layout"), path, QStringLiteral("-")});
    if (!process.waitForFinished(60000)) {
        *error = QStringLiteral("pdftotext did not run: %1").arg(process.errorString());
        return QString();
    }
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
        *error = QStringLiteral("pdftotext failed: %1")
                     .arg(QString::fromLocal8Bit(process.readAllStandardError()));
        return QString();
    }
    return QString::fromUtf8(process.readAllStandardOutput());
}

// The lines of `text` holding every one of `words`.
QStringList linesWith(const QString &text, const QStringList &words)
{
    QStringList found;
    for (const QString &line : text.split(QLatin1Char('\n'))) {
        bool all = true;
        for (const QString &word : words)
            all = all && line.contains(word);
        if (all)
            found << line;
    }
    return found;
}

bool looksLikeAPdf(const QByteArray &bytes)
{
    return bytes.startsWith("%PDF-") && bytes.trimmed().endsWith("%%EOF");
}

} // namespace

class TestReportPdf : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { qputenv("WAYFERNCFG", "."); }

    void theHtmlPageIsNamedAfterThePdf()
    {
        QCOMPARE(ReportWriter::htmlPathFor(QStringLiteral("/trips/north.pdf")),
                 QStringLiteral("/trips/north.html"));
        QCOMPARE(ReportWriter::htmlPathFor(QStringLiteral("north.PDF")),
                 QStringLiteral("north.html"));
        QCOMPARE(ReportWriter::htmlPathFor(QStringLiteral("/a.b/north")),
                 QStringLiteral("/a.b/north.html"));
    }

    void thePdfHoldsTitleTotalsCategoriesPlanItsProofAndCosts()
    {
        WayFernData doc;
        QVERIFY(readJourneyFixture(doc, QStringLiteral("check-journey.wfn")));
        const JourneyReport report = JourneyReport::fromJourney(doc, QStringLiteral("alpine.wfn"));
        QTemporaryDir dir;
        const QString pdf = dir.filePath(QStringLiteral("alpine.pdf"));
        QString problem;
        QVERIFY2(ReportWriter::write(report, pdf, &problem), qPrintable(problem));
        QVERIFY(looksLikeAPdf(readBytes(pdf)));

        QString error;
        const QString text = pdfText(pdf, &error);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        QVERIFY(text.contains(QStringLiteral("Alpine Loop")));
        QVERIFY(text.contains(QStringLiteral("01.06.2002 to 05.06.2002, 5 days")));
        QVERIFY(text.contains(QStringLiteral("Total: 80.00 EUR in 4 costs")));
        QVERIFY(text.contains(QStringLiteral("Per day: 16.00 EUR")));
        // The chart's row of a category: its name and its sum on one line.
        QCOMPARE(linesWith(text, {QStringLiteral("Train"), QStringLiteral("24.50")}).size(), 2);
        QVERIFY(!linesWith(text, {QStringLiteral("Hotel"), QStringLiteral("45.50")}).isEmpty());
        QVERIFY(text.contains(QStringLiteral("CD pays AB 27.25 EUR")));
        QVERIFY(text.contains(QStringLiteral("kitty pays EF 20.00 EUR")));
        QVERIFY(text.contains(QStringLiteral("kitty pays AB 5.50 EUR")));
        QVERIFY(text.contains(QStringLiteral("These are the fewest transfers possible.")));
        QVERIFY(
            !linesWith(text, {QStringLiteral("kitty"), QStringLiteral("-25.50 EUR")}).isEmpty());
        // A cost's row: date, type, comment and amounts.
        QCOMPARE(linesWith(text,
                           {QStringLiteral("01.06.2002"), QStringLiteral("Hotel"),
                            QStringLiteral("First night"), QStringLiteral("45.50 EUR")})
                     .size(),
                 1);
        QVERIFY(text.contains(QStringLiteral("Unknown money")));
        QVERIFY(text.contains(QStringLiteral("page 1")));
        QVERIFY(!text.contains(QStringLiteral("page 2")));
    }

    void thePdfNamesTheCostsWhoseSharesDoNotAddUp()
    {
        WayFernData doc;
        QVERIFY(readJourneyFixture(doc, QStringLiteral("check-journey.wfn")));
        // CD's share of the 10.00 dinner booked as 4.00 by another program.
        doc.users.at(1)->findKto(1)->change = -4.0;
        const JourneyReport report = JourneyReport::fromJourney(doc, QStringLiteral("alpine.wfn"));
        QTemporaryDir dir;
        const QString pdf = dir.filePath(QStringLiteral("alpine.pdf"));
        QString problem;
        QVERIFY2(ReportWriter::write(report, pdf, &problem), qPrintable(problem));
        QString error;
        const QString text = pdfText(pdf, &error);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        QVERIFY(!linesWith(text,
                           {QStringLiteral("Left unbooked because the shares of these"),
                            QStringLiteral("1.00 EUR")})
                     .isEmpty());
        QVERIFY(text.contains(QStringLiteral("05.06.2002 F 10.00, shares 9.00")));
    }

    void aFigureThatRoundsToNothingIsPrintedWithoutMinusSign()
    {
        WayFernData doc;
        QVERIFY(readJourneyJustBelowNothing(doc));
        const JourneyReport report = JourneyReport::fromJourney(doc, QStringLiteral("alpine.wfn"));
        QTemporaryDir dir;
        const QString pdf = dir.filePath(QStringLiteral("alpine.pdf"));
        QString problem;
        QVERIFY2(ReportWriter::write(report, pdf, &problem), qPrintable(problem));
        QString error;
        const QString text = pdfText(pdf, &error);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        QVERIFY(text.contains(QStringLiteral("Total: 0.00 EUR in 4 costs")));
        QVERIFY(text.contains(QStringLiteral("Per day: 0.00 EUR")));
        // The hotel's bar and its cost row.
        QCOMPARE(linesWith(text, {QStringLiteral("Hotel"), QStringLiteral("0.00")}).size(), 2);
        QCOMPARE(linesWith(text,
                           {QStringLiteral("01.06.2002"), QStringLiteral("First night"),
                            QStringLiteral("0.00 EUR")})
                     .size(),
                 1);
        QVERIFY2(!text.contains(QStringLiteral("-0.00")), qPrintable(text));
    }

    void theHtmlPageIsWrittenBesideThePdf()
    {
        WayFernData doc;
        QVERIFY(readJourneyFixture(doc, QStringLiteral("check-journey.wfn")));
        const JourneyReport report = JourneyReport::fromJourney(doc, QString());
        QTemporaryDir dir;
        const QString pdf = dir.filePath(QStringLiteral("alpine.pdf"));
        QVERIFY(ReportWriter::write(report, pdf, nullptr));
        QCOMPARE(readBytes(dir.filePath(QStringLiteral("alpine.html"))), report.html().toUtf8());
        // Nothing else is left in the folder.
        QCOMPARE(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden),
                 QStringList({"alpine.html", "alpine.pdf"}));
    }

    void aJourneyWithoutCostsGivesAValidPdf()
    {
        WayFernData doc;
        doc.journeyname = QStringLiteral("Not yet started");
        doc.basecurrency = QStringLiteral("EUR");
        DateParts last;
        JourneyCalc::refreshFigures(doc, last);
        QTemporaryDir dir;
        const QString pdf = dir.filePath(QStringLiteral("empty.pdf"));
        QVERIFY(ReportWriter::write(JourneyReport::fromJourney(doc, QString()), pdf, nullptr));
        QVERIFY(looksLikeAPdf(readBytes(pdf)));
        QString error;
        const QString text = pdfText(pdf, &error);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        QVERIFY(text.contains(QStringLiteral("Not yet started")));
        QVERIFY(text.contains(QStringLiteral("Total: 0.00 EUR in 0 costs")));
        QVERIFY(text.contains(QStringLiteral("Nobody owes anybody anything.")));
        QVERIFY(text.contains(QStringLiteral("No costs yet.")));
    }

    void aJourneyWithOneTravellerGivesAValidPdf()
    {
        WayFernData doc;
        QVERIFY(readJourneyFixture(doc, QStringLiteral("northern.wfn")));
        QCOMPARE(doc.users.count(), 1);
        const JourneyReport report = JourneyReport::fromJourney(doc, QString());
        QTemporaryDir dir;
        const QString pdf = dir.filePath(QStringLiteral("one.pdf"));
        QVERIFY(ReportWriter::write(report, pdf, nullptr));
        QVERIFY(looksLikeAPdf(readBytes(pdf)));
        QString error;
        const QString text = pdfText(pdf, &error);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        QVERIFY(text.contains(QStringLiteral("Northern Lakes")));
        QVERIFY(text.contains(report.totalLine()));
        QVERIFY(!linesWith(text, {QStringLiteral("AB"), report.travellerShares.at(0).valueText})
                     .isEmpty());
        for (const QString &line : report.plan)
            QVERIFY2(text.contains(line), qPrintable(line));
    }

    void aLongCostListGoesOnOverPagesWithItsHeader()
    {
        WayFernData doc;
        QVERIFY(readJourneyFixture(doc, QStringLiteral("check-journey.wfn")));
        JourneyReport report = JourneyReport::fromJourney(doc, QString());
        const JourneyReport::Cost model = report.costs.first();
        for (int i = 0; i < 300; ++i) {
            JourneyReport::Cost c = model;
            c.comment = QStringLiteral("night number %1").arg(i);
            report.costs.append(c);
        }
        // A comment too long for its column is cut, not run into the amounts.
        report.costs.last().comment = QStringLiteral("a very long comment ").repeated(10);
        QTemporaryDir dir;
        const QString pdf = dir.filePath(QStringLiteral("long.pdf"));
        QVERIFY(ReportWriter::write(report, pdf, nullptr));
        QString error;
        const QString text = pdfText(pdf, &error);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        QVERIFY(text.contains(QStringLiteral("night number 0")));
        QVERIFY(text.contains(QStringLiteral("night number 298")));
        QVERIFY(text.contains(QStringLiteral("page 2")));
        // Every page of the list starts with the column heads.
        const int pages = int(linesWith(text, {QStringLiteral("page ")}).size());
        QVERIFY(pages >= 4);
        QCOMPARE(int(linesWith(text,
                               {QStringLiteral("date"), QStringLiteral("comment"),
                                QStringLiteral("shared")})
                         .size()),
                 pages);
        const QStringList longRow = linesWith(text, {QStringLiteral("a very long comment")});
        QCOMPARE(longRow.size(), 1);
        QVERIFY(longRow.first().contains(QStringLiteral("45.50 EUR")));
        QVERIFY(longRow.first().contains(QChar(0x2026)));
    }

    void aPlaceThatCannotBeWrittenSaysWhyAndLeavesNothing()
    {
        WayFernData doc;
        QVERIFY(readJourneyFixture(doc, QStringLiteral("check-journey.wfn")));
        const JourneyReport report = JourneyReport::fromJourney(doc, QString());
        QTemporaryDir dir;
        // Even root cannot make a folder of a plain file.
        const QString plain = dir.filePath(QStringLiteral("plain"));
        QVERIFY(writeBytes(plain, "x"));
        QString problem;
        QVERIFY(!ReportWriter::write(report, plain + QStringLiteral("/r.pdf"), &problem));
        QVERIFY(!problem.isEmpty());
        QCOMPARE(QDir(dir.path()).entryList(QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot),
                 QStringList({"plain"}));
        // A PDF that can be written while its HTML page cannot leaves neither.
        QVERIFY(QDir(dir.path()).mkdir(QStringLiteral("r.html")));
        problem.clear();
        QVERIFY(!ReportWriter::write(report, dir.filePath(QStringLiteral("r.pdf")), &problem));
        QVERIFY(!problem.isEmpty());
        QVERIFY(!QFile::exists(dir.filePath(QStringLiteral("r.pdf"))));
    }
};

QTEST_MAIN(TestReportPdf)
#include "tst_reportpdf.moc"
