// Storing accounts of the chart: the numbering rule, the required fields, and the result
// numbers 1, 32, 547 and 3604, on both backends.
#include "accounts_fixture.h"

namespace orvo::host {
namespace {

using testing::AccountsTest;

class AccountsSaveTest : public AccountsTest {};

TEST_P(AccountsSaveTest, ClassIsAGroupRowWhosePathCodeBeginsWithItself) {
    const qint64 cls = Add(0, QStringLiteral("2"), QStringLiteral("Trumpalaikis turtas"));
    const RecordsetPtr rs = Read(cls);
    ASSERT_TRUE(rs);
    EXPECT_TRUE(rs->Field(QStringLiteral("ParentID")).isNull());
    EXPECT_NE(rs->Field(QStringLiteral("GroupFlag")).toInt32(), 0);
    EXPECT_EQ(rs->Field(QStringLiteral("OwnCode")).toString(), QStringLiteral("%1*").arg(cls));
    EXPECT_EQ(rs->Field(QStringLiteral("Preview")).toString(),
              QStringLiteral("2 Trumpalaikis turtas"));
}

TEST_P(AccountsSaveTest, SubaccountPathCodeStartsWithItsClass) {
    const qint64 cls = Add(0, QStringLiteral("2"), QStringLiteral("Trumpalaikis turtas"));
    const qint64 acc = Add(cls, QStringLiteral("27"), QStringLiteral("Pinigai"));
    const qint64 sub = Add(acc, QStringLiteral("2711"), QStringLiteral("Sąskaitos bankuose"));
    const RecordsetPtr rs = Read(sub);
    ASSERT_TRUE(rs);
    EXPECT_EQ(rs->Field(QStringLiteral("OwnCode")).toString(),
              QStringLiteral("%1*%2*%3*").arg(cls).arg(acc).arg(sub));
    EXPECT_EQ(rs->Field(QStringLiteral("GroupFlag")).toInt32(), 0);
}

TEST_P(AccountsSaveTest, ChildNumberMustBeginWithParentNumberAndBeLonger) {
    const qint64 cls = Add(0, QStringLiteral("2"), QStringLiteral("Trumpalaikis turtas"));
    const qint64 acc = Add(cls, QStringLiteral("241"), QStringLiteral("Pirkėjai"));
    // A number that only repeats the parent's.
    BOResult r = Save(acc, QStringLiteral("241"), QStringLiteral("Pirkėjai 2"));
    EXPECT_EQ(r.Code, 777);
    EXPECT_EQ(r.Text, QStringLiteral("Nenurodytas sąskaitos numeris"));
    // A number that does not begin with the parent's.
    r = Save(acc, QStringLiteral("2510"), QStringLiteral("Kita"));
    EXPECT_EQ(r.Code, 777);
    EXPECT_TRUE(r.Text.contains(QStringLiteral("241"))) << r.Text.toStdString();
    // Shorter than the parent's.
    r = Save(acc, QStringLiteral("24"), QStringLiteral("Trumpas"));
    EXPECT_EQ(r.Code, 777);
    EXPECT_TRUE(Save(acc, QStringLiteral("2410"), QStringLiteral("Pirkėjų įsiskolinimai")).ok());
}

TEST_P(AccountsSaveTest, DuplicateNumberGivesResult3604) {
    const qint64 cls =
        Add(0, QStringLiteral("4"), QStringLiteral("Mokėtinos sumos"), QStringLiteral("K"));
    Add(cls, QStringLiteral("4430"), QStringLiteral("Skolos tiekėjams"), QStringLiteral("K"));
    const BOResult r =
        Save(cls, QStringLiteral("4430"), QStringLiteral("Dar kartą"), QStringLiteral("K"));
    EXPECT_EQ(r.Code, 3604);
    EXPECT_EQ(r.Text, QStringLiteral("Tokia sąskaita jau egzistuoja!"));
    // A second class of the same number is refused the same way.
    EXPECT_EQ(Save(0, QStringLiteral("4"), QStringLiteral("Kita klasė")).Code, 3604);
}

TEST_P(AccountsSaveTest, DeletedParentGivesResult1) {
    const qint64 cls = Add(0, QStringLiteral("5"), QStringLiteral("Pajamos"), QStringLiteral("K"));
    RecordsetPtr rs = Blank();
    rs->MoveFirst();
    rs->SetField(QStringLiteral("ParentID"), Value(double(cls)));
    rs->SetField(QStringLiteral("Account"), QStringLiteral("5000"));
    rs->SetField(QStringLiteral("Name"), QStringLiteral("Pardavimo pajamos"));
    rs->SetField(QStringLiteral("Type"), QStringLiteral("K"));
    rs->Update();
    ASSERT_TRUE(
        Call(QStringLiteral("DO0200401_DeleteOrvoObject"), QStringLiteral("'O0200401%1'").arg(cls))
            .ok());
    const BOResult r = SaveRecord(rs);
    EXPECT_EQ(r.Code, 1);
    EXPECT_EQ(r.Text, QStringLiteral("Aukštesnio lygio sąskaita nebeegzistuoja!"));
}

TEST_P(AccountsSaveTest, DeletedRecordGivesResult32) {
    const qint64 cls = Add(0, QStringLiteral("6"), QStringLiteral("Sąnaudos"));
    const qint64 acc = Add(cls, QStringLiteral("6100"), QStringLiteral("Veiklos sąnaudos"));
    RecordsetPtr rs = Read(acc);
    ASSERT_TRUE(
        Call(QStringLiteral("DO0200401_DeleteOrvoObject"), QStringLiteral("'O0200401%1'").arg(acc))
            .ok());
    rs->MoveFirst();
    rs->SetField(QStringLiteral("Name"), QStringLiteral("Pakeista"));
    rs->Update();
    const BOResult r = SaveRecord(rs, acc);
    EXPECT_EQ(r.Code, 32);
    EXPECT_EQ(r.Text, QStringLiteral("Redaguojama sąskaita nebeegzistuoja!"));
}

TEST_P(AccountsSaveTest, MissingRoleGivesResult547) {
    const qint64 cls = Add(0, QStringLiteral("2"), QStringLiteral("Trumpalaikis turtas"));
    const BOResult r =
        Save(cls, QStringLiteral("2711"), QStringLiteral("Bankas"), QStringLiteral("D"), 987654);
    EXPECT_EQ(r.Code, 547);
    EXPECT_EQ(r.Text, QStringLiteral("BRAProperty nebeegzistuoja!"));
}

TEST_P(AccountsSaveTest, ClassNumberZeroOrDoubleZeroIsRefused) {
    EXPECT_EQ(Save(0, QStringLiteral("0"), QStringLiteral("Nulis")).Code, 777);
    EXPECT_EQ(Save(0, QStringLiteral("00"), QStringLiteral("Nulis")).Code, 777);
    EXPECT_EQ(
        session_->Db().Query(QStringLiteral("SELECT COUNT(*) FROM Accounts")).Scalar().toInt32(),
        0);
}

TEST_P(AccountsSaveTest, MissingNumberNameOrTypeIsRefusedWithItsText) {
    EXPECT_EQ(Save(0, QStringLiteral("  "), QStringLiteral("Klasė")).Text,
              QStringLiteral("Nenurodytas sąskaitos numeris"));
    EXPECT_EQ(Save(0, QStringLiteral("1"), QStringLiteral("  ")).Text,
              QStringLiteral("Nenurodytas sąskaitos pavadinimas"));
    EXPECT_EQ(Save(0, QStringLiteral("1"), QStringLiteral("Klasė"), QStringLiteral(" ")).Text,
              QStringLiteral("Nenurodytas sąskaitos tipas"));
}

TEST_P(AccountsSaveTest, NameAndTypeAreTrimmedAndTypeUpperCased) {
    const qint64 cls = Add(0, QStringLiteral("3"), QStringLiteral("  Nuosavas kapitalas  "),
                           QStringLiteral(" dk "));
    const RecordsetPtr rs = Read(cls);
    EXPECT_EQ(rs->Field(QStringLiteral("Name")).toString(), QStringLiteral("Nuosavas kapitalas"));
    EXPECT_EQ(rs->Field(QStringLiteral("Type")).toString(), QStringLiteral("DK"));
}

TEST_P(AccountsSaveTest, TypeOtherThanDKOrDKIsRefused) {
    EXPECT_EQ(Save(0, QStringLiteral("1"), QStringLiteral("Klasė"), QStringLiteral("X")).Code, 777);
    EXPECT_EQ(Save(0, QStringLiteral("1"), QStringLiteral("Klasė"), QStringLiteral("KD")).Code,
              777);
    EXPECT_TRUE(Save(0, QStringLiteral("1"), QStringLiteral("Klasė"), QStringLiteral("k")).ok());
}

TEST_P(AccountsSaveTest, NumberWithOtherThanDigitsIsRefused) {
    const BOResult r = Save(0, QStringLiteral("2A"), QStringLiteral("Klasė"));
    EXPECT_EQ(r.Code, 777);
    EXPECT_TRUE(r.Text.contains(QStringLiteral("2A")));
}

TEST_P(AccountsSaveTest, NumberOfAccountWithSubaccountsKeepsTheirPrefix) {
    const qint64 cls = Add(0, QStringLiteral("2"), QStringLiteral("Trumpalaikis turtas"));
    const qint64 acc = Add(cls, QStringLiteral("27"), QStringLiteral("Pinigai"));
    Add(acc, QStringLiteral("2711"), QStringLiteral("Bankas"));
    RecordsetPtr rs = Read(acc);
    rs->MoveFirst();
    rs->SetField(QStringLiteral("Account"), QStringLiteral("28"));
    rs->Update();
    EXPECT_EQ(SaveRecord(rs, acc).Code, 777);
    rs = Read(acc);
    rs->MoveFirst();
    rs->SetField(QStringLiteral("Account"), QStringLiteral("271"));
    rs->Update();
    EXPECT_TRUE(SaveRecord(rs, acc).ok());
}

TEST_P(AccountsSaveTest, AccountRecordKeepsItsDemandedAndAllowedAddressees) {
    const qint64 cls = Add(0, QStringLiteral("2"), QStringLiteral("Trumpalaikis turtas"));
    RecordsetPtr rs = Blank();
    rs->MoveFirst();
    rs->SetField(QStringLiteral("ParentID"), Value(double(cls)));
    rs->SetField(QStringLiteral("Account"), QStringLiteral("2410"));
    rs->SetField(QStringLiteral("Name"), QStringLiteral("Pirkėjų įsiskolinimai"));
    rs->SetField(QStringLiteral("Type"), QStringLiteral("D"));
    const RecordsetPtr required = rs->Field(QStringLiteral("BRRequiredAddr")).toRecordset();
    required->AddNew();
    required->SetField(QStringLiteral("Sign"), Value(qint32(1)));
    required->SetField(QStringLiteral("FOID"), QStringLiteral("O0000100"));
    required->Update();
    const RecordsetPtr allowed = rs->Field(QStringLiteral("EnabledAddressee")).toRecordset();
    allowed->AddNew();
    allowed->SetField(QStringLiteral("Sign"), Value(qint32(0)));
    allowed->SetField(QStringLiteral("FOID"), QStringLiteral("O0001402"));
    allowed->Update();
    rs->Update();
    const BOResult saved = SaveRecord(rs);
    ASSERT_TRUE(saved.ok()) << saved.Text.toStdString();
    const RecordsetPtr again =
        Read(static_cast<qint64>(rs->Field(QStringLiteral("ID")).toDouble()));
    EXPECT_EQ(Rows(again->Field(QStringLiteral("BRRequiredAddr")).toRecordset(),
                   {QStringLiteral("Sign"), QStringLiteral("FOID")}),
              QStringList{QStringLiteral("1|O0000100")});
    EXPECT_EQ(Rows(again->Field(QStringLiteral("EnabledAddressee")).toRecordset(),
                   {QStringLiteral("Sign"), QStringLiteral("FOID")}),
              QStringList{QStringLiteral("0|O0001402")});
}

TEST_P(AccountsSaveTest, AddresseeKindThatIsNoObjectCodeIsRefused) {
    RecordsetPtr rs = Blank();
    rs->MoveFirst();
    rs->SetField(QStringLiteral("Account"), QStringLiteral("2"));
    rs->SetField(QStringLiteral("Name"), QStringLiteral("Klasė"));
    const RecordsetPtr required = rs->Field(QStringLiteral("BRRequiredAddr")).toRecordset();
    required->AddNew();
    required->SetField(QStringLiteral("Sign"), Value(qint32(1)));
    required->SetField(QStringLiteral("FOID"), QStringLiteral("firm"));
    required->Update();
    rs->Update();
    EXPECT_EQ(SaveRecord(rs).Code, 777);
}

ORVO_STORAGE_BACKENDS(AccountsSaveTest);

} // namespace
} // namespace orvo::host
