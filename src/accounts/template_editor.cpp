#include "accounts/template_editor.h"

#include "frame/messages.h"

namespace orvo {

namespace {

const QString kTemplateCode = QStringLiteral("O0201600");

qint64 idOf(const Value& v) {
    return v.isNull() ? 0 : static_cast<qint64>(v.toDouble());
}

} // namespace

TemplateEditor::TemplateEditor(OrvoObjectUIOPtr templateObject)
    : object_(std::move(templateObject)) {}

bool TemplateEditor::IsNew() const {
    return !object_ || object_->OIDR().size() <= kTemplateCode.size();
}

ResultRecord TemplateEditor::Load() {
    if (!object_ || !object_->RsFields())
        return ResultRecord::Failure(1, QStringLiteral("Šablonas neperskaitytas."));
    isGroup_ = object_->Field(QStringLiteral("GroupFlag")).toBool();
    Name = object_->Field(QStringLiteral("Name")).toString();
    Comment = object_->Field(QStringLiteral("Comment")).toString();
    GroupText.clear();
    const ValueResult parent = object_->Properties(QStringLiteral("Parent"), QString());
    if (parent.ok())
        if (const auto group = std::dynamic_pointer_cast<OrvoObjectUIO>(parent.Value.toObject()))
            GroupText = group->Field(QStringLiteral("Name")).toString();
    // The account list is read now, so that the entries' names are at hand.
    object_->Properties(QStringLiteral("AccountList"), QString());
    changed_ = false;
    return ResultRecord::Success();
}

RecordsetPtr TemplateEditor::Rows() const {
    const ValueResult r = object_->Properties(QStringLiteral("TemplateRows"), QString());
    return r.ok() ? r.Value.toRecordset() : nullptr;
}

bool TemplateEditor::DeleteEntry(const QString& guid) {
    const RecordsetPtr acc = object_->Field(QStringLiteral("BRTemplateAcc")).toRecordset();
    const RecordsetPtr addr = object_->Field(QStringLiteral("BRTemplateAddr")).toRecordset();
    if (!acc || guid.isEmpty())
        return false;
    const QString kept = acc->Filter();
    acc->SetFilter(QStringLiteral("GUID = '%1'").arg(guid));
    bool removed = false;
    while (acc->RecordCount() > 0) {
        acc->MoveFirst();
        if (!acc->Delete())
            break;
        removed = true;
    }
    acc->SetFilter(kept);
    if (addr) {
        const QString keptAddr = addr->Filter();
        addr->SetFilter(QStringLiteral("BRTemplateAccGUID = '%1'").arg(guid));
        while (addr->RecordCount() > 0) {
            addr->MoveFirst();
            if (!addr->Delete())
                break;
        }
        addr->SetFilter(keptAddr);
    }
    if (removed)
        changed_ = true;
    return removed;
}

bool TemplateEditor::TakeGroup(const QString& picked) {
    const QString oidr = picked.section(QLatin1Char('_'), 0, 0);
    if (!oidr.startsWith(kTemplateCode) || oidr.size() <= kTemplateCode.size())
        return false;
    const qint64 id = oidr.mid(kTemplateCode.size()).toLongLong();
    // A record is never its own group.
    if (id <= 0 || id == idOf(object_->Field(QStringLiteral("ID"))))
        return false;
    object_->SetField(QStringLiteral("ParentID"), Value(double(id)));
    GroupText = picked.section(QLatin1Char('_'), 1);
    changed_ = true;
    return true;
}

ResultRecord TemplateEditor::Save() {
    object_->SetField(QStringLiteral("Name"), Name.trimmed());
    object_->SetField(QStringLiteral("Comment"), Comment);
    const ResultRecord r = object_->Save();
    if (!r.ok()) {
        ShowError(r.Text + QStringLiteral("\n") + QStringLiteral("Įrašymas neatliktas !"));
        return r;
    }
    changed_ = false;
    return r;
}

ResultRecord TemplateEditor::Undo() {
    const Value parent = object_->Field(QStringLiteral("ParentID"));
    const Value group = object_->Field(QStringLiteral("GroupFlag"));
    const bool fresh = IsNew();
    const ResultRecord r = object_->Read();
    if (!r.ok())
        return r;
    if (fresh) {
        object_->SetField(QStringLiteral("ParentID"), parent);
        object_->SetField(QStringLiteral("GroupFlag"), group);
    }
    return Load();
}

} // namespace orvo
