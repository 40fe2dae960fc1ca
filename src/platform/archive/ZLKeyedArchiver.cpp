#include "platform/archive/ZLKeyedArchiver.h"

#include "platform/archive/ZLArchivedDate.h"
#include "platform/archive/ZLArchivedDictionary.h"
#include "platform/archive/ZLBinaryPropertyList.h"
#include "platform/archive/ZLBinaryPropertyListWriter.h"
#include "platform/archive/ZLKeyedUnarchiver.h"

#include <QHash>

#include <array>
#include <initializer_list>
#include <map>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView kNullText("$null");

/// Gives every value a place in the archive's table of objects; values name each other by that place, their UID.
class ArchiveEncoder {
public:
    ArchiveEncoder();
    QByteArray archive(const QVariant& root);

private:
    using Reference = ZLBinaryPropertyListWriter::Reference;
    using Uid = quint32;
    /// A UID as other objects mention it: its number, and the property list object that says so.
    struct Place {
        Uid uid = 0;
        Reference reference = 0;
    };
    enum ArchivedClass { DictionaryClass, ArrayClass, DateClass, NullClass, StringClass, ArchivedClassCount };
    /// The texts that the layout itself needs; each is written once.
    enum Word { KeysWord, ObjectsWord, ClassWord, TimeWord, ClassNameWord, ClassesWord, RootClassWord, WordCount };

    Place newPlace();
    Place newPlace(Reference object);
    Place placeOf(const QVariant& value, int depth);
    Place placeOfText(const QString& text);
    Place placeOfBoolean(bool value);
    Place placeOfDate(double referenceSeconds);
    Place placeOfNull();
    Place placeOfList(const QVariantList& list, int depth);
    Place placeOfMap(const QVariantMap& map, int depth);
    Place placeOfDictionary(const ZLArchivedDictionary& entries, int depth);
    Place placeOfClass(ArchivedClass which);
    Reference keyArray(std::vector<Reference> keys);
    Reference dictionary(std::initializer_list<std::pair<Reference, Reference>> fields);

    ZLBinaryPropertyListWriter m_writer;
    std::array<Reference, WordCount> m_words {};
    /// The table of objects: what is behind each UID.
    std::vector<Reference> m_objects;
    QHash<QString, Place> m_texts;
    std::map<std::vector<Reference>, Reference> m_keyArrays;
    /// The keys that the dictionary before had, and the array that they were written as.
    QStringList m_lastKeys;
    Reference m_lastKeyArray = 0;
    std::array<Place, ArchivedClassCount> m_classes {};
    std::array<Place, 2> m_booleans {};
    Place m_nullObject;
};

ArchiveEncoder::ArchiveEncoder()
{
    constexpr std::array<QLatin1StringView, WordCount> words { "NS.keys"_L1, "NS.objects"_L1, "$class"_L1, "NS.time"_L1,
        "$classname"_L1, "$classes"_L1, "NSObject"_L1 };
    for (std::size_t index = 0; index < words.size(); ++index)
        m_words[index] = m_writer.addText(words[index]);
}

