// The desktop program: starts Qt, plays the splash and shows the input window. A line
// file named on the command line opens in it (`morvane FILE.mrv`).
//
// With the environment variable MORVANE_STARTUP_BENCH set, the splash is skipped: the
// program prints the milliseconds from its start to the input window shown, then ends.
// bench/startup_bench.sh uses this.

#include <QApplication>
#include <QElapsedTimer>
#include <QSettings>
#include <QTimer>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <memory>

#include "shell/LocaleNumbers.h"
#include "shell/LogoWindow.h"
#include "shell/MainWindow.h"
#include "shell/Program.h"
#include "shell/QtUserPort.h"

namespace {

constexpr const char* kUsage =
    "Usage: morvane [FILE.mrv]\n"
    "Probit analysis of dose-response bioassays: the desktop program.\n"
    "\n"
    "Starts Morvane and shows its input window. A line file named on the command line\n"
    "opens in it, as the Open command opens it.\n"
    "\n"
    "Options:\n"
    "  --help       prints this usage and exits\n"
    "  --version    prints the version and exits\n"
    "\n"
    "Environment:\n"
    "  MORVANE_STARTUP_BENCH   skips the splash, prints the milliseconds from the start\n"
    "                          to the input window shown, and ends\n"
    "\n"
    "The command-line tool over the same calculations is morvane-cli(1).\n";

}  // namespace

int main(int argc, char** argv) {
    // The usage and the version need no display.
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--help") == 0 || std::strcmp(argv[i], "-h") == 0) {
            std::fputs(kUsage, stdout);
            return 0;
        }
        if (std::strcmp(argv[i], "--version") == 0) {
            std::printf("morvane %s\n", MORVANE_VERSION);
            return 0;
        }
    }
    // A save past the file-size limit of the process must fail with a message and keep
    // the document, not end the program by the signal.
    std::signal(SIGXFSZ, SIG_IGN);
    QElapsedTimer sinceStart;
    sinceStart.start();
    QApplication app(argc, argv);
    QApplication::setApplicationName("Morvane");
    QApplication::setOrganizationName("Morvane");
    QApplication::setApplicationVersion(MORVANE_VERSION);
    QApplication::setDesktopFileName("org.morvane.Morvane");
    // Numbers typed by the user are read with the decimal separator of the user's
    // locale as well as the point.
    morvane::UseLocaleDecimalSeparator();
    QString lineFile;
    const QStringList arguments = QApplication::arguments();
    for (int i = 1; i < arguments.size(); ++i) {
        if (!arguments[i].startsWith('-')) {
            lineFile = arguments[i];
            break;
        }
    }
    QSettings settings;

    morvane::QtUserPort port;
    // The program's folder, where the help pages and the defaults file lie.
    const QString programFolder = QCoreApplication::applicationDirPath() + "/";
    std::unique_ptr<morvane::Program> program;
    auto loadMain = [&]() -> QWidget* {
        program = std::make_unique<morvane::Program>(port, programFolder, &settings);
        port.setParent(&program->mainWindow());
        QObject::connect(program.get(), &morvane::Program::programEnded, &app, &QApplication::quit,
                         Qt::QueuedConnection);
        if (!lineFile.isEmpty())
            program->openAtStart(lineFile);
        return &program->mainWindow();
    };

    if (qEnvironmentVariableIsSet("MORVANE_STARTUP_BENCH")) {
        QWidget* main = loadMain();
        main->show();
        QTimer::singleShot(0, &app, [&] {
            std::printf("main window shown after %lld ms\n",
                        static_cast<long long>(sinceStart.elapsed()));
            std::fflush(stdout);
            program->endProgram();
        });
        return QApplication::exec();
    }

    auto* logo = new morvane::LogoWindow(loadMain);
    logo->start();
    const int code = QApplication::exec();
    program.reset();
    return code;
}
