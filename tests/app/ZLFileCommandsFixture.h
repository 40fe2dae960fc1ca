#pragma once

#include "app/ZLFileCommands.h"

#include "export/formats/ZLRegisterExporters.h"
#include "platform/ZLAtomicFile.h"
#include "platform/ZLBoundedFile.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

/// Writes what it is told; has a checkbox.
class CheckboxExporter final : public ZLExporter {
public:
    static ZLExportFormat format()
    {
        return { .name = u"Checkbox"_s,
            .dialogKind = ZLExportDialogKind::Save,
            .fileType = u"box"_s,
            .optionTitle = u"More"_s };
    }
    ZLResult<QByteArray> exportedBytes(const ZLExportInput& input) const override
    {
        return u"%1 %2 %3"_s.arg(input.option == ZLExportOption::On)
            .arg(input.duration)
            .arg(input.fileBaseName)
            .toUtf8();
    }
};

/// Appends the number of chapters to a session, and refuses an empty one.
class InPlaceExporter final : public ZLExporter {
public:
    static ZLExportFormat format()
    {
        return {
            .name = u"In place"_s, .dialogKind = ZLExportDialogKind::Open, .fileType = u"session"_s, .optionTitle = {}
        };
    }
    ZLResult<QByteArray> exportedBytes(const ZLExportInput& input) const override
    {
        if (input.existingBytes.isEmpty())
            return ZLError { u"There is no session in this file."_s };
        return input.existingBytes + QByteArray::number(input.chapters.size());
    }
};

/// A document in a file, and the commands with what they print.
class ZLFileCommandsFixture : public testing::Test {
protected:
    static void SetUpTestSuite() { ZLRegisterExporters(); }

    int run(const QStringList& arguments)
    {
        m_out.clear();
        m_err.clear();
        QTextStream out(&m_out);
        QTextStream err(&m_err);
        ZLFileCommands commands(m_exporterClasses, out, err);
        const auto commandLine = ZLCommandLine::parse(QStringList { u"zelta"_s } + arguments);
        return commandLine ? commands.run(commandLine.value()) : commands.refuseUsage(commandLine.error());
    }

    void expectFailure(int status, const QStringList& arguments)
    {
        const QStringList before = filesInFolder();
        EXPECT_EQ(run(arguments), status) << qPrintable(arguments.join(u' '));
        EXPECT_EQ(m_out, QString());
        EXPECT_TRUE(m_err.startsWith("zelta: "_L1)) << qPrintable(m_err);
        EXPECT_GT(m_err.size(), 12);
        EXPECT_EQ(m_err.indexOf(u'\n'), m_err.size() - 1) << qPrintable(m_err);
        EXPECT_EQ(filesInFolder(), before);
    }

    void store(const QVariantList& chapters, double duration = 0, const QVariantList& templates = {})
    {
        const QByteArray bytes =
            ZLDocumentFile::encode({ .chapters = chapters, .duration = duration, .templates = templates });
        ASSERT_TRUE(ZLAtomicFile::write(m_file, bytes).isOk());
    }

    static QVariantMap storedChapter(
        double seconds, const QString& title, const QString& link = u""_s, bool isEnabled = true)
    {
        ZLChapter chapter;
        chapter.setTimeStamp(seconds);
        chapter.setTitle(title);
        chapter.setLink(link);
        chapter.setEnabled(isEnabled);
        chapter.setUuid(u"id of "_s + title);
        return chapter.dictionaryRepresentation();
    }

    QStringList exportTo(const QString& output, const QString& format) const
    {
        return { u"export"_s, u"--format"_s, format, u"--output"_s, output, m_file };
    }

    QString at(const QString& name) const { return m_folder.filePath(name); }
    QByteArray contentsOf(const QString& path) const
    {
        const auto bytes = ZLBoundedFile::read(path, ZLFileBound::Document);
        return bytes ? bytes.value() : "no file " + path.toUtf8();
    }
    QStringList filesInFolder() const
    {
        return QDir(m_folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    QTemporaryDir m_folder;
    const QString m_file = m_folder.filePath(u"in.zelta"_s);
    QList<ZLExporterClass> m_exporterClasses = ZLExporter::allExporters()
        + QList { ZLExporterClass::of<CheckboxExporter>(), ZLExporterClass::of<InPlaceExporter>() };
    QString m_out;
    QString m_err;
};
