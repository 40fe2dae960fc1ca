#pragma once

#include <QByteArrayView>

/// A chapter that is stored without a UUID gets a new one whenever its file is read, until that is written.
namespace ZLNewIdentifiers {

/// Whether writing the document in `fileBytes` would give a chapter or a template the UUID that it lacks there. One
/// that lacks an earlier entry as well is written without its later ones and gives no reason to.
[[nodiscard]] bool areMissingIn(QByteArrayView fileBytes);

}
