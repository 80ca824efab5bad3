// An account dragged onto the matching-account box (txtNewAcc) of the chart's editor: a
// real drag entering the box and a real drop on it, carrying the object key as its text
// as the host's tree gives it. Only an account of the chart that is no class is taken,
// and only while the box is shown; the box then shows the account's number, a blank
// and its Preview, and the record's NewID points to it.
#include "forms_fixture.h"

#include "accounts/account_plan_navigator.h"
#include "accounts/forms/account_plan_form.h"
#include "core/null_readers.h"
#include "ui/shell/host_tree.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QPushButton>

namespace orvo::accounts_forms::testing {

namespace {

struct DropOutcome {
    bool EnterAccepted = false;
    bool DropAccepted = false;
};

class AccountPlanDropTest : public FormsTest {
protected:
    QString IdOf(const QString& account) {
        return Scalar(QStringLiteral("SELECT ID FROM Accounts WHERE Account = ?"),
                      {Value(account)});
    }
    QString KeyOf(const QString& account) { return QStringLiteral("O0200401") + IdOf(account); }

    // One navigator for the test: the plan mode is its own.
    OrvoObjectUIPtr Chart() {
        if (!chart_)
            chart_ =
                session_->Services()->ObjectsService()->GetObjectUI(QStringLiteral("O0200400"));
        return chart_;
    }

    // The editor of account 2410, in the full plan mode when `full`.
    std::shared_ptr<FrmAccountPlan> OpenEditor(bool full) {
        if (full)
            Chart()->ClickMenu(QStringLiteral("O0200400"), QString(), UI0200400::kPlans,
                               QStringLiteral("5"));
        return Open<FrmAccountPlan>(QStringLiteral("frmAccountPlan"),
                                    Chart()->GetOrvoObject(KeyOf(QStringLiteral("2410"))));
    }

    static QLineEdit* Box(const std::shared_ptr<FrmAccountPlan>& form) {
        return Control<QLineEdit>(form->Widget(), QStringLiteral("txtNewAcc"));
    }

    // A drag carrying `text` enters the box and is dropped on it.
    static DropOutcome DragAndDrop(QWidget* box, const QString& text) {
        DropOutcome outcome;
        QMimeData data;
        data.setText(text);
        const QPoint at = box->rect().center();
        QDragEnterEvent enter(at, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton,
                              Qt::NoModifier);
        QApplication::sendEvent(box, &enter);
        outcome.EnterAccepted = enter.isAccepted();
        QDropEvent drop(QPointF(at), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton,
                        Qt::NoModifier);
        QApplication::sendEvent(box, &drop);
        outcome.DropAccepted = drop.isAccepted();
        return outcome;
    }

