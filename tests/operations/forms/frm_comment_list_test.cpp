// frmCommentList from the operation editor's "..." beside the comment: the book's ready
// comments are listed, kept (added, edited, deleted in the frame under the list) and one
// chosen becomes the operation's comment; a cancel changes nothing.
#include "operation_forms_fixture.h"

#include "host/session/host_session.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

namespace orvo::ui::testing {

namespace {

QStringList allComments(host::HostSession& session) {
    const host::QueryResult q =
        session.Db().Query(QStringLiteral("SELECT Name FROM BRCommentTemplates ORDER BY Name"));
    EXPECT_TRUE(q.ok()) << q.Text.toStdString();
    QStringList names;
    for (int i = 0; q.ok() && i < q.RowCount(); ++i)
        names << q.At(i, 0).toString();
    return names;
}

} // namespace

class CommentListFormTest : public OperationFormsTest {
protected:
    void SetUp() override {
        OperationFormsTest::SetUp();
        if (HasFatalFailure())
            return;
        form_ = OpenEditor(NewOperation());
        ASSERT_TRUE(form_);
        demo_ = allComments(*session_);
        ASSERT_FALSE(demo_.isEmpty()) << "the demo book keeps a few ready comments";
    }

    // The ready comments besides those the demo book came with, by name.
    QStringList Added() {
        QStringList added = allComments(*session_);
        for (const QString& name : demo_)
            added.removeOne(name);
        return added;
    }

    QWidget* Editor() { return form_->Widget(); }

    // Writes a new ready comment in the list's frame.
    static void AddRow(QDialog& list, const QString& text) {
        Action(&list, "mnuNew")->trigger();
        EXPECT_EQ(Find<QGroupBox>(&list, "frameRow")->title(), QStringLiteral("Naujas įrašas"));
        Type(Find<QLineEdit>(&list, "txtRow"), text);
        Click(&list, "cmdSave");
    }

    static void Select(QDialog& list, const QString& text) {
        auto* rows = Find<QTreeWidget>(&list, "lvwRows");
        for (int i = 0; i < rows->topLevelItemCount(); ++i)
            if (rows->topLevelItem(i)->text(0) == text) {
                rows->setCurrentItem(rows->topLevelItem(i));
                return;
            }
        ADD_FAILURE() << "no row " << text.toStdString();
    }

