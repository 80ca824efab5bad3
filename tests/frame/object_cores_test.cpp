#include "frame/object_registry.h"
#include "frame/orvo_object_ui_core.h"
#include "frame/orvo_object_uio_core.h"
#include "frame_doubles.h"

#include <QRegularExpression>
#include <gtest/gtest.h>

using namespace orvo;
using namespace orvo::test;

namespace {

QString unquoted(const QString& text) {
    QString t = text;
    if (t.startsWith('\'') && t.endsWith('\'') && t.size() >= 2)
        t = t.mid(1, t.size() - 2);
    return t;
}

// A business object that answers the operation class's read with a blank structure
// for a short reference and a stored-looking row otherwise, and its save with a new
// reference and lock token.
std::shared_ptr<ScriptedBO> OperationBO() {
    auto bo = std::make_shared<ScriptedBO>();
    bo->handlers["DO0201500_GetOrvoObject"] = [](const QString& p, BOResult& r) {
        const QString ref = unquoted(p);
        if (ref.size() < 9) {
            RecordsetPtr rs = Recordset::Create(OperationFields());
            rs->AddNew();
            rs->Update();
            r.Data = Value(rs);
        } else {
            r.Data = Value(MakeOperation(Value(ref), Value(ref), 7, QDate(2024, 3, 1)));
        }
    };
    bo->handlers["DO0201500_SaveOrvoObject"] = [](const QString&, BOResult& r) {
        RecordsetPtr answer =
            Recordset::Create({FieldDef::Make("OIDR", FieldType::VarWChar, 50),
                               FieldDef::Make("LockGUID", FieldType::VarWChar, 38)});
        answer->AddNew();
        answer->SetField("OIDR", Value("O0201500815"));
        answer->SetField("LockGUID", Value("{LOCK}"));
        answer->Update();
        r.Data = Value(answer);
    };
    bo->handlers["DO0201500_DeleteOrvoObject"] = [](const QString&, BOResult&) {};
    bo->handlers["DO0201500_GetOrvoObjectList"] = [](const QString&, BOResult& r) {
        RecordsetPtr rs = Recordset::Create({FieldDef::Make("OIDR", FieldType::VarWChar, 50),
                                             FieldDef::Make("OType", FieldType::VarWChar, 20)});
        rs->AddNew();
        rs->SetField("OIDR", Value("O0201500001"));
        rs->SetField("OType", Value("O0201500"));
        rs->Update();
        r.Data = Value(rs);
    };
    return bo;
}

} // namespace

TEST(OrvoObjectUIOCore, MethodNamesFollowTheClassCode) {
    EXPECT_EQ(OrvoObjectUIOCore::MethodName("O0201500", "GetOrvoObject"),
              "DO0201500_GetOrvoObject");
    EXPECT_EQ(OrvoObjectUIOCore::MethodName("O0200500", "SaveOrvoObject"),
              "DO0200500_SaveOrvoObject");
}

TEST(OrvoObjectUIOCore, StartsAsANewRecordOfItsCode) {
    OrvoObjectUIOCore core("O0201500", "Finansinė operacija");
    EXPECT_EQ(core.OID(), "O0201500");
    EXPECT_EQ(core.OIDR(), "");
    EXPECT_FALSE(core.IsStored());
    EXPECT_EQ(core.OName(), "Finansinė operacija");
    EXPECT_EQ(core.RsFields(), nullptr);
}

TEST(OrvoObjectUIOCore, GUIDIsBracedUpperCaseAndNewEachTime) {
    OrvoObjectUIOCore core("O0201500");
    const QString a = core.GetGUID();
    const QString b = core.GetGUID();
    const QRegularExpression form(
        "^\\{[0-9A-F]{8}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{12}\\}$");
    EXPECT_TRUE(form.match(a).hasMatch()) << a.toStdString();
    EXPECT_NE(a, b);
}

TEST(OrvoObjectUIOCore, ReadOfNewRecordAsksWithTheOIDAndTakesTheBlankRow) {
    auto bo = OperationBO();
    OrvoObjectUIOCore core("O0201500");
    core.SetBO(bo);
    const ResultRecord r = core.Read();
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    ASSERT_EQ(bo->calls.size(), 1);
    EXPECT_EQ(bo->calls[0].method, "DO0201500_GetOrvoObject");
    EXPECT_EQ(bo->calls[0].parameters, "'O0201500'");
    ASSERT_NE(core.RsFields(), nullptr);
    EXPECT_EQ(core.RsFields()->RecordCount(), 1);
    EXPECT_TRUE(core.RsFields()->Field("OIDR").isNull());
    ASSERT_NE(core.RsFields()->Field("BR").toRecordset(), nullptr);
    EXPECT_EQ(core.RsFields()->Field("BR").toRecordset()->RecordCount(), 0);
    EXPECT_EQ(core.OIDR(), "");
}

