// A catalogue record gives its editor through Properties("GetObjectForm",
// "GroupID;Clicked"), so that the host's ShowOrvoObjectModal opens it modally: the
// editor of the record's kind, bound to the record, with the clicked parameters; without
// the window the request is refused with a warning.
#include "desktop_fixture.h"

#include "frame/orvo_form.h"
#include "frame/orvo_objects_service.h"
#include "frame/orvo_services.h"
#include "host/catalogues/catalogue_editor_fields.h"
#include "host/session/host_shell_service.h"
#include "ui/catalogues/catalogue_forms.h"

namespace orvo::ui::testing {

namespace {

class CatalogueObjectFormTest : public DesktopTest {
protected:
    // The first stored record of the kind, or a new one when the book has none.
    OrvoObjectUIOPtr Record(const QString& code) {
        const OrvoObjectsServicePtr objects = session_->Services()->ObjectsService();
        const OrvoObjectUIPtr navigator = objects->GetObjectUI(code);
        const RecordsetPtr rs =
            navigator ? navigator->GetOrvoObjectList(code, QString(), QString()) : nullptr;
        if (rs && rs->RecordCount() > 0) {
            rs->MoveFirst();
            return objects->GetObjectUIO(rs->Field(QStringLiteral("OIDR")).toString());
        }
        return objects->GetObjectUIO(code);
    }

    static OrvoFormPtr FormOf(const ValueResult& r) {
        return std::dynamic_pointer_cast<OrvoForm>(r.Value.toObject());
    }
};

TEST_F(CatalogueObjectFormTest, EveryCatalogueRecordGivesTheEditorOfItsKindBoundToIt) {
    RegisterCatalogueForms(*session_->Forms());
    const QStringList kinds = host::CatalogueEditorKinds();
    ASSERT_EQ(kinds.size(), 7);
    for (const QString& code : kinds) {
        const OrvoObjectUIOPtr record = Record(code);
        ASSERT_TRUE(record) << code.toStdString();
        const ValueResult r =
            record->Properties(QStringLiteral("GetObjectForm"), QStringLiteral(";"));
        ASSERT_EQ(r.Code, 0) << code.toStdString() << ": " << r.Text.toStdString();
        const OrvoFormPtr form = FormOf(r);
        ASSERT_TRUE(form) << code.toStdString();
        EXPECT_EQ(form->FormName(), host::CatalogueFormNameOf(code)) << code.toStdString();
        EXPECT_EQ(form->GetOrvoObjectUIO(), record) << code.toStdString();
    }
}

TEST_F(CatalogueObjectFormTest, ANewRecordGivesItsEditorToo) {
    RegisterCatalogueForms(*session_->Forms());
    const OrvoObjectUIOPtr fresh =
        session_->Services()->ObjectsService()->GetObjectUIO(QStringLiteral("O0001401"));
    ASSERT_TRUE(fresh);
    const OrvoFormPtr form =
        FormOf(fresh->Properties(QStringLiteral("GetObjectForm"), QStringLiteral("0;")));
    ASSERT_TRUE(form);
    EXPECT_EQ(form->FormName(), QStringLiteral("frmEmployee"));
}

TEST_F(CatalogueObjectFormTest, TheClickedParametersComeWithTheirSemicolonsBack) {
    RegisterCatalogueForms(*session_->Forms());
    const OrvoObjectUIOPtr bank = Record(QStringLiteral("O0000300"));
    ASSERT_TRUE(bank);
    const OrvoFormPtr form = FormOf(
        bank->Properties(QStringLiteral("GetObjectForm"), QStringLiteral("17;pirmas@|@antras")));
    ASSERT_TRUE(form);
    EXPECT_EQ(form->ClickedParameters(), QStringLiteral("pirmas;antras"));
}

TEST_F(CatalogueObjectFormTest, WithoutTheWindowTheRequestIsRefusedWithAWarning) {
    const OrvoObjectUIOPtr firm = Record(QStringLiteral("O0000100"));
    ASSERT_TRUE(firm);
    DialogDriver::Set(
        [](QDialog& dialog) { DialogDriver::Click(dialog, QStringLiteral("cmdOK")); });
    const ValueResult r = firm->Properties(QStringLiteral("GetObjectForm"), QStringLiteral(";"));
    EXPECT_EQ(r.Code, codes::Refused);
    EXPECT_FALSE(FormOf(r));
    EXPECT_TRUE(r.Text.contains(QStringLiteral("frmFirm"))) << r.Text.toStdString();
    const QList<ShownMessage> boxes = window_->Services().Messages->Take();
    ASSERT_EQ(boxes.size(), 1);
    EXPECT_EQ(boxes.first().Kind, MessageKind::Warning);
    EXPECT_EQ(boxes.first().Text, r.Text);
}

TEST_F(CatalogueObjectFormTest, ShowOrvoObjectModalOpensACatalogueRecordModally) {
    RegisterCatalogueForms(*session_->Forms());
    const OrvoObjectUIOPtr employee = Record(QStringLiteral("O0001401"));
    ASSERT_TRUE(employee);
    ASSERT_GE(employee->OIDR().size(), 9) << "the demo book has no employee";
    QStringList shown;
    DialogDriver::Set([&shown](QDialog& dialog) {
        shown << dialog.objectName();
        dialog.reject();
    });
    const ValueResult r = session_->Shell()->Methods(
        QStringLiteral("ShowOrvoObjectModal"), {Value(employee->OIDR() + QStringLiteral(";;"))});
    ASSERT_EQ(r.Code, 0) << r.Text.toStdString();
    EXPECT_EQ(shown, QStringList({QStringLiteral("frmEmployeeDialog")}));
    const RecordsetPtr rs = r.Value.toRecordset();
    ASSERT_TRUE(rs);
    rs->MoveFirst();
    EXPECT_EQ(rs->Field(QStringLiteral("Name")).toString(),
              employee->Field(QStringLiteral("Name")).toString());
}

} // namespace

} // namespace orvo::ui::testing
