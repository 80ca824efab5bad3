// The demo book's groups through `orvo script` on each backend: a plain operation of
// "Bendrosios operacijos" is numbered by the group's mask from its yearly counter, and
// the sales group offers its default template.
#include "cli_fixture.h"

#include "host/storage/database.h"

namespace orvo::cli_test {
namespace {

class DemoGroupsTest : public CliBookTest {
protected:
    // The book and the script share one day, whatever the machine's date: the demo's
    // counters count from 1 January of the year the book was made in.
    void SetUp() override {
        saved_ = qgetenv("ORVO_TODAY");
        qputenv("ORVO_TODAY", "2024-03-15");
        CliBookTest::SetUp();
    }
    void TearDown() override {
        CliBookTest::TearDown();
        if (saved_.isEmpty())
            qunsetenv("ORVO_TODAY");
        else
            qputenv("ORVO_TODAY", saved_);
    }

    // The ID of the demo group of that name.
    qint64 GroupId(const QString& name) {
        host::OpenResult db = host::Database::Open(Book(), host::OpenMode::Existing);
        EXPECT_TRUE(db.ok()) << db.Text.toStdString();
        if (!db.ok())
            return 0;
        const host::QueryResult q = db.Db->Query(
            QStringLiteral("SELECT ID FROM BROperGroups WHERE Name = ?"), {Value(name)});
        return q.ok() && q.RowCount() == 1 ? static_cast<qint64>(q.At(0, 0).toDouble()) : 0;
    }

private:
    QByteArray saved_;
};

TEST_P(DemoGroupsTest, PlainOperationsOfTheGeneralGroupAreNumberedByItsMask) {
    InitBook(true);
    const qint64 group = GroupId(QStringLiteral("Bendrosios operacijos"));
    ASSERT_GT(group, 0);
    const QString setGroup =
        QStringLiteral(R"({"op":"set","obj":"o","fields":{"BROperGroupID":%1}})").arg(group);
    const CliRun run = Script({
        R"({"op":"new","code":"O0201500","as":"o"})",
        setGroup,
        R"({"op":"methods","obj":"o","name":"GetAutoNumber","params":[]})",
        R"({"op":"new","code":"O0201500","as":"p"})",
        QString(setGroup).replace(QStringLiteral("\"o\""), QStringLiteral("\"p\"")),
        R"({"op":"methods","obj":"p","name":"GetAutoNumber","params":[]})",
    });
    ASSERT_EQ(run.ExitCode, 0) << run.ErrText().toStdString() << run.OutText().toStdString();
    ASSERT_EQ(run.Replies.size(), 6);
    EXPECT_EQ(run.Replies[2].value("Value").toString(), QStringLiteral("240315-BO-0001"));
    // A second draw in the same scope and year never repeats the first.
    EXPECT_EQ(run.Replies[5].value("Value").toString(), QStringLiteral("240315-BO-0002"));
}

TEST_P(DemoGroupsTest, EveryDocumentKindHasAGroupUnderAGeneralOne) {
    InitBook(true);
    host::OpenResult db = host::Database::Open(Book(), host::OpenMode::Existing);
    ASSERT_TRUE(db.ok()) << db.Text.toStdString();
    const host::QueryResult q = db.Db->Query(
        QStringLiteral("SELECT g.FormOID FROM BROperGroups g JOIN BROperGroups p ON p.ID = "
                       "g.ParentID WHERE g.GroupFlag = 0 AND p.GroupFlag <> 0 ORDER BY g.FormOID"));
    ASSERT_TRUE(q.ok()) << q.Text.toStdString();
    QStringList kinds;
    for (int i = 0; i < q.RowCount(); ++i)
        if (!kinds.contains(q.At(i, 0).toString()))
            kinds << q.At(i, 0).toString();
    EXPECT_EQ(kinds, (QStringList{"O0201500", "O0201501", "O0201502", "O0201503", "O0201504",
                                  "O0201505", "O0201506"}));
    // The sales group offers the demo templates and applies the sale by default.
    const host::QueryResult sales = db.Db->Query(QStringLiteral(
        "SELECT t.Name FROM BROperGroups g JOIN BRTemplates t ON t.ID = g.DefaultTemplateID "
        "WHERE g.Name = 'Pardavimai'"));
    ASSERT_TRUE(sales.ok());
    ASSERT_EQ(sales.RowCount(), 1);
    EXPECT_EQ(sales.At(0, 0).toString(), QStringLiteral("Prekių pardavimas su PVM"));
}

ORVO_CLI_BACKENDS(DemoGroupsTest);

} // namespace
} // namespace orvo::cli_test
