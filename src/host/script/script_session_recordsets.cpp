// The ops of `orvo script` that work on recordsets: recordset, filter, sort and rows
// (see script_session.h).
#include "core/recordset.h"
#include "host/script/json_value.h"
#include "host/script/script_reply.h"
#include "host/script/script_session.h"

namespace orvo::host {

using namespace script;

namespace {

void addRows(QJsonObject& reply, const Recordset& rs) {
    reply.insert("RecordCount", rs.RecordCount());
    reply.insert("Value", RecordsetToJson(rs));
}

} // namespace

ScriptSession::Outcome ScriptSession::opRecordset(const QJsonObject& step) {
    const RecordsetFromJsonResult r = RecordsetFromJson(step);
    if (!r.rs)
        return {Failure(r.error)};
    QJsonObject reply = Success();
    addRows(reply, *r.rs);
    return {reply, Value(r.rs)};
}

ScriptSession::Outcome ScriptSession::opFilter(const QJsonObject& step) {
    QString error;
    const RecordsetPtr rs = recordsetOf(step, &error);
    if (!rs)
        return {Failure(error)};
    if (!step.value("text").isString())
        return {Failure(QStringLiteral("Nenurodytas filtras („text“); tuščias tekstas jį "
                                       "nuima."))};
    QJsonObject reply = Contract(rs->SetFilter(step.value("text").toString()));
    addRows(reply, *rs);
    return {reply, Value(rs)};
}

ScriptSession::Outcome ScriptSession::opSort(const QJsonObject& step) {
    QString error;
    const RecordsetPtr rs = recordsetOf(step, &error);
    if (!rs)
        return {Failure(error)};
    if (!step.value("text").isString())
        return {Failure(QStringLiteral("Nenurodyta rikiuotė („text“), pvz. \"Sum DESC\"; "
                                       "tuščias tekstas grąžina įterpimo tvarką."))};
    QJsonObject reply = Contract(rs->SetSort(step.value("text").toString()));
    addRows(reply, *rs);
    return {reply, Value(rs)};
}

ScriptSession::Outcome ScriptSession::opRows(const QJsonObject& step) {
    QString error;
    const RecordsetPtr rs = recordsetOf(step, &error);
    if (!rs)
        return {Failure(error)};
    QJsonObject reply = Success();
    addRows(reply, *rs);
    return {reply, Value(rs)};
}

} // namespace orvo::host
