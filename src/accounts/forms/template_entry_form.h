// frmBRTemplateAcc, "Buhalterinio įrašo šablonas": one entry of a template, made of Qt
// widgets over TemplateEntryEditor. cmbAccountD "Debetas" and cmbAccountC "Kreditas"
// list the accounts (the opening balances "0 Pradiniai likučiai" first), txtFactor
// "Sumos pakeitimo koeficientas" takes digits, the decimal separator and backspace and
// becomes 1 when left empty, negative or below 0.01, and lvwAddrD and lvwAddrC "Būtini
// adresatai:" list the addressee kinds each account allows, checked when demanded; a
// right click fixes an addressee of the kind. cmdOK "Įrašyti" writes the entry into the
// template and closes; cmdCancel "Atšaukti" closes without writing. The entry's GUID
// comes as the clicked parameters (none for a new entry).
#pragma once

#include "accounts/template_entry_editor.h"
#include "ui/shell/widget_form.h"

#include <memory>

class QComboBox;
class QLineEdit;
class QTreeWidget;

namespace orvo::accounts_forms {

class FrmBRTemplateAcc : public ui::WidgetForm {
public:
    FrmBRTemplateAcc() : ui::WidgetForm(QStringLiteral("frmBRTemplateAcc")) {}
    ~FrmBRTemplateAcc() override;

    TemplateEntryEditor* Editor() const { return editor_.get(); }
    // Whether "Įrašyti" wrote the entry.
    bool Written() const { return written_; }

    void OK();
    // What leaving txtFactor does.
    void FactorLeft();
    // A fixed addressee for the row of a side (1 debit, -1 credit), through the picker.
    void PickFixed(int sign, int row);

protected:
    QWidget* BuildWidget() override;

private:
    class FactorKeys;

    void fillKinds(int sign);
    void accountChosen(int sign);
    void readChecks(int sign);

    std::unique_ptr<TemplateEntryEditor> editor_;
    QWidget* root_ = nullptr;
    QComboBox* accountD_ = nullptr;
    QComboBox* accountC_ = nullptr;
    QLineEdit* factor_ = nullptr;
    QTreeWidget* addrD_ = nullptr;
    QTreeWidget* addrC_ = nullptr;
    bool written_ = false;
    bool filling_ = false;
};

} // namespace orvo::accounts_forms
