// Automatic numbers drawn by the business object: every scope of ANGroupBy, every
// period of ANCycle, ANMinimal and ANDateFrom, the save's refusal of a counter already
// given in its scope and period, a hand-set counter moving the counter up, and two
// sessions on one book drawing and saving from two threads without a repeated number.
#include "groups_fixture.h"

#include "host/objects/auto_number_counters.h"

#include <QSet>
#include <mutex>
#include <thread>

namespace orvo::host::testing {
namespace {

class AutoNumberTest : public GroupsTest {};

TEST_P(AutoNumberTest, DrawAnswersCounterWithMaskPrefixAndTemplate) {
    const qint64 g = AddNumberedGroup();
    const BOResult r =
        Call(QStringLiteral("GetAutoNumber"),
             QStringLiteral("%1,%2,'O0201500',0,''").arg(g).arg(session_->User().ID));
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    EXPECT_EQ(
        Rows(r.Data.toRecordset(), {QStringLiteral("AutoNumber"), QStringLiteral("ANMask"),
                                    QStringLiteral("ANPrefix"), QStringLiteral("ANTemplate")}),
        QStringList({QStringLiteral("1|Date_Prefix_AutoNumber|KO|0000")}));
    EXPECT_EQ(Draw(g), 2);
    EXPECT_EQ(Draw(g), 3);
}

TEST_P(AutoNumberTest, SharedScopeCountsAcrossGroupsUsersAndKinds) {
    const qint64 a = AddNumberedGroup(0);
    const qint64 b = AddNumberedGroup(0);
    EXPECT_EQ(Draw(a), 1);
    EXPECT_EQ(Draw(b, QStringLiteral("O0201504")), 2);
    EXPECT_EQ(DrawOn(*session_, a, 99), 3);
}

TEST_P(AutoNumberTest, ByGroupScopeKeepsOneCounterPerGroup) {
    const qint64 a = AddNumberedGroup(1);
    const qint64 b = AddNumberedGroup(1);
    EXPECT_EQ(Draw(a), 1);
    EXPECT_EQ(Draw(a), 2);
    EXPECT_EQ(Draw(b), 1);
    EXPECT_EQ(DrawOn(*session_, a, 99, QStringLiteral("O0201503")), 3);
}

TEST_P(AutoNumberTest, ByUserScopeKeepsOneCounterPerUserAcrossGroups) {
    const qint64 a = AddNumberedGroup(2);
    const qint64 b = AddNumberedGroup(2);
    EXPECT_EQ(DrawOn(*session_, a, 1), 1);
    EXPECT_EQ(DrawOn(*session_, b, 1), 2);
    EXPECT_EQ(DrawOn(*session_, a, 2), 1);
}

TEST_P(AutoNumberTest, ByGroupAndUserScopeKeepsOneCounterPerPair) {
    const qint64 a = AddNumberedGroup(3);
    const qint64 b = AddNumberedGroup(3);
    EXPECT_EQ(DrawOn(*session_, a, 1), 1);
    EXPECT_EQ(DrawOn(*session_, a, 1), 2);
    EXPECT_EQ(DrawOn(*session_, b, 1), 1);
    EXPECT_EQ(DrawOn(*session_, a, 2), 1);
}

TEST_P(AutoNumberTest, ByDocumentKindScopeKeepsOneCounterPerKindAcrossGroups) {
    const qint64 a = AddNumberedGroup(4);
    const qint64 b = AddNumberedGroup(4);
    EXPECT_EQ(DrawOn(*session_, a, 1, QStringLiteral("O0201503")), 1);
    EXPECT_EQ(DrawOn(*session_, b, 2, QStringLiteral("O0201503")), 2);
    EXPECT_EQ(DrawOn(*session_, a, 1, QStringLiteral("O0201504")), 1);
}

TEST_P(AutoNumberTest, ByDocumentKindAndUserScopeKeepsOneCounterPerPair) {
    const qint64 a = AddNumberedGroup(5);
    const qint64 b = AddNumberedGroup(5);
    EXPECT_EQ(DrawOn(*session_, a, 1, QStringLiteral("O0201503")), 1);
    EXPECT_EQ(DrawOn(*session_, b, 1, QStringLiteral("O0201503")), 2);
    EXPECT_EQ(DrawOn(*session_, a, 2, QStringLiteral("O0201503")), 1);
    EXPECT_EQ(DrawOn(*session_, a, 1, QStringLiteral("O0201504")), 1);
}

TEST_P(AutoNumberTest, DayCycleStartsAgainTheNextDay) {
    const qint64 g = AddNumberedGroup(1, 0);
    EXPECT_EQ(Draw(g), 1);
    EXPECT_EQ(Draw(g), 2);
    SetToday(QDate(2024, 3, 16));
    EXPECT_EQ(Draw(g), 1);
}

TEST_P(AutoNumberTest, MonthCycleRunsThroughTheMonthAndStartsAgainNextMonth) {
    const qint64 g = AddNumberedGroup(1, 1);
    EXPECT_EQ(Draw(g), 1);
    SetToday(QDate(2024, 3, 31));
    EXPECT_EQ(Draw(g), 2);
    SetToday(QDate(2024, 4, 1));
    EXPECT_EQ(Draw(g), 1);
}

TEST_P(AutoNumberTest, QuarterCycleRunsThroughTheQuarterAndStartsAgainNextQuarter) {
    const qint64 g = AddNumberedGroup(1, 2);
    SetToday(QDate(2024, 1, 2));
    EXPECT_EQ(Draw(g), 1);
    SetToday(QDate(2024, 3, 31));
    EXPECT_EQ(Draw(g), 2);
    SetToday(QDate(2024, 4, 1));
    EXPECT_EQ(Draw(g), 1);
}

TEST_P(AutoNumberTest, YearCycleRunsThroughTheYearAndStartsAgainNextYear) {
    const qint64 g = AddNumberedGroup(1, 3);
    EXPECT_EQ(Draw(g), 1);
    SetToday(QDate(2024, 12, 31));
    EXPECT_EQ(Draw(g), 2);
    SetToday(QDate(2025, 1, 1));
    EXPECT_EQ(Draw(g), 1);
}

TEST_P(AutoNumberTest, CounterNeverStartsBelowMinimal) {
    const qint64 g = AddNumberedGroup(1, 3, {{QStringLiteral("ANMinimal"), Value(100)}});
    EXPECT_EQ(Draw(g), 100);
    EXPECT_EQ(Draw(g), 101);
}

TEST_P(AutoNumberTest, BeforeDateFromNoCounterIsGiven) {
    const qint64 g =
        AddNumberedGroup(1, 3, {{QStringLiteral("ANDateFrom"), Value(QDate(2024, 3, 16))}});
    EXPECT_EQ(Draw(g), 0);
    EXPECT_EQ(Draw(g), 0);
    SetToday(QDate(2024, 3, 16));
    EXPECT_EQ(Draw(g), 1);
}

TEST_P(AutoNumberTest, MaskWithoutCounterPartDrawsNothing) {
    const qint64 g = AddGroup({{QStringLiteral("ANMask"), QStringLiteral("Date_Prefix")},
                               {QStringLiteral("ANPrefix"), QStringLiteral("KO")}});
    EXPECT_EQ(Draw(g), 0);
    EXPECT_EQ(LastCounter(session_->Db(), QStringLiteral("G%1|Y2024").arg(g)), 0);
}

TEST_P(AutoNumberTest, UnknownGroupGivesRowWithoutMask) {
    const BOResult r = Call(QStringLiteral("GetAutoNumber"), QStringLiteral("424242,1,'O0201500'"));
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    EXPECT_EQ(Rows(r.Data.toRecordset(), {QStringLiteral("AutoNumber"), QStringLiteral("ANMask")}),
              QStringList({QStringLiteral("0|")}));
}

TEST_P(AutoNumberTest, FlaggedTextNumbersPerBankAccount) {
    const qint64 g = AddNumberedGroup(1);
    EXPECT_EQ(DrawOn(*session_, g, 1, QStringLiteral("O0201501"), QStringLiteral("1,'LT01'")), 1);
    EXPECT_EQ(DrawOn(*session_, g, 1, QStringLiteral("O0201501"), QStringLiteral("1,'LT02'")), 1);
    EXPECT_EQ(DrawOn(*session_, g, 1, QStringLiteral("O0201501"), QStringLiteral("1,'LT01'")), 2);
    // Without the flag the text does not count.
    EXPECT_EQ(DrawOn(*session_, g, 1, QStringLiteral("O0201501"), QStringLiteral("0,'LT01'")), 1);
}

TEST_P(AutoNumberTest, CounterUsedByAnotherOperationOfScopeAndPeriodIsRefused) {
    const qint64 g = AddNumberedGroup(1);
    ASSERT_TRUE(SaveOperation(g, 7).ok());
    const BOResult again = SaveOperation(g, 7, QDate(2024, 6, 1));
    EXPECT_EQ(again.Code, 777);
    EXPECT_TRUE(again.Text.startsWith(
        QStringLiteral("Operacijos eilės numeris 7 jau suteiktas kitai operacijai")))
        << again.Text.toStdString();
    const QueryResult count = session_->Db().Query(
        QStringLiteral("SELECT COUNT(*) FROM BROpers WHERE BROperGroupID = ?"), {Value(double(g))});
    EXPECT_EQ(count.Scalar().toInt32(), 1);
}

TEST_P(AutoNumberTest, SameCounterInAnotherPeriodOrScopeIsAccepted) {
    const qint64 a = AddNumberedGroup(1);
    const qint64 b = AddNumberedGroup(1);
    ASSERT_TRUE(SaveOperation(a, 7).ok());
    EXPECT_TRUE(SaveOperation(a, 7, QDate(2025, 1, 5)).ok());
    EXPECT_TRUE(SaveOperation(b, 7).ok());
}

TEST_P(AutoNumberTest, SharedScopeRefusesCounterOfAnotherGroup) {
    const qint64 a = AddNumberedGroup(0);
    const qint64 b = AddNumberedGroup(0);
    ASSERT_TRUE(SaveOperation(a, 3).ok());
    EXPECT_EQ(SaveOperation(b, 3).Code, 777);
}

TEST_P(AutoNumberTest, ResavingOperationWithItsOwnCounterIsAccepted) {
    const qint64 g = AddNumberedGroup(1);
    const BOResult saved = SaveOperation(g, 5);
    ASSERT_TRUE(saved.ok()) << saved.Text.toStdString();
    const QString ref = QStringLiteral("'O0201500%1'").arg(IdOf(saved));
    const RecordsetPtr rs = Call(QStringLiteral("DO0201500_GetOrvoObject"), ref).Data.toRecordset();
    rs->MoveFirst();
    rs->SetField(QStringLiteral("Comment"), QStringLiteral("pakeista"));
    rs->Update();
    const BOResult again = Call(QStringLiteral("DO0201500_SaveOrvoObject"), ref, Value(rs));
    EXPECT_TRUE(again.ok()) << again.Text.toStdString();
}

TEST_P(AutoNumberTest, HandSetCounterAboveLastValueMovesCounterUp) {
    const qint64 g = AddNumberedGroup(1);
    EXPECT_EQ(Draw(g), 1);
    ASSERT_TRUE(SaveOperation(g, 1).ok());
    ASSERT_TRUE(SaveOperation(g, 40).ok());
    EXPECT_EQ(Draw(g), 41);
    // A hand-set counter below the last one leaves the counter where it is.
    ASSERT_TRUE(SaveOperation(g, 10).ok());
    EXPECT_EQ(Draw(g), 42);
}

TEST_P(AutoNumberTest, UserScopeChecksTheUserWhoMadeTheOperation) {
    const qint64 g = AddNumberedGroup(2);
    std::unique_ptr<HostSession> second = OpenSecondUser();
    ASSERT_TRUE(second);
    ASSERT_TRUE(SaveOperation(g, 1).ok());
    EXPECT_TRUE(SaveOperationOn(*second, g, 1, QDate(2024, 3, 15)).ok());
    EXPECT_EQ(SaveOperationOn(*second, g, 1, QDate(2024, 3, 15)).Code, 777);
}

TEST_P(AutoNumberTest, TwoSessionsDrawingAndSavingFromTwoThreadsNeverRepeatANumber) {
    const qint64 g = AddNumberedGroup(1);
    std::unique_ptr<HostSession> second = OpenSecondUser();
    ASSERT_TRUE(second);
    constexpr int kEach = 20;
    QVector<qint32> drawnA;
    QVector<qint32> drawnB;
    QStringList failures;
    std::mutex failuresLock;
    auto work = [&](HostSession* session, QVector<qint32>* drawn) {
        for (int i = 0; i < kEach; ++i) {
            const BOResult r = session->BO()->Call(
                QStringLiteral("GetAutoNumber"),
                QStringLiteral("%1,%2,'O0201500',0,''").arg(g).arg(session->User().ID), Value());
            const RecordsetPtr rs = r.Data.toRecordset();
            if (!r.ok() || !rs) {
                std::lock_guard<std::mutex> lock(failuresLock);
                failures << r.Text;
                continue;
            }
            rs->MoveFirst();
            const qint32 n = rs->Field(QStringLiteral("AutoNumber")).toInt32();
            drawn->append(n);
            const BOResult saved = SaveOperationOn(*session, g, n, QDate(2024, 3, 15));
            if (!saved.ok()) {
                std::lock_guard<std::mutex> lock(failuresLock);
                failures << saved.Text;
            }
        }
    };
    std::thread one(work, session_.get(), &drawnA);
    std::thread two(work, second.get(), &drawnB);
    one.join();
    two.join();
    EXPECT_TRUE(failures.isEmpty()) << failures.join(QLatin1Char('\n')).toStdString();
    QSet<qint32> all;
    for (qint32 n : drawnA + drawnB)
        all.insert(n);
    EXPECT_EQ(all.size(), 2 * kEach);
    for (int n = 1; n <= 2 * kEach; ++n)
        EXPECT_TRUE(all.contains(n)) << n;
    const QueryResult stored = session_->Db().Query(
        QStringLiteral("SELECT COUNT(DISTINCT AutoNumber) FROM BROpers WHERE BROperGroupID = ?"),
        {Value(double(g))});
    EXPECT_EQ(stored.Scalar().toInt32(), 2 * kEach);
}

ORVO_STORAGE_BACKENDS(AutoNumberTest);

} // namespace
} // namespace orvo::host::testing
