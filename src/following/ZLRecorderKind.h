#pragma once

#include "recorder/ZLRecorder.h"

#include <QString>

#include <functional>
#include <memory>

/// A kind of recorder that can be followed.
struct ZLRecorderKind {
    /// On the command line and in the settings: "osc".
    QString word;
    /// Of the program or the protocol, for a person: "OBS Studio". Never translated.
    QString name;
    /// Makes one by the present settings.
    std::function<std::unique_ptr<ZLRecorder>()> make;
};
