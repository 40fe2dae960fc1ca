#pragma once

#include "document/ZLChapterDocument.h"

#include <QToolBar>

class QLabel;
class QToolButton;

/// The toolbar of a document window: record button, clock, add with what comes next, delete, and the drawer's switch.
/// It shows what it is told and says what was pressed. While the clock runs, it, the record button and a line along the
/// bottom are red.
class ZLDocumentToolbar : public QToolBar {
    Q_OBJECT

public:
    /// Tags of the two items that are validated, in the buttons' property "tag".
    enum Tag { DeleteTag = 2, AddTag = 3 };
    enum class RecordFace {
        Start, ///< Image "StartButton", label "Start".
        Pause, ///< Image "StopButton", label "Pause".
    };

    explicit ZLDocumentToolbar(QWidget* parent = nullptr);

    void setRecordFace(RecordFace face);
    void setAddFace(ZLAddButtonFace face);
    /// The title that the next press of the add button gives a chapter; empty when the press adds a blank one.
    void setNextTitle(const QString& title);
    /// `age` is the time since the last chapter, empty when there is none.
    void setClock(const QString& clock, const QString& age);
    /// Enables the items with this tag.
    void setTagEnabled(Tag tag, bool enabled);

    [[nodiscard]] QToolButton* recordButton() const { return m_recordButton; }
    [[nodiscard]] QToolButton* addButton() const { return m_addButton; }
    [[nodiscard]] QToolButton* deleteButton() const { return m_deleteButton; }
    [[nodiscard]] QToolButton* drawerButton() const { return m_drawerButton; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void build();
    QWidget* createTimeLabel();
    QWidget* createChapterCommands();
    QToolButton* createButton(
        const QString& name, const QString& image, const QStringList& labels, Qt::ToolButtonStyle style);
    void styleClock();
    void growClockFor(const QString& text);
    void showNextTitle();
    void updateRecordColors();

    QToolButton* m_recordButton;
    QToolButton* m_addButton;
    QToolButton* m_deleteButton;
    QToolButton* m_drawerButton;
    QLabel* m_clockLabel;
    QLabel* m_ageLabel;
    QLabel* m_ageCaption;
    QLabel* m_nextLabel;
    QString m_nextTitle;
    RecordFace m_recordFace = RecordFace::Start;
    qsizetype m_clockCharacters = 0;
};
