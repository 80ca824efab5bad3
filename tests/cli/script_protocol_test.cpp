// The protocol of `orvo script` through the real program: a line that cannot be run
// gets an error reply and the script goes on; boxes are reported by "messages" and
// questions, inputs and picks are answered by "answer"; nested fields are set by path.
#include "cli_fixture.h"

#include <QJsonArray>

namespace orvo::cli_test {
namespace {

class ScriptProtocolTest : public CliBookTest {};

TEST_P(ScriptProtocolTest, MalformedLinesGetErrorRepliesAndTheScriptGoesOn) {
    InitBook(false);
    const CliRun run = Script({
        R"(this is not JSON)",
        R"([1, 2, 3])",
        R"({"ops":"today"})",
        R"({"op":"fly"})",
        R"({"op":"today","date":"2024-03-15","id":7})",
        R"({"op":"fields","obj":"nobody"})",
        R"({"op":"catalogue","name":"FirstWord","params":["2410 Pirkėjų skolos"]})",
    });
    // A step failed, so the program says so in its exit status.
    EXPECT_EQ(run.ExitCode, 1);
    ASSERT_EQ(run.Replies.size(), 7) << run.OutText().toStdString();
    for (int i : {0, 1, 2, 3, 5}) {
        EXPECT_FALSE(run.Replies[i].value("ok").toBool(true)) << i;
        EXPECT_FALSE(run.Replies[i].value("error").toString().isEmpty()) << i;
    }
    EXPECT_TRUE(run.Replies[0].value("error").toString().contains(QStringLiteral("JSON")));
    EXPECT_TRUE(run.Replies[2].value("error").toString().contains(QStringLiteral("op")));
    EXPECT_TRUE(run.Replies[3].value("error").toString().contains(QStringLiteral("fly")));
    EXPECT_TRUE(run.Replies[5].value("error").toString().contains(QStringLiteral("nobody")));
    EXPECT_TRUE(run.Replies[4].value("ok").toBool());
    EXPECT_EQ(run.Replies[4].value("Value").toString(), QStringLiteral("2024-03-15"));
    EXPECT_EQ(run.Replies[4].value("id").toInt(), 7);
    EXPECT_EQ(run.Replies[6], (QJsonObject{{"ok", true}, {"Value", "2410"}}));
    // Each failed line is told on standard error with its number.
    EXPECT_TRUE(run.ErrText().contains(QStringLiteral("eilutė 1:"))) << run.ErrText().toStdString();
    EXPECT_TRUE(run.ErrText().contains(QStringLiteral("eilutė 4:")));
    EXPECT_FALSE(run.ErrText().contains(QStringLiteral("eilutė 5:")));
}

TEST_P(ScriptProtocolTest, BlankLinesGetNoReplyAndEveryOtherLineOne) {
    InitBook(false);
    const CliRun run = RunOrvo({QStringLiteral("script"), Book()},
                               "\n{\"op\":\"today\"}\n   \n{\"op\":\"today\"}");
    EXPECT_EQ(run.ExitCode, 0) << run.ErrText().toStdString();
    EXPECT_EQ(run.Replies.size(), 2);
    EXPECT_EQ(run.Out.count('\n'), 2);
}

TEST_P(ScriptProtocolTest, MessagesReportTheWarningOfAFailedQuery) {
    InitBook(false);
    const CliRun run = Script({
        R"({"op":"messages"})",
        R"({"op":"new","code":"O0000100","as":"f"})",
        R"({"op":"properties","obj":"f","name":"NoSuchQuery","params":""})",
        R"({"op":"messages"})",
        R"({"op":"messages"})",
    });
    ASSERT_EQ(run.Replies.size(), 5) << run.OutText().toStdString();
    EXPECT_EQ(run.Replies[0].value("Value").toArray().size(), 0);
    const QJsonObject failed = run.Replies[2];
    EXPECT_FALSE(failed.value("ok").toBool(true));
    EXPECT_NE(failed.value("Code").toInt(0), 0);
    EXPECT_FALSE(failed.value("Text").toString().isEmpty());
    const QJsonArray boxes = run.Replies[3].value("Value").toArray();
    ASSERT_EQ(boxes.size(), 1) << run.OutText().toStdString();
    EXPECT_EQ(boxes.at(0)["kind"].toString(), QStringLiteral("warning"));
    EXPECT_EQ(boxes.at(0)["title"].toString(), QStringLiteral("Orvo Apskaita"));
    EXPECT_EQ(boxes.at(0)["text"].toString(), failed.value("Text").toString());
    // The record is emptied by reading it.
    EXPECT_EQ(run.Replies[4].value("Value").toArray().size(), 0);
}

TEST_P(ScriptProtocolTest, AnswersGoToTheInputBoxAndTheQuestionInTurn) {
    InitBook(false);
    const CliRun run = Script({
        R"({"op":"new","code":"O0201500","as":"o"})",
        R"({"op":"answer","input":["12"],"yes":[true]})",
        R"({"op":"methods","obj":"o","name":"CheckAutoNumber","params":[]})",
        R"({"op":"messages"})",
        R"({"op":"answer","input":["13"],"yes":[false]})",
        R"({"op":"methods","obj":"o","name":"CheckAutoNumber"})",
        R"({"op":"answer","input":[null]})",
        R"({"op":"methods","obj":"o","name":"CheckAutoNumber"})",
        R"({"op":"fields","obj":"o"})",
        R"({"op":"messages"})",
    });
    ASSERT_EQ(run.Replies.size(), 10) << run.OutText().toStdString();
    EXPECT_TRUE(run.Replies[0].value("ok").toBool()) << run.OutText().toStdString();
    EXPECT_EQ(run.Replies[1].value("queued").toInt(), 2);
    EXPECT_TRUE(run.Replies[2].value("ok").toBool()) << run.OutText().toStdString();
    EXPECT_EQ(run.Replies[2].value("Value"), QJsonValue(true));
    const QJsonArray boxes = run.Replies[3].value("Value").toArray();
    ASSERT_EQ(boxes.size(), 1);
    EXPECT_EQ(boxes.at(0)["kind"].toString(), QStringLiteral("question"));
    EXPECT_EQ(boxes.at(0)["text"].toString(),
              QStringLiteral("Pakeisti operacijos eilės numerį į 12?"));
    EXPECT_EQ(boxes.at(0)["answer"], QJsonValue(true));
    const QJsonArray asked = run.Replies[3].value("asked").toArray();
    ASSERT_EQ(asked.size(), 1);
    EXPECT_TRUE(asked[0].toString().startsWith(QStringLiteral("input ")));
    // Answered No, and then cancelled: the number stays 12.
    EXPECT_EQ(run.Replies[5].value("Value"), QJsonValue(false));
    EXPECT_EQ(run.Replies[7].value("Value"), QJsonValue(false));
    EXPECT_EQ(run.Replies[8].value("Value")["AutoNumber"].toInt(), 12);
    const QJsonArray later = run.Replies[9].value("Value").toArray();
    ASSERT_EQ(later.size(), 1);
    EXPECT_EQ(later.at(0)["answer"], QJsonValue(false));
}

TEST_P(ScriptProtocolTest, PicksAnswerTheObjectPickerAndNoneLeftMeansCancel) {
    InitBook(false);
    const CliRun run = Script({
        R"({"op":"answer","pick":["O00001001_UAB Ąžuolas"]})",
        R"({"op":"catalogue","name":"SelectAddressee","params":["O0000100","Įmonė","",""]})",
        R"({"op":"catalogue","name":"SelectAddressee","params":["O0000100","Įmonė","",""]})",
        R"({"op":"messages"})",
    });
    ASSERT_EQ(run.Replies.size(), 4) << run.OutText().toStdString();
    EXPECT_EQ(run.Replies[1].value("Value").toString(), QStringLiteral("O00001001_UAB Ąžuolas"));
    EXPECT_EQ(run.Replies[2].value("Value").toString(), QString());
    EXPECT_EQ(run.Replies[3].value("asked").toArray().size(), 2);
}

TEST_P(ScriptProtocolTest, SetWritesNestedFieldsByPathAndByRow) {
    InitBook(false);
    const CliRun run = Script({
        R"({"op":"new","code":"O0201500","as":"o"})",
        R"({"op":"methods","obj":"o","name":"AddBR","params":["2410","5000",100.5,[],0,"   ",0,0,"   ",0,"","",""]})",
        R"({"op":"methods","obj":"o","name":"AddBR","params":["2410","5000",7,[],0,"   ",0,0,"   ",0,"antras","",""]})",
        R"({"op":"set","obj":"o","fields":{"BR/0/SumA":200.25,"BR/-1/Tag":"paskutinis","BR/0/Info":null,"Comment":"Bandymas"}})",
        R"({"op":"set","obj":"o","path":"BR","row":1,"fields":{"Info":"pakeistas","DateD":"2024-02-29"}})",
        R"({"op":"set","obj":"o","path":"BR","row":"new","fields":{"AccountD":"6000","AccountC":"2720","SumA":3}})",
        R"({"op":"set","obj":"o","fields":{"BR/5/SumA":1}})",
        R"({"op":"set","obj":"o","fields":{"BR/0/NoSuchField":1}})",
        R"({"op":"set","obj":"o","fields":{"BR/SumA":1}})",
        R"({"op":"set","obj":"o","fields":{"BR/0/SumA":"daug"}})",
        R"({"op":"fields","obj":"o"})",
        R"({"op":"fields","obj":"o","path":"BR/1"})",
        R"({"op":"rows","obj":"o","path":"BR","as":"br"})",
        R"({"op":"filter","rs":"br","text":"SumA > 100"})",
    });
    ASSERT_EQ(run.Replies.size(), 14) << run.OutText().toStdString();
    for (int i : {0, 1, 2, 3, 4, 5})
        EXPECT_TRUE(run.Replies[i].value("ok").toBool())
            << i << ": " << run.Replies[i].value("error").toString().toStdString();
    EXPECT_EQ(run.Replies[3].value("count").toInt(), 4);
    for (int i : {6, 7, 8, 9}) {
        EXPECT_FALSE(run.Replies[i].value("ok").toBool(true)) << i;
        EXPECT_FALSE(run.Replies[i].value("error").toString().isEmpty()) << i;
    }
    EXPECT_TRUE(run.Replies[7].value("error").toString().contains(QStringLiteral("NoSuchField")));

    const QJsonObject op = run.Replies[10].value("Value").toObject();
    EXPECT_EQ(op.value("Comment").toString(), QStringLiteral("Bandymas"));
    const QJsonArray br = op.value("BR")["rows"].toArray();
    ASSERT_EQ(br.size(), 3);
    EXPECT_EQ(br.at(0)["SumA"].toDouble(), 200.25);
    EXPECT_TRUE(br.at(0)["Info"].isNull()) << "null writes Null";
    EXPECT_EQ(br.at(1)["Tag"].toString(), QStringLiteral("paskutinis"));
    EXPECT_EQ(br.at(1)["Info"].toString(), QStringLiteral("pakeistas"));
    EXPECT_EQ(br.at(1)["DateD"].toString(), QStringLiteral("2024-02-29"));
    EXPECT_EQ(br.at(2)["AccountD"].toString(), QStringLiteral("6000"));
    EXPECT_EQ(br.at(2)["SumA"].toDouble(), 3.0);
    // The refused text left the sum as it was.
    EXPECT_EQ(run.Replies[11].value("Value")["SumA"].toDouble(), 7.0);
    EXPECT_EQ(run.Replies[12].value("RecordCount").toInt(), 3);
    EXPECT_EQ(run.Replies[13].value("RecordCount").toInt(), 1);
}

TEST_P(ScriptProtocolTest, EveryKindOfTheProgramMakesABlankObject) {
    InitBook(true);
    // Code, and the class of its data object.
    const QList<QPair<QString, QString>> kinds = {
        {"O0000100", "UIO0000100"}, {"O0000300", "UIO0000300"}, {"O0000500", "UIO0000500"},
        {"O0001401", "UIO0001401"}, {"O0001402", "UIO0001402"}, {"O0002200", "UIO0002200"},
        {"O0201500", "UIO0201500"}, {"O0201504", "UIO0201500"}, {"O0200401", "UIO0200400"},
    };
    QStringList lines;
    for (const auto& kind : kinds)
        lines << QStringLiteral(R"({"op":"new","code":"%1"})").arg(kind.first);
    const CliRun run = Script(lines);
    EXPECT_EQ(run.ExitCode, 0) << run.ErrText().toStdString();
    ASSERT_EQ(run.Replies.size(), kinds.size());
    for (int i = 0; i < kinds.size(); ++i) {
        EXPECT_TRUE(run.Replies[i].value("ok").toBool())
            << kinds[i].first.toStdString() << ": "
            << run.Replies[i].value("error").toString().toStdString();
        EXPECT_EQ(run.Replies[i].value("Class").toString(), kinds[i].second);
    }
}

TEST_P(ScriptProtocolTest, InitRefusesABookThatIsAlreadyThere) {
    InitBook(true);
    const CliRun again = RunOrvo({QStringLiteral("init"), Book()});
    EXPECT_EQ(again.ExitCode, 1);
    EXPECT_TRUE(again.Out.isEmpty());
    EXPECT_TRUE(again.ErrText().contains(QStringLiteral("jau yra")))
        << again.ErrText().toStdString();
    // The book is as the first init left it: the demonstration firm is still number 1.
    const CliRun run =
        Script({R"({"op":"get","oidr":"O00001001","as":"g"})", R"({"op":"fields","obj":"g"})"});
    ASSERT_EQ(run.Replies.size(), 2) << run.ErrText().toStdString();
    EXPECT_EQ(run.Replies[1].value("Value")["Name"].toString(),
              QStringLiteral("UAB Orvo demonstracinė"));
}

ORVO_CLI_BACKENDS(ScriptProtocolTest);

} // namespace
} // namespace orvo::cli_test
