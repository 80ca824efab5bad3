// ScriptSession runs the JSON-lines protocol of `orvo script` over one HostSession: each
// step is one JSON object with an "op", and each step gets exactly one JSON object back.
// A step may keep what it made under a name ("as") so that later steps refer to it
// ("obj" for a data object, "rs" for a recordset, {"ref": name} inside parameters).
//
// Every reply has "ok". Steps that call the host contract (Read, Save, Properties,
// Methods, the business object's Run, a recordset's filter and sort) also carry "Code"
// and "Text" as the contract returned them and, where the contract gives one, "Value";
// "ok" is then whether Code is 0. A step that could not be carried out at all (a line
// that is not JSON, an unknown op, a name never kept, an unknown object code) has "ok"
// false and "error" with a Lithuanian text; so has every reply whose "ok" is false.
// Nothing stops the script: the next step runs whatever the last one gave.
//
// docs/script.md describes every op with examples.
#pragma once

#include "core/value.h"
#include "frame/orvo_object_uio.h"

#include <QByteArray>
#include <QHash>
#include <QJsonObject>
#include <QStringList>
#include <functional>
#include <optional>

namespace orvo::host {

class HostSession;

class ScriptSession {
public:
    explicit ScriptSession(HostSession& session);

    // One line of input: a JSON object is run as a step; anything else gets an error reply.
    QJsonObject RunLine(const QByteArray& line);
    // One step.
    QJsonObject Run(const QJsonObject& step);

    // What a step kept under `name` (Null when nothing was).
    Value Held(const QString& name) const { return held_.value(name); }
    // The names of the ops, in alphabetical order.
    static QStringList Ops();

    // Ops added from outside the protocol's own (the desktop library adds the ops that
    // drive windows). A handler answers with its reply and, when it made something that
    // "as" may keep, that value; it may answer nothing (std::nullopt) to leave a step
    // to the protocol's own op of the same name.
    struct OpOutcome {
        QJsonObject Reply;
        Value Keep;
        bool HasKeep = false;
    };
    using OpHandler = std::function<std::optional<OpOutcome>(const QJsonObject& step)>;
    void AddOp(const QString& name, OpHandler handler, bool keeps);
    // Every op this session runs, its own and the added ones, in alphabetical order.
    QStringList AllOps() const;

private:
    // What an op gives: its reply, and the value that "as" keeps when the op made one.
    struct Outcome {
        Outcome(const QJsonObject& reply) : Reply(reply) {}
        Outcome(const QJsonObject& reply, const Value& keep)
            : Reply(reply), Keep(keep), HasKeep(true) {}
        QJsonObject Reply;
        Value Keep;
        bool HasKeep = false;
    };
    using Handler = Outcome (ScriptSession::*)(const QJsonObject&);
    static const QHash<QString, Handler>& handlers();

    // Data objects (script_session_objects.cpp).
    Outcome opNew(const QJsonObject& step);
    Outcome opGet(const QJsonObject& step);
    Outcome opRead(const QJsonObject& step);
    Outcome opSet(const QJsonObject& step);
    Outcome opFields(const QJsonObject& step);
    Outcome opProperties(const QJsonObject& step);
    Outcome opMethods(const QJsonObject& step);
    Outcome opSave(const QJsonObject& step);
    Outcome opDelete(const QJsonObject& step);

    // Recordsets (script_session_recordsets.cpp).
    Outcome opRecordset(const QJsonObject& step);
    Outcome opFilter(const QJsonObject& step);
    Outcome opSort(const QJsonObject& step);
    Outcome opRows(const QJsonObject& step);

    // The session, the business object and the shared routines (script_session.cpp).
    Outcome opCatalogue(const QJsonObject& step);
    Outcome opBo(const QJsonObject& step);
    Outcome opMessages(const QJsonObject& step);
    Outcome opAnswer(const QJsonObject& step);
    Outcome opMethodList(const QJsonObject& step);
    Outcome opToday(const QJsonObject& step);

    // The data object a step names with "obj"; null with `error` set otherwise.
    OrvoObjectUIOPtr objectOf(const QJsonObject& step, QString* error) const;
    // The recordset a step names: "rs" (a kept recordset, or the record of a kept data
    // object) or "obj", then "path" into its nested recordsets.
    RecordsetPtr recordsetOf(const QJsonObject& step, QString* error) const;
    // A JSON parameter as a value, {"ref": name} standing for what was kept under name.
    bool paramToValue(const QJsonValue& json, Value* out, QString* error) const;
    // "params" of a step as an array of values (a single value is an array of one).
    bool paramArray(const QJsonObject& step, ValueArray* out, QString* error) const;
    // A new or stored data object through the host's objects service; when the service
    // gives none, the reason, found by reading a blank object of the kind.
    OrvoObjectUIOPtr makeObject(const QString& codeOrOidr, ResultRecord* why) const;

    struct AddedOp {
        OpHandler Handler;
        bool Keeps = false;
    };

    HostSession& session_;
    QHash<QString, Value> held_;
    QHash<QString, AddedOp> added_;
};

} // namespace orvo::host
