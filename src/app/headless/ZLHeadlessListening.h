#pragma once

#include "app/headless/ZLHeadlessStreams.h"
#include "document/listening/ZLShowListening.h"

#include <QObject>

/// Listens along to what is recorded without a window, and says in a line what is heard, and what is not.
class ZLHeadlessListening : public QObject {
    Q_OBJECT

public:
    /// `shows` has to outlive the object.
    ZLHeadlessListening(ZLShowListening& shows, ZLHeadlessStreams streams, QObject* parent = nullptr);

    /// An empty source stands for the default one.
    void begin(const QString& source);

private:
    void report();

    ZLShowListening& m_shows;
    const ZLHeadlessStreams m_streams;
    /// What was said last.
    QString m_trouble;
    bool m_isHearing = false;
};
