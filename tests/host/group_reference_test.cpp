// The group an operation belongs to, read through GetParent with the group's reference
// as the operation editor asks for it: the settings an operation inherits and the path
// of names; an unknown group gives no row, and an account's parent is still an account.
#include "groups_fixture.h"

namespace orvo::host::testing {
namespace {

class GroupReferenceTest : public GroupsTest {};

TEST_P(GroupReferenceTest, GroupReferenceGivesTheSettingsAnOperationInherits) {
    const qint64 top = AddGroup({{QStringLiteral("Name"), Value(QStringLiteral("Pinigai"))},
                                 {QStringLiteral("GroupFlag"), Value(qint16(1))}});
    ASSERT_GT(top, 0);
    const qint64 group =
        AddGroup({{QStringLiteral("Name"), Value(QStringLiteral("Kasos orderiai"))},
                  {QStringLiteral("ParentID"), Value(double(top))},
                  {QStringLiteral("SerijaIndication"), Value(qint16(1))},
                  {QStringLiteral("Serija"), Value(QStringLiteral("KPO"))},
                  {QStringLiteral("ANMask"), Value(QStringLiteral("Prefix_AutoNumber"))},
                  {QStringLiteral("BRTemplateID"), Value(double(7))}});
    ASSERT_GT(group, 0);
    const BOResult r =
        CallOn(*session_, QStringLiteral("GetParent"), QStringLiteral("'O0201400%1'").arg(group));
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    const RecordsetPtr rs = r.Data.toRecordset();
    ASSERT_TRUE(rs);
    ASSERT_EQ(rs->RecordCount(), 1);
    rs->MoveFirst();
    EXPECT_EQ(rs->Field(QStringLiteral("OIDR")).toString(),
              QStringLiteral("O0201400%1").arg(group));
    EXPECT_EQ(rs->Field(QStringLiteral("Preview")).toString(), QStringLiteral("Kasos orderiai"));
    EXPECT_EQ(rs->Field(QStringLiteral("PreviewPath")).toString(),
              QStringLiteral("Pinigai\\Kasos orderiai"));
    EXPECT_EQ(rs->Field(QStringLiteral("FormOID")).toString(), QStringLiteral("O0201500"));
    EXPECT_EQ(rs->Field(QStringLiteral("Serija")).toString(), QStringLiteral("KPO"));
    EXPECT_EQ(rs->Field(QStringLiteral("SerijaIndication")).toInt32(), 1);
    EXPECT_EQ(rs->Field(QStringLiteral("ANMask")).toString(), QStringLiteral("Prefix_AutoNumber"));
    EXPECT_EQ(rs->Field(QStringLiteral("BRTemplateID")).toInt32(), 7);
}

TEST_P(GroupReferenceTest, UnknownGroupGivesNoRow) {
    const BOResult r =
        CallOn(*session_, QStringLiteral("GetParent"), QStringLiteral("'O0201400999999'"));
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    ASSERT_TRUE(r.Data.toRecordset());
    EXPECT_EQ(r.Data.toRecordset()->RecordCount(), 0);
}

ORVO_STORAGE_BACKENDS(GroupReferenceTest);

} // namespace
} // namespace orvo::host::testing
