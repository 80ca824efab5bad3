#include "ui/automation/ui_script_ops.h"

#include "frame/object_registry.h"
#include "frame/orvo_object_ui.h"
#include "frame/orvo_object_uio.h"
#include "frame/orvo_services.h"
#include "host/script/script_reply.h"
#include "host/script/script_session.h"
#include "host/session/host_session.h"
#include "ui/automation/form_driver.h"
#include "ui/automation/script_runner.h"
#include "ui/shell/desk_top.h"
#include "ui/shell/desktop_forms.h"
#include "ui/shell/widget_form.h"

#include <QJsonArray>
#include <QPointer>

namespace orvo::ui {

using host::ScriptSession;
using host::script::Failure;
using host::script::Success;

namespace {

using Outcome = ScriptSession::OpOutcome;

Outcome failed(const QString& text) {
    return {Failure(text), {}, false};
}

// The window a step names in "form": a form kept by `form` ("as"), or an open window
// (a modal one first) with that objectName.
struct Target {
    QWidget* Widget = nullptr;
    QString Name;
    QString Error;
};

Target targetOf(const ScriptSession& script, const QJsonObject& step) {
    Target t;
    const QString name = step.value("form").toString();
    if (name.isEmpty()) {
        t.Error = QStringLiteral("Nenurodyta forma („form“): vardas, kuriuo ji išsaugota per "
                                 "„as“, arba atviro lango vardas.");
        return t;
    }
    if (const ObjectPtr held = script.Held(name).toObject()) {
        const auto form = std::dynamic_pointer_cast<WidgetForm>(held);
        if (!form) {
            t.Error = QStringLiteral("„%1“ nėra forma su valdikliais.").arg(name);
            return t;
        }
        if (!form->HasWidget()) {
            t.Error = QStringLiteral("Forma „%1“ jau uždaryta.").arg(form->FormName());
            return t;
        }
        t.Widget = form->Widget();
        t.Name = form->FormName();
        return t;
    }
    t.Widget = FormDriver::FindWindow(name);
    t.Name = name;
    if (!t.Widget)
        t.Error = QStringLiteral("Atviro lango „%1“ nėra.").arg(name);
    return t;
}

// What a step does with a modal window its action opened: under a ScriptRunner the step
// replies at once and the next lines work the window; otherwise the window is cancelled
// and the reply says so.
struct ModalNotes {
    bool Met = false;
    QStringList Dismissed;
};

ModalWatch::ModalHandler modalHandler(const QJsonObject& step, ModalNotes& notes,
                                      std::function<QJsonObject()> progress) {
    return [step, &notes, progress](QWidget& modal) {
        notes.Met = true;
        ScriptRunner* runner = ScriptRunner::Current();
        if (!runner) {
            notes.Dismissed.append(modal.objectName());
            return;
        }
        QJsonObject reply = progress();
        reply.insert("modal", modal.objectName());
        reply.insert("title", modal.windowTitle());
        if (step.contains("id"))
            reply.insert("id", step.value("id"));
        runner->ServeModal(reply, modal);
    };
}

void presentForm(const OrvoFormPtr& form) {
    if (DeskTop* desk = DeskTop::Current()) {
        desk->Present(form);
        return;
    }
    form->Show(false);
}

QJsonObject formReply(const OrvoFormPtr& form) {
    QJsonObject reply = Success();
    reply.insert("form", form->FormName());
    if (const auto widgetForm = std::dynamic_pointer_cast<WidgetForm>(form))
        if (widgetForm->HasWidget())
            reply.insert("title", widgetForm->Widget()->windowTitle());
    return reply;
}

Outcome opForm(ScriptSession& script, host::HostSession& session, const QJsonObject& step) {
    const QString name = step.value("name").toString();
    const QString node = step.value("node").toString();
    if (name.isEmpty() == node.isEmpty())
        return failed(QStringLiteral("Nurodykite formos vardą („name“) arba medžio mazgą "
                                     "(„node“) su meniu punktu („menu“)."));
    const bool modal = step.value("modal").toBool();
    OrvoFormPtr form;
    std::function<void()> action;
    ClickResult click;
    if (!name.isEmpty()) {
        form = session.Forms() ? session.Forms()->CreateForm(name) : nullptr;
        if (!form)
            return failed(DeskTopForms::MissingFormText(name));
        if (step.contains("obj")) {
            const QString objName = step.value("obj").toString();
            const Value held = script.Held(objName);
            const OrvoObjectUIOPtr uio = AsDataObject(held);
            if (!uio)
                return failed(held.isNull()
                                  ? QStringLiteral("Vardu „%1“ nieko neišsaugota.").arg(objName)
                                  : QStringLiteral("„%1“ nėra duomenų objektas.").arg(objName));
            form->SetBoolModalForm(modal);
            form->SetOrvoObjectUIO(uio);
        } else {
            form->SetBoolModalForm(modal);
        }
        if (step.contains("params"))
            form->SetClickedParameters(step.value("params").toString());
        action = [form, modal]() {
            if (modal)
                form->Show(true);
            else
                presentForm(form);
        };
    } else {
        const QString code = step.contains("navigator") ? step.value("navigator").toString()
                                                        : ObjectRegistry::KindOf(node);
        const OrvoObjectsServicePtr objects =
            session.Services() ? session.Services()->ObjectsService() : nullptr;
        const OrvoObjectUIPtr navigator = objects ? objects->GetObjectUI(code) : nullptr;
        if (!navigator)
            return failed(QStringLiteral("Objekto kodo „%1“ navigatoriaus nėra.").arg(code));
        const QString caption = step.value("menu").toString();
        const QString key = step.value("key").toString();
        action = [navigator, node, caption, key, &click, &form]() {
            click = navigator->ClickMenu(node, QString(), caption, key);
            if (click.Action == ClickResult::ShowForm) {
                form = std::dynamic_pointer_cast<OrvoForm>(click.Payload.toObject());
                if (form)
                    presentForm(form);
            }
        };
    }
    ModalNotes notes;
    const QStringList modals = ModalWatch::Run(action, modalHandler(step, notes, [&form]() {
                                                   return form ? formReply(form) : Success();
                                               }));
    Q_UNUSED(modals);
    if (!form) {
        QJsonObject reply = Success();
        reply.insert("Action", click.Action);
        if (!notes.Dismissed.isEmpty())
            reply.insert("dismissed", QJsonArray::fromStringList(notes.Dismissed));
        return {reply, {}, false};
    }
    QJsonObject reply = formReply(form);
    if (!notes.Dismissed.isEmpty())
        reply.insert("dismissed", QJsonArray::fromStringList(notes.Dismissed));
    return {reply, Value(std::static_pointer_cast<ObjectBase>(form)), true};
}

// One thing a `ui` step does to one control.
struct UiAction {
    enum Kind { SetValue, Select, CheckRow, DoubleClick, Click } What;
    QString Control;
    QJsonValue Value;
};

bool rowNumber(const QJsonValue& v, int* row) {
    if (v.isDouble() && v.toDouble() == static_cast<int>(v.toDouble())) {
        *row = static_cast<int>(v.toDouble());
        return true;
    }
    bool ok = false;
    *row = v.toString().toInt(&ok);
    return ok;
}

// The actions of a step in the order they run: set, select, checkrows, dblclick, click.
bool collectActions(const QJsonObject& step, QList<UiAction>* actions, QString* error) {
    const QJsonValue set = step.value("set");
    QJsonArray sets;
    if (set.isObject())
        sets.append(set);
    else if (set.isArray())
        sets = set.toArray();
    else if (!set.isUndefined()) {
        *error = QStringLiteral("„set“ yra objektas {valdiklis: reikšmė} arba tokių objektų "
                                "masyvas.");
        return false;
    }
    for (const QJsonValue& part : sets) {
        if (!part.isObject()) {
            *error = QStringLiteral("„set“ masyve turi būti objektai {valdiklis: reikšmė}.");
            return false;
        }
        const QJsonObject o = part.toObject();
        for (auto it = o.begin(); it != o.end(); ++it)
            actions->append({UiAction::SetValue, it.key(), it.value()});
    }
    const QJsonObject select = step.value("select").toObject();
    for (auto it = select.begin(); it != select.end(); ++it)
        actions->append({UiAction::Select, it.key(), it.value()});
    const QJsonObject checks = step.value("checkrows").toObject();
    for (auto it = checks.begin(); it != checks.end(); ++it) {
        if (!it.value().isObject()) {
            *error = QStringLiteral("„checkrows“: {sąrašas: {eilutė: true arba false}}.");
            return false;
        }
        const QJsonObject rows = it.value().toObject();
        for (auto r = rows.begin(); r != rows.end(); ++r)
            actions->append(
                {UiAction::CheckRow, it.key(), QJsonObject{{"row", r.key()}, {"on", r.value()}}});
    }
    const QJsonObject doubles = step.value("dblclick").toObject();
    for (auto it = doubles.begin(); it != doubles.end(); ++it)
        actions->append({UiAction::DoubleClick, it.key(), it.value()});
    const QJsonValue click = step.value("click");
    QJsonArray clicks;
    if (click.isArray())
        clicks = click.toArray();
    else if (!click.isUndefined())
        clicks.append(click);
    for (const QJsonValue& c : clicks) {
        if (!c.isString() || c.toString().isEmpty()) {
            *error = QStringLiteral("„click“ yra mygtuko ar meniu punkto vardas arba jų masyvas.");
            return false;
        }
        actions->append({UiAction::Click, c.toString(), {}});
    }
    if (actions->isEmpty()) {
        *error = QStringLiteral("Nenurodyta, ką daryti: „set“, „select“, „checkrows“, "
                                "„dblclick“ ar „click“.");
        return false;
    }
    return true;
}

DriveResult runAction(FormDriver& driver, const UiAction& a) {
    int row = 0;
    switch (a.What) {
    case UiAction::SetValue:
        return driver.Set(a.Control, a.Value.toVariant());
    case UiAction::Select:
    case UiAction::DoubleClick:
        if (!rowNumber(a.Value, &row))
            break;
        return a.What == UiAction::Select ? driver.SelectRow(a.Control, row)
                                          : driver.DoubleClickRow(a.Control, row);
    case UiAction::CheckRow: {
        const QJsonObject o = a.Value.toObject();
        if (!rowNumber(o.value("row"), &row) || !o.value("on").isBool())
            break;
        return driver.CheckRow(a.Control, row, o.value("on").toBool());
    }
    case UiAction::Click:
        return driver.Click(a.Control);
    }
    DriveResult bad;
    bad.Result = ResultRecord::Failure(
        codes::Refused,
        QStringLiteral("Sąrašo „%1“ eilutė nurodoma numeriu nuo 0 (žymint – true arba false).")
            .arg(a.Control));
    return bad;
}

Outcome opUi(ScriptSession& script, const QJsonObject& step) {
    const Target target = targetOf(script, step);
    if (!target.Widget)
        return failed(target.Error);
    QList<UiAction> actions;
    QString error;
    if (!collectActions(step, &actions, &error))
        return failed(error);
    FormDriver driver(*target.Widget, target.Name);
    // Every control is looked for before anything is done, so a misspelt name does nothing.
    for (const UiAction& a : actions)
        if (!driver.Find(a.Control))
            return failed(driver.NotFoundText(a.Control));

    int done = 0;
    QJsonObject values;
    auto progress = [&done, &values]() {
        QJsonObject reply = Success();
        reply.insert("done", done);
        if (!values.isEmpty())
            reply.insert("values", values);
        return reply;
    };
    ModalNotes notes;
    driver.SetModalHandler(modalHandler(step, notes, progress));
    QJsonObject reply;
    for (const UiAction& a : actions) {
        const DriveResult r = runAction(driver, a);
        if (!r.ok()) {
            reply = Failure(r.Result.Text);
            reply.insert("done", done);
            break;
        }
        ++done;
        if (a.What == UiAction::SetValue)
            values.insert(a.Control, r.Text);
        // The actions after one that opened a modal window are not run: the lines that
        // followed worked that window.
        if (notes.Met)
            break;
    }
    if (reply.isEmpty())
        reply = progress();
    if (!notes.Dismissed.isEmpty())
        reply.insert("dismissed", QJsonArray::fromStringList(notes.Dismissed));
    return {reply, {}, false};
}

std::optional<Outcome> opRead(ScriptSession& script, const QJsonObject& step) {
    // Without "form" the step reads a data object again: the protocol's own `read`.
    if (!step.contains("form"))
        return std::nullopt;
    const Target target = targetOf(script, step);
    if (!target.Widget)
        return failed(target.Error);
    FormDriver driver(*target.Widget, target.Name);
    QJsonObject reply = Success();
    const QString control = step.value("control").toString();
    if (control.isEmpty()) {
        QWidget* w = target.Widget;
        reply.insert("Value",
                     QJsonObject{{"name", target.Name},
                                 {"title", w->window()->windowTitle()},
                                 {"enabled", w->isEnabled()},
                                 {"visible", w->isVisible()},
                                 {"controls", QJsonArray::fromStringList(driver.ControlNames())}});
        return Outcome{reply, {}, false};
    }
    const ReadResult r = driver.Read(control);
    if (!r.ok())
        return failed(r.Result.Text);
    reply.insert("Value", r.State.ToJson());
    return Outcome{reply, {}, false};
}

} // namespace

void UiScriptOps::Register(host::ScriptSession& script, host::HostSession& session) {
    ScriptSession* s = &script;
    host::HostSession* h = &session;
    script.AddOp(
        QStringLiteral("form"),
        [s, h](const QJsonObject& step) -> std::optional<Outcome> { return opForm(*s, *h, step); },
        true);
    script.AddOp(
        QStringLiteral("ui"),
        [s](const QJsonObject& step) -> std::optional<Outcome> { return opUi(*s, step); }, false);
    script.AddOp(
        QStringLiteral("read"),
        [s](const QJsonObject& step) -> std::optional<Outcome> { return opRead(*s, step); }, false);
}

} // namespace orvo::ui
