#pragma once

#include <QObject>
#include <QStringList>

class ZLStatusLine;
class ZLTemplatesViewController;

/// Tells in the status line what an import of templates brought, and offers the lines that look like topics when none
/// was one.
class ZLImportNews : public QObject {
    Q_OBJECT

public:
    /// Both have to outlive it.
    ZLImportNews(ZLTemplatesViewController& templates, ZLStatusLine& statusLine, QObject* parent = nullptr);

private:
    void tellCount(qsizetype count);
    void tellNothing(const QStringList& plainTexts);

    ZLTemplatesViewController& m_templates;
    ZLStatusLine& m_statusLine;
};
