#include "templates/TemplatesFixture.h"

#include <QAbstractItemModelTester>
#include <QMimeData>
#include <QSignalSpy>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

const QString templatesDragType = u"ZLTableViewDataType"_s;

}

class ZLTemplatesTableModelTest : public TemplatesFixture {
protected:
    [[nodiscard]] std::unique_ptr<QMimeData> drag(const QList<int>& rows)
    {
        QModelIndexList indexes;
        for (const int row : rows)
            indexes << model.index(row, 0) << model.index(row, 1);
        return std::unique_ptr<QMimeData>(model.mimeData(indexes));
    }

    [[nodiscard]] bool canDrop(const QMimeData& data, int row, const QModelIndex& parent = {})
    {
        return model.canDropMimeData(&data, Qt::MoveAction, row, row < 0 ? -1 : 0, parent);
    }

    bool drop(const QMimeData& data, int row, const QModelIndex& parent = {})
    {
        return model.dropMimeData(&data, Qt::MoveAction, row, row < 0 ? -1 : 0, parent);
    }
};

TEST_F(ZLTemplatesTableModelTest, ShowsTitlesAndLinksUnderTheirHeadings)
{
    addTemplates({ u"News"_s });
    controller.chapterManager().chapterAtIndex(0)->setLink(u"example.com"_s);
    EXPECT_EQ(model.columnCount(), 2);
    EXPECT_EQ(model.headerData(0, Qt::Horizontal).toString(), u"Title"_s);
    EXPECT_EQ(model.headerData(1, Qt::Horizontal).toString(), u"Link"_s);
    EXPECT_EQ(model.index(0, 0).data().toString(), u"News"_s);
    EXPECT_EQ(model.index(0, 1).data(Qt::EditRole).toString(), u"example.com"_s);
    EXPECT_EQ(model.headerData(2, Qt::Horizontal).toString(), QString());
    EXPECT_FALSE(model.index(0, 2).isValid());
    EXPECT_FALSE(model.setData(model.index(0, 2), u"x"_s));
}

TEST_F(ZLTemplatesTableModelTest, ToolTipsShowTheWholeTextAndTakeNoMarkupFromIt)
{
    addTemplates({ u"<b>News</b>"_s, u""_s });
    EXPECT_EQ(model.index(0, 0).data(Qt::ToolTipRole).toString(), u"<span>&lt;b&gt;News&lt;/b&gt;</span>"_s);
    EXPECT_EQ(model.index(1, 0).data(Qt::ToolTipRole).toString(), QString());
}

TEST_F(ZLTemplatesTableModelTest, KeepsTheRulesOfItemModels)
{
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    addTemplates({ u"a"_s, u"b"_s, u"c"_s });
    controller.moveTemplate(0, 3);
    controller.removeChapterButtonPressed();
    controller.loadChapters({});
    controller.addChapterButtonPressed();
    EXPECT_EQ(model.rowCount(), 1);
}

TEST_F(ZLTemplatesTableModelTest, EveryCellCanBeEditedSelectedAndDraggedButNoneTakesADrop)
{
    addTemplates({ u"a"_s });
    for (const int column : { 0, 1 }) {
        const Qt::ItemFlags flags = model.flags(model.index(0, column));
        EXPECT_TRUE(flags.testFlag(Qt::ItemIsEditable));
        EXPECT_TRUE(flags.testFlag(Qt::ItemIsSelectable));
        EXPECT_TRUE(flags.testFlag(Qt::ItemIsDragEnabled));
        EXPECT_FALSE(flags.testFlag(Qt::ItemIsDropEnabled));
    }
    EXPECT_TRUE(model.flags({}).testFlag(Qt::ItemIsDropEnabled));
}

TEST_F(ZLTemplatesTableModelTest, EditingStoresTheTextAndAnnouncesIt)
{
    addTemplates({ u"a"_s, u"b"_s });
    const QSignalSpy edited(&model, &ZLTemplatesTableModel::didEditCell);
    const QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    EXPECT_TRUE(model.setData(model.index(1, 0), u"News"_s));
    EXPECT_TRUE(model.setData(model.index(1, 1), u"not a link"_s));
    EXPECT_EQ(controller.chapterManager().chapterAtIndex(1)->title(), u"News"_s);
    EXPECT_EQ(controller.chapterManager().chapterAtIndex(1)->link(), u"not a link"_s);
    EXPECT_EQ(titles(), (QStringList { u"a"_s, u"News"_s }));
    EXPECT_EQ(edited.count(), 2);
    EXPECT_EQ(changed.count(), 2);
}

