// Test doubles of the host's services for the frame's tests: each records the calls it
// gets and answers from a script the test sets. None of them stores data: the business
// object double answers named methods from handlers that the test writes.
#pragma once

#include "core/dictionary.h"
#include "core/recordset.h"
#include "frame/business_object.h"
#include "frame/form_registry.h"
#include "frame/messages.h"
#include "frame/orvo_form.h"
#include "frame/orvo_object_ui_base.h"
#include "frame/orvo_object_uio_base.h"
#include "frame/orvo_s.h"
#include "frame/orvo_services.h"

#include <QHash>
#include <QList>
#include <QStringList>
#include <functional>
#include <optional>
#include <ostream>
#include <tuple>

// Readable failure output for the texts the tests compare.
inline void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}
inline void PrintTo(const QStringList& l, std::ostream* os) {
    *os << '[' << l.join("|").toStdString() << ']';
}

namespace orvo::test {

struct ShownMessage {
    MessageKind kind;
    QString text;
    QString title;
};

class RecordingMessages : public Messages {
public:
    void Show(MessageKind kind, const QString& text, const QString& title) override {
        shown.append({kind, text, title});
    }
    bool Ask(const QString& text, const QString& title) override {
        shown.append({MessageKind::Question, text, title});
        return answer;
    }
    QList<ShownMessage> shown;
    bool answer = true;
};

class ScriptedRights : public OrvoRightsService {
public:
    bool ReadRight(const QString& key, const QString& user) override {
        return ask("read", key, user);
    }
    bool EditRight(const QString& key, const QString& user) override {
        return ask("edit", key, user);
    }
    bool DeleteRight(const QString& key, const QString& user) override {
        return ask("delete", key, user);
    }
    bool CreateRight(const QString& key, const QString& user) override {
        return ask("create", key, user);
    }
    bool FifthRight(const QString& key, const QString& user) override {
        return ask("fifth", key, user);
    }

    // Answers by action name; an action not set answers `all`.
    QHash<QString, bool> answers;
    bool all = true;
    QStringList calls; // "action:key:user"

private:
    bool ask(const char* action, const QString& key, const QString& user) {
        const QString a = QString::fromLatin1(action);
        calls.append(a + ":" + key + ":" + user);
        return answers.value(a, all);
    }
};

class TestConstants : public OrvoConstantsService {
public:
    QString Title() override { return title; }
    Value GetConstant(const QString& name) override { return constants.value(name); }
    RecordsetPtr MyFirm() override { return nullptr; }
    QString title = QStringLiteral("Orvo Apskaita");
    QHash<QString, Value> constants;
};

class TestSession : public OrvoSessionService {
public:
    OrvoConstantsServicePtr Constants() override { return constants; }
    SessionUser CurrentUser() override { return {1, "ADM", "Administratorius", QString()}; }
    std::shared_ptr<TestConstants> constants = std::make_shared<TestConstants>();
};

// A form that records what its opener set, in order.
class TestForm : public OrvoForm {
public:
    explicit TestForm(QString name) : name_(std::move(name)) {}
    QString FormName() const override { return name_; }
    void SetBoolModalForm(bool modal) override {
        steps.append("boolModalForm");
        OrvoForm::SetBoolModalForm(modal);
    }
    void SetOrvoObjectUIO(const OrvoObjectUIOPtr& uio) override {
        steps.append("OrvoObjectUIO");
        OrvoForm::SetOrvoObjectUIO(uio);
    }
    void SetClickedParameters(const QString& parameters) override {
        steps.append("ClickedParameters");
        OrvoForm::SetClickedParameters(parameters);
    }
    void Show(bool modal) override { steps.append(modal ? "Show(modal)" : "Show"); }
    void UnloadShowOrvoObject() override { steps.append("Unload"); }
    QStringList steps;

private:
    QString name_;
};

// A form registry with a TestForm registered under each given name.
inline std::shared_ptr<FormRegistry> TestForms(const QStringList& names) {
    auto forms = std::make_shared<FormRegistry>();
    for (const QString& n : names)
        forms->Register(n, [n] { return std::make_shared<TestForm>(n); });
    return forms;
}

class TestObjects : public OrvoObjectsService {
public:
    OrvoObjectUIOPtr GetObjectUIO(const QString& codeOrOidr) override {
        uioRequests.append(codeOrOidr);
        if (uioFactory)
            return uioFactory(codeOrOidr);
        return byReference.value(codeOrOidr);
    }
    OrvoObjectUIPtr GetObjectUI(const QString& code) override {
        uiRequests.append(code);
        return navigators.value(code);
    }
    void ShowObject(const QString& oidr) override { shown.append(oidr); }
    ValueResult Methods(const QString& name, const ValueArray& parameters) override {
        methods.append(name);
        (void)parameters;
        return {};
    }

