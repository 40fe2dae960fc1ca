#include "platform/archive/ZLDictionaryMaps.h"

#include <QHash>

#include <algorithm>

namespace {

class MapMaker {
public:
    QVariantMap mapOf(const ZLArchivedDictionary& dictionary)
    {
        QVariantMap map;
        const qsizetype count = std::min(dictionary.keys.size(), dictionary.values.size());
        for (qsizetype index = 0; index < count; ++index)
            map.insert(dictionary.keys.at(index), valueOf(dictionary.values.at(index)));
        return map;
    }

private:
    QVariant valueOf(const QVariant& value)
    {
        if (const auto* dictionary = ZLArchivedDictionary::in(value))
            return once(dictionary, [&] { return QVariant(mapOf(*dictionary)); });
        if (value.typeId() != QMetaType::QVariantList)
            return value;
        const auto& list = *static_cast<const QVariantList*>(value.constData());
        return list.isEmpty() ? value : once(list.constData(), [&] { return QVariant(listOf(list)); });
    }

    QVariantList listOf(const QVariantList& list)
    {
        QVariantList maps;
        maps.reserve(list.size());
        for (const QVariant& value : list)
            maps.append(valueOf(value));
        return maps;
    }

    /// One value is made for all that share the storage at `storage`.
    template <typename Make>
    QVariant once(const void* storage, const Make& make)
    {
        const auto made = m_made.constFind(storage);
        if (made != m_made.cend())
            return *made;
        const QVariant value = make();
        m_made.insert(storage, value);
        return value;
    }

    QHash<const void*, QVariant> m_made;
};

}

QVariantMap ZLDictionaryMaps::of(const ZLArchivedDictionary& dictionary)
{
    return MapMaker().mapOf(dictionary);
}
