#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringList>

class ZLMessageBar;

/// Says in a bar which files could not be opened and why, a line each, until they are dismissed or can be opened.
class ZLOpeningProblems {
    Q_DECLARE_TR_FUNCTIONS(ZLOpeningProblems)

public:
    /// Each problem begins with the path of its file. Earlier ones stay.
    static void tell(ZLMessageBar& bar, const QStringList& problems);
    /// Takes the line of the file at `path` away, which was opened after all.
    static void forget(ZLMessageBar& bar, const QString& path);

private:
    static void show(ZLMessageBar& bar, const QStringList& lines);
};
