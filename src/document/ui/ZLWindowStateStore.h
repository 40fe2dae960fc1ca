#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// What a document window remembers from one run to the next.
struct ZLWindowState {
    /// Size and place, as QWidget::saveGeometry() gives them.
    QByteArray geometry;
    /// Whether the drawer is open and how wide it is, as QMainWindow::saveState() gives them.
    QByteArray panels;
    /// Part of the width that titles and links share which the titles take, 0 to 1.
    double titleShare = 0.0;

    bool operator==(const ZLWindowState&) const = default;
};

/// Keeps the window state in an INI file, in `zelta/window.ini` in the user's state folder unless told otherwise.
/// Losing it costs nothing but comfort, so failures to write are not reported.
class ZLWindowStateStore {
public:
    explicit ZLWindowStateStore(const QString& path = standardPath());

    /// `$XDG_STATE_HOME/zelta/window.ini`.
    [[nodiscard]] static QString standardPath();

    /// Nothing when no state was saved yet.
    [[nodiscard]] std::optional<ZLWindowState> load() const;
    void save(const ZLWindowState& state) const;

private:
    QString m_path;
};
