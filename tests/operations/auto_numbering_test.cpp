// Auto-numbering: the number a group's mask gives, and the counter rebuilt from the number
// the user finally leaves in the field or sets by hand.
#include "host_stand_ins.h"

#include "operations/auto_numbering.h"

using namespace orvo;
using namespace orvo::test;

namespace {

class AutoNumberingTest : public OperationFixture {
protected:
    void SetUp() override {
        OperationFixture::SetUp();
        bo->handlers.insert("GetAutoNumber", [this](const QString& parameters, const Value&) {
            queries.append(parameters);
            return BOResult::Of(
                Value(Table({F("AutoNumber"), F("ANMask"), F("ANPrefix"), F("ANTemplate")},
                            {{counter, mask, "KO", "0000"}})));
        });
    }
    qint32 AutoNumber() const { return op->Field("AutoNumber").toInt32(); }

    QStringList queries;
    qint32 counter = 7;
    QString mask = QStringLiteral("Date_Prefix_AutoNumber");
};

} // namespace

TEST(BuildAutoNumber, DatePrefixAutoNumberWithPrefixKOTemplateOfFourAndCounter7Gives261115KO0007) {
    EXPECT_EQ(AutoNumbering::BuildAutoNumber("Date_Prefix_AutoNumber", "KO", "0000", 7, "OB",
                                             QDate(2026, 11, 15)),
              "261115-KO-0007");
}

TEST(BuildAutoNumber, CounterLongerThanTheTemplateStaysWhole) {
    EXPECT_EQ(AutoNumbering::BuildAutoNumber("AutoNumber", "", "00", 12345, "", QDate()), "12345");
}

TEST(BuildAutoNumber, UnknownPartIsEmptyButKeepsItsDash) {
    EXPECT_EQ(AutoNumbering::BuildAutoNumber("UserPrefix_Kita_AutoNumber", "KO", "000", 4, "OB",
                                             QDate(2026, 1, 2)),
              "OB--004");
}

TEST_F(AutoNumberingTest, TheMaskExampleOn15November2026Gives261115KO0007) {
    SetToday(QDate(2026, 11, 15));
    op->SetField("BROperGroupID", 17);
    const ValueResult r = op->Methods("GetAutoNumber", {});
    EXPECT_EQ(r.Code, 0);
    EXPECT_EQ(r.Value.toString(), "261115-KO-0007");
    EXPECT_EQ(AutoNumber(), 7);
}

TEST_F(AutoNumberingTest, QueryTextJoinsGroupUserKindFlagAndGroupText) {
    op->SetField("BROperGroupID", 17);
    op->Methods("GetAutoNumber", {qint16(1), "KO"});
    ASSERT_EQ(queries.size(), 1);
    EXPECT_EQ(queries.first(), "17,7,'O0201500',1,'KO'");
    op->Methods("GetAutoNumber", {});
    EXPECT_EQ(queries.last(), "17,7,'O0201500',0,''");
}

TEST_F(AutoNumberingTest, OneParameterIsRefusedAsGetAutoNumber) {
    const ValueResult r = op->Methods("GetAutoNumber", {qint16(1)});
    EXPECT_EQ(r.Code, 777);
    EXPECT_EQ(r.Text, "Method GetAutoNumber:\nKlaidingi parametrai !");
}

TEST_F(AutoNumberingTest, WithoutAUserTheNumberIsTwoQuestionMarks) {
    session->user = SessionUser();
    const ValueResult r = op->Methods("GetAutoNumber", {});
    EXPECT_EQ(r.Value.toString(), "??");
    EXPECT_TRUE(queries.isEmpty());
}

TEST_F(AutoNumberingTest, EmptyMaskGivesTwoQuestionMarks) {
    mask.clear();
    EXPECT_EQ(op->Methods("GetAutoNumber", {}).Value.toString(), "??");
}

TEST_F(AutoNumberingTest, RefusedQueryGivesTwoQuestionMarksAndItsCode) {
    bo->handlers.insert("GetAutoNumber", [](const QString&, const Value&) {
        return BOResult::Failure(999, "Grupė nerasta");
    });
    const ValueResult r = op->Methods("GetAutoNumber", {});
    EXPECT_EQ(r.Code, 999);
    EXPECT_EQ(r.Value.toString(), "??");
}

TEST_F(AutoNumberingTest, UserPrefixComesFromTheSessionUser) {
    mask = "UserPrefix_AutoNumber";
    EXPECT_EQ(op->Methods("GetAutoNumber", {}).Value.toString(), "OB-0007");
}

TEST_F(AutoNumberingTest, SaveAutoNumberStoresTheCounterOfTheNumberLeft) {
    const ValueResult r =
        op->Methods("SaveAutoNumber", {"Date_Prefix_AutoNumber", "261115-KO-0012"});
    EXPECT_EQ(r.Code, 0);
    EXPECT_EQ(AutoNumber(), 12);
}

