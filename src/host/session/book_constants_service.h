// BookConstantsService gives the session's constants from the book: the title of every
// message box ("Orvo Apskaita"), named constants such as BaseCurrency from the Constants
// table, and the record of the firm that keeps the books (the firm marked MyFirmFlag).
#pragma once

#include "frame/orvo_constants_service.h"

#include <functional>

namespace orvo::host {

class Database;

inline const QString kTitle = QStringLiteral("Orvo Apskaita");

class BookConstantsService : public OrvoConstantsService {
public:
    // `readFirm` reads a firm's record by record number (the object store does it).
    BookConstantsService(Database& db, std::function<RecordsetPtr(qint64)> readFirm)
        : db_(db), readFirm_(std::move(readFirm)) {}

    QString Title() override { return kTitle; }
    Value GetConstant(const QString& name) override;
    RecordsetPtr MyFirm() override;

private:
    Database& db_;
    std::function<RecordsetPtr(qint64)> readFirm_;
};

} // namespace orvo::host
