#include "app/ui/windows/ZLOpeningProblems.h"

#include "document/ui/ZLMessageBar.h"

using namespace Qt::StringLiterals;

namespace {

const QString openingProblemsName = QStringLiteral("openingProblems");

QStringList shownProblems(const ZLMessageBar& bar)
{
    return bar.text(openingProblemsName).split(u'\n', Qt::SkipEmptyParts);
}

/// A sentence about a file begins with its path.
bool isAbout(const QString& line, const QString& path)
{
    const QString rest = line.startsWith(path) ? line.sliced(path.size()) : QString();
    return rest.startsWith(u": "_s) || rest.startsWith(u' ');
}

}

void ZLOpeningProblems::tell(ZLMessageBar& bar, const QStringList& problems)
{
    if (problems.isEmpty())
        return;
    QStringList lines = shownProblems(bar) + problems;
    lines.removeDuplicates();
    show(bar, lines);
}

void ZLOpeningProblems::forget(ZLMessageBar& bar, const QString& path)
{
    QStringList lines = shownProblems(bar);
    if (lines.removeIf([&path](const QString& line) { return isAbout(line, path); }) > 0)
        show(bar, lines);
}

void ZLOpeningProblems::show(ZLMessageBar& bar, const QStringList& lines)
{
    if (lines.isEmpty())
        bar.hideMessage(openingProblemsName);
    else
        bar.showMessage(
            openingProblemsName, lines.join(u'\n'), { { tr("Dismiss"), [] { } } }, {}, ZLMessageBar::Kind::Error);
}
