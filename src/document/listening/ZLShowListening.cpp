#include "document/listening/ZLShowListening.h"

#include <algorithm>
#include <utility>

ZLShowListening::ZLShowListening(std::unique_ptr<ZLSoundInput> input)
    : m_listening(std::move(input))
{
    connect(&m_listening, &ZLListening::stateDidChange, this, &ZLShowListening::didChange);
}

void ZLShowListening::addDocument(ZLChapterDocument& document, const ZLDocumentSaver& saver)
{
    m_documents[&document] = std::make_unique<ZLDocumentListening>(m_listening, document, saver);
    connect(&document, &ZLChapterDocument::changed, this, [this](const ZLDocumentChange& change) {
        if (change.concerns(ZLDocumentChange::Recording))
            followRecording();
    });
    followRecording();
}

void ZLShowListening::removeDocument(const ZLChapterDocument& document)
{
    document.disconnect(this);
    m_documents.erase(&document);
    followRecording();
}

ZLDocumentListening* ZLShowListening::of(const ZLChapterDocument& document) const
{
    const auto found = m_documents.find(&document);
    return found == m_documents.end() ? nullptr : found->second.get();
}

QString ZLShowListening::trouble() const
{
    switch (m_listening.state()) {
    case ZLListeningState::NoServer:
        return tr("No sound server answers, so nothing is heard.");
    case ZLListeningState::Missing:
        return tr("The input “%1” is missing.").arg(m_listening.sourceName());
    case ZLListeningState::Silent:
        return isRecording() ? tr("Nothing has been heard from “%1” for ten seconds.").arg(m_listening.sourceName())
                             : QString();
    case ZLListeningState::Off:
    case ZLListeningState::Opening:
    case ZLListeningState::Hearing:
        break;
    }
    return {};
}

bool ZLShowListening::isRecording() const
{
    return std::ranges::any_of(m_documents, [](const auto& entry) { return entry.first->isRecording(); });
}

void ZLShowListening::followRecording()
{
    const bool isRunning = isRecording();
    if (std::exchange(m_wasRecording, isRunning) == isRunning)
        return;
    // The silence before a show is none of its own.
    if (isRunning)
        m_listening.countSilenceAnew();
    Q_EMIT didChange();
}
