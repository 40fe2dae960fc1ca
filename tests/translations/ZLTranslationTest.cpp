#include "resources/translations/ZLTranslation.h"

#include "app/ZLCommandLine.h"
#include "export/ZLExporter.h"
#include "export/formats/ZLRegisterExporters.h"
#include "settings/ui/ZLAboutViewController.h"
#include "translations/ZLTranslationFile.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// A text of the program that differs in German.
QString titleOfFileMenu()
{
    return QCoreApplication::translate("ZLFileMenu", "&File");
}

/// A text of the toolkit that differs in German.
QString toolkitsCancel()
{
    return QCoreApplication::translate("QPlatformTheme", "Cancel");
}

}

TEST(ZLTranslationTest, GermanIsSpokenToWhoeverWantsIt)
{
    for (const QString& language : { u"de"_s, u"de-DE"_s, u"de-AT"_s, u"de_CH"_s }) {
        const ZLTranslation translation({ language });
        EXPECT_EQ(titleOfFileMenu(), u"&Datei"_s) << qPrintable(language);
    }
}

TEST(ZLTranslationTest, TheToolkitSpeaksTheSameLanguage)
{
    const ZLTranslation translation({ u"de-DE"_s });
    EXPECT_EQ(toolkitsCancel(), u"Abbrechen"_s);
}

TEST(ZLTranslationTest, TheFirstLanguageThatIsSpokenCounts)
{
    {
        const ZLTranslation translation({ u"fr-FR"_s, u"fr"_s, u"de"_s });
        EXPECT_EQ(titleOfFileMenu(), u"&Datei"_s);
    }
    const ZLTranslation translation({ u"en-US"_s, u"en"_s, u"de"_s });
    EXPECT_EQ(titleOfFileMenu(), u"&File"_s);
    EXPECT_EQ(toolkitsCancel(), u"Cancel"_s);
}

TEST(ZLTranslationTest, WithoutALanguageThatIsSpokenEverythingIsEnglish)
{
    for (const QStringList& languages : { QStringList(), { u"C"_s }, { u"fr-FR"_s, u"fr"_s }, { u""_s } }) {
        const ZLTranslation translation(languages);
        EXPECT_EQ(titleOfFileMenu(), u"&File"_s);
        EXPECT_EQ(toolkitsCancel(), u"Cancel"_s);
    }
}

TEST(ZLTranslationTest, TheTextsAreEnglishAgainWhenItEnds)
{
    {
        const ZLTranslation translation({ u"de"_s });
    }
    EXPECT_EQ(titleOfFileMenu(), u"&File"_s);
}

TEST(ZLTranslationTest, EveryTextOfTheFileIsFoundByTheProgram)
{
    const auto messages = ZLTranslationFile::messages();
    ASSERT_GT(messages.size(), 400);
    const ZLTranslation translation({ u"de"_s });
    for (const auto& message : messages) {
        EXPECT_EQ(QCoreApplication::translate(message.context.toUtf8(), message.source.toUtf8()), message.translation);
    }
}

TEST(ZLTranslationTest, TheCommandLineSpeaksGermanAboutEnglishCommands)
{
    const ZLTranslation translation({ u"de"_s });
    EXPECT_TRUE(ZLCommandLine::helpText().startsWith(u"Aufruf:\n"_s));
    for (const QString& command : { u"zelta send"_s, u"zelta formats"_s, u"zelta export --format"_s, u"newChapter"_s })
        EXPECT_TRUE(ZLCommandLine::helpText().contains(command)) << qPrintable(command);
    const auto refused = ZLCommandLine::parse({ u"zelta"_s, u"show"_s });
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.error().message, u"„show“ braucht genau eine Datei."_s);
}

TEST(ZLTranslationTest, FormatsKeepTheirNamesForTheCommandLineAndAreShownInGerman)
{
    const ZLTranslation translation({ u"de"_s });
    ZLRegisterExporters();
    QStringList names;
    QStringList shownNames;
    for (const ZLExporterClass& exporter : ZLExporter::allExporters()) {
        names.append(exporter.format().name);
        shownNames.append(exporter.format().shownName());
    }
    EXPECT_TRUE(names.contains(u"Titles as Tags"_s));
    EXPECT_TRUE(shownNames.contains(u"Titel als Tags"_s));
    EXPECT_TRUE(shownNames.contains(u"Podlove Simple Chapters"_s));
}

TEST(ZLTranslationTest, TheCreditsAreThereInGerman)
{
    const ZLTranslation translation({ u"de"_s });
    const ZLAboutViewController pane({ u"1.0"_s, u"1"_s });
    QFile credits(ZLAboutViewController::standardCreditsPath());
    ASSERT_TRUE(credits.open(QIODevice::ReadOnly));
    EXPECT_TRUE(QString::fromUtf8(credits.readAll()).contains(u"<h3>Dank</h3>"_s));
}
