#include "reports/rtf_list_writer.h"

#include <QSaveFile>

namespace orvo::reports {

namespace {

// A4 in twips, with 15 mm margins.
constexpr int kPageWidth = 11906;
constexpr int kPageHeight = 16838;
constexpr int kMargin = 850;

QByteArray rowOf(const ListReport& report, const QVector<int>& edges, const QStringList& cells,
                 bool bold, int indent) {
    QByteArray out = "\\trowd\\trgaph60\\trleft0";
    for (int edge : edges)
        out += "\\cellx" + QByteArray::number(edge);
    out += '\n';
    for (int c = 0; c < report.Columns.size(); ++c) {
        out += "\\pard\\intbl";
        out += report.Columns[c].AlignRight ? "\\qr" : "\\ql";
        if (c == 0 && indent > 0)
            out += "\\li" + QByteArray::number(indent * 280);
        out += bold ? "\\b " : "\\b0 ";
        out += RtfListWriter::Escaped(c < cells.size() ? cells[c] : QString());
        out += "\\cell\n";
    }
    out += "\\row\n";
    return out;
}

} // namespace

QByteArray RtfListWriter::Escaped(const QString& text) {
    QByteArray out;
    for (const QChar ch : text) {
        const ushort u = ch.unicode();
        if (u == '\\' || u == '{' || u == '}') {
            out += '\\';
            out += char(u);
        } else if (u == '\n') {
            out += "\\line ";
        } else if (u == '\t') {
            out += "\\tab ";
        } else if (u < 0x20) {
            continue;
        } else if (u < 0x80) {
            out += char(u);
        } else {
            out += "\\u" + QByteArray::number(qint16(u)) + '?';
        }
    }
    return out;
}

QByteArray RtfListWriter::Render(const ListReport& report) {
    QByteArray out = "{\\rtf1\\ansi\\ansicpg1257\\deff0\\uc1\n"
                     "{\\fonttbl{\\f0\\fswiss\\fcharset186 DejaVu Sans;}}\n";
    out += "\\paperw" + QByteArray::number(kPageWidth) + "\\paperh" +
           QByteArray::number(kPageHeight) + "\\margl" + QByteArray::number(kMargin) + "\\margr" +
           QByteArray::number(kMargin) + "\\margt" + QByteArray::number(kMargin) + "\\margb" +
           QByteArray::number(kMargin) + "\n\\f0\\fs18\n";
    out += "{\\pard\\qc\\b\\fs26 " + Escaped(report.Title) + "\\par}\n";
    if (!report.Subtitle.isEmpty())
        out += "{\\pard\\qc " + Escaped(report.Subtitle) + "\\par}\n";

    double total = 0;
    for (const ReportColumn& c : report.Columns)
        total += c.Width > 0 ? c.Width : 1.0;
    const int usable = kPageWidth - 2 * kMargin;
    QVector<int> edges;
    double x = 0;
    for (const ReportColumn& c : report.Columns) {
        x += usable * (c.Width > 0 ? c.Width : 1.0) / (total > 0 ? total : 1.0);
        edges.append(int(x + 0.5));
    }
    if (!report.Columns.isEmpty()) {
        QStringList captions;
        for (const ReportColumn& c : report.Columns)
            captions << c.Caption;
        out += rowOf(report, edges, captions, true, 0);
        for (const ReportRow& r : report.Rows)
            out += rowOf(report, edges, r.Cells, r.Bold, r.Indent);
    }
    out += "\\pard\\par\n}\n";
    return out;
}

ResultRecord RtfListWriter::Write(const ListReport& report, const QString& path) {
    const QByteArray bytes = Render(report);
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        return ResultRecord::Failure(
            1, QStringLiteral("Nepavyko įrašyti failo %1: %2").arg(path, file.errorString()));
    return ResultRecord::Success();
}

} // namespace orvo::reports
