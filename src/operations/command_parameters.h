// The parameters of one command of the operation object, read by position from 0 and
// converted to the type each position wants. A position past the end, or holding Null,
// gives the caller's default ("the missing ones are 0 or the empty text"). A value that
// cannot be converted (a text that is no number where a number is wanted, a recordset
// where a text is wanted) records a ParameterType failure, which the command answers
// with instead of going on.
#pragma once

#include "core/value.h"
#include "operations/command_failure.h"

namespace orvo {

class CommandParameters {
public:
    explicit CommandParameters(const ValueArray& parameters) : parameters_(parameters) {}

    int Count() const { return parameters_.size(); }
    bool Has(int position) const { return position >= 0 && position < parameters_.size(); }
    // Present and not Null.
    bool Given(int position) const;
    Value At(int position) const;

    QString Text(int position, const QString& defaultValue = QString());
    qint16 Int16(int position, qint16 defaultValue = 0);
    qint32 Int32(int position, qint32 defaultValue = 0);
    double Double(int position, double defaultValue = 0.0);
    bool Bool(int position, bool defaultValue = false);
    // An array; Null, a missing position or an empty text give an empty array.
    ValueArray Array(int position);

    MaybeFailure& Failure() { return failure_; }
    bool Failed() const { return failure_.has_value(); }

private:
    void fail(int position);

    ValueArray parameters_;
    MaybeFailure failure_;
};

} // namespace orvo
