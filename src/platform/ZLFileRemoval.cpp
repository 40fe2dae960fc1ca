#include "platform/ZLFileRemoval.h"

#include <QFile>
#include <QThreadPool>

#include <fcntl.h>
#include <unistd.h>

void ZLFileRemoval::remove(const QString& path)
{
    // The blocks go with the last one who has the file.
    const int descriptor = open(QFile::encodeName(path).constData(), O_PATH | O_NOFOLLOW | O_CLOEXEC);
    QFile::remove(path);
    // Where no descriptor was free, the blocks have gone with the file, here.
    if (descriptor >= 0)
        QThreadPool::globalInstance()->start([descriptor] { close(descriptor); });
}
