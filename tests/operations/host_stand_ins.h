// Stand-ins for the host, used only by these unit tests of the operation object's own
// logic: message boxes that are recorded and questions answered from a queue, an input
// box answered from a queue, windows registered by name, a session with the base
// currency "EUR" and a user, settings in memory, an object factory of small data
// objects, and a business object that answers the few named methods a test needs from
// handlers the test writes. The real host, with its storage on SQLite or PostgreSQL,
// is tested end to end with its own tests; nothing here stores anything.
#pragma once

#include "core/recordset.h"
#include "core/today.h"
#include "frame/business_object.h"
#include "frame/form_registry.h"
#include "frame/messages.h"
#include "frame/orvo_object_uio_base.h"
#include "frame/orvo_s.h"
#include "frame/orvo_services.h"
#include "model/operation_record.h"
#include "operations/operation_object.h"

#include <QHash>
#include <QList>
#include <QQueue>
#include <QStringList>
#include <functional>
#include <gtest/gtest.h>
#include <ostream>

inline void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}

namespace orvo::test {

struct Box {
    MessageKind kind;
    QString text;
    QString title;
};

// Records every box; answers each question with the next queued answer (No when the
// queue is empty).
class BoxRecorder : public Messages {
public:
    void Show(MessageKind kind, const QString& text, const QString& title) override {
        boxes.append({kind, text, title});
    }
    bool Ask(const QString& text, const QString& title) override {
        boxes.append({MessageKind::Question, text, title});
        return answers.isEmpty() ? false : answers.dequeue();
    }
    int Count(MessageKind kind) const {
        int n = 0;
        for (const Box& b : boxes)
            n += b.kind == kind ? 1 : 0;
        return n;
    }
    QList<Box> boxes;
    QQueue<bool> answers;
};

// The input box: records each prompt and title, answers from a queue (a cancel when the
// queue is empty or holds nullopt).
class QueuedInputs : public Inputs {
public:
    std::optional<QString> InputBox(const QString& prompt, const QString& title,
                                    const QString& defaultText) override {
        asked.append({prompt, title, defaultText});
        return answers.isEmpty() ? std::nullopt : answers.dequeue();
    }
    struct Asked {
        QString prompt, title, defaultText;
    };
    QList<Asked> asked;
    QQueue<std::optional<QString>> answers;
};

// The windows a test registers; records every name asked for.
class RecordingForms : public FormRegistry {
public:
    OrvoFormPtr CreateForm(const QString& name) override {
        asked.append(name);
        return FormRegistry::CreateForm(name);
    }
    QStringList asked;
};

class EuroConstants : public OrvoConstantsService {
public:
    QString Title() override { return QStringLiteral("Orvo Apskaita"); }
    Value GetConstant(const QString& name) override {
        return name == QLatin1String("BaseCurrency") ? Value(baseCurrency) : Value();
    }
    RecordsetPtr MyFirm() override { return nullptr; }
    QString baseCurrency = QStringLiteral("EUR");
};

class OneUserSession : public OrvoSessionService {
public:
    explicit OneUserSession(std::shared_ptr<EuroConstants> c) : constants(std::move(c)) {
        user.ID = 7;
        user.Code = QStringLiteral("O0001500007");
        user.Name = QStringLiteral("Ona Buhalterė");
        user.UserPref = QStringLiteral("OB");
    }
    OrvoConstantsServicePtr Constants() override { return constants; }
    SessionUser CurrentUser() override { return user; }
    std::shared_ptr<EuroConstants> constants;
    SessionUser user;
};

class MemorySettings : public OrvoSettingsService {
public:
    QString GetSetting(const QString& section, const QString& key,
                       const QString& defaultValue) override {
        return values.value(section + "/" + key, defaultValue);
    }
    void SaveSetting(const QString& section, const QString& key, const QString& value) override {
        values.insert(section + "/" + key, value);
    }
    QHash<QString, QString> values;
};

class AllRights : public OrvoRightsService {
public:
    bool ReadRight(const QString&, const QString&) override { return true; }
    bool EditRight(const QString&, const QString&) override { return true; }
    bool DeleteRight(const QString&, const QString&) override { return true; }
    bool CreateRight(const QString&, const QString&) override { return true; }
    bool FifthRight(const QString&, const QString&) override { return true; }
};

// A small data object of another kind (a template, a currency, a contract): its
// Properties and Methods answer through handlers the test sets.
class SmallObject : public OrvoObjectUIOBase {
public:
    explicit SmallObject(const QString& code)
        : OrvoObjectUIOBase(code, QStringLiteral("UIO") + code.mid(1), code) {}
    ValueResult Properties(const QString& name, const QString& parameters) override {
        asked.append(name + "(" + parameters + ")");
        return properties ? properties(name, parameters) : ValueResult::Of(Value());
    }
    ValueResult Methods(const QString& name, const ValueArray& parameters) override {
        commands.append(name);
        lastParameters = parameters;
        return methods ? methods(name, parameters) : ValueResult::Of(Value(true));
    }
    std::function<ValueResult(const QString&, const QString&)> properties;
    std::function<ValueResult(const QString&, const ValueArray&)> methods;
    QStringList asked;
    QStringList commands;
    ValueArray lastParameters;
};

// The object factory: small objects by code; any other code gives nothing.
class SmallObjects : public OrvoObjectsService {
public:
    std::shared_ptr<OrvoObjectUIO> GetObjectUIO(const QString& codeOrOidr) override {
        requested.append(codeOrOidr);
        return objects.value(codeOrOidr.left(8));
    }
    std::shared_ptr<OrvoObjectUI> GetObjectUI(const QString&) override { return nullptr; }
    void ShowObject(const QString& oidr) override { shownObjects.append(oidr); }
    ValueResult Methods(const QString&, const ValueArray&) override { return {}; }

