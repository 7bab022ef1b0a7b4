#include "report/reportwriter.h"

#include "report/journeyreport.h"

#include <QFileInfo>
#include <QFont>
#include <QFontMetricsF>
#include <QHash>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>

#include <algorithm>
#include <functional>

namespace {

constexpr int Resolution = 300;

// Paints the report from top to bottom, opening a new page whenever the next piece does
// not fit. Lengths are in device units; `pt` is one typographic point.
class PagePainter
{
public:
    PagePainter(QPdfWriter &writer, QPainter &painter, const QString &footerTitle)
        : writer(writer), p(painter), footerTitle(footerTitle)
    {
        width = writer.width();
        const QFont footer = font(7);
        footerHeight = QFontMetricsF(footer, &writer).height() + 4 * pt;
        bottom = writer.height() - footerHeight;
    }

    const double pt = Resolution / 72.0;
    double width = 0;
    double bottom = 0;
    double y = 0;
    // Called at the top of every page that continues a table, so its header repeats.
    std::function<void()> onNewPage;

    QFont font(double points, bool bold = false) const
    {
        QFont f(QStringLiteral("Sans Serif"));
        f.setStyleHint(QFont::SansSerif);
        f.setPointSizeF(points);
        f.setBold(bold);
        // No ligatures: the words stay searchable and copyable letter for letter.
        f.setStyleStrategy(QFont::PreferNoShaping);
        return f;
    }

    // Room for `height` more below the cursor, on this page or the next.
    void ensure(double height)
    {
        if (y + height <= bottom || y == 0)
            return;
        newPage();
    }

    void newPage()
    {
        finishPage();
        writer.newPage();
        ++page;
        y = 0;
        if (onNewPage)
            onNewPage();
    }

    void finishPage()
    {
        p.save();
        p.setFont(font(7));
        p.setPen(QColor(0x66, 0x66, 0x66));
        const QFontMetricsF fm(p.font(), &writer);
        const double base = writer.height() - fm.descent();
        const QString left = fm.elidedText(footerTitle, Qt::ElideRight, width * 0.7);
        p.drawText(QPointF(0, base), left);
        const QString right = ReportWriter::tr("page %1").arg(page);
        p.drawText(QPointF(width - fm.horizontalAdvance(right), base), right);
        p.restore();
    }

    // One line of text at the cursor, elided to the width; moves the cursor below it.
    void line(const QString &text, const QFont &f, const QColor &color = Qt::black)
    {
        const QFontMetricsF fm(f, &writer);
        ensure(fm.height());
        p.setFont(f);
        p.setPen(color);
        p.drawText(QPointF(0, y + fm.ascent()), fm.elidedText(text, Qt::ElideRight, width));
        y += fm.height();
    }

    void heading(const QString &text)
    {
        const QFont f = font(12, true);
        const QFontMetricsF fm(f, &writer);
        // A heading never stands alone at the foot of a page.
        ensure(fm.height() * 4);
        y += 10 * pt;
        line(text, f);
        p.setPen(QPen(QColor(0x99, 0x99, 0x99), 0.75 * pt));
        p.drawLine(QPointF(0, y + pt), QPointF(width, y + pt));
        y += 5 * pt;
    }

    void gap(double points) { y += points * pt; }

    int page = 1;

private:
    QPdfWriter &writer;
    QPainter &p;
    QString footerTitle;
    double footerHeight = 0;
};

// Columns of a table: left edge and width as parts of the page width, and alignment.
struct Column
{
    double left;
    double width;
    bool right;
};

class TablePainter
{
public:
    TablePainter(PagePainter &page, QPainter &p, QPdfWriter &writer, const QList<Column> &columns,
                 const QFont &font)
        : page(page), p(p), columns(columns), font(font), boldFont(font), fm(font, &writer),
          boldFm(font, &writer)
    {
        boldFont.setBold(true);
        boldFm = QFontMetricsF(boldFont, &writer);
        rowHeight = fm.height() + 2 * page.pt;
        pad = 2 * page.pt;
    }

    void header(const QStringList &texts)
    {
        headerTexts = texts;
        page.ensure(rowHeight * 3);
        drawHeader();
    }

    void drawHeader()
    {
        p.setFont(boldFont);
        p.setPen(Qt::black);
        drawCells(headerTexts, boldFm);
        p.setPen(QPen(QColor(0x99, 0x99, 0x99), 0.5 * page.pt));
        p.drawLine(QPointF(0, page.y + rowHeight), QPointF(page.width, page.y + rowHeight));
        page.y += rowHeight + page.pt;
        p.setFont(font);
    }

