#include "following/ui/ZLRecorderChoicePanel.h"

#include "document/ZLChapterDocument.h"
#include "following/ZLFollowingSettings.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QLabel>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

ZLRecorderChoicePanel::ZLRecorderChoicePanel(
    ZLFollowing& following, std::function<ZLChapterDocument*()> currentDocument, QWidget* parent)
    : QGroupBox(tr("Follow"), parent)
    , m_following(following)
    , m_currentDocument(std::move(currentDocument))
    , m_choices(new QButtonGroup(this))
    , m_document(new QLabel(this))
{
    setObjectName(u"choicePanel"_s);
    new QVBoxLayout(this);
    addChoice({}, tr("O&ff"));
    for (const ZLRecorderKind& kind : following.kinds())
        addChoice(kind.word, kind.name);
    m_document->setObjectName(u"followingDocument"_s);
    m_document->setTextFormat(Qt::PlainText);
    m_document->setWordWrap(true);
    layout()->addWidget(m_document);
    addOption(m_startsRecorder, u"startsRecorder"_s, tr("&Start and stop the recorder with Zelta"),
        tr("A press that starts or stops the clock starts and stops the recorder, where it can be told to."));
    addOption(m_marksChapters, u"marksChapters"_s, tr("&Write marks into the recorder's file"),
        tr("Where the recorder can do that; OBS Studio can from version 30.2 on."));
    m_startsRecorder->setChecked(ZLFollowingSettings::startsRecorder());
    m_marksChapters->setChecked(ZLFollowingSettings::marksChapters());
    // A screen reader sets a button without a click, and a click on the same one lets another document follow.
    connect(m_choices, &QButtonGroup::idClicked, this, &ZLRecorderChoicePanel::choose);
    connect(m_choices, &QButtonGroup::idToggled, this, [this](int number, bool isOn) {
        if (isOn)
            choose(number);
    });
    connect(m_startsRecorder, &QCheckBox::toggled, this, [this](bool isOn) {
        ZLFollowingSettings::setStartsRecorder(isOn);
        m_following.followAnew();
    });
    connect(m_marksChapters, &QCheckBox::toggled, this, [this](bool isOn) {
        ZLFollowingSettings::setMarksChapters(isOn);
        m_following.followAnew();
    });
    connect(&following, &ZLFollowing::stateDidChange, this, &ZLRecorderChoicePanel::update);
    update();
}

QString ZLRecorderChoicePanel::chosenWord() const
{
    return m_words.value(m_choices->checkedId());
}

void ZLRecorderChoicePanel::addChoice(const QString& word, const QString& text)
{
    auto* const button = new QRadioButton(text, this);
    button->setObjectName(word.isEmpty() ? u"followNone"_s : u"follow-"_s + word);
    m_choices->addButton(button, int(m_words.size()));
    m_words.append(word);
    layout()->addWidget(button);
}

void ZLRecorderChoicePanel::addOption(
    QCheckBox*& box, const QString& objectName, const QString& text, const QString& toolTip)
{
    box = new QCheckBox(text, this);
    box->setObjectName(objectName);
    box->setToolTip(toolTip);
    layout()->addWidget(box);
}

void ZLRecorderChoicePanel::choose(int number)
{
    const QString word = m_words.value(number);
    ZLFollowingSettings::setKind(word);
    ZLChapterDocument* const document = m_currentDocument();
    if (m_following.word() == word && (word.isEmpty() || m_following.document() == document))
        return update();
    // Every kind of the list can be followed; without a document there is nothing that could.
    if (word.isEmpty() || !document)
        m_following.stop();
    else
        (void)m_following.follow(*document, word);
    update();
}

void ZLRecorderChoicePanel::update()
{
    const ZLChapterDocument* const document = m_following.document();
    const QSignalBlocker blocker(m_choices);
    m_choices->button(int(std::max<qsizetype>(0, m_words.indexOf(m_following.word()))))->setChecked(true);
    m_document->setText(
        document ? tr("Followed by “%1”.").arg(document->displayName()) : tr("The document in front will follow."));
    Q_EMIT chosenWordDidChange();
}