    QHash<QString, OrvoObjectUIOPtr> byReference;
    QHash<QString, OrvoObjectUIPtr> navigators;
    std::function<OrvoObjectUIOPtr(const QString&)> uioFactory;
    QStringList uioRequests;
    QStringList uiRequests;
    QStringList shown;
    QStringList methods;
};

class TestPickers : public Pickers {
public:
    QString PickObject(const QString& kinds, const QString& title, const QString& field,
                       const QString& filter) override {
        calls.append(QStringList{kinds, title, field, filter});
        return answer;
    }
    QString PickGroup(const QString& code, const QString& title) override {
        calls.append(QStringList{code, title});
        return answer;
    }
    QString answer;
    QList<QStringList> calls;
};

class TestDeskTop : public OrvoDeskTopService {
public:
    void AddForm(const OrvoFormPtr& form) override { forms.append(form); }
    void RemoveForm(const OrvoFormPtr& form) override { forms.removeAll(form); }
    QList<OrvoFormPtr> forms;
};

// A business object whose methods are handlers the test writes; it records each call
// with what it carried in Data on entry.
class ScriptedBO : public BusinessObject {
public:
    struct Call {
        QString method;
        QString parameters;
        Value dataOnEntry;
    };
    using Handler = std::function<void(const QString& parameters, BOResult& result)>;

    void Run(const QString& methodName, const QString& parameterText, const QString&,
             BOResult& result) override {
        calls.append({methodName, parameterText, result.Data});
        const auto it = handlers.constFind(methodName);
        if (it == handlers.constEnd()) {
            result.Code = 999;
            result.Text = "no method " + methodName;
            result.Data = Value();
            return;
        }
        (*it)(parameterText, result);
    }

    QHash<QString, Handler> handlers;
    QList<Call> calls;
};

// The fields of an operation as the tests need them: a header row with nested entries,
// each with nested addressees.
inline FieldDefs PropertyFields() {
    return {FieldDef::Make("BRGUID", FieldType::VarWChar, 38),
            FieldDef::Make("Sign", FieldType::SmallInt),
            FieldDef::Make("FOIDR", FieldType::VarWChar, 50),
            FieldDef::Make("ShowString", FieldType::VarWChar, 800)};
}

inline FieldDefs EntryFields() {
    return {FieldDef::Make("ID", FieldType::Integer),
            FieldDef::Make("GUID", FieldType::VarWChar, 38),
            FieldDef::Make("DateD", FieldType::Date),
            FieldDef::Make("SumA", FieldType::Double),
            FieldDef::Make("AccountD", FieldType::VarWChar, 20),
            FieldDef::Make("AccountC", FieldType::VarWChar, 20),
            FieldDef::Chapter("BRProperties", PropertyFields())};
}

inline FieldDefs OperationFields() {
    return {FieldDef::Make("OIDR", FieldType::VarWChar, 50),
            FieldDef::Make("FOIDR", FieldType::VarWChar, 50),
            FieldDef::Make("BROperGroupID", FieldType::Integer),
            FieldDef::Make("DateD", FieldType::Date),
            FieldDef::Make("Comment", FieldType::VarWChar, 1000),
            FieldDef::Make("LockGUID", FieldType::VarWChar, 38),
            FieldDef::Chapter("BR", EntryFields())};
}

// A one-row operation recordset, unchanged as if read from storage; a Null value
// leaves its field Null.
inline RecordsetPtr MakeOperation(const Value& oidr, const Value& foidr, qint32 groupId,
                                  const QDate& date) {
    RecordsetPtr rs = Recordset::Create(OperationFields());
    rs->AddNew();
    rs->SetField("OIDR", oidr);
    rs->SetField("FOIDR", foidr);
    rs->SetField("BROperGroupID", Value(groupId));
    rs->SetField("DateD", Value(date));
    rs->Update();
    rs->AcceptChanges();
    rs->MoveFirst();
    return rs;
}

// Adds an entry to an operation's BR with the given addressees (sign, FOIDR, text).
inline void AddEntry(const RecordsetPtr& operation, const Value& id, const QString& guid,
                     const QList<std::tuple<qint16, QString, QString>>& addressees = {}) {
    RecordsetPtr br = operation->Field("BR").toRecordset();
    br->AddNew();
    br->SetField("ID", id);
    br->SetField("GUID", Value(guid));
    br->SetField("SumA", Value(10.0));
    br->SetField("AccountD", Value("2410"));
    br->SetField("AccountC", Value("5000"));
    RecordsetPtr props = br->Field("BRProperties").toRecordset();
    for (const auto& [sign, foidr, text] : addressees) {
        props->AddNew();
        props->SetField("BRGUID", Value(guid));
        props->SetField("Sign", Value(sign));
        props->SetField("FOIDR", Value(foidr));
        props->SetField("ShowString", Value(text));
        props->Update();
    }
    br->Update();
}

// A data object over the real base class whose own queries and commands are handlers
// the test writes; it records every Properties and Methods call.
class ScriptedDataObject : public OrvoObjectUIOBase {
public:
    using PropertyHandler = std::function<ValueResult(const QString& parameters)>;
    using CommandHandler = std::function<ValueResult(const ValueArray& parameters)>;

