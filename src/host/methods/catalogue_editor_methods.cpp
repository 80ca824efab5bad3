#include "host/methods/catalogue_editor_methods.h"

#include "core/recordset.h"
#include "frame/security_header.h"
#include "host/catalogues/catalogue_editor_fields.h"
#include "host/catalogues/catalogue_kinds.h"
#include "host/catalogues/user_kind.h"
#include "host/methods/method_arguments.h"
#include "host/methods/method_context.h"
#include "host/methods/method_helpers.h"
#include "host/methods/method_registry.h"
#include "host/storage/database.h"

#include <QHash>
#include <QSet>
#include <array>

namespace orvo::host {

namespace {

const QString kGroupRights = QStringLiteral("CBROperRights");

qint64 idOf(const QString& oidr, const QString& code) {
    const QString t = oidr.trimmed();
    if (t.size() < 9 || !t.startsWith(code))
        return 0;
    return t.mid(code.size()).toLongLong();
}

void addRight(Recordset& rs, const QString& key, const QString& parent, const QString& title,
              qint32 kind, const std::array<bool, 5>& flags) {
    rs.AddNew();
    rs.SetField(QStringLiteral("RightKey"), key);
    rs.SetField(QStringLiteral("ParentKey"), parent);
    rs.SetField(QStringLiteral("Title"), title);
    rs.SetField(QStringLiteral("Kind"), Value(kind));
    const char* names[] = {"ReadFlag", "DeleteFlag", "EditFlag", "CreateFlag", "FifthFlag"};
    for (int i = 0; i < 5; ++i)
        rs.SetField(QString::fromLatin1(names[i]), Value(flags[i]));
    rs.Update();
}

BOResult userRights(MethodContext& ctx, const MethodArguments& args) {
    if (!ctx.database)
        return NoBookResult(QStringLiteral("DO0000900_GetUserRights"));
    Database& db = *ctx.database;
    const qint64 userId = idOf(args.Text(QStringLiteral("OIDR")), kinds::User);

    // What the user holds, by key, in the order of the rights record.
    QHash<QString, std::array<bool, 5>> held;
    QStringList heldOrder;
    if (userId > 0) {
        const QueryResult q = db.Query(
            QStringLiteral("SELECT RightKey, ReadFlag, DeleteFlag, EditFlag, CreateFlag, FifthFlag "
                           "FROM Rights WHERE UserID = ? ORDER BY RightKey"),
            {Value(double(userId))});
        if (!q.ok())
            return BOResult::Failure(q.Code, q.Text);
        for (int i = 0; i < q.RowCount(); ++i) {
            std::array<bool, 5> flags{};
            for (int f = 0; f < 5; ++f)
                flags[f] = q.At(i, f + 1).toInt32() != 0;
            const QString key = q.At(i, 0).toString();
            held.insert(key, flags);
            heldOrder.append(key);
        }
    }

    auto rs = Recordset::Create(UserRightFields());
    QSet<QString> listed;
    auto add = [&](const QString& key, const QString& parent, const QString& title, qint32 kind) {
        addRight(*rs, key, parent, title, kind, held.value(key, std::array<bool, 5>{}));
        listed.insert(key);
    };
    for (const ComponentRight& right : SecurityHeader().GetComponentList())
        add(right.Key, right.ParentKey, right.Title, right.Kind);

    const QueryResult groups = db.Query(
        QStringLiteral("SELECT ID, Name FROM BROperGroups WHERE GroupFlag = 0 ORDER BY Name, ID"));
    if (!groups.ok())
        return BOResult::Failure(groups.Code, groups.Text);
    for (int i = 0; i < groups.RowCount(); ++i) {
        const qint64 id = static_cast<qint64>(groups.At(i, 0).toDouble());
        add(kGroupRights + QString::number(id), kGroupRights,
            QStringLiteral("Grupės „%1“ operacijos").arg(groups.At(i, 1).toString()),
            ComponentRight::FullActions);
    }

    for (const CatalogueRightKey& right : CatalogueRightKeys())
        add(right.Key, QString(), right.Title, ComponentRight::FullActions);

    // Keys given by other means (another component, a removed group) stay visible, so
    // that they can be taken away.
    for (const QString& key : heldOrder)
        if (!listed.contains(key))
            add(key, QString(), key, ComponentRight::FullActions);
    rs->AcceptChanges();
    rs->MoveFirst();
    return BOResult::Of(Value(rs));
}

QString currencyCode(const MethodArguments& args) {
    return args.Text(QStringLiteral("Code")).trimmed().toUpper();
}

BOResult dayRates(MethodContext& ctx, const MethodArguments& args) {
    if (!ctx.database)
        return NoBookResult(QStringLiteral("DO0002200_GetDayRates"));
    const QueryResult q = ctx.database->Query(
        QStringLiteral("SELECT r.DateD, r.Rate, r.CurrencyRate FROM CurrencyRates r "
                       "JOIN Currencies c ON c.ID = r.CurrencyID WHERE c.Code = ? "
                       "ORDER BY r.DateD DESC"),
        {Value(currencyCode(args))}, {QStringLiteral("DateD")});
    if (!q.ok())
        return BOResult::Failure(q.Code, q.Text);
    auto rs =
        Recordset::Create({FieldDef::Make(QStringLiteral("DateD"), FieldType::Date),
                           FieldDef::Make(QStringLiteral("Rate"), FieldType::Double),
                           FieldDef::Make(QStringLiteral("CurrencyRate"), FieldType::Double)});
    for (int i = 0; i < q.RowCount(); ++i) {
        rs->AddNew();
        rs->SetField(QStringLiteral("DateD"), q.At(i, 0));
        rs->SetField(QStringLiteral("Rate"), q.At(i, 1));
        rs->SetField(QStringLiteral("CurrencyRate"), q.At(i, 2));
        rs->Update();
    }
    rs->AcceptChanges();
    rs->MoveFirst();
    return BOResult::Of(Value(rs));
}

BOResult deleteDayRate(MethodContext& ctx, const MethodArguments& args) {
    if (!ctx.database)
        return NoBookResult(QStringLiteral("DO0002200_DeleteDayRate"));
    const ExecResult r = ctx.database->Execute(
        QStringLiteral("DELETE FROM CurrencyRates WHERE DateD = ? AND CurrencyID IN "
                       "(SELECT ID FROM Currencies WHERE Code = ?)"),
        {Value(args.Date(QStringLiteral("Date"))), Value(currencyCode(args))});
    if (!r.ok())
        return BOResult::Failure(r.Code, r.Text);
    if (r.RowsAffected == 0)
        return BOResult::Failure(
            codes::Refused,
            QStringLiteral("Valiutos %1 kurso %2 dienai nėra.")
                .arg(currencyCode(args),
                     args.Date(QStringLiteral("Date")).toString(QStringLiteral("yyyy.MM.dd"))));
    return BOResult::Of(Value(true));
}

} // namespace

QList<CatalogueRightKey> CatalogueRightKeys() {
    ObjectKindRegistry registry;
    AddCatalogueKinds(registry);
    QList<CatalogueRightKey> keys;
    for (const QString& code : CatalogueEditorKinds()) {
        const ObjectKindPtr kind = registry.Find(code);
        keys.append({CatalogueRightKeyOf(code), kind ? kind->Title : code});
    }
    return keys;
}

ResultRecord RegisterCatalogueEditorMethods(MethodRegistry& methods) {
    MethodDefinition rights;
    rights.name = QStringLiteral("DO0000900_GetUserRights");
    rights.parameters = {
        ParameterSpec::Optional(QStringLiteral("OIDR"), ParameterKind::Text, Value(QString()))};
    rights.fields = UserRightFields();
    rights.doc = QStringLiteral(
        "Every right a user may be given with the user's five flags: the component's list, "
        "the operations of each operation group, the host's catalogues, then any other key "
        "the user holds. A new user (short OIDR) holds none.");
    rights.handler = userRights;

    MethodDefinition rates;
    rates.name = QStringLiteral("DO0002200_GetDayRates");
    rates.parameters = {ParameterSpec::Required(QStringLiteral("Code"), ParameterKind::Text)};
    rates.fields = {FieldDef::Make(QStringLiteral("DateD"), FieldType::Date),
                    FieldDef::Make(QStringLiteral("Rate"), FieldType::Double),
                    FieldDef::Make(QStringLiteral("CurrencyRate"), FieldType::Double)};
    rates.doc = QStringLiteral("The daily rates kept for a currency, the latest first.");
    rates.handler = dayRates;

    MethodDefinition drop;
    drop.name = QStringLiteral("DO0002200_DeleteDayRate");
    drop.parameters = {ParameterSpec::Required(QStringLiteral("Code"), ParameterKind::Text),
                       ParameterSpec::Required(QStringLiteral("Date"), ParameterKind::Date)};
    drop.doc = QStringLiteral("Removes a currency's rate of one day; refused when none is kept.");
    drop.handler = deleteDayRate;

    for (const MethodDefinition* m : {&rights, &rates, &drop}) {
        const ResultRecord r = methods.Register(*m);
        if (!r.ok())
            return r;
    }
    return ResultRecord::Success();
}

} // namespace orvo::host
