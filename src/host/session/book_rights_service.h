// BookRightsService answers rights from the book's Rights table: five flags per user and
// right key. An administrator holds every right; a key with no row grants nothing.
// Answers are remembered for the session, as rights do not change while it runs.
#pragma once

#include "frame/orvo_rights_service.h"

#include <QHash>
#include <array>

namespace orvo::host {

class Database;

class BookRightsService : public OrvoRightsService {
public:
    BookRightsService(Database& db, qint32 userId, bool isAdmin);

    bool ReadRight(const QString& key, const QString& user = QString()) override;
    bool EditRight(const QString& key, const QString& user = QString()) override;
    bool DeleteRight(const QString& key, const QString& user = QString()) override;
    bool CreateRight(const QString& key, const QString& user = QString()) override;
    bool FifthRight(const QString& key, const QString& user = QString()) override;

private:
    enum Flag { Read, Edit, Delete, Create, Fifth };
    bool flag(const QString& key, const QString& user, Flag f);
    // Flags of a user (id) and key, read once.
    std::array<bool, 5> flagsOf(qint32 userId, bool isAdmin, const QString& key);

    Database& db_;
    qint32 userId_;
    bool isAdmin_;
    QHash<QString, std::array<bool, 5>> cache_;
};

} // namespace orvo::host
