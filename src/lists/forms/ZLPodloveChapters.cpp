#include "lists/forms/ZLPodloveChapters.h"

#include "lists/ZLListText.h"
#include "lists/ZLListTime.h"
#include "lists/forms/ZLXmlChapters.h"

#include <QCoreApplication>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

struct PodloveTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLPodloveChapters)
};

bool isItem(QStringView name)
{
    return name == "item"_L1 || name == "entry"_L1;
}

/// Reads the lists of one document: the one that stands alone, or one for each item of a feed that has chapters.
class FeedReader {
public:
    explicit FeedReader(const QString& text)
        : m_reader(text)
    {
    }

    ZLResult<QList<ZLChapterList>> read()
    {
        for (auto tag = ZLXmlChapters::nextTag(m_reader); !m_reader.atEnd(); tag = ZLXmlChapters::nextTag(m_reader)) {
            if (tag == QXmlStreamReader::StartElement)
                enter();
            else
                leave();
        }
        if (m_reader.hasError())
            return ZLXmlChapters::error(m_reader);
        return std::move(m_lists);
    }

private:
    void enter()
    {
        const QStringView name = m_reader.name();
        if (isItem(name)) {
            m_item = ZLChapterList {};
            ++m_itemDepth;
        } else if (name == "title"_L1 && !m_parents.isEmpty() && isItem(m_parents.constLast())) {
            // The reader stands behind the element then.
            m_item.name = ZLXmlChapters::textOfElement(m_reader).simplified();
            return;
        } else if (name == "chapters"_L1) {
            m_hasChapters = true;
        } else if (name == "chapter"_L1 && m_hasChapters) {
            takeChapter();
        }
        m_parents.append(name.toString());
    }

    void leave()
    {
        if (!m_parents.isEmpty())
            m_parents.removeLast();
        const bool isEndOfItem = isItem(m_reader.name());
        if (isEndOfItem)
            --m_itemDepth;
        const bool isEndOfList = m_reader.name() == "chapters"_L1 && m_itemDepth == 0;
        if (!isEndOfItem && !isEndOfList)
            return;
        if (std::exchange(m_hasChapters, false))
            m_lists.append(m_item);
        m_item = ZLChapterList {};
    }

    void takeChapter()
    {
        const QXmlStreamAttributes attributes = m_reader.attributes();
        if (const auto start = ZLListTime::fromClock(attributes.value("start"_L1).trimmed(), 1))
            m_item.chapters.append(
                { *start, attributes.value("title"_L1).toString(), attributes.value("href"_L1).toString() });
        else
            ZLListText::noteUnknownLine(m_item, m_reader.lineNumber() - 1);
    }

    QXmlStreamReader m_reader;
    QList<ZLChapterList> m_lists;
    /// The item of a feed that the reader stands in, or the list that stands alone.
    ZLChapterList m_item;
    QStringList m_parents;
    int m_itemDepth = 0;
    bool m_hasChapters = false;
};

bool recognises(const ZLListSource& source)
{
    const QString& root = source.xmlRootName();
    return root == "chapters"_L1 || root == "rss"_L1 || root == "feed"_L1 || root == "item"_L1 || root == "entry"_L1;
}

ZLResult<QList<ZLChapterList>> read(const ZLListSource& source)
{
    auto lists = FeedReader(source.text()).read();
    if (lists && lists.value().isEmpty())
        return ZLError { PodloveTexts::tr("No item of this feed holds chapters.") };
    return lists;
}

}

ZLListForm ZLPodloveChapters::form()
{
    return { .name = "Podlove Simple Chapters"_L1,
        .fileType = "psc"_L1,
        .unitsPerSecond = 1000.0,
        .limits = ZLListLimit::ControlCharacters,
        .recognises = recognises,
        .read = read,
        .write = nullptr };
}
