// The fixture of the chart's and the templates' window tests: a real QApplication on
// the offscreen platform, a temporary SQLite book with the demo data, a HostSession on
// it, the main window (whose desktop shows the forms) and the forms of the chart and the
// templates registered by name. Every dialog is answered by the driver set in the test
// (message boxes by default with OK and remembered), so no test waits on a box.
#pragma once

#include "accounts/account_registration.h"
#include "accounts/forms/account_forms_registration.h"
#include "accounts/template_registration.h"
#include "core/today.h"
#include "host/demo/demo_book.h"
#include "host/script/plain_navigators.h"
#include "host/session/host_session.h"
#include "operations/operation_registration.h"
#include "ui/services/dialog_driver.h"
#include "ui/shell/desk_top.h"
#include "ui/shell/main_window.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>
#include <functional>

namespace orvo::accounts_forms::testing {

inline QApplication& App() {
    static int argc = 1;
    static char name[] = "accounts_forms_tests";
    static char* argv[] = {name, nullptr};
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    static QApplication* app = new QApplication(argc, argv);
    return *app;
}

class FormsTest : public ::testing::Test {
protected:
    void SetUp() override {
        App();
        ASSERT_TRUE(dir_.isValid());
        location_ = dir_.filePath(QStringLiteral("demo.orvo"));
        {
            host::OpenResult created =
                host::Database::Open(location_, host::OpenMode::CreateIfMissing);
            ASSERT_TRUE(created.ok()) << created.Text.toStdString();
            const ResultRecord demo = host::CreateDemoBook(*created.Db, Today());
            ASSERT_TRUE(demo.ok()) << demo.Text.toStdString();
        }
        RegisterOperationClasses();
        RegisterAccountClasses();
        RegisterTemplateClasses();
        host::HostSession::RegisterCatalogueClasses();
        host::RegisterPlainNavigators();
        host::SessionResult r = host::HostSession::Open(location_);
        ASSERT_TRUE(r.ok()) << r.Text.toStdString();
        session_ = std::move(r.Session);
        window_ = std::make_unique<ui::MainWindow>(*session_);
        RegisterAccountForms(*session_->Forms());
        window_->show();
        window_->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window_.get()));
        // Focus moves only within the active window: the tests check where it goes.
        EXPECT_TRUE(QTest::qWaitForWindowActive(window_.get()));
        AnswerBoxes();
    }

    void TearDown() override {
        ui::DialogDriver::Clear();
        window_.reset();
        session_.reset();
    }

    // Message boxes are answered by clicking `button` (cmdOK, cmdYes or cmdNo); every
    // other dialog goes to `other`, when given.
    void AnswerBoxes(const QString& button = QStringLiteral("cmdOK"),
                     std::function<void(QDialog&)> other = nullptr) {
        ui::DialogDriver::Set([button, other](QDialog& dialog) {
            if (dialog.objectName() == QLatin1String("MessageBox")) {
                if (!ui::DialogDriver::Click(dialog, button))
                    ui::DialogDriver::Click(dialog, QStringLiteral("cmdOK"));
                return;
            }
            if (other)
                other(dialog);
        });
    }

    // Lets the window take back the activation a closed box had, and its focus with it.
    static void Settle() {
        for (int i = 0; i < 5; ++i)
            QApplication::processEvents();
    }

    // The boxes shown since the last call.
    QList<ui::ShownMessage> Boxes() { return window_->Services().Messages->Take(); }

    // Opens a form on the desktop bound to the object; fails the test when it cannot.
    template <typename T>
    std::shared_ptr<T> Open(const QString& name, const OrvoObjectUIOPtr& object,
                            const QString& clicked = QString()) {
        const OrvoFormPtr form = session_->Forms()->CreateForm(name);
        EXPECT_TRUE(form) << name.toStdString();
        if (!form)
            return nullptr;
        form->SetOrvoObjectUIO(object);
        form->SetClickedParameters(clicked);
        window_->Desk()->Present(form);
        QApplication::processEvents();
        return std::dynamic_pointer_cast<T>(form);
    }

    OrvoObjectUIOPtr Object(const QString& codeOrOidr) {
        return session_->Services()->ObjectsService()->GetObjectUIO(codeOrOidr);
    }

    template <typename W = QWidget> static W* Control(QWidget* root, const QString& name) {
        W* w = root ? root->findChild<W*>(name) : nullptr;
        EXPECT_NE(w, nullptr) << name.toStdString();
        return w;
    }

    // Types the text into a box key by key, as a user would.
    static void Type(QLineEdit* box, const QString& text) {
        box->setFocus();
        for (const QChar c : text) {
            if (c.unicode() < 128) {
                QTest::keyClick(box, c.toLatin1());
                continue;
            }
            // A Lithuanian letter has no key code of its own: it comes as the key's text.
            QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(c));
            QKeyEvent release(QEvent::KeyRelease, 0, Qt::NoModifier, QString(c));
            QApplication::sendEvent(box, &press);
            QApplication::sendEvent(box, &release);
        }
    }

    // One value of a query on the book.
    QString Scalar(const QString& sql, const ValueArray& args = {}) {
        const host::QueryResult q = session_->Db().Query(sql, args);
        return q.ok() && q.RowCount() > 0 ? q.At(0, 0).toString() : QString();
    }

    QTemporaryDir dir_;
    QString location_;
    std::unique_ptr<host::HostSession> session_;
    std::unique_ptr<ui::MainWindow> window_;
};

} // namespace orvo::accounts_forms::testing
