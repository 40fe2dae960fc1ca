#pragma once

#include <QTemporaryDir>

/// The surroundings of a test program: no display is needed, and nothing outside a temporary home is read or written.
/// To be made before the application object, which reads some of it when it starts.
class ZLTestHome {
public:
    ZLTestHome();

    /// False when no temporary home could be made; the reason was printed.
    [[nodiscard]] bool isValid() const { return m_folder.isValid(); }

private:
    QTemporaryDir m_folder;
};
