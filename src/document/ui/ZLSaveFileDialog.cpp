#include "document/ui/ZLSaveFileDialog.h"

#include "platform/ZLFileExtension.h"

#include <QDir>
#include <QFileInfo>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {

QString withoutTilde(const QString& typed)
{
    const bool isBelowHome = typed == "~"_L1 || typed.startsWith("~/"_L1);
    return isBelowHome ? QDir::homePath() + typed.sliced(1) : typed;
}

}

ZLSaveFileDialog::ZLSaveFileDialog(QWidget* parent, const QString& title, const QString& extension)
    : QFileDialog(parent, title)
    , m_extension(extension)
{
    setAcceptMode(AcceptSave);
    setFileMode(AnyFile);
    setDefaultSuffix(extension);
}

void ZLSaveFileDialog::accept()
{
    // The desktop's own dialog has no such field; the caller that gets its name completes it.
    auto* nameEdit = findChild<QLineEdit*>(u"fileNameEdit"_s);
    const QString typed = nameEdit ? nameEdit->text() : QString();
    const QFileInfo file(directory(), withoutTilde(typed));
    if (!typed.isEmpty() && file.isDir()) {
        // A folder that is typed is gone into.
        setDirectory(file.absoluteFilePath());
        nameEdit->clear();
        return;
    }
    if (!typed.isEmpty() && !typed.endsWith(u'/'))
        nameEdit->setText(ZLFileExtension::completed(typed, m_extension));
    QFileDialog::accept();
}
