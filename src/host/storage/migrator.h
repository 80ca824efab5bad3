// Migrator checks that a book is ours and brings its structure up to the latest
// migration, one migration per transaction, stamping the book with each number it
// reaches. It also registers every table of every migration with the connection, so
// results are read with the column kinds of the whole schema.
#pragma once

#include "core/results.h"

namespace orvo::host {

class Database;

class Migrator {
public:
    // `allowCreate`: an empty book (a new SQLite file, an empty PostgreSQL database)
    // receives the whole structure; otherwise it is refused as not being a book.
    static ResultRecord Prepare(Database& db, bool allowCreate);
};

} // namespace orvo::host
