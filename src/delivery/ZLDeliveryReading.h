#pragma once

#include "platform/ZLDiskWork.h"
#include "platform/ZLResult.h"
#include "platform/media/ZLMediaContents.h"

#include <QTimer>

/// Reads audio files beside the main thread. A file that cannot be read is tried every two seconds, since the disk that
/// it is on may come back.
class ZLDeliveryReading : public QObject {
    Q_OBJECT

public:
    using Reader = std::function<ZLResult<ZLMediaContents>(const QString& path)>;

    /// `reader` may be called on any thread.
    explicit ZLDeliveryReading(Reader reader, QObject* parent = nullptr);

    void read(const QStringList& paths);
    /// The files that are tried again, instead of those before.
    void setUnreadable(const QStringList& paths);
    /// Tries them; what the timer does. A disk that does not answer is not asked a second time.
    void tryAgain();

Q_SIGNALS:
    void didRead(const QString& path, const ZLResult<ZLMediaContents>& contents);

private:
    [[nodiscard]] ZLDiskWork::Work workFor(const QStringList& paths);
    void scheduleTry();

    const Reader m_reader;
    QStringList m_unreadable;
    ZLDiskWork m_trying;
    QTimer m_timer;
};
