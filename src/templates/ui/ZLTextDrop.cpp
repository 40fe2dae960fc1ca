#include "templates/ui/ZLTextDrop.h"

#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

#include <algorithm>

namespace {

bool holdsFiles(const QMimeData& data)
{
    const QList<QUrl> addresses = data.urls();
    return std::any_of(addresses.cbegin(), addresses.cend(), [](const QUrl& address) { return address.isLocalFile(); });
}

}

ZLTextDrop::ZLTextDrop(QWidget& target)
    : QObject(&target)
{
    target.setAcceptDrops(true);
    target.installEventFilter(this);
}

bool ZLTextDrop::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        return takeDrag(*static_cast<QDropEvent*>(event));
    default:
        return QObject::eventFilter(watched, event);
    }
}

bool ZLTextDrop::takeDrag(QDropEvent& event)
{
    // Files are for the window.
    if (!event.mimeData()->hasText() || holdsFiles(*event.mimeData()))
        return false;
    // The program that the text comes from keeps it.
    event.setDropAction(Qt::CopyAction);
    event.accept();
    if (event.type() == QEvent::Drop)
        Q_EMIT textDropped(event.mimeData()->text());
    return true;
}
