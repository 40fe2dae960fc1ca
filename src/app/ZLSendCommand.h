#pragma once

#include "app/ZLCommandLine.h"

#include <QTextStream>

/// Gives one command to a recorder that runs, for a desktop's own shortcut settings, scripts and the like.
class ZLSendCommand {
public:
    /// The streams have to outlive the object.
    ZLSendCommand(QTextStream& out, QTextStream& err)
        : m_out(out)
        , m_err(err)
    {
    }

    /// Carries out a command line of ZLCommand::SendAction; returns a ZLExitStatus. Without a port the recorder of this
    /// user answers what became of it; whether a program listens on a port cannot be told.
    [[nodiscard]] int run(const ZLCommandLine& commandLine);

private:
    QTextStream& m_out;
    QTextStream& m_err;
};
