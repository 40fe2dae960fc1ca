#include "export/ZLExportAgain.h"

#include "document/saving/ZLWriteProtection.h"
#include "platform/ZLAtomicFile.h"
#include "platform/ZLBoundedFile.h"
#include "platform/ZLFileError.h"

#include <QFile>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

/// A lease for writing is given only for a file that is open nowhere else. Where there are no leases, it counts as so.
bool isOpenElsewhere(const QString& path)
{
    const int descriptor = open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0)
        return false;
    const bool isRefused = fcntl(descriptor, F_SETLEASE, F_WRLCK) != 0 && errno == EAGAIN;
    if (!isRefused)
        (void)fcntl(descriptor, F_SETLEASE, F_UNLCK);
    (void)close(descriptor);
    return isRefused;
}

}

ZLExportAgain::ZLExportAgain(const QList<ZLExportTarget>& targets, const QList<ZLExporterClass>& exporterClasses)
    : m_exporterClasses(exporterClasses)
{
    for (const ZLExportTarget& target : targets) {
        const ZLExporterClass* exporterClass = classOf(target);
        if (!exporterClass)
            continue;
        if (exporterClass->format().dialogKind == ZLExportDialogKind::Save)
            m_targets.append(target);
        else
            m_sessions.append(target.path);
    }
}

ZLExportAgain::Doubt ZLExportAgain::doubtAbout(const ZLExportTarget& target)
{
    const ZLFoundFile found = ZLBoundedFile::find(target.path, ZLFileBound::Document);
    if (found.finding == ZLFileFinding::Missing)
        return Doubt::Gone;
    if (found.finding != ZLFileFinding::Read)
        return Doubt::Unreadable;
    if (ZLExportTargets::digestOf(found.bytes) != target.digest)
        return Doubt::Changed;
    return isOpenElsewhere(target.path) ? Doubt::Open : Doubt::None;
}

ZLExportAgain::Outcome ZLExportAgain::write(const QList<ZLExportTarget>& targets, const ZLExportInput& input) const
{
    Outcome outcome;
    for (ZLExportTarget target : targets) {
        const auto written = writeOne(target, input);
        if (written) {
            target.digest = ZLExportTargets::digestOf(written.value());
            outcome.written.append(target);
        } else {
            outcome.problems.append(written.error().message);
        }
    }
    return outcome;
}

const ZLExporterClass* ZLExportAgain::classOf(const ZLExportTarget& target) const
{
    const auto found = std::ranges::find_if(
        m_exporterClasses, [&target](const ZLExporterClass& one) { return one.format().name == target.formatName; });
    return found == m_exporterClasses.cend() ? nullptr : &*found;
}

ZLResult<QByteArray> ZLExportAgain::writeOne(const ZLExportTarget& target, ZLExportInput input) const
{
    if (const ZLStatus allowed = ZLWriteProtection::check(target.path); !allowed)
        return allowed.error();
    input.option = target.option;
    input.linePattern = target.linePattern;
    input.fileBaseName = ZLExporter::fileBaseName(target.path);
    auto bytes = classOf(target)->create()->exportedBytes(input);
    if (!bytes)
        return ZLFileError::because(target.path, bytes.error().message);
    if (const ZLStatus written = ZLAtomicFile::write(target.path, bytes.value()); !written)
        return written.error();
    return bytes;
}
