#include "remote/ui/ZLOSCEntryEditor.h"

#include <QGridLayout>

using namespace Qt::StringLiterals;

ZLOSCEntryEditor::ZLOSCEntryEditor(
    const QString& objectName, const QString& name, const QString& example, QWidget* parent)
    : QWidget(parent)
    , m_field(new QLineEdit(this))
    , m_addButton(new QPushButton(tr("Add"), this))
    , m_removeButton(new QPushButton(tr("Remove"), this))
    , m_problemLabel(new QLabel(this))
{
    setObjectName(objectName);
    m_field->setObjectName(objectName + u"Field"_s);
    m_addButton->setObjectName(objectName + u"Add"_s);
    m_removeButton->setObjectName(objectName + u"Remove"_s);
    m_problemLabel->setObjectName(objectName + u"Problem"_s);
    m_field->setAccessibleName(name);
    m_field->setPlaceholderText(example);
    m_field->setToolTip(name);
    m_addButton->setAccessibleName(tr("Add: %1").arg(name));
    m_removeButton->setAccessibleName(tr("Remove the selected: %1").arg(name));
    m_problemLabel->setTextFormat(Qt::PlainText);
    m_problemLabel->setWordWrap(true);
    m_problemLabel->hide();
    m_removeButton->setEnabled(false);
    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins({});
    grid->addWidget(m_field, 0, 0);
    grid->addWidget(m_addButton, 0, 1);
    grid->addWidget(m_removeButton, 0, 2);
    grid->addWidget(m_problemLabel, 1, 0, 1, 3);
    connect(m_field, &QLineEdit::returnPressed, this, &ZLOSCEntryEditor::add);
    connect(m_field, &QLineEdit::textEdited, this, [this] { setProblem({}); });
    connect(m_addButton, &QPushButton::clicked, this, &ZLOSCEntryEditor::add);
    connect(m_removeButton, &QPushButton::clicked, this, &ZLOSCEntryEditor::removeRequested);
}

void ZLOSCEntryEditor::clear()
{
    m_field->clear();
    setProblem({});
}

void ZLOSCEntryEditor::setProblem(const QString& problem)
{
    m_problemLabel->setText(problem);
    m_problemLabel->setVisible(!problem.isEmpty());
    // A screen reader hears of it where the keyboard is.
    m_field->setAccessibleDescription(problem);
}

void ZLOSCEntryEditor::add()
{
    m_field->setFocus();
    if (const QString text = m_field->text().trimmed(); !text.isEmpty())
        Q_EMIT addRequested(text);
}
