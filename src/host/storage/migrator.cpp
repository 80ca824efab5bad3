#include "host/storage/migrator.h"

#include "host/storage/database.h"
#include "host/storage/migrations.h"
#include "host/storage/storage_messages.h"

namespace orvo::host {

using namespace storage;

namespace {

ResultRecord ApplyMigration(Database& db, const Migration& m) {
    for (const SequenceDef& s : m.Sequences) {
        ResultRecord r = db.CreateSequence(s);
        if (!r.ok())
            return r;
    }
    for (const TableDef& t : m.Tables) {
        ResultRecord r = db.CreateTable(t);
        if (!r.ok())
            return r;
    }
    for (const IndexDef& i : m.Indexes) {
        ResultRecord r = db.CreateIndex(i);
        if (!r.ok())
            return r;
    }
    for (const Statement& s : m.Data) {
        ExecResult r = db.Execute(s.Sql, s.Params);
        if (!r.ok())
            return ResultRecord::Failure(r.Code, r.Text);
    }
    if (m.Apply)
        return m.Apply(db);
    return ResultRecord::Success();
}

} // namespace

ResultRecord Migrator::Prepare(Database& db, bool allowCreate) {
    Database::SchemaStamp stamp;
    ResultRecord r = db.ReadSchemaStamp(stamp);
    if (!r.ok())
        return r;
    const int latest = LatestSchemaVersion();
    const bool fresh = stamp.ApplicationId == 0 && stamp.Version == 0 && stamp.Empty;
    if (fresh && !allowCreate)
        return ResultRecord::Failure(codes::NotABook, messages::NotABook(db.Location()));
    if (!fresh && stamp.ApplicationId != kApplicationId)
        return ResultRecord::Failure(codes::NotABook, messages::NotABook(db.Location()));
    if (stamp.Version > latest) {
        return ResultRecord::Failure(codes::NewerBook,
                                     messages::NewerBook(db.Location(), stamp.Version, latest));
    }

    // Only now that the book is known to be ours may the connection change anything
    // (SQLite's journal mode is written into the file).
    r = db.Configure();
    if (!r.ok())
        return r;

    for (const Migration& m : Migrations()) {
        for (const TableDef& t : m.Tables)
            db.RegisterTable(t);
    }

    for (const Migration& m : Migrations()) {
        if (m.Version <= stamp.Version)
            continue;
        r = db.Begin();
        if (r.ok())
            r = db.LockForMigration();
        // Another program may have migrated the book while this one waited for the lock.
        Database::SchemaStamp now;
        if (r.ok())
            r = db.ReadSchemaStamp(now);
        if (r.ok() && now.Version >= m.Version) {
            db.Rollback();
            stamp = now;
            continue;
        }
        if (r.ok())
            r = ApplyMigration(db, m);
        if (r.ok())
            r = db.WriteSchemaStamp(m.Version);
        if (r.ok())
            r = db.Commit();
        else if (db.TransactionDepth() > 0)
            db.Rollback();
        if (!r.ok())
            return ResultRecord::Failure(r.Code, messages::MigrationFailed(m.Version, r.Text));
        stamp.Version = m.Version;
    }
    db.SetSchemaVersion(stamp.Version);
    return ResultRecord::Success();
}

ResultRecord ExecuteStatements(Database& db, const QStringList& statements) {
    for (const QString& sql : statements) {
        const ExecResult r = db.Execute(sql);
        if (!r.ok())
            return ResultRecord::Failure(r.Code, r.Text);
    }
    return ResultRecord::Success();
}

} // namespace orvo::host
