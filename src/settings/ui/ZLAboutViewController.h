#pragma once

#include "settings/ui/MASPreferencesViewController.h"

#include <memory>

namespace Ui {
class ZLAboutViewController;
}

/// What identifies the program that is running.
struct ZLProgramVersion {
    /// "1.2"
    QString shortVersion;
    /// "345"
    QString build;
};

/// The pane with the version and the credits.
class ZLAboutViewController : public MASPreferencesViewController {
    Q_OBJECT

public:
    /// A missing file of credits leaves their place empty.
    explicit ZLAboutViewController(
        const ZLProgramVersion& version, QWidget* parent = nullptr, const QString& creditsPath = standardCreditsPath());
    ~ZLAboutViewController() override;

    /// The file of credits in the user's language.
    [[nodiscard]] static QString standardCreditsPath();

    [[nodiscard]] QString identifier() const override;
    [[nodiscard]] QString toolbarItemLabel() const override;
    [[nodiscard]] QIcon toolbarItemImage() const override;
    [[nodiscard]] QWidget* initialKeyView() const override;

protected:
    void changeEvent(QEvent* event) override;

private:
    void showCredits();

    std::unique_ptr<Ui::ZLAboutViewController> m_ui;
    QString m_credits;
};