QByteArray ArchiveEncoder::archive(const QVariant& root)
{
    const Place nothing = newPlace(m_writer.addText(kNullText));
    const Place place = root.isNull() ? nothing : placeOf(root, 1);
    const Reference top = dictionary({ { m_writer.addText("root"_L1), place.reference } });
    const Reference objects = m_writer.addArray(m_objects);
    const Reference archive = dictionary({
        { m_writer.addText("$version"_L1), m_writer.addInteger(100'000) },
        { m_writer.addText("$archiver"_L1), m_writer.addText("NSKeyedArchiver"_L1) },
        { m_writer.addText("$top"_L1), top },
        { m_writer.addText("$objects"_L1), objects },
    });
    return m_writer.finish(archive);
}

// A collection takes its place before its elements do, so the root comes first in the table.
ArchiveEncoder::Place ArchiveEncoder::newPlace()
{
    const Uid uid = Uid(m_objects.size());
    m_objects.push_back(0);
    return { uid, m_writer.addUid(uid) };
}

ArchiveEncoder::Place ArchiveEncoder::newPlace(Reference object)
{
    const Place place = newPlace();
    m_objects.back() = object;
    return place;
}

ArchiveEncoder::Place ArchiveEncoder::placeOf(const QVariant& value, int depth)
{
    switch (value.typeId()) {
    case QMetaType::QVariantMap:
        return placeOfMap(*static_cast<const QVariantMap*>(value.constData()), depth);
    case QMetaType::QVariantList:
        return placeOfList(*static_cast<const QVariantList*>(value.constData()), depth);
    case QMetaType::QString:
        return placeOfText(*static_cast<const QString*>(value.constData()));
    case QMetaType::QByteArray:
        return newPlace(m_writer.addData(value.toByteArray()));
    case QMetaType::QDateTime:
        if (const auto seconds = ZLReferenceSecondsFromDate(value.toDateTime()))
            return placeOfDate(*seconds);
        return placeOfNull();
    case QMetaType::Bool:
        return placeOfBoolean(value.toBool());
    case QMetaType::Float:
        return newPlace(m_writer.addReal(value.toFloat()));
    case QMetaType::Double:
        return newPlace(m_writer.addReal(value.toDouble()));
    case QMetaType::ULong:
    case QMetaType::ULongLong:
        return newPlace(m_writer.addUnsignedInteger(value.toULongLong()));
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::LongLong:
        return newPlace(m_writer.addInteger(value.toLongLong()));
    default:
        break;
    }
    if (const auto date = ZLArchivedDate::in(value))
        return placeOfDate(date->referenceSeconds);
    const auto* dictionary = ZLArchivedDictionary::in(value);
    return dictionary ? placeOfDictionary(*dictionary, depth) : placeOfNull();
}

ArchiveEncoder::Place ArchiveEncoder::placeOfText(const QString& text)
{
    const auto known = m_texts.constFind(text);
    if (known != m_texts.cend())
        return *known;
    const Place place = newPlace(m_writer.addText(text));
    if (text == kNullText) {
        // As it stands the text means "nothing", so it goes into an object of its own.
        m_objects[place.uid] = dictionary({ { m_writer.addText("NS.string"_L1), m_objects[place.uid] },
            { m_words[ClassWord], placeOfClass(StringClass).reference } });
    }
    m_texts.insert(text, place);
    return place;
}

ArchiveEncoder::Place ArchiveEncoder::placeOfBoolean(bool value)
{
    Place& place = m_booleans[value ? 1 : 0];
    if (place.uid == 0)
        place = newPlace(m_writer.addBoolean(value));
    return place;
}

ArchiveEncoder::Place ArchiveEncoder::placeOfDate(double referenceSeconds)
{
    const Place place = newPlace();
    m_objects[place.uid] = dictionary({ { m_words[TimeWord], m_writer.addReal(referenceSeconds) },
        { m_words[ClassWord], placeOfClass(DateClass).reference } });
    return place;
}

// Inside a collection "nothing" needs an object that stands for it: the collections know no empty places.
ArchiveEncoder::Place ArchiveEncoder::placeOfNull()
{
    if (m_nullObject.uid == 0) {
        m_nullObject = newPlace();
        m_objects[m_nullObject.uid] = dictionary({ { m_words[ClassWord], placeOfClass(NullClass).reference } });
    }
    return m_nullObject;
}

ArchiveEncoder::Place ArchiveEncoder::placeOfList(const QVariantList& list, int depth)
{
    if (depth > ZLKeyedUnarchiver::kDepthLimit)
        return placeOfNull();
    const Place place = newPlace();
    std::vector<Reference> elements;
    elements.reserve(std::size_t(list.size()));
    for (const QVariant& value : list)
        elements.push_back(placeOf(value, depth + 1).reference);
    m_objects[place.uid] = dictionary({ { m_words[ObjectsWord], m_writer.addArray(elements) },
        { m_words[ClassWord], placeOfClass(ArrayClass).reference } });
    return place;
}

ArchiveEncoder::Place ArchiveEncoder::placeOfMap(const QVariantMap& map, int depth)
{
    if (depth > ZLKeyedUnarchiver::kDepthLimit)
        return placeOfNull();
    const Place place = newPlace();
    std::vector<Reference> keys;
    std::vector<Reference> values;
    keys.reserve(std::size_t(map.size()));
    values.reserve(std::size_t(map.size()));
    for (auto entry = map.cbegin(); entry != map.cend(); ++entry) {
        keys.push_back(placeOfText(entry.key()).reference);
        values.push_back(placeOf(entry.value(), depth + 1).reference);
    }
    m_objects[place.uid] = dictionary(
        { { m_words[KeysWord], keyArray(std::move(keys)) }, { m_words[ObjectsWord], m_writer.addArray(values) },
            { m_words[ClassWord], placeOfClass(DictionaryClass).reference } });
    return place;
}

ArchiveEncoder::Place ArchiveEncoder::placeOfDictionary(const ZLArchivedDictionary& entries, int depth)
{
    if (depth > ZLKeyedUnarchiver::kDepthLimit)
        return placeOfNull();
    const Place place = newPlace();
    // One and the same list, not an equal one: that takes no look at the texts.
    const bool areKeysWritten = !m_lastKeys.isEmpty() && m_lastKeys.constData() == entries.keys.constData();
    Reference writtenKeys = m_lastKeyArray;
    std::vector<Reference> keys;
    std::vector<Reference> values;
    values.reserve(std::size_t(entries.values.size()));
    for (qsizetype position = 0; position < entries.values.size(); ++position) {
        if (!areKeysWritten)
            keys.push_back(placeOfText(entries.keys[position]).reference);
        values.push_back(placeOf(entries.values[position], depth + 1).reference);
    }
    if (!areKeysWritten) {
        writtenKeys = keyArray(std::move(keys));
        m_lastKeys = entries.keys;
        m_lastKeyArray = writtenKeys;
    }
    m_objects[place.uid] =
        dictionary({ { m_words[KeysWord], writtenKeys }, { m_words[ObjectsWord], m_writer.addArray(values) },
            { m_words[ClassWord], placeOfClass(DictionaryClass).reference } });
    return place;
}

ArchiveEncoder::Place ArchiveEncoder::placeOfClass(ArchivedClass which)
{
    constexpr std::array<QLatin1StringView, ArchivedClassCount> names { "NSDictionary"_L1, "NSArray"_L1, "NSDate"_L1,
        "NSNull"_L1, "NSString"_L1 };
    Place& place = m_classes[which];
    if (place.uid == 0) {
        const Reference name = m_writer.addText(names[which]);
        const std::array<Reference, 2> chain { name, m_words[RootClassWord] };
        place = newPlace(
            dictionary({ { m_words[ClassNameWord], name }, { m_words[ClassesWord], m_writer.addArray(chain) } }));
    }
    return place;
}

// Dictionaries of one shape, as chapters are, share their array of keys.
ArchiveEncoder::Reference ArchiveEncoder::keyArray(std::vector<Reference> keys)
{
    const auto place = m_keyArrays.lower_bound(keys);
    if (place != m_keyArrays.end() && place->first == keys)
        return place->second;
    const Reference array = m_writer.addArray(keys);
    m_keyArrays.emplace_hint(place, std::move(keys), array);
    return array;
}

ArchiveEncoder::Reference ArchiveEncoder::dictionary(std::initializer_list<std::pair<Reference, Reference>> fields)
{
    std::array<Reference, 4> keys {};
    std::array<Reference, 4> values {};
    std::size_t count = 0;
    for (const auto& [key, value] : fields) {
        keys[count] = key;
        values[count++] = value;
    }
    return m_writer.addDictionary(std::span(keys.data(), count), std::span(values.data(), count));
}

}

QByteArray ZLKeyedArchiver::archivedData(const QVariant& root)
{
    return ArchiveEncoder().archive(root);
}
