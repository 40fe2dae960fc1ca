#pragma once

#include "document/ui/ZLWindowStateStore.h"
#include "following/ZLFollowing.h"

#include <QHash>
#include <QWidget>

#include <functional>

class QTableView;
class QVBoxLayout;
class ZLRecorderChoicePanel;

/// What the window is given.
struct ZLRecorderWindowSetup {
    /// Has to outlive the window.
    ZLFollowing& following;
    /// The document that would follow; null for none.
    std::function<ZLChapterDocument*()> currentDocument;
    ZLWindowStateStore stateStore = ZLWindowStateStore(standardStatePath());

    /// Beside that of the document windows.
    [[nodiscard]] static QString standardStatePath();
};

/// The window of the recorder: whom to follow, how it is reached, how it stands, and what happened.
class ZLRecorderWindow : public QWidget {
    Q_OBJECT

public:
    explicit ZLRecorderWindow(ZLRecorderWindowSetup setup);
    ~ZLRecorderWindow() override;

    /// Shows `panel` while recorders of this kind are chosen, and takes it over.
    void addSettings(const QString& word, QWidget* panel);

    /// Opens the window, or brings it to the front.
    void present();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    [[nodiscard]] QWidget* buildLog(ZLFollowingLog& log);
    void updateSettings();
    void restoreWindowState();
    void saveWindowState() const;

    ZLWindowStateStore m_stateStore;
    ZLRecorderChoicePanel* m_choice;
    QVBoxLayout* m_settings;
    QTableView* m_log = nullptr;
    /// By the word of their kind.
    QHash<QString, QWidget*> m_panels;
};
