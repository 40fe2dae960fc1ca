#pragma once

#include "platform/sound/ZLOutputDevice.h"
#include "settings/ui/MASPreferencesViewController.h"

#include <QList>

#include <functional>
#include <memory>
#include <optional>

namespace Ui {
class ZLGeneralPrefsViewController;
}

/// The pane for chapters, sound and font. Every change is stored at once.
class ZLGeneralPrefsViewController : public MASPreferencesViewController {
    Q_OBJECT

public:
    /// The outputs as they are now; nothing when there is no list of them.
    using OutputDevices = std::function<std::optional<QList<ZLOutputDevice>>()>;

    explicit ZLGeneralPrefsViewController(OutputDevices outputDevices, QWidget* parent = nullptr);
    ~ZLGeneralPrefsViewController() override;

    [[nodiscard]] QString identifier() const override;
    [[nodiscard]] QString toolbarItemLabel() const override;
    [[nodiscard]] QIcon toolbarItemImage() const override;
    [[nodiscard]] QWidget* initialKeyView() const override;
    void viewWillAppear() override;
    [[nodiscard]] bool commitEditing() override;

    /// Each turns the stored setting over, whatever the check box shows.
    /// @{
    void toggleAutomaticChapter();
    void toggleChapterPause();
    void togglePlaySound();
    void toggleQuickEdit();
    /// @}
    void fontsizeChanged();
    /// Stores the output at the selected place of the list as it is now.
    void outputDidChange();
    /// Shows the outputs as they are now, and the stored one as selected.
    void fillOutputSelector();
    /// Says in one line, below the choice to be asked for titles, what will happen. The pane is measured with the first
    /// text and keeps the place.
    void setQuickEditNotice(const QString& text);

private:
    std::unique_ptr<Ui::ZLGeneralPrefsViewController> m_ui;
    OutputDevices m_outputDevices;
};
