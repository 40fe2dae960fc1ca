#pragma once

#include "following/ZLFollowing.h"

#include <QGroupBox>

#include <functional>

class QButtonGroup;
class QCheckBox;
class QLabel;

/// Whom to follow: a button for each kind of recorder and one for none, and what a press does beside starting the
/// clock.
class ZLRecorderChoicePanel : public QGroupBox {
    Q_OBJECT

public:
    /// `following` has to outlive the panel. `currentDocument` gives the document that would follow; null for none.
    ZLRecorderChoicePanel(
        ZLFollowing& following, std::function<ZLChapterDocument*()> currentDocument, QWidget* parent = nullptr);

    /// The word of the kind whose button is down; empty for none.
    [[nodiscard]] QString chosenWord() const;

Q_SIGNALS:
    void chosenWordDidChange();

private:
    void addChoice(const QString& word, const QString& text);
    void addOption(QCheckBox*& box, const QString& objectName, const QString& text, const QString& toolTip);
    void choose(int number);
    void update();

    ZLFollowing& m_following;
    std::function<ZLChapterDocument*()> m_currentDocument;
    QButtonGroup* m_choices;
    QStringList m_words;
    QCheckBox* m_startsRecorder = nullptr;
    QCheckBox* m_marksChapters = nullptr;
    QLabel* m_document;
};
