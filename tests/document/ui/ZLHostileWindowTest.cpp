#include "document/ui/ZLWindowFixture.h"
#include "platform/archive/ZLKeyedArchiver.h"

#include <QAccessible>

#include <QTimeZone>
#include <limits>

using namespace Qt::StringLiterals;

/// Documents from anywhere, in a window that paints all that is in sight of them.
class ZLHostileWindowTest : public ZLWindowFixture {
protected:
    using Limits = std::numeric_limits<double>;

    static QVariantMap chapter(double seconds, const QString& title, const QString& link = u""_s)
    {
        return { { ZLChapterKey::TimeStamp, seconds }, { ZLChapterKey::Title, title }, { ZLChapterKey::Link, link },
            { ZLChapterKey::Tags, u""_s },
            { ZLChapterKey::Date, QDateTime::fromMSecsSinceEpoch(0, QTimeZone::utc()) } };
    }

    void read(const QVariantList& chapters, double duration = 0.0, const QVariantList& templates = {})
    {
        ASSERT_TRUE(m_document.readFromData(ZLKeyedArchiver::archivedData(
            QVariantMap { { u"Chapters"_s, chapters }, { u"Duration"_s, duration }, { u"Templates"_s, templates } })));
    }

    /// The window at its beginning and at its end, and what a screen reader asks for.
    void paintEverything()
    {
        table().scrollToTop();
        EXPECT_FALSE(m_window->grab().isNull());
        table().scrollToBottom();
        EXPECT_FALSE(m_window->grab().isNull());
        QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&table());
        ASSERT_TRUE(accessible && accessible->tableInterface());
        const int lastRow = m_document.tableModel().rowCount() - 1;
        for (int column = 0; column < m_document.tableModel().columnCount(); ++column)
            (void)accessible->tableInterface()->cellAt(lastRow, column)->text(QAccessible::Name);
    }
};

TEST_F(ZLHostileWindowTest, TimesThatAreNoTimesArePainted)
{
    const QList<double> times { Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity(), Limits::max(),
        Limits::lowest(), Limits::denorm_min(), 9.3e18, -9.3e18, -0.0 };
    QVariantList chapters;
    for (const double time : times)
        chapters.append(chapter(time, u"x"_s));
    for (const double duration : times) {
        read(chapters, duration, chapters);
        paintEverything();
    }
    for (const bool isAbsolute : { true, false }) {
        ZLSettingsManager::setShowAbsoluteTime(isAbsolute);
        paintEverything();
    }
    start();
    m_document.addChapterButtonPressed();
    paintEverything();
}

TEST_F(ZLHostileWindowTest, TextsThatAreNoTextsArePaintedAndStayUntouchedWhenTheirEditorIsLeft)
{
    const QStringList texts { u"a\0b"_s, QString(QChar(0xD800)) + u'x' + QChar(0xDC00), u"\u202E\uFFFE\uFEFF"_s,
        u"one\ntwo\u2028three\r\n\t\v"_s, QString(3000, QChar(0x0301)), u"<b>&amp;</b><img src='file:///x'>"_s };
    QVariantList chapters;
    for (const QString& text : texts)
        chapters.append(chapter(double(chapters.size()), text, text));
    read(chapters, 0.0, chapters);
    paintEverything();
    for (int row = 0; row < texts.size(); ++row) {
        table().beginEditing(titleCell(row));
        ASSERT_TRUE(field());
        press(Qt::Key_Return);
    }
    EXPECT_EQ(titles(), texts);
    EXPECT_FALSE(history().canUndo());
}

TEST_F(ZLHostileWindowTest, ALineShowsTheBeginningOfALongTextAndEditsAllOfIt)
{
    const QString text = QString(1999, u'x') + u"🎙"_s + QString(1000, u'y');
    read({ chapter(0.0, text, u"https://example.org/"_s + text) }, 0.0, { chapter(0.0, text) });
    const QModelIndex templateCell = m_document.templateViewController().tableModel().index(0, 0);
    for (const QModelIndex& shown : { titleCell(0), templateCell }) {
        EXPECT_EQ(shown.data().toString(), QString(1999, u'x') + u'…') << "not half of a character";
        EXPECT_EQ(shown.data(Qt::EditRole).toString(), text);
    }
    EXPECT_LT(cell(0, ZLChapterTableModel::LinkColumn).data(Qt::ToolTipRole).toString().size(), 2500);
    EXPECT_LT(templateCell.data(Qt::ToolTipRole).toString().size(), 2500);
}

TEST_F(ZLHostileWindowTest, TextsOfTenMegabytesArePaintedAndKept)
{
    const QString word = u"endless "_s;
    const QString text = word.repeated(10'000'000 / word.size());
    read({ chapter(0.0, text, text), chapter(1.0, QString(10'000'000, u'x')) }, 5.0, { chapter(0.0, text, text) });
    paintEverything();
    start();
    m_document.addChapterButtonPressed();
    EXPECT_EQ(chapters().lastChapter()->title(), text) << "from the template";
    paintEverything();
    table().beginEditing(titleCell(0));
    ASSERT_TRUE(field());
    paintEverything();
    press(Qt::Key_Return);
    EXPECT_EQ(chapters().chapterAtIndex(0)->title(), text) << "a field that takes less must not cut it off";
}

TEST_F(ZLHostileWindowTest, AHundredThousandChaptersArePaintedMarkedAndMoved)
{
    QVariantList many;
    for (int index = 100'000; index > 0; --index)
        many.append(chapter(index * 0.5, u"x"_s));
    read(many, 60'000.0);
    paintEverything();
    start();
    m_document.addChapterButtonPressed();
    EXPECT_EQ(table().model()->rowCount(), 100'001);
    EXPECT_EQ(m_document.selectedRow(), 100'000);
    m_document.moveChaptersByMilliseconds(-60'000.0F);
    paintEverything();
    history().undo();
    history().undo();
    EXPECT_EQ(table().model()->rowCount(), 100'000);
    paintEverything();
}
