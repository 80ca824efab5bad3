// What an entry's card asks of the book while it is shown and checked: the kinds of
// addressee, the VAT rates, and whether a referenced debt belongs to the entry's client.
#include "debts_fixture.h"

using namespace orvo;
using namespace orvo::host;
using namespace orvo::host::testing;

namespace {

class AddresseeMethodsTest : public DebtsTest {
protected:
    int PointerRows(const QString& reference, const QString& account, const QString& client) {
        const BOResult r = Call(QStringLiteral("DO0201500_CheckBRPointerClient"),
                                QStringLiteral("'%1','%2','%3'").arg(reference, account, client));
        EXPECT_TRUE(r.ok()) << r.Text.toStdString();
        const RecordsetPtr rs = r.Data.toRecordset();
        return rs ? rs->RecordCount() : -1;
    }
};

} // namespace

TEST_P(AddresseeMethodsTest, AddresseeListOffersFirmsFirstAndEntryReferencesLast) {
    const BOResult r = Call(QStringLiteral("GetAddresseeList"), QStringLiteral("None"));
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    const QStringList rows = Rows(r.Data.toRecordset(), {"FOID", "Name"});
    ASSERT_GE(rows.size(), 5);
    EXPECT_EQ(rows.first(), QStringLiteral("O0000100|Įmonė"));
    EXPECT_TRUE(rows.contains(QStringLiteral("O0001402|Fizinis asmuo")));
    EXPECT_TRUE(rows.contains(QStringLiteral("O0001401|Darbuotojas")));
    EXPECT_EQ(rows.last(), QStringLiteral("O0201500|Finansinės operacijos įrašas"));
}

TEST_P(AddresseeMethodsTest, VatTariffsStartWithTheStandardRateAndEndWithZero) {
    const BOResult r = Call(QStringLiteral("DO0001629_GetVATtariffs"), QStringLiteral("None"));
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    EXPECT_EQ(Rows(r.Data.toRecordset(), {"Value"}), QStringList({"21", "9", "5", "0"}));
}

TEST_P(AddresseeMethodsTest, ReferencedDebtMatchesOnlyItsOwnClientOnTheSideOfItsAccount) {
    const qint64 sale = Invoice(kCustomer, 100.00, QDate(2024, 1, 15), QStringLiteral("1"));
    EXPECT_EQ(PointerRows(Ref(sale), QStringLiteral("2410"), kCustomer), 1);
    EXPECT_EQ(PointerRows(Ref(sale), QStringLiteral("2410"), kOtherCustomer), 0);
    // The client stands on the debit side of 2410; the credited 5000 names nobody.
    EXPECT_EQ(PointerRows(Ref(sale), QStringLiteral("5000"), kCustomer), 0);
    EXPECT_EQ(PointerRows(QStringLiteral("O0000100123"), QStringLiteral("2410"), kCustomer), 0);
    EXPECT_EQ(PointerRows(QStringLiteral("O0201500x"), QStringLiteral("2410"), kCustomer), 0);
}

ORVO_STORAGE_BACKENDS(AddresseeMethodsTest);
