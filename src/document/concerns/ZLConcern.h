#pragma once

#include "document/concerns/ZLConcernChoice.h"

#include <QList>
#include <QString>
#include <QStringList>

/// What a concern is about.
enum class ZLConcernMatter {
    File, ///< Whether the document is written.
    RecoveryFolder, ///< The same for its journal. All documents have one folder.
    Recording,
    Opening, ///< What is to be known of a file that was opened.
};

/// Something about a document that needs a decision, or that its user is told.
struct ZLConcern {
    /// Tells the concerns of one document apart.
    QString name {};
    QString sentence {};
    QList<ZLConcernAction> choices {};
    ZLConcernMatter matter = ZLConcernMatter::File;
    /// Whether something went wrong, and not only waits for a decision.
    bool isError = false;
    /// Names of concerns that say the same with less.
    QStringList coveredNames {};

    bool operator==(const ZLConcern&) const = default;
    /// The sentence, and after it what each word that a person can type does.
    [[nodiscard]] QString sentenceWithWords() const;
};

namespace ZLConcernName {
inline const QString FileConflict = QStringLiteral("fileConflict");
inline const QString InterruptedRecording = QStringLiteral("interruptedRecording");
inline const QString OpenElsewhere = QStringLiteral("openElsewhere");
inline const QString RecoveryFailure = QStringLiteral("recoveryFailure");
inline const QString SavingFailure = QStringLiteral("savingFailure");
inline const QString ReadOnlyFile = QStringLiteral("readOnlyFile");
inline const QString RecorderDifference = QStringLiteral("recorderDifference");
inline const QString Sleep = QStringLiteral("sleep");
}
