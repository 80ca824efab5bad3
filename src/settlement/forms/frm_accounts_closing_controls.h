// The controls that the closing windows (frmAccountsClosing, frmCoversInFuture) make
// alike: a named button that never takes Enter, a named line edit, a date box, and an
// editable account box filled from the chart, its text the chosen account even when the chart
// lacks it.
#pragma once

#include <QString>
#include <QStringList>

class QComboBox;
class QDateEdit;
class QLineEdit;
class QPushButton;
class QWidget;

namespace orvo::closing_controls {

QPushButton* Button(QWidget* parent, const char* name, const QString& text);
QLineEdit* Edit(QWidget* parent, const char* name);
QComboBox* AccountBox(QWidget* parent, const char* name);
// A date box with its calendar, shown in `format` ("yyyy.MM.dd", "yyyy.MM").
QDateEdit* DateBox(QWidget* parent, const char* name, const QString& format);
// Fills the box with the chart's accounts and shows `account`.
void ShowAccounts(QComboBox* box, const QStringList& accounts, const QString& account);

} // namespace orvo::closing_controls
