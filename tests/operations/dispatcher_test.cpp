// The dispatcher of the operation's commands: parameter counts, the texts of a wrong
// count, the warning shown for a refusal, and the answer to a run-time failure.
#include "host_stand_ins.h"

#include "operations/command_failure.h"
#include "operations/operation_registration.h"

using namespace orvo;
using namespace orvo::test;

namespace {

class DispatcherTest : public OperationFixture {};

QString wrong(const char* name) {
    return QStringLiteral("Method ") + QString::fromLatin1(name) +
           QStringLiteral(":\nKlaidingi parametrai !");
}

ValueArray many(int n) {
    ValueArray a;
    for (int i = 0; i < n; ++i)
        a.append(Value());
    return a;
}

} // namespace

TEST_F(DispatcherTest, WrongCountsNameTheCommandAsTheTableSays) {
    EXPECT_EQ(op->Methods("SaveAutoNumber", many(3)).Text, wrong("SaveAutoNumber"));
    EXPECT_EQ(op->Methods("GetAutoNumber", many(1)).Text, wrong("GetAutoNumber"));
    EXPECT_EQ(op->Methods("AddTemplate", many(13)).Text, wrong("AddTemplate_0"));
    EXPECT_EQ(op->Methods("Debts", many(11)).Text, wrong("Debts"));
    EXPECT_EQ(op->Methods("BROperSelect", many(5)).Text, wrong("BROperSelect"));
    EXPECT_EQ(op->Methods("AddBR", many(18)).Text, wrong("AddBR_0"));
    EXPECT_EQ(op->Methods("DeleteBR", many(4)).Text, wrong("CurrencyRates_0"));
    EXPECT_EQ(op->Methods("CurrencyRates", many(3)).Text, wrong("CurrencyRates_0"));
    EXPECT_EQ(op->Methods("GetCurrencyList", many(3)).Text, wrong("GetCurrencyList"));
}

TEST_F(DispatcherTest, RefusalIsShownAsAWarningTitledWithTheHostsTitleAndLosesItsValue) {
    const ValueResult r = op->Methods("AddBR", many(2));
    EXPECT_EQ(r.Code, 777);
    EXPECT_TRUE(r.Value.isNull());
    ASSERT_EQ(messages->boxes.size(), 1);
    EXPECT_EQ(messages->boxes.first().kind, MessageKind::Warning);
    EXPECT_EQ(messages->boxes.first().title, "Orvo Apskaita");
    EXPECT_EQ(messages->boxes.first().text, wrong("AddBR_0"));
}

TEST_F(DispatcherTest, OtherCodesAreLeftToTheCaller) {
    op->Methods("CreateBR", {QDate(2024, 3, 15), 5.0, "2710", "2411"});
    const ValueResult r = op->Methods("TestOper", {});
    EXPECT_EQ(r.Code, 999);
    EXPECT_TRUE(messages->boxes.isEmpty());
}

TEST_F(DispatcherTest, MissingNestedRecordsetIsARunTimeFailureWithKlaida) {
    // An operation read without its entries.
    bo->handlers.insert("DO0201500_GetOrvoObject", [](const QString&, const Value&) {
        RecordsetPtr rs = Recordset::Create({F("OIDR"), F("DateD", FieldType::Date)});
        rs->AddNew();
        rs->Update();
        return BOResult::Of(Value(rs));
    });
    auto bare = UIO0201500::Create();
    bare->Core().SetBO(bo);
    ASSERT_TRUE(bare->Read().ok());
    const ValueResult r = bare->Methods("AddBR", {"2710", "2410", 5.0, ValueArray{}});
    EXPECT_EQ(r.Code, CommandFailure::MissingNested);
    EXPECT_EQ(r.Text, "Nėra įrašų rinkinio BR.\nKlaida!");
    EXPECT_TRUE(messages->boxes.isEmpty());
}

TEST_F(DispatcherTest, CommandOnAnObjectNeverReadIsARunTimeFailure) {
    auto unread = UIO0201500::Create();
    const ValueResult r = unread->Methods("CreateBR", {QDate(2024, 3, 15), 5.0, "2710", "2410"});
    EXPECT_EQ(r.Code, CommandFailure::NoRecord);
    EXPECT_TRUE(r.Text.endsWith("\nKlaida!"));
}

TEST_F(DispatcherTest, UnknownCommandGoesToTheCoreWhichRefusesIt) {
    const ValueResult r = op->Methods("Nera", {});
    EXPECT_EQ(r.Code, 999);
}

TEST_F(DispatcherTest, SetRsFieldsIsTheCoresNamedCommand) {
    RecordsetPtr other = Recordset::Create(OperationRecord::OperationFields());
    other->AddNew();
    other->Update();
    EXPECT_EQ(op->Methods("SetRsFields", {Value(other)}).Code, 0);
    EXPECT_EQ(op->RsFields(), other);
}

TEST(OperationRegistration, EveryOperationKindMakesAUIO0201500OfItsKind) {
    ObjectRegistry registry;
    RegisterOperationClasses(registry);
    EXPECT_EQ(registry.DataObjectCodes(),
              QStringList({"O0201500", "O0201501", "O0201502", "O0201503", "O0201504", "O0201505",
                           "O0201506"}));
    const OrvoObjectUIOPtr cash = registry.MakeDataObject("O0201504");
    ASSERT_TRUE(cash);
    EXPECT_EQ(cash->ClassName(), "UIO0201500");
    EXPECT_EQ(cash->OID(), "O0201504");
    EXPECT_EQ(cash->OType(), "O0201504");
    EXPECT_TRUE(registry.MakeDataObject("O0201504123"));
    EXPECT_FALSE(registry.MakeDataObject("O0201507"));
}

TEST(OperationRecordShape, BlankOperationHoldsEntriesAndEachEntryItsThreeLists) {
    RecordsetPtr rs = Recordset::Create(OperationRecord::OperationFields());
    rs->AddNew();
    const RecordsetPtr br = rs->Field("BR").toRecordset();
    ASSERT_TRUE(br);
    br->AddNew();
    for (const char* nested : {"BRCurrency", "BRProperties", "RequiredAddr"})
        EXPECT_TRUE(br->Field(QString::fromLatin1(nested)).toRecordset()) << nested;
    EXPECT_TRUE(rs->SetField("Comment", QString(1000, QChar('x'))));
    EXPECT_FALSE(rs->SetField("Comment", QString(1001, QChar('x'))));
    const RecordsetPtr props = br->Field("BRProperties").toRecordset();
    props->AddNew();
    EXPECT_TRUE(props->SetField("ShowString", QString(800, QChar('x'))));
    EXPECT_FALSE(props->SetField("ShowString", QString(801, QChar('x'))));
    for (const char* field :
         {"OIDR", "FOIDR", "BROperGroupID", "DateD", "Serija", "Number", "VATRegisterIndication",
          "LockGUID", "Parameters", "AutoNumber", "OType", "CreatedByUserOIDR", "CreatedByUserName",
          "CreationDate", "ChangedByUserOIDR", "ChangedByUserName", "CorrectionDate"})
        EXPECT_TRUE(rs->HasField(QString::fromLatin1(field))) << field;
}
