// BROperSelect and Debts: the selection window opened on an account, side and addressee,
// and the chosen debts posted back as entries.
#include "host_stand_ins.h"
#include "test_forms.h"

#include "core/null_readers.h"
#include "operations/selection_commands.h"

using namespace orvo;
using namespace orvo::test;

namespace {

FieldDefs SelectParameterFields() {
    return {F("OIDR"),
            F("FOIDR"),
            F("DateD", FieldType::Date),
            F("Comment"),
            F("Info"),
            F("PaymentSum", FieldType::Double),
            F("PaymentSumCurr", FieldType::Double),
            F("PaymentCurrCode"),
            F("PaymentCurrRate", FieldType::Double),
            F("AccountD"),
            F("AccountC")};
}

FieldDefs DebtResultFields() {
    return {F("OIDR"),     F("Comment"),      F("PaymentSum"),   F("PaymentSumCurr"),
            F("ExtSum"),   F("Acc536"),       F("Acc636"),       F("DebtSumCurr"),
            F("DebtSign"), F("DebtCurrCode"), F("DebtCurrRate"), F("AddrOIDR"),
            F("AddrName")};
}

class SelectionCommandsTest : public OperationFixture {
protected:
    void SetUp() override {
        OperationFixture::SetUp();
        bo->handlers.insert("GetSelectParameters", [](const QString&, const Value&) {
            return BOResult::Of(Value(Recordset::Create(SelectParameterFields())));
        });
        selection = std::make_shared<ScriptedSelection>();
        forms->Register("frmBROperSelect", [this] { return selection; });
    }
    // A debt row of the window's result.
    static ValueArray Debt(const QString& oidr, double pay, double ext = 0, double payCurr = 0,
                           const QString& code = "   ", double rate = 0, qint16 sign = 1) {
        return {oidr,         QString(QStringLiteral("Sąskaita ") + oidr.right(3)),
                pay,          payCurr,
                ext,          "5630",
                "6630",       payCurr,
                sign,         code,
                rate,         "O000010012",
                "UAB Ąžuolas"};
    }
    std::shared_ptr<ScriptedSelection> selection;
};

} // namespace

TEST_F(SelectionCommandsTest, BROperSelectOpensOnTheDebitAccountAndGivesTheChosenOIDR) {
    op->Core().SetOIDR("O0201500010");
    selection->result = Table({F("OIDR")}, {{"O0201500200"}, {"O0201500300"}});
    selection->result->MoveLast();
    const ValueResult r =
        op->Methods("BROperSelect", {"2410", "4430", "O000010012", QDate(2024, 3, 15)});
    EXPECT_EQ(r.Value.toString(), "O0201500300");
    const RecordsetPtr p = selection->parameters;
    ASSERT_TRUE(p);
    ASSERT_EQ(p->RecordCount(), 1);
    EXPECT_EQ(p->Field("OIDR").toString(), "O0201500010");
    EXPECT_EQ(p->Field("FOIDR").toString(), "O000010012");
    EXPECT_EQ(p->Field("DateD").toDate(), QDate(2024, 3, 15));
    EXPECT_EQ(p->Field("AccountD").toString(), "2410");
    EXPECT_TRUE(p->Field("AccountC").isNull());
    EXPECT_EQ(p->Field("PaymentCurrCode").toString(), "   ");
    EXPECT_DOUBLE_EQ(p->Field("PaymentSum").toDouble(), 0.0);
    EXPECT_EQ(p->Field("Comment").toString(), "");
    EXPECT_EQ(bo->calls.first().method, "DO0201500_GetOrvoObject");
    EXPECT_EQ(bo->CallsTo("GetSelectParameters"), 1);
    EXPECT_TRUE(selection->shownModal);
}

TEST_F(SelectionCommandsTest, BROperSelectWithoutADebitAccountOpensOnTheCreditOne) {
    selection->cancelled = true;
    const ValueResult r = op->Methods("BROperSelect", {"", "4430", "O000010012", QDate()});
    EXPECT_TRUE(r.Value.isNull());
    EXPECT_TRUE(selection->parameters->Field("AccountD").isNull());
    EXPECT_EQ(selection->parameters->Field("AccountC").toString(), "4430");
}

