#include "export/lists/ZLListExporter.h"

#include "export/lists/ZLListAdvice.h"
#include "lists/forms/ZLListForms.h"
#include "lists/forms/ZLShowNotes.h"

#include <array>

namespace {

/// The names as a menu shows them.
[[maybe_unused]] constexpr std::array shownNames {
    QT_TRANSLATE_NOOP("ZLExportFormat", "Podcast Chapters"),
    QT_TRANSLATE_NOOP("ZLExportFormat", "Audacity Labels"),
    QT_TRANSLATE_NOOP("ZLExportFormat", "REAPER Markers"),
    QT_TRANSLATE_NOOP("ZLExportFormat", "Matroska Chapters"),
    QT_TRANSLATE_NOOP("ZLExportFormat", "WebVTT Chapters"),
    QT_TRANSLATE_NOOP("ZLExportFormat", "CUE Sheet"),
    QT_TRANSLATE_NOOP("ZLExportFormat", "Show Notes"),
};

ZLListToWrite listFor(const ZLExportInput& input)
{
    ZLListToWrite list { .fileBaseName = input.fileBaseName, .linePattern = input.linePattern };
    for (const ZLChapterPointer& chapter : input.chapters) {
        if (chapter->isEnabled())
            list.chapters.append({ chapter->timeStamp(), chapter->title(), chapter->link() });
    }
    if (input.duration > 0.0 && !input.isRecording)
        list.end = input.duration;
    return list;
}

ZLExporterClass classFor(const ZLListForm& form)
{
    ZLExportFormat format { .name = form.name, .dialogKind = ZLExportDialogKind::Save, .fileType = form.fileType };
    if (form.name == ZLShowNotes::form().name)
        format.usualLinePattern = ZLShowNotes::usualPattern();
    return ZLExporterClass::of(format, [form] { return std::make_unique<ZLListExporter>(form); });
}

}

ZLListExporter::ZLListExporter(ZLListForm form)
    : m_form(form)
{
}

QList<ZLExporterClass> ZLListExporter::allForms()
{
    QList<ZLExporterClass> classes;
    for (const ZLListForm& form : ZLListForms::written())
        classes.append(classFor(form));
    return classes;
}

ZLResult<QByteArray> ZLListExporter::exportedBytes(const ZLExportInput& input) const
{
    return ZLListForms::write(m_form, listFor(input));
}

QStringList ZLListExporter::advice(const ZLExportInput& input) const
{
    return ZLListAdvice::lines(m_form, input);
}
