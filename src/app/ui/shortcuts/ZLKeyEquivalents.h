#pragma once

#include "app/ZLCommandKeys.h"

#include <QAction>
#include <QList>
#include <QObject>
#include <QPointer>

class QWidget;
class ZLChapterDocument;
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
    struct Commands {
        /// Only to be compared.
        const ZLChapterDocument* document = nullptr;
        QList<QPointer<QAction>> items {};
    };

    /// The keyboard is in `focused` now, which may be null.
    void followFocus(const QWidget* focused);
    void leaveOtherWindow();
    /// The keys may have another document to act on.
    void update();

    ZLDocumentController& m_controller;
    ZLCommandKeys& m_keys;
    /// One for each window. They are held one by one, since the keyboard also moves while a window goes.
    QList<Commands> m_commands;
    /// The window with the keyboard, when it is neither a document's nor an alert.
    QPointer<QWidget> m_otherWindow;
};
