#include "app/ui/ZLDesktopApplication.h"

#include <QIcon>

using namespace Qt::StringLiterals;

ZLDesktopApplication::ZLDesktopApplication(int& argc, char** argv)
    : QApplication(argc, argv)
{
    setApplicationDisplayName(u"Zelta"_s);
    setDesktopFileName(u"org.zelta.Zelta"_s);
    setWindowIcon(QIcon::fromTheme(desktopFileName(), QIcon(u":/images/Zelta.svg"_s)));
    // Documents decide when the program ends, see ZLDocumentWindows.
    setQuitOnLastWindowClosed(false);
}

bool ZLDesktopApplication::notify(QObject* receiver, QEvent* event)
{
    m_modifiers.noteEvent(*event);
    const bool changesModifiers = ZLModifierState::changesModifiers(*event);
    const bool handled = QApplication::notify(receiver, event);
    if (changesModifiers)
        Q_EMIT modifiersDidChange();
    return handled;
}
