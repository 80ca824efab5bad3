#include "host/storage/debt_indexes_schema.h"

#include "host/storage/database.h"

namespace orvo::host {

Migration DebtIndexesMigration() {
    Migration m;
    m.Version = kDebtIndexesMigrationVersion;
    m.Title = QStringLiteral("Skolų paieškos rodyklės");
    m.Indexes = {{QStringLiteral("BRPropertiesEntrySide"),
                  QStringLiteral("BRProperties"),
                  {QStringLiteral("BRID"), QStringLiteral("Sign"), QStringLiteral("FOIDR")},
                  false,
                  {}},
                 {QStringLiteral("BROpenItemsOpen"),
                  QStringLiteral("BROpenItems"),
                  {QStringLiteral("Account"), QStringLiteral("Sign"), QStringLiteral("ClosedOn"),
                   QStringLiteral("DateD"), QStringLiteral("BRID"), QStringLiteral("RestSum"),
                   QStringLiteral("RestSumCurr"), QStringLiteral("LastCoverDate")},
                  false,
                  {}}};
    // The narrower indexes serve nothing the wider ones do not.
    m.Apply = [](Database& db) {
        return ExecuteStatements(db, {QStringLiteral("DROP INDEX IF EXISTS BRPropertiesEntry"),
                                      QStringLiteral("DROP INDEX IF EXISTS BROpenItemsAccount")});
    };
    return m;
}

} // namespace orvo::host
