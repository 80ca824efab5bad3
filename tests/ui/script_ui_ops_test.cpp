// The ops form, ui and read of `orvo script`: through a ScriptSession in this process
// (with the probe form registered), through ScriptRunner where a click opens a modal
// window that the next lines work, and through the real `orvo script` program.
#include "desktop_fixture.h"
#include "host/script/script_session.h"
#include "probe_form.h"
#include "ui/automation/script_runner.h"
#include "ui/automation/ui_script_ops.h"
#include "ui/shell/desk_top.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>

namespace orvo::ui::testing {
namespace {

QJsonObject parse(const char* json) {
    return QJsonDocument::fromJson(QByteArray(json)).object();
}

class ScriptUiOpsTest : public ::testing::Test {
protected:
    void SetUp() override {
        App();
        ASSERT_TRUE(dir_.isValid());
        RegisterOperationClasses();
        RegisterAccountClasses();
        host::SessionResult r = host::HostSession::Open(dir_.filePath(QStringLiteral("book.orvo")),
                                                        host::OpenMode::CreateIfMissing);
        ASSERT_TRUE(r.ok()) << r.Text.toStdString();
        session_ = std::move(r.Session);
        RegisterProbeForms(*session_->Forms());
        script_ = std::make_unique<host::ScriptSession>(*session_);
        UiScriptOps::Register(*script_, *session_);
    }
    void TearDown() override {
        script_.reset();
        for (QWidget* w : QApplication::topLevelWidgets())
            w->close();
        session_.reset();
    }

    QJsonObject run(const char* json) { return script_->Run(parse(json)); }
    QJsonObject ok(const char* json) {
        const QJsonObject reply = run(json);
        EXPECT_TRUE(reply.value("ok").toBool())
            << json << " -> " << QJsonDocument(reply).toJson(QJsonDocument::Compact).toStdString();
        return reply;
    }
    // Opens the probe on a new firm object as "w".
    void openProbe() {
        ok(R"({"op":"new","code":"O0000100","as":"f"})");
        ok(R"({"op":"form","name":"frmProbe","obj":"f","as":"w"})");
    }
    QString text(const char* control) {
        const QJsonObject step{{"op", "read"}, {"form", "w"}, {"control", control}};
        return script_->Run(step).value("Value").toObject().value("text").toString();
    }

