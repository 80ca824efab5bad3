// frmBRTemplate, the editor of an operation template or template group, made of Qt
// widgets over TemplateEditor: txtName "Pavadinimas", txtComment "Komentaras", txtGroup
// with cmdParentGroup "Grupė", the entries in lvwRows ("Debeto b/s", "Kredito b/s",
// "Koeficientas"; a group has none) with the menu mnuAdd "Pridėti" (101), mnuEdit
// "Redaguoti" (102) and mnuDelete "Panaikinti" (103), cmdWrite "Įrašyti", cmdCancel
// "Atšaukti" and SSCClose. An entry is edited in frmBRTemplateAcc; closing with changes
// asks "Uždaryti be išsaugojimo?".
#pragma once

#include "accounts/template_editor.h"
#include "ui/shell/widget_form.h"

#include <memory>

class QAction;
class QLineEdit;
class QMenu;
class QPushButton;
class QTreeWidget;

namespace orvo::accounts_forms {

class FrmBRTemplate : public ui::WidgetForm {
public:
    FrmBRTemplate() : ui::WidgetForm(QStringLiteral("frmBRTemplate")) {}
    ~FrmBRTemplate() override;

    TemplateEditor* Editor() const { return editor_.get(); }

    // The menu of the entries by its numbers: 101 add, 102 edit, 103 delete.
    void MenuClick(int number);
    void Write();
    void Cancel();
    bool CloseForm();
    void PickGroup();

protected:
    QWidget* BuildWidget() override;

private:
    void fill();
    void fillRows();
    QString currentGuid() const;
    void editEntry(const QString& guid);

    std::unique_ptr<TemplateEditor> editor_;
    QWidget* root_ = nullptr;
    QLineEdit* name_ = nullptr;
    QLineEdit* comment_ = nullptr;
    QLineEdit* group_ = nullptr;
    QTreeWidget* rows_ = nullptr;
    QMenu* menu_ = nullptr;
    QPushButton* write_ = nullptr;
    QPushButton* cancel_ = nullptr;
    bool filling_ = false;
};

} // namespace orvo::accounts_forms
