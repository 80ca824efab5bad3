// The editor of bank accounts on both backends: the owner is a picked firm, person or
// employee; the number is kept without blanks and an IBAN with wrong check digits is
// refused; a number may belong to one account only; the bank and the currency are
// chosen from the book's lists with the base currency first; an owner has one main
// account; and an owner of accounts cannot be deleted while it has them.
#include "catalogue_editor_fixture.h"

namespace orvo::host::testing {
namespace {

using BankAccountEditorTest = CatalogueEditorTest;

const QString kIban = QStringLiteral("LT12 1000 0111 0100 1000");
const QString kStoredIban = QStringLiteral("LT121000011101001000");

QStringList texts(const QVector<CatalogueChoice>& choices) {
    QStringList out;
    for (const CatalogueChoice& c : choices)
        out << QLatin1Char('[') + c.Value + QStringLiteral("] ") + c.Text;
    return out;
}

TEST_P(BankAccountEditorTest, AccountOfAPickedFirmIsStoredWithoutBlanks) {
    const QString firm = AddFirm(QStringLiteral("UAB Sąskaitininkas"));
    auto editor = EditorOf(kinds::BankAccount);
    ASSERT_TRUE(editor);
    ASSERT_TRUE(editor->TakeReference(QStringLiteral("OwnerOIDR"),
                                      firm + QStringLiteral("_UAB Sąskaitininkas")));
    EXPECT_EQ(editor->ReferenceText(QStringLiteral("OwnerOIDR")),
              QStringLiteral("UAB Sąskaitininkas"));
    editor->SetText(QStringLiteral("AccountNumber"), QStringLiteral(" lt12 1000 0111 0100 1000"));
    editor->SetFlag(QStringLiteral("MainAccountFlag"), true);
    const ResultRecord r = editor->Save();
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    EXPECT_EQ(editor->Text(QStringLiteral("AccountNumber")), kStoredIban);
    EXPECT_EQ(editor->WindowTitle(), QStringLiteral("Banko sąskaita: ") + kStoredIban);

    auto again = EditorOf(editor->Object()->OIDR());
    ASSERT_TRUE(again);
    EXPECT_EQ(again->Text(QStringLiteral("OwnerOIDR")), firm);
    // Read again, the owner shows its name.
    EXPECT_EQ(again->ReferenceText(QStringLiteral("OwnerOIDR")),
              QStringLiteral("UAB Sąskaitininkas"));
    EXPECT_EQ(again->Text(QStringLiteral("AccountNumber")), kStoredIban);
    EXPECT_EQ(again->Text(QStringLiteral("CurrencyCode")), QStringLiteral("   "));
    EXPECT_TRUE(again->Flag(QStringLiteral("MainAccountFlag")));
}

TEST_P(BankAccountEditorTest, IbanWithBadCheckDigitsIsRefusedWithAWarning) {
    const QString firm = AddFirm(QStringLiteral("UAB Klaida"));
    auto editor = EditorOf(kinds::BankAccount);
    ASSERT_TRUE(editor->TakeReference(QStringLiteral("OwnerOIDR"), firm));
    editor->SetText(QStringLiteral("AccountNumber"), QStringLiteral("LT13 1000 0111 0100 1000"));
    EXPECT_EQ(editor->Save().Code, 777);
    EXPECT_EQ(BoxTexts(),
              QStringList{QStringLiteral(
                  "warning: Sąskaitos numerio LT131000011101001000 kontroliniai skaitmenys "
                  "neteisingi: patikrinkite, ar numeris įvestas be klaidų.")});
    EXPECT_TRUE(editor->IsNew());
    EXPECT_EQ(Count(QStringLiteral("SELECT COUNT(*) FROM BankAccounts")), 0);
}

TEST_P(BankAccountEditorTest, AccountWithoutOwnerIsRefused) {
    auto editor = EditorOf(kinds::BankAccount);
    editor->SetText(QStringLiteral("AccountNumber"), kIban);
    EXPECT_EQ(editor->Save().Code, 777);
    EXPECT_EQ(BoxTexts(),
              QStringList{QStringLiteral("warning: Nurodykite, kam priklauso banko sąskaita.")});
}

TEST_P(BankAccountEditorTest, OwnerOfAKindThatHasNoAccountsIsNotTaken) {
    auto editor = EditorOf(kinds::BankAccount);
    EXPECT_FALSE(
        editor->TakeReference(QStringLiteral("OwnerOIDR"), QStringLiteral("O00003001_Bankas")));
    EXPECT_FALSE(editor->TakeReference(QStringLiteral("OwnerOIDR"), QString()));
    EXPECT_FALSE(
        editor->TakeReference(QStringLiteral("AccountNumber"), QStringLiteral("O00001001_X")));
    EXPECT_TRUE(editor->Text(QStringLiteral("OwnerOIDR")).isEmpty());
    EXPECT_TRUE(
        editor->TakeReference(QStringLiteral("OwnerOIDR"), QStringLiteral("O00014027_Ona")));
    EXPECT_EQ(editor->Text(QStringLiteral("OwnerOIDR")), QStringLiteral("O00014027"));
}

TEST_P(BankAccountEditorTest, SameNumberTwiceIsRefusedAsARepeatedCode) {
    const QString firm = AddFirm(QStringLiteral("UAB Dvynys"));
    for (int i = 0; i < 2; ++i) {
        auto editor = EditorOf(kinds::BankAccount);
        ASSERT_TRUE(editor->TakeReference(QStringLiteral("OwnerOIDR"), firm));
        editor->SetText(QStringLiteral("AccountNumber"), kIban);
        const ResultRecord r = editor->Save();
        EXPECT_EQ(r.ok(), i == 0) << r.Text.toStdString();
    }
    EXPECT_EQ(BoxTexts(), QStringList{QStringLiteral("error: Banko sąskaita LT121000011101001000 "
                                                     "jau yra: ") +
                                      firm + QStringLiteral(".\nĮrašymas neatliktas !")});
}

TEST_P(BankAccountEditorTest, ChoicesOfferTheBooksBanksAndTheBaseCurrencyFirst) {
    auto bank = EditorOf(kinds::Bank);
    bank->SetText(QStringLiteral("Name"), QStringLiteral("AB „Pinigėlis“"));
    bank->SetText(QStringLiteral("Code"), QStringLiteral("70440"));
    ASSERT_TRUE(bank->Save().ok());
    auto usd = EditorOf(kinds::Currency);
    usd->SetText(QStringLiteral("Code"), QStringLiteral("USD"));
    usd->SetText(QStringLiteral("Name"), QStringLiteral("JAV doleris"));
    ASSERT_TRUE(usd->Save().ok());
    auto eur = EditorOf(kinds::Currency);
    eur->SetText(QStringLiteral("Code"), QStringLiteral("EUR"));
    eur->SetText(QStringLiteral("Name"), QStringLiteral("Euras"));
    eur->Object()->SetField(QStringLiteral("BaseCurrency"), Value(true));
    ASSERT_TRUE(eur->Save().ok());

    auto editor = EditorOf(kinds::BankAccount);
    const QString bankId = bank->Object()->OIDR().mid(8);
    EXPECT_EQ(texts(editor->Choices(QStringLiteral("BankID"))),
              (QStringList{QStringLiteral("[] (nenurodytas)"),
                           QLatin1Char('[') + bankId + QStringLiteral("] AB „Pinigėlis“")}));
    EXPECT_EQ(texts(editor->Choices(QStringLiteral("CurrencyCode"))),
              (QStringList{QStringLiteral("[   ] Bazinė valiuta (EUR)"),
                           QStringLiteral("[USD] USD JAV doleris")}));

    const QString firm = AddFirm(QStringLiteral("UAB Valiutininkas"));
    ASSERT_TRUE(editor->TakeReference(QStringLiteral("OwnerOIDR"), firm));
    editor->SetText(QStringLiteral("AccountNumber"), kIban);
    editor->SetText(QStringLiteral("BankID"), bankId);
    editor->SetText(QStringLiteral("CurrencyCode"), QStringLiteral("USD"));
    ASSERT_TRUE(editor->Save().ok());
    auto again = EditorOf(editor->Object()->OIDR());
    EXPECT_EQ(again->Text(QStringLiteral("BankID")), bankId);
    EXPECT_EQ(again->Text(QStringLiteral("CurrencyCode")), QStringLiteral("USD"));
}

TEST_P(BankAccountEditorTest, SecondMainAccountOfAnOwnerTakesTheMark) {
    const QString firm = AddFirm(QStringLiteral("UAB Dvi sąskaitos"));
    QStringList accounts;
    for (const QString& number :
         {QStringLiteral("LT121000011101001000"), QStringLiteral("LT601010012345678901")}) {
        auto editor = EditorOf(kinds::BankAccount);
        ASSERT_TRUE(editor->TakeReference(QStringLiteral("OwnerOIDR"), firm));
        editor->SetText(QStringLiteral("AccountNumber"), number);
        editor->SetFlag(QStringLiteral("MainAccountFlag"), true);
        const ResultRecord r = editor->Save();
        ASSERT_TRUE(r.ok()) << r.Text.toStdString();
        accounts << editor->Object()->OIDR();
    }
    EXPECT_FALSE(EditorOf(accounts.at(0))->Flag(QStringLiteral("MainAccountFlag")));
    EXPECT_TRUE(EditorOf(accounts.at(1))->Flag(QStringLiteral("MainAccountFlag")));
}

TEST_P(BankAccountEditorTest, OwnerOfBankAccountsCannotBeDeletedWhileItHasThem) {
    const QString firm = AddFirm(QStringLiteral("UAB Savininkas"));
    auto account = EditorOf(kinds::BankAccount);
    ASSERT_TRUE(account->TakeReference(QStringLiteral("OwnerOIDR"), firm));
    account->SetText(QStringLiteral("AccountNumber"), kIban);
    ASSERT_TRUE(account->Save().ok());
    EXPECT_EQ(EditorOf(firm)->Delete().Code, 777);
    EXPECT_EQ(BoxTexts(), QStringList{QStringLiteral(
                              "error: Įmonės panaikinti negalima: jai priklauso banko sąskaitos "
                              "(1). Pirma panaikinkite jas.")});
    ASSERT_TRUE(account->Delete().ok());
    EXPECT_TRUE(EditorOf(firm)->Delete().ok());
}

TEST_P(BankAccountEditorTest, AccountThatEntriesNameCannotBeDeleted) {
    const QString firm = AddFirm(QStringLiteral("UAB Mokėtojas"));
    auto account = EditorOf(kinds::BankAccount);
    ASSERT_TRUE(account->TakeReference(QStringLiteral("OwnerOIDR"), firm));
    account->SetText(QStringLiteral("AccountNumber"), kIban);
    ASSERT_TRUE(account->Save().ok());
    Book(QDate(2024, 4, 2), QStringLiteral("MP-1"),
         {{QStringLiteral("2710"),
           QStringLiteral("2410"),
           50.0,
           {{1, account->Object()->OIDR(), kStoredIban}},
           {},
           {},
           QString()}});
    EXPECT_EQ(account->Delete().Code, 777);
    EXPECT_EQ(BoxTexts(), QStringList{QStringLiteral("error: Banko sąskaitos panaikinti negalima: "
                                                     "ji nurodyta finansinių operacijų įrašuose "
                                                     "(1).")});
}

ORVO_STORAGE_BACKENDS(BankAccountEditorTest);

} // namespace
} // namespace orvo::host::testing
