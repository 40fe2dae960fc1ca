#pragma once

#include <QObject>

class QAction;
class QMenu;
class QMenuBar;
class ZLChapterDocument;

/// The Recording menu: the recording and chapter commands. Its first items are the rows of ZLRemoteActions and carry
/// their tags in the property "tag", and the menu's own action carries tag 2; stored shortcuts are applied to the items
/// by these tags.
class ZLRecordingMenu : public QObject {
    Q_OBJECT

public:
    ZLRecordingMenu(QMenuBar& menuBar, ZLChapterDocument& document);

    [[nodiscard]] QMenu* menu() const { return m_menu; }
    [[nodiscard]] QAction* editTitleItem() const { return m_editTitle; }
    [[nodiscard]] QAction* editLinkItem() const { return m_editLink; }
    /// Null for a tag that no row has.
    [[nodiscard]] QAction* actionWithTag(int tag) const;
    /// By the identifier of a row.
    [[nodiscard]] QAction* itemOf(const QString& action) const;
    /// Brings titles and enabled states up to date.
    void validate();

Q_SIGNALS:
    /// A command was chosen that needs the text being typed to be written first.
    void blankChapterRequested();
    void moveChaptersRequested();
    void editTitleRequested();
    void editLinkRequested();

private:
    void addTaggedActions();
    void addOtherActions();
    QAction* addAction(const QString& name, const QString& title, const QString& key);

    ZLChapterDocument& m_document;
    QMenu* m_menu;
    QAction* m_editTitle = nullptr;
    QAction* m_editLink = nullptr;
};
