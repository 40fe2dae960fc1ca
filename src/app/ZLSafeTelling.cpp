#include "app/ZLSafeTelling.h"

#include "app/ZLDocumentController.h"

#include <QPointer>

#include <utility>

void ZLSafeTelling::tell(
    ZLDocumentController& controller, const ZLChapterDocument* document, QObject* context, std::function<void()> call)
{
    ZLDocumentSaver* saver = document ? controller.saverOf(document) : nullptr;
    if (!saver) {
        call();
        return;
    }
    saver->whenHandedOver([present = QPointer(context), call = std::move(call)] {
        if (present)
            call();
    });
}
