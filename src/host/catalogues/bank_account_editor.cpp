#include "host/catalogues/bank_account_editor.h"

#include "core/recordset.h"
#include "host/catalogues/catalogue_editor_rules.h"
#include "host/catalogues/catalogue_kinds.h"

namespace orvo::host {

QVector<CatalogueChoice> BankAccountEditor::Choices(const QString& name) const {
    if (name == QLatin1String("BankID"))
        return banks_;
    if (name == QLatin1String("CurrencyCode"))
        return currencies_;
    return {};
}

void BankAccountEditor::normalize() {
    SetText(QStringLiteral("AccountNumber"),
            NormalizedAccountNumber(Text(QStringLiteral("AccountNumber"))));
}

void BankAccountEditor::afterLoad() {
    banks_ = recordChoices(kinds::Bank);
    currencies_.clear();
    const BusinessObjectPtr bo = object_ ? object_->BO() : nullptr;
    if (!bo)
        return;
    const BOResult list = bo->Call(QStringLiteral("GetCurrencyList"), QStringLiteral("None"));
    const RecordsetPtr rs = list.ok() ? list.Data.toRecordset() : nullptr;
    QString base;
    QVector<CatalogueChoice> foreign;
    if (rs)
        for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
            const QString code = rs->Field(QStringLiteral("Code")).toString();
            if (rs->Field(QStringLiteral("BaseCurrency")).toInt32() != 0)
                base = code;
            else
                foreign.append(
                    {code, code + QLatin1Char(' ') + rs->Field(QStringLiteral("Name")).toString()});
        }
    currencies_.append(
        {QStringLiteral("   "), base.isEmpty() ? QStringLiteral("Bazinė valiuta")
                                               : QStringLiteral("Bazinė valiuta (%1)").arg(base)});
    currencies_ += foreign;
    // A stored code of the base currency itself reads as the base currency.
    if (!base.isEmpty() && Text(QStringLiteral("CurrencyCode")).trimmed() == base)
        texts_.insert(QStringLiteral("CurrencyCode"), QStringLiteral("   "));
    if (Text(QStringLiteral("CurrencyCode")).trimmed().isEmpty())
        texts_.insert(QStringLiteral("CurrencyCode"), QStringLiteral("   "));
}

} // namespace orvo::host
