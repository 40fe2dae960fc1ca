#pragma once

#include "app/ZLDocumentController.h"
#include "document/concerns/ZLDocumentConcerns.h"

#include <QObject>

#include <functional>
#include <map>
#include <memory>
#include <utility>

/// Says in a line each what concerns the open documents, and when a file or the recovery folder can be written again.
/// Of documents beside the one that commands act on, it says whether they are saved and no more.
class ZLHeadlessConcerns : public QObject {
    Q_OBJECT

public:
    using Complain = std::function<void(const QString& line)>;

    /// `controller` has to outlive the object.
    ZLHeadlessConcerns(ZLDocumentController& controller, Complain complain, QObject* parent = nullptr);

    /// Begins with what is so already. Commands act on `document`; what is to be decided about another one is decided
    /// in a window.
    void begin(const ZLChapterDocument& document);

    /// Carries out a choice where a concern of the document offers it, says why when that fails, and calls `whenDone`.
    /// Returns whether one offers it.
    bool choose(ZLConcernAction action, const std::function<void()>& whenDone);

private:
    /// Whose concern it is and which. Null for one that all documents share. Whether a file is written is one question,
    /// whichever concern answers it.
    using Key = std::pair<const ZLChapterDocument*, QString>;
    using Lines = std::map<Key, QString>;

    void watch(ZLChapterDocument* document);
    void report();
    [[nodiscard]] Lines currentLines() const;
    [[nodiscard]] bool isTold(const ZLChapterDocument* document, const ZLConcern& concern) const;
    [[nodiscard]] QString lineOf(const ZLChapterDocument* document, const ZLConcern& concern) const;
    void tellEnd(const Key& key);
    [[nodiscard]] bool isEndUncertain(const Key& key) const;

    ZLDocumentController& m_controller;
    const Complain m_complain;
    const ZLChapterDocument* m_document = nullptr;
    std::map<const ZLChapterDocument*, std::unique_ptr<ZLDocumentConcerns>> m_concerns;
    /// What was said last of everything that is still so.
    Lines m_told;
};
