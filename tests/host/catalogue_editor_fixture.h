// The fixture of the catalogue editors' tests: an administrator's session on a new book
// on each backend (with the debt fixture's way of booking entries that name an
// addressee), data objects made through the host's objects service as the navigators
// make them, the boxes the editors show, and the catalogue navigators registered for
// the length of a test.
#pragma once

#include "debts_fixture.h"
#include "frame/object_registry.h"
#include "frame/orvo_object_ui_base.h"
#include "frame/orvo_objects_service.h"
#include "host/catalogues/catalogue_editor.h"
#include "host/catalogues/catalogue_editor_fields.h"
#include "host/catalogues/catalogue_editor_navigator.h"
#include "host/catalogues/catalogue_kinds.h"
#include "host/catalogues/user_kind.h"
#include "host/session/host_objects_service.h"
#include "host/session/scripted_messages.h"

namespace orvo::host::testing {

class CatalogueEditorTest : public DebtsTest {
protected:
    void SetUp() override {
        DebtsTest::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        RegisterCatalogueNavigators();
    }

    void TearDown() override {
        // Other tests of the program expect the plain navigators of the catalogues.
        for (const QString& code : CatalogueEditorKinds())
            ObjectRegistry::Component().RegisterNavigator(code, [](const QString& c) {
                return std::make_shared<OrvoObjectUIBase>(c.left(8),
                                                          QStringLiteral("UI") + c.mid(1, 7), c);
            });
        DebtsTest::TearDown();
    }

    // A data object of the kind or reference, read, as the host's objects service gives it.
    OrvoObjectUIOPtr Object(const QString& codeOrOidr) {
        return session_->ObjectsService()->GetObjectUIO(codeOrOidr);
    }

    std::unique_ptr<CatalogueEditor> EditorOf(const QString& codeOrOidr) {
        const OrvoObjectUIOPtr object = Object(codeOrOidr);
        EXPECT_TRUE(object) << codeOrOidr.toStdString();
        return CatalogueEditor::For(object);
    }

    // A new firm stored through its editor; its OIDR.
    QString AddFirm(const QString& name, const QString& code = QString()) {
        auto editor = EditorOf(kinds::Firm);
        if (!editor)
            return QString();
        editor->SetText(QStringLiteral("Name"), name);
        editor->SetText(QStringLiteral("Code"), code);
        const ResultRecord r = editor->Save();
        EXPECT_TRUE(r.ok()) << r.Text.toStdString();
        return editor->Object()->OIDR();
    }

    QList<RecordedMessage> Boxes() { return session_->Messages()->Take(); }

    // The texts of the boxes shown since the last call, each with its kind.
    QStringList BoxTexts() {
        QStringList texts;
        for (const RecordedMessage& m : Boxes())
            texts << ScriptedMessages::KindName(m.Kind) + QStringLiteral(": ") + m.Text;
        return texts;
    }

    qint64 Count(const QString& sql, const ValueArray& params = {}) {
        const QueryResult q = session_->Db().Query(sql, params);
        EXPECT_TRUE(q.ok()) << q.Text.toStdString();
        return q.ok() ? static_cast<qint64>(q.Scalar().toDouble()) : -1;
    }
};

} // namespace orvo::host::testing
