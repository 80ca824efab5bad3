#include "accounts/account_plan_print.h"

namespace orvo {

RecordsetPtr AccountPlanPrintRows(const BusinessObjectPtr& bo, const QString& filter,
                                  QString* error) {
    if (!bo) {
        if (error)
            *error = QStringLiteral("Sąskaitų planas: knyga neatidaryta.");
        return nullptr;
    }
    QString f = filter.trimmed().isEmpty() ? QStringLiteral("All") : filter.trimmed();
    f.replace(QLatin1Char('\''), QStringLiteral("''"));
    const BOResult r =
        bo->Call(QStringLiteral("GetAccountList"), QStringLiteral("'") + f + QStringLiteral("'"));
    const RecordsetPtr rows = r.ok() ? r.Data.toRecordset() : nullptr;
    if (!rows) {
        if (error)
            *error = r.ok() ? QStringLiteral("Sąskaitų planas: sąrašas negautas.") : r.Text;
        return nullptr;
    }
    rows->MoveFirst();
    return rows;
}

bool AccountPlanPrintIsClass(const RecordsetPtr& rows) {
    return rows && rows->Field(QStringLiteral("GroupFlag")).toInt32() != 0;
}

QStringList AccountPlanPrintCells(const RecordsetPtr& rows) {
    if (!rows || rows->Eof())
        return {};
    return {rows->Field(QStringLiteral("Account")).toString(),
            rows->Field(QStringLiteral("Name")).toString(),
            AccountPlanPrintIsClass(rows) ? QString()
                                          : rows->Field(QStringLiteral("Type")).toString()};
}

} // namespace orvo
