#pragma once

#include "document/ZLChapterNudge.h"

#include <QObject>

#include <functional>

class QAction;
class QKeySequence;
class QMenu;
class QWidget;
class ZLChapterDocument;

/// The items of the Edit menu that insert a chapter, move one a little and tidy titles.
class ZLChapterEditItems : public QObject {
    Q_OBJECT

public:
    /// `window` owns it; the dialog that asks for a time comes up over it.
    ZLChapterEditItems(QMenu& menu, ZLChapterDocument& document, QWidget& window);

Q_SIGNALS:
    /// What is being typed should be written before the command goes on.
    void typedTextShouldBeCommitted();
    /// Something that is worth a line.
    void hasNews(const QString& text);
    /// The keyboard has nothing to do in the dialog any more.
    void dialogDidClose();

private:
    QAction* addItem(QMenu& menu, const QString& name, const QString& title, const QKeySequence& key,
        const std::function<void()>& command);
    void addMoveItems(QMenu& menu);
    void validate();
    void showInsertDialog();
    void insertChapterAt(double seconds);
    void tidyTitles();

    ZLChapterDocument& m_document;
    QWidget& m_window;
    ZLChapterNudge m_nudge;
    QMenu* m_moveMenu = nullptr;
};
