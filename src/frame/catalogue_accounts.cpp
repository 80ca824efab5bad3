#include "frame/catalogue_accounts.h"

#include "core/null_readers.h"
#include "core/number_text.h"
#include "frame/catalogue_data_access.h"
#include "frame/catalogue_recordsets.h"
#include "frame/messages.h"
#include "frame/methods_convention.h"

namespace orvo::Catalogue {

namespace {

QString quoted(const QString& text) {
    return QStringLiteral("'") + text + QStringLiteral("'");
}

RecordsetPtr presetAccounts(const OrvoObjectUIOPtr& caller) {
    const OrvoObjectUIOPtr group = GetGroupUIO(caller);
    if (!group)
        return nullptr;
    const ValueResult r = group->Properties(QStringLiteral("PresetAccounts"), QString());
    return r.ok() ? r.Value.toRecordset() : nullptr;
}

} // namespace

DictionaryPtr AccountList(const OrvoObjectUIOPtr& caller) {
    if (const OrvoObjectUIOPtr op = GetOperationUIO(caller)) {
        const ValueResult r = op->Properties(QStringLiteral("AccountList"), QString());
        if (r.ok())
            if (DictionaryPtr map = r.Value.toDictionary())
                return map;
    }
    return Dictionary::Create();
}

QString MyMainAccount(const OrvoObjectUIOPtr& caller) {
    const OrvoObjectUIOPtr op = GetOperationUIO(caller);
    if (!op)
        return QString();
    const ValueResult r = op->Properties(QStringLiteral("MyFirmAccounts"), QString());
    const RecordsetPtr rs = r.ok() ? r.Value.toRecordset() : nullptr;
    if (!TryFilter(rs, QStringLiteral("MainAccountFlag <> 0")))
        return QString();
    return NzString(rs->Field(QStringLiteral("AccOIDR")));
}

QString AccountName(const OrvoObjectUIOPtr& caller, const QString& account) {
    if (account.isEmpty())
        return QString();
    RecordsetPtr rs;
    if (const OrvoObjectUIOPtr op = GetOperationUIO(caller)) {
        const ValueResult r = op->Properties(QStringLiteral("Account"), quoted(account));
        if (r.ok())
            rs = r.Value.toRecordset();
    }
    if (rs && rs->RecordCount() > 0) {
        rs->MoveFirst();
        return account + QStringLiteral(" ") + NzString(rs->Field(QStringLiteral("Name")));
    }
    ShowWarning(account + MethodsConvention::LineBreak() +
                QStringLiteral("Klaidinga balansinės sąskaitos reikšmė!"));
    return QString();
}

DictionaryPtr PresetAccountsByCode(const OrvoObjectUIOPtr& caller, const QString& code) {
    DictionaryPtr map = Dictionary::Create();
    const RecordsetPtr rs = presetAccounts(caller);
    if (!rs)
        return map;
    for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
        if (NzString(rs->Field(QStringLiteral("Code"))) != code)
            continue;
        map->Add(NzString(rs->Field(QStringLiteral("Account"))), rs->Field(QStringLiteral("Name")));
    }
    return map;
}

DictionaryPtr PresetAccountCodes(const OrvoObjectUIOPtr& caller) {
    DictionaryPtr map = Dictionary::Create();
    const RecordsetPtr rs = presetAccounts(caller);
    if (!rs)
        return map;
    for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext())
        map->Add(NzString(rs->Field(QStringLiteral("Code"))), rs->Field(QStringLiteral("Account")));
    return map;
}

bool CheckAccountInList(ComboControl& combo, const DictionaryPtr& map, bool quiet, bool denyZero) {
    const QString word = FirstWord(combo.Text());
    if (map && map->Exists(word) && (word != QLatin1String("0") || !denyZero)) {
        combo.SetText(word + QStringLiteral(" ") + map->Item(word).toString());
        return true;
    }
    if (!quiet) {
        if (combo.Text().trimmed().isEmpty())
            ShowWarning(QStringLiteral("Nenurodyta  balansinė sąskaita !"));
        else
            ShowWarning(QStringLiteral("Klaidinga  balansinės sąskaitos reikšmė !"));
    }
    return false;
}

void FillAccountCombo(ComboControl& combo, DictionaryPtr& map, const QString& selected) {
    combo.Clear();
    if (!map || map->Count() == 0) {
        map = Dictionary::Create();
        return;
    }
    const QString wanted = FirstWord(selected);
    int chosen = -1;
    const QStringList& keys = map->Keys();
    for (int i = 0; i < keys.size(); ++i) {
        combo.AddItem(keys.at(i) + QStringLiteral(" ") + map->Item(keys.at(i)).toString());
        if (chosen < 0 && !wanted.isEmpty() && keys.at(i) == wanted)
            chosen = i;
    }
    if (chosen >= 0)
        combo.SetListIndex(chosen);
}

} // namespace orvo::Catalogue
