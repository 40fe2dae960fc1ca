#include "app/ZLExportMemory.h"

#include "app/ZLDocumentController.h"
#include "platform/ZLStateFolder.h"

ZLExportMemory::ZLExportMemory(ZLDocumentController& controller)
    : m_controller(controller)
    , m_targets(ZLStateFolder::path())
{
    connect(&controller, &ZLDocumentController::didOpenDocument, this, &ZLExportMemory::follow);
    connect(&controller, &ZLDocumentController::didCloseDocument, this,
        [this](const ZLChapterDocument* document) { m_untitled.remove(document); });
}

QString ZLExportMemory::nameOf(const ZLChapterDocument* document) const
{
    const ZLDocumentSaver* saver = m_controller.saverOf(document);
    if (!saver)
        return {};
    return saver->isUntitled() ? m_untitled.value(document) : saver->path();
}

void ZLExportMemory::follow(ZLChapterDocument* document)
{
    connect(m_controller.saverOf(document), &ZLDocumentSaver::locationDidChange, this,
        [this, document] { noteLocation(document); });
    noteLocation(document);
}

void ZLExportMemory::noteLocation(ZLChapterDocument* document)
{
    const ZLDocumentSaver* saver = m_controller.saverOf(document);
    if (!saver)
        return;
    const QString place = saver->isUntitled() ? saver->recoveryPath() : saver->path();
    if (place.isEmpty()) // Nothing is kept of it at this moment.
        return;
    const QString former = m_untitled.take(document);
    if (!former.isEmpty())
        m_targets.move(former, place);
    if (saver->isUntitled())
        m_untitled.insert(document, place);
}
