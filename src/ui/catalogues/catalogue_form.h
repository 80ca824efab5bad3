// CatalogueForm is the window of one catalogue record (frmFirm, frmPerson, frmEmployee,
// frmBank, frmBankAccount, frmMyFirm) made of Qt widgets over CatalogueEditor: one row
// per field of the kind, named by the field ("txt" + field for a text or a number, "chk"
// for a check, "cmb" for a choice, "txt" with a pick button "cmd" for a reference),
// then cmdWrite "Įrašyti", cmdCancel "Atšaukti", cmdDelete "Panaikinti" and SSCClose
// "Uždaryti". Opened without a record, frmMyFirm opens the firm that keeps the books.
// Subclasses add a part of their own below the fields (the rates of a currency, the
// rights of a user).
#pragma once

#include "host/catalogues/catalogue_editor.h"
#include "ui/shell/widget_form.h"

#include <QHash>
#include <memory>

class QFormLayout;
class QPushButton;
class QVBoxLayout;

namespace orvo::ui {

class CatalogueForm : public WidgetForm {
public:
    explicit CatalogueForm(const QString& name) : WidgetForm(name) {}
    ~CatalogueForm() override;

    host::CatalogueEditor* Editor() const { return editor_.get(); }

    void Write();
    void Cancel();
    void Delete();
    bool CloseForm();
    // Picks the reference of a field through the host's picker.
    void Pick(const QString& field);

protected:
    QWidget* BuildWidget() override;
    // The part of a subclass, added below the fields; nothing by default.
    virtual void buildExtra(QWidget* root, QVBoxLayout* column);
    // Shows the subclass's part again after a read or save.
    virtual void fillExtra() {}
    // Shows every field and the title from the editor.
    void fill();
    void close(bool accepted);

    std::unique_ptr<host::CatalogueEditor> editor_;
    QWidget* root_ = nullptr;
    bool filling_ = false;

private:
    void addField(QWidget* root, QFormLayout* form, const host::CatalogueField& field);
    void fillButtons();

    QHash<QString, QWidget*> controls_;
    QPushButton* write_ = nullptr;
    QPushButton* delete_ = nullptr;
};

} // namespace orvo::ui
