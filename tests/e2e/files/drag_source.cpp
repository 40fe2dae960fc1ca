// A window from which files are dragged, as from a file manager: drag_source FILE…
// After each drag it says on standard output whether they were taken.
#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

#include <cstdio>

namespace {

class DragSource : public QWidget {
protected:
    void mousePressEvent(QMouseEvent* event) override
    {
        Q_UNUSED(event);
        QList<QUrl> addresses;
        for (const QString& path : QCoreApplication::arguments().sliced(1))
            addresses.append(QUrl::fromLocalFile(path));
        auto* dragged = new QMimeData;
        dragged->setUrls(addresses);
        auto* drag = new QDrag(this);
        drag->setMimeData(dragged);
        const bool taken = drag->exec(Qt::CopyAction) != Qt::IgnoreAction;
        std::puts(taken ? "taken" : "refused");
        std::fflush(stdout);
    }
};

}

int main(int argumentCount, char** arguments)
{
    const QApplication application(argumentCount, arguments);
    DragSource source;
    source.setWindowTitle(QStringLiteral("Drag Source"));
    source.setGeometry(0, 0, 100, 100);
    source.show();
    return QApplication::exec();
}