TEST(OrvoObjectUIOCore, ReadOfStoredRecordAsksWithTheOIDR) {
    auto bo = OperationBO();
    OrvoObjectUIOCore core("O0201500");
    core.SetBO(bo);
    core.SetOIDR("O0201500123");
    ASSERT_TRUE(core.Read().ok());
    EXPECT_EQ(bo->calls[0].parameters, "'O0201500123'");
    EXPECT_EQ(core.RsFields()->Field("BROperGroupID").toInt32(), 7);
    EXPECT_TRUE(core.IsStored());
}

TEST(OrvoObjectUIOCore, FailedReadPassesCodeAndTextAndKeepsNoData) {
    auto bo = std::make_shared<ScriptedBO>();
    bo->handlers["DO0201500_GetOrvoObject"] = [](const QString&, BOResult& r) {
        r.Code = 17;
        r.Text = "Įrašas nerastas";
    };
    OrvoObjectUIOCore core("O0201500");
    core.SetBO(bo);
    core.SetOIDR("O0201500999");
    const ResultRecord r = core.Read();
    EXPECT_EQ(r.Code, 17);
    EXPECT_EQ(r.Text, "Įrašas nerastas");
    EXPECT_EQ(core.RsFields(), nullptr);
}

TEST(OrvoObjectUIOCore, ReadWithoutBusinessObjectFails) {
    OrvoObjectUIOCore core("O0201500");
    EXPECT_FALSE(core.Read().ok());
}

TEST(OrvoObjectUIOCore, SaveHandsTheRecordsetOnEntryAndTakesTheNewReference) {
    auto bo = OperationBO();
    OrvoObjectUIOCore core("O0201500");
    core.SetBO(bo);
    ASSERT_TRUE(core.Read().ok());
    RecordsetPtr rs = core.RsFields();
    rs->SetField("Comment", Value("Naujas"));
    AddEntry(rs, Value(), "{G1}", {{1, "O0000100001", "UAB Ąžuolas"}});

    const ResultRecord r = core.Save();
    ASSERT_TRUE(r.ok()) << r.Text.toStdString();
    ASSERT_EQ(bo->calls.size(), 2);
    EXPECT_EQ(bo->calls[1].method, "DO0201500_SaveOrvoObject");
    EXPECT_EQ(bo->calls[1].parameters, "''");
    EXPECT_EQ(bo->calls[1].dataOnEntry.toRecordset(), rs);

    EXPECT_EQ(core.OIDR(), "O0201500815");
    EXPECT_EQ(rs->Field("OIDR").toString(), "O0201500815");
    EXPECT_EQ(rs->Field("LockGUID").toString(), "{LOCK}");
    EXPECT_EQ(rs->Status(), RowStatus::Unchanged);
    RecordsetPtr br = rs->Field("BR").toRecordset();
    br->MoveFirst();
    EXPECT_EQ(br->Status(), RowStatus::Unchanged);
    EXPECT_EQ(br->Field("BRProperties").toRecordset()->StatusAt(0), RowStatus::Unchanged);
}

TEST(OrvoObjectUIOCore, SaveOfStoredRecordQuotesItsOIDR) {
    auto bo = OperationBO();
    OrvoObjectUIOCore core("O0201500");
    core.SetBO(bo);
    core.SetOIDR("O0201500123");
    ASSERT_TRUE(core.Read().ok());
    ASSERT_TRUE(core.Save().ok());
    EXPECT_EQ(bo->calls[1].parameters, "'O0201500123'");
}

TEST(OrvoObjectUIOCore, SaveWithExtraRecordsetsHandsAllThree) {
    auto bo = OperationBO();
    OrvoObjectUIOCore core("O0201500");
    core.SetBO(bo);
    ASSERT_TRUE(core.Read().ok());
    RecordsetPtr extra = Recordset::Create();
    ASSERT_TRUE(core.Save(Value(extra)).ok());
    const ValueArray& data = bo->calls[1].dataOnEntry.toArray();
    ASSERT_EQ(data.size(), 3);
    EXPECT_EQ(data[0].toRecordset(), core.RsFields());
    EXPECT_EQ(data[1].toRecordset(), extra);
    EXPECT_TRUE(data[2].isNull());
}

