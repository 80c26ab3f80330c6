// The desktop program: starts Qt, plays the splash and shows the input window.
//
// With the environment variable MORVANE_STARTUP_BENCH set, the splash is skipped: the
// program prints the milliseconds from its start to the input window shown, then ends.
// bench/startup_bench.sh uses this.

#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>
#include <csignal>
#include <cstdio>
#include <memory>

#include "shell/LogoWindow.h"
#include "shell/MainWindow.h"
#include "shell/Program.h"
#include "shell/QtUserPort.h"

int main(int argc, char** argv) {
    // A save past the file-size limit of the process must fail with a message and keep
    // the document, not end the program by the signal.
    std::signal(SIGXFSZ, SIG_IGN);
    QElapsedTimer sinceStart;
    sinceStart.start();
    QApplication app(argc, argv);
    QApplication::setApplicationName("Morvane");
    QApplication::setOrganizationName("Morvane");

    morvane::QtUserPort port;
    // The program's folder, where the help pages and the defaults file lie.
    const QString programFolder = QCoreApplication::applicationDirPath() + "/";
    std::unique_ptr<morvane::Program> program;
    auto loadMain = [&]() -> QWidget* {
        program = std::make_unique<morvane::Program>(port, programFolder);
        port.setParent(&program->mainWindow());
        QObject::connect(program.get(), &morvane::Program::programEnded, &app, &QApplication::quit,
                         Qt::QueuedConnection);
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
