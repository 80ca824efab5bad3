#include "accounts/template_entry_editor.h"

#include "accounts/template_rules.h"
#include "core/number_text.h"
#include "core/recordset.h"

namespace orvo {

namespace {

QString sideFilter(const QString& guid, const QString& foid, int sign) {
    return QStringLiteral("BRTemplateAccGUID = '%1' AND FOID = '%2' AND Sign = %3")
        .arg(guid, foid, QString::number(sign));
}

} // namespace

QString TemplateEntryEditor::AddresseeKind::Shown() const {
    if (FixedFOIDR.isEmpty())
        return Name;
    return Name + QStringLiteral(" [") + FixedText + QStringLiteral("]");
}

TemplateEntryEditor::TemplateEntryEditor(OrvoObjectUIOPtr templateObject, QString entryGuid)
    : object_(std::move(templateObject)), guid_(std::move(entryGuid)) {}

RecordsetPtr TemplateEntryEditor::nested(const char* name) const {
    return object_ ? object_->Field(QString::fromLatin1(name)).toRecordset() : nullptr;
}

QString TemplateEntryEditor::AccountOf(const QString& comboText) {
    return FirstWord(comboText);
}

QString TemplateEntryEditor::ItemOf(const QString& account) const {
    const QString a = account.trimmed();
    for (const QString& item : items_)
        if (FirstWord(item) == a)
            return item;
    return a;
}

ResultRecord TemplateEntryEditor::Load() {
    if (!object_)
        return ResultRecord::Failure(1, QStringLiteral("Šablonas neperskaitytas."));
    items_.clear();
    const ValueResult list = object_->Properties(QStringLiteral("AccountList"), QString());
    if (const RecordsetPtr accounts = list.ok() ? list.Value.toRecordset() : nullptr)
        for (accounts->MoveFirst(); !accounts->Eof(); accounts->MoveNext())
            items_ << accounts->Field(QStringLiteral("Account")).toString() + QLatin1Char(' ') +
                          accounts->Field(QStringLiteral("Name")).toString();
    AccountDText.clear();
    AccountCText.clear();
    FactorText = QStringLiteral("1");
    if (!IsNew()) {
        const RecordsetPtr acc = nested("BRTemplateAcc");
        if (!acc)
            return ResultRecord::Failure(1, QStringLiteral("Šablono įrašų nėra."));
        const QString kept = acc->Filter();
        acc->SetFilter(QStringLiteral("GUID = '%1'").arg(guid_));
        if (acc->RecordCount() > 0) {
            acc->MoveFirst();
            AccountDText = ItemOf(acc->Field(QStringLiteral("AccountD")).toString());
            AccountCText = ItemOf(acc->Field(QStringLiteral("AccountC")).toString());
            const Value f = acc->Field(QStringLiteral("Factor"));
            FactorText = f.isNull() ? QStringLiteral("1")
                                    : QString::number(f.toDouble(), 'g', 12)
                                          .replace(QLatin1Char('.'), QLatin1Char(','));
        }
        acc->SetFilter(kept);
    }
    const ResultRecord d = LoadKinds(1, AccountDText);
    const ResultRecord c = LoadKinds(-1, AccountCText);
    return d.ok() ? c : d;
}

ResultRecord TemplateEntryEditor::LoadKinds(int sign, const QString& comboText) {
    QVector<AddresseeKind>& kinds = Kinds(sign);
    kinds.clear();
    const QString account = AccountOf(comboText);
    if (account.isEmpty() || !object_)
        return ResultRecord::Success();
    const ValueResult r =
        object_->Properties(QStringLiteral("EnabledAddressee"),
                            QStringLiteral("'%1',%2").arg(account, QString::number(sign)));
    if (!r.ok())
        return ResultRecord::Failure(r.Code, r.Text);
    const RecordsetPtr rows = r.Value.toRecordset();
    const RecordsetPtr addr = nested("BRTemplateAddr");
    for (rows && (rows->MoveFirst(), true); rows && !rows->Eof(); rows->MoveNext()) {
        AddresseeKind k;
        k.FOID = rows->Field(QStringLiteral("FOID")).toString().trimmed();
        k.Name = rows->Field(QStringLiteral("Name")).toString();
        if (addr && !guid_.isEmpty()) {
            const QString kept = addr->Filter();
            addr->SetFilter(sideFilter(guid_, k.FOID, sign));
            if (addr->RecordCount() > 0) {
                addr->MoveFirst();
                k.Checked = true;
                k.FixedFOIDR = addr->Field(QStringLiteral("FOIDR")).toString();
                k.FixedText = k.FixedFOIDR;
            }
            addr->SetFilter(kept);
        }
        kinds.append(k);
    }
    return ResultRecord::Success();
}

void TemplateEntryEditor::SetFixed(int sign, int index, const QString& picked) {
    QVector<AddresseeKind>& kinds = Kinds(sign);
    if (index < 0 || index >= kinds.size() || picked.isEmpty())
        return;
    const int cut = picked.indexOf(QLatin1Char('_'));
    kinds[index].FixedFOIDR = cut < 0 ? picked : picked.left(cut);
    kinds[index].FixedText = cut < 0 ? picked : picked.mid(cut + 1);
    kinds[index].Checked = true;
}

ResultRecord TemplateEntryEditor::Write() {
    const RecordsetPtr acc = nested("BRTemplateAcc");
    const RecordsetPtr addr = nested("BRTemplateAddr");
    if (!acc || !addr)
        return ResultRecord::Failure(1, QStringLiteral("Šablono įrašų nėra."));
    const QString kept = acc->Filter();
    if (IsNew()) {
        guid_ = object_->GetGUID();
        acc->SetFilter(QString());
        acc->AddNew();
        acc->SetField(QStringLiteral("GUID"), guid_);
        acc->SetField(QStringLiteral("BRTemplateGUID"), object_->Field(QStringLiteral("GUID")));
    } else {
        acc->SetFilter(QStringLiteral("GUID = '%1'").arg(guid_));
        if (acc->RecordCount() == 0) {
            acc->SetFilter(kept);
            return ResultRecord::Failure(1, QStringLiteral("Šablono įrašas nerastas."));
        }
        acc->MoveFirst();
    }
    acc->SetField(QStringLiteral("AccountD"), AccountOf(AccountDText));
    acc->SetField(QStringLiteral("AccountC"), AccountOf(AccountCText));
    FactorText = TemplateFactorText(FactorText);
    acc->SetField(QStringLiteral("Factor"), Value(TemplateFactorValue(FactorText)));
    acc->Update();
    acc->SetFilter(kept);

    const QString keptAddr = addr->Filter();
    for (int sign : {1, -1}) {
        for (const AddresseeKind& k : Kinds(sign)) {
            addr->SetFilter(sideFilter(guid_, k.FOID, sign));
            if (k.Checked) {
                if (addr->RecordCount() == 0) {
                    addr->AddNew();
                    addr->SetField(QStringLiteral("BRTemplateAccGUID"), guid_);
                    addr->SetField(QStringLiteral("FOID"), k.FOID);
                    addr->SetField(QStringLiteral("Sign"), Value(qint16(sign)));
                } else {
                    addr->MoveFirst();
                }
                addr->SetField(QStringLiteral("FOIDR"), k.FixedFOIDR);
                addr->Update();
            } else {
                while (addr->RecordCount() > 0) {
                    addr->MoveFirst();
                    if (!addr->Delete())
                        break;
                }
            }
        }
    }
    addr->SetFilter(keptAddr);
    return ResultRecord::Success();
}

} // namespace orvo