TEST_F(SelectionCommandsTest, BROperSelectWithoutTheWindowIsRefusedInLithuanian) {
    forms->Unregister("frmBROperSelect");
    const ValueResult r = op->Methods("BROperSelect", {"2410", "", "O000010012", QDate()});
    EXPECT_EQ(r.Code, 777);
    EXPECT_EQ(r.Text, "Nepavyko atidaryti lango frmBROperSelect!");
}

TEST_F(SelectionCommandsTest, BROperSelectWantsExactlyFourParameters) {
    EXPECT_EQ(op->Methods("BROperSelect", {"2410"}).Text,
              "Method BROperSelect:\nKlaidingi parametrai !");
}

TEST_F(SelectionCommandsTest, DebtsWantsSixToTenParameters) {
    EXPECT_EQ(op->Methods("Debts", {"{G}", qint16(-1), "", QDate(), 0.0}).Text,
              "Method Debts:\nKlaidingi parametrai !");
}

TEST_F(SelectionCommandsTest, DebtsOpensTheWindowOnTheEntrysDebtAccountAndAddressee) {
    const QString guid =
        AddBR({"2710", "2410", 100.0, ValueArray{qint16(-1), "O000010012", "UAB Ąžuolas"}})
            .Value.toString();
    selection->cancelled = true;
    const ValueResult r =
        op->Methods("Debts", {guid, qint16(-1), "", QDate(2024, 3, 15), 100.0, "Apmokėjimas"});
    EXPECT_EQ(r.Code, 0);
    const RecordsetPtr p = selection->parameters;
    ASSERT_TRUE(p);
    EXPECT_EQ(p->Field("AccountC").toString(), "2410");
    EXPECT_TRUE(p->Field("AccountD").isNull());
    EXPECT_EQ(p->Field("FOIDR").toString(), "O000010012");
    EXPECT_DOUBLE_EQ(p->Field("PaymentSum").toDouble(), 100.0);
    EXPECT_EQ(p->Field("Comment").toString(), "Apmokėjimas");
    EXPECT_EQ(Entries()->RecordCount(), 1); // cancelled: nothing changes
}

TEST_F(SelectionCommandsTest, DebtsPostsTheChosenDebtsInPlaceOfTheEntry) {
    const QString guid =
        AddBR({"2710", "2410", 100.0, ValueArray{qint16(-1), "O000010012", "UAB Ąžuolas"}})
            .Value.toString();
    selection->result =
        Table(DebtResultFields(), {Debt("O0201500501", 60.0), Debt("O0201500502", 40.0)});
    const ValueResult r =
        op->Methods("Debts", {guid, qint16(-1), "", QDate(2024, 3, 15), 100.0, "Apmokėjimas"});
    EXPECT_EQ(r.Value.toInt32(), 2);
    const RecordsetPtr br = Entries();
    ASSERT_EQ(br->RecordCount(), 2);
    br->MoveFirst();
    EXPECT_EQ(br->Field("AccountD").toString(), "2710");
    EXPECT_EQ(br->Field("AccountC").toString(), "2410");
    EXPECT_DOUBLE_EQ(br->Field("SumA").toDouble(), 60.0);
    const RecordsetPtr props = br->Field("BRProperties").toRecordset();
    ASSERT_EQ(props->RecordCount(), 2);
    props->MoveFirst();
    EXPECT_EQ(props->Field("FOIDR").toString(), "O000010012");
    EXPECT_EQ(props->Field("Sign").toInt16(), -1);
    props->MoveNext();
    EXPECT_EQ(props->Field("FOIDR").toString(), "O0201500501");
}

