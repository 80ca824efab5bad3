#include "host/catalogues/catalogue_editor_migration.h"

#include "host/storage/database.h"

namespace orvo::host {

QStringList CatalogueLockedTables() {
    return {QStringLiteral("Firms"), QStringLiteral("Persons"),      QStringLiteral("Employees"),
            QStringLiteral("Banks"), QStringLiteral("BankAccounts"), QStringLiteral("Currencies"),
            QStringLiteral("Users")};
}

QString CatalogueLockColumn() {
    return QStringLiteral("LockGUID");
}

Migration CatalogueLockMigration() {
    Migration m;
    m.Version = kCatalogueLockMigrationVersion;
    m.Title = QStringLiteral("Žinynų įrašų užraktai");
    m.Apply = [](Database& db) {
        // Table and column names are names, not values: they cannot be parameters, and
        // both come from the fixed list above.
        for (const QString& table : CatalogueLockedTables()) {
            const ExecResult r = db.Execute(QStringLiteral("ALTER TABLE %1 ADD COLUMN %2 TEXT")
                                                .arg(table, CatalogueLockColumn()));
            if (!r.ok())
                return ResultRecord::Failure(r.Code, r.Text);
        }
        return ResultRecord::Success();
    };
    return m;
}

} // namespace orvo::host
