// OrvoServices is the object the host hands to every navigator through OrvoS: it gives
// each of the host's services the component uses. The host (or a test) builds one and
// fills the services it has; a service that is absent is null, and every caller tests
// for that and acts as on an empty answer.
#pragma once

#include "core/object_base.h"
#include "frame/file_dialogs.h"
#include "frame/forms.h"
#include "frame/inputs.h"
#include "frame/messages.h"
#include "frame/orvo_desktop_service.h"
#include "frame/orvo_objects_service.h"
#include "frame/orvo_rights_service.h"
#include "frame/orvo_session_service.h"
#include "frame/orvo_settings_service.h"
#include "frame/orvo_shell_service.h"
#include "frame/pickers.h"
#include "frame/print_preview.h"

#include <memory>

namespace orvo {

class OrvoServices : public ObjectBase {
public:
    QString ClassName() const override { return QStringLiteral("OrvoServices"); }

    OrvoObjectsServicePtr ObjectsService() const { return objects_; }
    OrvoShellServicePtr ShellService() const { return shell_; }
    OrvoDeskTopServicePtr DeskTopService() const { return desktop_; }
    OrvoRightsServicePtr RightsService() const { return rights_; }
    OrvoSessionServicePtr SessionService() const { return session_; }
    OrvoSettingsServicePtr SettingsService() const { return settings_; }
    MessagesPtr MessagesService() const { return messages_; }
    PickersPtr PickersService() const { return pickers_; }
    InputsPtr InputsService() const { return inputs_; }
    FormsPtr FormsService() const { return forms_; }
    FileDialogsPtr FileDialogsService() const { return fileDialogs_; }
    PrintPreviewPtr PrintPreviewService() const { return printPreview_; }

    // The constants of the session, or null without a session.
    OrvoConstantsServicePtr Constants() const;

    void SetObjectsService(OrvoObjectsServicePtr s) { objects_ = std::move(s); }
    void SetShellService(OrvoShellServicePtr s) { shell_ = std::move(s); }
    void SetDeskTopService(OrvoDeskTopServicePtr s) { desktop_ = std::move(s); }
    void SetRightsService(OrvoRightsServicePtr s) { rights_ = std::move(s); }
    void SetSessionService(OrvoSessionServicePtr s) { session_ = std::move(s); }
    void SetSettingsService(OrvoSettingsServicePtr s) { settings_ = std::move(s); }
    void SetMessagesService(MessagesPtr s) { messages_ = std::move(s); }
    void SetPickersService(PickersPtr s) { pickers_ = std::move(s); }
    void SetInputsService(InputsPtr s) { inputs_ = std::move(s); }
    void SetFormsService(FormsPtr s) { forms_ = std::move(s); }
    void SetFileDialogsService(FileDialogsPtr s) { fileDialogs_ = std::move(s); }
    void SetPrintPreviewService(PrintPreviewPtr s) { printPreview_ = std::move(s); }

private:
    OrvoObjectsServicePtr objects_;
    OrvoShellServicePtr shell_;
    OrvoDeskTopServicePtr desktop_;
    OrvoRightsServicePtr rights_;
    OrvoSessionServicePtr session_;
    OrvoSettingsServicePtr settings_;
    MessagesPtr messages_;
    PickersPtr pickers_;
    InputsPtr inputs_;
    FormsPtr forms_;
    FileDialogsPtr fileDialogs_;
    PrintPreviewPtr printPreview_;
};

using OrvoServicesPtr = std::shared_ptr<OrvoServices>;

} // namespace orvo
