// The desktop program: starts Qt and shows the input window.
#include <QApplication>
#include <QMainWindow>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName("Morvane");
    QMainWindow window;
    window.setWindowTitle("Morvane");
    window.resize(11700 / 15, 8400 / 15);
    window.show();
    return QApplication::exec();
}
