// The fixture of the desktop's tests: a real QApplication on the offscreen platform, a
// temporary SQLite book filled with the demo data, a HostSession on it with every class
// registered, and the main window built on that session. Dialogs are answered by a
// DialogDriver set in the test; one the test did not expect is cancelled, never left
// waiting.
#pragma once

#include "accounts/account_registration.h"
#include "accounts/template_registration.h"
#include "core/today.h"
#include "host/demo/demo_book.h"
#include "host/script/plain_navigators.h"
#include "host/session/host_session.h"
#include "operations/operation_registration.h"
#include "ui/services/dialog_driver.h"
#include "ui/shell/host_tree.h"
#include "ui/shell/main_window.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QTemporaryDir>

namespace orvo::ui::testing {

// The one application object of the test program, made on first use.
inline QApplication& App() {
    static int argc = 1;
    static char name[] = "ui_tests";
    static char* argv[] = {name, nullptr};
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    static QApplication* app = new QApplication(argc, argv);
    return *app;
}

// Makes a demo book at `path`; empty on success, the reason otherwise.
inline QString MakeDemoBook(const QString& path) {
    host::OpenResult created = host::Database::Open(path, host::OpenMode::CreateIfMissing);
    if (!created.ok())
        return created.Text;
    const ResultRecord demo = host::CreateDemoBook(*created.Db, Today());
    return demo.ok() ? QString() : demo.Text;
}

class DesktopTest : public ::testing::Test {
protected:
    void SetUp() override {
        App();
        ASSERT_TRUE(dir_.isValid());
        location_ = dir_.filePath(QStringLiteral("demo.orvo"));
        const QString made = MakeDemoBook(location_);
        ASSERT_TRUE(made.isEmpty()) << made.toStdString();
        RegisterOperationClasses();
        RegisterAccountClasses();
        RegisterTemplateClasses();
        host::HostSession::RegisterCatalogueClasses();
        host::RegisterPlainNavigators();
        host::SessionResult r = host::HostSession::Open(location_);
        ASSERT_TRUE(r.ok()) << r.Text.toStdString();
        session_ = std::move(r.Session);
        window_ = std::make_unique<MainWindow>(*session_);
    }

    void TearDown() override {
        DialogDriver::Clear();
        window_.reset();
        session_.reset();
    }

    HostTree& Tree() { return *window_->Tree(); }

    // The node of the component's branch with that caption; fails the test without one.
    QTreeWidgetItem* Node(const QString& title) {
        QTreeWidgetItem* node = Tree().NodeByTitle(title);
        EXPECT_NE(node, nullptr) << title.toStdString();
        return node;
    }

    static QStringList Captions(const QTreeWidgetItem* item) {
        QStringList captions;
        for (int i = 0; i < item->childCount(); ++i)
            captions.append(item->child(i)->text(0));
        return captions;
    }

    static QList<QTreeWidgetItem*> Rows(const QTreeWidgetItem* item) {
        QList<QTreeWidgetItem*> rows;
        for (int i = 0; i < item->childCount(); ++i)
            if (HostTree::KindOf(item->child(i)) == HostTree::ItemKind::Row)
                rows.append(item->child(i));
        return rows;
    }

    QTemporaryDir dir_;
    QString location_;
    std::unique_ptr<host::HostSession> session_;
    std::unique_ptr<MainWindow> window_;
};

} // namespace orvo::ui::testing
