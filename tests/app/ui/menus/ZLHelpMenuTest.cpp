#include "app/ui/menus/ZLHelpMenu.h"

#include "app/ui/ZLDesktopFixture.h"
#include "app/ui/menus/ZLGuide.h"
#include "resources/translations/ZLTranslation.h"

#include <QDesktopServices>

using namespace Qt::StringLiterals;

/// Stands in for the desktop's programs.
class ZLOpenedAddresses : public QObject {
    Q_OBJECT

public:
    ZLOpenedAddresses() { QDesktopServices::setUrlHandler(u"file"_s, this, "note"); }
    ~ZLOpenedAddresses() override { QDesktopServices::unsetUrlHandler(u"file"_s); }

    Q_SLOT void note(const QUrl& address) { paths.append(address.toLocalFile()); }

    QStringList paths;
};

class ZLHelpMenuTest : public ZLDesktopFixture {
protected:
    QString guideNamed(const QString& folder, const QString& name)
    {
        EXPECT_TRUE(QDir(m_folder.path()).mkpath(folder));
        const QString path = filePath(folder + u'/' + name);
        EXPECT_TRUE(ZLAtomicFile::write(path, "text"));
        return path;
    }
};

TEST_F(ZLHelpMenuTest, TheGuideIsTheFirstThatThereIs)
{
    const QString page = guideNamed(u"second"_s, u"GUIDE.html"_s);
    guideNamed(u"third"_s, u"GUIDE.html"_s);
    const QStringList folders { filePath(u"first"_s), filePath(u"second"_s), filePath(u"third"_s) };
    EXPECT_EQ(ZLGuide::pathIn(folders), page);
    const QString installed = guideNamed(u"first"_s, u"GUIDE.html"_s);
    EXPECT_EQ(ZLGuide::pathIn(folders), installed);
    EXPECT_EQ(ZLGuide::pathIn({}), QString());
}

TEST_F(ZLHelpMenuTest, TheGuideIsInTheLanguageOfTheProgramWhereThereIsOne)
{
    const QString english = guideNamed(u"docs"_s, u"GUIDE.html"_s);
    const ZLTranslation german({ u"de-AT"_s });
    EXPECT_EQ(ZLGuide::pathIn({ filePath(u"docs"_s) }), english);
    const QString own = guideNamed(u"docs"_s, u"GUIDE.de.html"_s);
    EXPECT_EQ(ZLGuide::pathIn({ filePath(u"docs"_s) }), own);
}

TEST_F(ZLHelpMenuTest, TheGuideIsFoundBesideTheInstalledProgramAndBesideTheOneInItsBuildFolder)
{
    const QDir program(QCoreApplication::applicationDirPath());
    const QStringList folders = ZLGuide::standardFolders();
    EXPECT_EQ(folders.value(0), QDir::cleanPath(program.filePath(u"../share/doc/zelta"_s)));
    EXPECT_EQ(folders.value(1), QDir::cleanPath(program.filePath(u"../../docs"_s)));
}

TEST_F(ZLHelpMenuTest, TheGuideOpensInTheDesktopsProgram)
{
    const QByteArray dataFolder = filePath(u"data"_s).toLocal8Bit();
    const QByteArray previous = qgetenv("XDG_DATA_HOME");
    qputenv("XDG_DATA_HOME", dataFolder);
    guideNamed(u"data/doc/zelta"_s, u"GUIDE.html"_s);
    const ZLOpenedAddresses opened;
    trigger(newDocument(), u"openGuide"_s);
    ASSERT_EQ(opened.paths.size(), 1);
    EXPECT_EQ(opened.paths.first(), ZLGuide::pathIn(ZLGuide::standardFolders()));
    previous.isNull() ? qunsetenv("XDG_DATA_HOME") : qputenv("XDG_DATA_HOME", previous);
}

#include "ZLHelpMenuTest.moc"
