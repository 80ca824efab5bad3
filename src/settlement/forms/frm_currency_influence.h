// frmCurrencyInfluence, " Valiutos kursų pasikeitimo įtakos paskaičiavimas": the window
// in which an operation receives the entries of currency revaluation of one account at
// a date, by operations or by the account's balance. Every decision is
// CurrencyRevaluation's; the widget shows what it holds and passes each click on.
// Controls carry their names as objectName, so tests and scripts find them.
#pragma once

#include "settlement/currency_revaluation.h"
#include "ui/shell/widget_form.h"

#include <QPointer>
#include <memory>

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

namespace ui {
class QtComboControl;
}

class FrmCurrencyInfluence : public ui::WidgetForm {
public:
    FrmCurrencyInfluence();
    ~FrmCurrencyInfluence() override;

    // The logic behind the widget; null before the widget is built.
    CurrencyRevaluation* Logic() const { return logic_.get(); }

protected:
    QWidget* BuildWidget() override;

private:
    void buildMenus(QWidget* root);
    bool collect();
    void choiceChanged();
    void showChoice();
    void showRows();
    void showVariants();
    void pickAddressee(const QString& kind);
    void go();
    void post();
    void itemChanged(QTreeWidgetItem* item);
    void inputRate();
    void closeWindow();

    std::unique_ptr<CurrencyRevaluation> logic_;
    std::unique_ptr<ui::QtComboControl> accountCombo_;
    bool loading_ = false;

    QPointer<QWidget> root_;
    QRadioButton* optByOpers_ = nullptr;
    QRadioButton* optByTotals_ = nullptr;
    QComboBox* cmbAcc_ = nullptr;
    QLineEdit* txtAddr_ = nullptr;
    QPushButton* cmdAddr_ = nullptr;
    QPushButton* cmdCleanAddr_ = nullptr;
    QRadioButton* optDeb_ = nullptr;
    QRadioButton* optCred_ = nullptr;
    QDateEdit* pickerDate_ = nullptr;
    QComboBox* cmbVariants_ = nullptr;
    QPushButton* cmdVariants_ = nullptr;
    QTreeWidget* lvwBROper_ = nullptr;
    QPushButton* cmdGo_ = nullptr;
    QPushButton* cmdOK_ = nullptr;
    QPushButton* cmdCancel_ = nullptr;
    QLabel* lblStatus_ = nullptr;
    QMenu* mnuAddressees_ = nullptr;
    QMenu* mnuVariants_ = nullptr;
    QMenu* mnuInput_ = nullptr;
};

} // namespace orvo
