#include "host/script/script_session.h"

#include "core/recordset.h"
#include "core/today.h"
#include "frame/object_registry.h"
#include "frame/orvo_services.h"
#include "host/script/field_path.h"
#include "host/script/json_value.h"
#include "host/script/script_catalogue.h"
#include "host/script/script_reply.h"
#include "host/session/host_session.h"
#include "host/session/scripted_choices.h"
#include "host/session/scripted_messages.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace orvo::host {

using namespace script;

namespace {

// The ops that make a value a later step can refer to.
const QStringList& keepingOps() {
    static const QStringList ops = {
        QStringLiteral("new"),     QStringLiteral("get"),        QStringLiteral("properties"),
        QStringLiteral("methods"), QStringLiteral("catalogue"),  QStringLiteral("recordset"),
        QStringLiteral("filter"),  QStringLiteral("sort"),       QStringLiteral("rows"),
        QStringLiteral("bo"),      QStringLiteral("methodlist"),
    };
    return ops;
}

} // namespace

ScriptSession::ScriptSession(HostSession& session) : session_(session) {}

const QHash<QString, ScriptSession::Handler>& ScriptSession::handlers() {
    static const QHash<QString, Handler> table = {
        {QStringLiteral("new"), &ScriptSession::opNew},
        {QStringLiteral("get"), &ScriptSession::opGet},
        {QStringLiteral("read"), &ScriptSession::opRead},
        {QStringLiteral("set"), &ScriptSession::opSet},
        {QStringLiteral("fields"), &ScriptSession::opFields},
        {QStringLiteral("properties"), &ScriptSession::opProperties},
        {QStringLiteral("methods"), &ScriptSession::opMethods},
        {QStringLiteral("save"), &ScriptSession::opSave},
        {QStringLiteral("delete"), &ScriptSession::opDelete},
        {QStringLiteral("recordset"), &ScriptSession::opRecordset},
        {QStringLiteral("filter"), &ScriptSession::opFilter},
        {QStringLiteral("sort"), &ScriptSession::opSort},
        {QStringLiteral("rows"), &ScriptSession::opRows},
        {QStringLiteral("catalogue"), &ScriptSession::opCatalogue},
        {QStringLiteral("bo"), &ScriptSession::opBo},
        {QStringLiteral("messages"), &ScriptSession::opMessages},
        {QStringLiteral("answer"), &ScriptSession::opAnswer},
        {QStringLiteral("methodlist"), &ScriptSession::opMethodList},
        {QStringLiteral("today"), &ScriptSession::opToday},
    };
    return table;
}

QStringList ScriptSession::Ops() {
    QStringList ops = handlers().keys();
    ops.sort();
    return ops;
}

void ScriptSession::AddOp(const QString& name, OpHandler handler, bool keeps) {
    added_.insert(name, {std::move(handler), keeps});
}

QStringList ScriptSession::AllOps() const {
    QStringList ops = Ops();
    for (auto it = added_.constBegin(); it != added_.constEnd(); ++it)
        if (!ops.contains(it.key()))
            ops.append(it.key());
    ops.sort();
    return ops;
}

QJsonObject ScriptSession::RunLine(const QByteArray& line) {
    QByteArray text = line.trimmed();
    // A byte-order mark may lead the first line of a file saved by an editor.
    if (text.startsWith("\xEF\xBB\xBF"))
        text = text.mid(3).trimmed();
    QJsonParseError error;
    const QJsonDocument doc = QJsonDocument::fromJson(text, &error);
    if (error.error != QJsonParseError::NoError)
        return Failure(QStringLiteral("Eilutė nėra JSON: %1 (ties %2 simboliu).")
                           .arg(error.errorString())
                           .arg(error.offset));
    if (!doc.isObject())
        return Failure(QStringLiteral(
            "Eilutė turi būti JSON objektas su veiksmu „op“, pvz. {\"op\":\"today\"}."));
    return Run(doc.object());
}

