#include "settings/ZLSettingsFile.h"

#include "platform/ZLAtomicFile.h"
#include "platform/ZLPrivateFolder.h"
#include "settings/ZLSettingsText.h"

#include <QDir>
#include <QFileInfo>
#include <QLoggingCategory>

#include <utility>

namespace {

Q_LOGGING_CATEGORY(settingsFileLog, "zelta.settings", QtInfoMsg)

bool isSectionLine(const QByteArray& line)
{
    return line.startsWith('[') && line.endsWith(']');
}

QByteArray sectionInLine(const QByteArray& line)
{
    return line.sliced(1).chopped(1).trimmed();
}

}

ZLSettingsFile::ZLSettingsFile(QString path, ZLFileLinks links)
    : m_path(std::move(path))
    , m_links(links)
{
    read();
}

void ZLSettingsFile::setValue(const QString& key, const QVariant& value)
{
    setValues({ { key, value } });
}

void ZLSettingsFile::setValues(const QVariantMap& values)
{
    read();
    for (auto value = values.cbegin(); value != values.cend(); ++value)
        putLine(value.key(), ZLSettingsText::keyName(value.key()) + '=' + ZLSettingsText::text(value.value()));
    write();
    // Also where nothing can be written.
    m_values.insert(values);
}

void ZLSettingsFile::remove(const QString& key)
{
    read();
    removeLines(key);
    write();
    m_values.remove(key);
}

void ZLSettingsFile::read()
{
    const ZLFoundFile found = ZLBoundedFile::find(m_path, ZLFileBound::List, m_links);
    const bool isUsable = found.finding == ZLFileFinding::Read || found.finding == ZLFileFinding::Missing;
    if (!isUsable && std::exchange(m_isUsable, false))
        qCWarning(settingsFileLog) << "the settings are not read:" << found.error.message;
    m_isUsable = isUsable;
    if (!m_isUsable)
        return;
    m_lines = found.bytes.split('\n');
    if (m_lines.constLast().isEmpty())
        m_lines.removeLast();
    readLines();
}

void ZLSettingsFile::readLines()
{
    m_values.clear();
    m_places.clear();
    QByteArray section;
    for (qsizetype first = 0; first < m_lines.size();) {
        qsizetype count = 1;
        QByteArray line = m_lines.at(first).trimmed();
        while (line.endsWith('\\') && !line.endsWith("\\\\") && first + count < m_lines.size())
            line = line.chopped(1) + m_lines.at(first + count++).trimmed();
        takeLine(first, count, line, section);
        first += count;
    }
}

void ZLSettingsFile::takeLine(qsizetype first, qsizetype count, const QByteArray& line, QByteArray& section)
{
    const qsizetype equals = line.indexOf('=');
    if (isSectionLine(line)) {
        section = sectionInLine(line);
    } else if (equals > 0 && !line.startsWith(';') && !line.startsWith('#')) {
        const QString key = ZLSettingsText::key(section, line.first(equals).trimmed());
        m_places.insert(key, { first, count });
        m_values.insert(key, ZLSettingsText::value(line.sliced(equals + 1).trimmed()));
    }
}

void ZLSettingsFile::putLine(const QString& key, const QByteArray& line)
{
    if (!m_isUsable)
        return;
    if (const auto place = m_places.constFind(key); place != m_places.cend()) {
        m_lines.remove(place->first, place->count);
        m_lines.insert(place->first, line);
    } else {
        m_lines.insert(endOfSection(ZLSettingsText::sectionName(key)), line);
    }
    readLines();
}

void ZLSettingsFile::removeLines(const QString& key)
{
    // A person may have written it twice.
    for (auto place = m_places.constFind(key); m_isUsable && place != m_places.cend();
        place = m_places.constFind(key)) {
        m_lines.remove(place->first, place->count);
        readLines();
    }
}

qsizetype ZLSettingsFile::endOfSection(const QByteArray& section)
{
    const QByteArray head = '[' + section + ']';
    qsizetype at = 0;
    while (at < m_lines.size() && m_lines.at(at).trimmed().compare(head, Qt::CaseInsensitive) != 0)
        ++at;
    if (at == m_lines.size()) {
        m_lines.append(head);
        return m_lines.size();
    }
    qsizetype end = at + 1;
    for (qsizetype next = end; next < m_lines.size() && !isSectionLine(m_lines.at(next).trimmed()); ++next) {
        if (!m_lines.at(next).trimmed().isEmpty())
            end = next + 1;
    }
    return end;
}

void ZLSettingsFile::write() const
{
    if (!m_isUsable)
        return;
    const QByteArray bytes = m_lines.isEmpty() ? QByteArray() : m_lines.join('\n') + '\n';
    ZLStatus written = ZLDone {};
    if (m_links == ZLFileLinks::Refuse) {
        (void)ZLPrivateFolder::prepare(QFileInfo(m_path).path());
        written = ZLAtomicFile::writeForOwner(m_path, bytes);
    } else {
        QDir().mkpath(QFileInfo(m_path).path());
        written = ZLAtomicFile::write(m_path, bytes);
    }
    if (!written)
        qCWarning(settingsFileLog) << "the settings are not written:" << written.error().message;
}
