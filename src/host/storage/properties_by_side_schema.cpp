#include "host/storage/properties_by_side_schema.h"

#include "host/storage/database.h"

namespace orvo::host {

Migration PropertiesBySideMigration() {
    Migration m;
    m.Version = kPropertiesBySideMigrationVersion;
    m.Title = QStringLiteral("Įrašų adresatai pagal pusę");
    m.Indexes = {{QStringLiteral("BRPropertiesEntrySide"),
                  QStringLiteral("BRProperties"),
                  {QStringLiteral("BRID"), QStringLiteral("Sign"), QStringLiteral("FOIDR")},
                  false,
                  {}}};
    // The narrower index serves nothing the wider one does not.
    m.Apply = [](Database& db) {
        return ExecuteStatements(db, {QStringLiteral("DROP INDEX IF EXISTS BRPropertiesEntry")});
    };
    return m;
}

} // namespace orvo::host
