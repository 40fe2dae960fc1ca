#include "app/ui/ZLDesktopApplication.h"

#include "app/ui/look/ZLBoxStyle.h"

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
    ZLBoxStyle::install();
    m_palette.apply();
    connect(&m_focus, &ZLApplicationFocus::didChange, this, &ZLDesktopApplication::forgetModifiers);
}

bool ZLDesktopApplication::event(QEvent* event)
{
    if (event->type() == QEvent::ApplicationPaletteChange)
        m_palette.apply();
    return QApplication::event(event);
}

bool ZLDesktopApplication::notify(QObject* receiver, QEvent* event)
{
    const ZLInputPress::Dispatch dispatch(m_press, receiver, *event);
    m_modifiers.noteEvent(*event);
    const bool changesModifiers = ZLModifierState::changesModifiers(*event);
    const bool handled = QApplication::notify(receiver, event);
    if (changesModifiers)
        Q_EMIT modifiersDidChange();
    return handled;
}

void ZLDesktopApplication::forgetModifiers()
{
    m_modifiers.forgetKeys();
    Q_EMIT modifiersDidChange();
}
