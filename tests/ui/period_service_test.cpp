// The view period without windows: its text as the settings keep it and GetOldPeriod
// answers it, the bounds a dated list is read with, the shell operations GetOldPeriod
// and GetNewPeriod over the user's settings with the question answered by the test,
// and the group navigator reading a screen of the period's operations.
#include "period_fixture.h"

#include "accounts/group_navigator.h"
#include "ui/shell/period_service.h"

namespace orvo::ui::testing {

namespace {

TEST(ViewPeriodText, BothSidesAreWrittenAsDatesJoinedBySemicolon) {
    ViewPeriod p;
    p.From = QDate(2024, 1, 1);
    p.To = QDate(2024, 3, 31);
    EXPECT_EQ(p.Text(), QStringLiteral("2024.01.01;2024.03.31"));
    EXPECT_EQ(ViewPeriod::FromText(p.Text()), p);
}

TEST(ViewPeriodText, AnEmptySideIsNoBound) {
    const ViewPeriod from = ViewPeriod::FromText(QStringLiteral("2024.01.01;"));
    EXPECT_EQ(from.From, QDate(2024, 1, 1));
    EXPECT_TRUE(from.To.isNull());
    EXPECT_EQ(from.Text(), QStringLiteral("2024.01.01;"));
    const ViewPeriod to = ViewPeriod::FromText(QStringLiteral(";2024.12.31"));
    EXPECT_TRUE(to.From.isNull());
    EXPECT_EQ(to.To, QDate(2024, 12, 31));
    EXPECT_FALSE(to.IsOpen());
}

TEST(ViewPeriodText, NothingStoredOrNoDatesIsAnOpenPeriod) {
    EXPECT_TRUE(ViewPeriod::FromText(QString()).IsOpen());
    EXPECT_TRUE(ViewPeriod::FromText(QStringLiteral("vakar;rytoj")).IsOpen());
    EXPECT_EQ(ViewPeriod().Text(), QStringLiteral(";"));
}

TEST(ViewPeriodText, AStartAfterTheEndIsRefusedAndOneDayIsTaken) {
    ViewPeriod p;
    p.From = QDate(2024, 2, 1);
    p.To = QDate(2024, 1, 31);
    EXPECT_FALSE(p.Refusal().isEmpty());
    p.To = p.From;
    EXPECT_TRUE(p.Refusal().isEmpty());
}

TEST(ViewPeriodText, ListBoundsCarryTheDateAndThePosition) {
    ViewPeriod p;
    p.From = QDate(2024, 1, 1);
    EXPECT_EQ(p.ListFrom(1), QStringLiteral("2024.01.01;1"));
    EXPECT_EQ(p.ListTo(100), QStringLiteral(";100"));
}

TEST(GroupListBounds, ADateAPositionOrBothAreRead) {
    const auto date = UI0201400::ParseListBound(QStringLiteral("2024.01.01"));
    EXPECT_EQ(date.Date, QStringLiteral("2024.01.01"));
    EXPECT_EQ(date.Position, 0);
    const auto position = UI0201400::ParseListBound(QStringLiteral("101"));
    EXPECT_TRUE(position.Date.isEmpty());
    EXPECT_EQ(position.Position, 101);
    const auto both = UI0201400::ParseListBound(QStringLiteral("2024.01.01;101"));
    EXPECT_EQ(both.Date, QStringLiteral("2024.01.01"));
    EXPECT_EQ(both.Position, 101);
    const auto positionOnly = UI0201400::ParseListBound(QStringLiteral(";100"));
    EXPECT_TRUE(positionOnly.Date.isEmpty());
    EXPECT_EQ(positionOnly.Position, 100);
    const auto none = UI0201400::ParseListBound(QString());
    EXPECT_TRUE(none.Date.isEmpty());
    EXPECT_EQ(none.Position, 0);
}

class PeriodServiceTest : public PeriodTest {
protected:
    // A service over the session's settings whose question is answered by `answer`.
    std::shared_ptr<PeriodService> Service(std::optional<ViewPeriod> answer) {
        auto service = std::make_shared<PeriodService>(session_->Services()->SettingsService(),
                                                       [this, answer](const ViewPeriod& current) {
                                                           asked_.append(current);
                                                           return answer;
                                                       });
        service->OnChanged = [this](const ViewPeriod& p) { changed_.append(p); };
        PeriodService::Connect(service, *session_->Shell());
        return service;
    }

    ViewPeriod Between(const QDate& from, const QDate& to) {
        ViewPeriod p;
        p.From = from;
        p.To = to;
        return p;
    }

