#pragma once

#include "document/listening/ZLDocumentListening.h"
#include "listening/ZLListening.h"

#include <QObject>

#include <map>
#include <memory>

/// Listens along to the shows of all open documents, and knows what is to be told of it.
class ZLShowListening : public QObject {
    Q_OBJECT

public:
    explicit ZLShowListening(std::unique_ptr<ZLSoundInput> input = ZLSoundInput::create());

    [[nodiscard]] ZLListening& listening() { return m_listening; }

    /// Listens along to the document from now on. Both have to outlive that, see removeDocument().
    void addDocument(ZLChapterDocument& document, const ZLDocumentSaver& saver);
    void removeDocument(const ZLChapterDocument& document);
    [[nodiscard]] ZLDocumentListening* of(const ZLChapterDocument& document) const;

    /// What a person is to know now: that the input is missing, or that a recording hears nothing. Empty while all is
    /// well, and while listening is off.
    [[nodiscard]] QString trouble() const;

Q_SIGNALS:
    /// trouble() or the state of the listening is another.
    void didChange();

private:
    [[nodiscard]] bool isRecording() const;
    void followRecording();

    ZLListening m_listening;
    std::map<const ZLChapterDocument*, std::unique_ptr<ZLDocumentListening>> m_documents;
    bool m_wasRecording = false;
};
