#pragma once

#include "platform/archive/ZLBinaryPropertyListWriter.h"

#include <initializer_list>
#include <utility>
#include <vector>

/// Puts together keyed archives that the archiver would never write. Places are numbered in the order of addition; the
/// first one added is 1.
class KeyedArchiveBuilder {
public:
    using Reference = ZLBinaryPropertyListWriter::Reference;
    using Fields = std::initializer_list<std::pair<QLatin1StringView, Reference>>;

    KeyedArchiveBuilder() { m_objects.push_back(list.addText(QLatin1StringView("$null"))); }

    quint32 add(Reference object)
    {
        m_objects.push_back(object);
        return quint32(m_objects.size() - 1);
    }

    Reference uid(quint32 place) { return list.addUid(place); }

    Reference dictionary(Fields fields)
    {
        std::vector<Reference> keys;
        std::vector<Reference> values;
        for (const auto& [key, value] : fields) {
            keys.push_back(list.addText(key));
            values.push_back(value);
        }
        return list.addDictionary(keys, values);
    }

    quint32 addClass(QLatin1StringView name, Reference chain)
    {
        return add(dictionary(
            { { QLatin1StringView("$classname"), list.addText(name) }, { QLatin1StringView("$classes"), chain } }));
    }

    quint32 addClass(QLatin1StringView name) { return addClass(name, list.addArray({})); }

    quint32 addArray(quint32 arrayClass, const std::vector<quint32>& places)
    {
        std::vector<Reference> elements;
        for (const quint32 place : places)
            elements.push_back(uid(place));
        return add(dictionary({ { QLatin1StringView("NS.objects"), list.addArray(elements) },
            { QLatin1StringView("$class"), uid(arrayClass) } }));
    }

    QByteArray finish(quint32 root)
    {
        return finishWith(dictionary({ { QLatin1StringView("root"), uid(root) } }), 100'000);
    }

    QByteArray finishWith(Reference top, qint64 version)
    {
        return list.finish(dictionary({ { QLatin1StringView("$version"), list.addInteger(version) },
            { QLatin1StringView("$archiver"), list.addText(QLatin1StringView("NSKeyedArchiver")) },
            { QLatin1StringView("$top"), top }, { QLatin1StringView("$objects"), list.addArray(m_objects) } }));
    }

    ZLBinaryPropertyListWriter list;

private:
    std::vector<Reference> m_objects;
};
