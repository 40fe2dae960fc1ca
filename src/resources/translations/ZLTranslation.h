#pragma once

#include <QLocale>
#include <QStringList>
#include <QTranslator>

/// The texts of the program and those of the toolkit in the user's language, for as long as it lives. The application
/// object has to be there before and to outlive it.
class ZLTranslation {
public:
    /// Takes the first of the languages (BCP 47, the preferred one first) that the program speaks. The texts of the
    /// sources are English; where English or none of the languages is found, they stay as they are, the toolkit's too.
    explicit ZLTranslation(const QStringList& languages = QLocale::system().uiLanguages());

private:
    bool install(const QLocale& locale);

    QTranslator m_toolkit;
    QTranslator m_program;
};
