// The view period's window on the desktop: "Peržiūros nustatymai" of the groups' node
// asks for the period in the host's own window, keeps it, and the tree's group lists then
// show only the operations within it, still a screen at a time.
#include "period_fixture.h"

#include "ui/shell/period_dialog.h"

#include <QCheckBox>
#include <QDateEdit>
#include <QPushButton>

namespace orvo::ui::testing {

namespace {

const QString kViewSettings = QStringLiteral("Peržiūros nustatymai");

struct Seen {
    QString Title;
    QStringList Captions;
    int Windows = 0;
};

// Answers the period window: each side bounded by its date, or unbounded when the date
// is null; then Gerai (or Atšaukti when `cancel`). Message boxes are closed with Gerai;
// what was seen is written into `seen`.
void answerPeriod(const QDate& from, const QDate& to, bool cancel, Seen* seen) {
    DialogDriver::Set([=](QDialog& dialog) {
        if (dialog.objectName() == QLatin1String("MessageBox")) {
            DialogDriver::Click(dialog, QStringLiteral("cmdOK"));
            return;
        }
        if (dialog.objectName() != QLatin1String("frmViewPeriod"))
            return;
        if (seen) {
            ++seen->Windows;
            seen->Title = dialog.windowTitle();
            for (const char* name : {"chkFrom", "chkTo"})
                seen->Captions << dialog.findChild<QCheckBox*>(QString::fromLatin1(name))->text();
            for (const char* name : {"cmdOK", "cmdCancel"})
                seen->Captions << dialog.findChild<QPushButton*>(QString::fromLatin1(name))->text();
        }
        if (cancel) {
            DialogDriver::Click(dialog, QStringLiteral("cmdCancel"));
            return;
        }
        const QList<std::tuple<const char*, const char*, QDate>> sides = {
            {"chkFrom", "dtpFrom", from}, {"chkTo", "dtpTo", to}};
        for (const auto& [check, date, value] : sides) {
            dialog.findChild<QCheckBox*>(QString::fromLatin1(check))->setChecked(value.isValid());
            if (value.isValid())
                dialog.findChild<QDateEdit*>(QString::fromLatin1(date))->setDate(value);
        }
        DialogDriver::Click(dialog, QStringLiteral("cmdOK"));
        // A refused period leaves the window open: it is then cancelled.
        if (dialog.isVisible())
            DialogDriver::Click(dialog, QStringLiteral("cmdCancel"));
    });
}

class PeriodDialogTest : public PeriodTest {
protected:
    void ClickViewSettings() {
        QTreeWidgetItem* groups = Node(QStringLiteral("Finansinių operacijų apskaita"));
        ASSERT_NE(groups, nullptr);
        Tree().Click(groups, kViewSettings, QString());
    }
};

TEST_F(PeriodDialogTest, ViewSettingsOpensThePeriodWindowWithItsCaptions) {
    Seen seen;
    answerPeriod(QDate(), QDate(), true, &seen);
    ClickViewSettings();
    EXPECT_EQ(seen.Windows, 1);
    EXPECT_EQ(seen.Title, QStringLiteral("Peržiūros laikotarpis"));
    EXPECT_EQ(seen.Captions, QStringList({QStringLiteral("Nuo:"), QStringLiteral("Iki:"),
                                          QStringLiteral("Gerai"), QStringLiteral("Atšaukti")}));
    // The click is served: no refusal of the operation is shown.
    EXPECT_TRUE(window_->Services().Messages->Take().isEmpty());
}

TEST_F(PeriodDialogTest, ThePeriodChosenIsKeptAndTheOpenedGroupShowsOnlyItsOperations) {
    QTreeWidgetItem* row = GroupRow();
    ASSERT_NE(row, nullptr);
    const QStringList all = Operations(row);
    ASSERT_EQ(all.size(), 5);
    answerPeriod(days_.at(1), days_.at(3), false, nullptr);
    ClickViewSettings();
    EXPECT_EQ(StoredPeriod(), Day(days_.at(1)) + QLatin1Char(';') + Day(days_.at(3)));
    EXPECT_EQ(Shell(QStringLiteral("GetOldPeriod")).Value.toString(), StoredPeriod());
    // The opened list was read again at once.
    EXPECT_EQ(Operations(row), all.mid(1, 3));
}

TEST_F(PeriodDialogTest, AnUncheckedSideIsNoBound) {
    QTreeWidgetItem* row = GroupRow();
    ASSERT_NE(row, nullptr);
    const QStringList all = Operations(row);
    answerPeriod(days_.at(2), QDate(), false, nullptr);
    ClickViewSettings();
    EXPECT_EQ(StoredPeriod(), Day(days_.at(2)) + QLatin1Char(';'));
    EXPECT_EQ(Operations(row), all.mid(2));
    answerPeriod(QDate(), QDate(), false, nullptr);
    ClickViewSettings();
    EXPECT_EQ(StoredPeriod(), QStringLiteral(";"));
    EXPECT_EQ(Operations(row), all);
}

TEST_F(PeriodDialogTest, AStartAfterTheEndIsRefusedWithAWarningAndTheWindowStaysOpen) {
    Seen seen;
    answerPeriod(days_.at(3), days_.at(1), false, &seen);
    ClickViewSettings();
    const QList<ShownMessage> boxes = window_->Services().Messages->Take();
    ASSERT_EQ(boxes.size(), 1);
    EXPECT_EQ(boxes.first().Kind, MessageKind::Warning);
    EXPECT_TRUE(StoredPeriod().isEmpty());
    EXPECT_TRUE(Tree().Period().IsOpen());
}

TEST_F(PeriodDialogTest, TheWindowOpensOnThePeriodInForce) {
    answerPeriod(days_.at(1), QDate(), false, nullptr);
    ClickViewSettings();
    bool fromChecked = false;
    bool toChecked = true;
    QDate shown;
    DialogDriver::Set([&](QDialog& dialog) {
        fromChecked = dialog.findChild<QCheckBox*>(QStringLiteral("chkFrom"))->isChecked();
        toChecked = dialog.findChild<QCheckBox*>(QStringLiteral("chkTo"))->isChecked();
        shown = dialog.findChild<QDateEdit*>(QStringLiteral("dtpFrom"))->date();
        DialogDriver::Click(dialog, QStringLiteral("cmdCancel"));
    });
    ClickViewSettings();
    EXPECT_TRUE(fromChecked);
    EXPECT_FALSE(toChecked);
    EXPECT_EQ(shown, days_.at(1));
}

TEST_F(PeriodDialogTest, AGroupWithinThePeriodIsStillReadAScreenAtATime) {
    Tree().SetPageSize(2);
    answerPeriod(days_.at(1), QDate(), false, nullptr);
    ClickViewSettings();
    QTreeWidgetItem* row = GroupRow();
    ASSERT_NE(row, nullptr);
    ASSERT_EQ(row->childCount(), 3);
    EXPECT_EQ(HostTree::KindOf(row->child(2)), HostTree::ItemKind::More);
    for (int guard = 0; guard < 10; ++guard) {
        QTreeWidgetItem* last = row->child(row->childCount() - 1);
        if (HostTree::KindOf(last) != HostTree::ItemKind::More)
            break;
        Tree().Activate(last);
    }
    EXPECT_EQ(Operations(row), OperationsBetween(Day(days_.at(1)), QString()));
    EXPECT_EQ(Operations(row).size(), 4);
}

TEST_F(PeriodDialogTest, GroupsOpenedInsideStayOpenWhenThePeriodChanges) {
    QTreeWidgetItem* row = GroupRow();
    ASSERT_NE(row, nullptr);
    const QString oid = row->data(0, HostTree::OidRole).toString();
    answerPeriod(days_.at(4), QDate(), false, nullptr);
    ClickViewSettings();
    QTreeWidgetItem* again = nullptr;
    for (QTreeWidgetItemIterator it(&Tree()); *it; ++it)
        if ((*it)->data(0, HostTree::OidRole).toString() == oid)
            again = *it;
    ASSERT_NE(again, nullptr);
    EXPECT_TRUE(again->isExpanded());
    EXPECT_EQ(Operations(again).size(), 1);
}

} // namespace

} // namespace orvo::ui::testing
