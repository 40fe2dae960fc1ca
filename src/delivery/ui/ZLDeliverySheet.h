#pragma once

#include "delivery/ZLDeliveryDraft.h"

#include <QFrame>
#include <QTimer>

class QDoubleSpinBox;
class QLabel;
class QMenuBar;
class QProgressBar;
class QPushButton;
class QTreeView;
class QVBoxLayout;
class ZLDeliveryComparison;

/// Asks which audio files get the chapters of a document, shows what will be written, and writes. It is a part of the
/// document's window, so that clock and table stay in sight beside it and marks keep coming. Return writes, Escape
/// closes; while files are being written, Escape cancels.
class ZLDeliverySheet : public QFrame {
    Q_OBJECT

public:
    /// `draft` has to outlive it. The letters of `menus` are left to them.
    ZLDeliverySheet(ZLDeliveryDraft& draft, const QMenuBar& menus, QWidget* parent = nullptr);

    /// Where the dialog that asks for files starts while none is chosen.
    void setFolder(const QString& folder) { m_folder = folder; }
    void takeKeyboard();

Q_SIGNALS:
    /// The user is done with it.
    void wantsToClose();
    /// For the status line.
    void hasNews(const QString& text);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QWidget* makeBody();
    QVBoxLayout* makeChoices();
    QWidget* makeButtonRow();
    void setTexts(const QMenuBar& menus);
    void connectParts();

    void update();
    void chooseFiles();
    void dismiss();
    void write();
    void tellEnd();
    void importChapters();
    [[nodiscard]] ZLDeliveryTarget selectedTarget() const;

    ZLDeliveryDraft& m_draft;
    QTreeView* m_files;
    QPushButton* m_choose;
    QLabel* m_shiftLabel;
    QDoubleSpinBox* m_shift;
    ZLDeliveryComparison* m_comparison;
    QPushButton* m_import;
    QProgressBar* m_progress;
    QPushButton* m_close;
    QPushButton* m_write;
    QTimer m_progressTimer;
    QString m_closeText;
    QString m_cancelText;
    QString m_folder;
};
