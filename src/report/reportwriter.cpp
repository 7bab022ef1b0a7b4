#include "report/reportwriter.h"

#include "report/journeyreport.h"

#include <QBuffer>
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
        p.drawLine(QPointF(0, page.y + rowHeight), QPointF(tableWidth(), page.y + rowHeight));
        page.y += rowHeight + page.pt;
        p.setFont(font);
    }

    void row(const QStringList &texts)
    {
        if (page.y + rowHeight > page.bottom)
            page.newPage();
        if (shade) {
            p.fillRect(QRectF(0, page.y, tableWidth(), rowHeight), QColor(0xf0, 0xf0, 0xf0));
        }
        shade = !shade;
        p.setFont(font);
        p.setPen(Qt::black);
        drawCells(texts, fm);
        page.y += rowHeight;
    }

    double rowHeight = 0;

private:
    double tableWidth() const
    {
        double right = 0;
        for (const Column &c : columns)
            right = std::max(right, c.left + c.width);
        return right * page.width;
    }

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

// The list of costs. A journey may hold 100,000 of them, and the PDF costs by the glyph: each
// one is placed on its own. So the list draws no glyph it can spare: no padding (a
// monospaced font puts each cell where its characters say, without measuring), a day's date
// only on its first row and at the top of a page, and the shared mark as a small square.
class CostListPainter
{
public:
    CostListPainter(PagePainter &page, QPainter &p, QPdfWriter &writer, double points)
        : page(page), p(p), font(QStringLiteral("Monospace")), fm(font, &writer)
    {
        font.setStyleHint(QFont::TypeWriter);
        font.setPointSizeF(points);
        font.setStyleStrategy(QFont::PreferNoShaping);
        boldFont = font;
        boldFont.setBold(true);
        fm = QFontMetricsF(font, &writer);
        charWidth = fm.horizontalAdvance(QLatin1Char('0'));
        rowHeight = fm.height() + 2 * page.pt;
        const int total = int(page.width / charWidth);
        commentChars = std::max(8, total - DateChars - TypeChars - RightChars - 3 * Gap);
        commentLeft = (DateChars + TypeChars + 2 * Gap) * charWidth;
        valueRight = (DateChars + TypeChars + commentChars + 3 * Gap + ValueChars) * charWidth;
        baseRight = valueRight + (Gap + BaseChars) * charWidth;
        sharedLeft = baseRight + Gap * charWidth;
        mark = fm.ascent() * 0.55;
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
        const double base = baseline();
        const QString &dateHead = headerTexts.value(0);
        p.drawText(QPointF(0, base), cut(dateHead, DateChars));
        p.drawText(QPointF((DateChars + Gap) * charWidth, base),
                   cut(headerTexts.value(1), TypeChars));
        p.drawText(QPointF(commentLeft, base), cut(headerTexts.value(2), commentChars));
        drawRight(headerTexts.value(3), valueRight, base);
        drawRight(headerTexts.value(4), baseRight, base);
        p.drawText(QPointF(sharedLeft, base), headerTexts.value(5));
        p.setPen(QPen(QColor(0x99, 0x99, 0x99), 0.5 * page.pt));
        p.drawLine(QPointF(0, page.y + rowHeight), QPointF(page.width, page.y + rowHeight));
        page.y += rowHeight + page.pt;
        p.setFont(font);
        p.setPen(Qt::black);
        lastDate.clear();
    }

    // Every cost, page by page. A page's stripes are laid first and its shared marks last,
    // each in one go: the PDF writes a change of colour for every fill otherwise.
    void rows(const QList<JourneyReport::Cost> &costs)
    {
        QList<QRectF> fills;
        qsizetype next = 0;
        while (next < costs.size()) {
            if (page.y + rowHeight > page.bottom)
                page.newPage();
            qsizetype end = next;
            double y = page.y;
            fills.clear();
            while (end < costs.size() && (y + rowHeight <= page.bottom || end == next)) {
                if (end % 2 == 1)
                    fills.append(QRectF(0, y, page.width, rowHeight));
                y += rowHeight;
                ++end;
            }
            fill(fills, QColor(0xf0, 0xf0, 0xf0));
            fills.clear();
            for (; next < end; ++next) {
                const JourneyReport::Cost &c = costs.at(next);
                const double base = baseline();
                if (c.date != lastDate) {
                    p.drawText(QPointF(0, base), cut(flat(c.date), DateChars));
                    lastDate = c.date;
                }
                p.drawText(QPointF((DateChars + Gap) * charWidth, base),
                           cut(flat(c.type), TypeChars));
                drawComment(c.comment, base);
                drawRight(flat(c.foreign), valueRight, base);
                drawRight(c.baseValue, baseRight, base);
                if (c.shared)
                    fills.append(QRectF(sharedLeft + charWidth * 0.5, base - mark, mark, mark));
                page.y += rowHeight;
            }
            fill(fills, Qt::black);
        }
    }

private:
    static constexpr int DateChars = 10;
    static constexpr int TypeChars = 12;
    static constexpr int ValueChars = 16;
    static constexpr int BaseChars = 11;
    static constexpr int SharedChars = 6;
    static constexpr int Gap = 2;
    static constexpr int RightChars = ValueChars + BaseChars + SharedChars + 2 * Gap;

