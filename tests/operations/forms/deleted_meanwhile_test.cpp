// An operation deleted by someone else while its editor stays open: the editor's next
// save says "Operacija panaikinta !" and does nothing else (the operation is not written
// back), and neither does a click on its row in the tree.
#include "operation_forms_fixture.h"

#include "host/session/host_session.h"

namespace orvo::ui::testing {

TEST_F(OperationFormsTest, SavingAnOperationDeletedMeanwhileSaysSoAndWritesNothing) {
    const OrvoObjectUIOPtr op = NewOperationWithAnEntry();
    const auto form = OpenEditor(op);
    ASSERT_TRUE(form);
    Type(Find<QLineEdit>(form->Widget(), "txtNumber"), QStringLiteral("D-1"));
    Click(form->Widget(), "cmdWrite");
    const QString oidr = op->OIDR();
    ASSERT_GE(oidr.size(), 9) << Boxes().value(0).Text.toStdString();
    Boxes();

    // Another desk deletes it.
    const OrvoObjectUIPtr navigator =
        session_->Services()->ObjectsService()->GetObjectUI(QStringLiteral("O0201500"));
    ASSERT_TRUE(navigator->DeleteOrvoObject(oidr));
    const qint64 operations = CountOf(QStringLiteral("SELECT COUNT(*) FROM BROpers"));

    ExpectBox(QStringLiteral("cmdOK"));
    Type(Find<QLineEdit>(form->Widget(), "txtComment"), QStringLiteral("Pakeista po panaikinimo"));
    Click(form->Widget(), "cmdWrite");
    const QList<ShownMessage> boxes = Boxes();
    ASSERT_EQ(boxes.size(), 1);
    EXPECT_EQ(boxes[0].Text, QStringLiteral("Operacija panaikinta !"));
    EXPECT_EQ(CountOf(QStringLiteral("SELECT COUNT(*) FROM BROpers")), operations);
    EXPECT_EQ(CountOf(QStringLiteral("SELECT COUNT(*) FROM BR WHERE BROperID = ?"),
                      {Value(oidr.mid(8).toDouble())}),
              0);
    EXPECT_TRUE(AllAnswered());
}

} // namespace orvo::ui::testing