    std::shared_ptr<FrmBROper> form_;
    QStringList demo_;
};

TEST_F(CommentListFormTest, CommentWithAnApostropheIsStoredWithABlankInItsPlace) {
    QString chosenStatus;
    Expect(QStringLiteral("frmCommentListDialog"), [&chosenStatus](QDialog& list) {
        AddRow(list, QStringLiteral("Už 'Ąžuolo' prekes"));
        Select(list, QStringLiteral("Už  Ąžuolo  prekes"));
        Click(&list, "cmdOK");
        chosenStatus = Find<QLabel>(&list, "lblStatus")->text();
    });
    Click(Editor(), "cmdCommentList");
    EXPECT_EQ(Added(), QStringList({"Už  Ąžuolo  prekes"}));
    EXPECT_EQ(Find<QLineEdit>(Editor(), "txtComment")->text(),
              QStringLiteral("Už  Ąžuolo  prekes"));
    EXPECT_EQ(chosenStatus, QStringLiteral("Parinktas įrašas"));
    EXPECT_TRUE(AllAnswered());
    EXPECT_TRUE(Unexpected().isEmpty()) << Unexpected().join(',').toStdString();
}

TEST_F(CommentListFormTest, ListShowsItsCaptionHeaderFrameAndMenus) {
    Expect(QStringLiteral("frmCommentListDialog"), [](QDialog& list) {
        EXPECT_EQ(list.windowTitle(), QStringLiteral(" Komentarų šablonai"));
        auto* rows = Find<QTreeWidget>(&list, "lvwRows");
        EXPECT_EQ(rows->headerItem()->text(0), QStringLiteral("Pavadinimas"));
        EXPECT_EQ(Find<QGroupBox>(&list, "frameRow")->title(), QStringLiteral("Įrašo tvarkymas"));
        EXPECT_FALSE(Find<QWidget>(&list, "cmdSave")->isEnabled());
        EXPECT_EQ(Action(&list, "mnuNew")->text(), QStringLiteral("Pridėti"));
        EXPECT_EQ(Action(&list, "mnuEdit")->text(), QStringLiteral("Redaguoti"));
        EXPECT_EQ(Action(&list, "mnuDelete")->text(), QStringLiteral("Panaikinti"));
        EXPECT_EQ(Find<QPushButton>(&list, "cmdOK")->text(), QStringLiteral("Gerai"));
        EXPECT_EQ(Find<QPushButton>(&list, "cmdExit")->text(), QStringLiteral("Atšaukti"));
        Click(&list, "cmdExit");
    });
    Click(Editor(), "cmdCommentList");
    EXPECT_TRUE(AllAnswered());
}

TEST_F(CommentListFormTest, EditedRowIsStoredUnderItsOwnNumberAndChosen) {
    Expect(QStringLiteral("frmCommentListDialog"), [](QDialog& list) {
        AddRow(list, QStringLiteral("Nuoma už sausį"));
        Select(list, QStringLiteral("Nuoma už sausį"));
        Action(&list, "mnuEdit")->trigger();
        EXPECT_EQ(Find<QGroupBox>(&list, "frameRow")->title(), QStringLiteral("Įrašo redagavimas"));
        EXPECT_EQ(Find<QLineEdit>(&list, "txtRow")->text(), QStringLiteral("Nuoma už sausį"));
        Type(Find<QLineEdit>(&list, "txtRow"), QStringLiteral("Nuoma už vasarį"));
        Click(&list, "cmdSave");
        // The changed row stays the chosen one.
        Click(&list, "cmdOK");
    });
    Click(Editor(), "cmdCommentList");
    EXPECT_EQ(Added(), QStringList({"Nuoma už vasarį"}));
    EXPECT_EQ(Find<QLineEdit>(Editor(), "txtComment")->text(), QStringLiteral("Nuoma už vasarį"));
}

TEST_F(CommentListFormTest, DeletingAsksFirstAndNoKeepsTheRow) {
    Expect(QStringLiteral("frmCommentListDialog"), [this](QDialog& list) {
        AddRow(list, QStringLiteral("Avansas"));
        AddRow(list, QStringLiteral("Grąžinimas"));
        Select(list, QStringLiteral("Avansas"));
        ExpectBox(QStringLiteral("cmdNo"));
        Action(&list, "mnuDelete")->trigger();
        QStringList rows = Column(Find<QTreeWidget>(&list, "lvwRows"), 0);
        EXPECT_TRUE(rows.contains(QStringLiteral("Avansas")));
        Select(list, QStringLiteral("Avansas"));
        ExpectBox(QStringLiteral("cmdYes"));
        Action(&list, "mnuDelete")->trigger();
        rows = Column(Find<QTreeWidget>(&list, "lvwRows"), 0);
        EXPECT_FALSE(rows.contains(QStringLiteral("Avansas")));
        EXPECT_TRUE(rows.contains(QStringLiteral("Grąžinimas")));
        Click(&list, "cmdExit");
    });
    Click(Editor(), "cmdCommentList");
    EXPECT_EQ(Added(), QStringList({"Grąžinimas"}));
    const QList<ShownMessage> boxes = Boxes();
    ASSERT_EQ(boxes.size(), 2);
    EXPECT_EQ(boxes[0].Text, QStringLiteral("Ar tikrai norite panaikinti?"));
}

TEST_F(CommentListFormTest, CancelledListLeavesTheCommentAsItWas) {
    Type(Find<QLineEdit>(Editor(), "txtComment"), QStringLiteral("Savas tekstas"));
    Expect(QStringLiteral("frmCommentListDialog"), [](QDialog& list) {
        AddRow(list, QStringLiteral("Kitas tekstas"));
        Click(&list, "cmdExit");
    });
    Click(Editor(), "cmdCommentList");
    EXPECT_EQ(Find<QLineEdit>(Editor(), "txtComment")->text(), QStringLiteral("Savas tekstas"));
    // What was written in the list stays there for the next time.
    EXPECT_EQ(Added(), QStringList({"Kitas tekstas"}));
}

TEST_F(CommentListFormTest, EmptyRowIsRefusedAndTheFrameKeepsWaiting) {
    Expect(QStringLiteral("frmCommentListDialog"), [this](QDialog& list) {
        ExpectBox(QStringLiteral("cmdOK"));
        AddRow(list, QStringLiteral("  "));
        EXPECT_TRUE(Find<QWidget>(&list, "cmdSave")->isEnabled());
        EXPECT_EQ(Find<QGroupBox>(&list, "frameRow")->title(), QStringLiteral("Naujas įrašas"));
        Click(&list, "cmdCancel");
        EXPECT_FALSE(Find<QWidget>(&list, "cmdSave")->isEnabled());
        Click(&list, "cmdExit");
    });
    Click(Editor(), "cmdCommentList");
    EXPECT_TRUE(Added().isEmpty());
    const QList<ShownMessage> boxes = Boxes();
    ASSERT_EQ(boxes.size(), 1);
    EXPECT_EQ(boxes[0].Text, QStringLiteral("Neįvestas komentaras !"));
}

TEST_F(CommentListFormTest, ProtocolOfASavedOperationShowsItsStampsAndItsChanges) {
    const OrvoObjectUIOPtr op = NewOperationWithAnEntry();
    form_ = OpenEditor(op);
    ASSERT_TRUE(form_);
    Type(Find<QLineEdit>(Editor(), "txtNumber"), QStringLiteral("P-1"));
    Click(Editor(), "cmdWrite");
    ASSERT_GE(op->OIDR().size(), 9) << Boxes().value(0).Text.toStdString();
    Expect(QStringLiteral("frmProtocolDialog"), [](QDialog& protocol) {
        EXPECT_EQ(protocol.windowTitle(), QStringLiteral("Protokolas"));
        EXPECT_FALSE(Find<QLabel>(&protocol, "lblCreatedBy")->text().isEmpty());
        EXPECT_FALSE(Find<QLabel>(&protocol, "lblCreationDate")->text().isEmpty());
        auto* log = Find<QTreeWidget>(&protocol, "BRLog");
        EXPECT_EQ(log->headerItem()->text(0), QStringLiteral("Data"));
        EXPECT_EQ(log->headerItem()->text(1), QStringLiteral("Vartotojas"));
        ASSERT_GE(log->topLevelItemCount(), 1);
        EXPECT_FALSE(log->topLevelItem(0)->text(0).isEmpty());
        EXPECT_EQ(log->topLevelItem(0)->text(1), Find<QLabel>(&protocol, "lblCreatedBy")->text());
        Click(&protocol, "cmdClose");
    });
    ASSERT_TRUE(Action(Editor(), "mnuProtocol")->isEnabled());
    Action(Editor(), "mnuProtocol")->trigger();
    EXPECT_TRUE(AllAnswered());
    EXPECT_TRUE(Unexpected().isEmpty()) << Unexpected().join(',').toStdString();
}

} // namespace orvo::ui::testing
