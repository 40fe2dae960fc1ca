#pragma once

#include "delivery/fit/ZLFitDraft.h"

#include <QFrame>
#include <QTimer>

class QLabel;
class QMenuBar;
class QProgressBar;
class QPushButton;
class QTreeView;
class ZLFitChoices;
class ZLFitMarksModel;
class ZLFitPicture;

/// Asks for a finished file and for the sound of the show, shows where each chapter is in the file, and puts the
/// chapters there. It is a part of the document's window, so that the clock stays in sight and marks keep coming.
/// Return goes one step on, Escape closes; while a fit is being made, Escape cancels it.
class ZLFitSheet : public QFrame {
    Q_OBJECT

public:
    /// `draft` has to outlive it. The letters of `menus` are left to them.
    ZLFitSheet(ZLFitDraft& draft, const QMenuBar& menus, QWidget* parent = nullptr);

    void setFolder(const QString& folder);
    void takeKeyboard();

Q_SIGNALS:
    /// The user is done with it.
    void wantsToClose();
    /// For the status line.
    void hasNews(const QString& text);
    /// Of the finished file, at this time in seconds.
    void playRequested(double time);
    void newDocumentRequested();
    void writingRequested();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QTreeView* makeList();
    QWidget* makeBody();
    QWidget* makeButtonRow();
    void setTexts(const QMenuBar& menus);
    void connectParts();
    void connectMarks();

    void update();
    void updateButtons();
    void updateProgress();
    void showOutcome();
    [[nodiscard]] QString outcome() const;
    void dismiss();
    void goOn();
    void start();
    void apply();
    void play();
    void selectMark(int index);
    [[nodiscard]] int selectedMark() const;
    [[nodiscard]] bool canPlay() const;

    ZLFitDraft& m_draft;
    ZLFitChoices* m_choices;
    QLabel* m_outcome;
    ZLFitPicture* m_picture;
    ZLFitMarksModel* m_marks;
    QTreeView* m_list;
    QPushButton* m_play;
    QProgressBar* m_progress;
    QPushButton* m_close;
    QPushButton* m_start;
    QPushButton* m_write;
    QPushButton* m_newDocument;
    QPushButton* m_apply;
    QTimer m_progressTimer;
    QString m_closeText;
    QString m_cancelText;
};
