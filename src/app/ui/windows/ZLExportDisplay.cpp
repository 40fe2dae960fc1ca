#include "app/ui/windows/ZLExportDisplay.h"

#include "app/ui/menus/ZLExports.h"
#include "app/ui/windows/ZLDocumentWindows.h"
#include "document/ui/ZLChapterDocumentWindow.h"
#include "document/ui/ZLMessageBar.h"
#include "document/ui/ZLStatusLine.h"
#include "platform/filemanager/ZLFileManager.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

void openFolder(const QString& folder)
{
    QDesktopServices::openUrl(QUrl::fromLocalFile(folder));
}

}

ZLExportDisplay::ZLExportDisplay(ZLExports& exports, ZLDocumentWindows& windows)
    : m_windows(windows)
{
    connect(&exports, &ZLExports::exportDidFinish, this, &ZLExportDisplay::showFile);
    connect(&exports, &ZLExports::exportDidInsertNothing, this, &ZLExportDisplay::showThatNothingWasInserted);
    connect(&exports, &ZLExports::exportDidFail, this, &ZLExportDisplay::showFailure);
}

QString ZLExportDisplay::failureNameFor(const QString& format)
{
    return u"exportFailure "_s + format;
}

void ZLExportDisplay::showFile(ZLChapterDocument* document, const QString& format, const QString& path)
{
    ZLChapterDocumentWindow* window = m_windows.windowToTellIn(document);
    if (!window)
        return;
    const QString text = tr("Exported %1.").arg(QFileInfo(path).fileName());
    m_successes.insert(format, text);
    window->messageBar().hideMessage(failureNameFor(format));
    window->statusLine().showPassingMessage(
        text, tr("Show in Folder"), [path] { ZLFileManager::showFile(path, openFolder); });
}

void ZLExportDisplay::showFailure(ZLChapterDocument* document, const QString& format, const QString& message)
{
    warn(document, format, tr("The export failed. %1").arg(message));
}

void ZLExportDisplay::showThatNothingWasInserted(
    ZLChapterDocument* document, const QString& format, const QString& path, const QString& reason)
{
    warn(document, format, tr("No chapters were inserted into “%1”. %2").arg(QFileInfo(path).fileName(), reason));
}

void ZLExportDisplay::warn(ZLChapterDocument* document, const QString& format, const QString& sentence)
{
    const ZLChapterDocumentWindow& window = m_windows.windowToWarnIn(document);
    if (window.statusLine().passingMessage() == m_successes.value(format))
        window.statusLine().hidePassingMessage();
    window.messageBar().showMessage(
        failureNameFor(format), sentence, { { tr("Dismiss"), [] { } } }, {}, ZLMessageBar::Kind::Error);
}
