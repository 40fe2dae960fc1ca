#include "document/ui/menus/ZLInsertChapterDialog.h"

#include "document/editing/ZLTimeEntry.h"
#include "model/ZLChapter.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int fieldCharacters = 44;

QString textOf(double seconds)
{
    ZLChapter chapter;
    chapter.setTimeStamp(seconds);
    return chapter.timeString();
}

}

ZLInsertChapterDialog::ZLInsertChapterDialog(double proposedTime, QWidget* parent)
    : QDialog(parent)
    , m_proposedTime(proposedTime)
    , m_proposedText(textOf(proposedTime))
    , m_field(new QLineEdit(m_proposedText, this))
{
    setObjectName(u"insertChapterDialog"_s);
    setWindowTitle(tr("Insert Chapter"));
    setAttribute(Qt::WA_DeleteOnClose);
    auto* message = new QLabel(tr("&Time of the new chapter:"), this);
    message->setBuddy(m_field);
    auto* form = new QLabel(ZLTimeEntry::form(), this);
    m_field->setObjectName(u"time"_s);
    // Wide enough for the title beside the buttons of a window's bar.
    m_field->setMinimumWidth(fontMetrics().averageCharWidth() * fieldCharacters);
    m_field->setAccessibleName(tr("Time of the new chapter"));
    m_field->setAccessibleDescription(ZLTimeEntry::form());
    m_field->selectAll();
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    QPushButton* insert = buttons->button(QDialogButtonBox::Ok);
    insert->setText(tr("Insert"));
    buttons->button(QDialogButtonBox::Cancel)->setText(tr("Cancel"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_field, &QLineEdit::textChanged, this, [this, insert] { insert->setEnabled(time().has_value()); });
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(message);
    layout->addWidget(m_field);
    layout->addWidget(form);
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

std::optional<double> ZLInsertChapterDialog::time() const
{
    if (m_field->text() == m_proposedText)
        return m_proposedTime;
    return ZLTimeEntry::secondsFromText(m_field->text());
}
