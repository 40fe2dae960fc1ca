#include "app/ZLActionRouting.h"

#include "document/ZLChapterDocument.h"
#include "remote/ZLRemoteActions.h"

#include <utility>

ZLActionRouting::Operation ZLActionRouting::operationForAction(const QString& action)
{
    static const std::pair<QString, Operation> routes[] {
        { ZLControllerToggleRecordingAction, &ZLChapterDocument::recordButtonPressed },
        { ZLControllerNewChapterAction, &ZLChapterDocument::addChapterButtonPressed },
        { ZLControllerDeleteSelectedChapterAction, &ZLChapterDocument::deleteButtonPressed },
        { ZLControllerDeleteLastChapterAction, &ZLChapterDocument::deleteLastChapter },
        { ZLControllerSelectLastAction, &ZLChapterDocument::selectLastChapter },
        { ZLControllerSelectNextAction, &ZLChapterDocument::selectNextChapter },
    };
    for (const auto& [identifier, operation] : routes) {
        if (ZLRemoteActions::isSameAction(identifier, action))
            return operation;
    }
    return nullptr;
}
