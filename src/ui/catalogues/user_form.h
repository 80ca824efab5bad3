// frmUser, the window of a user and the user's rights: the fields of CatalogueForm,
// then lvwRights with one row per right ("Teisė", "Skaityti", "Naikinti", "Keisti",
// "Kurti", "Penkta"; "+" marks a flag held), and below it the flags of the chosen row as
// chkReadFlag, chkDeleteFlag, chkEditFlag, chkCreateFlag and chkFifthFlag, each enabled
// only where the right takes it. The rights are saved with the user by cmdWrite.
#pragma once

#include "host/catalogues/user_editor.h"
#include "ui/catalogues/catalogue_form.h"

#include <QList>

class QCheckBox;
class QTreeWidget;

namespace orvo::ui {

class UserForm : public CatalogueForm {
public:
    UserForm() : CatalogueForm(QStringLiteral("frmUser")) {}

protected:
    void buildExtra(QWidget* root, QVBoxLayout* column) override;
    void fillExtra() override;

private:
    host::UserEditor* user() const;
    void showFlagsOfCurrent();
    void setFlag(int index, bool on);
    void fillRow(int row);

    QTreeWidget* rights_ = nullptr;
    QList<QCheckBox*> flags_;
    bool showing_ = false;
};

} // namespace orvo::ui