    QList<ViewPeriod> asked_;
    QList<ViewPeriod> changed_;
};

TEST_F(PeriodServiceTest, GetOldPeriodWithNothingStoredAnswersTwoEmptyBounds) {
    const auto service = Service(std::nullopt);
    const ValueResult r = Shell(QStringLiteral("GetOldPeriod"));
    ASSERT_EQ(r.Code, 0) << r.Text.toStdString();
    EXPECT_EQ(r.Value.toString(), QStringLiteral(";"));
    EXPECT_TRUE(asked_.isEmpty());
}

TEST_F(PeriodServiceTest, GetNewPeriodStoresTheAnswerInTheUsersSettingsAndTellsTheTree) {
    const ViewPeriod wanted = Between(QDate(2024, 1, 1), QDate(2024, 6, 30));
    const auto service = Service(wanted);
    const ValueResult r = Shell(QStringLiteral("GetNewPeriod"));
    ASSERT_EQ(r.Code, 0) << r.Text.toStdString();
    EXPECT_EQ(r.Value.toString(), QStringLiteral("2024.01.01;2024.06.30"));
    EXPECT_EQ(StoredPeriod(), QStringLiteral("2024.01.01;2024.06.30"));
    ASSERT_EQ(changed_.size(), 1);
    EXPECT_EQ(changed_.first(), wanted);
    EXPECT_EQ(Shell(QStringLiteral("GetOldPeriod")).Value.toString(),
              QStringLiteral("2024.01.01;2024.06.30"));
}

TEST_F(PeriodServiceTest, TheQuestionStartsFromThePeriodInForce) {
    const ViewPeriod first = Between(QDate(2024, 1, 1), QDate());
    Service(first)->GetNewPeriod();
    const auto again = Service(std::nullopt);
    again->GetNewPeriod();
    ASSERT_EQ(asked_.size(), 2);
    EXPECT_TRUE(asked_.at(0).IsOpen());
    EXPECT_EQ(asked_.at(1), first);
}

TEST_F(PeriodServiceTest, ACancelledQuestionChangesNothing) {
    Service(Between(QDate(2024, 1, 1), QDate(2024, 1, 31)))->GetNewPeriod();
    changed_.clear();
    const auto service = Service(std::nullopt);
    const ValueResult r = Shell(QStringLiteral("GetNewPeriod"));
    EXPECT_EQ(r.Code, 0);
    EXPECT_EQ(r.Value.toString(), QStringLiteral("2024.01.01;2024.01.31"));
    EXPECT_EQ(StoredPeriod(), QStringLiteral("2024.01.01;2024.01.31"));
    EXPECT_TRUE(changed_.isEmpty());
}

TEST_F(PeriodServiceTest, APeriodThatEndsBeforeItStartsIsNeitherStoredNorTold) {
    const auto service = Service(Between(QDate(2024, 2, 1), QDate(2024, 1, 1)));
    const ValueResult r = Shell(QStringLiteral("GetNewPeriod"));
    EXPECT_EQ(r.Code, codes::Refused);
    EXPECT_TRUE(StoredPeriod().isEmpty());
    EXPECT_TRUE(changed_.isEmpty());
}

TEST_F(PeriodServiceTest, ThePeriodIsKeptForTheNextSessionAndItsTreeReadsWithinIt) {
    const ViewPeriod wanted = Between(days_.at(1), days_.at(days_.size() - 2));
    Service(wanted)->GetNewPeriod();
    window_.reset();
    session_.reset();
    host::SessionResult r = host::HostSession::Open(location_);
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    session_ = std::move(r.Session);
    window_ = std::make_unique<MainWindow>(*session_);
    EXPECT_EQ(Tree().Period(), wanted);
    QTreeWidgetItem* row = GroupRow();
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(Operations(row), OperationsBetween(Day(wanted.From), Day(wanted.To)));
}

TEST_F(PeriodServiceTest, GroupNavigatorReadsAScreenOfThePeriodsOperationsAtATime) {
    ViewPeriod p = Between(days_.at(1), QDate());
    const QStringList all = OperationsBetween(Day(p.From), QString());
    ASSERT_GE(all.size(), 2);
    EXPECT_LT(all.size(), OperationsBetween(QString(), QString()).size());
    // The group has no subgroups in the demo book when its list starts with operations.
    const RecordsetPtr whole = Groups()->GetOrvoObjectList(GroupOid(), QString(), QString());
    ASSERT_TRUE(whole);
    whole->MoveFirst();
    ASSERT_FALSE(
        whole->Field(QStringLiteral("OIDR")).toString().startsWith(QLatin1String("O0201400")));
    const QStringList first =
        Operations(Groups()->GetOrvoObjectList(GroupOid(), p.ListFrom(1), p.ListTo(1)));
    EXPECT_EQ(first, all.mid(0, 1));
    const QStringList rest = Operations(
        Groups()->GetOrvoObjectList(GroupOid(), p.ListFrom(2), p.ListTo(all.size() + 5)));
    EXPECT_EQ(rest, all.mid(1));
}

} // namespace

} // namespace orvo::ui::testing
