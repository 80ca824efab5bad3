#include "settlement/forms/debts_cover_act_page.h"

#include "reports/report_fonts.h"

#include <QBuffer>
#include <QFontMetricsF>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>

namespace orvo {

namespace {

constexpr int kResolution = 600;
constexpr double kBodyPoints = 9.0;
constexpr double kTitlePoints = 12.0;
// The table's columns as shares of the width: number, date, debit, credit.
constexpr double kShares[] = {0.34, 0.16, 0.25, 0.25};

class Page {
public:
    Page(QPdfWriter& writer, QPainter& painter) : writer_(writer), p_(painter) {
        area_ = writer.pageLayout().paintRectPixels(kResolution);
        area_.moveTo(0, 0);
        body_ = reports::ReportFonts::Font(kBodyPoints);
        bold_ = reports::ReportFonts::Font(kBodyPoints, true);
        title_ = reports::ReportFonts::Font(kTitlePoints, true);
        line_ = QFontMetricsF(body_, &writer).height();
    }

    // A paragraph across the page; a new page when it does not fit.
    void Text(const QString& text, const QFont& font, int flags = Qt::AlignLeft) {
        p_.setFont(font);
        const QRectF bounds =
            p_.boundingRect(QRectF(0, 0, area_.width(), 1e6), flags | Qt::TextWordWrap, text);
        room(bounds.height());
        p_.drawText(QRectF(0, y_, area_.width(), bounds.height()), flags | Qt::TextWordWrap, text);
        y_ += bounds.height();
    }
    // An underline of characters, shrunk to the page's width.
    void Rule(const QString& text) {
        QFont font = body_;
        const double width = QFontMetricsF(font, &writer_).horizontalAdvance(text);
        if (width > area_.width())
            font.setPointSizeF(font.pointSizeF() * area_.width() / width * 0.98);
        Text(text, font);
    }
    void Gap(double lines = 1) { y_ += line_ * lines; }

    // A row of the table; the header and the totals have lines above and below.
    void Row(const QStringList& cells, bool bold, bool ruled) {
        const QFont& font = bold ? bold_ : body_;
        p_.setFont(font);
        const double pad = line_ * 0.25;
        double height = 0;
        QVector<QRectF> rects;
        double x = 0;
        for (int c = 0; c < 4; ++c) {
            const double w = area_.width() * kShares[c];
            const QRectF r(x + pad, 0, w - 2 * pad, 1e6);
            height = qMax(height, p_.boundingRect(r, flags(c), cells.value(c)).height());
            rects.append(QRectF(x + pad, 0, w - 2 * pad, 0));
            x += w;
        }
        height += 2 * pad;
        room(height);
        if (ruled)
            p_.drawLine(QPointF(0, y_), QPointF(area_.width(), y_));
        for (int c = 0; c < 4; ++c)
            p_.drawText(QRectF(rects[c].x(), y_ + pad, rects[c].width(), height - 2 * pad),
                        flags(c), cells.value(c));
        y_ += height;
        if (ruled)
            p_.drawLine(QPointF(0, y_), QPointF(area_.width(), y_));
    }

    bool FitsFirstColumn(const QString& text, bool bold) const {
        const double width = QFontMetricsF(bold ? bold_ : body_, &writer_).horizontalAdvance(text);
        return width < area_.width() * kShares[0] - line_ * 0.5;
    }

    const QFont& Body() const { return body_; }
    const QFont& Bold() const { return bold_; }
    const QFont& Title() const { return title_; }

private:
    static int flags(int column) {
        return Qt::TextWordWrap | Qt::AlignTop | (column >= 2 ? Qt::AlignRight : Qt::AlignLeft);
    }
    void room(double height) {
        if (y_ > 0 && y_ + height > area_.height()) {
            writer_.newPage();
            y_ = 0;
        }
    }

    QPdfWriter& writer_;
    QPainter& p_;
    QRectF area_;
    QFont body_, bold_, title_;
    double line_ = 0;
    double y_ = 0;
};

} // namespace

QByteArray DebtsCoverActPage::Render(const DebtsCoverAct& act, QString* error) {
    if (reports::ReportFonts::Family().isEmpty()) {
        if (error)
            *error = reports::ReportFonts::Problem();
        return QByteArray();
    }
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(kResolution);
    writer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait,
                                     QMarginsF(20, 15, 15, 15), QPageLayout::Millimeter));
    writer.setTitle(act.Title);
    writer.setCreator(QStringLiteral("Orvo Apskaita"));
    QPainter painter(&writer);
    Page page(writer, painter);

    for (const DebtsCoverActParty* party : {&act.MyFirm, &act.Client}) {
        page.Text(party->Name, page.Bold());
        page.Text(party->CodeLine(), page.Body());
        page.Rule(DebtsCoverAct::Underline(100));
        page.Gap(0.5);
    }
    page.Gap();
    page.Text(act.Title, page.Title(), Qt::AlignHCenter);
    page.Text(act.DateInWords, page.Body(), Qt::AlignHCenter);
    page.Gap();
    page.Text(act.Statement, page.Body());
    page.Gap();
    page.Row(act.Header, true, true);
    for (const DebtsCoverActRow& row : act.Rows) {
        // A long text without a date (the balance after the set-off) takes a line of its
        // own above its amounts.
        if (row.DocDate.isEmpty() && !page.FitsFirstColumn(row.DocNumber, row.Bold)) {
            page.Text(row.DocNumber, row.Bold ? page.Bold() : page.Body());
            page.Row({QString(), QString(), row.Debit, row.Credit}, row.Bold, false);
            continue;
        }
        page.Row({row.DocNumber, row.DocDate, row.Debit, row.Credit}, row.Bold, row.Bold);
    }
    page.Gap();
    page.Text(act.Request, page.Body());
    page.Gap(2);
    for (const DebtsCoverActParty* party : {&act.MyFirm, &act.Client}) {
        page.Text(party->Name, page.Bold());
        page.Gap();
        page.Text(DebtsCoverAct::Underline(48) + QStringLiteral("                     A.V."),
                  page.Body());
        page.Gap(1.5);
    }
    painter.end();
    buffer.close();
    return buffer.data();
}

ResultRecord DebtsCoverActPage::Write(const DebtsCoverAct& act, const QString& path) {
    QString error;
    const QByteArray pdf = Render(act, &error);
    if (pdf.isEmpty())
        return ResultRecord::Failure(1, error);
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(pdf) != pdf.size() || !file.commit())
        return ResultRecord::Failure(1, QStringLiteral("Nepavyko įrašyti failo ") + path);
    return ResultRecord::Success();
}

} // namespace orvo
