// frmDocumentParameters ("Dokumento parametrai"), the parameters of a contract document
// group (form type O1000100), made of Qt widgets over DocumentParametersEditor:
// cmbDocType "Dokumento tipas:", the template types in lvwTemplates ("Šablono tipas",
// "Šablonas"), cmdSelect "&Pasirinkti" and cmdDelete "&Ištrinti" for the selected row,
// and cmdOK "&Gerai", which writes the group's Parameters and closes. It runs modally
// on the group's data object.
#pragma once

#include "accounts/document_parameters_editor.h"
#include "ui/shell/widget_form.h"

#include <memory>

class QComboBox;
class QTreeWidget;

namespace orvo::accounts_forms {

class FrmDocumentParameters : public ui::WidgetForm {
public:
    FrmDocumentParameters() : ui::WidgetForm(QStringLiteral("frmDocumentParameters")) {}
    ~FrmDocumentParameters() override;

    DocumentParametersEditor* Editor() const { return editor_.get(); }
    // Whether cmdOK wrote the parameters.
    bool Written() const { return written_; }

    void OK();

protected:
    QWidget* BuildWidget() override;

private:
    void fillRows();
    int currentRow() const;

    std::unique_ptr<DocumentParametersEditor> editor_;
    QWidget* root_ = nullptr;
    QComboBox* docType_ = nullptr;
    QTreeWidget* templates_ = nullptr;
    bool written_ = false;
};

} // namespace orvo::accounts_forms
