#pragma once

#include <QMenu>

class ZLChapterDocument;
class ZLChapterTableView;

/// The menu of the selected chapter, which a right click or the menu key brings up over the chapter list. It begins
/// with commands of the menu bar.
class ZLChapterContextMenu : public QMenu {
    Q_OBJECT

public:
    ZLChapterContextMenu(ZLChapterDocument& document, ZLChapterTableView& tableView, const QList<QAction*>& commands);

private:
    [[nodiscard]] QString selectedLink() const;
    void showAt(const QPoint& place);
    void openLink();
    void copyLink();

    ZLChapterDocument& m_document;
    ZLChapterTableView& m_tableView;
    QAction* m_openLink = nullptr;
    QAction* m_copyLink = nullptr;
};
