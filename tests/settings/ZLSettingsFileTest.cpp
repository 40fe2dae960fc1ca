#include "settings/ZLSettingsFile.h"

#include "settings/ZLSettingsText.h"

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

class ZLSettingsFileTest : public testing::Test {
protected:
    [[nodiscard]] QString path() const { return m_folder.filePath(u"zelta.conf"_s); }
    [[nodiscard]] QByteArray nativePath() const { return QFile::encodeName(path()); }

    void write(const QByteArray& bytes, const QString& name = u"zelta.conf"_s) const
    {
        QFile file(m_folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    [[nodiscard]] QByteArray bytes(const QString& name = u"zelta.conf"_s) const
    {
        QFile file(m_folder.filePath(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : "no file";
    }

    /// Every kind of value that the program stores, and what is hard about it.
    static QVariantMap hardValues()
    {
        const QVariantMap shortcut { { u"keyCode"_s, 46 }, { u"modifierFlags"_s, 0x180000U },
            { u"characters"_s, u"µ1"_s }, { u"nested"_s, QVariantMap { { u"a"_s, 1 } } },
            { u"list"_s, QVariantList { 1, u"x"_s, true, 2.5 } }, { u"long"_s, qlonglong(5) },
            { u"names"_s, QStringList { u"a"_s, u"b"_s } }, { u"bytes"_s, QByteArray("\0\1", 2) } };
        QByteArray allBytes;
        for (int byte = 0; byte < 256; ++byte)
            allBytes += char(byte);
        return { { u"ZLNewChapterKeyCombo"_s, shortcut }, { u"empty combo"_s, QVariantMap() },
            { u"list"_s, QStringList { u"a"_s, u"b, \"c\""_s, u"@x"_s, u""_s } },
            { u"text"_s,
                u"alsa, \"left\" @card=1;äöü\n\x01"
                "f 日本 \U0001F399\\ "_s },
            { u"at"_s, u"@Variant(nonsense)"_s }, { u"lead"_s, u" blank "_s }, { u"remark"_s, u"a;b"_s },
            { u"empty"_s, u""_s }, { u"percent%"_s, u"50%"_s }, { u"window/geometry"_s, allBytes },
            { u"a b/c d/eü日"_s, u"x"_s }, { u"General/x"_s, u"y"_s }, { u"ZLEmptyKey"_s, u"z"_s } };
    }

    QTemporaryDir m_folder;
};

TEST_F(ZLSettingsFileTest, EveryKindOfValueComesBack)
{
    const QVariantMap values = hardValues();
    ZLSettingsFile(path()).setValues(values);
    const ZLSettingsFile file(path());
    for (auto value = values.cbegin(); value != values.cend(); ++value)
        EXPECT_EQ(file.value(value.key()), value.value()) << qPrintable(value.key()) << '\n' << bytes().constData();
    ZLSettingsFile(path()).setValues({ { u"truth"_s, true }, { u"number"_s, 13 }, { u"size"_s, 13.3 } });
    const ZLSettingsFile again(path());
    EXPECT_TRUE(again.value(u"truth"_s).toBool());
    EXPECT_EQ(again.value(u"number"_s).toInt(), 13);
    EXPECT_EQ(again.value(u"size"_s).toDouble(), 13.3);
    EXPECT_EQ(again.value(u"list"_s), values.value(u"list"_s)) << "what was there stays";
}

TEST_F(ZLSettingsFileTest, TheFileOfAFormerVersionIsReadAndTheOtherWayRound)
{
    const QVariantMap values = hardValues();
    {
        QSettings former(path(), QSettings::IniFormat);
        for (auto value = values.cbegin(); value != values.cend(); ++value)
            former.setValue(value.key(), value.value());
        former.setValue(u"truth"_s, true);
        former.setValue(u"none"_s, QStringList());
    }
    const ZLSettingsFile file(path());
    for (auto value = values.cbegin(); value != values.cend(); ++value)
        EXPECT_EQ(file.value(value.key()), value.value()) << qPrintable(value.key()) << '\n' << bytes().constData();
    EXPECT_EQ(file.value(u"truth"_s).toString(), u"true"_s);
    EXPECT_FALSE(file.value(u"none"_s).isValid());

    ASSERT_TRUE(QFile::remove(path()));
    ZLSettingsFile(path()).setValues(values);
    const QSettings former(path(), QSettings::IniFormat);
    for (auto value = values.cbegin(); value != values.cend(); ++value)
        EXPECT_EQ(former.value(value.key()), value.value()) << qPrintable(value.key()) << '\n' << bytes().constData();
}

TEST_F(ZLSettingsFileTest, WhatAPersonWroteStays)
{
    write("; mine\n[Other]\nx=1\n\n[General]\n# remark\nb = 2 ; why\nlong=a, \\\n  b\n\n[Last]\ny=3\n");
    ZLSettingsFile file(path());
    EXPECT_EQ(file.value(u"b"_s), u"2"_s);
    EXPECT_EQ(file.value(u"long"_s), (QStringList { u"a"_s, u"b"_s }));
    EXPECT_EQ(file.value(u"Other/x"_s), u"1"_s);
    file.setValue(u"c"_s, 5);
    file.setValue(u"long"_s, u"short"_s);
    file.setValue(u"Last/z"_s, 4);
    file.setValue(u"New/n"_s, 6);
    EXPECT_EQ(bytes(),
        "; mine\n[Other]\nx=1\n\n[General]\n# remark\nb = 2 ; why\nlong=short\nc=5\n\n[Last]\ny=3\nz=4\n[New]\nn=6\n");
    file.remove(u"b"_s);
    file.remove(u"Other/x"_s);
    EXPECT_EQ(bytes(), "; mine\n[Other]\n\n[General]\n# remark\nlong=short\nc=5\n\n[Last]\ny=3\nz=4\n[New]\nn=6\n");
}

TEST_F(ZLSettingsFileTest, WhatAnotherProcessWroteStays)
{
    ZLSettingsFile one(path());
    ZLSettingsFile other(path());
    one.setValue(u"a"_s, 1);
    other.setValue(u"b"_s, 2);
    EXPECT_EQ(other.value(u"a"_s), u"1"_s);
    EXPECT_EQ(bytes(), "[General]\na=1\nb=2\n");
}

TEST_F(ZLSettingsFileTest, ATypeThatNeedsAWindowSystemIsNoValue)
{
    // A colour, a font, an image and an unknown type, as Qt's own settings write them.
    for (const char* type : { "\\0\\0\\0\\x43", "\\0\\0\\0@", "\\0\\0\\0\\x46", "\\x7f\\xff\\xff\\xff" }) {
        write(QByteArray("[General]\nx=@Variant(") + type
            + "\\x1\\xff\\xff\\0\\0\\x80\\x80\\0\\0)\ny=@DateTime(\\0)\nz=@Rect(1 2 3 4)\nw=7\n");
        const ZLSettingsFile file(path());
        EXPECT_FALSE(file.value(u"x"_s).isValid()) << type;
        EXPECT_FALSE(file.value(u"y"_s).isValid());
        EXPECT_FALSE(file.value(u"z"_s).isValid());
        EXPECT_EQ(file.value(u"w"_s), u"7"_s);
    }
    // The same inside a dictionary, and dictionaries that do not end.
    for (const char* bytes : { "\\0\\0\\0\\b\\0\\0\\0\\x1\\0\\0\\0\\x2\\0\\x61\\0\\0\\0\\x43\\x1",
             "\\0\\0\\0\\b\\xff\\xff\\xff\\xff", "\\0\\0\\0\\t\\0\\0\\0\\x1\\0\\0\\0\\t\\0\\0\\0\\x1" }) {
        write(QByteArray("[General]\nx=@Variant(") + bytes + ")\n");
        EXPECT_FALSE(ZLSettingsFile(path()).value(u"x"_s).isValid()) << bytes;
    }
}

TEST_F(ZLSettingsFileTest, AFileThatCannotBeReadIsNotWrittenAndTheValuesLiveOn)
{
    const auto check = [this] {
        ZLSettingsFile file(path());
        EXPECT_FALSE(file.value(u"a"_s).isValid());
        file.setValue(u"a"_s, 1);
        EXPECT_EQ(file.value(u"a"_s), 1);
        file.remove(u"a"_s);
        EXPECT_FALSE(file.value(u"a"_s).isValid());
    };
    ASSERT_EQ(mkfifo(nativePath().constData(), 0600), 0);
    check();
    ASSERT_TRUE(QFile::remove(path()));
    ASSERT_TRUE(QDir().mkdir(path()));
    check();
    ASSERT_TRUE(QDir().rmdir(path()));
    QFile huge(path());
    ASSERT_TRUE(huge.open(QIODevice::WriteOnly) && huge.resize(qint64(1000) * 1000 * 1000 * 1000));
    check();
    EXPECT_EQ(huge.size(), qint64(1000) * 1000 * 1000 * 1000);
}

TEST_F(ZLSettingsFileTest, TheUsersOwnFileMayBeALinkAndStaysOne)
{
    write("[General]\na=1\n", u"target"_s);
    ASSERT_EQ(symlink("target", nativePath().constData()), 0);
    ZLSettingsFile file(path());
    EXPECT_EQ(file.value(u"a"_s), u"1"_s);
    file.setValue(u"a"_s, 2);
    EXPECT_EQ(bytes(u"target"_s), "[General]\na=2\n");
    EXPECT_TRUE(QFileInfo(path()).isSymLink());
}

TEST_F(ZLSettingsFileTest, AFileOfTheProgramsOwnIsNoLinkAndForItsUserAlone)
{
    write("[General]\na=1\n", u"target"_s);
    ASSERT_EQ(symlink("target", nativePath().constData()), 0);
    ZLSettingsFile linked(path(), ZLFileLinks::Refuse);
    EXPECT_FALSE(linked.value(u"a"_s).isValid());
    linked.setValue(u"a"_s, 2);
    EXPECT_EQ(bytes(u"target"_s), "[General]\na=1\n");
    ASSERT_TRUE(QFile::remove(path()));
    ZLSettingsFile(path(), ZLFileLinks::Refuse).setValue(u"a"_s, 2);
    EXPECT_EQ(QFileInfo(path()).permissions() & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
}
