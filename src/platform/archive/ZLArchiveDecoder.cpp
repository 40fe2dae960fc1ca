#include "platform/archive/ZLArchiveDecoder.h"

#include "platform/archive/ZLArchivedDate.h"
#include "platform/archive/ZLKeyedUnarchiver.h"

#include <QCoreApplication>
#include <QUuid>

#include <algorithm>
#include <map>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

using ArchivedObject = ZLBinaryPropertyListObject;
using PropertyListKind = ArchivedObject::Kind;

constexpr const char* kArchiveIsNone =
    QT_TRANSLATE_NOOP("ZLKeyedUnarchiver", "The property list is not a keyed archive.");
constexpr const char* kArchiveIsDamaged = QT_TRANSLATE_NOOP("ZLKeyedUnarchiver", "The archive is damaged.");
constexpr const char* kArchiveOverlaps = QT_TRANSLATE_NOOP("ZLKeyedUnarchiver", "The objects of the archive overlap.");
constexpr const char* kArchiveHasNoRoot = QT_TRANSLATE_NOOP("ZLKeyedUnarchiver", "The archive has no root object.");
constexpr const char* kArchiveIsCyclic = QT_TRANSLATE_NOOP("ZLKeyedUnarchiver", "The archive contains itself.");
constexpr const char* kArchiveIsTooDeep = QT_TRANSLATE_NOOP("ZLKeyedUnarchiver", "The archive is nested too deeply.");
constexpr const char* kArchiveIsTooLarge = QT_TRANSLATE_NOOP("ZLKeyedUnarchiver", "The archive unfolds into too much.");
constexpr const char* kArchiveKeyIsNoText =
    QT_TRANSLATE_NOOP("ZLKeyedUnarchiver", "A dictionary of the archive has a key that is not text.");

/// Bytes for which an archive may ask beyond its own size, because a small one may well share what it has.
constexpr quint64 kSharingAllowance = 65'536;

QVariantMap mapOf(const QStringList& keys, QVariantList& values)
{
    std::map<QString, QVariant> map;
    // Sorted keys, as our own archiver writes them, need no search.
    for (qsizetype position = 0; position < keys.size(); ++position)
        map.insert_or_assign(map.cend(), keys[position], std::move(values[position]));
    return QVariantMap(std::move(map));
}

}

ZLArchiveDecoder::ZLArchiveDecoder(const ZLBinaryPropertyListReader& list, ZLDictionaryForm form)
    : m_list(list)
    , m_form(form)
    , m_states(list.objectCount(), kUnread)
    , m_fields(list.objectCount(), kUnreadField)
    , m_bytesLeft(list.fileSize() + kSharingAllowance)
    , m_error(kArchiveIsDamaged)
{
}

ZLResult<QVariant> ZLArchiveDecoder::root()
{
    Node node;
    if (!convertArchive(node))
        return ZLError { QCoreApplication::translate("ZLKeyedUnarchiver", m_error) };
    return std::move(node.value);
}

bool ZLArchiveDecoder::fail(const char* error)
{
    m_error = error;
    return false;
}

bool ZLArchiveDecoder::spend(quint64 bytes)
{
    if (bytes > m_bytesLeft)
        return fail(kArchiveOverlaps);
    m_bytesLeft -= bytes;
    return true;
}

