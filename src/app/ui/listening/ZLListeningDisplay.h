#pragma once

#include "document/listening/ZLShowListening.h"

#include <QList>
#include <QObject>
#include <QPointer>

class ZLChapterDocumentWindow;

/// Shows in every window whether listening along hears something, as the part "listening" of the status line, and has
/// the menu items that switch it. The first time it asks.
class ZLListeningDisplay : public QObject {
    Q_OBJECT

public:
    /// `shows` has to outlive the object. What was switched on in an earlier run is on again.
    explicit ZLListeningDisplay(ZLShowListening& shows, QObject* parent = nullptr);

    void addWindow(ZLChapterDocumentWindow& window);

private:
    void addListenMenu(ZLChapterDocumentWindow& window);
    void addRemoveItem(ZLChapterDocumentWindow& window);
    void switchTo(ZLChapterDocumentWindow& window, bool on);
    void askFirst(ZLChapterDocumentWindow& window);
    void begin();
    void choose(const QString& source);
    void showState();
    void showLevel();
    void showStateIn(const ZLChapterDocumentWindow& window) const;
    void tellTrouble();
    [[nodiscard]] QString stateText() const;
    [[nodiscard]] QString stateToolTip() const;

    ZLShowListening& m_shows;
    QList<QPointer<ZLChapterDocumentWindow>> m_windows;
    QString m_trouble;
    int m_bars = 0;
};
