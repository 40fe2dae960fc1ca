#pragma once

class QTreeView;
class QWidget;
class ZLDeliveryDraft;

/// The list of the audio files that are to get chapters.
namespace ZLDeliveryFileList {

/// It belongs to `parent`.
[[nodiscard]] QTreeView* make(const ZLDeliveryDraft& draft, QWidget* parent);

}
