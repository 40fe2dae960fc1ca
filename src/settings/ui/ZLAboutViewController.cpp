#include "settings/ui/ZLAboutViewController.h"

#include "resources/ZLSymbolIcon.h"
#include "ui_ZLAboutViewController.h"

#include <QEvent>
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
    m_credits = textOfCredits(creditsPath);
    showCredits();
}

ZLAboutViewController::~ZLAboutViewController() = default;

QString ZLAboutViewController::standardCreditsPath()
{
    //: A file in the resources, one for each language.
    return tr(":/Credits.html");
}

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

void ZLAboutViewController::changeEvent(QEvent* event)
{
    MASPreferencesViewController::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        showCredits();
}

void ZLAboutViewController::showCredits()
{
    // Many dark desktops leave the colour of links as it is on a light one. The underline is sign enough.
    const QString color = palette().color(QPalette::Text).name();
    m_ui->readmeView->document()->setDefaultStyleSheet(u"a { color: %1; }"_s.arg(color));
    m_ui->readmeView->setHtml(m_credits);
}
