// frmCurrency, the window of a currency: the fields of CatalogueForm, then the daily
// rates in lvwRates ("Data" and the rate as it is quoted, the latest first), with
// dtpRateDate and txtRate to type a day's rate, cmdAddRate "Įrašyti kursą" to keep it
// and cmdDeleteRate "Panaikinti kursą" to remove the rate of the chosen row.
#pragma once

#include "host/catalogues/currency_editor.h"
#include "ui/catalogues/catalogue_form.h"

class QDateEdit;
class QLineEdit;
class QTreeWidget;

namespace orvo::ui {

class CurrencyForm : public CatalogueForm {
public:
    CurrencyForm() : CatalogueForm(QStringLiteral("frmCurrency")) {}

    void AddRate();
    void DeleteRate();

protected:
    void buildExtra(QWidget* root, QVBoxLayout* column) override;
    void fillExtra() override;

private:
    host::CurrencyEditor* currency() const;

    QTreeWidget* rates_ = nullptr;
    QDateEdit* date_ = nullptr;
    QLineEdit* rate_ = nullptr;
};

} // namespace orvo::ui