QJsonObject ScriptSession::Run(const QJsonObject& step) {
    QJsonObject reply;
    const QJsonValue opValue = step.value("op");
    const QString op = opValue.toString();
    const QJsonValue as = step.value("as");
    if (!opValue.isString() || op.isEmpty()) {
        reply = Failure(QStringLiteral("Trūksta veiksmo „op“ (teksto)."));
    } else if (!handlers().contains(op) && !added_.contains(op)) {
        reply = Failure(QStringLiteral("Nežinomas veiksmas „%1“. Galimi veiksmai: %2.")
                            .arg(op, AllOps().join(QStringLiteral(", "))));
    } else if (step.contains("as") && (!as.isString() || as.toString().isEmpty())) {
        reply = Failure(QStringLiteral("„as“ turi būti netuščias vardas."));
    } else if (step.contains("as") && !keepingOps().contains(op) &&
               !(added_.contains(op) && added_.value(op).Keeps)) {
        reply = Failure(
            QStringLiteral("Veiksmas „%1“ nieko nesukuria, todėl „as“ jam netinka.").arg(op));
    } else {
        // An added op is asked first; it may leave the step to the op of the protocol.
        std::optional<OpOutcome> added;
        if (added_.contains(op))
            added = added_.value(op).Handler(step);
        Outcome outcome(QJsonObject{});
        if (added)
            outcome = added->HasKeep ? Outcome(added->Reply, added->Keep) : Outcome(added->Reply);
        else if (handlers().contains(op))
            outcome = (this->*handlers().value(op))(step);
        else
            outcome =
                Outcome(Failure(QStringLiteral("Veiksmas „%1“ šiam žingsniui netinka.").arg(op)));
        reply = outcome.Reply;
        if (as.isString() && reply.value("ok").toBool() && outcome.HasKeep) {
            held_.insert(as.toString(), outcome.Keep);
            reply.insert("as", as.toString());
        }
    }
    if (step.contains("id"))
        reply.insert("id", step.value("id"));
    return reply;
}

// ---- helpers shared by the ops ----

OrvoObjectUIOPtr ScriptSession::objectOf(const QJsonObject& step, QString* error) const {
    const QString name = step.value("obj").toString();
    if (name.isEmpty()) {
        *error = QStringLiteral("Nenurodytas objektas („obj“: vardas, kuriuo jis išsaugotas "
                                "per „as“).");
        return nullptr;
    }
    if (!held_.contains(name)) {
        *error = QStringLiteral("Vardu „%1“ nieko neišsaugota.").arg(name);
        return nullptr;
    }
    const OrvoObjectUIOPtr uio = AsDataObject(held_.value(name));
    if (!uio)
        *error = QStringLiteral("„%1“ nėra duomenų objektas.").arg(name);
    return uio;
}

RecordsetPtr ScriptSession::recordsetOf(const QJsonObject& step, QString* error) const {
    RecordsetPtr rs;
    if (step.contains("rs")) {
        const QString name = step.value("rs").toString();
        if (!held_.contains(name)) {
            *error = QStringLiteral("Vardu „%1“ nieko neišsaugota.").arg(name);
            return nullptr;
        }
        const Value held = held_.value(name);
        rs = held.toRecordset();
        if (!rs) {
            if (const OrvoObjectUIOPtr uio = AsDataObject(held))
                rs = uio->RsFields();
            else {
                *error = QStringLiteral("„%1“ nėra įrašų rinkinys.").arg(name);
                return nullptr;
            }
        }
    } else if (step.contains("obj")) {
        const OrvoObjectUIOPtr uio = objectOf(step, error);
        if (!uio)
            return nullptr;
        rs = uio->RsFields();
    } else {
        *error = QStringLiteral("Nenurodytas įrašų rinkinys („rs“) ar objektas („obj“).");
        return nullptr;
    }
    if (!rs) {
        *error = QStringLiteral("Objektas dar neturi įrašo.");
        return nullptr;
    }
    const QString path = step.value("path").toString();
    if (path.isEmpty())
        return rs;
    const RowPlace nested = FieldPath::NestedRecordset(rs, path);
    if (!nested.ok())
        *error = nested.Error;
    return nested.Rs;
}

