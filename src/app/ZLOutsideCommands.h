#pragma once

#include "app/ZLCommandKeys.h"
#include "app/ZLDocumentController.h"
#include "commands/ZLRemoteActions.h"
#include "remote/ZLRemoteSource.h"

#include <QObject>

#include <optional>

/// Carries out the commands that come from outside the windows, and knows which document they reach: the one that they
/// are pinned to, as long as it is open, else the one that is current or was opened first.
class ZLOutsideCommands : public QObject {
    Q_OBJECT

public:
    /// Both have to outlive the object.
    ZLOutsideCommands(ZLDocumentController& controller, ZLCommandKeys& keys, QObject* parent = nullptr);

    /// Null when no document is open.
    [[nodiscard]] ZLChapterDocument* target() const;
    /// Null when they are pinned to none.
    [[nodiscard]] ZLChapterDocument* pinnedDocument() const { return m_pinned; }
    /// Null pins them to none.
    void pinTo(ZLChapterDocument* document);
    /// The documents that record while commands go to another one.
    [[nodiscard]] QList<ZLChapterDocument*> recordingBesideTarget() const;

    /// Does nothing without a document, or when `action` is none of the published constants.
    void perform(const QString& action, const ZLRemoteSource& source);
    [[nodiscard]] bool isCommandUnderWay() const { return m_isCommandUnderWay; }
    /// When the press came whose command is under way; absent when that is not known.
    [[nodiscard]] const std::optional<ZLPressStamp>& pressUnderWay() const { return m_pressUnderWay; }

Q_SIGNALS:
    /// The target may have changed, or the reason why it is the target.
    void targetDidChange();
    /// They were pinned, or let go.
    void pinDidChange();
    /// A command has added the chapter, which is selected now.
    void didAddChapter(ZLChapterDocument* document, const ZLRemoteSource& source);
    /// A command could do nothing with the document.
    void didNothing(ZLChapterDocument* document, const ZLRemoteAction& action, const ZLRemoteSource& source);

private:
    void forget(ZLChapterDocument* document);

    ZLDocumentController& m_controller;
    ZLCommandKeys& m_keys;
    ZLChapterDocument* m_pinned = nullptr;
    bool m_isCommandUnderWay = false;
    std::optional<ZLPressStamp> m_pressUnderWay;
};
