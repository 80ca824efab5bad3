// frmBROperTemplateSelect, " Operacijos šablonai" (with an operation group "Grupės
// operacijų šablonai :"): the template chooser, made of Qt widgets over TemplateChoice.
// trwTemplates holds the templates under their groups (a template's entries beside
// it), txtSelect "Pasirinktas šablonas" shows the choice, txtSuma "Operacijos suma"
// takes the sum; cmdOK "Gerai" (or a double click on a template) answers with the
// template and the sum, and stays with "Klaidinga sumos reikšmė!" on a sum that is no
// number; cmdCancel "Atšaukti" answers nothing. The opener reads the answer through
// TemplateChooserForm.
#pragma once

#include "accounts/template_choice.h"
#include "ui/shell/widget_form.h"

class QLineEdit;
class QTreeWidget;

namespace orvo::accounts_forms {

class FrmBROperTemplateSelect : public ui::WidgetForm, public TemplateChooserForm {
public:
    FrmBROperTemplateSelect() : ui::WidgetForm(QStringLiteral("frmBROperTemplateSelect")) {}

    TemplateChoiceResult Choice() const override { return choice_.Result(); }

    void OK();

protected:
    QWidget* BuildWidget() override;

private:
    void fillTree();
    qint64 selectedId() const;

    TemplateChoice choice_;
    QWidget* root_ = nullptr;
    QTreeWidget* tree_ = nullptr;
    QLineEdit* select_ = nullptr;
    QLineEdit* sum_ = nullptr;
};

} // namespace orvo::accounts_forms