bool ScriptSession::paramToValue(const QJsonValue& json, Value* out, QString* error) const {
    if (json.isObject()) {
        const QJsonObject o = json.toObject();
        if (o.size() == 1 && o.contains("ref")) {
            const QString name = o.value("ref").toString();
            if (!held_.contains(name)) {
                *error =
                    QStringLiteral("Parametre nurodytu vardu „%1“ nieko neišsaugota.").arg(name);
                return false;
            }
            *out = held_.value(name);
            return true;
        }
        if (o.contains("fields")) {
            const RecordsetFromJsonResult r = RecordsetFromJson(o);
            if (!r.rs) {
                *error = r.error;
                return false;
            }
            *out = Value(r.rs);
            return true;
        }
    }
    if (json.isArray()) {
        ValueArray items;
        for (const QJsonValue& item : json.toArray()) {
            Value v;
            if (!paramToValue(item, &v, error))
                return false;
            items.append(v);
        }
        *out = Value(items);
        return true;
    }
    *out = JsonToValue(json);
    return true;
}

bool ScriptSession::paramArray(const QJsonObject& step, ValueArray* out, QString* error) const {
    out->clear();
    if (!step.contains("params"))
        return true;
    const QJsonValue params = step.value("params");
    if (!params.isArray()) {
        Value v;
        if (!paramToValue(params, &v, error))
            return false;
        out->append(v);
        return true;
    }
    for (const QJsonValue& item : params.toArray()) {
        Value v;
        if (!paramToValue(item, &v, error))
            return false;
        out->append(v);
    }
    return true;
}

OrvoObjectUIOPtr ScriptSession::makeObject(const QString& codeOrOidr, ResultRecord* why) const {
    const OrvoServicesPtr services = session_.Services();
    const OrvoObjectsServicePtr objects = services ? services->ObjectsService() : nullptr;
    if (!objects) {
        *why = ResultRecord::Failure(codes::RefusedNoWarning,
                                     QStringLiteral("Sesija neturi objektų tarnybos."));
        return nullptr;
    }
    if (OrvoObjectUIOPtr uio = objects->GetObjectUIO(codeOrOidr))
        return uio;
    // The service says only "nothing"; read a blank object of the kind the same way to
    // learn why.
    const QString kind = ObjectRegistry::KindOf(codeOrOidr);
    const OrvoObjectUIPtr ui = objects->GetObjectUI(kind);
    const OrvoObjectUIOPtr probe = ObjectRegistry::Component().MakeDataObject(codeOrOidr);
    if (!ui || !probe) {
        *why = ResultRecord::Failure(
            codes::Refused,
            QStringLiteral("Nežinomas objekto kodas „%1“: tokios rūšies objektų nėra.").arg(kind));
        return nullptr;
    }
    probe->SetUI(ui);
    probe->SetOIDR(codeOrOidr);
    const ResultRecord r = probe->Read();
    *why = r.ok() ? ResultRecord::Failure(codes::RefusedNoWarning,
                                          QStringLiteral("Objektas „%1“ negautas.").arg(codeOrOidr))
                  : r;
    return nullptr;
}

// ---- the session, the business object and the shared routines ----

ScriptSession::Outcome ScriptSession::opCatalogue(const QJsonObject& step) {
    const QString name = step.value("name").toString();
    if (name.isEmpty()) {
        // Without a name: the list of the routines a script may call.
        QJsonArray list;
        for (const CatalogueRoutine& r : ScriptCatalogue::Routines())
            list.append(QJsonObject{{"name", r.Name}, {"signature", r.Signature}, {"doc", r.Doc}});
        QJsonObject reply = Success();
        reply.insert("Value", list);
        return {reply};
    }
    ValueArray params;
    QString error;
    if (!paramArray(step, &params, &error))
        return {Failure(error)};
    const ValueResult r = ScriptCatalogue::Call(name, params);
    if (!r.ok())
        return {Failure(r.Text)};
    QJsonObject reply = Success();
    reply.insert("Value", ValueToJson(r.Value));
    return {reply, r.Value};
}

