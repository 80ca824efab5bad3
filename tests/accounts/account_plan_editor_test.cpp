// What the editor of the chart decides, on a stored chart on each backend: the kind of
// record and its panel titles, the number and type rules, one role per account, the
// checks with their messages and focus, the save result numbers, undo and a new record
// of the same level.
#include "chart_fixture.h"

#include "accounts/account_plan_editor.h"

namespace orvo::accounts_testing {
namespace {

class AccountPlanEditorTest : public ChartTest {
protected:
    void SetUp() override {
        ChartTest::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        class2_ = Add(0, QStringLiteral("2"), QStringLiteral("Trumpalaikis turtas"));
        account24_ = Add(class2_, QStringLiteral("24"), QStringLiteral("Gautinos sumos"));
        account241_ = Add(account24_, QStringLiteral("241"), QStringLiteral("Pirkėjų skolos"));
        Shown();
    }

    // The editor open on a stored record.
    AccountPlanEditor Open(qint64 id) {
        AccountPlanEditor editor(Object(id), false);
        EXPECT_TRUE(editor.Load().ok());
        return editor;
    }

    // The editor open on a new record under `parentId` (0 for a class).
    AccountPlanEditor OpenNew(qint64 parentId) {
        OrvoObjectUIOPtr object = navigator_->GetOrvoObject(QString());
        EXPECT_TRUE(object);
        if (parentId > 0)
            object->SetField(QStringLiteral("ParentID"), Value(double(parentId)));
        AccountPlanEditor editor(object, false);
        EXPECT_TRUE(editor.Load().ok());
        return editor;
    }

    QString StoredAccount(qint64 id) {
        return Object(id)->Field(QStringLiteral("Account")).toString();
    }

