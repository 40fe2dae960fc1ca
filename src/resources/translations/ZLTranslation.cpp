#include "resources/translations/ZLTranslation.h"

#include <QCoreApplication>
#include <QLibraryInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

// A static library's resources have to be asked for; the macro only works outside of namespaces.
static void registerTranslations()
{
    Q_INIT_RESOURCE(translations);
}

ZLTranslation::ZLTranslation(const QStringList& languages)
{
    registerTranslations();
    (void)std::ranges::any_of(languages, [this](const QString& language) {
        const QLocale locale(language);
        return locale.language() == QLocale::English || locale.language() == QLocale::C || install(locale);
    });
}

bool ZLTranslation::install(const QLocale& locale)
{
    if (!m_program.load(locale, u"zelta"_s, u"_"_s, u":/translations"_s))
        return false;
    // Where the toolkit's texts are not installed, its few buttons are English.
    if (m_toolkit.load(locale, u"qtbase"_s, u"_"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&m_toolkit);
    QCoreApplication::installTranslator(&m_program);
    return true;
}
