#include "app/ui/ZLDesktopApplication.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QWidget>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

/// Notes what reaches it, and accepts keys only.
class NotingWidget final : public QWidget {
public:
    QStringList noted;

protected:
    bool event(QEvent* event) override
    {
        if (event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease) {
            const auto* key = static_cast<QKeyEvent*>(event);
            noted.append(
                u"key %1 %2 %3 %4"_s.arg(event->type()).arg(key->key()).arg(key->modifiers().toInt()).arg(key->text()));
            event->accept();
            return true;
        }
        if (const auto* mouse = dynamic_cast<QMouseEvent*>(event)) {
            noted.append(u"mouse %1 %2"_s.arg(event->type()).arg(mouse->modifiers().toInt()));
            event->ignore();
            return false;
        }
        return QWidget::event(event);
    }
};

namespace {

ZLDesktopApplication& application()
{
    return *qobject_cast<ZLDesktopApplication*>(QCoreApplication::instance());
}

}

class ZLDesktopApplicationTest : public testing::Test {
protected:
    bool sendKey(QEvent::Type type, int key, Qt::KeyboardModifiers modifiers, const QString& text = {})
    {
        QKeyEvent event(type, key, modifiers, text);
        const bool handled = QCoreApplication::sendEvent(&m_widget, &event);
        EXPECT_TRUE(event.isAccepted());
        return handled;
    }
    void TearDown() override { sendKey(QEvent::KeyRelease, Qt::Key_A, Qt::NoModifier); }

    NotingWidget m_widget;
    QSignalSpy m_changes { &application(), &ZLDesktopApplication::modifiersDidChange };
};

TEST_F(ZLDesktopApplicationTest, ModifierKeysAreDispatchedAndThenAnnounced)
{
    QStringList order;
    const QObject context;
    QObject::connect(&application(), &ZLDesktopApplication::modifiersDidChange, &context,
        [&] { order.append(u"announced after %1"_s.arg(m_widget.noted.size())); });
    EXPECT_TRUE(sendKey(QEvent::KeyPress, Qt::Key_Alt, Qt::NoModifier));
    EXPECT_TRUE(application().isOptionKeyHeld());
    EXPECT_TRUE(sendKey(QEvent::KeyRelease, Qt::Key_Alt, Qt::AltModifier));
    EXPECT_FALSE(application().isOptionKeyHeld());
    EXPECT_EQ(order, (QStringList { u"announced after 1"_s, u"announced after 2"_s }));
}

TEST_F(ZLDesktopApplicationTest, NoEventIsSwallowedOrChanged)
{
    EXPECT_TRUE(sendKey(QEvent::KeyPress, Qt::Key_Alt, Qt::NoModifier));
    EXPECT_TRUE(sendKey(QEvent::KeyPress, Qt::Key_A, Qt::AltModifier, u"a"_s));
    EXPECT_EQ(m_changes.size(), 1) << "a letter is no modifier";
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(1, 1), QPointF(1, 1), QPointF(1, 1), Qt::LeftButton,
        Qt::LeftButton, Qt::AltModifier);
    QCoreApplication::sendEvent(&m_widget, &press);
    EXPECT_FALSE(press.isAccepted());
    EXPECT_EQ(m_widget.noted,
        (QStringList { u"key %1 %2 %3 "_s.arg(QEvent::KeyPress).arg(Qt::Key_Alt).arg(uint(Qt::AltModifier)),
            u"key %1 %2 %3 a"_s.arg(QEvent::KeyPress).arg(Qt::Key_A).arg(uint(Qt::AltModifier)),
            u"mouse %1 %2"_s.arg(QEvent::MouseButtonPress).arg(uint(Qt::AltModifier)) }));
    EXPECT_EQ(m_changes.size(), 1);
}

TEST_F(ZLDesktopApplicationTest, AltIsKnownWhileTheClickIsHandled)
{
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(1, 1), QPointF(1, 1), QPointF(1, 1), Qt::LeftButton,
        Qt::LeftButton, Qt::AltModifier);
    EXPECT_FALSE(application().isOptionKeyHeld());
    QCoreApplication::sendEvent(&m_widget, &press);
    EXPECT_TRUE(application().isOptionKeyHeld());
}

TEST_F(ZLDesktopApplicationTest, LeavingTheProgramIsAnnounced)
{
    sendKey(QEvent::KeyPress, Qt::Key_Alt, Qt::NoModifier);
    Q_EMIT application().focus().didChange(false);
    EXPECT_FALSE(application().isOptionKeyHeld());
    EXPECT_EQ(m_changes.size(), 2);
}

TEST_F(ZLDesktopApplicationTest, TheProgramDoesNotEndWithAWindowOfItsOwnAccord)
{
    EXPECT_FALSE(QApplication::quitOnLastWindowClosed());
    EXPECT_EQ(QGuiApplication::applicationDisplayName(), u"Zelta"_s);
}
