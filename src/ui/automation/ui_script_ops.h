// UiScriptOps adds to `orvo script` the ops that work windows: `form` opens a form (by
// name on a kept data object, or through a navigator's menu click), `ui` sets its
// controls by name, selects, checks and double-clicks list rows and clicks buttons and
// menu items, and `read` (with "form") tells what a control shows. They work through
// FormDriver, exactly as the tests do. A step whose action opens a modal window replies
// at once with the window's objectName; the next steps name that window in "form" until
// it closes (ScriptRunner runs them inside the window's event loop).
//
// docs/script.md describes the three ops with examples.
#pragma once

namespace orvo::host {
class HostSession;
class ScriptSession;
} // namespace orvo::host

namespace orvo::ui {

class UiScriptOps {
public:
    // Adds form, ui and read to `script`, whose forms come from the session's registry.
    // Both must outlive the script's steps.
    static void Register(host::ScriptSession& script, host::HostSession& session);
};

} // namespace orvo::ui
