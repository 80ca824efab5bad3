#include "host/storage/comment_templates_schema.h"

namespace orvo::host {

Migration CommentTemplatesMigration() {
    Migration m;
    m.Version = kCommentTemplatesMigrationVersion;
    m.Title = QStringLiteral("Komentarų šablonai");
    m.Tables = {{QStringLiteral("BRCommentTemplates"),
                 {IdColumn(), Column(QStringLiteral("Name"), ColumnType::Text, true)},
                 {},
                 {}}};
    return m;
}

} // namespace orvo::host
