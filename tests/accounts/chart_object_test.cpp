// UIO0200400 with the real host on both backends: Parent, Class and NewAccount, the
// forwarded role queries, the chart's Methods, and the save result numbers as the data
// object returns them.
#include "chart_fixture.h"

#include "core/recordset.h"

namespace orvo {
namespace {

using accounts_testing::ChartTest;

class ChartObjectTest : public ChartTest {
protected:
    void SmallChart() {
        cls_ = Add(0, QStringLiteral("2"), QStringLiteral("Trumpalaikis turtas"));
        acc_ = Add(cls_, QStringLiteral("27"), QStringLiteral("Pinigai"));
        sub_ = Add(acc_, QStringLiteral("2711"), QStringLiteral("Sąskaitos bankuose"));
    }
    static QString Number(const ValueResult& r) {
        const ObjectPtr o = r.Value.toObject();
        const auto uio = std::dynamic_pointer_cast<OrvoObjectUIO>(o);
        return uio ? uio->Field(QStringLiteral("Account")).toString() : QString();
    }
    qint64 cls_ = 0, acc_ = 0, sub_ = 0;
};

TEST_P(ChartObjectTest, ParentIsTheDataObjectOfTheParentRecord) {
    SmallChart();
    EXPECT_EQ(Number(Object(sub_)->Properties(QStringLiteral("Parent"), QString())),
              QStringLiteral("27"));
    EXPECT_EQ(Number(Object(acc_)->Properties(QStringLiteral("Parent"), QString())),
              QStringLiteral("2"));
    const ValueResult none = Object(cls_)->Properties(QStringLiteral("Parent"), QString());
    EXPECT_EQ(none.Code, 0);
    EXPECT_TRUE(none.Value.isNull());
}

TEST_P(ChartObjectTest, ClassIsTheClassAboveTheRecord) {
    SmallChart();
    EXPECT_EQ(Number(Object(sub_)->Properties(QStringLiteral("Class"), QString())),
              QStringLiteral("2"));
    EXPECT_EQ(Number(Object(acc_)->Properties(QStringLiteral("Class"), QString())),
              QStringLiteral("2"));
    EXPECT_TRUE(Object(cls_)->Properties(QStringLiteral("Class"), QString()).Value.isNull());
}

TEST_P(ChartObjectTest, AccountMissingFromTheChartGivesAnEmptyResultAndNoMessage) {
    SmallChart();
    OrvoObjectUIOPtr object = Object(sub_);
    object->SetField(QStringLiteral("ParentID"), Value(double(987654)));
    for (const char* name : {"Parent", "Class"}) {
        const ValueResult r = object->Properties(QString::fromLatin1(name), QString());
        EXPECT_EQ(r.Code, 0) << name;
        EXPECT_TRUE(r.Value.isNull()) << name;
    }
    EXPECT_TRUE(Shown().isEmpty());
}

TEST_P(ChartObjectTest, NewAccountGivesNumberAndNameOfTheMatchingAccount) {
    SmallChart();
    const qint64 target =
        Add(cls_, QStringLiteral("2410"), QStringLiteral("Pirkėjų įsiskolinimai"));
    OrvoObjectUIOPtr object = Object(sub_);
    EXPECT_EQ(object->Properties(QStringLiteral("NewAccount"), QString()).Value.toString(),
              QString());
    object->SetField(QStringLiteral("NewID"), Value(double(target)));
    EXPECT_EQ(object->Properties(QStringLiteral("NewAccount"), QString()).Value.toString(),
              QStringLiteral("2410 Pirkėjų įsiskolinimai"));
}

TEST_P(ChartObjectTest, DeletedMatchingAccountClearsNewIdWhenRead) {
    SmallChart();
    const qint64 target =
        Add(cls_, QStringLiteral("2410"), QStringLiteral("Pirkėjų įsiskolinimai"));
    OrvoObjectUIOPtr object = Object(sub_);
    object->SetField(QStringLiteral("NewID"), Value(double(target)));
    ASSERT_TRUE(object->Save().ok());
    ASSERT_TRUE(navigator_->DeleteOrvoObject(QStringLiteral("O0200401%1").arg(target)));
    object = Object(sub_);
    EXPECT_FALSE(object->Field(QStringLiteral("NewID")).isNull());
    EXPECT_EQ(object->Properties(QStringLiteral("NewAccount"), QString()).Value.toString(),
              QString());
    EXPECT_TRUE(object->Field(QStringLiteral("NewID")).isNull());
}

TEST_P(ChartObjectTest, RolesAndTheirHoldersAreForwardedToTheBusinessObject) {
    SmallChart();
    OrvoObjectUIOPtr object = Object(sub_);
    const ValueResult roles = object->Properties(QStringLiteral("BRASettings"), QString());
    ASSERT_EQ(roles.Code, 0) << roles.Text.toStdString();
    const RecordsetPtr rs = roles.Value.toRecordset();
    ASSERT_TRUE(rs);
    EXPECT_GE(rs->RecordCount(), 9);
    const ValueResult holders = object->Properties(QStringLiteral("BRAProperties"), QString());
    ASSERT_EQ(holders.Code, 0);
    EXPECT_TRUE(holders.Value.toRecordset()->HasField(QStringLiteral("Account")));
}

TEST_P(ChartObjectTest, UnknownPropertyShowsTheRefusalAsAWarning) {
    SmallChart();
    const ValueResult r = Object(sub_)->Properties(QStringLiteral("NoSuchThing"), QString());
    EXPECT_NE(r.Code, 0);
    EXPECT_EQ(Shown().size(), 1);
}

TEST_P(ChartObjectTest, MoveAccountDownTakesExactlyOneParameter) {
    SmallChart();
    const ValueResult r = Object(acc_)->Methods(QStringLiteral("moveaccountdown"), {});
    EXPECT_EQ(r.Code, 777);
    EXPECT_EQ(r.Text, QStringLiteral("Method MoveAccountDown:\nKlaidingi parametrai !"));
}

TEST_P(ChartObjectTest, MoveAccountDownMakesTheSubaccount) {
    SmallChart();
    OrvoObjectUIOPtr object = Object(sub_);
    const ValueResult r =
        object->Methods(QStringLiteral("MoveAccountDown"), {object->Field(QStringLiteral("ID"))});
    ASSERT_EQ(r.Code, 0) << r.Text.toStdString();
    const RecordsetPtr rows =
        navigator_->GetOrvoObjectList(QStringLiteral("O0200401%1").arg(sub_), {}, {});
    ASSERT_TRUE(rows);
    ASSERT_EQ(rows->RecordCount(), 1);
    rows->MoveFirst();
    EXPECT_EQ(rows->Field(QStringLiteral("Account")).toString(), QStringLiteral("27111"));
}

TEST_P(ChartObjectTest, RefusedMethodShowsItsTextAsAWarning) {
    SmallChart();
    OrvoObjectUIOPtr object = Object(cls_);
    const ValueResult r =
        object->Methods(QStringLiteral("MoveAccountDown"), {object->Field(QStringLiteral("ID"))});
    EXPECT_EQ(r.Code, 777);
    const QList<host::RecordedMessage> shown = session_->Messages()->Take();
    ASSERT_EQ(shown.size(), 1);
    EXPECT_EQ(shown.first().Kind, MessageKind::Warning);
    EXPECT_EQ(shown.first().Text, r.Text);
}

TEST_P(ChartObjectTest, SaveReturnsTheChartsResultNumbers) {
    SmallChart();
    // 3604: the number is taken.
    OrvoObjectUIOPtr twin = navigator_->GetOrvoObject(QString());
    twin->SetField(QStringLiteral("ParentID"), Value(double(acc_)));
    twin->SetField(QStringLiteral("Account"), QStringLiteral("2711"));
    twin->SetField(QStringLiteral("Name"), QStringLiteral("Dvynė"));
    EXPECT_EQ(twin->Save().Code, 3604);
    // 1: the parent is gone.
    OrvoObjectUIOPtr orphan = navigator_->GetOrvoObject(QString());
    orphan->SetField(QStringLiteral("ParentID"), Value(double(987654)));
    orphan->SetField(QStringLiteral("Account"), QStringLiteral("2799"));
    orphan->SetField(QStringLiteral("Name"), QStringLiteral("Našlaitė"));
    EXPECT_EQ(orphan->Save().Code, 1);
    // 547: the role is gone.
    OrvoObjectUIOPtr roleless = Object(sub_);
    roleless->SetField(QStringLiteral("BRAPropertyID"), Value(double(987654)));
    EXPECT_EQ(roleless->Save().Code, 547);
    // 32: the record is gone.
    OrvoObjectUIOPtr gone = Object(sub_);
    ASSERT_TRUE(navigator_->DeleteOrvoObject(QStringLiteral("O0200401%1").arg(sub_)));
    gone->SetField(QStringLiteral("Name"), QStringLiteral("Pakeista"));
    EXPECT_EQ(gone->Save().Code, 32);
}

TEST_P(ChartObjectTest, NewAccountRepeatingItsParentsNumberIsNotStored) {
    SmallChart();
    OrvoObjectUIOPtr object = navigator_->GetOrvoObject(QString());
    object->SetField(QStringLiteral("ParentID"), Value(double(acc_)));
    object->SetField(QStringLiteral("Account"), QStringLiteral("27"));
    object->SetField(QStringLiteral("Name"), QStringLiteral("Kopija"));
    const ResultRecord r = object->Save();
    EXPECT_EQ(r.Code, 777);
    EXPECT_EQ(r.Text, QStringLiteral("Nenurodytas sąskaitos numeris"));
    EXPECT_LT(object->OIDR().size(), 9);
}

ORVO_STORAGE_BACKENDS(ChartObjectTest);

} // namespace
} // namespace orvo
