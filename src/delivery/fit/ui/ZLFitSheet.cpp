#include "delivery/fit/ui/ZLFitSheet.h"

#include "delivery/fit/ZLFitReport.h"
#include "delivery/fit/ui/ZLFitChoices.h"
#include "delivery/fit/ui/ZLFitMarksModel.h"
#include "delivery/fit/ui/ZLFitPicture.h"
#include "document/ui/ZLMnemonics.h"
#include "document/ui/ZLSheetParts.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QTreeView>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;
using State = ZLFitDraft::State;

namespace {

constexpr int progressSteps = 1000;
constexpr int progressInterval = 100;
/// Lines of the list that can always be seen.
constexpr int leastLines = 4;

}

ZLFitSheet::ZLFitSheet(ZLFitDraft& draft, const QMenuBar& menus, QWidget* parent)
    : QFrame(parent)
    , m_draft(draft)
    , m_choices(new ZLFitChoices(draft, this))
    , m_outcome(new QLabel(this))
    , m_picture(new ZLFitPicture(this))
    , m_marks(new ZLFitMarksModel(this))
    , m_list(makeList())
    , m_play(ZLSheetParts::button(u"playExcerpt"_s, this))
    , m_progress(new QProgressBar(this))
    , m_close(ZLSheetParts::button(u"closeSheet"_s, this))
    , m_start(ZLSheetParts::button(u"startFit"_s, this))
    , m_write(ZLSheetParts::button(u"writeFittedChapters"_s, this))
    , m_newDocument(ZLSheetParts::button(u"newFittedDocument"_s, this))
    , m_apply(ZLSheetParts::button(u"applyFit"_s, this))
{
    setObjectName(u"fitSheet"_s);
    setAccessibleName(tr("Fit to Finished File"));
    setFrameShape(StyledPanel);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(makeBody(), 1);
    layout->addWidget(makeButtonRow());
    setTexts(menus);
    connectParts();
    connectMarks();
    update();
}

void ZLFitSheet::setFolder(const QString& folder)
{
    m_choices->setFolder(folder);
}

void ZLFitSheet::takeKeyboard()
{
    if (m_draft.fit())
        m_list->setFocus(Qt::ShortcutFocusReason);
    else if (m_draft.isWorking())
        m_close->setFocus(Qt::ShortcutFocusReason);
    else if (m_draft.canStart())
        m_start->setFocus(Qt::ShortcutFocusReason);
    else
        m_choices->takeKeyboard();
}

bool ZLFitSheet::eventFilter(QObject* watched, QEvent* event)
{
    // A list would keep this key for itself.
    const bool isSpace = event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Space;
    if (watched != m_list || !isSpace)
        return QFrame::eventFilter(watched, event);
    play();
    return true;
}

void ZLFitSheet::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        dismiss();
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        goOn();
    else
        QFrame::keyPressEvent(event);
}

QTreeView* ZLFitSheet::makeList()
{
    auto* list = ZLSheetParts::list(u"fittedMarks"_s, tr("Chapters in the finished file"), m_marks, this);
    list->header()->setStretchLastSection(false);
    list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    list->header()->setSectionResizeMode(ZLFitMarksModel::TitleColumn, QHeaderView::Stretch);
    list->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
    list->setMinimumHeight((leastLines + 1) * (list->fontMetrics().height() + leastLines));
    return list;
}

QWidget* ZLFitSheet::makeBody()
{
    m_picture->setObjectName(u"fitPicture"_s);
    m_outcome->setObjectName(u"fitOutcome"_s);
    m_outcome->setTextFormat(Qt::PlainText);
    m_outcome->setWordWrap(true);
    auto* body = new QWidget(this);
    auto* layout = new QVBoxLayout(body);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_choices);
    layout->addWidget(m_outcome);
    layout->addWidget(m_picture, 1);
    layout->addWidget(m_list, 1);
    // Keeps what is above together while there is neither of both.
    layout->addStretch();
    return ZLSheetParts::scrolling(body, this);
}

