#include "accounts/template_choice.h"

#include "core/number_text.h"
#include "frame/messages.h"
#include "frame/orvo_objects_service.h"
#include "frame/orvo_s.h"
#include "frame/orvo_services.h"

namespace orvo {

namespace {

const QString kTemplateCode = QStringLiteral("O0201600");

qint64 idOf(const Value& v) {
    return v.isNull() ? 0 : static_cast<qint64>(v.toDouble());
}

OrvoObjectsServicePtr objects() {
    const OrvoServicesPtr s = OrvoS();
    return s ? s->ObjectsService() : nullptr;
}

} // namespace

QString TemplateChoice::Caption(bool hasGroup) {
    return hasGroup ? QStringLiteral("Grupės operacijų šablonai :")
                    : QStringLiteral(" Operacijos šablonai");
}

ResultRecord TemplateChoice::Load(const OrvoObjectUIOPtr& operation) {
    groupId_ = 0;
    presetId_ = 0;
    qint64 templateGroup = 0;
    const OrvoObjectsServicePtr service = objects();
    if (operation && service) {
        groupId_ = idOf(operation->Field(QStringLiteral("BROperGroupID")));
        if (groupId_ > 0) {
            if (const OrvoObjectUIOPtr group =
                    service->GetObjectUIO(QStringLiteral("O0201400") + QString::number(groupId_))) {
                templateGroup = idOf(group->Field(QStringLiteral("BRTemplateID")));
                presetId_ = idOf(group->Field(QStringLiteral("DefaultTemplateID")));
                if (presetId_ == 0)
                    presetId_ = templateGroup;
            } else {
                groupId_ = 0;
            }
        }
    }
    const OrvoObjectUIOPtr templates = service ? service->GetObjectUIO(kTemplateCode) : nullptr;
    if (!templates)
        return ResultRecord::Failure(1, QStringLiteral("Šablonų sąrašas negautas."));
    const ValueResult list = templates->Properties(
        QStringLiteral("TemplateList"),
        QStringLiteral("'") + (templateGroup > 0 ? QString::number(templateGroup) : QString()) +
            QStringLiteral("'"));
    if (!list.ok())
        return ResultRecord::Failure(list.Code, list.Text);
    rows_ = list.Value.toRecordset();
    return ResultRecord::Success();
}

bool TemplateChoice::IsTemplate(qint64 id) const {
    if (!rows_ || id <= 0)
        return false;
    for (rows_->MoveFirst(); !rows_->Eof(); rows_->MoveNext())
        if (idOf(rows_->Field(QStringLiteral("ID"))) == id)
            return rows_->Field(QStringLiteral("GroupFlag")).toInt32() == 0;
    return false;
}

QString TemplateChoice::SelectedText(qint64 id) const {
    if (!rows_)
        return QString();
    for (rows_->MoveFirst(); !rows_->Eof(); rows_->MoveNext())
        if (idOf(rows_->Field(QStringLiteral("ID"))) == id)
            return rows_->Field(QStringLiteral("Preview")).toString();
    return QString();
}

bool TemplateChoice::Accept(qint64 selectedId, const QString& sumText) {
    bool numeric = false;
    const double sum = NumberFromText(sumText, &numeric);
    if (!numeric) {
        ShowWarning(BadSumText());
        return false;
    }
    // A group or nothing chosen: there is nothing to answer with yet.
    if (!IsTemplate(selectedId))
        return false;
    result_.Chosen = true;
    result_.TemplateID = selectedId;
    result_.TemplateOID = kTemplateCode + QString::number(selectedId);
    result_.Sum = sum;
    return true;
}

} // namespace orvo
