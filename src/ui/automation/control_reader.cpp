#include "ui/automation/control_reader.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAction>
#include <QBrush>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QFont>
#include <QGroupBox>
#include <QItemSelectionModel>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>

namespace orvo::ui {

namespace {

QString colourOf(const QVariant& v) {
    if (!v.isValid())
        return {};
    if (v.canConvert<QBrush>() && v.userType() == QMetaType::QBrush) {
        const QBrush brush = v.value<QBrush>();
        return brush.style() == Qt::NoBrush ? QString() : brush.color().name();
    }
    const QColor colour = v.value<QColor>();
    return colour.isValid() ? colour.name() : QString();
}

RowState readRow(const QAbstractItemModel& model, const QItemSelectionModel* selection,
                 const QModelIndex& parent, int row) {
    RowState state;
    for (int column = 0; column < model.columnCount(parent); ++column) {
        const QModelIndex index = model.index(row, column, parent);
        CellState cell;
        cell.Text = model.data(index, Qt::DisplayRole).toString();
        cell.Tag = model.data(index, Qt::UserRole);
        const QVariant font = model.data(index, Qt::FontRole);
        cell.Bold = font.isValid() && font.value<QFont>().bold();
        cell.Colour = colourOf(model.data(index, Qt::ForegroundRole));
        state.Cells.append(cell);
    }
    const QModelIndex first = model.index(row, 0, parent);
    const QVariant check = model.data(first, Qt::CheckStateRole);
    if (check.isValid())
        state.Checked = check.toInt() == Qt::Checked;
    state.Selected = selection && selection->isRowSelected(row, parent);
    for (int child = 0; child < model.rowCount(first); ++child)
        state.Children.append(readRow(model, selection, first, child));
    return state;
}

void readList(const QAbstractItemView& view, ControlState& state) {
    state.IsList = true;
    const QAbstractItemModel* model = view.model();
    if (!model)
        return;
    for (int column = 0; column < model->columnCount(); ++column)
        state.Headers.append(model->headerData(column, Qt::Horizontal).toString());
    for (int row = 0; row < model->rowCount(); ++row)
        state.Rows.append(readRow(*model, view.selectionModel(), QModelIndex(), row));
    const QModelIndex current = view.currentIndex();
    state.Index = current.isValid() && !current.parent().isValid() ? current.row() : -1;
    const QModelIndex top = model->index(qMax(0, state.Index), 0);
    state.Text = state.Index >= 0 ? model->data(top, Qt::DisplayRole).toString() : QString();
}

} // namespace

ControlState ControlReader::Read(const QObject& control) {
    ControlState state;
    state.Name = control.objectName();
    state.Kind = QString::fromLatin1(control.metaObject()->className());
    if (const auto* action = qobject_cast<const QAction*>(&control)) {
        state.Text = action->text();
        state.Enabled = action->isEnabled();
        state.Visible = action->isVisible();
        if (action->isCheckable())
            state.Checked = action->isChecked();
        return state;
    }
    const auto* widget = qobject_cast<const QWidget*>(&control);
    if (!widget)
        return state;
    state.Enabled = widget->isEnabled();
    state.Visible = widget->isVisibleTo(widget->window()) && !widget->isHidden();
    if (const auto* edit = qobject_cast<const QLineEdit*>(widget)) {
        state.Text = edit->text();
    } else if (const auto* text = qobject_cast<const QTextEdit*>(widget)) {
        state.Text = text->toPlainText();
    } else if (const auto* plain = qobject_cast<const QPlainTextEdit*>(widget)) {
        state.Text = plain->toPlainText();
    } else if (const auto* date = qobject_cast<const QDateTimeEdit*>(widget)) {
        state.Text = date->text();
        state.Date = date->date();
    } else if (const auto* spin = qobject_cast<const QAbstractSpinBox*>(widget)) {
        state.Text = spin->text();
    } else if (const auto* combo = qobject_cast<const QComboBox*>(widget)) {
        state.Text = combo->currentText();
        state.Index = combo->currentIndex();
        for (int i = 0; i < combo->count(); ++i)
            state.Items.append(combo->itemText(i));
    } else if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) {
        state.Text = button->text();
        if (button->isCheckable())
            state.Checked = button->isChecked();
    } else if (const auto* label = qobject_cast<const QLabel*>(widget)) {
        state.Text = label->text();
    } else if (const auto* group = qobject_cast<const QGroupBox*>(widget)) {
        state.Text = group->title();
        if (group->isCheckable())
            state.Checked = group->isChecked();
    } else if (const auto* view = qobject_cast<const QAbstractItemView*>(widget)) {
        readList(*view, state);
    } else {
        state.Text = widget->windowTitle();
    }
    return state;
}

} // namespace orvo::ui
