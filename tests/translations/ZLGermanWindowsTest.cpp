#include "app/ui/ZLDesktop.h"
#include "app/ui/ZLDesktopApplication.h"
#include "app/ui/ZLProgramRun.h"
#include "document/ZLChapterDocument.h"
#include "document/ui/ZLChapterDocumentWindow.h"
#include "document/ui/ZLDocumentToolbar.h"
#include "resources/translations/ZLTranslation.h"
#include "support/ZLChapterBuilders.h"
#include "support/ZLTemporarySettings.h"
#include "translations/ZLTranslationFile.h"

#include <QAbstractItemView>
#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMetaProperty>
#include <QRegularExpression>
#include <QTabBar>
#include <QTest>
#include <QToolButton>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// Texts that a person sees or hears; a style sheet and an object's name are none.
QStringList textsOf(const QObject& object)
{
    static const QStringList unseen { u"objectName"_s, u"styleSheet"_s, u"windowFilePath"_s, u"windowIconText"_s,
        u"inputMask"_s, u"displayText"_s };
    QStringList texts;
    const QMetaObject& type = *object.metaObject();
    for (int i = 0; i < type.propertyCount(); ++i) {
        const QMetaProperty property = type.property(i);
        if (property.typeId() == QMetaType::QString && !unseen.contains(QString::fromLatin1(property.name())))
            texts.append(property.read(&object).toString());
    }
    if (const auto* tabs = qobject_cast<const QTabBar*>(&object)) {
        for (int i = 0; i < tabs->count(); ++i)
            texts.append({ tabs->tabText(i), tabs->tabToolTip(i) });
    }
    if (const auto* box = qobject_cast<const QComboBox*>(&object)) {
        for (int i = 0; i < box->count(); ++i)
            texts.append(box->itemText(i));
    }
    if (const auto* view = qobject_cast<const QAbstractItemView*>(&object); view && view->model()) {
        for (int column = 0; column < view->model()->columnCount(); ++column) {
            for (const int role : { Qt::DisplayRole, Qt::ToolTipRole, Qt::AccessibleTextRole })
                texts.append(view->model()->headerData(column, Qt::Horizontal, role).toString());
        }
    }
    return texts;
}

/// Finds English texts that German ones should stand for.
class EnglishDetector {
public:
    EnglishDetector()
    {
        const auto messages = ZLTranslationFile::messages();
        QSet<QString> german;
        for (const auto& message : messages)
            german.insert(message.translation);
        for (const auto& message : messages) {
            if (message.translation == message.source || german.contains(message.source))
                continue;
            if (!message.source.contains(u'%'))
                m_texts.insert(message.source);
            else if (lettersOf(message.source) >= leastLetters)
                m_patterns.append(patternFor(message.source));
        }
    }

    [[nodiscard]] qsizetype size() const { return m_texts.size() + m_patterns.size(); }

    [[nodiscard]] bool finds(const QString& text) const
    {
        // A tool tip may end with the key, below or behind the text.
        for (const QString& part : text.split(QRegularExpression(u"\n| \\("_s))) {
            if (m_texts.contains(part))
                return true;
        }
        return m_texts.contains(text) || std::ranges::any_of(m_patterns, [&](const QRegularExpression& pattern) {
            return pattern.match(text).hasMatch();
        });
    }

private:
    static constexpr qsizetype leastLetters = 6;

    static qsizetype lettersOf(const QString& text)
    {
        return std::ranges::count_if(text, [](QChar character) { return character.isLetter(); });
    }
    static QRegularExpression patternFor(const QString& source)
    {
        static const QRegularExpression placeholder(u"%\\d"_s);
        QStringList parts = source.split(placeholder);
        for (QString& part : parts)
            part = QRegularExpression::escape(part);
        return QRegularExpression(
            QRegularExpression::anchoredPattern(parts.join(u".*"_s)), QRegularExpression::DotMatchesEverythingOption);
    }

    QSet<QString> m_texts;
    QList<QRegularExpression> m_patterns;
};

QChar mnemonicOf(QString text)
{
    const qsizetype mark = text.remove(u"&&"_s).indexOf(u'&');
    return mark < 0 || mark + 1 == text.size() ? QChar() : text.at(mark + 1).toLower();
}

void expectDistinctMnemonics(const QStringList& texts)
{
    QHash<QChar, QString> owners;
    for (const QString& text : texts) {
        const QChar letter = mnemonicOf(text);
        if (letter.isNull())
            continue;
        EXPECT_FALSE(owners.contains(letter)) << qPrintable(text + u" and "_s + owners.value(letter));
        owners.insert(letter, text);
    }
}

}

/// The whole program with its windows open, as a German desktop starts it.
class ZLGermanWindowsTest : public testing::Test {
protected:
    ZLGermanWindowsTest() { qputenv("XDG_STATE_HOME", m_folder.path().toLocal8Bit()); }
    ~ZLGermanWindowsTest() override { qputenv("XDG_STATE_HOME", m_previousState); }

    static void run(const std::function<void()>& step)
    {
        ZLDesktop desktop(*qobject_cast<ZLDesktopApplication*>(QCoreApplication::instance()));
        ZLProgramRun::run({ step }, [&] { return desktop.run({}); });
    }

