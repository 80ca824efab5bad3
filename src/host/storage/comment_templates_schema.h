// The migration "Komentarų šablonai": the comments an accountant keeps ready for
// operations, picked in the comment list window instead of typed again.
//
//   BRCommentTemplates  ID, Name: one ready comment per row, the same for every user of
//                       the book.
#pragma once

#include "host/storage/migration.h"

namespace orvo::host {

inline constexpr int kCommentTemplatesMigrationVersion = 9;

Migration CommentTemplatesMigration();

} // namespace orvo::host
