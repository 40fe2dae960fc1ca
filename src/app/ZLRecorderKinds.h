#pragma once

#include "following/ZLRecorderKind.h"

#include <QList>

class ZLOBSPassword;
class ZLOSCManager;

/// The one table of the kinds of recorders that can be followed.
namespace ZLRecorderKinds {

/// `manager` receives the time by OSC. Both have to outlive what is made.
[[nodiscard]] QList<ZLRecorderKind> all(ZLOSCManager& manager, ZLOBSPassword& password);

}
