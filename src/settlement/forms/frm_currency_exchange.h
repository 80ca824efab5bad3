// frmCurrencyExchange, "Valiutos pirkimas / pardavimas": the window in which an
// operation receives the purchase or sale of foreign currency, money leaving the
// account of the credit frame and arriving on the account of the debit frame, each in
// its currency at its book rate. Every decision is CurrencyExchange's; the widget shows
// what it holds and passes each click on. Controls carry their names as objectName.
#pragma once

#include "settlement/currency_exchange.h"
#include "ui/shell/widget_form.h"

#include <QPointer>
#include <memory>

class QComboBox;
class QDateEdit;
class QLineEdit;
class QPushButton;

namespace orvo {

namespace ui {
class QtComboControl;
}

class FrmCurrencyExchange : public ui::WidgetForm {
public:
    FrmCurrencyExchange();
    ~FrmCurrencyExchange() override;

    // The logic behind the widget; null before the widget is built.
    CurrencyExchange* Logic() const { return logic_.get(); }

protected:
    QWidget* BuildWidget() override;

private:
    // The controls of one frame.
    struct Frame {
        QComboBox* cmbAcc = nullptr;
        QComboBox* cmbBankAcc = nullptr;
        QPushButton* cmdClearBankAcc = nullptr;
        QComboBox* cmbCurr = nullptr;
        QLineEdit* txtRate = nullptr;
        QLineEdit* txtSum = nullptr;
        std::unique_ptr<ui::QtComboControl> account;
        std::unique_ptr<ui::QtComboControl> currency;
    };

    QWidget* buildFrame(QWidget* root, Frame& frame, const char* suffix, const QString& title);
    void showFrame(Frame& frame, const CurrencyExchange::Side& side);
    bool collectFrame(Frame& frame, CurrencyExchange::Side& side);
    void currencyChosen(Frame& frame);
    void ok();
    void close(bool accepted);

    std::unique_ptr<CurrencyExchange> logic_;
    Frame frameD_;
    Frame frameC_;
    std::unique_ptr<ui::QtComboControl> positive_;
    std::unique_ptr<ui::QtComboControl> negative_;

    QPointer<QWidget> root_;
    QComboBox* cmbAccPositive_ = nullptr;
    QComboBox* cmbAccNegative_ = nullptr;
    QDateEdit* dtpDate_ = nullptr;
    QPushButton* cmdOK_ = nullptr;
    QPushButton* cmdCancel_ = nullptr;
};

} // namespace orvo