QWidget* ZLFitSheet::makeButtonRow()
{
    m_progress->setObjectName(u"fitProgress"_s);
    m_progress->setAccessibleName(tr("Progress of the fit"));
    m_progress->setRange(0, progressSteps);
    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_play);
    layout->addWidget(m_progress, 1);
    layout->addStretch();
    for (QPushButton* button : { m_close, m_start, m_write, m_newDocument, m_apply })
        layout->addWidget(button);
    return row;
}

void ZLFitSheet::setTexts(const QMenuBar& menus)
{
    ZLMnemonics mnemonics;
    mnemonics.leaveToMenus(menus);
    m_apply->setText(mnemonics.withMnemonic(tr("Apply")));
    m_apply->setToolTip(tr("Put the chapters of this document to their places in the finished file"));
    m_play->setText(mnemonics.withMnemonic(tr("Play")));
    m_play->setToolTip(tr("Play four seconds of the finished file at the new place of the selected chapter"));
    m_start->setText(mnemonics.withMnemonic(tr("Find Chapters")));
    m_newDocument->setText(mnemonics.withMnemonic(tr("New Document")));
    m_newDocument->setToolTip(
        tr("Make a new document of the chapters at their new places, and leave this one as it is"));
    m_write->setText(mnemonics.withMnemonic(tr("Write into File…")));
    m_write->setToolTip(tr("Write the chapters at their new places into the finished file"));
    m_choices->setTexts(mnemonics);
    m_closeText = mnemonics.withMnemonic(tr("Close"));
    m_cancelText = mnemonics.withMnemonic(tr("Cancel"));
}

void ZLFitSheet::connectParts()
{
    connect(&m_draft, &ZLFitDraft::didChange, this, &ZLFitSheet::update);
    connect(&m_draft, &ZLFitDraft::didEnd, this, [this] {
        if (isVisible() && isAncestorOf(focusWidget()))
            takeKeyboard();
        Q_EMIT hasNews(outcome());
    });
    connect(&m_draft, &ZLFitDraft::didFindZero, this, [this] {
        if (isVisible() && isAncestorOf(focusWidget()))
            takeKeyboard();
    });
    connect(m_choices, &ZLFitChoices::fileWasChosen, this, &ZLFitSheet::takeKeyboard);
    connect(m_play, &QPushButton::clicked, this, &ZLFitSheet::play);
    connect(m_close, &QPushButton::clicked, this, &ZLFitSheet::dismiss);
    connect(m_start, &QPushButton::clicked, this, &ZLFitSheet::start);
    connect(m_write, &QPushButton::clicked, this, &ZLFitSheet::writingRequested);
    connect(m_newDocument, &QPushButton::clicked, this, &ZLFitSheet::newDocumentRequested);
    connect(m_apply, &QPushButton::clicked, this, &ZLFitSheet::apply);
    m_progressTimer.setInterval(progressInterval);
    connect(&m_progressTimer, &QTimer::timeout, this,
        [this] { m_progress->setValue(int(m_draft.fraction() * progressSteps)); });
}

void ZLFitSheet::connectMarks()
{
    connect(m_picture, &ZLFitPicture::markSelected, this, &ZLFitSheet::selectMark);
    connect(m_picture, &ZLFitPicture::playRequested, this, &ZLFitSheet::play);
    m_list->installEventFilter(this);
    connect(m_list, &QTreeView::clicked, this, &ZLFitSheet::play);
    connect(m_list->selectionModel(), &QItemSelectionModel::currentChanged, this, [this](const QModelIndex& current) {
        m_picture->setSelectedMark(current.row());
        updateButtons();
    });
}

void ZLFitSheet::update()
{
    m_marks->setFit(m_draft.fit());
    m_picture->setFit(m_draft.fit());
    if (!m_list->currentIndex().isValid())
        selectMark(0);
    m_picture->setSelectedMark(selectedMark());
    m_picture->setVisible(m_draft.fit().has_value());
    m_list->setVisible(m_draft.fit().has_value());
    showOutcome();
    updateProgress();
    updateButtons();
}

