#include "host/storage/migrations.h"

#include "host/catalogues/catalogue_editor_migration.h"
#include "host/storage/account_totals_schema.h"
#include "host/storage/accounts_schema.h"
#include "host/storage/catalogue_schema.h"
#include "host/storage/comment_templates_schema.h"
#include "host/storage/debt_indexes_schema.h"
#include "host/storage/debt_list_schema.h"
#include "host/storage/group_debts_schema.h"
#include "host/storage/groups_schema.h"
#include "host/storage/open_items_schema.h"
#include "host/storage/operations_schema.h"

namespace orvo::host {

const QVector<Migration>& Migrations() {
    // Append new migrations at the end with the next number; never change one that has
    // shipped, since books already carry it.
    static const QVector<Migration> list = {
        CatalogueMigration(),        // 1
        AccountsMigration(),         // 2
        OperationsMigration(),       // 3
        GroupsMigration(),           // 4
        AccountTotalsMigration(),    // 5
        CatalogueLockMigration(),    // 6
        GroupDebtsMigration(),       // 7
        OpenItemsMigration(),        // 8
        CommentTemplatesMigration(), // 9
        DebtIndexesMigration(),      // 10
        DebtListMigration(),         // 11
        DebtListOrderMigration(),    // 12
    };
    return list;
}

int LatestSchemaVersion() {
    return Migrations().isEmpty() ? 0 : Migrations().constLast().Version;
}

} // namespace orvo::host
