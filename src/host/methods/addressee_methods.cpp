#include "host/methods/addressee_methods.h"

#include "core/recordset.h"
#include "host/methods/method_arguments.h"
#include "host/methods/method_context.h"
#include "host/methods/method_helpers.h"
#include "host/methods/method_registry.h"
#include "host/storage/database.h"

#include <QPair>
#include <QVector>

namespace orvo::host {

namespace {

const QString kEntryKind = QStringLiteral("O0201500");

// Every kind an addressee row may carry, in the order menus offer them.
const QVector<QPair<QString, QString>>& addresseeKinds() {
    static const QVector<QPair<QString, QString>> kinds = {
        {QStringLiteral("O0000100"), QStringLiteral("Įmonė")},
        {QStringLiteral("O0001402"), QStringLiteral("Fizinis asmuo")},
        {QStringLiteral("O0001401"), QStringLiteral("Darbuotojas")},
        {QStringLiteral("O0000300"), QStringLiteral("Bankas")},
        {QStringLiteral("O0000500"), QStringLiteral("Banko sąskaita")},
        {QStringLiteral("O3010100"), QStringLiteral("Sutartis")},
        {kEntryKind, QStringLiteral("Finansinės operacijos įrašas")},
    };
    return kinds;
}

// The VAT rates of Lithuanian law: the standard rate, the two reduced ones and zero.
const QVector<double>& vatTariffs() {
    static const QVector<double> tariffs = {21.0, 9.0, 5.0, 0.0};
    return tariffs;
}

RecordsetPtr finished(const RecordsetPtr& rs) {
    rs->AcceptChanges();
    rs->MoveFirst();
    return rs;
}

MethodDefinition addresseeList() {
    MethodDefinition m;
    m.name = QStringLiteral("GetAddresseeList");
    m.fields = {TextField("FOID", 8), TextField("Name", 100)};
    m.doc = QStringLiteral("The kinds an entry may name as addressee, FOID and Name, in the "
                           "order the menus offer them.");
    m.handler = [fields = m.fields](MethodContext&, const MethodArguments&) {
        auto rs = Recordset::Create(fields);
        for (const auto& [foid, name] : addresseeKinds()) {
            rs->AddNew();
            rs->SetField(0, foid);
            rs->SetField(1, name);
            rs->Update();
        }
        return BOResult::Of(Value(finished(rs)));
    };
    return m;
}

MethodDefinition vatTariffList() {
    MethodDefinition m;
    m.name = QStringLiteral("DO0001629_GetVATtariffs");
    m.fields = {FieldDef::Make(QStringLiteral("Value"), FieldType::Double)};
    m.doc = QStringLiteral("The VAT rates in force, in percent (Value), the standard rate first.");
    m.handler = [fields = m.fields](MethodContext&, const MethodArguments&) {
        auto rs = Recordset::Create(fields);
        for (const double tariff : vatTariffs()) {
            rs->AddNew();
            rs->SetField(0, tariff);
            rs->Update();
        }
        return BOResult::Of(Value(finished(rs)));
    };
    return m;
}

MethodDefinition checkPointerClient() {
    const FieldDefs fields = {FieldDef::Make(QStringLiteral("ID"), FieldType::Double)};
    return BookMethod(
        QStringLiteral("DO0201500_CheckBRPointerClient"),
        {ParameterSpec::Required(QStringLiteral("Reference"), ParameterKind::Text),
         ParameterSpec::Required(QStringLiteral("Account"), ParameterKind::Text),
         ParameterSpec::Required(QStringLiteral("Addressee"), ParameterKind::Text)},
        fields,
        QStringLiteral("One row (ID) when the referenced entry names the addressee on the side "
                       "where the account stands; no row otherwise."),
        [fields](MethodContext& ctx, const MethodArguments& a) {
            auto rs = Recordset::Create(fields);
            const QString reference = a.Text(QStringLiteral("Reference")).trimmed();
            bool ok = false;
            const qint64 entry = reference.startsWith(kEntryKind)
                                     ? reference.mid(kEntryKind.size()).toLongLong(&ok)
                                     : 0;
            if (!ok || entry <= 0)
                return BOResult::Of(Value(finished(rs)));
            const QString account = a.Text(QStringLiteral("Account")).trimmed();
            const QueryResult q = ctx.database->Query(
                QStringLiteral("SELECT b.ID FROM BR b JOIN BRProperties p ON p.BRID = b.ID "
                               "WHERE b.ID = ? AND p.FOIDR = ? AND ((b.AccountD = ? AND p.Sign = "
                               "1) OR (b.AccountC = ? AND p.Sign <> 1))"),
                {Value(double(entry)), Value(a.Text(QStringLiteral("Addressee")).trimmed()),
                 Value(account), Value(account)});
            if (!q.ok())
                return BOResult::Failure(q.Code, q.Text);
            if (q.RowCount() > 0) {
                rs->AddNew();
                rs->SetField(0, double(entry));
                rs->Update();
            }
            return BOResult::Of(Value(finished(rs)));
        });
}

} // namespace

QString AddresseeKindName(const QString& foid) {
    const QString code = foid.trimmed().left(8);
    for (const auto& [kind, name] : addresseeKinds())
        if (kind == code)
            return name;
    return code;
}

ResultRecord RegisterAddresseeMethods(MethodRegistry& methods) {
    for (const MethodDefinition& m : {addresseeList(), vatTariffList(), checkPointerClient()}) {
        const ResultRecord r = methods.Register(m);
        if (!r.ok())
            return r;
    }
    return ResultRecord::Success();
}

} // namespace orvo::host
