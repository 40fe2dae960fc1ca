#pragma once

#include "document/ui/ZLChapterDocumentWindow.h"
#include "document/ui/ZLDocumentToolbar.h"
#include "document/ui/ZLMessageBar.h"
#include "document/ui/ZLStatusLine.h"
#include "document/ui/menus/ZLEditMenu.h"
#include "document/ui/menus/ZLRecordingMenu.h"
#include "document/ui/menus/ZLViewMenu.h"
#include "document/ui/table/ZLChapterTableView.h"
#include "support/ZLDocumentFixture.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QToolButton>

/// A document in a window that has the keyboard. Chapters open for typing as they do for a user at the desk.
class ZLWindowFixture : public ZLDocumentFixture {
protected:
    ZLWindowFixture() { m_isApplicationActive = true; }

    void SetUp() override
    {
        m_window = makeWindow();
        m_window->show();
        m_window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
    }

    [[nodiscard]] std::unique_ptr<ZLChapterDocumentWindow> makeWindow()
    {
        return std::make_unique<ZLChapterDocumentWindow>(
            m_document, nullptr, ZLWindowStateStore(m_folder.filePath(QStringLiteral("window.ini"))));
    }

    [[nodiscard]] ZLChapterTableView& table() { return m_window->tableView(); }
    [[nodiscard]] ZLDocumentToolbar& bar() { return m_window->toolbar(); }

    [[nodiscard]] QModelIndex cell(int row, int column) { return m_document.tableModel().index(row, column); }
    [[nodiscard]] QModelIndex titleCell(int row) { return cell(row, ZLChapterTableModel::TitleColumn); }
    [[nodiscard]] QModelIndex timeCell(int row) { return cell(row, ZLChapterTableModel::TimeColumn); }
    [[nodiscard]] QString text(int row, int column) { return cell(row, column).data().toString(); }

    /// The field that has the keyboard, or null.
    [[nodiscard]] QLineEdit* field() { return qobject_cast<QLineEdit*>(QApplication::focusWidget()); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    void type(const QString& text) { QTest::keyClicks(QApplication::focusWidget(), text); }
    void editTo(const QModelIndex& index, const QString& text)
    {
        table().beginEditing(index);
        type(text);
        press(Qt::Key_Return);
    }

    [[nodiscard]] QAction* action(const QString& name) { return m_window->findChild<QAction*>(name); }
    void start()
    {
        m_document.recordButtonPressed();
        ASSERT_TRUE(m_document.isRecording());
    }

    QTemporaryDir m_folder;
    std::unique_ptr<ZLChapterDocumentWindow> m_window;
};