ScriptSession::Outcome ScriptSession::opBo(const QJsonObject& step) {
    const QString name = step.value("name").toString();
    if (name.isEmpty())
        return {Failure(QStringLiteral("Nenurodytas verslo objekto metodas („name“)."))};
    const QJsonValue params = step.value("params");
    if (!params.isUndefined() && !params.isString())
        return {Failure(QStringLiteral("Verslo objekto parametrai („params“) yra vienas tekstas, "
                                       "pvz. \"'2024.03.01'\"."))};
    Value data;
    QString error;
    if (step.contains("data") && !paramToValue(step.value("data"), &data, &error))
        return {Failure(error)};
    const BusinessObjectPtr bo = session_.BO();
    BOResult r;
    r.Data = data;
    bo->Run(name, params.isString() ? params.toString() : QStringLiteral("None"), QString(), r);
    return {Contract(r), r.Data};
}

ScriptSession::Outcome ScriptSession::opMessages(const QJsonObject&) {
    QJsonArray boxes;
    for (const RecordedMessage& m : session_.Messages()->Take()) {
        QJsonObject box{
            {"kind", ScriptedMessages::KindName(m.Kind)}, {"title", m.Title}, {"text", m.Text}};
        if (m.Kind == MessageKind::Question)
            box.insert("answer", m.Answer);
        boxes.append(box);
    }
    QJsonArray asked;
    for (const QString& a : session_.Choices()->TakeAsked())
        asked.append(a);
    QJsonObject reply = Success();
    reply.insert("Value", boxes);
    reply.insert("asked", asked);
    return {reply};
}

ScriptSession::Outcome ScriptSession::opAnswer(const QJsonObject& step) {
    auto listOf = [&step](const char* key) {
        const QJsonValue v = step.value(QLatin1String(key));
        return v.isArray() ? v.toArray() : (v.isUndefined() ? QJsonArray() : QJsonArray{v});
    };
    const QJsonArray yes = listOf("yes");
    const QJsonArray picks = listOf("pick");
    const QJsonArray inputs = listOf("input");
    // Check everything before queueing anything, so a bad step queues nothing.
    for (const QJsonValue& v : yes)
        if (!v.isBool())
            return {Failure(QStringLiteral("„yes“: atsakymai yra true (Taip) arba false (Ne)."))};
    for (const QJsonValue& v : picks)
        if (!v.isString())
            return {Failure(QStringLiteral("„pick“: pasirinkimai yra tekstai „OIDR_tekstas“ "
                                           "(tuščias tekstas – nieko nepasirinkta)."))};
    for (const QJsonValue& v : inputs)
        if (!v.isString() && !v.isNull())
            return {Failure(QStringLiteral("„input“: įvedimai yra tekstai arba null "
                                           "(atšaukta)."))};
    if (yes.isEmpty() && picks.isEmpty() && inputs.isEmpty())
        return {Failure(QStringLiteral("Nenurodyta jokių atsakymų („yes“, „pick“, „input“)."))};
    for (const QJsonValue& v : yes)
        session_.Messages()->QueueAnswer(v.toBool());
    for (const QJsonValue& v : picks)
        session_.Choices()->QueuePick(v.toString());
    for (const QJsonValue& v : inputs)
        session_.Choices()->QueueInput(v.isNull() ? std::nullopt
                                                  : std::optional<QString>(v.toString()));
    QJsonObject reply = Success();
    reply.insert("queued", static_cast<int>(yes.size() + picks.size() + inputs.size()));
    return {reply};
}

ScriptSession::Outcome ScriptSession::opMethodList(const QJsonObject& step) {
    QJsonObject reply = Success();
    if (step.value("text").toBool()) {
        reply.insert("Value", session_.Methods().Listing());
        return {reply};
    }
    const RecordsetPtr rs = session_.Methods().ListingRecordset();
    reply.insert("Value", RecordsetToJson(*rs));
    return {reply, Value(rs)};
}

ScriptSession::Outcome ScriptSession::opToday(const QJsonObject& step) {
    if (step.contains("date")) {
        const QJsonValue date = step.value("date");
        if (date.isNull()) {
            SetToday(QDate());
        } else {
            const QDate d = QDate::fromString(date.toString(), QStringLiteral("yyyy-MM-dd"));
            if (!d.isValid())
                return {Failure(QStringLiteral("„date“ turi būti data YYYY-MM-DD arba null."))};
            SetToday(d);
        }
    }
    QJsonObject reply = Success();
    reply.insert("Value", Today().toString(QStringLiteral("yyyy-MM-dd")));
    return {reply};
}

} // namespace orvo::host
