// The fixture of the operation windows' tests: the desktop on a demo book (see
// ui/desktop_fixture.h) with the operation and account windows registered, helpers that
// make a new operation in a group and open frmBROper on it, find controls by name, and
// answer the modal windows and boxes that come up, each by its objectName, in order.
#pragma once

#include "ui/desktop_fixture.h"

#include "accounts/forms/account_forms_registration.h"
#include "core/null_readers.h"
#include "frame/catalogue.h"
#include "frame/form_registry.h"
#include "frame/orvo_object_ui.h"
#include "frame/orvo_objects_service.h"
#include "operations/forms/frm_br_oper.h"
#include "operations/forms/operation_forms.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QDateEdit>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>
#include <QTreeWidget>
#include <deque>
#include <functional>
#include <map>

namespace orvo::ui::testing {

class OperationFormsTest : public DesktopTest {
protected:
    using Answer = std::function<void(QDialog&)>;

    void SetUp() override {
        DesktopTest::SetUp();
        if (HasFatalFailure())
            return;
        RegisterOperationForms(*session_->Forms());
        RegisterAccountForms(*session_->Forms());
        DialogDriver::Set([this](QDialog& dialog) { answer(dialog); });
        // Shortcuts reach only a shown, active window.
        window_->show();
        window_->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window_.get()));
    }

    // The next modal window or box of that objectName ("MessageBox",
    // "frmBROperRecordDialog" ...) is answered by `answer`; windows of one name are
    // answered in the order expected.
    void Expect(const QString& name, Answer answer) { answers_[name].push_back(std::move(answer)); }
    // Presses a shortcut as the user does, in the active window where `widget` has the
    // focus.
    static void Shortcut(QWidget* widget, Qt::Key key) {
        ASSERT_NE(widget, nullptr);
        // The offscreen platform leaves a modal dialog inactive; it is made the active
        // window here as a window system would.
        QApplication::setActiveWindow(widget->window());
        widget->setFocus();
        QTest::keyClick(widget, key, Qt::ControlModifier);
    }
    // Answers a box with the button of that name (cmdOK, cmdYes, cmdNo).
    void ExpectBox(const QString& button) {
        Expect(QStringLiteral("MessageBox"),
               [button](QDialog& box) { DialogDriver::Click(box, button); });
    }
    // Windows that came up though no answer waited for them.
    QStringList Unexpected() const { return unexpected_; }
    bool AllAnswered() const {
        for (const auto& [name, queue] : answers_)
            if (!queue.empty())
                return false;
        return true;
    }
    // Picks the first object the picker offers.
    static void PickFirst(QDialog& picker) {
        auto* list = picker.findChild<QListWidget*>(QStringLiteral("lvwObjects"));
        ASSERT_NE(list, nullptr);
        ASSERT_GT(list->count(), 0);
        list->setCurrentRow(0);
        ASSERT_TRUE(DialogDriver::Click(picker, QStringLiteral("cmdOK")));
    }

    QList<ShownMessage> Boxes() { return window_->Services().Messages->Take(); }

    OrvoObjectUIOPtr NewOperation(qint32 group = 1) {
        const OrvoObjectUIPtr ui =
            session_->Services()->ObjectsService()->GetObjectUI(QStringLiteral("O0201500"));
        EXPECT_TRUE(ui);
        const OrvoObjectUIOPtr op = ui ? ui->GetOrvoObject(QString()) : nullptr;
        EXPECT_TRUE(op);
        if (op)
            op->SetField(QStringLiteral("BROperGroupID"), Value(group));
        return op;
    }

    // A new operation in the group with one plain entry (6100 against 2720, 7.00), ready
    // to be written.
    OrvoObjectUIOPtr NewOperationWithAnEntry(qint32 group = 2) {
        const OrvoObjectUIOPtr op = NewOperation(group);
        if (op)
            op->Methods(QStringLiteral("AddBR"),
                        {Value(QStringLiteral("6100")), Value(QStringLiteral("2720")), Value(7.0),
                         Value(ValueArray())});
        return op;
    }

    OrvoObjectUIOPtr Stored(const QString& oidr) {
        return session_->Services()->ObjectsService()->GetObjectUIO(oidr);
    }

    // frmBROper on the desktop, bound to `op`.
    std::shared_ptr<FrmBROper> OpenEditor(const OrvoObjectUIOPtr& op) {
        const OrvoFormPtr form = Catalogue::NewFormForKind(QStringLiteral("O0201500"));
        auto editor = std::dynamic_pointer_cast<FrmBROper>(form);
        EXPECT_TRUE(editor);
        if (!editor)
            return nullptr;
        editor->SetOrvoObjectUIO(op);
        EXPECT_TRUE(window_->Desk()->Present(form));
        return editor;
    }

    template <typename T> static T* Find(QWidget* root, const char* name) {
        T* found = root ? root->findChild<T*>(QString::fromLatin1(name)) : nullptr;
        EXPECT_NE(found, nullptr) << name;
        return found;
    }
    template <typename T> static T* Find(const std::shared_ptr<FrmBROper>& form, const char* name) {
        return Find<T>(form->Widget(), name);
    }
    static QAction* Action(QWidget* root, const char* name) { return Find<QAction>(root, name); }

    // Types text into a line edit as the user does: focus, select all, keys, leave.
    static void Type(QLineEdit* edit, const QString& text) {
        ASSERT_NE(edit, nullptr);
        edit->setFocus();
        edit->selectAll();
        QTest::keyClick(edit, Qt::Key_Delete);
        // Key by key, as typed; a letter beyond ASCII travels as the text of its key.
        for (const QChar ch : text) {
            const int key = ch.unicode() < 128 ? ch.toUpper().unicode() : 0;
            QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, QString(ch));
            QCoreApplication::sendEvent(edit, &press);
            QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier, QString(ch));
            QCoreApplication::sendEvent(edit, &release);
        }
        QFocusEvent out(QEvent::FocusOut, Qt::TabFocusReason);
        QCoreApplication::sendEvent(edit, &out);
        Q_EMIT edit->editingFinished();
    }
    static void Click(QWidget* root, const char* name) {
        auto* button = Find<QAbstractButton>(root, name);
        ASSERT_NE(button, nullptr);
        ASSERT_TRUE(button->isEnabled()) << name;
        QTest::mouseClick(button, Qt::LeftButton);
    }
    static void Choose(QComboBox* combo, const QString& startingWith) {
        ASSERT_NE(combo, nullptr);
        for (int i = 0; i < combo->count(); ++i)
            if (combo->itemText(i).startsWith(startingWith)) {
                combo->setCurrentIndex(i);
                Q_EMIT combo->activated(i);
                return;
            }
        ADD_FAILURE() << "no item " << startingWith.toStdString();
    }
    static QStringList Column(QTreeWidget* list, int column) {
        QStringList cells;
        for (int i = 0; list && i < list->topLevelItemCount(); ++i)
            cells.append(list->topLevelItem(i)->text(column));
        return cells;
    }

    // The template of the demo book with that name, as the chooser lists it.
    static void ChooseTemplate(QDialog& dialog, const QString& name, const QString& sum) {
        auto* tree = dialog.findChild<QTreeWidget*>(QStringLiteral("trwTemplates"));
        ASSERT_NE(tree, nullptr);
        QTreeWidgetItem* found = nullptr;
        for (QTreeWidgetItemIterator it(tree); *it && !found; ++it)
            if ((*it)->text(0).startsWith(name))
                found = *it;
        ASSERT_NE(found, nullptr) << name.toStdString();
        tree->setCurrentItem(found);
        auto* txtSuma = dialog.findChild<QLineEdit*>(QStringLiteral("txtSuma"));
        ASSERT_NE(txtSuma, nullptr);
        txtSuma->setText(sum);
        ASSERT_TRUE(DialogDriver::Click(dialog, QStringLiteral("cmdOK")));
    }

    // The first value of a query on the stored book (a count, a sum, an ID); -1 when the
    // query fails.
    qint64 CountOf(const QString& sql, const ValueArray& params = {}) {
        const host::QueryResult q = session_->Db().Query(sql, params);
        EXPECT_TRUE(q.ok()) << q.Text.toStdString();
        return q.ok() ? static_cast<qint64>(q.Scalar().toDouble()) : -1;
    }

    // A customer's payment added by the demo template with `sum`; the firm it asks for
    // is left for the card.
    void AddPaymentByTemplate(QWidget* editor, const QString& sum) {
        Expect(QStringLiteral("frmBROperTemplateSelectDialog"), [sum](QDialog& dialog) {
            ChooseTemplate(dialog, QStringLiteral("Pirkėjo apmokėjimas į banką"), sum);
        });
        Expect(QStringLiteral("frmObjectPicker"), [](QDialog&) {});
        Action(editor, "mnuAddTemplate")->trigger();
    }

    // The next entry card is filled as an accountant fills it: `dollars` on the debit
    // side, the first firm for the credit side's demand, and written. `first` sees the
    // card before anything is changed.
    void ExpectCardInDollarsForTheFirstFirm(const QString& dollars,
                                            std::function<void(QDialog&)> first = {}) {
        Expect(QStringLiteral("frmBROperRecordDialog"), [this, dollars, first](QDialog& card) {
            if (first)
                first(card);
            Choose(Find<QComboBox>(&card, "cmbCurrD"), QStringLiteral("USD"));
            Type(Find<QLineEdit>(&card, "txtSumCurrD"), dollars);
            Expect(QStringLiteral("frmObjectPicker"), [](QDialog& picker) { PickFirst(picker); });
            auto* credit = Find<QTreeWidget>(&card, "lvwAddressC");
            ASSERT_NE(credit, nullptr);
            ASSERT_EQ(credit->topLevelItemCount(), 1);
            Q_EMIT credit->itemDoubleClicked(credit->topLevelItem(0), 0);
            EXPECT_NE(credit->topLevelItem(0)->text(1).trimmed(), QString());
            Click(&card, "cmdWrite");
        });
    }

    static RecordsetPtr Entries(const OrvoObjectUIOPtr& op) {
        return op->Field(QStringLiteral("BR")).toRecordset();
    }

private:
    void answer(QDialog& dialog) {
        auto& queue = answers_[dialog.objectName()];
        if (queue.empty()) {
            unexpected_.append(dialog.objectName());
            return;
        }
        const Answer next = queue.front();
        queue.pop_front();
        next(dialog);
    }

    std::map<QString, std::deque<Answer>> answers_;
    QStringList unexpected_;
};

} // namespace orvo::ui::testing
