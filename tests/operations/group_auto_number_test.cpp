// The automatic number on the whole road: a group stored with its numbering rule, a new
// operation of the group asking UIO0201500 for its number (GetAutoNumber through
// Properties("AutoNumber") to the business object's counter), the number kept with
// SaveAutoNumber and the operation saved, and a counter given twice refused at saving.
#include "core/today.h"
#include "operations_book.h"

namespace orvo::test {
namespace {

class GroupAutoNumberTest : public OperationsBook {
protected:
    void SetUp() override {
        OperationsBook::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        SetToday(QDate(2024, 3, 15));
    }
    void TearDown() override {
        SetToday(QDate());
        OperationsBook::TearDown();
    }

    qint64 AddGroup(const QString& mask) {
        const BOResult blank = session_->BO()->Call(QStringLiteral("DO0201400_GetOrvoObject"),
                                                    QStringLiteral("'O0201400'"));
        EXPECT_TRUE(blank.ok()) << blank.Text.toStdString();
        const RecordsetPtr rs = blank.Data.toRecordset();
        rs->MoveFirst();
        rs->SetField(QStringLiteral("Name"), QStringLiteral("Kasos orderiai"));
        rs->SetField(QStringLiteral("ANMask"), mask);
        rs->SetField(QStringLiteral("ANPrefix"), QStringLiteral("KO"));
        rs->SetField(QStringLiteral("ANTemplate"), QStringLiteral("0000"));
        rs->SetField(QStringLiteral("ANGroupBy"), Value(1));
        rs->SetField(QStringLiteral("ANCycle"), Value(0));
        rs->SetField(QStringLiteral("ANDateFrom"), Value(QDate(2024, 1, 1)));
        rs->Update();
        const BOResult saved = session_->BO()->Call(QStringLiteral("DO0201400_SaveOrvoObject"),
                                                    QStringLiteral("''"), Value(rs));
        EXPECT_TRUE(saved.ok()) << saved.Text.toStdString();
        const RecordsetPtr out = saved.Data.toRecordset();
        out->MoveFirst();
        return static_cast<qint64>(out->Field(QStringLiteral("ID")).toDouble());
    }

    OrvoObjectUIOPtr NewOperation(qint64 group) {
        OrvoObjectUIOPtr op = Object(QStringLiteral("O0201500"));
        EXPECT_TRUE(op);
        op->SetField(QStringLiteral("BROperGroupID"), Value(double(group)));
        op->SetField(QStringLiteral("DateD"), Value(QDate(2024, 3, 15)));
        return op;
    }
};

TEST_P(GroupAutoNumberTest, DatePrefixCounterMaskGivesFollowingNumbersOfTheDay) {
    const qint64 group = AddGroup(QStringLiteral("Date_Prefix_AutoNumber"));
    const OrvoObjectUIOPtr first = NewOperation(group);
    const ValueResult one = first->Methods(QStringLiteral("GetAutoNumber"), {});
    ASSERT_TRUE(one.ok()) << one.Text.toStdString();
    EXPECT_EQ(one.Value.toString(), QStringLiteral("240315-KO-0001"));
    EXPECT_EQ(first->Field(QStringLiteral("AutoNumber")).toInt32(), 1);
    const OrvoObjectUIOPtr second = NewOperation(group);
    EXPECT_EQ(second->Methods(QStringLiteral("GetAutoNumber"), {}).Value.toString(),
              QStringLiteral("240315-KO-0002"));
}

TEST_P(GroupAutoNumberTest, KeptNumberIsSavedAndRepeatedCounterIsRefused) {
    const qint64 group = AddGroup(QStringLiteral("Date_Prefix_AutoNumber"));
    const OrvoObjectUIOPtr first = NewOperation(group);
    const QString number = first->Methods(QStringLiteral("GetAutoNumber"), {}).Value.toString();
    first->SetField(QStringLiteral("Number"), number);
    first->Methods(QStringLiteral("SaveAutoNumber"),
                   {Value(QStringLiteral("Date_Prefix_AutoNumber")), Value(number)});
    const ResultRecord saved = first->Save();
    ASSERT_TRUE(saved.ok()) << saved.Text.toStdString();

    // The user retypes the same number on a second operation of the day.
    const OrvoObjectUIOPtr second = NewOperation(group);
    second->Methods(QStringLiteral("GetAutoNumber"), {});
    second->SetField(QStringLiteral("Number"), number);
    second->Methods(QStringLiteral("SaveAutoNumber"),
                    {Value(QStringLiteral("Date_Prefix_AutoNumber")), Value(number)});
    const ResultRecord refused = second->Save();
    EXPECT_EQ(refused.Code, 777);
    EXPECT_TRUE(refused.Text.contains(QStringLiteral("numeris 1 jau suteiktas")))
        << refused.Text.toStdString();

    // A counter typed by hand above the last one is accepted and the next one follows.
    second->SetField(QStringLiteral("Number"), QStringLiteral("240315-KO-0050"));
    second->Methods(
        QStringLiteral("SaveAutoNumber"),
        {Value(QStringLiteral("Date_Prefix_AutoNumber")), Value(QStringLiteral("240315-KO-0050"))});
    const ResultRecord accepted = second->Save();
    ASSERT_TRUE(accepted.ok()) << accepted.Text.toStdString();
    EXPECT_EQ(NewOperation(group)->Methods(QStringLiteral("GetAutoNumber"), {}).Value.toString(),
              QStringLiteral("240315-KO-0051"));
}

ORVO_STORAGE_BACKENDS(GroupAutoNumberTest);

} // namespace
} // namespace orvo::test
