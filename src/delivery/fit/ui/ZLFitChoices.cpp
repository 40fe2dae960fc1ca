#include "delivery/fit/ui/ZLFitChoices.h"

#include "document/ui/ZLMnemonics.h"
#include "document/ui/ZLSheetParts.h"
#include "lists/ZLListTime.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>
#include <QSignalBlocker>

using namespace Qt::StringLiterals;
using Source = ZLFitDraft::Source;

namespace {

constexpr double farthestZero = 48.0 * 3600.0;
constexpr int zeroDecimals = 3;
/// In a narrow window a long name is shortened.
constexpr int leastCharacters = 16;

QComboBox* makeList(const QString& name, QWidget* parent)
{
    auto* list = new QComboBox(parent);
    list->setObjectName(name);
    list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    list->setMinimumContentsLength(leastCharacters);
    list->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    return list;
}

}

ZLFitChoices::ZLFitChoices(ZLFitDraft& draft, QWidget* parent)
    : QWidget(parent)
    , m_draft(draft)
    , m_filesLabel(new QLabel(this))
    , m_files(makeList(u"finishedFiles"_s, this))
    , m_chooseFile(ZLSheetParts::button(u"chooseFinishedFile"_s, this))
    , m_sourcesLabel(new QLabel(this))
    , m_sources(makeList(u"showSources"_s, this))
    , m_chooseRecording(ZLSheetParts::button(u"chooseRecording"_s, this))
    , m_zeroLabel(new QLabel(this))
    , m_zero(new QDoubleSpinBox(this))
    , m_findZero(ZLSheetParts::button(u"findZero"_s, this))
{
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setColumnStretch(1, 1);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    addFinishedRow(*layout);
    addShowRow(*layout);
    connect(&draft, &ZLFitDraft::didChange, this, &ZLFitChoices::update);
    update();
}

void ZLFitChoices::addFinishedRow(QGridLayout& layout)
{
    m_files->setAccessibleName(tr("Finished file"));
    m_filesLabel->setBuddy(m_files);
    layout.addWidget(m_filesLabel, 0, 0);
    layout.addWidget(m_files, 0, 1);
    layout.addWidget(m_chooseFile, 0, 2);
    connect(m_files, &QComboBox::activated, this, &ZLFitChoices::takeFile);
    connect(m_chooseFile, &QPushButton::clicked, this, [this] {
        chooseFile(
            tr("Choose the Finished File"), u"finishedPanel"_s, m_draft.finishedPath(), &ZLFitDraft::setFinishedPath);
    });
}

void ZLFitChoices::addShowRow(QGridLayout& layout)
{
    m_sources->setAccessibleName(tr("Sound of the show"));
    m_sourcesLabel->setBuddy(m_sources);
    m_zero->setObjectName(u"zero"_s);
    m_zero->setRange(-farthestZero, farthestZero);
    m_zero->setDecimals(zeroDecimals);
    m_zero->setAccessibleName(tr("Start of the clock in the recording, in seconds"));
    m_zero->setToolTip(tr("Where in the recording the clock of this document started, in seconds from its beginning."));
    m_zeroLabel->setBuddy(m_zero);
    layout.addWidget(m_sourcesLabel, 1, 0);
    layout.addWidget(m_sources, 1, 1);
    layout.addWidget(m_chooseRecording, 1, 2);
    layout.addWidget(m_zeroLabel, 2, 0);
    layout.addWidget(m_zero, 2, 1, Qt::AlignLeft);
    layout.addWidget(m_findZero, 2, 2);
    connect(m_sources, &QComboBox::activated, this,
        [this](int index) { m_draft.setSource(Source(m_sources->itemData(index).toInt())); });
    connect(m_chooseRecording, &QPushButton::clicked, this, [this] {
        chooseFile(
            tr("Choose the Recording"), u"recordingPanel"_s, m_draft.recordingPath(), &ZLFitDraft::setRecordingPath);
    });
    connect(m_zero, &QDoubleSpinBox::valueChanged, &m_draft, &ZLFitDraft::setZero);
    connect(m_findZero, &QPushButton::clicked, &m_draft, &ZLFitDraft::findZero);
}

