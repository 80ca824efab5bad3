// The window of users, offscreen on a stored book of each backend: the rights are
// listed with the component's header first; the flags of the chosen right are checked
// below the list, only where the right takes them; what is granted is stored with the
// user by "Įrašyti".
#include "catalogue_forms_fixture.h"

namespace orvo::ui::testing {
namespace {

using UserFormsTest = CatalogueFormsTest;

int rowOf(const ControlState& list, const QString& key) {
    for (int i = 0; i < list.Rows.size(); ++i)
        if (list.Rows.at(i).Cells.value(0).Tag.toString() == key)
            return i;
    return -1;
}

TEST_P(UserFormsTest, RightsGrantedInTheWindowAreStoredWithTheUser) {
    ASSERT_TRUE(Open(host::kinds::User, host::kinds::User, QStringLiteral("Naujas naudotojas")));
    Type({{QStringLiteral("txtCode"), QStringLiteral("ona")},
          {QStringLiteral("txtName"), QStringLiteral("Ona Onaitė")}});
    const ControlState list = Read(QStringLiteral("lvwRights"));
    EXPECT_EQ(list.Headers, (QStringList{QStringLiteral("Teisė"), QStringLiteral("Skaityti"),
                                         QStringLiteral("Naikinti"), QStringLiteral("Keisti"),
                                         QStringLiteral("Kurti"), QStringLiteral("Penkta")}));
    ASSERT_FALSE(list.Rows.isEmpty());
    EXPECT_EQ(list.Rows.at(0).Text(0), QStringLiteral("Buhalterinė apskaita"));
    EXPECT_TRUE(list.Rows.at(0).Cells.value(0).Bold);

    // The header takes no flag.
    ASSERT_TRUE(Driver().SelectRow(QStringLiteral("lvwRights"), 0).ok());
    EXPECT_FALSE(Read(QStringLiteral("chkReadFlag")).Enabled);
    // An on/off right takes only the first.
    const int plan = rowOf(list, QStringLiteral("CAccountPlanRights"));
    ASSERT_GE(plan, 0);
    ASSERT_TRUE(Driver().SelectRow(QStringLiteral("lvwRights"), plan).ok());
    EXPECT_TRUE(Read(QStringLiteral("chkReadFlag")).Enabled);
    EXPECT_FALSE(Read(QStringLiteral("chkEditFlag")).Enabled);
    ASSERT_TRUE(Driver().SetChecked(QStringLiteral("chkReadFlag"), true).ok());

    const int firms = rowOf(list, QStringLiteral("CFirms"));
    ASSERT_GE(firms, 0);
    ASSERT_TRUE(Driver().SelectRow(QStringLiteral("lvwRights"), firms).ok());
    ASSERT_TRUE(Driver().SetChecked(QStringLiteral("chkReadFlag"), true).ok());
    ASSERT_TRUE(Driver().SetChecked(QStringLiteral("chkEditFlag"), true).ok());
    EXPECT_EQ(Read(QStringLiteral("lvwRights")).Rows.at(firms).Text(3), QStringLiteral("+"));

    Click(QStringLiteral("cmdWrite"));
    EXPECT_TRUE(BoxTexts().isEmpty());
    EXPECT_EQ(Title(), QStringLiteral("Naudotojas: ona Ona Onaitė"));
    const QueryResult q = session_->Db().Query(
        QStringLiteral("SELECT r.RightKey, r.ReadFlag, r.EditFlag, r.DeleteFlag FROM Rights r "
                       "JOIN Users u ON u.ID = r.UserID WHERE u.Code = 'ona' ORDER BY r.RightKey"));
    ASSERT_EQ(q.RowCount(), 2);
    EXPECT_EQ(q.At(0, 0).toString(), QStringLiteral("CAccountPlanRights"));
    EXPECT_NE(q.At(0, 1).toInt32(), 0);
    EXPECT_EQ(q.At(1, 0).toString(), QStringLiteral("CFirms"));
    EXPECT_NE(q.At(1, 2).toInt32(), 0);
    EXPECT_EQ(q.At(1, 3).toInt32(), 0);
    // Read again, the window shows the stored flags.
    EXPECT_EQ(Read(QStringLiteral("lvwRights")).Rows.at(firms).Text(1), QStringLiteral("+"));
}

ORVO_STORAGE_BACKENDS(UserFormsTest);

} // namespace
} // namespace orvo::ui::testing
