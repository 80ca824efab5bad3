// OrvoRightsService answers whether a user holds a right under a key such as
// "CBROperRights17". The host's five reads come in its own order (read, edit, delete,
// create, fifth); an empty user means the current one.
#pragma once

#include <QString>
#include <memory>

namespace orvo {

class OrvoRightsService {
public:
    virtual ~OrvoRightsService() = default;
    virtual bool ReadRight(const QString& key, const QString& user = QString()) = 0;
    virtual bool EditRight(const QString& key, const QString& user = QString()) = 0;
    virtual bool DeleteRight(const QString& key, const QString& user = QString()) = 0;
    virtual bool CreateRight(const QString& key, const QString& user = QString()) = 0;
    // The flag the host defines beyond the four actions.
    virtual bool FifthRight(const QString& key, const QString& user = QString()) = 0;
};

using OrvoRightsServicePtr = std::shared_ptr<OrvoRightsService>;

} // namespace orvo
