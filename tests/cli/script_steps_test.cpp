// The steps of a first script, run through the real `orvo` program on a book made by
// `orvo init`: a shared routine, a recordset and its filter, a firm created, saved and
// read back, an operation built in memory with AddBR, and a query of the operation
// object. They run on a demonstration book and on an empty one, on SQLite and, when a
// server is given, on PostgreSQL.
#include "cli_fixture.h"

#include "host/storage/database.h"

#include <QJsonArray>

namespace orvo::cli_test {
namespace {

const QStringList& FirstScript() {
    static const QStringList lines = {
        R"({"op":"catalogue","name":"FormatAmount","params":[0.004]})",
        R"({"op":"recordset","as":"r","fields":[{"name":"Name","type":"text","size":50},{"name":"Sum","type":"double"}],"rows":[{"Name":"Beržas","Sum":15}]})",
        R"({"op":"filter","rs":"r","text":"Name like 'B*'"})",
        R"({"op":"new","code":"O0000100","as":"f"})",
        R"({"op":"set","obj":"f","fields":{"Name":"UAB Ąžuolas","Code":"300000001"}})",
        R"({"op":"save","obj":"f"})",
        R"({"op":"get","oidr":"O00001001","as":"g"})",
        R"({"op":"fields","obj":"g"})",
        R"({"op":"new","code":"O0201500","as":"o"})",
        R"({"op":"methods","obj":"o","name":"AddBR","params":["2410","5000",100.5,[],0,"   ",0,0,"   ",0,"","",""]})",
        R"({"op":"properties","obj":"o","name":"AccountList","params":""})",
        R"({"op":"fields","obj":"o"})",
    };
    return lines;
}

class ScriptStepsTest : public CliBookTest {
protected:
    // The name of firm number 1, read straight from the book.
    QString FirstFirmName() {
        host::OpenResult db = host::Database::Open(Book(), host::OpenMode::Existing);
        EXPECT_TRUE(db.ok()) << db.Text.toStdString();
        if (!db.ok())
            return QString();
        const host::QueryResult q =
            db.Db->Query(QStringLiteral("SELECT Name FROM Firms WHERE ID = 1"));
        return q.ok() && q.RowCount() == 1 ? q.Scalar().toString() : QString();
    }

    // How many firms of the book carry the code, and the name of the last one.
    QString FirmNameByCode(const QString& code, int* count) {
        host::OpenResult db = host::Database::Open(Book(), host::OpenMode::Existing);
        EXPECT_TRUE(db.ok()) << db.Text.toStdString();
        if (!db.ok())
            return QString();
        const host::QueryResult q = db.Db->Query(
            QStringLiteral("SELECT Name FROM Firms WHERE Code = ? ORDER BY ID"), {Value(code)});
        *count = q.ok() ? q.RowCount() : -1;
        return *count > 0 ? q.At(*count - 1, 0).toString() : QString();
    }

