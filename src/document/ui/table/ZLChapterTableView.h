#pragma once

#include <QTableView>
#include <QUrl>

class QLineEdit;
class ZLChapterCellDelegate;
class ZLChapterColumnLayout;
class ZLChapterDocument;

/// The chapter table of a document window. No operation of it walks over all rows, so that long lists stay fluid.
class ZLChapterTableView : public QTableView {
    Q_OBJECT

public:
    explicit ZLChapterTableView(QWidget* parent = nullptr);

    /// To be called once; `document` has to outlive the view.
    void showDocument(ZLChapterDocument& document);

    /// Scrolls to the cell and opens it for typing with its text selected. Text being typed elsewhere is committed
    /// first.
    void beginEditing(const QModelIndex& index);
    /// The same with text that was typed there before and is not written yet.
    void beginEditingAgain(const QModelIndex& index, const QString& typedText);
    /// Writes what is being typed; the field stays open.
    void commitTypedText();
    /// Writes what is being typed and gives the keyboard back to the table.
    void finishEditing();
    [[nodiscard]] bool isEditing() const;
    [[nodiscard]] bool isEditingTime() const;
    /// The field that is open for typing, or null.
    [[nodiscard]] QLineEdit* openField() const;

    /// Applies the font size setting: rows are four points higher than the font.
    void setFontSize();

    /// Null until a document is shown.
    [[nodiscard]] ZLChapterColumnLayout* columnLayout() const { return m_columnLayout; }

    /// The address that a link cell leads to: a web or mail address, or nothing for any other text. An address without
    /// a scheme counts as a web address.
    [[nodiscard]] static QUrl addressOfLink(const QString& text);

Q_SIGNALS:
    /// A link was clicked with Ctrl held.
    void linkActivated(const QUrl& address);
    /// How the time is to be typed whose field is open now; empty while none is.
    void timeFormDidChange(const QString& form);
    /// The menu of the selected chapter should come up at this place of the screen.
    void contextMenuRequested(const QPoint& place);

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void commitData(QWidget* editor) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
    [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(
        const QModelIndex& index, const QEvent* event) const override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void configure();
    void dropTypedText();
    /// A time that is not finished is dropped with its row.
    void dropTimeTypedInRow(int row);
    void showTimeForm(int column);
    void editSelectedCell();
    void updateEmptyState();
    /// The next title or link; times are passed by.
    [[nodiscard]] QModelIndex textCellFrom(const QModelIndex& start, int step) const;

    const ZLChapterDocument* m_document = nullptr;
    ZLChapterCellDelegate* m_delegate;
    /// While another row is selected by a command that must not disturb who types a time.
    bool m_isFieldKept = false;
    ZLChapterColumnLayout* m_columnLayout = nullptr;
};