    QHash<QString, std::shared_ptr<SmallObject>> objects;
    QStringList requested;
    QStringList shownObjects;
};

// The business object: named methods answered by handlers; every call is recorded.
class HostStandIn : public BusinessObject {
public:
    using Handler = std::function<BOResult(const QString& parameters, const Value& data)>;
    struct Call {
        QString method;
        QString parameters;
        Value data;
    };

    void Run(const QString& methodName, const QString& parameterText, const QString&,
             BOResult& result) override {
        calls.append({methodName, parameterText, result.Data});
        const auto it = handlers.constFind(methodName);
        if (it == handlers.constEnd()) {
            result = BOResult::Failure(999, QStringLiteral("Nežinomas metodas ") + methodName);
            return;
        }
        result = (*it)(parameterText, result.Data);
    }
    int CallsTo(const QString& method) const {
        int n = 0;
        for (const Call& c : calls)
            n += c.method == method ? 1 : 0;
        return n;
    }
    QList<Call> calls;
    QHash<QString, Handler> handlers;
};

// A recordset of the given fields filled with rows of values in field order.
inline RecordsetPtr Table(const FieldDefs& fields, const QList<ValueArray>& rows) {
    RecordsetPtr rs = Recordset::Create(fields);
    for (const ValueArray& row : rows) {
        rs->AddNew();
        for (int i = 0; i < row.size(); ++i)
            rs->SetField(i, row.at(i));
        rs->Update();
    }
    if (rs->RecordCount() > 0)
        rs->MoveFirst();
    return rs;
}

inline FieldDef F(const char* name, FieldType type = FieldType::Variant) {
    return FieldDef::Make(QString::fromLatin1(name), type);
}

// The services, the business object and one blank operation read through it.
class OperationFixture : public ::testing::Test {
protected:
    void SetUp() override {
        SetToday(QDate(2024, 3, 15));
        constants = std::make_shared<EuroConstants>();
        session = std::make_shared<OneUserSession>(constants);
        messages = std::make_shared<BoxRecorder>();
        inputs = std::make_shared<QueuedInputs>();
        forms = std::make_shared<RecordingForms>();
        settings = std::make_shared<MemorySettings>();
        objects = std::make_shared<SmallObjects>();
        services = std::make_shared<OrvoServices>();
        services->SetSessionService(session);
        services->SetMessagesService(messages);
        services->SetInputsService(inputs);
        services->SetFormsService(forms);
        services->SetSettingsService(settings);
        services->SetObjectsService(objects);
        services->SetRightsService(std::make_shared<AllRights>());
        ReplaceOrvoS(services);

        bo = std::make_shared<HostStandIn>();
        bo->handlers.insert("DO0201500_GetOrvoObject", [](const QString&, const Value&) {
            RecordsetPtr rs = Recordset::Create(OperationRecord::OperationFields());
            rs->AddNew();
            rs->Update();
            return BOResult::Of(Value(rs));
        });
        bo->handlers.insert("GetAccountList", [this](const QString&, const Value&) {
            return BOResult::Of(Value(Table({F("Account"), F("Name")}, chart)));
        });
        op = UIO0201500::Create();
        op->Core().SetBO(bo);
        ASSERT_TRUE(op->Read().ok());
    }
    void TearDown() override {
        ClearOrvoS();
        SetToday(QDate());
    }

    RecordsetPtr Entries() const { return op->Entries(); }
    RecordsetPtr Nested(const char* name) const {
        return Entries()->Field(QString::fromLatin1(name)).toRecordset();
    }
    // The entry with that GUID made current (the filter cleared again).
    bool GoToEntry(const QString& guid) const {
        const RecordsetPtr br = Entries();
        for (br->MoveFirst(); !br->Eof(); br->MoveNext())
            if (br->Field("GUID").toString() == guid)
                return true;
        return false;
    }
    // AddBR through Methods, the way the editors call it.
    ValueResult AddBR(const ValueArray& parameters) {
        return op->Methods(QStringLiteral("AddBR"), parameters);
    }

    QList<ValueArray> chart = {{"2410", "Pirkėjų skolos"},
                               {"2710", "Kasa"},
                               {"4430", "Skolos tiekėjams"},
                               {"5000", "Pardavimų pajamos"}};
    std::shared_ptr<EuroConstants> constants;
    std::shared_ptr<OneUserSession> session;
    std::shared_ptr<BoxRecorder> messages;
    std::shared_ptr<QueuedInputs> inputs;
    std::shared_ptr<RecordingForms> forms;
    std::shared_ptr<MemorySettings> settings;
    std::shared_ptr<SmallObjects> objects;
    std::shared_ptr<OrvoServices> services;
    std::shared_ptr<HostStandIn> bo;
    std::shared_ptr<UIO0201500> op;
};

} // namespace orvo::test
