#include "host/script/script_reply.h"

#include "host/script/json_value.h"

namespace orvo::host::script {

QJsonObject Success() {
    return QJsonObject{{"ok", true}};
}

QJsonObject Failure(const QString& error) {
    return QJsonObject{{"ok", false}, {"error", error}};
}

QJsonObject Contract(qint32 code, const QString& text) {
    QJsonObject reply{{"ok", code == 0}, {"Code", code}, {"Text", text}};
    if (code != 0)
        reply.insert("error", text.isEmpty() ? QStringLiteral("Kodas %1").arg(code) : text);
    return reply;
}

QJsonObject Contract(const ResultRecord& r) {
    return Contract(r.Code, r.Text);
}

QJsonObject Contract(const ValueResult& r) {
    QJsonObject reply = Contract(r.Code, r.Text);
    reply.insert("Value", ValueToJson(r.Value));
    return reply;
}

QJsonObject Contract(const BOResult& r) {
    QJsonObject reply = Contract(r.Code, r.Text);
    reply.insert("Value", ValueToJson(r.Data));
    return reply;
}

} // namespace orvo::host::script
