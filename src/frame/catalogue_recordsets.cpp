#include "frame/catalogue_recordsets.h"

#include "core/null_readers.h"

namespace orvo::Catalogue {

namespace {

// Restores a recordset's current row when it goes out of scope.
class PositionKeeper {
public:
    explicit PositionKeeper(const RecordsetPtr& rs) : rs_(rs), bookmark_(rs->Bookmark()) {}
    ~PositionKeeper() {
        if (bookmark_ >= 0)
            rs_->SetBookmark(bookmark_);
    }
    PositionKeeper(const PositionKeeper&) = delete;
    PositionKeeper& operator=(const PositionKeeper&) = delete;

private:
    RecordsetPtr rs_;
    qint64 bookmark_;
};

FieldDefs cloneDefs(const FieldDefs& source) {
    FieldDefs out;
    out.reserve(source.size());
    for (FieldDef def : source) {
        if (def.type == FieldType::Numeric) {
            def.type = FieldType::Decimal;
            def.precision = 9;
        } else if (def.type == FieldType::Chapter && def.children) {
            def.children = std::make_shared<const FieldDefs>(cloneDefs(*def.children));
        }
        out.append(def);
    }
    return out;
}

} // namespace

bool TryFilter(const RecordsetPtr& rs, const QString& filterText) {
    if (!rs)
        return false;
    if (rs->SetFilter(filterText).ok() && rs->RecordCount() > 0)
        return true;
    rs->SetFilter(QString());
    return false;
}

void DeleteUnsavedRows(const RecordsetPtr& rs) {
    if (!rs)
        return;
    for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext())
        if (NzString(rs->Field(QStringLiteral("ID"))).isEmpty())
            rs->Delete();
}

RecordsetPtr CloneRecordset(const RecordsetPtr& rs) {
    if (!rs)
        return nullptr;
    const FieldDefs& defs = rs->FieldDefinitions();
    RecordsetPtr copy = Recordset::Create(cloneDefs(defs));
    {
        PositionKeeper keep(rs);
        for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
            copy->AddNew();
            for (int i = 0; i < defs.size(); ++i) {
                const Value v = rs->Field(i);
                if (defs.at(i).type == FieldType::Chapter) {
                    if (const RecordsetPtr nested = v.toRecordset())
                        copy->SetField(i, Value(CloneRecordset(nested)));
                } else if (!v.isNull()) {
                    copy->SetField(i, v);
                }
            }
            copy->Update();
        }
    }
    copy->AcceptChanges();
    if (copy->RecordCount() > 0)
        copy->MoveFirst();
    return copy;
}

void ForEachFieldCopy(const RecordsetPtr& source, const RecordsetPtr& target) {
    if (!source || !target)
        return;
    const FieldDefs& defs = source->FieldDefinitions();
    {
        PositionKeeper keep(source);
        for (source->MoveFirst(); !source->Eof(); source->MoveNext()) {
            target->AddNew();
            for (int i = 0; i < defs.size(); ++i) {
                const QString& name = defs.at(i).name;
                if (!target->HasField(name))
                    continue;
                const Value v = source->Field(i);
                if (defs.at(i).type == FieldType::Chapter) {
                    ForEachFieldCopy(v.toRecordset(), target->Field(name).toRecordset());
                } else if (!v.isNull() && name.toUpper() != QLatin1String("ID")) {
                    target->SetField(name, v);
                }
            }
            target->Update();
        }
    }
    if (target->RecordCount() > 0)
        target->MoveFirst();
}

} // namespace orvo::Catalogue
