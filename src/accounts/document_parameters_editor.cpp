#include "accounts/document_parameters_editor.h"

#include "core/null_readers.h"
#include "core/recordset.h"
#include "frame/catalogue_rights_forms.h"
#include "frame/orvo_s.h"
#include "frame/orvo_services.h"
#include "frame/pickers.h"

namespace orvo {

namespace {

const QString kTemplateCode = QStringLiteral("O0201600");

qint64 idOf(const Value& v) {
    return v.isNull() ? 0 : static_cast<qint64>(v.toDouble());
}

RecordsetPtr rows(const OrvoObjectUIOPtr& group, const QString& method) {
    const BusinessObjectPtr bo = group ? group->BO() : nullptr;
    if (!bo)
        return nullptr;
    const BOResult r = bo->Call(method, QStringLiteral("None"));
    return r.ok() ? r.Data.toRecordset() : nullptr;
}

} // namespace

DocumentParametersEditor::DocumentParametersEditor(OrvoObjectUIOPtr group)
    : group_(std::move(group)) {}

ResultRecord DocumentParametersEditor::Load() {
    if (!group_ || !group_->RsFields())
        return ResultRecord::Failure(1, QStringLiteral("Grupė neperskaityta."));
    types_.clear();
    if (const RecordsetPtr rs = rows(group_, QStringLiteral("DO0001602_GetDocumentTypes")))
        for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext())
            types_.append({NzString(rs->Field(QStringLiteral("Code"))).trimmed(),
                           NzString(rs->Field(QStringLiteral("Name")))});
    types_.append({ReturnFromBuyerKey(), ReturnFromBuyerText()});

    const QString stored = NzString(group_->Field(QStringLiteral("Parameters")));
    const QStringList pairs =
        stored.section(QLatin1Char('|'), 0, 0).split(QLatin1Char('#'), Qt::SkipEmptyParts);
    chosen_.clear();
    chosenText_.clear();
    for (int i = 0; i + 1 < pairs.size(); i += 2) {
        const qint64 type = pairs.at(i).trimmed().toLongLong();
        const qint64 chosenTemplate = pairs.at(i + 1).trimmed().toLongLong();
        if (type > 0 && chosenTemplate > 0) {
            chosen_.insert(type, chosenTemplate);
            chosenText_.insert(type, templateName(chosenTemplate));
        }
    }

    QString key;
    const qint64 groupId = idOf(group_->Field(QStringLiteral("ID")));
    if (group_->OIDR().size() > 8 && groupId > 0) {
        const ValueResult related = group_->Properties(QStringLiteral("RelatedDocumentGroup"),
                                                       QStringLiteral("'%1'").arg(groupId));
        const RecordsetPtr rs = related.ok() ? related.Value.toRecordset() : nullptr;
        if (rs && rs->RecordCount() > 0) {
            rs->MoveFirst();
            key = NzString(rs->Field(QStringLiteral("Code"))).trimmed();
        } else if (stored.contains(QLatin1Char('|'))) {
            key = stored.section(QLatin1Char('|'), 1).trimmed();
        }
    }
    int index = 0;
    for (int i = 0; i < types_.size(); ++i)
        if (!key.isEmpty() && types_.at(i).Code == key)
            index = i;
    SelectDocumentType(index);
    return ResultRecord::Success();
}

QString DocumentParametersEditor::templateName(qint64 id) const {
    if (id <= 0)
        return QString();
    const OrvoObjectUIOPtr t = Catalogue::GetUIOByOIDR(kTemplateCode + QString::number(id));
    return t ? NzString(t->Field(QStringLiteral("Name"))) : QString::number(id);
}

void DocumentParametersEditor::SelectDocumentType(int index) {
    if (index < 0 || index >= types_.size())
        return;
    typeIndex_ = index;
    fillRows();
}

void DocumentParametersEditor::fillRows() {
    rows_.clear();
    const RecordsetPtr rs = rows(group_, QStringLiteral("DO0001612_GetTemplateTypes"));
    if (!rs)
        return;
    const QString key = types_.value(typeIndex_).Code;
    if (!rs->SetFilter(QStringLiteral("DocumentTypeCodes like '%") + key + QStringLiteral("%'"))
             .ok())
        return;
    for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
        Row row;
        row.TypeID = idOf(rs->Field(QStringLiteral("ID")));
        row.TypeText = NzString(rs->Field(QStringLiteral("Preview")));
        row.TemplateID = chosen_.value(row.TypeID);
        row.TemplateText = chosenText_.value(row.TypeID);
        rows_.append(row);
    }
}

bool DocumentParametersEditor::Select(int row) {
    if (row < 0 || row >= rows_.size())
        return false;
    const OrvoServicesPtr s = OrvoS();
    const PickersPtr pickers = s ? s->PickersService() : nullptr;
    if (!pickers)
        return false;
    const QString picked =
        pickers->PickObject(kTemplateCode, QStringLiteral("Pasirinkite šabloną..."), QString(),
                            QStringLiteral("GroupFlag = 0"));
    const QString oidr = picked.section(QLatin1Char('_'), 0, 0);
    if (!oidr.startsWith(kTemplateCode) || oidr.size() <= kTemplateCode.size())
        return false;
    const qint64 id = oidr.mid(kTemplateCode.size()).toLongLong();
    if (id <= 0)
        return false;
    Row& r = rows_[row];
    r.TemplateID = id;
    r.TemplateText = picked.section(QLatin1Char('_'), 1);
    chosen_.insert(r.TypeID, id);
    chosenText_.insert(r.TypeID, r.TemplateText);
    return true;
}

bool DocumentParametersEditor::Delete(int row) {
    if (row < 0 || row >= rows_.size() || rows_.at(row).TemplateID == 0)
        return false;
    Row& r = rows_[row];
    r.TemplateID = 0;
    r.TemplateText.clear();
    chosen_.remove(r.TypeID);
    chosenText_.remove(r.TypeID);
    return true;
}

QString DocumentParametersEditor::Text() const {
    QStringList values;
    for (const Row& r : rows_)
        if (r.TemplateID > 0)
            values << QString::number(r.TypeID) << QString::number(r.TemplateID);
    return values.join(QLatin1Char('#')) + QStringLiteral("|") + types_.value(typeIndex_).Code;
}

void DocumentParametersEditor::Write() {
    group_->SetField(QStringLiteral("Parameters"), Text());
}

} // namespace orvo
