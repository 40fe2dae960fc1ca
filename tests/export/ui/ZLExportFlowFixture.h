#pragma once

#include "export/ui/ZLExportFlow.h"

#include "document/ZLChapterDocument.h"
#include "export/ui/ZLExportAdviceView.h"
#include "platform/ZLAtomicFile.h"
#include "platform/ZLBoundedFile.h"
#include "support/ZLFakeHostClock.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

/// Writes down all that it is given; has a checkbox.
class NotingExporter final : public ZLExporter {
public:
    static ZLExportFormat format()
    {
        return { .name = u"Noting"_s,
            .dialogKind = ZLExportDialogKind::Save,
            .fileType = u"note"_s,
            .optionTitle = u"With everything"_s };
    }
    ZLResult<QByteArray> exportedBytes(const ZLExportInput& input) const override
    {
        return u"%1 %2 %3 %4"_s.arg(input.chapters.size())
            .arg(input.duration)
            .arg(input.option == ZLExportOption::On)
            .arg(input.fileBaseName)
            .toUtf8();
    }
};

/// Appends the number of chapters to an existing file.
class AppendingExporter final : public ZLExporter {
public:
    static ZLExportFormat format()
    {
        return {
            .name = u"Appending"_s, .dialogKind = ZLExportDialogKind::Open, .fileType = u"session"_s, .optionTitle = {}
        };
    }
    ZLResult<QByteArray> exportedBytes(const ZLExportInput& input) const override
    {
        if (!input.existingBytes.startsWith("session"))
            return ZLError { u"No session."_s };
        return input.existingBytes + QByteArray::number(input.chapters.size());
    }
};

/// A document with one chapter, the flow under test, and a user who types into its dialog and presses its buttons.
class ZLExportFlowFixture : public testing::Test {
protected:
    void SetUp() override
    {
        // The dialog starts in the working directory, where an export of this name might lie.
        ASSERT_TRUE(QDir::setCurrent(m_folder.path()));
        m_document->setDisplayName(u"Episode 12.zelta"_s);
        addChapter(5, u"One & only"_s);
    }

    void TearDown() override { QDir::setCurrent(m_previousFolder); }

    void addChapter(double seconds, const QString& title)
    {
        auto chapter = std::make_shared<ZLChapter>();
        chapter->setTimeStamp(seconds);
        chapter->setTitle(title);
        m_document->addChapter(chapter);
    }

    template <typename Exporter>
    void start(ZLChapterDocument* document)
    {
        m_flow = new ZLExportFlow(ZLExporterClass::of<Exporter>());
        m_flow->setFileOpener([this](const QString& path) { m_opened.append(path); });
        connectOutcome();
        m_flow->exportChapters(document);
    }

    void connectOutcome()
    {
        QObject::connect(
            m_flow, &ZLExportFlow::exportDidFinish, m_flow, [this](const QString& path) { m_written.append(path); });
        QObject::connect(m_flow, &ZLExportFlow::exportDidInsertNothing, m_flow,
            [this](const QString&, const QString& reason) { m_nothingInserted.append(reason); });
        QObject::connect(
            m_flow, &ZLExportFlow::exportDidFail, m_flow, [this](const QString& reason) { m_failures.append(reason); });
    }

    void type(const QString& path)
    {
        auto* edit = m_flow->dialog()->findChild<QLineEdit*>(u"fileNameEdit"_s);
        ASSERT_NE(edit, nullptr);
        // As for a user: what is typed takes the place of the selected file only while the field has the keyboard.
        m_flow->dialog()->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(m_flow->dialog()));
        edit->setFocus();
        ASSERT_TRUE(edit->hasFocus());
        // Suggestions pop up in front of the button that is pressed next.
        edit->setCompleter(nullptr);
        edit->selectAll();
        QTest::keyClicks(edit, path);
    }

    void press(QDialogButtonBox::StandardButton button)
    {
        auto* buttons = m_flow->dialog()->findChild<QDialogButtonBox*>();
        ASSERT_NE(buttons, nullptr);
        ASSERT_NE(buttons->button(button), nullptr);
        buttons->button(button)->click();
    }

    void save(const QString& path)
    {
        type(path);
        press(QDialogButtonBox::Save);
        deleteFinished();
    }

    void open(const QString& path)
    {
        type(path);
        press(QDialogButtonBox::Open);
        deleteFinished();
    }

    [[nodiscard]] ZLExportAdviceView* adviceView() const { return m_flow->dialog()->findChild<ZLExportAdviceView*>(); }
    [[nodiscard]] QStringList advice() const { return adviceView() ? adviceView()->lines() : QStringList(); }

    static QMessageBox* shownAlert()
    {
        const auto widgets = QApplication::topLevelWidgets();
        for (QWidget* widget : widgets) {
            if (auto* box = qobject_cast<QMessageBox*>(widget); box && box->isVisible())
                return box;
        }
        return nullptr;
    }

    static void deleteFinished() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    QString at(const QString& name) const { return m_folder.filePath(name); }
    QByteArray contentsOf(const QString& name) const
    {
        const auto bytes = ZLBoundedFile::read(at(name), ZLFileBound::Document);
        return bytes ? bytes.value() : "no file " + name.toUtf8();
    }
    QStringList filesInFolder() const
    {
        return QDir(m_folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    const QString m_previousFolder = QDir::currentPath();
    QTemporaryDir m_folder;
    const std::shared_ptr<ZLFakeHostClock> m_hostClock = std::make_shared<ZLFakeHostClock>();
    std::unique_ptr<ZLChapterDocument> m_document =
        std::make_unique<ZLChapterDocument>(ZLDocumentEnvironment { .hostClock = m_hostClock });
    QPointer<ZLExportFlow> m_flow;
    QStringList m_written;
    QStringList m_nothingInserted;
    QStringList m_failures;
    QStringList m_opened;
};
