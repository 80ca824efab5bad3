#include "host/session/book_rights_service.h"

#include "host/storage/database.h"

namespace orvo::host {

BookRightsService::BookRightsService(Database& db, qint32 userId, bool isAdmin)
    : db_(db), userId_(userId), isAdmin_(isAdmin) {}

std::array<bool, 5> BookRightsService::flagsOf(qint32 userId, bool isAdmin, const QString& key) {
    if (isAdmin)
        return {true, true, true, true, true};
    const QString cacheKey = QString::number(userId) + QLatin1Char('|') + key;
    const auto it = cache_.constFind(cacheKey);
    if (it != cache_.constEnd())
        return *it;
    std::array<bool, 5> flags{false, false, false, false, false};
    const QueryResult q = db_.Query(
        QStringLiteral("SELECT ReadFlag, EditFlag, DeleteFlag, CreateFlag, FifthFlag FROM Rights "
                       "WHERE UserID = ? AND RightKey = ?"),
        {Value(userId), Value(key)});
    if (q.ok() && q.RowCount() > 0)
        for (int i = 0; i < 5; ++i)
            flags[i] = q.At(0, i).toInt32() != 0;
    cache_.insert(cacheKey, flags);
    return flags;
}

bool BookRightsService::flag(const QString& key, const QString& user, Flag f) {
    if (user.isEmpty())
        return flagsOf(userId_, isAdmin_, key)[f];
    // Another user, named by login.
    const QueryResult q =
        db_.Query(QStringLiteral("SELECT ID, IsAdmin FROM Users WHERE Code = ?"), {Value(user)});
    if (!q.ok() || q.RowCount() == 0)
        return false;
    return flagsOf(q.At(0, 0).toInt32(), q.At(0, 1).toInt32() != 0, key)[f];
}

bool BookRightsService::ReadRight(const QString& key, const QString& user) {
    return flag(key, user, Read);
}
bool BookRightsService::EditRight(const QString& key, const QString& user) {
    return flag(key, user, Edit);
}
bool BookRightsService::DeleteRight(const QString& key, const QString& user) {
    return flag(key, user, Delete);
}
bool BookRightsService::CreateRight(const QString& key, const QString& user) {
    return flag(key, user, Create);
}
bool BookRightsService::FifthRight(const QString& key, const QString& user) {
    return flag(key, user, Fifth);
}

} // namespace orvo::host
