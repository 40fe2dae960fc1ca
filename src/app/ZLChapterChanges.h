#pragma once

#include "model/ZLChapterManager.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QSet>

/// Collects which chapters came into a list and which left it, until it is asked. What came and went in between is
/// left out. It keeps no copy of the list, which would make the list's next change copy all of it.
class ZLChapterChanges : public QObject {
    Q_OBJECT

public:
    struct Row {
        /// Of a chapter that came: where it stands now. Of one that left: where it stood then.
        qsizetype index = 0;
        ZLChapterPointer chapter;
    };

    /// `manager` has to outlive the object.
    explicit ZLChapterChanges(ZLChapterManager& manager);

    [[nodiscard]] bool isEmpty() const { return m_added.isEmpty() && m_removed.isEmpty(); }
    /// Ordered by index; each asks once and forgets.
    /// @{
    [[nodiscard]] QList<Row> takeAdded();
    [[nodiscard]] QList<Row> takeRemoved();
    /// @}

private:
    void noteAddition(const ZLChapterPointer& chapter);
    void noteRemoval(qsizetype index);
    void noteRemovalOfAll();
    void noteAdditionOfAll();

    ZLChapterManager& m_manager;
    QSet<ZLChapterPointer> m_added;
    QHash<ZLChapterPointer, qsizetype> m_removed;
};
