#pragma once

#include "platform/ZLResult.h"

#include <QByteArrayView>
#include <QCoreApplication>

/// What to tell of a file that cannot be read as a document.
namespace ZLUnreadableDocument {

/// For the file at `path`, whose `bytes` ZLDocumentFile::decode() refuses.
[[nodiscard]] inline ZLError error(const QString& path, QByteArrayView bytes)
{
    if (!bytes.startsWith("bplist"))
        return ZLError { QCoreApplication::translate("ZLUnreadableDocument", "%1 is not a Zelta document.").arg(path) };
    return ZLError {
        QCoreApplication::translate("ZLUnreadableDocument", "%1 is damaged, or it is not a Zelta document.").arg(path)
    };
}

}
