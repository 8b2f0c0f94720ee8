#pragma once

#include <QByteArrayList>
#include <QProcessEnvironment>

class TestEnvironment;

// brenlow-cli run as a user runs it, with its arguments as exact bytes: a
// name with a line break or bytes that are not UTF-8 reaches argv unchanged,
// which a QString argument list cannot do.
class CliProcess {
public:
    struct Result {
        int exitCode = -1; // -1 when the program did not end normally
        QByteArray out;
        QByteArray err;
    };

    // Runs program with args in env, writes input to it, and waits for its end.
    // With asNobody (when the test runs as root) it runs as the user "nobody",
    // so that permissions bite; env's HOME is kept.
    static Result run(const QString &program, const QByteArrayList &args,
                      const QProcessEnvironment &env, const QByteArray &input = {},
                      bool asNobody = false);

    // This build's brenlow-cli.
    static QString program();
    // The world of a TestEnvironment as brenlow-cli's environment: its
    // profile, root, resources and home, and a settings folder in the root.
    static QProcessEnvironment environmentOf(const TestEnvironment &env);
    // brenlow-cli with args in that world.
    static Result run(const TestEnvironment &env, const QByteArrayList &args,
                      const QByteArray &input = {});
};
