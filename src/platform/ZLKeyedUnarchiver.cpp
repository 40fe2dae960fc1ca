#include "platform/ZLKeyedUnarchiver.h"

#include "platform/ZLBinaryPropertyListReader.h"

#include <QCoreApplication>
#include <QHash>
#include <QUuid>

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

using Object = ZLBinaryPropertyListObject;
using Kind = Object::Kind;

constexpr const char* kNoArchive = QT_TRANSLATE_NOOP("ZLKeyedUnarchiver", "The property list is not a keyed archive.");
constexpr const char* kDamaged = QT_TRANSLATE_NOOP("ZLKeyedUnarchiver", "The archive is damaged.");
constexpr const char* kNoRoot = QT_TRANSLATE_NOOP("ZLKeyedUnarchiver", "The archive has no root object.");
constexpr const char* kCycle = QT_TRANSLATE_NOOP("ZLKeyedUnarchiver", "The archive contains itself.");
constexpr const char* kTooDeep = QT_TRANSLATE_NOOP("ZLKeyedUnarchiver", "The archive is nested too deeply.");
constexpr const char* kTooLarge = QT_TRANSLATE_NOOP("ZLKeyedUnarchiver", "The archive unfolds into too much.");
constexpr const char* kKeyIsNoText =
    QT_TRANSLATE_NOOP("ZLKeyedUnarchiver", "A dictionary of the archive has a key that is not text.");

/// Bytes for which an archive may ask beyond its own size, because a small one may well share what it has.
constexpr quint64 kSharingAllowance = 65'536;
/// Longer chains of classes occur nowhere, and each class costs a look.
constexpr quint64 kClassChainLimit = 64;

enum class ArchivedClass : quint8 { Unknown, Null, Dictionary, Array, Text, Data, Date, Uuid, Url };

/// The fields of an archived object that mean something here, by the index of their value; others are passed over.
struct ArchivedRecord {
    enum Field { Class, Keys, Objects, Text, Data, Time, Uuid, Relative, FieldCount };
    std::array<std::optional<quint64>, FieldCount> fields;
};