TEST_F(AutoNumberingTest, RetypedNumber261115KO12Comma5Stores0WithNoMessage) {
    op->SetField("AutoNumber", 7);
    op->Methods("SaveAutoNumber", {"Date_Prefix_AutoNumber", "261115-KO-12,5"});
    EXPECT_EQ(AutoNumber(), 0);
    EXPECT_TRUE(messages->boxes.isEmpty());
}

TEST_F(AutoNumberingTest, MaskWithoutAutoNumberStores0AtEverySave) {
    op->SetField("AutoNumber", 7);
    op->Methods("SaveAutoNumber", {"Date_Prefix", "261115-KO"});
    EXPECT_EQ(AutoNumber(), 0);
    op->SetField("AutoNumber", 8);
    op->Methods("SaveAutoNumber", {"Date_Prefix", "261115-KO"});
    EXPECT_EQ(AutoNumber(), 0);
}

TEST_F(AutoNumberingTest, NumberPart2147483648ShowsPerDidele) {
    op->SetField("AutoNumber", 7);
    op->Methods("SaveAutoNumber", {"Prefix_AutoNumber", "KO-2147483648"});
    EXPECT_EQ(AutoNumber(), 0);
    ASSERT_EQ(messages->boxes.size(), 1);
    EXPECT_EQ(messages->boxes.first().kind, MessageKind::Information);
    EXPECT_EQ(messages->boxes.first().text, "Auto numerio reikšmė 2147483648 yra per didelė!");
    EXPECT_EQ(messages->boxes.first().title, "Orvo Apskaita");
}

TEST_F(AutoNumberingTest, NumberPart2147483647IsStillStored) {
    op->Methods("SaveAutoNumber", {"Prefix_AutoNumber", "KO-2147483647"});
    EXPECT_EQ(AutoNumber(), 2147483647);
}

TEST_F(AutoNumberingTest, NumberWithFewerPartsThanTheMaskStores0) {
    op->SetField("AutoNumber", 7);
    op->Methods("SaveAutoNumber", {"Date_Prefix_AutoNumber", "261115-KO"});
    EXPECT_EQ(AutoNumber(), 0);
}

TEST_F(AutoNumberingTest, SaveAutoNumberWithAnEmptyTextChangesNothing) {
    op->SetField("AutoNumber", 7);
    op->Methods("SaveAutoNumber", {"", "261115-KO-0012"});
    EXPECT_EQ(AutoNumber(), 7);
    op->Methods("SaveAutoNumber", {"Date_Prefix_AutoNumber", ""});
    EXPECT_EQ(AutoNumber(), 7);
}

TEST_F(AutoNumberingTest, SaveAutoNumberWantsExactlyTwoParameters) {
    EXPECT_EQ(op->Methods("SaveAutoNumber", {"AutoNumber"}).Text,
              "Method SaveAutoNumber:\nKlaidingi parametrai !");
}

TEST_F(AutoNumberingTest, CheckAutoNumberAsksAndChangesTheCounterOnYes) {
    op->SetField("AutoNumber", 7);
    inputs->answers.enqueue(QStringLiteral("15"));
    messages->answers.enqueue(true);
    const ValueResult r = op->Methods("CheckAutoNumber", {});
    EXPECT_TRUE(r.Value.toBool());
    EXPECT_EQ(AutoNumber(), 15);
    ASSERT_EQ(inputs->asked.size(), 1);
    EXPECT_EQ(inputs->asked.first().prompt, "Operacijos eilės numeris: ");
    EXPECT_EQ(inputs->asked.first().title, "Auto numerio nustatymas");
    EXPECT_EQ(inputs->asked.first().defaultText, "7");
    ASSERT_EQ(messages->boxes.size(), 1);
    EXPECT_EQ(messages->boxes.first().kind, MessageKind::Question);
    EXPECT_EQ(messages->boxes.first().text, "Pakeisti operacijos eilės numerį į 15?");
    EXPECT_EQ(messages->boxes.first().title, "Auto numerio pakeitimas");
}

TEST_F(AutoNumberingTest, CheckAutoNumberAnsweredNoKeepsTheCounter) {
    op->SetField("AutoNumber", 7);
    inputs->answers.enqueue(QStringLiteral("15"));
    messages->answers.enqueue(false);
    EXPECT_FALSE(op->Methods("CheckAutoNumber", {}).Value.toBool());
    EXPECT_EQ(AutoNumber(), 7);
}

TEST_F(AutoNumberingTest, CheckAutoNumberWithTheSameOrAnEmptyAnswerAsksNothingMore) {
    op->SetField("AutoNumber", 7);
    inputs->answers.enqueue(QStringLiteral("7"));
    EXPECT_FALSE(op->Methods("CheckAutoNumber", {}).Value.toBool());
    inputs->answers.enqueue(QStringLiteral(""));
    EXPECT_FALSE(op->Methods("CheckAutoNumber", {}).Value.toBool());
    EXPECT_FALSE(op->Methods("CheckAutoNumber", {}).Value.toBool()); // cancelled
    EXPECT_TRUE(messages->boxes.isEmpty());
    EXPECT_EQ(AutoNumber(), 7);
}
