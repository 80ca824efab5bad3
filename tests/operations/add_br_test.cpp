// AddBR: one entry with its currency sides and its addressees, the way every document
// editor posts an entry.
#include "host_stand_ins.h"

#include "core/null_readers.h"
#include "operations/command_failure.h"

using namespace orvo;
using namespace orvo::test;

namespace {

const QString kBlank = QStringLiteral("   ");

class AddBRTest : public OperationFixture {};

} // namespace

TEST_F(AddBRTest, PlainEntryInBaseCurrencyGetsRoundedSumAndNoCurrencyRows) {
    const ValueResult r = AddBR({"2710", "2410", 100.005, ValueArray{}});
    ASSERT_EQ(r.Code, 0) << r.Text.toStdString();
    ASSERT_TRUE(GoToEntry(r.Value.toString()));
    EXPECT_DOUBLE_EQ(Entries()->Field("SumA").toDouble(), 100.01);
    EXPECT_EQ(Entries()->Field("AccountD").toString(), "2710");
    EXPECT_EQ(Entries()->Field("AccountC").toString(), "2410");
    EXPECT_EQ(Entries()->Field("RestoringSign").toInt16(), 1);
    EXPECT_TRUE(Entries()->Field("FGUID").isNull());
    EXPECT_EQ(Nested("BRCurrency")->RecordCount(), 0);
    EXPECT_EQ(r.Value.toString().size(), 38);
}

TEST_F(AddBRTest, OperationWithoutDateTakesTodayAndTheEntryTakesTheOperationsDate) {
    ASSERT_TRUE(op->Field("DateD").isNull());
    const ValueResult r = AddBR({"2710", "2410", 10.0, ValueArray{}});
    ASSERT_EQ(r.Code, 0);
    EXPECT_EQ(op->Field("DateD").toDate(), QDate(2024, 3, 15));
    ASSERT_TRUE(GoToEntry(r.Value.toString()));
    EXPECT_EQ(Entries()->Field("DateD").toDate(), QDate(2024, 3, 15));
}

TEST_F(AddBRTest, EntryDateParameterOverridesTheOperationsDate) {
    op->SetField("DateD", Value(QDate(2024, 3, 1)));
    const ValueResult r =
        AddBR({"2710", "2410", 10.0, ValueArray{}, qint16(0), kBlank, 0.0, 0.0, kBlank, 0.0, "Info",
               "Žyma", "2024-02-29", "{F-GUID}", qint16(3), 21.0, qint16(0)});
    ASSERT_EQ(r.Code, 0) << r.Text.toStdString();
    ASSERT_TRUE(GoToEntry(r.Value.toString()));
    EXPECT_EQ(Entries()->Field("DateD").toDate(), QDate(2024, 2, 29));
    EXPECT_EQ(op->Field("DateD").toDate(), QDate(2024, 3, 1));
    EXPECT_EQ(Entries()->Field("Info").toString(), "Info");
    EXPECT_EQ(Entries()->Field("Tag").toString(), "Žyma");
    EXPECT_EQ(Entries()->Field("FGUID").toString(), "{F-GUID}");
    EXPECT_EQ(Entries()->Field("TradeOperationType").toInt16(), 3);
    EXPECT_DOUBLE_EQ(Entries()->Field("VATTariff").toDouble(), 21.0);
    EXPECT_EQ(Entries()->Field("RestoringSign").toInt16(), 0);
}

