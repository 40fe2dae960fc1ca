#include "document/ui/ZLImportNews.h"

#include "document/ui/ZLStatusLine.h"
#include "templates/ZLTemplatesViewController.h"

ZLImportNews::ZLImportNews(ZLTemplatesViewController& templates, ZLStatusLine& statusLine, QObject* parent)
    : QObject(parent)
    , m_templates(templates)
    , m_statusLine(statusLine)
{
    connect(&templates, &ZLTemplatesViewController::didImport, this, &ZLImportNews::tellCount);
    connect(&templates, &ZLTemplatesViewController::didImportNothing, this, &ZLImportNews::tellNothing);
}

void ZLImportNews::tellCount(qsizetype count)
{
    m_statusLine.showPassingMessage(count == 1 ? tr("1 template imported") : tr("%1 templates imported").arg(count));
}

void ZLImportNews::tellNothing(const QStringList& plainTexts)
{
    const QString message = tr("No line begins with “- ”");
    const qsizetype count = ZLTemplatesViewController::countOfTopicLines(plainTexts);
    if (count == 0) {
        m_statusLine.showPassingMessage(message);
        return;
    }
    m_statusLine.showPassingMessage(message, count == 1 ? tr("Import the Line") : tr("Import the %1 Lines").arg(count),
        [this, plainTexts] { m_templates.importTopicLines(plainTexts); });
}
