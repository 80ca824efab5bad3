#include "reports/xlsx_list_writer.h"

#include "reports/zip_writer.h"

#include <QRegularExpression>
#include <QSaveFile>

namespace orvo::reports {

namespace {

// Style indexes of styles.xml: 0 plain, 1 bold text, 2 amount, 3 bold amount, 4 title.
constexpr int kBold = 1;
constexpr int kAmount = 2;
constexpr int kBoldAmount = 3;
constexpr int kTitle = 4;

QString escaped(const QString& text) {
    QString out = text.toHtmlEscaped();
    // Characters XML 1.0 cannot carry at all are dropped rather than breaking the file.
    out.remove(QRegularExpression(QStringLiteral("[\\x00-\\x08\\x0B\\x0C\\x0E-\\x1F]")));
    return out;
}

QString columnLetters(int index) {
    QString letters;
    for (int n = index + 1; n > 0; n = (n - 1) / 26)
        letters.prepend(QChar(u'A' + (n - 1) % 26));
    return letters;
}

QString cellRef(int column, int row) {
    return columnLetters(column) + QString::number(row);
}

QString textCell(int column, int row, const QString& text, int style) {
    if (text.trimmed().isEmpty())
        return style == 0
                   ? QString()
                   : QStringLiteral("<c r=\"%1\" s=\"%2\"/>").arg(cellRef(column, row)).arg(style);
    return QStringLiteral(
               "<c r=\"%1\" t=\"inlineStr\"%2><is><t xml:space=\"preserve\">%3</t></is></c>")
        .arg(cellRef(column, row), style ? QStringLiteral(" s=\"%1\"").arg(style) : QString(),
             escaped(text));
}

QString numberCell(int column, int row, double value, int style) {
    return QStringLiteral("<c r=\"%1\" s=\"%2\"><v>%3</v></c>")
        .arg(cellRef(column, row))
        .arg(style)
        .arg(QString::number(value, 'g', 17));
}

QByteArray sheet(const ListReport& report) {
    QString xml = QStringLiteral(
        "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"
        "<worksheet xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\">");
    if (!report.Columns.isEmpty()) {
        double total = 0;
        for (const ReportColumn& c : report.Columns)
            total += c.Width > 0 ? c.Width : 1.0;
        xml += QStringLiteral("<cols>");
        for (int c = 0; c < report.Columns.size(); ++c) {
            const double share = (report.Columns[c].Width > 0 ? report.Columns[c].Width : 1.0) /
                                 (total > 0 ? total : 1.0);
            // About 100 characters across a landscape page, never narrower than 8.
            const double width = qMax(8.0, share * 100.0);
            xml += QStringLiteral("<col min=\"%1\" max=\"%1\" width=\"%2\" customWidth=\"1\"/>")
                       .arg(c + 1)
                       .arg(width, 0, 'f', 1);
        }
        xml += QStringLiteral("</cols>");
    }
    xml += QStringLiteral("<sheetData>");
    int row = 1;
    xml += QStringLiteral("<row r=\"1\">") + textCell(0, row, report.Title, kTitle) +
           QStringLiteral("</row>");
    ++row;
    if (!report.Subtitle.isEmpty()) {
        xml += QStringLiteral("<row r=\"%1\">").arg(row) + textCell(0, row, report.Subtitle, 0) +
               QStringLiteral("</row>");
        ++row;
    }
    xml += QStringLiteral("<row r=\"%1\">").arg(row);
    for (int c = 0; c < report.Columns.size(); ++c)
        xml += textCell(c, row, report.Columns[c].Caption, kBold);
    xml += QStringLiteral("</row>");
    ++row;
    for (const ReportRow& r : report.Rows) {
        xml += QStringLiteral("<row r=\"%1\">").arg(row);
        for (int c = 0; c < r.Cells.size() && c < report.Columns.size(); ++c) {
            double value = 0;
            if (report.Columns[c].AlignRight && XlsxListWriter::AmountOf(r.Cells[c], &value))
                xml += numberCell(c, row, value, r.Bold ? kBoldAmount : kAmount);
            else
                xml += textCell(c, row,
                                (c == 0 ? QString(r.Indent * 2, QLatin1Char(' ')) : QString()) +
                                    r.Cells[c],
                                r.Bold ? kBold : 0);
        }
        xml += QStringLiteral("</row>");
        ++row;
    }
    xml += QStringLiteral("</sheetData></worksheet>");
    return xml.toUtf8();
}

QByteArray styles() {
    return QByteArrayLiteral(
        "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"
        "<styleSheet xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\">"
        "<numFmts count=\"1\"><numFmt numFmtId=\"164\" formatCode=\"#,##0.00\"/></numFmts>"
        "<fonts count=\"3\">"
        "<font><sz val=\"10\"/><name val=\"DejaVu Sans\"/></font>"
        "<font><b/><sz val=\"10\"/><name val=\"DejaVu Sans\"/></font>"
        "<font><b/><sz val=\"13\"/><name val=\"DejaVu Sans\"/></font>"
        "</fonts>"
        "<fills count=\"2\"><fill><patternFill patternType=\"none\"/></fill>"
        "<fill><patternFill patternType=\"gray125\"/></fill></fills>"
        "<borders count=\"1\"><border><left/><right/><top/><bottom/><diagonal/></border></borders>"
        "<cellStyleXfs count=\"1\"><xf numFmtId=\"0\" fontId=\"0\" fillId=\"0\" borderId=\"0\"/>"
        "</cellStyleXfs>"
        "<cellXfs count=\"5\">"
        "<xf numFmtId=\"0\" fontId=\"0\" fillId=\"0\" borderId=\"0\" xfId=\"0\"/>"
        "<xf numFmtId=\"0\" fontId=\"1\" fillId=\"0\" borderId=\"0\" xfId=\"0\" applyFont=\"1\"/>"
        "<xf numFmtId=\"164\" fontId=\"0\" fillId=\"0\" borderId=\"0\" xfId=\"0\" "
        "applyNumberFormat=\"1\"/>"
        "<xf numFmtId=\"164\" fontId=\"1\" fillId=\"0\" borderId=\"0\" xfId=\"0\" "
        "applyNumberFormat=\"1\" applyFont=\"1\"/>"
        "<xf numFmtId=\"0\" fontId=\"2\" fillId=\"0\" borderId=\"0\" xfId=\"0\" applyFont=\"1\"/>"
        "</cellXfs>"
        "<cellStyles count=\"1\"><cellStyle name=\"Normal\" xfId=\"0\" "
        "builtinId=\"0\"/></cellStyles>"
        "</styleSheet>");
}

} // namespace

bool XlsxListWriter::AmountOf(const QString& text, double* value) {
    QString t = text.trimmed();
    t.remove(QLatin1Char(' '));
    t.remove(QChar(0x00A0));
    t.remove(QChar(0x202F));
    t.replace(QLatin1Char(','), QLatin1Char('.'));
    static const QRegularExpression number(QStringLiteral("^-?[0-9]+(\\.[0-9]+)?$"));
    if (!number.match(t).hasMatch())
        return false;
    bool ok = false;
    const double v = t.toDouble(&ok);
    if (ok && value)
        *value = v;
    return ok;
}

QString XlsxListWriter::SheetName(const QString& title) {
    QString name = title;
    name.remove(QRegularExpression(QStringLiteral("[\\[\\]:*?/\\\\]")));
    name = name.trimmed().left(31).trimmed();
    return name.isEmpty() ? QStringLiteral("Lapas1") : name;
}

QByteArray XlsxListWriter::Render(const ListReport& report) {
    ZipWriter zip;
    zip.Add(QStringLiteral("[Content_Types].xml"),
            QByteArrayLiteral(
                "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"
                "<Types xmlns=\"http://schemas.openxmlformats.org/package/2006/content-types\">"
                "<Default Extension=\"rels\" "
                "ContentType=\"application/vnd.openxmlformats-package.relationships+xml\"/>"
                "<Default Extension=\"xml\" ContentType=\"application/xml\"/>"
                "<Override PartName=\"/xl/workbook.xml\" ContentType=\"application/"
                "vnd.openxmlformats-officedocument.spreadsheetml.sheet.main+xml\"/>"
                "<Override PartName=\"/xl/worksheets/sheet1.xml\" ContentType=\"application/"
                "vnd.openxmlformats-officedocument.spreadsheetml.worksheet+xml\"/>"
                "<Override PartName=\"/xl/styles.xml\" ContentType=\"application/"
                "vnd.openxmlformats-officedocument.spreadsheetml.styles+xml\"/>"
                "</Types>"));
    zip.Add(QStringLiteral("_rels/.rels"),
            QByteArrayLiteral(
                "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"
                "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/"
                "relationships\">"
                "<Relationship Id=\"rId1\" Type=\"http://schemas.openxmlformats.org/"
                "officeDocument/2006/relationships/officeDocument\" Target=\"xl/workbook.xml\"/>"
                "</Relationships>"));
    zip.Add(QStringLiteral("xl/workbook.xml"),
            (QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"
                            "<workbook xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/"
                            "2006/main\" xmlns:r=\"http://schemas.openxmlformats.org/"
                            "officeDocument/2006/relationships\"><sheets><sheet name=\"") +
             escaped(SheetName(report.Title)) +
             QStringLiteral("\" sheetId=\"1\" r:id=\"rId1\"/></sheets></workbook>"))
                .toUtf8());
    zip.Add(QStringLiteral("xl/_rels/workbook.xml.rels"),
            QByteArrayLiteral(
                "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"
                "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/"
                "relationships\">"
                "<Relationship Id=\"rId1\" Type=\"http://schemas.openxmlformats.org/"
                "officeDocument/2006/relationships/worksheet\" Target=\"worksheets/sheet1.xml\"/>"
                "<Relationship Id=\"rId2\" Type=\"http://schemas.openxmlformats.org/"
                "officeDocument/2006/relationships/styles\" Target=\"styles.xml\"/>"
                "</Relationships>"));
    zip.Add(QStringLiteral("xl/worksheets/sheet1.xml"), sheet(report));
    zip.Add(QStringLiteral("xl/styles.xml"), styles());
    return zip.Finish();
}

ResultRecord XlsxListWriter::Write(const ListReport& report, const QString& path) {
    const QByteArray bytes = Render(report);
    if (bytes.isEmpty())
        return ResultRecord::Failure(1, QStringLiteral("Nepavyko suspausti skaičiuoklės failo."));
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        return ResultRecord::Failure(
            1, QStringLiteral("Nepavyko įrašyti failo %1: %2").arg(path, file.errorString()));
    return ResultRecord::Success();
}

} // namespace orvo::reports
