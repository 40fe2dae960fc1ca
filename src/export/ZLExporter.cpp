#include "export/ZLExporter.h"

#include "export/ZLExporterRegistry.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

ZLExporterRegistry& processWideExporters()
{
    static ZLExporterRegistry registry;
    return registry;
}

QLatin1StringView predefinedEntityFor(QChar character)
{
    switch (character.unicode()) {
    case u'&':
        return "&amp;"_L1;
    case u'<':
        return "&lt;"_L1;
    case u'>':
        return "&gt;"_L1;
    case u'"':
        return "&quot;"_L1;
    case u'\'':
        return "&apos;"_L1;
    default:
        return {};
    }
}

QString withoutExtension(const QString& name)
{
    // A dot in front hides a file, it does not begin an extension.
    const qsizetype dot = name.lastIndexOf(u'.');
    return dot > 0 ? name.first(dot) : name;
}

}

ZLExporterClass::ZLExporterClass(std::type_index type, ZLExportFormat format, Create maker)
    : m_type(type)
    , m_format(std::move(format))
    , m_create(std::move(maker))
{
}

ZLExporterClass ZLExporterClass::of(ZLExportFormat format, Create maker)
{
    return { typeid(ZLExporter), std::move(format), std::move(maker) };
}

QString ZLExportFormat::shownName() const
{
    return QCoreApplication::translate("ZLExportFormat", name.toUtf8().constData());
}

QString ZLExportFormat::shownOptionTitle() const
{
    return QCoreApplication::translate("ZLExportFormat", optionTitle.toUtf8().constData());
}

std::optional<ZLExportAlert> ZLExporter::alertFor(const ZLExportInput&) const
{
    return std::nullopt;
}

ZLResult<QByteArray> ZLExporter::exportedBytes(const ZLExportInput&) const
{
    return ZLError { QCoreApplication::translate("ZLExporter", "This format writes no file.") };
}

QString ZLExporter::reasonNothingIsInserted(const ZLExportInput&) const
{
    return {};
}

QStringList ZLExporter::advice(const ZLExportInput&) const
{
    return {};
}

void ZLExporter::registerExporter(const ZLExporterClass& exporterClass)
{
    processWideExporters().registerExporter(exporterClass);
}

QList<ZLExporterClass> ZLExporter::allExporters()
{
    return processWideExporters().allExporters();
}

QString ZLExporter::xmlEncodeString(const QString& text)
{
    QString encoded;
    encoded.reserve(text.size());
    for (const QChar character : text) {
        const QLatin1StringView entity = predefinedEntityFor(character);
        if (entity.isEmpty())
            encoded += character;
        else
            encoded += entity;
    }
    return encoded;
}

QString ZLExporter::proposedFileName(const QString& displayName, const QString& fileType)
{
    // A name is proposed, never a path into some other folder.
    QString name = withoutExtension(QString(displayName).replace(u'/', u'-'));
    if (name.isEmpty())
        name = QCoreApplication::translate("ZLExporter", "Untitled");
    return u"%1.%2"_s.arg(name, fileType);
}

QString ZLExporter::fileBaseName(const QString& path)
{
    return withoutExtension(path.sliced(path.lastIndexOf(u'/') + 1));
}