    void row(const QStringList &texts)
    {
        if (page.y + rowHeight > page.bottom)
            page.newPage();
        if (shade) {
            p.fillRect(QRectF(0, page.y, page.width, rowHeight), QColor(0xf0, 0xf0, 0xf0));
        }
        shade = !shade;
        p.setFont(font);
        p.setPen(Qt::black);
        drawCells(texts, fm);
        page.y += rowHeight;
    }

    double rowHeight = 0;

private:
    void drawCells(const QStringList &texts, const QFontMetricsF &metrics)
    {
        const double base = page.y + page.pt + metrics.ascent();
        for (int i = 0; i < columns.size() && i < texts.size(); ++i) {
            const Column &c = columns.at(i);
            const double left = c.left * page.width + pad;
            const double room = c.width * page.width - 2 * pad;
            const QString &text = texts.at(i);
            if (text.isEmpty())
                continue;
            double advance = metrics.horizontalAdvance(text);
            QString shown = text;
            if (advance > room) {
                shown = elided(text, metrics, room);
                advance = metrics.horizontalAdvance(shown);
            }
            p.drawText(QPointF(c.right ? left + room - advance : left, base), shown);
        }
    }

    // Long texts repeat (types, currencies): elide each only once.
    QString elided(const QString &text, const QFontMetricsF &metrics, double room)
    {
        const QString key = QString::number(room) + QLatin1Char('\x01') + text;
        auto it = elidedCache.constFind(key);
        if (it != elidedCache.constEnd())
            return *it;
        const QString shown = metrics.elidedText(text, Qt::ElideRight, room);
        if (elidedCache.size() < 10000)
            elidedCache.insert(key, shown);
        return shown;
    }

    PagePainter &page;
    QPainter &p;
    QList<Column> columns;
    QFont font;
    QFont boldFont;
    QFontMetricsF fm;
    QFontMetricsF boldFm;
    QStringList headerTexts;
    QHash<QString, QString> elidedCache;
    double pad = 0;
    bool shade = false;
};

void paintChart(PagePainter &page, QPainter &p, QPdfWriter &writer,
                const QList<JourneyReport::Bar> &bars, const QFont &font)
{
    const QFontMetricsF fm(font, &writer);
    const double rowHeight = fm.height() + 4 * page.pt;
    const double nameWidth = page.width * 0.25;
    const double valueWidth = page.width * 0.15;
    const double barLeft = nameWidth + 4 * page.pt;
    const double barRoom = page.width - nameWidth - valueWidth - 8 * page.pt;
    const double most = JourneyReport::largest(bars);
    p.setFont(font);
    for (const JourneyReport::Bar &bar : bars) {
        page.ensure(rowHeight);
        const double base = page.y + 2 * page.pt + fm.ascent();
        p.setPen(Qt::black);
        p.drawText(QPointF(0, base), fm.elidedText(bar.name, Qt::ElideRight, nameWidth));
        if (most > 0.0 && bar.value > 0.0) {
            const double length = std::max(page.pt, barRoom * bar.value / most);
            p.fillRect(QRectF(barLeft, page.y + 2 * page.pt, length, fm.height()),
                       QColor(0x2f, 0x6f, 0xb2));
        }
        const double advance = fm.horizontalAdvance(bar.valueText);
        p.drawText(QPointF(page.width - advance, base), bar.valueText);
        page.y += rowHeight;
    }
}

void paintReport(const JourneyReport &r, QPdfWriter &writer, QPainter &p)
{
    PagePainter page(writer, p, r.title);
    const QFont body = page.font(9);
    const QFont small = page.font(8);

    page.line(r.title, page.font(18, true));
    if (!r.fileName.isEmpty())
        page.line(r.fileName, small, QColor(0x66, 0x66, 0x66));
    page.gap(6);
    page.line(r.datesText(), body);
    page.line(r.totalLine(), page.font(9, true));
    page.line(r.perDayLine(), body);

    page.heading(JourneyReport::tr("Spending by category"));
    paintChart(page, p, writer, r.categories, body);

    if (!r.travellers.isEmpty()) {
        page.heading(JourneyReport::tr("Spending by traveller"));
        paintChart(page, p, writer, r.travellerShares, body);
        page.gap(6);
        TablePainter table(page, p, writer,
                           {{0.0, 0.10, false},
                            {0.10, 0.26, false},
                            {0.36, 0.16, true},
                            {0.52, 0.16, true},
                            {0.68, 0.16, true},
                            {0.84, 0.16, true}},
                           body);
        table.header({JourneyReport::tr("traveller"), JourneyReport::tr("name"),
                      JourneyReport::tr("deposits"), JourneyReport::tr("shares of costs"),
                      JourneyReport::tr("pay-offs"), JourneyReport::tr("balance")});
        for (const JourneyReport::Traveller &t : r.travellers)
            table.row({t.shortName, t.fullName, JourneyReport::centsText(t.paidIn),
                       JourneyReport::centsText(t.shares), JourneyReport::centsText(t.payOffs),
                       JourneyReport::centsText(t.balance)});
    }

    page.heading(JourneyReport::tr("Balances"));
    {
        TablePainter table(page, p, writer, {{0.0, 0.3, false}, {0.3, 0.2, true}}, body);
        for (const JourneyReport::Balance &b : r.balances)
            table.row({b.name, JourneyReport::centsText(b.cents) + QLatin1Char(' ') + r.currency});
    }
    page.gap(3);
    page.line(r.unbookedLine(), body);

    page.heading(JourneyReport::tr("Settlement plan"));
    if (r.plan.isEmpty())
        page.line(JourneyReport::nobodyOwesText(), body);
    for (const QString &line : r.plan)
        page.line(QStringLiteral("\u2022 ") + line, body);

    page.heading(JourneyReport::tr("Costs"));
    TablePainter costs(page, p, writer,
                       {{0.0, 0.12, false},
                        {0.12, 0.14, false},
                        {0.26, 0.36, false},
                        {0.62, 0.15, true},
                        {0.77, 0.13, true},
                        {0.92, 0.08, false}},
                       small);
    costs.header({JourneyReport::tr("date"), JourneyReport::tr("type"),
                  JourneyReport::tr("comment"), JourneyReport::tr("value"), r.currency,
                  JourneyReport::tr("shared")});
    page.onNewPage = [&costs] { costs.drawHeader(); };
    const QString yes = JourneyReport::tr("yes");
    if (r.costs.isEmpty())
        page.line(JourneyReport::tr("No costs yet."), body);
    for (const JourneyReport::Cost &c : r.costs)
        costs.row({c.date, c.type, c.comment, c.foreign, c.baseValue, c.shared ? yes : QString()});
    page.onNewPage = nullptr;
    page.finishPage();
}

bool commit(QSaveFile &file, const QByteArray &bytes, QString *problem)
{
    if (file.write(bytes) != bytes.size() || !file.commit()) {
        *problem = file.errorString();
        return false;
    }
    return true;
}

} // namespace

