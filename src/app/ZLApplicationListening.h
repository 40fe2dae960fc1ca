#pragma once

#include "app/ZLDocumentController.h"
#include "document/listening/ZLShowListening.h"

#include <QObject>

#include <memory>

/// Listens along to every document that the program has open.
class ZLApplicationListening : public QObject {
    Q_OBJECT

public:
    /// `controller` has to outlive the object.
    explicit ZLApplicationListening(
        ZLDocumentController& controller, std::unique_ptr<ZLSoundInput> input = ZLSoundInput::create());

    [[nodiscard]] ZLShowListening& shows() { return m_shows; }
    [[nodiscard]] ZLListening& listening() { return m_shows.listening(); }

private:
    ZLShowListening m_shows;
};
