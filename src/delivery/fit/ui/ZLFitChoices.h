#pragma once

#include "delivery/fit/ZLFitDraft.h"

#include <QWidget>

class QComboBox;
class QDoubleSpinBox;
class QGridLayout;
class QLabel;
class QPushButton;
class ZLMnemonics;

/// Which finished file is looked into, and where it is known from how the show sounded.
class ZLFitChoices : public QWidget {
    Q_OBJECT

public:
    /// `draft` has to outlive it.
    explicit ZLFitChoices(ZLFitDraft& draft, QWidget* parent = nullptr);

    void setTexts(ZLMnemonics& mnemonics);
    /// Where the dialogs start while nothing is chosen.
    void setFolder(const QString& folder) { m_folder = folder; }
    /// To where the next choice is to be made.
    void takeKeyboard();
    /// What is still being typed counts.
    void commitTypedText();

Q_SIGNALS:
    void fileWasChosen();

private:
    void addFinishedRow(QGridLayout& layout);
    void addShowRow(QGridLayout& layout);
    void update();
    void fillFiles();
    void fillSources();
    [[nodiscard]] static QString recorderText(const QList<ZLRecorderFile>& files);
    void takeFile(int index);
    void chooseFile(
        const QString& title, const QString& name, const QString& former, void (ZLFitDraft::*take)(const QString&));

    ZLFitDraft& m_draft;
    QLabel* m_filesLabel;
    QComboBox* m_files;
    QPushButton* m_chooseFile;
    QLabel* m_sourcesLabel;
    QComboBox* m_sources;
    QPushButton* m_chooseRecording;
    QLabel* m_zeroLabel;
    QDoubleSpinBox* m_zero;
    QPushButton* m_findZero;
    QString m_folder;
};
