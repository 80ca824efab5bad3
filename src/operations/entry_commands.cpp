#include "operations/entry_commands.h"

#include "core/null_readers.h"
#include "core/rounding.h"
#include "core/today.h"
#include "frame/catalogue_addressees.h"
#include "frame/catalogue_data_access.h"
#include "frame/catalogue_recordsets.h"
#include "frame/methods_convention.h"
#include "frame/orvo_s.h"
#include "frame/orvo_services.h"
#include "model/operation_record.h"
#include "operations/command_parameters.h"
#include "operations/entry_sides.h"
#include "operations/form_access.h"
#include "operations/operation_object.h"

namespace orvo {

namespace {

const QString kTemplateCode = QStringLiteral("O0201600");

ValueResult refused(const QString& text) {
    return ValueResult::Failure(codes::Refused, text);
}

// The demands of a template line: its nested RequiredAddr, or BRTemplateAddr as the
// template object keeps them; null when the line has none.
RecordsetPtr lineDemands(const RecordsetPtr& lines) {
    for (const char* name : {"RequiredAddr", "BRTemplateAddr"}) {
        if (const RecordsetPtr rs = lines->Field(QString::fromLatin1(name)).toRecordset())
            return rs;
    }
    return nullptr;
}

// Lays on a new entry the addressees its template line demands and the caller did not
// give: a fixed addressee (FOIDR) of the line is taken as it stands, and for a demand of
// a kind only the user is asked through the object picker. A demand already met by a
// given addressee of that side and kind asks nothing.
void layTemplateAddressees(const RecordsetPtr& properties, const QString& guid,
                           const RecordsetPtr& demands, MaybeFailure& failure) {
    if (!properties || !demands)
        return;
    for (demands->MoveFirst(); !demands->Eof() && !failure; demands->MoveNext()) {
        const qint16 sign = NzInt(demands->Field(QStringLiteral("Sign"))) == 1 ? 1 : -1;
        const QString foid = NzString(demands->Field(QStringLiteral("FOID"))).trimmed();
        if (foid.isEmpty())
            continue;
        bool met = false;
        for (properties->MoveFirst(); !properties->Eof() && !met; properties->MoveNext())
            met = NzInt(properties->Field(QStringLiteral("Sign"))) == sign &&
                  NzString(properties->Field(QStringLiteral("FOIDR"))).left(8) == foid.left(8);
        if (met)
            continue;
        QString foidr = NzString(demands->Field(QStringLiteral("FOIDR"))).trimmed();
        QString shown = NzString(demands->Field(QStringLiteral("ShowString")));
        if (foidr.size() <= 8) {
            const QString picked = Catalogue::SelectAddressee(
                foid, Catalogue::AddresseeDialogTitle(foid), QString(), QString());
            const int underscore = picked.indexOf(QLatin1Char('_'));
            foidr = underscore < 0 ? picked : picked.left(underscore);
            shown = underscore < 0 ? QString() : picked.mid(underscore + 1);
        }
        // Nothing picked: the entry stays without it, and the save names what is missing.
        if (foidr.size() <= 8)
            continue;
        properties->AddNew();
        WriteField(properties, QStringLiteral("BRGUID"), Value(guid), failure);
        WriteField(properties, QStringLiteral("Sign"), Value(sign), failure);
        WriteField(properties, QStringLiteral("FOIDR"), Value(foidr), failure);
        WriteField(properties, QStringLiteral("ShowString"),
                   Value((shown.isEmpty() ? foidr : shown).left(OperationRecord::ShowStringSize)),
                   failure);
        properties->Update();
    }
}

} // namespace

ValueResult EntryCommands::CreateBR(const ValueArray& parameters) {
    if (parameters.size() < 4)
        return refused(QStringLiteral("Not set parameter for CreateBR method !"));
    if (parameters.size() > 6)
        return MethodsConvention::WrongParameters(QStringLiteral("CreateBR"));
    CommandParameters p(parameters);
    const double sumA = p.Double(1);
    const QString accountD = p.Text(2);
    const QString accountC = p.Text(3);
    const QString info = p.Text(4);
    const Value tag = p.At(5);
    if (p.Failed())
        return p.Failure()->ToResult();
    if (!op_.RsFields())
        return CommandFailure::NoOperationRow().ToResult();
    MaybeFailure failure;
    const RecordsetPtr br = NestedOf(op_.RsFields(), QStringLiteral("BR"), failure);
    if (failure)
        return failure->ToResult();
    br->AddNew();
    WriteField(br, QStringLiteral("GUID"), Value(op_.GetGUID()), failure);
    WriteField(br, QStringLiteral("DateD"), p.At(0), failure);
    WriteField(br, QStringLiteral("SumA"), Value(sumA), failure);
    WriteField(br, QStringLiteral("AccountD"), Value(accountD), failure);
    WriteField(br, QStringLiteral("AccountC"), Value(accountC), failure);
    if (p.Given(4))
        WriteField(br, QStringLiteral("Info"), Value(info), failure);
    if (p.Given(5))
        WriteField(br, QStringLiteral("Tag"), tag, failure);
    WriteField(br, QStringLiteral("BRTemplateAccID"), Value(qint32(1)), failure);
    br->Update();
    if (failure)
        return failure->ToResult();
    return ValueResult::Of(Value(true));
}

ValueResult EntryCommands::AddBR(const ValueArray& parameters) {
    CommandParameters p(parameters);
    const QString accountD = p.Text(0);
    const QString accountC = p.Text(1);
    EntrySides sides = EntrySides::FromParameters(p, 2);
    const ValueArray addressees = p.Array(3);
    const QString info = p.Text(10);
    const QString tag = p.Text(11);
    const QString date = p.Text(12);
    const QString fguid = p.Text(13);
    const qint16 tradeOperationType = p.Int16(14);
    const double vatTariff = p.Double(15);
    const qint16 restoringSign = p.Int16(16, 1);
    if (p.Failed())
        return p.Failure()->ToResult();

    // 1-4: the base sum and the checks, before anything is written.
    const double sumA = sides.BaseSum();
    const QString command = QStringLiteral("AddBR");
    if (const QString fault = sides.ParameterFault(command, accountD, accountC, true);
        !fault.isEmpty())
        return refused(fault);
    if (const QString fault = EntrySides::AddresseesFault(command, addressees); !fault.isEmpty())
        return refused(fault);
    if (sides.SidesDisagree())
        return refused(
            QStringLiteral("Debito ir Kredito sumos, perskaičiuotos į bazinę valiutą, nesutampa!"));

    // 5: an operation without a date takes today.
    const RecordsetPtr rs = op_.RsFields();
    if (!rs)
        return CommandFailure::NoOperationRow().ToResult();
    MaybeFailure failure;
    if (rs->Field(QStringLiteral("DateD")).isNull())
        WriteField(rs, QStringLiteral("DateD"), Value(Today()), failure);
    const RecordsetPtr br = NestedOf(rs, QStringLiteral("BR"), failure);
    if (failure)
        return failure->ToResult();

    // 6-7: the entry and its euro rates.
    const QString guid = op_.GetGUID();
    br->AddNew();
    WriteField(br, QStringLiteral("GUID"), Value(guid), failure);
    WriteField(br, QStringLiteral("DateD"),
               date.isEmpty() ? rs->Field(QStringLiteral("DateD")) : Value(date), failure);
    WriteField(br, QStringLiteral("SumA"), Value(sumA), failure);
    WriteField(br, QStringLiteral("AccountD"), Value(accountD), failure);
    WriteField(br, QStringLiteral("AccountC"), Value(accountC), failure);
    WriteField(br, QStringLiteral("Info"), Value(info), failure);
    WriteField(br, QStringLiteral("Tag"), Value(tag), failure);
    WriteField(br, QStringLiteral("TradeOperationType"), Value(tradeOperationType), failure);
    WriteField(br, QStringLiteral("VATTariff"), Value(vatTariff), failure);
    if (!fguid.isEmpty())
        WriteField(br, QStringLiteral("FGUID"), Value(fguid), failure);
    WriteField(br, QStringLiteral("RestoringSign"), Value(restoringSign), failure);
    sides.WriteEuroRates(br, failure);
    br->Update();

    // 8-10: the currency sides and the addressees.
    sides.BlankBaseCurrency(NzString(Catalogue::GetBaseCurrency()));
    sides.WriteCurrencyRows(NestedOf(br, QStringLiteral("BRCurrency"), failure), guid, failure);
    if (!failure)
        EntrySides::WriteProperties(NestedOf(br, QStringLiteral("BRProperties"), failure), guid,
                                    addressees, nullptr, failure);
    if (failure)
        return failure->ToResult();
    return ValueResult::Of(Value(guid));
}

ValueResult EntryCommands::AddTemplate(const ValueArray& parameters) {
    CommandParameters p(parameters);
    const qint32 templateId = p.Int32(0);
    EntrySides sides = EntrySides::FromParameters(p, 1);
    const ValueArray addressees = p.Array(2);
    const qint16 tradeOperationType = p.Int16(9);
    const double vatTariff = p.Double(10);
    const qint16 restoringSign = p.Int16(11, 1);
    if (p.Failed())
        return p.Failure()->ToResult();

    // The checks of AddBR; the accounts come from the template's lines.
    const QString command = QStringLiteral("AddTemplate");
    if (const QString fault = sides.ParameterFault(command, QString(), QString(), false);
        !fault.isEmpty())
        return refused(fault);
    if (const QString fault = EntrySides::AddresseesFault(command, addressees); !fault.isEmpty())
        return refused(fault);
    if (sides.SidesDisagree())
        return refused(
            QStringLiteral("Debito ir Kredito sumos, perskaičiuotos į bazinę valiutą, nesutampa!"));

    const RecordsetPtr rs = op_.RsFields();
    if (!rs)
        return CommandFailure::NoOperationRow().ToResult();
    MaybeFailure failure;
    const RecordsetPtr br = NestedOf(rs, QStringLiteral("BR"), failure);
    if (failure)
        return failure->ToResult();

    const OrvoServicesPtr services = OrvoS();
    const OrvoObjectsServicePtr objects = services ? services->ObjectsService() : nullptr;
    const OrvoObjectUIOPtr templates = objects ? objects->GetObjectUIO(kTemplateCode) : nullptr;
    if (!templates)
        return refused(QStringLiteral("Operacijų šablonai nepasiekiami: šablono įrašų "
                                      "sukurti negalima!"));
    const ValueResult answer =
        templates->Properties(QStringLiteral("TemplateAccAndAddr"), QString::number(templateId));
    if (answer.Code != 0)
        return ValueResult::Failure(answer.Code, answer.Text);
    const RecordsetPtr lines = answer.Value.toRecordset();
    if (!lines)
        return CommandFailure::BadAnswer(QStringLiteral("TemplateAccAndAddr")).ToResult();

    sides.BlankBaseCurrency(NzString(Catalogue::GetBaseCurrency()));
    const Value operationDate = rs->Field(QStringLiteral("DateD"));
    for (lines->MoveFirst(); !lines->Eof() && !failure; lines->MoveNext()) {
        const double lineSum = sides.Sum * NzDouble(lines->Field(QStringLiteral("Factor")));
        const QString guid = op_.GetGUID();
        br->AddNew();
        WriteField(br, QStringLiteral("GUID"), Value(guid), failure);
        WriteField(br, QStringLiteral("DateD"), operationDate, failure);
        WriteField(br, QStringLiteral("SumA"), Value(RoundBaseSum(lineSum)), failure);
        WriteField(br, QStringLiteral("AccountD"),
                   Value(NzString(lines->Field(QStringLiteral("AccountD")))), failure);
        WriteField(br, QStringLiteral("AccountC"),
                   Value(NzString(lines->Field(QStringLiteral("AccountC")))), failure);
        WriteField(br, QStringLiteral("BRTemplateAccID"),
                   Value(NzLong(lines->Field(QStringLiteral("ID")))), failure);
        WriteField(br, QStringLiteral("TradeOperationType"), Value(tradeOperationType), failure);
        WriteField(br, QStringLiteral("VATTariff"), Value(vatTariff), failure);
        WriteField(br, QStringLiteral("RestoringSign"), Value(restoringSign), failure);

        // The line's demands, tied to the line they came from.
        const RecordsetPtr required = NestedOf(br, QStringLiteral("RequiredAddr"), failure);
        const QString lineGuid = NzString(lines->Field(QStringLiteral("GUID")));
        if (const RecordsetPtr demands = lineDemands(lines); demands && required) {
            for (demands->MoveFirst(); !demands->Eof() && !failure; demands->MoveNext()) {
                required->AddNew();
                WriteField(required, QStringLiteral("Sign"),
                           Value(NzInt(demands->Field(QStringLiteral("Sign")))), failure);
                WriteField(required, QStringLiteral("FOID"),
                           Value(NzString(demands->Field(QStringLiteral("FOID")))), failure);
                WriteField(required, QStringLiteral("BRTemplateAccGUID"), Value(lineGuid), failure);
                required->Update();
            }
        }

        // Each side of the line carries the line's share of the sum.
        EntrySides line = sides;
        line.Sum = lineSum;
        line.SumC = lineSum;
        line.WriteEuroRates(br, failure);
        br->Update();
        line.WriteCurrencyRows(NestedOf(br, QStringLiteral("BRCurrency"), failure), guid, failure);
        if (!failure)
            EntrySides::WriteProperties(NestedOf(br, QStringLiteral("BRProperties"), failure), guid,
                                        addressees, UIO0201500::GetRequiredAddr(required), failure);
        if (!failure)
            layTemplateAddressees(NestedOf(br, QStringLiteral("BRProperties"), failure), guid,
                                  lineDemands(lines), failure);
    }
    if (failure)
        return failure->ToResult();
    return ValueResult::Of(Value(true));
}

ValueResult EntryCommands::DeleteBR(const ValueArray& parameters) {
    CommandParameters p(parameters);
    const QString key = p.Text(0);
    const Value signValue = p.At(1);
    const qint16 sign = p.Int16(1);
    const QString foidr = p.Text(2);
    if (p.Failed())
        return p.Failure()->ToResult();
    if (!op_.RsFields())
        return CommandFailure::NoOperationRow().ToResult();
    const RecordsetPtr br = op_.Entries();
    if (!br)
        return CommandFailure::Missing(QStringLiteral("BR")).ToResult();
    if (br->RecordCount() == 0)
        return ValueResult::Of(Value(true));

    // Only a 16-bit 9 names a GUID; a 9 of another type is a wrong side.
    const bool byGuid = signValue.kind() == Value::Kind::Int16 && signValue.toInt16() == 9;
    QString filter;
    if (!key.isEmpty()) {
        const QString quotedKey = QStringLiteral("'") + key + QStringLiteral("'");
        if (byGuid) {
            filter = QStringLiteral("GUID = ") + quotedKey;
        } else if (sign == 1) {
            filter = QStringLiteral("AccountD = ") + quotedKey;
        } else if (sign == -1) {
            filter = QStringLiteral("AccountC = ") + quotedKey;
        } else if (sign == 0) {
            filter = QStringLiteral("AccountD = ") + quotedKey + QStringLiteral(" OR AccountC = ") +
                     quotedKey;
        } else {
            return {0, QStringLiteral("DeleteBR : Klaidingi parametrai !"), Value(false)};
        }
    }
    br->SetFilter(filter);

    QString propertyFilter;
    if (foidr.size() > 8) {
        propertyFilter = QStringLiteral("FOIDR = '") + foidr + QStringLiteral("'");
        if (sign != 0)
            propertyFilter += QStringLiteral(" And Sign = ") + QString::number(sign);
    }

    br->MoveFirst();
    while (!br->Bof() && !br->Eof()) {
        bool spared = false;
        if (!propertyFilter.isEmpty()) {
            const RecordsetPtr properties = br->Field(QStringLiteral("BRProperties")).toRecordset();
            if (properties && properties->RecordCount() > 0) {
                const QString oldFilter = properties->Filter();
                spared = !Catalogue::TryFilter(properties, propertyFilter);
                properties->SetFilter(oldFilter);
            }
        }
        if (spared) {
            br->MoveNext();
            continue;
        }
        for (const char* nested : {"BRProperties", "BRCurrency", "RequiredAddr"})
            Catalogue::DeleteUnsavedRows(br->Field(QString::fromLatin1(nested)).toRecordset());
        br->Delete();
        br->MoveFirst();
        FormAccess::GiveEventLoopATurn();
    }
    br->SetFilter(QString());
    return ValueResult::Of(Value(true));
}

} // namespace orvo