TEST_F(AddBRTest, AddBRSignZeroSingleForeignCurrencyWritesTwoCurrencyRows) {
    // 100 USD at 0.92 EUR per dollar on both sides.
    const ValueResult r = AddBR({"2710", "2410", 100.0, ValueArray{}, qint16(0), "USD", 0.92});
    ASSERT_EQ(r.Code, 0) << r.Text.toStdString();
    ASSERT_TRUE(GoToEntry(r.Value.toString()));
    EXPECT_DOUBLE_EQ(Entries()->Field("SumA").toDouble(), 92.0);
    const RecordsetPtr cur = Nested("BRCurrency");
    ASSERT_EQ(cur->RecordCount(), 2);
    cur->MoveFirst();
    EXPECT_EQ(cur->Field("Sign").toInt16(), 1);
    EXPECT_EQ(cur->Field("FCurrencyCode").toString(), "USD");
    EXPECT_DOUBLE_EQ(cur->Field("SumCurr").toDouble(), 100.0);
    EXPECT_DOUBLE_EQ(cur->Field("RateCurr").toDouble(), 0.92);
    EXPECT_EQ(cur->Field("BRGUID").toString(), r.Value.toString());
    cur->MoveNext();
    EXPECT_EQ(cur->Field("Sign").toInt16(), -1);
    EXPECT_EQ(cur->Field("FCurrencyCode").toString(), "USD");
}

TEST_F(AddBRTest, AddBRSignZeroWithOnlyACreditCurrencyWritesBothRowsFromTheCreditSide) {
    const ValueResult r =
        AddBR({"2710", "2410", 46.0, ValueArray{}, qint16(0), kBlank, 0.0, 50.0, "USD", 0.92});
    ASSERT_EQ(r.Code, 0) << r.Text.toStdString();
    ASSERT_TRUE(GoToEntry(r.Value.toString()));
    EXPECT_DOUBLE_EQ(Entries()->Field("SumA").toDouble(), 46.0);
    const RecordsetPtr cur = Nested("BRCurrency");
    ASSERT_EQ(cur->RecordCount(), 2);
    for (cur->MoveFirst(); !cur->Eof(); cur->MoveNext()) {
        EXPECT_DOUBLE_EQ(cur->Field("SumCurr").toDouble(), 50.0);
        EXPECT_EQ(cur->Field("FCurrencyCode").toString(), "USD");
    }
}

TEST_F(AddBRTest, AddBRCurrencyEqualToBaseWritesNone) {
    const ValueResult r = AddBR({"2710", "2410", 100.0, ValueArray{}, qint16(1), "EUR", 1.0});
    ASSERT_EQ(r.Code, 0) << r.Text.toStdString();
    ASSERT_TRUE(GoToEntry(r.Value.toString()));
    EXPECT_EQ(Nested("BRCurrency")->RecordCount(), 0);
    EXPECT_DOUBLE_EQ(Entries()->Field("SumA").toDouble(), 100.0);
}

TEST_F(AddBRTest, DebitCurrencyWithSignOneWritesOneDebitRowAndTheEuroRateOnTheDebitSide) {
    const ValueResult r = AddBR({"2710", "2410", 100.0, ValueArray{}, qint16(1), "USD", 0.92});
    ASSERT_EQ(r.Code, 0);
    ASSERT_TRUE(GoToEntry(r.Value.toString()));
    const RecordsetPtr cur = Nested("BRCurrency");
    ASSERT_EQ(cur->RecordCount(), 1);
    EXPECT_EQ(cur->Field("Sign").toInt16(), 1);
    EXPECT_DOUBLE_EQ(Entries()->Field("CurrencyRateD").toDouble(), 1.086957);
    EXPECT_TRUE(Entries()->Field("CurrencyRateC").isNull());
}

TEST_F(AddBRTest, CreditCurrencyWithSignMinusOneWritesADebitRowAndTheRateIntoCurrencyRateD) {
    // Without a debit currency the credit side's row takes Sign negated, and the rate
    // field is named by Sign alone.
    const ValueResult r =
        AddBR({"2710", "2410", 46.0, ValueArray{}, qint16(-1), kBlank, 0.0, 50.0, "USD", 0.92});
    ASSERT_EQ(r.Code, 0) << r.Text.toStdString();
    ASSERT_TRUE(GoToEntry(r.Value.toString()));
    const RecordsetPtr cur = Nested("BRCurrency");
    ASSERT_EQ(cur->RecordCount(), 1);
    EXPECT_EQ(cur->Field("Sign").toInt16(), 1);
    EXPECT_DOUBLE_EQ(cur->Field("SumCurr").toDouble(), 50.0);
    EXPECT_DOUBLE_EQ(Entries()->Field("CurrencyRateD").toDouble(), 1.086957);
    EXPECT_TRUE(Entries()->Field("CurrencyRateC").isNull());
}