    explicit ScriptedDataObject(const QString& code,
                                PropertiesConvention rules = PropertiesConvention())
        : OrvoObjectUIOBase(code, "UIO" + code.mid(1), "Test object", std::move(rules)) {}

    ValueResult Properties(const QString& name, const QString& parameters) override {
        propertyCalls.append({name, parameters});
        return OrvoObjectUIOBase::Properties(name, parameters);
    }
    ValueResult Methods(const QString& name, const ValueArray& parameters) override {
        methodCalls.append({name, parameters});
        const auto it = commands.constFind(name);
        if (it != commands.constEnd())
            return (*it)(parameters);
        return OrvoObjectUIOBase::Methods(name, parameters);
    }

    QHash<QString, PropertyHandler> ownProperties;
    QHash<QString, CommandHandler> commands;
    QList<QPair<QString, QString>> propertyCalls;
    QList<QPair<QString, ValueArray>> methodCalls;

protected:
    std::optional<ValueResult> OwnProperty(const QString& name,
                                           const QString& parameters) override {
        const auto it = ownProperties.constFind(name);
        if (it != ownProperties.constEnd())
            return (*it)(parameters);
        return std::nullopt;
    }
};

// A navigator over the real base class whose data objects come from a factory the
// test gives.
class TestNavigator : public OrvoObjectUIBase {
public:
    TestNavigator(const QString& code,
                  std::function<OrvoObjectUIOPtr(const QString& oid)> make = nullptr)
        : OrvoObjectUIBase(code, "UI" + code.mid(1), "Test node"), make_(std::move(make)) {}

protected:
    OrvoObjectUIOPtr NewDataObject(const QString& oid) override {
        return make_ ? make_(oid) : OrvoObjectUIBase::NewDataObject(oid);
    }

private:
    std::function<OrvoObjectUIOPtr(const QString& oid)> make_;
};

// Services for one test: every double in place and stored module-wide; the module-wide
// variable is cleared when the fixture goes.
struct ServicesFixture {
    ServicesFixture() {
        services->SetMessagesService(messages);
        services->SetRightsService(rights);
        services->SetSessionService(session);
        services->SetObjectsService(objects);
        services->SetPickersService(pickers);
        services->SetDeskTopService(desktop);
        services->SetFormsService(forms);
        ReplaceOrvoS(services);
    }
    ~ServicesFixture() { ClearOrvoS(); }

    std::shared_ptr<OrvoServices> services = std::make_shared<OrvoServices>();
    std::shared_ptr<RecordingMessages> messages = std::make_shared<RecordingMessages>();
    std::shared_ptr<ScriptedRights> rights = std::make_shared<ScriptedRights>();
    std::shared_ptr<TestSession> session = std::make_shared<TestSession>();
    std::shared_ptr<TestObjects> objects = std::make_shared<TestObjects>();
    std::shared_ptr<TestPickers> pickers = std::make_shared<TestPickers>();
    std::shared_ptr<TestDeskTop> desktop = std::make_shared<TestDeskTop>();
    std::shared_ptr<FormRegistry> forms = TestForms(
        {"frmBROper", "frmTransfer", "frmCashPayment", "frmAdvanceReport", "frmAccountsClosing"});
};

} // namespace orvo::test
