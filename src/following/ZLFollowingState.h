#pragma once

/// How it stands with the recorder that a document follows.
enum class ZLFollowingState {
    Off,
    Connecting, ///< It does not answer yet.
    Refused, ///< It answers and will not do, see ZLRecorderConnection.
    Ready, ///< It is there and does not record, or the clock goes its own way until it starts again.
    Following, ///< The clock goes as it does.
    Lost, ///< It was followed and does not answer any more; the clock goes on as it went last.
};
