#include "frame/orvo_object_ui_core.h"

#include "frame/orvo_object_uio_core.h"

namespace orvo {

OrvoObjectUICore::OrvoObjectUICore(const QString& code, const QString& title)
    : code_(code), title_(title), oid_(code) {}

RecordsetPtr OrvoObjectUICore::GetOrvoObjectList(const QString& oid, const QString& from,
                                                 const QString& to) {
    const QString method =
        OrvoObjectUIOCore::MethodName(code_, QStringLiteral("GetOrvoObjectList"));
    if (!bo_) {
        last_ = ResultRecord::Failure(codes::RefusedNoWarning,
                                      method + QStringLiteral(": knyga neatidaryta."));
        return nullptr;
    }
    BOResult r;
    bo_->Run(method,
             QStringLiteral("'") + oid + QStringLiteral("','") + from + QStringLiteral("','") + to +
                 QStringLiteral("'"),
             QString(), r);
    last_ = ResultRecord::Failure(r.Code, r.Text);
    if (r.Code != 0)
        return nullptr;
    return r.Data.toRecordset();
}

bool OrvoObjectUICore::DeleteOrvoObject(const QString& oid) {
    const QString method = OrvoObjectUIOCore::MethodName(code_, QStringLiteral("DeleteOrvoObject"));
    if (!bo_) {
        last_ = ResultRecord::Failure(codes::RefusedNoWarning,
                                      method + QStringLiteral(": knyga neatidaryta."));
        return false;
    }
    BOResult r;
    bo_->Run(method, QStringLiteral("'") + oid + QStringLiteral("'"), QString(), r);
    last_ = ResultRecord::Failure(r.Code, r.Text);
    return r.Code == 0;
}

} // namespace orvo
