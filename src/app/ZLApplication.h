#pragma once

#include "app/ZLDocumentController.h"

#include <QObject>

/// The application object: it starts everything that does not depend on a display, in a fixed order, and answers
/// whether the program may end. A program with windows stands around it, see ZLDesktop.
class ZLApplication : public QObject {
    Q_OBJECT

public:
    /// Registers the settings' defaults before anything reads a setting, and the export formats before any menu is
    /// made. `systemFontSize` is in points.
    explicit ZLApplication(ZLDocumentControllerSetup setup, float systemFontSize = StandardFontSize);

    /// Size of texts where no desktop says one, in points.
    static constexpr float StandardFontSize = 10.0F;

    [[nodiscard]] ZLDocumentController& documentController() { return m_documentController; }

    /// False while the clock of any document runs: the recording has to be stopped first.
    [[nodiscard]] bool applicationShouldTerminate() const { return m_documentController.canTerminate(); }

private:
    ZLDocumentController m_documentController;
};