bool ZLArchiveDecoder::convertArchive(Node& node)
{
    const ArchivedObject archive = m_list.objectAt(m_list.topObject());
    m_objects = m_list.valueFor(archive, "$objects"_L1);
    const ArchivedObject top = m_list.valueFor(archive, "$top"_L1);
    const ArchivedObject version = m_list.valueFor(archive, "$version"_L1);
    if (!m_list.valueFor(archive, "$archiver"_L1).isText("NSKeyedArchiver"_L1)
        || m_objects.kind != PropertyListKind::Array || top.kind != PropertyListKind::Dictionary
        || version.kind != PropertyListKind::Integer || version.scalar() != QVariant(100'000LL))
        return fail(kArchiveIsNone);
    const ArchivedObject root = m_list.valueFor(top, "root"_L1);
    if (root.kind != PropertyListKind::Uid)
        return fail(kArchiveHasNoRoot);
    const std::optional<quint64> uid = root.uid();
    if (*uid == 0)
        return true;
    const std::optional<quint64> index = indexBehind(root);
    return index ? convert(*index, 1, node) : fail(kArchiveIsDamaged);
}

// The index of the property list object that stands at a UID's place in the table of objects.
std::optional<quint64> ZLArchiveDecoder::indexBehind(const ArchivedObject& uid) const
{
    const std::optional<quint64> place = uid.uid();
    if (!place || *place >= m_objects.count)
        return std::nullopt;
    return m_list.elementAt(m_objects, *place);
}

bool ZLArchiveDecoder::convertPlace(quint64 reference, int depth, Node& node)
{
    const ArchivedObject uid = m_list.objectAt(reference);
    if (uid.uid() == 0U)
        return true;
    const std::optional<quint64> index = indexBehind(uid);
    return index ? convert(*index, depth, node) : fail(kArchiveIsDamaged);
}

bool ZLArchiveDecoder::convert(quint64 index, int depth, Node& node)
{
    const ArchivedObject object = m_list.objectAt(index);
    const bool isKept =
        object.kind == PropertyListKind::Dictionary || object.isText() || object.kind == PropertyListKind::Data;
    if (!isKept)
        return convertScalar(object, node);
    const quint32 state = m_states[index];
    if (state == kInWork)
        return fail(kArchiveIsCyclic);
    if (state >= kFirstMemo)
        return convertMemo(m_memos[state - kFirstMemo], depth, node);
    m_states[index] = kInWork;
    if (!(object.kind == PropertyListKind::Dictionary ? convertRecord(object, depth, node)
                                                      : convertScalar(object, node)))
        return false;
    m_states[index] = quint32(m_memos.size()) + kFirstMemo;
    m_memos.push_back(node);
    return true;
}

// What was fit for one place may be too deep for another.
bool ZLArchiveDecoder::convertMemo(const Node& memo, int depth, Node& node)
{
    if (memo.height > 0 && depth - 1 + memo.height > ZLKeyedUnarchiver::kDepthLimit)
        return fail(kArchiveIsTooDeep);
    node = memo;
    return true;
}

bool ZLArchiveDecoder::convertScalar(const ArchivedObject& object, Node& node)
{
    const quint64 bytes = object.payloadBytes();
    if (bytes / 64 >= ZLKeyedUnarchiver::kWeightLimit)
        return fail(kArchiveIsTooLarge);
    node.weight = quint32(1 + bytes / 64);
    if (!spend(bytes))
        return false;
    std::optional<QVariant> value = object.scalar();
    if (!value)
        return fail(kArchiveIsDamaged);
    node.value = std::move(*value);
    return true;
}

bool ZLArchiveDecoder::convertRecord(const ArchivedObject& object, int depth, Node& node)
{
    ZLArchivedRecord record;
    ZLArchivedClass which = ZLArchivedClass::Unknown;
    if (!readRecord(object, record) || !readClass(record, which))
        return false;
    switch (which) {
    case ZLArchivedClass::Dictionary:
        return convertDictionary(record, depth, node);
    case ZLArchivedClass::Array:
        return convertArray(record, depth, node);
    case ZLArchivedClass::Text:
        return convertWrapped(record, Field::Text, QMetaType::QString, node);
    case ZLArchivedClass::Url:
        return convertWrapped(record, Field::Relative, QMetaType::QString, node);
    case ZLArchivedClass::Data:
        return convertWrapped(record, Field::Data, QMetaType::QByteArray, node);
    case ZLArchivedClass::Date:
        return convertDate(record, node);
    case ZLArchivedClass::Uuid:
        return convertUuid(record, node);
    case ZLArchivedClass::Null:
    case ZLArchivedClass::Unknown:
        break;
    }
    return true;
}

bool ZLArchiveDecoder::readRecord(const ArchivedObject& object, ZLArchivedRecord& record)
{
    if (!spend(2 * object.count * m_list.referenceSize()))
        return false;
    for (quint64 position = 0; position < object.count; ++position) {
        const std::size_t field = fieldNamedBy(m_list.elementAt(object, position));
        if (field < ZLArchivedRecord::FieldCount)
            record.fields[field] = m_list.valueAt(object, position);
    }
    return true;
}

std::size_t ZLArchiveDecoder::fieldNamedBy(quint64 index)
{
    if (index >= m_fields.size())
        return ZLArchivedRecord::FieldCount;
    quint8& known = m_fields[index];
    if (known == kUnreadField)
        known = ZLArchivedFieldNamed(m_list.objectAt(index)).value_or(ZLArchivedRecord::FieldCount);
    return known;
}

bool ZLArchiveDecoder::readClass(const ZLArchivedRecord& record, ZLArchivedClass& which)
{
    const std::optional<quint64> index = indexBehind(objectIn(record, Field::Class));
    if (!index)
        return fail(kArchiveIsDamaged);
    const auto known = m_classes.constFind(*index);
    if (known != m_classes.cend()) {
        which = *known;
        return true;
    }
    const std::optional<ZLArchivedClass> found = ZLArchivedClassOf(m_list, m_list.objectAt(*index));
    if (!found)
        return fail(kArchiveIsDamaged);
    which = *found;
    m_classes.insert(*index, which);
    return true;
}

ArchivedObject ZLArchiveDecoder::objectIn(const ZLArchivedRecord& record, Field field) const
{
    const std::optional<quint64> index = record.fields[field];
    return index ? m_list.objectAt(*index) : ArchivedObject();
}

bool ZLArchiveDecoder::addToParent(Node& parent, const Node& child)
{
    parent.weight += child.weight;
    parent.height = std::max(parent.height, child.height + 1);
    return parent.weight <= ZLKeyedUnarchiver::kWeightLimit || fail(kArchiveIsTooLarge);
}

bool ZLArchiveDecoder::convertArray(const ZLArchivedRecord& record, int depth, Node& node)
{
    const ArchivedObject elements = objectIn(record, Field::Objects);
    if (elements.kind != PropertyListKind::Array)
        return fail(kArchiveIsDamaged);
    if (depth > ZLKeyedUnarchiver::kDepthLimit)
        return fail(kArchiveIsTooDeep);
    if (!spend(elements.count * m_list.referenceSize()))
        return false;
    node.height = 1;
    QVariantList list;
    list.reserve(qsizetype(elements.count));
    for (quint64 position = 0; position < elements.count; ++position) {
        Node element;
        if (!convertPlace(m_list.elementAt(elements, position), depth + 1, element) || !addToParent(node, element))
            return false;
        list.append(element.value);
    }
    node.value = list;
    return true;
}

// Most dictionaries have the keys of the one before them; equal references are equal keys.
bool ZLArchiveDecoder::readKeys(const ArchivedObject& array, int depth, Keys& keys)
{
    const QByteArrayView references(array.payload, qsizetype(array.count * m_list.referenceSize()));
    if (references == m_lastKeyReferences) {
        keys = m_lastKeys;
        return true;
    }
    keys.texts.reserve(qsizetype(array.count));
    keys.weights.reserve(qsizetype(array.count));
    for (quint64 position = 0; position < array.count; ++position) {
        Node key;
        if (!convertPlace(m_list.elementAt(array, position), depth, key))
            return false;
        if (key.value.typeId() != QMetaType::QString)
            return fail(kArchiveKeyIsNoText);
        keys.texts.append(key.value.toString());
        // Only a key beyond the ordinary counts: it weighs nothing for its first 64 bytes.
        keys.weights.append(key.weight - 1);
    }
    m_lastKeyReferences = references;
    m_lastKeys = keys;
    return true;
}

bool ZLArchiveDecoder::convertDictionary(const ZLArchivedRecord& record, int depth, Node& node)
{
    const ArchivedObject keyArray = objectIn(record, Field::Keys);
    const ArchivedObject elements = objectIn(record, Field::Objects);
    if (keyArray.kind != PropertyListKind::Array || elements.kind != PropertyListKind::Array
        || keyArray.count != elements.count)
        return fail(kArchiveIsDamaged);
    if (depth > ZLKeyedUnarchiver::kDepthLimit)
        return fail(kArchiveIsTooDeep);
    if (!spend(elements.count * m_list.referenceSize()))
        return false;
    node.height = 1;
    Keys keys;
    if (!readKeys(keyArray, depth + 1, keys))
        return false;
    QVariantList values;
    values.reserve(keys.texts.size());
    for (qsizetype position = 0; position < keys.texts.size(); ++position) {
        Node value;
        if (!convertPlace(m_list.elementAt(elements, quint64(position)), depth + 1, value))
            return false;
        value.weight += keys.weights[position];
        if (!addToParent(node, value))
            return false;
        values.append(std::move(value.value));
    }
    if (m_form == ZLDictionaryForm::Map)
        node.value = mapOf(keys.texts, values);
    else
        node.value = QVariant::fromValue(ZLArchivedDictionary { keys.texts, values });
    return true;
}

// Texts and data in an object of their own, which holds them or names their place.
bool ZLArchiveDecoder::convertWrapped(const ZLArchivedRecord& record, Field field, QMetaType::Type type, Node& node)
{
    std::optional<quint64> index = record.fields[field];
    ArchivedObject object = objectIn(record, field);
    if (object.kind == PropertyListKind::Uid) {
        index = indexBehind(object);
        object = index ? m_list.objectAt(*index) : ArchivedObject();
    }
    // Nothing that could lead on to further objects is accepted here.
    if (!object.isText() && object.kind != PropertyListKind::Data)
        return fail(kArchiveIsDamaged);
    return convert(*index, 1, node) && (node.value.typeId() == type || fail(kArchiveIsDamaged));
}

bool ZLArchiveDecoder::convertDate(const ZLArchivedRecord& record, Node& node)
{
    const ArchivedObject time = objectIn(record, Field::Time);
    if (time.kind != PropertyListKind::Real && time.kind != PropertyListKind::Integer)
        return fail(kArchiveIsDamaged);
    node.value = ZLArchivedDate::value(time.scalar().value_or(QVariant()).toDouble());
    return true;
}

bool ZLArchiveDecoder::convertUuid(const ZLArchivedRecord& record, Node& node)
{
    const ArchivedObject bytes = objectIn(record, Field::Uuid);
    if (bytes.kind != PropertyListKind::Data || bytes.count != 16)
        return fail(kArchiveIsDamaged);
    const QByteArrayView view(reinterpret_cast<const char*>(bytes.payload), 16);
    node.value = QUuid::fromRfc4122(view).toString(QUuid::WithoutBraces).toUpper();
    return true;
}