TEST(OrvoObjectUIOCore, FailedSaveKeepsReferenceAndChanges) {
    auto bo = OperationBO();
    bo->handlers["DO0201500_SaveOrvoObject"] = [](const QString&, BOResult& r) {
        r.Code = 777;
        r.Text = "Įrašymas neatliktas !";
        r.Data = Value();
    };
    OrvoObjectUIOCore core("O0201500");
    core.SetBO(bo);
    ASSERT_TRUE(core.Read().ok());
    core.RsFields()->SetField("Comment", Value("x"));
    const ResultRecord r = core.Save();
    EXPECT_EQ(r.Code, 777);
    EXPECT_EQ(r.Text, "Įrašymas neatliktas !");
    EXPECT_EQ(core.OIDR(), "");
    EXPECT_EQ(core.RsFields()->Status(), RowStatus::New);
    EXPECT_EQ(core.RsFields()->Field("Comment").toString(), "x");
}

TEST(OrvoObjectUIOCore, DeleteAsksWithTheQuotedOIDR) {
    auto bo = OperationBO();
    OrvoObjectUIOCore core("O0201500");
    core.SetBO(bo);
    core.SetOIDR("O0201500123");
    ASSERT_TRUE(core.Delete().ok());
    EXPECT_EQ(bo->calls[0].method, "DO0201500_DeleteOrvoObject");
    EXPECT_EQ(bo->calls[0].parameters, "'O0201500123'");
}

TEST(OrvoObjectUIOCore, CancelUpdateDropsChangesNestedOnesIncluded) {
    auto bo = OperationBO();
    OrvoObjectUIOCore core("O0201500");
    core.SetBO(bo);
    core.SetOIDR("O0201500123");
    ASSERT_TRUE(core.Read().ok());
    RecordsetPtr rs = core.RsFields();
    AddEntry(rs, Value(1), "{G1}");
    OrvoObjectUIOCore::AcceptAll(rs);

    rs->SetField("Comment", Value("pakeista"));
    RecordsetPtr br = rs->Field("BR").toRecordset();
    br->MoveFirst();
    br->SetField("SumA", Value(99.0));
    AddEntry(rs, Value(), "{G2}");
    ASSERT_EQ(br->RecordCount(), 2);

    core.CancelUpdate();
    EXPECT_TRUE(rs->Field("Comment").isNull());
    br = rs->Field("BR").toRecordset();
    ASSERT_EQ(br->RecordCount(), 1);
    br->MoveFirst();
    EXPECT_DOUBLE_EQ(br->Field("SumA").toDouble(), 10.0);
}

TEST(OrvoObjectUIOCore, SetRsFieldsIsANamedCommandWithOneRecordset) {
    OrvoObjectUIOCore core("O0201500");
    RecordsetPtr kept = MakeOperation(Value(), Value(), 3, QDate(2024, 1, 2));
    const ValueResult wrong = core.Methods("SetRsFields", {});
    EXPECT_EQ(wrong.Code, 777);
    EXPECT_EQ(wrong.Text, "Method SetRsFields:\nKlaidingi parametrai !");
    const ValueResult notRs = core.Methods("SetRsFields", {Value("x")});
    EXPECT_EQ(notRs.Code, 777);
    const ValueResult ok = core.Methods("SetRsFields", {Value(kept)});
    EXPECT_EQ(ok.Code, 0);
    EXPECT_EQ(core.RsFields(), kept);
    EXPECT_NE(core.Methods("Nothing", {}).Code, 0);
}

TEST(OrvoObjectUIOCore, ONameComesFromTheRecordWhenItHasOne) {
    OrvoObjectUIOCore core("O0200400", "Sąskaitų planas");
    RecordsetPtr rs = Recordset::Create({FieldDef::Make("Name", FieldType::VarWChar, 100)});
    rs->AddNew();
    rs->SetField("Name", Value("Kasa"));
    rs->Update();
    core.SetRsFields(rs);
    EXPECT_EQ(core.OName(), "Kasa");
    rs->SetField("Name", Value());
    EXPECT_EQ(core.OName(), "Sąskaitų planas");
}

