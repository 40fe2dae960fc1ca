#pragma once

#include "settings/ui/MASPreferencesWindowController.h"

#include "settings/ZLSettingsManager.h"
#include "settings/ui/MASWindowGlide.h"
#include "support/ZLTemporarySettings.h"

#include <QAccessible>
#include <QLineEdit>
#include <QTest>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

/// Counts what the window does to it.
class ZLTestPane : public MASPreferencesViewController {
public:
    explicit ZLTestPane(const QString& name, QSize size = { 300, 200 })
        : m_name(name)
        , m_size(size)
        , m_firstField(new QLineEdit(this))
        , m_secondField(new QLineEdit(this))
    {
        auto* column = new QVBoxLayout(this);
        column->addWidget(m_firstField);
        column->addWidget(m_secondField);
    }

    [[nodiscard]] QString identifier() const override { return m_name; }
    [[nodiscard]] QString toolbarItemLabel() const override { return m_name + u" pane"_s; }
    [[nodiscard]] QIcon toolbarItemImage() const override { return {}; }
    [[nodiscard]] QWidget* initialKeyView() const override { return m_initialKeyView; }
    void viewWillAppear() override { ++m_appearances; }
    void viewDidDisappear() override { ++m_disappearances; }
    [[nodiscard]] bool commitEditing() override { return m_commits; }
    [[nodiscard]] QSize sizeHint() const override { return m_size; }

    QString m_name;
    QSize m_size;
    QLineEdit* m_firstField;
    QLineEdit* m_secondField;
    QWidget* m_initialKeyView = nullptr;
    int m_appearances = 0;
    int m_disappearances = 0;
    bool m_commits = true;
};

/// The panes one, two, a gap and three, as in the program.
class MASPreferencesWindowFixture : public testing::Test {
protected:
    using Controller = MASPreferencesWindowController;

    void SetUp() override { launch(); }

    /// As a new run of the program does.
    void launch(const QString& title = {})
    {
        m_controller.reset();
        Controller::Panes panes;
        panes.push_back(makePane(m_one, u"One"_s, QSizePolicy::Fixed, { 300, 200 }));
        panes.push_back(makePane(m_two, u"Two"_s, QSizePolicy::Fixed, { 420, 160 }));
        panes.push_back(nullptr);
        panes.push_back(makePane(m_three, u"Three"_s, QSizePolicy::Expanding, { 350, 250 }));
        m_controller = std::make_unique<Controller>(std::move(panes), title);
        m_controller->setAnimationDuration([this] { return m_animationDuration; });
    }
    static std::unique_ptr<ZLTestPane> makePane(
        ZLTestPane*& place, const QString& name, QSizePolicy::Policy policy, QSize size)
    {
        auto pane = std::make_unique<ZLTestPane>(name, size);
        pane->setSizePolicy(policy, policy);
        place = pane.get();
        return pane;
    }

    void show()
    {
        m_controller->showWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    }
    [[nodiscard]] QMainWindow& window() { return m_controller->window(); }
    [[nodiscard]] QToolBar& toolbar() { return *window().findChild<QToolBar*>(u"toolbar"_s); }
    [[nodiscard]] QAction* item(const QString& name) { return window().findChild<QAction*>(name); }
    [[nodiscard]] QSize contentSize() { return m_controller->selectedViewController()->size(); }
    static QString stored(const QString& key) { return ZLSettingsManager::textForKey(key); }
    static QString paneFrame(const QString& name) { return stored(Controller::paneFrameKey.arg(name)); }

    /// The window on its way, held still so many milliseconds after it left.
    MASWindowGlide& glideAt(int milliseconds)
    {
        auto* glide = window().findChild<MASWindowGlide*>();
        glide->pause();
        glide->setCurrentTime(milliseconds);
        return *glide;
    }
    void toggleAsAScreenReaderDoes(const QString& name)
    {
        auto* button = qobject_cast<QToolButton*>(toolbar().widgetForAction(item(name)));
        QAccessible::queryAccessibleInterface(button)->actionInterface()->doAction(
            QAccessibleActionInterface::toggleAction());
    }
    [[nodiscard]] bool looksChosen(const QString& name)
    {
        return qobject_cast<QToolButton*>(toolbar().widgetForAction(item(name)))->isChecked();
    }
    /// As large as the pane and the toolbar are.
    [[nodiscard]] QSize windowSizeFor(QSize pane) { return pane + QSize(0, toolbar().sizeHint().height()); }

    ZLTemporarySettings m_settings;
    std::chrono::milliseconds m_animationDuration { 0 };
    ZLTestPane* m_one = nullptr;
    ZLTestPane* m_two = nullptr;
    ZLTestPane* m_three = nullptr;
    std::unique_ptr<Controller> m_controller;
};
