// The checks of an entry: accounts against the chart, the currency sides against the base
// sum, and the addressees the accounts demand.
#include "host_stand_ins.h"

using namespace orvo;
using namespace orvo::test;

namespace {

class EntryChecksTest : public OperationFixture {
protected:
    RecordsetPtr Currency(const QList<ValueArray>& rows) {
        return Table(OperationRecord::BRCurrencyFields(), rows);
    }
    RecordsetPtr Demands(const QList<ValueArray>& rows) {
        return Table(OperationRecord::RequiredAddrFields(), rows);
    }
    RecordsetPtr Properties(const QList<ValueArray>& rows) {
        return Table(OperationRecord::BRPropertiesFields(), rows);
    }
    // An entry through AddBR, with demands added to it afterwards.
    QString Entry(const QString& d, const QString& c, double sum, const ValueArray& addressees,
                  const QList<ValueArray>& demands = {}) {
        const ValueResult r = AddBR({d, c, sum, addressees});
        EXPECT_EQ(r.Code, 0) << r.Text.toStdString();
        const QString guid = r.Value.toString();
        EXPECT_TRUE(GoToEntry(guid));
        const RecordsetPtr required = Nested("RequiredAddr");
        for (const ValueArray& row : demands) {
            required->AddNew();
            required->SetField("Sign", row.at(0));
            required->SetField("FOID", row.at(1));
            required->Update();
        }
        return guid;
    }
};

} // namespace

TEST_F(EntryChecksTest, AccountZeroIsInvalidAlthoughInNoDictionary) {
    const ValueResult r = op->TestAccount({"0"});
    EXPECT_EQ(r.Code, 0);
    EXPECT_FALSE(r.Value.toBool());
    // The chart is read, yet "0" is refused even when the host has no chart at all.
    bo->handlers.insert("GetAccountList", [](const QString&, const Value&) {
        return BOResult::Failure(999, "Nėra sąskaitų plano");
    });
    auto fresh = UIO0201500::Create();
    fresh->Core().SetBO(bo);
    EXPECT_FALSE(fresh->TestAccount({"0"}).Value.toBool());
}

TEST_F(EntryChecksTest, AccountOfTheChartPassesAndAnUnknownOneFails) {
    EXPECT_TRUE(op->TestAccount({"2410"}).Value.toBool());
    EXPECT_FALSE(op->TestAccount({"2411"}).Value.toBool());
    EXPECT_EQ(bo->CallsTo("GetAccountList"), 1);
}

TEST_F(EntryChecksTest, WithoutAChartEveryAccountPassesAndTheFailureIsPassedOn) {
    bo->handlers.insert("GetAccountList", [](const QString&, const Value&) {
        return BOResult::Failure(999, "Nėra sąskaitų plano");
    });
    const ValueResult r = op->TestAccount({"9999"});
    EXPECT_TRUE(r.Value.toBool());
    EXPECT_EQ(r.Code, 999);
    EXPECT_EQ(r.Text, "Nėra sąskaitų plano");
}

TEST_F(EntryChecksTest, TestAccountWithoutParameterIsRefused) {
    const ValueResult r = op->Methods("TestAccount", {});
    EXPECT_EQ(r.Code, 777);
    EXPECT_EQ(r.Text, "Not set parameter for TestAccount method !");
    EXPECT_EQ(messages->Count(MessageKind::Warning), 1);
}

TEST_F(EntryChecksTest, ZeroSumCurrWithCodeAcceptedWithoutRate) {
    EXPECT_EQ(UIO0201500::CheckValiuta(Currency({{"{G}", qint16(1), 0.0, 0.0, "USD"}}), 50.0), "");
}

TEST_F(EntryChecksTest, SumCurr12_345AtRate1PassesAgainst12_35) {
    EXPECT_EQ(UIO0201500::CheckValiuta(Currency({{"{G}", qint16(1), 1.0, 12.345, "USD"}}), 12.35),
              "");
    EXPECT_EQ(UIO0201500::CheckValiuta(Currency({{"{G}", qint16(1), 1.0, 12.345, "USD"}}), 12.34),
              "Suma bazine valiuta neatitinka sumai valiuta pagal kursą!");
}

TEST_F(EntryChecksTest, CurrencySumWithoutCodeOrRateNamesWhatIsMissing) {
    EXPECT_EQ(UIO0201500::CheckValiuta(Currency({{"{G}", qint16(1), 1.0, 10.0, ""}}), 10.0),
              "Nenurodytas valiutos tipas!");
    EXPECT_EQ(UIO0201500::CheckValiuta(Currency({{"{G}", qint16(1), 0.0, 10.0, "USD"}}), 10.0),
              "Nenurodytas valiutos kursas!");
}

TEST_F(EntryChecksTest, EmptyDemandMapPassesWithNoProperties) {
    EXPECT_TRUE(UIO0201500::CheckRequiredAddr(Dictionary::Create(), nullptr));
    EXPECT_TRUE(UIO0201500::CheckRequiredAddr(Dictionary::Create(), Properties({})));
    EXPECT_TRUE(UIO0201500::CheckRequiredAddr(nullptr, nullptr));
}

TEST_F(EntryChecksTest, DemandsAreKeyedBySideLetterAndKindOnce) {
    const DictionaryPtr map = UIO0201500::GetRequiredAddr(
        Demands({{qint16(1), "O0000100"}, {qint16(-1), "O0000100"}, {qint16(1), "O0000100"}}));
    EXPECT_EQ(map->Keys(), QStringList({"DO0000100", "CO0000100"}));
    EXPECT_EQ(map->Item("CO0000100").toString(), "O0000100");
}

