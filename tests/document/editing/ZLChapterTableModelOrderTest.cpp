#include "document/editing/ZLChapterTableModel.h"

#include "support/ZLDocumentFixture.h"

#include <QAbstractItemModelTester>
#include <QIdentityProxyModel>
#include <QPersistentModelIndex>
#include <QSignalSpy>

#include <cmath>
#include <random>

using namespace Qt::StringLiterals;
using Model = ZLChapterTableModel;

namespace {

/// A view of its own on the model: it keeps the titles of all rows by following the signals alone.
class MirroredTitles {
public:
    explicit MirroredTitles(const QAbstractItemModel& model)
        : m_model(model)
    {
        const auto reread = [this](int first, int last) {
            for (int row = first; row <= last; ++row)
                m_titles[row] = titleAt(row);
        };
        QObject::connect(
            &model, &QAbstractItemModel::rowsInserted, &m_context, [this](const QModelIndex&, int first, int last) {
                for (int row = first; row <= last; ++row)
                    m_titles.insert(row, titleAt(row));
            });
        QObject::connect(&model, &QAbstractItemModel::rowsRemoved, &m_context,
            [this](const QModelIndex&, int first, int last) { m_titles.remove(first, last - first + 1); });
        QObject::connect(&model, &QAbstractItemModel::rowsMoved, &m_context,
            [this](const QModelIndex&, int first, int, const QModelIndex&, int destination) {
                m_titles.move(first, destination > first ? destination - 1 : destination);
            });
        QObject::connect(&model, &QAbstractItemModel::layoutChanged, &m_context,
            [this, reread] { reread(0, int(m_titles.size()) - 1); });
        QObject::connect(&model, &QAbstractItemModel::dataChanged, &m_context,
            [reread](const QModelIndex& topLeft, const QModelIndex& bottomRight) {
                if (topLeft.column() <= Model::TitleColumn && bottomRight.column() >= Model::TitleColumn)
                    reread(topLeft.row(), bottomRight.row());
            });
        QObject::connect(&model, &QAbstractItemModel::modelReset, &m_context, [this, reread] {
            m_titles.resize(m_model.rowCount());
            reread(0, int(m_titles.size()) - 1);
        });
    }

    [[nodiscard]] const QStringList& titles() const { return m_titles; }

private:
    [[nodiscard]] QString titleAt(int row) const { return m_model.index(row, Model::TitleColumn).data().toString(); }

    const QAbstractItemModel& m_model;
    QStringList m_titles;
    QObject m_context;
};

/// The model with titles in place of the row numbers: the tester expects the first cells of the neighbours to stay as
/// they are when a row comes or goes, and a row number is just what does not.
class WithoutRowNumbers final : public QIdentityProxyModel {
public:
    explicit WithoutRowNumbers(QAbstractItemModel& model) { setSourceModel(&model); }

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override
    {
        const bool isNumber = index.isValid() && index.column() == Model::NumberColumn;
        return QIdentityProxyModel::data(isNumber ? index.siblingAtColumn(Model::TitleColumn) : index, role);
    }
};

}

class ZLChapterTableModelOrderTest : public ZLDocumentFixture {
protected:
    struct Followed {
        ZLChapterPointer chapter;
        QPersistentModelIndex index;
    };

    qsizetype below(qsizetype bound) { return qsizetype(m_random() % quint32(bound)); }
    ZLChapterPointer anyChapter() { return chapters().chapterAtIndex(below(chapters().count())); }
    double anyTime() { return below(40) == 0 ? std::nan("") : double(below(30)) - 5.0; }

    void addOne() { follow(addChapterAt(anyTime(), QString::number(++m_made))); }

    void follow(const ZLChapterPointer& chapter)
    {
        const auto row = int(chapters().indexOfChapter(chapter).value());
        m_followed.append({ chapter, m_model.index(row, Model::TitleColumn) });
    }

    void performAnyOperation()
    {
        if (chapters().count() == 0)
            return addOne();
        switch (below(12)) {
        case 0:
        case 1:
        case 2:
            return addOne();
        case 3:
            return m_document.removeChapter(anyChapter());
        case 4:
            return m_document.deleteLastChapter();
        case 5:
            return m_document.updateChapterToTime(anyChapter(), anyTime());
        case 6:
            return m_document.moveChaptersByMilliseconds(float(below(8000)) - 4000.0F);
        case 7:
            return m_document.updateChapterToTitle(anyChapter(), QString::number(++m_made));
        case 8:
            return history().undo();
        case 9:
            return history().redo();
        case 10:
            return m_document.selectNextChapter();
        default:
            return m_document.updateChapterToEnabledState(anyChapter(), below(2) == 0);
        }
    }

    /// Indexes of chapters that left the list stay invalid, even when the chapter comes back later.
    void expectFollowedIndexesToFit()
    {
        for (const Followed& followed : std::as_const(m_followed)) {
            if (!followed.index.isValid())
                continue;
            ASSERT_EQ(chapters().indexOfChapter(followed.chapter), followed.index.row());
        }
        const auto hasLeft = [](const Followed& followed) { return !followed.index.isValid(); };
        m_followed.removeIf(hasLeft);
    }

