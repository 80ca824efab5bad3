// What the tests of the command line share: running the built `orvo` program with
// arguments and standard input and reading its replies, and a fresh book per test on
// each backend.
#pragma once

#include "host/storage/database.h"
#include "host/storage_fixture.h"

#include <gtest/gtest.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <QList>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>
#include <ostream>

inline void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}

namespace orvo::cli_test {

struct CliRun {
    int ExitCode = -1;
    QByteArray Out;
    QByteArray Err;
    QList<QJsonObject> Replies;
    QString ErrText() const { return QString::fromUtf8(Err); }
    QString OutText() const { return QString::fromUtf8(Out); }
};

// Runs `orvo` with the arguments, feeding `input` to its standard input. A program that
// does not end within two minutes, or crashes, gives exit code -1.
inline CliRun RunOrvo(const QStringList& args, const QByteArray& input = QByteArray()) {
    QProcess p;
    p.setProgram(QStringLiteral(ORVO_CLI_PATH));
    p.setArguments(args);
    p.start();
    CliRun run;
    if (!p.waitForStarted(30000))
        return run;
    p.write(input);
    p.closeWriteChannel();
    if (!p.waitForFinished(120000)) {
        p.kill();
        p.waitForFinished();
        return run;
    }
    run.Out = p.readAllStandardOutput();
    run.Err = p.readAllStandardError();
    run.ExitCode = p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1;
    for (const QByteArray& line : run.Out.split('\n')) {
        if (line.isEmpty())
            continue;
        const QJsonDocument doc = QJsonDocument::fromJson(line);
        // A line that is not an object stands out as an empty one in the checks.
        run.Replies.append(doc.object());
    }
    return run;
}

// Script lines joined into standard input.
inline QByteArray ScriptOf(const QStringList& lines) {
    return lines.join(QLatin1Char('\n')).toUtf8() + '\n';
}

// A fresh place for a book on each backend (the storage tests' fixture: a temporary
// folder, or a database of its own on the ORVO_TEST_PG server); the book itself is made
// by the test, usually with `orvo init`.
class CliBookTest : public host::testing::StorageTest {
protected:
    const QString& Book() const { return location_; }

    // `orvo init` of this test's book; a failure ends the test.
    void InitBook(bool demo) {
        QStringList args{QStringLiteral("init"), location_};
        if (demo)
            args << QStringLiteral("--demo");
        const CliRun run = RunOrvo(args);
        ASSERT_EQ(run.ExitCode, 0) << run.ErrText().toStdString();
    }

    CliRun Script(const QStringList& lines, const QStringList& extra = {}) {
        return RunOrvo(QStringList{QStringLiteral("script"), location_} + extra, ScriptOf(lines));
    }
};

#define ORVO_CLI_BACKENDS(Suite) ORVO_STORAGE_BACKENDS(Suite)

} // namespace orvo::cli_test