TEST_F(AddBRTest, BaseSumFromACurrencySumAddsTheTolerance) {
    // 0.125 * 1 falls on a half: the tolerance carries it up to 0.13.
    const ValueResult r = AddBR({"2710", "2410", 0.125, ValueArray{}, qint16(1), "USD", 1.0});
    ASSERT_EQ(r.Code, 0);
    ASSERT_TRUE(GoToEntry(r.Value.toString()));
    EXPECT_DOUBLE_EQ(Entries()->Field("SumA").toDouble(), 0.13);
}

TEST_F(AddBRTest, PropertyWithEightCharacterFOIDRIsSkipped) {
    const ValueResult r = AddBR({"2710", "2410", 10.0,
                                 ValueArray{qint16(-1), "O0000100", "Įmonė be numerio", qint16(-1),
                                            "O000010012", "UAB Ąžuolas"}});
    ASSERT_EQ(r.Code, 0);
    ASSERT_TRUE(GoToEntry(r.Value.toString()));
    const RecordsetPtr props = Nested("BRProperties");
    ASSERT_EQ(props->RecordCount(), 1);
    props->MoveFirst();
    EXPECT_EQ(props->Field("FOIDR").toString(), "O000010012");
    EXPECT_EQ(props->Field("ShowString").toString(), "UAB Ąžuolas");
    EXPECT_EQ(props->Field("Sign").toInt16(), -1);
    EXPECT_EQ(messages->boxes.size(), 0);
}

TEST_F(AddBRTest, PropertyWithASignOtherThanOneOrMinusOneIsSkipped) {
    const ValueResult r =
        AddBR({"2710", "2410", 10.0, ValueArray{qint16(0), "O000010012", "UAB Ąžuolas"}});
    ASSERT_EQ(r.Code, 0);
    ASSERT_TRUE(GoToEntry(r.Value.toString()));
    EXPECT_EQ(Nested("BRProperties")->RecordCount(), 0);
}

TEST_F(AddBRTest, ShowString900StoredAs800) {
    const QString long900 = QString(900, QChar(u'ž'));
    const ValueResult r =
        AddBR({"2710", "2410", 10.0, ValueArray{qint16(1), "O000010012", long900}});
    ASSERT_EQ(r.Code, 0) << r.Text.toStdString();
    ASSERT_TRUE(GoToEntry(r.Value.toString()));
    const RecordsetPtr props = Nested("BRProperties");
    props->MoveFirst();
    EXPECT_EQ(props->Field("ShowString").toString(), long900.left(800));
}

TEST_F(AddBRTest, WrongSignIsRefusedWithTheReportOfValuesAndShownAsWarning) {
    const ValueResult r = AddBR({"2710", "2410", 10.0, ValueArray{}, qint16(2)});
    EXPECT_EQ(r.Code, 777);
    EXPECT_EQ(r.Text, "Method AddBR_1:\nKlaidingi parametrai !\n"
                      "'2710','2410','10','','0','0','','0','2'");
    EXPECT_TRUE(r.Value.isNull());
    ASSERT_EQ(messages->Count(MessageKind::Warning), 1);
    EXPECT_EQ(messages->boxes.first().text, r.Text);
    EXPECT_EQ(Entries()->RecordCount(), 0);
}

TEST_F(AddBRTest, EmptyAccountIsRefused) {
    const ValueResult r = AddBR({"", "2410", 10.0, ValueArray{}});
    EXPECT_EQ(r.Code, 777);
    EXPECT_TRUE(r.Text.startsWith("Method AddBR_1:\nKlaidingi parametrai !\n''"));
}

