#pragma once

#include <QList>
#include <QObject>
#include <QPointer>

class QAction;
class ZLApplication;
class ZLChapterDocument;
class ZLChapterDocumentWindow;

/// Shows which window commands from outside reach, as the part "outsideTarget" of its status line while more than one
/// document is open, and pins them to a document by an item of the Recording menu or a click on that part.
class ZLOutsideTargetDisplay : public QObject {
    Q_OBJECT

public:
    /// `application` has to outlive the object.
    explicit ZLOutsideTargetDisplay(ZLApplication& application, QObject* parent = nullptr);

    void addWindow(ZLChapterDocumentWindow& window);

    /// "Commands From Outside Come Here"
    [[nodiscard]] static QString itemTitle();

private:
    struct Shown {
        QPointer<ZLChapterDocumentWindow> window;
        QPointer<QAction> item;
    };

    void update();
    void updateWindow(const Shown& shown) const;
    void setPinned(ZLChapterDocumentWindow& window, bool isPinned);
    /// Why commands come to the target.
    [[nodiscard]] QString reason() const;

    ZLApplication& m_application;
    QList<Shown> m_shown;
};
