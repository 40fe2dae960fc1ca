#pragma once

#include <QCoreApplication>
#include <QTimer>

#include <functional>

/// Runs the program for a few turns of its event loop and tells whether it ended by itself.
namespace ZLProgramRun {

/// What is returned for a program that would have gone on.
inline constexpr int StillRunning = 77;

/// `steps` are carried out in one turn each, from the first turn on; `program` runs the event loop and returns its exit
/// status.
inline int run(
    const QList<std::function<void()>>& steps,
    const std::function<int()>& program = [] { return QCoreApplication::exec(); })
{
    constexpr qsizetype turnsToSettle = 10;
    qsizetype turn = 0;
    QTimer turns;
    QObject::connect(&turns, &QTimer::timeout, &turns, [&] {
        const qsizetype now = turn++;
        if (now < steps.size())
            steps.at(now)();
        else if (now > steps.size() + turnsToSettle)
            QCoreApplication::exit(StillRunning);
    });
    turns.start(0);
    return program();
}

}
