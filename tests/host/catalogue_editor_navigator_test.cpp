// The navigators of the catalogues with editors: the node's menu offers a new record
// (and, for firms, "Mano įmonė") and a record's menu "Atidaryti" and "Panaikinti", as
// the kind's rights allow; a click that opens answers Action 1 with the kind's form
// bound to the record's data object; a form nobody registered and a deletion the host
// refuses are told in Lithuanian.
#include "catalogue_editor_fixture.h"

#include "frame/form_registry.h"
#include "frame/orvo_form.h"
#include "frame/orvo_object_ui.h"

namespace orvo::host::testing {
namespace {

// A form without a window, which remembers what its opener set.
class ProbeForm : public OrvoForm {
public:
    explicit ProbeForm(const QString& name) : name_(name) {}
    QString FormName() const override { return name_; }
    void Show(bool) override {}
    void UnloadShowOrvoObject() override {}

private:
    QString name_;
};

class CatalogueNavigatorTest : public CatalogueEditorTest {
protected:
    void SetUp() override {
        CatalogueEditorTest::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        for (const QString& code : CatalogueEditorKinds())
            RegisterProbe(CatalogueFormNameOf(code));
        RegisterProbe(kOwnFirmFormName);
    }

    void RegisterProbe(const QString& name) {
        session_->Forms()->Register(name, [name]() { return std::make_shared<ProbeForm>(name); });
    }

    OrvoObjectUIPtr Navigator(const QString& code) {
        return session_->ObjectsService()->GetObjectUI(code);
    }

    static QStringList Captions(const MenuItems& menu) {
        QStringList out;
        for (const MenuItem& m : menu)
            out << m.Caption;
        return out;
    }

