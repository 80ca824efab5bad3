// CreateBR, AddTemplate and DeleteBR: a plain entry, the entries of a stored template,
// and the removal of entries by GUID, by account and by the debt they pay.
#include "host_stand_ins.h"

#include "operations/command_failure.h"

using namespace orvo;
using namespace orvo::test;

namespace {

const QString kBlank = QStringLiteral("   ");

class EntryCommandsTest : public OperationFixture {
protected:
    // A template object answering TemplateAccAndAddr with two lines: goods at factor 1
    // demanding a firm on the debit side, and VAT at 0.21 with no demand.
    void RegisterTemplate() {
        templates = std::make_shared<SmallObject>("O0201600");
        templates->properties = [](const QString& name, const QString&) {
            if (name != QLatin1String("TemplateAccAndAddr"))
                return ValueResult::Failure(999, "?");
            const FieldDefs demandFields = {F("Sign", FieldType::SmallInt), F("FOID")};
            RecordsetPtr lines = Recordset::Create(
                {F("ID", FieldType::Integer), F("GUID"), F("AccountD"), F("AccountC"),
                 F("Factor", FieldType::Double), FieldDef::Chapter("RequiredAddr", demandFields)});
            lines->AddNew();
            lines->SetField("ID", 11);
            lines->SetField("GUID", "{LINE-1}");
            lines->SetField("AccountD", "2410");
            lines->SetField("AccountC", "5000");
            lines->SetField("Factor", 1.0);
            const RecordsetPtr d = lines->Field("RequiredAddr").toRecordset();
            d->AddNew();
            d->SetField("Sign", qint16(1));
            d->SetField("FOID", "O0000100");
            d->Update();
            lines->Update();
            lines->AddNew();
            lines->SetField("ID", 12);
            lines->SetField("GUID", "{LINE-2}");
            lines->SetField("AccountD", "2410");
            lines->SetField("AccountC", "4492");
            lines->SetField("Factor", 0.21);
            lines->Update();
            return ValueResult::Of(Value(lines));
        };
        objects->objects.insert("O0201600", templates);
    }
    std::shared_ptr<SmallObject> templates;
};

} // namespace

TEST_F(EntryCommandsTest, CreateBRAddsAPlainEntryMarkedAsMadeByCreateBR) {
    const ValueResult r =
        op->Methods("CreateBR", {QDate(2024, 3, 10), 15.5, "6110", "4430", "Nuoma", "T1"});
    ASSERT_EQ(r.Code, 0);
    EXPECT_TRUE(r.Value.toBool());
    const RecordsetPtr br = Entries();
    ASSERT_EQ(br->RecordCount(), 1);
    br->MoveFirst();
    EXPECT_EQ(br->Field("DateD").toDate(), QDate(2024, 3, 10));
    EXPECT_DOUBLE_EQ(br->Field("SumA").toDouble(), 15.5);
    EXPECT_EQ(br->Field("AccountD").toString(), "6110");
    EXPECT_EQ(br->Field("Info").toString(), "Nuoma");
    EXPECT_EQ(br->Field("BRTemplateAccID").toInt32(), 1);
    EXPECT_EQ(br->Field("GUID").toString().size(), 38);
}

TEST_F(EntryCommandsTest, CreateBRWithFewerThanFourParametersIsRefused) {
    const ValueResult r = op->Methods("CreateBR", {QDate(2024, 3, 10), 15.5, "6110"});
    EXPECT_EQ(r.Code, 777);
    EXPECT_EQ(r.Text, "Not set parameter for CreateBR method !");
}

