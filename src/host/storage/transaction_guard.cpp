#include "host/storage/transaction_guard.h"

#include "host/storage/database.h"
#include "host/storage/storage_messages.h"

namespace orvo::host {

TransactionGuard::TransactionGuard(Database& db) : db_(db), begun_(db.Begin()) {
    open_ = begun_.ok();
}

TransactionGuard::~TransactionGuard() {
    if (open_)
        db_.Rollback();
}

ResultRecord TransactionGuard::Commit() {
    if (!open_)
        return begun_.ok() ? ResultRecord::Failure(storage::codes::Failed,
                                                   storage::messages::NoTransaction())
                           : begun_;
    open_ = false;
    return db_.Commit();
}

ResultRecord TransactionGuard::Rollback() {
    if (!open_)
        return ResultRecord::Failure(storage::codes::Failed, storage::messages::NoTransaction());
    open_ = false;
    return db_.Rollback();
}

} // namespace orvo::host
