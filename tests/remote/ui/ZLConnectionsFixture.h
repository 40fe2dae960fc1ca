#pragma once

#include "platform/dnssd/ZLServiceBrowser.h"
#include "platform/dnssd/ZLServicePublisher.h"
#include "remote/ZLOSCController.h"
#include "support/ZLTemporarySettings.h"

#include <QAbstractItemView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

/// A publisher that says what the test wants it to say.
class ZLFakePublisher final : public ZLServicePublisher {
public:
    void publish(const QString& name, const QString&, quint16) override { show(State::Published, name); }
    void withdraw() override { setState(State::Idle, {}, {}); }
    void show(State state, const QString& name) { setState(state, QStringLiteral("state of ") + name, name); }
};

/// A browser that finds what the test wants it to find.
class ZLFakeBrowser final : public ZLServiceBrowser {
public:
    void find(const QList<ZLFoundService>& services)
    {
        Services found;
        for (const ZLFoundService& service : services)
            found.insert(service.name, service);
        setServices(found);
    }
    void show(State state, const QString& text) { setState(state, text); }
};

/// An OSC controller on a port of the system's choice, with settings of the test's own.
class ZLConnectionsFixture : public testing::Test {
protected:
    template <typename Widget>
    static Widget& child(const QWidget& parent, const char* name)
    {
        auto* const found = parent.findChild<Widget*>(QString::fromLatin1(name));
        if (!found)
            qFatal("there is no %s", name);
        return *found;
    }
    static QString text(const QWidget& parent, const char* name) { return child<QLabel>(parent, name).text(); }
    static bool isShown(const QWidget& parent, const char* name)
    {
        return child<QWidget>(parent, name).isVisibleTo(&parent);
    }
    static void click(const QWidget& parent, const char* name)
    {
        QTest::mouseClick(&child<QWidget>(parent, name), Qt::LeftButton);
    }
    static void type(const QWidget& parent, const char* name, const QString& typed)
    {
        auto& field = child<QLineEdit>(parent, name);
        field.clear();
        QTest::keyClicks(&field, typed);
        QTest::keyClick(&field, Qt::Key_Return);
    }
    static QStringList column(const QAbstractItemModel& model, int column)
    {
        QStringList texts;
        for (int row = 0; row < model.rowCount(); ++row)
            texts.append(model.index(row, column).data().toString());
        return texts;
    }

    ZLTemporarySettings m_settings;
    ZLOSCController m_controller { nullptr, { .inputPort = 0 } };
};
