#include "host/methods/system_methods.h"

#include "core/recordset.h"
#include "core/today.h"
#include "host/methods/method_arguments.h"
#include "host/methods/method_codes.h"
#include "host/methods/method_context.h"
#include "host/methods/method_registry.h"

namespace orvo::host {

namespace {

FieldDefs serverDateFields() {
    return {FieldDef::Make(QStringLiteral("Today"), FieldType::Date)};
}

BOResult serverDate(MethodContext&, const MethodArguments&) {
    RecordsetPtr rs = Recordset::Create(serverDateFields());
    rs->AddNew();
    rs->SetField(QStringLiteral("Today"), Value(Today()));
    rs->Update();
    rs->AcceptChanges();
    rs->MoveFirst();
    return BOResult::Of(Value(rs));
}

BOResult methodList(MethodContext& context, const MethodArguments&) {
    if (!context.registry)
        return BOResult::Failure(bo_codes::MethodFailed,
                                 QStringLiteral("Metodas GetMethodList: nėra metodų sąrašo"));
    return BOResult::Of(Value(context.registry->ListingRecordset()));
}

} // namespace

ResultRecord RegisterSystemMethods(MethodRegistry& registry) {
    MethodDefinition date;
    date.name = QStringLiteral("GetServerDate");
    date.fields = serverDateFields();
    date.doc = QStringLiteral(
        "The date the server takes for today, as one row with the field Today; documents "
        "dated by the host use it so that every workstation of a shared book agrees.");
    date.handler = serverDate;
    ResultRecord r = registry.Register(date);
    if (!r.ok())
        return r;

    MethodDefinition list;
    list.name = QStringLiteral("GetMethodList");
    list.fields = MethodRegistry::ListingFields();
    list.doc = QStringLiteral(
        "Every method of the business object, one row each in alphabetical order: its name, "
        "its parameters with their kinds, the syntax of its parameter text, the fields it "
        "returns and its documentation.");
    list.handler = methodList;
    return registry.Register(list);
}

} // namespace orvo::host
