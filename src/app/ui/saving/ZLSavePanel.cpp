#include "app/ui/saving/ZLSavePanel.h"

#include "document/ui/ZLChapterDocumentWindow.h"
#include "document/ui/ZLMessageBar.h"
#include "document/ui/ZLSaveFileDialog.h"
#include "document/ui/ZLStatusLine.h"

#include <QDir>
#include <QFileInfo>
#include <QPointer>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

ZLSavePanel::ZLSavePanel(ZLDocumentController& controller, ZLChapterDocumentWindow& window)
    : QObject(&window)
    , m_controller(controller)
    , m_window(window)
{
}

void ZLSavePanel::save()
{
    m_window.commitTypedText();
    ZLDocumentSaver* saver = m_controller.saverOf(&m_window.document());
    if (!saver || saver->isUntitled()) {
        saveAs();
        return;
    }
    saver->save([panel = QPointer(this), saver](const ZLStatus& saved) {
        if (panel && saved)
            panel->showSuccess(tr("Saved. Further changes are saved automatically."));
        // What the document's state already tells needs no second message.
        else if (panel && saver->state() == ZLSavingState::Saved)
            panel->showFailure(saved.error().message);
    });
}

void ZLSavePanel::saveAs(const std::function<void()>& whenSaved)
{
    m_window.commitTypedText();
    auto* dialog = new ZLSaveFileDialog(&m_window, tr("Save Chapters As"), ZLDocumentFile::Extension);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setObjectName(QStringLiteral("savePanel"));
    dialog->setNameFilter(tr("Chapter documents (*.%1)").arg(ZLDocumentFile::Extension));
    dialog->selectFile(proposedPath());
    connect(
        dialog, &QFileDialog::fileSelected, this, [this, whenSaved](const QString& path) { saveTo(path, whenSaved); });
    dialog->open();
}

QString ZLSavePanel::proposedPath() const
{
    const ZLDocumentSaver* saver = m_controller.saverOf(&m_window.document());
    if (saver && !saver->isUntitled())
        return saver->path();
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    return (folder.exists() ? folder : QDir::home()).filePath(m_window.document().displayName());
}

void ZLSavePanel::saveTo(const QString& path, const std::function<void()>& whenSaved)
{
    const QString target = ZLDocumentPlace::pathWithExtension(path);
    // The desktop's own dialog asked about the name as it was typed, which may not be that of the file.
    if (QFileInfo(target) != QFileInfo(path) && QFileInfo::exists(target))
        askWhetherToReplace(target, whenSaved);
    else
        writeTo(target, whenSaved);
}

void ZLSavePanel::askWhetherToReplace(const QString& path, const std::function<void()>& whenSaved)
{
    m_window.messageBar().showMessage(u"replaceFile"_s,
        tr("There is a file “%1” already. Replace it?").arg(QFileInfo(path).fileName()),
        { { tr("Replace"), [this, path, whenSaved] { writeTo(path, whenSaved); } },
            { tr("Save As…"), [this, whenSaved] { saveAs(whenSaved); } }, { tr("Cancel"), [] {} } });
}

void ZLSavePanel::writeTo(const QString& path, const std::function<void()>& whenSaved)
{
    const auto tell = [panel = QPointer(this), path, whenSaved](const ZLStatus& saved) {
        if (!panel)
            return;
        if (!saved) {
            panel->showFailure(saved.error().message);
            return;
        }
        panel->showSuccess(tr("Saved as %1.").arg(QFileInfo(path).fileName()));
        // It may close the document, whose saver is telling this.
        if (whenSaved)
            QMetaObject::invokeMethod(panel.data(), whenSaved, Qt::QueuedConnection);
    };
    m_controller.saveDocumentAs(&m_window.document(), path, tell);
}

void ZLSavePanel::showSuccess(const QString& message)
{
    m_window.messageBar().hideMessage(u"saveFailure"_s);
    m_window.statusLine().showPassingMessage(message);
    m_success = message;
}

void ZLSavePanel::showFailure(const QString& message)
{
    // What was true a moment ago is so no more.
    if (m_window.statusLine().passingMessage() == m_success)
        m_window.statusLine().hidePassingMessage();
    m_window.messageBar().showMessage(u"saveFailure"_s, tr("The document could not be saved. %1").arg(message),
        { { tr("Save As…"), [this] { saveAs(); } }, { tr("Dismiss"), [] {} } }, {}, ZLMessageBar::Kind::Error);
}
