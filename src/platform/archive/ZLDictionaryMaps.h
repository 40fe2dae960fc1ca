#pragma once

#include "platform/archive/ZLArchivedDictionary.h"

#include <QVariantMap>

/// Values of an archive with a map for each ZLArchivedDictionary in them.
namespace ZLDictionaryMaps {

/// Values that are shared in `dictionary` are shared in the map as well, so that it is not much larger.
[[nodiscard]] QVariantMap of(const ZLArchivedDictionary& dictionary);

}