    static OrvoFormPtr FormOf(const ClickResult& r) {
        return std::dynamic_pointer_cast<OrvoForm>(r.Payload.toObject());
    }
};

TEST_P(CatalogueNavigatorTest, EveryKindWithAnEditorHasTheCatalogueNavigator) {
    for (const QString& code : CatalogueEditorKinds()) {
        const OrvoObjectUIPtr ui = Navigator(code);
        ASSERT_TRUE(ui) << code.toStdString();
        EXPECT_TRUE(std::dynamic_pointer_cast<CatalogueNavigator>(ui)) << code.toStdString();
        EXPECT_EQ(ui->ClassName(), QStringLiteral("UI") + code.mid(1));
    }
    EXPECT_EQ(Navigator(kinds::User)->OName(), QStringLiteral("Naudotojai"));
}

TEST_P(CatalogueNavigatorTest, NodeMenuOffersANewRecordAndFirmsTheOwnFirm) {
    EXPECT_EQ(Captions(Navigator(kinds::Firm)->GetMenu(kinds::Firm, QString(), QString())),
              (QStringList{QStringLiteral("Nauja įmonė"), QStringLiteral("Mano įmonė")}));
    EXPECT_EQ(Captions(Navigator(kinds::Currency)->GetMenu(kinds::Currency, QString(), QString())),
              QStringList{QStringLiteral("Nauja valiuta")});
    EXPECT_EQ(
        Captions(Navigator(kinds::BankAccount)->GetMenu(kinds::BankAccount, QString(), QString())),
        QStringList{QStringLiteral("Nauja banko sąskaita")});
    const QString firm = AddFirm(QStringLiteral("UAB Meniu"));
    EXPECT_EQ(Captions(Navigator(kinds::Firm)->GetMenu(firm, kinds::Firm, QString())),
              (QStringList{QStringLiteral("Atidaryti"), QStringLiteral("Panaikinti")}));
}

TEST_P(CatalogueNavigatorTest, ActivatedRowAnswersActionOneWithTheKindsFormOnTheRecord) {
    const QString firm = AddFirm(QStringLiteral("UAB Atidaroma"));
    for (const QString& caption : {QString(), QStringLiteral("Atidaryti")}) {
        const ClickResult r =
            Navigator(kinds::Firm)->ClickMenu(firm, QString(), caption, QString());
        ASSERT_EQ(r.Action, ClickResult::ShowForm);
        const OrvoFormPtr form = FormOf(r);
        ASSERT_TRUE(form);
        EXPECT_EQ(form->FormName(), QStringLiteral("frmFirm"));
        ASSERT_TRUE(form->GetOrvoObjectUIO());
        EXPECT_EQ(form->GetOrvoObjectUIO()->OIDR(), firm);
        EXPECT_EQ(form->GetOrvoObjectUIO()->Field(QStringLiteral("Name")).toString(),
                  QStringLiteral("UAB Atidaroma"));
    }
}

TEST_P(CatalogueNavigatorTest, NewRecordCaptionOpensTheFormOnABlankRecord) {
    const struct {
        QString code;
        QString form;
    } cases[] = {{kinds::Person, QStringLiteral("frmPerson")},
                 {kinds::Employee, QStringLiteral("frmEmployee")},
                 {kinds::Bank, QStringLiteral("frmBank")},
                 {kinds::BankAccount, QStringLiteral("frmBankAccount")},
                 {kinds::Currency, QStringLiteral("frmCurrency")},
                 {kinds::User, QStringLiteral("frmUser")}};
    for (const auto& c : cases) {
        const ClickResult r = Navigator(c.code)->ClickMenu(
            c.code, QString(), CatalogueNavigator::NewCaption(c.code), QString());
        ASSERT_EQ(r.Action, ClickResult::ShowForm) << c.code.toStdString();
        const OrvoFormPtr form = FormOf(r);
        EXPECT_EQ(form->FormName(), c.form);
        ASSERT_TRUE(form->GetOrvoObjectUIO());
        EXPECT_LT(form->GetOrvoObjectUIO()->OIDR().size(), 9);
        EXPECT_EQ(form->GetOrvoObjectUIO()->OID().left(8), c.code);
    }
}

TEST_P(CatalogueNavigatorTest, OwnFirmCaptionOpensTheOwnFirmForm) {
    const QString firm = AddFirm(QStringLiteral("UAB Mūsų"));
    auto editor = EditorOf(firm);
    editor->SetFlag(QStringLiteral("MyFirmFlag"), true);
    ASSERT_TRUE(editor->Save().ok());
    const ClickResult r =
        Navigator(kinds::Firm)
            ->ClickMenu(kinds::Firm, QString(), QStringLiteral("Mano įmonė"), QString());
    ASSERT_EQ(r.Action, ClickResult::ShowForm);
    EXPECT_EQ(FormOf(r)->FormName(), QStringLiteral("frmMyFirm"));
    EXPECT_EQ(FormOf(r)->GetOrvoObjectUIO()->OIDR(), firm);
}

TEST_P(CatalogueNavigatorTest, FormNobodyRegisteredIsRefusedInLithuanian) {
    session_->Forms()->Unregister(QStringLiteral("frmBank"));
    const ClickResult r =
        Navigator(kinds::Bank)
            ->ClickMenu(kinds::Bank, QString(), QStringLiteral("Naujas bankas"), QString());
    EXPECT_EQ(r.Action, ClickResult::Nothing);
    EXPECT_EQ(BoxTexts(), QStringList{QStringLiteral("error: Langas „frmBank“ neprieinamas.")});
}

TEST_P(CatalogueNavigatorTest, DeletionAsksFirstAndShowsTheRefusal) {
    const QString firm = AddFirm(QStringLiteral("UAB Naikinama"));
    Invoice(firm, 5.0, QDate(2024, 6, 1), QStringLiteral("S-5"));
    // No: nothing happens.
    Navigator(kinds::Firm)->ClickMenu(firm, QString(), QStringLiteral("Panaikinti"), QString());
    EXPECT_EQ(BoxTexts(), QStringList{QStringLiteral("question: Ar tikrai norite panaikinti?")});
    session_->Messages()->QueueAnswer(true);
    const ClickResult r =
        Navigator(kinds::Firm)->ClickMenu(firm, QString(), QStringLiteral("Panaikinti"), QString());
    EXPECT_EQ(r.Action, ClickResult::Nothing);
    EXPECT_EQ(BoxTexts(),
              (QStringList{QStringLiteral("question: Ar tikrai norite panaikinti?"),
                           QStringLiteral("error: Įmonės panaikinti negalima: ji nurodyta "
                                          "finansinių operacijų įrašuose (1).")}));
    EXPECT_TRUE(Object(firm));
    // A firm nothing names goes.
    const QString other = AddFirm(QStringLiteral("UAB Nereikalinga"));
    session_->Messages()->QueueAnswer(true);
    Navigator(kinds::Firm)->ClickMenu(other, QString(), QStringLiteral("Panaikinti"), QString());
    EXPECT_FALSE(Object(other));
}

ORVO_STORAGE_BACKENDS(CatalogueNavigatorTest);

} // namespace
} // namespace orvo::host::testing
