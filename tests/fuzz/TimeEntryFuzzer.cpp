// Text from anywhere as a time that was typed.
#include "document/editing/ZLTimeEntry.h"

#include <QString>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(bytes), qsizetype(size));
    const auto seconds = ZLTimeEntry::secondsFromText(text);
    if (seconds && !std::isfinite(*seconds))
        std::abort();
    const QDateTime date = ZLTimeEntry::dateFromText(text);
    if (!date.isValid())
        std::abort();
    (void)ZLTimeEntry::textFromDate(date);
    (void)ZLTimeEntry::millisecondsFromText(text);
    return 0;
}
