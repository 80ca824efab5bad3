// The business object: the one door from the accounting component to storage. It
// offers a single call, Run, which dispatches a named method with a parameter text as
// the component writes it (values in single quotes, commas between, unquoted numbers,
// or the word None) and fills a BOResult whose Data is, as a rule, a recordset.
// Options is always empty in this system. A method never throws: a wrong parameter
// text or a failure of storage comes back as a non-zero Code with a clear Text.
// A method that stores something (the save of a data object) takes what it stores in
// result.Data on entry: that is how a data object hands its recordset to Run.
#pragma once

#include "core/results.h"

#include <QString>
#include <memory>

namespace orvo {

class BusinessObject {
public:
    virtual ~BusinessObject() = default;

    virtual void Run(const QString& methodName, const QString& parameterText,
                     const QString& options, BOResult& result) = 0;

    // The same call returning its result, for the many callers that want it so.
    BOResult Call(const QString& methodName, const QString& parameterText = QStringLiteral("None"),
                  const Value& data = Value()) {
        BOResult r;
        r.Data = data;
        Run(methodName, parameterText, QString(), r);
        return r;
    }
};

using BusinessObjectPtr = std::shared_ptr<BusinessObject>;

} // namespace orvo
