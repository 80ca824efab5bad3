#include "operations/selection_commands.h"

#include "core/null_readers.h"
#include "core/rounding.h"
#include "frame/catalogue_data_access.h"
#include "frame/methods_convention.h"
#include "operations/command_parameters.h"
#include "operations/entry_commands.h"
#include "operations/entry_sides.h"
#include "operations/form_access.h"
#include "operations/operation_object.h"
#include "operations/selection_form.h"

namespace orvo {

namespace {

const QString kNoCurrency = QStringLiteral("   ");

Value field(const RecordsetPtr& rs, const char* name) {
    return rs->Field(QString::fromLatin1(name));
}

// The one-row SelectParameters recordset that opens the selection window.
ValueResult selectParameters(UIO0201500& op, const QString& accountD, const QString& accountC,
                             const QString& foidr, const Value& date, const QString& comment,
                             const QString& info, double paymentSum, double paymentSumCurr,
                             const QString& paymentCurrCode, double paymentCurrRate) {
    const ValueResult answer = op.Properties(QStringLiteral("SelectParameters"), QString());
    if (answer.Code != 0)
        return answer;
    const RecordsetPtr rs = answer.Value.toRecordset();
    if (!rs)
        return CommandFailure::BadAnswer(QStringLiteral("SelectParameters")).ToResult();
    MaybeFailure failure;
    rs->AddNew();
    WriteField(rs, QStringLiteral("OIDR"), Value(op.OIDR()), failure);
    WriteField(rs, QStringLiteral("FOIDR"), Value(foidr), failure);
    WriteField(rs, QStringLiteral("DateD"), date, failure);
    WriteField(rs, QStringLiteral("Comment"), Value(comment), failure);
    WriteField(rs, QStringLiteral("Info"), Value(info), failure);
    WriteField(rs, QStringLiteral("PaymentSum"), Value(paymentSum), failure);
    WriteField(rs, QStringLiteral("PaymentSumCurr"), Value(paymentSumCurr), failure);
    WriteField(rs, QStringLiteral("PaymentCurrCode"), Value(paymentCurrCode), failure);
    WriteField(rs, QStringLiteral("PaymentCurrRate"), Value(paymentCurrRate), failure);
    if (!accountD.isEmpty())
        WriteField(rs, QStringLiteral("AccountD"), Value(accountD), failure);
    else
        WriteField(rs, QStringLiteral("AccountC"), Value(accountC), failure);
    rs->Update();
    if (failure)
        return failure->ToResult();
    return ValueResult::Of(Value(rs));
}

// The selection window, shown modally on the object; null with a refusal when the face
// has none.
std::shared_ptr<SelectionForm> showSelection(UIO0201500& op, const RecordsetPtr& parameters,
                                             ValueResult& refusal) {
    const auto form = FormAccess::CreateFormAs<SelectionForm>(QStringLiteral("frmBROperSelect"));
    if (!form) {
        refusal = FormAccess::Unavailable(QStringLiteral("frmBROperSelect"));
        return nullptr;
    }
    form->SetOrvoObjectUIO(op.Self());
    form->SetSelectParameters(parameters);
    form->Show(true);
    return form;
}

} // namespace

ValueResult SelectionCommands::BROperSelect(const ValueArray& parameters) {
    CommandParameters p(parameters);
    const QString accountD = p.Text(0);
    const QString accountC = p.Text(1);
    const QString foidr = p.Text(2);
    if (p.Failed())
        return p.Failure()->ToResult();
    const ValueResult opened =
        selectParameters(op_, accountD, accountD.isEmpty() ? accountC : QString(), foidr, p.At(3),
                         QString(), QString(), 0.0, 0.0, kNoCurrency, 0.0);
    if (opened.Code != 0)
        return opened;
    ValueResult refusal;
    const auto form = showSelection(op_, opened.Value.toRecordset(), refusal);
    if (!form)
        return refusal;
    if (form->Cancelled())
        return ValueResult::Of(Value());
    const RecordsetPtr result = form->Result();
    if (!result || result->Eof() || result->Bof())
        return ValueResult::Of(Value());
    return ValueResult::Of(Value(NzString(result->Field(QStringLiteral("OIDR")))));
}

ValueResult SelectionCommands::Debts(const ValueArray& parameters) {
    CommandParameters p(parameters);
    const QString guid = p.Text(0);
    const qint16 sign = p.Int16(1);
    QString foidr = p.Text(2);
    const Value date = p.At(3);
    const double paymentSum = p.Double(4);
    const QString comment = p.Text(5);
    const QString paymentCurrCode = p.Text(6, kNoCurrency);
    const double paymentCurrRate = p.Double(7);
    const double paymentSumCurr = p.Double(8);
    const QString info = p.Text(9);
    if (p.Failed())
        return p.Failure()->ToResult();
    if (sign != 1 && sign != -1)
        return MethodsConvention::WrongParameters(QStringLiteral("Debts"));

    if (!op_.RsFields())
        return CommandFailure::NoOperationRow().ToResult();
    const RecordsetPtr br = op_.Entries();
    if (!br)
        return CommandFailure::Missing(QStringLiteral("BR")).ToResult();
    const QString oldFilter = br->Filter();
    br->SetFilter(QStringLiteral("GUID = '") + guid + QStringLiteral("'"));
    if (br->RecordCount() == 0) {
        br->SetFilter(oldFilter);
        return ValueResult::Failure(codes::Refused, QStringLiteral("Debts: nėra įrašo !"));
    }
    br->MoveFirst();
    DebtSettlement settlement;
    settlement.GUID = guid;
    settlement.Sign = sign;
    settlement.Info = info;
    const QString accountD = NzString(field(br, "AccountD"));
    const QString accountC = NzString(field(br, "AccountC"));
    settlement.DebtAccount = sign == 1 ? accountD : accountC;
    settlement.CounterAccount = sign == 1 ? accountC : accountD;
    if (foidr.isEmpty()) {
        // The entry's own addressee of the debt side, a reference to an entry aside.
        if (const RecordsetPtr props = field(br, "BRProperties").toRecordset()) {
            for (props->MoveFirst(); !props->Eof() && foidr.isEmpty(); props->MoveNext()) {
                const QString ref = NzString(field(props, "FOIDR"));
                if (NzInt(field(props, "Sign")) == sign &&
                    !ref.startsWith(QStringLiteral("O0201500")))
                    foidr = ref;
            }
        }
    }
    br->SetFilter(oldFilter);

    const ValueResult opened =
        selectParameters(op_, sign == 1 ? settlement.DebtAccount : QString(),
                         sign == 1 ? QString() : settlement.DebtAccount, foidr, date, comment, info,
                         paymentSum, paymentSumCurr, paymentCurrCode, paymentCurrRate);
    if (opened.Code != 0)
        return opened;
    ValueResult refusal;
    const auto form = showSelection(op_, opened.Value.toRecordset(), refusal);
    if (!form)
        return refusal;
    if (form->Cancelled())
        return ValueResult::Of(Value(qint32(0)));
    return PostSelectedDebts(settlement, form->Result());
}

ValueResult SelectionCommands::PostSelectedDebts(const DebtSettlement& settlement,
                                                 const RecordsetPtr& result) {
    if (!result || result->RecordCount() == 0)
        return ValueResult::Of(Value(qint32(0)));
    EntryCommands entries(op_);
    if (!settlement.GUID.isEmpty()) {
        const ValueResult removed = entries.DeleteBR({Value(settlement.GUID), Value(qint16(9))});
        if (removed.Code != 0)
            return removed;
    }
    const QString base = NzString(Catalogue::GetBaseCurrency());
    const qint16 side = settlement.Sign;
    qint32 posted = 0;
    for (result->MoveFirst(); !result->Eof(); result->MoveNext()) {
        const QString debt = NzString(field(result, "OIDR"));
        const QString comment = NzString(field(result, "Comment"));
        const ValueArray addressees = {Value(side),
                                       field(result, "AddrOIDR"),
                                       field(result, "AddrName"),
                                       Value(side),
                                       Value(debt),
                                       Value(comment)};
        const QString info = settlement.Info.isEmpty() ? comment : settlement.Info;

        // A debt paid again replaces its earlier payment on the debt account.
        const ValueResult removed =
            entries.DeleteBR({Value(settlement.DebtAccount), Value(side), Value(debt)});
        if (removed.Code != 0)
            return removed;

        // The currency difference comes first, against the account of rate change.
        const double extSum = NzDouble(field(result, "ExtSum"));
        if (RoundBaseSum(extSum) != 0.0) {
            qint16 balanceSide = NzInt(field(result, "DebtSign"));
            if (balanceSide != 1 && balanceSide != -1)
                balanceSide = qint16(-side);
            const bool rise = extSum > 0;
            // A debit balance that rises, or a credit balance that falls, is a gain.
            const bool gain = (balanceSide == 1) == rise;
            const QString roleAccount = NzString(field(result, gain ? "Acc536" : "Acc636"));
            if (roleAccount.isEmpty())
                return ValueResult::Failure(
                    codes::Refused, QStringLiteral("Sąskaitų žinyne nepažymėta valiutos kursų "
                                                   "pasikeitimo įtakos sąskaita!"));
            const bool debtOnDebit = gain;
            const qint16 debtSide = debtOnDebit ? 1 : -1;
            const ValueArray influenceAddressees = {Value(debtSide),
                                                    field(result, "AddrOIDR"),
                                                    field(result, "AddrName"),
                                                    Value(debtSide),
                                                    Value(debt),
                                                    Value(comment)};
            const ValueResult influence =
                entries.AddBR({Value(debtOnDebit ? settlement.DebtAccount : roleAccount),
                               Value(debtOnDebit ? roleAccount : settlement.DebtAccount),
                               Value(qAbs(extSum)), Value(influenceAddressees), Value(qint16(0)),
                               Value(kNoCurrency), Value(0.0), Value(0.0), Value(kNoCurrency),
                               Value(0.0), Value(QStringLiteral("Kurso pasikeitimo įtaka"))});
            if (influence.Code != 0)
                return influence;
        }

        // The payment itself.
        const QString accountD = side == 1 ? settlement.DebtAccount : settlement.CounterAccount;
        const QString accountC = side == 1 ? settlement.CounterAccount : settlement.DebtAccount;
        const double paymentSum = NzDouble(field(result, "PaymentSum"));
        const double paymentSumCurr = NzDouble(field(result, "PaymentSumCurr"));
        const double debtRate = NzDouble(field(result, "DebtCurrRate"));
        const QString debtCode = NzString(field(result, "DebtCurrCode"));
        ValueArray payment;
        if (EntrySides::IsCurrency(debtCode) && debtCode != base && paymentSumCurr > 0 &&
            debtRate > 0) {
            if (side == 1)
                payment = {Value(accountD),   Value(accountC),  Value(paymentSumCurr),
                           Value(addressees), Value(qint16(1)), Value(debtCode),
                           Value(debtRate),   Value(0.0),       Value(kNoCurrency),
                           Value(0.0),        Value(info)};
            else
                // AddBR writes a lone credit currency under the negated Sign, so Sign 1
                // puts it, and its euro rate, on the credit side.
                payment = {Value(accountD),
                           Value(accountC),
                           Value(RoundBaseSum(paymentSumCurr * debtRate)),
                           Value(addressees),
                           Value(qint16(1)),
                           Value(kNoCurrency),
                           Value(0.0),
                           Value(paymentSumCurr),
                           Value(debtCode),
                           Value(debtRate),
                           Value(info)};
        } else if (paymentSum > 0) {
            payment = {Value(accountD),    Value(accountC),    Value(paymentSum), Value(addressees),
                       Value(qint16(0)),   Value(kNoCurrency), Value(0.0),        Value(0.0),
                       Value(kNoCurrency), Value(0.0),         Value(info)};
        }
        if (!payment.isEmpty()) {
            const ValueResult added = entries.AddBR(payment);
            if (added.Code != 0)
                return added;
        }
        ++posted;
        FormAccess::GiveEventLoopATurn();
    }
    return ValueResult::Of(Value(posted));
}

} // namespace orvo
