#include "ui/automation/script_runner.h"

#include "host/script/script_session.h"
#include "ui/automation/modal_watch.h"

#include <QPointer>
#include <QWidget>
#include <memory>

namespace orvo::ui {

namespace {

ScriptRunner*& current() {
    static ScriptRunner* runner = nullptr;
    return runner;
}

} // namespace

ScriptRunner::ScriptRunner(host::ScriptSession& script, LineSource next, ReplySink out)
    : script_(script), next_(std::move(next)), out_(std::move(out)) {}

ScriptRunner::~ScriptRunner() {
    if (current() == this)
        current() = outer_;
}

ScriptRunner* ScriptRunner::Current() {
    return current();
}

int ScriptRunner::Run() {
    outer_ = current();
    current() = this;
    while (runOne()) {
    }
    current() = outer_;
    return failed_;
}

void ScriptRunner::send(const QJsonObject& reply) {
    if (!reply.value("ok").toBool())
        ++failed_;
    if (out_)
        out_(line_, reply);
}

bool ScriptRunner::runOne() {
    if (ended_)
        return false;
    std::optional<QByteArray> line;
    // Blank lines separate parts of a script and get no reply.
    do {
        line = next_ ? next_() : std::nullopt;
        if (!line) {
            ended_ = true;
            return false;
        }
        ++line_;
    } while (line->trimmed().isEmpty());
    const int number = line_;
    const bool outerReplied = replied_;
    replied_ = false;
    QJsonObject reply = script_.RunLine(*line);
    if (!replied_) {
        // Lines run inside a modal window moved the count on; this reply is for its own.
        const int later = line_;
        line_ = number;
        send(reply);
        line_ = later;
    }
    replied_ = outerReplied;
    return true;
}

void ScriptRunner::ServeModal(const QJsonObject& reply, QWidget& modal) {
    send(reply);
    replied_ = true;
    const QPointer<QWidget> window(&modal);
    const bool outerReplied = replied_;
    while (ModalWatch::IsOpenModal(window) && runOne()) {
    }
    replied_ = outerReplied;
}

ScriptRunner::LineSource LinesOf(const QList<QByteArray>& lines) {
    auto position = std::make_shared<qsizetype>(0);
    return [lines, position]() -> std::optional<QByteArray> {
        if (*position >= lines.size())
            return std::nullopt;
        return lines.at((*position)++);
    };
}

} // namespace orvo::ui