TEST_F(EntryCommandsTest, AddTemplateMakesAnEntryPerLineScaledByTheFactor) {
    RegisterTemplate();
    op->SetField("DateD", QDate(2024, 3, 12));
    const ValueResult r = op->Methods(
        "AddTemplate", {qint32(5), 100.01, ValueArray{qint16(1), "O000010012", "UAB Ąžuolas"}});
    ASSERT_EQ(r.Code, 0) << r.Text.toStdString();
    EXPECT_EQ(templates->asked, QStringList({"TemplateAccAndAddr(5)"}));
    const RecordsetPtr br = Entries();
    ASSERT_EQ(br->RecordCount(), 2);
    br->MoveFirst();
    EXPECT_DOUBLE_EQ(br->Field("SumA").toDouble(), 100.01);
    EXPECT_EQ(br->Field("AccountC").toString(), "5000");
    EXPECT_EQ(br->Field("BRTemplateAccID").toInt32(), 11);
    EXPECT_EQ(br->Field("DateD").toDate(), QDate(2024, 3, 12));
    EXPECT_EQ(br->Field("RestoringSign").toInt16(), 1);
    const RecordsetPtr demands = br->Field("RequiredAddr").toRecordset();
    ASSERT_EQ(demands->RecordCount(), 1);
    demands->MoveFirst();
    EXPECT_EQ(demands->Field("FOID").toString(), "O0000100");
    EXPECT_EQ(demands->Field("BRTemplateAccGUID").toString(), "{LINE-1}");
    // The firm is demanded on this entry and so laid on it.
    EXPECT_EQ(br->Field("BRProperties").toRecordset()->RecordCount(), 1);

    br->MoveNext();
    // 100.01 * 0.21 = 21.0021 -> 21.00
    EXPECT_DOUBLE_EQ(br->Field("SumA").toDouble(), 21.0);
    EXPECT_EQ(br->Field("BRTemplateAccID").toInt32(), 12);
    // No demand on the VAT line: the addressee is not laid on it.
    EXPECT_EQ(br->Field("BRProperties").toRecordset()->RecordCount(), 0);
}

TEST_F(EntryCommandsTest, AddTemplateFactorHalfOf100_01Gives50_01) {
    RegisterTemplate();
    templates->properties = [](const QString&, const QString&) {
        return ValueResult::Of(
            Value(Table({F("ID"), F("GUID"), F("AccountD"), F("AccountC"), F("Factor")},
                        {{1, "{L}", "2410", "5000", 0.5}})));
    };
    ASSERT_EQ(op->Methods("AddTemplate", {1, 100.01, ValueArray{}}).Code, 0);
    Entries()->MoveFirst();
    EXPECT_DOUBLE_EQ(Entries()->Field("SumA").toDouble(), 50.01);
}

TEST_F(EntryCommandsTest, AddTemplateWithACurrencyWritesTheLinesShareOnTheCurrencySide) {
    RegisterTemplate();
    ASSERT_EQ(op->Methods("AddTemplate", {5, 100.0, ValueArray{}, qint16(1), "USD", 0.92}).Code, 0);
    const RecordsetPtr br = Entries();
    br->MoveFirst();
    br->MoveNext();
    const RecordsetPtr cur = br->Field("BRCurrency").toRecordset();
    ASSERT_EQ(cur->RecordCount(), 1);
    cur->MoveFirst();
    EXPECT_DOUBLE_EQ(cur->Field("SumCurr").toDouble(), 21.0);
    EXPECT_EQ(cur->Field("Sign").toInt16(), 1);
    EXPECT_DOUBLE_EQ(br->Field("CurrencyRateD").toDouble(), 1.086957);
}

TEST_F(EntryCommandsTest, AddTemplateWithoutATemplateObjectIsRefusedClearly) {
    const ValueResult r = op->Methods("AddTemplate", {5, 100.0, ValueArray{}});
    EXPECT_EQ(r.Code, 777);
    EXPECT_EQ(r.Text, "Operacijų šablonai nepasiekiami: šablono įrašų sukurti negalima!");
    EXPECT_EQ(messages->Count(MessageKind::Warning), 1);
    EXPECT_EQ(Entries()->RecordCount(), 0);
}

TEST_F(EntryCommandsTest, AddTemplateChecksItsParametersAsAddTemplate1And2) {
    RegisterTemplate();
    EXPECT_TRUE(op->Methods("AddTemplate", {5, 100.0, ValueArray{}, qint16(3)})
                    .Text.startsWith("Method AddTemplate_1:\nKlaidingi parametrai !\n"));
    EXPECT_EQ(op->Methods("AddTemplate", {5, 100.0, ValueArray{qint16(1)}}).Text,
              "Method AddTemplate_2:\nKlaidingi parametrai !\nn=0");
    EXPECT_EQ(op->Methods("AddTemplate", {5, 100.0}).Text,
              "Method AddTemplate_0:\nKlaidingi parametrai !");
    EXPECT_TRUE(templates->asked.isEmpty());
}

