#include "host/methods/account_settings.h"

#include "host/methods/method_helpers.h"
#include "host/storage/database.h"

#include <QMap>

namespace orvo::host {

namespace {

RecordsetPtr finished(const RecordsetPtr& rs) {
    rs->AcceptChanges();
    rs->MoveFirst();
    return rs;
}

} // namespace

QString SettingCodeArgument(const QString& text) {
    const QString t = text.trimmed();
    return t.compare(QLatin1String("None"), Qt::CaseInsensitive) == 0 ? QString() : t;
}

bool ReadAccountSettings(Database& db, const QString& accountCode, const QString& code,
                         QVector<AccountSettingRow>* rows, QString* error) {
    // Code -> rows, so that a named set can replace a Code's rows as a whole; a QMap
    // keeps the Codes ordered.
    QMap<QString, QVector<AccountSettingRow>> byCode;
    const QString wanted = SettingCodeArgument(code);

    const QueryResult chart = db.Query(
        QStringLiteral("SELECT s.Code, s.Name, a.Account, a.Name FROM Accounts a JOIN BRASettings "
                       "s ON s.ID = a.BRAPropertyID ORDER BY s.Code, a.Account"));
    if (!chart.ok()) {
        *error = chart.Text;
        return false;
    }
    for (int i = 0; i < chart.RowCount(); ++i)
        byCode[chart.At(i, 0).toString()].append(
            {chart.At(i, 0).toString(), chart.At(i, 1).toString(), chart.At(i, 2).toString(),
             chart.At(i, 3).toString()});

    const QString set = SettingCodeArgument(accountCode);
    if (!set.isEmpty()) {
        const QueryResult named = db.Query(
            QStringLiteral(
                "SELECT st.Code, st.CodeName, st.Account, a.Name, r.Name FROM AccountSettings st "
                "LEFT JOIN Accounts a ON a.Account = st.Account LEFT JOIN BRASettings r ON "
                "r.Code = st.Code WHERE st.AccountCode = ? ORDER BY st.Code, st.Account, st.ID"),
            {Value(set)});
        if (!named.ok()) {
            *error = named.Text;
            return false;
        }
        QMap<QString, QVector<AccountSettingRow>> replaced;
        for (int i = 0; i < named.RowCount(); ++i) {
            const QString c = named.At(i, 0).toString().trimmed();
            QVector<AccountSettingRow>& list = replaced[c];
            const QString account = named.At(i, 2).toString().trimmed();
            if (account.isEmpty())
                continue;
            QString codeName = named.At(i, 1).toString();
            if (codeName.trimmed().isEmpty())
                codeName = named.At(i, 4).toString();
            list.append({c, codeName, account, named.At(i, 3).toString()});
        }
        for (auto it = replaced.cbegin(); it != replaced.cend(); ++it)
            byCode[it.key()] = it.value();
    }

    rows->clear();
    for (auto it = byCode.cbegin(); it != byCode.cend(); ++it) {
        if (!wanted.isEmpty() && it.key() != wanted)
            continue;
        for (const AccountSettingRow& r : it.value())
            if (!r.Account.trimmed().isEmpty())
                rows->append(r);
    }
    return true;
}

RecordsetPtr AccountSettingsRecordset(const QVector<AccountSettingRow>& rows) {
    auto rs = Recordset::Create({TextField("Code", 10), TextField("CodeName", 255),
                                 TextField("Account", 30), TextField("AccountName", 255)});
    for (const AccountSettingRow& r : rows) {
        rs->AddNew();
        rs->SetField(0, r.Code);
        rs->SetField(1, r.CodeName);
        rs->SetField(2, r.Account);
        rs->SetField(3, r.AccountName);
        rs->Update();
    }
    return finished(rs);
}

RecordsetPtr PresetAccountsRecordset(const QVector<AccountSettingRow>& rows) {
    auto rs = Recordset::Create(
        {TextField("Code", 10), TextField("Account", 30), TextField("Name", 255)});
    for (const AccountSettingRow& r : rows) {
        rs->AddNew();
        rs->SetField(0, r.Code);
        rs->SetField(1, r.Account);
        rs->SetField(2, r.AccountName);
        rs->Update();
    }
    return finished(rs);
}

} // namespace orvo::host
