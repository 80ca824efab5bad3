// BankAccountEditor is the editor of a bank account: besides the fields of every
// catalogue record it offers the owner picked among firms, natural persons and
// employees, the bank chosen from the banks of the book, and the currency chosen from
// the book's currencies (three blanks, the first item, for the base currency). The
// number is kept without blanks and in capitals, and an IBAN must have check digits
// that add up.
#pragma once

#include "host/catalogues/catalogue_editor.h"

namespace orvo::host {

class BankAccountEditor : public CatalogueEditor {
public:
    using CatalogueEditor::CatalogueEditor;

    QVector<CatalogueChoice> Choices(const QString& name) const override;

protected:
    void normalize() override;
    void afterLoad() override;

private:
    QVector<CatalogueChoice> banks_;
    QVector<CatalogueChoice> currencies_;
};

} // namespace orvo::host
