#pragma once

#include "document/ZLChapterDocument.h"
#include "support/ZLChapterBuilders.h"
#include "support/ZLFakeHostClock.h"
#include "support/ZLFakeSound.h"
#include "support/ZLRecordingNotificationCenter.h"
#include "support/ZLTemporarySettings.h"

#include <QPointer>
#include <QTimeZone>
#include <gtest/gtest.h>

#include <optional>

/// A document without a window, with everything around it in the hands of the test: both clocks, the keyboard, the
/// sound and the notifications. No chapter is created by itself until a test asks for that.
class ZLDocumentFixture : public testing::Test {
protected:
    ZLDocumentFixture() { ZLSettingsManager::setCreateNewChapterOnStart(false); }

    [[nodiscard]] ZLDocumentEnvironment environment()
    {
        return {
            .hostClock = m_hostClock,
            .bootClock = m_bootClock,
            .wallClock = [this] { return m_wallClock; },
            .isApplicationActive = [this] { return m_isApplicationActive; },
            .isOptionKeyHeld = [this] { return m_isOptionKeyHeld; },
            .isCommandFromOutside = [this] { return m_isCommandFromOutside; },
            .pressUnderWay = [this] { return m_press; },
            .soundNamed = [this](const QString& name) { return makeSound(name); },
            .notificationCenter = m_notificationCenter,
        };
    }

    void advance(double seconds)
    {
        m_hostClock->advance(seconds);
        m_bootClock->advance(seconds);
        m_wallClock = m_wallClock.addMSecs(qint64(seconds * 1000.0));
    }

    /// Starts the clock, lets `seconds` pass and stops it.
    void record(double seconds)
    {
        m_document.recordButtonPressed();
        advance(seconds);
        m_document.recordButtonPressed();
    }

    ZLChapterPointer addChapterAt(double seconds, const QString& title = QStringLiteral(""))
    {
        const auto chapter = ZLTestChapters::chapterAt(seconds, title);
        m_document.addChapter(chapter);
        return chapter;
    }

    ZLChapterPointer addTemplate(const QString& title, double seconds = 0.0)
    {
        const auto chapter = ZLTestChapters::chapterAt(seconds, title);
        templates().addChapter(chapter);
        return chapter;
    }

    void select(int row)
    {
        m_document.selectionModel().setCurrentIndex(
            m_document.tableModel().index(row, 0), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    }

    [[nodiscard]] ZLChapterManager& chapters() { return m_document.chapterManager(); }
    [[nodiscard]] ZLChapterManager& templates() { return m_document.templateViewController().chapterManager(); }
    [[nodiscard]] ZLUndoManager& history() { return m_document.undoManager(); }
    [[nodiscard]] QStringList titles() { return ZLTestChapters::titles(chapters().allChapters()); }
    [[nodiscard]] QList<double> times() { return ZLTestChapters::times(chapters().allChapters()); }

    ZLTemporarySettings m_settings;
    std::shared_ptr<ZLFakeHostClock> m_hostClock = std::make_shared<ZLFakeHostClock>();
    std::shared_ptr<ZLFakeHostClock> m_bootClock = std::make_shared<ZLFakeHostClock>();
    QDateTime m_wallClock { QDate(2024, 5, 1), QTime(14, 3, 7, 250), QTimeZone::utc() };
    bool m_isApplicationActive = false;
    bool m_isOptionKeyHeld = false;
    bool m_isCommandFromOutside = false;
    std::shared_ptr<ZLRecordingNotificationCenter> m_notificationCenter =
        std::make_shared<ZLRecordingNotificationCenter>();
    /// Of the command that the test gives next.
    std::optional<ZLPressStamp> m_press;
    /// The latest sound that the document asked for, and the names of all of them.
    QPointer<ZLFakeSound> m_sound;
    QStringList m_soundNames;
    ZLChapterDocument m_document { environment() };

private:
    std::unique_ptr<ZLSound> makeSound(const QString& name)
    {
        auto sound = std::make_unique<ZLFakeSound>();
        m_sound = sound.get();
        m_soundNames.append(name);
        return sound;
    }
};