TEST(OrvoObjectUICore, ListAsksWithOIDAndBoundsQuoted) {
    auto bo = OperationBO();
    OrvoObjectUICore core("O0201500", "Finansinės operacijos");
    core.SetBO(bo);
    RecordsetPtr rs = core.GetOrvoObjectList("O0201400017", "", "");
    ASSERT_NE(rs, nullptr);
    EXPECT_EQ(rs->RecordCount(), 1);
    EXPECT_EQ(bo->calls[0].method, "DO0201500_GetOrvoObjectList");
    EXPECT_EQ(bo->calls[0].parameters, "'O0201400017','',''");
    EXPECT_EQ(core.OName(), "Finansinės operacijos");
    EXPECT_EQ(core.OID(), "O0201500");
}

TEST(OrvoObjectUICore, FailedListIsNullAndKeepsTheResult) {
    auto bo = std::make_shared<ScriptedBO>();
    OrvoObjectUICore core("O0201500", "x");
    core.SetBO(bo);
    EXPECT_EQ(core.GetOrvoObjectList("O0201500", "a", "b"), nullptr);
    EXPECT_NE(core.LastResult().Code, 0);
}

TEST(OrvoObjectUICore, DeleteAsksWithTheQuotedReference) {
    auto bo = OperationBO();
    OrvoObjectUICore core("O0201500", "x");
    core.SetBO(bo);
    EXPECT_TRUE(core.DeleteOrvoObject("O0201500123"));
    EXPECT_EQ(bo->calls[0].method, "DO0201500_DeleteOrvoObject");
    EXPECT_EQ(bo->calls[0].parameters, "'O0201500123'");
    bo->handlers["DO0201500_DeleteOrvoObject"] = [](const QString&, BOResult& r) { r.Code = 1; };
    EXPECT_FALSE(core.DeleteOrvoObject("O0201500123"));
}

TEST(OrvoObjectUICore, IconsTableKeepsItsPairsInOrder) {
    OrvoObjectUICore core("O0201400", "x");
    core.AddIcon("GRO0201400", "C0201400");
    core.AddIcon("O0201500", "C0201500");
    const IconMappings icons = core.GetIconsTable();
    ASSERT_EQ(icons.size(), 2);
    EXPECT_EQ(icons[0], (IconMapping{"GRO0201400", "C0201400"}));
    EXPECT_EQ(icons[1], (IconMapping{"O0201500", "C0201500"}));
}

class NavigatorTest : public ::testing::Test {
protected:
    NavigatorTest() {
        navigator->SetBO(bo);
        navigator->SetOrvoS(fx.services);
    }
    ServicesFixture fx;
    std::shared_ptr<ScriptedBO> bo = OperationBO();
    std::shared_ptr<TestNavigator> navigator =
        std::make_shared<TestNavigator>("O0201500", [](const QString&) {
            return std::make_shared<ScriptedDataObject>("O0201500");
        });
};

TEST_F(NavigatorTest, GetOrvoObjectGivesTheDataObjectThisNavigatorAndReadsIt) {
    OrvoObjectUIOPtr uio = navigator->GetOrvoObject("O0201500123");
    ASSERT_NE(uio, nullptr);
    EXPECT_EQ(uio->UI(), navigator);
    EXPECT_EQ(uio->BO(), bo);
    EXPECT_EQ(uio->OIDR(), "O0201500123");
    EXPECT_EQ(uio->Field("BROperGroupID").toInt32(), 7);
    EXPECT_TRUE(uio->RsFields()->ModifiedOnlyTransfer());
}

TEST_F(NavigatorTest, GetOrvoObjectWithEmptyTextGivesABlankOne) {
    OrvoObjectUIOPtr uio = navigator->GetOrvoObject("");
    ASSERT_NE(uio, nullptr);
    EXPECT_EQ(bo->calls.last().parameters, "'O0201500'");
    EXPECT_EQ(uio->RsFields()->RecordCount(), 1);
}

TEST_F(NavigatorTest, GetOrvoObjectGivesNothingWhenTheReadFails) {
    bo->handlers["DO0201500_GetOrvoObject"] = [](const QString&, BOResult& r) { r.Code = 3; };
    EXPECT_EQ(navigator->GetOrvoObject("O0201500123"), nullptr);
}

