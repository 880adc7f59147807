// `troupe`: the suite's program. Without files it shows the rig binding manager with no
// document; with files it opens each in the manager of its kind.

#include "app/Suite.h"
#include "foundation/mdlGeneral.h"
#include "plan/PlanPicture.h"
#include "stage/clsSSF.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QFileInfo>
#include <QFont>
#include <QPalette>

#include <cstdio>
#include <cstring>
#include <memory>
#include <string_view>

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

// `--plan FILE.ssf --output PLAN.svg`: the stage plan of a scene as a picture, with no window.
struct PlanCommand {
    QCommandLineOption scene{QStringLiteral("plan"),
                             QStringLiteral("Draws the stage scene FILE.ssf from above into the "
                                            "picture named by --output, and opens no window."),
                             QStringLiteral("FILE.ssf")};
    QCommandLineOption output{QStringLiteral("output"),
                              QStringLiteral("The picture --plan writes: a .svg or .png file."),
                              QStringLiteral("PLAN")};

    // A picture needs no display, so such a run takes Qt's offscreen platform.
    static void PrepareRun(int argc, char* argv[])
    {
        for (int i = 1; i < argc && std::strcmp(argv[i], "--") != 0; ++i) {
            for (const std::string_view option : {"--plan", "--output"}) {
                const std::string_view argument(argv[i]);
                if (argument.starts_with(option) &&
                    (argument.size() == option.size() || argument[option.size()] == '='))
                    qputenv("QT_QPA_PLATFORM", "offscreen");
            }
        }
    }
    bool IsAsked(const QCommandLineParser& parser) const
    {
        return parser.isSet(scene) || parser.isSet(output);
    }
    // The exit status: 0 when the picture is written, else 1 with one line on stderr.
    int Run(const QCommandLineParser& parser) const
    {
        const QString file = parser.value(scene);
        const QString picture = parser.value(output);
        clsSSF document;
        QString failure;
        if (file.isEmpty() || picture.isEmpty() || !parser.positionalArguments().isEmpty())
            failure = QStringLiteral("a plan is asked for as --plan FILE.ssf --output PLAN.svg");
        else if (!QFileInfo(file).isFile())
            failure = file + QStringLiteral(": no such file");
        else if (!document.Load(file))
            failure = file + QStringLiteral(": not a stage scene that can be read");
        else
            failure = PlanPicture::Write(
                document, QStringLiteral("Stage Plan - ") + mdlGeneral::GetFileName(file), picture,
                QGuiApplication::palette(), QGuiApplication::font());
        if (failure.isEmpty())
            return 0;
        std::fprintf(stderr, "troupe: %s\n", qPrintable(failure));
        return 1;
    }
};

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication::setApplicationName(QStringLiteral("Troupe"));
    QCoreApplication::setApplicationVersion(QStringLiteral(TROUPE_VERSION));
    PlanCommand::PrepareRun(argc, argv);
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
                       "the first is the base folder of the run."),
        QStringLiteral("[FILE...]"));
    const PlanCommand plan;
    parser.addOptions({plan.scene, plan.output});
    parser.process(*app);
    if (plan.IsAsked(parser))
        return plan.Run(parser);

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
