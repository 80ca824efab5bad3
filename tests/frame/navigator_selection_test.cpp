// "Atrinkti" on any navigator: the host's selection dialog is asked with the node, an
// answer narrows the host's list to the navigator's rows with the criteria text, and
// no answer (or no shell to ask) leaves the list as it is.
#include "frame_doubles.h"

#include "frame/orvo_shell_service.h"

#include <gtest/gtest.h>

namespace orvo::test {
namespace {

class ScriptedShell : public OrvoShellService {
public:
    explicit ScriptedShell(QString answer) : answer_(std::move(answer)) {}
    ValueResult Methods(const QString& name, const ValueArray& parameters) override {
        asked << name + QLatin1Char(':') +
                     (parameters.isEmpty() ? QString() : parameters[0].toString());
        return ValueResult::Of(Value(answer_));
    }
    QStringList asked;

private:
    QString answer_;
};

// The base class's routine made reachable, with a list of one row.
class SelectingNavigator : public TestNavigator {
public:
    SelectingNavigator() : TestNavigator(QStringLiteral("O0200400")) {}
    ClickResult Select(const QString& oid) {
        return NarrowBySelection(oid, [] {
            RecordsetPtr rs = Recordset::Create(
                {FieldDef::Make(QStringLiteral("OIDR"), FieldType::VarWChar, 30)});
            rs->AddNew();
            rs->SetField(QStringLiteral("OIDR"), QStringLiteral("O02004015"));
            rs->Update();
            return rs;
        });
    }
};

TEST(NavigatorSelectionTest, AnAnswerNarrowsTheListWithTheCriteriaText) {
    ServicesFixture fx;
    auto shell = std::make_shared<ScriptedShell>(QStringLiteral("2410"));
    fx.services->SetShellService(shell);
    SelectingNavigator navigator;
    const ClickResult r = navigator.Select(QStringLiteral("O02004012"));
    EXPECT_EQ(shell->asked, QStringList{QStringLiteral("SelectionDialog:O02004012")});
    EXPECT_EQ(r.Action, ClickResult::NarrowList);
    const ValueArray payload = r.Payload.toArray();
    ASSERT_EQ(payload.size(), 2);
    ASSERT_TRUE(payload[0].toRecordset());
    EXPECT_EQ(payload[0].toRecordset()->RecordCount(), 1);
    EXPECT_EQ(payload[1].toString(), QStringLiteral("'','2410'"));
}

TEST(NavigatorSelectionTest, NoAnswerLeavesTheListAsItIs) {
    ServicesFixture fx;
    fx.services->SetShellService(std::make_shared<ScriptedShell>(QString()));
    SelectingNavigator navigator;
    const ClickResult r = navigator.Select(QStringLiteral("O02004012"));
    EXPECT_NE(r.Action, ClickResult::NarrowList);
    EXPECT_TRUE(r.Payload.isNull());
}

TEST(NavigatorSelectionTest, WithoutAShellNothingIsAskedOrNarrowed) {
    ServicesFixture fx;
    SelectingNavigator navigator;
    const ClickResult r = navigator.Select(QStringLiteral("O02004012"));
    EXPECT_NE(r.Action, ClickResult::NarrowList);
}

} // namespace
} // namespace orvo::test
