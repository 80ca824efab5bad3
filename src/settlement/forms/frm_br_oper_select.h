// frmBROperSelect, " Operacijų pasirinkimas": the modal window in which the user chooses
// the open debts of an addressee on an account, for paying or covering them. It opens on
// the one-row SelectParameters recordset of its caller (the account and its side, the
// addressee, the date and the payment to spread), lists the debts revalued at the rates
// of the date, and lets the user check rows, type a row's payment, change a row's rate
// and find the addressee by a document number. OK hands back the result recordset of
// SelectionResult; Cancel hands back nothing. Every rule of the list is SelectionList's;
// the widgets mirror its rows. Callers of the kinds O0201501 to O0201504 may also list
// trade orders and offers from a date; O0201505, the payment selection, lists debts only.
#pragma once

#include "operations/selection_form.h"
#include "settlement/selection_list.h"
#include "ui/shell/widget_form.h"
#include "ui/widgets/qt_combo_control.h"

#include <QPointer>
#include <memory>

class QCheckBox;
class QComboBox;
class QDateEdit;
class QLineEdit;
class QRadioButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace orvo {

class FrmBROperSelect : public SelectionForm {
public:
    FrmBROperSelect();
    ~FrmBROperSelect() override;

    void SetSelectParameters(const RecordsetPtr& parameters) override { parameters_ = parameters; }
    bool Cancelled() const override { return cancelled_; }
    RecordsetPtr Result() const override { return result_; }

    void Show(bool modal) override;
    void UnloadShowOrvoObject() override;

    // The list as the window keeps it.
    const SelectionList& List() const { return list_; }
    // The caller's kind: the OType of its object.
    QString CallerKind() const;

private:
    QWidget* build();
    void readParameters();
    void refill();
    void fillDebts();
    void fillTrade();
    void mirror(int index);
    void showTotals();
    void itemChanged(QTreeWidgetItem* item, int column);
    void enterSum(int index);
    void changeRate();
    void findByNumber();
    void accept();
    void cancel();
    void close(bool accepted);
    int currentIndex() const;
    int side() const;

    RecordsetPtr parameters_;
    RecordsetPtr result_;
    bool cancelled_ = true;
    // Blocks the list's check events while the list is filled.
    bool loading_ = false;
    bool tradeMode_ = false;
    QString foidr_;
    QString savedFoidr_;
    QString savedComment_;
    QString addresseeName_;
    QDate rateDate_;
    SelectionList list_;
    DictionaryPtr reported_;
    RecordsetPtr trade_;

    std::shared_ptr<ui::WidgetForm> window_;
    QPointer<QWidget> root_;
    QLineEdit* txtAddr_ = nullptr;
    QComboBox* cmbAcc_ = nullptr;
    std::unique_ptr<ui::QtComboControl> accCombo_;
    QRadioButton* optDeb_ = nullptr;
    QRadioButton* optCred_ = nullptr;
    QLineEdit* txtOperGroup_ = nullptr;
    QCheckBox* chkByFirmChildrens_ = nullptr;
    QLineEdit* txtCurrCode_ = nullptr;
    QLineEdit* txtRate_ = nullptr;
    QLineEdit* txtRateDate_ = nullptr;
    QDateEdit* dtpDate_ = nullptr;
    QRadioButton* optDebtOpers_ = nullptr;
    QRadioButton* optTradeDocOpers_ = nullptr;
    QTreeWidget* lvwBROpers_ = nullptr;
    QLineEdit* txtSkolaLt_ = nullptr;
    QLineEdit* txtPaymentLt_ = nullptr;
    QLineEdit* txtPaymentCurr_ = nullptr;
};

} // namespace orvo
