#include "host/session/book_constants_service.h"

#include "core/recordset.h"
#include "host/storage/database.h"

namespace orvo::host {

Value BookConstantsService::GetConstant(const QString& name) {
    const QueryResult q =
        db_.Query(QStringLiteral("SELECT Value FROM Constants WHERE Name = ?"), {Value(name)});
    return q.ok() ? q.Scalar() : Value();
}

RecordsetPtr BookConstantsService::MyFirm() {
    const QueryResult q = db_.Query(QStringLiteral("SELECT ID FROM Firms WHERE MyFirmFlag <> 0"));
    if (!q.ok() || q.RowCount() == 0)
        return nullptr;
    return readFirm_ ? readFirm_(static_cast<qint64>(q.Scalar().toDouble())) : nullptr;
}

} // namespace orvo::host