void ZLFitChoices::setTexts(ZLMnemonics& mnemonics)
{
    m_filesLabel->setText(mnemonics.withMnemonic(tr("Finished file:")));
    m_chooseFile->setText(mnemonics.withMnemonic(tr("Choose File…")));
    m_sourcesLabel->setText(mnemonics.withMnemonic(tr("Sound of the show:")));
    m_chooseRecording->setText(mnemonics.withMnemonic(tr("Choose Recording…")));
    m_zeroLabel->setText(mnemonics.withMnemonic(tr("Clock starts at (s):")));
    m_findZero->setText(mnemonics.withMnemonic(tr("Find Start")));
    m_findZero->setToolTip(
        tr("Find where the clock started: by what was heard along, or else by the start beep in the recording"));
}

void ZLFitChoices::takeKeyboard()
{
    QWidget* wanted = m_chooseFile;
    if (m_draft.fit())
        wanted = m_files;
    else if (!m_draft.finishedPath().isEmpty())
        wanted = m_chooseRecording;
    wanted->setFocus(Qt::ShortcutFocusReason);
}

void ZLFitChoices::commitTypedText()
{
    m_zero->interpretText();
}

void ZLFitChoices::update()
{
    fillFiles();
    fillSources();
    const QSignalBlocker blocker(m_zero);
    if (m_zero->value() != m_draft.zero())
        m_zero->setValue(m_draft.zero());
    const bool isRecording = m_draft.source() == Source::Recording;
    m_zeroLabel->setVisible(isRecording);
    m_zero->setVisible(isRecording);
    m_findZero->setVisible(isRecording);
    // The cell keeps its place, so that the keyboard does not get lost.
    for (QWidget* choice :
        std::initializer_list<QWidget*> { m_files, m_chooseFile, m_sources, m_chooseRecording, m_zero })
        choice->setEnabled(!m_draft.isWorking());
    m_findZero->setEnabled(m_draft.canFindZero());
}

/// The one that is chosen, and those that were fitted before.
void ZLFitChoices::fillFiles()
{
    const QSignalBlocker blocker(m_files);
    m_files->clear();
    const QString shown = m_draft.shownIdentifier();
    if (shown.isEmpty()) {
        const QString path = m_draft.finishedPath();
        m_files->addItem(path.isEmpty() ? tr("No file chosen") : QFileInfo(path).fileName(), QString());
        m_files->setItemData(0, path, Qt::ToolTipRole);
    }
    const QList<ZLKeptFit> kept = m_draft.keptFits();
    for (const ZLKeptFit& fit : kept)
        m_files->addItem(
            tr("%1, %2, fitted").arg(fit.fileName, ZLListTime::shortClock(fit.alignment.fileLength)), fit.identifier);
    m_files->setCurrentIndex(std::max(m_files->findData(shown), 0));
}

void ZLFitChoices::fillSources()
{
    const QSignalBlocker blocker(m_sources);
    m_sources->clear();
    if (m_draft.hasHeardAlong())
        m_sources->addItem(tr("What was heard along"), int(Source::HeardAlong));
    if (const QList<ZLRecorderFile> files = m_draft.recorderFiles(); !files.isEmpty())
        m_sources->addItem(recorderText(files), int(Source::RecorderFiles));
    const QString recording = QFileInfo(m_draft.recordingPath()).fileName();
    m_sources->addItem(
        recording.isEmpty() ? tr("The raw recording: choose a file") : recording, int(Source::Recording));
    m_sources->setCurrentIndex(std::max(m_sources->findData(int(m_draft.source())), 0));
}

QString ZLFitChoices::recorderText(const QList<ZLRecorderFile>& files)
{
    const QString first = QFileInfo(files.constFirst().path).fileName();
    if (files.size() == 1)
        return tr("The recorder's file: %1").arg(first);
    return tr("The recorder's files: %1 to %2").arg(first, QFileInfo(files.constLast().path).fileName());
}

void ZLFitChoices::takeFile(int index)
{
    if (const QString identifier = m_files->itemData(index).toString(); !identifier.isEmpty())
        m_draft.showKeptFit(identifier);
}

void ZLFitChoices::chooseFile(
    const QString& title, const QString& name, const QString& former, void (ZLFitDraft::*take)(const QString&))
{
    // It belongs to the window and stops nothing, for the clock may run.
    auto* dialog = new QFileDialog(window(), title);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setObjectName(name);
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setNameFilters({ tr("All files (*)") });
    dialog->setDirectory(former.isEmpty() ? m_folder : QFileInfo(former).absolutePath());
    connect(dialog, &QFileDialog::fileSelected, &m_draft, take);
    connect(dialog, &QDialog::finished, this, &ZLFitChoices::fileWasChosen);
    dialog->show();
}