    QTemporaryDir dir_;
    std::unique_ptr<host::HostSession> session_;
    std::unique_ptr<host::ScriptSession> script_;
};

TEST_F(ScriptUiOpsTest, FormOpensARegisteredFormOnAKeptDataObject) {
    ok(R"({"op":"new","code":"O0000100","as":"f"})");
    const QJsonObject reply = ok(R"({"op":"form","name":"frmProbe","obj":"f","as":"w"})");
    EXPECT_EQ(reply.value("form").toString(), QStringLiteral("frmProbe"));
    EXPECT_EQ(reply.value("title").toString(), QStringLiteral("Bandomoji forma"));
    EXPECT_EQ(reply.value("as").toString(), QStringLiteral("w"));
    // The form was given the object before it was built.
    EXPECT_EQ(text("lblObject"), QStringLiteral("UIO0000100"));
}

TEST_F(ScriptUiOpsTest, FormOfANameNobodyRegisteredIsRefused) {
    const QJsonObject reply = run(R"({"op":"form","name":"frmNera","as":"w"})");
    EXPECT_FALSE(reply.value("ok").toBool());
    EXPECT_EQ(reply.value("error").toString(), QStringLiteral("Langas „frmNera“ dar neįdiegtas."));
    EXPECT_EQ(run(R"({"op":"form","name":"frmProbe","obj":"nera"})").value("error").toString(),
              QStringLiteral("Vardu „nera“ nieko neišsaugota."));
}

TEST_F(ScriptUiOpsTest, FormThroughANavigatorMenuClickOnATreeNode) {
    // The chart's navigator opens frmAccountPlan for a new class; the probe stands in.
    session_->Forms()->Register(QStringLiteral("frmAccountPlan"),
                                []() { return std::make_shared<ProbeForm>(); });
    const QJsonObject reply =
        ok(R"({"op":"form","node":"O0200400","menu":"&Nauja klasė","as":"w"})");
    EXPECT_EQ(reply.value("form").toString(), QStringLiteral("frmProbe"));
    EXPECT_EQ(text("lblObject"), QStringLiteral("UIO0200400"));
}

TEST_F(ScriptUiOpsTest, UiSetsEveryKindOfControlAndClicks) {
    openProbe();
    const QJsonObject reply = ok(
        R"({"op":"ui","form":"w","set":{"txtName":" jonas","chkActive":true,"cmbKind":"Išlaidos","dtpDate":"2024-03-15","txtCount":12,"optCredit":true}})");
    EXPECT_EQ(reply.value("done").toInt(), 6);
    EXPECT_EQ(reply.value("values").toObject().value("txtName").toString(),
              QStringLiteral("Jonas"));
    EXPECT_EQ(text("txtName"), QStringLiteral("Jonas"));
    EXPECT_EQ(text("lblKind"), QStringLiteral("Išlaidos"));
    EXPECT_EQ(text("txtCount"), QStringLiteral("12"));
    EXPECT_EQ(text("dtpDate"), QStringLiteral("2024.03.15"));
    const QJsonObject check = ok(R"({"op":"read","form":"w","control":"chkActive"})");
    EXPECT_TRUE(check.value("Value").toObject().value("checked").toBool());
    EXPECT_FALSE(ok(R"({"op":"read","form":"w","control":"optDebit"})")
                     .value("Value")
                     .toObject()
                     .value("checked")
                     .toBool());

    ok(R"({"op":"ui","form":"w","click":"mnuClear"})");
    EXPECT_EQ(text("txtName"), QString());
}

TEST_F(ScriptUiOpsTest, SetAsAnArrayKeepsTheOrderOfTheControls) {
    openProbe();
    ok(R"({"op":"ui","form":"w","set":[{"txtName":"petras"},{"cmbKind":0}]})");
    EXPECT_EQ(text("txtName"), QStringLiteral("Petras"));
    EXPECT_EQ(text("lblKind"), QStringLiteral("Pajamos"));
}

TEST_F(ScriptUiOpsTest, UiSelectsChecksAndDoubleClicksRows) {
    openProbe();
    ok(R"({"op":"ui","form":"w","checkrows":{"lvwRows":{"0":true,"1":true}},"select":{"lvwRows":2}})");
    EXPECT_EQ(text("lblChecked"), QStringLiteral("2"));
    ok(R"({"op":"ui","form":"w","dblclick":{"lvwRows":0}})");
    EXPECT_EQ(text("lblResult"), QStringLiteral("dvigubas: O02015001"));
}

TEST_F(ScriptUiOpsTest, ReadGivesAListWithHeadersTagsBoldAndColour) {
    openProbe();
    const QJsonObject value =
        ok(R"({"op":"read","form":"w","control":"lvwRows"})").value("Value").toObject();
    EXPECT_EQ(value.value("headers").toArray(), QJsonArray({"Sąskaita", "Suma"}));
    const QJsonArray rows = value.value("rows").toArray();
    ASSERT_EQ(rows.size(), 3);
    const QJsonArray first = rows.at(0).toObject().value("cells").toArray();
    EXPECT_EQ(first.at(0).toObject().value("text").toString(), QStringLiteral("2410"));
    EXPECT_EQ(first.at(0).toObject().value("tag").toString(), QStringLiteral("O02015001"));
    EXPECT_FALSE(rows.at(0).toObject().value("checked").toBool());
    EXPECT_EQ(
        rows.at(1).toObject().value("cells").toArray().at(1).toObject().value("colour").toString(),
        QStringLiteral("#ff0000"));
    EXPECT_TRUE(
        rows.at(2).toObject().value("cells").toArray().at(0).toObject().value("bold").toBool());
    EXPECT_TRUE(rows.at(2).toObject().value("checked").isNull());

    const QJsonObject button =
        ok(R"({"op":"read","form":"w","control":"cmdDisabled"})").value("Value").toObject();
    EXPECT_FALSE(button.value("enabled").toBool());
    EXPECT_TRUE(button.value("visible").toBool());
    EXPECT_EQ(button.value("text").toString(), QStringLiteral("Negalima"));

    const QJsonObject form = ok(R"({"op":"read","form":"w"})").value("Value").toObject();
    EXPECT_TRUE(form.value("controls").toArray().contains(QStringLiteral("lvwRows")));
}

TEST_F(ScriptUiOpsTest, MissingControlIsRefusedAndNothingIsDone) {
    openProbe();
    const QJsonObject reply = run(R"({"op":"ui","form":"w","set":{"txtName":"x","txtNera":"y"}})");
    EXPECT_FALSE(reply.value("ok").toBool());
    EXPECT_EQ(reply.value("error").toString(),
              QStringLiteral("Valdiklis „txtNera“ nerastas formoje „frmProbe“."));
    EXPECT_EQ(text("txtName"), QString());
    EXPECT_EQ(run(R"({"op":"read","form":"w","control":"lvwNera"})").value("error").toString(),
              QStringLiteral("Valdiklis „lvwNera“ nerastas formoje „frmProbe“."));
    EXPECT_EQ(run(R"({"op":"ui","form":"nera","click":"cmdOK"})").value("error").toString(),
              QStringLiteral("Atviro lango „nera“ nėra."));
}

TEST_F(ScriptUiOpsTest, ReadWithoutFormStillReadsTheDataObjectAgain) {
    ok(R"({"op":"new","code":"O0000100","as":"f"})");
    const QJsonObject reply = ok(R"({"op":"read","obj":"f"})");
    EXPECT_EQ(reply.value("Code").toInt(), 0);
    EXPECT_EQ(reply.value("OIDR").toString(), QStringLiteral("O0000100"));
}

TEST_F(ScriptUiOpsTest, TheAddedOpsAreNamedAmongTheOps) {
    const QString error = run(R"({"op":"fly"})").value("error").toString();
    EXPECT_TRUE(error.contains(QStringLiteral("form, get"))) << error.toStdString();
    EXPECT_TRUE(error.contains(QStringLiteral("today, ui"))) << error.toStdString();
    EXPECT_FALSE(run(R"({"op":"ui","form":"w","click":"x","as":"z"})").value("ok").toBool());
}

TEST_F(ScriptUiOpsTest, ModalWindowWithoutARunnerIsCancelledAndTold) {
    openProbe();
    const QJsonObject reply = ok(R"({"op":"ui","form":"w","click":"cmdOpen"})");
    EXPECT_EQ(reply.value("dismissed").toArray(), QJsonArray({"frmProbeAskDialog"}));
    EXPECT_EQ(text("lblResult"), QStringLiteral("atšaukta"));
}

// A script run through ScriptRunner: the replies with the line each answers.
struct Replies {
    QList<int> Lines;
    QList<QJsonObject> Objects;
};

TEST_F(ScriptUiOpsTest, ClickThatOpensAModalIsFollowedByLinesThatWorkIt) {
    Replies replies;
    ScriptRunner runner(*script_,
                        LinesOf({R"({"op":"new","code":"O0000100","as":"f"})",
                                 R"({"op":"form","name":"frmProbe","obj":"f","as":"w"})",
                                 R"({"op":"ui","form":"w","click":"cmdOpen","id":7})", "",
                                 R"({"op":"read","form":"frmProbeAsk","control":"txtAnswer"})",
                                 R"({"op":"ui","form":"frmProbeAsk","set":{"txtAnswer":"taip"}})",
                                 R"({"op":"ui","form":"frmProbeAsk","click":"cmdOK"})",
                                 R"({"op":"read","form":"w","control":"lblResult"})"}),
                        [&replies](int line, const QJsonObject& reply) {
                            replies.Lines.append(line);
                            replies.Objects.append(reply);
                        });
    EXPECT_EQ(runner.Run(), 0);
    ASSERT_EQ(replies.Objects.size(), 7);
    EXPECT_EQ(replies.Lines, QList<int>({1, 2, 3, 5, 6, 7, 8}));
    const QJsonObject opened = replies.Objects.at(2);
    EXPECT_EQ(opened.value("modal").toString(), QStringLiteral("frmProbeAskDialog"));
    EXPECT_EQ(opened.value("title").toString(), QStringLiteral("Klausimas"));
    EXPECT_EQ(opened.value("id").toInt(), 7);
    EXPECT_EQ(opened.value("done").toInt(), 0);
    EXPECT_EQ(replies.Objects.at(3).value("Value").toObject().value("text").toString(), QString());
    EXPECT_EQ(replies.Objects.at(6).value("Value").toObject().value("text").toString(),
              QStringLiteral("atsakyta: taip"));
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(ScriptUiOpsTest, ModalOpenedFromAModalIsWorkedAndClosesBackIntoTheFirst) {
    Replies replies;
    ScriptRunner runner(
        *script_,
        LinesOf(
            {R"({"op":"new","code":"O0000100","as":"f"})",
             R"({"op":"form","name":"frmProbe","obj":"f","as":"w"})",
             R"({"op":"ui","form":"w","click":"cmdOpen"})",
             R"({"op":"ui","form":"frmProbeAsk","click":"cmdNested"})",
             R"({"op":"ui","form":"frmProbeAsk","set":{"txtAnswer":"vidinis"},"click":"cmdOK"})",
             R"({"op":"read","form":"frmProbeAsk","control":"txtAnswer"})",
             R"({"op":"ui","form":"frmProbeAsk","click":"cmdOK"})",
             R"({"op":"read","form":"w","control":"lblResult"})"}),
        [&replies](int, const QJsonObject& reply) { replies.Objects.append(reply); });
    EXPECT_EQ(runner.Run(), 0);
    ASSERT_EQ(replies.Objects.size(), 8);
    EXPECT_EQ(replies.Objects.at(2).value("modal").toString(), QStringLiteral("frmProbeAskDialog"));
    EXPECT_EQ(replies.Objects.at(3).value("modal").toString(), QStringLiteral("frmProbeAskDialog"));
    // The inner answer came back into the first window, which is worked again.
    EXPECT_EQ(replies.Objects.at(5).value("Value").toObject().value("text").toString(),
              QStringLiteral("vidinis"));
    EXPECT_EQ(replies.Objects.at(7).value("Value").toObject().value("text").toString(),
              QStringLiteral("atsakyta: vidinis"));
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(ScriptUiOpsTest, ModalStillOpenWhenTheScriptEndsIsCancelled) {
    Replies replies;
    ScriptRunner runner(
        *script_,
        LinesOf({R"({"op":"new","code":"O0000100","as":"f"})",
                 R"({"op":"form","name":"frmProbe","obj":"f","as":"w"})",
                 R"({"op":"ui","form":"w","click":"cmdOpen"})",
                 R"({"op":"ui","form":"frmProbeAsk","set":{"txtAnswer":"ne"}})"}),
        [&replies](int, const QJsonObject& reply) { replies.Objects.append(reply); });
    EXPECT_EQ(runner.Run(), 0);
    EXPECT_EQ(replies.Objects.size(), 4);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_EQ(text("lblResult"), QStringLiteral("atšaukta"));
}

TEST_F(ScriptUiOpsTest, FailedStepsInsideAModalAreCounted) {
    Replies replies;
    ScriptRunner runner(
        *script_,
        LinesOf({R"({"op":"new","code":"O0000100","as":"f"})",
                 R"({"op":"form","name":"frmProbe","obj":"f","as":"w"})",
                 R"({"op":"ui","form":"w","click":"cmdOpen"})",
                 R"({"op":"ui","form":"frmProbeAsk","click":"cmdNera"})",
                 R"({"op":"ui","form":"frmProbeAsk","click":"cmdCancel"})"}),
        [&replies](int, const QJsonObject& reply) { replies.Objects.append(reply); });
    EXPECT_EQ(runner.Run(), 1);
    ASSERT_EQ(replies.Objects.size(), 5);
    EXPECT_EQ(replies.Objects.at(3).value("error").toString(),
              QStringLiteral("Valdiklis „cmdNera“ nerastas formoje „frmProbeAsk“."));
    EXPECT_EQ(text("lblResult"), QStringLiteral("atšaukta"));
}

// The real program, on a book made by `orvo init`.
struct ProgramRun {
    int Exit = -1;
    QList<QJsonObject> Replies;
    QString Errors;
};

ProgramRun runOrvo(const QStringList& args, const QByteArray& input) {
    QProcess p;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    // A script needs no display: the program chooses the offscreen platform itself.
    env.remove(QStringLiteral("QT_QPA_PLATFORM"));
    env.remove(QStringLiteral("DISPLAY"));
    env.remove(QStringLiteral("WAYLAND_DISPLAY"));
    p.setProcessEnvironment(env);
    p.start(QStringLiteral(ORVO_CLI_PATH), args);
    ProgramRun run;
    if (!p.waitForStarted(10000))
        return run;
    p.write(input);
    p.closeWriteChannel();
    if (!p.waitForFinished(60000))
        return run;
    run.Exit = p.exitCode();
    for (const QByteArray& line : p.readAllStandardOutput().split('\n'))
        if (!line.trimmed().isEmpty())
            run.Replies.append(QJsonDocument::fromJson(line).object());
    run.Errors = QString::fromUtf8(p.readAllStandardError());
    return run;
}

TEST(OrvoScriptUiOps, RealProgramKnowsTheWindowOpsWithoutADisplay) {
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    const QString book = dir.filePath(QStringLiteral("book.orvo"));
    ASSERT_EQ(runOrvo({QStringLiteral("init"), book}, QByteArray()).Exit, 0);
    const ProgramRun run = runOrvo(
        {QStringLiteral("script"), book},
        "{\"op\":\"fly\"}\n"
        "{\"op\":\"form\",\"name\":\"frmNera\",\"as\":\"w\"}\n"
        "{\"op\":\"read\",\"form\":\"w\",\"control\":\"lvwBRRecords\"}\n"
        "{\"op\":\"form\",\"node\":\"O0200400\",\"menu\":\"Sąskaitų planai\",\"as\":\"w\"}\n"
        "{\"op\":\"messages\"}\n"
        "{\"op\":\"new\",\"code\":\"O0000100\",\"as\":\"f\"}\n"
        "{\"op\":\"read\",\"obj\":\"f\"}\n");
    ASSERT_EQ(run.Replies.size(), 7) << run.Errors.toStdString();
    EXPECT_EQ(run.Exit, 1);
    EXPECT_TRUE(run.Replies.at(0).value("error").toString().contains(QStringLiteral("form, get")));
    EXPECT_TRUE(run.Replies.at(0).value("error").toString().contains(QStringLiteral("today, ui")));
    EXPECT_EQ(run.Replies.at(1).value("error").toString(),
              QStringLiteral("Langas „frmNera“ dar neįdiegtas."));
    EXPECT_EQ(run.Replies.at(2).value("error").toString(),
              QStringLiteral("Atviro lango „w“ nėra."));
    // The navigator's click ran: it switched the chart's list and gave no form to show.
    EXPECT_TRUE(run.Replies.at(3).value("ok").toBool());
    EXPECT_EQ(run.Replies.at(3).value("Action").toInt(), 0);
    EXPECT_FALSE(run.Replies.at(3).contains("as"));
    EXPECT_EQ(run.Replies.at(4).value("Value").toArray(), QJsonArray());
    EXPECT_TRUE(run.Replies.at(6).value("ok").toBool());
    EXPECT_TRUE(run.Errors.contains(QStringLiteral("orvo: eilutė 3: Atviro lango „w“ nėra.")))
        << run.Errors.toStdString();
}

} // namespace
} // namespace orvo::ui::testing

namespace orvo::ui::testing {
namespace {

using ScriptOnDesktopTest = DesktopTest;

TEST_F(ScriptOnDesktopTest, FormOpensOnTheDesktopAndItsModalWindowIsWorkedThere) {
    RegisterProbeForms(*session_->Forms());
    host::ScriptSession script(*session_);
    UiScriptOps::Register(script, *session_);
    QList<QJsonObject> replies;
    ScriptRunner runner(
        script,
        LinesOf({R"({"op":"new","code":"O0000100","as":"f"})",
                 R"({"op":"form","name":"frmProbe","obj":"f","as":"w"})",
                 R"({"op":"ui","form":"w","set":{"txtName":"ona"},"click":"cmdOpen"})",
                 R"({"op":"ui","form":"frmProbeAsk","set":{"txtAnswer":"gerai"},"click":"cmdOK"})",
                 R"({"op":"read","form":"w","control":"lblResult"})",
                 R"({"op":"read","form":"w","control":"txtName"})"}),
        [&replies](int, const QJsonObject& reply) { replies.append(reply); });
    EXPECT_EQ(runner.Run(), 0);
    ASSERT_EQ(replies.size(), 6);
    // The form went to the desktop's window, as one opened from the tree does.
    ASSERT_EQ(window_->Desk()->Forms().size(), 1);
    EXPECT_EQ(window_->Desk()->Forms().first()->FormName(), QStringLiteral("frmProbe"));
    EXPECT_EQ(replies.at(2).value("modal").toString(), QStringLiteral("frmProbeAskDialog"));
    EXPECT_EQ(replies.at(2).value("values").toObject().value("txtName").toString(),
              QStringLiteral("Ona"));
    EXPECT_EQ(replies.at(4).value("Value").toObject().value("text").toString(),
              QStringLiteral("atsakyta: gerai"));
    EXPECT_EQ(replies.at(5).value("Value").toObject().value("text").toString(),
              QStringLiteral("Ona"));
}

} // namespace
} // namespace orvo::ui::testing
