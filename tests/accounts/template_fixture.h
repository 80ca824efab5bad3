// The fixture of the template component tests: a real session on a new book on each
// backend, the chart's and the templates' classes registered, a small chart, and short
// ways to store template groups and templates through the data object UIO0201600.
#pragma once

#include "accounts/template_navigator.h"
#include "accounts/template_object.h"
#include "accounts/template_registration.h"
#include "chart_fixture.h"

namespace orvo::accounts_testing {

class TemplateTest : public ChartTest {
protected:
    void SetUp() override {
        ChartTest::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        RegisterTemplateClasses();
        templates_ = std::dynamic_pointer_cast<UI0201600>(
            session_->Services()->ObjectsService()->GetObjectUI(UIO0201600::kCode));
        ASSERT_TRUE(templates_);
    }
    void TearDown() override {
        templates_.reset();
        ChartTest::TearDown();
    }

    // A new group or template stored through the data object; its ID. Each line is
    // "debit credit factor".
    qint64 AddRecord(qint64 parentId, const QString& name, bool group,
                     const QStringList& lines = {}) {
        OrvoObjectUIOPtr object = templates_->GetOrvoObject(QString());
        EXPECT_TRUE(object);
        if (!object)
            return 0;
        object->SetField(QStringLiteral("ParentID"),
                         parentId > 0 ? Value(double(parentId)) : Value());
        object->SetField(QStringLiteral("GroupFlag"), Value(group));
        object->SetField(QStringLiteral("Name"), name);
        const RecordsetPtr acc = object->Field(QStringLiteral("BRTemplateAcc")).toRecordset();
        for (const QString& line : lines) {
            const QStringList parts = line.split(QLatin1Char(' '));
            acc->AddNew();
            acc->SetField(QStringLiteral("AccountD"), parts.value(0));
            acc->SetField(QStringLiteral("AccountC"), parts.value(1));
            acc->SetField(QStringLiteral("Factor"), parts.value(2).toDouble());
            acc->Update();
        }
        const ResultRecord r = object->Save();
        EXPECT_TRUE(r.ok()) << name.toStdString() << ": " << r.Text.toStdString();
        return object->OIDR().mid(8).toLongLong();
    }
    qint64 AddGroup(qint64 parentId, const QString& name) {
        return AddRecord(parentId, name, true);
    }
    qint64 AddTemplate(qint64 parentId, const QString& name, const QStringList& lines) {
        return AddRecord(parentId, name, false, lines);
    }

    OrvoObjectUIOPtr Template(qint64 id) {
        return templates_->GetOrvoObject(QStringLiteral("O0201600%1").arg(id));
    }

    static QStringList Rows(const RecordsetPtr& rs, const QStringList& fields) {
        QStringList out;
        if (!rs)
            return out;
        for (rs->MoveFirst(); !rs->Eof(); rs->MoveNext()) {
            QStringList cells;
            for (const QString& f : fields)
                cells << rs->Field(f).toString();
            out << cells.join(QLatin1Char('|'));
        }
        return out;
    }

    std::shared_ptr<UI0201600> templates_;
};

} // namespace orvo::accounts_testing
