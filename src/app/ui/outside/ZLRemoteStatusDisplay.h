#pragma once

#include <QList>
#include <QObject>
#include <QPointer>

class ZLApplication;
class ZLStatusLine;

/// Shows in the status line of every window on which port OSC messages are awaited and whether the system-wide
/// shortcuts work, as the parts "oscStatus" and "hotkeyStatus".
class ZLRemoteStatusDisplay : public QObject {
    Q_OBJECT

public:
    /// `application` has to outlive the object.
    explicit ZLRemoteStatusDisplay(ZLApplication& application, QObject* parent = nullptr);

    void addStatusLine(ZLStatusLine& statusLine);

private:
    void update();
    void updateOSC(ZLStatusLine& statusLine) const;
    void updateHotkeys(ZLStatusLine& statusLine) const;
    /// Why system-wide shortcuts do not work, a line each.
    [[nodiscard]] QString hotkeyProblems() const;

    ZLApplication& m_application;
    QList<QPointer<ZLStatusLine>> m_statusLines;
};
