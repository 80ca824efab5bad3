#include "host/methods/group_methods.h"

#include "core/null_readers.h"
#include "core/recordset.h"
#include "core/today.h"
#include "host/catalogues/catalogue_kinds.h"
#include "host/methods/account_settings.h"
#include "host/methods/document_type_methods.h"
#include "host/methods/group_debt_methods.h"
#include "host/methods/method_arguments.h"
#include "host/methods/method_codes.h"
#include "host/methods/method_context.h"
#include "host/methods/method_helpers.h"
#include "host/methods/method_registry.h"
#include "host/objects/auto_number_counters.h"
#include "host/objects/group_kind.h"
#include "host/objects/operation_kind.h"
#include "host/storage/database.h"

#include <climits>

namespace orvo::host {

namespace {

BOResult failed(const QString& message) {
    return BOResult::Failure(bo_codes::MethodFailed, message);
}

ParameterSpec optionalText(const char* name) {
    return ParameterSpec::Optional(QString::fromLatin1(name), ParameterKind::Text,
                                   Value(QString()));
}

RecordsetPtr finished(const RecordsetPtr& rs) {
    rs->AcceptChanges();
    rs->MoveFirst();
    return rs;
}

FieldDefs formTypeFields() {
    return {TextField("Name", 100), TextField("OID", 8)};
}

BOResult formTypes() {
    auto rs = Recordset::Create(formTypeFields());
    for (const auto& type : GroupFormTypes()) {
        rs->AddNew();
        rs->SetField(0, type.second);
        rs->SetField(1, type.first);
        rs->Update();
    }
    return BOResult::Of(Value(finished(rs)));
}

FieldDefs firmAccountFields() {
    return {TextField("AccountNumber", 50),
            TextField("Name", 255),
            TextField("AccOIDR", 30),
            TextField("Preview", 255),
            TypedField("MainAccountFlag", FieldType::SmallInt),
            TextField("OIDR", 30)};
}

BOResult myFirmAccounts(Database& db) {
    const QueryResult firms =
        db.Query(QStringLiteral("SELECT ID FROM Firms WHERE MyFirmFlag <> 0 ORDER BY ID"));
    if (!firms.ok())
        return failed(firms.Text);
    auto rs = Recordset::Create(firmAccountFields());
    for (int f = 0; f < firms.RowCount(); ++f) {
        const QString owner = kinds::Firm + QString::number(NzId(firms.At(f, 0)));
        const QueryResult q = db.Query(
            QStringLiteral("SELECT a.ID, a.AccountNumber, a.MainAccountFlag, a.BankID, b.Name, "
                           "a.CurrencyCode FROM BankAccounts a LEFT JOIN Banks b ON b.ID = "
                           "a.BankID WHERE a.OwnerOIDR = ? ORDER BY a.MainAccountFlag DESC, "
                           "a.AccountNumber, a.ID"),
            {Value(owner)});
        if (!q.ok())
            return failed(q.Text);
        for (int i = 0; i < q.RowCount(); ++i) {
            const QString number = q.At(i, 1).toString().trimmed();
            const QString bank = q.At(i, 4).toString().trimmed();
            const QString currency = q.At(i, 5).toString().trimmed();
            QStringList preview{number};
            if (!bank.isEmpty())
                preview << bank;
            if (!currency.isEmpty())
                preview << currency;
            rs->AddNew();
            rs->SetField(QStringLiteral("AccountNumber"), number);
            rs->SetField(QStringLiteral("Name"), bank);
            rs->SetField(QStringLiteral("AccOIDR"),
                         QString(kinds::BankAccount + QString::number(NzId(q.At(i, 0)))));
            rs->SetField(QStringLiteral("Preview"), preview.join(QLatin1Char(' ')));
            rs->SetField(QStringLiteral("MainAccountFlag"),
                         Value(qint16(q.At(i, 2).toInt32() != 0 ? 1 : 0)));
            rs->SetField(QStringLiteral("OIDR"),
                         q.At(i, 3).isNull()
                             ? QString()
                             : QString(kinds::Bank + QString::number(NzId(q.At(i, 3)))));
            rs->Update();
        }
    }
    return BOResult::Of(Value(finished(rs)));
}

BOResult accountSettings(Database& db, const QString& accountCode, const QString& code,
                         bool preset) {
    QVector<AccountSettingRow> rows;
    QString error;
    if (!ReadAccountSettings(db, accountCode, code, &rows, &error))
        return failed(error);
    return BOResult::Of(
        Value(preset ? PresetAccountsRecordset(rows) : AccountSettingsRecordset(rows)));
}

// A date bound of a list: "yyyy.mm.dd" or "yyyy-mm-dd"; an invalid QDate for none.
QDate dateBound(const QString& text) {
    const QString t = SettingCodeArgument(text);
    if (t.isEmpty())
        return QDate();
    QDate d = QDate::fromString(t, QStringLiteral("yyyy.MM.dd"));
    if (!d.isValid())
        d = QDate::fromString(t, QStringLiteral("yyyy-MM-dd"));
    return d;
}

FieldDefs listFields() {
    return {TextField("OIDR", 30), TextField("OType", 20), TextField("Preview")};
}

// `firstRow`..`lastRow` (1-based, 0 for no bound) is a window on the whole list, so that a
// tree showing a screen at a time reads only that screen of a group of many operations.
BOResult groupNodes(Database& db, const QString& name, const QString& oid, const QString& from,
                    const QString& to, qint64 firstRow, qint64 lastRow) {
    const QString ref = oid.trimmed();
    qint64 group = 0;
    if (ref.size() > 8) {
        bool ok = false;
        group = ref.mid(8).toLongLong(&ok);
        if (!ok || !ref.startsWith(kinds::OperationGroup))
            return BOResult::Failure(
                1, QStringLiteral("%1: „%2“ nėra grupės nuoroda.").arg(name, ref));
    }
    const QDate first = dateBound(from);
    const QDate last = dateBound(to);
    if ((!SettingCodeArgument(from).isEmpty() && !first.isValid()) ||
        (!SettingCodeArgument(to).isEmpty() && !last.isValid()))
        return BOResult::Failure(
            1, QStringLiteral("%1: laikotarpio datos turi būti rašomos yyyy.mm.dd.").arg(name));

    if (firstRow < 1)
        firstRow = 1;
    if (lastRow > 0 && lastRow < firstRow)
        return BOResult::Failure(
            1, QStringLiteral("%1: paskutinė eilutė negali būti prieš pirmąją.").arg(name));
    auto rs = Recordset::Create(listFields());
    const QueryResult groups =
        group == 0 ? db.Query(QStringLiteral("SELECT ID, Name FROM BROperGroups WHERE ParentID "
                                             "IS NULL OR ParentID = 0 ORDER BY Name, ID"))
                   : db.Query(QStringLiteral("SELECT ID, Name FROM BROperGroups WHERE ParentID "
                                             "= ? ORDER BY Name, ID"),
                              {Value(double(group))});
    if (!groups.ok())
        return failed(groups.Text);
    const qint64 groupRows = groups.RowCount();
    for (qint64 i = firstRow - 1; i < groupRows && (lastRow == 0 || i < lastRow); ++i) {
        rs->AddNew();
        rs->SetField(0, QString(kinds::OperationGroup + QString::number(NzId(groups.At(i, 0)))));
        rs->SetField(1, kinds::OperationGroup);
        rs->SetField(2, groups.At(i, 1).toString());
        rs->Update();
    }
    if (group > 0) {
        QString sql = QStringLiteral(
            "SELECT ID, OType, DateD, Number, Comment FROM BROpers WHERE BROperGroupID = ?");
        ValueArray params{Value(double(group))};
        if (first.isValid()) {
            sql += QStringLiteral(" AND DateD >= ?");
            params << Value(first);
        }
        if (last.isValid()) {
            sql += QStringLiteral(" AND DateD <= ?");
            params << Value(last);
        }
        sql += QStringLiteral(" ORDER BY DateD, ID");
        // Positions past the subgroups are positions among the operations.
        const qint64 opFrom = qMax<qint64>(1, firstRow - groupRows);
        const qint64 opTo = lastRow > 0 ? lastRow - groupRows : 0;
        if (lastRow > 0 && opTo < 1)
            return BOResult::Of(Value(finished(rs)));
        sql += PagingClause(db, int(qMin<qint64>(opFrom, INT_MAX)),
                            int(qMin<qint64>(opTo, INT_MAX)), params);
        const QueryResult ops = db.Query(sql, params);
        if (!ops.ok())
            return failed(ops.Text);
        for (int i = 0; i < ops.RowCount(); ++i) {
            rs->AddNew();
            rs->SetField(0, QString(kinds::Operation + QString::number(NzId(ops.At(i, 0)))));
            rs->SetField(1, ops.At(i, 1).toString());
            rs->SetField(2, OperationPreview(ops.At(i, 2), ops.At(i, 3).toString(),
                                             ops.At(i, 4).toString()));
            rs->Update();
        }
    }
    return BOResult::Of(Value(finished(rs)));
}

FieldDefs autoNumberFields() {
    return {TypedField("AutoNumber", FieldType::Integer), TextField("ANMask", 100),
            TextField("ANPrefix", 50), TextField("ANTemplate", 50)};
}

BOResult autoNumber(Database& db, const MethodArguments& a) {
    NumberingRule rule;
    QString error;
    if (!ReadNumberingRule(db, a.Integer(QStringLiteral("GroupID")), &rule, &error))
        return failed(error);
    auto rs = Recordset::Create(autoNumberFields());
    rs->AddNew();
    qint32 counter = 0;
    if (rule.Found) {
        const QDate today = Today();
        const bool counting =
            rule.HasCounter() && (!rule.DateFrom.isValid() || today >= rule.DateFrom);
        if (counting) {
            const QString qualifier = a.Integer(QStringLiteral("Flag")) != 0
                                          ? a.Text(QStringLiteral("Text")).trimmed()
                                          : QString();
            const QString scope = CounterScope(rule, a.Integer(QStringLiteral("UserID")),
                                               a.Text(QStringLiteral("OType")), today, qualifier);
            const ResultRecord drawn = DrawCounter(db, scope, rule.Minimal, &counter);
            if (!drawn.ok())
                return failed(drawn.Text);
        }
        rs->SetField(QStringLiteral("ANMask"), rule.Mask);
        rs->SetField(QStringLiteral("ANPrefix"), rule.Prefix);
        rs->SetField(QStringLiteral("ANTemplate"), rule.Template);
    }
    rs->SetField(QStringLiteral("AutoNumber"), Value(counter));
    rs->Update();
    return BOResult::Of(Value(finished(rs)));
}

} // namespace

QList<QPair<QString, QString>> GroupFormTypes() {
    return {
        {QStringLiteral("O0201500"), QStringLiteral("Finansinė operacija")},
        {QStringLiteral("O0201501"), QStringLiteral("Mokėjimo nurodymas")},
        {QStringLiteral("O0201502"), QStringLiteral("Pinigų gavimas")},
        {QStringLiteral("O0201503"), QStringLiteral("Kasos išlaidų orderis")},
        {QStringLiteral("O0201504"), QStringLiteral("Kasos pajamų orderis")},
        {QStringLiteral("O0201505"), QStringLiteral("Avanso apyskaita")},
        {QStringLiteral("O0201506"), QStringLiteral("Sąskaitų uždarymas")},
        {QStringLiteral("O0202000"), QStringLiteral("Kita finansinė operacija")},
        {QStringLiteral("O1000100"), QStringLiteral("Sutarties dokumentas")},
    };
}

ResultRecord RegisterGroupMethods(MethodRegistry& methods) {
    QVector<MethodDefinition> list;
    list << BookMethod(QStringLiteral("GetFormTypes"), {optionalText("Filter")}, formTypeFields(),
                       QStringLiteral("The document kinds of a group's operations, rows Name, OID; "
                                      "the plain financial operation first, as the default."),
                       [](MethodContext&, const MethodArguments&) { return formTypes(); });
    for (const char* name : {"GetMyFirmAccounts", "DO0201400_GetMyFirmAccounts"})
        list << BookMethod(
            QString::fromLatin1(name), {optionalText("Filter")}, firmAccountFields(),
            QStringLiteral("The own firm's bank accounts, the main one first: "
                           "AccountNumber, Name and OIDR of the bank, AccOIDR of the "
                           "account, Preview, MainAccountFlag."),
            [](MethodContext& ctx, const MethodArguments&) {
                return myFirmAccounts(*ctx.database);
            });
    list << BookMethod(
        QStringLiteral("DO0201400_GetAccountSettings"), {optionalText("AccountCode")},
        {TextField("Code", 10), TextField("CodeName", 255), TextField("Account", 30),
         TextField("AccountName", 255)},
        QStringLiteral("The account settings of a group's named set: the chart's "
                       "roles, with the Codes the set names replaced by its rows."),
        [](MethodContext& ctx, const MethodArguments& a) {
            return accountSettings(*ctx.database, a.Text(QStringLiteral("AccountCode")), QString(),
                                   false);
        });
    list << BookMethod(QStringLiteral("DO0201400_GetPresetAccounts"),
                       {optionalText("Code"), optionalText("AccountCode")},
                       {TextField("Code", 10), TextField("Account", 30), TextField("Name", 255)},
                       QStringLiteral("The account settings read by Code (PresetAccounts): rows "
                                      "Code, Account, Name; the book-wide ones without a set."),
                       [](MethodContext& ctx, const MethodArguments& a) {
                           return accountSettings(*ctx.database,
                                                  a.Text(QStringLiteral("AccountCode")),
                                                  a.Text(QStringLiteral("Code")), true);
                       });
    list << BookMethod(
        QStringLiteral("DO0201400_GetGroupNodes"),
        {optionalText("OID"), optionalText("From"), optionalText("To"),
         ParameterSpec::Optional(QStringLiteral("FirstRow"), ParameterKind::Integer, Value(0)),
         ParameterSpec::Optional(QStringLiteral("LastRow"), ParameterKind::Integer, Value(0))},
        listFields(),
        QStringLiteral("The groups under a group by name, then the group's operations "
                       "dated From..To (yyyy.mm.dd, empty for no bound) by date; FirstRow.."
                       "LastRow (1-based, 0 for no bound) keeps only those rows of that list."),
        [](MethodContext& ctx, const MethodArguments& a) {
            return groupNodes(*ctx.database, QStringLiteral("DO0201400_GetGroupNodes"),
                              a.Text(QStringLiteral("OID")), a.Text(QStringLiteral("From")),
                              a.Text(QStringLiteral("To")), a.Integer(QStringLiteral("FirstRow")),
                              a.Integer(QStringLiteral("LastRow")));
        });
    list << BookMethod(
        QStringLiteral("GetAutoNumber"),
        {ParameterSpec::Required(QStringLiteral("GroupID"), ParameterKind::Integer),
         ParameterSpec::Required(QStringLiteral("UserID"), ParameterKind::Integer),
         ParameterSpec::Required(QStringLiteral("OType"), ParameterKind::Text),
         ParameterSpec::Optional(QStringLiteral("Flag"), ParameterKind::Integer, Value(0)),
         optionalText("Text")},
        autoNumberFields(),
        QStringLiteral("The next counter of the group's numbering rule, drawn for good, with "
                       "the mask, prefix and template the number is built from; 0 without a "
                       "counter part, before ANDateFrom, or for an unknown group."),
        [](MethodContext& ctx, const MethodArguments& a) { return autoNumber(*ctx.database, a); });
    for (const MethodDefinition& m : list) {
        const ResultRecord r = methods.Register(m);
        if (!r.ok())
            return r;
    }
    for (const ResultRecord& r :
         {RegisterGroupDebtMethods(methods), RegisterDocumentTypeMethods(methods)})
        if (!r.ok())
            return r;
    return ResultRecord::Success();
}

} // namespace orvo::host
