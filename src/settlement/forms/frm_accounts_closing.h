// frmAccountsClosing, " Sąskaitų uždarymas": the editor of a year-end closing, an
// operation of kind O0201506. Its boxes hold the seven choices (the prefixes of income
// and expense accounts and those left out, the transit, profit and loss accounts), the
// group, series, number and date; cmdGo prepares the entries, cmdWrite stores the
// operation with its choices, cmdPrint shows the printed closing. Every decision is
// AccountsClosing's; the widget shows what it holds. Controls carry their names as
// objectName.
#pragma once

#include "settlement/accounts_closing.h"
#include "ui/shell/widget_form.h"

#include <memory>

class QComboBox;
class QDateEdit;
class QLabel;
class QLineEdit;
class QMenu;
class QPushButton;
class QTreeWidget;

namespace orvo {

class FrmAccountsClosing : public ui::WidgetForm {
public:
    FrmAccountsClosing();
    ~FrmAccountsClosing() override;

    // The logic behind the widget; null before the widget is built.
    AccountsClosing* Closing() const { return closing_.get(); }

protected:
    QWidget* BuildWidget() override;

private:
    void buildMenu(QWidget* root);
    void show();
    void collect();
    void changed();
    void go();
    void write();
    void print();
    void pickAccount(QLineEdit* box);
    void pickGroup();
    void paintEntries();
    QStringList selectedGuids() const;

    std::unique_ptr<AccountsClosing> closing_;
    QWidget* root_ = nullptr;
    bool filling_ = false;
    QLineEdit* txtAcc5_ = nullptr;
    QLineEdit* txtAcc59_ = nullptr;
    QLineEdit* txtAcc6_ = nullptr;
    QLineEdit* txtAcc69_ = nullptr;
    QComboBox* cmbAcc39_ = nullptr;
    QComboBox* cmbAcc340_ = nullptr;
    QComboBox* cmbAcc341_ = nullptr;
    QLabel* lblTotal5_ = nullptr;
    QLabel* lblTotal6_ = nullptr;
    QLabel* lblStatus_ = nullptr;
    QLineEdit* txtOperGroup_ = nullptr;
    QLineEdit* txtSerija_ = nullptr;
    QLineEdit* txtNumber_ = nullptr;
    QDateEdit* dtpDate_ = nullptr;
    QTreeWidget* lvwBRRecords_ = nullptr;
    QPushButton* cmdWrite_ = nullptr;
    QPushButton* cmdPrint_ = nullptr;
    QMenu* menu_ = nullptr;
};

} // namespace orvo