TEST_F(AddBRTest, CurrencyWithoutRateIsRefused) {
    const ValueResult r = AddBR({"2710", "2410", 10.0, ValueArray{}, qint16(1), "USD", 0.0});
    EXPECT_EQ(r.Code, 777);
    EXPECT_TRUE(r.Text.startsWith("Method AddBR_1:"));
}

TEST_F(AddBRTest, CreditRateWithoutCreditSumIsRefused) {
    const ValueResult r =
        AddBR({"2710", "2410", 10.0, ValueArray{}, qint16(-1), kBlank, 0.0, 0.0, kBlank, 0.92});
    EXPECT_EQ(r.Code, 777);
    EXPECT_TRUE(r.Text.startsWith("Method AddBR_1:"));
}

TEST_F(AddBRTest, AddresseesThatAreNotWholeTriplesAreRefusedWithTheLastIndex) {
    const ValueResult r =
        AddBR({"2710", "2410", 10.0, ValueArray{qint16(1), "O000010012", "A", qint16(1)}});
    EXPECT_EQ(r.Code, 777);
    EXPECT_EQ(r.Text, "Method AddBR_2:\nKlaidingi parametrai !\nn=3");
}

TEST_F(AddBRTest, SidesWhoseBaseSumsDifferAreRefused) {
    // 100 USD at 0.92 is 92.00; 80 GBP at 1.16 is 92.80.
    const ValueResult r =
        AddBR({"2710", "2410", 100.0, ValueArray{}, qint16(0), "USD", 0.92, 80.0, "GBP", 1.16});
    EXPECT_EQ(r.Code, 777);
    EXPECT_EQ(r.Text, "Debito ir Kredito sumos, perskaičiuotos į bazinę valiutą, nesutampa!");
    EXPECT_EQ(Entries()->RecordCount(), 0);
}

TEST_F(AddBRTest, SidesWithEqualBaseSumsInDifferentCurrenciesAreAccepted) {
    // 100 USD at 0.92 and 80 GBP at 1.15 both make 92.00.
    const ValueResult r =
        AddBR({"2710", "2410", 100.0, ValueArray{}, qint16(1), "USD", 0.92, 80.0, "GBP", 1.15});
    ASSERT_EQ(r.Code, 0) << r.Text.toStdString();
    ASSERT_TRUE(GoToEntry(r.Value.toString()));
    EXPECT_DOUBLE_EQ(Entries()->Field("SumA").toDouble(), 92.0);
}

TEST_F(AddBRTest, TooFewParametersAreRefusedAsAddBR0) {
    const ValueResult r = AddBR({"2710", "2410", 10.0});
    EXPECT_EQ(r.Code, 777);
    EXPECT_EQ(r.Text, "Method AddBR_0:\nKlaidingi parametrai !");
}

TEST_F(AddBRTest, AnInfoLongerThanItsFieldIsARunTimeFailureThatKeepsTheRowsMade) {
    const ValueResult r = AddBR({"2710", "2410", 10.0, ValueArray{}, qint16(0), kBlank, 0.0, 0.0,
                                 kBlank, 0.0, QString(1001, QChar('x'))});
    EXPECT_EQ(r.Code, CommandFailure::FieldRefused);
    EXPECT_EQ(r.Text, "Laukas Info nepriėmė reikšmės.\nKlaida!");
    EXPECT_EQ(Entries()->RecordCount(), 1);
    EXPECT_EQ(messages->boxes.size(), 0);
}

TEST_F(AddBRTest, ASumThatIsNoNumberIsARunTimeFailure) {
    const ValueResult r = AddBR({"2710", "2410", "dešimt", ValueArray{}});
    EXPECT_EQ(r.Code, CommandFailure::ParameterType);
    EXPECT_TRUE(r.Text.endsWith("\nKlaida!"));
    EXPECT_EQ(Entries()->RecordCount(), 0);
}
