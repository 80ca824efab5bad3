// The list of a selection window without widgets: which debts reach it, how a row's
// cells are written, how a payment is spread, and what check, uncheck and the sum dialog
// do to a row.
#include "settlement/selection_allocation.h"
#include "settlement/selection_debts.h"
#include "settlement/selection_list.h"
#include "settlement/selection_result.h"

#include "core/number_text.h"

#include <gtest/gtest.h>

namespace orvo {
namespace {

const QString kBase = QStringLiteral("   ");

struct Debt {
    QString oidr;
    double likutisLt = 0;
    double likutisCurr = 0;
    QString code = QStringLiteral("   ");
    int sign = 1;
    QString accountD = QStringLiteral("2410");
    QString accountC = QStringLiteral("5000");
    double currencyRate = 0;
};

FieldDef f(const char* name, FieldType type = FieldType::VarWChar, int size = 0) {
    return FieldDef::Make(QString::fromLatin1(name), type, size);
}

// A debt recordset shaped as the debt queries answer.
RecordsetPtr Debts(const QVector<Debt>& debts) {
    RecordsetPtr rs = Recordset::Create(
        {f("OIDR", FieldType::VarWChar, 50), f("DateD", FieldType::Date), f("Number"), f("Comment"),
         f("FOIDR"), f("AccountD"), f("AccountC"), f("FullSum", FieldType::Double),
         f("FullSumCurr", FieldType::Double), f("LikutisLt", FieldType::Double),
         f("LikutisCurr", FieldType::Double), f("FCurrencyCode", FieldType::VarWChar, 3),
         f("RateCurr", FieldType::Double), f("CurrencyRate", FieldType::Double),
         f("CurrentRate", FieldType::Double), f("CurrInfluence", FieldType::Double),
         f("InfluenceSign", FieldType::SmallInt)});
    int n = 0;
    for (const Debt& d : debts) {
        rs->AddNew();
        rs->SetField(QStringLiteral("OIDR"), d.oidr);
        rs->SetField(QStringLiteral("DateD"), Value(QDate(2024, 3, 1).addDays(n++)));
        rs->SetField(QStringLiteral("Number"), QStringLiteral("SF-%1").arg(n));
        rs->SetField(QStringLiteral("Comment"), QStringLiteral("Sąskaita %1").arg(n));
        rs->SetField(QStringLiteral("FOIDR"), QStringLiteral("O000010011"));
        rs->SetField(QStringLiteral("AccountD"), d.accountD);
        rs->SetField(QStringLiteral("AccountC"), d.accountC);
        rs->SetField(QStringLiteral("FullSum"), d.likutisLt);
        rs->SetField(QStringLiteral("FullSumCurr"), d.likutisCurr);
        rs->SetField(QStringLiteral("LikutisLt"), d.likutisLt);
        rs->SetField(QStringLiteral("LikutisCurr"), d.likutisCurr);
        rs->SetField(QStringLiteral("FCurrencyCode"), d.code);
        rs->SetField(QStringLiteral("RateCurr"),
                     d.likutisCurr != 0 ? d.likutisLt / d.likutisCurr : 0);
        rs->SetField(QStringLiteral("CurrencyRate"), d.currencyRate);
        rs->SetField(QStringLiteral("CurrentRate"), 0.0);
        rs->SetField(QStringLiteral("CurrInfluence"), 0.0);
        rs->SetField(QStringLiteral("InfluenceSign"), Value(qint16(d.sign)));
        rs->Update();
    }
    rs->AcceptChanges();
    rs->MoveFirst();
    return rs;
}

DictionaryPtr Rates(std::initializer_list<std::pair<const char*, double>> rates) {
    DictionaryPtr map = Dictionary::Create();
    for (const auto& r : rates)
        map->Add(QString::fromLatin1(r.first), Value(r.second));
    return map;
}

QStringList Texts(const SelectionRow& row) {
    QStringList texts;
    for (int c = 1; c <= SelectionRow::CellCount; ++c)
        texts << row.At(c).Text;
    return texts;
}

SelectionList ListOf(const RecordsetPtr& debts, const SelectionPayment& payment = {}) {
    SelectionList list;
    list.SetRoleAccounts(QStringLiteral("5803"), QStringLiteral("6803"));
    list.SetPayment(payment);
    list.Fill(debts);
    return list;
}

TEST(SelectionListTest, APaymentOfZeroOnACheckedRowMeansTheWholeBalance) {
    SelectionList list = ListOf(Debts({{"O0201500101", 121.40}, {"O0201500102", 30.00}}));
    ASSERT_EQ(list.Rows().size(), 2);
    EXPECT_FALSE(list.Rows().at(0).Checked);
    ASSERT_TRUE(list.Check(0));
    const SelectionRow& row = list.Rows().at(0);
    EXPECT_TRUE(row.Checked);
    EXPECT_EQ(row.At(SelectionRow::PaymentLt).Text, QStringLiteral("121,40"));
    EXPECT_EQ(row.At(SelectionRow::LikutisLt).Text, QStringLiteral(" "));
    EXPECT_DOUBLE_EQ(list.TotalPayment(), 121.40);
}

TEST(SelectionListTest, APaymentIsSpreadOverTheRowsInOrderWhenTheListIsFilled) {
    SelectionPayment pay;
    pay.Sum = 130.0;
    SelectionList list = ListOf(
        Debts({{"O0201500101", 100.00}, {"O0201500102", 50.00}, {"O0201500103", 20.00}}), pay);
    ASSERT_EQ(list.Rows().size(), 3);
    EXPECT_TRUE(list.Rows().at(0).Checked);
    EXPECT_EQ(list.Rows().at(0).At(SelectionRow::PaymentLt).Text, QStringLiteral("100,00"));
    EXPECT_TRUE(list.Rows().at(1).Checked);
    EXPECT_EQ(list.Rows().at(1).At(SelectionRow::PaymentLt).Text, QStringLiteral("30,00"));
    EXPECT_EQ(list.Rows().at(1).At(SelectionRow::LikutisLt).Text, QStringLiteral("20,00"));
    EXPECT_FALSE(list.Rows().at(2).Checked);
    EXPECT_EQ(list.Rows().at(2).At(SelectionRow::LikutisLt).Text, QStringLiteral("20,00"));
    EXPECT_DOUBLE_EQ(list.Remaining(), 0.0);
    // Nothing remains for the third row.
    EXPECT_FALSE(list.Check(2));
    EXPECT_FALSE(list.Rows().at(2).Checked);
}

TEST(SelectionListTest,
     ABaseRowPaidInAForeignCurrencyLosesACentOfCoverWhenTheConvertedSumWouldExceedTheBalance) {
    // 10,00 at 6 a unit is 1,67 units, which come back as 10,02: one cent of cover goes.
    AllocationInput in;
    in.BaseBalance = 10.00;
    in.PayCode = QStringLiteral("USD");
    in.PayRate = 6.0;
    const AllocationResult a = SelectionAllocation::Allocate(in);
    EXPECT_DOUBLE_EQ(a.CoverSumCurr, 1.66);
    EXPECT_DOUBLE_EQ(a.PaymentLt, 9.96);
    EXPECT_DOUBLE_EQ(a.InfluenceSum, 0.04);
    EXPECT_DOUBLE_EQ(a.Result, 1.66);
    EXPECT_DOUBLE_EQ(a.BaseBalance, 0.0);

    // Where the conversion stays within the balance the cover is kept.
    in.PayRate = 3.0;
    const AllocationResult b = SelectionAllocation::Allocate(in);
    EXPECT_DOUBLE_EQ(b.CoverSumCurr, 3.33);
    EXPECT_DOUBLE_EQ(b.PaymentLt, 9.99);
    EXPECT_DOUBLE_EQ(b.InfluenceSum, 0.01);
}

TEST(SelectionListTest, ABaseRowPaidInAForeignCurrencyShowsTheCoverInBlue) {
    SelectionPayment pay;
    pay.Code = QStringLiteral("USD");
    pay.Rate = 6.0;
    SelectionList list = ListOf(Debts({{"O0201500101", 10.00}}), pay);
    ASSERT_TRUE(list.Check(0));
    const SelectionRow& row = list.Rows().at(0);
    EXPECT_TRUE(row.HasCoverCell);
    EXPECT_EQ(row.At(SelectionRow::CoverSumCurr).Text, QStringLiteral("1,66"));
    EXPECT_EQ(row.At(SelectionRow::CoverSumCurr).Color, SelectionRow::Blue);
    EXPECT_EQ(row.At(SelectionRow::PaymentLt).Text, QStringLiteral("9,96"));
    EXPECT_EQ(row.At(SelectionRow::InfluenceSum).Text, QStringLiteral("0,04"));
    EXPECT_DOUBLE_EQ(row.TagAmount(SelectionRow::InfluenceSum), 0.04);
    // The debit balance left over by the rounding is a loss.
    const RecordsetPtr result = SelectionResult::Build(list, {});
    ASSERT_EQ(result->RecordCount(), 1);
    EXPECT_DOUBLE_EQ(result->Field(QStringLiteral("ExtSum")).toDouble(), -0.04);
    EXPECT_DOUBLE_EQ(result->Field(QStringLiteral("PaymentSum")).toDouble(), 9.96);
}

TEST(SelectionListTest, UncheckAfterCheckRestoresAllCellsApartFromAManualInfluencePart) {
    SelectionPayment pay;
    pay.Code = QStringLiteral("USD");
    pay.Rate = 6.0;
    SelectionList list = ListOf(Debts({{"O0201500101", 10.00}, {"O0201500102", 25.50}}), pay);
    const QStringList before = Texts(list.Rows().at(0));
    ASSERT_TRUE(list.Check(0));
    EXPECT_NE(Texts(list.Rows().at(0)), before);
    list.Uncheck(0);
    EXPECT_EQ(Texts(list.Rows().at(0)), before);
    EXPECT_FALSE(list.Rows().at(0).Checked);

    // A part typed through the sum dialog stays in cell 9 after the row is unchecked.
    list.EnterSum(1, 12.00, 0);
    const SelectionRow& typed = list.Rows().at(1);
    // 12,00 at 6 is exactly 2 units: no manual part.
    EXPECT_EQ(typed.At(SelectionRow::CoverSumCurr).Text, QStringLiteral("2,00"));
    list.EnterSum(1, 12.05, 0);
    // 12,05 is 2,01 units, which come back as 12,06: one cent less, 2,00 units, 12,00
    // paid and 0,05 typed over it, negated on the debit side.
    EXPECT_EQ(typed.At(SelectionRow::PaymentLt).Text, QStringLiteral("12,00"));
    EXPECT_EQ(typed.At(SelectionRow::InfluenceSum).Text, QStringLiteral("-0,05"));
    EXPECT_EQ(typed.At(SelectionRow::LikutisLt).Text, QStringLiteral("13,50"));
    EXPECT_TRUE(typed.Checked);
    list.Uncheck(1);
    EXPECT_EQ(typed.At(SelectionRow::LikutisLt).Text, QStringLiteral("25,50"));
    EXPECT_EQ(typed.At(SelectionRow::PaymentLt).Text, QStringLiteral(" "));
    EXPECT_EQ(typed.At(SelectionRow::InfluenceSum).Text, QStringLiteral("-0,05"));
}

TEST(SelectionListTest, ARowWithARateChangeEntrysAccountsNeverReachesTheList) {
    SelectionList list = ListOf(Debts({{"O0201500101", 100.00},
                                       // debit balance made by the expense account of 636
                                       {"O0201500102", 5.00, 0, kBase, 1, "6803", "2410"},
                                       // credit balance made by the income account of 536
                                       {"O0201500103", 7.00, 0, kBase, -1, "4430", "5803"},
                                       // the same accounts on the other balance stay
                                       {"O0201500104", 8.00, 0, kBase, -1, "6803", "4430"}}));
    QStringList keys;
    for (const SelectionRow& r : list.Rows())
        keys << r.Key;
    EXPECT_EQ(keys, QStringList({"O0201500101", "O0201500104"}));
}

TEST(SelectionListTest, AnAmountOf0004ShowsABlankAndReadsBackAs0) {
    SelectionList list = ListOf(Debts({{"O0201500101", 0.004}}));
    ASSERT_EQ(list.Rows().size(), 1);
    const SelectionRow& row = list.Rows().at(0);
    EXPECT_EQ(row.At(SelectionRow::LikutisLt).Text, QStringLiteral(" "));
    EXPECT_DOUBLE_EQ(row.Amount(SelectionRow::LikutisLt), 0.0);
    EXPECT_EQ(FormatAmount(-0.004), QStringLiteral(" "));
    EXPECT_EQ(FormatAmount(-0.01), QStringLiteral("-0,01"));
    // A blank balance cannot be checked.
    EXPECT_FALSE(list.Check(0));
    EXPECT_FALSE(list.Rows().at(0).Checked);
}

TEST(SelectionListTest, RevaluingLaysTheRateOfTheDateOverCurrencyRowsOnly) {
    RecordsetPtr debts = Debts({{"O0201500101", 92.00, 100.00, "USD", 1, "2410", "5000", 1.08},
                                {"O0201500102", 50.00, 0, kBase, -1, "2410", "4430"},
                                {"O0201500103", 20.00, 10.00, "GBP", 1}});
    SelectionDebts::Revalue(debts, Rates({{"USD", 0.95}}));
    debts->MoveFirst();
    EXPECT_DOUBLE_EQ(debts->Field(QStringLiteral("CurrentRate")).toDouble(), 0.95);
    // 100 USD at 0,95 is 95,00: the receivable rose by 3,00.
    EXPECT_DOUBLE_EQ(debts->Field(QStringLiteral("CurrInfluence")).toDouble(), -3.0);
    EXPECT_DOUBLE_EQ(debts->Field(QStringLiteral("RateCurr")).toDouble(), 0.0);
    debts->MoveNext();
    EXPECT_DOUBLE_EQ(debts->Field(QStringLiteral("CurrInfluence")).toDouble(), 0.0);
    debts->MoveNext();
    // No rate of the date: no influence and no rate.
    EXPECT_DOUBLE_EQ(debts->Field(QStringLiteral("CurrentRate")).toDouble(), 0.0);
    EXPECT_DOUBLE_EQ(debts->Field(QStringLiteral("CurrInfluence")).toDouble(), 0.0);

    SelectionList list = ListOf(debts);
    const SelectionRow& usd = list.Rows().at(0);
    EXPECT_EQ(usd.At(SelectionRow::LikutisLt).Text, QStringLiteral("95,00"));
    EXPECT_EQ(usd.At(SelectionRow::LikutisCurr).Text, QStringLiteral("100,00"));
    EXPECT_EQ(usd.At(SelectionRow::LikutisCurrCode).Text, QStringLiteral("USD"));
    EXPECT_EQ(usd.At(SelectionRow::PaymentCurrRate).Text, QStringLiteral("0,950000000"));
    EXPECT_EQ(usd.At(SelectionRow::InfluenceSum).Text, QStringLiteral("-3,00"));
    EXPECT_DOUBLE_EQ(usd.TagAmount(SelectionRow::InfluenceSum), -3.0);
    const SelectionRow& gbp = list.Rows().at(2);
    EXPECT_EQ(gbp.At(SelectionRow::PaymentCurrRate).Text, QStringLiteral(" "));
    EXPECT_DOUBLE_EQ(gbp.Rate(), 0.0);
    // A currency without a rate is not checked.
    EXPECT_FALSE(list.Check(2));
}

TEST(SelectionListTest, UnderAEuroBaseTheRateCellShowsTheQuotedRateAndKeepsTheCurrentOne) {
    RecordsetPtr debts = Debts({{"O0201500101", 92.00, 100.00, "USD", 1, "2410", "5000", 1.087}});
    SelectionDebts::Revalue(debts, Rates({{"USD", 0.92}}));
    SelectionList list;
    list.SetBaseIsEuro(true);
    list.Fill(debts);
    const SelectionRow& row = list.Rows().at(0);
    EXPECT_EQ(row.At(SelectionRow::PaymentCurrRate).Text, QStringLiteral("1,087000000"));
    EXPECT_DOUBLE_EQ(row.Rate(), 0.92);
}

TEST(SelectionListTest, ACurrencyRowPaidInFullCarriesItsRateChangeIntoTheResult) {
    RecordsetPtr debts = Debts({{"O0201500101", 92.00, 100.00, "USD"}});
    SelectionDebts::Revalue(debts, Rates({{"USD", 0.95}}));
    SelectionList list = ListOf(debts);
    ASSERT_TRUE(list.Check(0));
    const SelectionRow& row = list.Rows().at(0);
    EXPECT_EQ(row.At(SelectionRow::PaymentLt).Text, QStringLiteral("95,00"));
    EXPECT_EQ(row.At(SelectionRow::PaymentSumCurr).Text, QStringLiteral("100,00"));
    EXPECT_EQ(row.At(SelectionRow::PaymentCurrCode).Text, QStringLiteral("USD"));
    EXPECT_EQ(row.At(SelectionRow::LikutisCurr).Text, QStringLiteral(" "));
    EXPECT_EQ(row.At(SelectionRow::LikutisCurrCode).Text, QStringLiteral(" "));
    const RecordsetPtr result = SelectionResult::Build(list, {});
    ASSERT_EQ(result->RecordCount(), 1);
    EXPECT_DOUBLE_EQ(result->Field(QStringLiteral("PaymentSum")).toDouble(), 95.0);
    EXPECT_DOUBLE_EQ(result->Field(QStringLiteral("DebtSumCurr")).toDouble(), 100.0);
    EXPECT_DOUBLE_EQ(result->Field(QStringLiteral("DebtCurrRate")).toDouble(), 0.95);
    EXPECT_DOUBLE_EQ(result->Field(QStringLiteral("DebtCurrRatePrimary")).toDouble(), 0.92);
    EXPECT_EQ(result->Field(QStringLiteral("DebtCurrCode")).toString(), QStringLiteral("USD"));
    // The receivable rose by 3,00 before it was paid.
    EXPECT_DOUBLE_EQ(result->Field(QStringLiteral("ExtSum")).toDouble(), 3.0);
    list.Uncheck(0);
    EXPECT_EQ(row.At(SelectionRow::LikutisCurr).Text, QStringLiteral("100,00"));
    EXPECT_EQ(row.At(SelectionRow::LikutisCurrCode).Text, QStringLiteral("USD"));
    EXPECT_EQ(row.At(SelectionRow::LikutisLt).Text, QStringLiteral("95,00"));
}

TEST(SelectionListTest, ACodeWithoutACurrencyBalanceTurnsRedWhileABaseBalanceStands) {
    SelectionList list = ListOf(Debts({{"O0201500101", 0.50, 0, "USD"}, {"O0201500102", 3.0}}));
    EXPECT_EQ(list.Rows().at(0).At(SelectionRow::LikutisCurrCode).Color, SelectionRow::Red);
    EXPECT_EQ(list.Rows().at(1).At(SelectionRow::LikutisCurrCode).Color, 0);
}

TEST(SelectionListTest, AnEmptyRecordsetClearsTheList) {
    SelectionList list = ListOf(Debts({{"O0201500101", 10.0}}));
    ASSERT_EQ(list.Rows().size(), 1);
    list.Fill(Debts({}));
    EXPECT_TRUE(list.Rows().isEmpty());
    list.Fill(nullptr);
    EXPECT_TRUE(list.Rows().isEmpty());
}

TEST(SelectionListTest, TheResultNamesEveryFieldAndAPaymentSelectionCarriesItsOwn) {
    const FieldDefs plain = SelectionResult::Fields(QStringLiteral("O0201504"));
    QStringList names;
    for (const FieldDef& d : plain)
        names << d.name;
    EXPECT_EQ(names, QStringList({"OIDR",           "FOIDR",           "Comment",
                                  "DateD",          "Number",          "AccountD",
                                  "AccountC",       "FullSum",         "FullSumCurr",
                                  "RestSum",        "RestSumCurr",     "PaymentSum",
                                  "PaymentSumCurr", "PaymentCurrCode", "PaymentCurrRate",
                                  "DebtSumCurr",    "DebtCurrRate",    "DebtCurrRatePrimary",
                                  "DebtCurrCode",   "DebtSign",        "ExtSum",
                                  "AddrOIDR",       "AddrName",        "Acc536",
                                  "Acc636"}));
    SelectionList list = ListOf(Debts({{"O0201500101", 10.0}, {"O0201500102", 20.0}}));
    list.Check(0);
    list.Check(1);
    SelectionResultContext context;
    context.CallerKind = QStringLiteral("O0201505");
    context.Addressee = QStringLiteral("O000010011");
    context.AddresseeName = QStringLiteral("UAB „Ąžuolas“");
    const RecordsetPtr result = SelectionResult::Build(list, context, 1);
    EXPECT_EQ(result->RecordCount(), 2);
    // It stands on the row the user left current.
    EXPECT_EQ(result->Field(QStringLiteral("OIDR")).toString(), QStringLiteral("O0201500102"));
    EXPECT_EQ(result->Field(QStringLiteral("AddrName")).toString(),
              QStringLiteral("UAB „Ąžuolas“"));
    EXPECT_EQ(result->Field(QStringLiteral("Acc536")).toString(), QStringLiteral("5803"));
    EXPECT_EQ(result->Field(QStringLiteral("Acc636")).toString(), QStringLiteral("6803"));
    EXPECT_EQ(result->Field(QStringLiteral("ClientOIDR")).toString(), QStringLiteral("O000010011"));
    EXPECT_DOUBLE_EQ(result->Field(QStringLiteral("LikutisLt")).toDouble(), 20.0);
    EXPECT_EQ(result->Field(QStringLiteral("BROperDate")).toDate(), QDate(2024, 3, 2));
}

TEST(SelectionListTest, TheQueryTextNamesAccountDateAddresseeAndSign) {
    DebtsRequest r;
    r.Account = QStringLiteral("2410");
    r.Date = QDate(2024, 3, 15);
    r.Addressee = QStringLiteral("O000010011");
    r.Sign = 1;
    EXPECT_EQ(SelectionDebts::ParameterText(r),
              QStringLiteral("'0','2410','2024.03.15','O000010011',1"));
    r.WithBranches = true;
    EXPECT_EQ(SelectionDebts::ParameterText(r),
              QStringLiteral("'0','2410','2024.03.15','O000010011',1,1"));
}

TEST(SelectionListTest, TheCopyKeepsTheFieldsAndTurnsANumericIntoADecimal) {
    RecordsetPtr rs =
        Recordset::Create({f("OIDR", FieldType::VarWChar, 50),
                           FieldDef::Make(QStringLiteral("LikutisLt"), FieldType::Numeric)});
    FieldDefs defs = rs->FieldDefinitions();
    rs->AddNew();
    rs->SetField(0, QStringLiteral("O0201500101"));
    rs->SetField(1, 12.5);
    rs->Update();
    rs->AddNew();
    rs->SetField(0, QStringLiteral("O0201500102"));
    rs->Update();
    rs->MoveLast();
    const RecordsetPtr copy = SelectionDebts::Copy(rs);
    ASSERT_EQ(copy->RecordCount(), 2);
    EXPECT_EQ(copy->FieldDefinitions().at(0).definedSize, 50);
    EXPECT_EQ(copy->FieldDefinitions().at(1).type, FieldType::Decimal);
    EXPECT_EQ(copy->Field(QStringLiteral("OIDR")).toString(), QStringLiteral("O0201500101"));
    EXPECT_TRUE(copy->SetField(QStringLiteral("LikutisLt"), 3.0));
}

} // namespace
} // namespace orvo
