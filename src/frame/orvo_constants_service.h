// OrvoConstantsService gives the session's constants: the title of every message box,
// named settings of the book (BaseCurrency gives the base currency's code) and the
// record of the firm that keeps the books.
#pragma once

#include "core/recordset.h"
#include "core/value.h"

#include <QString>
#include <memory>

namespace orvo {

class OrvoConstantsService {
public:
    virtual ~OrvoConstantsService() = default;
    // The host's title, used as MessageTitle.
    virtual QString Title() = 0;
    // The value of a setting by name; Null when there is none.
    virtual Value GetConstant(const QString& name) = 0;
    // The firm that keeps the books, as a one-row recordset; null when unknown.
    virtual RecordsetPtr MyFirm() = 0;
};

using OrvoConstantsServicePtr = std::shared_ptr<OrvoConstantsService>;

} // namespace orvo
