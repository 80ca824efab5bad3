// ScriptRunner feeds the lines of an `orvo script` to a ScriptSession and hands each
// reply on, so that a step may open a modal window and the steps after it work in that
// window: an op whose action opened one replies at once (ServeModal) and the runner
// goes on with the next lines inside the window's own event loop, until the window
// closes; then the action that opened it returns and the lines after that run as
// before. When the input ends with a modal window still open, the window is cancelled.
// `orvo script` runs standard input through it, and tests run lists of lines.
#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <functional>
#include <optional>

class QWidget;

namespace orvo::host {
class ScriptSession;
}

namespace orvo::ui {

class ScriptRunner {
public:
    // The next line of the script, or nothing at its end.
    using LineSource = std::function<std::optional<QByteArray>()>;
    // One reply, with the number of the line it answers (counted from 1).
    using ReplySink = std::function<void(int lineNumber, const QJsonObject& reply)>;

    ScriptRunner(host::ScriptSession& script, LineSource next, ReplySink out);
    ~ScriptRunner();

    // Runs the script to its end; the number of replies whose "ok" was false.
    int Run();

    // The runner whose script is running now; null outside Run.
    static ScriptRunner* Current();

    // For an op whose action opened `modal`: sends the op's reply now and runs the next
    // lines until the window closes or the input ends.
    void ServeModal(const QJsonObject& reply, QWidget& modal);

private:
    // Reads and runs one line; false at the end of the input.
    bool runOne();
    void send(const QJsonObject& reply);

    host::ScriptSession& script_;
    LineSource next_;
    ReplySink out_;
    ScriptRunner* outer_ = nullptr;
    int line_ = 0;
    int failed_ = 0;
    bool ended_ = false;
    // Whether the step being run has already replied (through ServeModal).
    bool replied_ = false;
};

// Lines of a script given whole (tests): a LineSource over them.
ScriptRunner::LineSource LinesOf(const QList<QByteArray>& lines);

} // namespace orvo::ui
