// UIO0201600 with the real host on both backends: its account list with the opening
// balances, how a deleted account shows in the editor's rows, the allowed addressee
// kinds and their failure, the parent group, the forwarded queries, deleting a set and
// saving a new record as a copy of a stored set.
#include "template_fixture.h"

#include "host/session/scripted_messages.h"

namespace orvo {
namespace {

using accounts_testing::TemplateTest;

class TemplateObjectTest : public TemplateTest {};

TEST_P(TemplateObjectTest, AccountListStartsWithTheOpeningBalances) {
    const qint64 cls = Add(0, QStringLiteral("2"), QStringLiteral("Trumpalaikis turtas"));
    Add(cls, QStringLiteral("2410"), QStringLiteral("Pirkėjų skolos"));
    Add(cls, QStringLiteral("2710"), QStringLiteral("Banko sąskaitos"));
    OrvoObjectUIOPtr object = templates_->GetOrvoObject(QString());
    const ValueResult r = object->Properties(QStringLiteral("AccountList"), QString());
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    EXPECT_EQ(Rows(r.Value.toRecordset(), {"Account", "Name", "Likutis"}),
              QStringList({"0|Pradiniai likučiai|True", "2410|Pirkėjų skolos|False",
                           "2710|Banko sąskaitos|False"}));
}

TEST_P(TemplateObjectTest, DeletedAccountShowsStarAndUnknownAccount) {
    const qint64 cls = Add(0, QStringLiteral("2"), QStringLiteral("Trumpalaikis turtas"));
    Add(cls, QStringLiteral("2410"), QStringLiteral("Pirkėjų skolos"));
    const qint64 gone = Add(cls, QStringLiteral("2420"), QStringLiteral("Kitos skolos"));
    const qint64 t = AddTemplate(0, QStringLiteral("Skola"), {"2410 2420 1", "0 2410 0.5"});
    ASSERT_TRUE(navigator_->DeleteOrvoObject(QStringLiteral("O0200401%1").arg(gone)));

    OrvoObjectUIOPtr object = Template(t);
    ASSERT_TRUE(object);
    const ValueResult rows = object->Properties(QStringLiteral("TemplateRows"), QString());
    ASSERT_TRUE(rows.ok()) << rows.Text.toStdString();
    EXPECT_EQ(
        Rows(rows.Value.toRecordset(), {"AccountD", "AccountDMark", "AccountDName", "AccountC",
                                        "AccountCMark", "AccountCName", "Factor"}),
        QStringList({"2410||Pirkėjų skolos|2420|*|Nežinoma sąskaita|1",
                     "0||Pradiniai likučiai|2410||Pirkėjų skolos|0.5"}));
    // The entry can still be edited and stored.
    const RecordsetPtr acc = object->Field(QStringLiteral("BRTemplateAcc")).toRecordset();
    acc->MoveFirst();
    acc->SetField(QStringLiteral("AccountC"), QStringLiteral("2410"));
    acc->Update();
    EXPECT_TRUE(object->Save().ok());
}

TEST_P(TemplateObjectTest, EnabledAddresseeGivesKindsAndNames) {
    const qint64 cls = Add(0, QStringLiteral("2"), QStringLiteral("Trumpalaikis turtas"));
    const qint64 acc = Add(cls, QStringLiteral("2410"), QStringLiteral("Pirkėjų skolos"));
    ASSERT_TRUE(session_->Db()
                    .Execute(QStringLiteral("INSERT INTO EnabledAddressee (AccountID, Sign, FOID) "
                                            "VALUES (?, 0, 'O0001402')"),
                             {Value(double(acc))})
                    .ok());
    OrvoObjectUIOPtr object = templates_->GetOrvoObject(QString());
    const ValueResult r =
        object->Properties(QStringLiteral("EnabledAddressee"), QStringLiteral("2410"));
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    EXPECT_EQ(Rows(r.Value.toRecordset(), {"FOID", "Name"}),
              QStringList({"O0001402|Fizinis asmuo"}));
    EXPECT_TRUE(Shown().isEmpty());
}

TEST_P(TemplateObjectTest, EnabledAddresseeFailureShowsKlaida) {
    OrvoObjectUIOPtr object = templates_->GetOrvoObject(QString());
    // A side that is no number is refused by the business object.
    const ValueResult r =
        object->Properties(QStringLiteral("EnabledAddressee"), QStringLiteral("'2410','x'"));
    EXPECT_NE(r.Code, 0);
    const QStringList shown = Shown();
    ASSERT_EQ(shown.size(), 1);
    EXPECT_TRUE(shown.first().startsWith(QStringLiteral("Klaida!\nGetEnabledAddressee:\n")))
        << shown.first().toStdString();
    EXPECT_EQ(r.Text, shown.first());
}

TEST_P(TemplateObjectTest, ParentIsTheGroupAbove) {
    const qint64 g = AddGroup(0, QStringLiteral("Kasa"));
    const qint64 t = AddTemplate(g, QStringLiteral("Pajamos"), {"2720 5000 1"});
    OrvoObjectUIOPtr object = Template(t);
    const ValueResult r = object->Properties(QStringLiteral("Parent"), QString());
    ASSERT_TRUE(r.ok());
    const auto parent = std::dynamic_pointer_cast<OrvoObjectUIO>(r.Value.toObject());
    ASSERT_TRUE(parent);
    EXPECT_EQ(parent->OIDR(), QStringLiteral("O0201600%1").arg(g));
    EXPECT_EQ(parent->Field(QStringLiteral("Name")).toString(), QStringLiteral("Kasa"));
    const ValueResult top = Template(g)->Properties(QStringLiteral("Parent"), QString());
    EXPECT_TRUE(top.ok());
    EXPECT_TRUE(top.Value.isNull());
}

TEST_P(TemplateObjectTest, TemplateAccAndAddrAndTemplateListAreForwarded) {
    const qint64 g = AddGroup(0, QStringLiteral("Kasa"));
    const qint64 t = AddTemplate(g, QStringLiteral("Pajamos"), {"2720 5000 1", "2720 4492 0.21"});
    OrvoObjectUIOPtr object = templates_->GetOrvoObject(QString());
    const ValueResult lines =
        object->Properties(QStringLiteral("TemplateAccAndAddr"), QString::number(t));
    ASSERT_TRUE(lines.ok()) << lines.Text.toStdString();
    EXPECT_EQ(Rows(lines.Value.toRecordset(), {"AccountD", "AccountC", "Factor"}),
              QStringList({"2720|5000|1", "2720|4492|0.21"}));
    const ValueResult list =
        object->Properties(QStringLiteral("TemplateList"), QStringLiteral("None"));
    ASSERT_TRUE(list.ok()) << list.Text.toStdString();
    EXPECT_EQ(Rows(list.Value.toRecordset(), {"Preview", "AccPreview"}),
              QStringList({"Kasa|", "Pajamos|D2720 K5000 ×1; D2720 K4492 ×0,21"}));
}

TEST_P(TemplateObjectTest, DeleteTemplateSetRemovesTheTemplateWithItsEntries) {
    const qint64 t = AddTemplate(0, QStringLiteral("Trinamas"), {"2410 5000 1", "5000 4492 0.21"});
    OrvoObjectUIOPtr object = Template(t);
    const ValueResult r = object->Methods(QStringLiteral("DeleteTemplateSet"), {});
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    const host::QueryResult q =
        session_->Db().Query(QStringLiteral("SELECT COUNT(*) FROM BRTemplateAcc"));
    EXPECT_EQ(q.Scalar().toInt32(), 0);
    EXPECT_FALSE(Template(t));
    // A second time there is nothing to delete: the refusal is shown.
    EXPECT_NE(object->Methods(QStringLiteral("DeleteTemplateSet"), {}).Code, 0);
    EXPECT_EQ(Shown().size(), 1);
}

TEST_P(TemplateObjectTest, NewRecordWithNewModeIsSavedAsACopyOfTheSet) {
    const qint64 source = AddGroup(0, QStringLiteral("Šaltinis"));
    AddTemplate(source, QStringLiteral("Pardavimas"), {"2410 5000 1"});
    const qint64 target = AddGroup(0, QStringLiteral("Tikslas"));

    OrvoObjectUIOPtr object = templates_->GetOrvoObject(QString());
    object->SetField(QStringLiteral("ParentID"), Value(double(target)));
    object->SetField(QStringLiteral("GroupFlag"), Value(true));
    object->SetField(QStringLiteral("Name"), QStringLiteral("Kopija"));
    object->SetField(QStringLiteral("NewMode"), QStringLiteral("O0201600|%1").arg(source));
    const ResultRecord saved = object->Save();
    ASSERT_TRUE(saved.ok()) << saved.Text.toStdString();
    const qint64 copy = object->OIDR().mid(8).toLongLong();
    EXPECT_NE(copy, source);
    EXPECT_EQ(object->Field(QStringLiteral("Name")).toString(), QStringLiteral("Kopija"));
    EXPECT_EQ(static_cast<qint64>(object->Field(QStringLiteral("ParentID")).toDouble()), target);

    const ValueResult list =
        object->Properties(QStringLiteral("TemplateList"), QString::number(target));
    ASSERT_TRUE(list.ok()) << list.Text.toStdString();
    EXPECT_EQ(Rows(list.Value.toRecordset(), {"Name", "AccPreview"}),
              QStringList({"Tikslas|", "Kopija|", "Pardavimas|D2410 K5000 ×1"}));
    // Only the copy was made: the source keeps its name and nothing else was stored.
    EXPECT_EQ(Template(source)->Field(QStringLiteral("Name")).toString(),
              QStringLiteral("Šaltinis"));
    EXPECT_EQ(
        session_->Db().Query(QStringLiteral("SELECT COUNT(*) FROM BRTemplates")).Scalar().toInt32(),
        5);
}

TEST_P(TemplateObjectTest, GetObjectFormWithoutTheEditorIsRefused) {
    OrvoObjectUIOPtr object = templates_->GetOrvoObject(QString());
    const ValueResult refused = object->Properties(QStringLiteral("GetObjectForm"), QString());
    EXPECT_EQ(refused.Code, 777);
    EXPECT_EQ(refused.Text,
              QStringLiteral("Langas „frmBRTemplate“ neprieinamas: veiksmo atlikti negalima."));
    RegisterForm(QStringLiteral("frmBRTemplate"));
    const qint64 g = AddGroup(0, QStringLiteral("G"));
    Shown();
    const ValueResult r =
        object->Properties(QStringLiteral("GetObjectForm"), QStringLiteral("O0201600%1").arg(g));
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    const auto form = std::dynamic_pointer_cast<OrvoForm>(r.Value.toObject());
    ASSERT_TRUE(form);
    EXPECT_EQ(form->GetOrvoObjectUIO(), object);
    EXPECT_EQ(static_cast<qint64>(object->Field(QStringLiteral("ParentID")).toDouble()), g);
}

ORVO_STORAGE_BACKENDS(TemplateObjectTest);

} // namespace
} // namespace orvo
