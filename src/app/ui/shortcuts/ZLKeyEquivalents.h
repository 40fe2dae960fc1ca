#pragma once

#include "app/ZLCommandKeys.h"

#include <QList>
#include <QObject>
#include <QPointer>

class QAction;
class QWidget;
class ZLChapterDocumentWindow;
class ZLDocumentController;

/// Lets the keys of the six recording and chapter commands work wherever the program has the keyboard, also in a dialog
/// and in a window that belongs to no document: there they act on the current document or else the first one. An alert
/// has its keys to itself. A command whose keys contain Alt is carried out as with Alt held.
class ZLKeyEquivalents : public QObject {
    Q_OBJECT

public:
    /// Both have to outlive the object.
    ZLKeyEquivalents(ZLDocumentController& controller, ZLCommandKeys& keys, QObject* parent = nullptr);

    void addWindow(ZLChapterDocumentWindow& window);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// The keyboard is in `focused` now, which may be null.
    void followFocus(const QWidget* focused);
    void leaveOtherWindow();
    /// The keys may have another document to act on.
    void update();
    [[nodiscard]] static QList<QAction*> commandsOf(const ZLChapterDocumentWindow& window);

    ZLDocumentController& m_controller;
    ZLCommandKeys& m_keys;
    QList<QPointer<ZLChapterDocumentWindow>> m_windows;
    /// The window with the keyboard, when it is neither a document's nor an alert.
    QPointer<QWidget> m_otherWindow;
};
