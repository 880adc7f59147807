// `troupe`: the suite's program. Without files it shows the rig binding manager with no
// document; with files it opens each in the manager of its kind.

#include "app/Suite.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QStringDecoder>

#include <cstdio>
#include <cstring>
#include <memory>

namespace {

// --help and --version answer on a terminal without a display, so they make no window
// system connection.
bool onlyAsksForText(int argc, char* argv[])
{
    for (int i = 1; i < argc && std::strcmp(argv[i], "--") != 0; ++i) {
        for (const char* option : {"-h", "--help", "--help-all", "-v", "--version"}) {
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
    parser.addPositionalArgument(
        QStringLiteral("files"),
        QStringLiteral("Files to open, each in its manager: .rbt, .ssf or .tsl. The folder of "
                       "the first file that opens is the base folder of the run: the managers "
                       "open every rig binding, scene and listing from there, so a later file "
                       "from another folder is not opened."),
        QStringLiteral("[FILE...]"));
    parser.process(*app);

    // Each file that does not open is named at once, before any window comes up.
    bool failed = false;
    const auto reportFailure = [&failed](const QString& line) {
        std::fprintf(stderr, "troupe: %s\n", qPrintable(line));
        std::fflush(stderr);
        failed = true;
    };
    QStringList files;
    const QStringList invalid = NamesNotInUtf8(argc, argv);
    for (const QString& file : parser.positionalArguments()) {
        if (invalid.contains(file))
            reportFailure(file + QStringLiteral(": not opened; its name is not valid UTF-8, "
                                                "and Troupe cannot open a file of such a name"));
        else
            files << file;
    }

    Suite suite;
    if (parser.positionalArguments().isEmpty())
        suite.Start();
    else
        suite.OpenFiles(files, reportFailure);
    const int status = QCoreApplication::exec();
    return failed ? 1 : status;
}