    ZLChapterTableModel& m_model = m_document.tableModel();
    std::mt19937 m_random { 11 };
    int m_made = 0;
    QList<Followed> m_followed;
};

TEST_F(ZLChapterTableModelOrderTest, AThousandOperationsKeepEveryViewInStep)
{
    WithoutRowNumbers proxy(m_model);
    const QAbstractItemModelTester tester(&proxy, QAbstractItemModelTester::FailureReportingMode::Fatal);
    const MirroredTitles mirror(m_model);
    qsizetype followedMost = 0;
    for (int step = 0; step < 1000; ++step) {
        performAnyOperation();
        ASSERT_EQ(mirror.titles(), titles()) << "after step " << step;
        ASSERT_EQ(m_model.rowCount(), chapters().count());
        ASSERT_NO_FATAL_FAILURE(expectFollowedIndexesToFit()) << "after step " << step;
        ASSERT_EQ(m_document.selectedRow() >= 0, chapters().count() > 0) << "after step " << step;
        followedMost = std::max(followedMost, m_followed.size());
    }
    EXPECT_GT(followedMost, 10);
}

TEST_F(ZLChapterTableModelOrderTest, ReadingAndRevertingResetTheRows)
{
    WithoutRowNumbers proxy(m_model);
    const QAbstractItemModelTester tester(&proxy, QAbstractItemModelTester::FailureReportingMode::Fatal);
    const MirroredTitles mirror(m_model);
    addChapterAt(10.0, u"a"_s);
    addChapterAt(5.0, u"b"_s);
    const QByteArray bytes = m_document.dataOfType();
    addChapterAt(1.0, u"c"_s);
    ASSERT_TRUE(m_document.readFromData(bytes));
    EXPECT_EQ(mirror.titles(), QStringList({ u"b"_s, u"a"_s }));
    m_document.adoptContents({});
    EXPECT_TRUE(mirror.titles().isEmpty());
    history().undo();
    EXPECT_EQ(mirror.titles(), QStringList({ u"b"_s, u"a"_s }));
    EXPECT_EQ(m_document.selectedRow(), 0);
}

TEST_F(ZLChapterTableModelOrderTest, AnIndexFollowsItsChapterWhenItsTimeChanges)
{
    const auto first = addChapterAt(1.0);
    addChapterAt(2.0);
    const QPersistentModelIndex index(m_model.index(0, Model::LinkColumn));
    m_document.updateChapterToTime(first, 9.0);
    EXPECT_EQ(index.row(), 1);
    EXPECT_EQ(index.column(), int(Model::LinkColumn));
    history().undo();
    EXPECT_EQ(index.row(), 0);
}

TEST_F(ZLChapterTableModelOrderTest, ANewChapterRefreshesTheDurationBeforeItAndTheNumbersBehind)
{
    for (const double seconds : { 10.0, 20.0, 30.0 })
        addChapterAt(seconds);
    const QSignalSpy changes(&m_model, &QAbstractItemModel::dataChanged);
    chapters().addChapter(ZLTestChapters::chapterAt(25.0));
    ASSERT_EQ(changes.size(), 1);
    EXPECT_EQ(changes.first().at(0).toModelIndex(), m_model.index(1, Model::NumberColumn));
    EXPECT_EQ(changes.first().at(1).toModelIndex(), m_model.index(3, Model::DurationColumn));
}

TEST_F(ZLChapterTableModelOrderTest, ShowingManyRowsNeitherSortsNorCopiesTheList)
{
    ZLChapterSequence many;
    for (int number = 0; number < 10000; ++number)
        many.append(ZLTestChapters::chapterAt(double(10000 - number)));
    chapters().setChapters(many);
    chapters().sortChapters();
    const QSignalSpy reorders(&chapters(), &ZLChapterManager::willReorderChapters);
    const auto* const storage = chapters().chapters().constData();
    qsizetype length = 0;
    for (int row = 0; row < m_model.rowCount(); ++row) {
        for (int column = 0; column < Model::ColumnCount; ++column)
            length += m_model.index(row, column).data().toString().size();
    }
    EXPECT_GT(length, 10000 * 20);
    EXPECT_EQ(reorders.size(), 0);
    EXPECT_EQ(chapters().chapters().constData(), storage);
    EXPECT_EQ(chapters().allChapters().constData(), storage);
}

TEST_F(ZLChapterTableModelOrderTest, MovingManyChaptersSortsAtMostOnceAndRefreshesAFewTimes)
{
    ZLChapterSequence many;
    for (int number = 0; number < 1000; ++number)
        many.append(ZLTestChapters::chapterAt(double(number)));
    chapters().setChapters(many);
    const QSignalSpy refreshes(&m_model, &QAbstractItemModel::dataChanged);
    const QSignalSpy reorders(&chapters(), &ZLChapterManager::willReorderChapters);
    m_document.moveChaptersByMilliseconds(-500000.0F);
    EXPECT_LE(refreshes.size(), 2);
    EXPECT_EQ(reorders.size(), 0);
    EXPECT_FALSE(many.at(499)->isEnabled());
    EXPECT_TRUE(many.at(500)->isEnabled());
    history().undo();
    EXPECT_TRUE(many.at(0)->isEnabled());
    EXPECT_LE(refreshes.size(), 4);
}