TEST_F(NavigatorTest, DataObjectKeepsItsBusinessObjectWhenTheNavigatorGoes) {
    OrvoObjectUIOPtr uio = navigator->GetOrvoObject("");
    ASSERT_NE(uio, nullptr);
    navigator.reset();
    EXPECT_EQ(uio->UI(), nullptr);
    EXPECT_EQ(uio->BO(), bo);
    EXPECT_TRUE(uio->Read().ok());
}

TEST_F(NavigatorTest, ListAndDeletePassToTheCore) {
    EXPECT_NE(navigator->GetOrvoObjectList("O0201500", "", ""), nullptr);
    EXPECT_TRUE(navigator->DeleteOrvoObject("O0201500123"));
    EXPECT_EQ(bo->calls[1].method, "DO0201500_DeleteOrvoObject");
}

TEST_F(NavigatorTest, AddToDeskTopHandsTheObjectsFormToTheDesktop) {
    auto form = std::make_shared<TestForm>("frmBROper");
    navigator = std::make_shared<TestNavigator>("O0201500", [form](const QString&) {
        auto uio = std::make_shared<ScriptedDataObject>("O0201500");
        uio->ownProperties["GetObjectForm"] = [form](const QString&) {
            return ValueResult::Of(Value(ObjectPtr(form)));
        };
        return uio;
    });
    navigator->SetBO(bo);
    navigator->SetOrvoS(fx.services);
    EXPECT_TRUE(navigator->AddToDeskTopOrvoObject("O0201500123"));
    ASSERT_EQ(fx.desktop->forms.size(), 1);
    EXPECT_EQ(fx.desktop->forms[0], form);
}

TEST_F(NavigatorTest, AddToDeskTopWithoutAFormIsFalse) {
    EXPECT_FALSE(navigator->AddToDeskTopOrvoObject("O0201500123"));
    EXPECT_TRUE(fx.desktop->forms.isEmpty());
}

TEST(ObjectRegistry, UnknownCodeGivesNothing) {
    ObjectRegistry registry;
    EXPECT_EQ(registry.MakeDataObject("O9999999"), nullptr);
    EXPECT_EQ(registry.MakeNavigator("O9999999"), nullptr);
    EXPECT_EQ(registry.GetObjectUIO("O9999999", nullptr, nullptr), nullptr);
    EXPECT_EQ(registry.GetObjectUI("O9999999", nullptr, nullptr), nullptr);
}

TEST(ObjectRegistry, MakesClassesByCodeAndReferencesByTheirKind) {
    ObjectRegistry registry;
    QStringList asked;
    registry.RegisterDataObject("O0201500", [&asked](const QString& code) {
        asked.append(code);
        return std::make_shared<ScriptedDataObject>(code);
    });
    registry.RegisterNavigator(
        "O0201500", [](const QString& code) { return std::make_shared<TestNavigator>(code); });
    OrvoObjectUIOPtr uio = registry.MakeDataObject("O0201500123");
    ASSERT_NE(uio, nullptr);
    EXPECT_EQ(uio->ClassName(), "UIO0201500");
    EXPECT_EQ(asked, QStringList{"O0201500"});
    OrvoObjectUIPtr ui = registry.MakeNavigator("O0201500");
    ASSERT_NE(ui, nullptr);
    EXPECT_EQ(ui->ClassName(), "UI0201500");
    EXPECT_EQ(registry.DataObjectCodes(), QStringList{"O0201500"});
}

TEST(ObjectRegistry, GetObjectUIOReadsThroughTheKindsNavigator) {
    ObjectRegistry& registry = ObjectRegistry::Component();
    registry.Clear();
    registry.RegisterDataObject(
        "O0201500", [](const QString& code) { return std::make_shared<ScriptedDataObject>(code); });
    registry.RegisterNavigator(
        "O0201500", [](const QString& code) { return std::make_shared<TestNavigator>(code); });
    auto bo = OperationBO();
    auto services = std::make_shared<OrvoServices>();
    OrvoObjectUIOPtr uio = registry.GetObjectUIO("O0201500123", bo, services);
    ASSERT_NE(uio, nullptr);
    EXPECT_EQ(uio->OIDR(), "O0201500123");
    EXPECT_EQ(uio->Field("OIDR").toString(), "O0201500123");
    // The navigator made for the read is let go; the object keeps its business object.
    EXPECT_EQ(uio->UI(), nullptr);
    EXPECT_EQ(uio->BO(), bo);
    EXPECT_EQ(OrvoS(), services);
    registry.Clear();
    ClearOrvoS();
}