QString ReportWriter::htmlPathFor(const QString &pdfPath)
{
    const QFileInfo info(pdfPath);
    QString name = info.fileName();
    if (name.endsWith(QLatin1String(".pdf"), Qt::CaseInsensitive))
        name.chop(4);
    const QString dir = pdfPath.contains(QLatin1Char('/')) ? info.path() + QLatin1Char('/')
                                                           : QString();
    return dir + name + QStringLiteral(".html");
}

bool ReportWriter::writePdf(const JourneyReport &report, QIODevice *device)
{
    QPdfWriter writer(device);
    writer.setResolution(Resolution);
    writer.setTitle(report.title);
    writer.setCreator(QStringLiteral("Wayfern"));
    writer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait,
                                     QMarginsF(15, 15, 15, 12), QPageLayout::Millimeter));
    QPainter painter;
    if (!painter.begin(&writer))
        return false;
    paintReport(report, writer, painter);
    return painter.end();
}

bool ReportWriter::write(const JourneyReport &report, const QString &pdfPath, QString *problem)
{
    QString ignored;
    if (!problem)
        problem = &ignored;
    QSaveFile pdf(pdfPath);
    if (!pdf.open(QIODevice::WriteOnly)) {
        *problem = pdf.errorString();
        return false;
    }
    QSaveFile html(htmlPathFor(pdfPath));
    if (!html.open(QIODevice::WriteOnly)) {
        *problem = html.errorString();
        return false;
    }
    if (!writePdf(report, &pdf)) {
        *problem = pdf.error() != QFileDevice::NoError ? pdf.errorString()
                                                       : tr("The PDF could not be painted.");
        pdf.cancelWriting();
        return false;
    }
    if (!pdf.commit()) {
        *problem = pdf.errorString();
        return false;
    }
    return commit(html, report.html().toUtf8(), problem);
}