    [[nodiscard]] static ZLChapterDocumentWindow& window()
    {
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (auto* found = qobject_cast<ZLChapterDocumentWindow*>(widget))
                return *found;
        }
        throw std::runtime_error("no window of a document");
    }
    static void trigger(const QString& name)
    {
        auto* action = window().findChild<QAction*>(name);
        ASSERT_NE(action, nullptr) << qPrintable(name);
        action->trigger();
    }
    static void openEverything()
    {
        window().document().addChapter(ZLTestChapters::titled(u"Begrüßung"_s));
        for (const QString& name : { u"openPreferences"_s, u"showOSCConnections"_s, u"showKeys"_s, u"moveChapters"_s })
            trigger(name);
        QCoreApplication::processEvents();
    }
    [[nodiscard]] static QStringList titlesOfMenus()
    {
        QStringList titles;
        for (const QAction* menu : window().menuBar()->actions())
            titles.append(menu->text());
        return titles;
    }
    /// In each menu, and in each window that can be seen.
    static void expectDistinctMnemonicsEverywhere()
    {
        openEverything();
        expectDistinctMnemonics(titlesOfMenus());
        for (const QMenu* menu : window().findChildren<QMenu*>()) {
            QStringList texts;
            for (const QAction* item : menu->actions())
                texts.append(item->text());
            expectDistinctMnemonics(texts);
        }
        for (const QWidget* top : QApplication::topLevelWidgets()) {
            QStringList texts;
            for (const QWidget* widget : top->findChildren<QWidget*>()) {
                const auto* label = qobject_cast<const QLabel*>(widget);
                if (widget->isVisible() && (qobject_cast<const QAbstractButton*>(widget) || (label && label->buddy())))
                    texts.append(widget->property("text").toString());
            }
            expectDistinctMnemonics(texts);
        }
    }
    /// By the names of the actions.
    [[nodiscard]] static QMap<QString, QString> shortcuts()
    {
        QMap<QString, QString> keys;
        for (const QAction* action : window().findChildren<QAction*>()) {
            if (!action->objectName().isEmpty())
                keys.insert(action->objectName(), QKeySequence::listToString(action->shortcuts()));
        }
        return keys;
    }

    const QByteArray m_previousState = qgetenv("XDG_STATE_HOME");
    ZLTemporarySettings m_settings;
    QTemporaryDir m_folder;
};

TEST_F(ZLGermanWindowsTest, TheMenusAreGerman)
{
    const ZLTranslation translation({ u"de-DE"_s });
    run([] {
        EXPECT_EQ(titlesOfMenus(),
            (QStringList { u"&Datei"_s, u"&Bearbeiten"_s, u"&Aufnahme"_s, u"A&nsicht"_s, u"&Fenster"_s, u"&Hilfe"_s }));
        EXPECT_EQ(window().toolbar().addButton()->text(), u"Neu"_s);
    });
}

TEST_F(ZLGermanWindowsTest, TheUndoHistoryIsGermanToo)
{
    const ZLTranslation translation({ u"de-DE"_s });
    run([] {
        window().document().addChapter(ZLTestChapters::titled(u"Begrüßung"_s));
        EXPECT_EQ(window().document().undoManager().undoActionName(), u"Create Chapter"_s);
        EXPECT_EQ(window().findChild<QAction*>(u"undo"_s)->text(), u"&Rückgängig: Kapitel anlegen"_s);
    });
}

TEST_F(ZLGermanWindowsTest, NoTextOfAnyWindowIsStillEnglish)
{
    const EnglishDetector english;
    ASSERT_GT(english.size(), 400);
    const ZLTranslation translation({ u"de-DE"_s });
    run([&] {
        openEverything();
        QList<QObject*> objects;
        for (QWidget* widget : QApplication::allWidgets()) {
            objects.append(widget);
            for (QAction* action : widget->actions())
                objects.append(action);
        }
        EXPECT_GT(objects.size(), 200);
        for (const QObject* object : std::as_const(objects)) {
            for (const QString& text : textsOf(*object))
                EXPECT_FALSE(english.finds(text)) << object->metaObject()->className() << ": " << qPrintable(text);
        }
    });
}

TEST_F(ZLGermanWindowsTest, EnglishWindowsHaveEnglishTexts)
{
    const EnglishDetector english;
    run([&] {
        openEverything();
        for (const QString& title : titlesOfMenus())
            EXPECT_TRUE(english.finds(title)) << qPrintable(title);
    });
}

TEST_F(ZLGermanWindowsTest, NoTwoGermanTextsShareAMnemonic)
{
    const ZLTranslation translation({ u"de-DE"_s });
    run(expectDistinctMnemonicsEverywhere);
}

TEST_F(ZLGermanWindowsTest, NoTwoEnglishTextsShareAMnemonic)
{
    run(expectDistinctMnemonicsEverywhere);
}

TEST_F(ZLGermanWindowsTest, ShortcutsAreTheSameInEveryLanguage)
{
    QMap<QString, QString> english;
    run([&] { english = shortcuts(); });
    const ZLTranslation translation({ u"de-DE"_s });
    run([&] { EXPECT_EQ(shortcuts(), english); });
    EXPECT_GT(english.size(), 30);
}

TEST_F(ZLGermanWindowsTest, NothingOfTheSmallestWindowIsCutOff)
{
    const ZLTranslation translation({ u"de-DE"_s });
    run([] {
        window().resize(640, 400);
        QCoreApplication::processEvents();
        for (const auto* button : window().toolbar().findChildren<QToolButton*>()) {
            if (!button->isVisible())
                continue;
            EXPECT_GE(button->width(), button->minimumSizeHint().width()) << qPrintable(button->text());
            EXPECT_TRUE(window().rect().contains(QRect(button->mapTo(&window(), QPoint()), button->size())));
        }
        if (const QByteArray folder = qgetenv("ZELTA_PICTURES"); !folder.isEmpty()) {
            openEverything();
            for (QWidget* widget : QApplication::topLevelWidgets()) {
                if (widget->isVisible())
                    widget->grab().save(QString::fromLocal8Bit(folder)
                        + u"/%1.png"_s.arg(QString::fromLatin1(widget->metaObject()->className())));
            }
        }
    });
}
