// A run-time failure inside a command of the operation object. The component has no
// exceptions: a command that meets one of the conditions below stops where it is (the
// rows it already made stay) and answers Code = the failure's number and Text = its
// description, a line break and "Klaida!".
//
// What counts as a run-time failure:
//   NoRecord         the object has no current operation row (it was never read)
//   MissingNested    a nested recordset the command works on (BR, BRCurrency,
//                    BRProperties, RequiredAddr, a template line's demands) is absent
//   FieldRefused     a field refused the value written to it (a text longer than its
//                    defined size, a date that is no date, a field the shape lacks)
//   ParameterType    a parameter cannot be read as the type its position wants
//   AnswerShape      a recordset that a query answered lacks what the command reads
// A refusal by a check of the component (Code 777) is not a run-time failure.
#pragma once

#include "core/recordset.h"
#include "core/results.h"

#include <QString>
#include <optional>

namespace orvo {

class CommandFailure {
public:
    static constexpr qint32 NoRecord = 1001;
    static constexpr qint32 MissingNested = 1002;
    static constexpr qint32 FieldRefused = 1003;
    static constexpr qint32 ParameterType = 1004;
    static constexpr qint32 AnswerShape = 1005;

    CommandFailure(qint32 number, const QString& description)
        : number_(number), description_(description) {}

    qint32 Number() const { return number_; }
    const QString& Description() const { return description_; }

    // Code = number, Text = description + line break + "Klaida!", no value.
    ValueResult ToResult() const;

    static CommandFailure NoOperationRow();
    static CommandFailure Missing(const QString& nestedName);
    static CommandFailure Refused(const QString& fieldName);
    static CommandFailure WrongType(int position);
    static CommandFailure BadAnswer(const QString& what);

private:
    qint32 number_;
    QString description_;
};

// The failure a command carries while it runs; empty while all goes well.
using MaybeFailure = std::optional<CommandFailure>;

// Writes a field of the current row unless a failure is already recorded; a refused
// value records FieldRefused. Returns whether the value was written.
bool WriteField(const RecordsetPtr& rs, const QString& field, const Value& value,
                MaybeFailure& failure);

// The nested recordset of a field of the current row; records MissingNested (unless a
// failure is already recorded) and gives null when there is none.
RecordsetPtr NestedOf(const RecordsetPtr& rs, const QString& field, MaybeFailure& failure);

} // namespace orvo
