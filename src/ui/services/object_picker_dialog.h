// ObjectPickerDialog is the host's object picker screen: a search box (txtSearch) over
// the list of objects offered (lvwObjects); typing narrows the list to the rows whose
// text holds what was typed, whatever the case, and Enter, a double click or cmdOK
// takes the current row (cmdCancel takes none).
#pragma once

#include <QDialog>
#include <QList>
#include <QString>
#include <optional>

class QLineEdit;
class QListWidget;
class QPushButton;

namespace orvo::ui {

class ObjectPickerDialog : public QDialog {
    Q_OBJECT
public:
    struct Entry {
        QString OIDR;
        QString Text;
    };

    ObjectPickerDialog(const QString& title, const QList<Entry>& entries,
                       QWidget* parent = nullptr);

    // The row taken, when the dialog was accepted with one current.
    std::optional<Entry> Chosen() const;
    // How many rows the search leaves visible.
    int VisibleCount() const;

private:
    void applySearch(const QString& text);

    QList<Entry> entries_;
    QLineEdit* search_ = nullptr;
    QListWidget* list_ = nullptr;
    QPushButton* ok_ = nullptr;
};

} // namespace orvo::ui
