#include "host/methods/accounts_methods.h"

#include "core/recordset.h"

#include "host/methods/account_chart.h"
#include "host/methods/account_locks.h"
#include "host/methods/account_record_methods.h"
#include "host/methods/account_settings.h"
#include "host/methods/group_reference.h"
#include "host/methods/method_arguments.h"
#include "host/methods/method_codes.h"
#include "host/methods/method_context.h"
#include "host/methods/method_helpers.h"
#include "host/methods/method_registry.h"
#include "host/storage/database.h"

namespace orvo::host {

namespace {

ParameterSpec optionalText(const char* name) {
    return ParameterSpec::Optional(QString::fromLatin1(name), ParameterKind::Text,
                                   Value(QString()));
}

FieldDefs listFields() {
    return {FieldDef::Make(QStringLiteral("Account"), FieldType::VarWChar, 30),
            FieldDef::Make(QStringLiteral("Name"), FieldType::VarWChar, 255),
            FieldDef::Make(QStringLiteral("ID"), FieldType::Integer),
            FieldDef::Make(QStringLiteral("ParentID"), FieldType::Integer),
            FieldDef::Make(QStringLiteral("Type"), FieldType::VarWChar, 2),
            FieldDef::Make(QStringLiteral("GroupFlag"), FieldType::SmallInt)};
}

BOResult accountList(Database& db, const QString& filter) {
    const bool all = filter.trimmed().compare(QLatin1String("All"), Qt::CaseInsensitive) == 0;
    const QueryResult q = db.Query(
        QStringLiteral("SELECT Account, Name, ID, ParentID, Type, GroupFlag FROM Accounts %1 "
                       "ORDER BY Account")
            .arg(all ? QString() : QStringLiteral("WHERE GroupFlag = 0")));
    if (!q.ok())
        return MethodFailure(q.Text);
    auto rs = Recordset::Create(listFields());
    for (int i = 0; i < q.RowCount(); ++i) {
        rs->AddNew();
        rs->SetField(QStringLiteral("Account"), q.At(i, 0).toString());
        rs->SetField(QStringLiteral("Name"), q.At(i, 1).toString());
        rs->SetField(QStringLiteral("ID"), Value(double(RecordId(q.At(i, 2)))));
        if (!q.At(i, 3).isNull())
            rs->SetField(QStringLiteral("ParentID"), Value(double(RecordId(q.At(i, 3)))));
        rs->SetField(QStringLiteral("Type"), q.At(i, 4).toString());
        rs->SetField(QStringLiteral("GroupFlag"), Value(qint16(q.At(i, 5).toInt32() != 0 ? 1 : 0)));
        rs->Update();
    }
    rs->AcceptChanges();
    rs->MoveFirst();
    return BOResult::Of(Value(rs));
}

BOResult rowsOrFailure(RecordsetPtr rs, const QString& error) {
    return rs ? BOResult::Of(Value(rs)) : MethodFailure(error);
}

BOResult parentOf(Database& db, const QString& reference) {
    const QString ref = reference.trimmed();
    // The operation's side asks the same name for its group.
    if (IsGroupReference(ref))
        return GroupByReference(db, ref);
    QString error;
    QString childWhere;
    Value key;
    if (ref.startsWith(kinds::Account)) {
        childWhere = QStringLiteral("ID = ?");
        key = Value(double(ref.mid(8).toLongLong()));
    } else {
        childWhere = QStringLiteral("Account = ?");
        key = Value(ref);
    }
    return rowsOrFailure(
        ReadAccountRows(
            db, QStringLiteral("ID = (SELECT ParentID FROM Accounts WHERE %1)").arg(childWhere),
            {key}, &error),
        error);
}

FieldDefs addresseeFields() {
    return {FieldDef::Make(QStringLiteral("Sign"), FieldType::SmallInt),
            FieldDef::Make(QStringLiteral("FOID"), FieldType::VarWChar, 8)};
}

// Demands (or allowed kinds) of one or two accounts, as rows Sign, FOID without twins.
BOResult addresseeKinds(Database& db, const QStringList& tables, const QString& accountD,
                        const QString& accountC, bool pair) {
    struct Side {
        QString account;
        int sign; // 1 debit, -1 credit, 0 every stored side
    };
    QVector<Side> sides;
    if (pair) {
        sides = {{accountD, 1}, {accountC, -1}};
    } else {
        sides = {{accountD, 0}};
    }
    auto rs = Recordset::Create(addresseeFields());
    QSet<QString> seen;
    for (const Side& side : sides) {
        if (side.account.trimmed().isEmpty())
            continue;
        for (const QString& table : tables) {
            const QueryResult q = db.Query(
                QStringLiteral("SELECT k.Sign, k.FOID FROM %1 k JOIN Accounts a ON a.ID = "
                               "k.AccountID WHERE a.Account = ? ORDER BY k.Sign DESC, k.FOID")
                    .arg(table),
                {Value(side.account.trimmed())});
            if (!q.ok())
                return MethodFailure(q.Text);
            for (int i = 0; i < q.RowCount(); ++i) {
                const int stored = q.At(i, 0).toInt32();
                const QString foid = q.At(i, 1).toString().trimmed();
                QVector<int> signs;
                if (side.sign != 0) {
                    if (stored == 0 || stored == side.sign)
                        signs = {side.sign};
                } else {
                    signs = stored == 0 ? QVector<int>{1, -1} : QVector<int>{stored};
                }
                for (int s : signs) {
                    const QString key = QString::number(s) + foid;
                    if (seen.contains(key))
                        continue;
                    seen.insert(key);
                    rs->AddNew();
                    rs->SetField(QStringLiteral("Sign"), Value(qint16(s)));
                    rs->SetField(QStringLiteral("FOID"), foid);
                    rs->Update();
                }
            }
        }
    }
    rs->AcceptChanges();
    rs->MoveFirst();
    return BOResult::Of(Value(rs));
}

// The chart's role holders, read through the one rule of account settings.
BOResult presetAccounts(Database& db, const QString& code) {
    QVector<AccountSettingRow> rows;
    QString error;
    if (!ReadAccountSettings(db, QString(), code, &rows, &error))
        return MethodFailure(error);
    return BOResult::Of(Value(PresetAccountsRecordset(rows)));
}

BOResult roles(Database& db) {
    const QueryResult q =
        db.Query(QStringLiteral("SELECT ID, Name, Code FROM BRASettings ORDER BY ID"));
    if (!q.ok())
        return MethodFailure(q.Text);
    auto rs = Recordset::Create({FieldDef::Make(QStringLiteral("Id"), FieldType::Integer),
                                 FieldDef::Make(QStringLiteral("Name"), FieldType::VarWChar, 255),
                                 FieldDef::Make(QStringLiteral("Code"), FieldType::VarWChar, 10)});
    for (int i = 0; i < q.RowCount(); ++i) {
        rs->AddNew();
        rs->SetField(0, Value(double(RecordId(q.At(i, 0)))));
        rs->SetField(1, q.At(i, 1).toString());
        rs->SetField(2, q.At(i, 2).toString());
        rs->Update();
    }
    rs->AcceptChanges();
    rs->MoveFirst();
    return BOResult::Of(Value(rs));
}

BOResult roleHolders(Database& db) {
    const QueryResult q = db.Query(
        QStringLiteral("SELECT s.Code, a.Account FROM Accounts a JOIN BRASettings s ON s.ID = "
                       "a.BRAPropertyID ORDER BY s.Code, a.Account"));
    if (!q.ok())
        return MethodFailure(q.Text);
    auto rs =
        Recordset::Create({FieldDef::Make(QStringLiteral("Code"), FieldType::VarWChar, 10),
                           FieldDef::Make(QStringLiteral("Account"), FieldType::VarWChar, 30)});
    for (int i = 0; i < q.RowCount(); ++i) {
        rs->AddNew();
        rs->SetField(0, q.At(i, 0).toString());
        rs->SetField(1, q.At(i, 1).toString());
        rs->Update();
    }
    rs->AcceptChanges();
    rs->MoveFirst();
    return BOResult::Of(Value(rs));
}

using Body = std::function<BOResult(Database&, const MethodArguments&)>;

// The chart's methods only need the book itself.
MethodDefinition method(const QString& name, QVector<ParameterSpec> parameters, FieldDefs fields,
                        const QString& doc, Body body) {
    return BookMethod(name, std::move(parameters), std::move(fields), doc,
                      [body](MethodContext& ctx, const MethodArguments& args) {
                          return body(*ctx.database, args);
                      });
}

} // namespace

ResultRecord RegisterAccountMethods(MethodRegistry& methods) {
    const QStringList demanded{QStringLiteral("BRRequiredAddr")};
    const QStringList allowed{QStringLiteral("BRRequiredAddr"), QStringLiteral("EnabledAddressee")};
    const QVector<MethodDefinition> list = {
        method(QStringLiteral("GetAccountList"), {optionalText("Filter")}, listFields(),
               QStringLiteral("Every account that can be posted to (GroupFlag 0), by number; "
                              "'All' adds the classes and grouping rows."),
               [](Database& db, const MethodArguments& a) {
                   return accountList(db, a.Text(QStringLiteral("Filter")));
               }),
        method(QStringLiteral("GetAccount"),
               {ParameterSpec::Required(QStringLiteral("Account"), ParameterKind::Text)},
               AccountRowFields(),
               QStringLiteral("The account row of that number; no row when it is unknown."),
               [](Database& db, const MethodArguments& a) {
                   QString error;
                   return rowsOrFailure(
                       ReadAccountRows(db, QStringLiteral("Account = ?"),
                                       {Value(a.Text(QStringLiteral("Account")).trimmed())},
                                       &error),
                       error);
               }),
        method(QStringLiteral("GetParent"),
               {ParameterSpec::Required(QStringLiteral("Account"), ParameterKind::Text)},
               AccountRowFields(),
               QStringLiteral("The account row of the parent of an account (by number or OIDR); "
                              "no row for a class. For a group's reference (O0201400 + ID) the "
                              "group's row instead: OIDR, Preview, PreviewPath, FormOID, "
                              "Parameters, BRTemplateID, DefaultTemplateID, SerijaIndication, "
                              "Serija, AccountCode, ANMask, ANPrefix, ANTemplate."),
               [](Database& db, const MethodArguments& a) {
                   return parentOf(db, a.Text(QStringLiteral("Account")));
               }),
        method(QStringLiteral("GetBRRequiredAddr"),
               {ParameterSpec::Required(QStringLiteral("AccountD"), ParameterKind::Text),
                optionalText("AccountC")},
               addresseeFields(),
               QStringLiteral("The addressee kinds an entry of the accounts must carry: the debit "
                              "account's on Sign 1, the credit account's on Sign -1."),
               [demanded](Database& db, const MethodArguments& a) {
                   return addresseeKinds(db, demanded, a.Text(QStringLiteral("AccountD")),
                                         a.Text(QStringLiteral("AccountC")),
                                         a.IsGiven(QStringLiteral("AccountC")));
               }),
        method(QStringLiteral("GetEnabledAddressee"),
               {ParameterSpec::Required(QStringLiteral("AccountD"), ParameterKind::Text),
                optionalText("AccountC")},
               addresseeFields(),
               QStringLiteral("The addressee kinds allowed on an entry of the accounts (the "
                              "demanded ones included), in the shape of GetBRRequiredAddr."),
               [allowed](Database& db, const MethodArguments& a) {
                   return addresseeKinds(db, allowed, a.Text(QStringLiteral("AccountD")),
                                         a.Text(QStringLiteral("AccountC")),
                                         a.IsGiven(QStringLiteral("AccountC")));
               }),
        method(QStringLiteral("GetPresetAccounts"), {optionalText("Code")},
               {FieldDef::Make(QStringLiteral("Code"), FieldType::VarWChar, 10),
                FieldDef::Make(QStringLiteral("Account"), FieldType::VarWChar, 30),
                FieldDef::Make(QStringLiteral("Name"), FieldType::VarWChar, 255)},
               QStringLiteral("Which accounts hold which role, by Code then Account."),
               [](Database& db, const MethodArguments& a) {
                   return presetAccounts(db, a.Text(QStringLiteral("Code")));
               }),
        method(QStringLiteral("DO0200401_GetBRASettings"), {optionalText("OIDR")},
               {FieldDef::Make(QStringLiteral("Id"), FieldType::Integer),
                FieldDef::Make(QStringLiteral("Name"), FieldType::VarWChar, 255),
                FieldDef::Make(QStringLiteral("Code"), FieldType::VarWChar, 10)},
               QStringLiteral("The account roles."),
               [](Database& db, const MethodArguments&) { return roles(db); }),
        method(QStringLiteral("DO0200401_GetBRAProperties"), {optionalText("OIDR")},
               {FieldDef::Make(QStringLiteral("Code"), FieldType::VarWChar, 10),
                FieldDef::Make(QStringLiteral("Account"), FieldType::VarWChar, 30)},
               QStringLiteral("The accounts that hold each role."),
               [](Database& db, const MethodArguments&) { return roleHolders(db); }),
    };
    for (const MethodDefinition& m : list) {
        const ResultRecord r = methods.Register(m);
        if (!r.ok())
            return r;
    }
    for (const ResultRecord& r :
         {RegisterAccountRecordMethods(methods), RegisterAccountLockMethods(methods)})
        if (!r.ok())
            return r;
    return ResultRecord::Success();
}

} // namespace orvo::host
