#include "app/ZLApplicationListening.h"

#include <utility>

ZLApplicationListening::ZLApplicationListening(ZLDocumentController& controller, std::unique_ptr<ZLSoundInput> input)
    : m_shows(std::move(input))
{
    const auto addDocument = [this, &controller](ZLChapterDocument* document) {
        m_shows.addDocument(*document, *controller.saverOf(document));
    };
    const auto documents = controller.documents();
    for (ZLChapterDocument* document : documents)
        addDocument(document);
    connect(&controller, &ZLDocumentController::didOpenDocument, this, addDocument);
    connect(&controller, &ZLDocumentController::willCloseDocument, this,
        [this](const ZLChapterDocument* document) { m_shows.removeDocument(*document); });
}
