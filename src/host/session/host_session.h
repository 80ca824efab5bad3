// HostSession is one user working in one book: it opens the book (SQLite file or
// PostgreSQL connection string), finds the user, builds the business object with every
// method the host offers, and the services object that the accounting component reaches
// the host through (stored module-wide as OrvoS). Faces without windows keep its
// scripted messages and choices; the desktop replaces them with real dialogs.
#pragma once

#include "core/results.h"
#include "frame/business_object.h"
#include "frame/form_registry.h"
#include "frame/orvo_services.h"
#include "host/methods/method_registry.h"
#include "host/objects/object_kind_registry.h"
#include "host/storage/database.h"

#include <memory>

namespace orvo::host {

class HostBusinessObject;
class HostObjectsService;
class HostShellService;
class HostDeskTopService;
class ScriptedMessages;
class ScriptedChoices;

class HostSession;
struct SessionResult {
    qint32 Code = 0;
    QString Text;
    std::unique_ptr<HostSession> Session;
    bool ok() const { return Code == 0; }
};

class HostSession {
public:
    ~HostSession();

    // Opens the book at `location` for the user of login `userLogin` (empty: the first
    // administrator). With CreateIfMissing a missing book is created with one
    // administrator, "admin". Every refusal is one clear Lithuanian text.
    static SessionResult Open(const QString& location, OpenMode mode = OpenMode::Existing,
                              const QString& userLogin = QString());

    Database& Db() { return *db_; }
    BusinessObjectPtr BO() const;
    HostBusinessObject& Business() { return *bo_; }
    OrvoServicesPtr Services() const { return services_; }
    const MethodRegistry& Methods() const { return *methods_; }
    const ObjectKindRegistry& Kinds() const { return *kinds_; }
    SessionUser User() const { return user_; }
    bool UserIsAdmin() const { return userIsAdmin_; }

    std::shared_ptr<ScriptedMessages> Messages() const { return messages_; }
    std::shared_ptr<ScriptedChoices> Choices() const { return choices_; }
    std::shared_ptr<FormRegistry> Forms() const { return forms_; }
    std::shared_ptr<HostObjectsService> ObjectsService() const { return objects_; }
    std::shared_ptr<HostShellService> Shell() const { return shell_; }
    std::shared_ptr<HostDeskTopService> DeskTop() const { return desktop_; }

    // Registers the data objects and navigators of the shared catalogues in the
    // component's object registry (done by Open; harmless to repeat).
    static void RegisterCatalogueClasses();

private:
    HostSession() = default;

    DatabasePtr db_;
    std::shared_ptr<ObjectKindRegistry> kinds_;
    std::shared_ptr<MethodRegistry> methods_;
    std::shared_ptr<HostBusinessObject> bo_;
    OrvoServicesPtr services_;
    SessionUser user_;
    bool userIsAdmin_ = false;
    std::shared_ptr<ScriptedMessages> messages_;
    std::shared_ptr<ScriptedChoices> choices_;
    std::shared_ptr<FormRegistry> forms_;
    std::shared_ptr<HostObjectsService> objects_;
    std::shared_ptr<HostShellService> shell_;
    std::shared_ptr<HostDeskTopService> desktop_;
};

} // namespace orvo::host
