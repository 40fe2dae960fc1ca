#include "settings/ui/ZLAboutViewController.h"

#include "resources/ZLSymbolIcon.h"
#include "ui_ZLAboutViewController.h"

#include <QFile>

using namespace Qt::StringLiterals;

// A static library's resources have to be asked for; the macro only works outside of namespaces.
static void registerCredits()
{
    Q_INIT_RESOURCE(zelta);
}

namespace {

QString textOfCredits(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

}

ZLAboutViewController::ZLAboutViewController(
    const ZLProgramVersion& version, QWidget* parent, const QString& creditsPath)
    : MASPreferencesViewController(parent)
    , m_ui(std::make_unique<Ui::ZLAboutViewController>())
{
    m_ui->setupUi(this);
    QFont large = m_ui->nameLabel->font();
    large.setPointSizeF(large.pointSizeF() * 1.6);
    large.setBold(true);
    m_ui->nameLabel->setFont(large);
    m_ui->versionLabel->setText(u"%1 (%2)"_s.arg(version.shortVersion, version.build));
    registerCredits();
    m_ui->readmeView->setHtml(textOfCredits(creditsPath));
}

ZLAboutViewController::~ZLAboutViewController() = default;

QString ZLAboutViewController::identifier() const
{
    return u"About"_s;
}

QString ZLAboutViewController::toolbarItemLabel() const
{
    return tr("About");
}

QIcon ZLAboutViewController::toolbarItemImage() const
{
    return ZLSymbolIcon::named(u"Info"_s);
}

QWidget* ZLAboutViewController::initialKeyView() const
{
    return m_ui->readmeView;
}