TEST_F(SelectionCommandsTest, APaidDebtChosenAgainReplacesItsEarlierPayment) {
    SelectionCommands commands(*op);
    DebtSettlement s;
    s.Sign = -1;
    s.DebtAccount = "2410";
    s.CounterAccount = "2710";
    commands.PostSelectedDebts(s, Table(DebtResultFields(), {Debt("O0201500501", 60.0)}));
    commands.PostSelectedDebts(s, Table(DebtResultFields(), {Debt("O0201500502", 10.0)}));
    commands.PostSelectedDebts(s, Table(DebtResultFields(), {Debt("O0201500501", 55.0)}));
    const RecordsetPtr br = Entries();
    ASSERT_EQ(br->RecordCount(), 2);
    double total = 0;
    for (br->MoveFirst(); !br->Eof(); br->MoveNext())
        total += br->Field("SumA").toDouble();
    EXPECT_DOUBLE_EQ(total, 65.0);
}

TEST_F(SelectionCommandsTest, DebtInForeignCurrencyIsPaidOnTheDebtSideInItsCurrency) {
    SelectionCommands commands(*op);
    DebtSettlement s;
    s.Sign = -1;
    s.DebtAccount = "2410";
    s.CounterAccount = "2710";
    s.Info = "IMPORTEDRECORDID:42";
    const ValueResult r = commands.PostSelectedDebts(
        s, Table(DebtResultFields(), {Debt("O0201500501", 92.0, 0, 100.0, "USD", 0.92)}));
    ASSERT_EQ(r.Code, 0) << r.Text.toStdString();
    const RecordsetPtr br = Entries();
    br->MoveFirst();
    EXPECT_DOUBLE_EQ(br->Field("SumA").toDouble(), 92.0);
    EXPECT_EQ(br->Field("Info").toString(), "IMPORTEDRECORDID:42");
    const RecordsetPtr cur = br->Field("BRCurrency").toRecordset();
    ASSERT_EQ(cur->RecordCount(), 1);
    cur->MoveFirst();
    EXPECT_EQ(cur->Field("Sign").toInt16(), -1);
    EXPECT_DOUBLE_EQ(cur->Field("SumCurr").toDouble(), 100.0);
    EXPECT_EQ(cur->Field("FCurrencyCode").toString(), "USD");
    EXPECT_DOUBLE_EQ(br->Field("CurrencyRateC").toDouble(), 1.086957);
    EXPECT_TRUE(br->Field("CurrencyRateD").isNull());
}

TEST_F(SelectionCommandsTest, CurrencyGainOnAReceivableIsPostedFirstToTheIncomeAccount) {
    SelectionCommands commands(*op);
    DebtSettlement s;
    s.Sign = -1;
    s.DebtAccount = "2410";
    s.CounterAccount = "2710";
    commands.PostSelectedDebts(
        s, Table(DebtResultFields(), {Debt("O0201500501", 95.0, 3.0, 100.0, "USD", 0.95)}));
    const RecordsetPtr br = Entries();
    ASSERT_EQ(br->RecordCount(), 2);
    br->MoveFirst();
    EXPECT_EQ(br->Field("AccountD").toString(), "2410");
    EXPECT_EQ(br->Field("AccountC").toString(), "5630");
    EXPECT_DOUBLE_EQ(br->Field("SumA").toDouble(), 3.0);
    br->MoveNext();
    EXPECT_EQ(br->Field("AccountC").toString(), "2410");
}

TEST_F(SelectionCommandsTest, CurrencyDifferenceWithoutItsAccountIsRefused) {
    SelectionCommands commands(*op);
    DebtSettlement s;
    s.DebtAccount = "2410";
    s.CounterAccount = "2710";
    RecordsetPtr rows = Table(DebtResultFields(), {Debt("O0201500501", 95.0, -3.0)});
    rows->MoveFirst();
    rows->SetField("Acc636", Value());
    const ValueResult r = commands.PostSelectedDebts(s, rows);
    EXPECT_EQ(r.Code, 777);
    EXPECT_EQ(r.Text, "Sąskaitų žinyne nepažymėta valiutos kursų pasikeitimo įtakos sąskaita!");
}
