#include "app/ui/windows/ZLFileOpening.h"

#include "app/ui/windows/ZLDocumentWindows.h"
#include "document/ui/ZLChapterDocumentWindow.h"
#include "document/ui/ZLStatusLine.h"

#include <QFileInfo>

#include <utility>

namespace {

/// Milliseconds after which the window says what it is waiting for.
constexpr int slowReadingMilliseconds = 300;

}

ZLFileOpening::ZLFileOpening(ZLDocumentController& controller, const ZLDocumentWindows& windows)
    : m_windows(windows)
    , m_opener(controller)
{
    m_slowReading.setSingleShot(true);
    m_slowReading.setInterval(slowReadingMilliseconds);
    connect(&m_opener, &ZLDocumentOpener::didEnd, this, &ZLFileOpening::tellNoMore);
    connect(&m_opener, &ZLDocumentOpener::didEnd, this, &ZLFileOpening::didEnd);
}

void ZLFileOpening::open(const QStringList& paths, const WhenOpened& whenOpened)
{
    openNext(paths, {}, whenOpened);
}

QStringList ZLFileOpening::openNow(const QStringList& paths)
{
    QStringList problems;
    for (const QString& path : paths)
        problems += take(path, m_opener.openNow(path));
    return problems;
}

void ZLFileOpening::openNext(QStringList paths, const QStringList& problems, const WhenOpened& whenOpened)
{
    if (paths.isEmpty()) {
        whenOpened(problems);
        return;
    }
    const QString path = paths.takeFirst();
    tellWhatIsRead(path);
    m_opener.open(path, [this, path, paths, problems, whenOpened](const ZLResult<ZLChapterDocument*>& opened) {
        openNext(paths, problems + take(path, opened), whenOpened);
    });
}

QStringList ZLFileOpening::take(const QString& path, const ZLResult<ZLChapterDocument*>& opened)
{
    if (!opened)
        return { opened.error().message };
    Q_EMIT didOpen(path, opened.value());
    return {};
}

void ZLFileOpening::tellWhatIsRead(const QString& path)
{
    m_slowReading.disconnect(this);
    connect(
        &m_slowReading, &QTimer::timeout, this, [this, name = QFileInfo(path).fileName()] { showWhatIsRead(name); });
    m_slowReading.start();
}

void ZLFileOpening::showWhatIsRead(const QString& name)
{
    const ZLChapterDocumentWindow* window = m_windows.windowToTellIn(nullptr);
    if (!window || !m_opener.isOpening())
        return;
    m_statusLine = &window->statusLine();
    m_message = tr("Opening “%1”…").arg(name);
    m_statusLine->showPassingMessage(m_message);
}

void ZLFileOpening::tellNoMore()
{
    m_slowReading.stop();
    if (m_statusLine && m_statusLine->passingMessage() == m_message)
        m_statusLine->hidePassingMessage();
    m_statusLine = nullptr;
}
