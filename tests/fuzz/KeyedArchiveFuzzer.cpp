// Bytes from anywhere into the unarchiver. What it accepts must be bounded, and must survive being written and read
// again without a difference.
#include "platform/archive/ZLKeyedArchiver.h"
#include "platform/archive/ZLKeyedUnarchiver.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

// Larger values are legal, but writing them out in full would only slow the search down.
constexpr int kArchivedAgainLimit = 20'000;

/// Counts the values down to a limit, and looks at each as its kind.
void walk(const QVariant& value, int depth, int& valuesLeft)
{
    if (depth > ZLKeyedUnarchiver::kDepthLimit + 1)
        std::abort();
    if (--valuesLeft < 0)
        return;
    if (value.typeId() == QMetaType::QVariantList) {
        for (const QVariant& element : *static_cast<const QVariantList*>(value.constData()))
            walk(element, depth + 1, valuesLeft);
    } else if (value.typeId() == QMetaType::QVariantMap) {
        for (const QVariant& element : *static_cast<const QVariantMap*>(value.constData()))
            walk(element, depth + 1, valuesLeft);
    } else if (value.typeId() == QMetaType::QString) {
        valuesLeft -= int(value.toString().size() / 64);
    }
}

}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const QByteArrayView data(bytes, qsizetype(size));
    const ZLResult<QVariant> first = ZLKeyedUnarchiver::unarchivedRoot(data);
    if (first.isOk() != first.error().message.isEmpty())
        std::abort();
    if (!first)
        return 0;
    int valuesLeft = kArchivedAgainLimit;
    walk(first.value(), 1, valuesLeft);
    if (valuesLeft < 0)
        return 0;
    const QByteArray written = ZLKeyedArchiver::archivedData(first.value());
    const ZLResult<QVariant> second = ZLKeyedUnarchiver::unarchivedRoot(written);
    // Bytes are compared rather than values: a real that is no number is not equal to itself.
    if (!second || ZLKeyedArchiver::archivedData(second.value()) != written)
        std::abort();
    return 0;
}
