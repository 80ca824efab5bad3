// Saving an operation: a new operation that the books refuse keeps every entry for the
// next attempt, and the demands of an entry are never stored.
#include "host_stand_ins.h"

#include "frame/catalogue_recordsets.h"

using namespace orvo;
using namespace orvo::test;

namespace {

class OperationSaveTest : public OperationFixture {
protected:
    void SetUp() override {
        OperationFixture::SetUp();
        bo->handlers.insert("DO0201500_SaveOrvoObject", [this](const QString&, const Value& data) {
            received = data.toRecordset();
            if (refuse)
                return BOResult::Failure(555, "Laikotarpis užrakintas");
            return BOResult::Of(Value(Table({F("OIDR"), F("LockGUID")}, {{"O0201500123", "{L}"}})));
        });
    }
    // Two entries: one with a currency and an addressee, one plain.
    void TwoEntries() {
        op->SetField("Comment", "Prekių pardavimas");
        op->SetField("Number", "KO-7");
        ASSERT_EQ(AddBR({"2410", "5000", 100.0, ValueArray{qint16(1), "O000010012", "UAB Ąžuolas"},
                         qint16(0), "USD", 0.92})
                      .Code,
                  0);
        ASSERT_EQ(AddBR({"2710", "2410", 50.0, ValueArray{}}).Code, 0);
    }
    int CountIn(const char* nested) {
        int n = 0;
        const RecordsetPtr br = Entries();
        for (br->MoveFirst(); !br->Eof(); br->MoveNext())
            n += br->Field(QString::fromLatin1(nested)).toRecordset()->RecordCount();
        return n;
    }
    bool refuse = true;
    RecordsetPtr received;
};

} // namespace

TEST_F(OperationSaveTest, FailedSaveOfNewOperationKeepsEveryEntryAndProperty) {
    TwoEntries();
    const ResultRecord r = op->Save();
    EXPECT_EQ(r.Code, 555);
    EXPECT_EQ(r.Text, "Laikotarpis užrakintas");
    EXPECT_LT(op->OIDR().size(), 9);
    ASSERT_TRUE(op->RsFields());
    EXPECT_EQ(op->Field("Comment").toString(), "Prekių pardavimas");
    EXPECT_EQ(op->Field("Number").toString(), "KO-7");
    EXPECT_EQ(Entries()->RecordCount(), 2);
    EXPECT_EQ(CountIn("BRCurrency"), 2);
    EXPECT_EQ(CountIn("BRProperties"), 1);
    // A second Read made a fresh structure, into which the rows were copied.
    EXPECT_EQ(bo->CallsTo("DO0201500_GetOrvoObject"), 2);
}

TEST_F(OperationSaveTest, RowKeptAfterAFailedSaveIsReadyForAnotherAttempt) {
    TwoEntries();
    ASSERT_NE(op->Save().Code, 0);
    EXPECT_EQ(op->RsFields()->AbsolutePosition(), 1);
    EXPECT_EQ(op->RsFields()->Status(), RowStatus::New);
    for (Entries()->MoveFirst(); !Entries()->Eof(); Entries()->MoveNext())
        EXPECT_EQ(Entries()->Status(), RowStatus::New);

    refuse = false;
    const ResultRecord again = op->Save();
    EXPECT_EQ(again.Code, 0);
    EXPECT_EQ(op->OIDR(), "O0201500123");
    ASSERT_TRUE(received);
    const RecordsetPtr br = received->Field("BR").toRecordset();
    EXPECT_EQ(br->RecordCount(), 2);
}

TEST_F(OperationSaveTest, FailedSaveWhoseBlankReadFailsPutsTheKeptRecordsetBack) {
    TwoEntries();
    const RecordsetPtr before = op->RsFields();
    bo->handlers.insert("DO0201500_GetOrvoObject", [](const QString&, const Value&) {
        return BOResult::Failure(999, "Ryšys nutrūko");
    });
    EXPECT_EQ(op->Save().Code, 555);
    EXPECT_EQ(op->RsFields(), before);
    EXPECT_EQ(Entries()->RecordCount(), 2);
}

TEST_F(OperationSaveTest, FailedSaveOfAStoredOperationLeavesTheDataAsItIs) {
    op->Core().SetOIDR("O0201500077");
    TwoEntries();
    const RecordsetPtr before = op->RsFields();
    EXPECT_EQ(op->Save().Code, 555);
    EXPECT_EQ(op->RsFields(), before);
    EXPECT_EQ(bo->CallsTo("DO0201500_GetOrvoObject"), 1);
}

TEST_F(OperationSaveTest, DemandsOfTheCurrentEntryAreNotStored) {
    ASSERT_EQ(AddBR({"2710", "2410", 50.0, ValueArray{}}).Code, 0);
    const RecordsetPtr required = Nested("RequiredAddr");
    required->AddNew();
    required->SetField("Sign", qint16(-1));
    required->SetField("FOID", "O0000100");
    required->Update();
    refuse = false;
    ASSERT_EQ(op->Save().Code, 0);
    ASSERT_TRUE(received);
    const RecordsetPtr br = received->Field("BR").toRecordset();
    br->MoveFirst();
    EXPECT_EQ(br->Field("RequiredAddr").toRecordset()->RecordCount(), 0);
}

TEST_F(OperationSaveTest, SuccessfulSaveGivesTheNumberAndTheLockToken) {
    TwoEntries();
    refuse = false;
    EXPECT_EQ(op->Save().Code, 0);
    EXPECT_EQ(op->OIDR(), "O0201500123");
    EXPECT_EQ(op->Field("LockGUID").toString(), "{L}");
}

TEST_F(OperationSaveTest, DeepCopySkipsIdAndNullAndRecursesIntoEntries) {
    TwoEntries();
    Entries()->MoveFirst();
    Entries()->SetField("ID", 41);
    const RecordsetPtr target = Recordset::Create(OperationRecord::OperationFields());
    Catalogue::ForEachFieldCopy(op->RsFields(), target);
    ASSERT_EQ(target->RecordCount(), 1);
    const RecordsetPtr br = target->Field("BR").toRecordset();
    ASSERT_EQ(br->RecordCount(), 2);
    br->MoveFirst();
    EXPECT_TRUE(br->Field("ID").isNull());
    EXPECT_EQ(br->Field("BRCurrency").toRecordset()->RecordCount(), 2);
}
