// The debts cover without its window, on a stored demo book: filling the two sides,
// checking, the save with its pairs, rate influence and comment, the dates option, the
// variants, the addressee list with its covered marks and the advance to the next one.
#include "debts_cover_fixture.h"

#include "frame/orvo_settings_service.h"
#include "settlement/debts_cover.h"

namespace orvo::test {
namespace {

const QString kRastai = QStringLiteral("UAB Rąstų prekyba");
const QString kCentras = QStringLiteral("VšĮ Žinių ir įgūdžių centras");
const QString kSpaustuve = QStringLiteral("UAB Čiurlionio spaustuvė");

class DebtsCoverTest : public DebtsCoverBook {
protected:
    // A cover of 2410 (debit debts) against 4430 (credit debts) for one firm.
    std::unique_ptr<DebtsCover> Cover(const OrvoObjectUIOPtr& op, const QString& firm,
                                      const QString& text) {
        auto cover = std::make_unique<DebtsCover>(op);
        cover->Open();
        cover->SetAccounts(QStringLiteral("2410"), QStringLiteral("4430"));
        cover->SetPrimaryDebit(true);
        cover->SetAddressee(true, firm, text);
        EXPECT_EQ(cover->addrSecondary, firm);
        EXPECT_TRUE(cover->Fill());
        return cover;
    }
    static void CheckBoth(DebtsCover& cover) {
        cover.primary.CheckAll();
        cover.secondary.CheckAll();
    }
    static QDate DollarDay() { return QDate(2024, 1, 10); }
    // A sale of 1000 dollars at the rate of DollarDay and a purchase of `purchase` euros,
    // both of `firm`.
    void DollarSaleAndPurchase(const QString& firm, double purchase) {
        Book(DollarDay(), "T-1", "2410", "5000", 1000.00, firm, 1, "USD",
             RateOn(DollarDay(), "USD"));
        Book(QDate(2024, 2, 2), "T-2", "2040", "4430", purchase, firm, -1);
    }
    double RateOn(const QDate& date, const QString& code) {
        const ValueResult r =
            NewOperation()->Methods(QStringLiteral("GetCurrencyList"), {Value(date), Value(false)});
        const DictionaryPtr map = r.Value.toDictionary();
        return map ? NzDouble(map->Item(code)) : 0;
    }
};

TEST_P(DebtsCoverTest, PrimaryOfHundredAgainstSixtyAndFiftyGivesSixtyAndFortyAndDropsTheRest) {
    const QString firm = Firm(kRastai);
    Book(QDate(2024, 2, 1), "T-1", "2410", "5000", 100.00, firm, 1);
    Book(QDate(2024, 2, 2), "T-2", "2040", "4430", 60.00, firm, -1);
    const QString fifty = Book(QDate(2024, 2, 3), "T-3", "2040", "4430", 50.00, firm, -1);
    const OrvoObjectUIOPtr op = NewOperation();
    auto cover = Cover(op, firm, kRastai);
    ASSERT_EQ(cover->primary.Count(), 1);
    ASSERT_EQ(cover->secondary.Count(), 2);
    CheckBoth(*cover);
    EXPECT_EQ(DebtsCover::SumText(cover->primary.PaymentSum()), "100,00");
    EXPECT_EQ(DebtsCover::SumText(cover->secondary.PaymentSum()), "110,00");
    ASSERT_TRUE(cover->CanSave());
    ASSERT_TRUE(cover->Save());

    const QVector<EntryView> entries = View(op);
    ASSERT_EQ(entries.size(), 2);
    EXPECT_EQ(entries[0].debit + " " + entries[0].credit, "4430 2410");
    EXPECT_DOUBLE_EQ(entries[0].sumA, 60.00);
    EXPECT_DOUBLE_EQ(entries[1].sumA, 40.00);
    EXPECT_EQ(entries[0].date, Today());
    EXPECT_EQ(NzString(op->Field("Comment")), "Skolų dengimas - " + kRastai);
    EXPECT_EQ(cover->exitCaption, "Užbaigti");
    EXPECT_TRUE(cover->dateLocked);

    const ResultRecord saved = op->Save();
    ASSERT_TRUE(saved.ok()) << saved.Text.toStdString();
    EXPECT_EQ(Debts("2410", firm, 1)->RecordCount(), 0);
    const RecordsetPtr left = Debts("4430", firm, -1);
    ASSERT_EQ(left->RecordCount(), 1);
    EXPECT_EQ(NzString(left->Field("OIDR")), fifty);
    EXPECT_DOUBLE_EQ(std::abs(NzDouble(left->Field("LikutisLt"))), 10.00);
}

TEST_P(DebtsCoverTest, RowInfluenceIsPostedOnceBeforeItsFirstEntry) {
    const QString firm = Firm(kRastai);
    const double bookedRate = RateOn(DollarDay(), "USD");
    const double coverRate = RateOn(Today(), "USD");
    ASSERT_GT(bookedRate, 0);
    ASSERT_NE(bookedRate, coverRate);
    Book(DollarDay(), "T-1", "2410", "5000", 1000.00, firm, 1, "USD", bookedRate);
    Book(QDate(2024, 2, 2), "T-2", "2040", "4430", 300.00, firm, -1);
    Book(QDate(2024, 2, 3), "T-3", "2040", "4430", 400.00, firm, -1);
    const OrvoObjectUIOPtr op = NewOperation();
    auto cover = Cover(op, firm, kRastai);
    ASSERT_EQ(cover->primary.Count(), 1);
    const double bookedBase = RoundBaseSum(1000.00 * bookedRate);
    const double revalued = RoundBaseSum(1000.00 * coverRate);
    EXPECT_DOUBLE_EQ(cover->primary.Rows()[0].LikutisLt, revalued);
    EXPECT_DOUBLE_EQ(cover->primary.Rows()[0].InfluenceSum, Round(bookedBase - revalued, 2));
    CheckBoth(*cover);
    ASSERT_TRUE(cover->Save());

    const QVector<EntryView> entries = View(op);
    ASSERT_EQ(entries.size(), 3);
    const bool gain = revalued > bookedBase;
    EXPECT_EQ(entries[0].debit + " " + entries[0].credit, gain ? "2410 5803" : "6803 2410");
    EXPECT_DOUBLE_EQ(entries[0].sumA, std::abs(Round(revalued - bookedBase, 2)));
    for (int i = 1; i < entries.size(); ++i)
        EXPECT_EQ(entries[i].debit + " " + entries[i].credit, "4430 2410") << i;
    EXPECT_DOUBLE_EQ(entries[1].sumA, 300.00);
    EXPECT_DOUBLE_EQ(entries[2].sumA, 400.00);

    // Stored, the dollar debt is what is left at the cover's rate, in base and in dollars.
    const ResultRecord saved = op->Save();
    ASSERT_TRUE(saved.ok()) << saved.Text.toStdString();
    const RecordsetPtr left = Debts("2410", firm, 1);
    ASSERT_EQ(left->RecordCount(), 1);
    EXPECT_NEAR(NzDouble(left->Field("LikutisLt")), revalued - 700.00, 0.005);
    const double usedCurr =
        Round(300.00 / coverRate + BaseSumAddend, 2) + Round(400.00 / coverRate + BaseSumAddend, 2);
    EXPECT_NEAR(NzDouble(left->Field("LikutisCurr")), 1000.00 - usedCurr, 0.005);
}

TEST_P(DebtsCoverTest, CurrencyDebtCoveredWholeIsClosedInBaseAndInCurrency) {
    const QString firm = Firm(kRastai);
    DollarSaleAndPurchase(firm, 5000.00);
    const OrvoObjectUIOPtr op = NewOperation();
    auto cover = Cover(op, firm, kRastai);
    CheckBoth(*cover);
    ASSERT_TRUE(cover->Save());
    ASSERT_TRUE(op->Save().ok());
    EXPECT_EQ(Debts("2410", firm, 1)->RecordCount(), 0);
    const RecordsetPtr left = Debts("4430", firm, -1);
    ASSERT_EQ(left->RecordCount(), 1);
    EXPECT_NEAR(std::abs(NzDouble(left->Field("LikutisLt"))),
                5000.00 - RoundBaseSum(1000.00 * RateOn(Today(), "USD")), 0.005);
}

TEST_P(DebtsCoverTest, SecondCoverAppendsToCommentAndTooLongCommentIsLeftButEntriesAreMade) {
    const QString rastai = Firm(kRastai);
    const QString centras = Firm(kCentras);
    const QString spaustuve = Firm(kSpaustuve);
    for (const QString& firm : {rastai, centras, spaustuve}) {
        Book(QDate(2024, 2, 1), "S" + firm, "2410", "5000", 20.00, firm, 1);
        Book(QDate(2024, 2, 2), "P" + firm, "2040", "4430", 20.00, firm, -1);
    }
    const OrvoObjectUIOPtr op = NewOperation();
    auto cover = Cover(op, rastai, kRastai);
    CheckBoth(*cover);
    ASSERT_TRUE(cover->Save());
    EXPECT_EQ(NzString(op->Field("Comment")), "Skolų dengimas - " + kRastai);

    cover->SetAddressee(true, centras, kCentras);
    cover->SetAddressee(false, centras, kCentras);
    ASSERT_TRUE(cover->Fill());
    CheckBoth(*cover);
    ASSERT_TRUE(cover->Save());
    EXPECT_EQ(NzString(op->Field("Comment")), "Skolų dengimas - " + kRastai + ", " + kCentras);
    EXPECT_EQ(View(op).size(), 2);

    const QString longComment = QString(990, QLatin1Char('k'));
    op->SetField("Comment", Value(longComment));
    cover->SetAddressee(true, spaustuve, kSpaustuve);
    cover->SetAddressee(false, spaustuve, kSpaustuve);
    ASSERT_TRUE(cover->Fill());
    ASSERT_GT(cover->primary.Count(), 0);
    CheckBoth(*cover);
    ASSERT_TRUE(cover->Save());
    EXPECT_EQ(NzString(op->Field("Comment")), longComment);
    EXPECT_EQ(View(op).size(), 3);
}

TEST_P(DebtsCoverTest, DateByCoveredOperationsWithNonZeroInfluenceCannotBeSaved) {
    const QString firm = Firm(kRastai);
    DollarSaleAndPurchase(firm, 5000.00);
    const OrvoObjectUIOPtr op = NewOperation();
    auto cover = Cover(op, firm, kRastai);
    CheckBoth(*cover);
    ASSERT_NE(cover->primary.Rows()[0].InfluenceSum, 0);
    Boxes();
    cover->dateByCovered = true;
    EXPECT_FALSE(cover->Save());
    const auto boxes = Boxes();
    ASSERT_EQ(boxes.size(), 1);
    EXPECT_EQ(boxes[0].Kind, MessageKind::Error);
    EXPECT_EQ(boxes[0].Text, "Valiutos kurso keitimo įtaka nustatoma operacijos datai!\n"
                             "Parinkite dengimo datos nustatymą pagal operacijos datą.");
    EXPECT_TRUE(View(op).isEmpty());
    EXPECT_TRUE(cover->coveredKeys.isEmpty());

    // With the operation's date it goes.
    cover->dateByCovered = false;
    EXPECT_TRUE(cover->Save());
}

TEST_P(DebtsCoverTest, DateByCoveredOperationsTakesTheLaterDateOfEachPair) {
    const QString firm = Firm(kRastai);
    Book(QDate(2024, 2, 1), "T-1", "2410", "5000", 30.00, firm, 1);
    Book(QDate(2024, 2, 9), "T-2", "2040", "4430", 30.00, firm, -1);
    const OrvoObjectUIOPtr op = NewOperation();
    auto cover = Cover(op, firm, kRastai);
    CheckBoth(*cover);
    cover->dateByCovered = true;
    ASSERT_TRUE(cover->Save());
    const QVector<EntryView> entries = View(op);
    ASSERT_EQ(entries.size(), 1);
    EXPECT_EQ(entries[0].date, QDate(2024, 2, 9));
}

TEST_P(DebtsCoverTest, SideCoveredTwiceIsRefused) {
    const QString firm = Firm(kRastai);
    Book(QDate(2024, 2, 1), "T-1", "2410", "5000", 30.00, firm, 1);
    Book(QDate(2024, 2, 9), "T-2", "2040", "4430", 50.00, firm, -1);
    const OrvoObjectUIOPtr op = NewOperation();
    auto cover = Cover(op, firm, kRastai);
    CheckBoth(*cover);
    ASSERT_TRUE(cover->Save());
    ASSERT_TRUE(cover->Fill());
    CheckBoth(*cover);
    Boxes();
    EXPECT_FALSE(cover->Save());
    const auto boxes = Boxes();
    ASSERT_EQ(boxes.size(), 1);
    EXPECT_EQ(boxes[0].Text, "Toks variantas jau išsaugotas !");
    EXPECT_EQ(View(op).size(), 1);
}

TEST_P(DebtsCoverTest, AddresseesWithDebtsOnBothAccountsAreListedMarkedAndAdvancedThrough) {
    const QString rastai = Firm(kRastai);
    const QString centras = Firm(kCentras);
    for (const QString& firm : {rastai, centras}) {
        Book(QDate(2024, 2, 1), "S" + firm, "2410", "5000", 20.00, firm, 1);
        Book(QDate(2024, 2, 2), "P" + firm, "2040", "4430", 20.00, firm, -1);
    }
    const OrvoObjectUIOPtr op = NewOperation();
    DebtsCover cover(op);
    cover.Open();
    cover.SetAccounts("2410", "4430");
    ASSERT_TRUE(cover.ListAddressees("O0000100"));
    EXPECT_EQ(cover.firmsLabel, "Įmonės");
    // The two firms of the test and the demo firm that buys and sells.
    ASSERT_EQ(cover.addressees.size(), 3);
    EXPECT_TRUE(cover.addressees.contains(rastai));
    EXPECT_TRUE(cover.addressees.contains(centras));
    const int first = cover.addressees.indexOf(rastai);
    ASSERT_TRUE(cover.ChooseAddressee(first));
    EXPECT_EQ(cover.addrPrimary, rastai);
    EXPECT_EQ(cover.addrSecondary, rastai);
    CheckBoth(cover);
    ASSERT_TRUE(cover.Save());

    EXPECT_TRUE(cover.addresseeTexts[first].startsWith("*** "));
    const int next = (first + 1) % 3;
    EXPECT_EQ(cover.addressees[next], cover.addrPrimary);
    EXPECT_GT(cover.primary.Count(), 0);

    Boxes();
    EXPECT_FALSE(cover.ChooseAddressee(first));
    const auto boxes = Boxes();
    ASSERT_EQ(boxes.size(), 1);
    EXPECT_EQ(boxes[0].Text, "Toks variantas jau išsaugotas !");

    // Listed again, the covered firm keeps its mark.
    cover.ClearAddressee(true);
    cover.ClearAddressee(false);
    ASSERT_TRUE(cover.ListAddressees("O0000100"));
    EXPECT_TRUE(cover.addresseeTexts[cover.addressees.indexOf(rastai)].startsWith("*** "));
    EXPECT_FALSE(cover.addresseeTexts[cover.addressees.indexOf(centras)].startsWith("*** "));
    EXPECT_EQ(DebtsCover::KindLabel("O0001402"), "Fiziniai asmenys");
    EXPECT_EQ(DebtsCover::KindLabel("O0001401"), "Darbuotojai");
}

TEST_P(DebtsCoverTest, VariantsAreSavedOnceChosenAndDeleted) {
    const OrvoObjectUIOPtr op = NewOperation();
    DebtsCover cover(op);
    cover.Open();
    Boxes();
    cover.SetAccounts("2410", "9999");
    EXPECT_FALSE(cover.SaveVariant());
    EXPECT_EQ(Boxes().value(0).Text, "Neužduota sąskaita !");

    cover.SetAccounts("2410", "4430");
    cover.SetPrimaryDebit(true);
    EXPECT_EQ(cover.VariantText(), "2410 D - 4430 K");
    ASSERT_TRUE(cover.SaveVariant());
    EXPECT_FALSE(cover.SaveVariant());
    EXPECT_EQ(Boxes().value(0).Text, "Toks variantas jau išsaugotas !");
    cover.SetAccounts("2420", "4480");
    cover.SetPrimaryDebit(false);
    EXPECT_EQ(cover.VariantText(), "4480 D - 2420 K");
    ASSERT_TRUE(cover.SaveVariant());
    EXPECT_EQ(
        session_->Services()->SettingsService()->GetSetting("O0201500", "DebtsCoverParameters"),
        "2410 D - 4430 K#4480 D - 2420 K");

    DebtsCover again(op);
    again.Open();
    EXPECT_EQ(again.variants, QStringList({"2410 D - 4430 K", "4480 D - 2420 K"}));
    again.addrPrimary = again.addrSecondary = "O00001001";
    again.ChooseVariant("2410 D - 4430 K");
    EXPECT_EQ(again.accountPrimary, "4430");
    EXPECT_EQ(again.accountSecondary, "2410");
    EXPECT_FALSE(again.primaryDebit);
    EXPECT_TRUE(again.addrPrimary.isEmpty());
    EXPECT_TRUE(again.addrSecondary.isEmpty());
    EXPECT_EQ(again.VariantText(), "2410 D - 4430 K");
    again.DeleteVariant(0);
    EXPECT_EQ(
        session_->Services()->SettingsService()->GetSetting("O0201500", "DebtsCoverParameters"),
        "4480 D - 2420 K");
}

TEST_P(DebtsCoverTest, CheckingAndUncheckingARowMovesItsPaymentAndBack) {
    const QString firm = Firm(kRastai);
    Book(QDate(2024, 2, 1), "T-1", "2410", "5000", 75.50, firm, 1);
    Book(QDate(2024, 2, 2), "T-2", "2040", "4430", 20.00, firm, -1);
    const OrvoObjectUIOPtr op = NewOperation();
    auto cover = Cover(op, firm, kRastai);
    ASSERT_EQ(cover->primary.Count(), 1);
    const QStringList before = DebtsCoverList::Cells(cover->primary.Rows()[0]);
    EXPECT_EQ(before[1], "75,50");
    EXPECT_EQ(before[4], " ");
    ASSERT_TRUE(cover->primary.Check(0));
    const QStringList checked = DebtsCoverList::Cells(cover->primary.Rows()[0]);
    EXPECT_EQ(checked[1], " ");
    EXPECT_EQ(checked[4], "75,50");
    EXPECT_FALSE(cover->CanSave());
    cover->primary.Uncheck(0);
    EXPECT_EQ(DebtsCoverList::Cells(cover->primary.Rows()[0]), before);
    cover->primary.EnterSum(0, 30.00, 0);
    EXPECT_TRUE(cover->primary.Rows()[0].Checked);
    EXPECT_EQ(DebtsCoverList::Cells(cover->primary.Rows()[0])[1], "45,50");
    EXPECT_EQ(DebtsCover::SumText(cover->primary.PaymentSum()), "30,00");
}

TEST_P(DebtsCoverTest, ChangeOfAccountSideDateOrAddresseeEmptiesTheLists) {
    const QString firm = Firm(kRastai);
    Book(QDate(2024, 2, 1), "T-1", "2410", "5000", 75.50, firm, 1);
    Book(QDate(2024, 2, 2), "T-2", "2040", "4430", 20.00, firm, -1);
    const OrvoObjectUIOPtr op = NewOperation();
    auto cover = Cover(op, firm, kRastai);
    ASSERT_GT(cover->primary.Count(), 0);
    cover->SetDate(QDate(2024, 3, 1));
    EXPECT_EQ(cover->primary.Count(), 0);
    ASSERT_TRUE(cover->Fill());
    cover->SetPrimaryDebit(false);
    EXPECT_EQ(cover->primary.Count(), 0);
    // Credit debts on 2410 and debit debts on 4430: none.
    ASSERT_TRUE(cover->Fill());
    EXPECT_EQ(cover->primary.Count(), 0);
    EXPECT_EQ(cover->secondary.Count(), 0);
}

TEST_P(DebtsCoverTest, RateEnteredForARowsCurrencyRevaluesBothLists) {
    const QString firm = Firm(kRastai);
    DollarSaleAndPurchase(firm, 100.00);
    const OrvoObjectUIOPtr op = NewOperation();
    auto cover = Cover(op, firm, kRastai);
    ASSERT_EQ(cover->primary.Count(), 1);
    // A base row has no rate to enter.
    EXPECT_FALSE(cover->InputRate(false, 0));
    // The rate as it stands: nothing to recalculate.
    EXPECT_FALSE(cover->InputRate(true, 0));

    // The host's rate dialog stores a new rate of the day.
    const host::ExecResult changed = session_->Db().Execute(
        "UPDATE CurrencyRates SET Rate = ?, CurrencyRate = ? WHERE DateD = ? AND CurrencyID = "
        "(SELECT ID FROM Currencies WHERE Code = 'USD')",
        {Value(0.8), Value(1.25), Value(Today())});
    ASSERT_TRUE(changed.ok()) << changed.Text.toStdString();
    ASSERT_TRUE(cover->InputRate(true, 0));
    EXPECT_DOUBLE_EQ(NzDouble(cover->currencyRates->Item("USD")), 0.8);
    EXPECT_DOUBLE_EQ(cover->primary.Rows()[0].Rate, 0.8);
    EXPECT_DOUBLE_EQ(cover->primary.Rows()[0].LikutisLt, 800.00);
    EXPECT_DOUBLE_EQ(cover->primary.Rows()[0].InfluenceSum,
                     Round(RoundBaseSum(1000.00 * RateOn(DollarDay(), "USD")) - 800.00, 2));
    EXPECT_EQ(cover->secondary.Count(), 1);
}

ORVO_STORAGE_BACKENDS(DebtsCoverTest);

class DebtsCoverWithoutChartTest : public DebtsCoverBook {
protected:
    bool WithDemo() const override { return false; }
};

TEST_P(DebtsCoverWithoutChartTest, MissingRateChangeAccountsWarnAtOpeningAndRefuseFilling) {
    const OrvoObjectUIOPtr op = NewOperation();
    DebtsCover cover(op);
    cover.Open();
    // A book without currencies has the host say so too; the cover warns once.
    int warned = 0;
    for (const auto& box : Boxes())
        if (box.Text == "Sąskaitų žinyne nepažymėta valiutos kursų pasikeitimo įtakos sąskaita!") {
            EXPECT_EQ(box.Kind, MessageKind::Warning);
            ++warned;
        }
    EXPECT_EQ(warned, 1);
    EXPECT_TRUE(cover.fillRefused);
    cover.accountPrimary = "2410";
    cover.accountSecondary = "4430";
    cover.addrPrimary = cover.addrSecondary = "O00001001";
    EXPECT_FALSE(cover.Fill());
    EXPECT_TRUE(Boxes().isEmpty());
}

ORVO_STORAGE_BACKENDS(DebtsCoverWithoutChartTest);

} // namespace
} // namespace orvo::test
