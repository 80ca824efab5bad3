// TransactionGuard begins a transaction (or, inside one, a savepoint) and rolls it back
// when it goes out of scope unless Commit was called: a save that returns early on a
// failure leaves storage as it was without a rollback on every path.
//
//     TransactionGuard tx(db);
//     if (!tx.ok()) return tx.result();
//     ... statements, returning on the first failure ...
//     return tx.Commit();
#pragma once

#include "core/results.h"

namespace orvo::host {

class Database;

class TransactionGuard {
public:
    explicit TransactionGuard(Database& db);
    ~TransactionGuard();
    TransactionGuard(const TransactionGuard&) = delete;
    TransactionGuard& operator=(const TransactionGuard&) = delete;

    // Whether the transaction began; result() says why not.
    bool ok() const { return begun_.ok(); }
    const ResultRecord& result() const { return begun_; }

    ResultRecord Commit();
    ResultRecord Rollback();

private:
    Database& db_;
    ResultRecord begun_;
    bool open_ = false;
};

} // namespace orvo::host
