// The archives meet two other readers and one other writer of the same format.
#include "platform/archive/ZLKeyedArchiver.h"
#include "platform/archive/ZLKeyedUnarchiver.h"

#include <QDateTime>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimeZone>
#include <QtEndian>
#include <gtest/gtest.h>

#include <bit>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

const QDateTime& referenceDate()
{
    static const QDateTime date(QDate(2001, 1, 1), QTime(0, 0), QTimeZone::utc());
    return date;
}

QByteArray outputOf(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished(60'000)) << qPrintable(process.errorString());
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().constData();
    return process.readAllStandardOutput();
}

QByteArray peerOutput(const QString& command, const QString& path)
{
    return outputOf(QStringLiteral(ZELTA_PYTHON), { QStringLiteral(ZELTA_PLIST_PEER), command, path });
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
    return file.readAll();
}

QString writtenTo(const QTemporaryDir& folder, const QByteArray& content)
{
    const QString path = folder.filePath(u"ours.plist"_s);
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(file.write(content), content.size());
    return path;
}

QJsonValue describe(const QVariant& value);

QJsonValue describeCollection(const QVariant& value)
{
    if (value.typeId() == QMetaType::QVariantList) {
        QJsonArray list;
        for (const QVariant& element : value.toList())
            list.append(describe(element));
        return QJsonObject { { u"list"_s, list } };
    }
    QJsonObject object;
    const QVariantMap map = value.toMap();
    for (auto entry = map.cbegin(); entry != map.cend(); ++entry)
        object.insert(entry.key(), describe(entry.value()));
    return QJsonObject { { u"map"_s, object } };
}

QString realBytes(double value)
{
    const quint64 bytes = qToBigEndian(std::bit_cast<quint64>(value));
    return QString::fromLatin1(QByteArray(reinterpret_cast<const char*>(&bytes), 8).toHex());
}

/// The value in the words of the peer.
QJsonValue describe(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::UnknownType:
        return QJsonObject { { u"null"_s, true } };
    case QMetaType::Bool:
        return QJsonObject { { u"bool"_s, value.toBool() } };
    case QMetaType::Int:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return QJsonObject { { u"integer"_s, value.toString() } };
    case QMetaType::Float:
    case QMetaType::Double:
        return QJsonObject { { u"real"_s, realBytes(value.toDouble()) } };
    case QMetaType::QString:
        return QJsonObject { { u"text"_s, value.toString() } };
    case QMetaType::QByteArray:
        return QJsonObject { { u"data"_s, QString::fromLatin1(value.toByteArray().toHex()) } };
    case QMetaType::QDateTime:
        return QJsonObject { { u"date"_s, referenceDate().msecsTo(value.toDateTime()) } };
    default:
        return describeCollection(value);
    }
}

QVariantMap everyKindForPeers()
{
    return { { u"text"_s, u"Grüße 日本 🎙"_s }, { u"empty"_s, u""_s }, { u"dollar"_s, u"$null"_s }, { u"true"_s, true },
        { u"false"_s, false }, { u"small"_s, 200LL }, { u"negative"_s, -5LL }, { u"long"_s, 1LL << 40 },
        { u"least"_s, std::numeric_limits<qlonglong>::min() }, { u"float"_s, 0.5F }, { u"double"_s, 0.1 },
        { u"date"_s, QDateTime(QDate(2026, 3, 1), QTime(12, 30, 15, 250), QTimeZone::utc()) },
        { u"distant past"_s, QDateTime(QDate(1, 1, 1), QTime(0, 0), QTimeZone::utc()) },
        { u"data"_s, QByteArray("\0\xFF", 2) }, { u"null"_s, QVariant() }, { u"empty list"_s, QVariantList() },
        { u"empty map"_s, QVariantMap() },
        { u"list"_s, QVariantList { 1LL, u"x"_s, QVariantMap { { u"ключ"_s, 2.5 } } } } };
}

