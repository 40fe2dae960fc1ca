#pragma once

#include <QObject>
#include <QPointer>

class ZLApplication;
class ZLChapterDocumentWindow;
class ZLShortcutListWindow;

/// Shows the keys of all commands in one window, which follows what is recorded while it is open.
class ZLShortcutListDisplay : public QObject {
    Q_OBJECT

public:
    /// `application` has to outlive the object.
    explicit ZLShortcutListDisplay(ZLApplication& application, QObject* parent = nullptr);

    /// The keys of this window's menus and of the whole system, beside this window.
    void showFor(ZLChapterDocumentWindow* window);

Q_SIGNALS:
    /// Keys are to be recorded.
    void changeRequested();

private:
    void update();

    ZLApplication& m_application;
    QPointer<ZLChapterDocumentWindow> m_documentWindow;
    QPointer<ZLShortcutListWindow> m_window;
};
