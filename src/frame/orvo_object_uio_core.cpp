#include "frame/orvo_object_uio_core.h"

#include "frame/methods_convention.h"
#include "frame/orvo_object_ui.h"

#include <QUuid>

namespace orvo {

namespace {

QString quoted(const QString& text) {
    return QStringLiteral("'") + text + QStringLiteral("'");
}

ResultRecord noBusinessObject(const QString& method) {
    return ResultRecord::Failure(codes::RefusedNoWarning,
                                 method + QStringLiteral(": knyga neatidaryta."));
}

} // namespace

OrvoObjectUIOCore::OrvoObjectUIOCore(const QString& code, const QString& title)
    : code_(code), title_(title), oid_(code), otype_(code) {}

QString OrvoObjectUIOCore::MethodName(const QString& code, const QString& verb) {
    return QStringLiteral("D") + code + QStringLiteral("_") + verb;
}

QString OrvoObjectUIOCore::NewGUID() {
    return QUuid::createUuid().toString(QUuid::WithBraces).toUpper();
}

QString OrvoObjectUIOCore::OName() const {
    if (rs_) {
        for (const char* field : {"OName", "Name"}) {
            const QString name = QString::fromLatin1(field);
            if (rs_->HasField(name)) {
                const QString v = rs_->Field(name).toString();
                if (!v.isEmpty())
                    return v;
            }
        }
    }
    return title_;
}

ResultRecord OrvoObjectUIOCore::SetRsFields(const RecordsetPtr& rs) {
    if (!rs)
        return ResultRecord::Failure(codes::Refused,
                                     MethodsConvention::WrongParametersText("SetRsFields"));
    rs_ = rs;
    return ResultRecord::Success();
}

ValueResult OrvoObjectUIOCore::Methods(const QString& name, const ValueArray& parameters) {
    if (name == QLatin1String("SetRsFields")) {
        if (!MethodsConvention::CountIs(parameters, 1) || !parameters.at(0).toRecordset())
            return MethodsConvention::WrongParameters(name);
        const ResultRecord r = SetRsFields(parameters.at(0).toRecordset());
        return {r.Code, r.Text, Value(r.ok())};
    }
    return MethodsConvention::UnknownCommand(name);
}

void OrvoObjectUIOCore::SetUI(const std::shared_ptr<OrvoObjectUI>& ui) {
    ui_ = ui;
    if (ui && !bo_)
        bo_ = ui->BO();
}

BusinessObjectPtr OrvoObjectUIOCore::BO() const {
    if (bo_)
        return bo_;
    if (const auto ui = ui_.lock())
        return ui->BO();
    return nullptr;
}

ResultRecord OrvoObjectUIOCore::Read() {
    const QString method = MethodName(code_, QStringLiteral("GetOrvoObject"));
    const BusinessObjectPtr bo = BO();
    if (!bo)
        return noBusinessObject(method);
    BOResult r;
    bo->Run(method, quoted(oidr_.isEmpty() ? oid_ : oidr_), QString(), r);
    if (r.Code != 0)
        return ResultRecord::Failure(r.Code, r.Text);
    const RecordsetPtr rs = r.Data.toRecordset();
    if (!rs)
        return ResultRecord::Failure(codes::RefusedNoWarning,
                                     method + QStringLiteral(": įrašas negautas."));
    rs_ = rs;
    if (rs_->RecordCount() > 0)
        rs_->MoveFirst();
    if (rs_->HasField(QStringLiteral("OIDR"))) {
        const QString stored = rs_->Field(QStringLiteral("OIDR")).toString();
        if (stored.size() >= 9)
            oidr_ = stored;
    }
    return ResultRecord::Success();
}

ResultRecord OrvoObjectUIOCore::Save(const Value& rs2, const Value& rs3) {
    const QString method = MethodName(code_, QStringLiteral("SaveOrvoObject"));
    const BusinessObjectPtr bo = BO();
    if (!bo)
        return noBusinessObject(method);
    if (!rs_)
        return ResultRecord::Failure(codes::RefusedNoWarning,
                                     method + QStringLiteral(": objektas dar neperskaitytas."));
    BOResult r;
    if (rs2.isNull() && rs3.isNull())
        r.Data = Value(rs_);
    else
        r.Data = Value(ValueArray{Value(rs_), rs2, rs3});
    bo->Run(method, quoted(oidr_), QString(), r);
    if (r.Code != 0)
        return ResultRecord::Failure(r.Code, r.Text);

    if (const RecordsetPtr answer = r.Data.toRecordset()) {
        if (answer->RecordCount() > 0)
            answer->MoveFirst();
        if (rs_->RecordCount() > 0)
            rs_->MoveFirst();
        const QString stored = answer->Field(QStringLiteral("OIDR")).toString();
        if (!stored.isEmpty()) {
            oidr_ = stored;
            if (rs_->HasField(QStringLiteral("OIDR")))
                rs_->SetField(QStringLiteral("OIDR"), Value(stored));
        }
        if (answer->HasField(QStringLiteral("LockGUID")) &&
            rs_->HasField(QStringLiteral("LockGUID"))) {
            const Value lock = answer->Field(QStringLiteral("LockGUID"));
            if (!lock.isNull())
                rs_->SetField(QStringLiteral("LockGUID"), lock);
        }
    }
    AcceptAll(rs_);
    if (rs_->RecordCount() > 0)
        rs_->MoveFirst();
    return ResultRecord::Success();
}

ResultRecord OrvoObjectUIOCore::Delete() {
    const QString method = MethodName(code_, QStringLiteral("DeleteOrvoObject"));
    const BusinessObjectPtr bo = BO();
    if (!bo)
        return noBusinessObject(method);
    BOResult r;
    bo->Run(method, quoted(oidr_), QString(), r);
    return r.Code != 0 ? ResultRecord::Failure(r.Code, r.Text) : ResultRecord::Success();
}

void OrvoObjectUIOCore::CancelUpdate() {
    if (!rs_)
        return;
    CancelAll(rs_);
    if (rs_->RecordCount() > 0)
        rs_->MoveFirst();
}

namespace {

// Calls `f` on every nested recordset held by any row of `rs`.
template <typename F> void forEachNested(const RecordsetPtr& rs, F f) {
    const FieldDefs& defs = rs->FieldDefinitions();
    for (int row = 0; row < rs->RowCountAll(); ++row) {
        for (int field = 0; field < defs.size(); ++field) {
            if (defs.at(field).type != FieldType::Chapter)
                continue;
            if (const RecordsetPtr nested = rs->ValueAt(row, field).toRecordset())
                f(nested);
        }
    }
}

} // namespace

void OrvoObjectUIOCore::AcceptAll(const RecordsetPtr& rs) {
    if (!rs)
        return;
    rs->AcceptChanges();
    forEachNested(rs, [](const RecordsetPtr& nested) { AcceptAll(nested); });
}

void OrvoObjectUIOCore::CancelAll(const RecordsetPtr& rs) {
    if (!rs)
        return;
    rs->CancelBatch();
    forEachNested(rs, [](const RecordsetPtr& nested) { CancelAll(nested); });
}

} // namespace orvo