ArchivedClass archivedClassNamed(const Object& name)
{
    using enum ArchivedClass;
    constexpr std::array<std::pair<QLatin1StringView, ArchivedClass>, 14> known { {
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

std::optional<ArchivedRecord::Field> archivedFieldNamed(const Object& name)
{
    constexpr std::array<QLatin1StringView, ArchivedRecord::FieldCount> names { "$class"_L1, "NS.keys"_L1,
        "NS.objects"_L1, "NS.string"_L1, "NS.data"_L1, "NS.time"_L1, "NS.uuidbytes"_L1, "NS.relative"_L1 };
    for (std::size_t field = 0; field < names.size(); ++field) {
        if (name.isText(names[field]))
            return ArchivedRecord::Field(field);
    }
    return std::nullopt;
}

/// Follows the references of one archive from its root. Every object is converted once; an error ends everything.
class ArchiveDecoder {
public:
    explicit ArchiveDecoder(const ZLBinaryPropertyListReader& list);
    ZLResult<QVariant> root();

private:
    /// A value with what it costs whoever walks it.
    struct Node {
        QVariant value;
        quint64 weight = 1;
        /// Levels of collections in it.
        int height = 0;
    };
    using Field = ArchivedRecord::Field;
    static constexpr quint32 kUnread = 0;
    static constexpr quint32 kInWork = 1;
    static constexpr quint32 kFirstMemo = 2;

    bool fail(const char* error);
    bool spend(quint64 bytes);
    bool convertArchive(Node& node);
    bool convertPlace(quint64 reference, int depth, Node& node);
    bool convert(quint64 index, int depth, Node& node);
    bool convertMemo(const Node& memo, int depth, Node& node);
    bool convertScalar(const Object& object, Node& node);
    bool convertRecord(const Object& object, int depth, Node& node);
    bool convertDictionary(const ArchivedRecord& record, int depth, Node& node);
    bool convertArray(const ArchivedRecord& record, int depth, Node& node);
    bool convertWrapped(const ArchivedRecord& record, Field field, QMetaType::Type type, Node& node);
    bool convertDate(const ArchivedRecord& record, Node& node);
    bool convertUuid(const ArchivedRecord& record, Node& node);
    bool addToParent(Node& parent, const Node& child);
    bool readRecord(const Object& object, ArchivedRecord& record);
    bool readClass(const ArchivedRecord& record, ArchivedClass& which);
    ArchivedClass classOfChain(const Object& classRecord);
    std::optional<quint64> indexBehind(const Object& uid) const;
    Object objectIn(const ArchivedRecord& record, Field field) const;

    const ZLBinaryPropertyListReader& m_list;
    Object m_objects;
    /// By index of the property list object: unread, in work, or its place in m_memos with kFirstMemo added.
    std::vector<quint32> m_states;
    std::vector<Node> m_memos;
    QHash<quint64, ArchivedClass> m_classes;
    /// Objects that do not overlap cannot ask for more bytes than the file has.
    quint64 m_bytesLeft;
    const char* m_error = kDamaged;
};

ArchiveDecoder::ArchiveDecoder(const ZLBinaryPropertyListReader& list)
    : m_list(list)
    , m_states(list.objectCount(), kUnread)
    , m_bytesLeft(list.fileSize() + kSharingAllowance)
{
}

ZLResult<QVariant> ArchiveDecoder::root()
{
    Node node;
    if (!convertArchive(node))
        return ZLError { QCoreApplication::translate("ZLKeyedUnarchiver", m_error) };
    return std::move(node.value);
}

bool ArchiveDecoder::fail(const char* error)
{
    m_error = error;
    return false;
}

bool ArchiveDecoder::spend(quint64 bytes)
{
    if (bytes > m_bytesLeft)
        return fail(kDamaged);
    m_bytesLeft -= bytes;
    return true;
}

bool ArchiveDecoder::convertArchive(Node& node)
{
    const Object archive = m_list.objectAt(m_list.topObject());
    m_objects = m_list.valueFor(archive, "$objects"_L1);
    const Object top = m_list.valueFor(archive, "$top"_L1);
    const Object version = m_list.valueFor(archive, "$version"_L1);
    if (!m_list.valueFor(archive, "$archiver"_L1).isText("NSKeyedArchiver"_L1) || m_objects.kind != Kind::Array
        || top.kind != Kind::Dictionary || version.kind != Kind::Integer || version.scalar() != QVariant(100'000LL))
        return fail(kNoArchive);
    const Object root = m_list.valueFor(top, "root"_L1);
    if (root.kind != Kind::Uid)
        return fail(kNoRoot);
    const std::optional<quint64> uid = root.uid();
    if (*uid == 0)
        return true;
    const std::optional<quint64> index = indexBehind(root);
    return index ? convert(*index, 1, node) : fail(kDamaged);
}

// The index of the property list object that stands at a UID's place in the table of objects.
std::optional<quint64> ArchiveDecoder::indexBehind(const Object& uid) const
{
    const std::optional<quint64> place = uid.uid();
    if (!place || *place >= m_objects.count)
        return std::nullopt;
    return m_list.elementAt(m_objects, *place);
}

bool ArchiveDecoder::convertPlace(quint64 reference, int depth, Node& node)
{
    const Object uid = m_list.objectAt(reference);
    if (uid.uid() == 0U)
        return true;
    const std::optional<quint64> index = indexBehind(uid);
    return index ? convert(*index, depth, node) : fail(kDamaged);
}

bool ArchiveDecoder::convert(quint64 index, int depth, Node& node)
{
    const Object object = m_list.objectAt(index);
    const bool isKept = object.kind == Kind::Dictionary || object.isText() || object.kind == Kind::Data;
    if (!isKept)
        return convertScalar(object, node);
    const quint32 state = m_states[index];
    if (state == kInWork)
        return fail(kCycle);
    if (state >= kFirstMemo)
        return convertMemo(m_memos[state - kFirstMemo], depth, node);
    m_states[index] = kInWork;
    if (!(object.kind == Kind::Dictionary ? convertRecord(object, depth, node) : convertScalar(object, node)))
        return false;
    m_states[index] = quint32(m_memos.size()) + kFirstMemo;
    m_memos.push_back(node);
    return true;
}

// What was fit for one place may be too deep for another.
bool ArchiveDecoder::convertMemo(const Node& memo, int depth, Node& node)
{
    if (memo.height > 0 && depth - 1 + memo.height > ZLKeyedUnarchiver::kDepthLimit)
        return fail(kTooDeep);
    node = memo;
    return true;
}

bool ArchiveDecoder::convertScalar(const Object& object, Node& node)
{
    const quint64 bytes = object.payloadBytes();
    node.weight = 1 + bytes / 64;
    if (node.weight > ZLKeyedUnarchiver::kWeightLimit)
        return fail(kTooLarge);
    if (!spend(bytes))
        return false;
    std::optional<QVariant> value = object.scalar();
    if (!value)
        return fail(kDamaged);
    node.value = std::move(*value);
    return true;
}

bool ArchiveDecoder::convertRecord(const Object& object, int depth, Node& node)
{
    ArchivedRecord record;
    ArchivedClass which = ArchivedClass::Unknown;
    if (!readRecord(object, record) || !readClass(record, which))
        return false;
    switch (which) {
    case ArchivedClass::Dictionary:
        return convertDictionary(record, depth, node);
    case ArchivedClass::Array:
        return convertArray(record, depth, node);
    case ArchivedClass::Text:
        return convertWrapped(record, Field::Text, QMetaType::QString, node);
    case ArchivedClass::Url:
        return convertWrapped(record, Field::Relative, QMetaType::QString, node);
    case ArchivedClass::Data:
        return convertWrapped(record, Field::Data, QMetaType::QByteArray, node);
    case ArchivedClass::Date:
        return convertDate(record, node);
    case ArchivedClass::Uuid:
        return convertUuid(record, node);
    case ArchivedClass::Null:
    case ArchivedClass::Unknown:
        break;
    }
    return true;
}

bool ArchiveDecoder::readRecord(const Object& object, ArchivedRecord& record)
{
    if (!spend(2 * object.count * m_list.referenceSize()))
        return false;
    for (quint64 position = 0; position < object.count; ++position) {
        const auto field = archivedFieldNamed(m_list.objectAt(m_list.elementAt(object, position)));
        if (field)
            record.fields[*field] = m_list.valueAt(object, position);
    }
    return true;
}

bool ArchiveDecoder::readClass(const ArchivedRecord& record, ArchivedClass& which)
{
    const std::optional<quint64> index = indexBehind(objectIn(record, Field::Class));
    if (!index)
        return fail(kDamaged);
    const auto known = m_classes.constFind(*index);
    if (known != m_classes.cend()) {
        which = *known;
        return true;
    }
    const Object classRecord = m_list.objectAt(*index);
    if (classRecord.kind != Kind::Dictionary || classRecord.count > kClassChainLimit)
        return fail(kDamaged);
    which = classOfChain(classRecord);
    m_classes.insert(*index, which);
    return true;
}

// A class of one's own that descends from a known one reads as that one.
ArchivedClass ArchiveDecoder::classOfChain(const Object& classRecord)
{
    const ArchivedClass named = archivedClassNamed(m_list.valueFor(classRecord, "$classname"_L1));
    if (named != ArchivedClass::Unknown)
        return named;
    const Object chain = m_list.valueFor(classRecord, "$classes"_L1);
    if (chain.kind != Kind::Array || chain.count > kClassChainLimit)
        return ArchivedClass::Unknown;
    for (quint64 position = 0; position < chain.count; ++position) {
        const ArchivedClass ancestor = archivedClassNamed(m_list.objectAt(m_list.elementAt(chain, position)));
        if (ancestor != ArchivedClass::Unknown)
            return ancestor;
    }
    return ArchivedClass::Unknown;
}

Object ArchiveDecoder::objectIn(const ArchivedRecord& record, Field field) const
{
    const std::optional<quint64> index = record.fields[field];
    return index ? m_list.objectAt(*index) : Object();
}

bool ArchiveDecoder::addToParent(Node& parent, const Node& child)
{
    parent.weight += child.weight;
    parent.height = std::max(parent.height, child.height + 1);
    return parent.weight <= ZLKeyedUnarchiver::kWeightLimit || fail(kTooLarge);
}

bool ArchiveDecoder::convertArray(const ArchivedRecord& record, int depth, Node& node)
{
    const Object elements = objectIn(record, Field::Objects);
    if (elements.kind != Kind::Array)
        return fail(kDamaged);
    if (depth > ZLKeyedUnarchiver::kDepthLimit)
        return fail(kTooDeep);
    if (!spend(elements.count * m_list.referenceSize()))
        return false;
    node.height = 1;
    QVariantList list;
    list.reserve(qsizetype(elements.count));
    for (quint64 position = 0; position < elements.count; ++position) {
        Node element;
        if (!convertPlace(m_list.elementAt(elements, position), depth + 1, element) || !addToParent(node, element))
            return false;
        list.append(std::move(element.value));
    }
    node.value = std::move(list);
    return true;
}

bool ArchiveDecoder::convertDictionary(const ArchivedRecord& record, int depth, Node& node)
{
    const Object keys = objectIn(record, Field::Keys);
    const Object values = objectIn(record, Field::Objects);
    if (keys.kind != Kind::Array || values.kind != Kind::Array || keys.count != values.count)
        return fail(kDamaged);
    if (depth > ZLKeyedUnarchiver::kDepthLimit)
        return fail(kTooDeep);
    if (!spend(values.count * m_list.referenceSize()))
        return false;
    node.height = 1;
    std::map<QString, QVariant> map;
    for (quint64 position = 0; position < keys.count; ++position) {
        Node key;
        Node value;
        if (!convertPlace(m_list.elementAt(keys, position), depth + 1, key)
            || !convertPlace(m_list.elementAt(values, position), depth + 1, value))
            return false;
        if (key.value.typeId() != QMetaType::QString)
            return fail(kKeyIsNoText);
        // Only a key beyond the ordinary counts: it weighs nothing for its first 64 bytes.
        value.weight += key.weight - 1;
        if (!addToParent(node, value))
            return false;
        // Sorted keys, as our own archiver writes them, need no search.
        map.insert_or_assign(map.cend(), key.value.toString(), std::move(value.value));
    }
    node.value = QVariantMap(std::move(map));
    return true;
}

// Texts and data in an object of their own, which holds them or names their place.
bool ArchiveDecoder::convertWrapped(const ArchivedRecord& record, Field field, QMetaType::Type type, Node& node)
{
    std::optional<quint64> index = record.fields[field];
    Object object = objectIn(record, field);
    if (object.kind == Kind::Uid) {
        index = indexBehind(object);
        object = index ? m_list.objectAt(*index) : Object();
    }
    // Nothing that could lead on to further objects is accepted here.
    if (!object.isText() && object.kind != Kind::Data)
        return fail(kDamaged);
    return convert(*index, 1, node) && (node.value.typeId() == type || fail(kDamaged));
}

bool ArchiveDecoder::convertDate(const ArchivedRecord& record, Node& node)
{
    const Object time = objectIn(record, Field::Time);
    if (time.kind != Kind::Real && time.kind != Kind::Integer)
        return fail(kDamaged);
    const std::optional<QDateTime> date = ZLDateFromReferenceSeconds(time.scalar().value_or(QVariant()).toDouble());
    if (date)
        node.value = *date;
    return true;
}

bool ArchiveDecoder::convertUuid(const ArchivedRecord& record, Node& node)
{
    const Object bytes = objectIn(record, Field::Uuid);
    if (bytes.kind != Kind::Data || bytes.count != 16)
        return fail(kDamaged);
    const QByteArrayView view(reinterpret_cast<const char*>(bytes.payload), 16);
    node.value = QUuid::fromRfc4122(view).toString(QUuid::WithoutBraces).toUpper();
    return true;
}

}

ZLResult<QVariant> ZLKeyedUnarchiver::unarchivedRoot(QByteArrayView data)
{
    const ZLResult<ZLBinaryPropertyListReader> list = ZLBinaryPropertyListReader::open(data);
    if (!list)
        return list.error();
    return ArchiveDecoder(list.value()).root();
}
