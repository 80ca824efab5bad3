// The fixture of the catalogue windows' tests: a real QApplication on the offscreen
// platform, the catalogue editors' fixture of host tests (an administrator's session on
// a new book on each backend), the catalogue windows registered by
// RegisterCatalogueForms, and a way to open a window as the host does, through the
// kind's navigator answering a click with Action 1, shown and worked by a FormDriver.
// Boxes are the session's scripted messages, so no dialog waits.
#pragma once

#include "desktop_fixture.h"
#include "host/catalogue_editor_fixture.h"

#include "host/session/scripted_choices.h"
#include "ui/automation/form_driver.h"
#include "ui/catalogues/catalogue_form.h"
#include "ui/catalogues/catalogue_forms.h"

namespace orvo::ui::testing {

using host::QueryResult;

class CatalogueFormsTest : public host::testing::CatalogueEditorTest {
protected:
    void SetUp() override {
        App();
        CatalogueEditorTest::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        RegisterCatalogueForms(*session_->Forms());
    }

    void TearDown() override {
        driver_.reset();
        if (form_ && form_->HasWidget())
            form_->Widget()->close();
        form_.reset();
        CatalogueEditorTest::TearDown();
    }

    // Opens the window the navigator of `code` answers for the click on `oid` (the kind
    // for a node, a reference for a record) with `caption`; null, and a failure, when the
    // click gives no window.
    FormDriver* Open(const QString& code, const QString& oid, const QString& caption) {
        const OrvoObjectUIPtr navigator = session_->ObjectsService()->GetObjectUI(code);
        EXPECT_TRUE(navigator);
        if (!navigator)
            return nullptr;
        const ClickResult r = navigator->ClickMenu(oid, QString(), caption, QString());
        EXPECT_EQ(r.Action, ClickResult::ShowForm);
        form_ = std::dynamic_pointer_cast<CatalogueForm>(r.Payload.toObject());
        EXPECT_TRUE(form_);
        if (!form_)
            return nullptr;
        form_->Widget()->show();
        driver_ = std::make_unique<FormDriver>(*form_->Widget());
        return driver_.get();
    }

    FormDriver& Driver() { return *driver_; }
    QWidget* Window() { return form_ ? form_->Widget() : nullptr; }
    QString Title() { return Window() ? Window()->windowTitle() : QString(); }

    // Types into each control in turn and fails the test on a refusal.
    void Type(const QList<QPair<QString, QString>>& texts) {
        for (const auto& [name, text] : texts) {
            const DriveResult r = driver_->SetText(name, text);
            EXPECT_TRUE(r.ok()) << name.toStdString() << ": " << r.Result.Text.toStdString();
        }
    }
    void Click(const QString& name) {
        const DriveResult r = driver_->Click(name);
        EXPECT_TRUE(r.ok()) << name.toStdString() << ": " << r.Result.Text.toStdString();
    }
    ControlState Read(const QString& name) {
        const ReadResult r = driver_->Read(name);
        EXPECT_TRUE(r.ok()) << name.toStdString() << ": " << r.Result.Text.toStdString();
        return r.State;
    }

    std::shared_ptr<CatalogueForm> form_;
    std::unique_ptr<FormDriver> driver_;
};

} // namespace orvo::ui::testing
