#pragma once

#include <QAbstractItemModel>
#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>
#include <QTreeView>
#include <gtest/gtest.h>

/// A window for a sheet. Its menu has a letter, which the sheet has to leave to it.
class ZLSheetWindow : public QMainWindow {
public:
    ZLSheetWindow() { menuBar()->addMenu(QStringLiteral("&Window")); }
};

/// What a test of a sheet reaches by the names of its parts; a second base beside the fixture.
class ZLSheetParts {
protected:
    /// In a window that has the keyboard; `sheet` becomes the window's own.
    template <typename Sheet>
    void showSheet(ZLSheetWindow& window, Sheet* sheet)
    {
        m_shownSheet = sheet;
        window.setCentralWidget(sheet);
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        sheet->takeKeyboard();
    }

    template <typename Part>
    [[nodiscard]] Part* part(const QString& name) const
    {
        auto* found = m_shownSheet->findChild<Part*>(name);
        EXPECT_NE(found, nullptr) << qPrintable(name);
        return found;
    }
    [[nodiscard]] QPushButton* button(const QString& name) const { return part<QPushButton>(name); }
    /// What one column of a list shows, from top to bottom.
    [[nodiscard]] QStringList shownIn(const QString& list, int column) const
    {
        QStringList texts;
        const QAbstractItemModel* model = part<QTreeView>(list)->model();
        for (int row = 0; row < model->rowCount(); ++row)
            texts.append(model->index(row, column).data().toString());
        return texts;
    }

    /// Into what has the keyboard.
    static void press(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }

private:
    QWidget* m_shownSheet = nullptr;
};
