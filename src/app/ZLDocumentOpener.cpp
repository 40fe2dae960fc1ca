#include "app/ZLDocumentOpener.h"

#include "delivery/ZLMediaImport.h"
#include "platform/ZLDiskWork.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>

struct ZLDocumentOpener::Read {
    ZLFoundDocument document {};
    std::optional<ZLResult<ZLDocumentContents>> audio {};
};

ZLDocumentOpener::ZLDocumentOpener(ZLDocumentController& controller, QObject* parent)
    : QObject(parent)
    , m_controller(controller)
{
}

void ZLDocumentOpener::open(const QString& path, WhenOpened whenOpened)
{
    const QString absolutePath = QDir::cleanPath(QFileInfo(path).absoluteFilePath());
    const auto underWay = std::ranges::find(m_openings, absolutePath, &Opening::path);
    if (m_controller.documentAtPath(absolutePath))
        whenOpened(m_controller.openDocument(absolutePath));
    else if (underWay != m_openings.end())
        underWay->whenOpened.push_back(std::move(whenOpened));
    else
        start(absolutePath, std::move(whenOpened));
}

ZLResult<ZLChapterDocument*> ZLDocumentOpener::openNow(const QString& path)
{
    const QString absolutePath = QDir::cleanPath(QFileInfo(path).absoluteFilePath());
    if (m_controller.documentAtPath(absolutePath))
        return m_controller.openDocument(absolutePath);
    return take(absolutePath, read(m_controller.recoveryFolder(), absolutePath));
}

ZLDocumentOpener::Read ZLDocumentOpener::read(const ZLRecoveryFolder& folder, const QString& path)
{
    if (ZLMediaImport::isAudioFile(path))
        return { .audio = ZLMediaImport::read(path) };
    return { .document = ZLDocumentFinding::find(folder, path) };
}

ZLResult<ZLChapterDocument*> ZLDocumentOpener::take(const QString& path, Read read)
{
    if (!read.audio)
        return m_controller.openMade(path, m_controller.make(std::move(read.document)));
    if (!*read.audio)
        return read.audio->error();
    return m_controller.openContents(read.audio->value());
}

void ZLDocumentOpener::start(const QString& path, WhenOpened whenOpened)
{
    m_openings.push_back({ path, { std::move(whenOpened) } });
    auto* reading = new ZLDiskWork({}, this);
    connect(reading, &ZLDiskWork::didEnd, reading, &QObject::deleteLater);
    reading->start([this, path, folder = m_controller.recoveryFolder()](const ZLDiskWork::Teller& tell) {
        // A call may be copied, what was read may not.
        const auto found = std::make_shared<Read>(read(folder, path));
        tell([this, path, found] { make(path, std::move(*found)); });
    });
}

void ZLDocumentOpener::make(const QString& path, Read read)
{
    if (m_controller.documentAtPath(path)) {
        finish(path, m_controller.openDocument(path));
        return;
    }
    if (read.audio) {
        finish(path, take(path, std::move(read)));
        return;
    }
    // The window comes in another turn of the event loop: for a long document each of both takes its time.
    const auto made = std::make_shared<ZLRevivedDocument>(m_controller.make(std::move(read.document)));
    QMetaObject::invokeMethod(
        this, [this, path, made] { finish(path, m_controller.openMade(path, std::move(*made))); },
        Qt::QueuedConnection);
}

void ZLDocumentOpener::finish(const QString& path, const ZLResult<ZLChapterDocument*>& opened)
{
    const auto found = std::ranges::find(m_openings, path, &Opening::path);
    const Opening opening = std::move(*found);
    m_openings.erase(found);
    for (const WhenOpened& whenOpened : opening.whenOpened)
        whenOpened(opened);
    if (!isOpening())
        Q_EMIT didEnd();
}
