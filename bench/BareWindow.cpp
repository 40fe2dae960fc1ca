// The least that a window with a clock does: a label that changes ten times a second.
#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QMainWindow>
#include <QTimer>

using namespace Qt::StringLiterals;

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QMainWindow window;
    auto* label = new QLabel(&window);
    label->setAlignment(Qt::AlignCenter);
    window.setCentralWidget(label);
    window.setWindowTitle(u"Bare clock"_s);
    window.resize(1000, 620);
    window.show();
    QElapsedTimer elapsed;
    elapsed.start();
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, label,
        [&] { label->setText(QString::number(double(elapsed.elapsed()) / 1000.0, 'f', 1)); });
    timer.start(100);
    return QApplication::exec();
}
