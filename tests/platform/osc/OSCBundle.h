#pragma once

#include <QByteArray>
#include <QList>
#include <QtEndian>

/// Bundles as other programs send them.
namespace OSCBundle {

inline QByteArray bigEndian(quint32 value)
{
    const quint32 swapped = qToBigEndian(value);
    return QByteArray(reinterpret_cast<const char*>(&swapped), 4);
}

/// To be acted on at once. An element is a message or another bundle.
inline QByteArray of(const QList<QByteArray>& elements)
{
    QByteArray bundle("#bundle\0\0\0\0\0\0\0\0\1", 16);
    for (const QByteArray& element : elements)
        bundle += bigEndian(quint32(element.size())) + element;
    return bundle;
}

}