void ZLFitSheet::updateButtons()
{
    const std::array<QPushButton*, 5> buttons { m_play, m_start, m_write, m_newDocument, m_apply };
    const bool hadKeyboard = std::ranges::any_of(buttons, &QPushButton::hasFocus);
    const bool hasMarks = m_draft.fit() && !m_draft.fit()->chapters.isEmpty();
    m_play->setEnabled(canPlay());
    m_start->setEnabled(m_draft.canStart());
    m_write->setEnabled(hasMarks && !m_draft.finishedPath().isEmpty());
    m_newDocument->setEnabled(hasMarks);
    m_apply->setEnabled(m_draft.canApply());
    m_close->setText(m_draft.isWorking() ? m_cancelText : m_closeText);
    // A button that goes out of service hands the keyboard on.
    if (hadKeyboard && std::ranges::none_of(buttons, &QPushButton::hasFocus))
        m_close->setFocus();
}

void ZLFitSheet::updateProgress()
{
    const bool isWorking = m_draft.isWorking();
    m_progress->setVisible(isWorking);
    if (isWorking == m_progressTimer.isActive())
        return;
    m_progress->setValue(0);
    if (isWorking)
        m_progressTimer.start();
    else
        m_progressTimer.stop();
}

void ZLFitSheet::showOutcome()
{
    const QString text = outcome();
    if (m_outcome->text() == text)
        return;
    m_outcome->setText(text);
    QAccessibleEvent alert(m_outcome, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

QString ZLFitSheet::outcome() const
{
    if (m_draft.isWorking())
        return tr("Listening. The show can go on meanwhile.");
    if (!m_draft.fit()) {
        return m_draft.message().isEmpty()
            ? tr("Choose the finished file, and the recording as it was before it was cut.")
            : m_draft.message();
    }
    const ZLFit& fit = *m_draft.fit();
    const QString counts = tr("Kept: %1, moved to the seam: %2, cut: %3, not found: %4.")
                               .arg(fit.count(ZLMomentState::Kept))
                               .arg(fit.count(ZLMomentState::Seam))
                               .arg(fit.count(ZLMomentState::Cut))
                               .arg(fit.count(ZLMomentState::NotFound));
    QStringList sentences { counts };
    if (m_draft.isApplied())
        sentences.prepend(tr("The chapters of this document follow this file."));
    if (const QString moved = ZLFitReport::movedText(fit); !moved.isEmpty())
        sentences.append(moved);
    return sentences.join(u' ');
}

void ZLFitSheet::dismiss()
{
    if (m_draft.isWorking())
        m_draft.cancel();
    else
        Q_EMIT wantsToClose();
}

void ZLFitSheet::goOn()
{
    if (m_draft.canApply())
        apply();
    else if (!m_draft.fit())
        start();
}

void ZLFitSheet::start()
{
    m_choices->commitTypedText();
    m_draft.start();
}

void ZLFitSheet::apply()
{
    const ZLFit fit = m_draft.fit().value_or(ZLFit());
    m_draft.apply();
    QStringList notFound;
    for (const ZLFittedChapter& found : fit.chapters) {
        if (!found.isFound())
            notFound.append(found.mark.chapter->title());
    }
    Q_EMIT hasNews(notFound.isEmpty() ? tr("The chapters are where the finished file has them.")
                                      : tr("Not found, unticked at their old times: %1").arg(notFound.join(u", "_s)));
}

void ZLFitSheet::play()
{
    if (canPlay())
        Q_EMIT playRequested(m_draft.fit()->chapters.at(selectedMark()).newTime());
}

void ZLFitSheet::selectMark(int index)
{
    m_list->setCurrentIndex(m_marks->index(index, 0));
}

int ZLFitSheet::selectedMark() const
{
    return m_list->currentIndex().row();
}

bool ZLFitSheet::canPlay() const
{
    const int index = selectedMark();
    return m_draft.fit() && !m_draft.finishedPath().isEmpty() && index >= 0 && index < m_draft.fit()->chapters.size()
        && m_draft.fit()->chapters.at(index).isFound();
}
