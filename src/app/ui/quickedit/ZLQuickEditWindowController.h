#pragma once

#include "model/ZLChapter.h"
#include "platform/ZLOneShotTimer.h"

#include <QObject>
#include <QPointer>
#include <QRect>

#include <chrono>
#include <memory>

class QMainWindow;
class QPropertyAnimation;
class QWidget;
class ZLChapterDocument;

namespace Ui {
class ZLQuickEditWindowController;
}

/// A small panel that floats above the windows of other programs and takes a title for one chapter. It goes away by
/// itself unless the user begins to work in it.
///
/// It appears without the keyboard, so whatever is being typed elsewhere goes on. It is an ordinary window all the
/// same, not one that refuses the keyboard: with a click into it, or where takeKeyboard() was asked for, the window
/// manager hands the keyboard over, and from then on it stays until the user is done.
class ZLQuickEditWindowController : public QObject {
    Q_OBJECT
    Q_PROPERTY(double opacity READ opacity WRITE setOpacity)

public:
    /// How long the panel stays when it is not used.
    static constexpr std::chrono::milliseconds hideDelay { 5000 };
    static constexpr std::chrono::milliseconds fadeDuration { 100 };

    explicit ZLQuickEditWindowController(
        ZLOneShotTimerStarter startTimer = ZLStartSystemTimer, QObject* parent = nullptr);
    ~ZLQuickEditWindowController() override;

    /// To be set before show().
    void setChapter(const ZLChapterPointer& chapter) { m_chapter = chapter; }
    [[nodiscard]] const ZLChapterPointer& chapter() const { return m_chapter; }
    /// The document that holds the chapter; it may go while the panel is open.
    void setChapDoc(ZLChapterDocument* document);
    [[nodiscard]] ZLChapterDocument* chapDoc() const;

    /// What the panel must not cover; to be set before show().
    void setNeighbours(const QList<QRect>& neighbours) { m_neighbours = neighbours; }

    void show();
    /// Asks for the keyboard, since the user has pressed a button elsewhere that means this panel. The token is the one
    /// that came with the press. Where the desktop refuses, nothing changes.
    void takeKeyboard(const QString& activationToken);
    /// Brings the panel to the front. One that will go away by itself stays as long as if it had been shown just now.
    void renew();
    /// Fades the panel out and closes it then. A panel that is closed stays so.
    void close();
    void fadeIn();
    void fadeOut();
    void saveButtonPressed();
    void closeButtonPressed();

    [[nodiscard]] QWidget& window();
    /// Whether the panel will go away by itself.
    [[nodiscard]] bool hasHideTimer() const { return m_hideTimer != nullptr; }
    /// Whether it fades out.
    [[nodiscard]] bool isGoing() const;
    [[nodiscard]] double opacity() const { return m_opacity; }
    void setOpacity(double opacity);

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// The panel is gone, by itself or by the user.
    void didClose();

private:
    void connectParts();
    void startHideTimer();
    void windowDidLoad();
    void placeWindow();
    void controlTextDidChange(const QString& text);
    void windowDidBecomeKey();
    void fadeTo(double opacity);
    void fadeDidFinish();

    ZLOneShotTimerStarter m_startTimer;
    std::unique_ptr<QMainWindow> m_window;
    std::unique_ptr<Ui::ZLQuickEditWindowController> m_ui;
    QPropertyAnimation* m_fade;
    ZLChapterPointer m_chapter;
    QPointer<ZLChapterDocument> m_chapDoc;
    QList<QRect> m_neighbours;
    std::unique_ptr<ZLOneShotTimer> m_hideTimer;
    double m_opacity = 0.0;
};
