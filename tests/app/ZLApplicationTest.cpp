#include "app/ZLApplication.h"

#include "export/ZLExporter.h"
#include "settings/ZLSettingsManager.h"
#include "support/ZLFakeHostClock.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

class ZLApplicationTest : public testing::Test {
protected:
    ZLApplicationTest() { ZLSettingsManager::useFile(m_folder.filePath(u"zelta.conf"_s)); }

    [[nodiscard]] ZLDocumentControllerSetup setup()
    {
        ZLDocumentControllerSetup result;
        result.environment.hostClock = std::make_shared<ZLFakeHostClock>();
        result.machinery.executor = [](const std::function<void()>& task) { task(); };
        result.stateFolder = m_folder.path();
        result.sessionExecutor = [](const std::function<void()>& task) { task(); };
        return result;
    }

    QTemporaryDir m_folder;
};

TEST_F(ZLApplicationTest, TheDefaultsOfTheSettingsAreThere)
{
    const ZLApplication application(setup(), 13.5F);
    EXPECT_EQ(ZLSettingsManager::fontSize(), 13.5F);
}

TEST_F(ZLApplicationTest, TheExportFormatsAreThere)
{
    const ZLApplication application(setup());
    QStringList names;
    for (const ZLExporterClass& exporter : ZLExporter::allExporters())
        names.append(exporter.format().name);
    EXPECT_TRUE(names.contains(u"Podlove Simple Chapters"_s));
}

TEST_F(ZLApplicationTest, ItDoesNotEndWhileAnyClockRuns)
{
    ZLApplication application(setup());
    EXPECT_TRUE(application.applicationShouldTerminate());
    application.documentController().newDocument();
    ZLChapterDocument* recording = application.documentController().newDocument();
    recording->recordButtonPressed();
    EXPECT_FALSE(application.applicationShouldTerminate());
    recording->recordButtonPressed();
    EXPECT_TRUE(application.applicationShouldTerminate());
}
