#include "reports/pdf_list_writer.h"

#include "reports/report_fonts.h"

#include <QBuffer>
#include <QFontMetricsF>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>

namespace orvo::reports {

namespace {

constexpr int kResolution = 600;
constexpr double kTitlePoints = 13.0;
constexpr double kBodyPoints = 9.0;
constexpr double kFooterPoints = 7.5;

// Everything measured once for one writer: fonts, the printable rectangle and where
// each column starts.
struct Geometry {
    QRectF Page;
    QFont Title, Subtitle, Header, Body, Bold, Footer;
    QVector<double> Left;
    QVector<double> Width;
    double Padding = 0;
    double IndentStep = 0;
    double HeaderHeight = 0;
    double TitleHeight = 0;
    double FooterHeight = 0;
};

Geometry measure(const ListReport& report, QPdfWriter& writer) {
    Geometry g;
    g.Page = writer.pageLayout().paintRectPixels(kResolution);
    g.Page.moveTo(0, 0);
    g.Title = ReportFonts::Font(kTitlePoints, true);
    g.Subtitle = ReportFonts::Font(kBodyPoints);
    g.Header = ReportFonts::Font(kBodyPoints, true);
    g.Body = ReportFonts::Font(kBodyPoints);
    g.Bold = ReportFonts::Font(kBodyPoints, true);
    g.Footer = ReportFonts::Font(kFooterPoints);
    const QFontMetricsF body(g.Body, &writer);
    g.Padding = body.height() * 0.25;
    g.IndentStep = body.horizontalAdvance(QStringLiteral("MM"));

    double total = 0;
    for (const ReportColumn& c : report.Columns)
        total += c.Width > 0 ? c.Width : 1.0;
    double x = 0;
    for (const ReportColumn& c : report.Columns) {
        const double w = g.Page.width() * (c.Width > 0 ? c.Width : 1.0) / (total > 0 ? total : 1);
        g.Left.append(x);
        g.Width.append(w);
        x += w;
    }

    g.HeaderHeight = QFontMetricsF(g.Header, &writer).height() + 2 * g.Padding;
    g.TitleHeight = QFontMetricsF(g.Title, &writer).height() * 1.6;
    if (!report.Subtitle.isEmpty())
        g.TitleHeight += QFontMetricsF(g.Subtitle, &writer).height() * 1.4;
    g.FooterHeight = QFontMetricsF(g.Footer, &writer).height() * 2;
    return g;
}

QRectF cellRect(const Geometry& g, int column, double top, double height, int indent) {
    const double shift = column == 0 ? indent * g.IndentStep : 0;
    return QRectF(g.Left[column] + g.Padding + shift, top + g.Padding,
                  g.Width[column] - 2 * g.Padding - shift, height - 2 * g.Padding);
}

int flagsFor(const ReportColumn& c) {
    return Qt::TextWordWrap | Qt::AlignTop | (c.AlignRight ? Qt::AlignRight : Qt::AlignLeft);
}

double rowHeight(const ListReport& report, const Geometry& g, const ReportRow& row,
                 QPdfWriter& writer) {
    const QFontMetricsF fm(row.Bold ? g.Bold : g.Body, &writer);
    double tallest = fm.height();
    for (int c = 0; c < report.Columns.size() && c < row.Cells.size(); ++c) {
        const QRectF box = cellRect(g, c, 0, 1e9, row.Indent);
        const QRectF need = fm.boundingRect(box, flagsFor(report.Columns[c]), row.Cells[c]);
        tallest = qMax(tallest, need.height());
    }
    return tallest + 2 * g.Padding;
}

// The rows of each page: a row goes to the next page when it would cross the footer.
QVector<QVector<int>> paginate(const ListReport& report, const Geometry& g, QPdfWriter& writer,
                               QVector<double>& heights) {
    QVector<QVector<int>> pages(1);
    const double bottom = g.Page.height() - g.FooterHeight;
    double y = g.TitleHeight + g.HeaderHeight;
    for (int i = 0; i < report.Rows.size(); ++i) {
        const double h = rowHeight(report, g, report.Rows[i], writer);
        heights.append(h);
        if (y + h > bottom && !pages.last().isEmpty()) {
            pages.append(QVector<int>());
            y = g.HeaderHeight;
        }
        pages.last().append(i);
        y += h;
    }
    return pages;
}

void drawHeader(QPainter& p, const ListReport& report, const Geometry& g, double top) {
    p.setFont(g.Header);
    for (int c = 0; c < report.Columns.size(); ++c)
        p.drawText(cellRect(g, c, top, g.HeaderHeight, 0), flagsFor(report.Columns[c]),
                   report.Columns[c].Caption);
    p.drawLine(QPointF(0, top + g.HeaderHeight), QPointF(g.Page.width(), top + g.HeaderHeight));
}

QByteArray render(const ListReport& report, const QDate& printed, int* pageCount) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(kResolution);
    writer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait,
                                     QMarginsF(15, 15, 15, 15), QPageLayout::Millimeter));
    writer.setTitle(report.Title);
    writer.setCreator(QStringLiteral("Orvo Apskaita"));

    const Geometry g = measure(report, writer);
    QVector<double> heights;
    const QVector<QVector<int>> pages = paginate(report, g, writer, heights);
    if (pageCount)
        *pageCount = pages.size();

    QPainter p(&writer);
    for (int page = 0; page < pages.size(); ++page) {
        if (page > 0)
            writer.newPage();
        double y = 0;
        if (page == 0) {
            p.setFont(g.Title);
            const QFontMetricsF title(g.Title, &writer);
            p.drawText(QRectF(0, 0, g.Page.width(), title.height() * 1.4),
                       Qt::AlignHCenter | Qt::AlignTop, report.Title);
            if (!report.Subtitle.isEmpty()) {
                p.setFont(g.Subtitle);
                p.drawText(QRectF(0, title.height() * 1.4, g.Page.width(), g.TitleHeight),
                           Qt::AlignHCenter | Qt::AlignTop, report.Subtitle);
            }
            y = g.TitleHeight;
        }
        drawHeader(p, report, g, y);
        y += g.HeaderHeight;
        for (int index : pages[page]) {
            const ReportRow& row = report.Rows[index];
            p.setFont(row.Bold ? g.Bold : g.Body);
            for (int c = 0; c < report.Columns.size() && c < row.Cells.size(); ++c)
                p.drawText(cellRect(g, c, y, heights[index], row.Indent),
                           flagsFor(report.Columns[c]), row.Cells[c]);
            y += heights[index];
        }
        p.setFont(g.Footer);
        const QRectF footer(0, g.Page.height() - g.FooterHeight / 2, g.Page.width(),
                            g.FooterHeight / 2);
        p.drawText(footer, Qt::AlignLeft | Qt::AlignBottom,
                   QStringLiteral("Spausdinta ") + printed.toString(QStringLiteral("yyyy-MM-dd")));
        p.drawText(footer, Qt::AlignRight | Qt::AlignBottom,
                   QStringLiteral("Puslapis %1 iš %2").arg(page + 1).arg(pages.size()));
    }
    p.end();
    buffer.close();
    return buffer.data();
}

} // namespace

QByteArray PdfListWriter::Render(const ListReport& report, const QDate& printed, QString* error) {
    if (ReportFonts::Family().isEmpty()) {
        if (error)
            *error = ReportFonts::Problem();
        return {};
    }
    return render(report, printed, nullptr);
}

int PdfListWriter::PageCount(const ListReport& report) {
    int pages = 0;
    if (!ReportFonts::Family().isEmpty())
        render(report, QDate(2000, 1, 1), &pages);
    return pages;
}

ResultRecord PdfListWriter::Write(const ListReport& report, const QString& path,
                                  const QDate& printed) {
    QString error;
    const QByteArray bytes = Render(report, printed, &error);
    if (bytes.isEmpty())
        return ResultRecord::Failure(1, error);
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        return ResultRecord::Failure(
            1, QStringLiteral("Nepavyko įrašyti failo %1: %2").arg(path, file.errorString()));
    return ResultRecord::Success();
}

} // namespace orvo::reports
