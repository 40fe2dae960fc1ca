#include "document/ui/ZLMoveChaptersDialog.h"

#include "document/editing/ZLTimeEntry.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int fieldWidth = 200;
constexpr int leastFieldHeight = 24;

}

ZLMoveChaptersDialog::ZLMoveChaptersDialog(QWidget* parent)
    : QDialog(parent)
    , m_field(new QLineEdit(this))
{
    setObjectName(u"moveChaptersDialog"_s);
    setWindowTitle(tr("Move Chapters"));
    setAttribute(Qt::WA_DeleteOnClose);
    auto* message = new QLabel(tr("Please enter the time in milliseconds (1s = 1000ms)"), this);
    message->setBuddy(m_field);
    m_field->setObjectName(u"offset"_s);
    m_field->setFixedWidth(fieldWidth);
    m_field->setMinimumHeight(leastFieldHeight);
    m_field->setAccessibleName(tr("Milliseconds"));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setText(tr("OK"));
    buttons->button(QDialogButtonBox::Cancel)->setText(tr("Cancel"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(message);
    layout->addWidget(m_field);
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

float ZLMoveChaptersDialog::offset() const
{
    return ZLTimeEntry::millisecondsFromText(m_field->text());
}
