// A window from which files are dragged, as from a file manager: drag_source FILE…
#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

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
        drag->exec(Qt::CopyAction);
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
