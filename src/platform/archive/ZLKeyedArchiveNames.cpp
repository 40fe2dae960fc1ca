#include "platform/archive/ZLKeyedArchiveNames.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Longer chains of classes occur nowhere, and each class costs a look.
constexpr quint64 kClassChainLimit = 64;

ZLArchivedClass archivedClassNamed(const ZLBinaryPropertyListObject& name)
{
    using enum ZLArchivedClass;
    constexpr std::array<std::pair<QLatin1StringView, ZLArchivedClass>, 14> known { {
        { "NSDictionary"_L1, Dictionary },
        { "NSMutableDictionary"_L1, Dictionary },
        { "NSArray"_L1, Array },
        { "NSMutableArray"_L1, Array },
        { "NSSet"_L1, Array },
        { "NSMutableSet"_L1, Array },
        { "NSString"_L1, Text },
        { "NSMutableString"_L1, Text },
        { "NSData"_L1, Data },
        { "NSMutableData"_L1, Data },
        { "NSDate"_L1, Date },
        { "NSNull"_L1, Null },
        { "NSUUID"_L1, Uuid },
        { "NSURL"_L1, Url },
    } };
    for (const auto& [text, which] : known) {
        if (name.isText(text))
            return which;
    }
    return Unknown;
}

}

std::optional<ZLArchivedClass> ZLArchivedClassOf(
    const ZLBinaryPropertyListReader& list, const ZLBinaryPropertyListObject& classRecord)
{
    using enum ZLBinaryPropertyListObject::Kind;
    if (classRecord.kind != Dictionary || classRecord.count > kClassChainLimit)
        return std::nullopt;
    const ZLArchivedClass named = archivedClassNamed(list.valueFor(classRecord, "$classname"_L1));
    const ZLBinaryPropertyListObject chain = list.valueFor(classRecord, "$classes"_L1);
    if (named != ZLArchivedClass::Unknown || chain.kind != Array || chain.count > kClassChainLimit)
        return named;
    for (quint64 position = 0; position < chain.count; ++position) {
        const ZLArchivedClass ancestor = archivedClassNamed(list.objectAt(list.elementAt(chain, position)));
        if (ancestor != ZLArchivedClass::Unknown)
            return ancestor;
    }
    return ZLArchivedClass::Unknown;
}

std::optional<ZLArchivedRecord::Field> ZLArchivedFieldNamed(const ZLBinaryPropertyListObject& name)
{
    constexpr std::array<QLatin1StringView, ZLArchivedRecord::FieldCount> names { "$class"_L1, "NS.keys"_L1,
        "NS.objects"_L1, "NS.string"_L1, "NS.data"_L1, "NS.time"_L1, "NS.uuidbytes"_L1, "NS.relative"_L1 };
    for (std::size_t field = 0; field < names.size(); ++field) {
        if (name.isText(names[field]))
            return ZLArchivedRecord::Field(field);
    }
    return std::nullopt;
}