    OrvoObjectUIPtr chart_;
};

TEST_F(AccountPlanDropTest, AnAccountDroppedOnTheBoxBecomesTheMatchingAccount) {
    const auto form = OpenEditor(true);
    ASSERT_TRUE(form);
    ASSERT_TRUE(Box(form)->isVisible());
    const OrvoObjectUIOPtr dragged = Object(KeyOf(QStringLiteral("2420")));
    ASSERT_TRUE(dragged);
    const DropOutcome outcome = DragAndDrop(Box(form), KeyOf(QStringLiteral("2420")));
    EXPECT_TRUE(outcome.EnterAccepted);
    EXPECT_TRUE(outcome.DropAccepted);
    const QString preview = NzString(dragged->Field(QStringLiteral("Preview")));
    ASSERT_FALSE(preview.isEmpty());
    // The number stands once, followed by the name.
    EXPECT_EQ(Box(form)->text(), QStringLiteral("2420 Kitos gautinos sumos"));
    EXPECT_TRUE(preview.startsWith(QStringLiteral("2420 ")));
    EXPECT_EQ(QString::number(NzLong(form->GetOrvoObjectUIO()->Field(QStringLiteral("NewID")))),
              IdOf(QStringLiteral("2420")));
    // The drop is a change of the record, to be saved or undone.
    EXPECT_TRUE(Control<QPushButton>(form->Widget(), QStringLiteral("cmdEnter"))->isEnabled());
}

TEST_F(AccountPlanDropTest, AClassIsNotTaken) {
    const QString classId =
        Scalar(QStringLiteral("SELECT ID FROM Accounts WHERE GroupFlag <> 0 ORDER BY ID"));
    ASSERT_FALSE(classId.isEmpty());
    const auto form = OpenEditor(true);
    ASSERT_TRUE(form);
    ASSERT_TRUE(Box(form)->isVisible());
    const QString before = Box(form)->text();
    const DropOutcome outcome = DragAndDrop(Box(form), QStringLiteral("O0200401") + classId);
    EXPECT_FALSE(outcome.EnterAccepted);
    EXPECT_FALSE(outcome.DropAccepted);
    EXPECT_EQ(Box(form)->text(), before);
    EXPECT_TRUE(form->GetOrvoObjectUIO()->Field(QStringLiteral("NewID")).isNull());
}

TEST_F(AccountPlanDropTest, AKeyOfAnotherKindIsNotTaken) {
    const QString firm = Scalar(QStringLiteral("SELECT ID FROM Firms ORDER BY ID"));
    ASSERT_FALSE(firm.isEmpty());
    const auto form = OpenEditor(true);
    ASSERT_TRUE(form);
    ASSERT_TRUE(Box(form)->isVisible());
    for (const QString& key :
         QStringList{QStringLiteral("O0000100") + firm, QStringLiteral("O0200401"),
                     QStringLiteral("2420 Kitos gautinos sumos")}) {
        const DropOutcome outcome = DragAndDrop(Box(form), key);
        EXPECT_FALSE(outcome.EnterAccepted) << key.toStdString();
        EXPECT_FALSE(outcome.DropAccepted) << key.toStdString();
    }
    EXPECT_TRUE(form->GetOrvoObjectUIO()->Field(QStringLiteral("NewID")).isNull());
    EXPECT_FALSE(Control<QPushButton>(form->Widget(), QStringLiteral("cmdEnter"))->isEnabled());
}

TEST_F(AccountPlanDropTest, NothingIsTakenWhileTheBoxIsHidden) {
    const auto form = OpenEditor(false);
    ASSERT_TRUE(form);
    ASSERT_FALSE(Box(form)->isVisible());
    const DropOutcome outcome = DragAndDrop(Box(form), KeyOf(QStringLiteral("2420")));
    EXPECT_FALSE(outcome.EnterAccepted);
    EXPECT_FALSE(outcome.DropAccepted);
    EXPECT_TRUE(form->GetOrvoObjectUIO()->Field(QStringLiteral("NewID")).isNull());
}

TEST_F(AccountPlanDropTest, ARowDraggedFromTheTreeIsTaken) {
    ui::HostTree& tree = *window_->Tree();
    QTreeWidgetItem* chart = tree.NodeByTitle(QStringLiteral("Sąskaitų planas"));
    ASSERT_NE(chart, nullptr);
    // The account 2420 is found by opening the chart's rows as a user would.
    const QString wanted = KeyOf(QStringLiteral("2420"));
    QTreeWidgetItem* row = nullptr;
    QList<QTreeWidgetItem*> walk{chart};
    for (int guard = 0; !walk.isEmpty() && !row && guard < 200; ++guard) {
        QTreeWidgetItem* item = walk.takeFirst();
        item->setExpanded(true);
        for (int i = 0; i < item->childCount(); ++i) {
            QTreeWidgetItem* child = item->child(i);
            if (child->data(0, ui::HostTree::OidRole).toString() == wanted)
                row = child;
            else if (ui::HostTree::KindOf(child) == ui::HostTree::ItemKind::Row)
                walk.append(child);
        }
    }
    ASSERT_NE(row, nullptr);
    QList<int> path;
    for (QTreeWidgetItem* at = row; at; at = at->parent())
        path.prepend(at->parent() ? at->parent()->indexOfChild(at) : tree.indexOfTopLevelItem(at));
    QModelIndex index;
    for (const int i : path)
        index = tree.model()->index(i, 0, index);
    std::unique_ptr<QMimeData> data(tree.model()->mimeData({index}));
    ASSERT_TRUE(data);

    const auto form = OpenEditor(true);
    ASSERT_TRUE(form);
    const DropOutcome outcome = DragAndDrop(Box(form), data->text());
    EXPECT_TRUE(outcome.DropAccepted);
    EXPECT_TRUE(Box(form)->text().startsWith(QStringLiteral("2420 ")));
}

} // namespace

} // namespace orvo::accounts_forms::testing
