#include "host/methods/currency_revaluation_methods.h"

#include "host/catalogues/catalogue_kinds.h"
#include "host/methods/method_arguments.h"
#include "host/methods/method_context.h"
#include "host/methods/method_helpers.h"
#include "host/methods/method_registry.h"
#include "host/storage/database.h"

namespace orvo::host {

namespace {

FieldDefs bankByAccountFields() {
    return {FieldDef::Make(QStringLiteral("AccountNumber"), FieldType::VarWChar, 50),
            FieldDef::Make(QStringLiteral("Name"), FieldType::VarWChar, 255),
            FieldDef::Make(QStringLiteral("OIDR"), FieldType::VarWChar, 50),
            FieldDef::Make(QStringLiteral("AccOIDR"), FieldType::VarWChar, 50)};
}

BOResult bankByAccount(MethodContext& ctx, const MethodArguments& args) {
    const QString reference = args.Text(QStringLiteral("AccOIDR")).trimmed();
    RecordsetPtr rs = Recordset::Create(bankByAccountFields());
    bool numbered = false;
    const qint64 id = reference.mid(8).toLongLong(&numbered);
    if (reference.left(8) == kinds::BankAccount && numbered) {
        const QueryResult q = ctx.database->Query(
            QStringLiteral("SELECT a.AccountNumber, a.BankID, b.Name FROM BankAccounts a LEFT "
                           "JOIN Banks b ON b.ID = a.BankID WHERE a.ID = ?"),
            {Value(double(id))});
        if (!q.ok())
            return BOResult::Failure(q.Code == 0 ? 1 : q.Code, q.Text);
        if (q.RowCount() > 0) {
            rs->AddNew();
            rs->SetField(0, q.At(0, 0).toString().trimmed());
            rs->SetField(1, q.At(0, 2).isNull() ? QString() : q.At(0, 2).toString().trimmed());
            rs->SetField(2, q.At(0, 1).isNull()
                                ? QString()
                                : kinds::Bank + QString::number(q.At(0, 1).toDouble(), 'f', 0));
            rs->SetField(3, reference);
            rs->Update();
        }
    }
    rs->AcceptChanges();
    rs->MoveFirst();
    return BOResult::Of(Value(rs));
}

} // namespace

ResultRecord RegisterCurrencyRevaluationMethods(MethodRegistry& methods) {
    return methods.Register(BookMethod(
        QStringLiteral("GetBankByAccount"),
        {ParameterSpec::Required(QStringLiteral("AccOIDR"), ParameterKind::Text)},
        bankByAccountFields(),
        QStringLiteral("The bank account of a reference (O0000500 and its number): "
                       "AccountNumber, OIDR and Name of its bank, AccOIDR; no row for an "
                       "unknown reference."),
        bankByAccount));
}

} // namespace orvo::host
