#include "ui/automation/control_state.h"

#include <QJsonArray>

namespace orvo::ui {

namespace {

QJsonObject rowJson(const RowState& row) {
    QJsonArray cells;
    for (const CellState& cell : row.Cells) {
        QJsonObject c{{"text", cell.Text}, {"bold", cell.Bold}};
        c.insert("tag", cell.Tag.isValid() ? QJsonValue::fromVariant(cell.Tag) : QJsonValue());
        c.insert("colour", cell.Colour.isEmpty() ? QJsonValue() : QJsonValue(cell.Colour));
        cells.append(c);
    }
    QJsonObject r{{"cells", cells}, {"selected", row.Selected}};
    r.insert("checked", row.Checked ? QJsonValue(*row.Checked) : QJsonValue());
    if (!row.Children.isEmpty()) {
        QJsonArray children;
        for (const RowState& child : row.Children)
            children.append(rowJson(child));
        r.insert("children", children);
    }
    return r;
}

} // namespace

QJsonObject ControlState::ToJson() const {
    QJsonObject o{
        {"name", Name}, {"kind", Kind}, {"text", Text}, {"enabled", Enabled}, {"visible", Visible}};
    if (Checked)
        o.insert("checked", *Checked);
    if (Kind == QLatin1String("QComboBox")) {
        o.insert("items", QJsonArray::fromStringList(Items));
        o.insert("index", Index);
    }
    if (Date.isValid())
        o.insert("date", Date.toString(QStringLiteral("yyyy-MM-dd")));
    if (IsList) {
        o.insert("headers", QJsonArray::fromStringList(Headers));
        QJsonArray rows;
        for (const RowState& row : Rows)
            rows.append(rowJson(row));
        o.insert("rows", rows);
        o.insert("index", Index);
    }
    return o;
}

} // namespace orvo::ui
