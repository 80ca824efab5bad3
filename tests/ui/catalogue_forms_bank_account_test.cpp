// The window of bank accounts, offscreen on a stored book of each backend: the owner is
// picked through the host's picker and shown by name; an IBAN with wrong check digits
// is refused with a warning and nothing is stored; the bank and the currency are chosen
// in their combo boxes, the base currency first.
#include "catalogue_forms_fixture.h"

namespace orvo::ui::testing {
namespace {

using BankAccountFormsTest = CatalogueFormsTest;

TEST_P(BankAccountFormsTest, OwnerIsPickedAndABadIbanIsRefusedUntilItIsRight) {
    const QString firm = AddFirm(QStringLiteral("UAB Sąskaitų turėtoja"));
    ASSERT_TRUE(Open(host::kinds::BankAccount, host::kinds::BankAccount,
                     QStringLiteral("Nauja banko sąskaita")));
    session_->Choices()->QueuePick(firm + QStringLiteral("_UAB Sąskaitų turėtoja"));
    Click(QStringLiteral("cmdOwnerOIDR"));
    EXPECT_EQ(Read(QStringLiteral("txtOwnerOIDR")).Text, QStringLiteral("UAB Sąskaitų turėtoja"));
    EXPECT_EQ(session_->Choices()->TakeAsked(),
              QStringList{QStringLiteral("pick O0000100;O0001402;O0001401: Pasirinkite: "
                                         "savininkas")});

    Type({{QStringLiteral("txtAccountNumber"), QStringLiteral("LT13 1000 0111 0100 1000")}});
    Click(QStringLiteral("cmdWrite"));
    EXPECT_EQ(BoxTexts(),
              QStringList{QStringLiteral(
                  "warning: Sąskaitos numerio LT131000011101001000 kontroliniai skaitmenys "
                  "neteisingi: patikrinkite, ar numeris įvestas be klaidų.")});
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM BankAccounts")), 0);

    Type({{QStringLiteral("txtAccountNumber"), QStringLiteral("LT12 1000 0111 0100 1000")}});
    Click(QStringLiteral("cmdWrite"));
    EXPECT_TRUE(BoxTexts().isEmpty());
    EXPECT_EQ(Read(QStringLiteral("txtAccountNumber")).Text,
              QStringLiteral("LT121000011101001000"));
    EXPECT_EQ(Title(), QStringLiteral("Banko sąskaita: LT121000011101001000"));
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM BankAccounts WHERE OwnerOIDR = ?"),
                    {Value(firm)}),
              1);
}

TEST_P(BankAccountFormsTest, BankAndCurrencyAreChosenInTheirLists) {
    auto bank = EditorOf(host::kinds::Bank);
    bank->SetText(QStringLiteral("Name"), QStringLiteral("AB Luminor"));
    ASSERT_TRUE(bank->Save().ok());
    auto usd = EditorOf(host::kinds::Currency);
    usd->SetText(QStringLiteral("Code"), QStringLiteral("USD"));
    usd->SetText(QStringLiteral("Name"), QStringLiteral("JAV doleris"));
    ASSERT_TRUE(usd->Save().ok());
    const QString firm = AddFirm(QStringLiteral("UAB Doleriai"));

    ASSERT_TRUE(Open(host::kinds::BankAccount, host::kinds::BankAccount,
                     QStringLiteral("Nauja banko sąskaita")));
    const ControlState currencies = Read(QStringLiteral("cmbCurrencyCode"));
    EXPECT_EQ(currencies.Items,
              (QStringList{QStringLiteral("Bazinė valiuta"), QStringLiteral("USD JAV doleris")}));
    EXPECT_EQ(currencies.Index, 0);
    session_->Choices()->QueuePick(firm);
    Click(QStringLiteral("cmdOwnerOIDR"));
    Type({{QStringLiteral("txtAccountNumber"), QStringLiteral("LT601010012345678901")}});
    ASSERT_TRUE(
        Driver().ChooseItem(QStringLiteral("cmbBankID"), QStringLiteral("AB Luminor")).ok());
    ASSERT_TRUE(
        Driver()
            .ChooseItem(QStringLiteral("cmbCurrencyCode"), QStringLiteral("USD JAV doleris"))
            .ok());
    Click(QStringLiteral("cmdWrite"));
    EXPECT_TRUE(BoxTexts().isEmpty());
    const QueryResult q =
        session_->Db().Query(QStringLiteral("SELECT BankID, CurrencyCode FROM BankAccounts"));
    ASSERT_EQ(q.RowCount(), 1);
    EXPECT_EQ(static_cast<qint64>(q.At(0, 0).toDouble()),
              bank->Object()->OIDR().mid(8).toLongLong());
    EXPECT_EQ(q.At(0, 1).toString(), QStringLiteral("USD"));
}

ORVO_STORAGE_BACKENDS(BankAccountFormsTest);

} // namespace
} // namespace orvo::ui::testing
