#pragma once

#include <QCoreApplication>
#include <QString>

class JourneyReport;
class QIODevice;

// Puts a journey report on paper: a PDF painted page by page, and the HTML page beside it.
// Needs a QGuiApplication for the fonts; no window and no display.
class ReportWriter
{
    Q_DECLARE_TR_FUNCTIONS(ReportWriter)

public:
    // The HTML page's path for a PDF's: the same folder and base name, ending in ".html".
    static QString htmlPathFor(const QString &pdfPath);

    // Writes the PDF to `pdfPath` and the HTML page to htmlPathFor(pdfPath), each whole or
    // not at all. False, with the reason in `problem`, when either could not be written.
    static bool write(const JourneyReport &report, const QString &pdfPath, QString *problem);

    // The PDF alone, onto an open device.
    static bool writePdf(const JourneyReport &report, QIODevice *device);
};
