// `troupe`: the suite's program. Without files it shows the rig binding manager with no
// document; with files it opens each in the manager of its kind.

#include "app/Suite.h"
#include "check/CheckCommand.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QStringDecoder>

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
    const bool checking = parser.isSet(check);
    QStringList files;
    const QStringList invalid = NamesNotInUtf8(argc, argv);
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