void expectPeerReads(const QVariant& value)
{
    const QTemporaryDir folder;
    const QByteArray output = peerOutput(u"describe"_s, writtenTo(folder, ZLKeyedArchiver::archivedData(value)));
    EXPECT_EQ(QJsonDocument::fromJson(output).object(), describe(value).toObject()) << output.constData();
}

}

TEST(ZLKeyedArchivePeer, AnotherReaderReadsEveryKind)
{
    QVariantMap value = everyKindForPeers();
    value.insert(u"large"_s, std::numeric_limits<qulonglong>::max());
    value.insert(u"control"_s, QString(QChar(0)) + u"\u0001"_s);
    expectPeerReads(value);
    expectPeerReads(QVariant());
    expectPeerReads(u"alone"_s);
}

TEST(ZLKeyedArchivePeer, AnotherReaderReadsEveryReferenceSize)
{
    for (const int count : { 10, 300, 30'000 }) {
        QVariantList list;
        for (int number = 0; number < count; ++number)
            list.append(QVariantMap { { u"Title"_s, QString::number(number) }, { u"TimeStamp"_s, number * 0.25 } });
        expectPeerReads(list);
    }
}

TEST(ZLKeyedArchivePeer, AnotherLibraryReadsEveryKind)
{
    const QTemporaryDir folder;
    const QVariant value = everyKindForPeers();
    const QString xml = folder.filePath(u"theirs.xml"_s);
    outputOf(u"plistutil"_s, { u"-i"_s, writtenTo(folder, ZLKeyedArchiver::archivedData(value)), u"-o"_s, xml });
    EXPECT_TRUE(contentOf(xml).contains("<key>CF$UID</key>"));
    const QByteArray output = peerOutput(u"describe"_s, xml);
    EXPECT_EQ(QJsonDocument::fromJson(output).object(), describe(value).toObject()) << output.constData();
}

TEST(ZLKeyedArchivePeer, WeReadEveryKindOfAnotherWriter)
{
    const QTemporaryDir folder;
    peerOutput(u"write"_s, folder.path());
    const auto result = ZLKeyedUnarchiver::unarchivedRoot(contentOf(folder.filePath(u"every-kind.plist"_s)));
    ASSERT_TRUE(result.isOk()) << qPrintable(result.error().message);
    const QVariantMap expected { { u"inline date"_s,
                                     QDateTime(QDate(2026, 3, 1), QTime(12, 30, 15, 250), QTimeZone::utc()) },
        { u"date"_s, referenceDate().addMSecs(500) }, { u"date of an integer"_s, referenceDate().addDays(1) },
        { u"inline data"_s, QByteArray("\0\xFF", 2) }, { u"data"_s, QByteArray("mutable") },
        { u"text"_s, u"Grüße 日本 🎙"_s }, { u"list"_s, QVariantList { 1LL, -5LL, 1LL << 40 } },
        { u"set"_s, QVariantList { u"one"_s } }, { u"own class"_s, QVariantList { true } },
        { u"unknown"_s, QVariant() }, { u"nothing"_s, QVariant() }, { u"null"_s, QVariant() },
        { u"large"_s, std::numeric_limits<qulonglong>::max() }, { u"real"_s, 0.1 },
        { u"uuid"_s, u"00010203-0405-0607-0809-0A0B0C0D0E0F"_s }, { u"url"_s, u"https://example.org/"_s } };
    EXPECT_EQ(result.value().toMap(), expected);
}

TEST(ZLKeyedArchivePeer, WeReadALargeFileOfAnotherWriter)
{
    const QTemporaryDir folder;
    peerOutput(u"write"_s, folder.path());
    const auto result = ZLKeyedUnarchiver::unarchivedRoot(contentOf(folder.filePath(u"many-chapters.plist"_s)));
    ASSERT_TRUE(result.isOk()) << qPrintable(result.error().message);
    const QVariantList chapters = result.value().toMap().value(u"Chapters"_s).toList();
    ASSERT_EQ(chapters.size(), 20'000);
    const QVariantMap last { { u"Title"_s, u"Chapter 19999"_s }, { u"TimeStamp"_s, 19'999 / 4.0 } };
    EXPECT_EQ(chapters.constLast().toMap(), last);
}
