// The worked example of the script protocol: a customer's payment posted as two entries,
// one in US dollars and one in pounds, saved, and read back by a second run of
// `orvo script`, on each backend. The steps are the ones the documentation shows.
#include "cli_fixture.h"

#include <QJsonArray>

namespace orvo::cli_test {
namespace {

class TwoCurrencyOperationTest : public CliBookTest {};

const QStringList kBuildAndSave = {
    R"({"op":"new","code":"O0201500","as":"o"})",
    R"({"op":"set","obj":"o","fields":{"DateD":"2024-03-15","Comment":"Pirkėjo mokėjimas"}})",
    R"({"op":"methods","obj":"o","name":"AddBR","params":["2712","2410",100,[-1,"O00001004","UAB Šiaurės vėjas"],1,"USD",0.92,0,"   ",0,"Sąskaita 17 doleriais","",""]})",
    R"({"op":"methods","obj":"o","name":"AddBR","params":["2712","2410",80,[-1,"O00001004","UAB Šiaurės vėjas"],1,"GBP",1.15,0,"   ",0,"Sąskaita 18 svarais","",""]})",
    R"({"op":"save","obj":"o"})",
};

QJsonArray rowsOf(const QJsonObject& reply) {
    return reply.value("Value").toObject().value("rows").toArray();
}

TEST_P(TwoCurrencyOperationTest, PaymentInDollarsAndPoundsIsSavedAndReadBackToTheCent) {
    InitBook(true);
    const CliRun saved = Script(kBuildAndSave);
    ASSERT_EQ(saved.ExitCode, 0) << saved.ErrText().toStdString();
    ASSERT_EQ(saved.Replies.size(), 5);
    const QString oidr = saved.Replies[4].value("OIDR").toString();
    ASSERT_TRUE(oidr.startsWith(QStringLiteral("O0201500"))) << oidr.toStdString();
    ASSERT_GT(oidr.size(), 8);

    const CliRun read = Script({
        QStringLiteral(R"({"op":"get","oidr":"%1","as":"r"})").arg(oidr),
        R"({"op":"rows","obj":"r","path":"BR"})",
        R"({"op":"rows","obj":"r","path":"BR/0/BRCurrency"})",
        R"({"op":"rows","obj":"r","path":"BR/1/BRCurrency"})",
        R"({"op":"rows","obj":"r","path":"BR/1/BRProperties"})",
    });
    ASSERT_EQ(read.ExitCode, 0) << read.ErrText().toStdString();
    ASSERT_EQ(read.Replies.size(), 5);

    const QJsonArray entries = rowsOf(read.Replies[1]);
    ASSERT_EQ(entries.size(), 2);
    // 100 dollars at 0.92 and 80 pounds at 1.15 are both 92.00 euros.
    for (const QJsonValue& e : entries) {
        EXPECT_EQ(e["AccountD"].toString(), QStringLiteral("2712"));
        EXPECT_EQ(e["AccountC"].toString(), QStringLiteral("2410"));
        EXPECT_DOUBLE_EQ(e["SumA"].toDouble(), 92.0);
        EXPECT_EQ(e["DateD"].toString(), QStringLiteral("2024-03-15"));
    }
    EXPECT_EQ(entries[0]["Info"].toString(), QStringLiteral("Sąskaita 17 doleriais"));
    EXPECT_DOUBLE_EQ(entries[0]["CurrencyRateD"].toDouble(), 1.086957);
    EXPECT_DOUBLE_EQ(entries[1]["CurrencyRateD"].toDouble(), 0.869565);

    const QJsonArray dollars = rowsOf(read.Replies[2]);
    ASSERT_EQ(dollars.size(), 1);
    EXPECT_EQ(dollars[0]["FCurrencyCode"].toString(), QStringLiteral("USD"));
    EXPECT_DOUBLE_EQ(dollars[0]["SumCurr"].toDouble(), 100.0);
    EXPECT_DOUBLE_EQ(dollars[0]["RateCurr"].toDouble(), 0.92);
    EXPECT_EQ(dollars[0]["Sign"].toInt(), 1);

    const QJsonArray pounds = rowsOf(read.Replies[3]);
    ASSERT_EQ(pounds.size(), 1);
    EXPECT_EQ(pounds[0]["FCurrencyCode"].toString(), QStringLiteral("GBP"));
    EXPECT_DOUBLE_EQ(pounds[0]["SumCurr"].toDouble(), 80.0);
    EXPECT_DOUBLE_EQ(pounds[0]["RateCurr"].toDouble(), 1.15);

    const QJsonArray customer = rowsOf(read.Replies[4]);
    ASSERT_EQ(customer.size(), 1);
    EXPECT_EQ(customer[0]["FOIDR"].toString(), QStringLiteral("O00001004"));
    EXPECT_EQ(customer[0]["Sign"].toInt(), -1);
    EXPECT_EQ(customer[0]["ShowString"].toString(), QStringLiteral("UAB Šiaurės vėjas"));
}

ORVO_CLI_BACKENDS(TwoCurrencyOperationTest);

} // namespace
} // namespace orvo::cli_test