TEST_F(ZLTemplatesTableModelTest, AnEditThatChangesNothingIsAnnouncedToNobody)
{
    addTemplates({ u"a"_s });
    const QSignalSpy edited(&model, &ZLTemplatesTableModel::didEditCell);
    EXPECT_TRUE(model.setData(model.index(0, 0), u"a"_s));
    EXPECT_FALSE(model.setData(model.index(0, 0), u"b"_s, Qt::DisplayRole));
    EXPECT_FALSE(model.setData({}, u"b"_s));
    EXPECT_EQ(edited.count(), 0);
    EXPECT_EQ(titles(), QStringList(u"a"_s));
}

TEST_F(ZLTemplatesTableModelTest, AnEmptiedTextIsStoredAsEmptyAndNotAsAbsent)
{
    controller.loadChapters({ QVariantMap { { u"Title"_s, u"News"_s } } });
    ASSERT_TRUE(controller.chapterManager().chapterAtIndex(0)->link().isNull());
    EXPECT_TRUE(model.setData(model.index(0, 0), QString()));
    EXPECT_TRUE(model.setData(model.index(0, 1), u""_s));
    const auto chapter = controller.chapterManager().chapterAtIndex(0);
    EXPECT_TRUE(chapter->title().isEmpty() && !chapter->title().isNull());
    EXPECT_TRUE(chapter->link().isEmpty() && !chapter->link().isNull());
}

TEST_F(ZLTemplatesTableModelTest, ADragCarriesThePrivateTypeOnlyAndGoesToAGap)
{
    addTemplates({ u"a"_s, u"b"_s, u"c"_s, u"d"_s });
    const QSignalSpy dropped(&model, &ZLTemplatesTableModel::didDropRow);
    const auto data = drag({ 0 });
    ASSERT_TRUE(data);
    EXPECT_EQ(data->formats(), QStringList(templatesDragType));
    EXPECT_EQ(model.mimeTypes(), QStringList(templatesDragType));
    EXPECT_EQ(model.supportedDropActions(), Qt::MoveAction);
    EXPECT_TRUE(canDrop(*data, 3));
    EXPECT_TRUE(drop(*data, 3));
    ASSERT_EQ(dropped.count(), 1);
    EXPECT_EQ(dropped.at(0).at(0).toInt(), 0);
    EXPECT_EQ(dropped.at(0).at(1).toInt(), 3);
    EXPECT_EQ(titles(), (QStringList { u"b"_s, u"c"_s, u"a"_s, u"d"_s }));
}

TEST_F(ZLTemplatesTableModelTest, OnlyTheFirstOfSeveralDraggedRowsMoves)
{
    addTemplates({ u"a"_s, u"b"_s, u"c"_s, u"d"_s });
    EXPECT_TRUE(drop(*drag({ 3, 1, 2 }), 0));
    EXPECT_EQ(titles(), (QStringList { u"b"_s, u"a"_s, u"c"_s, u"d"_s }));
}

TEST_F(ZLTemplatesTableModelTest, TheSpaceBelowTheRowsIsTheLastGap)
{
    addTemplates({ u"a"_s, u"b"_s, u"c"_s });
    EXPECT_TRUE(drop(*drag({ 0 }), -1));
    EXPECT_EQ(titles(), (QStringList { u"b"_s, u"c"_s, u"a"_s }));
}

TEST_F(ZLTemplatesTableModelTest, RefusesADropOntoARow)
{
    addTemplates({ u"a"_s, u"b"_s });
    const auto data = drag({ 0 });
    EXPECT_FALSE(canDrop(*data, -1, model.index(1, 0)));
    EXPECT_FALSE(drop(*data, -1, model.index(1, 0)));
    EXPECT_FALSE(drop(*data, 0, model.index(1, 0)));
    EXPECT_EQ(titles(), (QStringList { u"a"_s, u"b"_s }));
}

TEST_F(ZLTemplatesTableModelTest, RefusesWhatIsNoRowOfThisTable)
{
    addTemplates({ u"a"_s, u"b"_s });
    for (const auto& bytes : { ""_ba, "2"_ba, "-1"_ba, "x"_ba, "99999999999"_ba, " 1"_ba, "1,0"_ba }) {
        QMimeData data;
        data.setData(templatesDragType, bytes);
        EXPECT_FALSE(drop(data, 1)) << bytes.constData();
    }
    QMimeData text;
    text.setText(u"0"_s);
    EXPECT_FALSE(drop(text, 1));
    EXPECT_FALSE(canDrop(*drag({ 0 }), 3));
    EXPECT_FALSE(model.canDropMimeData(nullptr, Qt::MoveAction, 0, 0, {}));
    EXPECT_EQ(model.mimeData({}), nullptr);
    EXPECT_EQ(titles(), (QStringList { u"a"_s, u"b"_s }));
}
