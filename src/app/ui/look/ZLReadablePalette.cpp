#include "app/ui/look/ZLReadablePalette.h"

#include "templates/ui/ZLReadableColors.h"

#include <QApplication>
#include <QScopedValueRollback>

namespace {

/// Only what differs, so that all other colours go on following the desktop.
QPalette differences(const QPalette& palette, const QPalette& original)
{
    QPalette result;
    for (const auto group : { QPalette::Active, QPalette::Inactive, QPalette::Disabled }) {
        for (int role = 0; role < QPalette::NColorRoles; ++role) {
            const auto which = QPalette::ColorRole(role);
            if (palette.color(group, which) != original.color(group, which))
                result.setColor(group, which, palette.color(group, which));
        }
    }
    return result;
}

}

void ZLReadablePalette::apply()
{
    // The change comes back as a change of the application's palette.
    if (m_isApplying || QApplication::palette() == m_applied)
        return;
    const QScopedValueRollback applying(m_isApplying, true);
    QApplication::setPalette(QPalette());
    const QPalette original = QApplication::palette();
    QApplication::setPalette(differences(ZLReadableColors::improved(original), original));
    m_applied = QApplication::palette();
}
