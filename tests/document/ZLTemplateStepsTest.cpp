#include "document/ZLChapterDocumentCommandsFixture.h"

#include <QHash>
#include <QRandomGenerator>

#include <optional>
#include <vector>

using namespace Qt::StringLiterals;

/// Templates, "Next" and whatever else changes a document, in one undo history. A model beside the document keeps the
/// lists as they were before and after each step, and the texts as they were typed last.
class ZLTemplateStepsTest : public ZLChapterDocumentCommandsTest {
protected:
    struct Lists {
        QStringList chapters;
        QStringList templates;

        bool operator==(const Lists&) const = default;
    };
    struct TypedTitle {
        QString uuid;
        QString otherTitle;
    };
    struct Step {
        Lists before;
        Lists after;
        std::optional<TypedTitle> title;
    };

    [[nodiscard]] static QStringList uuidsOf(ZLChapterManager& manager)
    {
        QStringList uuids;
        for (const ZLChapterPointer& chapter : manager.allChapters())
            uuids.append(chapter->uuid());
        return uuids;
    }
    [[nodiscard]] Lists lists() { return { uuidsOf(chapters()), uuidsOf(templates()) }; }

    [[nodiscard]] ZLTemplatesViewController& drawer() { return m_document.templateViewController(); }
    [[nodiscard]] int below(qsizetype bound) { return int(m_random.bounded(int(bound))); }
    [[nodiscard]] QString newText() { return u"text %1"_s.arg(++m_texts); }

    /// Carries out what is one step when the lists changed and none otherwise.
    template <typename Command>
    void perform(Command command)
    {
        const Lists before = lists();
        command();
        if (lists() != before)
            remember({ before, lists(), std::nullopt });
    }

    void remember(const Step& step)
    {
        m_steps.resize(m_done);
        m_steps.push_back(step);
        ++m_done;
    }

    void typeTemplateTitle()
    {
        if (templates().count() == 0)
            return;
        const int row = below(templates().count());
        const QString text = newText();
        m_titles[templates().chapterAtIndex(row)->uuid()] = text;
        ASSERT_TRUE(drawer().tableModel().setData(drawer().tableModel().index(row, 0), text, Qt::EditRole));
    }

    void typeChapterTitle()
    {
        if (chapters().count() == 0)
            return;
        const ZLChapterPointer chapter = chapters().chapterAtIndex(below(chapters().count()));
        const QString text = newText();
        remember({ lists(), lists(), TypedTitle { chapter->uuid(), chapter->title() } });
        m_titles[chapter->uuid()] = text;
        m_document.updateChapterToTitle(chapter, text);
    }

    void adoptOtherLists()
    {
        perform([this] {
            advance(1.0);
            ZLChapterManager marks;
            marks.addChapter(ZLTestChapters::chapterAt(m_document.currentDuration(), newText()));
            ZLChapterManager prepared;
            prepared.addChapter(ZLTestChapters::titled(newText()));
            m_document.adoptContents({ marks.chaptersForSaving(), 0.0, prepared.chaptersForSaving() });
        });
    }

    void undo()
    {
        if (m_done == 0)
            return;
        history().undo();
        --m_done;
        exchangeTitle();
        EXPECT_EQ(lists(), m_steps.at(m_done).before);
    }

    void redo()
    {
        if (m_done == m_steps.size())
            return;
        history().redo();
        exchangeTitle();
        EXPECT_EQ(lists(), m_steps.at(m_done).after);
        ++m_done;
    }

    void exchangeTitle()
    {
        if (auto& title = m_steps.at(m_done).title)
            std::swap(m_titles[title->uuid], title->otherTitle);
    }

    void learnTitles()
    {
        for (ZLChapterManager* manager : { &chapters(), &templates() }) {
            for (const ZLChapterPointer& chapter : manager->allChapters()) {
                if (!m_titles.contains(chapter->uuid()))
                    m_titles[chapter->uuid()] = chapter->title();
                EXPECT_EQ(chapter->title(), m_titles.value(chapter->uuid()));
            }
        }
    }

    void performSomething()
    {
        switch (below(14)) {
        case 0:
            return perform([this] { drawer().addChapterButtonPressed(); });
        case 1:
            return perform([this] { drawer().removeChapterButtonPressed(); });
        case 2:
            return perform([this] { drawer().importFromPasteboard({ u"- %1\n- %2"_s.arg(newText(), newText()) }); });
        case 3:
            return drawer().importFromPasteboard({ u"nothing"_s });
        case 4:
            return perform([this] {
                const int count = int(templates().count());
                if (count > 0)
                    drawer().moveTemplate(below(count), below(count + 1));
            });
        case 5:
            return typeTemplateTitle();
        case 6:
        case 7:
            advance(1.0 + below(5));
            return perform([this] { m_document.addChapterButtonPressed(); });
        case 8:
            return perform([this] { m_document.deleteButtonPressed(); });
        case 9:
            return typeChapterTitle();
        case 10:
            return below(10) == 0 ? adoptOtherLists() : select(below(chapters().count() + 1));
        case 11:
            return redo();
        default:
            return undo();
        }
    }

    QRandomGenerator m_random;
    std::vector<Step> m_steps;
    std::size_t m_done = 0;
    QHash<QString, QString> m_titles;
    int m_texts = 0;
};

TEST_F(ZLTemplateStepsTest, LongChainsOfTemplatesMarksUndoAndRedoStayRight)
{
    for (quint32 seed = 1; seed <= 20 && !HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        m_random.seed(seed);
        if (!m_document.isRecording())
            m_document.startRecordingWithTime(m_hostClock->now());
        history().removeAllActions();
        m_steps.clear();
        m_done = 0;
        for (int command = 0; command < 500 && !HasFailure(); ++command) {
            SCOPED_TRACE(command);
            performSomething();
            learnTitles();
            EXPECT_EQ(history().canUndo(), m_done > 0);
            EXPECT_EQ(history().canRedo(), m_done < m_steps.size());
        }
        while (m_done > 0 && !HasFailure())
            undo();
        while (m_done < m_steps.size() && !HasFailure())
            redo();
        EXPECT_FALSE(history().canRedo());
    }
}

TEST_F(ZLTemplateStepsTest, UndoInTheDrawerLeavesTheClockAlone)
{
    addTemplate(u"News"_s);
    startAndAdvance(10.0);
    m_document.recordButtonPressed();
    drawer().removeChapterButtonPressed();
    expectUndoName(u"Remove Template"_s);
    history().undo();
    EXPECT_FALSE(m_document.isRecording());
    EXPECT_EQ(templates().count(), 1);
    expectRedoName(u"Remove Template"_s);
}

TEST_F(ZLTemplateStepsTest, ATemplateThatWasTakenBackKeepsTheTimeOfItsFirstMark)
{
    startAndAdvance(10.0);
    drawer().importFromPasteboard({ u"- Intro\n- News"_s });
    m_document.addChapterButtonPressed();
    history().undo();
    drawer().moveTemplate(0, 2);
    advance(5.0);
    m_document.addChapterButtonPressed();
    EXPECT_EQ(titles(), QStringList(u"News"_s));
    EXPECT_EQ(undoEverything(), 4) << "mark, move, import and the start of the clock";
    EXPECT_EQ(templates().count(), 0);
    while (history().canRedo())
        history().redo();
    EXPECT_EQ(titles(), QStringList(u"News"_s));
    EXPECT_EQ(times(), QList<double> { 15.0 });
    m_document.addChapterButtonPressed();
    EXPECT_EQ(times(), (QList<double> { 10.0, 15.0 }));
}
