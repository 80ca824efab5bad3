#include "host/catalogues/user_editor.h"

#include "core/recordset.h"
#include "frame/component_right.h"
#include "host/catalogues/catalogue_kinds.h"
#include "host/catalogues/user_kind.h"

namespace orvo::host {

const QStringList& UserEditor::FlagNames() {
    static const QStringList names = {QStringLiteral("ReadFlag"), QStringLiteral("DeleteFlag"),
                                      QStringLiteral("EditFlag"), QStringLiteral("CreateFlag"),
                                      QStringLiteral("FifthFlag")};
    return names;
}

bool UserEditor::TakesFlag(qint32 kind, const QString& flag) {
    if (kind == ComponentRight::Header)
        return false;
    if (kind == ComponentRight::OnOff)
        return flag == QLatin1String("ReadFlag");
    return FlagNames().contains(flag);
}

RecordsetPtr UserEditor::Rights() const {
    return object_ ? object_->Field(QStringLiteral("Rights")).toRecordset() : nullptr;
}

bool UserEditor::findRight(const QString& key) const {
    const RecordsetPtr rights = Rights();
    if (!rights)
        return false;
    for (rights->MoveFirst(); !rights->Eof(); rights->MoveNext())
        if (rights->Field(QStringLiteral("RightKey")).toString() == key)
            return true;
    return false;
}

bool UserEditor::RightFlag(const QString& key, const QString& flag) const {
    if (!findRight(key))
        return false;
    const Value v = Rights()->Field(flag);
    return !v.isNull() && v.toBool();
}

bool UserEditor::SetRightFlag(const QString& key, const QString& flag, bool on) {
    if (!findRight(key))
        return false;
    const RecordsetPtr rights = Rights();
    if (!TakesFlag(rights->Field(QStringLiteral("Kind")).toInt32(), flag))
        return false;
    const Value v = rights->Field(flag);
    if (!v.isNull() && v.toBool() == on)
        return true;
    rights->SetField(flag, Value(on));
    rights->Update();
    MarkChanged();
    return true;
}

QVector<CatalogueChoice> UserEditor::Choices(const QString& name) const {
    return name == QLatin1String("EmployeeID") ? employees_ : QVector<CatalogueChoice>{};
}

void UserEditor::afterLoad() {
    employees_ = recordChoices(kinds::Employee);
    const BusinessObjectPtr bo = object_ ? object_->BO() : nullptr;
    if (!bo)
        return;

    // The rights are read beside the record and become its nested rows, unchanged, so
    // that a save writes only what the user changes.
    const RecordsetPtr rights = Rights();
    if (!rights)
        return;
    const QString oidr = IsNew() ? QString() : object_->OIDR();
    const BOResult held = bo->Call(QStringLiteral("DO0000900_GetUserRights"),
                                   QStringLiteral("'") + oidr + QStringLiteral("'"));
    const RecordsetPtr rows = held.ok() ? held.Data.toRecordset() : nullptr;
    for (rights->MoveFirst(); !rights->Eof(); rights->MoveNext())
        rights->Delete();
    if (rows)
        for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext()) {
            rights->AddNew();
            for (const FieldDef& f : UserRightFields())
                rights->SetField(f.name, rows->Field(f.name));
            rights->Update();
        }
    rights->AcceptChanges();
    rights->MoveFirst();
}

} // namespace orvo::host
