#include "document/ui/ZLSaveFileDialog.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

class ZLSaveFileDialogTest : public testing::Test {
protected:
    void SetUp() override
    {
        m_dialog.setOption(QFileDialog::DontUseNativeDialog);
        m_dialog.setDirectory(m_folder.path());
        m_dialog.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_dialog));
        QObject::connect(
            &m_dialog, &QFileDialog::fileSelected, &m_dialog, [this](const QString& path) { m_selected = path; });
    }

    /// Types a name and presses Return.
    void enter(const QString& name)
    {
        auto* edit = m_dialog.findChild<QLineEdit*>(u"fileNameEdit"_s);
        ASSERT_NE(edit, nullptr);
        edit->setFocus();
        edit->setCompleter(nullptr);
        edit->selectAll();
        QTest::keyClicks(edit, name);
        static_cast<QDialog&>(m_dialog).accept();
    }

    [[nodiscard]] QString at(const QString& name) const { return m_folder.filePath(name); }

    QTemporaryDir m_folder;
    ZLSaveFileDialog m_dialog { nullptr, u"Save"_s, u"psc"_s };
    QString m_selected;
};

TEST_F(ZLSaveFileDialogTest, ANameGetsItsExtensionBehindAnyDot)
{
    enter(u"Episode 1.5"_s);
    EXPECT_EQ(m_selected, at(u"Episode 1.5.psc"_s));
}

TEST_F(ZLSaveFileDialogTest, AnExtensionInCapitalsIsOne)
{
    enter(u"Episode.PSC"_s);
    EXPECT_EQ(m_selected, at(u"Episode.PSC"_s));
}

TEST_F(ZLSaveFileDialogTest, AFolderThatIsTypedIsGoneInto)
{
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(u"shows"_s));
    enter(u"shows"_s);
    EXPECT_EQ(m_selected, QString());
    EXPECT_EQ(m_dialog.directory().path(), at(u"shows"_s));
    enter(u"one"_s);
    EXPECT_EQ(m_selected, at(u"shows/one.psc"_s));
}

TEST_F(ZLSaveFileDialogTest, TheQuestionIsAboutTheWholeName)
{
    ASSERT_TRUE(QFile(at(u"Episode 1.5.psc"_s)).open(QIODevice::WriteOnly));
    QString question;
    QTimer answering;
    QObject::connect(&answering, &QTimer::timeout, &answering, [&question] {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            question = box->text();
            box->button(QMessageBox::No)->click();
        }
    });
    answering.start(0);
    enter(u"Episode 1.5"_s);
    EXPECT_TRUE(question.contains("Episode 1.5.psc"_L1)) << qPrintable(question);
    EXPECT_EQ(m_selected, QString());
}
