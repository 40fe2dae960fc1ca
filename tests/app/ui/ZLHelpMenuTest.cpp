#include "app/ui/ZLHelpMenu.h"

#include "app/ui/ZLDesktopFixture.h"
#include "app/ui/ZLGuide.h"

#include <QDesktopServices>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>

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
    [[nodiscard]] QString keysText(ZLChapterDocument* document)
    {
        trigger(document, u"showKeys"_s);
        const auto* box = windowOf(document).findChild<QMessageBox*>(u"keysBox"_s);
        return box ? box->text() : QString();
    }
};

TEST_F(ZLHelpMenuTest, TheKeysOfAllCommandsAreListed)
{
    ZLChapterDocument* document = newDocument();
    const QString text = keysText(document);
    int keys = 0;
    for (const QAction* menu : windowOf(document).menuBar()->actions()) {
        for (const QAction* item : menu->menu()->actions()) {
            const QString key = item->shortcut().toString(QKeySequence::NativeText);
            keys += key.isEmpty() ? 0 : 1;
            EXPECT_TRUE(key.isEmpty() || text.contains(u"<b>%1</b>"_s.arg(key.toHtmlEscaped())))
                << qPrintable(item->text());
        }
    }
    EXPECT_GE(keys, 25);
}

TEST_F(ZLHelpMenuTest, TheKeysStandInTheOrderOfTheMenus)
{
    ZLChapterDocument* document = newDocument();
    const QString text = keysText(document);
    qsizetype last = -1;
    for (const auto& title : { u"File"_s, u"Edit"_s, u"Recording"_s, u"View"_s, u"Window"_s, u"Help"_s }) {
        const qsizetype place = text.indexOf(u"<u>%1</u>"_s.arg(title));
        EXPECT_GT(place, last) << qPrintable(title);
        last = place;
    }
}

TEST_F(ZLHelpMenuTest, AKeyIsListedUnderTheNameOfItsCommandAndNotOfTheNextStep)
{
    ZLChapterDocument* document = newDocument();
    addChapter(document, u"Mine"_s);
    EXPECT_TRUE(action(document, u"undo"_s)->text().contains("Create Chapter"_L1));
    const QString text = keysText(document);
    EXPECT_FALSE(text.contains("Create Chapter"_L1));
    EXPECT_TRUE(text.contains("<td><nobr>Undo</nobr>&nbsp;"_L1));
}

TEST_F(ZLHelpMenuTest, TheGuideIsTheFirstThatThereIs)
{
    const QString text = guideNamed(u"second"_s, u"GUIDE.md"_s);
    const QStringList folders { filePath(u"first"_s), filePath(u"second"_s), filePath(u"third"_s) };
    EXPECT_EQ(ZLGuide::pathIn(folders), text);
    const QString page = guideNamed(u"second"_s, u"GUIDE.html"_s);
    guideNamed(u"third"_s, u"GUIDE.html"_s);
    EXPECT_EQ(ZLGuide::pathIn(folders), page) << "the page rather than the text it is made from";
    const QString installed = guideNamed(u"first"_s, u"GUIDE.md"_s);
    EXPECT_EQ(ZLGuide::pathIn(folders), installed);
    EXPECT_EQ(ZLGuide::pathIn({}), QString());
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
