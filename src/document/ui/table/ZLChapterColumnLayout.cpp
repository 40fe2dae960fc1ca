#include "document/ui/table/ZLChapterColumnLayout.h"

#include "document/editing/ZLChapterTableModel.h"
#include "settings/ZLSettingsManager.h"

#include <QHeaderView>
#include <QScopedValueRollback>
#include <QTableView>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr double titleShareAtFirst = 2.0 / 3.0;
constexpr double smallestTitleShare = 0.15;
constexpr double greatestTitleShare = 0.85;
constexpr int leastNumberDigits = 3;

}

ZLChapterColumnLayout::ZLChapterColumnLayout(QTableView& table)
    : QObject(&table)
    , m_table(table)
    , m_titleShare(titleShareAtFirst)
{
    QHeaderView* header = table.horizontalHeader();
    header->setSectionResizeMode(QHeaderView::Fixed);
    header->setSectionResizeMode(ZLChapterTableModel::TitleColumn, QHeaderView::Interactive);
    connect(header, &QHeaderView::sectionResized, this, &ZLChapterColumnLayout::sectionWasResized);
    const QAbstractItemModel* model = table.model();
    connect(model, &QAbstractItemModel::rowsInserted, this, &ZLChapterColumnLayout::growNumberColumn);
    connect(model, &QAbstractItemModel::modelReset, this, &ZLChapterColumnLayout::growNumberColumn);
    connect(&ZLSettingsManager::notifications(), &ZLSettingsNotifications::ZLShowAbsoluteTimeSettingDidChange, this,
        &ZLChapterColumnLayout::measureTexts);
    measureTexts();
}

void ZLChapterColumnLayout::setTitleShare(double share)
{
    m_titleShare = std::clamp(share, smallestTitleShare, greatestTitleShare);
    fillWidth();
}

void ZLChapterColumnLayout::measureTexts()
{
    const QString time = ZLSettingsManager::showAbsoluteTime() ? u"00:00:00.000 0000-00-00"_s : u"-00:00:00.000"_s;
    m_numberDigits = std::max<int>(leastNumberDigits, int(QString::number(m_table.model()->rowCount()).size()));
    {
        const QScopedValueRollback filling(m_isFilling, true);
        m_table.setColumnWidth(ZLChapterTableModel::NumberColumn,
            widthFor(ZLChapterTableModel::NumberColumn, QString(m_numberDigits, u'0')));
        m_table.setColumnWidth(ZLChapterTableModel::EnabledColumn,
            widthFor(ZLChapterTableModel::EnabledColumn, {})
                + m_table.style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, &m_table));
        m_table.setColumnWidth(ZLChapterTableModel::TimeColumn, widthFor(ZLChapterTableModel::TimeColumn, time));
        m_table.setColumnWidth(
            ZLChapterTableModel::DurationColumn, widthFor(ZLChapterTableModel::DurationColumn, u"00:00:00"_s));
    }
    fillWidth();
}

void ZLChapterColumnLayout::fillWidth()
{
    const QScopedValueRollback filling(m_isFilling, true);
    const int shared = sharedWidth();
    const int title = int(double(shared) * m_titleShare);
    m_table.setColumnWidth(ZLChapterTableModel::TitleColumn, title);
    m_table.setColumnWidth(ZLChapterTableModel::LinkColumn, shared - title);
}

int ZLChapterColumnLayout::widthFor(int column, const QString& sample) const
{
    const int margin = m_table.style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &m_table) + 1;
    const QString title = m_table.model()->headerData(column, Qt::Horizontal).toString();
    const QFontMetrics headerMetrics = m_table.horizontalHeader()->fontMetrics();
    const int headerMargin = m_table.style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, m_table.horizontalHeader());
    const int headerWidth = headerMetrics.horizontalAdvance(title) + 2 * headerMargin;
    // Room for two digits more keeps neighbouring columns of digits apart.
    const bool isTime = column == ZLChapterTableModel::TimeColumn || column == ZLChapterTableModel::DurationColumn;
    const int air = isTime ? 2 * m_table.fontMetrics().horizontalAdvance(u'0') : 0;
    return std::max(m_table.fontMetrics().horizontalAdvance(sample) + 2 * margin, headerWidth) + air;
}

void ZLChapterColumnLayout::growNumberColumn()
{
    if (QString::number(m_table.model()->rowCount()).size() > m_numberDigits)
        measureTexts();
}

void ZLChapterColumnLayout::sectionWasResized(int column, int oldWidth, int newWidth)
{
    Q_UNUSED(oldWidth);
    if (!m_isFilling && column == ZLChapterTableModel::TitleColumn && sharedWidth() > 0)
        setTitleShare(double(newWidth) / double(sharedWidth()));
}

int ZLChapterColumnLayout::sharedWidth() const
{
    int rest = m_table.viewport()->width();
    for (int column = 0; column < ZLChapterTableModel::TitleColumn; ++column)
        rest -= m_table.columnWidth(column);
    return std::max(rest, smallestSharedWidth());
}

int ZLChapterColumnLayout::smallestSharedWidth() const
{
    constexpr int characters = 16;
    return characters * m_table.fontMetrics().averageCharWidth();
}
