// ControlState is what a form's control shows a user at one moment, read by FormDriver
// for tests and for `orvo script`: its kind, its text, whether it is enabled, visible and
// checked; for a combo box its items and the chosen one; for a list (QTreeWidget,
// QListWidget, QTableWidget or any item view) its headers and its rows, each cell with
// its text, tag (the data under Qt::UserRole), bold and colour, and each row with its
// check mark and whether it is selected. ToJson gives the same as one JSON object.
#pragma once

#include <QDate>
#include <QJsonObject>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <optional>

namespace orvo::ui {

struct CellState {
    QString Text;
    // The cell's Qt::UserRole data; invalid when it has none.
    QVariant Tag;
    bool Bold = false;
    // The text colour as "#rrggbb"; empty when the list's own colour is used.
    QString Colour;
};

struct RowState {
    QList<CellState> Cells;
    // The check mark of the row's first cell; none when the row cannot be checked.
    std::optional<bool> Checked;
    bool Selected = false;
    // Rows under this one, in a tree.
    QList<RowState> Children;

    QString Text(int column) const { return Cells.value(column).Text; }
};

struct ControlState {
    QString Name;
    // The Qt class of the control ("QLineEdit", "QTreeWidget", "QAction" ...).
    QString Kind;
    QString Text;
    bool Enabled = false;
    bool Visible = false;
    std::optional<bool> Checked;
    // A combo box: its items and the index of the chosen one (-1 none).
    QStringList Items;
    int Index = -1;
    // A date edit: its date.
    QDate Date;
    // A list: its column headers, rows and the index of the current row (-1 none).
    bool IsList = false;
    QStringList Headers;
    QList<RowState> Rows;

    QJsonObject ToJson() const;
};

} // namespace orvo::ui
