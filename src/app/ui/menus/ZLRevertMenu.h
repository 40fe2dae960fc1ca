#pragma once

#include "app/ZLDocumentController.h"
#include "platform/ZLDiskWork.h"

#include <QMenu>

class ZLChapterDocumentWindow;

/// The former states of a window's document, newest first, as a submenu: "Today 14:03 — 12 chapters". Choosing one goes
/// back to it, which can be undone.
class ZLRevertMenu : public QMenu {
    Q_OBJECT

public:
    /// `controller` and `window` have to outlive the menu.
    ZLRevertMenu(ZLDocumentController& controller, ZLChapterDocumentWindow& window, QWidget* parent);

    /// Of a state, as seen on the day of `now`.
    [[nodiscard]] static QString textFor(const ZLDocumentState& state, const QDateTime& now);

private:
    void fill();
    void listStates(const QList<ZLDocumentState>& states);
    void addNothing();
    void addLine(const QString& text, const QString& name);
    void addState(const ZLDocumentState& state, qsizetype number);
    void revertTo(const ZLDocumentState& state);
    void showOutcome(const ZLStatus& reverted);

    ZLDocumentController& m_controller;
    ZLChapterDocumentWindow& m_window;
    /// Whether the states are whole is to be read in all of them, which takes its time.
    ZLDiskWork m_look;
};
