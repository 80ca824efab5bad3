#include "host/session/host_session.h"

#include "frame/object_registry.h"
#include "frame/orvo_object_ui_base.h"
#include "frame/orvo_s.h"
#include "host/catalogues/catalogue_kinds.h"
#include "host/catalogues/catalogue_object.h"
#include "host/catalogues/currency_methods.h"
#include "host/methods/accounts_methods.h"
#include "host/methods/addressee_methods.h"
#include "host/methods/catalogue_editor_methods.h"
#include "host/methods/comment_list_methods.h"
#include "host/methods/group_methods.h"
#include "host/methods/host_business_object.h"
#include "host/methods/system_methods.h"
#include "host/methods/template_methods.h"
#include "host/objects/group_kind.h"
#include "host/objects/object_methods.h"
#include "host/objects/object_store.h"
#include "host/objects/operation_methods.h"
#include "host/session/book_constants_service.h"
#include "host/session/book_rights_service.h"
#include "host/session/book_session_service.h"
#include "host/session/book_settings_service.h"
#include "host/session/host_desktop_service.h"
#include "host/session/host_objects_service.h"
#include "host/session/host_shell_service.h"
#include "host/session/scripted_choices.h"
#include "host/session/scripted_messages.h"

namespace orvo::host {

HostSession::~HostSession() {
    // The module-wide services refer to this session's book; forget them with it.
    if (OrvoS() == services_)
        ClearOrvoS();
}

BusinessObjectPtr HostSession::BO() const {
    return bo_;
}

void HostSession::RegisterCatalogueClasses() {
    ObjectKindRegistry kinds;
    AddCatalogueKinds(kinds);
    ObjectRegistry& registry = ObjectRegistry::Component();
    for (const QString& code : kinds.Codes()) {
        const QString title = kinds.Find(code)->Title;
        if (!registry.HasDataObject(code))
            registry.RegisterDataObject(code, [title](const QString& c) {
                return std::make_shared<CatalogueObject>(c.left(8), title);
            });
        if (!registry.HasNavigator(code))
            registry.RegisterNavigator(code, [title](const QString& c) {
                return std::make_shared<OrvoObjectUIBase>(
                    c.left(8), QStringLiteral("UI") + c.mid(1, 7), title);
            });
    }
}

namespace {

// The user of the session: by login, or the first administrator.
ResultRecord findUser(Database& db, const QString& login, SessionUser* user, bool* isAdmin) {
    const QueryResult q =
        login.isEmpty()
            ? db.Query(QStringLiteral("SELECT ID, Code, Name, UserPref, IsAdmin FROM Users ORDER "
                                      "BY IsAdmin DESC, ID LIMIT 1"))
            : db.Query(QStringLiteral(
                           "SELECT ID, Code, Name, UserPref, IsAdmin FROM Users WHERE Code = ?"),
                       {Value(login)});
    if (!q.ok())
        return ResultRecord::Failure(q.Code, q.Text);
    if (q.RowCount() == 0)
        return ResultRecord::Failure(
            1, login.isEmpty() ? QStringLiteral("Knygoje nėra nė vieno naudotojo.")
                               : QStringLiteral("Naudotojas „%1“ knygoje nerastas.").arg(login));
    user->ID = q.At(0, 0).toInt32();
    user->Code = q.At(0, 1).toString();
    user->Name = q.At(0, 2).toString();
    user->UserPref = q.At(0, 3).toString();
    *isAdmin = q.At(0, 4).toInt32() != 0;
    return ResultRecord::Success();
}

// A new book starts with one administrator, so that it can be opened at all.
ResultRecord ensureAdministrator(Database& db) {
    const QueryResult q = db.Query(QStringLiteral("SELECT COUNT(*) FROM Users"));
    if (!q.ok())
        return ResultRecord::Failure(q.Code, q.Text);
    if (q.Scalar().toInt32() > 0)
        return ResultRecord::Success();
    const ExecResult r = db.Execute(
        QStringLiteral("INSERT INTO Users (Code, Name, UserPref, IsAdmin) VALUES (?, ?, ?, 1)"),
        {Value(QStringLiteral("admin")), Value(QStringLiteral("Administratorius")),
         Value(QStringLiteral("AD"))});
    return r.ok() ? ResultRecord::Success() : ResultRecord::Failure(r.Code, r.Text);
}

} // namespace

SessionResult HostSession::Open(const QString& location, OpenMode mode, const QString& userLogin) {
    OpenResult opened = Database::Open(location, mode);
    if (!opened.ok())
        return {opened.Code, opened.Text, nullptr};
    std::unique_ptr<HostSession> s(new HostSession());
    s->db_ = std::move(opened.Db);
    Database& db = *s->db_;

    if (mode == OpenMode::CreateIfMissing) {
        const ResultRecord r = ensureAdministrator(db);
        if (!r.ok())
            return {r.Code, r.Text, nullptr};
    }
    const ResultRecord u = findUser(db, userLogin, &s->user_, &s->userIsAdmin_);
    if (!u.ok())
        return {u.Code, u.Text, nullptr};

    s->kinds_ = std::make_shared<ObjectKindRegistry>();
    AddCatalogueKinds(*s->kinds_);
    s->kinds_->Add(GroupKind());
    s->methods_ = std::make_shared<MethodRegistry>();
    for (const ResultRecord& r :
         {RegisterSystemMethods(*s->methods_), RegisterObjectMethods(*s->methods_, *s->kinds_),
          RegisterCurrencyMethods(*s->methods_), RegisterAccountMethods(*s->methods_),
          RegisterGroupMethods(*s->methods_), RegisterTemplateMethods(*s->methods_),
          RegisterCatalogueEditorMethods(*s->methods_), RegisterAddresseeMethods(*s->methods_),
          RegisterCommentListMethods(*s->methods_)})
        if (!r.ok())
            return {r.Code, r.Text, nullptr};
    const ResultRecord operations =
        RegisterOperationMethods(*s->methods_, s->user_, BookPostingRules(s->userIsAdmin_));
    if (!operations.ok())
        return {operations.Code, operations.Text, nullptr};

    MethodContext ctx;
    ctx.database = &db;
    ctx.userId = s->user_.ID;
    ctx.userLogin = s->user_.Code;
    const QueryResult base =
        db.Query(QStringLiteral("SELECT Value FROM Constants WHERE Name = 'BaseCurrency'"));
    if (base.ok() && !base.Scalar().isNull())
        ctx.baseCurrency = base.Scalar().toString();
    const QueryResult firm = db.Query(QStringLiteral("SELECT ID FROM Firms WHERE MyFirmFlag <> 0"));
    if (firm.ok() && firm.RowCount() > 0)
        ctx.myFirmOIDR =
            kinds::Firm + QString::number(static_cast<qint64>(firm.Scalar().toDouble()));
    s->bo_ = std::make_shared<HostBusinessObject>(s->methods_, ctx);

    // The services object. Parts that need the session itself capture plain pointers to
    // its members, which live exactly as long as the services do.
    s->services_ = std::make_shared<OrvoServices>();
    const ObjectKindPtr firmKind = s->kinds_->Find(kinds::Firm);
    Database* dbp = &db;
    auto constants =
        std::make_shared<BookConstantsService>(db, [dbp, firmKind](qint64 id) -> RecordsetPtr {
            ObjectStore store(*dbp);
            const BOResult r = store.Read(*firmKind, id);
            return r.ok() ? r.Data.toRecordset() : nullptr;
        });
    s->services_->SetSessionService(std::make_shared<BookSessionService>(constants, s->user_));
    s->services_->SetRightsService(
        std::make_shared<BookRightsService>(db, s->user_.ID, s->userIsAdmin_));
    s->services_->SetSettingsService(std::make_shared<BookSettingsService>(db, s->user_.ID));
    s->objects_ = std::make_shared<HostObjectsService>(s->bo_, s->services_);
    s->services_->SetObjectsService(s->objects_);
    s->shell_ = std::make_shared<HostShellService>(s->objects_);
    s->services_->SetShellService(s->shell_);
    s->desktop_ = std::make_shared<HostDeskTopService>();
    s->services_->SetDeskTopService(s->desktop_);
    s->messages_ = std::make_shared<ScriptedMessages>();
    s->services_->SetMessagesService(s->messages_);
    s->choices_ = std::make_shared<ScriptedChoices>();
    s->services_->SetPickersService(s->choices_);
    s->services_->SetInputsService(s->choices_);
    s->forms_ = std::make_shared<FormRegistry>();
    s->services_->SetFormsService(s->forms_);

    RegisterCatalogueClasses();
    ReplaceOrvoS(s->services_);
    return {0, QString(), std::move(s)};
}

} // namespace orvo::host
