#pragma once

#include "templates/ZLTemplatesViewController.h"

#include <gtest/gtest.h>

/// Counts what it is told, as a document that marks itself edited would.
class CountingTemplatesDelegate : public ZLTemplatesViewControllerDelegate {
public:
    void templatesViewControllerWillUpdateChapters(ZLTemplatesViewController& controller) override
    {
        EXPECT_EQ(announcedCount++, updateCount) << "before each change, once";
        lastController = &controller;
    }
    void templatesViewControllerDidUpdateChapters(ZLTemplatesViewController& controller) override
    {
        EXPECT_EQ(announcedCount, ++updateCount);
        lastController = &controller;
    }

    int announcedCount = 0;
    int updateCount = 0;
    ZLTemplatesViewController* lastController = nullptr;
};

/// A controller with a delegate that counts.
class TemplatesFixture : public testing::Test {
protected:
    void addTemplates(const QStringList& titles)
    {
        for (const QString& title : titles) {
            const auto chapter = std::make_shared<ZLChapter>();
            chapter->setTitle(title);
            controller.chapterManager().addChapter(chapter);
        }
    }

    [[nodiscard]] QStringList titles() { return textsInColumn(ZLTemplatesTableModel::TitleColumn); }
    [[nodiscard]] QStringList links() { return textsInColumn(ZLTemplatesTableModel::LinkColumn); }

    /// What the table shows, which is what the list holds.
    [[nodiscard]] QStringList textsInColumn(int column)
    {
        QStringList texts;
        for (int row = 0; row < model.rowCount(); ++row)
            texts.append(model.index(row, column).data().toString());
        return texts;
    }

    void select(int row)
    {
        controller.selectionModel().setCurrentIndex(
            model.index(row, 0), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    }

    CountingTemplatesDelegate delegate;
    ZLUndoManager history;
    ZLTemplatesViewController controller { &delegate, history };
    ZLTemplatesTableModel& model = controller.tableModel();
};
