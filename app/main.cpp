// SPDX-License-Identifier: GPL-3.0-or-later
// `troupe`: the suite's program. Without files it shows the rig binding manager with no
// document; with files it opens each in the manager of its kind. `--check` and `--plan` answer
// on the terminal and open no window.

#include "app/Suite.h"
#include "check/CheckCommand.h"
#include "plan/PlanCommand.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QStringDecoder>

#include <cstdio>
#include <cstring>
#include <memory>
#include <string_view>

namespace {

// True when one of `options` is on the command line, alone or with "=value".
bool Asks(int argc, char* argv[], std::initializer_list<std::string_view> options)
{
    for (int i = 1; i < argc && std::strcmp(argv[i], "--") != 0; ++i) {
        const std::string_view argument(argv[i]);
        for (const std::string_view option : options) {
            if (argument.starts_with(option) &&
                (argument.size() == option.size() || argument[option.size()] == '='))
                return true;
        }
    }
    return false;
}

// The arguments whose bytes are no UTF-8, as Qt hands them on: Qt cannot open a file of
// such a name, since its name no longer leads back to the bytes.
QStringList NamesNotInUtf8(int argc, char* argv[])
{
    QStringList names;
    for (int i = 1; i < argc; ++i) {
        QStringDecoder utf8(QStringDecoder::Utf8);
        const QString decoded = utf8(QByteArrayView(argv[i]));
        if (utf8.hasError())
            names << decoded;
    }
    return names;
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication::setApplicationName(QStringLiteral("Troupe"));
    QCoreApplication::setApplicationVersion(QStringLiteral(TROUPE_VERSION));
    // The text options make no window system connection; a plan is drawn on Qt's offscreen
    // platform, so none of them needs a display.
    const bool plans = Asks(argc, argv, {"--plan", "--output"});
    if (plans)
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const bool textOnly =
        Asks(argc, argv, {"-h", "--help", "--help-all", "-v", "--version", "--check"});
    const std::unique_ptr<QCoreApplication> app =
        textOnly && !plans ? std::make_unique<QCoreApplication>(argc, argv)
                           : std::make_unique<QApplication>(argc, argv);

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Authoring suite for the shows of a puppet theatre in LithTech worlds: "
                       "rig binding tables, stage scenes and show listings."));
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption check(
        QStringLiteral("check"),
        QStringLiteral("Check each file and every file it reaches for what would stop the show "
                       "playing, print one line per problem and a summary, and open no window. "
                       "Exit status 0 without errors, 1 with errors, 2 when a file cannot be "
                       "read."));
    const QCommandLineOption plan(
        QStringLiteral("plan"),
        QStringLiteral("Draw the stage scene FILE.ssf from above into the picture named by "
                       "--output, and open no window."),
        QStringLiteral("FILE.ssf"));
    const QCommandLineOption output(
        QStringLiteral("output"), QStringLiteral("The picture --plan writes: a .svg or .png file."),
        QStringLiteral("PLAN"));
    parser.addOptions({check, plan, output});
    parser.addPositionalArgument(
        QStringLiteral("files"),
        QStringLiteral("Files to open, each in its manager: .rbt, .ssf or .tsl. The folder of "
                       "the first file that opens is the base folder of the run: the managers "
                       "open every rig binding, scene and listing from there, so a later file "
                       "from another folder is not opened."),
        QStringLiteral("[FILE...]"));
    parser.process(*app);

    // Each file that cannot be opened is named at once, before any window comes up.
    bool failed = false;
    const auto reportFailure = [&failed](const QString& line) {
        std::fprintf(stderr, "troupe: %s\n", qPrintable(line));
        std::fflush(stderr);
        failed = true;
    };
    const QString badName = QStringLiteral("its name is not valid UTF-8, and Troupe cannot open "
                                           "a file of such a name");
    const QStringList invalid = NamesNotInUtf8(argc, argv);

    if (parser.isSet(plan) || parser.isSet(output)) {
        if (!parser.isSet(plan) || !parser.isSet(output) ||
            !parser.positionalArguments().isEmpty()) {
            reportFailure(QStringLiteral("a plan is asked for as --plan FILE.ssf --output "
                                         "PLAN.svg (or PLAN.png)"));
            return 1;
        }
        for (const QCommandLineOption& named : {plan, output}) {
            if (invalid.contains(parser.value(named))) {
                reportFailure(parser.value(named) + QStringLiteral(": ") + badName);
                return 1;
            }
        }
        return RunPlanCommand(parser.value(plan), parser.value(output));
    }

    const bool checking = parser.isSet(check);
    QStringList files;
    for (const QString& file : parser.positionalArguments()) {
        if (!invalid.contains(file))
            files << file;
        else if (checking)
            reportFailure(QStringLiteral("cannot check %1: %2").arg(file, badName));
        else
            reportFailure(QStringLiteral("%1: not opened; %2").arg(file, badName));
    }
    if (checking) {
        const int status = failed && files.isEmpty() ? 2 : RunCheckCommand(files);
        return failed ? 2 : status;
    }

    Suite suite;
    if (parser.positionalArguments().isEmpty())
        suite.Start();
    else
        suite.OpenFiles(files, reportFailure);
    const int status = QCoreApplication::exec();
    return failed ? 1 : status;
}
