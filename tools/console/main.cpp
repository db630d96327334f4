// SPDX-License-Identifier: GPL-3.0-or-later

#include "CommandLine.h"
#include "Output.h"
#include "util/Error.h"

#include <QCoreApplication>
#include <QLoggingCategory>

#include <csignal>
#include <cstdio>
#include <exception>

using namespace console;

namespace {

void complain(const QString& what)
{
    const QString line = QStringLiteral("orvik-tool: %1\n").arg(Output::printable(what.simplified()));
    std::fputs(line.toUtf8().constData(), stderr);
}

/// What Qt warns of, such as the encoding of a service's environment, is none of the user's errors. What the
/// program logs is for whoever asked for it.
void writeLog(QtMsgType /*type*/, const QMessageLogContext& context, const QString& text)
{
    const QByteArray category(context.category);
    if (!category.startsWith("orvik.")) return;
    std::fprintf(stderr, "%s: %s\n", category.constData(), text.toUtf8().constData());
}

ExitStatus run(const QStringList& arguments)
{
    try {
        const CommandLine line = CommandLine::read(arguments);
        Output output;
        output.text() = line.text.toStdString();
        const ExitStatus status =
            line.command == nullptr ? ExitStatus::Done : line.command->run(line.called, output);
        output.write();
        return status;
    } catch (const Error& error) {
        complain(error.description());
    } catch (const std::exception& exception) {
        complain(QString::fromUtf8(exception.what()));
    }
    return ExitStatus::Failure;
}

} // namespace

int main(int argumentCount, char** arguments)
{
#ifdef SIGPIPE
    // a reader that went away is an error like any other
    std::signal(SIGPIPE, SIG_IGN);
#endif
#ifdef SIGXFSZ
    // and so is a file that may not become larger
    std::signal(SIGXFSZ, SIG_IGN);
#endif
    qInstallMessageHandler(writeLog);
    const QCoreApplication application(argumentCount, arguments);
    QCoreApplication::setApplicationName(QStringLiteral("orvik-tool"));
    QCoreApplication::setApplicationVersion(QStringLiteral(ORVIK_VERSION));
    return static_cast<int>(run(QCoreApplication::arguments().sliced(1)));
}
