#include "settlement/selection_result.h"

#include "core/null_readers.h"
#include "core/rounding.h"

namespace orvo {

namespace {

FieldDef text(const char* name, int size) {
    return FieldDef::Make(QString::fromLatin1(name), FieldType::VarWChar, size);
}

FieldDef typed(const char* name, FieldType type) {
    return FieldDef::Make(QString::fromLatin1(name), type);
}

Value field(const RecordsetPtr& rs, const char* name) {
    return rs->Field(QString::fromLatin1(name));
}

} // namespace

const QString SelectionResult::PaymentKind = QStringLiteral("O0201505");

FieldDefs SelectionResult::Fields(const QString& callerKind) {
    FieldDefs defs = {text("OIDR", 50),
                      text("FOIDR", 50),
                      text("Comment", 1000),
                      typed("DateD", FieldType::Date),
                      text("Number", 50),
                      text("AccountD", 20),
                      text("AccountC", 20),
                      typed("FullSum", FieldType::Double),
                      typed("FullSumCurr", FieldType::Double),
                      typed("RestSum", FieldType::Double),
                      typed("RestSumCurr", FieldType::Double),
                      typed("PaymentSum", FieldType::Double),
                      typed("PaymentSumCurr", FieldType::Double),
                      text("PaymentCurrCode", 3),
                      typed("PaymentCurrRate", FieldType::Double),
                      typed("DebtSumCurr", FieldType::Double),
                      typed("DebtCurrRate", FieldType::Double),
                      typed("DebtCurrRatePrimary", FieldType::Double),
                      text("DebtCurrCode", 3),
                      typed("DebtSign", FieldType::SmallInt),
                      typed("ExtSum", FieldType::Double),
                      text("AddrOIDR", 50),
                      text("AddrName", 800),
                      text("Acc536", 20),
                      text("Acc636", 20)};
    if (callerKind == PaymentKind) {
        defs.append(typed("BROperDate", FieldType::Date));
        defs.append(typed("LikutisLt", FieldType::Double));
        defs.append(typed("LikutisCurr", FieldType::Double));
        defs.append(text("ClientOIDR", 50));
        defs.append(text("ClientPreview", 800));
    }
    return defs;
}

double SelectionResult::ExtSum(const SelectionList& list, int index) {
    const SelectionRow& row = list.Rows().at(index);
    const RecordsetPtr debts = list.Debts();
    const int sign = NzInt(field(debts, "InfluenceSign"));
    double leftOver = row.AllocationInfluence + row.ManualInfluence;
    // A currency row carries the revaluation of the part it pays.
    const double balanceCurr = NzDouble(field(debts, "LikutisCurr"));
    const double paidCurr = row.Amount(SelectionRow::PaymentSumCurr);
    if (row.HasCurrency() && balanceCurr != 0 && paidCurr != 0) {
        const double influence = NzDouble(field(debts, "CurrInfluence"));
        leftOver +=
            paidCurr == balanceCurr ? influence : Round(influence * paidCurr / balanceCurr, 2);
    }
    return Round(-leftOver * (sign == 0 ? 1 : sign), 2);
}

RecordsetPtr SelectionResult::Build(const SelectionList& list,
                                    const SelectionResultContext& context, int currentIndex) {
    RecordsetPtr rs = Recordset::Create(Fields(context.CallerKind));
    const RecordsetPtr debts = list.Debts();
    const bool payment = context.CallerKind == PaymentKind;
    const SelectionPayment& pay = list.Payment();
    int currentRow = -1;
    for (int i = 0; i < list.Rows().size(); ++i) {
        const SelectionRow& row = list.Rows().at(i);
        if (!row.Checked || !list.GoToDebt(i))
            continue;
        if (i == currentIndex)
            currentRow = rs->RecordCount();
        const QString foidr = NzString(field(debts, "FOIDR"));
        const QString name = foidr == context.Addressee || context.Addressee.size() < 9
                                 ? context.AddresseeName
                                 : QString();
        const double fullSum = NzDouble(field(debts, "FullSum"));
        const double fullCurr = NzDouble(field(debts, "FullSumCurr"));
        const QString code = row.HasCurrency() ? row.CurrencyCode() : QStringLiteral("   ");
        rs->AddNew();
        rs->SetField(QStringLiteral("OIDR"), Value(row.Key));
        rs->SetField(QStringLiteral("FOIDR"), Value(foidr));
        rs->SetField(QStringLiteral("Comment"), field(debts, "Comment"));
        rs->SetField(QStringLiteral("DateD"), field(debts, "DateD"));
        rs->SetField(QStringLiteral("Number"), field(debts, "Number"));
        rs->SetField(QStringLiteral("AccountD"), field(debts, "AccountD"));
        rs->SetField(QStringLiteral("AccountC"), field(debts, "AccountC"));
        rs->SetField(QStringLiteral("FullSum"), Value(fullSum));
        rs->SetField(QStringLiteral("FullSumCurr"), Value(fullCurr));
        rs->SetField(QStringLiteral("RestSum"), field(debts, "LikutisLt"));
        rs->SetField(QStringLiteral("RestSumCurr"), field(debts, "LikutisCurr"));
        rs->SetField(QStringLiteral("PaymentSum"), Value(row.Amount(SelectionRow::PaymentLt)));
        rs->SetField(QStringLiteral("PaymentSumCurr"),
                     Value(row.Amount(SelectionRow::PaymentSumCurr)));
        rs->SetField(QStringLiteral("PaymentCurrCode"), Value(pay.Code));
        rs->SetField(QStringLiteral("PaymentCurrRate"), Value(pay.Rate));
        rs->SetField(QStringLiteral("DebtSumCurr"),
                     Value(row.Amount(SelectionRow::PaymentSumCurr)));
        rs->SetField(QStringLiteral("DebtCurrRate"), Value(row.Rate()));
        // The debt's own rate, recomputed from its amounts.
        rs->SetField(QStringLiteral("DebtCurrRatePrimary"),
                     Value(fullCurr != 0 ? Round(fullSum / fullCurr, 9) : 0.0));
        rs->SetField(QStringLiteral("DebtCurrCode"), Value(code));
        rs->SetField(QStringLiteral("DebtSign"),
                     Value(qint16(NzInt(field(debts, "InfluenceSign")))));
        rs->SetField(QStringLiteral("ExtSum"), Value(ExtSum(list, i)));
        rs->SetField(QStringLiteral("AddrOIDR"), Value(foidr));
        rs->SetField(QStringLiteral("AddrName"), Value(name));
        rs->SetField(QStringLiteral("Acc536"), Value(list.Acc536()));
        rs->SetField(QStringLiteral("Acc636"), Value(list.Acc636()));
        if (payment) {
            rs->SetField(QStringLiteral("BROperDate"), field(debts, "DateD"));
            rs->SetField(QStringLiteral("LikutisLt"), field(debts, "LikutisLt"));
            rs->SetField(QStringLiteral("LikutisCurr"), field(debts, "LikutisCurr"));
            rs->SetField(QStringLiteral("ClientOIDR"), Value(foidr));
            rs->SetField(QStringLiteral("ClientPreview"), Value(name));
        }
        rs->Update();
    }
    rs->MoveFirst();
    if (currentRow >= 0)
        rs->SetAbsolutePosition(currentRow + 1);
    return rs;
}

} // namespace orvo
