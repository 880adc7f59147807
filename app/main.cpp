// `troupe`: the suite's program. Without files it shows the rig binding manager with no
// document; with files it opens each in the manager of its kind.

#include "app/Suite.h"
#include "check/CheckCommand.h"

#include <QApplication>
#include <QCommandLineParser>

#include <cstdio>
#include <cstring>
#include <memory>

namespace {

// --help, --version and --check answer on a terminal without a display, so they make no
// window system connection.
bool onlyAsksForText(int argc, char* argv[])
{
    for (int i = 1; i < argc && std::strcmp(argv[i], "--") != 0; ++i) {
        for (const char* option : {"-h", "--help", "--help-all", "-v", "--version", "--check"}) {
            if (std::strcmp(argv[i], option) == 0)
                return true;
        }
    }
    return false;
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication::setApplicationName(QStringLiteral("Troupe"));
    QCoreApplication::setApplicationVersion(QStringLiteral(TROUPE_VERSION));
    const std::unique_ptr<QCoreApplication> app =
        onlyAsksForText(argc, argv) ? std::make_unique<QCoreApplication>(argc, argv)
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
    parser.addOption(check);
    parser.addPositionalArgument(
        QStringLiteral("files"),
        QStringLiteral("Files to open, each in its manager: .rbt, .ssf or .tsl. The folder of "
                       "the first is the base folder of the run."),
        QStringLiteral("[FILE...]"));
    parser.process(*app);
    if (parser.isSet(check))
        return RunCheckCommand(parser.positionalArguments());

    Suite suite;
    const QStringList positional = parser.positionalArguments();
    QStringList failures;
    if (positional.isEmpty())
        suite.Start();
    else
        failures = suite.OpenFiles(positional);
    for (const QString& failure : failures)
        std::fprintf(stderr, "troupe: %s\n", qPrintable(failure));

    const int status = QCoreApplication::exec();
    return failures.isEmpty() ? status : 1;
}
