// OrvoShellService holds the host's named shell operations. "ShowOrvoObjectModal" takes
// the text "Code;GroupID;ClickedParameters", makes the data object of that code, shows
// its form modally and returns the object's recordset as the value. The late-bound
// commands of the managed side ("KontavoUIO_PrintBROper", "KontavoUIO_BROper_Methods",
// "CurrencyUIO_ShowCurrencyRateDialog") are named operations here too: string
// parameters in, a string value out.
#pragma once

#include "core/results.h"
#include "core/value.h"

#include <QString>
#include <memory>

namespace orvo {

class OrvoShellService {
public:
    virtual ~OrvoShellService() = default;
    virtual ValueResult Methods(const QString& name, const ValueArray& parameters) = 0;
};

using OrvoShellServicePtr = std::shared_ptr<OrvoShellService>;

} // namespace orvo
