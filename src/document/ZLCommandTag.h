#pragma once

/// Tags of the commands that have an item in the Recording menu, a shortcut and an address for remote controls: the
/// property "tag" of the item. In the order of ZLSettingsManager::allKeyComboKeys().
namespace ZLCommandTag {

enum : int {
    ToggleRecording = 1,
    NewChapter,
    DeleteSelectedChapter,
    DeleteLastChapter,
    SelectPreviousChapter,
    SelectNextChapter,
};

}
