// The demo chart on both backends: classes 1 to 6, every role held, the demands of the
// receivable and payable accounts, and a second run refused.
#include "accounts_fixture.h"

#include "host/demo/demo_chart.h"

namespace orvo::host {
namespace {

using testing::AccountsTest;

class DemoChartTest : public AccountsTest {};

TEST_P(DemoChartTest, DemoChartHasClassesOneToSix) {
    ASSERT_TRUE(CreateDemoChart(session_->Db()).ok());
    const BOResult r =
        Call(QStringLiteral("DO0200400_GetOrvoObjectList"), QStringLiteral("'O0200400','',''"));
    EXPECT_EQ(Rows(r.Data.toRecordset(), {QStringLiteral("Account")}),
              (QStringList{"1", "2", "3", "4", "5", "6"}));
}

TEST_P(DemoChartTest, DemoChartHoldsEveryRole) {
    ASSERT_TRUE(CreateDemoChart(session_->Db()).ok());
    const QStringList rows = Rows(Call(QStringLiteral("GetPresetAccounts")).Data.toRecordset(),
                                  {QStringLiteral("Code"), QStringLiteral("Account")});
    for (const char* row : {"2710|2711", "2720|2720", "240|2410", "220|2420", "450|4430",
                            "460|4480", "39|340", "536|5803", "636|6803"})
        EXPECT_TRUE(rows.contains(QString::fromLatin1(row))) << row;
}

TEST_P(DemoChartTest, DemoReceivableDemandsAFirmOnItsDebitSide) {
    ASSERT_TRUE(CreateDemoChart(session_->Db()).ok());
    BOResult r = Call(QStringLiteral("GetBRRequiredAddr"), QStringLiteral("'2410','5000'"));
    EXPECT_EQ(Rows(r.Data.toRecordset(), {QStringLiteral("Sign"), QStringLiteral("FOID")}),
              QStringList{"1|O0000100"});
    r = Call(QStringLiteral("GetBRRequiredAddr"), QStringLiteral("'6000','4430'"));
    EXPECT_EQ(Rows(r.Data.toRecordset(), {QStringLiteral("Sign"), QStringLiteral("FOID")}),
              QStringList{"-1|O0000100"});
    r = Call(QStringLiteral("GetEnabledAddressee"), QStringLiteral("'2711'"));
    EXPECT_TRUE(
        Rows(r.Data.toRecordset(), {QStringLiteral("FOID")}).contains(QStringLiteral("O0000500")));
}

TEST_P(DemoChartTest, DemoAccountsFollowTheNumberingRule) {
    ASSERT_TRUE(CreateDemoChart(session_->Db()).ok());
    const RecordsetPtr all =
        Call(QStringLiteral("GetAccountList"), QStringLiteral("'All'")).Data.toRecordset();
    QHash<qint64, QString> numbers;
    for (all->MoveFirst(); !all->Eof(); all->MoveNext())
        numbers.insert(static_cast<qint64>(all->Field(QStringLiteral("ID")).toDouble()),
                       all->Field(QStringLiteral("Account")).toString());
    int children = 0;
    for (all->MoveFirst(); !all->Eof(); all->MoveNext()) {
        if (all->Field(QStringLiteral("ParentID")).isNull())
            continue;
        const QString parent =
            numbers.value(static_cast<qint64>(all->Field(QStringLiteral("ParentID")).toDouble()));
        const QString own = all->Field(QStringLiteral("Account")).toString();
        EXPECT_TRUE(own.startsWith(parent) && own.size() > parent.size()) << own.toStdString();
        ++children;
    }
    EXPECT_GT(children, 15);
    EXPECT_EQ(Rows(Call(QStringLiteral("GetAccount"), QStringLiteral("'340'")).Data.toRecordset(),
                   {QStringLiteral("Name"), QStringLiteral("Type")}),
              QStringList{QStringLiteral("Nepaskirstytasis pelnas|K")});
}

TEST_P(DemoChartTest, SecondDemoChartIsRefusedAndChangesNothing) {
    ASSERT_TRUE(CreateDemoChart(session_->Db()).ok());
    const int before =
        session_->Db().Query(QStringLiteral("SELECT COUNT(*) FROM Accounts")).Scalar().toInt32();
    EXPECT_EQ(CreateDemoChart(session_->Db()).Code, 777);
    EXPECT_EQ(
        session_->Db().Query(QStringLiteral("SELECT COUNT(*) FROM Accounts")).Scalar().toInt32(),
        before);
}

ORVO_STORAGE_BACKENDS(DemoChartTest);

} // namespace
} // namespace orvo::host