    qint64 class2_ = 0;
    qint64 account24_ = 0;
    qint64 account241_ = 0;
};

TEST_P(AccountPlanEditorTest, RecordsAreClassesAccountsAndSubaccountsWithTheirPanelTitles) {
    AccountPlanEditor cls = Open(class2_);
    EXPECT_TRUE(cls.IsClass());
    EXPECT_TRUE(cls.ClassEditable());
    EXPECT_EQ(cls.PanelTitle(), QStringLiteral("Klasė"));
    EXPECT_EQ(cls.ClassAccount, QStringLiteral("2"));

    AccountPlanEditor account = Open(account24_);
    EXPECT_EQ(account.Kind(), AccountPlanEditor::RecordKind::Account);
    EXPECT_FALSE(account.ClassEditable());
    EXPECT_EQ(account.PanelTitle(), QStringLiteral("Sąskaita"));
    EXPECT_EQ(account.ClassPanelTitle(), QStringLiteral("Klasė"));
    EXPECT_EQ(account.ClassName, QStringLiteral("Trumpalaikis turtas"));
    EXPECT_EQ(account.ParentLabel, QString());

    AccountPlanEditor sub = Open(account241_);
    EXPECT_EQ(sub.Kind(), AccountPlanEditor::RecordKind::Subaccount);
    EXPECT_EQ(sub.PanelTitle(), QStringLiteral("Subsąskaita"));
    EXPECT_EQ(sub.ParentLabel, QStringLiteral("24 Gautinos sumos"));
    EXPECT_EQ(sub.ClassAccount, QStringLiteral("2"));

    EXPECT_EQ(OpenNew(0).PanelTitle(), QStringLiteral("Nauja klasė"));
    EXPECT_EQ(OpenNew(class2_).PanelTitle(), QStringLiteral("Nauja sąskaita"));
    EXPECT_EQ(OpenNew(account24_).PanelTitle(), QStringLiteral("Nauja subsąskaita"));
    EXPECT_TRUE(OpenNew(0).CaptionKey().startsWith(QStringLiteral("NO0200401")));
}

TEST_P(AccountPlanEditorTest, ClassNumberedZeroOrDoubleZeroCannotBeSavedAndGetsNoMessage) {
    for (const char* number : {"0", "00"}) {
        AccountPlanEditor editor = OpenNew(0);
        editor.ClassAccount = QString::fromLatin1(number);
        editor.ClassName = QStringLiteral("Nulinė klasė");
        editor.ClassType = QStringLiteral("D");
        editor.MarkChanged();
        const AccountPlanEditor::SaveOutcome outcome = editor.Save();
        EXPECT_FALSE(outcome.Saved) << number;
        EXPECT_TRUE(outcome.ClearClassNumber);
        EXPECT_EQ(editor.ClassAccount, QString());
        EXPECT_TRUE(Shown().isEmpty());
        EXPECT_TRUE(editor.IsNew());
        EXPECT_TRUE(AccountPlanEditor::RefusesClassNumber(QString::fromLatin1(number)));
    }
    EXPECT_FALSE(AccountPlanEditor::RefusesClassNumber(QStringLiteral("000")));
}

TEST_P(AccountPlanEditorTest, NewAccountShowsItsParentsNumberAndUnchangedIsRefused) {
    AccountPlanEditor editor = OpenNew(account24_);
    EXPECT_EQ(editor.Account, QStringLiteral("24"));
    // The type comes from the class when the record has none.
    EXPECT_EQ(editor.Type, QStringLiteral("D"));
    editor.Name = QStringLiteral("Kitos skolos");
    editor.MarkChanged();
    const AccountPlanEditor::SaveOutcome outcome = editor.Save();
    EXPECT_FALSE(outcome.Saved);
    EXPECT_EQ(outcome.FocusControl, QStringLiteral("txtAccount"));
    const QList<host::RecordedMessage> shown = session_->Messages()->Take();
    ASSERT_EQ(shown.size(), 1);
    EXPECT_EQ(shown[0].Kind, MessageKind::Error);
    EXPECT_EQ(shown[0].Title, QStringLiteral("Orvo Apskaita"));
    EXPECT_EQ(shown[0].Text, QStringLiteral("Nenurodytas sąskaitos numeris"));
    EXPECT_TRUE(editor.Changed());
}

TEST_P(AccountPlanEditorTest, ChecksRunInOrderNumberNameTypeWithTheirFocus) {
    AccountPlanEditor cls = OpenNew(0);
    cls.ClassAccount = QStringLiteral("7");
    cls.ClassType = QStringLiteral("D");
    EXPECT_EQ(cls.Save().FocusControl, QStringLiteral("txtNameClass"));
    EXPECT_EQ(Shown(), QStringList{QStringLiteral("Nenurodytas sąskaitos pavadinimas")});
    cls.ClassName = QStringLiteral("Kitos pajamos");
    cls.ClassType = QStringLiteral("  ");
    EXPECT_EQ(cls.Save().FocusControl, QStringLiteral("txtTypeClass"));
    EXPECT_EQ(Shown(), QStringList{QStringLiteral("Nenurodytas sąskaitos tipas")});
    cls.ClassType = QStringLiteral("K");
    EXPECT_TRUE(cls.Save().Saved);
    EXPECT_EQ(cls.PanelTitle(), QStringLiteral("Klasė"));
    EXPECT_FALSE(cls.IsNew());
}

TEST_P(AccountPlanEditorTest, DeletingThePrefixOfTheNumberRestoresIt) {
    AccountPlanEditor editor = OpenNew(account24_);
    bool corrected = false;
    EXPECT_EQ(editor.PrefixedAccount(QStringLiteral("4"), &corrected), QStringLiteral("24"));
    EXPECT_TRUE(corrected);
    EXPECT_EQ(editor.PrefixedAccount(QStringLiteral("2415"), &corrected), QStringLiteral("2415"));
    EXPECT_FALSE(corrected);
}

TEST_P(AccountPlanEditorTest, TypingXInTheTypeBoxGivesDAndKGivesK) {
    EXPECT_EQ(AccountPlanEditor::TypeText(QStringLiteral("x")), QStringLiteral("D"));
    EXPECT_EQ(AccountPlanEditor::TypeText(QStringLiteral("k")), QStringLiteral("K"));
    EXPECT_EQ(AccountPlanEditor::TypeText(QStringLiteral("dk")), QStringLiteral("DK"));
    EXPECT_EQ(AccountPlanEditor::TypeText(QString()), QString());
    EXPECT_EQ(AccountPlanEditor::TypeText(QStringLiteral("KD")), QStringLiteral("D"));
}

TEST_P(AccountPlanEditorTest, NumberBoxesTakeDigitsAndBackspaceOnly) {
    EXPECT_TRUE(AccountPlanEditor::AcceptsNumberKey('0'));
    EXPECT_TRUE(AccountPlanEditor::AcceptsNumberKey('9'));
    EXPECT_TRUE(AccountPlanEditor::AcceptsNumberKey(8));
    EXPECT_FALSE(AccountPlanEditor::AcceptsNumberKey('a'));
    EXPECT_FALSE(AccountPlanEditor::AcceptsNumberKey('.'));
    EXPECT_FALSE(AccountPlanEditor::AcceptsNumberKey(' '));
}

TEST_P(AccountPlanEditorTest, CheckingASecondRoleUnchecksTheFirstAndTheRoleIsSaved) {
    AccountPlanEditor editor = Open(account241_);
    ASSERT_GE(editor.Roles.size(), 2);
    editor.SetRoleChecked(0, true);
    editor.SetRoleChecked(1, true);
    EXPECT_FALSE(editor.Roles[0].Checked);
    EXPECT_TRUE(editor.Roles[1].Checked);
    EXPECT_TRUE(editor.Changed());
    const QString code = editor.Roles[1].Code;
    ASSERT_TRUE(editor.Save().Saved);

    // Read again: the role lists this account and stands checked.
    AccountPlanEditor again = Open(account241_);
    int checked = 0;
    for (const AccountPlanEditor::RoleItem& r : again.Roles) {
        if (r.Checked) {
            ++checked;
            EXPECT_EQ(r.Code, code);
            EXPECT_TRUE(r.Accounts.contains(QStringLiteral("241;")));
        }
    }
    EXPECT_EQ(checked, 1);
}

TEST_P(AccountPlanEditorTest, TheChangedMarkEnablesSaveAndUndoAndDisablesNew) {
    AccountPlanEditor editor = Open(account24_);
    EXPECT_FALSE(editor.Changed());
    EXPECT_FALSE(editor.EnterEnabled());
    EXPECT_FALSE(editor.CancelEnabled());
    EXPECT_TRUE(editor.NewEnabled());
    editor.MarkChanged();
    EXPECT_TRUE(editor.EnterEnabled());
    EXPECT_TRUE(editor.CancelEnabled());
    EXPECT_FALSE(editor.NewEnabled());
}

TEST_P(AccountPlanEditorTest, ADuplicateNumberIsRefusedWithResult3604AndStaysChanged) {
    AccountPlanEditor editor = OpenNew(account24_);
    editor.Account = QStringLiteral("241");
    editor.Name = QStringLiteral("Dar vienos pirkėjų skolos");
    editor.MarkChanged();
    EXPECT_FALSE(editor.Save().Saved);
    EXPECT_EQ(Shown(), QStringList{QStringLiteral("Klaida!\n\nTokia sąskaita jau egzistuoja!")});
    EXPECT_TRUE(editor.Changed());
    EXPECT_TRUE(editor.IsNew());
}

TEST_P(AccountPlanEditorTest, AParentDeletedMeanwhileGivesResult1AndRefreshesTheTree) {
    AccountPlanEditor editor = OpenNew(account241_);
    ASSERT_TRUE(navigator_->DeleteOrvoObject(QStringLiteral("O0200401%1").arg(account241_)));
    Shown();
    editor.Account = QStringLiteral("24101");
    editor.Name = QStringLiteral("Užsienio pirkėjai");
    const AccountPlanEditor::SaveOutcome outcome = editor.Save();
    EXPECT_FALSE(outcome.Saved);
    EXPECT_TRUE(outcome.RefreshTree);
    EXPECT_EQ(Shown(),
              QStringList{QStringLiteral("Klaida!\n\nAukštesnio lygio sąskaita nebeegzistuoja!")});
}

TEST_P(AccountPlanEditorTest, UndoReadsTheRecordAgainAndANewRecordKeepsItsParent) {
    AccountPlanEditor editor = Open(account24_);
    editor.Object()->SetField(QStringLiteral("Name"), QStringLiteral("Pakeista"));
    editor.MarkChanged();
    ASSERT_TRUE(editor.Undo().ok());
    EXPECT_EQ(editor.Name, QStringLiteral("Gautinos sumos"));
    EXPECT_FALSE(editor.Changed());

    ASSERT_TRUE(editor.NewSameLevel().ok());
    EXPECT_TRUE(editor.IsNew());
    EXPECT_EQ(editor.Kind(), AccountPlanEditor::RecordKind::Account);
    EXPECT_EQ(editor.Account, QStringLiteral("2"));
    editor.Account = QStringLiteral("25");
    editor.Name = QStringLiteral("Trumpalaikės investicijos");
    ASSERT_TRUE(editor.Save().Saved);
    const qint64 id = editor.Object()->OIDR().mid(8).toLongLong();
    EXPECT_EQ(Object(id)->Field(QStringLiteral("ParentID")).toDouble(), double(class2_));
    EXPECT_EQ(StoredAccount(id), QStringLiteral("25"));
}

TEST_P(AccountPlanEditorTest, TheMatchingAccountIsTakenFromAPickAndCleared) {
    AccountPlanEditor editor(Object(account241_), true);
    ASSERT_TRUE(editor.Load().ok());
    EXPECT_TRUE(editor.NewAccountRowVisible());
    EXPECT_FALSE(editor.TakeNewAccount(QString()));
    EXPECT_FALSE(editor.TakeNewAccount(QStringLiteral("O0200401_")));
    ASSERT_TRUE(
        editor.TakeNewAccount(QStringLiteral("O0200401%1_24 Gautinos sumos").arg(account24_)));
    EXPECT_EQ(editor.NewAccountText, QStringLiteral("24 Gautinos sumos"));
    EXPECT_TRUE(editor.AcceptsDrop(QStringLiteral("O0200401%1").arg(account24_), 0));
    EXPECT_FALSE(editor.AcceptsDrop(QStringLiteral("O0200401%1").arg(class2_), 1));
    EXPECT_FALSE(editor.AcceptsDrop(QStringLiteral("O00001001"), 0));
    editor.ClearNewAccount();
    EXPECT_EQ(editor.NewAccountText, QString());
    EXPECT_TRUE(editor.Object()->Field(QStringLiteral("NewID")).isNull());

    // A class never shows the row; nor does a chart outside the full plan mode.
    AccountPlanEditor cls(Object(class2_), true);
    ASSERT_TRUE(cls.Load().ok());
    EXPECT_FALSE(cls.NewAccountRowVisible());
    EXPECT_FALSE(Open(account241_).NewAccountRowVisible());
}

TEST_P(AccountPlanEditorTest, ClosingWithChangesAsksWithTheCaption) {
    EXPECT_EQ(AccountPlanEditor::CloseQuestion(QStringLiteral("Sąskaita 24")),
              QStringLiteral("Sąskaita 24\n\nUždaryti be išsaugojimo?"));
}

ORVO_STORAGE_BACKENDS(AccountPlanEditorTest);

} // namespace
} // namespace orvo::accounts_testing
