// Numbering of `?` parameters for PostgreSQL: only marks outside quoted texts, quoted
// names, dollar-quoted bodies and comments are parameters.
#include "host/storage/placeholders.h"

#include <gtest/gtest.h>

namespace orvo::host {
namespace {

QString Numbered(const QString& sql, int expectedCount) {
    int count = -1;
    const QString out = NumberPlaceholders(sql, &count);
    EXPECT_EQ(count, expectedCount) << sql.toStdString();
    return out;
}

TEST(StoragePlaceholders, MarksAreNumberedInOrder) {
    EXPECT_EQ(Numbered(QStringLiteral("INSERT INTO T (A, B, C) VALUES (?, ?,?)"), 3),
              QStringLiteral("INSERT INTO T (A, B, C) VALUES ($1, $2,$3)"));
    EXPECT_EQ(Numbered(QStringLiteral("SELECT 1"), 0), QStringLiteral("SELECT 1"));
}

TEST(StoragePlaceholders, MarkInsideQuotedTextIsLeftAlone) {
    EXPECT_EQ(Numbered(QStringLiteral("SELECT 'a?b', ? WHERE X = 'it''s ?'"), 1),
              QStringLiteral("SELECT 'a?b', $1 WHERE X = 'it''s ?'"));
}

TEST(StoragePlaceholders, MarkInsideAQuotedNameIsLeftAlone) {
    EXPECT_EQ(Numbered(QStringLiteral("SELECT \"kas?\" FROM T WHERE A = ?"), 1),
              QStringLiteral("SELECT \"kas?\" FROM T WHERE A = $1"));
}

TEST(StoragePlaceholders, MarkInsideCommentsIsLeftAlone) {
    EXPECT_EQ(Numbered(QStringLiteral("SELECT ? -- ar?\n, /* ? /* ? */ ? */ ?"), 2),
              QStringLiteral("SELECT $1 -- ar?\n, /* ? /* ? */ ? */ $2"));
}

TEST(StoragePlaceholders, MarkInsideEscapeStringWithBackslashQuoteIsLeftAlone) {
    EXPECT_EQ(Numbered(QStringLiteral("SELECT E'\\'?', ?"), 1),
              QStringLiteral("SELECT E'\\'?', $1"));
}

TEST(StoragePlaceholders, MarkInsideDollarQuotedBodyIsLeftAlone) {
    EXPECT_EQ(Numbered(QStringLiteral("SELECT $$ ? $$, $tag$ '?' $tag$, ?"), 1),
              QStringLiteral("SELECT $$ ? $$, $tag$ '?' $tag$, $1"));
}

TEST(StoragePlaceholders, UnterminatedQuoteSwallowsTheRest) {
    EXPECT_EQ(Numbered(QStringLiteral("SELECT ?, 'neuždaryta ?"), 1),
              QStringLiteral("SELECT $1, 'neuždaryta ?"));
}

TEST(StoragePlaceholders, LithuanianLettersAroundMarksSurvive) {
    EXPECT_EQ(Numbered(QStringLiteral("SELECT 'ąčę' || ? AS Žodis"), 1),
              QStringLiteral("SELECT 'ąčę' || $1 AS Žodis"));
}

} // namespace
} // namespace orvo::host
