// CatalogueEditor::For: the editor class that suits a data object's kind.
#include "host/catalogues/bank_account_editor.h"
#include "host/catalogues/catalogue_kinds.h"
#include "host/catalogues/currency_editor.h"
#include "host/catalogues/user_editor.h"
#include "host/catalogues/user_kind.h"

namespace orvo::host {

std::unique_ptr<CatalogueEditor> CatalogueEditor::For(const OrvoObjectUIOPtr& object) {
    if (!object)
        return nullptr;
    const QString oidr = object->OIDR();
    const QString kind = (oidr.size() >= 8 ? oidr : object->OID()).left(8);
    std::unique_ptr<CatalogueEditor> editor;
    if (kind == kinds::BankAccount)
        editor = std::make_unique<BankAccountEditor>(object);
    else if (kind == kinds::Currency)
        editor = std::make_unique<CurrencyEditor>(object);
    else if (kind == kinds::User)
        editor = std::make_unique<UserEditor>(object);
    else if (!CatalogueFieldsOf(kind).isEmpty())
        editor = std::make_unique<CatalogueEditor>(object);
    if (editor)
        editor->Load();
    return editor;
}

} // namespace orvo::host