    double baseline() const { return page.y + page.pt + fm.ascent(); }

    void fill(const QList<QRectF> &rects, const QColor &color)
    {
        if (rects.isEmpty())
            return;
        p.setPen(Qt::NoPen);
        p.setBrush(color);
        p.drawRects(rects.constData(), int(rects.size()));
        p.setBrush(Qt::NoBrush);
        p.setPen(Qt::black);
    }

    void drawRight(const QString &text, double right, double base)
    {
        const double width = narrow(text) ? text.size() * charWidth : fm.horizontalAdvance(text);
        p.drawText(QPointF(right - width, base), text);
    }

    void drawComment(const QString &comment, double base)
    {
        if (comment.isEmpty())
            return;
        QString shown = flat(comment);
        // Wide characters take more than one cell: measure those instead of counting.
        if (narrow(shown))
            shown = cut(shown, commentChars);
        else
            shown = fm.elidedText(shown, Qt::ElideRight, commentChars * charWidth);
        p.drawText(QPointF(commentLeft, base), shown);
    }

    // One line, whatever the record holds.
    static QString flat(const QString &text)
    {
        if (!text.contains(QLatin1Char('\n')) && !text.contains(QLatin1Char('\r'))
            && !text.contains(QLatin1Char('\t')))
            return text;
        QString out = text;
        for (QChar &c : out) {
            if (c == QLatin1Char('\n') || c == QLatin1Char('\r') || c == QLatin1Char('\t'))
                c = QLatin1Char(' ');
        }
        return out;
    }

    static QString cut(const QString &text, int chars)
    {
        if (text.size() <= chars)
            return text;
        return text.left(chars - 1) + QChar(0x2026);
    }

    static bool narrow(const QString &text)
    {
        for (const QChar c : text) {
            if (c.unicode() >= 0x1100)
                return false;
        }
        return true;
    }

    PagePainter &page;
    QPainter &p;
    QFont font;
    QFont boldFont;
    QFontMetricsF fm;
    double charWidth = 1;
    double rowHeight = 0;
    double commentLeft = 0;
    double valueRight = 0;
    double baseRight = 0;
    double sharedLeft = 0;
    double mark = 0;
    int commentChars = 0;
    QStringList headerTexts;
    QString lastDate;
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
                            {0.10, 0.20, false},
                            {0.30, 0.175, true},
                            {0.475, 0.175, true},
                            {0.65, 0.175, true},
                            {0.825, 0.175, true}},
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
    for (const QString &line : r.openCosts)
        page.line(QStringLiteral("\u2022 ") + line, body);

    page.heading(JourneyReport::tr("Settlement plan"));
    if (r.plan.isEmpty())
        page.line(JourneyReport::nobodyOwesText(), body);
    for (const QString &line : r.plan)
        page.line(QStringLiteral("\u2022 ") + line, body);
    if (!r.plan.isEmpty())
        page.line(r.planNoteLine(), body);

    page.heading(JourneyReport::tr("Costs"));
    CostListPainter costs(page, p, writer, 8);
    costs.header({JourneyReport::tr("date"), JourneyReport::tr("type"),
                  JourneyReport::tr("comment"), JourneyReport::tr("value"), r.currency,
                  JourneyReport::tr("shared")});
    page.onNewPage = [&costs] { costs.drawHeader(); };
    if (r.costs.isEmpty())
        page.line(JourneyReport::tr("No costs yet."), body);
    costs.rows(r.costs);
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
    // The PDF is written in many small pieces and a saved file writes each at once: paint
    // into memory, then write it in one go.
    QByteArray bytes;
    bytes.reserve(qsizetype(16384) + report.costs.size() * 100);
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!writePdf(report, &buffer)) {
        *problem = tr("The PDF could not be painted.");
        return false;
    }
    buffer.close();
    return commit(pdf, bytes, problem) && commit(html, report.html().toUtf8(), problem);
}
