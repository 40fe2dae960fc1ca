#pragma once

#include "app/ZLDocumentController.h"

#include <QObject>

#include <functional>

class ZLChapterDocumentWindow;

/// Asks for the file of a window's document and writes it there.
class ZLSavePanel : public QObject {
    Q_OBJECT

public:
    /// Belongs to `window`.
    ZLSavePanel(ZLDocumentController& controller, ZLChapterDocumentWindow& window);

    /// Writes to the document's own file, or asks for one first. A failure is told in the window's bar.
    void save();
    /// Asks for a file and adopts it. `whenSaved` is called after the file was written, not after a cancel.
    void saveAs(const std::function<void()>& whenSaved = {});

private:
    [[nodiscard]] QString proposedPath() const;
    void saveTo(const QString& path, const std::function<void()>& whenSaved);
    void askWhetherToReplace(const QString& path, const std::function<void()>& whenSaved);
    void writeTo(const QString& path, const std::function<void()>& whenSaved);
    void showSuccess(const QString& message);
    void showFailure(const QString& message);

    ZLDocumentController& m_controller;
    ZLChapterDocumentWindow& m_window;
    /// What was told last.
    QString m_success;
};
