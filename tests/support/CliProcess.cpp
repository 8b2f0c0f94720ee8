#include "support/CliProcess.h"

#include "TestPaths.h"
#include "support/TestEnvironment.h"

#include <QFile>
#include <QProcess>
#include <unistd.h>

namespace {

// A shell word that printf turns back into exactly these bytes.
QByteArray octal(const QByteArray &bytes)
{
    QByteArray out;
    for (const char c : bytes)
        out += '\\' + QByteArray::number(uchar(c), 8).rightJustified(3, '0');
    return out;
}

} // namespace

CliProcess::Result CliProcess::run(const QString &program, const QByteArrayList &args,
                                   const QProcessEnvironment &env, const QByteArray &input,
                                   bool asNobody)
{
    // Each argument is rebuilt by printf; the "x" keeps trailing line breaks
    // from being eaten by the command substitution.
    QByteArray script = "set --\n";
    for (const QByteArray &arg : QByteArrayList{QFile::encodeName(program)} + args)
        script += "a=$(printf '" + octal(arg) + "x'); set -- \"$@\" \"${a%x}\"\n";
    script += "exec \"$@\"\n";

    QProcess process;
    process.setProcessEnvironment(env);
    if (asNobody && geteuid() == 0) {
        // runuser gives the target user's HOME; the test's own is set again.
        script =
            "export HOME='" + QFile::encodeName(env.value(QStringLiteral("HOME"))) + "'\n" + script;
        process.start(QStringLiteral("runuser"),
                      {"-u", "nobody", "--", "sh", "-c", QString::fromUtf8(script)});
    } else {
        process.start(QStringLiteral("sh"), {"-c", QString::fromUtf8(script)});
    }
    process.write(input);
    process.closeWriteChannel();
    Result result;
    if (!process.waitForFinished(120000)) {
        process.kill();
        process.waitForFinished();
    } else if (process.exitStatus() == QProcess::NormalExit) {
        result.exitCode = process.exitCode();
    }
    result.out = process.readAllStandardOutput();
    result.err = process.readAllStandardError();
    return result;
}

QString CliProcess::program()
{
    return QStringLiteral(BRENLOW_TEST_BINARY_DIR "/bin/brenlow-cli");
}

QProcessEnvironment CliProcess::environmentOf(const TestEnvironment &env)
{
    QProcessEnvironment e = QProcessEnvironment::systemEnvironment();
    e.insert(QStringLiteral("BRENLOW_PLATFORM"), env.profile());
    e.insert(QStringLiteral("BRENLOW_ROOT"), env.root());
    e.insert(QStringLiteral("BRENLOW_RESOURCES"), env.resources());
    e.insert(QStringLiteral("HOME"), env.home());
    e.insert(QStringLiteral("XDG_CONFIG_HOME"), env.root() + QStringLiteral("/config"));
    return e;
}

CliProcess::Result CliProcess::run(const TestEnvironment &env, const QByteArrayList &args,
                                   const QByteArray &input)
{
    return run(program(), args, environmentOf(env), input);
}
