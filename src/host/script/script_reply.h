// The shapes of the replies of `orvo script`, shared by the files that carry out its
// ops: a plain success, an error with its text, and the reply of a contract call with
// the Code and Text it returned (and Value, where the contract gives one). A reply whose
// "ok" is false always carries "error", so a reader needs to look in one place.
#pragma once

#include "core/results.h"

#include <QJsonObject>
#include <QString>

namespace orvo::host::script {

QJsonObject Success();
QJsonObject Failure(const QString& error);
// "ok" is whether Code is 0; a non-zero Code adds "error" (Text, or the code when the
// text is empty).
QJsonObject Contract(qint32 code, const QString& text);
QJsonObject Contract(const ResultRecord& r);
QJsonObject Contract(const ValueResult& r);
// BOResult's Data is shown as "Value", as for the other contract calls.
QJsonObject Contract(const BOResult& r);

} // namespace orvo::host::script