    // Runs the first script and checks every reply; `firstFirm` is the name that
    // O00001001 must have.
    void RunFirstScript(bool demo) {
        const QString firstFirmBefore = demo ? FirstFirmName() : QStringLiteral("UAB Ąžuolas");
        const CliRun run = Script(FirstScript());
        EXPECT_EQ(run.ExitCode, 0) << run.ErrText().toStdString();
        ASSERT_EQ(run.Replies.size(), FirstScript().size()) << run.OutText().toStdString();
        const QList<QJsonObject>& r = run.Replies;

        // 1. A shared routine: the reply is exactly this.
        EXPECT_EQ(r[0], (QJsonObject{{"ok", true}, {"Value", " "}}));

        // 2. A recordset kept as "r".
        EXPECT_TRUE(r[1].value("ok").toBool());
        EXPECT_EQ(r[1].value("RecordCount").toInt(), 1);
        const QJsonObject row = r[1].value("Value")["rows"][0].toObject();
        EXPECT_EQ(row.value("Name").toString(), QStringLiteral("Beržas"));
        EXPECT_EQ(row.value("Sum").toDouble(), 15.0);

        // 3. Its filter.
        EXPECT_TRUE(r[2].value("ok").toBool()) << r[2].value("error").toString().toStdString();
        EXPECT_EQ(r[2].value("Code").toInt(-1), 0);
        EXPECT_EQ(r[2].value("RecordCount").toInt(), 1);
        EXPECT_EQ(r[2].value("Value")["rows"][0]["Name"].toString(), QStringLiteral("Beržas"));

        // 4-6. A new firm, its fields, its save.
        EXPECT_TRUE(r[3].value("ok").toBool()) << r[3].value("error").toString().toStdString();
        EXPECT_EQ(r[3].value("OIDR").toString(), QStringLiteral("O0000100"));
        EXPECT_TRUE(r[4].value("ok").toBool()) << r[4].value("error").toString().toStdString();
        EXPECT_EQ(r[4].value("count").toInt(), 2);
        EXPECT_TRUE(r[5].value("ok").toBool()) << r[5].value("error").toString().toStdString();
        EXPECT_EQ(r[5].value("Code").toInt(-1), 0);
        const QString savedOidr = r[5].value("OIDR").toString();
        EXPECT_TRUE(savedOidr.startsWith(QStringLiteral("O0000100"))) << savedOidr.toStdString();
        EXPECT_GE(savedOidr.size(), 9);
        // On a demonstration book firm number 1 is the firm that keeps the books.
        EXPECT_EQ(savedOidr == QStringLiteral("O00001001"), !demo) << savedOidr.toStdString();

        // 7-8. Firm number 1 read back whole.
        EXPECT_TRUE(r[6].value("ok").toBool()) << r[6].value("error").toString().toStdString();
        EXPECT_EQ(r[6].value("OIDR").toString(), QStringLiteral("O00001001"));
        EXPECT_TRUE(r[7].value("ok").toBool()) << r[7].value("error").toString().toStdString();
        const QJsonObject firm = r[7].value("Value").toObject();
        EXPECT_FALSE(firstFirmBefore.isEmpty());
        EXPECT_EQ(firm.value("Name").toString(), firstFirmBefore);
        if (!demo) {
            EXPECT_EQ(firm.value("Code").toString(), QStringLiteral("300000001"));
        }

        // 9-10. An operation in memory and an entry added by AddBR.
        EXPECT_TRUE(r[8].value("ok").toBool()) << r[8].value("error").toString().toStdString();
        EXPECT_EQ(r[8].value("OIDR").toString(), QStringLiteral("O0201500"));
        EXPECT_TRUE(r[9].value("ok").toBool()) << r[9].value("error").toString().toStdString();
        EXPECT_EQ(r[9].value("Code").toInt(-1), 0);
        EXPECT_FALSE(r[9].value("Value").toString().isEmpty()) << "AddBR gives the entry's GUID";

        // 11. The chart of accounts as a dictionary (empty while there is no chart).
        EXPECT_TRUE(r[10].value("ok").toBool()) << r[10].value("error").toString().toStdString();
        EXPECT_EQ(r[10].value("Code").toInt(-1), 0);
        EXPECT_TRUE(r[10].value("Value").isObject());

        // The operation holds the entry, with the GUID AddBR gave.
        const QJsonArray entries = r[11].value("Value")["BR"]["rows"].toArray();
        ASSERT_EQ(entries.size(), 1) << run.OutText().toStdString();
        const QJsonObject entry = entries.at(0).toObject();
        EXPECT_EQ(entry.value("AccountD").toString(), QStringLiteral("2410"));
        EXPECT_EQ(entry.value("AccountC").toString(), QStringLiteral("5000"));
        EXPECT_EQ(entry.value("SumA").toDouble(), 100.5);
        EXPECT_EQ(entry.value("GUID").toString(), r[9].value("Value").toString());

        // The firm is in the book, once.
        int count = 0;
        EXPECT_EQ(FirmNameByCode(QStringLiteral("300000001"), &count),
                  QStringLiteral("UAB Ąžuolas"));
        EXPECT_EQ(count, 1);
    }
};

TEST_P(ScriptStepsTest, FirstScriptRunsInOrderOnDemoBook) {
    InitBook(true);
    RunFirstScript(true);
}

TEST_P(ScriptStepsTest, FirstScriptRunsInOrderOnEmptyBook) {
    InitBook(false);
    RunFirstScript(false);
}

ORVO_CLI_BACKENDS(ScriptStepsTest);

} // namespace
} // namespace orvo::cli_test
