// frmDebtsCover, " Skolų dengimas": the window in which the user sets debts of two
// accounts off against each other inside the open operation. Two like groups of
// controls (the primary side: txtAddrC, cmbAccC, optDebC/optCredC, lvwBRPrimary, txtSumC;
// the secondary side: txtAddrD, cmbAccD, optDebD/optCredD, lvwBRSecondary, txtSumD), the
// header with the addressees (cmbAddr), the saved variants (cmbVariants), the cover date
// and its option, and the commands cmdGo, cmdOK, cmdPrint, cmdExit. Every decision is
// DebtsCover's; the widget shows what it holds and passes each click on. Opened modally
// from the operation editor on the operation's data object; what it adds stays in the
// operation until the editor saves it.
#pragma once

#include "settlement/debts_cover.h"
#include "ui/shell/widget_form.h"

#include <QPointer>
#include <memory>

class QAction;
class QComboBox;
class QDateEdit;
class QLabel;
class QLineEdit;
class QMenu;
class QPushButton;
class QRadioButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace orvo {

class FrmDebtsCover : public ui::WidgetForm {
public:
    FrmDebtsCover();
    ~FrmDebtsCover() override;

    // The logic behind the widget; null before the widget is built.
    DebtsCover* Cover() const { return cover_.get(); }

protected:
    QWidget* BuildWidget() override;

private:
    struct Side {
        QLineEdit* txtAddr = nullptr;
        QPushButton* cmdAddr = nullptr;
        QPushButton* cmdCleanAddr = nullptr;
        QComboBox* cmbAcc = nullptr;
        QRadioButton* optDeb = nullptr;
        QRadioButton* optCred = nullptr;
        QTreeWidget* lvw = nullptr;
        QLineEdit* txtSum = nullptr;
        QLabel* lblCurrCode = nullptr;
        QRadioButton* optAll = nullptr;
        QRadioButton* optDrop = nullptr;
        DictionaryPtr accounts;
    };

    QWidget* buildSide(QWidget* root, Side& side, bool primary);
    void buildMenus(QWidget* root);
    void refresh();
    void paintList(bool primary);
    void paintSums();
    void updateCommands();
    void readAccounts();
    void sideChanged(bool primary, bool debit);
    void pickAddressee(bool primary);
    void fill();
    void listAddressees(const QString& kind);
    void itemChanged(bool primary, QTreeWidgetItem* item);
    void checkAll(bool primary, bool all);
    void enterSum(bool primary, int row);
    void inputRate(bool primary, int row);
    void openRowMenu(bool primary, const QPoint& at);
    void save();
    void print();
    void close();
    void syncEditor();
    Side& side(bool primary) { return primary ? primary_ : secondary_; }
    DebtsCoverList& list(bool primary) { return primary ? cover_->primary : cover_->secondary; }

    std::unique_ptr<DebtsCover> cover_;
    // Keeps ItemCheck, the combos and the options quiet while the form fills them.
    bool loading_ = false;

    QPointer<QWidget> root_;
    Side primary_;
    Side secondary_;
    QComboBox* cmbAddr_ = nullptr;
    QLabel* lblFirms_ = nullptr;
    QComboBox* cmbVariants_ = nullptr;
    QPushButton* cmdVariants_ = nullptr;
    QDateEdit* dtpDate_ = nullptr;
    QRadioButton* optDateByBROper_ = nullptr;
    QRadioButton* optDateByCoveredOperations_ = nullptr;
    QPushButton* cmdGo_ = nullptr;
    QPushButton* cmdOK_ = nullptr;
    QPushButton* cmdExit_ = nullptr;
    QPushButton* cmdPrint_ = nullptr;
    QLabel* lblStatus_ = nullptr;
    QMenu* mnuVariants_ = nullptr;
    QMenu* mnuAddr_ = nullptr;
    QMenu* mnuInput_ = nullptr;
    QAction* mnuSum_ = nullptr;
    QAction* mnuRates_ = nullptr;
    // The list and row mnuInput was opened on.
    bool menuPrimary_ = true;
    int menuRow_ = -1;
};

} // namespace orvo
