#include "operations/command_parameters.h"

namespace orvo {

bool CommandParameters::Given(int position) const {
    return Has(position) && !parameters_.at(position).isNull();
}

Value CommandParameters::At(int position) const {
    return Has(position) ? parameters_.at(position) : Value();
}

void CommandParameters::fail(int position) {
    if (!failure_)
        failure_ = CommandFailure::WrongType(position);
}

QString CommandParameters::Text(int position, const QString& defaultValue) {
    if (!Given(position))
        return defaultValue;
    const Value& v = parameters_.at(position);
    if (v.isText() || v.isNumeric() || v.isDateLike())
        return v.toString();
    fail(position);
    return defaultValue;
}

qint16 CommandParameters::Int16(int position, qint16 defaultValue) {
    if (!Given(position))
        return defaultValue;
    bool ok = false;
    const qint16 i = parameters_.at(position).toInt16(&ok);
    if (ok)
        return i;
    fail(position);
    return defaultValue;
}

qint32 CommandParameters::Int32(int position, qint32 defaultValue) {
    if (!Given(position))
        return defaultValue;
    bool ok = false;
    const qint32 i = parameters_.at(position).toInt32(&ok);
    if (ok)
        return i;
    fail(position);
    return defaultValue;
}

double CommandParameters::Double(int position, double defaultValue) {
    if (!Given(position))
        return defaultValue;
    const Value& v = parameters_.at(position);
    if (v.isText() && v.toString().trimmed().isEmpty())
        return defaultValue;
    bool ok = false;
    const double d = v.toDouble(&ok);
    if (ok && !v.isDateLike())
        return d;
    fail(position);
    return defaultValue;
}

bool CommandParameters::Bool(int position, bool defaultValue) {
    if (!Given(position))
        return defaultValue;
    bool ok = false;
    const bool b = parameters_.at(position).toBool(&ok);
    if (ok)
        return b;
    fail(position);
    return defaultValue;
}

ValueArray CommandParameters::Array(int position) {
    if (!Given(position))
        return {};
    const Value& v = parameters_.at(position);
    if (v.kind() == Value::Kind::Array)
        return v.toArray();
    if (v.isText() && v.toString().isEmpty())
        return {};
    fail(position);
    return {};
}

} // namespace orvo
