#include "host/objects/object_methods.h"

#include "host/methods/method_arguments.h"

#include "host/methods/method_context.h"
#include "host/methods/method_helpers.h"
#include "host/methods/method_registry.h"
#include "host/objects/object_store.h"
#include "host/storage/database.h"

namespace orvo::host {

namespace {} // namespace

ResultRecord RegisterObjectMethods(MethodRegistry& methods, const ObjectKindRegistry& kinds) {
    for (const QString& code : kinds.Codes()) {
        const ObjectKindPtr kind = kinds.Find(code);
        const QString prefix = QStringLiteral("D") + code + QStringLiteral("_");

        MethodDefinition get;
        get.name = prefix + QStringLiteral("GetOrvoObject");
        get.parameters = {ParameterSpec::Required(QStringLiteral("OIDR"), ParameterKind::Text)};
        get.fields = ObjectStore::RecordFields(kind->Root);
        get.doc = QStringLiteral("The stored record of %1 (%2) with its nested rows; for the bare "
                                 "code, a blank record of one new row.")
                      .arg(code, kind->Title);
        get.handler = [kind, name = get.name](MethodContext& ctx, const MethodArguments& args) {
            if (!ctx.database)
                return NoBookResult(name);
            ObjectStore store(*ctx.database);
            const QString oidr = args.Text(QStringLiteral("OIDR")).trimmed();
            if (oidr.size() < 9)
                return store.ReadBlank(*kind, oidr);
            const qint64 id = ObjectStore::IdFromOIDR(*kind, oidr);
            if (id == 0)
                return BOResult::Failure(
                    1, QStringLiteral("%1: „%2“ nėra šios rūšies įrašo nuoroda.").arg(name, oidr));
            return store.Read(*kind, id);
        };

        MethodDefinition save;
        save.name = prefix + QStringLiteral("SaveOrvoObject");
        save.parameters = {
            ParameterSpec::Optional(QStringLiteral("OIDR"), ParameterKind::Text, Value(QString()))};
        save.fields = {FieldDef::Make(QStringLiteral("OIDR"), FieldType::VarWChar, 30),
                       FieldDef::Make(QStringLiteral("ID"), FieldType::Integer),
                       FieldDef::Make(QStringLiteral("LockGUID"), FieldType::VarWChar, 40)};
        save.doc =
            QStringLiteral("Stores the record of %1 handed in with the call, with all its nested "
                           "rows, in one transaction. A short OIDR stores a new record.")
                .arg(code);
        save.handler = [kind, name = save.name](MethodContext& ctx, const MethodArguments& args) {
            if (!ctx.database)
                return NoBookResult(name);
            const RecordsetPtr rs = InputRecordset(args.Input());
            const QString oidr = args.Text(QStringLiteral("OIDR")).trimmed();
            qint64 id = 0;
            if (oidr.size() >= 9) {
                id = ObjectStore::IdFromOIDR(*kind, oidr);
                if (id == 0)
                    return BOResult::Failure(
                        1,
                        QStringLiteral("%1: „%2“ nėra šios rūšies įrašo nuoroda.").arg(name, oidr));
            }
            ObjectStore store(*ctx.database);
            return store.Save(*kind, id, rs);
        };

        MethodDefinition del;
        del.name = prefix + QStringLiteral("DeleteOrvoObject");
        del.parameters = {ParameterSpec::Required(QStringLiteral("OIDR"), ParameterKind::Text)};
        del.doc = QStringLiteral("Removes the record of %1 with its nested rows.").arg(code);
        del.handler = [kind, name = del.name](MethodContext& ctx, const MethodArguments& args) {
            if (!ctx.database)
                return NoBookResult(name);
            const qint64 id = ObjectStore::IdFromOIDR(*kind, args.Text(QStringLiteral("OIDR")));
            if (id == 0)
                return BOResult::Failure(1,
                                         QStringLiteral("%1: „%2“ nėra šios rūšies įrašo nuoroda.")
                                             .arg(name, args.Text(QStringLiteral("OIDR"))));
            ObjectStore store(*ctx.database);
            return store.Delete(*kind, id);
        };

        MethodDefinition list;
        list.name = prefix + QStringLiteral("GetOrvoObjectList");
        list.parameters = {
            ParameterSpec::Optional(QStringLiteral("OID"), ParameterKind::Text, Value(QString())),
            ParameterSpec::Optional(QStringLiteral("From"), ParameterKind::Text, Value(QString())),
            ParameterSpec::Optional(QStringLiteral("To"), ParameterKind::Text, Value(QString()))};
        list.fields = {FieldDef::Make(QStringLiteral("OIDR"), FieldType::VarWChar, 30),
                       FieldDef::Make(QStringLiteral("OType"), FieldType::VarWChar, 20),
                       FieldDef::Make(QStringLiteral("Preview"), FieldType::VarWChar)};
        list.doc =
            QStringLiteral("The records of %1 in list order; From and To are 1-based positions "
                           "(empty or 0: from the start, to the end).")
                .arg(code);
        list.handler = [kind, name = list.name](MethodContext& ctx, const MethodArguments& args) {
            if (!ctx.database)
                return NoBookResult(name);
            ObjectStore store(*ctx.database);
            return store.List(*kind, ListPosition(args.Text(QStringLiteral("From"))),
                              ListPosition(args.Text(QStringLiteral("To"))));
        };

        for (const MethodDefinition* m : {&get, &save, &del, &list}) {
            const ResultRecord r = methods.Register(*m);
            if (!r.ok())
                return r;
        }
    }
    return ResultRecord::Success();
}

} // namespace orvo::host
