#pragma once

#include <QByteArray>
#include <QtEndian>

/// Numbers in bytes. What lies outside the bytes reads as 0, so that a parser checks once whether a record is whole.
namespace ZLBytes {

template <typename Number>
[[nodiscard]] Number big(const QByteArray& bytes, qsizetype at)
{
    const bool isInside = at >= 0 && at <= bytes.size() - qsizetype(sizeof(Number));
    return isInside ? qFromBigEndian<Number>(bytes.constData() + at) : Number(0);
}

template <typename Number>
[[nodiscard]] Number little(const QByteArray& bytes, qsizetype at)
{
    const bool isInside = at >= 0 && at <= bytes.size() - qsizetype(sizeof(Number));
    return isInside ? qFromLittleEndian<Number>(bytes.constData() + at) : Number(0);
}

template <typename Number>
[[nodiscard]] QByteArray fromBig(Number number)
{
    QByteArray bytes(qsizetype(sizeof(Number)), Qt::Uninitialized);
    qToBigEndian(number, bytes.data());
    return bytes;
}

template <typename Number>
[[nodiscard]] QByteArray fromLittle(Number number)
{
    QByteArray bytes(qsizetype(sizeof(Number)), Qt::Uninitialized);
    qToLittleEndian(number, bytes.data());
    return bytes;
}

}
