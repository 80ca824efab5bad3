// The demo book's open debts as the business object reports them through GetDebts1:
// customers and suppliers in euros and in foreign currency, the rests of the debts paid
// in part, and the firm that both buys and sells offered for a cover.
#include "debts_cover_fixture.h"

#include "settlement/debts_cover.h"

namespace orvo::test {
namespace {

class DemoDebtsTest : public DebtsCoverBook {
protected:
    // Number to "LikutisLt LikutisCurr FCurrencyCode" of the firm's debts on the account.
    QMap<QString, QString> Debts1(const QString& account, const QString& firmName) {
        const ValueResult r = NewOperation()->Properties(
            QStringLiteral("Debts1"), QStringLiteral("'0','%1','%2','%3',0")
                                          .arg(account, DateParam(Today()), Firm(firmName)));
        EXPECT_TRUE(r.ok()) << r.Text.toStdString();
        QMap<QString, QString> out;
        const RecordsetPtr rs = r.Value.toRecordset();
        for (rs->MoveFirst(); rs && !rs->Eof(); rs->MoveNext())
            out.insert(NzString(rs->Field("Number")),
                       QString::number(NzDouble(rs->Field("LikutisLt")), 'f', 2) + " " +
                           QString::number(NzDouble(rs->Field("LikutisCurr")), 'f', 2) + " " +
                           NzString(rs->Field("FCurrencyCode")));
        return out;
    }
    static double Base(const QString& cell) { return cell.section(' ', 0, 0).toDouble(); }
};

TEST_P(DemoDebtsTest, CustomersOweInEurosAndDollarsWithPartPaymentsTakenOff) {
    const QMap<QString, QString> zalgiris = Debts1("2410", "UAB Žalgirio prekyba");
    ASSERT_EQ(zalgiris.keys(), QStringList({"SF-1041", "SF-1052"}));
    EXPECT_EQ(zalgiris["SF-1041"], "710.00 0.00    ");
    EXPECT_TRUE(zalgiris["SF-1052"].endsWith(" 1500.00 USD")) << zalgiris["SF-1052"].toStdString();
    EXPECT_GT(Base(zalgiris["SF-1052"]), 1000.00);
    EXPECT_EQ(Debts1("2410", "MB Kęstučio kepykla").value("SF-1063"), "350.90 0.00    ");
}

TEST_P(DemoDebtsTest, SuppliersAreOwedInEurosPoundsAndZlotys) {
    EXPECT_EQ(Debts1("4430", "UAB Šiaurės vėjas").value("ŠV-2207"), "1000.00 0.00    ");
    EXPECT_TRUE(Debts1("4430", "AB Ąžuolų baldai").value("AB-5512").endsWith(" 3000.00 GBP"));
    const QString logistics = Debts1("4430", "UAB Pajūrio logistika").value("PL-774");
    EXPECT_TRUE(logistics.endsWith(" 2200.00 PLN")) << logistics.toStdString();
    EXPECT_GT(Base(logistics), 400.00);
}

TEST_P(DemoDebtsTest, FirmThatBuysAndSellsHasDebtsOnBothSidesToCover) {
    EXPECT_EQ(Debts1("2410", "UAB Įrankių centras").keys(), QStringList({"SF-1048", "SF-1049"}));
    EXPECT_EQ(Debts1("4430", "UAB Įrankių centras").keys(), QStringList({"ĮC-118", "ĮC-121"}));
    DebtsCover cover(NewOperation());
    cover.Open();
    cover.SetAccounts("2410", "4430");
    ASSERT_TRUE(cover.ListAddressees("O0000100"));
    EXPECT_EQ(cover.addressees, QStringList({Firm("UAB Įrankių centras")}));
    // Lists filled at today's rates: the dollar debts show the rate's influence.
    ASSERT_TRUE(cover.ChooseAddressee(0));
    ASSERT_EQ(cover.primary.Count(), 2);
    ASSERT_EQ(cover.secondary.Count(), 2);
    int withInfluence = 0;
    for (const DebtsCoverList* list : {&cover.primary, &cover.secondary})
        for (const DebtsCoverRow& row : list->Rows())
            withInfluence += row.HasCurrency() && row.InfluenceSum != 0 ? 1 : 0;
    EXPECT_EQ(withInfluence, 2);
}

ORVO_STORAGE_BACKENDS(DemoDebtsTest);

} // namespace
} // namespace orvo::test
