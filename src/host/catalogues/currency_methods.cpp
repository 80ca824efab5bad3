#include "host/catalogues/currency_methods.h"

#include "core/recordset.h"

#include "host/catalogues/catalogue_kinds.h"
#include "host/methods/method_arguments.h"
#include "host/methods/method_context.h"
#include "host/methods/method_helpers.h"
#include "host/methods/method_registry.h"
#include "host/storage/database.h"

namespace orvo::host {

namespace {

FieldDefs currencyListFields() {
    return {FieldDef::Make(QStringLiteral("OIDR"), FieldType::VarWChar, 30),
            FieldDef::Make(QStringLiteral("Code"), FieldType::VarWChar, 3),
            FieldDef::Make(QStringLiteral("Name"), FieldType::VarWChar, 100),
            FieldDef::Make(QStringLiteral("BaseCurrency"), FieldType::SmallInt),
            FieldDef::Make(QStringLiteral("Rate"), FieldType::Double),
            FieldDef::Make(QStringLiteral("CurrencyRate"), FieldType::Double),
            FieldDef::Make(QStringLiteral("RateDate"), FieldType::Date)};
}

BOResult currencyList(MethodContext& ctx, const MethodArguments& args) {
    if (!ctx.database)
        return NoBookResult(QStringLiteral("GetCurrencyList"));
    const QDate date = args.IsGiven(QStringLiteral("Date")) ? args.Date(QStringLiteral("Date"))
                                                            : QDate(9999, 12, 31);
    const QueryResult q = ctx.database->Query(
        QStringLiteral(
            "SELECT c.ID, c.Code, c.Name, c.BaseCurrency, c.FixedRate, r.DateD, r.Rate, "
            "r.CurrencyRate "
            "FROM Currencies c LEFT JOIN CurrencyRates r ON r.CurrencyID = c.ID AND r.DateD = "
            "(SELECT MAX(r2.DateD) FROM CurrencyRates r2 WHERE r2.CurrencyID = c.ID AND r2.DateD "
            "<= ?) "
            "ORDER BY c.BaseCurrency DESC, c.Code"),
        {Value(date)}, {QStringLiteral("DateD")});
    if (!q.ok())
        return BOResult::Failure(q.Code, q.Text);
    auto rs = Recordset::Create(currencyListFields());
    for (int i = 0; i < q.RowCount(); ++i) {
        const bool base = q.At(i, 3).toInt32() != 0;
        double rate = q.At(i, 6).toDouble();
        double quoted = q.At(i, 7).toDouble();
        if (base) {
            rate = 1.0;
            quoted = 1.0;
        } else if (q.At(i, 6).isNull() && q.At(i, 4).toDouble() > 0) {
            // A fixed rate stands in for the day's rate where none is kept.
            rate = q.At(i, 4).toDouble();
            quoted = 1.0 / rate;
        }
        rs->AddNew();
        rs->SetField(
            QStringLiteral("OIDR"),
            QString(kinds::Currency + QString::number(static_cast<qint64>(q.At(i, 0).toDouble()))));
        rs->SetField(QStringLiteral("Code"), q.At(i, 1));
        rs->SetField(QStringLiteral("Name"), q.At(i, 2));
        rs->SetField(QStringLiteral("BaseCurrency"), Value(qint16(base ? 1 : 0)));
        rs->SetField(QStringLiteral("Rate"), Value(rate));
        rs->SetField(QStringLiteral("CurrencyRate"), Value(quoted));
        rs->SetField(QStringLiteral("RateDate"), q.At(i, 5));
        rs->Update();
    }
    rs->AcceptChanges();
    rs->MoveFirst();
    return BOResult::Of(Value(rs));
}

BOResult currencyByCode(MethodContext& ctx, const MethodArguments& args) {
    if (!ctx.database)
        return NoBookResult(QStringLiteral("GetCurrencyByCode"));
    const QueryResult q = ctx.database->Query(
        QStringLiteral("SELECT ID, Code, Name, BaseCurrency FROM Currencies WHERE Code = ?"),
        {Value(args.Text(QStringLiteral("Code")).trimmed().toUpper())});
    if (!q.ok())
        return BOResult::Failure(q.Code, q.Text);
    auto rs =
        Recordset::Create({FieldDef::Make(QStringLiteral("OIDR"), FieldType::VarWChar, 30),
                           FieldDef::Make(QStringLiteral("Code"), FieldType::VarWChar, 3),
                           FieldDef::Make(QStringLiteral("Name"), FieldType::VarWChar, 100),
                           FieldDef::Make(QStringLiteral("BaseCurrency"), FieldType::SmallInt)});
    for (int i = 0; i < q.RowCount(); ++i) {
        rs->AddNew();
        rs->SetField(
            QStringLiteral("OIDR"),
            QString(kinds::Currency + QString::number(static_cast<qint64>(q.At(i, 0).toDouble()))));
        rs->SetField(QStringLiteral("Code"), q.At(i, 1));
        rs->SetField(QStringLiteral("Name"), q.At(i, 2));
        rs->SetField(QStringLiteral("BaseCurrency"),
                     Value(qint16(q.At(i, 3).toInt32() != 0 ? 1 : 0)));
        rs->Update();
    }
    rs->AcceptChanges();
    rs->MoveFirst();
    return BOResult::Of(Value(rs));
}

BOResult saveDayRate(MethodContext& ctx, const MethodArguments& args) {
    if (!ctx.database)
        return NoBookResult(QStringLiteral("SaveDayRate"));
    Database& db = *ctx.database;
    const QString code = args.Text(QStringLiteral("Code")).trimmed().toUpper();
    const double rate = args.Number(QStringLiteral("Rate"));
    if (!(rate > 0))
        return BOResult::Failure(
            codes::Refused,
            QStringLiteral("Valiutos %1 kursas turi būti didesnis už nulį.").arg(code));
    const QueryResult c = db.Query(
        QStringLiteral("SELECT ID, BaseCurrency FROM Currencies WHERE Code = ?"), {Value(code)});
    if (!c.ok())
        return BOResult::Failure(c.Code, c.Text);
    if (c.RowCount() == 0)
        return BOResult::Failure(codes::Refused, QStringLiteral("Valiuta %1 nerasta.").arg(code));
    if (c.At(0, 1).toInt32() != 0)
        return BOResult::Failure(
            codes::Refused, QStringLiteral("Bazinės valiutos %1 kursas nekeičiamas.").arg(code));
    double quoted = args.Number(QStringLiteral("CurrencyRate"));
    if (!args.IsGiven(QStringLiteral("CurrencyRate")) || !(quoted > 0))
        quoted = ctx.baseCurrency == QLatin1String("EUR") ? 1.0 / rate : rate;
    const ExecResult r = db.Execute(
        QStringLiteral(
            "INSERT INTO CurrencyRates (CurrencyID, DateD, Rate, CurrencyRate) VALUES (?, ?, ?, ?) "
            "ON CONFLICT (CurrencyID, DateD) DO UPDATE SET Rate = excluded.Rate, "
            "CurrencyRate = excluded.CurrencyRate"),
        {c.At(0, 0), Value(args.Date(QStringLiteral("Date"))), Value(rate), Value(quoted)});
    if (!r.ok())
        return BOResult::Failure(r.Code, r.Text);
    return BOResult::Of(Value(true));
}

} // namespace

ResultRecord RegisterCurrencyMethods(MethodRegistry& methods) {
    MethodDefinition list;
    list.name = QStringLiteral("GetCurrencyList");
    list.parameters = {ParameterSpec::Optional(QStringLiteral("Date"), ParameterKind::Date)};
    list.fields = currencyListFields();
    list.doc = QStringLiteral(
        "Every currency with its latest rate on or before the date (no date: the "
        "latest of all). The base currency has BaseCurrency 1 and rate 1; a currency "
        "with no rate kept has its fixed rate, or 0.");
    list.handler = currencyList;

    MethodDefinition byCode;
    byCode.name = QStringLiteral("GetCurrencyByCode");
    byCode.parameters = {ParameterSpec::Required(QStringLiteral("Code"), ParameterKind::Text)};
    byCode.fields = {FieldDef::Make(QStringLiteral("OIDR"), FieldType::VarWChar, 30),
                     FieldDef::Make(QStringLiteral("Code"), FieldType::VarWChar, 3),
                     FieldDef::Make(QStringLiteral("Name"), FieldType::VarWChar, 100),
                     FieldDef::Make(QStringLiteral("BaseCurrency"), FieldType::SmallInt)};
    byCode.doc = QStringLiteral("The currency of a three-letter code (no row when there is none).");
    byCode.handler = currencyByCode;

    MethodDefinition save;
    save.name = QStringLiteral("SaveDayRate");
    save.parameters = {
        ParameterSpec::Required(QStringLiteral("Code"), ParameterKind::Text),
        ParameterSpec::Required(QStringLiteral("Date"), ParameterKind::Date),
        ParameterSpec::Required(QStringLiteral("Rate"), ParameterKind::Number),
        ParameterSpec::Optional(QStringLiteral("CurrencyRate"), ParameterKind::Number)};
    save.doc =
        QStringLiteral("Keeps a currency's rate of a day, replacing one kept before. Rate is base "
                       "currency per unit; CurrencyRate is the quoted rate (under a euro base its "
                       "reciprocal, which is the default).");
    save.handler = saveDayRate;

    for (const MethodDefinition* m : {&list, &byCode, &save}) {
        const ResultRecord r = methods.Register(*m);
        if (!r.ok())
            return r;
    }
    return ResultRecord::Success();
}

} // namespace orvo::host
