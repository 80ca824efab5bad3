// frmAccountPlan, the editor of one class, account or subaccount of the chart, made of
// Qt widgets over AccountPlanEditor, which decides everything: the class panel
// (SSPMain: txtAccountClass, txtNameClass, txtTypeClass), the account panel (SSPSubAcc:
// LbAccount, txtAccount, txtName, txtType), the roles (LVProperties, "Atitikimas" and
// "Sąskaita", one checked at most), the matching account of a new chart (lblOldAcc,
// txtNewAcc, cmdNewAcc, cmdCleanAcc), cmdEnter "Įrašyti", cmdCancel "Atšaukti", SSCNew,
// SSCClose and mnuPrint "Spausdinti". The number boxes take digits and backspace only,
// txtAccount keeps its parent's number in front, the type boxes keep D, K or DK, and a
// class numbered 0 or 00 cannot be left. The changed mark enables Įrašyti and Atšaukti
// and disables SSCNew; closing with changes asks first. An account dragged onto
// txtNewAcc (its object key as the drag's text, as the tree's rows carry it) becomes the
// matching account when it is an account of the chart that is no class (GroupFlag 0) and
// the box is shown; the box then shows the account's number, a blank and its Preview.
#pragma once

#include "accounts/account_plan_editor.h"
#include "ui/shell/widget_form.h"

#include <memory>

class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace orvo::accounts_forms {

class FrmAccountPlan : public ui::WidgetForm {
public:
    FrmAccountPlan() : ui::WidgetForm(QStringLiteral("frmAccountPlan")) {}
    ~FrmAccountPlan() override;

    // The editor the widgets show; null before the widget is built.
    AccountPlanEditor* Editor() const { return editor_.get(); }
    // The caption the closing question starts with.
    QString Caption() const;

    // What the buttons do, callable by tests and scripts as by a click.
    void Enter();
    void Cancel();
    void NewSameLevel();
    // Closes after the question when there are changes; false when the user stays.
    bool CloseForm();
    void Print();

protected:
    QWidget* BuildWidget() override;

private:
    class KeyFilter;
    friend class KeyFilter;

    void fill();
    void fillRoles();
    void refreshButtons();
    void accountEdited(const QString& text);
    void typeEdited(QLineEdit* box, const QString& text);
    void roleChanged(QTreeWidgetItem* item);
    void pickNewAccount();
    void cleanNewAccount();
    // Whether a drag carrying `key` may be dropped on txtNewAcc; the dragged record is
    // returned in `dragged`.
    bool acceptsDrop(const QString& key, OrvoObjectUIOPtr* dragged) const;
    bool dropNewAccount(const QString& key);
    bool showNewAccount() const;
    // The closing question; true when the user closes without saving.
    bool askClose();

    std::unique_ptr<AccountPlanEditor> editor_;
    QWidget* root_ = nullptr;
    QGroupBox* main_ = nullptr;
    QGroupBox* sub_ = nullptr;
    QLineEdit* accountClass_ = nullptr;
    QLineEdit* nameClass_ = nullptr;
    QLineEdit* typeClass_ = nullptr;
    QLabel* parentLabel_ = nullptr;
    QLineEdit* account_ = nullptr;
    QLineEdit* name_ = nullptr;
    QLineEdit* type_ = nullptr;
    QTreeWidget* roles_ = nullptr;
    QLabel* oldAcc_ = nullptr;
    QLineEdit* newAcc_ = nullptr;
    QPushButton* cmdNewAcc_ = nullptr;
    QPushButton* cmdCleanAcc_ = nullptr;
    QPushButton* enter_ = nullptr;
    QPushButton* cancel_ = nullptr;
    QPushButton* new_ = nullptr;
    QPushButton* close_ = nullptr;
    KeyFilter* keys_ = nullptr;
    // Set while the boxes are being filled, so that filling marks nothing as changed.
    bool filling_ = false;
    // Set while the form closes its own window after asking.
    bool closing_ = false;
    // The key of the drag over txtNewAcc, once it was found acceptable.
    QString dropKey_;
};

} // namespace orvo::accounts_forms
