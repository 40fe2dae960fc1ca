#include "settings/ZLSettingsDictionary.h"

#include <QDataStream>
#include <QIODevice>
#include <QStringList>

namespace {

/// The version in which Qt's own settings write.
constexpr auto streamVersion = QDataStream::Qt_4_0;
constexpr int deepestValue = 16;

QVariant readValue(QDataStream& stream, int depth);

template <typename Value>
QVariant readPlain(QDataStream& stream)
{
    Value value {};
    stream >> value;
    return QVariant::fromValue(value);
}

QVariant fail(QDataStream& stream)
{
    stream.setStatus(QDataStream::ReadCorruptData);
    return {};
}

QVariant readMap(QDataStream& stream, int depth)
{
    quint32 count = 0;
    stream >> count;
    QVariantMap map;
    for (quint32 i = 0; i < count && stream.status() == QDataStream::Ok; ++i) {
        QString key;
        stream >> key;
        map.insert(key, readValue(stream, depth));
    }
    return map;
}

QVariant readList(QDataStream& stream, int depth)
{
    quint32 count = 0;
    stream >> count;
    QVariantList list;
    for (quint32 i = 0; i < count && stream.status() == QDataStream::Ok; ++i)
        list.append(readValue(stream, depth));
    return list;
}

QVariant readValue(QDataStream& stream, int depth)
{
    quint32 type = 0;
    stream >> type;
    if (stream.status() != QDataStream::Ok || depth > deepestValue)
        return fail(stream);
    switch (type) {
    case QMetaType::Bool:
        return readPlain<bool>(stream);
    case QMetaType::Int:
        return readPlain<qint32>(stream);
    case QMetaType::UInt:
        return readPlain<quint32>(stream);
    case QMetaType::LongLong:
        return readPlain<qint64>(stream);
    case QMetaType::ULongLong:
        return readPlain<quint64>(stream);
    case QMetaType::Double:
        return readPlain<double>(stream);
    case QMetaType::QString:
        return readPlain<QString>(stream);
    case QMetaType::QStringList:
        return readPlain<QStringList>(stream);
    case QMetaType::QByteArray:
        return readPlain<QByteArray>(stream);
    case QMetaType::QVariantMap:
        return readMap(stream, depth + 1);
    case QMetaType::QVariantList:
        return readList(stream, depth + 1);
    default:
        return fail(stream);
    }
}

}

QVariant ZLSettingsDictionary::decoded(const QByteArray& bytes)
{
    QDataStream stream(bytes);
    stream.setVersion(streamVersion);
    const QVariant value = readValue(stream, 0);
    return stream.status() == QDataStream::Ok && stream.atEnd() ? value : QVariant();
}

QByteArray ZLSettingsDictionary::encoded(const QVariantMap& dictionary)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(streamVersion);
    stream << QVariant(dictionary);
    return bytes;
}
