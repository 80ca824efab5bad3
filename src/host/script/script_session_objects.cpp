// The ops of `orvo script` that work on data objects: new, get, read, set, fields,
// properties, methods, save and delete (see script_session.h).
#include "core/recordset.h"
#include "frame/object_registry.h"
#include "frame/orvo_object_ui_base.h"
#include "frame/orvo_services.h"
#include "host/script/field_path.h"
#include "host/script/json_value.h"
#include "host/script/script_reply.h"
#include "host/script/script_session.h"
#include "host/session/host_session.h"

#include <QJsonArray>
#include <QRegularExpression>

namespace orvo::host {

using namespace script;

namespace {

bool isObjectCode(const QString& code) {
    static const QRegularExpression shape(QStringLiteral("^[A-Z][0-9]{7}$"));
    return shape.match(code).hasMatch();
}

QString unknownCode(const QString& code) {
    return QStringLiteral("Nežinomas objekto kodas „%1“: tokios rūšies duomenų objektų nėra.")
        .arg(code);
}

// What a reply tells of a data object.
void describe(QJsonObject& reply, const OrvoObjectUIOPtr& uio) {
    reply.insert("OIDR", uio->OIDR());
    reply.insert("OID", uio->OID());
    reply.insert("Class", uio->ClassName());
}

Value held(const OrvoObjectUIOPtr& uio) {
    return Value(std::static_pointer_cast<ObjectBase>(uio));
}

// A row number of a step ("row": 0, "row": "new").
QString rowText(const QJsonValue& row) {
    if (row.isDouble())
        return QString::number(static_cast<qint64>(row.toDouble()));
    return row.toString();
}

QString jsonText(const QJsonValue& v) {
    if (v.isString())
        return QLatin1Char('"') + v.toString() + QLatin1Char('"');
    if (v.isNull())
        return QStringLiteral("null");
    if (v.isBool())
        return v.toBool() ? QStringLiteral("true") : QStringLiteral("false");
    if (v.isDouble())
        return QString::number(v.toDouble(), 'g', 17);
    return QStringLiteral("(JSON %1)")
        .arg(v.isArray() ? QStringLiteral("masyvas") : QStringLiteral("objektas"));
}

} // namespace

ScriptSession::Outcome ScriptSession::opNew(const QJsonObject& step) {
    const QString code = step.value("code").toString().trimmed();
    if (!isObjectCode(code))
        return {Failure(QStringLiteral("„code“ turi būti objekto kodas: raidė ir septyni "
                                       "skaitmenys, pvz. \"O0201500\"."))};
    if (!ObjectRegistry::Component().HasDataObject(code))
        return {Failure(unknownCode(code))};
    ResultRecord why;
    const OrvoObjectUIOPtr uio = makeObject(code, &why);
    if (!uio)
        return {Contract(why)};
    QJsonObject reply = Contract(0, QString());
    describe(reply, uio);
    return {reply, held(uio)};
}

ScriptSession::Outcome ScriptSession::opGet(const QJsonObject& step) {
    const QString oidr = step.value("oidr").toString().trimmed();
    if (oidr.size() < 9 || !isObjectCode(oidr.left(8)))
        return {Failure(QStringLiteral("„oidr“ turi būti įrašo nuoroda: objekto kodas ir įrašo "
                                       "numeris, pvz. \"O00001001\"."))};
    if (!ObjectRegistry::Component().HasDataObject(oidr))
        return {Failure(unknownCode(oidr.left(8)))};
    ResultRecord why;
    const OrvoObjectUIOPtr uio = makeObject(oidr, &why);
    if (!uio)
        return {Contract(why)};
    QJsonObject reply = Contract(0, QString());
    describe(reply, uio);
    return {reply, held(uio)};
}

ScriptSession::Outcome ScriptSession::opRead(const QJsonObject& step) {
    QString error;
    const OrvoObjectUIOPtr uio = objectOf(step, &error);
    if (!uio)
        return {Failure(error)};
    QJsonObject reply = Contract(uio->Read());
    reply.insert("OIDR", uio->OIDR());
    return {reply};
}

ScriptSession::Outcome ScriptSession::opSet(const QJsonObject& step) {
    QString error;
    const OrvoObjectUIOPtr uio = objectOf(step, &error);
    if (!uio)
        return {Failure(error)};
    const RecordsetPtr root = uio->RsFields();
    if (!root)
        return {Failure(QStringLiteral("Objektas dar neturi įrašo."))};
    const QJsonValue fieldsValue = step.value("fields");
    if (!fieldsValue.isObject() && !(fieldsValue.isUndefined() && step.contains("row")))
        return {Failure(QStringLiteral("„fields“ turi būti objektas: {\"Laukas\": reikšmė}."))};
    const QJsonObject fields = fieldsValue.toObject();

    // The row the keys start from: the current row, or the one "path" and "row" name.
    RowPlace base{root, QString()};
    if (step.contains("path")) {
        const QString path = step.value("path").toString();
        if (step.contains("row")) {
            const QString row = rowText(step.value("row"));
            base = FieldPath::WalkRows(root, path.split(QLatin1Char('/')) << row,
                                       path + QLatin1Char('/') + row);
        } else {
            base = FieldPath::NestedRecordset(root, path);
            if (base.ok() && (base.Rs->Bof() || base.Rs->Eof()))
                base = {nullptr, QStringLiteral("Rinkinys „%1“ neturi dabartinės eilutės; "
                                                "nurodykite „row“.")
                                     .arg(path)};
        }
    } else if (step.contains("row")) {
        return {Failure(QStringLiteral("„row“ tinka tik su „path“ (įdėtu rinkiniu)."))};
    } else if (root->Bof() || root->Eof()) {
        base = {nullptr, QStringLiteral("Objekto įrašas neturi dabartinės eilutės.")};
    }
    if (!base.ok())
        return {Failure(base.Error)};

    // First find every field and read every value, so that a mistake sets nothing (a row
    // added for the step is dropped again).
    const bool addedRow = step.value("row").toString() == QLatin1String("new");
    auto refuse = [&](const QString& text) -> Outcome {
        if (addedRow) {
            base.Rs->Delete();
            base.Rs->MoveFirst();
        }
        return {Failure(text)};
    };
    struct Write {
        QStringList Pairs;
        QString Key;
        QString Field;
        Value Item;
        QJsonValue Json;
    };
    QVector<Write> writes;
    for (auto it = fields.begin(); it != fields.end(); ++it) {
        QStringList pairs;
        QString field;
        if (!FieldPath::SplitKey(it.key(), &pairs, &field, &error))
            return refuse(error);
        if (pairs.contains(QStringLiteral("new")))
            return refuse(QStringLiteral("Kelias „%1“: naujos eilutės („new“) kelyje būti "
                                         "negali; naudokite „path“ ir „row“: \"new\".")
                              .arg(it.key()));
        const RowPlace place =
            pairs.isEmpty() ? base : FieldPath::WalkRows(base.Rs, pairs, it.key());
        if (!place.ok())
            return refuse(place.Error);
        if (!place.Rs->HasField(field))
            return refuse(QStringLiteral("Nėra lauko „%1“.").arg(it.key()));
        Value item;
        if (!paramToValue(it.value(), &item, &error))
            return refuse(error);
        writes.append({pairs, it.key(), field, item, it.value()});
    }
    int written = 0;
    for (const Write& w : writes) {
        // Keys may name different rows of one nested recordset: walk to each row again.
        const RowPlace place =
            w.Pairs.isEmpty() ? base : FieldPath::WalkRows(base.Rs, w.Pairs, w.Key);
        if (!place.Rs->SetField(w.Field, w.Item)) {
            const FieldDef& def = place.Rs->FieldDefinitions().at(place.Rs->FieldIndex(w.Field));
            QJsonObject reply = Failure(QStringLiteral("Laukui „%1“ (%2) reikšmė %3 netinka.")
                                            .arg(w.Key, FieldTypeName(def.type), jsonText(w.Json)));
            reply.insert("count", written);
            return {reply};
        }
        place.Rs->Update();
        ++written;
    }
    if (writes.isEmpty())
        base.Rs->Update();
    QJsonObject reply = Success();
    reply.insert("count", written);
    return {reply};
}

ScriptSession::Outcome ScriptSession::opFields(const QJsonObject& step) {
    QString error;
    const OrvoObjectUIOPtr uio = objectOf(step, &error);
    if (!uio)
        return {Failure(error)};
    const RecordsetPtr rs = uio->RsFields();
    if (!rs)
        return {Failure(QStringLiteral("Objektas dar neturi įrašo."))};
    const QString path = step.value("path").toString();
    QJsonObject reply = Success();
    reply.insert("OIDR", uio->OIDR());
    if (path.isEmpty()) {
        reply.insert("Value", CurrentRowToJson(*rs));
        return {reply};
    }
    const QStringList parts = path.split(QLatin1Char('/'));
    if (parts.size() % 2 == 0) {
        // "BR/0": one nested row.
        const RowPlace place = FieldPath::WalkRows(rs, parts, path);
        if (!place.ok())
            return {Failure(place.Error)};
        reply.insert("Value", CurrentRowToJson(*place.Rs));
        return {reply};
    }
    // "BR": the whole nested recordset.
    const RowPlace nested = FieldPath::NestedRecordset(rs, path);
    if (!nested.ok())
        return {Failure(nested.Error)};
    reply.insert("Value", RecordsetToJson(*nested.Rs));
    return {reply};
}

ScriptSession::Outcome ScriptSession::opProperties(const QJsonObject& step) {
    QString error;
    const OrvoObjectUIOPtr uio = objectOf(step, &error);
    if (!uio)
        return {Failure(error)};
    const QString name = step.value("name").toString();
    if (name.isEmpty())
        return {Failure(QStringLiteral("Nenurodytas užklausos vardas („name“)."))};
    const QJsonValue params = step.value("params");
    if (!params.isUndefined() && !params.isString())
        return {Failure(QStringLiteral("Properties parametrai („params“) yra vienas tekstas, "
                                       "pvz. \"\" arba \"'2410'\"."))};
    const ValueResult r = uio->Properties(name, params.toString());
    return {Contract(r), r.Value};
}

ScriptSession::Outcome ScriptSession::opMethods(const QJsonObject& step) {
    QString error;
    const OrvoObjectUIOPtr uio = objectOf(step, &error);
    if (!uio)
        return {Failure(error)};
    const QString name = step.value("name").toString();
    if (name.isEmpty())
        return {Failure(QStringLiteral("Nenurodytas komandos vardas („name“)."))};
    ValueArray params;
    if (!paramArray(step, &params, &error))
        return {Failure(error)};
    const ValueResult r = uio->Methods(name, params);
    return {Contract(r), r.Value};
}

ScriptSession::Outcome ScriptSession::opSave(const QJsonObject& step) {
    QString error;
    const OrvoObjectUIOPtr uio = objectOf(step, &error);
    if (!uio)
        return {Failure(error)};
    ValueArray params;
    if (!paramArray(step, &params, &error))
        return {Failure(error)};
    if (params.size() > 2)
        return {Failure(QStringLiteral("Save priima ne daugiau kaip du papildomus rinkinius."))};
    const ResultRecord r = uio->Save(params.value(0), params.value(1));
    QJsonObject reply = Contract(r);
    reply.insert("OIDR", uio->OIDR());
    return {reply};
}

ScriptSession::Outcome ScriptSession::opDelete(const QJsonObject& step) {
    QString oidr;
    if (step.contains("obj")) {
        QString error;
        const OrvoObjectUIOPtr uio = objectOf(step, &error);
        if (!uio)
            return {Failure(error)};
        oidr = uio->OIDR();
        if (oidr.size() < 9)
            return {Failure(QStringLiteral("Objektas dar neįrašytas, todėl trinti nėra ko."))};
    } else {
        oidr = step.value("oidr").toString().trimmed();
        if (oidr.size() < 9 || !isObjectCode(oidr.left(8)))
            return {Failure(QStringLiteral("Nurodykite objektą („obj“) arba įrašo nuorodą "
                                           "(„oidr“), pvz. \"O00001001\"."))};
    }
    const OrvoServicesPtr services = session_.Services();
    const OrvoObjectsServicePtr objects = services ? services->ObjectsService() : nullptr;
    const OrvoObjectUIPtr ui = objects ? objects->GetObjectUI(oidr.left(8)) : nullptr;
    if (!ui)
        return {Failure(unknownCode(oidr.left(8)))};
    const bool deleted = ui->DeleteOrvoObject(oidr);
    ResultRecord r;
    if (const auto base = std::dynamic_pointer_cast<OrvoObjectUIBase>(ui))
        r = base->Core().LastResult();
    if (!deleted && r.ok())
        r = ResultRecord::Failure(codes::RefusedNoWarning,
                                  QStringLiteral("Įrašas „%1“ neištrintas.").arg(oidr));
    QJsonObject reply = Contract(r);
    reply.insert("Value", deleted);
    reply.insert("OIDR", oidr);
    return {reply};
}

} // namespace orvo::host