TEST_F(EntryChecksTest, DemandMetOnTheWrongSideFails) {
    const DictionaryPtr map = UIO0201500::GetRequiredAddr(Demands({{qint16(-1), "O0000100"}}));
    EXPECT_FALSE(UIO0201500::CheckRequiredAddr(map, nullptr));
    EXPECT_FALSE(UIO0201500::CheckRequiredAddr(
        map, Properties({{"{G}", qint16(1), "O000010012", "UAB Ąžuolas"}})));
    EXPECT_TRUE(UIO0201500::CheckRequiredAddr(
        map, Properties({{"{G}", qint16(-1), "O000010012", "UAB Ąžuolas"}})));
}

TEST_F(EntryChecksTest, TwoAddresseesOfOneKindStandInForASecondDemand) {
    // Two firms on the credit side count twice and so meet a firm and a person demand:
    // the count, not the kinds, decides.
    const DictionaryPtr map =
        UIO0201500::GetRequiredAddr(Demands({{qint16(-1), "O0000100"}, {qint16(-1), "O0001402"}}));
    EXPECT_TRUE(UIO0201500::CheckRequiredAddr(
        map, Properties({{"{G}", qint16(-1), "O000010012", "UAB Ąžuolas"},
                         {"{G}", qint16(-1), "O000010013", "UAB Beržas"}})));
    EXPECT_FALSE(UIO0201500::CheckRequiredAddr(
        map, Properties({{"{G}", qint16(-1), "O000010012", "UAB Ąžuolas"}})));
}

TEST_F(EntryChecksTest, TestOperPassesASoundOperation) {
    Entry("2710", "2410", 100.0, {qint16(-1), "O000010012", "UAB Ąžuolas"},
          {{qint16(-1), "O0000100"}});
    const ValueResult r = op->Methods("TestOper", {});
    EXPECT_EQ(r.Code, 0);
    EXPECT_TRUE(r.Value.toBool());
}

TEST_F(EntryChecksTest, TestOperReportsAMissingAddresseeWith999AndTheEntry) {
    Entry("2710", "2410", 1234.5, {}, {{qint16(-1), "O0000100"}});
    const ValueResult r = op->Methods("TestOper", {});
    EXPECT_EQ(r.Code, 999);
    EXPECT_EQ(r.Text, "Nenurodyti būtini adresatai!\n2710 2410 1 234,50");
    EXPECT_FALSE(r.Value.toBool());
    EXPECT_EQ(messages->boxes.size(), 0);
}

TEST_F(EntryChecksTest, TestOperWithWarningFlagGives777AndShowsIt) {
    Entry("2710", "2411", 10.0, {});
    const ValueResult r = op->Methods("TestOper", {Value(), true});
    EXPECT_EQ(r.Code, 777);
    EXPECT_EQ(r.Text, "Klaidinga balansinės sąskaitos reikšmė!\n2710 2411 10,00");
    EXPECT_EQ(messages->Count(MessageKind::Warning), 1);
}

TEST_F(EntryChecksTest, TestOperRefusesAZeroSum) {
    op->Methods("CreateBR", {QDate(2024, 3, 15), 0.0, "2710", "2410"});
    const ValueResult r = op->TestOper({});
    EXPECT_EQ(r.Code, 999);
    EXPECT_TRUE(r.Text.startsWith("Klaidinga sumos reikšmė!\n2710 2410 0,00"));
}

TEST_F(EntryChecksTest, TestOperOnOneGuidLeavesTheFilterForTheCaller) {
    Entry("2710", "2411", 10.0, {}); // unsound, but not the one tested
    const QString sound = Entry("2710", "2410", 10.0, {});
    const ValueResult r = op->TestOper({sound});
    EXPECT_TRUE(r.Value.toBool());
    EXPECT_EQ(Entries()->Filter(), "GUID = '" + sound + "'");
    EXPECT_EQ(Entries()->RecordCount(), 1);
}

TEST_F(EntryChecksTest, TestOperReportsTheCurrencyFault) {
    const ValueResult added = AddBR({"2710", "2410", 100.0, ValueArray{}, qint16(1), "USD", 0.92});
    ASSERT_TRUE(GoToEntry(added.Value.toString()));
    Entries()->SetField("SumA", 93.0);
    const ValueResult r = op->TestOper({});
    EXPECT_TRUE(r.Text.startsWith("Suma bazine valiuta neatitinka sumai valiuta pagal kursą!\n"));
}

TEST_F(EntryChecksTest, CurrencySumUnderThreeBlanksHasNoCurrencyType) {
    EXPECT_EQ(UIO0201500::CheckValiuta(Currency({{"{G}", qint16(1), 1.0, 10.0, "   "}}), 10.0),
              "Nenurodytas valiutos tipas!");
}

TEST_F(EntryChecksTest, OnlyTheFirstCurrencyFaultIsReported) {
    EXPECT_EQ(UIO0201500::CheckValiuta(Currency({{"{G}", qint16(1), 0.0, 10.0, "USD"},
                                                 {"{G}", qint16(-1), 1.0, 10.0, ""}}),
                                       10.0),
              "Nenurodytas valiutos kursas!");
}
