// frmBROperGroup, the editor of an operation group ("Finansinių operacijų apskaitos
// grupė"), made of Qt widgets over GroupEditor. A general group shows txtName "Grupės
// pavadinimas" and txtParentGroup "Aukštesnio lygio grupė" only. An operations group
// adds the form type cmbFormType with cmdParameters and chkNumByAcc, the series
// (chkSerijaIndication, txtSerija), the account settings (txtAccountCode over
// lvwAccountSettings) and the TabStrip of three tabs: Templates (txtTemplateGroup with
// cmdTemplate and cmdClearTemplate, txtMainTemplate with cmdMainTemplate and
// cmdClearMainTemplate, the tree trwTemplates with mnuSetAsMain), Autonumber
// (lvwAutoNumber with cmdUp and cmdDown, txtPrefix, txtTemplate, txtMinimal,
// dtpDateFrom, cmbCycle, cmbGroupBy and the sample txtExample) and DebtSettings
// (dtpDebtDate, cmdCreateFullSum, cmdClearFullSum). cmdWrite "Įrašyti" (Ctrl+S) saves;
// SSCClose asks before it drops changes.
#pragma once

#include "accounts/group_editor.h"
#include "ui/shell/widget_form.h"

#include <memory>

class QCheckBox;
class QComboBox;
class QDateEdit;
class QLabel;
class QLineEdit;
class QMenu;
class QPushButton;
class QSpinBox;
class QTabWidget;
class QTreeWidget;

namespace orvo::accounts_forms {

class FrmBROperGroup : public ui::WidgetForm {
public:
    FrmBROperGroup() : ui::WidgetForm(QStringLiteral("frmBROperGroup")) {}
    ~FrmBROperGroup() override;

    GroupEditor* Editor() const { return editor_.get(); }

    static QString Caption() { return QStringLiteral("Finansinių operacijų apskaitos grupė"); }

    void Write();
    bool CloseForm();

protected:
    QWidget* BuildWidget() override;

private:
    QWidget* buildHeader();
    QWidget* buildTemplatesTab();
    QWidget* buildAutoNumberTab();
    QWidget* buildDebtsTab();
    void connectChanges();
    void fill();
    void fillFormType();
    void fillTemplates();
    void fillAccountSettings();
    void fillMask(int current);
    void showExample();
    void readBoxes();
    void formTypeChosen();
    void moveMask(bool up);
    void editParameters();

    std::unique_ptr<GroupEditor> editor_;
    QWidget* root_ = nullptr;
    QLabel* title_ = nullptr;
    QLineEdit* name_ = nullptr;
    QLineEdit* parent_ = nullptr;
    QWidget* operationsPart_ = nullptr;
    QComboBox* formType_ = nullptr;
    QPushButton* parameters_ = nullptr;
    QCheckBox* numByAcc_ = nullptr;
    QCheckBox* serijaIndication_ = nullptr;
    QLineEdit* serija_ = nullptr;
    QLineEdit* accountCode_ = nullptr;
    QTreeWidget* accountSettings_ = nullptr;
    QTabWidget* tabs_ = nullptr;
    QLineEdit* templateGroup_ = nullptr;
    QLineEdit* mainTemplate_ = nullptr;
    QTreeWidget* templates_ = nullptr;
    QMenu* templateMenu_ = nullptr;
    QTreeWidget* mask_ = nullptr;
    QLineEdit* prefix_ = nullptr;
    QLineEdit* numberTemplate_ = nullptr;
    QSpinBox* minimal_ = nullptr;
    QDateEdit* dateFrom_ = nullptr;
    QComboBox* cycle_ = nullptr;
    QComboBox* groupBy_ = nullptr;
    QLineEdit* example_ = nullptr;
    QDateEdit* debtDate_ = nullptr;
    QPushButton* createFullSum_ = nullptr;
    QPushButton* clearFullSum_ = nullptr;
    QPushButton* write_ = nullptr;
    bool filling_ = false;
};

} // namespace orvo::accounts_forms