TEST_F(EntryCommandsTest, DeleteBRSign9EmptyFirstParameterDeletesAll) {
    AddBR({"2710", "2410", 1.0, ValueArray{}});
    AddBR({"2710", "4430", 2.0, ValueArray{}});
    AddBR({"6110", "2710", 3.0, ValueArray{}});
    const ValueResult r = op->Methods("DeleteBR", {"", qint16(9)});
    EXPECT_EQ(r.Code, 0);
    EXPECT_TRUE(r.Value.toBool());
    EXPECT_EQ(Entries()->RecordCount(), 0);
    EXPECT_TRUE(Entries()->Filter().isEmpty());
}

TEST_F(EntryCommandsTest, DeleteBRSign9DeletesTheEntryOfThatGuidOnly) {
    const QString first = AddBR({"2710", "2410", 1.0, ValueArray{}}).Value.toString();
    AddBR({"2710", "4430", 2.0, ValueArray{}});
    ASSERT_EQ(op->Methods("DeleteBR", {first, qint16(9)}).Code, 0);
    ASSERT_EQ(Entries()->RecordCount(), 1);
    Entries()->MoveFirst();
    EXPECT_EQ(Entries()->Field("AccountC").toString(), "4430");
}

TEST_F(EntryCommandsTest, DeleteBRByAccountTakesTheSideFromISign) {
    AddBR({"2710", "2410", 1.0, ValueArray{}});
    AddBR({"2410", "5000", 2.0, ValueArray{}});
    AddBR({"6110", "4430", 3.0, ValueArray{}});
    ASSERT_EQ(op->Methods("DeleteBR", {"2410", qint16(-1)}).Code, 0);
    EXPECT_EQ(Entries()->RecordCount(), 2);
    ASSERT_EQ(op->Methods("DeleteBR", {"2410"}).Code, 0); // side 0: either
    EXPECT_EQ(Entries()->RecordCount(), 1);
}

TEST_F(EntryCommandsTest, DeleteBRWithAWrongSideAnswersFalseWithItsText) {
    AddBR({"2710", "2410", 1.0, ValueArray{}});
    const ValueResult r = op->Methods("DeleteBR", {"2410", qint16(5)});
    EXPECT_FALSE(r.Value.toBool());
    EXPECT_EQ(r.Text, "DeleteBR : Klaidingi parametrai !");
    EXPECT_EQ(Entries()->RecordCount(), 1);
}

TEST_F(EntryCommandsTest, DeleteBRTakesA32BitNineForAWrongSideNotForAGuid) {
    const QString guid = AddBR({"2710", "2410", 1.0, ValueArray{}}).Value.toString();
    const ValueResult r = op->Methods("DeleteBR", {guid, qint32(9)});
    EXPECT_FALSE(r.Value.toBool());
    EXPECT_EQ(Entries()->RecordCount(), 1);
}

TEST_F(EntryCommandsTest, DeleteBRWithAReferenceSparesEntriesPayingAnotherDebt) {
    AddBR({"2710", "2410", 1.0, ValueArray{qint16(-1), "O0201500501", "Sąskaita 1"}});
    AddBR({"2710", "2410", 2.0, ValueArray{qint16(-1), "O0201500502", "Sąskaita 2"}});
    AddBR({"2710", "2410", 3.0, ValueArray{}}); // no addressees: not spared
    ASSERT_EQ(op->Methods("DeleteBR", {"2410", qint16(-1), "O0201500501"}).Code, 0);
    ASSERT_EQ(Entries()->RecordCount(), 1);
    Entries()->MoveFirst();
    EXPECT_DOUBLE_EQ(Entries()->Field("SumA").toDouble(), 2.0);
}

TEST_F(EntryCommandsTest, DeleteBRWithAReferenceOnTheOtherSideSparesTheEntry) {
    AddBR({"2710", "2410", 1.0, ValueArray{qint16(1), "O0201500501", "Sąskaita 1"}});
    ASSERT_EQ(op->Methods("DeleteBR", {"2410", qint16(-1), "O0201500501"}).Code, 0);
    EXPECT_EQ(Entries()->RecordCount(), 1);
}

TEST_F(EntryCommandsTest, DeleteBROnNoEntriesAnswersTrue) {
    const ValueResult r = op->Methods("DeleteBR", {"2410"});
    EXPECT_TRUE(r.Value.toBool());
}

TEST_F(EntryCommandsTest, DeleteBRCountIsCheckedAsCurrencyRates0) {
    EXPECT_EQ(op->Methods("DeleteBR", {}).Text, "Method CurrencyRates_0:\nKlaidingi parametrai !");
    EXPECT_EQ(op->Methods("DeleteBR", {"a", qint16(1), "b", "c"}).Code, 777);
}
