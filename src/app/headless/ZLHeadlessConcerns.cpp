#include "app/headless/ZLHeadlessConcerns.h"

#include "app/headless/ZLHeadlessTexts.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString fileKey = QStringLiteral("file");

}

ZLHeadlessConcerns::ZLHeadlessConcerns(ZLDocumentController& controller, Complain complain, QObject* parent)
    : QObject(parent)
    , m_controller(controller)
    , m_complain(std::move(complain))
{
}

void ZLHeadlessConcerns::begin(const ZLChapterDocument& document)
{
    m_document = &document;
    const auto documents = m_controller.documents();
    for (ZLChapterDocument* each : documents)
        watch(each);
    connect(&m_controller, &ZLDocumentController::didOpenDocument, this, [this](ZLChapterDocument* opened) {
        watch(opened);
        report();
    });
    connect(&m_controller, &ZLDocumentController::willCloseDocument, this, [this](const ZLChapterDocument* closing) {
        m_concerns.erase(closing);
        std::erase_if(m_told, [closing](const auto& told) { return told.first.first == closing; });
    });
    report();
}

bool ZLHeadlessConcerns::choose(ZLConcernAction action, const std::function<void()>& whenDone)
{
    ZLDocumentConcerns& concerns = *m_concerns.at(m_document);
    const auto all = concerns.all();
    for (const ZLConcern& concern : all) {
        if (!concern.choices.contains(action))
            continue;
        concerns.choose(concern, action, [complain = m_complain, whenDone](const ZLStatus& chosen) {
            if (!chosen)
                complain(chosen.error().message);
            whenDone();
        });
        return true;
    }
    return false;
}

void ZLHeadlessConcerns::watch(ZLChapterDocument* document)
{
    auto concerns =
        std::make_unique<ZLDocumentConcerns>(*document, *m_controller.saverOf(document), ZLConcernReader::Terminal);
    connect(concerns.get(), &ZLDocumentConcerns::didChange, this, &ZLHeadlessConcerns::report);
    m_concerns[document] = std::move(concerns);
}

void ZLHeadlessConcerns::report()
{
    Lines current = currentLines();
    for (const auto& [key, line] : std::exchange(m_told, {})) {
        if (current.contains(key)) {
            m_told.emplace(key, line);
        } else if (isEndUncertain(key)) {
            m_told.emplace(key, line);
            current.emplace(key, line);
        } else {
            tellEnd(key);
        }
    }
    for (const auto& [key, line] : current) {
        if (std::exchange(m_told[key], line) != line)
            m_complain(line);
    }
}

ZLHeadlessConcerns::Lines ZLHeadlessConcerns::currentLines() const
{
    Lines lines;
    for (const auto& [document, concerns] : m_concerns) {
        const auto all = concerns->all();
        for (const ZLConcern& concern : all) {
            const bool isShared = concern.matter == ZLConcernMatter::RecoveryFolder;
            const QString name = concern.matter == ZLConcernMatter::File ? fileKey : concern.name;
            if (isTold(document, concern))
                lines.emplace(Key(isShared ? nullptr : document, name), lineOf(document, concern));
        }
    }
    return lines;
}

bool ZLHeadlessConcerns::isTold(const ZLChapterDocument* document, const ZLConcern& concern) const
{
    return document == m_document || concern.matter == ZLConcernMatter::File
        || concern.matter == ZLConcernMatter::RecoveryFolder;
}

QString ZLHeadlessConcerns::lineOf(const ZLChapterDocument* document, const ZLConcern& concern) const
{
    if (document == m_document || concern.name != ZLConcernName::FileConflict)
        return concern.sentenceWithWords();
    return tr("%1 Nothing is written there until you decide in a window.").arg(concern.sentence);
}

bool ZLHeadlessConcerns::isEndUncertain(const Key& key) const
{
    return key.second == fileKey && m_controller.saverOf(key.first)->state() != ZLSavingState::Saved;
}

void ZLHeadlessConcerns::tellEnd(const Key& key)
{
    if (key.second == fileKey)
        m_complain(tr("Saved again: %1").arg(ZLHeadlessTexts::nameOf(*key.first, *m_controller.saverOf(key.first))));
    else if (key.second == ZLConcernName::RecoveryFailure)
        m_complain(tr("The recovery folder can be written again."));
}
